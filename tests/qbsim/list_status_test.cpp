// The statuses of refused list changes, for each list of accounts, items, vendors, other
// names, employees and payroll items: 3100 name in use, 3180 item name in use by another
// kind, 3140 unknown reference, 3170 in use, 3200 stale edit sequence, and 3020 for a
// sub-account whose type is not its parent's. Nothing refused is changed on file.
#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {
namespace {

struct StatusCase {
  const char* name;
  // The record {ID} and {SEQ} stand for, when the request names one: its kind and full name.
  const char* keyKind;
  const char* keyName;
  const char* request;  // one request, raw qbXML
  int status;
  const char* messagePart;  // a part of statusMessage
};

std::string Replace(std::string text, const std::string& what, const std::string& with) {
  for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
    text.replace(at, what.size(), with);
  return text;
}

class ListStatusTest : public QbsimTest, public ::testing::WithParamInterface<StatusCase> {
 protected:
  void SetUp() override {
    QbsimTest::SetUp();
    Open();
  }
};

TEST_P(ListStatusTest, RefusedChangeAnswersItsStatusAndChangesNothing) {
  const StatusCase& c = GetParam();
  std::string request = c.request;
  std::string before;
  if (*c.keyKind) {
    auto [id, seq] = Key(c.keyKind, c.keyName);
    ASSERT_FALSE(id.empty()) << c.keyName;
    request = Replace(Replace(request, "{ID}", id), "{SEQ}", seq);
    before = Send(std::string("<") + c.keyKind + "QueryRq><FullName>" + c.keyName + "</FullName></" + c.keyKind +
                  "QueryRq>")
                 .Text();
  }
  Response r = Send(request);
  EXPECT_EQ(r.Status(), c.status) << r.Message();
  EXPECT_NE(r.Message().find(c.messagePart), std::string::npos) << r.Message();
  EXPECT_EQ(r.Rs().first_child(), pugi::xml_node()) << "a refused request answers no record";
  if (*c.keyKind) {
    const std::string after = Send(std::string("<") + c.keyKind + "QueryRq><FullName>" + c.keyName + "</FullName></" +
                                   c.keyKind + "QueryRq>")
                                  .Text();
    EXPECT_EQ(after, before);
  }
}

constexpr const char* kInUseText = "already in use";
constexpr const char* kItemInUseText = "QuickBooks error message: The name of this list element is already in use.";
constexpr const char* kBadRefText = "invalid reference";
constexpr const char* kDeleteText = "cannot be deleted";
constexpr const char* kStaleText = "out-of-date";
constexpr const char* kTypeText = "a sub-account has the type of its parent";

INSTANTIATE_TEST_SUITE_P(
    Lists, ListStatusTest,
    ::testing::Values(
        // 3100: the name is taken in the list's name space.
        StatusCase{"AccountNameInUse", "", "",
                   "<AccountAddRq><AccountAdd><Name>Checking</Name><AccountType>Bank</AccountType></AccountAdd>"
                   "</AccountAddRq>",
                   3100, kInUseText},
        StatusCase{"SubAccountNameInUse", "", "",
                   "<AccountAddRq><AccountAdd><Name>Electricity</Name><ParentRef><FullName>Utilities</FullName>"
                   "</ParentRef><AccountType>Expense</AccountType></AccountAdd></AccountAddRq>",
                   3100, kInUseText},
        StatusCase{"ItemNameInUseBySameKind", "", "",
                   "<ItemServiceAddRq><ItemServiceAdd><Name>Design</Name><SalesOrPurchase><Price>1.00</Price>"
                   "<AccountRef><FullName>Services</FullName></AccountRef></SalesOrPurchase></ItemServiceAdd>"
                   "</ItemServiceAddRq>",
                   3100, kInUseText},
        StatusCase{"VendorNameInUse", "", "",
                   "<VendorAddRq><VendorAdd><Name>State Revenue Office</Name></VendorAdd></VendorAddRq>", 3100,
                   kInUseText},
        StatusCase{"OtherNameInUse", "", "", "<OtherNameAddRq><OtherNameAdd><Name>Owner</Name></OtherNameAdd></OtherNameAddRq>",
                   3100, kInUseText},
        StatusCase{"OtherNameTakenByAVendor", "", "",
                   "<OtherNameAddRq><OtherNameAdd><Name>State Revenue Office</Name></OtherNameAdd></OtherNameAddRq>",
                   3100, kInUseText},
        StatusCase{"EmployeeNameInUse", "", "",
                   "<EmployeeAddRq><EmployeeAdd><FirstName>Ada</FirstName><LastName>Abernath</LastName></EmployeeAdd>"
                   "</EmployeeAddRq>",
                   3100, kInUseText},
        StatusCase{"PayrollItemWageNameInUse", "", "",
                   "<PayrollItemWageAddRq><PayrollItemWageAdd><Name>Salary</Name><WageType>SalaryRegular</WageType>"
                   "<ExpenseAccountRef><FullName>Payroll Expenses</FullName></ExpenseAccountRef></PayrollItemWageAdd>"
                   "</PayrollItemWageAddRq>",
                   3100, kInUseText},
        // 3180: an item name is taken by an item of another kind.
        StatusCase{"ItemNameTakenByAServiceItem", "", "",
                   "<ItemNonInventoryAddRq><ItemNonInventoryAdd><Name>Labor</Name><SalesOrPurchase><Price>1.00</Price>"
                   "<AccountRef><FullName>Sales</FullName></AccountRef></SalesOrPurchase></ItemNonInventoryAdd>"
                   "</ItemNonInventoryAddRq>",
                   3180, kItemInUseText},
        StatusCase{"ItemRenamedToANameOfAnotherKind", "ItemOtherCharge", "Delivery",
                   "<ItemOtherChargeModRq><ItemOtherChargeMod><ListID>{ID}</ListID><EditSequence>{SEQ}</EditSequence>"
                   "<Name>Hardware</Name></ItemOtherChargeMod></ItemOtherChargeModRq>",
                   3180, kItemInUseText},
        // 3140: a reference to a record that is not on file.
        StatusCase{"AccountUnknownParent", "", "",
                   "<AccountAddRq><AccountAdd><Name>Float</Name><ParentRef><FullName>Nowhere</FullName></ParentRef>"
                   "<AccountType>Bank</AccountType></AccountAdd></AccountAddRq>",
                   3140, kBadRefText},
        StatusCase{"ItemUnknownAccount", "", "",
                   "<ItemServiceAddRq><ItemServiceAdd><Name>Polishing</Name><SalesOrPurchase><Price>1.00</Price>"
                   "<AccountRef><FullName>Nowhere</FullName></AccountRef></SalesOrPurchase></ItemServiceAdd>"
                   "</ItemServiceAddRq>",
                   3140, kBadRefText},
        StatusCase{"SubItemOfAnotherKind", "", "",
                   "<ItemServiceAddRq><ItemServiceAdd><Name>Polishing</Name><ParentRef><FullName>Hardware</FullName>"
                   "</ParentRef><SalesOrPurchase><Price>1.00</Price><AccountRef><FullName>Services</FullName>"
                   "</AccountRef></SalesOrPurchase></ItemServiceAdd></ItemServiceAddRq>",
                   3140, kBadRefText},
        StatusCase{"VendorUnknownVendorType", "", "",
                   "<VendorAddRq><VendorAdd><Name>New Mill</Name><VendorTypeRef><FullName>Nowhere</FullName>"
                   "</VendorTypeRef></VendorAdd></VendorAddRq>",
                   3140, kBadRefText},
        StatusCase{"EmployeeUnknownWageItem", "", "",
                   "<EmployeeAddRq><EmployeeAdd><FirstName>Zed</FirstName><LastName>Newman</LastName>"
                   "<EmployeePayrollInfo><Earnings><PayrollItemWageRef><FullName>Nowhere</FullName>"
                   "</PayrollItemWageRef><Rate>10.00</Rate></Earnings></EmployeePayrollInfo></EmployeeAdd>"
                   "</EmployeeAddRq>",
                   3140, kBadRefText},
        StatusCase{"PayrollItemWageUnknownAccount", "", "",
                   "<PayrollItemWageAddRq><PayrollItemWageAdd><Name>Bonus</Name><WageType>Bonus</WageType>"
                   "<ExpenseAccountRef><FullName>Nowhere</FullName></ExpenseAccountRef></PayrollItemWageAdd>"
                   "</PayrollItemWageAddRq>",
                   3140, kBadRefText},
        // 3170: the record has sub-records or other records refer to it.
        StatusCase{"AccountWithSubAccounts", "Account", "Utilities",
                   "<ListDelRq><ListDelType>Account</ListDelType><ListID>{ID}</ListID></ListDelRq>", 3170, kDeleteText},
        StatusCase{"AccountUsedByItems", "Account", "Sales",
                   "<ListDelRq><ListDelType>Account</ListDelType><ListID>{ID}</ListID></ListDelRq>", 3170, kDeleteText},
        StatusCase{"ItemWithSubItems", "ItemService", "Labor",
                   "<ListDelRq><ListDelType>ItemService</ListDelType><ListID>{ID}</ListID></ListDelRq>", 3170,
                   kDeleteText},
        StatusCase{"ItemInAGroup", "ItemOtherCharge", "Delivery",
                   "<ListDelRq><ListDelType>ItemOtherCharge</ListDelType><ListID>{ID}</ListID></ListDelRq>", 3170,
                   kDeleteText},
        StatusCase{"VendorOfATaxItem", "Vendor", "State Revenue Office",
                   "<ListDelRq><ListDelType>Vendor</ListDelType><ListID>{ID}</ListID></ListDelRq>", 3170, kDeleteText},
        StatusCase{"EmployeeWhoIsASalesRep", "Employee", "Ada Abernath",
                   "<ListDelRq><ListDelType>Employee</ListDelType><ListID>{ID}</ListID></ListDelRq>", 3170,
                   kDeleteText},
        StatusCase{"WageItemThatPaysEmployees", "PayrollItemWage", "Hourly Wage",
                   "<ListDelRq><ListDelType>PayrollItemWage</ListDelType><ListID>{ID}</ListID></ListDelRq>", 3170,
                   kDeleteText},
        // 3200: a modify made from an older copy of the record.
        StatusCase{"AccountStaleEdit", "Account", "Rent",
                   "<AccountModRq><AccountMod><ListID>{ID}</ListID><EditSequence>1</EditSequence><Name>Lease</Name>"
                   "</AccountMod></AccountModRq>",
                   3200, kStaleText},
        StatusCase{"ItemStaleEdit", "ItemService", "Design",
                   "<ItemServiceModRq><ItemServiceMod><ListID>{ID}</ListID><EditSequence>1</EditSequence>"
                   "<Name>Drafting</Name></ItemServiceMod></ItemServiceModRq>",
                   3200, kStaleText},
        StatusCase{"VendorStaleEdit", "Vendor", "State Revenue Office",
                   "<VendorModRq><VendorMod><ListID>{ID}</ListID><EditSequence>1</EditSequence><Phone>555-0100</Phone>"
                   "</VendorMod></VendorModRq>",
                   3200, kStaleText},
        StatusCase{"OtherNameStaleEdit", "OtherName", "Owner",
                   "<OtherNameModRq><OtherNameMod><ListID>{ID}</ListID><EditSequence>1</EditSequence>"
                   "<Phone>555-0100</Phone></OtherNameMod></OtherNameModRq>",
                   3200, kStaleText},
        StatusCase{"EmployeeStaleEdit", "Employee", "Ada Abernath",
                   "<EmployeeModRq><EmployeeMod><ListID>{ID}</ListID><EditSequence>1</EditSequence>"
                   "<Phone>555-0100</Phone></EmployeeMod></EmployeeModRq>",
                   3200, kStaleText},
        // 3020: a sub-account has its parent's account type.
        StatusCase{"SubAccountOfAnotherType", "", "",
                   "<AccountAddRq><AccountAdd><Name>Petty Cash</Name><ParentRef><FullName>Checking</FullName>"
                   "</ParentRef><AccountType>Expense</AccountType></AccountAdd></AccountAddRq>",
                   3020, kTypeText},
        StatusCase{"AccountMovedBelowAnotherType", "Account", "Rent",
                   "<AccountModRq><AccountMod><ListID>{ID}</ListID><EditSequence>{SEQ}</EditSequence><Name>Rent</Name>"
                   "<ParentRef><FullName>Sales</FullName></ParentRef></AccountMod></AccountModRq>",
                   3020, kTypeText},
        StatusCase{"ParentAccountChangesTypeUnderItsSubAccounts", "Account", "Utilities",
                   "<AccountModRq><AccountMod><ListID>{ID}</ListID><EditSequence>{SEQ}</EditSequence>"
                   "<Name>Utilities</Name><AccountType>OtherExpense</AccountType></AccountMod></AccountModRq>",
                   3020, kTypeText}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(QbsimTest, SubAccountOpeningBalanceRollsUpIntoTheParentsTotal) {
  Open();
  Response before = Send("<AccountQueryRq><FullName>Checking</FullName></AccountQueryRq>");
  Response add = Send(
      "<AccountAddRq><AccountAdd><Name>Petty Cash</Name><ParentRef><FullName>Checking</FullName></ParentRef>"
      "<AccountType>Bank</AccountType><AccountNumber>1005</AccountNumber><OpenBalance>150.00</OpenBalance>"
      "</AccountAdd></AccountAddRq>");
  ASSERT_EQ(add.Status(), 0) << add.Message();
  EXPECT_EQ(add.Value("AccountRet/FullName"), "Checking:Petty Cash");
  EXPECT_EQ(add.Value("AccountRet/Sublevel"), "1");
  EXPECT_EQ(add.Value("AccountRet/AccountNumber"), "1005");
  EXPECT_EQ(add.Value("AccountRet/Balance"), "150.00");
  Response after = Send("<AccountQueryRq><FullName>Checking</FullName></AccountQueryRq>");
  EXPECT_EQ(before.Value("AccountRet/Balance"), "25000.00");
  EXPECT_EQ(before.Value("AccountRet/TotalBalance"), "25000.00");
  EXPECT_EQ(after.Value("AccountRet/Balance"), "25000.00");
  EXPECT_EQ(after.Value("AccountRet/TotalBalance"), "25150.00");
}

}  // namespace
}  // namespace tessaron::qbsim::testing
