// Customers: what its commit sends for customers, jobs and their sub-records, its own
// queries with the balance filter, the duplicate trap, Rename, AddExisting and the
// CustomersChanged callbacks. Every request is checked against the qbXML schema.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/customers.h"
#include "tests/support/text_match.h"
#include "tests/support/raised.h"
#include "tests/lists/customer_records.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {
namespace {

using testing::Batch;
using testing::CustomerRet;
using testing::ListSession;
using testing::NumberRaised;
using testing::ResponseElement;
using testing::ScriptedProcessor;

using testing::Contains;

class CustomersTest : public ::testing::Test {
 protected:
  explicit CustomersTest(const std::string& version = "3.0") : qb(version) {}

  // The customers of one query response, Clean in the master collection.
  void Load(const std::string& records) {
    qb.Answer(ScriptedProcessor::Response("CustomerQueryRs", records));
    customers->GetAll();
    qb.processor().ClearRecords();
  }
  std::shared_ptr<Customer> LoadOne(const std::string& more = "") {
    Load(CustomerRet("80000001-1", "Acme", more));
    return customers->Item(Variant(1));
  }
  // Commits and answers each request with the record given for it.
  int32_t CommitAnswering(const std::vector<std::string>& responses) {
    qb.Answer(Batch(responses));
    return customers->Commit();
  }
  const std::string& Sent() { return qb.processor().LastRequest(); }

