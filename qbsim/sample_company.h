// Sample companies of our own invention, for the demo, the tests and the benchmarks: a
// chart of accounts with every account type, terms, tax codes and items, classes and the
// other small lists, vendors, employees, and customers with jobs three levels deep.
#pragma once

#include <cstdint>
#include <string>

#include "qbsim/company_file.h"

namespace tessaron::qbsim {

struct SampleOptions {
  Edition edition = Edition::US;
  int newestVersion = kDefaultNewestVersion;  // qbXML version x10
  // Customer records, jobs included; from a few dozen to a hundred thousand.
  int customers = 60;
  // US edition: the preferences name a default sales tax item, which makes the library
  // write the sales-tax elements of its sales forms.
  bool defaultSalesTaxItem = true;
  // Invoices over the last two years; -1: half as many as there are customers.
  int invoices = -1;
  // Of each of sales receipts, credit memos, estimates and sales orders; -1: one for every
  // twenty customers.
  int salesDocuments = -1;
};

// Creates the company file at `path` (which must not exist) and fills it in one transaction.
void CreateSampleCompany(const std::string& path, const SampleOptions& options = {});

// Tests only: adds a second customer with the full name of an existing one, which a
// damaged company file can hold and QuickBooks answers as it is. Returns its ListID.
std::string AddDuplicateCustomerForTesting(const std::string& path, const std::string& fullName);

}  // namespace tessaron::qbsim
