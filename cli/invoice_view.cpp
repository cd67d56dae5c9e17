#include "cli/invoice_view.h"

#include <algorithm>
#include <ostream>

#include "tessaron/foundation/values.h"
#include "tessaron/lists/address.h"
#include "tessaron/platform/text.h"
#include "tessaron/transactions/invoice.h"
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

Table InvoiceTable(const std::vector<std::shared_ptr<Invoice>>& invoices) {
  Table t;
  t.columns = {"RefNumber", "TxnDate", "Customer", "DueDate", "Subtotal", "SalesTaxTotal", "Total", "BalanceRemaining",
               "IsPaid"};
  t.kinds = {FieldKind::Text,   FieldKind::Date,   FieldKind::Ref,    FieldKind::Date,   FieldKind::Amount,
             FieldKind::Amount, FieldKind::Amount, FieldKind::Amount, FieldKind::Boolean};
  for (const auto& inv : invoices) {
    t.classes.emplace_back("Invoice");
    t.rows.push_back({inv->RefNumber(), DateText(inv->TxnDate()), inv->Customer(), DateText(inv->DueDate()),
                      inv->Subtotal().ToString(), inv->SalesTaxTotal().ToString(),
                      (inv->Subtotal() + inv->SalesTaxTotal()).ToString(), inv->BalanceRemaining().ToString(),
                      inv->IsPaid() ? "true" : "false"});
  }
  return t;
}

}  // namespace tessaron::cli
