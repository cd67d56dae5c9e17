// txnItemLine: one item line of a document that has item lines: the sales documents
// (Invoice, SalesReceipt, CreditMemo, Estimate, SalesOrder), PurchaseOrder, and the payables
// (Bill, Check, VendorCredit, CreditCardCharge, CreditCardCredit, ItemReceipt).
//
// The line knows its owner only by the owner's object type number. It does the per-line
// arithmetic (quantity x rate = amount, or back from the amount), takes prices and texts
// from the item when the item is set, expands an item group into member lines, decides its
// tax code from the item's and the header's, and writes itself in the dialect of its owner.
// Every change that moves an amount reaches the owner through the owner's qcEventSink.
//
// Lines are made by txnItemLines::Add (or read from an answer); the owner wires them to
// itself through detail::TxnAccess.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

namespace detail {
class TxnAccess;
}
class DataExtensions;
class ItemInventory;
class qcErrors;
class qcEventSink;
class qcItem;
class qcListObjectRef;
class txnItemLines;
class xmlBldr;

class txnItemLine {
 public:
  // Quantity 1; on a product that is not a United States edition also a TaxCodeRef.
  txnItemLine();
  ~txnItemLine();
  txnItemLine(const txnItemLine&) = delete;
  txnItemLine& operator=(const txnItemLine&) = delete;

  // The custom fields of the line (owner "0"), read with the document when the query asks
  // for data extensions and saved by the document's CommitCustomFields. QuickBooks keeps
  // no application fields on lines: an answer's are dropped.
  std::shared_ptr<DataExtensions> CustomFields();

  // The line of another transaction this one is linked to (payables only send it).
  const std::string& LinkedTxnId() const { return linkedTxnId_; }
  void SetLinkedTxnId(const std::string& value);
  const std::string& LinkedTxnLineId() const { return linkedTxnLineId_; }
  void SetLinkedTxnLineId(const std::string& value);
  // Kept for the application, never sent; setting them changes nothing else.
  const std::string& Other1() const { return other1_; }
  void SetOther1(const std::string& value) { other1_ = value; }
  const std::string& Other2() const { return other2_; }
  void SetOther2(const std::string& value) { other2_ = value; }
  // Payables only (Bill, VendorCredit, CreditCardCharge, CreditCardCredit), qbXML 2.0 on.
  qbEnumBillableStatus BillableStatus() const;
  void SetBillableStatus(qbEnumBillableStatus value);

  // Empty on a line QuickBooks has not stored yet.
  const std::string& TxnLineId() const { return txnLineId_; }
  const Variant& UserData() const { return userData_; }
  void SetUserData(const Variant& value) { userData_ = value; }

  qoEnumObjectState ObjectState() const { return objectState_; }
  // The item behind Item; null when there is none or it is not on file.
  std::shared_ptr<qcItem> ItemObject() const;
  std::shared_ptr<qcErrors> Errors();
  // True on the head line of a group and on its member lines.
  bool IsGroup() const { return isGroup_; }

  // The rate is a percentage (of the line above on a sales document).
  bool CostIsPercent() const { return costIsPercent_; }
  void SetCostIsPercent(bool value);
  Currency Amount() const { return amount_; }
  // Also sets Cost (Amount / Quantity when the quantity is neither 0 nor 1, else Amount).
  void SetAmount(Currency value);
  const std::string& Description() const { return description_; }
  void SetDescription(const std::string& value);
  Currency Quantity() const { return quantity_; }
  // On a group head line the members follow (member quantity x this quantity).
  void SetQuantity(Currency value);
  // The unit rate, or a percentage with CostIsPercent.
  Currency Cost() const { return cost_; }
  void SetCost(Currency value);
  const std::string& Class() const;
  void SetClass(const std::string& value);
  // Payables only; the name must be a customer on file.
  const std::string& Customer() const;
  void SetCustomer(const std::string& value);
  // The item's full name. Setting it takes prices and texts from the item and expands a group.
  const std::string& Item() const;
  void SetItem(const std::string& value);
  Date ServiceDate() const { return serviceDate_; }
  void SetServiceDate(Date value);
  // PurchaseOrder: what has been received so far.
  Currency ReceivedQuantity() const { return receivedQuantity_; }

  // Sales documents; the name must be a sales tax code on file (empty clears).
  const std::string& SalesTaxCode() const;
  void SetSalesTaxCode(const std::string& value);
  // Estimate only.
  bool MarkupIsPercent() const { return markupIsPercent_; }
  void SetMarkupIsPercent(bool value);
  Currency Markup() const { return markup_; }
  void SetMarkup(Currency value);

  bool PrintItemsInGroup() const { return printItemsInGroup_; }
  // The member lines of a group head line (empty otherwise).
  const std::shared_ptr<txnItemLines>& GroupLines() const { return groupLines_; }
  // From the sales tax code, when it was set.
  bool IsTaxable() const { return isTaxable_; }

  // SalesOrder only.
  Currency Invoiced() const { return invoiced_; }
  void SetInvoiced(Currency value);
  // SalesOrder only: any non-zero value closes the line; reads back as 1 or 0.
  Currency IsManuallyClosed() const { return isManuallyClosed_ ? Currency(1) : Currency(); }
  void SetIsManuallyClosed(Currency value);

