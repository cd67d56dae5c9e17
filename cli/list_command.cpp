// tessaron list COLLECTION --company FILE [--all|--active] [--name-match TEXT --match starts|contains|ends]
//                          [--name-from A --name-to B] [--balance OP AMOUNT] [--tree] [--type KIND]
//                          [--columns A,B,...] [--format table|json|csv]
// tessaron list Invoices --company FILE [--from DATE --to DATE] [--customer NAME] [--open|--paid]
//   (and every other kind of transaction: Bills with --vendor NAME, ...)
#include <algorithm>
#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/list_columns.h"
#include "cli/session.h"
#include "cli/table_output.h"
#include "cli/txn_kinds.h"
#include "cli/txn_view.h"
#include "qbsim/qbsim.h"
#include "tessaron/connection/qb_connection.h"
#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/framework/lists.h"
#include "tessaron/lists/account.h"
#include "tessaron/lists/customers.h"
#include "tessaron/lists/items.h"
#include "tessaron/lists/qc_item.h"
#include "tessaron/lists/list_catalog.h"
#include "tessaron/platform/text.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron::cli {

namespace {

// The records in the collection's order, or as a tree: each record followed by the records
// below it, at any depth. A record whose parent was not returned starts a tree of its own.
std::vector<std::shared_ptr<ListObject>> Records(ListCollectionBase& list, bool tree) {
  std::vector<std::shared_ptr<ListObject>> all;
  for (const auto& obj : list.NewEnum()) all.push_back(std::static_pointer_cast<ListObject>(obj));
  if (!tree) return all;
  std::vector<std::shared_ptr<ListObject>> out;
  std::vector<bool> placed(all.size());
  std::function<void(const std::string&)> below = [&](const std::string& parent) {
    for (size_t i = 0; i < all.size(); ++i) {
      if (placed[i] || !EqualsIgnoreCase(all[i]->Parent(), parent)) continue;
      placed[i] = true;
      out.push_back(all[i]);
      below(all[i]->FullName());
    }
  };
  for (size_t i = 0; i < all.size(); ++i) {
    if (placed[i] || (!all[i]->Parent().empty() && list.ItemExists(Variant(all[i]->Parent())))) continue;
    placed[i] = true;
    out.push_back(all[i]);
    below(all[i]->FullName());
  }
  return out;
}

// The kinds of item by the names a person types, in the order of their item types (1 to 12).
constexpr const char* kItemTypeNames[] = {"service",  "inventory", "non-inventory", "other-charge",
                                          "subtotal", "group",     "discount",      "payment",
                                          "sales-tax", "sales-tax-group", "assembly", "fixed-asset"};

// Items of every kind answer the same questions (qcItem): their full name, kind, sales
// description and price, whether the price sits in the record or in its money side.
void AddItemProperties(qcItem& item, std::vector<ListObject::PropertyText>& record) {
  auto set = [&](std::string_view name, std::string text, FieldKind kind) {
    for (auto& p : record)
      if (p.name == name) { p.text = std::move(text); return; }
    record.push_back({name, std::move(text), kind});
  };
  set("FullName", item.FullName(), FieldKind::Text);
  const auto type = static_cast<size_t>(item.ItemType());
  set("Type", type >= 1 && type <= std::size(kItemTypeNames) ? kItemTypeNames[type - 1] : "", FieldKind::Text);
  std::string description = item.SalesDescription();
  set("Description", description.empty() ? item.PurchaseDescription() : description, FieldKind::Text);
  const Currency price = item.SalesCost();
  std::string text;
  if (price != Currency()) text = item.SalesCostIsPercent() ? FormatCurrency(price, "0.00") + "%" : price.ToString();
  set("Price", text, FieldKind::Amount);
}

// The columns are the properties of the records' classes, in table order; a collection
// of two kinds (Terms) shows the union. As a tree, the name comes first, indented by depth.
Table Collect(const std::vector<std::shared_ptr<ListObject>>& objects, bool tree) {
  Table t;
  std::vector<std::vector<ListObject::PropertyText>> records;
  for (const auto& obj : objects) {
    t.classes.emplace_back(obj->ClassInfo().className);
    records.push_back(obj->Properties());
    if (auto item = std::dynamic_pointer_cast<qcItem>(obj)) AddItemProperties(*item, records.back());
    if (!tree) continue;
    auto& record = records.back();
    auto name = std::find_if(record.begin(), record.end(), [](const auto& p) { return p.name == "Name"; });
    if (name == record.end()) continue;
    // The chart of accounts reads as an accountant's: numbered names, and each balance with
    // the balances of the accounts below it.
    if (auto account = std::dynamic_pointer_cast<Account>(obj)) {
      name->text = account->NameWithNumber();
      for (auto& p : record)
        if (p.name == "Balance") p.text = account->RollUpBalances().ToString();
    }
    name->text.insert(0, 2 * static_cast<size_t>(std::max<int16_t>(obj->Sublevel(), 0)), ' ');
    std::rotate(record.begin(), name, name + 1);
  }
  for (const auto& record : records)
    for (const auto& p : record)
      if (std::find(t.columns.begin(), t.columns.end(), p.name) == t.columns.end()) {
        t.columns.emplace_back(p.name);
        t.kinds.push_back(p.kind);
      }
  for (const auto& record : records) {
    std::vector<std::string> row(t.columns.size());
    for (const auto& p : record)
      row[std::find(t.columns.begin(), t.columns.end(), p.name) - t.columns.begin()] = p.text;
    t.rows.push_back(std::move(row));
  }
  return t;
}

// The default columns of the classes in the table, in the order the classes first appear.
std::vector<std::string> DefaultColumnsOf(const Table& t, bool tree) {
  std::vector<std::string> names;
  if (tree) names.emplace_back("Name");  // indented, so the full name is not needed
  for (const auto& cls : t.classes)
    for (const auto& name : DefaultColumns(cls)) {
      if (tree && (name == "Name" || name == "FullName")) continue;
      if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    }
  // In a list of several kinds the active flag stays the last column.
  auto active = std::find(names.begin(), names.end(), "IsActive");
  if (active != names.end()) std::rotate(active, active + 1, names.end());
  return names;
}


std::vector<std::string> ItemTypeNames() { return {std::begin(kItemTypeNames), std::end(kItemTypeNames)}; }

int32_t ItemTypeOf(const std::string& name) {
  for (size_t i = 0; i < std::size(kItemTypeNames); ++i)
    if (EqualsIgnoreCase(name, kItemTypeNames[i])) return static_cast<int32_t>(i + 1);
  return 0;
}

std::string NamesText() {
  std::string out;
  for (const auto& n : ListCollectionNames()) out += (out.empty() ? "" : ", ") + n;
  return out;
}

}  // namespace

