#include "tessaron/transactions/txn_item_lines.h"

#include "tessaron/events/qc_event_sink.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/lists/qc_item.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/detail/line_checks.h"
#include "tessaron/transactions/detail/line_rules.h"

namespace tessaron {

namespace {

constexpr const char* kClass = "txnItemLines";

}  // namespace

txnItemLines::txnItemLines() = default;

qoEnumObjectState txnItemLines::ObjectState() const {
  if (objectState_ != qoObjectStateClean) return objectState_;
  for (const auto& line : col_)
    if (line->ObjectState() != qoObjectStateClean) return qoObjectStateDirty;
  return objectState_;
}

std::shared_ptr<qcErrors> txnItemLines::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

void txnItemLines::MarkModified(bool checkAllowed) { detail::MarkLineModified(objectState_, checkAllowed, kClass); }

void txnItemLines::CheckGroupList() const {
  if (isGroupMemberList_ && !isAddingGroup_)
    throw Error(err::kGroupLineChange, "Tessaron:txnItemLines", err::kGroupLineChangeText);
}

bool txnItemLines::IsSalesOwner() const { return detail::IsSalesOwner(ownerType_, kClass, false); }

// ---- Adding and removing -----------------------------------------------------------------

std::shared_ptr<txnItemLine> txnItemLines::Add(const std::string& Item, Currency Quantity,
                                               const std::string& Description, const std::string& Class,
                                               const std::string& Customer, Date ServiceDate, long BeforeIndex) {
  CheckGroupList();
  MarkModified(false);
  Errors()->Clear();
  auto line = std::make_shared<txnItemLine>();
  line->SetOwnerType(ownerType_);
  line->SetIsGroup(isGroupMemberList_);
  line->SetOwnerTaxCode(ownerTaxCodeRef_);
  line->SetEventSink(eventSink_);
  line->SetIsAddingLine(isAddingGroup_);
  if (!Class.empty()) line->SetClass(Class);
  if (!Customer.empty()) line->SetCustomer(Customer);
  if (Quantity != Currency()) line->SetQuantity(Quantity);
  if (!Item.empty()) line->SetItem(Item);
  if (ServiceDate != 0) line->SetServiceDate(ServiceDate);
  if (!Description.empty()) line->SetDescription(Description);
  line->SetIsAddingLine(false);
  if (!line->Validate()) return nullptr;

  if (BeforeIndex != 0) detail::InsertBefore(col_, line, BeforeIndex);
  else col_.Add(line);
  if (!isAddingGroup_ && eventSink_) eventSink_->Raise(qoEventAmountChange);
  return line;
}

bool txnItemLines::ItemExists(const Variant& vntIndexKey) const {
  try {
    (void)const_cast<Collection<std::shared_ptr<txnItemLine>>&>(col_).Item(vntIndexKey);
    return true;
  } catch (const Error&) {
    return false;
  }
}

std::shared_ptr<txnItemLine> txnItemLines::Item(const Variant& vntIndexKey) const {
  return const_cast<Collection<std::shared_ptr<txnItemLine>>&>(col_).Item(vntIndexKey);
}

void txnItemLines::Clear() {
  MarkModified(true);
  col_ = Collection<std::shared_ptr<txnItemLine>>();
}

void txnItemLines::Remove(const Variant& vntIndexKey) {
  MarkModified(true);
  CheckGroupList();
  col_.Remove(vntIndexKey);
  if (eventSink_) eventSink_->Raise(qoEventAmountChange);
}

// ---- Wiring ------------------------------------------------------------------------------

void txnItemLines::SetOwnerTaxCode(const std::shared_ptr<qcListObjectRef>& ref) {
  ownerTaxCodeRef_ = ref;
  for (const auto& line : col_) line->SetOwnerTaxCode(ref);
}

void txnItemLines::SetEventSink(const std::shared_ptr<qcEventSink>& sink) {
  eventSink_ = sink;
  for (const auto& line : col_) line->SetEventSink(sink);
}

void txnItemLines::SetOwnerType(qoEnumListObjectType value) {
  ownerType_ = value;
  for (const auto& line : col_) line->SetOwnerType(value);
}

std::shared_ptr<txnItemLine> txnItemLines::ReadLine(const XmlNode& node, bool isGroup) {
  auto line = std::make_shared<txnItemLine>();
  line->SetOwnerType(ownerType_);
  line->SetIsGroup(isGroup);
  if (!isGroupMemberList_) line->SetEventSink(eventSink_);
  line->ownerTaxCodeRef_ = ownerTaxCodeRef_;  // kept, not resolved: the answer names the line's code
  line->FromDom(node);
  objectState_ = qoObjectStateClean;
  col_.Add(line);
  return line;
}

void txnItemLines::WriteLines(xmlBldr& builder, bool isRet, bool isMod) {
  long position = 1;
  for (const auto& line : col_) {
    line->SetLineKey(std::to_string(position++));
    line->WriteLine(builder, isRet, isMod);
  }
}

// ---- The document total --------------------------------------------------------------------

Currency txnItemLines::Total() {
  Currency total, taxable, lastTaxable, lastAmount;
  const Currency hundred(100);
  auto countTaxable = [&](const txnItemLine& line) {
    if (line.IsTaxable()) {
      taxable += line.Amount();
      lastTaxable = line.Amount();
    } else {
      lastTaxable = Currency();
    }
  };
  for (const auto& line : col_) {
    auto item = line->ItemObject();
    if (!item) continue;
    switch (item->ItemType()) {
      case qbItemService:
      case qbItemNonInventory:
      case qbItemOtherCharge:
        // Only a percent item asks which side the owner is on.
        if (item->SalesCostIsPercent() && IsSalesOwner())
          line->SetAmountInternal(lastAmount * line->Cost() / hundred);
        [[fallthrough]];
      case qbItemInventory:
      case qbItemAssembly:
      case qbItemFixedAsset:
        lastAmount = line->Amount();
        total += line->Amount();
        countTaxable(*line);
        break;
      case qbItemSubtotal:
        line->SetAmountInternal(total);
        lastAmount = total;
        lastTaxable = total;
        break;
      case qbItemGroup:
        lastAmount = Currency();
        for (const auto& member : *line->GroupLines()) {
          const qbEnumItemType t = member->ItemTypeOfLine();
          if (t == qbItemService || t == qbItemInventory || t == qbItemNonInventory || t == qbItemOtherCharge) {
            member->SetAmountInternal(member->Quantity() * member->Cost());
            lastAmount += member->Amount();
            if (member->IsTaxable()) taxable += member->Amount();
          } else if (t == qbItemSubtotal) {
            member->SetAmountInternal(lastAmount);
          }
          lastTaxable = member->IsTaxable() ? member->Amount() : Currency();
        }
        line->SetAmountInternal(lastAmount);
        total += lastAmount;
        break;
      case qbItemDiscount:
        lastAmount = line->CostIsPercent() ? -(lastAmount * line->Cost()) / hundred : -line->Cost();
        line->SetAmountInternal(lastAmount);
        if (line->IsTaxable()) {
          taxable += lastAmount;
          // The discount is negative, so the base of a tax line below grows: kept as it is.
          lastTaxable = lastTaxable - lastAmount;
        }
        total += lastAmount;
        break;
      case qbItemPayment:
        lastAmount = -line->Amount();
        total += lastAmount;
        break;
      case qbItemSalesTax:
        if (line->CostIsPercent()) {
          auto tax = std::dynamic_pointer_cast<qcItemTax>(item);
          line->SetAmountInternal(lastTaxable * ((tax ? tax->TaxRate() : Currency()) / hundred));
          lastAmount = line->Amount();
        } else {
          total = line->Amount();  // a fixed tax line replaces the running total: kept as it is
        }
        total += lastAmount;
        break;
      case qbItemSalesTaxGroup: {
        auto tax = std::dynamic_pointer_cast<qcItemTax>(item);
        line->SetAmountInternal(tax ? tax->CalculateTax(lastTaxable) : Currency());
        lastAmount = line->Amount();
        total += lastAmount;
        break;
      }
      default:
        RaiseInternal(kClass, "Unknown item type");
    }
  }
  total_ = total;
  taxableTotal_ = taxable;
  return total_;
}

}  // namespace tessaron
