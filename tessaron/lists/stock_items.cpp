#include "tessaron/lists/stock_items.h"

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

namespace {

const Currency kV7 = Currency(7);

StockItem& AsStock(ListObject& o) { return static_cast<StockItem&>(o); }

// Text a modify sends as it stands (an empty one clears the field).
template <class O>
FieldDef Text(std::string_view tag, std::string O::*m) {
  return field::Text(tag, m).Add(Send::IfSet).Mod(Send::Always);
}
template <class O>
FieldDef Amount(std::string_view tag, Currency O::*m) {
  return field::Amount(tag, m).Add(Send::IfSet).Mod(Send::Always);
}
template <class O>
FieldDef Ref(std::string_view tag, std::shared_ptr<qcListObjectRef> O::*m, qoEnumListType list) {
  return field::Ref(tag, m, list).Add(Send::IfSet).Mod(Send::IfSet);
}
}  // namespace

// ---- StockItem -----------------------------------------------------------------------------

ListClassInfo StockItem::StockClass(const char* className, qoEnumListObjectType objectType, const char* pointTag,
                                    std::initializer_list<FieldDef> more) {
  using C = ListObject::Common;
  ListClassInfo i = ItemClass(className, objectType, true, ModifyRule::Write);
  i.fields = C::Rows({
      Rows::Name(),
      C::FullName(),
      Rows::IsActive(),
      Rows::ParentRef(),
      C::Sublevel(),
      field::Text("ManufacturerPartNumber", &StockItem::manufacturerPartNumber_)
          .Add(Send::IfSet, kV7)
          .Mod(Send::Always, kV7),
      Ref("SalesTaxCodeRef", &StockItem::salesTaxCode_, qoListSalesTaxCodes).As("SalesTaxCode"),
      Text("SalesDesc", &StockItem::salesDescription_).As("SalesDescription"),
      Amount("SalesPrice", &StockItem::salesPrice_),
      Ref("IncomeAccountRef", &StockItem::incomeAccount_, qoListAccounts).As("IncomeAccount"),
      Text("PurchaseDesc", &StockItem::purchaseDescription_).As("PurchaseDescription"),
      Amount("PurchaseCost", &StockItem::purchaseCost_),
      Ref("COGSAccountRef", &StockItem::cogsAccount_, qoListAccounts).As("COGSAccount"),
      Ref("PrefVendorRef", &StockItem::vendor_, qoListVendors).As("Vendor"),
      Ref("AssetAccountRef", &StockItem::assetAccount_, qoListAccounts).As("AssetAccount"),
      field::Quantity(pointTag, &StockItem::point_).Add(Send::IfSet).Mod(Send::Always),
      field::Quantity("QuantityOnHand", &StockItem::quantityOnHand_).Add(Send::IfSet),
      field::Amount("AverageCost", &StockItem::averageCost_),
      field::Quantity("QuantityOnOrder", &StockItem::quantityOnOrder_),
      field::Quantity("QuantityOnSalesOrder", &StockItem::quantityOnSalesOrder_),
      field::Amount("TotalValue", &StockItem::totalValue_).Add(Send::IfSet).NotInQuery(),
      field::DateOnly("InventoryDate", &StockItem::inventoryDate_).Add(Send::IfSet).NotInQuery(),
      field::Dropped("DataExtRet"),
  });
  i.fields.insert(i.fields.end(), more.begin(), more.end());
  i.checks = {
      NameCheck(),
      ParentOfSameKindCheck(),
      check::Custom([](ListObject& o, qcErrors& e) { CheckTaxCode(*AsStock(o).salesTaxCode_, e); }),
      check::Custom([](ListObject& o, qcErrors& e) {
        StockItem& s = AsStock(o);
        CheckRef(*s.incomeAccount_, e, err::kBadAccount, "IncomeAccount", err::kBadAccountText, false);
        CheckRef(*s.cogsAccount_, e, err::kBadAccount, "COGSAccount", err::kBadAccountText, false);
        CheckRef(*s.assetAccount_, e, err::kBadAccount, "AssetAccount", err::kBadAccountText, false);
        CheckRef(*s.vendor_, e, err::kBadVendor, "Vendor", err::kBadVendorText, true);
      }),
  };
  return i;
}

StockItem::StockItem(const ListClassInfo& info, qbEnumItemType type)
    : ItemObject(info, type),
      salesTaxCode_(std::make_shared<qcListObjectRef>(qoListSalesTaxCodes)),
      incomeAccount_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      cogsAccount_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      vendor_(std::make_shared<qcListObjectRef>(qoListVendors)),
      assetAccount_(std::make_shared<qcListObjectRef>(qoListAccounts)) {}

ItemInventory::ItemInventory()
    : StockItem(
          []() -> const ListClassInfo& {
            static const ListClassInfo info = StockClass("ItemInventory", qoObjectTypeItemInventory, "ReorderPoint", {});
            return info;
          }(),
          qbItemInventory) {}

