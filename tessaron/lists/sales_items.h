// The items without stock that a sales form charges for: services, non-inventory parts,
// other charges (each with a money side, itemSalesOrPurchase or itemSalesAndPurchase),
// discounts, payments and subtotals. Which fields a stored item still takes differs per
// class: ItemNonInventory.SetIsActive turns a stored item Dirty, while ItemOtherCharge takes
// its active flag, tax code and kind of money record only until its first commit.
#pragma once

#include <memory>
#include <string>

#include "tessaron/lists/item_object.h"
#include "tessaron/lists/item_records.h"

namespace tessaron {

// What services, non-inventory parts and other charges share.
class SalesItem : public ItemObject {
 public:
  // Which money record counts: SalesAndPurchase when true, SalesOrPurchase when false.
  bool HasSalesAndPurchase() const override { return hasSalesAndPurchase_; }
  const std::shared_ptr<itemSalesOrPurchase>& SalesOrPurchase() const { return salesOrPurchase_; }
  const std::shared_ptr<itemSalesAndPurchase>& SalesAndPurchase() const { return salesAndPurchase_; }
  std::string SalesTaxCode() const override { return salesTaxCode_->FullName(); }
  void SetSalesTaxCode(const std::string& value) { StoreRef(salesTaxCode_, value, guards_.salesTaxCode); }

  // With SalesAndPurchase, its sales and purchase sides; with SalesOrPurchase, its one
  // description and price on both sides.
  std::string SalesDescription() const override;
  std::string PurchaseDescription() const override;
  bool SalesCostIsPercent() const override;
  bool PurchaseCostIsPercent() const override;
  Currency SalesCost() const override;
  Currency PurchaseCost() const override;
  // True when the item is bought into an expense account of its own (SalesAndPurchase).
  bool ContainsExpenseAccount() const override;


 private:
  // Library-internal, through detail::ListObjectAccess.
  friend class detail::ListObjectAccess;
  void SetHasSalesAndPurchaseInternal(bool value) { hasSalesAndPurchase_ = value; }
  void ResetToNew() override;
  // A Clean item is still sent when its money record changed.
  bool ModifyWhileClean() override;

 protected:
  // The flag each setter passes to the field rule (true: only while New).
  struct Guards {
    bool isActive;
    bool salesTaxCode;
    bool hasSalesAndPurchase;
  };
  SalesItem(const ListClassInfo& info, qbEnumItemType type, Guards guards);
  static ListClassInfo SalesItemClass(const char* className, qoEnumListObjectType objectType);
  void AfterFromDom() override;

  void SetIsActiveGuarded(bool value) { Store(isActive_, value, guards_.isActive); }
  void SetHasSalesAndPurchaseGuarded(bool value) { Store(hasSalesAndPurchase_, value, guards_.hasSalesAndPurchase); }

 private:
  Guards guards_;
  std::shared_ptr<qcListObjectRef> salesTaxCode_;
  bool hasSalesAndPurchase_ = false;
  std::shared_ptr<itemSalesOrPurchase> salesOrPurchase_;
  std::shared_ptr<itemSalesAndPurchase> salesAndPurchase_;
};

class ItemService final : public SalesItem {
 public:
  ItemService();
};

class ItemNonInventory final : public SalesItem {
 public:
  ItemNonInventory();
  // Turns a stored item Dirty.
  void SetIsActive(bool value) { SetIsActiveGuarded(value); }
};

class ItemOtherCharge final : public SalesItem {
 public:
  ItemOtherCharge();
  // These three can be written only until the item was first committed.
  void SetIsActive(bool value) { SetIsActiveGuarded(value); }
  void SetHasSalesAndPurchase(bool value) { SetHasSalesAndPurchaseGuarded(value); }
};

// A discount: an amount or a percentage off. QuickBooks has no modify for it here: a
// changed discount raises "Modify not allowed" when committed.
class ItemDiscount final : public ItemObject {
 public:
  ItemDiscount();

  const std::string& Account() const { return account_->FullName(); }
  void SetAccount(const std::string& value) { StoreRef(account_, value, true); }
  std::string SalesTaxCode() const override { return salesTaxCode_->FullName(); }
  void SetSalesTaxCode(const std::string& value) { StoreRef(salesTaxCode_, value, true); }
  const std::string& Description() const { return description_; }
  void SetDescription(const std::string& value) { Store(description_, value, false); }
  // The rate; an amount of 0 sends no rate at all. Neither setter touches the state.
  Currency Amount() const { return amount_; }
  void SetAmount(Currency value) { amount_ = value; }
  // A discount whose kind was never set is a percentage.
  bool AmountIsPercent() const { return !notPercent_; }
  void SetAmountIsPercent(bool value) { notPercent_ = !value; }

  std::string SalesDescription() const override { return description_; }
  Currency SalesCost() const override { return amount_; }
  bool SalesCostIsPercent() const override { return AmountIsPercent(); }

 private:
  static const ListClassInfo& Info();

  std::shared_ptr<qcListObjectRef> account_;
  std::shared_ptr<qcListObjectRef> salesTaxCode_;
  std::string description_;
  Currency amount_;
  bool notPercent_ = false;
};

// A payment received on a sales form, deposited to an account.
class ItemPayment final : public ItemObject {
 public:
  ItemPayment();

  const std::string& DepositToAccount() const { return depositToAccount_->FullName(); }
  void SetDepositToAccount(const std::string& value) { StoreRef(depositToAccount_, value, true); }
  const std::string& PaymentMethod() const { return paymentMethod_->FullName(); }
  void SetPaymentMethod(const std::string& value) { StoreRef(paymentMethod_, value, true); }
  const std::string& Description() const { return description_; }
  void SetDescription(const std::string& value) { Store(description_, value, false); }

  std::string SalesDescription() const override { return description_; }

 private:
  static const ListClassInfo& Info();

  std::shared_ptr<qcListObjectRef> depositToAccount_;
  std::shared_ptr<qcListObjectRef> paymentMethod_;
  std::string description_;
};

// A subtotal line. Its description can be changed, but the setter leaves the state as it
// is: a stored subtotal is sent again only when its state was set Dirty (through qcItem).
class ItemSubtotal final : public ItemObject {
 public:
  ItemSubtotal();

  const std::string& Description() const { return description_; }
  void SetDescription(const std::string& value) { description_ = value; }

  std::string SalesDescription() const override { return description_; }

 private:
  static const ListClassInfo& Info();

  std::string description_;
};

}  // namespace tessaron
