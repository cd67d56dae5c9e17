#include "cli/txn_view.h"

#include <algorithm>
#include <ostream>

#include "tessaron/foundation/values.h"
#include "tessaron/lists/address.h"
#include "tessaron/platform/text.h"
#include "tessaron/transactions/invoice.h"
#include "tessaron/transactions/txn_object.h"
#include "tessaron/transactions/txn_item_line.h"
#include "tessaron/transactions/txn_item_lines.h"

namespace tessaron::cli {

namespace {

std::string Pad(std::string text, size_t width, bool right = false) {
  const size_t shown = Utf16Length(text);
  if (shown >= width) return text;
  return right ? std::string(width - shown, ' ') + text : text + std::string(width - shown, ' ');
}

std::string Money(Currency value) { return FormatCurrency(value, "#,##0.00"); }

std::string DateText(Date value) { return value == 0 ? std::string() : DateToText(value); }

// Quantities as people write them: no trailing zeros, no trailing point.
std::string QuantityText(Currency value) {
  std::string text = value.ToString();
  if (text.find('.') != std::string::npos) {
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
  }
  return text;
}

// The address lines that are filled, then "City, State PostalCode" and the country.
std::vector<std::string> AddressLines(const Address& a) {
  std::vector<std::string> lines;
  for (const std::string* l : {&a.Line1(), &a.Line2(), &a.Line3(), &a.Line4()})
    if (!l->empty()) lines.push_back(*l);
  std::string place = a.City();
  if (!a.State().empty()) place += (place.empty() ? "" : ", ") + a.State();
  if (!a.PostalCode().empty()) place += (place.empty() ? "" : " ") + a.PostalCode();
  if (!place.empty()) lines.push_back(place);
  if (!a.Country().empty()) lines.push_back(a.Country());
  return lines;
}

constexpr size_t kItemWidth = 24, kDescWidth = 34, kQtyWidth = 8, kRateWidth = 12, kAmountWidth = 12;

void PrintLine(txnItemLine& line, size_t indent, std::ostream& out) {
  std::string rate;
  if (line.Cost() != Currency()) rate = line.CostIsPercent() ? FormatCurrency(line.Cost(), "0.00") + "%" : Money(line.Cost());
  const bool showQuantity = line.Quantity() != Currency() && !line.CostIsPercent();
  out << Pad(std::string(indent, ' ') + line.Item(), kItemWidth) << "  " << Pad(line.Description(), kDescWidth) << "  "
      << Pad(showQuantity ? QuantityText(line.Quantity()) : "", kQtyWidth, true) << "  " << Pad(rate, kRateWidth, true)
      << "  " << Pad(Money(line.Amount()), kAmountWidth, true) << (line.IsTaxable() ? "  T" : "") << "\n";
  if (line.IsGroup() && line.GroupLines())
    for (const auto& member : line.GroupLines()->NewEnum()) PrintLine(*member, indent + 2, out);
}

}  // namespace

void PrintInvoice(Invoice& inv, std::ostream& out) {
  out << "Invoice " << inv.RefNumber() << "    dated " << DateText(inv.TxnDate());
  if (inv.DueDate() != 0) out << "    due " << DateText(inv.DueDate());
  out << (inv.IsPaid() ? "    PAID" : "") << "\n";
  out << "Customer " << inv.Customer();
  if (!inv.Terms().empty()) out << "    terms " << inv.Terms();
  if (!inv.PONumber().empty()) out << "    PO " << inv.PONumber();
  out << "\n";

  const std::vector<std::string> bill = AddressLines(*inv.BillTo()), ship = AddressLines(*inv.ShipTo());
  if (!bill.empty() || !ship.empty()) {
    out << "\n" << Pad("Bill to", 40) << "Ship to\n";
    for (size_t i = 0; i < std::max(bill.size(), ship.size()); ++i)
      out << Pad(i < bill.size() ? bill[i] : "", 40) << (i < ship.size() ? ship[i] : "") << "\n";
  }

  out << "\n" << Pad("Item", kItemWidth) << "  " << Pad("Description", kDescWidth) << "  " << Pad("Qty", kQtyWidth, true)
      << "  " << Pad("Rate", kRateWidth, true) << "  " << Pad("Amount", kAmountWidth, true) << "\n";
  out << std::string(kItemWidth + kDescWidth + kQtyWidth + kRateWidth + kAmountWidth + 8, '-') << "\n";
  for (const auto& line : inv.ItemLines()->NewEnum()) PrintLine(*line, 0, out);

  const size_t labelWidth = kItemWidth + kDescWidth + kQtyWidth + kRateWidth + 8;
  auto total = [&](const std::string& label, Currency value) {
    out << Pad(label, labelWidth, true) << Pad(Money(value), kAmountWidth, true) << "\n";
  };
  out << "\n";
  total("Subtotal  ", inv.Subtotal());
  std::string tax = "Sales tax";
  if (!inv.SalesTaxItem().empty())
    tax += " (" + inv.SalesTaxItem() + ", " + QuantityText(inv.SalesTaxPercentage()) + "%)";
  total(tax + "  ", inv.SalesTaxTotal());
  total("Total  ", inv.Subtotal() + inv.SalesTaxTotal());
  if (inv.AppliedAmount() != Currency()) total("Payments and credits  ", inv.AppliedAmount());
  total("Balance due  ", inv.BalanceRemaining());
  if (!inv.Memo().empty()) out << "\nMemo: " << inv.Memo() << "\n";
}

namespace {

// "CustomerRef" -> "Customer": the name a reader looks for.
std::string ColumnName(std::string_view property) {
  std::string name(property);
  if (name.size() > 3 && name.ends_with("Ref")) name.resize(name.size() - 3);
  return name;
}

// The parts of a record every document has, or that its title line already shows.
bool InTitle(std::string_view name) {
  for (std::string_view n : {"TxnID", "TimeCreated", "TimeModified", "EditSequence", "TxnNumber", "RefNumber", "TxnDate"})
    if (name == n) return true;
  return false;
}

std::string ShownText(const FieldText& f) {
  if (f.kind == FieldKind::Amount && !f.text.empty()) {
    Currency value;
    if (Currency::TryParse(f.text, value)) return Money(value);
  }
  return f.text;
}

}  // namespace

void PrintTxn(TxnObject& txn, std::ostream& out) {
  const std::vector<FieldText> fields = txn.Properties();
  std::string number, date;
  for (const FieldText& f : fields) {
    if (f.name == "RefNumber") number = f.text;
    if (f.name == "TxnDate") date = f.text;
  }
  out << txn.ClassInfo().className << (number.empty() ? "" : " " + number);
  if (!date.empty()) out << "    dated " << date;
  out << "\n";
  for (const FieldText& f : fields) {
    if (InTitle(f.name) || f.text.empty() || f.kind == FieldKind::Custom) continue;
    if (f.kind == FieldKind::Boolean && f.text == "false") continue;
    if (f.kind == FieldKind::Amount && f.text == "0") continue;
    out << Pad(ColumnName(f.name) + ":", 24) << ShownText(f) << "\n";
  }
  auto lines = txn.ItemLines();
  if (!lines || lines->Count() == 0) return;
  out << "\n" << Pad("Item", kItemWidth) << "  " << Pad("Description", kDescWidth) << "  " << Pad("Qty", kQtyWidth, true)
      << "  " << Pad("Rate", kRateWidth, true) << "  " << Pad("Amount", kAmountWidth, true) << "\n";
  out << std::string(kItemWidth + kDescWidth + kQtyWidth + kRateWidth + kAmountWidth + 8, '-') << "\n";
  for (const auto& line : lines->NewEnum()) PrintLine(*line, 0, out);
}

void PrintDocument(TxnObject& txn, std::ostream& out) {
  if (auto* invoice = dynamic_cast<Invoice*>(&txn)) PrintInvoice(*invoice, out);
  else PrintTxn(txn, out);
}

Table TxnTable(const std::vector<std::shared_ptr<TxnObject>>& documents) {
  Table t;
  for (const auto& doc : documents) {
    const std::vector<FieldText> fields = doc->Properties();
    if (t.columns.empty()) {
      for (const FieldText& f : fields) {
        t.columns.push_back(ColumnName(f.name));
        t.kinds.push_back(f.kind);
      }
    }
    std::vector<std::string> row;
    row.reserve(t.columns.size());
    for (const FieldText& f : fields) row.push_back(f.text);
    row.resize(t.columns.size());
    t.rows.push_back(std::move(row));
    t.classes.emplace_back(doc->ClassInfo().className);
  }
  return t;
}

const std::vector<std::string>& DefaultTxnColumns() {
  static const std::vector<std::string> kColumns = {
      "RefNumber", "TxnDate",     "Customer",   "Vendor",       "PayeeEntity",      "Account",
      "DueDate",   "Subtotal",    "SalesTaxTotal", "TotalAmount", "Amount",         "AmountDue",
      "CreditAmount", "OpenAmount", "BalanceRemaining", "CreditRemaining", "UnusedPayment"};
  return kColumns;
}

}  // namespace tessaron::cli
