// Vendor and OtherName: what their add and modify requests carry and in which order, the
// LastName rule of the modify, the flag rule of their setters, the checks of Validate
// (the name limit of 41 with the text of 31, the 1099 check), the edition rule of the 1099
// flag, copies, and the payables members that this version does not have.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/vendors.h"
#include "tessaron/transactions/txn_linked_transactions.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tests/support/text_match.h"
#include "tests/support/list_session.h"
#include "tests/support/raised.h"

namespace tessaron {
namespace {

using testing::Batch;
using testing::ListSession;
using testing::NumberRaised;
using testing::ResponseElement;
using testing::Ret;
using testing::ScriptedProcessor;

using testing::Contains;

std::string VendorRet(const std::string& id, const std::string& name, const std::string& more = "") {
  return Ret("Vendor", id, "<Name>" + name + "</Name><IsActive>true</IsActive>" + more);
}
std::string OtherNameRet(const std::string& id, const std::string& name, const std::string& more = "") {
  return Ret("OtherName", id, "<Name>" + name + "</Name><IsActive>true</IsActive>" + more);
}

class VendorsTest : public ::testing::Test {
 protected:
  explicit VendorsTest(const std::string& version = "3.0") : qb(version) {}

  std::shared_ptr<Vendor> LoadOne(const std::string& more = "") {
    qb.Answer(ScriptedProcessor::Response("VendorQueryRs", VendorRet("60000001-1", "Cal Tel", more)));
    vendors->GetAll();
    qb.processor().ClearRecords();
    return vendors->Item(Variant(1));
  }
  int32_t CommitAnswering(const std::string& rs, const std::string& ret) {
    qb.Answer(Batch({ResponseElement(rs, 1, 0, ret)}));
    return vendors->Commit();
  }
  const std::string& Sent() { return qb.processor().LastRequest(); }

