// Accounts: the add-only chart of accounts, numbered names, balances rolled up through the
// tree, the parent-type check, and the default accounts of the company.
#include <gtest/gtest.h>

#include <string>

#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/company/company.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/account.h"
#include "tests/support/list_session.h"
#include "tests/support/raised.h"

namespace tessaron {
namespace {

using testing::ListSession;
using testing::Raised;
using testing::Ret;
using testing::ScriptedProcessor;

std::string AccountRet(const std::string& id, const std::string& name, const std::string& type,
                       const std::string& number, const std::string& balance, const std::string& parent = "") {
  const std::string full = parent.empty() ? name : parent + ":" + name;
  std::string more = "<Name>" + name + "</Name><FullName>" + full + "</FullName><IsActive>true</IsActive>";
  if (!parent.empty()) more += "<ParentRef><FullName>" + parent + "</FullName></ParentRef>";
  more += "<Sublevel>0</Sublevel><AccountType>" + type + "</AccountType>";
  if (!number.empty()) more += "<AccountNumber>" + number + "</AccountNumber>";
  more += "<Balance>" + balance + "</Balance>";
  return Ret("Account", id, more);
}

// A company of the session whose preference for account numbers is given, with its
// master accounts loaded from a three-level tree.
class AccountsTest : public ::testing::Test {
 protected:
  void UseCompany(bool usingNumbers) {
    company = std::make_shared<Company>();
    XmlDocument doc = XmlDocument::Create();
    doc.loadXML(std::string("<PreferencesRet><AccountingPreferences><IsUsingAccountNumbers>") +
                (usingNumbers ? "true" : "false") + "</IsUsingAccountNumbers></AccountingPreferences></PreferencesRet>");
    detail::ListObjectAccess::FromDom(*company->Preferences(), doc.documentElement());
    SetCurrentCompany(company);
    accounts = company->Accounts();
    qb.Answer(ScriptedProcessor::Response(
        "AccountQueryRs",
        AccountRet("A1", "Utilities", "Expense", "6100", "100.00") +
            AccountRet("A2", "Electricity", "Expense", "6110", "40.00", "Utilities") +
            AccountRet("A3", "Night Rate", "Expense", "", "2.50", "Utilities:Electricity") +
            AccountRet("A4", "Water", "Expense", "6120", "7.00", "Utilities") +
            AccountRet("A5", "Checking", "Bank", "1000", "900.00")));
    accounts->GetAll();
    qb.processor().ClearRecords();
  }
  void TearDown() override { SetCurrentCompany(nullptr); }
  std::shared_ptr<Account> At(const char* key) { return accounts->Item(Variant(key)); }

  ListSession qb{"3.0"};
  std::shared_ptr<Company> company;
  std::shared_ptr<Accounts> accounts;
};

TEST_F(AccountsTest, NumberedNamesFollowThePreference) {
  UseCompany(true);
  EXPECT_EQ(At("Utilities:Electricity:Night Rate")->NameWithNumber(), "Night Rate");
  EXPECT_EQ(At("Utilities")->NameWithNumber(), "6100\xC2\xB7Utilities");
  EXPECT_EQ(At("Utilities:Electricity:Night Rate")->FullNameWithNumber(),
            "6100\xC2\xB7Utilities:6110\xC2\xB7" "Electricity:Night Rate");
  EXPECT_EQ(At("Checking")->FullNameWithNumber(), "1000\xC2\xB7" "Checking");
}

TEST_F(AccountsTest, WithoutThePreferenceTheNumbersAreIgnored) {
  UseCompany(false);
  EXPECT_EQ(At("Utilities:Electricity")->FullNameWithNumber(), "Utilities:Electricity");
}

TEST_F(AccountsTest, RollUpBalancesAddsEveryLevelBelow) {
  UseCompany(true);
  EXPECT_EQ(At("Utilities")->RollUpBalances(), Currency::Parse("149.50"));
  EXPECT_EQ(At("Utilities:Electricity")->RollUpBalances(), Currency::Parse("42.50"));
  EXPECT_EQ(At("Checking")->RollUpBalances(), Currency(900));
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST_F(AccountsTest, AddSendsTheFieldsInTheOrderOfTheSchemaAndAChangeCannotBeCommitted) {
  UseCompany(false);
  auto gas = accounts->Add("Gas", qbAccountTypeExpense, "Utilities", "6130", "Gas bill", "B-1", Currency(12),
                           DateSerial(2004, 1, 2));
  qb.Answer(ScriptedProcessor::Response("AccountAddRs", AccountRet("A9", "Gas", "Expense", "6130", "12.00", "Utilities"),
                                        0, "Status OK", std::to_string(accounts->Count())));
  EXPECT_EQ(accounts->Commit(gas), 0);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_NE(qb.processor().LastRequest().find(
                "<AccountAdd><Name>Gas</Name><IsActive>1</IsActive><ParentRef><FullName>Utilities</FullName>"
                "</ParentRef><AccountType>Expense</AccountType><AccountNumber>6130</AccountNumber>"
                "<BankNumber>B-1</BankNumber><Desc>Gas bill</Desc><OpenBalance>12.00</OpenBalance>"
                "<OpenBalanceDate>2004-01-02</OpenBalanceDate></AccountAdd>"),
            std::string::npos)
      << qb.processor().LastRequest();
  ASSERT_EQ(gas->ObjectState(), qoObjectStateClean);

  gas->SetDescription("Gas and heating");
  EXPECT_EQ(gas->ObjectState(), qoObjectStateDirty);
  const auto e = Raised([&] { accounts->Commit(gas); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kInternal);
  EXPECT_EQ(e->Description(), "XMLModify not supported");
  EXPECT_EQ(e->Source(), "Tessaron: Account");
}

TEST_F(AccountsTest, ValidateChecksTheParentTypeAndTheLengths) {
  UseCompany(false);
  auto odd = accounts->Add("Odd", qbAccountTypeBank, "Utilities", "12345678", std::string(30, 'd'),
                           std::string(26, 'b'));
  EXPECT_FALSE(odd->Validate());
  std::vector<uint32_t> numbers;
  for (const auto& e : *odd->Errors()) numbers.push_back(static_cast<uint32_t>(e->Number()));
  EXPECT_EQ(numbers, (std::vector<uint32_t>{err::kParentAccountType, err::kAccountNumberTooLong,
                                            err::kBankNumberTooLong, err::kAccountDescTooLong}));
  auto fine = accounts->Add("Fine", qbAccountTypeExpense, "Utilities", "1234567", std::string(29, 'd'));
  EXPECT_TRUE(fine->Validate());
}

TEST_F(AccountsTest, DefaultAccountsAreLookedUpOnceWhenFound) {
  UseCompany(false);
  qb.Answer(ScriptedProcessor::Response("AccountQueryRs", AccountRet("A5", "Checking", "Bank", "1000", "900.00")));
  EXPECT_EQ(company->DefaultBankAccount(), "Checking");
  EXPECT_EQ(company->DefaultBankAccount(), "Checking");
  ASSERT_EQ(qb.processor().Requests().size(), 1u);
  EXPECT_NE(qb.processor().LastRequest().find("<AccountType>Bank</AccountType>"), std::string::npos);
  EXPECT_EQ(company->DefaultARAccount(), "");  // none on file: asked again next time
  EXPECT_EQ(company->DefaultARAccount(), "");
  EXPECT_EQ(qb.processor().Requests().size(), 3u);
  EXPECT_EQ(accounts->Count(), 5);  // the master keeps what it held
}

}  // namespace
}  // namespace tessaron
