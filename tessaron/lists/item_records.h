// The records that hang off an item: the money side of an item that is bought or sold
// (itemSalesOrPurchase: one description, one price, one account) or both bought and sold
// (itemSalesAndPurchase), and the lines of a group (itemGroupLines of itemGroupLine: an
// item and a quantity). Each keeps a state of its own, like an address: changing it on a
// stored item turns the record Dirty while the item stays Clean, and the item's commit
// still sends a modify for it.
//
// References inside these records are written ListID first, then FullName.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class qcErrors;
class xmlBldr;

// What the two money records share: state, Errors, UserData.
class ItemSubRecord {
 public:
  qoEnumObjectState ObjectState() const { return state_; }
  std::shared_ptr<qcErrors> Errors();
  const Variant& UserData() const { return userData_; }
  void SetUserData(const Variant& value) { userData_ = value; }

  // Library-internal.
  void SetObjectState(qoEnumObjectState state) { state_ = state; }

 protected:
  // The guard of every setter: a stored record turns Dirty.
  void Touch() {
    if (state_ != qoObjectStateNew) state_ = qoObjectStateDirty;
  }
  // Clears Errors; true when the record is Clean and so needs no check.
  bool StartValidate();
  // Adds `code` under `field` unless the account or vendor resolves.
  void RequireRef(qcListObjectRef& ref, uint32_t code, const char* field, const char* message);

 private:
  std::shared_ptr<qcErrors> errors_;
  Variant userData_;
  qoEnumObjectState state_ = qoObjectStateNew;
};

class itemSalesOrPurchase final : public ItemSubRecord {
 public:
  itemSalesOrPurchase();

  const std::string& Description() const { return description_; }
  void SetDescription(const std::string& value) { Touch(); description_ = value; }
  // A price, or a percentage when AmountIsPercent.
  Currency Amount() const { return amount_; }
  void SetAmount(Currency value) { Touch(); amount_ = value; }
  bool AmountIsPercent() const { return amountIsPercent_; }
  void SetAmountIsPercent(bool value) { Touch(); amountIsPercent_ = value; }
  // The account by full name.
  const std::string& Account() const { return account_->FullName(); }
  void SetAccount(const std::string& value) { Touch(); detail::ListObjectAccess::SetFullName(*account_, value); }
  const std::shared_ptr<qcListObjectRef>& AccountRef() const { return account_; }

  // The account must resolve: 0x800403F6, field "Account". A Clean record passes.
  bool Validate();

  // Library-internal.
  void FromDom(const XmlNode& node);
  // "SalesOrPurchase" with Desc when set, the price and the account.
  void WriteAdd(xmlBldr& b) const;
  // "SalesOrPurchaseMod" with Desc when set and the price: the account cannot change.
  void WriteMod(xmlBldr& b) const;

 private:
  void WritePrice(xmlBldr& b) const;

  std::string description_;
  Currency amount_;
  bool amountIsPercent_ = false;
  std::shared_ptr<qcListObjectRef> account_;
};

class itemSalesAndPurchase final : public ItemSubRecord {
 public:
  itemSalesAndPurchase();

  const std::string& SalesDescription() const { return salesDescription_; }
  void SetSalesDescription(const std::string& value) { Touch(); salesDescription_ = value; }
  Currency SalesPrice() const { return salesPrice_; }
  void SetSalesPrice(Currency value) { Touch(); salesPrice_ = value; }
  const std::string& PurchaseDescription() const { return purchaseDescription_; }
  void SetPurchaseDescription(const std::string& value) { Touch(); purchaseDescription_ = value; }
  Currency PurchaseCost() const { return purchaseCost_; }
  void SetPurchaseCost(Currency value) { Touch(); purchaseCost_ = value; }
  const std::string& IncomeAccount() const { return incomeAccount_->FullName(); }
  void SetIncomeAccount(const std::string& value) { Touch(); detail::ListObjectAccess::SetFullName(*incomeAccount_, value); }
  const std::string& ExpenseAccount() const { return expenseAccount_->FullName(); }
  void SetExpenseAccount(const std::string& value) { Touch(); detail::ListObjectAccess::SetFullName(*expenseAccount_, value); }
  // The preferred vendor by full name.
  const std::string& Vendor() const { return vendor_->FullName(); }
  void SetVendor(const std::string& value) { Touch(); detail::ListObjectAccess::SetFullName(*vendor_, value); }