// ---- ItemAssembly --------------------------------------------------------------------------

const ListClassInfo& ItemAssembly::Info() {
  static const ListClassInfo info = StockClass(
      "ItemAssembly", qoObjectTypeItemInventoryAssembly, "BuildPoint",
      {LinesRow<ItemAssembly>("Lines")});
  return info;
}

ItemAssembly::ItemAssembly() : ItemWithLines<StockItem>(Info(), qbItemAssembly) {}

// ---- ItemGroup -----------------------------------------------------------------------------

const ListClassInfo& ItemGroup::Info() {
  using C = ListObject::Common;
  static const ListClassInfo info = [] {
    ListClassInfo i = ItemClass("ItemGroup", qoObjectTypeItemGroup, false, ModifyRule::Write);
    i.fields = C::Rows({
        Rows::Name(),
        Rows::IsActive(),
        Rows::ItemDesc(&ItemGroup::description_),
        field::Boolean("IsPrintItemsInGroup", &ItemGroup::isPrintItemsInGroup_).Add(Send::Always).Mod(Send::Always),
        LinesRow<ItemGroup>("GroupLines"),
        field::Dropped("DataExtRet"),
    });
    i.checks = {NameCheck()};
    return i;
  }();
  return info;
}

ItemGroup::ItemGroup() : ItemWithLines<ItemObject>(Info(), qbItemGroup) {}

// ---- ItemFixedAsset ------------------------------------------------------------------------

const ListClassInfo& ItemFixedAsset::Info() {
  using C = ListObject::Common;
  static const ListClassInfo info = [] {
    ListClassInfo i = ItemClass("ItemFixedAsset", qoObjectTypeItemFixedAsset, false, ModifyRule::Write);
    auto date = [](std::string_view tag, Date ItemFixedAsset::*m) {
      return field::DateOnly(tag, m).Add(Send::IfSet).Mod(Send::IfSet);
    };
    i.fields = C::Rows({
        Rows::Name(),
        Rows::IsActive(),
        field::Text("AcquiredAs", &ItemFixedAsset::acquiredAs_).Add(Send::Always).Mod(Send::Always),
        field::Text("PurchaseDesc", &ItemFixedAsset::purchaseDescription_)
            .Add(Send::Always)
            .Mod(Send::Always)
            .As("PurchaseDescription"),
        field::DateOnly("PurchaseDate", &ItemFixedAsset::purchaseDate_).Add(Send::Always).Mod(Send::IfSet),
        Amount("PurchaseCost", &ItemFixedAsset::purchaseCost_),
        Text("VendorOrPayeeName", &ItemFixedAsset::vendorOrPayeeName_),
        Ref("AssetAccountRef", &ItemFixedAsset::assetAccount_, qoListAccounts).As("AssetAccount"),
        field::Dropped("FixedAssetSalesInfo"),
        Text("AssetDesc", &ItemFixedAsset::assetDescription_).As("AssetDescription"),
        Text("Location", &ItemFixedAsset::location_),
        Text("PONumber", &ItemFixedAsset::poNumber_),
        Text("SerialNumber", &ItemFixedAsset::serialNumber_),
        date("WarrantyExpDate", &ItemFixedAsset::warrantyExpDate_),
        Text("Notes", &ItemFixedAsset::notes_),
        Text("AssetNumber", &ItemFixedAsset::assetNumber_),
        Amount("CostBasis", &ItemFixedAsset::costBasis_),
        Amount("YearEndAccumulatedDepreciation", &ItemFixedAsset::yearEndAccumulatedDepreciation_),
        Amount("YearEndBookValue", &ItemFixedAsset::yearEndBookValue_),
        field::Dropped("DataExtRet"),
    });
    i.checks = {
        NameCheck(),
        check::Required(&ItemFixedAsset::purchaseDescription_, "PurchaseDescription", err::kFixedAssetPurchaseDesc,
                        err::kFixedAssetPurchaseDescText, 4095, 0, ""),
        check::Custom([](ListObject& o, qcErrors& e) {
          if (static_cast<ItemFixedAsset&>(o).purchaseDate_ == 0)
            e.Add(err::kFixedAssetPurchaseDate, "PurchaseDate", err::kFixedAssetPurchaseDateText);
        }),
    };
    return i;
  }();
  return info;
}

ItemFixedAsset::ItemFixedAsset()
    : ItemObject(Info(), qbItemFixedAsset), assetAccount_(std::make_shared<qcListObjectRef>(qoListAccounts)) {}

int32_t ItemFixedAsset::XMLModify(xmlBldr& cxmlbldr) {
  RequireVersion(3);
  return ListObject::XMLModify(cxmlbldr);
}

}  // namespace tessaron
