// The invariant every change of a company file keeps: the postings of its ledger sum to
// zero (total debits equal total credits). End-to-end tests call it when they end.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "qbsim/company_file.h"
#include "qbsim/ledger.h"

namespace tessaron::testing {

inline void ExpectLedgerBalanced(const std::string& companyPath) {
  auto file = qbsim::CompanyFile::Open(companyPath);
  EXPECT_EQ(qbsim::LedgerStore(*file).Imbalance(), 0) << "debits and credits of the ledger differ";
}

}  // namespace tessaron::testing
