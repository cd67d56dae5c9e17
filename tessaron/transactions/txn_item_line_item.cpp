// Setting the item of a line: prices, rates and texts come from the item, a tax item asks
// the owner first, and a group turns into a head line with one member line per item of
// the group.
#include "tessaron/events/qc_event_sink.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/lists/item_records.h"
#include "tessaron/lists/qc_item.h"
#include "tessaron/lists/stock_items.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/detail/line_rules.h"
#include "tessaron/transactions/txn_item_line.h"
#include "tessaron/transactions/txn_item_lines.h"

namespace tessaron {

void txnItemLine::SetItem(const std::string& value) {
  CheckNotInGroup();
  auto ref = detail::NewRef(qoListItems, value);
  auto item = std::dynamic_pointer_cast<qcItem>(ref->Object());
  if (!item) detail::FailLine(err::kInvalidItem);
  MarkModified(true);
  groupLines_->Clear();

  if (item->ItemType() == qbItemGroup) {
    itemRef_ = ref;
    ExpandGroup(item);
  } else {
    if (!isAddingLine_) SetIsGroup(false);
    if (eventSink_) eventSink_->SetDisabled(true);
    itemRef_ = ref;  // taken by every kind below; the refused kinds raise before using it
    PullFromItem(item);
    if (quantity_ == Currency()) SetQuantity(Currency(1));
    ApplyMarkupDefaults();
    ResolveLineTaxCode();
    if (eventSink_) eventSink_->SetDisabled(false);
  }

  if (IsSalesOwner() && !item->HasSalesAndPurchase() && item->ContainsExpenseAccount() && eventSink_)
    eventSink_->Raise(qoEventWarning, std::to_string(qoWarningItemHasExpenseAccount));
  RecalculateLine();
  RaiseAmountChange();
}

void txnItemLine::PullFromItem(const std::shared_ptr<qcItem>& item) {
  const bool payables = IsPayablesOwner();
  switch (item->ItemType()) {
    case qbItemService:
    case qbItemInventory:
    case qbItemNonInventory:
    case qbItemOtherCharge:
    case qbItemAssembly:
    case qbItemFixedAsset:
      if (payables) {
        if (item->PurchaseCostIsPercent()) detail::FailLine(err::kApPercentItem);
        cost_ = item->PurchaseCost();
        costIsPercent_ = item->PurchaseCostIsPercent();
        description_ = item->PurchaseDescription();
      } else {
        cost_ = item->SalesCost();
        costIsPercent_ = item->SalesCostIsPercent();
        description_ = item->SalesDescription();
        SetSalesTaxCode(item->SalesTaxCode());
        CheckInventory();
      }
      break;
    case qbItemSubtotal:
      description_ = item->SalesDescription();
      quantity_ = Currency();
      cost_ = Currency();
      break;
    case qbItemDiscount:
      if (payables) detail::FailLine(err::kUnsupportedItemType);
      cost_ = item->SalesCost();
      costIsPercent_ = item->SalesCostIsPercent();
      description_ = item->SalesDescription();
      quantity_ = Currency();
      SetSalesTaxCode(item->SalesTaxCode());
      break;
    case qbItemPayment:
      if (payables || ownerType_ == qoObjectTypeEstimate) detail::FailLine(err::kUnsupportedItemType);
      break;
    case qbItemSalesTax:
    case qbItemSalesTaxGroup: {
      if (payables) detail::FailLine(err::kUnsupportedItemType);
      // A group is asked about by its tax code text, a single tax item by its name.
      const bool group = item->ItemType() == qbItemSalesTaxGroup;
      if (eventSink_) eventSink_->SetDisabled(false);
      if (!TaxItemAllowed(group ? item->SalesTaxCode() : item->FullName())) detail::FailLine(err::kTaxItemInHeader);
      auto tax = std::dynamic_pointer_cast<qcItemTax>(item);
      description_ = item->SalesDescription();
      cost_ = tax ? tax->TaxRate() : Currency();
      costIsPercent_ = true;
      quantity_ = Currency(1);
      if (eventSink_) eventSink_->SetDisabled(true);
      break;
    }
    default:
      break;
  }
}

bool txnItemLine::TaxItemAllowed(std::string text) {
  if (text.empty()) return true;
  if (eventSink_) eventSink_->Raise(qoEventItemTaxCodeQuery, text);
  return !text.empty();  // the owner refuses by clearing the text
}

void txnItemLine::ExpandGroup(const std::shared_ptr<qcItem>& item) {
  quantity_ = Currency(1);
  isGroup_ = true;
  classRef_ = detail::NewRef(qoListClasses);
  customerRef_ = detail::NewRef(qoListCustomers);
  markupIsPercent_ = true;
  markup_ = Currency();
  amount_ = Currency();
  auto group = std::dynamic_pointer_cast<ItemGroup>(item);
  if (!group || !group->GroupLines()) return;
  const bool payables = IsPayablesOwner();
  // Members resolve their tax codes against the document's header, as the head does.
  groupLines_->ownerTaxCodeRef_ = ownerTaxCodeRef_;
  groupLines_->SetIsAddingGroup(true);
  for (const auto& member : *group->GroupLines()) {
    description_ = payables ? item->PurchaseDescription() : item->SalesDescription();
    auto line = groupLines_->Add(member->Item(), quantity_ * member->Quantity());
    if (line) line->SetGroupBaseQuantity(member->Quantity());
  }
  groupLines_->SetIsAddingGroup(false);
}

}  // namespace tessaron
