// Transactions as the tessaron command shows them: one document as a person reads it, and
// a listing of many, one row each.
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
class TxnObject;
}  // namespace tessaron

namespace tessaron::cli {

struct TxnKindInfo;

// The header, both addresses, the lines (group members indented under their group),
// subtotal, sales tax, total and balance.
void PrintInvoice(Invoice& invoice, std::ostream& out);

// Any other document: its kind, number and date, the header fields that are filled, then
// its item lines.
void PrintTxn(TxnObject& txn, std::ostream& out);

// Invoices as PrintInvoice shows them, the other kinds as PrintTxn does.
void PrintDocument(TxnObject& txn, std::ostream& out);

// One row per document, a column per property of its record; a reference's column is
// named without "Ref" ("Customer", "APAccount").
Table TxnTable(const std::vector<std::shared_ptr<TxnObject>>& documents);

// The columns a listing shows by default: number, date, the name, and the figures the
// kind has.
const std::vector<std::string>& DefaultTxnColumns();

// Which documents `tessaron list` asks for.
struct TxnFilter {
  Date from = 0;  // 0: open at that end
  Date to = 0;
  std::string entity;      // the customer, vendor or payee, with its jobs
  int32_t paidStatus = 1;  // 1 all, 2 paid, 3 not paid
};

// Connects to the company file, runs the query and prints the listing in `format` (table,
// json or csv); `columns` (empty: the default ones) picks the properties shown.
void ListTransactions(const std::string& companyFile, const TxnKindInfo& kind, const TxnFilter& filter,
                      const std::string& format, const std::vector<std::string>& columns,
                      const GlobalOptions& global);

}  // namespace tessaron::cli
