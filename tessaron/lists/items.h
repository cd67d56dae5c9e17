// Items: the one item list of QuickBooks, with all twelve kinds of item side by side under
// one key space (a service and a discount cannot share a full name). Queries take the kind
// first (a qbEnumItemType, 0 for all kinds); records come back as objects of their own
// class, each also a qcItem. There is no plain Add: each kind has its own.
//
//   auto& items = *TessaronGlobals::Items();
//   items.GetAll(qbItemService);                       // ItemServiceQueryRq
//   auto labor = items.CastObject<ItemService>(items.Item(Variant(1)));
//   auto fee = items.AddOtherChargeWithSalesOrPurchase("Rush", "", "Rush fee", Currency(10), "Sales", "", true, true);
//   items.Commit();
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/dataext/custom_field_names.h"
#include "tessaron/foundation/enum_codes.h"
#include "tessaron/framework/list_collection.h"
#include "tessaron/lists/item_object.h"
#include "tessaron/lists/sales_items.h"
#include "tessaron/lists/stock_items.h"
#include "tessaron/lists/tax_items.h"

namespace tessaron {

class Items final : public ListCollection<ItemObject> {
 public:
  Items();

  // The same object as its own class; null when it is of another class.
  template <class T>
  std::shared_ptr<T> CastObject(const std::shared_ptr<qcItem>& Item) const {
    return std::dynamic_pointer_cast<T>(Item);
  }

  // ---- Adding (master only; nothing is sent until Commit) ------------------------------------
  // A service, non-inventory part or other charge with one description, price and account.
  // Only an other charge may be priced as a percentage (AmountIsPercent); the others raise
  // "Percent not allowed".
  std::shared_ptr<ItemService> AddServiceWithSalesOrPurchase(const std::string& Name, const std::string& Parent,
                                                             const std::string& Description, Currency Amount,
                                                             const std::string& Account,
                                                             const std::string& SalesTaxCode = "",
                                                             bool IsActive = true, bool AmountIsPercent = false);
  std::shared_ptr<ItemNonInventory> AddNonInventoryWithSalesOrPurchase(
      const std::string& Name, const std::string& Parent, const std::string& Description, Currency Amount,
      const std::string& Account, const std::string& SalesTaxCode = "", bool IsActive = true,
      bool AmountIsPercent = false);
  std::shared_ptr<ItemOtherCharge> AddOtherChargeWithSalesOrPurchase(
      const std::string& Name, const std::string& Parent, const std::string& Description, Currency Amount,
      const std::string& Account, const std::string& SalesTaxCode = "", bool IsActive = true,
      bool AmountIsPercent = false);
  // The same kinds, bought and sold: both sides with their accounts, and a preferred vendor.
  std::shared_ptr<ItemService> AddServiceWithSalesAndPurchase(
      const std::string& Name, const std::string& Parent, const std::string& SalesTaxCode,
      const std::string& ExpenseAccount, const std::string& IncomeAccount, Currency PurchaseCost,
      const std::string& PurchaseDescription, Currency SalesPrice, const std::string& SalesDescription,
      const std::string& Vendor = "", bool IsActive = true);
  std::shared_ptr<ItemNonInventory> AddNonInventoryWithSalesAndPurchase(
      const std::string& Name, const std::string& Parent, const std::string& SalesTaxCode,
      const std::string& ExpenseAccount, const std::string& IncomeAccount, Currency PurchaseCost,
      const std::string& PurchaseDescription, Currency SalesPrice, const std::string& SalesDescription,
      const std::string& Vendor = "", bool IsActive = true);
  std::shared_ptr<ItemOtherCharge> AddOtherChargeWithSalesAndPurchase(
      const std::string& Name, const std::string& Parent, const std::string& SalesTaxCode,
      const std::string& ExpenseAccount, const std::string& IncomeAccount, Currency PurchaseCost,
      const std::string& PurchaseDescription, Currency SalesPrice, const std::string& SalesDescription,
      const std::string& Vendor = "", bool IsActive = true);
  std::shared_ptr<ItemDiscount> AddDiscount(const std::string& Name, const std::string& Parent,
                                            const std::string& Account, const std::string& Description,
                                            Currency Amount, bool AmountIsPercent,
                                            const std::string& SalesTaxCode = "", bool IsActive = true);
  std::shared_ptr<ItemPayment> AddPayment(const std::string& Name, const std::string& Description = "",
                                          const std::string& PaymentMethod = "",
                                          const std::string& DepositToAccount = "", bool IsActive = true);
  // TaxRate is a percentage; Vendor is the tax agency.
  std::shared_ptr<ItemSalesTax> AddSalesTax(const std::string& Name, const std::string& Description = "",
                                            Currency TaxRate = Currency(), const std::string& Vendor = "",
                                            bool IsActive = true);
  // The members go in through GroupLines()->Add.
  std::shared_ptr<ItemSalesTaxGroup> AddSalesTaxGroup(const std::string& Name, const std::string& Description = "",
                                                      bool IsActive = true);
  std::shared_ptr<ItemSubtotal> AddSubTotal(const std::string& Name, const std::string& Description = "",
                                            bool IsActive = true);
  // An inventory part with its accounts (income, cost of goods sold, asset), its prices and
  // its opening stock.
  std::shared_ptr<ItemInventory> AddInventory(
      const std::string& Name, const std::string& Parent, const std::string& IncomeAccount,
      const std::string& COGSAccount, const std::string& AssetAccount, Currency SalesPrice = Currency(),
      const std::string& SalesDescription = "", Currency PurchaseCost = Currency(),
      const std::string& PurchaseDescription = "", const std::string& SalesTaxCode = "",
      const std::string& Vendor = "", Currency ReorderPoint = Currency(), Currency QuantityOnHand = Currency(),
      Currency TotalValue = Currency(), Date InventoryDate = 0, bool IsActive = true);
  // An assembly (from qbXML 2.0; raises 0x800403ED below). Its parts go in through Lines()->Add.
  std::shared_ptr<ItemAssembly> AddAssembly(const std::string& Name, const std::string& Parent,
                                            const std::string& IncomeAccount, const std::string& COGSAccount,
                                            const std::string& AssetAccount, Currency SalesPrice = Currency(),
                                            const std::string& SalesDescription = "",
                                            Currency PurchaseCost = Currency(),
                                            const std::string& PurchaseDescription = "",
                                            const std::string& SalesTaxCode = "", Currency BuildPoint = Currency(),
                                            bool IsActive = true);
  // A group; its items go in through GroupLines()->Add.
  std::shared_ptr<ItemGroup> AddGroup(const std::string& Name, const std::string& Description = "",
                                      bool IsPrintItemsInGroup = false, bool IsActive = true);
  // A fixed asset (from qbXML 3.0; raises 0x800403ED below). AcquiredAs is "New" or "Old".
  std::shared_ptr<ItemFixedAsset> AddFixedAsset(const std::string& Name, const std::string& PurchaseDescription,
                                                Date PurchaseDate, Currency PurchaseCost = Currency(),
                                                const std::string& AssetAccount = "",
                                                const std::string& AcquiredAs = "New",
                                                const std::string& VendorOrPayeeName = "",
                                                const std::string& AssetDescription = "", bool IsActive = true);

