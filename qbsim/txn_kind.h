// The kinds of transactions the processor keeps. A kind is its header field table (in the
// order of its …Ret), the element names of its lines, the arithmetic that works out its
// lines, and its posting function; the requests (add, modify, query, delete, void) are
// shared by every kind. Adding sales receipts, bills or checks means adding their tables,
// their arithmetic and their posting function here.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

#include "qbsim/field_map.h"
#include "qbsim/ledger.h"
#include "qbsim/record_kind.h"
#include "qbsim/status.h"

namespace tessaron::qbsim {

class CompanyFile;
class ListStore;
class RequestContext;
class WriteScope;

// A line of a document as it is worked on: its stored fields (ItemRef, Desc, Quantity,
// Rate, RatePercent, ClassRef, Amount, ServiceDate, SalesTaxCodeRef, Other1, Other2) and,
// for the head line of a group, its members.
struct TxnLine {
  std::string lineId;
  FieldMap fields;
  bool isGroup = false;
  std::vector<TxnLine> members;
  // Worked out by the kind's arithmetic.
  std::string itemKind;
  int64_t amount = 0;
  bool taxable = false;
};

// One document: its stored record, its header fields and its lines.
struct TxnDocument {
  TxnRecord record;
  FieldMap header;
  std::vector<TxnLine> lines;
  // Worked out by the kind's arithmetic: the sales tax of the header, by tax item.
  int64_t taxableTotal = 0;
  std::vector<std::pair<std::string, int64_t>> taxByItem;  // ItemSalesTax ListID -> amount
};

// List records as a document's arithmetic and postings read them, decoded once. A request
// makes one for itself; a generator of many documents keeps one across them.
class ListCache {
 public:
  struct Entry {
    std::string kind;
    FieldMap fields;
    bool active = true;
    std::string parentId;
  };
  explicit ListCache(RequestContext& ctx) : ctx_(ctx) {}
  // Null when no record has that ListID.
  const Entry* Find(const std::string& listId);
  std::string_view Get(const std::string& listId, std::string_view path);
  const FieldMap& Preferences();
  // SpecialAccount, remembered.
  const std::string& Special(WriteScope* scope, std::string_view specialType);

 private:
  RequestContext& ctx_;
  std::map<std::string, std::optional<Entry>, std::less<>> entries_;
  std::map<std::string, std::string, std::less<>> special_;
  std::optional<FieldMap> preferences_;
};

struct TxnKind {
  const char* name;       // "Invoice": InvoiceAddRq, InvoiceModRq, InvoiceQueryRq, TxnDelType
  const char* retTag;     // "InvoiceRet"
  const char* lineTag;    // "InvoiceLine": InvoiceLineAdd, InvoiceLineMod, InvoiceLineRet
  const char* groupTag;   // "InvoiceLineGroup"
  const char* entityTag;  // "CustomerRef": the entity of the document
  const char* accountTag; // "ARAccountRef": the account whose rows are the document's open amount
  std::span<const Field> header;  // in the order of the …Ret
  std::span<const Field> lineFields;  // a plain line, in the order of the …LineRet
  // Fills defaults from the entity and works out the lines; a refused document gives its status.
  Status (*complete)(RequestContext& ctx, ListCache& lists, TxnDocument& doc, bool isNew);
  // The debit and credit rows of a worked-out document; `scope` may create special accounts.
  std::vector<Posting> (*post)(RequestContext& ctx, ListCache& lists, WriteScope& scope, const TxnDocument& doc);
  // Adds the figures the …Ret answers but nothing stores (totals, balance) to `answer`.
  void (*figures)(RequestContext& ctx, const TxnDocument& doc, FieldMap& answer);
  // The special account a document without its own account takes ("AccountsReceivable");
  // null for documents that post nothing.
  const char* defaultAccount = "AccountsReceivable";
  bool canModify = true;  // QuickBooks answers …ModRq
  bool canVoid = true;    // the kind is a TxnVoidType
  // Fills what the …Ret shows on each line but nothing stores (open balances); may be null.
  void (*lineFigures)(RequestContext& ctx, TxnDocument& doc) = nullptr;
  // Whether the …Ret carries the lines whether they are asked for or not (a payment's
  // applied amounts).
  bool linesAlways = false;
  // Whether the …Ret carries LinkedTxn, after the header, when the query asks for them.
  bool answersLinks = false;
};

// Payments received from customers and applied to their invoices.
const TxnKind& ReceivePaymentKind();

std::span<const TxnKind> TxnKinds();

// Stores a worked-out document with its lines and its postings, in the scope's transaction;
// a document without its account gets the kind's default one.
void StoreTxn(RequestContext& ctx, ListCache& lists, const TxnKind& kind, TxnDocument& doc, WriteScope& scope,
              LedgerStore& ledger, bool isNew);
const TxnKind* FindTxnKind(std::string_view name);

// The field tables of sales lines and group lines, shared by the sales documents.
std::span<const Field> SalesLineFields();
std::span<const Field> SalesGroupLineFields();

// The ListID of the account with that special type (AccountsReceivable, SalesTaxPayable,
// UncategorizedIncome, OpeningBalanceEquity, ...); created as QuickBooks creates it when the
// file has none and a scope is given, else empty.
std::string SpecialAccount(CompanyFile& file, ListStore& store, WriteScope* scope, std::string_view specialType);
std::string SpecialAccount(RequestContext& ctx, WriteScope* scope, std::string_view specialType);
// Every account of an account type.
std::vector<std::string> AccountsOfType(RequestContext& ctx, std::string_view accountType);

}  // namespace tessaron::qbsim
