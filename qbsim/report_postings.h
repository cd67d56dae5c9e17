// What a summary report sums: the ledger's postings in the basis asked for, narrowed by the
// report's filters. Every figure is made from postings (account, amount, date, entity, item,
// class, kind of transaction), never from the kinds of documents, so that a new kind of
// transaction shows in the reports as soon as it posts.
//
// Cash basis. A document that makes someone owe (its own row on a receivable account is a
// debit, or on a payable account a credit: an invoice, a bill, an opening balance) is not
// counted when it is made. Each later row that settles it (a row on a receivable or payable
// account that names it as the document it closes) brings in the document's rows, all of them,
// scaled by the share of the document that row settles and dated on the day of the
// settlement. So an unpaid invoice shows no income, a half-paid one half its income and half
// its tax, and the receivable rows of a settled document cancel those of its settlement.
// Every other row counts as it was posted. Each scaled document still sums to zero, so the
// Balance Sheet and the Trial Balance balance in both bases.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include <pugixml.hpp>

namespace tessaron::qbsim {

class RequestContext;

// A filter by list: by a type text, or by ListIDs and full names, with or without the
// records below them. Empty: every record passes.
struct ListFilter {
  std::string type;
  std::vector<std::string> listIds, fullNames;
  bool withChildren = false;
  bool Empty() const { return type.empty() && listIds.empty() && fullNames.empty(); }
};

struct PostingFilters {
  ListFilter accounts, entities, items, classes;
  std::vector<std::string> txnTypes;  // empty or "All": every kind
};

// The report filters of a request ("ReportAccountFilter", ..., "ReportTxnTypeFilter").
PostingFilters ReadPostingFilters(const pugi::xml_node& rq);

struct ReportPosting {
  std::string date, accountId, entityId, itemId, classId, txnKind;
  int64_t amount = 0;
};

// The postings dated from `from` through `to` ("yyyy-mm-dd", empty: open) in the basis,
// that pass the filters, in the order they were posted.
std::vector<ReportPosting> SelectPostings(RequestContext& ctx, const std::string& from, const std::string& to,
                                          bool cash, const PostingFilters& filters);

// The ListIDs of the names the entity filter lets through; nothing when there is no filter.
std::optional<std::unordered_set<std::string>> PassingEntities(RequestContext& ctx, const PostingFilters& filters);

// Whether an account of that type passes an "AccountTypeFilter" value ("Asset", "Bank", ...).
bool AccountTypeMatches(const std::string& filterType, const std::string& accountType);

}  // namespace tessaron::qbsim
