// The line's fields, gates, arithmetic and the pulling of prices from the item. Cell
// editing lives in txn_item_line_cells.cpp, reading and writing in txn_item_line_xml.cpp.
#include "tessaron/transactions/txn_item_line.h"

#include <algorithm>

#include "tessaron/connection/library_state.h"
#include "tessaron/events/qc_event_sink.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/lists/qc_item.h"
#include "tessaron/lists/sales_tax_code.h"
#include "tessaron/lists/stock_items.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/detail/line_rules.h"
#include "tessaron/transactions/txn_item_lines.h"

namespace tessaron {

using detail::NewRef;
using detail::OneOf;

namespace {

constexpr const char* kSource = "Tessaron:txnItemLine";
constexpr const char* kClass = "txnItemLine";

const std::string& NameOf(const std::shared_ptr<qcListObjectRef>& ref) {
  static const std::string kEmpty;
  return ref ? ref->FullName() : kEmpty;
}

// Currency by Currency, through double, back to Currency: how the line divides.
Currency Divide(Currency a, Currency b) { return Currency::FromDouble(a.ToDouble() / b.ToDouble()); }

}  // namespace

txnItemLine::txnItemLine()
    : classRef_(NewRef(qoListClasses)),
      customerRef_(NewRef(qoListCustomers)),
      itemRef_(NewRef(qoListItems)),
      salesTaxCodeRef_(NewRef(qoListSalesTaxCodes)),
      groupLines_(std::make_shared<txnItemLines>()) {
  groupLines_->SetIsGroupMemberList(true);
  if (State().IsNonUSProduct) taxCodeRef_ = NewRef(qoListSalesTaxCodes);
}

txnItemLine::~txnItemLine() = default;

// ---- Gates -------------------------------------------------------------------------------

void txnItemLine::MarkModified(bool checkAllowed) { detail::MarkLineModified(objectState_, checkAllowed, kClass); }

void txnItemLine::CheckNotInGroup() const {
  // Only an owner of the item-group type is refused here; documents rely on the member
  // list's own check.
  if (ownerType_ == qoObjectTypeItemGroup) detail::FailLine(err::kGroupLineChange);
}

void txnItemLine::CheckOwnerTypeIn(std::initializer_list<int32_t> types) const {
  if (ownerType_ == 0) RaiseInternal(kClass, "Unknown owner transaction type");
  if (!OneOf(ownerType_, types)) detail::FailLine(err::kPropertyNotForTxnType);
}

bool txnItemLine::IsSalesOwner() const { return detail::IsSalesOwner(ownerType_, kClass); }
bool txnItemLine::IsPayablesOwner() const { return !IsSalesOwner(); }

qbEnumItemType txnItemLine::ItemTypeOfLine() const {
  auto item = ItemObject();
  return item ? item->ItemType() : qbItemEmpty;
}

bool txnItemLine::ItemTypeIn(std::initializer_list<qbEnumItemType> types) const {
  return detail::TypeIn(ItemTypeOfLine(), types);
}

bool txnItemLine::IsGroupMemberLine() const { return isGroup_ && ItemTypeOfLine() != qbItemGroup; }

void txnItemLine::RaiseAmountChange() {
  if (eventSink_) eventSink_->Raise(qoEventAmountChange);
}

// ---- Simple fields -------------------------------------------------------------------------

void txnItemLine::SetLinkedTxnId(const std::string& value) {
  MarkModified(true);
  linkedTxnId_ = value;
}

void txnItemLine::SetLinkedTxnLineId(const std::string& value) {
  MarkModified(true);
  linkedTxnLineId_ = value;
}

qbEnumBillableStatus txnItemLine::BillableStatus() const {
  CheckOwnerTypeIn({qoObjectTypeVendorCredit, qoObjectTypeCreditCardCredit, qoObjectTypeCreditCardCharge,
                    qoObjectTypeBill});
  RequireVersion(Currency(2));
  return billableStatus_;
}

void txnItemLine::SetBillableStatus(qbEnumBillableStatus value) {
  CheckOwnerTypeIn({qoObjectTypeVendorCredit, qoObjectTypeCreditCardCredit, qoObjectTypeCreditCardCharge,
                    qoObjectTypeBill});
  RequireVersion(Currency(2));
  MarkModified(true);
  billableStatus_ = value;
}

std::shared_ptr<qcItem> txnItemLine::ItemObject() const {
  return std::dynamic_pointer_cast<qcItem>(itemRef_->Object());
}

std::shared_ptr<qcErrors> txnItemLine::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

void txnItemLine::SetCostIsPercent(bool value) {
  if (value)
    CheckOwnerTypeIn({qoObjectTypeEstimate, qoObjectTypeCreditMemo, qoObjectTypeSalesReceipt, qoObjectTypeInvoice,
                      qoObjectTypePurchaseOrder});
  CheckNotInGroup();
  MarkModified(true);
  costIsPercent_ = value;
}

void txnItemLine::SetDescription(const std::string& value) {
  MarkModified(true);
  description_ = value;
}

const std::string& txnItemLine::Class() const { return NameOf(classRef_); }

void txnItemLine::SetClass(const std::string& value) {
  CheckNotInGroup();
  MarkModified(true);
  classRef_ = NewRef(qoListClasses, value);
}

const std::string& txnItemLine::Customer() const { return NameOf(customerRef_); }

void txnItemLine::SetCustomer(const std::string& value) {
  CheckOwnerTypeIn({qoObjectTypeBill, qoObjectTypeCheck, qoObjectTypePurchaseOrder, qoObjectTypeVendorCredit,
                    qoObjectTypeCreditCardCharge, qoObjectTypeCreditCardCredit, qoObjectTypeItemReceipt});
  CheckNotInGroup();
  auto ref = NewRef(qoListCustomers, value);
  if (!value.empty() && !ref->Object()) detail::FailLine(err::kCustomerMissing);
  MarkModified(true);
  customerRef_ = ref;
}

const std::string& txnItemLine::Item() const { return NameOf(itemRef_); }

void txnItemLine::SetServiceDate(Date value) {
  CheckOwnerTypeIn({qoObjectTypeCreditMemo, qoObjectTypeSalesReceipt, qoObjectTypeInvoice, qoObjectTypePurchaseOrder});
  MarkModified(true);
  serviceDate_ = value;
}

const std::string& txnItemLine::SalesTaxCode() const { return NameOf(salesTaxCodeRef_); }

void txnItemLine::SetSalesTaxCode(const std::string& value) {
  CheckOwnerTypeIn({qoObjectTypeSalesOrder, qoObjectTypeEstimate, qoObjectTypeCreditMemo, qoObjectTypeSalesReceipt,
                    qoObjectTypeInvoice});
  MarkModified(true);
  auto ref = NewRef(qoListSalesTaxCodes, value);
  if (value.empty()) {
    isTaxable_ = false;
  } else {
    auto code = std::dynamic_pointer_cast<tessaron::SalesTaxCode>(ref->Object());
    if (!code) detail::FailLine(err::kSalesTaxCodeMissing);
    isTaxable_ = code->IsTaxable();
  }
  salesTaxCodeRef_ = ref;
  RecalculateLine();
  RaiseAmountChange();
}

void txnItemLine::SetMarkupIsPercent(bool value) {
  // This gate has no message of its own: the description is the number itself.
  if (ownerType_ != qoObjectTypeEstimate)
    throw Error(err::kMarkupEstimatesOnly, kSource, std::to_string(static_cast<int32_t>(err::kMarkupEstimatesOnly)));
  MarkModified(true);
  markupIsPercent_ = value;
  RecalculateLine();
  RaiseAmountChange();
}

void txnItemLine::SetMarkup(Currency value) {
  if (ownerType_ != qoObjectTypeEstimate) detail::FailLine(err::kMarkupEstimatesOnly);
  MarkModified(true);
  markup_ = value;
  RecalculateLine();
  RaiseAmountChange();
}

void txnItemLine::SetInvoiced(Currency value) {
  CheckOwnerTypeIn({qoObjectTypeSalesOrder});
  MarkModified(true);
  invoiced_ = value;
}

void txnItemLine::SetIsManuallyClosed(Currency value) {
  CheckOwnerTypeIn({qoObjectTypeSalesOrder});
  MarkModified(true);
  isManuallyClosed_ = value != Currency();
}

const std::string& txnItemLine::TaxCode() const { return NameOf(taxCodeRef_); }

// ---- Arithmetic ------------------------------------------------------------------------------

void txnItemLine::SetAmount(Currency value) {
  CheckNotInGroup();
  MarkModified(true);
  if (ItemTypeOfLine() == qbItemSubtotal) detail::FailLine(err::kAmountReadOnly);
  amount_ = value;
  if (quantity_ != Currency() && quantity_ != Currency(1)) cost_ = Divide(amount_, quantity_);
  else cost_ = amount_;
  RecalculateLine();
  RaiseAmountChange();
}

void txnItemLine::SetQuantity(Currency value) {
  MarkModified(true);
  quantity_ = value;
  quantityWasSet_ = true;
  if (isGroup_ && ItemTypeOfLine() == qbItemGroup) {
    for (const auto& member : *groupLines_) member->SetQuantityFromGroup(value);
  } else {
    CheckInventory();
  }
  RecalculateLine();
  RaiseAmountChange();
}

void txnItemLine::SetQuantityFromGroup(Currency groupQuantity) { quantity_ = groupBaseQuantity_ * groupQuantity; }

void txnItemLine::SetCost(Currency value) {
  CheckNotInGroup();
  MarkModified(true);
  cost_ = value;
  RecalculateLine();
  RaiseAmountChange();
}

void txnItemLine::RecalculateLine() {
  if (isGroup_) {
    // Members too: their own (empty) member list totals 0 until the document's Total
    // prices them.
    amount_ = groupLines_->Total();
    return;
  }
  if (ownerType_ == qoObjectTypeEstimate) {
    const Currency base = cost_ * quantity_;
    if (markupIsPercent_) amount_ = Currency::FromDouble(base.ToDouble() * (markup_.ToDouble() / 100 + 1));
    else amount_ = base + markup_;
    return;
  }
  const Currency zero;
  if (amount_ != zero || cost_ <= zero || quantity_ <= zero) {
    // An amount typed on a line without a rate gives the rate; on a line with a rate and no
    // quantity it gives the quantity.
    if (amount_ > zero && cost_ == zero && quantity_ > zero) {
      cost_ = Divide(amount_, quantity_);
      return;
    }
    if (cost_ > zero && quantity_ == zero && amount_ > zero) {
      quantity_ = Divide(amount_, cost_);
      return;
    }
  }
  amount_ = cost_ * quantity_;
}

void txnItemLine::CheckInventory() {
  if (isGroup_ || !IsSalesOwner() || !detail::StoredLinesChangeable()) return;
  auto stock = std::dynamic_pointer_cast<ItemInventory>(itemRef_->Object());
  if (!stock) return;
  if (quantity_ <= stock->QuantityOnHand() - stock->QuantityOnSalesOrder()) return;
  const std::vector<QuantityListener> listeners = quantityListeners_;
  for (const auto& l : listeners) l.handler(stock);
  if (eventSink_) {
    // Shortage is told even while the line has muted the sink for its own changes.
    const bool was = eventSink_->Disabled();
    eventSink_->SetDisabled(false);
    eventSink_->Raise(qoEventNoQuantity, stock->Name());
    eventSink_->SetDisabled(was);
  }
}

size_t txnItemLine::OnInsuficientQuantity(InsuficientQuantityHandler handler) {
  quantityListeners_.push_back({nextListenerId_, std::move(handler)});
  return nextListenerId_++;
}

void txnItemLine::RemoveInsuficientQuantityHandler(size_t id) {
  std::erase_if(quantityListeners_, [id](const QuantityListener& l) { return l.id == id; });
}

// ---- Wiring to the owner -------------------------------------------------------------------

void txnItemLine::SetOwnerType(qoEnumListObjectType value) {
  ownerType_ = value;
  groupLines_->SetOwnerType(value);
}

void txnItemLine::SetIsGroup(bool value) {
  isGroup_ = value;
  if (!value) groupLines_->col_.Clear();
}

void txnItemLine::SetEventSink(const std::shared_ptr<qcEventSink>& sink) { eventSink_ = sink; }

void txnItemLine::SetOwnerTaxCode(const std::shared_ptr<qcListObjectRef>& ref) {
  ownerTaxCodeRef_ = ref;
  ResolveLineTaxCode();
  if (isGroup_ && ItemTypeOfLine() == qbItemGroup && groupLines_->Count() > 0) groupLines_->SetOwnerTaxCode(ref);
}

void txnItemLine::ResolveLineTaxCode() {
  auto item = ItemObject();
  if (!item) return;
  if (ItemTypeIn({qbItemFixedAsset, qbItemGroup, qbItemPayment, qbItemSalesTaxGroup, qbItemSalesTax, qbItemSubtotal})) {
    salesTaxCodeRef_ = NewRef(qoListSalesTaxCodes);
    return;
  }
  auto itemCode = detail::FindSalesTaxCode(item->SalesTaxCode());
  const std::string& headerName = NameOf(ownerTaxCodeRef_);
  auto headerCode = detail::FindSalesTaxCode(headerName);
  auto header = ownerTaxCodeRef_ ? ownerTaxCodeRef_ : NewRef(qoListSalesTaxCodes);
  if (!itemCode) {
    salesTaxCodeRef_ = header;  // shared with the header, so a later change there shows here
  } else if (itemCode->IsTaxable()) {
    salesTaxCodeRef_ = headerName.empty() ? NewRef(qoListSalesTaxCodes, itemCode->Name()) : header;
  } else if (!headerCode || headerCode->IsTaxable()) {
    salesTaxCodeRef_ = NewRef(qoListSalesTaxCodes, itemCode->Name());
  } else {
    salesTaxCodeRef_ = header;
  }
}

void txnItemLine::ApplyMarkupDefaults() {
  if (ownerType_ != qoObjectTypeEstimate) return;
  auto item = ItemObject();
  if (!item) return;
  switch (item->ItemType()) {
    case qbItemService:
    case qbItemNonInventory:
    case qbItemOtherCharge:
      if (item->HasSalesAndPurchase()) {
        markupIsPercent_ = true;
        markup_ = Currency(100);
      } else {
        markup_ = Currency();
      }
      break;
    case qbItemInventory:
    case qbItemAssembly:
      markupIsPercent_ = true;
      markup_ = Currency(50);
      break;
    case qbItemSubtotal:
    case qbItemGroup:
    case qbItemDiscount:
    case qbItemSalesTax:
    case qbItemSalesTaxGroup:
      markup_ = Currency();
      break;
    default:
      break;
  }
}

bool txnItemLine::Validate() {
  Errors()->Clear();
  if (amount_ != Currency() && Item().empty())
    errors_->Add(err::kLineNeedsItem, "Item", err::kLineNeedsItemText);
  return errors_->Count() == 0;
}

}  // namespace tessaron
