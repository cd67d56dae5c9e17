// The invariant every change of a company file keeps: the postings of its ledger sum to
// zero (total debits equal total credits). End-to-end tests call it when they end.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "qbsim/company_file.h"
#include "qbsim/ledger.h"
#include "tessaron/lists/account.h"
#include "tessaron/platform/currency.h"

namespace tessaron::testing {

inline void ExpectLedgerBalanced(const std::string& companyPath) {
  auto file = qbsim::CompanyFile::Open(companyPath);
  EXPECT_EQ(qbsim::LedgerStore(*file).Imbalance(), 0) << "debits and credits of the ledger differ";
}

// An account's balance as the open company reports it now (a fresh query); far below
// zero when no account has the name.
inline Currency AccountBalanceOf(const std::string& name) {
  Accounts fresh;
  auto account = fresh.GetByFullName(name);
  return account ? account->Balance() : Currency(-999999);
}

}  // namespace tessaron::testing
