#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/lists/item_records.h"

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

void WriteRefByListID(const qcListObjectRef& ref, xmlBldr& b, const std::string& tag) {
  if (!ref.ListID().empty()) {
    b.OpenAggregateOnly(tag);
    b.CreateElement("ListID", ref.ListID());
    b.EndAggregate(tag);
  } else if (!ref.FullName().empty()) {
    b.OpenAggregateOnly(tag);
    b.CreateElement("FullName", ref.FullName());
    b.EndAggregate(tag);
  }
}

namespace {
Currency Number(const XmlNode& node) {
  std::string text = node.text();
  return CurrencyFromText(text);
}
}  // namespace

// ---- ItemSubRecord -------------------------------------------------------------------------

std::shared_ptr<qcErrors> ItemSubRecord::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

bool ItemSubRecord::StartValidate() {
  Errors()->Clear();
  return state_ == qoObjectStateClean;
}

void ItemSubRecord::RequireRef(qcListObjectRef& ref, uint32_t code, const char* field, const char* message) {
  if (!IsListRefValid(ref)) Errors()->Add(code, field, message);
}

// ---- itemSalesOrPurchase -------------------------------------------------------------------

itemSalesOrPurchase::itemSalesOrPurchase() : account_(std::make_shared<qcListObjectRef>(qoListAccounts)) {}

bool itemSalesOrPurchase::Validate() {
  if (StartValidate()) return true;
  RequireRef(*account_, err::kBadAccount, "Account", err::kBadAccountText);
  return Errors()->Count() == 0;
}

void itemSalesOrPurchase::FromDom(const XmlNode& node) {
  for (const XmlNode& c : node.childNodes()) {
    const std::string_view tag = c.baseName();
    if (tag == "Desc") description_ = c.text();
    else if (tag == "Price") amount_ = Number(c);
    else if (tag == "PricePercent") {
      amount_ = Number(c);
      amountIsPercent_ = true;
    } else if (tag == "AccountRef") detail::ListObjectAccess::ReadFromNode(*account_, c);
    else NoteUnknownElement(tag, "itemSalesOrPurchase");
  }
}

void itemSalesOrPurchase::WritePrice(xmlBldr& b) const {
  if (amountIsPercent_) b.CreateElement("PricePercent", PercentRateToText(amount_));
  else b.CreateElement("Price", AmountToText(amount_));
}

void itemSalesOrPurchase::WriteAdd(xmlBldr& b) const {
  b.OpenAggregateOnly("SalesOrPurchase");
  if (!description_.empty()) b.CreateElement("Desc", description_);
  WritePrice(b);
  WriteRefByListID(*account_, b, "AccountRef");
  b.EndAggregate("SalesOrPurchase");
}

void itemSalesOrPurchase::WriteMod(xmlBldr& b) const {
  b.OpenAggregateOnly("SalesOrPurchaseMod");
  if (!description_.empty()) b.CreateElement("Desc", description_);
  WritePrice(b);
  b.EndAggregate("SalesOrPurchaseMod");
}

// ---- itemSalesAndPurchase ------------------------------------------------------------------

itemSalesAndPurchase::itemSalesAndPurchase()
    : incomeAccount_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      expenseAccount_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      vendor_(std::make_shared<qcListObjectRef>(qoListVendors)) {}

bool itemSalesAndPurchase::Validate() {
  if (StartValidate()) return true;
  RequireRef(*incomeAccount_, err::kBadAccount, "IncomeAccount", err::kBadAccountText);
  RequireRef(*expenseAccount_, err::kBadAccount, "ExpenseAccount", err::kBadAccountText);
  if (!vendor_->FullName().empty() || !vendor_->ListID().empty())
    RequireRef(*vendor_, err::kBadVendor, "Vendor", err::kBadVendorText);
  return Errors()->Count() == 0;
}

void itemSalesAndPurchase::FromDom(const XmlNode& node) {
  for (const XmlNode& c : node.childNodes()) {
    const std::string_view tag = c.baseName();
    if (tag == "SalesDesc") salesDescription_ = c.text();
    else if (tag == "SalesPrice") salesPrice_ = Number(c);
    else if (tag == "IncomeAccountRef") detail::ListObjectAccess::ReadFromNode(*incomeAccount_, c);
    else if (tag == "PurchaseDesc") purchaseDescription_ = c.text();
    else if (tag == "PurchaseCost") purchaseCost_ = Number(c);
    else if (tag == "ExpenseAccountRef") detail::ListObjectAccess::ReadFromNode(*expenseAccount_, c);
    else if (tag == "PrefVendorRef") detail::ListObjectAccess::ReadFromNode(*vendor_, c);
    else NoteUnknownElement(tag, "itemSalesAndPurchase");
  }
}