  ListSession qb;
  std::shared_ptr<Vendors> vendors = qb.Register<Vendors>();
  std::shared_ptr<OtherNames> otherNames = qb.Register<OtherNames>();
};

// ---- Requests ---------------------------------------------------------------------------

TEST_F(VendorsTest, AddSendsEveryArgumentInTheOrderQuickBooksWants) {
  vendors->Add("Cal Tel", "Cal Telephone", "Ms.", "Ann", "B", "Cole", "555-0100", "555-0101", "555-0102",
               "ann.cal.test", "Ann Cole", "Bo Cole", "Cal Telephone Inc", "A-7", "", Currency(900), "12-345",
               true, Currency(50), DateSerial(2004, 1, 2), true, "1 Main", "", "", "Bayshore", "CA", "94326",
               "USA");
  EXPECT_EQ(CommitAnswering("VendorAddRs", VendorRet("60000001-1", "Cal Tel")), 0);

  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_TRUE(Contains(
      Sent(),
      "<VendorAdd><Name>Cal Tel</Name><IsActive>1</IsActive><CompanyName>Cal Telephone</CompanyName>"
      "<Salutation>Ms.</Salutation><FirstName>Ann</FirstName><MiddleName>B</MiddleName><LastName>Cole</LastName>"
      "<VendorAddress><Addr1>1 Main</Addr1><City>Bayshore</City><State>CA</State><PostalCode>94326</PostalCode>"
      "<Country>USA</Country></VendorAddress><Phone>555-0100</Phone><AltPhone>555-0101</AltPhone>"
      "<Fax>555-0102</Fax><Email>ann.cal.test</Email><Contact>Ann Cole</Contact><AltContact>Bo Cole</AltContact>"
      "<NameOnCheck>Cal Telephone Inc</NameOnCheck><AccountNumber>A-7</AccountNumber>"
      "<CreditLimit>900.00</CreditLimit><VendorTaxIdent>12-345</VendorTaxIdent>"
      "<IsVendorEligibleFor1099>1</IsVendorEligibleFor1099><OpenBalance>50.00</OpenBalance>"
      "<OpenBalanceDate>2004-01-02</OpenBalanceDate></VendorAdd>"))
      << Sent();
  EXPECT_EQ(vendors->Item(Variant("Cal Tel"))->ObjectState(), qoObjectStateClean);
}

// The add has always written Notes before AccountNumber; the company-file processor takes
// that order on purpose, though the schema puts Notes after.
TEST_F(VendorsTest, AddWritesNotesBeforeAccountNumber) {
  auto v = vendors->Add("Cal Tel");
  v->SetNotes("Ships Tuesdays");
  v->SetAccountNumber("A-7");
  CommitAnswering("VendorAddRs", VendorRet("60000001-1", "Cal Tel"));
  EXPECT_TRUE(Contains(Sent(), "<Notes>Ships Tuesdays</Notes><AccountNumber>A-7</AccountNumber>")) << Sent();
}

TEST_F(VendorsTest, AddOfANameAloneSendsNoEmptyAddressNorEmptyFields) {
  vendors->Add("Cal Tel");
  CommitAnswering("VendorAddRs", VendorRet("60000001-1", "Cal Tel"));
  EXPECT_TRUE(Contains(Sent(), "<VendorAdd><Name>Cal Tel</Name><IsActive>1</IsActive>"
                               "<IsVendorEligibleFor1099>0</IsVendorEligibleFor1099></VendorAdd>"))
      << Sent();
}

TEST_F(VendorsTest, NonUSEditionWritesNo1099Flag) {
  State().IsNonUSProduct = true;
  vendors->Add("Cal Tel");
  CommitAnswering("VendorAddRs", VendorRet("60000001-1", "Cal Tel"));
  EXPECT_FALSE(Contains(Sent(), "IsVendorEligibleFor1099")) << Sent();
}

TEST_F(VendorsTest, ModifySendsTheAlwaysFieldsInOrderAndEmptyOnesToClear) {
  auto v = LoadOne("<CompanyName>Cal</CompanyName><FirstName>Ann</FirstName><LastName>Cole</LastName>"
                   "<Notes>old</Notes>");
  v->SetPhone("555-0199");
  CommitAnswering("VendorModRs", VendorRet("60000001-1", "Cal Tel"));

  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_TRUE(Contains(Sent(),
                       "<VendorMod><ListID>60000001-1</ListID><EditSequence>1000</EditSequence><Name>Cal Tel</Name>"
                       "<CompanyName>Cal</CompanyName><Salutation></Salutation><FirstName>Ann</FirstName>"
                       "<MiddleName></MiddleName><LastName>Cole</LastName><VendorAddress></VendorAddress>"
                       "<Phone>555-0199</Phone><AltPhone></AltPhone><Fax></Fax><Email></Email><Contact></Contact>"
                       "<AltContact></AltContact><NameOnCheck></NameOnCheck><AccountNumber></AccountNumber>"
                       "</VendorMod>"))
      << Sent();
}

// A modify leaves LastName out exactly when it equals FirstName; an add sends it whenever set.
struct LastNameCase {
  const char* first;
  const char* last;
  bool sent;
};
class VendorLastNameTest : public VendorsTest, public ::testing::WithParamInterface<LastNameCase> {};

TEST_P(VendorLastNameTest, ModifyCarriesLastNameOnlyWhenItDiffersFromFirstName) {
  const LastNameCase& c = GetParam();
  auto v = LoadOne();
  v->SetFirstName(c.first);
  v->SetLastName(c.last);
  xmlBldr b;
  b.InsertModRq(*v, 1);
  const std::string sent = b.GetXML().ToString();
  EXPECT_EQ(Contains(sent, "<LastName>"), c.sent) << sent;
}

INSTANTIATE_TEST_SUITE_P(Names, VendorLastNameTest,
                         ::testing::Values(LastNameCase{"Ann", "Cole", true}, LastNameCase{"Ann", "Ann", false},
                                           LastNameCase{"", "", false}, LastNameCase{"Ann", "", true},
                                           LastNameCase{"Ann", "ann", true}));

TEST_F(VendorsTest, AChangedAddressOfACleanVendorIsSentAsAModify) {
  auto v = LoadOne("<VendorAddress><Addr1>1 Main</Addr1></VendorAddress>");
  v->Address()->SetCity("Bayshore");
  EXPECT_EQ(v->ObjectState(), qoObjectStateClean);
  CommitAnswering("VendorModRs", VendorRet("60000001-1", "Cal Tel"));
  EXPECT_TRUE(Contains(Sent(), "<VendorAddress><Addr1>1 Main</Addr1><City>Bayshore</City></VendorAddress>"))
      << Sent();
}

TEST_F(VendorsTest, OtherNameAddAndModifyFollowTheSchema) {
  otherNames->Add("Owner", "Home", "", "Ann", "", "Cole", "555-0100", "", "", "", "", "", "A-1", true, "1 Main");
  qb.Answer(Batch({ResponseElement("OtherNameAddRs", 1, 0, OtherNameRet("70000001-1", "Owner"))}));
  otherNames->Commit();
  EXPECT_TRUE(Contains(Sent(), "<OtherNameAdd><Name>Owner</Name><IsActive>1</IsActive><CompanyName>Home</CompanyName>"
                               "<FirstName>Ann</FirstName><LastName>Cole</LastName><OtherNameAddress><Addr1>1 Main"
                               "</Addr1></OtherNameAddress><Phone>555-0100</Phone><AccountNumber>A-1</AccountNumber>"
                               "</OtherNameAdd>"))
      << Sent();

  auto o = otherNames->Item(Variant("Owner"));
  o->SetEmail("a.home.test");
  qb.Answer(Batch({ResponseElement("OtherNameModRs", 1, 0, OtherNameRet("70000001-1", "Owner"))}));
  otherNames->Commit();
  EXPECT_TRUE(Contains(Sent(), "<OtherNameMod><ListID>70000001-1</ListID><EditSequence>1000</EditSequence>"
                               "<Name>Owner</Name>"))
      << Sent();
  EXPECT_TRUE(Contains(Sent(), "<Email>a.home.test</Email><Contact></Contact><AltContact></AltContact>"
                               "<AccountNumber>A-1</AccountNumber></OtherNameMod>"))
      << Sent();
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

// ---- Setters ------------------------------------------------------------------------------

TEST_F(VendorsTest, FieldsTheModifyCannotCarryAreFixedAfterTheFirstCommit) {
  auto v = LoadOne();
  for (auto set : std::vector<std::function<void()>>{
           [&] { v->SetIsActive(false); }, [&] { v->SetNotes("n"); }, [&] { v->SetTaxId("1"); },
           [&] { v->SetEligibleFor1099(true); }, [&] { v->SetCreditLimit(Currency(1)); },
           [&] { v->SetOpeningBalance(Currency(1)); }, [&] { v->SetVendorType("Supplies"); }}) {
    EXPECT_EQ(NumberRaised(set), err::kFieldCannotBeModified);
  }
  EXPECT_EQ(v->ObjectState(), qoObjectStateClean);
  v->SetNameOnCheck("Cal");
  EXPECT_EQ(v->ObjectState(), qoObjectStateDirty);
}

TEST_F(VendorsTest, VendorTypeAndTermsAreReadValidatedAndNeverSent) {
  auto read = LoadOne("<VendorTypeRef><FullName>Supplies</FullName></VendorTypeRef>"
                      "<TermsRef><FullName>Net 30</FullName></TermsRef>");
  EXPECT_EQ(read->VendorType(), "Supplies");
  EXPECT_EQ(read->Terms(), "Net 30");

  auto v = vendors->Add("New One");
  v->SetVendorType(std::string(160, 'T'));
  v->SetTerms(std::string(32, 'N'));
  EXPECT_FALSE(v->Validate());
  ASSERT_EQ(v->Errors()->Count(), 2);
  EXPECT_EQ(v->Errors()->Item(1)->Field(), "Vendor Type: Full Name");
  EXPECT_EQ(v->Errors()->Item(2)->Field(), "TermsRef: Full Name");

  v->SetVendorType("Supplies");
  v->SetTerms("Net 30");
  qb.Answer(Batch({ResponseElement("VendorAddRs", 2, 0, VendorRet("60000002-1", "New One"))}));
  vendors->Commit();
  EXPECT_FALSE(Contains(Sent(), "VendorTypeRef")) << Sent();
  EXPECT_FALSE(Contains(Sent(), "TermsRef")) << Sent();
}

// ---- Validate -----------------------------------------------------------------------------

struct VendorCheckCase {
  const char* label;
  std::function<void(Vendor&)> set;
  uint32_t code;
  const char* field;
  const char* message;  // empty: passes
};

class VendorCheckTest : public ::testing::TestWithParam<VendorCheckCase> {
 protected:
  void SetUp() override { ResetLibraryStateForTesting(); }
  void TearDown() override { ResetLibraryStateForTesting(); }
};

TEST_P(VendorCheckTest, ReportsOneEntryWithItsLabel) {
  const VendorCheckCase& c = GetParam();
  Vendor v;
  detail::ListObjectAccess::SetNameInternal(v, "Cal Tel");
  c.set(v);
  const bool ok = v.Validate();
  if (c.code == 0) {
    EXPECT_TRUE(ok);
    return;
  }
  EXPECT_FALSE(ok);
  ASSERT_EQ(v.Errors()->Count(), 1);
  auto e = v.Errors()->Item(1);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), c.code);
  EXPECT_EQ(e->Field(), c.field);
  EXPECT_EQ(e->Description(), c.message);
}

void FilledAddress(Vendor& v) { v.Address()->SetLine1("1 Main"); }

const VendorCheckCase kVendorChecks[] = {
    {"NameOf41Passes", [](Vendor& v) { detail::ListObjectAccess::SetNameInternal(v, std::string(41, 'n')); }, 0, "", ""},
    {"NameOf42SaysThirtyOne", [](Vendor& v) { detail::ListObjectAccess::SetNameInternal(v, std::string(42, 'n')); }, err::kNameTooLong, "Name",
     "Name cannot exceed 31 characters"},
    {"EmptyName", [](Vendor& v) { detail::ListObjectAccess::SetNameInternal(v, ""); }, err::kNameNull, "Name", "Name cannot be null"},
    {"CompanyName", [](Vendor& v) { v.SetCompanyName(std::string(42, 'c')); }, err::kVendorNameTooLong,
     "Company Name", "Vendor/Company name cannot exceed 41 characters"},
    {"LastNameSameAsFirst", [](Vendor& v) { v.SetFirstName("Ann"); v.SetLastName("Ann"); },
     err::kLastNameSameAsFirst, "Last Name", "Last Name cannot be the same as First Name"},
    {"Fax", [](Vendor& v) { v.SetFax(std::string(22, '5')); }, err::kPhoneTooLong, "Fax",
     "Phone numbers cannot exceed 21 characters"},
    {"AltContact", [](Vendor& v) { v.SetAltContact(std::string(42, 'a')); }, err::kContactTooLong, "Alt Contact",
     "Contact names cannot exceed 41 characters"},
    {"NameOnCheck", [](Vendor& v) { v.SetNameOnCheck(std::string(42, 'a')); }, err::kNameOnCheckTooLong,
     "Name On Check", "Names on Checks cannot exceed 41 characters"},
    {"TaxId", [](Vendor& v) { v.SetTaxId(std::string(16, '1')); }, err::kVendorTaxIdTooLong, "Tax ID",
     "Vendor TaxID cannot exceed 15 characters"},
    {"EligibleWithAddressNoTaxId", [](Vendor& v) { v.SetEligibleFor1099(true); FilledAddress(v); },
     err::kVendor1099NeedsAddress, "Eligible For 1099", "If EligibleFor1099 is True, Vendor Address and TaxID is required"},
    {"EligibleWithTaxIdNoAddress", [](Vendor& v) { v.SetEligibleFor1099(true); v.SetTaxId("12-345"); },
     err::kVendor1099NeedsAddress, "Eligible For 1099", "If EligibleFor1099 is True, Vendor Address and TaxID is required"},
    {"EligibleWithBoth", [](Vendor& v) { v.SetEligibleFor1099(true); v.SetTaxId("12-345"); FilledAddress(v); }, 0, "",
     ""},
};

INSTANTIATE_TEST_SUITE_P(Checks, VendorCheckTest, ::testing::ValuesIn(kVendorChecks),
                         [](const auto& info) { return std::string(info.param.label); });

TEST(OtherNameCheckTest, AddressErrorsCarryTheOtherNameLabel) {
  OtherName o;
  detail::ListObjectAccess::SetNameInternal(o, "Owner");
  o.Address()->Errors()->Add(1, "x", "bad");  // an owner's own entry survives only until Validate clears it
  o.SetContact(std::string(42, 'c'));
  EXPECT_FALSE(o.Validate());
  ASSERT_EQ(o.Errors()->Count(), 1);
  EXPECT_EQ(o.Errors()->Item(1)->Field(), "Contact");
}

// ---- Copies and payables ------------------------------------------------------------------

TEST_F(VendorsTest, CloneCopiesEveryFieldAndTheState) {
  auto v = LoadOne("<CompanyName>Cal</CompanyName><Salutation>Ms.</Salutation><FirstName>Ann</FirstName>"
                   "<MiddleName>B</MiddleName><LastName>Cole</LastName><VendorAddress><Addr1>1 Main</Addr1>"
                   "</VendorAddress><Phone>1</Phone><AltPhone>2</AltPhone><Fax>3</Fax><Email>e@x.test</Email>"
                   "<Contact>C</Contact><AltContact>D</AltContact><NameOnCheck>Cal Inc</NameOnCheck>"
                   "<AccountNumber>A-1</AccountNumber><Notes>N</Notes>"
                   "<VendorTypeRef><FullName>Supplies</FullName></VendorTypeRef>"
                   "<TermsRef><FullName>Net 30</FullName></TermsRef><CreditLimit>900.00</CreditLimit>"
                   "<VendorTaxIdent>12-345</VendorTaxIdent><IsVendorEligibleFor1099>true</IsVendorEligibleFor1099>"
                   "<Balance>12.50</Balance>");
  v->SetUserData(Variant(std::string("mine")));
  auto c = v->Clone();
  EXPECT_EQ(c->Name(), "Cal Tel");
  EXPECT_EQ(c->ListID(), "");
  EXPECT_EQ(c->ObjectState(), qoObjectStateClean);
  const std::vector<std::pair<std::string, std::string>> pairs = {
      {c->CompanyName(), "Cal"}, {c->Salutation(), "Ms."}, {c->FirstName(), "Ann"}, {c->MiddleName(), "B"},
      {c->LastName(), "Cole"}, {c->Address()->Line1(), "1 Main"}, {c->Phone(), "1"}, {c->AltPhone(), "2"},
      {c->Fax(), "3"}, {c->Email(), "e@x.test"}, {c->Contact(), "C"}, {c->AltContact(), "D"},
      {c->NameOnCheck(), "Cal Inc"}, {c->AccountNumber(), "A-1"}, {c->Notes(), "N"}, {c->VendorType(), "Supplies"},
      {c->Terms(), "Net 30"}, {c->TaxId(), "12-345"}, {c->UserData().ToString(), "mine"}};
  for (const auto& [got, want] : pairs) EXPECT_EQ(got, want);
  EXPECT_EQ(c->CreditLimit(), Currency(900));
  EXPECT_EQ(c->Balance(), Currency::Parse("12.5"));
  EXPECT_TRUE(c->EligibleFor1099());
}

TEST_F(VendorsTest, GetBillsAndCreditsSortsOpenBillsFromCredits) {
  auto v = LoadOne();
  EXPECT_FALSE(v->HaveOpenBillsAndCredits());
  const std::string bill =
      "<BillToPayRet><BillToPay><TxnID>B-1</TxnID><TxnType>Bill</TxnType>"
      "<APAccountRef><FullName>Accounts Payable</FullName></APAccountRef><TxnDate>2026-03-05</TxnDate>"
      "<RefNumber>88</RefNumber><DueDate>2026-04-04</DueDate><AmountDue>120.00</AmountDue></BillToPay>"
      "</BillToPayRet>";
  const std::string credit =
      "<BillToPayRet><CreditToApply><TxnID>C-1</TxnID><TxnType>VendorCredit</TxnType>"
      "<APAccountRef><FullName>Accounts Payable</FullName></APAccountRef><TxnDate>2026-03-06</TxnDate>"
      "<CreditRemaining>20.00</CreditRemaining></CreditToApply></BillToPayRet>";
  qb.Answer(ScriptedProcessor::Response("BillToPayQueryRs", bill + credit));
  v->GetBillsAndCredits("Accounts Payable");
  EXPECT_NE(Sent().find("<BillToPayQueryRq requestID = \"1\"><PayeeEntityRef><FullName>Cal Tel</FullName>"
                        "</PayeeEntityRef><APAccountRef><FullName>Accounts Payable</FullName></APAccountRef>"),
            std::string::npos)
      << Sent();
  EXPECT_TRUE(testing::IsValidQbxml(Sent())) << Sent();
  ASSERT_EQ(v->OpenBills()->Count(), 1);
  ASSERT_EQ(v->OpenCredits()->Count(), 1);
  EXPECT_EQ(v->OpenBills()->Item(1)->TxnId(), "B-1");
  EXPECT_EQ(v->OpenBills()->Item(1)->Amount(), Currency(120));
  EXPECT_EQ(v->OpenCredits()->Item(1)->Amount(), Currency(20));
  EXPECT_TRUE(v->HaveOpenBillsAndCredits());
}

TEST_F(VendorsTest, PayingAndOldVersionsAreRefused) {
  auto v = LoadOne();
  EXPECT_EQ(NumberRaised([&] { v->AddPaymentForPosting(); }), err::kFeatureNotSupported);
  State().QBXMLVersionNumber = Currency::Parse("1.1");
  EXPECT_EQ(NumberRaised([&] { v->GetBillsAndCredits("Accounts Payable"); }), err::kVersionNotSupported);
}

// ---- Queries ------------------------------------------------------------------------------

TEST_F(VendorsTest, BalanceFilterGoesWithTheRangeQueryButNotWithGetAll) {
  qb.Answer(ScriptedProcessor::Response("VendorQueryRs", VendorRet("1-1", "A")));
  vendors->GetAll(5, qbGreaterThan, Currency(10));
  EXPECT_FALSE(Contains(Sent(), "TotalBalanceFilter")) << Sent();
  EXPECT_FALSE(Contains(Sent(), "MaxReturned")) << Sent();

  qb.Answer(ScriptedProcessor::Response("VendorQueryRs", VendorRet("1-1", "A")));
  vendors->GetByNameRange("A", "M", 5, qbGreaterThan, Currency(10));
  EXPECT_TRUE(Contains(Sent(), "<MaxReturned>5</MaxReturned><NameRangeFilter><FromName>A</FromName><ToName>M"
                               "</ToName></NameRangeFilter><TotalBalanceFilter><Operator>GreaterThan</Operator>"
                               "<Amount>10.00</Amount></TotalBalanceFilter>"))
      << Sent();

  qb.Answer(ScriptedProcessor::Response("VendorQueryRs", VendorRet("1-1", "A")));
  vendors->GetMultiple({"A", "B"});
  EXPECT_TRUE(Contains(Sent(), "<VendorQueryRq><FullName>A</FullName><FullName>B</FullName>"))
      << Sent();
  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_EQ(NumberRaised([&] { vendors->GetMultiple({}); }), err::kEmptyArray);
}

}  // namespace
}  // namespace tessaron
