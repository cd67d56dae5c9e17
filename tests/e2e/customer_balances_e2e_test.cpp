// What a customer owes is what its open invoices and those of its jobs still ask for: the
// balances the customer list shows must be the sums of the invoices the invoice queries
// return, before and after an invoice is added, changed, voided and deleted.
#include <map>
#include <string>

#include "tessaron/connection/tessaron_globals.h"
#include "tessaron/lists/customers.h"
#include "tessaron/transactions/credit_memos.h"
#include "tessaron/transactions/invoices.h"
#include "tessaron/transactions/txn_item_lines.h"
#include "tests/e2e/e2e_session.h"

namespace tessaron::testing {
namespace {

class CustomerBalancesTest : public EditionTest {
 protected:
  // Each customer's total balance as the customer list gives it, by full name.
  std::map<std::string, Currency> ListedBalances() {
    Customers customers;
    customers.GetAll();
    std::map<std::string, Currency> out;
    for (const auto& c : customers) out[c->FullName()] = c->TotalBalance();
    return out;
  }

  // The open invoices, less the open credit memos, summed onto their customer and every
  // customer above it.
  std::map<std::string, Currency> OpenInvoiceSums() {
    std::map<std::string, Currency> out;
    auto add = [&](std::string name, Currency amount) {
      for (;;) {
        out[name] += amount;
        const size_t colon = name.rfind(':');
        if (colon == std::string::npos) break;
        name.resize(colon);
      }
    };
    Invoices open;
    open.GetAll(false, 0, /*PaidStatus=*/3);
    EXPECT_EQ(open.Errors()->Count(), 0);
    for (long i = 1; i <= open.Count(); ++i) {
      auto inv = open.Item(Variant(static_cast<int32_t>(i)));
      add(inv->Customer(), inv->BalanceRemaining());
    }
    CreditMemos credits;
    credits.GetAll(false);
    EXPECT_EQ(credits.Errors()->Count(), 0);
    for (long i = 1; i <= credits.Count(); ++i) {
      auto cm = credits.Item(Variant(static_cast<int32_t>(i)));
      add(cm->Customer(), Currency() - cm->CreditRemaining());
    }
    return out;
  }

  void ExpectBalancesAreOpenInvoices() {
    const auto sums = OpenInvoiceSums();
    int owing = 0;
    for (const auto& [name, balance] : ListedBalances()) {
      auto it = sums.find(name);
      EXPECT_EQ(balance, it == sums.end() ? Currency() : it->second) << name;
      owing += balance != Currency();
    }
    EXPECT_GT(owing, 0);
  }
};

TEST_P(CustomerBalancesTest, BalancesAreTheSumsOfOpenInvoicesThroughAddModifyVoidAndDelete) {
  ExpectBalancesAreOpenInvoices();

  Customers customers;
  customers.GetAll();
  std::string job;
  for (const auto& c : customers)
    if (c->Sublevel() == 1 && c->IsActive()) job = c->FullName();
  ASSERT_FALSE(job.empty());

  auto invoices = TessaronGlobals::Invoices();
  auto inv = invoices->Add(job);
  inv->ItemLines()->Add("Labor", Currency(2));
  inv->ItemLines()->Add("Oak Panel", Currency(3));
  ASSERT_EQ(invoices->Commit(inv), 0);
  ExpectBalancesAreOpenInvoices();

  inv->ItemLines()->Item(Variant(1))->SetQuantity(Currency(5));
  ASSERT_EQ(invoices->Commit(inv), 0);
  ExpectBalancesAreOpenInvoices();

  const std::string id = inv->TxnId();
  ASSERT_EQ(invoices->Void(id, false), 0);
  ExpectBalancesAreOpenInvoices();
  ASSERT_EQ(invoices->Delete(id), 0);
  ExpectBalancesAreOpenInvoices();
}

INSTANTIATE_TEST_SUITE_P(Editions, CustomerBalancesTest,
                         ::testing::Values(qbsim::Edition::US, qbsim::Edition::CA, qbsim::Edition::UK), EditionName);

}  // namespace
}  // namespace tessaron::testing
