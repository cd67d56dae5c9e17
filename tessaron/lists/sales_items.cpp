#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/lists/sales_items.h"

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

namespace {
SalesItem& AsSales(ListObject& o) { return static_cast<SalesItem&>(o); }
ItemDiscount& AsDiscount(ListObject& o) { return static_cast<ItemDiscount&>(o); }

// The errors of a money record become the item's, so the caller reads one list.
void CopyErrors(qcErrors& from, qcErrors& to) {
  for (const auto& e : from) to.Add(e->Number(), e->Field(), e->Description());
}
}  // namespace

// ---- SalesItem -----------------------------------------------------------------------------

ListClassInfo SalesItem::SalesItemClass(const char* className, qoEnumListObjectType objectType) {
  using C = ListObject::Common;
  ListClassInfo i = ItemClass(className, objectType, true, ModifyRule::Write);
  i.fields = C::Rows({
      Rows::Name(),
      C::FullName(),
      Rows::IsActive(),
      Rows::ParentRef(),
      C::Sublevel(),
      Rows::Ref("SalesTaxCodeRef", &SalesItem::salesTaxCode_, qoListSalesTaxCodes).As("SalesTaxCode"),
      // The money record that HasSalesAndPurchase selects, in the form of the request.
      field::Custom(
          "SalesOrPurchase",
          [](ListObject& o, const XmlNode& n) {
            AsSales(o).salesOrPurchase_->FromDom(n);
            AsSales(o).hasSalesAndPurchase_ = false;
          },
          [](ListObject& o, xmlBldr& b, WriteMode mode) {
            SalesItem& s = AsSales(o);
            if (mode == WriteMode::Modify) {
              if (s.hasSalesAndPurchase_) s.salesAndPurchase_->WriteMod(b);
              else s.salesOrPurchase_->WriteMod(b);
            } else {
              if (s.hasSalesAndPurchase_) s.salesAndPurchase_->WriteAdd(b);
              else s.salesOrPurchase_->WriteAdd(b);
            }
          })
          .Add(Send::Always)
          .Mod(Send::Always),
      field::Custom(
          "SalesAndPurchase",
          [](ListObject& o, const XmlNode& n) {
            AsSales(o).salesAndPurchase_->FromDom(n);
            AsSales(o).hasSalesAndPurchase_ = true;
          },
          nullptr)
          .NotInQuery(),
      field::Dropped("DataExtRet"),
  });
  i.checks = {
      NameCheck(),
      ParentOfSameKindCheck(),
      check::Custom([](ListObject& o, qcErrors& e) { CheckTaxCode(*AsSales(o).salesTaxCode_, e); }),
      check::Custom([](ListObject& o, qcErrors& e) {
        SalesItem& s = AsSales(o);
        if (s.hasSalesAndPurchase_) {
          if (!s.salesAndPurchase_->Validate()) CopyErrors(*s.salesAndPurchase_->Errors(), e);
        } else if (!s.salesOrPurchase_->Validate()) {
          CopyErrors(*s.salesOrPurchase_->Errors(), e);
        }
      }),
  };
  return i;
}

SalesItem::SalesItem(const ListClassInfo& info, qbEnumItemType type, Guards guards)
    : ItemObject(info, type),
      guards_(guards),
      salesTaxCode_(std::make_shared<qcListObjectRef>(qoListSalesTaxCodes)),
      salesOrPurchase_(std::make_shared<itemSalesOrPurchase>()),
      salesAndPurchase_(std::make_shared<itemSalesAndPurchase>()) {}