  // Puts an item held elsewhere into this instance; returns the new Count. Not on the master
  // (0x80040401).
  int32_t AddExisting(const std::shared_ptr<ItemObject>& oNew);
  // Deletes the item of this kind; ItemType must be 1 to 10 (0x8004044D otherwise, before
  // anything is sent).
  int32_t Delete(const std::string& ListID, int32_t ItemType, bool bRemove = true);

  // ---- Queries: ItemType first (0: every kind; any value outside 0..12 raises "Bad type in
  // GetByType"). Each replaces the content and returns Count. GetByFullName and GetByListID
  // (inherited) ask for every kind.
  int32_t GetAll(int32_t ItemType = 0, int32_t MaxReturned = 0, const std::string& sMDBPath = "");
  int32_t GetActive(int32_t ItemType = 0, int32_t MaxReturned = 0, const std::string& sMDBPath = "");
  int32_t GetByNameRange(int32_t ItemType, const std::string& FromName, const std::string& ToName,
                         int32_t MaxReturned = 0, const std::string& sMDBPath = "");
  // MatchType: qbEnumMatchType.
  int32_t GetByNameMatch(int32_t ItemType, const std::string& MatchString, int32_t MatchType,
                         int32_t MaxReturned = 0, const std::string& sMDBPath = "");
  int32_t GetByDateSpan(int32_t ItemType, Date FromDate, Date ToDate, int32_t MaxReturned = 0,
                        const std::string& sMDBPath = "");

  // Whether queries ask for the custom fields of each record (from qbXML 2.0 on).
  bool IncludeDataExtensions() const { return IncludeDataExt(); }
  void SetIncludeDataExtensions(bool value) { SetIncludeDataExt(value); }
  // The names of the custom fields defined for items, positions 1 to 7 (index 0 to 6),
  // read once from Company.CustomFields.
  const std::vector<std::string>& CustomFieldNames() { return customFieldNames_.Of(qoObjectTypeItem); }

 protected:
  // The class of each `...Ret`; an unknown one raises "Unknown Item".
  std::shared_ptr<ListObject> NewObject(const XmlNode& ret) override;
  int32_t ListGetAll(int32_t MaxReturned, const std::string& sMDBPath) override {
    return GetAll(0, MaxReturned, sMDBPath);
  }
  int32_t ListGetActive(int32_t MaxReturned, const std::string& sMDBPath) override {
    return GetActive(0, MaxReturned, sMDBPath);
  }

 private:
  tessaron::CustomFieldNames customFieldNames_;
  template <class T>
  std::shared_ptr<T> AddItem(const std::string& Name, const std::string& Parent, bool IsActive);
  template <class T>
  std::shared_ptr<T> AddSalesOrPurchase(qbEnumItemType type, const std::string& Name, const std::string& Parent,
                                        const std::string& Description, Currency Amount, const std::string& Account,
                                        const std::string& SalesTaxCode, bool IsActive, bool AmountIsPercent);
  template <class T>
  std::shared_ptr<T> AddSalesAndPurchase(const std::string& Name, const std::string& Parent,
                                         const std::string& SalesTaxCode, const std::string& ExpenseAccount,
                                         const std::string& IncomeAccount, Currency PurchaseCost,
                                         const std::string& PurchaseDescription, Currency SalesPrice,
                                         const std::string& SalesDescription, const std::string& Vendor,
                                         bool IsActive);
};

}  // namespace tessaron
