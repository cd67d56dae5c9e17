// The sales documents: invoices, sales receipts, credit memos, estimates and sales orders.
// Their header tables, the arithmetic of sales lines (items, subtotals, discounts, groups,
// sales tax) that they share, and their postings: an invoice debits the receivable, a
// sales receipt the account the money went to, a credit memo credits the receivable, and
// estimates and sales orders post nothing.
#include <map>
#include <optional>

#include "qbsim/common_fields.h"
#include "qbsim/company_file.h"
#include "qbsim/company_records.h"
#include "qbsim/request_context.h"
#include "qbsim/txn_kind.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"

namespace tessaron::qbsim {
namespace {

using VT = ValueType;

constexpr const char* kAccountKinds[] = {"Account"};
constexpr const char* kCustomerKinds[] = {"Customer"};
constexpr const char* kClassKinds[] = {"Class"};
constexpr const char* kTemplateKinds[] = {"Template"};
constexpr const char* kTermsKinds[] = {"StandardTerms", "DateDrivenTerms"};
constexpr const char* kSalesRepKinds[] = {"SalesRep"};
constexpr const char* kShipMethodKinds[] = {"ShipMethod"};
constexpr const char* kItemSalesTaxKinds[] = {"ItemSalesTax", "ItemSalesTaxGroup"};
constexpr const char* kCustomerMsgKinds[] = {"CustomerMsg"};
constexpr const char* kSalesTaxCodeKinds[] = {"SalesTaxCode"};
constexpr const char* kItemGroupKinds[] = {"ItemGroup"};
constexpr const char* kLineItemKinds[] = {"ItemService", "ItemInventory", "ItemNonInventory", "ItemOtherCharge",
                                          "ItemSubtotal", "ItemDiscount", "ItemPayment", "ItemSalesTax",
                                          "ItemSalesTaxGroup", "ItemInventoryAssembly", "ItemFixedAsset"};

constexpr RefTarget kAccount{"Account", kAccountKinds};
constexpr RefTarget kCustomer{"Customer:Job", kCustomerKinds};
constexpr RefTarget kClass{"Class", kClassKinds};
constexpr RefTarget kTemplate{"Template", kTemplateKinds};
constexpr RefTarget kTerms{"Terms", kTermsKinds};
constexpr RefTarget kSalesRep{"SalesRep", kSalesRepKinds};
constexpr RefTarget kShipMethod{"ShipMethod", kShipMethodKinds};
constexpr RefTarget kItemSalesTax{"ItemSalesTax", kItemSalesTaxKinds};
constexpr RefTarget kCustomerMsg{"CustomerMsg", kCustomerMsgKinds};
constexpr RefTarget kSalesTaxCode{"SalesTaxCode", kSalesTaxCodeKinds};
constexpr RefTarget kItemGroup{"ItemGroup", kItemGroupKinds};
constexpr RefTarget kLineItem{"Item", kLineItemKinds};
constexpr const char* kPaymentMethodKinds[] = {"PaymentMethod"};
constexpr RefTarget kPaymentMethod{"PaymentMethod", kPaymentMethodKinds};

constexpr uint16_t kAddRet = kInAdd | kInRet;

// InvoiceRet after the transaction's own columns (TxnID ... TxnNumber), before LinkedTxn.
constexpr Field kInvoiceHeader[] = {
    R("CustomerRef", kCustomer).Required(), R("ClassRef", kClass), R("ARAccountRef", kAccount),
    R("TemplateRef", kTemplate), V("TxnDate", VT::Date), V("RefNumber").Max(11), fields::Address("BillAddress"),
    fields::Address("ShipAddress"), V("IsPending", VT::Bool), V("IsFinanceCharge", VT::Bool).Only(kAddRet),
    V("PONumber").Max(25), R("TermsRef", kTerms), V("DueDate", VT::Date), R("SalesRepRef", kSalesRep),
    V("FOB").Max(13), V("ShipDate", VT::Date), R("ShipMethodRef", kShipMethod),
    V("Subtotal", VT::Amount).Only(kInRet), R("ItemSalesTaxRef", kItemSalesTax).With(kUsOnly),
    V("SalesTaxPercentage", VT::Percent).Only(kInRet).With(kUsOnly), V("SalesTaxTotal", VT::Amount).Only(kInRet),
    V("AppliedAmount", VT::Amount).Only(kInRet), V("BalanceRemaining", VT::Amount).Only(kInRet),
    V("Memo").Max(4095), V("IsPaid", VT::Bool).Only(kInRet), R("CustomerMsgRef", kCustomerMsg),
    V("IsToBePrinted", VT::Bool), V("IsToBeEmailed", VT::Bool),
    R("CustomerSalesTaxCodeRef", kSalesTaxCode).With(kUsOnly), V("SuggestedDiscountAmount", VT::Amount).Only(kInRet),
    V("SuggestedDiscountDate", VT::Date).Only(kInRet), V("Other").Max(29)};

constexpr Field kSalesReceiptHeader[] = {
    R("CustomerRef", kCustomer), R("ClassRef", kClass), R("TemplateRef", kTemplate), V("TxnDate", VT::Date),
    V("RefNumber").Max(11), fields::Address("BillAddress"), fields::Address("ShipAddress"), V("IsPending", VT::Bool),
    V("CheckNumber").Max(25), R("PaymentMethodRef", kPaymentMethod), V("DueDate", VT::Date),
    R("SalesRepRef", kSalesRep), V("ShipDate", VT::Date), R("ShipMethodRef", kShipMethod), V("FOB").Max(13),
    V("Subtotal", VT::Amount).Only(kInRet), R("ItemSalesTaxRef", kItemSalesTax).With(kUsOnly),
    V("SalesTaxPercentage", VT::Percent).Only(kInRet).With(kUsOnly), V("SalesTaxTotal", VT::Amount).Only(kInRet),
    V("TotalAmount", VT::Amount).Only(kInRet), V("Memo").Max(4095), R("CustomerMsgRef", kCustomerMsg),
    V("IsToBePrinted", VT::Bool), V("IsToBeEmailed", VT::Bool),
    R("CustomerSalesTaxCodeRef", kSalesTaxCode).With(kUsOnly), R("DepositToAccountRef", kAccount),
    V("Other").Max(29)};

constexpr Field kCreditMemoHeader[] = {
    R("CustomerRef", kCustomer).Required(), R("ClassRef", kClass), R("ARAccountRef", kAccount),
    R("TemplateRef", kTemplate), V("TxnDate", VT::Date), V("RefNumber").Max(11), fields::Address("BillAddress"),
    fields::Address("ShipAddress"), V("IsPending", VT::Bool), V("PONumber").Max(25), R("TermsRef", kTerms),
    V("DueDate", VT::Date), R("SalesRepRef", kSalesRep), V("FOB").Max(13), V("ShipDate", VT::Date),
    R("ShipMethodRef", kShipMethod), V("Subtotal", VT::Amount).Only(kInRet),
    R("ItemSalesTaxRef", kItemSalesTax).With(kUsOnly), V("SalesTaxPercentage", VT::Percent).Only(kInRet).With(kUsOnly),
    V("SalesTaxTotal", VT::Amount).Only(kInRet), V("TotalAmount", VT::Amount).Only(kInRet),
    V("CreditRemaining", VT::Amount).Only(kInRet), V("Memo").Max(4095), R("CustomerMsgRef", kCustomerMsg),
    V("IsToBePrinted", VT::Bool), V("IsToBeEmailed", VT::Bool),
    R("CustomerSalesTaxCodeRef", kSalesTaxCode).With(kUsOnly), V("Other").Max(29)};

constexpr Field kEstimateHeader[] = {
    R("CustomerRef", kCustomer).Required(), R("ClassRef", kClass), R("TemplateRef", kTemplate), V("TxnDate", VT::Date),
    V("RefNumber").Max(11), fields::Address("BillAddress"), fields::Address("ShipAddress"), V("IsActive", VT::Bool),
    V("PONumber").Max(25), R("TermsRef", kTerms), V("DueDate", VT::Date), R("SalesRepRef", kSalesRep),
    V("FOB").Max(13), V("Subtotal", VT::Amount).Only(kInRet), R("ItemSalesTaxRef", kItemSalesTax).With(kUsOnly),
    V("SalesTaxPercentage", VT::Percent).Only(kInRet).With(kUsOnly), V("SalesTaxTotal", VT::Amount).Only(kInRet),
    V("TotalAmount", VT::Amount).Only(kInRet), V("Memo").Max(4095), R("CustomerMsgRef", kCustomerMsg),
    V("IsToBeEmailed", VT::Bool), R("CustomerSalesTaxCodeRef", kSalesTaxCode).With(kUsOnly), V("Other").Max(29)};

constexpr Field kSalesOrderHeader[] = {
    R("CustomerRef", kCustomer).Required(), R("ClassRef", kClass), R("TemplateRef", kTemplate), V("TxnDate", VT::Date),
    V("RefNumber").Max(11), fields::Address("BillAddress"), fields::Address("ShipAddress"), V("PONumber").Max(25),
    R("TermsRef", kTerms), V("DueDate", VT::Date), R("SalesRepRef", kSalesRep), V("FOB").Max(13),
    V("ShipDate", VT::Date), R("ShipMethodRef", kShipMethod), V("Subtotal", VT::Amount).Only(kInRet),
    R("ItemSalesTaxRef", kItemSalesTax).With(kUsOnly), V("SalesTaxPercentage", VT::Percent).Only(kInRet).With(kUsOnly),
    V("SalesTaxTotal", VT::Amount).Only(kInRet), V("TotalAmount", VT::Amount).Only(kInRet),
    V("IsManuallyClosed", VT::Bool), V("IsFullyInvoiced", VT::Bool).Only(kInRet), V("Memo").Max(4095),
    R("CustomerMsgRef", kCustomerMsg), V("IsToBePrinted", VT::Bool), V("IsToBeEmailed", VT::Bool),
    R("CustomerSalesTaxCodeRef", kSalesTaxCode).With(kUsOnly), V("Other").Max(29)};

// Estimate lines carry a markup; they have no service date.
constexpr Field kEstimateLine[] = {
    V("TxnLineID").Only(kInMod | kInRet), R("ItemRef", kLineItem), V("Desc").Max(4095),
    V("Quantity", VT::Quantity), V("Rate", VT::Price).Choice(1), V("RatePercent", VT::Percent).Choice(1),
    R("ClassRef", kClass), V("Amount", VT::Amount), R("SalesTaxCodeRef", kSalesTaxCode).With(kUsOnly),
    V("MarkupRate", VT::Price).Choice(2), V("MarkupRatePercent", VT::Percent).Choice(2), V("Other1").Max(29),
    V("Other2").Max(29)};

// Sales order lines count what has been invoiced of them and can be closed.
constexpr Field kSalesOrderLine[] = {
    V("TxnLineID").Only(kInMod | kInRet), R("ItemRef", kLineItem), V("Desc").Max(4095),
    V("Quantity", VT::Quantity), V("Rate", VT::Price).Choice(1), V("RatePercent", VT::Percent).Choice(1),
    R("ClassRef", kClass), V("Amount", VT::Amount), R("SalesTaxCodeRef", kSalesTaxCode).With(kUsOnly),
    V("Invoiced", VT::Quantity).Only(kInRet), V("IsManuallyClosed", VT::Bool), V("Other1").Max(29),
    V("Other2").Max(29)};

constexpr Field kSalesLine[] = {
    V("TxnLineID").Only(kInMod | kInRet), R("ItemRef", kLineItem), V("Desc").Max(4095),
    V("Quantity", VT::Quantity), V("Rate", VT::Price).Choice(1), V("RatePercent", VT::Percent).Choice(1),
    R("ClassRef", kClass), V("Amount", VT::Amount), V("ServiceDate", VT::Date),
    R("SalesTaxCodeRef", kSalesTaxCode).With(kUsOnly), V("Other1").Max(29), V("Other2").Max(29)};

constexpr Field kSalesGroupLine[] = {
    V("TxnLineID").Only(kInMod | kInRet), R("ItemGroupRef", kItemGroup), V("Desc").Max(4095).Only(kAddRet),
    V("Quantity", VT::Quantity), V("IsPrintItemsInGroup", VT::Bool).Only(kInRet),
    V("TotalAmount", VT::Amount).Only(kInRet), V("ServiceDate", VT::Date).Only(kAddRet)};

// ---------------------------------------------------------------- money

constexpr int64_t kScale = Currency::kScale;

// a x b / divisor, rounded to cents halves away from zero: the one place where line amounts
// and tax totals are rounded.
int64_t ProductInCents(int64_t a, int64_t b, int64_t divisor) {
  __int128 p = static_cast<__int128>(a) * b;
  __int128 d = static_cast<__int128>(divisor) * (kScale / 100);
  __int128 q = p / d, r = p % d;
  if (2 * (r < 0 ? -r : r) >= d) q += p < 0 ? -1 : 1;
  return static_cast<int64_t>(q) * (kScale / 100);
}
// Quantity x rate.
int64_t TimesCents(int64_t quantity, int64_t rate) { return ProductInCents(quantity, rate, kScale); }
// A percentage of an amount.
int64_t PercentCents(int64_t amount, int64_t percent) { return ProductInCents(amount, percent, 100 * kScale); }

int64_t Raw(std::string_view text) {
  Currency c;
  return Currency::TryParse(text, c) ? c.Raw() : 0;
}
std::string DecimalText(int64_t raw) { return Currency::FromRaw(raw).ToString(); }

// ---------------------------------------------------------------- list look-ups

using Lookup = ListCache;
using Looked = ListCache::Entry;

std::string FirstOf(const FieldMap& f, std::initializer_list<const char*> paths) {
  for (const char* p : paths)
    if (const std::string* v = f.Find(p)) return *v;
  return {};
}

std::string ItemDesc(const Looked& item) {
  return FirstOf(item.fields, {"SalesOrPurchase/Desc", "SalesAndPurchase/SalesDesc", "SalesDesc", "ItemDesc"});
}
std::string ItemPrice(const Looked& item) {
  return FirstOf(item.fields, {"SalesOrPurchase/Price", "SalesAndPurchase/SalesPrice", "SalesPrice"});
}
// The account a sales line of the item posts to.
std::string ItemAccount(const Looked& item) {
  return FirstOf(item.fields, {"SalesOrPurchase/AccountRef", "SalesAndPurchase/IncomeAccountRef", "IncomeAccountRef",
                               "AccountRef", "DepositToAccountRef", "AssetAccountRef"});
}

// The rate of a sales tax item or group, and its members with their own rates.
std::vector<std::pair<std::string, int64_t>> TaxItems(Lookup& lists, const std::string& taxItemId) {
  std::vector<std::pair<std::string, int64_t>> out;
  const Looked* item = lists.Find(taxItemId);
  if (!item) return out;
  if (item->kind == "ItemSalesTax") {
    out.push_back({taxItemId, Raw(item->fields.Get("TaxRate"))});
    return out;
  }
  for (int i = 0;; ++i) {
    const std::string* member = item->fields.Find("ItemSalesTaxRef#" + std::to_string(i));
    if (!member) break;
    out.push_back({*member, Raw(lists.Get(*member, "TaxRate"))});
  }
  return out;
}
int64_t TotalRate(const std::vector<std::pair<std::string, int64_t>>& items) {
  int64_t rate = 0;
  for (const auto& [id, r] : items) rate += r;
  return rate;
}

// ---------------------------------------------------------------- defaults of the header

std::string AddDays(const std::string& date, int days) {
  Date d;
  if (!TryParseDate(date, d)) return {};
  return FormatDate(d + days, "yyyy-mm-dd");
}

// The due date by the terms: standard terms count days, date-driven terms name a day of
// the month, moving to the next month when the document is dated too close to it.
std::string DueDate(Lookup& lists, const std::string& termsId, const std::string& txnDate) {
  const Looked* terms = lists.Find(termsId);
  if (!terms) return txnDate;
  if (terms->kind == "StandardTerms") return AddDays(txnDate, std::atoi(terms->fields.Get("StdDueDays").data()));
  Date d;
  if (!TryParseDate(txnDate, d)) return {};
  DateParts p = SplitDate(d);
  int day = std::atoi(std::string(terms->fields.Get("DayOfMonthDue")).c_str());
  int within = std::atoi(std::string(terms->fields.Get("DueNextMonthDays")).c_str());
  auto dueIn = [&](int monthOffset) {
    Date first = DateSerial(p.year, p.month + monthOffset, 1);
    Date last = AddMonths(first, 1) - 1;
    return std::min(first + day - 1, last);
  };
  Date due = dueIn(0);
  if (d > due - within) due = dueIn(1);
  return FormatDate(due, "yyyy-mm-dd");
}

// ---------------------------------------------------------------- line arithmetic

struct Running {
  int64_t sinceSubtotal = 0;  // what the next subtotal line sums
  int64_t above = 0;          // the amount of the line above, for percentages
  int64_t taxable = 0;        // taxable amounts so far
  // A sales tax line taxes the line above it, or the taxable lines of a subtotal above it.
  int64_t aboveTaxable = 0;
  int64_t taxableSinceSubtotal = 0;
};

bool TaxableCode(Lookup& lists, const std::string& codeId) {
  const Looked* code = lists.Find(codeId);
  return code && code->fields.Get("IsTaxable") == "true";
}

// `defaultCode` is the tax code of items that have none (the file's non-taxable code).
Status WorkLine(RequestContext& ctx, Lookup& lists, TxnLine& line, Running& run, bool customerTaxable,
                const std::string& defaultCode) {
  FieldMap& f = line.fields;
  const std::string itemId = FirstOf(f, {"ItemRef"});
  const Looked* item = lists.Find(itemId);
  line.itemKind = item ? item->kind : "";
  line.amount = 0;
  line.taxable = false;
  if (!item) {
    // A line of text alone; an amount needs an item.
    if (f.Has("Amount")) return status::MissingElement("ItemRef");
    return status::Ok();
  }
  if (!item->active) return status::InvalidReference("Item", ctx.store.FullNameOf(itemId) + " (inactive)");
  if (!f.Has("Desc")) {
    std::string d = line.itemKind == "ItemSubtotal" || line.itemKind == "ItemDiscount" ||
                            line.itemKind == "ItemSalesTax" || line.itemKind == "ItemSalesTaxGroup" ||
                            line.itemKind == "ItemPayment"
                        ? FirstOf(item->fields, {"ItemDesc"})
                        : ItemDesc(*item);
    if (!d.empty()) f.Set("Desc", d);
  }
  const std::string& kind = line.itemKind;
  if (kind == "ItemSubtotal") {
    line.amount = run.sinceSubtotal;
    run.sinceSubtotal = 0;
    run.above = line.amount;
    run.aboveTaxable = run.taxableSinceSubtotal;
    run.taxableSinceSubtotal = 0;
    f.Erase("Quantity");
    f.Erase("Rate");
    f.Erase("RatePercent");
    f.Set("Amount", CentsText(line.amount));
    return status::Ok();
  }
  if (!f.Has("SalesTaxCodeRef") && ctx.IsUS()) {
    std::string code(item->fields.Get("SalesTaxCodeRef"));
    if (code.empty()) code = defaultCode;
    if (!code.empty() && kind != "ItemSalesTax" && kind != "ItemSalesTaxGroup" && kind != "ItemPayment")
      f.Set("SalesTaxCodeRef", code);
  }
  line.taxable = customerTaxable && TaxableCode(lists, std::string(f.Get("SalesTaxCodeRef")));
  if (kind == "ItemDiscount") {
    if (const std::string* pct = f.Find("RatePercent")) {
      line.amount = -PercentCents(run.above, Raw(*pct));
    } else if (const std::string* amount = f.Find("Amount"); amount && !f.Has("Rate")) {
      line.amount = RoundToCents(Raw(*amount));
    } else if (const std::string* rate = f.Find("Rate")) {
      line.amount = -RoundToCents(Raw(*rate));
    } else if (const std::string* itemPct = item->fields.Find("DiscountRatePercent")) {
      f.Set("RatePercent", *itemPct);
      line.amount = -PercentCents(run.above, Raw(*itemPct));
    } else {
      std::string rate(item->fields.Get("DiscountRate"));
      if (!rate.empty()) f.Set("Rate", rate);
      line.amount = -RoundToCents(Raw(rate));
    }
  } else if (kind == "ItemSalesTax" || kind == "ItemSalesTaxGroup") {
    int64_t rate = TotalRate(TaxItems(lists, itemId));
    f.Set("RatePercent", DecimalText(rate));
    f.Erase("Rate");
    f.Erase("Quantity");
    line.amount = PercentCents(run.aboveTaxable, rate);
    line.taxable = false;
  } else if (kind == "ItemPayment") {
    // A payment received on the form: it lowers what the customer owes.
    const std::string* amount = f.Find("Amount");
    line.amount = -std::llabs(RoundToCents(Raw(amount ? *amount : std::string(f.Get("Rate")))));
    f.Erase("Quantity");
  } else {
    if (!f.Has("Rate") && !f.Has("RatePercent")) {
      if (const std::string* pct = item->fields.Find("SalesOrPurchase/PricePercent")) f.Set("RatePercent", *pct);
      else if (std::string price = ItemPrice(*item); !price.empty() && !f.Has("Amount")) f.Set("Rate", price);
    }
    const std::string* qty = f.Find("Quantity");
    if (const std::string* amount = f.Find("Amount")) {
      line.amount = RoundToCents(Raw(*amount));
      // An amount given without a rate sets the rate.
      if (!f.Has("Rate") && !f.Has("RatePercent")) {
        int64_t q = qty ? Raw(*qty) : 0;
        f.Set("Rate", DecimalText(q ? static_cast<int64_t>(static_cast<__int128>(line.amount) * kScale / q) : line.amount));
      }
    } else if (const std::string* pct = f.Find("RatePercent")) {
      line.amount = PercentCents(run.above, Raw(*pct));
    } else {
      line.amount = TimesCents(qty ? Raw(*qty) : kScale, Raw(f.Get("Rate")));
    }
  }
  f.Set("Amount", CentsText(line.amount));
  run.sinceSubtotal += line.amount;
  run.above = line.amount;
  run.aboveTaxable = line.taxable ? line.amount : 0;
  if (line.taxable) {
    run.taxable += line.amount;
    run.taxableSinceSubtotal += line.amount;
  }
  return status::Ok();
}

// A group line: its members come from the group item, each quantity times the line's.
Status ExpandGroup(RequestContext& ctx, Lookup& lists, TxnLine& line) {
  const std::string groupId(line.fields.Get("ItemGroupRef"));
  const Looked* group = lists.Find(groupId);
  if (!group) return status::MissingElement("ItemGroupRef");
  if (!group->active) return status::InvalidReference("Item", ctx.store.FullNameOf(groupId) + " (inactive)");
  int64_t qty = line.fields.Has("Quantity") ? Raw(line.fields.Get("Quantity")) : kScale;
  if (!line.fields.Has("Desc") && group->fields.Has("ItemDesc")) line.fields.Set("Desc", group->fields.Get("ItemDesc"));
  line.fields.Set("IsPrintItemsInGroup", group->fields.Has("IsPrintItemsInGroup") ? group->fields.Get("IsPrintItemsInGroup") : "false");
  std::vector<TxnLine> members;
  for (int i = 0;; ++i) {
    std::string base = "ItemGroupLine#" + std::to_string(i) + "/";
    const std::string* itemId = group->fields.Find(base + "ItemRef");
    if (!itemId) break;
    TxnLine m;
    m.fields.Set("ItemRef", *itemId);
    int64_t each = group->fields.Has(base + "Quantity") ? Raw(group->fields.Get(base + "Quantity")) : kScale;
    m.fields.Set("Quantity", DecimalText(static_cast<int64_t>(static_cast<__int128>(each) * qty / kScale)));
    // Members keep their line ids across a modify that leaves the group as it was.
    if (i < static_cast<int>(line.members.size())) m.lineId = line.members[i].lineId;
    members.push_back(std::move(m));
  }
  line.members = std::move(members);
  return status::Ok();
}

Status CompleteInvoice(RequestContext& ctx, Lookup& lists, TxnDocument& doc, bool isNew) {
  FieldMap& h = doc.header;
  const FieldMap& prefs = lists.Preferences();
  const std::string defaultCode(prefs.Get("SalesTaxPreferences/DefaultNonTaxableSalesTaxCodeRef"));
  const std::string customerId(h.Get("CustomerRef"));
  const Looked* customer = lists.Find(customerId);
  if (!customer) return status::MissingElement("CustomerRef");
  if (!customer->active) return status::InvalidReference("Customer:Job", ctx.store.FullNameOf(customerId) + " (inactive)");
  if (const std::string* ar = h.Find("ARAccountRef"); ar && lists.Get(*ar, "AccountType") != "AccountsReceivable")
    return status::InvalidReference("Account", ctx.store.FullNameOf(*ar) + " (not an accounts receivable account)");
  if (isNew) {
    // What the form takes over from the customer when the request leaves it out; a job
    // without its own takes its customer's.
    auto inherited = [&](const char* tag) {
      for (const Looked* c = customer; c; c = lists.Find(c->parentId))
        if (const std::string* v = c->fields.Find(tag)) return *v;
      return std::string();
    };
    for (const char* tag : {"TermsRef", "SalesRepRef"})
      if (!h.Has(tag) && !inherited(tag).empty()) h.Set(tag, inherited(tag));
    for (const char* tag : {"BillAddress", "ShipAddress"})
      if (!h.HasTree(tag))
        for (const auto& [p, v] : customer->fields.Items())
          if (PathInTree(p, tag)) h.Set(p, v);
    if (ctx.IsUS()) {
      if (!h.Has("CustomerSalesTaxCodeRef") && !inherited("SalesTaxCodeRef").empty())
        h.Set("CustomerSalesTaxCodeRef", inherited("SalesTaxCodeRef"));
      if (!h.Has("ItemSalesTaxRef")) {
        std::string tax = inherited("ItemSalesTaxRef");
        if (tax.empty()) tax = prefs.Get("SalesTaxPreferences/DefaultItemSalesTaxRef");
        if (!tax.empty()) h.Set("ItemSalesTaxRef", tax);
      }
    }
    if (!h.Has("TxnDate")) h.Set("TxnDate", FormatDate(Today(), "yyyy-mm-dd"));
    if (!h.Has("DueDate")) h.Set("DueDate", DueDate(lists, std::string(h.Get("TermsRef")), std::string(h.Get("TxnDate"))));
  }
  // Terms with an early-payment discount suggest it.
  h.Erase("SuggestedDiscountDate");
  if (const Looked* terms = lists.Find(std::string(h.Get("TermsRef"))); terms && terms->fields.Has("DiscountPct")) {
    if (terms->kind == "StandardTerms" && terms->fields.Has("StdDiscountDays"))
      h.Set("SuggestedDiscountDate",
            AddDays(std::string(h.Get("TxnDate")), std::atoi(std::string(terms->fields.Get("StdDiscountDays")).c_str())));
  }

  const bool customerTaxable =
      !ctx.IsUS() || !h.Has("CustomerSalesTaxCodeRef") || TaxableCode(lists, std::string(h.Get("CustomerSalesTaxCodeRef")));
  Running run;
  for (TxnLine& line : doc.lines) {
    if (!line.isGroup) {
      if (Status s = WorkLine(ctx, lists, line, run, customerTaxable, defaultCode); !s.Ok()) return s;
      continue;
    }
    if (Status s = ExpandGroup(ctx, lists, line); !s.Ok()) return s;
    // The members are worked as lines of their own, their subtotals within the group.
    Running inner;
    inner.taxable = run.taxable;
    int64_t total = 0;
    for (TxnLine& m : line.members) {
      if (Status s = WorkLine(ctx, lists, m, inner, customerTaxable, defaultCode); !s.Ok()) return s;
      if (m.itemKind != "ItemSubtotal") total += m.amount;
    }
    line.itemKind = "ItemGroup";
    line.amount = total;
    line.fields.Set("TotalAmount", CentsText(total));
    run.aboveTaxable = inner.taxable - run.taxable;
    run.taxableSinceSubtotal += run.aboveTaxable;
    run.taxable = inner.taxable;
    run.sinceSubtotal += total;
    run.above = total;
  }
  // The header's sales tax: the taxable lines at the rate of the tax item, each of a
  // group's members taking its share and the last the rounding.
  doc.taxableTotal = 0;
  auto addTaxable = [&](const TxnLine& l) {
    if (l.taxable) doc.taxableTotal += l.amount;
  };
  for (const TxnLine& l : doc.lines) {
    addTaxable(l);
    for (const TxnLine& m : l.members) addTaxable(m);
  }
  doc.taxByItem.clear();
  if (ctx.IsUS() && h.Has("ItemSalesTaxRef")) {
    auto items = TaxItems(lists, std::string(h.Get("ItemSalesTaxRef")));
    int64_t total = PercentCents(doc.taxableTotal, TotalRate(items)), given = 0;
    for (size_t i = 0; i < items.size(); ++i) {
      int64_t share = i + 1 == items.size() ? total - given : PercentCents(doc.taxableTotal, items[i].second);
      given += share;
      doc.taxByItem.push_back({items[i].first, share});
    }
  }
  return status::Ok();
}

// ---------------------------------------------------------------- postings

// The whole to `accountTag`'s account (a debit when `sign` is 1); the opposite to each
// line's income account and the sales tax to the liability, by tax vendor.
std::vector<Posting> PostSale(Lookup& lists, WriteScope& scope, const TxnDocument& doc, const char* accountTag,
                              int64_t sign) {
  const FieldMap& h = doc.header;
  const std::string customer(h.Get("CustomerRef")), headerClass(h.Get("ClassRef"));
  std::vector<Posting> rows;
  int64_t total = 0;
  auto postLine = [&](const TxnLine& l) {
    if (l.amount == 0 || l.itemKind == "ItemSubtotal" || l.itemKind == "ItemGroup") return;
    const std::string itemId(l.fields.Get("ItemRef"));
    const Looked* item = lists.Find(itemId);
    std::string account;
    if (l.itemKind == "ItemSalesTax" || l.itemKind == "ItemSalesTaxGroup") account = lists.Special(&scope, "SalesTaxPayable");
    else if (item) account = ItemAccount(*item);
    if (account.empty()) account = lists.Special(&scope, "UncategorizedIncome");
    std::string cls(l.fields.Get("ClassRef"));
    rows.push_back({account, -sign * l.amount, customer, itemId, cls.empty() ? headerClass : cls, ""});
    total += l.amount;
  };
  for (const TxnLine& l : doc.lines) {
    postLine(l);
    for (const TxnLine& m : l.members) postLine(m);
  }
  for (const auto& [taxItem, amount] : doc.taxByItem) {
    rows.push_back({lists.Special(&scope, "SalesTaxPayable"), -sign * amount, std::string(lists.Get(taxItem, "TaxVendorRef")),
                    taxItem, headerClass, ""});
    total += amount;
  }
  rows.push_back({std::string(h.Get(accountTag)), sign * total, customer, "", headerClass, doc.record.txnId});
  return rows;
}

std::vector<Posting> PostInvoice(RequestContext&, Lookup& lists, WriteScope& scope, const TxnDocument& doc) {
  return PostSale(lists, scope, doc, "ARAccountRef", 1);
}
// The money received: to the deposit account (Undeposited Funds unless the receipt names one).
std::vector<Posting> PostSalesReceipt(RequestContext&, Lookup& lists, WriteScope& scope, const TxnDocument& doc) {
  return PostSale(lists, scope, doc, "DepositToAccountRef", 1);
}
// A credit memo undoes a sale: the receivable is credited, income and sales tax debited.
std::vector<Posting> PostCreditMemo(RequestContext&, Lookup& lists, WriteScope& scope, const TxnDocument& doc) {
  return PostSale(lists, scope, doc, "ARAccountRef", -1);
}
std::vector<Posting> PostNothing(RequestContext&, Lookup&, WriteScope&, const TxnDocument&) { return {}; }

// The sales tax of the lines that are tax items: a line like any other, its amount belongs
// to the subtotal, though it posts to the sales tax liability as the header's tax does.
int64_t BodyTax(Lookup& lists, const TxnDocument& doc) {
  int64_t tax = 0;
  auto add = [&](const TxnLine& l) {
    const Looked* item = lists.Find(std::string(l.fields.Get("ItemRef")));
    if (item && (item->kind == "ItemSalesTax" || item->kind == "ItemSalesTaxGroup"))
      tax += RoundToCents(Raw(l.fields.Get("Amount")));
  };
  for (const TxnLine& l : doc.lines) {
    add(l);
    for (const TxnLine& m : l.members) add(m);
  }
  return tax;
}

// Subtotal, tax rate and tax of a document whose whole is `total` and whose sales tax
// (header and lines) is `taxTotal`.
void TaxFigures(RequestContext& ctx, Lookup& lists, const TxnDocument& doc, int64_t total, int64_t taxTotal,
                FieldMap& answer) {
  taxTotal -= BodyTax(lists, doc);
  answer.Set("Subtotal", CentsText(total - taxTotal));
  if (ctx.IsUS())
    answer.Set("SalesTaxPercentage", DecimalText(TotalRate(TaxItems(lists, std::string(doc.header.Get("ItemSalesTaxRef"))))));
  answer.Set("SalesTaxTotal", CentsText(taxTotal));
}

// What a posted sale comes to on `accountTag`'s account and on the sales tax liability,
// signed as a sale (an invoice's debit is positive).
std::pair<int64_t, int64_t> PostedTotals(RequestContext& ctx, LedgerStore& ledger, const TxnDocument& doc,
                                         const char* accountTag, int64_t sign) {
  std::vector<std::string> account = {std::string(doc.header.Get(accountTag))};
  std::vector<std::string> tax = {SpecialAccount(ctx, nullptr, "SalesTaxPayable")};
  int64_t total = sign * ledger.TxnAmount(doc.record.txnId, account);
  int64_t taxTotal = tax.front().empty() ? 0 : -sign * ledger.TxnAmount(doc.record.txnId, tax);
  return {total, taxTotal};
}

// Subtotal, sales tax and what is still owed: all summed from the postings.
void InvoiceFigures(RequestContext& ctx, const TxnDocument& doc, FieldMap& answer) {
  LedgerStore ledger(ctx.file);
  Lookup lists(ctx);
  auto [total, taxTotal] = PostedTotals(ctx, ledger, doc, "ARAccountRef", 1);
  std::vector<std::string> ar = {std::string(doc.header.Get("ARAccountRef"))};
  int64_t open = ledger.OpenAmount(doc.record.txnId, ar);
  TaxFigures(ctx, lists, doc, total, taxTotal, answer);
  answer.Set("AppliedAmount", CentsText(open - total));
  answer.Set("BalanceRemaining", CentsText(open));
  answer.Set("IsPaid", open == 0 ? "true" : "false");
  if (doc.header.Has("SuggestedDiscountDate")) {
    int64_t pct = Raw(lists.Get(std::string(doc.header.Get("TermsRef")), "DiscountPct"));
    answer.Set("SuggestedDiscountAmount", CentsText(PercentCents(open, pct)));
  }
}

void SalesReceiptFigures(RequestContext& ctx, const TxnDocument& doc, FieldMap& answer) {
  LedgerStore ledger(ctx.file);
  Lookup lists(ctx);
  auto [total, taxTotal] = PostedTotals(ctx, ledger, doc, "DepositToAccountRef", 1);
  TaxFigures(ctx, lists, doc, total, taxTotal, answer);
  answer.Set("TotalAmount", CentsText(total));
}

// The credit still open is what the receivable rows of the memo and of what it was applied
// to leave.
void CreditMemoFigures(RequestContext& ctx, const TxnDocument& doc, FieldMap& answer) {
  LedgerStore ledger(ctx.file);
  Lookup lists(ctx);
  auto [total, taxTotal] = PostedTotals(ctx, ledger, doc, "ARAccountRef", -1);
  std::vector<std::string> ar = {std::string(doc.header.Get("ARAccountRef"))};
  TaxFigures(ctx, lists, doc, total, taxTotal, answer);
  answer.Set("TotalAmount", CentsText(total));
  answer.Set("CreditRemaining", CentsText(-ledger.OpenAmount(doc.record.txnId, ar)));
}

// Documents that post nothing: their figures come from their worked-out lines.
void UnpostedFigures(RequestContext& ctx, const TxnDocument& stored, FieldMap& answer) {
  Lookup lists(ctx);
  // A document read back from the file is worked out again for its item kinds and tax.
  TxnDocument doc = stored;
  if (!CompleteInvoice(ctx, lists, doc, false).Ok()) return;
  int64_t total = 0, taxTotal = BodyTax(lists, doc);
  for (const TxnLine& l : doc.lines)
    if (l.itemKind != "ItemSubtotal") total += RoundToCents(Raw(l.fields.Get(l.isGroup ? "TotalAmount" : "Amount")));
  for (const auto& [item, amount] : doc.taxByItem) total += amount, taxTotal += amount;
  TaxFigures(ctx, lists, doc, total, taxTotal, answer);
  answer.Set("TotalAmount", CentsText(total));
  if (doc.record.kind == "SalesOrder")
    answer.Set("IsFullyInvoiced", doc.header.Get("IsManuallyClosed") == "true" ? "true" : "false");
}

const TxnKind kKinds[] = {
    {"Invoice", "InvoiceRet", "InvoiceLine", "InvoiceLineGroup", "CustomerRef", "ARAccountRef", kInvoiceHeader,
     kSalesLine, CompleteInvoice, PostInvoice, InvoiceFigures, "AccountsReceivable", true, true, nullptr, false,
     true},
    // No modify of sales receipts in the versions the library speaks.
    {"SalesReceipt", "SalesReceiptRet", "SalesReceiptLine", "SalesReceiptLineGroup", "CustomerRef",
     "DepositToAccountRef", kSalesReceiptHeader, kSalesLine, CompleteInvoice, PostSalesReceipt, SalesReceiptFigures,
     "UndepositedFunds", false, true},
    {"CreditMemo", "CreditMemoRet", "CreditMemoLine", "CreditMemoLineGroup", "CustomerRef", "ARAccountRef",
     kCreditMemoHeader, kSalesLine, CompleteInvoice, PostCreditMemo, CreditMemoFigures},
    {"Estimate", "EstimateRet", "EstimateLine", "EstimateLineGroup", "CustomerRef", "", kEstimateHeader,
     kEstimateLine, CompleteInvoice, PostNothing, UnpostedFigures, nullptr, true, false},
    {"SalesOrder", "SalesOrderRet", "SalesOrderLine", "SalesOrderLineGroup", "CustomerRef", "", kSalesOrderHeader,
     kSalesOrderLine, CompleteInvoice, PostNothing, UnpostedFigures, nullptr, true, false},
};

}  // namespace

std::span<const TxnKind> TxnKinds() {
  static const std::vector<TxnKind> kinds = [] {
    std::vector<TxnKind> all(std::begin(kKinds), std::end(kKinds));
    all.push_back(ReceivePaymentKind());
    return all;
  }();
  return kinds;
}

const ListCache::Entry* ListCache::Find(const std::string& listId) {
  if (listId.empty()) return nullptr;
  auto it = entries_.find(listId);
  if (it == entries_.end()) {
    // A generator of many documents meets many customers: the cache stays bounded.
    if (entries_.size() > 20000) entries_.clear();
    auto rec = ctx_.store.ByListId(listId);
    std::optional<Entry> v;
    if (rec) v = Entry{rec->kind, FieldMap::Decode(rec->body), rec->isActive, rec->parentListId};
    it = entries_.emplace(listId, std::move(v)).first;
  }
  return it->second ? &*it->second : nullptr;
}

std::string_view ListCache::Get(const std::string& listId, std::string_view path) {
  const Entry* e = Find(listId);
  return e ? e->fields.Get(path) : std::string_view();
}

const FieldMap& ListCache::Preferences() {
  if (!preferences_) preferences_ = FieldMap::Decode(ctx_.file.Meta(meta::kPreferences));
  return *preferences_;
}

const std::string& ListCache::Special(WriteScope* scope, std::string_view specialType) {
  auto it = special_.find(specialType);
  if (it == special_.end() || it->second.empty()) {
    std::string id = SpecialAccount(ctx_, scope, specialType);
    it = special_.insert_or_assign(std::string(specialType), id).first;
  }
  return it->second;
}

const TxnKind* FindTxnKind(std::string_view name) {
  for (const TxnKind& k : TxnKinds())
    if (name == k.name) return &k;
  return nullptr;
}

std::span<const Field> SalesLineFields() { return kSalesLine; }
std::span<const Field> SalesGroupLineFields() { return kSalesGroupLine; }

}  // namespace tessaron::qbsim
