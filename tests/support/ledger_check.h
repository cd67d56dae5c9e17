// The ledger's invariant for end-to-end tests: once the session is closed, every posting
// of the company file sums to zero (each document's debits equal its credits).
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "qbsim/company_file.h"
#include "qbsim/ledger.h"

namespace tessaron::testing {

inline void ExpectLedgerBalanced(const std::string& path) {
  auto file = qbsim::CompanyFile::Open(path);
  ASSERT_TRUE(file);
  EXPECT_EQ(qbsim::LedgerStore(*file).Imbalance(), 0) << "debits and credits differ";
}

}  // namespace tessaron::testing
