// Invoices as the tessaron command shows them: one document as a person reads it, and a
// listing of many, one row each.
#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/table_output.h"
#include "tessaron/platform/date.h"

namespace tessaron {
class Invoice;
}

namespace tessaron::cli {

// The header, both addresses, the lines (group members indented under their group),
// subtotal, sales tax, total and balance.
void PrintInvoice(Invoice& invoice, std::ostream& out);

// One row per invoice: number, date, customer, due date, subtotal, tax, total, balance, paid.
Table InvoiceTable(const std::vector<std::shared_ptr<Invoice>>& invoices);

// Which invoices `tessaron list Invoices` asks for.
struct InvoiceFilter {
  Date from = 0;  // 0: open at that end
  Date to = 0;
  std::string customer;    // with its jobs
  int32_t paidStatus = 1;  // 1 all, 2 paid, 3 not paid
};

// Connects to the company file, runs the query and prints the listing in `format`
// (table, json or csv).
void ListInvoices(const std::string& companyFile, const InvoiceFilter& filter, const std::string& format,
                  const GlobalOptions& global);

}  // namespace tessaron::cli