void itemSalesAndPurchase::WriteAdd(xmlBldr& b) const {
  b.OpenAggregateOnly("SalesAndPurchase");
  if (!salesDescription_.empty()) b.CreateElement("SalesDesc", salesDescription_);
  b.CreateElement("SalesPrice", AmountToText(salesPrice_));
  WriteRefByListID(*incomeAccount_, b, "IncomeAccountRef");
  if (!purchaseDescription_.empty()) b.CreateElement("PurchaseDesc", purchaseDescription_);
  b.CreateElement("PurchaseCost", AmountToText(purchaseCost_));
  WriteRefByListID(*expenseAccount_, b, "ExpenseAccountRef");
  WriteRefByListID(*vendor_, b, "PrefVendorRef");
  b.EndAggregate("SalesAndPurchase");
}

void itemSalesAndPurchase::WriteMod(xmlBldr& b) const {
  b.OpenAggregateOnly("SalesAndPurchaseMod");
  if (!salesDescription_.empty()) b.CreateElement("SalesDesc", salesDescription_);
  b.CreateElement("SalesPrice", AmountToText(salesPrice_));
  b.CreateElement("PurchaseDesc", purchaseDescription_);
  b.CreateElement("PurchaseCost", AmountToText(purchaseCost_));
  WriteRefByListID(*vendor_, b, "PrefVendorRef");
  b.EndAggregate("SalesAndPurchaseMod");
}

// ---- Group lines ---------------------------------------------------------------------------

itemGroupLine::itemGroupLine() : itemRef_(std::make_shared<qcListObjectRef>(qoListItems)) {}

std::shared_ptr<itemGroupLine> itemGroupLines::Add(const std::string& ItemFullName, Currency Quantity,
                                                   const std::string& ItemListID) {
  auto line = std::make_shared<itemGroupLine>();
  detail::ListObjectAccess::SetFullName(*line->ItemRef(), ItemFullName);
  detail::ListObjectAccess::SetListID(*line->ItemRef(), ItemListID);
  line->SetQuantity(Quantity);
  lines_.push_back(line);
  changed_ = true;
  return line;
}

void itemGroupLines::Remove(long position) {
  lines_.erase(lines_.begin() + (position - 1));
  changed_ = true;
}

void itemGroupLines::Clear() {
  lines_.clear();
  changed_ = true;
}

bool itemGroupLines::Changed() const {
  if (changed_) return true;
  for (const auto& line : lines_)
    if (line->Changed()) return true;
  return false;
}

void itemGroupLines::SetChanged(bool value) {
  changed_ = value;
  for (const auto& line : lines_) line->SetChanged(value);
}

void itemGroupLines::ReadLine(const XmlNode& node, const char* refTag) {
  auto line = std::make_shared<itemGroupLine>();
  for (const XmlNode& c : node.childNodes()) {
    if (c.baseName() == refTag) detail::ListObjectAccess::ReadFromNode(*line->ItemRef(), c);
    else if (c.baseName() == "Quantity") line->SetQuantity(Number(c));
  }
  Append(line);
}

void itemGroupLines::Append(const std::shared_ptr<itemGroupLine>& line) {
  if (replaceOnRead_) lines_.clear();
  replaceOnRead_ = false;
  line->SetChanged(false);
  lines_.push_back(line);
}

void itemGroupLines::ReadRefLine(const XmlNode& node) {
  auto line = std::make_shared<itemGroupLine>();
  detail::ListObjectAccess::ReadFromNode(*line->ItemRef(), node);
  Append(line);
}

std::string itemGroupLines::Text() const {
  std::string text;
  for (const auto& line : lines_) text += (text.empty() ? "" : ", ") + line->Item() + " x " + line->Quantity().ToString();
  return text;
}

void itemGroupLines::Write(xmlBldr& b, const char* lineTag, const char* refTag) const {
  for (const auto& line : lines_) {
    b.OpenAggregateOnly(lineTag);
    WriteListRef(*line->ItemRef(), b, refTag);
    b.CreateElement("Quantity", QuantityToText(line->Quantity()));
    b.EndAggregate(lineTag);
  }
}

}  // namespace tessaron
