#include "qbsim/report_postings.h"

#include <map>
#include <set>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "qbsim/field_map.h"
#include "qbsim/ledger.h"
#include "qbsim/list_store.h"
#include "qbsim/request_context.h"
#include "qbsim/txn_kind.h"

namespace tessaron::qbsim {
namespace {

// The account types a composite "AccountTypeFilter" value stands for, blank-separated.
constexpr std::pair<std::string_view, std::string_view> kAccountTypeGroups[] = {
    {"Asset", "Bank AccountsReceivable OtherCurrentAsset FixedAsset OtherAsset"},
    {"CurrentAsset", "Bank AccountsReceivable OtherCurrentAsset"},
    {"Liability", "AccountsPayable CreditCard OtherCurrentLiability LongTermLiability"},
    {"CurrentLiability", "AccountsPayable CreditCard OtherCurrentLiability"},
    {"LiabilityAndEquity", "AccountsPayable CreditCard OtherCurrentLiability LongTermLiability Equity"},
    {"BalanceSheet", "Bank AccountsReceivable OtherCurrentAsset FixedAsset OtherAsset AccountsPayable CreditCard "
                     "OtherCurrentLiability LongTermLiability Equity"},
    {"IncomeAndExpense", "Income CostOfGoodsSold Expense OtherIncome OtherExpense"},
    {"EquityAndIncomeAndExpense", "Equity Income CostOfGoodsSold Expense OtherIncome OtherExpense"},
    {"OrdinaryIncome", "Income"},
    {"OrdinaryExpense", "Expense"},
    {"CostOfSales", "CostOfGoodsSold"},
    {"OrdinaryIncomeAndCOGS", "Income CostOfGoodsSold"},
    {"OrdinaryIncomeAndExpense", "Income CostOfGoodsSold Expense"},
    {"IncomeAndOtherIncome", "Income OtherIncome"},
    {"ExpenseAndOtherExpense", "Expense OtherExpense"},
    {"OtherIncomeOrExpense", "OtherIncome OtherExpense"},
    {"CurrentAssetAndExpense", "Bank AccountsReceivable OtherCurrentAsset Expense"},
    {"ARAndAP", "AccountsReceivable AccountsPayable"},
    {"APAndSalesTax", "AccountsPayable OtherCurrentLiability"},
    {"APOrCreditCard", "AccountsPayable CreditCard"},
    {"BankAndARAndAPAndUF", "Bank AccountsReceivable AccountsPayable"},
    {"BankAndUF", "Bank"},
};

// The item kinds an "ItemTypeFilter" value stands for, when it is not the kind's own name.
constexpr std::pair<std::string_view, std::string_view> kItemTypeGroups[] = {
    {"Assembly", "ItemInventoryAssembly"},
    {"InventoryAndAssembly", "ItemInventory ItemInventoryAssembly"},
    {"SalesTax", "ItemSalesTax ItemSalesTaxGroup"},
    {"Sales", "ItemService ItemInventory ItemNonInventory ItemOtherCharge ItemInventoryAssembly"},
};

bool InWords(std::string_view words, std::string_view word) {
  size_t pos = 0;
  while (pos <= words.size()) {
    size_t end = words.find(' ', pos);
    if (end == std::string_view::npos) end = words.size();
    if (words.substr(pos, end - pos) == word) return true;
    pos = end + 1;
  }
  return false;
}

template <size_t N>
bool GroupMatches(const std::pair<std::string_view, std::string_view> (&groups)[N], std::string_view filter,
                  std::string_view value) {
  for (const auto& [name, members] : groups)
    if (name == filter) return InWords(members, value);
  return false;
}

bool ItemTypeMatches(const std::string& filter, std::string_view kind) {
  if (filter == "AllExceptFixedAsset") return kind != "ItemFixedAsset";
  return kind == "Item" + filter || GroupMatches(kItemTypeGroups, filter, kind);
}

ListFilter ReadListFilter(const pugi::xml_node& f, const char* typeElement) {
  ListFilter out;
  if (!f) return out;
  if (typeElement) out.type = f.child_value(typeElement);
  for (pugi::xml_node c : f.children()) {
    const std::string_view name = c.name();
    if (name == "ListID" || name == "ListIDWithChildren") out.listIds.push_back(c.child_value());
    if (name == "FullName" || name == "FullNameWithChildren") out.fullNames.push_back(c.child_value());
    if (name == "ListIDWithChildren" || name == "FullNameWithChildren") out.withChildren = true;
  }
  return out;
}

// The ListIDs of the records of those kinds that pass the filter; nothing when it is empty.
std::optional<std::unordered_set<std::string>> Passing(RequestContext& ctx, const ListFilter& f,
                                                       std::vector<std::string> kinds, char family) {
  if (f.Empty()) return std::nullopt;
  std::vector<std::string> keys;
  for (const std::string& n : f.fullNames) keys.push_back(NameKey(n));
  for (const std::string& id : f.listIds)
    if (const std::string& n = ctx.store.FullNameOf(id); !n.empty()) keys.push_back(NameKey(n));
  std::unordered_set<std::string> ids;
  ListSelection sel;
  sel.kinds = std::move(kinds);
  ctx.store.Select(sel, [&](const RecordRow& r) {
    bool pass = false;
    if (!f.type.empty()) {
      if (family == 'A') {
        FieldView fields;
        fields.Parse(r.body);
        const std::string_view* type = fields.Find("AccountType");
        pass = type && AccountTypeMatches(f.type, std::string(*type));
      } else if (family == 'I') {
        pass = ItemTypeMatches(f.type, r.kind);
      } else {
        pass = r.kind == f.type;
      }
    } else {
      const std::string key = NameKey(r.fullName);
      for (const std::string& k : keys)
        if (key == k || (f.withChildren && key.size() > k.size() && key.compare(0, k.size(), k) == 0 &&
                         key[k.size()] == '\x01'))
          pass = true;
    }
    if (pass) ids.insert(std::string(r.listId));
    return true;
  });
  return ids;
}

struct RawPosting {
  ReportPosting p;
  std::string txnId, openTxnId;
};

// Cash basis, as told in the header: documents that make someone owe are counted as they are
// settled. `receivable` and `payable` are the accounts of those types.
std::vector<ReportPosting> ToCashBasis(std::vector<RawPosting>& rows, const std::unordered_set<std::string>& receivable,
                                       const std::unordered_set<std::string>& payable) {
  // What each deferred document left owing, and its rows.
  std::unordered_map<std::string, int64_t> owed;
  for (const RawPosting& r : rows) {
    if (r.openTxnId.empty() || r.openTxnId != r.txnId) continue;
    if ((receivable.count(r.p.accountId) && r.p.amount > 0) || (payable.count(r.p.accountId) && r.p.amount < 0))
      owed[r.txnId] += r.p.amount;
  }
  std::unordered_map<std::string, std::vector<const RawPosting*>> docRows;
  for (const RawPosting& r : rows)
    if (owed.count(r.txnId)) docRows[r.txnId].push_back(&r);
  std::vector<ReportPosting> out;
  for (const RawPosting& r : rows) {
    if (owed.count(r.txnId)) continue;  // comes in with its settlements
    out.push_back(r.p);
    const bool settles = !r.openTxnId.empty() && r.openTxnId != r.txnId &&
                         (receivable.count(r.p.accountId) || payable.count(r.p.accountId));
    auto doc = settles ? owed.find(r.openTxnId) : owed.end();
    if (doc == owed.end() || doc->second == 0) continue;
    // The settled share of each row, rounded on the running sum so that the shares of the
    // document's rows still sum to zero.
    const __int128 settled = -r.p.amount, total = doc->second;
    __int128 running = 0;
    int64_t before = 0;
    for (const RawPosting* d : docRows[r.openTxnId]) {
      running += d->p.amount;
      const int64_t upTo = RoundToCents(static_cast<int64_t>(running * settled / total));
      ReportPosting share = d->p;
      share.date = r.p.date;
      share.amount = upTo - before;
      before = upTo;
      if (share.amount != 0) out.push_back(std::move(share));
    }
  }
  return out;
}

}  // namespace

bool AccountTypeMatches(const std::string& filterType, const std::string& accountType) {
  return filterType == accountType || GroupMatches(kAccountTypeGroups, filterType, accountType);
}

PostingFilters ReadPostingFilters(const pugi::xml_node& rq) {
  PostingFilters f;
  f.accounts = ReadListFilter(rq.child("ReportAccountFilter"), "AccountTypeFilter");
  f.entities = ReadListFilter(rq.child("ReportEntityFilter"), "EntityTypeFilter");
  f.items = ReadListFilter(rq.child("ReportItemFilter"), "ItemTypeFilter");
  f.classes = ReadListFilter(rq.child("ReportClassFilter"), nullptr);
  for (pugi::xml_node t : rq.child("ReportTxnTypeFilter").children("TxnTypeFilter"))
    f.txnTypes.push_back(t.child_value());
  return f;
}

std::optional<std::unordered_set<std::string>> PassingEntities(RequestContext& ctx, const PostingFilters& filters) {
  return Passing(ctx, filters.entities, {"Customer", "Vendor", "Employee", "OtherName"}, 'E');
}

std::vector<ReportPosting> SelectPostings(RequestContext& ctx, const std::string& from, const std::string& to,
                                          bool cash, const PostingFilters& filters) {
  std::vector<RawPosting> rows;
  // A settlement can fall in the period while its document is older: read from the start.
  SqlStatement st = ctx.file.Db().Prepare(
      "SELECT p.txn_id, p.txn_date, p.account_id, p.amount, p.entity_id, p.item_id, p.class_id, p.open_txn_id, "
      "coalesce(t.kind, '') FROM posting p LEFT JOIN txn t ON t.txn_id = p.txn_id "
      "WHERE (?1 = '' OR p.txn_date <= ?1) AND (?2 = '' OR p.txn_date >= ?2) ORDER BY p.rowid");
  st.Bind(1, to);
  st.Bind(2, cash ? std::string() : from);
  while (st.Step()) {
    RawPosting r;
    r.txnId = st.Text(0);
    r.p.date = st.Text(1);
    r.p.accountId = st.Text(2);
    r.p.amount = st.Int(3);
    r.p.entityId = st.Text(4);
    r.p.itemId = st.Text(5);
    r.p.classId = st.Text(6);
    r.openTxnId = st.Text(7);
    r.p.txnKind = st.Text(8);
    rows.push_back(std::move(r));
  }
  std::vector<ReportPosting> postings;
  if (cash) {
    std::unordered_set<std::string> receivable, payable;
    for (const std::string& id : AccountsOfType(ctx, "AccountsReceivable")) receivable.insert(id);
    for (const std::string& id : AccountsOfType(ctx, "AccountsPayable")) payable.insert(id);
    postings = ToCashBasis(rows, receivable, payable);
  } else {
    postings.reserve(rows.size());
    for (RawPosting& r : rows) postings.push_back(std::move(r.p));
  }
  const auto accounts = Passing(ctx, filters.accounts, {"Account"}, 'A');
  const auto entities = PassingEntities(ctx, filters);
  const auto items = Passing(ctx, filters.items,
                             {"ItemService", "ItemInventory", "ItemNonInventory", "ItemOtherCharge", "ItemSubtotal",
                              "ItemGroup", "ItemDiscount", "ItemPayment", "ItemSalesTax", "ItemSalesTaxGroup",
                              "ItemInventoryAssembly", "ItemFixedAsset"},
                             'I');
  const auto classes = Passing(ctx, filters.classes, {"Class"}, 'C');
  std::set<std::string, std::less<>> kinds(filters.txnTypes.begin(), filters.txnTypes.end());
  const bool allKinds = kinds.empty() || kinds.count("All");
  std::vector<ReportPosting> out;
  for (ReportPosting& p : postings) {
    if (!from.empty() && p.date < from) continue;
    if (accounts && !accounts->count(p.accountId)) continue;
    if (entities && !entities->count(p.entityId)) continue;
    if (items && !items->count(p.itemId)) continue;
    if (classes && !classes->count(p.classId)) continue;
    if (!allKinds && !kinds.count(p.txnKind)) continue;
    out.push_back(std::move(p));
  }
  return out;
}

}  // namespace tessaron::qbsim