std::string SalesItem::SalesDescription() const {
  return hasSalesAndPurchase_ ? salesAndPurchase_->SalesDescription() : salesOrPurchase_->Description();
}
std::string SalesItem::PurchaseDescription() const {
  return hasSalesAndPurchase_ ? salesAndPurchase_->PurchaseDescription() : salesOrPurchase_->Description();
}
bool SalesItem::SalesCostIsPercent() const { return !hasSalesAndPurchase_ && salesOrPurchase_->AmountIsPercent(); }
bool SalesItem::PurchaseCostIsPercent() const { return SalesCostIsPercent(); }
Currency SalesItem::SalesCost() const {
  return hasSalesAndPurchase_ ? salesAndPurchase_->SalesPrice() : salesOrPurchase_->Amount();
}
Currency SalesItem::PurchaseCost() const {
  return hasSalesAndPurchase_ ? salesAndPurchase_->PurchaseCost() : salesOrPurchase_->Amount();
}
bool SalesItem::ContainsExpenseAccount() const {
  return hasSalesAndPurchase_ && !salesAndPurchase_->ExpenseAccount().empty();
}

void SalesItem::AfterFromDom() {
  salesOrPurchase_->SetObjectState(qoObjectStateClean);
  salesAndPurchase_->SetObjectState(qoObjectStateClean);
}

void SalesItem::ResetToNew() {
  ListObject::ResetToNew();
  salesOrPurchase_->SetObjectState(qoObjectStateNew);
  salesAndPurchase_->SetObjectState(qoObjectStateNew);
}

bool SalesItem::ModifyWhileClean() {
  const qoEnumObjectState state =
      hasSalesAndPurchase_ ? salesAndPurchase_->ObjectState() : salesOrPurchase_->ObjectState();
  return state == qoObjectStateDirty;
}

// Each class keeps its own table, made on first use.
#define TESSARON_SALES_ITEM_INFO(name, objectType)                                 \
  []() -> const ListClassInfo& {                                                    \
    static const ListClassInfo info = SalesItemClass(name, objectType);            \
    return info;                                                                    \
  }()

ItemService::ItemService()
    : SalesItem(TESSARON_SALES_ITEM_INFO("ItemService", qoObjectTypeItemService), qbItemService,
                {false, false, false}) {}
ItemNonInventory::ItemNonInventory()
    : SalesItem(TESSARON_SALES_ITEM_INFO("ItemNonInventory", qoObjectTypeItemNonInventory), qbItemNonInventory,
                {false, false, false}) {}
ItemOtherCharge::ItemOtherCharge()
    : SalesItem(TESSARON_SALES_ITEM_INFO("ItemOtherCharge", qoObjectTypeItemOtherCharge), qbItemOtherCharge,
                {true, true, true}) {}
#undef TESSARON_SALES_ITEM_INFO

// ---- ItemDiscount --------------------------------------------------------------------------

const ListClassInfo& ItemDiscount::Info() {
  using C = ListObject::Common;
  static const ListClassInfo info = [] {
    ListClassInfo i = ItemClass("ItemDiscount", qoObjectTypeItemDiscount, true, ModifyRule::Raise, "Modify not allowed");
    // The rate travels as an amount (DiscountRate) or a percentage (DiscountRatePercent),
    // and not at all when it is 0.
    static const auto readRate = [](ListObject& o, const XmlNode& n, bool notPercent) {
      std::string text = n.text();
      AsDiscount(o).amount_ = CurrencyFromText(text);
      AsDiscount(o).notPercent_ = notPercent;
    };
    i.fields = C::Rows({
        C::Name(Send::Always),
        C::FullName(),
        C::IsActive(),
        Rows::ParentRef(),
        C::Sublevel(),
        Rows::ItemDesc(&ItemDiscount::description_),
        Rows::Ref("SalesTaxCodeRef", &ItemDiscount::salesTaxCode_, qoListSalesTaxCodes).As("SalesTaxCode"),
        field::Custom(
            "DiscountRate", [](ListObject& o, const XmlNode& n) { readRate(o, n, true); },
            [](ListObject& o, xmlBldr& b, WriteMode) {
              const ItemDiscount& d = AsDiscount(o);
              if (d.amount_ == Currency()) return;
              if (d.notPercent_) b.CreateElement("DiscountRate", AmountToText(d.amount_));
              else b.CreateElement("DiscountRatePercent", PercentRateToText(d.amount_));
            },
            [](const ListObject& o) { return static_cast<const ItemDiscount&>(o).amount_.ToString(); })
            .Add(Send::Always)
            .As("Amount"),
        field::Custom("DiscountRatePercent", [](ListObject& o, const XmlNode& n) { readRate(o, n, false); }, nullptr)
            .NotInQuery(),
        Rows::Ref("AccountRef", &ItemDiscount::account_, qoListAccounts).As("Account"),
        field::Dropped("DataExtRet"),
    });
    i.checks = {
        NameCheck(),
        ParentOfSameKindCheck(),
        check::Custom([](ListObject& o, qcErrors& e) {
          CheckTaxCode(*AsDiscount(o).salesTaxCode_, e, "ItemDiscount.SalesTaxCode");
        }),
        check::Custom([](ListObject& o, qcErrors& e) {
          CheckRef(*AsDiscount(o).account_, e, err::kBadAccount, "Account", err::kBadAccountText, false);
        }),
    };
    return i;
  }();
  return info;
}

