// Sales receipts, credit memos, estimates and sales orders kept by the processor: where
// each posts, the figures it answers, what it refuses; the ledger balanced after each test.
#include "qbsim/company_file.h"
#include "qbsim/ledger.h"
#include "tests/qbsim/qbsim_fixture.h"
#include "tessaron/platform/currency.h"

namespace tessaron::qbsim::testing {
namespace {

double Number(const std::string& text) { return Currency::Parse(text).ToDouble(); }

class SalesDocumentsLedgerTest : public QbsimTest {
 protected:
  void SetUp() override {
    QbsimTest::SetUp();
    Open();
    Response r = Send("<CustomerAddRq><CustomerAdd><Name>Walk In</Name><SalesTaxCodeRef><FullName>Tax</FullName>"
                      "</SalesTaxCodeRef><ItemSalesTaxRef><FullName>State Tax</FullName></ItemSalesTaxRef>"
                      "</CustomerAdd></CustomerAddRq>");
    ASSERT_EQ(r.Status(), 0) << r.Message();
  }
  void TearDown() override {
    if (processor_) {
      auto file = CompanyFile::Open(path_);
      EXPECT_EQ(LedgerStore(*file).Imbalance(), 0) << "debits and credits differ";
    }
    QbsimTest::TearDown();
  }

  double Balance(const std::string& kind, const std::string& fullName) {
    Response r = Send("<" + kind + "QueryRq><FullName>" + fullName + "</FullName></" + kind + "QueryRq>");
    return Number(r.Value(kind + "Ret/Balance"));
  }

  // An add of `kind` for Walk In with three hours of labour at 10.00; `more` follows the
  // customer in schema order.
  Response AddDoc(const std::string& kind, const std::string& more = "", const std::string& line = "") {
    return Send("<" + kind + "AddRq><" + kind + "Add><CustomerRef><FullName>Walk In</FullName></CustomerRef>" + more +
                "<" + kind + "LineAdd><ItemRef><FullName>Labor</FullName></ItemRef><Quantity>3</Quantity><Rate>10"
                "</Rate>" + line + "</" + kind + "LineAdd></" + kind + "Add></" + kind + "AddRq>");
  }
};

TEST_F(SalesDocumentsLedgerTest, SalesReceiptDebitsUndepositedFundsAndLeavesTheReceivableAlone) {
  const double ar = Balance("Customer", "Walk In"), funds = Balance("Account", "Undeposited Funds");
  Response r = AddDoc("SalesReceipt", "<CheckNumber>1044</CheckNumber>");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  const double total = Number(r.Value("SalesReceiptRet/TotalAmount"));
  EXPECT_EQ(r.Value("SalesReceiptRet/Subtotal"), "30.00");
  EXPECT_NEAR(total, 30 + Number(r.Value("SalesReceiptRet/SalesTaxTotal")), 0.001);
  EXPECT_NEAR(Balance("Account", "Undeposited Funds"), funds + total, 0.001);
  EXPECT_NEAR(Balance("Customer", "Walk In"), ar, 0.001);
}

TEST_F(SalesDocumentsLedgerTest, SalesReceiptHasNoModifyAndItsVoidPostsNothing) {
  const double funds = Balance("Account", "Undeposited Funds");
  Response r = AddDoc("SalesReceipt");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  const std::string id = r.Value("SalesReceiptRet/TxnID"), seq = r.Value("SalesReceiptRet/EditSequence");
  Response mod = Send("<SalesReceiptModRq><SalesReceiptMod><TxnID>" + id + "</TxnID><EditSequence>" + seq +
                      "</EditSequence><Memo>late</Memo></SalesReceiptMod></SalesReceiptModRq>");
  EXPECT_NE(mod.Status(), 0);
  Response v = Send("<TxnVoidRq><TxnVoidType>SalesReceipt</TxnVoidType><TxnID>" + id + "</TxnID></TxnVoidRq>");
  ASSERT_EQ(v.Status(), 0) << v.Message();
  EXPECT_NEAR(Balance("Account", "Undeposited Funds"), funds, 0.001);
}

TEST_F(SalesDocumentsLedgerTest, CreditMemoLowersTheCustomersBalanceByItsOpenCredit) {
  const double before = Balance("Customer", "Walk In");
  Response r = AddDoc("CreditMemo");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  const double total = Number(r.Value("CreditMemoRet/TotalAmount"));
  EXPECT_NEAR(total, 30 + Number(r.Value("CreditMemoRet/SalesTaxTotal")), 0.001);
  EXPECT_EQ(r.Value("CreditMemoRet/CreditRemaining"), r.Value("CreditMemoRet/TotalAmount"));
  EXPECT_NEAR(Balance("Customer", "Walk In"), before - total, 0.001);
  // A modify works the figures out again.
  Response m = Send("<CreditMemoModRq><CreditMemoMod><TxnID>" + r.Value("CreditMemoRet/TxnID") +
                    "</TxnID><EditSequence>" + r.Value("CreditMemoRet/EditSequence") +
                    "</EditSequence><CreditMemoLineMod><TxnLineID>" + r.Value("CreditMemoRet/CreditMemoLineRet/TxnLineID") +
                    "</TxnLineID><Quantity>1</Quantity></CreditMemoLineMod></CreditMemoMod></CreditMemoModRq>");
  ASSERT_EQ(m.Status(), 0) << m.Message();
  EXPECT_EQ(m.Value("CreditMemoRet/Subtotal"), "10.00");
  EXPECT_NEAR(Balance("Customer", "Walk In"), before - Number(m.Value("CreditMemoRet/TotalAmount")), 0.001);
}

TEST_F(SalesDocumentsLedgerTest, EstimateAndSalesOrderPostNothing) {
  const double before = Balance("Customer", "Walk In");
  Response est = AddDoc("Estimate", "", "<MarkupRatePercent>50</MarkupRatePercent>");
  ASSERT_EQ(est.Status(), 0) << est.Message();
  EXPECT_EQ(est.Value("EstimateRet/Subtotal"), "30.00");
  EXPECT_EQ(est.Value("EstimateRet/EstimateLineRet/MarkupRatePercent"), "50.00");
  Response so = AddDoc("SalesOrder", "", "<IsManuallyClosed>true</IsManuallyClosed>");
  ASSERT_EQ(so.Status(), 0) << so.Message();
  EXPECT_EQ(so.Value("SalesOrderRet/IsFullyInvoiced"), "false");
  EXPECT_EQ(so.Value("SalesOrderRet/SalesOrderLineRet/IsManuallyClosed"), "true");
  EXPECT_NEAR(Number(so.Value("SalesOrderRet/TotalAmount")),
              30 + Number(so.Value("SalesOrderRet/SalesTaxTotal")), 0.001);
  EXPECT_NEAR(Balance("Customer", "Walk In"), before, 0.001);

  // Read back from the file, the figures are the same.
  Response q = Send("<SalesOrderQueryRq><TxnID>" + so.Value("SalesOrderRet/TxnID") + "</TxnID>"
                    "<IncludeLineItems>true</IncludeLineItems></SalesOrderQueryRq>");
  EXPECT_EQ(q.Value("SalesOrderRet/TotalAmount"), so.Value("SalesOrderRet/TotalAmount"));
}

}  // namespace
}  // namespace tessaron::qbsim::testing
