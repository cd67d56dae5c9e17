// The items that hold stock or put several items together: inventory parts
// (ItemInventory), assemblies built from parts (ItemAssembly, "ItemInventoryAssembly" in
// qbXML, from qbXML 2.0), groups sold as one line (ItemGroup) and fixed assets
// (ItemFixedAsset, from qbXML 3.0). QuickBooks can change all of them.
//
// Fields that a modify carries can be written at any time and turn a stored item Dirty;
// those only an add carries (the opening stock: QuantityOnHand, TotalValue, InventoryDate)
// can be written only until the item was first committed.
#pragma once

#include <memory>
#include <string>

#include "tessaron/lists/item_object.h"
#include "tessaron/lists/item_records.h"

namespace tessaron {

// What inventory parts and assemblies share.
class StockItem : public ItemObject {
 public:
  std::string SalesTaxCode() const override { return salesTaxCode_->FullName(); }
  void SetSalesTaxCode(const std::string& value) { StoreRef(salesTaxCode_, value, false); }
  void SetIsActive(bool value) { Store(isActive_, value, false); }
  // From qbXML 7.0.
  const std::string& ManufacturerPartNumber() const { return manufacturerPartNumber_; }
  void SetManufacturerPartNumber(const std::string& value) { Store(manufacturerPartNumber_, value, false); }
  std::string SalesDescription() const override { return salesDescription_; }
  void SetSalesDescription(const std::string& value) { Store(salesDescription_, value, false); }
  Currency SalesPrice() const { return salesPrice_; }
  void SetSalesPrice(Currency value) { Store(salesPrice_, value, false); }
  const std::string& IncomeAccount() const { return incomeAccount_->FullName(); }
  void SetIncomeAccount(const std::string& value) { StoreRef(incomeAccount_, value, false); }
  std::string PurchaseDescription() const override { return purchaseDescription_; }
  void SetPurchaseDescription(const std::string& value) { Store(purchaseDescription_, value, false); }
  Currency PurchaseCost() const override { return purchaseCost_; }
  void SetPurchaseCost(Currency value) { Store(purchaseCost_, value, false); }
  const std::string& COGSAccount() const { return cogsAccount_->FullName(); }
  void SetCOGSAccount(const std::string& value) { StoreRef(cogsAccount_, value, false); }
  // The preferred vendor by full name.
  const std::string& Vendor() const { return vendor_->FullName(); }
  void SetVendor(const std::string& value) { StoreRef(vendor_, value, false); }
  const std::string& AssetAccount() const { return assetAccount_->FullName(); }
  void SetAssetAccount(const std::string& value) { StoreRef(assetAccount_, value, false); }
  // The stock at the add; afterwards as QuickBooks reports it.
  Currency QuantityOnHand() const { return quantityOnHand_; }
  void SetQuantityOnHand(Currency value) { Store(quantityOnHand_, value, true); }
  Currency TotalValue() const { return totalValue_; }
  void SetTotalValue(Currency value) { Store(totalValue_, value, true); }
  Date InventoryDate() const { return inventoryDate_; }
  void SetInventoryDate(Date value) { Store(inventoryDate_, value, true); }
  Currency AverageCost() const { return averageCost_; }
  Currency QuantityOnOrder() const { return quantityOnOrder_; }
  Currency QuantityOnSalesOrder() const { return quantityOnSalesOrder_; }

  Currency SalesCost() const override { return salesPrice_; }
  bool HasSalesAndPurchase() const override { return true; }

 protected:
  // `pointTag` is ReorderPoint or BuildPoint; `more` comes after the opening stock.
  static ListClassInfo StockClass(const char* className, qoEnumListObjectType objectType, const char* pointTag,
                                  std::initializer_list<FieldDef> more);
  StockItem(const ListClassInfo& info, qbEnumItemType type);

  Currency point_;  // the reorder point of a part, the build point of an assembly

 private:
  std::shared_ptr<qcListObjectRef> salesTaxCode_;
  std::string manufacturerPartNumber_;
  std::string salesDescription_;
  Currency salesPrice_;
  std::shared_ptr<qcListObjectRef> incomeAccount_;
  std::string purchaseDescription_;
  Currency purchaseCost_;
  std::shared_ptr<qcListObjectRef> cogsAccount_;
  std::shared_ptr<qcListObjectRef> vendor_;
  std::shared_ptr<qcListObjectRef> assetAccount_;
  Currency quantityOnHand_;
  Currency averageCost_;
  Currency quantityOnOrder_;
  Currency quantityOnSalesOrder_;
  Currency totalValue_;
  Date inventoryDate_ = 0;
};

class ItemInventory final : public StockItem {
 public:
  ItemInventory();
  Currency ReorderPoint() const { return point_; }
  void SetReorderPoint(Currency value) { Store(point_, value, false); }
};

// An assembly: its lines name the inventory parts (or assemblies) it is built from.
class ItemAssembly final : public ItemWithLines<StockItem> {
 public:
  ItemAssembly();
  Currency BuildPoint() const { return point_; }
  void SetBuildPoint(Currency value) { Store(point_, value, false); }
  const std::shared_ptr<itemGroupLines>& Lines() const { return lines_; }

