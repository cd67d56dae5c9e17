// Cell-by-cell editing of a line for a grid: which cells may change, how each shows, and
// how a typed text goes in.
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/lists/qc_item.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/detail/line_rules.h"
#include "tessaron/transactions/txn_item_line.h"

namespace tessaron {

namespace {

// Quantities show up to five decimals with thousands separators, without a bare point.
std::string QuantityDisplay(Currency q) {
  std::string text = FormatCurrency(q, "#,###,###.#####");
  if (!text.empty() && text.back() == '.') text.pop_back();
  return text;
}

std::string PercentDisplay(Currency v) { return FormatCurrency(v, "0.00") + "%"; }

}  // namespace

bool txnItemLine::FieldCanBeUpdated(qoEnumFldTxn iFld) const {
  // Before qbXML 2.1 QuickBooks cannot change the lines of a stored document.
  if (State().QBXMLVersionNumber < Currency::FromRaw(21000) && objectState_ != qoObjectStateNew) return false;
  if (Item().empty()) return true;
  const qbEnumItemType type = ItemTypeOfLine();
  switch (iFld) {
    case qoFldTxnItem:
    case qoFldTxnDescription:
      return !IsGroupMemberLine();
    case qoFldTxnQuantity:
      if (detail::TypeIn(type, {qbItemService, qbItemOtherCharge, qbItemNonInventory})) {
        auto item = ItemObject();
        return !(item && item->SalesCostIsPercent());
      }
      return detail::TypeIn(type, {qbItemAssembly, qbItemGroup, qbItemInventory});
    case qoFldTxnCost:
      return detail::TypeIn(type, {qbItemAssembly, qbItemService, qbItemOtherCharge, qbItemNonInventory, qbItemDiscount,
                     qbItemInventory});
    case qoFldTxnServiceDate:
    case qoFldTxnClass:
      return type != qbItemSubtotal && !IsGroupMemberLine();
    case qoFldTxnAmount:
      return type != qbItemSubtotal && !isGroup_;
    case qoFldTxnTax:
      return !detail::TypeIn(type, {qbItemGroup, qbItemSubtotal, qbItemSalesTaxGroup, qbItemSalesTax, qbItemPayment});
    case qoFldTxnMarkup:
      return ownerType_ == qoObjectTypeEstimate &&
             detail::TypeIn(type, {qbItemAssembly, qbItemService, qbItemOtherCharge, qbItemNonInventory, qbItemInventory,
                     qbItemEmpty});
    case qoFldTxnCustomer:
      return detail::IsPayablesType(ownerType_);
  }
  return false;
}

std::string txnItemLine::FieldDisplayString(qoEnumFldTxn iFld) const {
  const qbEnumItemType type = ItemTypeOfLine();
  const bool emptyLine = type == qbItemEmpty;
  switch (iFld) {
    case qoFldTxnItem: {
      auto item = ItemObject();
      return item ? item->FullName() : Item();
    }
    case qoFldTxnQuantity:
      if (type == qbItemService || type == qbItemOtherCharge || type == qbItemNonInventory)
        return quantityWasSet_ && !costIsPercent_ ? QuantityDisplay(quantity_) : std::string();
      if (type == qbItemAssembly || type == qbItemGroup || type == qbItemInventory ||
          (emptyLine && quantity_ != Currency(1)))
        return quantityWasSet_ ? QuantityDisplay(quantity_) : std::string();
      if (quantityWasSet_) return quantity_.ToString();
      return quantity_ == Currency() || quantity_ == Currency(1) ? std::string() : QuantityDisplay(quantity_);
    case qoFldTxnDescription:
      return description_;
    case qoFldTxnCost:
      if (costIsPercent_) return PercentDisplay(cost_);
      if (type == qbItemSubtotal || type == qbItemGroup || type == qbItemPayment || (emptyLine && cost_ == Currency()))
        return {};
      return AmountToDisplayText(cost_);
    case qoFldTxnServiceDate:
      if (type == qbItemSubtotal || serviceDate_ == 0) return {};
      return FormatDate(serviceDate_, "mm/dd/yyyy");
    case qoFldTxnClass:
      return type == qbItemGroup || type == qbItemSubtotal ? std::string() : Class();
    case qoFldTxnAmount:
      return emptyLine && amount_ == Currency() ? std::string() : AmountToDisplayText(amount_);
    case qoFldTxnTax:
      if (emptyLine || type == qbItemSalesTaxGroup || type == qbItemSalesTax || type == qbItemPayment ||
          type == qbItemSubtotal)
        return {};
      return SalesTaxCode();
    case qoFldTxnMarkup:
      if (markupIsPercent_) return PercentDisplay(markup_);
      if (type == qbItemSalesTaxGroup || type == qbItemSalesTax || type == qbItemSubtotal || type == qbItemGroup ||
          (emptyLine && cost_ == Currency()))
        return {};
      return FormatCurrency(markup_, "0.00");
    case qoFldTxnCustomer:
      return Customer();
  }
  return {};
}

Variant txnItemLine::FieldUpdate(qoEnumFldTxn iFld, const std::string& sData) {
  if (!FieldCanBeUpdated(iFld)) return Variant(false);
  const bool percent = !sData.empty() && sData.back() == '%';
  switch (iFld) {
    case qoFldTxnItem:
      SetItem(sData);
      break;
    case qoFldTxnDescription:
      SetDescription(sData);
      break;
    case qoFldTxnClass:
      SetClass(sData);
      break;
    case qoFldTxnTax:
      SetSalesTaxCode(sData);
      break;
    case qoFldTxnCustomer:
      SetCustomer(sData);
      break;
    case qoFldTxnQuantity:
      if (sData.empty()) {
        SetQuantity(Currency(1));
        quantityWasSet_ = false;  // an emptied cell is not the caller's quantity
      } else {
        SetQuantity(detail::NumberOf(sData));
      }
      break;
    case qoFldTxnCost: {
      SetCostIsPercent(percent);
      const Currency value = detail::NumberOf(sData);
      if (value == Currency()) amount_ = Currency();
      SetCost(value);
      break;
    }
    case qoFldTxnServiceDate: {
      Date d = 0;
      if (!sData.empty() && !TryParseDate(sData, d))
        throw Error(err::kInvalidDateFormat, "Tessaron:txnItemLine", err::kInvalidDateFormatText);
      SetServiceDate(d);
      break;
    }
    case qoFldTxnAmount: {
      Currency value;
      const bool numeric = Currency::TryParse(sData, value);
      if (ItemTypeOfLine() == qbItemDiscount) {
        cost_ = value < Currency() ? -value : value;
        costIsPercent_ = false;
      }
      if ((sData.empty() || !numeric) && quantity_ != Currency()) cost_ = Currency();
      SetAmount(numeric ? value : Currency());
      break;
    }
    case qoFldTxnMarkup:
      if (percent) SetMarkupIsPercent(true);
      SetMarkup(detail::NumberOf(sData));
      break;
  }
  return Variant(true);
}

}  // namespace tessaron
