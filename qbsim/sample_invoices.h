// The sales history of a sample company: invoices spread over the last two years, a few per
// customer, and a few sales receipts, credit memos, estimates and sales orders, each worked
// out and posted as its add request would be; some invoices paid later by a payment.
#pragma once

#include "qbsim/company_file.h"
#include "qbsim/edition.h"

namespace tessaron::qbsim {

// Adds `count` invoices to the file in the scope's transaction; the lists must be complete.
void AddSampleInvoices(CompanyFile& file, WriteScope& scope, Edition edition, int newestVersion, int count);
// Adds `count` of each of the other sales documents in the same way.
void AddSampleSalesDocuments(CompanyFile& file, WriteScope& scope, Edition edition, int newestVersion, int count);

}  // namespace tessaron::qbsim
