#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/lists/items.h"

#include <functional>
#include <string_view>

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/platform/error.h"

namespace tessaron {

namespace {

const ListCollectionInfo& Info() {
  static const ListCollectionInfo info = [] {
    ListCollectionInfo i;
    i.className = "Item";
    i.listType = qoListItems;
    i.queryRequest = "ItemQueryRq";
    i.queryObjectType = qoObjectTypeItem;
    i.mirrorObjectName = "Item";
    // Each class decides in its XMLModify: some write a modify, some refuse.
    i.dirty = DirtyStep::Modify;
    i.commitErrorField = "QuickBooks response: ";
    i.status3180 = true;
    return i;
  }();
  return info;
}

// The qbXML name of each kind, by qbEnumItemType; 0 is every kind.
constexpr const char* kKindNames[] = {"Item",          "ItemService",       "ItemInventory",
                                      "ItemNonInventory", "ItemOtherCharge", "ItemSubtotal",
                                      "ItemGroup",     "ItemDiscount",      "ItemPayment",
                                      "ItemSalesTax",  "ItemSalesTaxGroup", "ItemInventoryAssembly",
                                      "ItemFixedAsset"};

std::string QueryName(int32_t itemType) {
  if (itemType < 0 || itemType > qbItemFixedAsset) RaiseInternal("Items", "Bad type in GetByType");
  return std::string(kKindNames[itemType]) + "QueryRq";
}

template <class T>
std::shared_ptr<ItemObject> Make() {
  return std::make_shared<T>();
}

}  // namespace

Items::Items() : ListCollection<ItemObject>(Info()) {}

std::shared_ptr<ListObject> Items::NewObject(const XmlNode& ret) {
  static const std::pair<std::string_view, std::shared_ptr<ItemObject> (*)()> kFactory[] = {
      {"ItemServiceRet", &Make<ItemService>},
      {"ItemNonInventoryRet", &Make<ItemNonInventory>},
      {"ItemOtherChargeRet", &Make<ItemOtherCharge>},
      {"ItemInventoryRet", &Make<ItemInventory>},
      {"ItemSubtotalRet", &Make<ItemSubtotal>},
      {"ItemDiscountRet", &Make<ItemDiscount>},
      {"ItemPaymentRet", &Make<ItemPayment>},
      {"ItemSalesTaxRet", &Make<ItemSalesTax>},
      {"ItemSalesTaxGroupRet", &Make<ItemSalesTaxGroup>},
      {"ItemGroupRet", &Make<ItemGroup>},
      {"ItemInventoryAssemblyRet", &Make<ItemAssembly>},
      {"ItemFixedAssetRet", &Make<ItemFixedAsset>},
  };
  const std::string_view tag = ret.baseName();
  for (const auto& [name, make] : kFactory)
    if (name == tag) return make();
  RaiseInternal("Items", "Unknown Item");
}

// ---- Adding --------------------------------------------------------------------------------

namespace {
// Name, parent (with its sublevel) and the active flag of a new item.
void Identify(ItemObject& item, const std::string& Name, const std::string& Parent, bool IsActive) {
  if (!Parent.empty()) {
    detail::ListObjectAccess::SetParentInternal(item, Parent);
    detail::ListObjectAccess::SetSublevelInternal(item, SublevelUnder(Parent));
  }
  detail::ListObjectAccess::SetNameInternal(item, Name);
  detail::ListObjectAccess::SetIsActiveInternal(item, IsActive);
}
}  // namespace

template <class T>
std::shared_ptr<T> Items::AddSalesOrPurchase(qbEnumItemType type, const std::string& Name, const std::string& Parent,
                                             const std::string& Description, Currency Amount,
                                             const std::string& Account, const std::string& SalesTaxCode,
                                             bool IsActive, bool AmountIsPercent) {
  Errors()->Clear();
  return AddNew<T>([&](T& item) {
    constexpr const char* kSource = "Items:AddWithSalesOrPurchase";
    if (type != qbItemService && type != qbItemNonInventory && type != qbItemOtherCharge)
      RaiseInternal(kSource, "Unknown ItemType");
    if (AmountIsPercent && type != qbItemOtherCharge) RaiseInternal(kSource, "Percent not allowed");
    Identify(item, Name, Parent, IsActive);
    detail::ListObjectAccess::SetHasSalesAndPurchaseInternal(item, false);
    item.SetSalesTaxCode(SalesTaxCode);
    auto money = item.SalesOrPurchase();
    money->SetDescription(Description);
    money->SetAmount(Amount);
    money->SetAmountIsPercent(AmountIsPercent);
    money->SetAccount(Account);
  });
}

template <class T>
std::shared_ptr<T> Items::AddSalesAndPurchase(const std::string& Name, const std::string& Parent,
                                              const std::string& SalesTaxCode, const std::string& ExpenseAccount,
                                              const std::string& IncomeAccount, Currency PurchaseCost,
                                              const std::string& PurchaseDescription, Currency SalesPrice,
                                              const std::string& SalesDescription, const std::string& Vendor,
                                              bool IsActive) {
  Errors()->Clear();
  return AddNew<T>([&](T& item) {
    Identify(item, Name, Parent, IsActive);
    detail::ListObjectAccess::SetHasSalesAndPurchaseInternal(item, true);
    item.SetSalesTaxCode(SalesTaxCode);
    auto money = item.SalesAndPurchase();
    money->SetSalesDescription(SalesDescription);
    money->SetSalesPrice(SalesPrice);
    money->SetIncomeAccount(IncomeAccount);
    money->SetPurchaseDescription(PurchaseDescription);
    money->SetPurchaseCost(PurchaseCost);
    money->SetExpenseAccount(ExpenseAccount);
    money->SetVendor(Vendor);
  });
}

std::shared_ptr<ItemService> Items::AddServiceWithSalesOrPurchase(const std::string& Name, const std::string& Parent,
                                                                  const std::string& Description, Currency Amount,
                                                                  const std::string& Account,
                                                                  const std::string& SalesTaxCode, bool IsActive,
                                                                  bool AmountIsPercent) {
  return AddSalesOrPurchase<ItemService>(qbItemService, Name, Parent, Description, Amount, Account, SalesTaxCode,
                                         IsActive, AmountIsPercent);
}
std::shared_ptr<ItemNonInventory> Items::AddNonInventoryWithSalesOrPurchase(
    const std::string& Name, const std::string& Parent, const std::string& Description, Currency Amount,
    const std::string& Account, const std::string& SalesTaxCode, bool IsActive, bool AmountIsPercent) {
  return AddSalesOrPurchase<ItemNonInventory>(qbItemNonInventory, Name, Parent, Description, Amount, Account,
                                              SalesTaxCode, IsActive, AmountIsPercent);
}
std::shared_ptr<ItemOtherCharge> Items::AddOtherChargeWithSalesOrPurchase(
    const std::string& Name, const std::string& Parent, const std::string& Description, Currency Amount,
    const std::string& Account, const std::string& SalesTaxCode, bool IsActive, bool AmountIsPercent) {
  return AddSalesOrPurchase<ItemOtherCharge>(qbItemOtherCharge, Name, Parent, Description, Amount, Account,
                                             SalesTaxCode, IsActive, AmountIsPercent);
}

#define TESSARON_ADD_SALES_AND_PURCHASE(Kind, Method)                                                              \
  std::shared_ptr<Kind> Items::Method(                                                                             \
      const std::string& Name, const std::string& Parent, const std::string& SalesTaxCode,                         \
      const std::string& ExpenseAccount, const std::string& IncomeAccount, Currency PurchaseCost,                  \
      const std::string& PurchaseDescription, Currency SalesPrice, const std::string& SalesDescription,            \
      const std::string& Vendor, bool IsActive) {                                                                  \
    return AddSalesAndPurchase<Kind>(Name, Parent, SalesTaxCode, ExpenseAccount, IncomeAccount, PurchaseCost,      \
                                     PurchaseDescription, SalesPrice, SalesDescription, Vendor, IsActive);         \
  }
TESSARON_ADD_SALES_AND_PURCHASE(ItemService, AddServiceWithSalesAndPurchase)
TESSARON_ADD_SALES_AND_PURCHASE(ItemNonInventory, AddNonInventoryWithSalesAndPurchase)
TESSARON_ADD_SALES_AND_PURCHASE(ItemOtherCharge, AddOtherChargeWithSalesAndPurchase)
#undef TESSARON_ADD_SALES_AND_PURCHASE

std::shared_ptr<ItemDiscount> Items::AddDiscount(const std::string& Name, const std::string& Parent,
                                                 const std::string& Account, const std::string& Description,
                                                 Currency Amount, bool AmountIsPercent,
                                                 const std::string& SalesTaxCode, bool IsActive) {
  Errors()->Clear();
  return AddNew<ItemDiscount>([&](ItemDiscount& d) {
    Identify(d, Name, Parent, IsActive);
    d.SetAccount(Account);
    d.SetDescription(Description);
    d.SetAmount(Amount);
    d.SetAmountIsPercent(AmountIsPercent);
    d.SetSalesTaxCode(SalesTaxCode);
  });
}

std::shared_ptr<ItemPayment> Items::AddPayment(const std::string& Name, const std::string& Description,
                                               const std::string& PaymentMethod,
                                               const std::string& DepositToAccount, bool IsActive) {
  Errors()->Clear();
  return AddNew<ItemPayment>([&](ItemPayment& p) {
    Identify(p, Name, "", IsActive);
    p.SetDescription(Description);
    p.SetPaymentMethod(PaymentMethod);
    p.SetDepositToAccount(DepositToAccount);
  });
}

std::shared_ptr<ItemSalesTax> Items::AddSalesTax(const std::string& Name, const std::string& Description,
                                                 Currency TaxRate, const std::string& Vendor, bool IsActive) {
  Errors()->Clear();
  return AddNew<ItemSalesTax>([&](ItemSalesTax& t) {
    Identify(t, Name, "", IsActive);
    t.SetDescription(Description);
    t.SetTaxRate(TaxRate);
    t.SetVendor(Vendor);
  });
}

std::shared_ptr<ItemSalesTaxGroup> Items::AddSalesTaxGroup(const std::string& Name, const std::string& Description,
                                                           bool IsActive) {
  Errors()->Clear();
  return AddNew<ItemSalesTaxGroup>([&](ItemSalesTaxGroup& g) {
    Identify(g, Name, "", IsActive);
    g.SetDescription(Description);
  });
}

std::shared_ptr<ItemSubtotal> Items::AddSubTotal(const std::string& Name, const std::string& Description,
                                                 bool IsActive) {
  Errors()->Clear();
  return AddNew<ItemSubtotal>([&](ItemSubtotal& s) {
    Identify(s, Name, "", IsActive);
    s.SetDescription(Description);
  });
}

namespace {
void FillStock(StockItem& s, const std::string& IncomeAccount, const std::string& COGSAccount,
               const std::string& AssetAccount, Currency SalesPrice, const std::string& SalesDescription,
               Currency PurchaseCost, const std::string& PurchaseDescription, const std::string& SalesTaxCode) {
  s.SetIncomeAccount(IncomeAccount);
  s.SetCOGSAccount(COGSAccount);
  s.SetAssetAccount(AssetAccount);
  s.SetSalesPrice(SalesPrice);
  s.SetSalesDescription(SalesDescription);
  s.SetPurchaseCost(PurchaseCost);
  s.SetPurchaseDescription(PurchaseDescription);
  s.SetSalesTaxCode(SalesTaxCode);
}
}  // namespace

std::shared_ptr<ItemInventory> Items::AddInventory(const std::string& Name, const std::string& Parent,
                                                   const std::string& IncomeAccount, const std::string& COGSAccount,
                                                   const std::string& AssetAccount, Currency SalesPrice,
                                                   const std::string& SalesDescription, Currency PurchaseCost,
                                                   const std::string& PurchaseDescription,
                                                   const std::string& SalesTaxCode, const std::string& Vendor,
                                                   Currency ReorderPoint, Currency QuantityOnHand,
                                                   Currency TotalValue, Date InventoryDate, bool IsActive) {
  Errors()->Clear();
  return AddNew<ItemInventory>([&](ItemInventory& s) {
    Identify(s, Name, Parent, IsActive);
    FillStock(s, IncomeAccount, COGSAccount, AssetAccount, SalesPrice, SalesDescription, PurchaseCost,
              PurchaseDescription, SalesTaxCode);
    s.SetVendor(Vendor);
    s.SetReorderPoint(ReorderPoint);
    s.SetQuantityOnHand(QuantityOnHand);
    s.SetTotalValue(TotalValue);
    s.SetInventoryDate(InventoryDate);
  });
}

std::shared_ptr<ItemAssembly> Items::AddAssembly(const std::string& Name, const std::string& Parent,
                                                 const std::string& IncomeAccount, const std::string& COGSAccount,
                                                 const std::string& AssetAccount, Currency SalesPrice,
                                                 const std::string& SalesDescription, Currency PurchaseCost,
                                                 const std::string& PurchaseDescription,
                                                 const std::string& SalesTaxCode, Currency BuildPoint,
                                                 bool IsActive) {
  Errors()->Clear();
  RequireVersion(2);
  return AddNew<ItemAssembly>([&](ItemAssembly& s) {
    Identify(s, Name, Parent, IsActive);
    FillStock(s, IncomeAccount, COGSAccount, AssetAccount, SalesPrice, SalesDescription, PurchaseCost,
              PurchaseDescription, SalesTaxCode);
    s.SetBuildPoint(BuildPoint);
  });
}

std::shared_ptr<ItemGroup> Items::AddGroup(const std::string& Name, const std::string& Description,
                                           bool IsPrintItemsInGroup, bool IsActive) {
  Errors()->Clear();
  return AddNew<ItemGroup>([&](ItemGroup& g) {
    Identify(g, Name, "", IsActive);
    g.SetDescription(Description);
    g.SetIsPrintItemsInGroup(IsPrintItemsInGroup);
  });
}

std::shared_ptr<ItemFixedAsset> Items::AddFixedAsset(const std::string& Name, const std::string& PurchaseDescription,
                                                     Date PurchaseDate, Currency PurchaseCost,
                                                     const std::string& AssetAccount, const std::string& AcquiredAs,
                                                     const std::string& VendorOrPayeeName,
                                                     const std::string& AssetDescription, bool IsActive) {
  Errors()->Clear();
  RequireVersion(3);
  return AddNew<ItemFixedAsset>([&](ItemFixedAsset& f) {
    Identify(f, Name, "", IsActive);
    f.SetPurchaseDescription(PurchaseDescription);
    f.SetPurchaseDate(PurchaseDate);
    f.SetPurchaseCost(PurchaseCost);
    f.SetAssetAccount(AssetAccount);
    f.SetAcquiredAs(AcquiredAs);
    f.SetVendorOrPayeeName(VendorOrPayeeName);
    f.SetAssetDescription(AssetDescription);
  });
}

int32_t Items::AddExisting(const std::shared_ptr<ItemObject>& oNew) {
  if (IsMaster()) throw Error(err::kNotOnMaster, "Item", err::kNotOnMasterText);
  Objects().Add(oNew, oNew->CollectionKey());
  return static_cast<int32_t>(Count());
}

// ---- Delete and queries --------------------------------------------------------------------

int32_t Items::Delete(const std::string& ListID, int32_t ItemType, bool bRemove) {
  // Assemblies and fixed assets are not deleted through here.
  if (ItemType < qbItemService || ItemType > qbItemSalesTaxGroup)
    throw Error(err::kInvalidItemType, "Item", err::kInvalidItemTypeText);
  return DeleteRecord(ListID, bRemove, kKindNames[ItemType], "Item");
}

int32_t Items::GetAll(int32_t ItemType, int32_t MaxReturned, const std::string& sMDBPath) {
  return StatusQuery(QueryName(ItemType), qbStatusAny, MaxReturned, sMDBPath);
}

int32_t Items::GetActive(int32_t ItemType, int32_t MaxReturned, const std::string& sMDBPath) {
  return StatusQuery(QueryName(ItemType), qbStatusActive, MaxReturned, sMDBPath);
}

int32_t Items::GetByNameRange(int32_t ItemType, const std::string& FromName, const std::string& ToName,
                              int32_t MaxReturned, const std::string& sMDBPath) {
  return NameRangeQuery(QueryName(ItemType), FromName, ToName, MaxReturned, sMDBPath);
}

int32_t Items::GetByNameMatch(int32_t ItemType, const std::string& MatchString, int32_t MatchType,
                              int32_t MaxReturned, const std::string& sMDBPath) {
  return NameMatchQuery(QueryName(ItemType), MatchString, MatchType, MaxReturned, sMDBPath);
}

int32_t Items::GetByDateSpan(int32_t ItemType, Date FromDate, Date ToDate, int32_t MaxReturned,
                             const std::string& sMDBPath) {
  return DateSpanQuery(QueryName(ItemType), FromDate, ToDate, MaxReturned, sMDBPath);
}

}  // namespace tessaron
