#include "tessaron/transactions/vendor_documents.h"

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/transactions/purchase_collections.h"

namespace tessaron {

namespace {
const auto addMod = [](TxnFieldDef row, Send mod = Send::Always) { return row.Add(Send::IfSet).Mod(mod); };
}  // namespace

const TxnClassInfo& VendorCredit::Info() {
  static const TxnClassInfo info = [] {
    TxnClassInfo i;
    i.className = "VendorCredit";
    i.objectType = qoObjectTypeVendorCredit;
    i.gate = TxnModifyGate::Never;
    i.modifyRefusal = "ModRq not supported";
    i.lineRet = "ItemLineRet";
    i.lineGroupRet = "ItemGroupLineRet";
    i.master = [] { return std::static_pointer_cast<TxnCollectionBase>(State().CurrentCompany->VendorCredits()); };
    i.fields = Common::Rows({
        addMod(field::Ref("VendorRef", &VendorCredit::vendorRef_, qoListVendors), Send::Never),
        addMod(field::Ref("APAccountRef", &VendorCredit::apAccountRef_, qoListAccounts), Send::Never).NotInQuery(),
        addMod(field::DateOnly("TxnDate", &VendorCredit::txnDate_), Send::Never),
        field::Amount("CreditAmount", &VendorCredit::amount_),
        addMod(field::Text("RefNumber", &VendorCredit::refNumber_), Send::Never),
        addMod(field::Text("Memo", &VendorCredit::memo_), Send::Never),
        field::Amount("OpenAmount", &VendorCredit::openAmount_),
        field::Dropped<TxnObject>("DataExtRet"),
    });
    return i;
  }();
  return info;
}

const TxnClassInfo& ItemReceipt::Info() {
  static const TxnClassInfo info = [] {
    TxnClassInfo i;
    i.className = "ItemReceipt";
    i.objectType = qoObjectTypeItemReceipt;
    i.gate = TxnModifyGate::Never;
    i.lineRet = "ItemLineRet";
    i.lineGroupRet = "ItemGroupLineRet";
    i.master = [] { return std::static_pointer_cast<TxnCollectionBase>(State().CurrentCompany->ItemReceipts()); };
    i.fields = Common::Rows({
        addMod(field::Ref("VendorRef", &ItemReceipt::vendorRef_, qoListVendors), Send::IfSet),
        addMod(field::Ref("APAccountRef", &ItemReceipt::apAccountRef_, qoListAccounts), Send::IfSet).NotInQuery(),
        addMod(field::DateOnly("TxnDate", &ItemReceipt::txnDate_), Send::IfSet),
        field::Amount("TotalAmount", &ItemReceipt::amount_),
        addMod(field::Text("RefNumber", &ItemReceipt::refNumber_)),
        addMod(field::Text("Memo", &ItemReceipt::memo_)),
        field::Dropped<TxnObject>("DataExtRet"),
    });
    return i;
  }();
  return info;
}

VendorCredit::VendorCredit() : VendorDocument(Info(), Header::Vendor, true) {}

ItemReceipt::ItemReceipt() : VendorDocument(Info(), Header::Vendor, true) { writesLinkIds_ = true; }

}  // namespace tessaron
