#include "tessaron/transactions/purchase_order.h"

#include "tessaron/company/company.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/values.h"
#include "tessaron/lists/address.h"
#include "tessaron/lists/customer.h"
#include "tessaron/lists/vendor.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/detail/txn_refs.h"
#include "tessaron/transactions/purchase_collections.h"

namespace tessaron {

using detail::NamedRef;
using detail::NameOf;

namespace {
const auto addMod = [](TxnFieldDef row, Send mod = Send::Always) { return row.Add(Send::IfSet).Mod(mod); };
const Currency kV3 = Currency(3);
}  // namespace

const TxnClassInfo& PurchaseOrder::Info() {
  static const TxnClassInfo info = [] {
    TxnClassInfo i;
    i.className = "PurchaseOrder";
    i.objectType = qoObjectTypePurchaseOrder;
    i.gate = TxnModifyGate::AboveVersion20;
    i.lineRet = "PurchaseOrderLineRet";
    i.lineGroupRet = "PurchaseOrderLineGroupRet";
    i.master = [] { return std::static_pointer_cast<TxnCollectionBase>(State().CurrentCompany->PurchaseOrders()); };
    i.fields = Common::Rows({
        addMod(field::Ref("VendorRef", &PurchaseOrder::vendorRef_, qoListVendors), Send::IfSet),
        addMod(field::Ref("ClassRef", &PurchaseOrder::classRef_, qoListClasses), Send::IfSet),
        addMod(field::Ref("ShipToEntityRef", &PurchaseOrder::shipToEntityRef_, qoListEntity), Send::IfSet),
        field::Ref("TemplateRef", &PurchaseOrder::templateRef_, qoListTemplates)
            .Add(Send::IfSet, kV3)
            .Mod(Send::IfSet, kV3)
            .NotInQuery(),
        addMod(field::DateOnly("TxnDate", &PurchaseOrder::txnDate_), Send::IfSet),
        addMod(field::Text("RefNumber", &PurchaseOrder::refNumber_)),
        VendorAddressRow(),
        ShipAddressRow(),
        addMod(field::Ref("TermsRef", &PurchaseOrder::termsRef_, qoListTerms), Send::IfSet),
        field::DateOnly("DueDate", &PurchaseOrder::dueDate_),
        field::DateOnly("ExpectedDate", &PurchaseOrder::expectedDate_),
        addMod(field::Ref("ShipMethodRef", &PurchaseOrder::shipMethodRef_, qoListShipMethods), Send::IfSet),
        addMod(field::Text("FOB", &PurchaseOrder::fob_)),
        field::Amount("TotalAmount", &PurchaseOrder::amount_),
        field::Boolean("IsManuallyClosed", &PurchaseOrder::isManuallyClosed_).NotInQuery(),
        field::Boolean("IsFullyReceived", &PurchaseOrder::isFullyReceived_).NotInQuery(),
        addMod(field::Text("Memo", &PurchaseOrder::memo_)),
        addMod(field::Text("VendorMsg", &PurchaseOrder::vendorMsg_)),
        field::Boolean("IsToBePrinted", &PurchaseOrder::isToBePrinted_).Add(Send::Always).Mod(Send::Always),
        field::Dropped<TxnObject>("DataExtRet"),
    });
    return i;
  }();
  return info;
}

PurchaseOrder::PurchaseOrder()
    : PurchaseTxn(Info(), Header::Vendor, false),
      templateRef_(NamedRef(qoListTemplates, "")),
      classRef_(NamedRef(qoListClasses, "")),
      shipToEntityRef_(NamedRef(qoListEntity, "")),
      shipMethodRef_(NamedRef(qoListShipMethods, "")) {
  dueDate_ = txnDate_;
  expectedDate_ = txnDate_;
}

const std::string& PurchaseOrder::Template() const { return NameOf(templateRef_); }
const std::string& PurchaseOrder::Class() const { return NameOf(classRef_); }
const std::string& PurchaseOrder::ShipToEntity() const { return NameOf(shipToEntityRef_); }
const std::string& PurchaseOrder::ShipMethod() const { return NameOf(shipMethodRef_); }

void PurchaseOrder::SetTemplate(const std::string& value) { MarkModified(true); templateRef_ = NamedRef(qoListTemplates, value); }
void PurchaseOrder::SetFOB(const std::string& value) { MarkModified(true); fob_ = value; }
void PurchaseOrder::SetDueDate(Date value) { MarkModified(true); dueDate_ = value; }
void PurchaseOrder::SetExpectedDate(Date value) { MarkModified(true); expectedDate_ = value; }
void PurchaseOrder::SetVendorMessage(const std::string& value) { MarkModified(true); vendorMsg_ = value; }
void PurchaseOrder::SetIsToBePrinted(bool value) { MarkModified(true); isToBePrinted_ = value; }
void PurchaseOrder::SetClass(const std::string& value) { MarkModified(true); classRef_ = NamedRef(qoListClasses, value); }
void PurchaseOrder::SetShipMethod(const std::string& value) {
  MarkModified(true);
  shipMethodRef_ = NamedRef(qoListShipMethods, value);
}

void PurchaseOrder::SetShipToEntity(const std::string& value) {
  auto ref = NamedRef(qoListEntity, value);
  if (value.empty()) {
    MarkModified(true);
    shipToEntityRef_ = ref;
    return;
  }
  auto entity = detail::Target<qcListObject>(ref);
  if (!entity) throw Error(err::kEntityMissing, "PurchaseOrder", err::kEntityMissingText);
  MarkModified(true);
  shipToEntityRef_ = ref;
  switch (entity->ObjectType()) {
    case qoObjectTypeCustomer:
      std::dynamic_pointer_cast<Customer>(entity)->ShipTo()->CopyAddress(*shipTo_);
      return;
    case qoObjectTypeVendor:
    case qoObjectTypeOtherName:
      std::dynamic_pointer_cast<AddressedEntity>(entity)->Address()->CopyAddress(*shipTo_);
      return;
    default:
      RaiseInternal("PurchaseOrder", "Unknown entity type");
  }
}

}  // namespace tessaron