  // Both accounts must resolve (0x800403F6, fields "IncomeAccount", "ExpenseAccount"), and
  // the vendor when set (0x800403F8, "Vendor"). A Clean record passes.
  bool Validate();

  // Library-internal.
  void FromDom(const XmlNode& node);
  void WriteAdd(xmlBldr& b) const;
  // "SalesAndPurchaseMod": the descriptions, price and cost, and the vendor; the accounts
  // cannot change.
  void WriteMod(xmlBldr& b) const;

 private:
  std::string salesDescription_;
  Currency salesPrice_;
  std::string purchaseDescription_;
  Currency purchaseCost_;
  std::shared_ptr<qcListObjectRef> incomeAccount_;
  std::shared_ptr<qcListObjectRef> expenseAccount_;
  std::shared_ptr<qcListObjectRef> vendor_;
};

// One line of a group: an item of the item list and its quantity.
class itemGroupLine {
 public:
  itemGroupLine();

  // The item by full name.
  const std::string& Item() const { return itemRef_->FullName(); }
  void SetItem(const std::string& value) { changed_ = true; detail::ListObjectAccess::SetFullName(*itemRef_, value); }
  const std::shared_ptr<qcListObjectRef>& ItemRef() const { return itemRef_; }
  Currency Quantity() const { return quantity_; }
  void SetQuantity(Currency value) { changed_ = true; quantity_ = value; }

  // Library-internal: whether a setter ran since the line was read or sent.
  bool Changed() const { return changed_; }
  void SetChanged(bool value) { changed_ = value; }

 private:
  std::shared_ptr<qcListObjectRef> itemRef_;
  Currency quantity_ = Currency(1);
  bool changed_ = false;
};

// The lines of a group, in order; positions count from 1.
class itemGroupLines {
 public:
  std::shared_ptr<itemGroupLine> Add(const std::string& ItemFullName, Currency Quantity = Currency(1),
                                     const std::string& ItemListID = "");
  std::shared_ptr<itemGroupLine> Item(long position) const { return lines_.at(static_cast<size_t>(position - 1)); }
  long Count() const { return static_cast<long>(lines_.size()); }
  void Remove(long position);
  void Clear();
  auto begin() const { return lines_.begin(); }
  auto end() const { return lines_.end(); }

  // Library-internal: whether lines were added, removed or changed since the last read or
  // send (a stored group then has to send them).
  bool Changed() const;
  void SetChanged(bool value);
  // Called when the owner starts reading a record: the lines it holds give way to those of
  // the record, if it has any.
  void BeginRead() { replaceOnRead_ = true; }
  // Reads one line aggregate: the reference under `refTag`, and Quantity.
  void ReadLine(const XmlNode& node, const char* refTag);
  // Reads a reference that is a whole line (quantity 1).
  void ReadRefLine(const XmlNode& node);
  // "item x quantity, ...", for listings.
  std::string Text() const;
  // One aggregate `lineTag` per line with the item under `refTag` (by full name) and the quantity.
  void Write(xmlBldr& b, const char* lineTag, const char* refTag) const;

 private:
  void Append(const std::shared_ptr<itemGroupLine>& line);

  std::vector<std::shared_ptr<itemGroupLine>> lines_;
  bool changed_ = false;
  bool replaceOnRead_ = false;
};

// Writes a reference ListID first, else FullName, else nothing.
void WriteRefByListID(const qcListObjectRef& ref, xmlBldr& b, const std::string& tag);

}  // namespace tessaron