ItemDiscount::ItemDiscount()
    : ItemObject(Info(), qbItemDiscount),
      account_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      salesTaxCode_(std::make_shared<qcListObjectRef>(qoListSalesTaxCodes)) {}

// ---- ItemPayment ---------------------------------------------------------------------------

const ListClassInfo& ItemPayment::Info() {
  using C = ListObject::Common;
  static const ListClassInfo info = [] {
    ListClassInfo i = ItemClass("ItemPayment", qoObjectTypeItemPayment, false, ModifyRule::Raise);
    i.fields = C::Rows({
        C::Name(Send::Always),
        C::IsActive(),
        Rows::ItemDesc(&ItemPayment::description_),
        // The deposit account goes by ListID when known.
        field::Custom(
            "DepositToAccountRef",
            [](ListObject& o, const XmlNode& n) { detail::ListObjectAccess::ReadFromNode(*static_cast<ItemPayment&>(o).depositToAccount_, n); },
            [](ListObject& o, xmlBldr& b, WriteMode) {
              WriteRefByListID(*static_cast<ItemPayment&>(o).depositToAccount_, b, "DepositToAccountRef");
            },
            [](const ListObject& o) { return static_cast<const ItemPayment&>(o).DepositToAccount(); })
            .Add(Send::Always)
            .As("DepositToAccount"),
        Rows::Ref("PaymentMethodRef", &ItemPayment::paymentMethod_, qoListPaymentMethods).As("PaymentMethod"),
        field::Dropped("DataExtRet"),
    });
    i.checks = {NameCheck()};
    return i;
  }();
  return info;
}

ItemPayment::ItemPayment()
    : ItemObject(Info(), qbItemPayment),
      depositToAccount_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      paymentMethod_(std::make_shared<qcListObjectRef>(qoListPaymentMethods)) {}

// ---- ItemSubtotal --------------------------------------------------------------------------

const ListClassInfo& ItemSubtotal::Info() {
  using C = ListObject::Common;
  static const ListClassInfo info = [] {
    ListClassInfo i = ItemClass("ItemSubtotal", qoObjectTypeItemSubtotal, false, ModifyRule::Write);
    i.fields = C::Rows({
        C::Name(Send::Always),
        C::IsActive(),
        field::Text("ItemDesc", &ItemSubtotal::description_).Add(Send::IfSet).Mod(Send::IfSet).As("Description"),
        field::Dropped("DataExtRet"),
    });
    // Subtotals word their name checks in their own way.
    i.checks = {check::Required(&ItemSubtotal::name_, "Name", err::kNameNull, "Name must be entered", 31,
                                err::kNameTooLong, "Name length cannot exceed 31")};
    return i;
  }();
  return info;
}

ItemSubtotal::ItemSubtotal() : ItemObject(Info(), qbItemSubtotal) {}

}  // namespace tessaron
