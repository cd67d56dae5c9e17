// Data extensions in the company-file processor: definitions with QuickBooks' limits and
// statuses, values on list records, the company and transactions alike, and the DataExtRet
// answered in queries that ask for an owner.
#include "tests/qbsim/qbsim_fixture.h"
#include "tessaron/platform/error.h"

namespace tessaron::qbsim::testing {
namespace {

constexpr const char* kGuid = "{6B063959-81B0-4622-85D6-F548C8CCB517}";

std::string DefAdd(const std::string& owner, const std::string& name, const std::string& type,
                   const std::string& assigned) {
  return "<DataExtDefAddRq><DataExtDefAdd><OwnerID>" + owner + "</OwnerID><DataExtName>" + name +
         "</DataExtName><DataExtType>" + type + "</DataExtType>" + assigned + "</DataExtDefAdd></DataExtDefAddRq>";
}
std::string To(const std::string& type) { return "<AssignToObject>" + type + "</AssignToObject>"; }

std::string ValueRq(const std::string& op, const std::string& owner, const std::string& name, const std::string& target,
                    const std::string& value) {
  std::string body = "<OwnerID>" + owner + "</OwnerID><DataExtName>" + name + "</DataExtName>" + target;
  if (op != "Del") body += "<DataExtValue>" + value + "</DataExtValue>";
  return "<DataExt" + op + "Rq><DataExt" + op + ">" + body + "</DataExt" + op + "></DataExt" + op + "Rq>";
}
std::string ListTarget(const std::string& type, const std::string& listId) {
  return "<ListDataExtType>" + type + "</ListDataExtType><ListObjRef><ListID>" + listId + "</ListID></ListObjRef>";
}

class DataExtTest : public QbsimTest {
 protected:
  void SetUp() override {
    QbsimTest::SetUp();
    Open();
  }
  std::string FirstCustomer() {
    Response r = Send("<CustomerQueryRq><MaxReturned>1</MaxReturned></CustomerQueryRq>");
    return r.Value("CustomerRet/ListID");
  }
};

// ---- Definitions ----------------------------------------------------------------------------

TEST_F(DataExtTest, DefinitionIsAnsweredWithTheOwnerInUpperCaseAndFoundWithoutRegardToCase) {
  Response r = Send(DefAdd("{6b063959-81b0-4622-85d6-f548c8ccb517}", "Route", "QUANTYPE", To("Customer") + To("Invoice")));
  ASSERT_EQ(r.Status(), 0) << r.Message();
  EXPECT_EQ(r.Value("DataExtDefRet/OwnerID"), kGuid);
  EXPECT_EQ(Send(DefAdd(kGuid, "ROUTE", "INTTYPE", To("Vendor"))).Status(), 3100);
  // Another owner may use the name.
  EXPECT_EQ(Send(DefAdd("0", "Route", "STR255TYPE", To("Vendor"))).Status(), 0);
  Response q = Send(std::string("<DataExtDefQueryRq><OwnerID>") + kGuid + "</OwnerID></DataExtDefQueryRq>");
  ASSERT_EQ(q.Records().size(), 1u);
  EXPECT_EQ(q.Value("DataExtDefRet/DataExtType"), "QUANTYPE");
  EXPECT_EQ(Send("<DataExtDefQueryRq><AssignToObject>Invoice</AssignToObject></DataExtDefQueryRq>").Records().size(), 1u);
  EXPECT_EQ(Send("<DataExtDefQueryRq><AssignToObject>Employee</AssignToObject></DataExtDefQueryRq>").Status(), 1);
}

struct RefusedDef {
  const char* name;
  std::string request;
  int status;
};

class RefusedDefinitions : public QbsimTest, public ::testing::WithParamInterface<RefusedDef> {
 protected:
  void SetUp() override {
    QbsimTest::SetUp();
    Open();
  }
};

TEST_P(RefusedDefinitions, QuickBooksRefuses) {
  Response r = Send(GetParam().request);
  EXPECT_EQ(r.Status(), GetParam().status) << r.Message();
}

INSTANTIATE_TEST_SUITE_P(
    Limits, RefusedDefinitions,
    ::testing::Values(RefusedDef{"CustomFieldOfNumbers", DefAdd("0", "Count", "INTTYPE", To("Customer")), 3020},
                      RefusedDef{"CustomFieldOnInvoices", DefAdd("0", "Count", "STR255TYPE", To("Invoice")), 3020},
                      RefusedDef{"ModOfNoDefinition",
                                 "<DataExtDefModRq><DataExtDefMod><OwnerID>0</OwnerID><DataExtName>None</DataExtName>"
                                 "</DataExtDefMod></DataExtDefModRq>",
                                 3120},
                      RefusedDef{"DelOfNoDefinition",
                                 "<DataExtDefDelRq><OwnerID>0</OwnerID><DataExtName>None</DataExtName></DataExtDefDelRq>",
                                 3120}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(DataExtTest, ATypeTakesSevenCustomFieldsAndNoMore) {
  for (int i = 1; i <= 7; ++i)
    ASSERT_EQ(Send(DefAdd("0", "F" + std::to_string(i), "STR255TYPE", To("Customer"))).Status(), 0);
  Response r = Send(DefAdd("0", "F8", "STR255TYPE", To("Customer")));
  EXPECT_EQ(r.Status(), 3210);
  // Other types keep their own count, and a private field has no such limit.
  EXPECT_EQ(Send(DefAdd("0", "F8", "STR255TYPE", To("Vendor"))).Status(), 0);
  EXPECT_EQ(Send(DefAdd(kGuid, "F9", "STR255TYPE", To("Customer"))).Status(), 0);
}

TEST_F(DataExtTest, ModRenamesAssignsAndRemovesTypesAndKeepsTheValues) {
  ASSERT_EQ(Send(DefAdd(kGuid, "Route", "STR255TYPE", To("Customer"))).Status(), 0);
  const std::string id = FirstCustomer();
  ASSERT_EQ(Send(ValueRq("Add", kGuid, "Route", ListTarget("Customer", id), "North")).Status(), 0);
  Response r = Send(std::string("<DataExtDefModRq><DataExtDefMod><OwnerID>") + kGuid +
                    "</OwnerID><DataExtName>Route</DataExtName><DataExtNewName>Round</DataExtNewName>"
                    "<AssignToObject>Vendor</AssignToObject><RemoveFromObject>Invoice</RemoveFromObject>"
                    "</DataExtDefMod></DataExtDefModRq>");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  EXPECT_EQ(r.Value("DataExtDefRet/DataExtName"), "Round");
  EXPECT_EQ(r.Records().front().find_child_by_attribute("AssignToObject", "", "").type(), pugi::node_null);
  Response q = Send(std::string("<CustomerQueryRq><ListID>") + id + "</ListID><OwnerID>" + kGuid + "</OwnerID></CustomerQueryRq>");
  EXPECT_EQ(q.Value("CustomerRet/DataExtRet/DataExtName"), "Round");
  EXPECT_EQ(q.Value("CustomerRet/DataExtRet/DataExtValue"), "North");
}

TEST_F(DataExtTest, DeletingADefinitionDeletesItsValues) {
  ASSERT_EQ(Send(DefAdd(kGuid, "Route", "STR255TYPE", To("Customer"))).Status(), 0);
  const std::string id = FirstCustomer();
  ASSERT_EQ(Send(ValueRq("Add", kGuid, "Route", ListTarget("Customer", id), "North")).Status(), 0);
  Response d = Send(std::string("<DataExtDefDelRq><OwnerID>") + kGuid + "</OwnerID><DataExtName>Route</DataExtName></DataExtDefDelRq>");
  ASSERT_EQ(d.Status(), 0);
  ASSERT_EQ(Send(DefAdd(kGuid, "Route", "STR255TYPE", To("Customer"))).Status(), 0);
  Response q = Send(std::string("<CustomerQueryRq><ListID>") + id + "</ListID><OwnerID>" + kGuid + "</OwnerID></CustomerQueryRq>");
  EXPECT_EQ(q.Value("CustomerRet/DataExtRet"), "<missing>");
}

// ---- Values -----------------------------------------------------------------------------------

TEST_F(DataExtTest, QueriesAnswerTheValuesOfTheOwnersAskedForOnly) {
  ASSERT_EQ(Send(DefAdd("0", "Colour", "STR255TYPE", To("Customer"))).Status(), 0);
  ASSERT_EQ(Send(DefAdd(kGuid, "Visits", "INTTYPE", To("Customer"))).Status(), 0);
  const std::string id = FirstCustomer();
  ASSERT_EQ(Send(ValueRq("Add", "0", "Colour", ListTarget("Customer", id), "Blue") +
                 ValueRq("Add", kGuid, "Visits", ListTarget("Customer", id), "3"))
                .Status(1),
            0);
  const std::string byId = std::string("<CustomerQueryRq><ListID>") + id + "</ListID>";
  EXPECT_EQ(Send(byId + "</CustomerQueryRq>").Value("CustomerRet/DataExtRet"), "<missing>");
  Response pub = Send(byId + "<OwnerID>0</OwnerID></CustomerQueryRq>");
  ASSERT_EQ(pub.Records().front().select_nodes("DataExtRet").size(), 1u);
  EXPECT_EQ(pub.Value("CustomerRet/DataExtRet/DataExtValue"), "Blue");
  Response both = Send(byId + "<OwnerID>0</OwnerID><OwnerID>" + kGuid + "</OwnerID></CustomerQueryRq>");
  EXPECT_EQ(both.Records().front().select_nodes("DataExtRet").size(), 2u);
}

struct ValueCase {
  const char* name;
  const char* type;
  const char* sent;
  int status;
  const char* stored;
};

class ValueTypes : public QbsimTest, public ::testing::WithParamInterface<ValueCase> {
 protected:
  void SetUp() override {
    QbsimTest::SetUp();
    Open();
  }
};

TEST_P(ValueTypes, AValueMustFitItsType) {
  const ValueCase c = GetParam();
  ASSERT_EQ(Send(DefAdd(kGuid, "F", c.type, To("Customer"))).Status(), 0);
  Response q = Send("<CustomerQueryRq><MaxReturned>1</MaxReturned></CustomerQueryRq>");
  const std::string id = q.Value("CustomerRet/ListID");
  Response r = Send(ValueRq("Add", kGuid, "F", ListTarget("Customer", id), c.sent));
  EXPECT_EQ(r.Status(), c.status) << r.Message();
  if (c.status == 0) EXPECT_EQ(r.Value("DataExtRet/DataExtValue"), c.stored);
}

INSTANTIATE_TEST_SUITE_P(
    EveryType, ValueTypes,
    ::testing::Values(ValueCase{"Int", "INTTYPE", "42", 0, "42"}, ValueCase{"IntText", "INTTYPE", "many", 3020, ""},
                      ValueCase{"Amount", "AMTTYPE", "1234.5", 0, "1234.50"},
                      ValueCase{"Quantity", "QUANTYPE", "0000012.5000", 0, "12.5"},
                      ValueCase{"Price", "PRICETYPE", "0000003.2500", 0, "3.25"},
                      ValueCase{"Percent", "PERCENTTYPE", "0000007.5000", 0, "7.50"},
                      ValueCase{"Date", "DATETIMETYPE", "2004-02-29", 0, "2004-02-29"},
                      ValueCase{"DateText", "DATETIMETYPE", "soon", 3020, ""},
                      ValueCase{"Text255", "STR255TYPE", "", 3020, ""}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(DataExtTest, TextLongerThanItsTypeIsRefused) {
  ASSERT_EQ(Send(DefAdd(kGuid, "Short", "STR255TYPE", To("Customer")) + DefAdd(kGuid, "Long", "STR1024TYPE", To("Customer"))).Status(1), 0);
  const std::string id = FirstCustomer();
  EXPECT_EQ(Send(ValueRq("Add", kGuid, "Short", ListTarget("Customer", id), std::string(255, 'a'))).Status(), 0);
  EXPECT_EQ(Send(ValueRq("Add", kGuid, "Long", ListTarget("Customer", id), std::string(1025, 'b'))).Status(), 3070);
}

TEST_F(DataExtTest, AValueNeedsADefinitionForItsRecordsType) {
  ASSERT_EQ(Send(DefAdd(kGuid, "Route", "STR255TYPE", To("Vendor"))).Status(), 0);
  const std::string id = FirstCustomer();
  EXPECT_EQ(Send(ValueRq("Add", kGuid, "Route", ListTarget("Customer", id), "x")).Status(), 3120);
  EXPECT_EQ(Send(ValueRq("Add", kGuid, "Nothing", ListTarget("Customer", id), "x")).Status(), 3120);
  // The record must be of the type named.
  EXPECT_EQ(Send(ValueRq("Add", kGuid, "Route", ListTarget("Vendor", id), "x")).Status(), 3140);
}

TEST_F(DataExtTest, AddModAndDelFollowWhetherAValueIsHeld) {
  ASSERT_EQ(Send(DefAdd("0", "Colour", "STR255TYPE", To("Customer"))).Status(), 0);
  const std::string target = ListTarget("Customer", FirstCustomer());
  EXPECT_EQ(Send(ValueRq("Mod", "0", "Colour", target, "Red")).Status(), 3120);
  EXPECT_EQ(Send(ValueRq("Del", "0", "Colour", target, "")).Status(), 3120);
  EXPECT_EQ(Send(ValueRq("Add", "0", "Colour", target, "Blue")).Status(), 0);
  EXPECT_EQ(Send(ValueRq("Add", "0", "Colour", target, "Blue")).Status(), 3100);
  EXPECT_EQ(Send(ValueRq("Mod", "0", "Colour", target, "Red")).Value("DataExtRet/DataExtValue"), "Red");
  // Mod cannot clear a value: Del does.
  EXPECT_EQ(Send(ValueRq("Mod", "0", "Colour", target, "")).Status(), 3020);
  Response d = Send(ValueRq("Del", "0", "Colour", target, ""));
  EXPECT_EQ(d.Status(), 0);
  EXPECT_EQ(d.Value("DataExtDelRet/ListDataExtType"), "Customer");
  EXPECT_EQ(Send(ValueRq("Del", "0", "Colour", target, "")).Status(), 3120);
}

TEST_F(DataExtTest, AClearingWithAnEmptyOwnerIsTakenAsACustomFieldsInStrictModeToo) {
  // The library names the application's GUID in every delete, empty when none is registered.
  ASSERT_EQ(Send(DefAdd("0", "Colour", "STR255TYPE", To("Customer"))).Status(), 0);
  const std::string target = ListTarget("Customer", FirstCustomer());
  ASSERT_EQ(Send(ValueRq("Add", "0", "Colour", target, "Blue")).Status(), 0);
  const std::string del = Message(ValueRq("Del", "", "Colour", target, ""), version_);
  EXPECT_FALSE(tessaron::testing::IsValidQbxml(del));
  Response r(processor_->ProcessRequest(ticket_, del));
  EXPECT_EQ(r.Status(), 0) << r.Message();
  EXPECT_EQ(Send(ValueRq("Del", "0", "Colour", target, "")).Status(), 3120);
  // Only the delete is tolerated.
  const std::string mod = Message(ValueRq("Mod", "", "Colour", target, "Red"), version_);
  EXPECT_THROW(processor_->ProcessRequest(ticket_, mod), tessaron::Error);
}

TEST_F(DataExtTest, ARecordHoldsAtMost4096BytesOfPrivateValues) {
  for (const char* n : {"A", "B", "C", "D", "E"})
    ASSERT_EQ(Send(DefAdd(kGuid, n, "STR1024TYPE", To("Customer"))).Status(), 0);
  const std::string target = ListTarget("Customer", FirstCustomer());
  for (const char* n : {"A", "B", "C", "D"})
    ASSERT_EQ(Send(ValueRq("Add", kGuid, n, target, std::string(1024, 'x'))).Status(), 0);
  EXPECT_EQ(Send(ValueRq("Add", kGuid, "E", target, "y")).Status(), 3210);
  // Replacing a value counts it once.
  EXPECT_EQ(Send(ValueRq("Mod", kGuid, "A", target, std::string(1024, 'z'))).Status(), 0);
}

TEST_F(DataExtTest, TheCompanyHoldsValuesToo) {
  ASSERT_EQ(Send(DefAdd(kGuid, "Licence", "STR255TYPE", To("Company"))).Status(), 0);
  ASSERT_EQ(Send(ValueRq("Add", kGuid, "Licence", "<OtherDataExtType>Company</OtherDataExtType>", "A-1")).Status(), 0);
  Response c = Send(std::string("<CompanyQueryRq><OwnerID>") + kGuid + "</OwnerID></CompanyQueryRq>");
  EXPECT_EQ(c.Value("CompanyRet/DataExtRet/DataExtValue"), "A-1");
}

// A transaction takes the custom fields of its name in its header and of its items on its
// lines, and the private fields of its own kind on itself only.
TEST_F(DataExtTest, ATransactionTakesTheCustomFieldsOfItsNameAndItemsAndPrivateFieldsOfItsKind) {
  ASSERT_EQ(Send(DefAdd("0", "Colour", "STR255TYPE", To("Customer"))).Status(), 0);
  ASSERT_EQ(Send(DefAdd("0", "Finish", "STR255TYPE", To("Item"))).Status(), 0);
  ASSERT_EQ(Send(DefAdd(kGuid, "Route", "STR255TYPE", To("Invoice"))).Status(), 0);
  Response first = Send("<InvoiceQueryRq><MaxReturned>1</MaxReturned><IncludeLineItems>true</IncludeLineItems></InvoiceQueryRq>");
  const std::string txnId = first.Value("InvoiceRet/TxnID");
  const std::string lineId = first.Value("InvoiceRet/InvoiceLineRet/TxnLineID");
  ASSERT_NE(lineId, "<missing>");
  const std::string header = "<TxnDataExtType>Invoice</TxnDataExtType><TxnID>" + txnId + "</TxnID>";
  const std::string line = header + "<TxnLineID>" + lineId + "</TxnLineID>";
  EXPECT_EQ(Send(ValueRq("Add", "0", "Colour", header, "Blue")).Status(), 0);
  EXPECT_EQ(Send(ValueRq("Add", "0", "Finish", line, "Oak")).Status(), 0);
  EXPECT_EQ(Send(ValueRq("Add", kGuid, "Route", header, "North")).Status(), 0);
  EXPECT_EQ(Send(ValueRq("Add", "0", "Finish", header, "Ash")).Status(), 3120);
  EXPECT_EQ(Send(ValueRq("Add", "0", "Colour", line, "Red")).Status(), 3120);
  EXPECT_EQ(Send(ValueRq("Add", kGuid, "Route", line, "South")).Status(), 3210);
  // The document must be on file, and the line one of its lines.
  EXPECT_EQ(Send(ValueRq("Add", kGuid, "Route", "<TxnDataExtType>Invoice</TxnDataExtType><TxnID>ABC-123</TxnID>", "x"))
                .Status(),
            3140);
  EXPECT_EQ(Send(ValueRq("Mod", "0", "Finish", header + "<TxnLineID>L-1</TxnLineID>", "x")).Status(), 3140);

  Response q = Send("<InvoiceQueryRq><TxnID>" + txnId + "</TxnID><IncludeLineItems>true</IncludeLineItems>"
                    "<OwnerID>0</OwnerID></InvoiceQueryRq>");
  EXPECT_EQ(q.Value("InvoiceRet/DataExtRet/DataExtValue"), "Blue");
  EXPECT_EQ(q.Value("InvoiceRet/InvoiceLineRet/DataExtRet/DataExtValue"), "Oak");
}

TEST_F(DataExtTest, InvoiceQueriesAnswerTheValuesOfTheOwnersAskedFor) {
  ASSERT_EQ(Send(DefAdd(kGuid, "Route", "STR255TYPE", To("Invoice"))).Status(), 0);
  Response first = Send("<InvoiceQueryRq><MaxReturned>1</MaxReturned></InvoiceQueryRq>");
  const std::string txnId = first.Value("InvoiceRet/TxnID");
  ASSERT_NE(txnId, "<missing>");
  ASSERT_EQ(Send(ValueRq("Add", kGuid, "Route", "<TxnDataExtType>Invoice</TxnDataExtType><TxnID>" + txnId + "</TxnID>", "North"))
                .Status(),
            0);
  Response q = Send("<InvoiceQueryRq><TxnID>" + txnId + "</TxnID><IncludeLineItems>true</IncludeLineItems><OwnerID>" +
                    kGuid + "</OwnerID></InvoiceQueryRq>");
  EXPECT_EQ(q.Value("InvoiceRet/DataExtRet/DataExtValue"), "North");
  EXPECT_EQ(Send("<InvoiceQueryRq><TxnID>" + txnId + "</TxnID></InvoiceQueryRq>").Value("InvoiceRet/DataExtRet"),
            "<missing>");
}

}  // namespace
}  // namespace tessaron::qbsim::testing
