// tessaron list Invoices --company FILE [--from DATE --to DATE] [--customer NAME] [--open|--paid]
//                        [--format table|json|csv]
// tessaron show Invoice REFNUMBER --company FILE
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/invoice_view.h"
#include "cli/session.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/connection/tessaron_globals.h"
#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/invoices.h"

namespace tessaron::cli {

namespace {

// The application's view of a company file: the global connection with its company and
// master collections, closed again when the command is done.
class GlobalSession {
 public:
  GlobalSession(const std::string& companyFile, const std::string& appName, const GlobalOptions& global) {
    RegisterEmbeddedProcessor(global);
    auto qb = TessaronGlobals::QBConnection();
    if (!global.transcript.empty()) qb->SetDebugLogPath(global.transcript);
    TessaronGlobals::QBConnect("", appName, qbFileOpenDoNotCare, companyFile);
  }
  ~GlobalSession() {
    try {
      TessaronGlobals::QBConnection()->CloseConnection();
    } catch (...) {
    }
    State().GlobalConnection.reset();
  }
};

void RaiseFirstError(qcErrors& errors, const char* source) {
  if (errors.Count() == 0) return;
  auto e = errors.Item(1);
  throw Error(e->Number(), source, e->Description());
}

std::vector<std::shared_ptr<Invoice>> Members(Invoices& invoices) {
  std::vector<std::shared_ptr<Invoice>> out;
  for (long i = 1; i <= invoices.Count(); ++i) out.push_back(invoices.Item(Variant(static_cast<int32_t>(i))));
  return out;
}

}  // namespace

void ListInvoices(const std::string& companyFile, const InvoiceFilter& filter, const std::string& format,
                  const GlobalOptions& global) {
  GlobalSession session(companyFile, "tessaron list", global);
  Invoices invoices;  // the application's own collection, not the master
  if (filter.from != 0 || filter.to != 0)
    invoices.GetByDateSpan(filter.from, filter.to, false, false, 0, filter.paidStatus, "", filter.customer, true);
  else if (!filter.customer.empty())
    invoices.GetByEntity({filter.customer}, true, false, 0, filter.paidStatus);
  else
    invoices.GetAll(false, 0, filter.paidStatus);
  RaiseFirstError(*invoices.Errors(), "tessaron list");
  Table table = InvoiceTable(Members(invoices));
  if (format == "table") FormatAmounts(table);
  if (format == "json") PrintJson(table);
  else if (format == "csv") PrintCsv(table);
  else PrintTable(table);
}

void AddShowCommand(CLI::App& app, const GlobalOptions& global) {
  CLI::App* cmd = app.add_subcommand("show", "Show one document of the company file as a person reads it");
  struct Args {
    std::string kind;
    std::string number;
    std::string file;
  };
  auto args = std::make_shared<Args>();
  cmd->add_option("KIND", args->kind, "The kind of document: Invoice")->required()->check(CLI::IsMember({"Invoice"}, CLI::ignore_case));
  cmd->add_option("REFNUMBER", args->number, "Its number")->required();
  cmd->add_option("--company", args->file, "The company file")->required();
  cmd->callback([args, &global] {
    GlobalSession session(args->file, "tessaron show", global);
    Invoices invoices;
    invoices.GetByRefNumber(args->number, args->number);
    RaiseFirstError(*invoices.Errors(), "tessaron show");
    if (invoices.Count() == 0) throw Error(err::kInvalidId, "tessaron show", "No invoice numbered " + args->number + ".");
    for (const auto& inv : Members(invoices)) {
      PrintInvoice(*inv, std::cout);
      if (inv != Members(invoices).back()) std::cout << "\n";
    }
  });
}

}  // namespace tessaron::cli
