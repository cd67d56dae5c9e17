// Journal entries kept as a ledger: what QuickBooks refuses (debits and credits that
// differ, receivable or payable lines without their kind of name), what a kept entry moves
// (accounts, a customer's balance), read back, void and delete. After every test the
// postings of the file sum to zero.
#include "qbsim/company_file.h"
#include "qbsim/ledger.h"
#include "tessaron/platform/currency.h"
#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {
namespace {

double Number(const std::string& text) { return Currency::Parse(text).ToDouble(); }

std::string Line(bool debit, const std::string& account, const std::string& amount, const std::string& more = "") {
  const std::string tag = debit ? "JournalDebitLine" : "JournalCreditLine";
  return "<" + tag + "><AccountRef><FullName>" + account + "</FullName></AccountRef><Amount>" + amount + "</Amount>" +
         more + "</" + tag + ">";
}
std::string Entity(const std::string& name) { return "<EntityRef><FullName>" + name + "</FullName></EntityRef>"; }
std::string Add(const std::string& lines, const std::string& ref = "J-1") {
  return "<JournalEntryAddRq><JournalEntryAdd><TxnDate>2024-05-02</TxnDate><RefNumber>" + ref + "</RefNumber>" +
         lines + "</JournalEntryAdd></JournalEntryAddRq>";
}

class JournalLedgerTest : public QbsimTest {
 protected:
  void SetUp() override {
    QbsimTest::SetUp();
    Open();
    Send("<CustomerAddRq><CustomerAdd><Name>Journal Customer</Name></CustomerAdd></CustomerAddRq>");
    Send("<VendorAddRq><VendorAdd><Name>Journal Vendor</Name></VendorAdd></VendorAddRq>");
  }
  void TearDown() override {
    if (processor_) EXPECT_EQ(LedgerStore(*CompanyFile::Open(path_)).Imbalance(), 0) << "debits and credits differ";
    QbsimTest::TearDown();
  }
  double Balance(const std::string& kind, const std::string& name) {
    return Number(Send("<" + kind + "QueryRq><FullName>" + name + "</FullName></" + kind + "QueryRq>")
                      .Value(kind + "Ret/Balance"));
  }
  int Entries() { return static_cast<int>(Send("<JournalEntryQueryRq/>").Records().size()); }
};

TEST_F(JournalLedgerTest, DebitsAndCreditsThatDifferAreRefusedWith3180AndChangeNothing) {
  const double rent = Balance("Account", "Rent"), checking = Balance("Account", "Checking");
  Response r = Send(Add(Line(true, "Rent", "100.00") + Line(false, "Checking", "99.99")));
  EXPECT_EQ(r.Status(), 3180);
  EXPECT_NE(r.Message().find("Transaction not in balance"), std::string::npos) << r.Message();
  EXPECT_EQ(Entries(), 0);
  EXPECT_DOUBLE_EQ(Balance("Account", "Rent"), rent);
  EXPECT_DOUBLE_EQ(Balance("Account", "Checking"), checking);
}

TEST_F(JournalLedgerTest, BalancedEntryIsKeptAndMovesEachAccountByItsLine) {
  const double rent = Balance("Account", "Rent"), checking = Balance("Account", "Checking");
  // Credit first: the processor takes the lines in any order.
  Response r = Send(Add(Line(false, "Checking", "100.00", "<Memo>paid</Memo>") + Line(true, "Rent", "60.00") +
                        Line(true, "Rent", "40.00")));
  ASSERT_EQ(r.Status(), 0) << r.Message();
  EXPECT_DOUBLE_EQ(Balance("Account", "Rent"), rent + 100);
  EXPECT_DOUBLE_EQ(Balance("Account", "Checking"), checking - 100);
  // Read back in the order sent, each line under its own name with its id.
  Response q = Send("<JournalEntryQueryRq><TxnID>" + r.Value("JournalEntryRet/TxnID") +
                    "</TxnID><IncludeLineItems>true</IncludeLineItems></JournalEntryQueryRq>");
  pugi::xml_node ret = q.Records().at(0);
  std::vector<std::string> names;
  for (pugi::xml_node c = ret.first_child(); c; c = c.next_sibling())
    if (std::string(c.name()).rfind("Journal", 0) == 0) names.push_back(c.name());
  EXPECT_EQ(names, (std::vector<std::string>{"JournalCreditLine", "JournalDebitLine", "JournalDebitLine"}));
  EXPECT_FALSE(std::string(ret.child("JournalCreditLine").child_value("TxnLineID")).empty());
  EXPECT_EQ(std::string(ret.child("JournalCreditLine").child_value("Memo")), "paid");
  EXPECT_EQ(std::string(ret.child_value("RefNumber")), "J-1");
}

TEST_F(JournalLedgerTest, ReceivableLineMovesTheBalanceOfItsCustomer) {
  const double before = Balance("Customer", "Journal Customer");
  ASSERT_EQ(Send(Add(Line(true, "Accounts Receivable", "75.00", Entity("Journal Customer")) +
                     Line(false, "Rent", "75.00")))
                .Status(),
            0);
  EXPECT_DOUBLE_EQ(Balance("Customer", "Journal Customer"), before + 75);
}

TEST_F(JournalLedgerTest, PayableLineMovesTheBalanceOfItsVendor) {
  const double before = Balance("Vendor", "Journal Vendor");
  ASSERT_EQ(Send(Add(Line(true, "Rent", "20.00") +
                     Line(false, "Accounts Payable", "20.00", Entity("Journal Vendor"))))
                .Status(),
            0);
  EXPECT_DOUBLE_EQ(Balance("Vendor", "Journal Vendor"), before + 20);
}

struct Refusal {
  const char* name;
  const char* account;
  const char* entity;
};
class JournalRefusals : public JournalLedgerTest, public ::testing::WithParamInterface<Refusal> {};

TEST_P(JournalRefusals, LineWithoutTheNameItsAccountNeedsIsRefused) {
  const Refusal& c = GetParam();
  Response r = Send(Add(Line(true, c.account, "10.00", *c.entity ? Entity(c.entity) : "") + Line(false, "Rent", "10.00")));
  EXPECT_EQ(r.Status(), 3180) << r.Message();
  EXPECT_EQ(Entries(), 0);
}

INSTANTIATE_TEST_SUITE_P(Lines, JournalRefusals,
                         ::testing::Values(Refusal{"ReceivableWithoutName", "Accounts Receivable", ""},
                                           Refusal{"ReceivableWithVendor", "Accounts Receivable", "Journal Vendor"},
                                           Refusal{"PayableWithCustomer", "Accounts Payable", "Journal Customer"},
                                           Refusal{"NonPosting", "Purchase Orders", ""}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(JournalLedgerTest, VoidUndoesThePostingsAndDeleteRemovesTheEntry) {
  const double rent = Balance("Account", "Rent");
  Response r = Send(Add(Line(true, "Rent", "30.00") + Line(false, "Checking", "30.00")));
  const std::string id = r.Value("JournalEntryRet/TxnID");
  Response v = Send("<TxnVoidRq><TxnVoidType>JournalEntry</TxnVoidType><TxnID>" + id + "</TxnID></TxnVoidRq>");
  ASSERT_EQ(v.Status(), 0) << v.Message();
  EXPECT_DOUBLE_EQ(Balance("Account", "Rent"), rent);
  Response d = Send("<TxnDelRq><TxnDelType>JournalEntry</TxnDelType><TxnID>" + id + "</TxnID></TxnDelRq>");
  ASSERT_EQ(d.Status(), 0) << d.Message();
  EXPECT_EQ(Entries(), 0);
}

}  // namespace
}  // namespace tessaron::qbsim::testing