void AddListCommand(CLI::App& app, const GlobalOptions& global) {
  CLI::App* cmd = app.add_subcommand("list", "List the records of a list collection through the library's queries");
  struct Args {
    std::string collection;
    std::string file;
    bool all = false;
    bool active = false;
    std::string nameMatch;
    std::string match = "starts";
    std::string nameFrom;
    std::string nameTo;
    std::string format = "table";
    std::vector<std::string> balance;
    bool tree = false;
    std::string columns;
    std::string type;
    // Transactions only.
    std::string from;
    std::string to;
    std::string customer;
    std::string vendor;
    bool open = false;
    bool paid = false;
  };
  auto args = std::make_shared<Args>();
  cmd->add_option("COLLECTION", args->collection, "The collection, by its name: " + NamesText() + ", " + TxnCollectionNames())
      ->required();
  cmd->add_option("--company", args->file, "The company file")->required();
  auto* all = cmd->add_flag("--all", args->all, "All records, active or not (the default)");
  cmd->add_flag("--active", args->active, "Only active records")->excludes(all);
  auto* match = cmd->add_option("--name-match", args->nameMatch, "Records whose name matches TEXT")->option_text("TEXT");
  cmd->add_option("--match", args->match, "How --name-match matches")
      ->check(CLI::IsMember({"starts", "contains", "ends"}))
      ->capture_default_str();
  auto* from = cmd->add_option("--name-from", args->nameFrom, "Records from this name on")->option_text("A");
  auto* to = cmd->add_option("--name-to", args->nameTo, "Records up to this name")->option_text("B");
  from->needs(to);
  to->needs(from);
  match->excludes(from)->excludes(to)->excludes(all);
  from->excludes(all);
  cmd->add_option("--balance", args->balance,
                  "Customers whose total balance compares so with AMOUNT; OP is lt, le, eq, gt or ge")
      ->expected(2)
      ->option_text("OP AMOUNT");
  cmd->add_flag("--tree", args->tree,
                "Records under their parents, indented (customers and their jobs; the chart of accounts with "
                "numbers and balances rolled up)");
  cmd->add_option("--type", args->type, "Items of one kind only")
      ->check(CLI::IsMember(ItemTypeNames()))
      ->option_text("KIND");
  cmd->add_option("--columns", args->columns,
                  "The properties to show, by name (any case), comma-separated; the table shows a short "
                  "set per class by default, JSON and CSV every property")
      ->option_text("A,B,...");
  cmd->add_option("--format", args->format, "Output: an aligned table, one JSON array, or CSV with a header row")
      ->check(CLI::IsMember({"table", "json", "csv"}))
      ->capture_default_str();

  auto* txnFrom = cmd->add_option("--from", args->from, "Transactions dated from this day on")->option_text("DATE");
  auto* txnTo = cmd->add_option("--to", args->to, "Transactions dated up to this day")->option_text("DATE");
  auto* customer =
      cmd->add_option("--customer", args->customer, "Transactions of this customer and its jobs")->option_text("NAME");
  auto* vendor = cmd->add_option("--vendor", args->vendor, "Transactions of this vendor")->option_text("NAME");
  vendor->excludes(customer);
  auto* open = cmd->add_flag("--open", args->open, "Invoices and bills not fully paid");
  auto* paid = cmd->add_flag("--paid", args->paid, "Paid invoices and bills")->excludes(open);
  const std::vector<CLI::Option*> txnOptions = {txnFrom, txnTo, customer, vendor, open, paid};

  cmd->callback([args, &global, txnOptions, cmd] {
    if (const TxnKindInfo* kind = FindTxnKind(args->collection)) {
      TxnFilter filter;
      auto day = [](const std::string& text, const char* option) {
        if (text.empty()) return Date(0);
        Date d = 0;
        if (!TryParseDate(text, d)) throw CLI::ValidationError(option, "takes a date as yyyy-mm-dd");
        return d;
      };
      filter.from = day(args->from, "--from");
      filter.to = day(args->to, "--to");
      filter.entity = args->customer.empty() ? args->vendor : args->customer;
      if ((args->paid || args->open) && !kind->paidStatus)
        throw CLI::ValidationError(args->paid ? "--paid" : "--open", std::string("does not apply to ") + kind->collection);
      filter.paidStatus = args->paid ? 2 : args->open ? 3 : 1;
      ListTransactions(args->file, *kind, filter, args->format, SplitColumnList(args->columns), global);
      return;
    }
    for (const CLI::Option* o : txnOptions)
      if (o->count() > 0) throw CLI::ValidationError(o->get_name(), "applies to transactions only");
    std::shared_ptr<ListCollectionBase> list = CreateListCollection(args->collection);
    if (!list) throw CLI::ValidationError("COLLECTION", "is not a list collection; one of: " + NamesText());
    if (args->tree && args->format != "table") throw CLI::ValidationError("--tree", "shows a table only");
    auto items = std::dynamic_pointer_cast<Items>(list);
    if (!args->type.empty() && !items) throw CLI::ValidationError("--type", "applies to Items only");
    const int32_t itemType = args->type.empty() ? 0 : ItemTypeOf(args->type);
    // The balance filter: only customers have one.
    auto customers = std::dynamic_pointer_cast<Customers>(list);
    int32_t balanceFilter = 0;
    Currency balance;
    if (!args->balance.empty()) {
      if (!customers) throw CLI::ValidationError("--balance", "applies to Customers only");
      static const std::vector<std::pair<std::string, int32_t>> kOperators = {
          {"lt", qbLessThan}, {"le", qbLessThanOrEqual}, {"eq", qbEqual}, {"gt", qbGreaterThan},
          {"ge", qbGreaterThanOrEqual}};
      for (const auto& [name, code] : kOperators)
        if (EqualsIgnoreCase(name, args->balance[0])) balanceFilter = code;
      if (balanceFilter == 0 || !Currency::TryParse(args->balance[1], balance))
        throw CLI::ValidationError("--balance", "takes an operator (lt, le, eq, gt, ge) and an amount");
    }
    RegisterEmbeddedProcessor(global);
    QBConnection connection;
    if (!global.transcript.empty()) connection.SetDebugLogPath(global.transcript);
    connection.Connect("", "tessaron list", qbFileOpenDoNotCare, args->file);
    auto lists = std::make_shared<Lists>();
    SetCurrentLists(lists);
    if (list->ListType() != 0) {
      detail::ListObjectAccess::SetMaster(*list, true);
      lists->AddObject(list, ListTypeKey(list->ListType()));
    }
    if (!args->nameMatch.empty()) {
      const int32_t how = args->match == "starts" ? qbMatchStartsWith
                          : args->match == "contains" ? qbMatchContains
                                                      : qbMatchEndsWith;
      if (customers) customers->GetByNameMatch(args->nameMatch, how, 0, balanceFilter, balance);
      else if (items) items->GetByNameMatch(itemType, args->nameMatch, how);
      else list->GetByNameMatch(args->nameMatch, how);
    } else if (!args->nameFrom.empty()) {
      if (customers) customers->GetByNameRange(args->nameFrom, args->nameTo, 0, balanceFilter, balance);
      else if (items) items->GetByNameRange(itemType, args->nameFrom, args->nameTo);
      else list->GetByNameRange(args->nameFrom, args->nameTo);
    } else if (customers) {
      if (args->active) customers->GetActive(0, balanceFilter, balance);
      else customers->GetAll(0, balanceFilter, balance);
    } else if (items) {
      if (args->active) items->GetActive(itemType);
      else items->GetAll(itemType);
    } else if (args->active) {
      list->GetActive();
    } else {
      list->GetAll();
    }
    if (list->Errors()->Count() > 0) {
      auto e = list->Errors()->Item(1);
      SetCurrentLists(nullptr);
      throw Error(e->Number(), "tessaron list", e->Description());
    }
    Table table = Collect(Records(*list, args->tree), args->tree);
    SetCurrentLists(nullptr);
    connection.CloseConnection();
    if (!args->columns.empty()) {
      std::vector<std::string> names = SplitColumnList(args->columns);
      if (args->tree && std::none_of(names.begin(), names.end(), [](const auto& n) { return EqualsIgnoreCase(n, "Name"); }))
        names.insert(names.begin(), "Name");
      table = Select(table, names, false);
    } else if (args->format == "table") {
      table = Select(table, DefaultColumnsOf(table, args->tree), true);
    }
    if (args->format == "table") FormatAmounts(table);
    if (args->format == "json") PrintJson(table);
    else if (args->format == "csv") PrintCsv(table);
    else PrintTable(table);
  });
}

}  // namespace tessaron::cli
