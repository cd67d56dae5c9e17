// Saving a collection to a file and loading it again: every shape of collection comes back
// field for field with its UserData, every loaded record is New (with its addresses and
// lines), the save range takes exactly the positions asked for, and the saved forms keep
// what they are meant to drop.
#include <gtest/gtest.h>


#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/customer.h"
#include "tessaron/lists/employee.h"
#include "tessaron/lists/employee_records.h"
#include "tessaron/transactions/invoice.h"
#include "tessaron/transactions/txn_item_line.h"
#include "tessaron/transactions/txn_item_lines.h"
#include "tests/persistence/saved_collections.h"
#include "tests/support/raised.h"
#include "tests/support/text_match.h"

namespace tessaron {
namespace {

using testing::Contains;
using testing::FileText;
using testing::Held;
using testing::SavedCase;
using testing::SavedSession;
using testing::TempDir;
using testing::WriteFile;

size_t CountOf(const std::string& text, const std::string& what) {
  size_t n = 0;
  for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
  return n;
}

class RoundTrip : public ::testing::TestWithParam<SavedCase> {
 protected:
  SavedSession qb;
  TempDir dir;
};

TEST_P(RoundTrip, EveryRecordComesBackFieldForFieldWithItsUserData) {
  Held held = GetParam().fill(qb);
  ASSERT_GT(held.count(), 0);
  held.setUserData(1, Variant(std::string("row <1> & more")));
  std::vector<std::string> before;
  for (long i = 1; i <= held.count(); ++i) before.push_back(held.fields(i));

  const std::string path = dir.File("saved.xml");
  EXPECT_EQ(held.xml->SaveToXml(path), 0);
  EXPECT_EQ(held.xml->LoadFromXml(path), nullptr);

  ASSERT_EQ(held.count(), static_cast<long>(before.size()));
  for (long i = 1; i <= held.count(); ++i) {
    EXPECT_EQ(held.fields(i), before[i - 1]) << "record " << i;
    EXPECT_EQ(held.state(i), qoObjectStateNew) << "record " << i;
  }
  EXPECT_EQ(held.userData(1).ToString(), "row <1> & more");
  // What was saved once is saved again unchanged.
  const std::string first = FileText(path);
  held.xml->SaveToXml(dir.File("again.xml"));
  EXPECT_EQ(FileText(dir.File("again.xml")), first);
}

TEST_P(RoundTrip, AnObjectInUserDataIsLeftOutOfTheFile) {
  Held held = GetParam().fill(qb);
  held.setUserData(1, Variant(ObjectHandle(std::make_shared<qcErrors>())));
  const std::string path = dir.File("saved.xml");
  held.xml->SaveToXml(path);
  EXPECT_FALSE(Contains(FileText(path), "<UserData>"));
  held.xml->LoadFromXml(path);
  EXPECT_TRUE(held.userData(1).IsEmpty());
}

TEST_P(RoundTrip, SavingNeitherValidatesNorChangesStates) {
  Held held = GetParam().fill(qb);
  const std::string path = dir.File("saved.xml");
  held.xml->SaveToXml(path);
  for (long i = 1; i <= held.count(); ++i) EXPECT_EQ(held.state(i), qoObjectStateClean);
  // The file has the shape of query answers: one response per record, positions as ids.
  const std::string text = FileText(path);
  EXPECT_TRUE(text.rfind("<Tessaron><QBXMLMsgsRq onError = \"continueOnError\">", 0) == 0) << text;
  EXPECT_EQ(CountOf(text, "QueryRs requestID = "), static_cast<size_t>(held.count()));
  // The identifiers stay in the loaded records.
  const std::string id = held.id(1);
  held.xml->LoadFromXml(path);
  EXPECT_EQ(held.id(1), id);
}

INSTANTIATE_TEST_SUITE_P(EveryShape, RoundTrip, ::testing::ValuesIn(testing::kSavedCases),
                         [](const auto& info) { return std::string(info.param.name); });

// ---- The save range ----------------------------------------------------------------------

struct RangeCase {
  int32_t start;
  int32_t end;
  std::vector<int> written;  // request ids, in order
};

class SaveRange : public ::testing::TestWithParam<RangeCase> {
 protected:
  SavedSession qb;
  TempDir dir;
  std::shared_ptr<ShipMethods> methods = qb.company().ShipMethods();
  void SetUp() override {
    std::string records;
    for (int i = 1; i <= 5; ++i)
      records += testing::Ret("ShipMethod", std::to_string(i) + "-1",
                              "<Name>M" + std::to_string(i) + "</Name><IsActive>true</IsActive>");
    qb.Records("ShipMethodQueryRs", records);
    methods->GetAll();
  }
};

TEST_P(SaveRange, WritesExactlyThePositionsOfTheRange) {
  const RangeCase& c = GetParam();
  methods->SetXMLSaveStart(c.start);
  methods->SetXMLSaveEnd(c.end);
  const std::string path = dir.File("range.xml");
  methods->SaveToXml(path);
  const std::string text = FileText(path);
  EXPECT_EQ(CountOf(text, "<ShipMethodQueryRs"), c.written.size()) << text;
  size_t at = 0;
  for (int id : c.written) {
    at = text.find("<ShipMethodQueryRs requestID = \"" + std::to_string(id) + "\"><ShipMethodRet><ListID>" +
                       std::to_string(id) + "-1<",
                   at);
    EXPECT_NE(at, std::string::npos) << "request id " << id << " in " << text;
  }
  // The range stays as set; the load reads what was written.
  EXPECT_EQ(methods->XMLSaveStart(), c.start);
  EXPECT_EQ(methods->XMLSaveEnd(), c.end);
  methods->LoadFromXml(path);
  EXPECT_EQ(methods->Count(), static_cast<long>(c.written.size()));
}

INSTANTIATE_TEST_SUITE_P(Limits, SaveRange,
                         ::testing::Values(RangeCase{2, 3, {2, 3}}, RangeCase{4, 0, {4, 5}},
                                           RangeCase{0, 0, {1, 2, 3, 4, 5}}, RangeCase{1, 5, {1, 2, 3, 4, 5}},
                                           RangeCase{5, 5, {5}}, RangeCase{0, 1, {1}}, RangeCase{5, 0, {5}},
                                           RangeCase{6, 0, {}}, RangeCase{3, 2, {}}, RangeCase{0, 9, {1, 2, 3, 4, 5}},
                                           RangeCase{-2, 2, {1, 2}}));

TEST(SaveRangeDefaults, BothAreZeroAfterConstruction) {
  Classes fresh;
  Invoices invoices;
  EXPECT_EQ(fresh.XMLSaveStart(), 0);
  EXPECT_EQ(fresh.XMLSaveEnd(), 0);
  EXPECT_EQ(invoices.XMLSaveStart(), 0);
  EXPECT_EQ(invoices.XMLSaveEnd(), 0);
}

// ---- States after a load ------------------------------------------------------------------

class LoadedStates : public ::testing::Test {
 protected:
  SavedSession qb;
  TempDir dir;
  Held Reload(const SavedCase& c) {
    Held held = c.fill(qb);
    held.xml->SaveToXml(dir.File("s.xml"));
    held.xml->LoadFromXml(dir.File("s.xml"));
    return held;
  }
  std::string SentWith(const std::string& part) {
    for (const auto& r : qb.processor().Requests())
      if (Contains(r, part)) return r;
    return std::string();
  }
  const SavedCase& Case(std::string_view name) {
    for (const auto& c : testing::kSavedCases)
      if (name == c.name) return c;
    throw std::logic_error("no such case");
  }
};

TEST_F(LoadedStates, CustomerAddressesAreNewAfterALoad) {
  Reload(Case("CustomersWithAddressesAndJobs"));
  auto acme = qb.company().Customers()->Item(Variant(std::string("Acme")));
  EXPECT_EQ(acme->BillTo()->ObjectState(), qoObjectStateNew);
  EXPECT_EQ(acme->ShipTo()->ObjectState(), qoObjectStateNew);
  // The job finds its parent again.
  EXPECT_EQ(acme->Jobs()->Count(), 1);
}

TEST_F(LoadedStates, EmployeeAddressAndPayrollRecordsAreNewAfterALoad) {
  Reload(Case("EmployeesWithSubRecords"));
  auto lena = qb.company().Employees()->Item(Variant(1));
  EXPECT_EQ(lena->Address()->ObjectState(), qoObjectStateNew);
  ASSERT_EQ(lena->EarningsTypes().size(), 1u);
  EXPECT_EQ(lena->EarningsTypes()[0]->ObjectState(), qoObjectStateNew);
  EXPECT_EQ(lena->SickHours()->ObjectState(), qoObjectStateNew);
  EXPECT_EQ(lena->VacationHours()->ObjectState(), qoObjectStateNew);
}

TEST_F(LoadedStates, InvoiceLinesAndGroupMembersAreNewAndNeedNoQuery) {
  Reload(Case("InvoicesWithEveryKindOfLine"));
  const size_t sent = qb.processor().Requests().size();
  auto inv = qb.invoices()->Item(Variant(1));
  auto lines = inv->ItemLines();
  EXPECT_EQ(qb.processor().Requests().size(), sent);  // a New document has its lines in hand
  ASSERT_EQ(lines->Count(), 3);
  EXPECT_EQ(lines->ObjectState(), qoObjectStateNew);
  for (const auto& line : *lines) EXPECT_EQ(line->ObjectState(), qoObjectStateNew);
  auto group = lines->Item(Variant(2));
  ASSERT_EQ(group->GroupLines()->Count(), 2);
  for (const auto& member : *group->GroupLines()) EXPECT_EQ(member->ObjectState(), qoObjectStateNew);
}

TEST_F(LoadedStates, ACommitAfterALoadSendsAddsWithoutTheStoredIdentifiers) {
  Reload(Case("TreeWithParents"));
  State().ErrorMode = false;
  (void)testing::Raised([&] { qb.company().Classes()->Commit(); });  // the answers carry no records
  const std::string sent = SentWith("AddRq");
  EXPECT_EQ(CountOf(sent, "<ClassAddRq requestID"), 3u) << sent;
  EXPECT_FALSE(Contains(sent, "<ListID>"));
  EXPECT_FALSE(Contains(sent, "<EditSequence>"));
  EXPECT_TRUE(Contains(sent, "<ParentRef><FullName>Dept:East</FullName></ParentRef>")) << sent;
}

TEST_F(LoadedStates, LoadedInvoicesAreHeldWithoutAKeyAndSentAsAdds) {
  Reload(Case("InvoicesWithEveryKindOfLine"));
  EXPECT_FALSE(qb.invoices()->ItemExists(Variant(std::string("1A-1"))));
  State().ErrorMode = false;
  (void)testing::Raised([&] { qb.invoices()->Commit(nullptr); });
  const std::string sent = SentWith("AddRq");
  EXPECT_EQ(CountOf(sent, "<InvoiceAddRq requestID"), 2u) << sent;
  EXPECT_FALSE(Contains(sent, "<TxnID>"));
  EXPECT_FALSE(Contains(sent, "<TxnLineID>"));
}

// ---- What a saved form keeps and drops -----------------------------------------------------

TEST(SavedForms, ANewRecordIsWrittenWithAnEmptyIdentifier) {
  SavedSession qb;
  TempDir dir;
  qb.company().Classes()->Add("Fresh");
  qb.company().Classes()->SaveToXml(dir.File("c.xml"));
  EXPECT_TRUE(Contains(FileText(dir.File("c.xml")),
                       "<ClassQueryRs requestID = \"1\"><ClassRet><ListID></ListID>"))
      << FileText(dir.File("c.xml"));
}

TEST(SavedForms, BooleansAreWordsForClassesAndDigitsForCustomers) {
  SavedSession qb;
  TempDir dir;
  const Held classes = testing::kSavedCases[1].fill(qb);
  classes.xml->SaveToXml(dir.File("c.xml"));
  EXPECT_TRUE(Contains(FileText(dir.File("c.xml")), "<IsActive>false</IsActive>"));
  const Held customers = testing::kSavedCases[2].fill(qb);
  customers.xml->SaveToXml(dir.File("k.xml"));
  EXPECT_TRUE(Contains(FileText(dir.File("k.xml")), "<IsActive>1</IsActive>"));
  EXPECT_FALSE(Contains(FileText(dir.File("k.xml")), "<IsActive>true</IsActive>"));
}

TEST(SavedForms, ACustomersOpeningBalancePaymentMethodAndCardAreNotSaved) {
  SavedSession qb;
  TempDir dir;
  auto customers = qb.company().Customers();
  auto c = customers->Add("Newco");
  c->SetOpeningBalance(Currency(250));
  c->SetOpeningBalanceDate(DateSerial(2024, 1, 31));
  c->SetPaymentMethod("Check");
  c->CreditCard()->SetCardNumber("4111111111111111");
  c->SetPhone("555-0199");
  customers->SaveToXml(dir.File("k.xml"));
  customers->LoadFromXml(dir.File("k.xml"));
  auto loaded = customers->Item(Variant(1));
  EXPECT_NE(loaded, c);
  EXPECT_EQ(loaded->Phone(), "555-0199");
  EXPECT_EQ(loaded->OpeningBalance(), Currency());
  EXPECT_EQ(loaded->OpeningBalanceDate(), 0.0);
  EXPECT_EQ(loaded->PaymentMethod(), "");
  EXPECT_EQ(loaded->CreditCard()->CardNumber(), "");
}

TEST(SavedForms, AReferenceKnownByItsListIdIsSavedByItsListIdAlone) {
  SavedSession qb;
  TempDir dir;
  qb.Records("InvoiceQueryRs", testing::InvoiceSession::InvoiceRet("1A-1"));
  qb.invoices()->GetAll();
  qb.invoices()->SaveToXml(dir.File("i.xml"));
  EXPECT_TRUE(Contains(FileText(dir.File("i.xml")), "<CustomerRef><ListID>80000001-1</ListID></CustomerRef>"));
  qb.invoices()->LoadFromXml(dir.File("i.xml"));
  EXPECT_EQ(qb.invoices()->Item(Variant(1))->Customer(), "");
}

TEST(SavedForms, AParentSavedInTheSameFileGivesItsNameBack) {
  SavedSession qb;
  TempDir dir;
  const Held classes = testing::kSavedCases[1].fill(qb);
  classes.xml->SaveToXml(dir.File("c.xml"));
  // The file names the parent by its ListID only ...
  EXPECT_TRUE(Contains(FileText(dir.File("c.xml")), "<Name>East</Name><FullName>Dept:East</FullName>"
                                                   "<IsActive>true</IsActive><ParentRef><ListID>1-1</ListID></ParentRef>"));
  classes.xml->LoadFromXml(dir.File("c.xml"));
  // ... and the loaded record is keyed and linked under its full name all the same.
  auto retail = qb.company().Classes()->Item(Variant(std::string("Dept:East:Retail")));
  EXPECT_EQ(retail->Parent(), "Dept:East");
  EXPECT_EQ(qb.company().Classes()->Item(Variant(std::string("Dept:East")))->Children()->Count(), 1);
}

TEST(SavedForms, ASalesGroupKeepsNeitherItsDescriptionNorAQuantityOfOne) {
  SavedSession qb;
  TempDir dir;
  testing::kSavedCases[5].fill(qb);
  auto group = qb.invoices()->Item(Variant(1))->ItemLines()->Item(Variant(2));
  group->SetQuantity(Currency(1));
  group->SetDescription("Door kit");
  qb.invoices()->SaveToXml(dir.File("i.xml"));
  EXPECT_TRUE(Contains(FileText(dir.File("i.xml")),
                       "<ItemGroupRef><FullName>Kit</FullName></ItemGroupRef><InvoiceLineRet>"));
  qb.invoices()->LoadFromXml(dir.File("i.xml"));
  auto loaded = qb.invoices()->Item(Variant(1))->ItemLines()->Item(Variant(2));
  EXPECT_EQ(loaded->Description(), "");
  EXPECT_EQ(loaded->Quantity(), Currency());
  EXPECT_EQ(loaded->GroupLines()->Count(), 2);
}

}  // namespace
}  // namespace tessaron