  ListSession qb;
  std::shared_ptr<Customers> customers = qb.Register<Customers>();
};

class CustomersAt2Test : public CustomersTest {
 protected:
  CustomersAt2Test() : CustomersTest("2.0") {}
};

// ---- Add --------------------------------------------------------------------------------

TEST_F(CustomersTest, AddSendsEveryArgumentInTheOrderQuickBooksWants) {
  customers->Add("Acme", "", "Retail", "Net 30", "JD", "Tax", "State Tax", "R-1", Currency(500), Currency(75),
                 DateSerial(2004, 1, 2), qbJobStatusPending, DateSerial(2004, 2, 1), DateSerial(2004, 3, 1),
                 DateSerial(2004, 4, 1), "Kitchen", "Remodel", "A-1", "Bo", "555-0101", "Acme Ltd", "Al", "al@x.test",
                 "555-0102", "Al", "B", "Cox", true, "555-0100", "Mr.", "1 Main", "Suite 2", "", "Bayshore", "CA",
                 "94326", "USA", "9 Dock", "", "", "Bayshore", "CA", "94326", "USA");
  EXPECT_EQ(CommitAnswering({ResponseElement("CustomerAddRs", 1, 0, CustomerRet("80000001-1", "Acme"))}), 0);

  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_TRUE(Contains(Sent(),
                       "<CustomerAdd><Name>Acme</Name><IsActive>1</IsActive><CompanyName>Acme Ltd</CompanyName>"
                       "<Salutation>Mr.</Salutation><FirstName>Al</FirstName><MiddleName>B</MiddleName>"
                       "<LastName>Cox</LastName><BillAddress><Addr1>1 Main</Addr1><Addr2>Suite 2</Addr2>"
                       "<City>Bayshore</City><State>CA</State><PostalCode>94326</PostalCode><Country>USA</Country>"
                       "</BillAddress><ShipAddress><Addr1>9 Dock</Addr1>"))
      << Sent();
  EXPECT_TRUE(Contains(Sent(), "<SalesRepRef><FullName>JD</FullName></SalesRepRef><OpenBalance>75.00</OpenBalance>"
                               "<OpenBalanceDate>2004-01-02</OpenBalanceDate><SalesTaxCodeRef>"))
      << Sent();
  EXPECT_TRUE(Contains(Sent(), "<CreditLimit>500.00</CreditLimit><JobStatus>Pending</JobStatus>"
                               "<JobStartDate>2004-02-01</JobStartDate>"))
      << Sent();
  EXPECT_EQ(customers->Item(Variant("Acme"))->ListID(), "80000001-1");
}

TEST_F(CustomersTest, NewCustomerSendsItsEmptyAddressesAndNoEmptyFields) {
  customers->Add("Acme");
  CommitAnswering({ResponseElement("CustomerAddRs", 1, 0, CustomerRet("1-1", "Acme"))});
  EXPECT_TRUE(Contains(Sent(), "<CustomerAdd><Name>Acme</Name><IsActive>1</IsActive><BillAddress></BillAddress>"
                               "<ShipAddress></ShipAddress></CustomerAdd>"))
      << Sent();
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST_F(CustomersTest, JobOfAJobHasSublevelTwoAndTheParentsFullName) {
  Load(CustomerRet("1-1", "Acme") + CustomerRet("2-1", "Kitchen", "", "Acme"));
  auto job = customers->Add("Sink", "Acme:Kitchen");

  EXPECT_EQ(job->Sublevel(), 2);
  EXPECT_EQ(job->FullName(), "Acme:Kitchen:Sink");
  EXPECT_TRUE(customers->Item(Variant("Acme:Kitchen"))->Jobs()->ItemExists(Variant("Acme:Kitchen:Sink")));
  EXPECT_TRUE(customers->Item(Variant("Acme"))->Jobs()->ItemExists(Variant("Acme:Kitchen")));

  CommitAnswering({ResponseElement("CustomerAddRs", 3, 0, CustomerRet("3-1", "Sink", "", "Acme:Kitchen"))});
  EXPECT_TRUE(Contains(Sent(), "<Name>Sink</Name><IsActive>1</IsActive><ParentRef><FullName>Acme:Kitchen</FullName>"))
      << Sent();
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST_F(CustomersTest, NotesGoOutFromVersion3) {
  customers->Add("Acme")->SetNotes("Call first");
  CommitAnswering({ResponseElement("CustomerAddRs", 1, 0, CustomerRet("1-1", "Acme"))});
  EXPECT_TRUE(Contains(Sent(), "<Notes>Call first</Notes>")) << Sent();
}

TEST_F(CustomersAt2Test, NotesCanBeSetButDoNotGoOutBelowVersion3) {
  customers->Add("Acme")->SetNotes("Call first");
  CommitAnswering({ResponseElement("CustomerAddRs", 1, 0, CustomerRet("1-1", "Acme"))});
  EXPECT_FALSE(Contains(Sent(), "Notes")) << Sent();
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST_F(CustomersTest, OpeningBalanceCannotChangeAfterTheFirstCommit) {
  auto c = customers->Add("Acme", "", "", "", "", "", "", "", Currency(), Currency(10));
  CommitAnswering({ResponseElement("CustomerAddRs", 1, 0, CustomerRet("1-1", "Acme"))});
  State().QBXMLVersionNumber = Currency(12);
  EXPECT_EQ(NumberRaised([&] { c->SetOpeningBalance(Currency(20)); }), err::kFieldCannotBeModified);
  EXPECT_EQ(c->OpeningBalance(), Currency(10));
  EXPECT_EQ(c->ObjectState(), qoObjectStateClean);
}

TEST_F(CustomersTest, AddOnACollectionOfTheApplicationIsRefused) {
  Customers mine;
  EXPECT_EQ(NumberRaised([&] { mine.Add("Acme"); }), err::kMasterOnly);
  EXPECT_EQ(mine.Count(), 0);
}

// ---- Modify -----------------------------------------------------------------------------

TEST_F(CustomersTest, ModifyCarriesTheFieldsQuickBooksCanChange) {
  auto c = LoadOne("<TermsRef><ListID>T-1</ListID><FullName>Net 30</FullName></TermsRef>");
  c->SetPhone("555-0199");
  c->SetTerms("");  // clears the reference
  c->SetIsActive(false);
  CommitAnswering({ResponseElement("CustomerModRs", 1, 0, CustomerRet("80000001-1", "Acme", "", "", "1001"))});

  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_TRUE(Contains(Sent(), "<CustomerMod><ListID>80000001-1</ListID><EditSequence>1000</EditSequence>"
                               "<Name>Acme</Name><IsActive>0</IsActive><CompanyName></CompanyName>"))
      << Sent();
  EXPECT_TRUE(Contains(Sent(), "<Phone>555-0199</Phone>")) << Sent();
  EXPECT_TRUE(Contains(Sent(), "<TermsRef><FullName></FullName></TermsRef>")) << Sent();
  EXPECT_TRUE(Contains(Sent(), "<JobStatus>None</JobStatus>")) << Sent();
  EXPECT_FALSE(Contains(Sent(), "BillAddress")) << Sent();
  EXPECT_FALSE(Contains(Sent(), "CreditLimit")) << Sent();
  EXPECT_EQ(c->EditSequence(), "1001");
  EXPECT_EQ(c->ObjectState(), qoObjectStateClean);
}

TEST_F(CustomersAt2Test, ModifyBelowVersion3LeavesOutWhatItCannotCarry) {
  auto c = LoadOne("<TermsRef><FullName>Net 30</FullName></TermsRef>");
  c->SetPhone("555-0199");
  c->SetNotes("later");
  EXPECT_EQ(NumberRaised([&] { c->SetTerms("Net 10"); }), err::kFieldCannotBeModified);
  CommitAnswering({ResponseElement("CustomerModRs", 1, 0, CustomerRet("80000001-1", "Acme"))});

  EXPECT_TRUE(qb.processor().AllRequestsValid());
  for (const char* absent : {"IsActive", "TermsRef", "Notes", "JobStatus", "ResaleNumber", "CreditLimit"})
    EXPECT_FALSE(Contains(Sent(), absent)) << absent << " in " << Sent();
  EXPECT_TRUE(Contains(Sent(), "<Phone>555-0199</Phone>"));
}

TEST_F(CustomersTest, CreditLimitOfZeroGoesOutOnlyWhenSet) {
  auto touched = LoadOne("<CreditLimit>0.00</CreditLimit>");
  touched->SetPhone("1");
  CommitAnswering({ResponseElement("CustomerModRs", 1, 0, CustomerRet("80000001-1", "Acme"))});
  EXPECT_FALSE(Contains(Sent(), "CreditLimit")) << Sent();

  touched->SetCreditLimit(Currency());
  CommitAnswering({ResponseElement("CustomerModRs", 1, 0, CustomerRet("80000001-1", "Acme"))});
  EXPECT_TRUE(Contains(Sent(), "<CreditLimit>0.00</CreditLimit>")) << Sent();
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

struct AddressStates {
  const char* name;
  qoEnumObjectState shipTo;
  qoEnumObjectState billTo;
  bool sent;
};

class CustomersAddressTest : public CustomersTest, public ::testing::WithParamInterface<AddressStates> {};

TEST_P(CustomersAddressTest, CleanCustomerIsSentAsTheShipToAddressDecides) {
  auto c = LoadOne();
  c->ShipTo()->SetLine1("9 Dock");
  c->BillTo()->SetLine1("1 Main");
  detail::ListObjectAccess::SetObjectState(*c->ShipTo(), GetParam().shipTo);
  detail::ListObjectAccess::SetObjectState(*c->BillTo(), GetParam().billTo);
  ASSERT_EQ(c->ObjectState(), qoObjectStateClean);
  if (GetParam().sent) qb.Answer(Batch({ResponseElement("CustomerModRs", 1, 0, CustomerRet("80000001-1", "Acme"))}));

  customers->Commit();

  EXPECT_EQ(qb.processor().Requests().size(), GetParam().sent ? 1u : 0u);
  if (!GetParam().sent) return;
  EXPECT_TRUE(qb.processor().AllRequestsValid());
  // Each address that is not Clean travels.
  EXPECT_EQ(Contains(Sent(), "<ShipAddress><Addr1>9 Dock</Addr1></ShipAddress>"), GetParam().shipTo != qoObjectStateClean);
  EXPECT_EQ(Contains(Sent(), "<BillAddress><Addr1>1 Main</Addr1></BillAddress>"), GetParam().billTo != qoObjectStateClean);
  EXPECT_EQ(c->ShipTo()->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(c->BillTo()->ObjectState(), qoObjectStateClean);
}

INSTANTIATE_TEST_SUITE_P(
    States, CustomersAddressTest,
    ::testing::Values(AddressStates{"ShipDirtyBillNew", qoObjectStateDirty, qoObjectStateNew, true},
                      AddressStates{"ShipNewBillDirty", qoObjectStateNew, qoObjectStateDirty, false},
                      AddressStates{"ShipCleanBillDirty", qoObjectStateClean, qoObjectStateDirty, true},
                      AddressStates{"ShipCleanBillNew", qoObjectStateClean, qoObjectStateNew, false},
                      AddressStates{"BothClean", qoObjectStateClean, qoObjectStateClean, false}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(CustomersTest, CreditCardTravelsOnlyWhenNotEmpty) {
  auto c = customers->Add("Acme");
  c->CreditCard()->SetCardNumber("4111111111111111");
  c->CreditCard()->SetExpirationMonth(12);
  CommitAnswering({ResponseElement("CustomerAddRs", 1, 0, CustomerRet("1-1", "Acme"))});
  EXPECT_TRUE(Contains(Sent(), "<CreditCardInfo><CreditCardNumber>4111111111111111</CreditCardNumber>"
                               "<ExpirationMonth>12</ExpirationMonth><NameOnCard></NameOnCard>"
                               "<CreditCardAddress></CreditCardAddress><CreditCardPostalCode></CreditCardPostalCode>"
                               "</CreditCardInfo>"))
      << Sent();
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

// ---- Responses --------------------------------------------------------------------------

TEST_F(CustomersTest, FailedCommitKeepsTheWholeMessageUnderQuickBooksResponse) {
  auto c = customers->Add("Acme");
  State().ErrorMode = false;
  CommitAnswering({ResponseElement("CustomerAddRs", 1, 3000, "", "QuickBooks error message: Bad data")});
  EXPECT_EQ(c->ObjectState(), qoObjectStateNew);
  ASSERT_EQ(c->Errors()->Count(), 1);
  EXPECT_EQ(c->Errors()->Item(1)->Field(), "QuickBooks response: ");
  EXPECT_EQ(c->Errors()->Item(1)->Description(), "QuickBooks error message: Bad data");
}

TEST_F(CustomersTest, NewCustomerIsKeyedByTheFullNameQuickBooksReturns) {
  auto c = customers->Add("acme");
  CommitAnswering({ResponseElement("CustomerAddRs", 1, 0, CustomerRet("1-1", "Acme, Inc."))});
  EXPECT_FALSE(customers->ItemExists(Variant("acme")));
  EXPECT_EQ(customers->Item(Variant("Acme, Inc.")), c);
}

TEST_F(CustomersTest, CustomersChangedTellsTheAcceptedCustomers) {
  std::vector<std::vector<std::string>> told;
  customers->OnCustomersChanged([&](const std::shared_ptr<Customers>& custs) {
    std::vector<std::string> names;
    for (const auto& c : *custs) names.push_back(c->FullName());
    EXPECT_FALSE(custs->IsMaster());
    told.push_back(names);
  });
  customers->Add("Acme");
  customers->Add("Bolt");
  State().ErrorMode = false;
  CommitAnswering({ResponseElement("CustomerAddRs", 1, 0, CustomerRet("1-1", "Acme")),
                   ResponseElement("CustomerAddRs", 2, 3100, "", "The name is already in use.")});
  customers->Commit(customers->Item(Variant("Acme")));  // Clean: nothing is sent, nobody is told

  ASSERT_EQ(told.size(), 1u);
  EXPECT_EQ(told[0], std::vector<std::string>{"Acme"});
}

// ---- Queries ----------------------------------------------------------------------------

struct QueryCase {
  const char* name;
  std::function<int32_t(Customers&)> query;
  const char* request;
};

const QueryCase kQueries[] = {
    {"GetAllWithLimitAndBalance", [](Customers& c) { return c.GetAll(5, qbGreaterThan, Currency(100)); },
     "<CustomerQueryRq><MaxReturned>5</MaxReturned><ActiveStatus>All</ActiveStatus><TotalBalanceFilter>"
     "<Operator>GreaterThan</Operator><Amount>100.00</Amount></TotalBalanceFilter></CustomerQueryRq>"},
    {"GetActiveWithoutFilter", [](Customers& c) { return c.GetActive(); },
     "<CustomerQueryRq><ActiveStatus>ActiveOnly</ActiveStatus></CustomerQueryRq>"},
    {"NameRangeWithBalance",
     [](Customers& c) { return c.GetByNameRange("A", "M", 0, qbLessThanOrEqual, Currency::Parse("12.5")); },
     "<CustomerQueryRq><NameRangeFilter><FromName>A</FromName><ToName>M</ToName></NameRangeFilter>"
     "<TotalBalanceFilter><Operator>LessThanEqual</Operator><Amount>12.50</Amount></TotalBalanceFilter>"
     "</CustomerQueryRq>"},
    {"NameMatch", [](Customers& c) { return c.GetByNameMatch("Ac", qbMatchStartsWith, 3); },
     "<CustomerQueryRq><MaxReturned>3</MaxReturned><NameFilter><MatchCriterion>StartsWith</MatchCriterion>"
     "<Name>Ac</Name></NameFilter></CustomerQueryRq>"},
    {"DateSpan", [](Customers& c) { return c.GetByDateSpan(DateSerial(2004, 1, 1), 0, 0, qbEqual, Currency()); },
     "<CustomerQueryRq><FromModifiedDate>2004-01-01T00:00:00</FromModifiedDate><TotalBalanceFilter>"
     "<Operator>Equal</Operator><Amount>0.00</Amount></TotalBalanceFilter></CustomerQueryRq>"},
    {"ListIDs", [](Customers& c) { return c.GetByListIDs({"1-1", "2-1"}); },
     "<CustomerQueryRq><ListID>1-1</ListID><ListID>2-1</ListID></CustomerQueryRq>"},
};

class CustomersQueryTest : public CustomersTest, public ::testing::WithParamInterface<QueryCase> {};

TEST_P(CustomersQueryTest, SendsItsFiltersAndReplacesTheContent) {
  customers->Add("Uncommitted");
  qb.Answer(ScriptedProcessor::Response("CustomerQueryRs", CustomerRet("1-1", "Acme") + CustomerRet("2-1", "Bolt")));

  EXPECT_EQ(GetParam().query(*customers), 2);

  EXPECT_TRUE(Contains(Sent(), GetParam().request)) << Sent();
  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_FALSE(customers->ItemExists(Variant("Uncommitted")));
}

INSTANTIATE_TEST_SUITE_P(Filters, CustomersQueryTest, ::testing::ValuesIn(kQueries),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(CustomersTest, GetByListIDsWithoutIdsRaises) {
  EXPECT_EQ(NumberRaised([&] { customers->GetByListIDs({}); }), err::kEmptyArray);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST_F(CustomersTest, ListGetByActiveStatusCountsWithoutMakingObjectsAndSendsOnlyTheStatus) {
  qb.Answer(ScriptedProcessor::Response("CustomerQueryRs", CustomerRet("1-1", "Acme") + CustomerRet("2-1", "Bolt") +
                                                               CustomerRet("3-1", "Kitchen", "", "Acme")));

  EXPECT_EQ(customers->ListGetByActiveStatus(qbStatusInactive, 2, qbGreaterThan, Currency(5)), 3);

  EXPECT_TRUE(Contains(Sent(), "<CustomerQueryRq requestID = \"1\"><ActiveStatus>InactiveOnly</ActiveStatus>"
                               "</CustomerQueryRq>"))
      << Sent();
  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_EQ(customers->Count(), 0);
}

TEST_F(CustomersTest, TwoRecordsOfOneFullNameRaiseTheDuplicateTrap) {
  qb.Answer(ScriptedProcessor::Response("CustomerQueryRs", CustomerRet("1-1", "Acme") + CustomerRet("2-1", "ACME")));
  const auto e = testing::Raised([&] { customers->GetAll(); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kDuplicateName);
  EXPECT_EQ(e->Source(), "Customers:Getxxx");
  EXPECT_EQ(e->Description(), "The Customer:Job: ACME is duplicated in the QuickBooks file.");
}

TEST_F(CustomersTest, QuickBooksErrorOfAQueryIsCollectedNotRaised) {
  qb.Answer(ScriptedProcessor::Response("CustomerQueryRs", "", 3120, "Object not found"));
  EXPECT_EQ(customers->GetAll(), 0);
  ASSERT_EQ(customers->Errors()->Count(), 1);
  EXPECT_EQ(customers->Errors()->Item(1)->Number(), 3120);
}

TEST_F(CustomersTest, FailedStatusQueryKeepsWhatTheCollectionHeld) {
  LoadOne();
  auto added = customers->Add("Uncommitted");
  qb.Answer(ScriptedProcessor::Response("CustomerQueryRs", "", 3120, "Object not found"));
  EXPECT_EQ(customers->GetActive(), 2);
  EXPECT_EQ(customers->Item(Variant("Uncommitted")), added);
  EXPECT_EQ(customers->Errors()->Count(), 1);
}

// ---- Beside the master -------------------------------------------------------------------

TEST_F(CustomersTest, AddExistingWorksOnlyBesideTheMaster) {
  auto c = LoadOne();
  EXPECT_EQ(NumberRaised([&] { customers->AddExisting(c); }), err::kNotOnMaster);

  Customers mine;
  EXPECT_EQ(mine.AddExisting(c), 1);
  const auto e = testing::Raised([&] { mine.AddExisting(c->Clone()); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kDuplicateName);
  EXPECT_EQ(e->Description(), "The Customer:Job: Acme is duplicated in the QuickBooks file.");
  EXPECT_EQ(mine.Count(), 1);
}

TEST_F(CustomersTest, RenameToATakenNameChangesNothing) {
  Load(CustomerRet("1-1", "Acme") + CustomerRet("2-1", "Bolt"));
  auto acme = customers->Item(Variant("Acme"));

  EXPECT_FALSE(customers->Rename(acme, "bolt"));

  EXPECT_EQ(acme->Name(), "Acme");
  EXPECT_EQ(acme->ObjectState(), qoObjectStateClean);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST_F(CustomersTest, RenameOfAStoredCustomerRekeysItAndCommitsTheName) {
  auto acme = LoadOne();
  qb.Answer(ScriptedProcessor::Response("CustomerQueryRs", "", 500, "The query request has not been fully completed."));

  EXPECT_TRUE(customers->Rename(acme, "Apex"));

  EXPECT_EQ(customers->Item(Variant("Apex")), acme);
  EXPECT_FALSE(customers->ItemExists(Variant("Acme")));
  EXPECT_EQ(acme->ObjectState(), qoObjectStateDirty);
  CommitAnswering({ResponseElement("CustomerModRs", 1, 0, CustomerRet("80000001-1", "Apex"))});
  EXPECT_TRUE(Contains(Sent(), "<EditSequence>1000</EditSequence><Name>Apex</Name>")) << Sent();
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST_F(CustomersTest, RenamedNewCustomerKeepsItsKeyUntilItsFirstCommit) {
  auto c = customers->Add("Acme");
  qb.Answer(ScriptedProcessor::Response("CustomerQueryRs", "", 500, "The query request has not been fully completed."));
  EXPECT_TRUE(customers->Rename(c, "Apex"));
  EXPECT_EQ(customers->Item(Variant("Acme")), c);

  CommitAnswering({ResponseElement("CustomerAddRs", 1, 0, CustomerRet("1-1", "Apex"))});
  EXPECT_EQ(customers->Item(Variant("Apex")), c);
}

}  // namespace
}  // namespace tessaron
