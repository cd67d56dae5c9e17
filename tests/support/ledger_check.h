// The ledger's invariants for end-to-end tests. Every posting of the company file sums to
// zero (each document's debits equal its credits); and, more strictly, the receivable
// accounts hold exactly what the documents on them still have open (invoices owed less
// credits and payments not yet applied), with no invoice paid beyond its amount.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "qbsim/company_file.h"
#include "qbsim/ledger.h"
#include "qbsim/sql.h"

namespace tessaron::testing {

inline ::testing::AssertionResult LedgerIsSound(const std::string& path) {
  auto file = qbsim::CompanyFile::Open(path);
  const int64_t imbalance = qbsim::LedgerStore(*file).Imbalance();
  if (imbalance != 0) return ::testing::AssertionFailure() << "debits and credits differ by " << imbalance;
  auto sum = [&](const char* sql) {
    auto st = file->Db().Prepare(sql);
    return st.Step() ? st.Int(0) : 0;
  };
  constexpr const char* kReceivable =
      "account_id IN (SELECT DISTINCT account_id FROM txn WHERE kind IN ('Invoice', 'CreditMemo', 'ReceivePayment'))";
  const int64_t onAccounts =
      sum((std::string("SELECT coalesce(sum(amount), 0) FROM posting WHERE ") + kReceivable).c_str());
  const int64_t open = sum((std::string("SELECT coalesce(sum(amount), 0) FROM posting WHERE open_txn_id IN "
                                        "(SELECT txn_id FROM txn) AND ") +
                            kReceivable)
                               .c_str());
  if (onAccounts != open)
    return ::testing::AssertionFailure() << "receivables hold " << onAccounts << " but open documents sum to " << open;
  const int64_t overpaid = sum(
      "SELECT count(*) FROM (SELECT p.open_txn_id, sum(p.amount) AS s FROM posting p JOIN txn t ON t.txn_id = "
      "p.open_txn_id WHERE t.kind = 'Invoice' AND p.account_id = t.account_id GROUP BY p.open_txn_id) WHERE s < 0");
  if (overpaid != 0) return ::testing::AssertionFailure() << overpaid << " invoices are paid beyond their amount";
  return ::testing::AssertionSuccess();
}

inline void ExpectLedgerBalanced(const std::string& path) {
  auto file = qbsim::CompanyFile::Open(path);
  ASSERT_TRUE(file);
  EXPECT_EQ(qbsim::LedgerStore(*file).Imbalance(), 0) << "debits and credits differ";
}

}  // namespace tessaron::testing