  // The qbXML tags of its lines.
  static constexpr const char* kLineTag = "ItemInventoryAssemblyLine";
  static constexpr const char* kRefTag = "ItemInventoryRef";

 private:
  static const ListClassInfo& Info();
};

// Items sold together on one line.
class ItemGroup final : public ItemWithLines<ItemObject> {
 public:
  ItemGroup();

  void SetIsActive(bool value) { Store(isActive_, value, false); }
  const std::string& Description() const { return description_; }
  void SetDescription(const std::string& value) { Store(description_, value, false); }
  // Whether invoices print the member items rather than the group.
  bool IsPrintItemsInGroup() const { return isPrintItemsInGroup_; }
  void SetIsPrintItemsInGroup(bool value) { Store(isPrintItemsInGroup_, value, false); }
  const std::shared_ptr<itemGroupLines>& GroupLines() const { return lines_; }
  void SetGroupLines(const std::shared_ptr<itemGroupLines>& value) { Store(lines_, value, false); }

  std::string SalesDescription() const override { return description_; }

  // The qbXML tags of its lines.
  static constexpr const char* kLineTag = "ItemGroupLine";
  static constexpr const char* kRefTag = "ItemRef";

 private:
  static const ListClassInfo& Info();

  std::string description_;
  bool isPrintItemsInGroup_ = false;
};

// An asset of the business, bought to be used for more than a year. It needs a purchase
// description and date.
class ItemFixedAsset final : public ItemObject {
 public:
  ItemFixedAsset();

  void SetIsActive(bool value) { Store(isActive_, value, false); }
  // "New" or "Old".
  const std::string& AcquiredAs() const { return acquiredAs_; }
  void SetAcquiredAs(const std::string& value) { Store(acquiredAs_, value, false); }
  std::string PurchaseDescription() const override { return purchaseDescription_; }
  void SetPurchaseDescription(const std::string& value) { Store(purchaseDescription_, value, false); }
  Date PurchaseDate() const { return purchaseDate_; }
  void SetPurchaseDate(Date value) { Store(purchaseDate_, value, false); }
  Currency PurchaseCost() const override { return purchaseCost_; }
  void SetPurchaseCost(Currency value) { Store(purchaseCost_, value, false); }
  const std::string& VendorOrPayeeName() const { return vendorOrPayeeName_; }
  void SetVendorOrPayeeName(const std::string& value) { Store(vendorOrPayeeName_, value, false); }
  const std::string& AssetAccount() const { return assetAccount_->FullName(); }
  void SetAssetAccount(const std::string& value) { StoreRef(assetAccount_, value, false); }
  const std::string& AssetDescription() const { return assetDescription_; }
  void SetAssetDescription(const std::string& value) { Store(assetDescription_, value, false); }
  const std::string& Location() const { return location_; }
  void SetLocation(const std::string& value) { Store(location_, value, false); }
  const std::string& PONumber() const { return poNumber_; }
  void SetPONumber(const std::string& value) { Store(poNumber_, value, false); }
  const std::string& SerialNumber() const { return serialNumber_; }
  void SetSerialNumber(const std::string& value) { Store(serialNumber_, value, false); }
  Date WarrantyExpDate() const { return warrantyExpDate_; }
  void SetWarrantyExpDate(Date value) { Store(warrantyExpDate_, value, false); }
  const std::string& Notes() const { return notes_; }
  void SetNotes(const std::string& value) { Store(notes_, value, false); }
  const std::string& AssetNumber() const { return assetNumber_; }
  void SetAssetNumber(const std::string& value) { Store(assetNumber_, value, false); }
  Currency CostBasis() const { return costBasis_; }
  void SetCostBasis(Currency value) { Store(costBasis_, value, false); }
  Currency YearEndAccumulatedDepreciation() const { return yearEndAccumulatedDepreciation_; }
  void SetYearEndAccumulatedDepreciation(Currency value) { Store(yearEndAccumulatedDepreciation_, value, false); }
  Currency YearEndBookValue() const { return yearEndBookValue_; }
  void SetYearEndBookValue(Currency value) { Store(yearEndBookValue_, value, false); }

  // Raises 0x800403ED below qbXML 3.0, where QuickBooks cannot change fixed assets.
  int32_t XMLModify(xmlBldr& cxmlbldr) override;

 private:
  static const ListClassInfo& Info();

  std::string acquiredAs_ = "New";
  std::string purchaseDescription_;
  Date purchaseDate_ = 0;
  Currency purchaseCost_;
  std::string vendorOrPayeeName_;
  std::shared_ptr<qcListObjectRef> assetAccount_;
  std::string assetDescription_;
  std::string location_;
  std::string poNumber_;
  std::string serialNumber_;
  Date warrantyExpDate_ = 0;
  std::string notes_;
  std::string assetNumber_;
  Currency costBasis_;
  Currency yearEndAccumulatedDepreciation_;
  Currency yearEndBookValue_;
};

}  // namespace tessaron