  // A member line of a group (not its head).
  bool IsGroupMemberLine() const;
  // Cell-by-cell editing for a grid.
  bool FieldCanBeUpdated(qoEnumFldTxn iFld) const;
  std::string FieldDisplayString(qoEnumFldTxn iFld) const;
  // A Boolean Variant: false when the cell cannot be changed (nothing changes then).
  Variant FieldUpdate(qoEnumFldTxn iFld, const std::string& sData);

  // The tax code of a product outside the United States (TaxCodeRef); empty otherwise.
  const std::string& TaxCode() const;

  // Event InsuficientQuantity(InventoryItem): the quantity of a sales line exceeds the
  // stock on hand less what sales orders hold. The number returned removes the listener.
  using InsuficientQuantityHandler = std::function<void(const std::shared_ptr<ItemInventory>& InventoryItem)>;
  size_t OnInsuficientQuantity(InsuficientQuantityHandler handler);
  void RemoveInsuficientQuantityHandler(size_t id);

 private:
  friend class detail::TxnAccess;
  friend class txnItemLines;

  // ---- Library-internal, through detail::TxnAccess ----
  void SetOwnerType(qoEnumListObjectType value);
  // False also clears GroupLines.
  void SetIsGroup(bool value);
  void SetEventSink(const std::shared_ptr<qcEventSink>& sink);
  // The header's tax code, shared; resolves the line's code and passes it on to members.
  void SetOwnerTaxCode(const std::shared_ptr<qcListObjectRef>& ref);
  void SetLineKey(const std::string& key) { lineKey_ = key; }
  void SetObjectState(qoEnumObjectState state) { objectState_ = state; }
  void SetIsAddingLine(bool value) { isAddingLine_ = value; }
  // Stores Amount only: no arithmetic, no event.
  void SetAmountInternal(Currency value) { amount_ = value; }
  void SetGroupBaseQuantity(Currency value) { groupBaseQuantity_ = value; }
  // Member quantity for `groupQuantity` groups: GroupBaseQuantity x groupQuantity.
  void SetQuantityFromGroup(Currency groupQuantity);
  void RecalculateLine();
  void ResolveLineTaxCode();
  void ApplyMarkupDefaults();
  void CheckInventory();
  void FromDom(const XmlNode& node);
  void WriteLine(xmlBldr& builder, bool isRet, bool isMod);
  bool Validate();
  void CheckNotInGroup() const;
  // Raises 0x800407D8 unless OwnerType is one of the numbers (0 = unused slot).
  void CheckOwnerTypeIn(std::initializer_list<int32_t> types) const;
  qbEnumItemType ItemTypeOfLine() const;
  bool ItemTypeIn(std::initializer_list<qbEnumItemType> types) const;

  // Read-only views the owner's writers and the tests use.
  bool QuantityWasSet() const { return quantityWasSet_; }
  Currency GroupBaseQuantity() const { return groupBaseQuantity_; }
  const std::string& LineKey() const { return lineKey_; }
  qoEnumListObjectType OwnerType() const { return ownerType_; }

  // ---- Helpers ----
  void MarkModified(bool checkAllowed);
  void RaiseAmountChange();
  bool IsSalesOwner() const;
  bool IsPayablesOwner() const;
  void PullFromItem(const std::shared_ptr<qcItem>& item);
  void ExpandGroup(const std::shared_ptr<qcItem>& item);
  bool TaxItemAllowed(std::string text);
  void WritePlain(xmlBldr& b, bool isRet, bool isMod);
  void WriteGroupHead(xmlBldr& b, bool isRet, bool isMod);
  std::string ElementBase() const;

  std::string txnLineId_;
  std::string description_;
  Currency quantity_ = Currency(1);
  bool quantityWasSet_ = false;
  Currency cost_;
  bool costIsPercent_ = false;
  Currency amount_;
  bool printItemsInGroup_ = false;
  Date serviceDate_ = 0;
  Currency receivedQuantity_;
  bool isTaxable_ = false;
  Currency groupBaseQuantity_;
  bool isAddingLine_ = false;
  Currency markup_;
  bool markupIsPercent_ = false;
  Currency invoiced_;
  std::shared_ptr<qcListObjectRef> classRef_;
  std::shared_ptr<qcListObjectRef> customerRef_;
  std::shared_ptr<qcListObjectRef> itemRef_;
  std::shared_ptr<qcListObjectRef> salesTaxCodeRef_;
  bool isManuallyClosed_ = false;
  std::string other1_;
  std::string other2_;
  std::shared_ptr<qcErrors> errors_;
  std::shared_ptr<DataExtensions> customFields_;
  qoEnumObjectState objectState_ = qoObjectStateNew;
  bool isGroup_ = false;
  std::shared_ptr<txnItemLines> groupLines_;
  qoEnumListObjectType ownerType_ = static_cast<qoEnumListObjectType>(0);
  Variant userData_;
  std::string lineKey_;
  std::shared_ptr<qcEventSink> eventSink_;
  std::shared_ptr<qcListObjectRef> ownerTaxCodeRef_;
  qbEnumBillableStatus billableStatus_ = static_cast<qbEnumBillableStatus>(0);
  std::string linkedTxnId_;
  std::string linkedTxnLineId_;
  std::shared_ptr<qcListObjectRef> taxCodeRef_;
  struct QuantityListener {
    size_t id;
    InsuficientQuantityHandler handler;
  };
  std::vector<QuantityListener> quantityListeners_;
  size_t nextListenerId_ = 1;
};

}  // namespace tessaron
