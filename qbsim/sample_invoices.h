// The invoices of a sample company: spread over the last two years, a few per customer,
// worked out and posted as an InvoiceAdd would be; some of them paid by a later payment.
#pragma once

#include "qbsim/company_file.h"
#include "qbsim/edition.h"

namespace tessaron::qbsim {

// Adds `count` invoices to the file in the scope's transaction; the lists must be complete.
void AddSampleInvoices(CompanyFile& file, WriteScope& scope, Edition edition, int newestVersion, int count);

}  // namespace tessaron::qbsim
