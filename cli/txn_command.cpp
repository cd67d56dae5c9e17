// tessaron list KINDS --company FILE [--from DATE --to DATE] [--customer NAME | --vendor NAME]
//                     [--open|--paid] [--columns A,B] [--format table|json|csv]
// tessaron show KIND REFNUMBER --company FILE
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/txn_view.h"
#include "cli/session.h"
#include "cli/txn_kinds.h"
#include "cli/txn_view.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/connection/tessaron_globals.h"
#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/txn_collection.h"

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

std::vector<std::shared_ptr<TxnObject>> Members(const TxnCollectionBase& documents) {
  std::vector<std::shared_ptr<TxnObject>> out;
  for (long i = 1; i <= documents.Count(); ++i) out.push_back(documents.ItemObject(Variant(static_cast<int32_t>(i))));
  return out;
}

}  // namespace

void ListTransactions(const std::string& companyFile, const TxnKindInfo& kind, const TxnFilter& filter,
                      const std::string& format, const std::vector<std::string>& columns,
                      const GlobalOptions& global) {
  GlobalSession session(companyFile, "tessaron list", global);
  std::unique_ptr<TxnCollectionBase> documents = kind.make();  // the application's own, not the master
  if (filter.from != 0 || filter.to != 0)
    documents->GetByDateSpan(filter.from, filter.to, false, false, 0, filter.paidStatus, "", filter.entity, true);
  else if (!filter.entity.empty())
    documents->GetByEntity({filter.entity}, true, false, 0, filter.paidStatus);
  else
    documents->GetAll(false, 0, filter.paidStatus);
  RaiseFirstError(*documents->Errors(), "tessaron list");
  Table table = TxnTable(Members(*documents));
  if (!columns.empty()) table = Select(table, columns, false);
  else if (format == "table") table = Select(table, DefaultTxnColumns(), true);
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
  cmd->add_option("KIND", args->kind, "The kind of document")->required()->check(CLI::IsMember(TxnKindNames(), CLI::ignore_case));
  cmd->add_option("REFNUMBER", args->number, "Its number")->required();
  cmd->add_option("--company", args->file, "The company file")->required();
  cmd->callback([args, &global] {
    GlobalSession session(args->file, "tessaron show", global);
    const TxnKindInfo& kind = *FindTxnKind(args->kind);
    std::unique_ptr<TxnCollectionBase> documents = kind.make();
    documents->GetByRefNumber(args->number, args->number);
    RaiseFirstError(*documents->Errors(), "tessaron show");
    const auto found = Members(*documents);
    if (found.empty())
      throw Error(err::kInvalidId, "tessaron show", std::string("No ") + kind.kind + " numbered " + args->number + ".");
    for (const auto& doc : found) {
      if (doc != found.front()) std::cout << "\n";
      PrintDocument(*doc, std::cout);
    }
  });
}

}  // namespace tessaron::cli
