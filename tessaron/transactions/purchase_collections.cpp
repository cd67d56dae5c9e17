#include "tessaron/transactions/purchase_collections.h"

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/qc_error.h"

namespace tessaron {

namespace {

TxnCollectionInfo InfoOf(const char* className, qoEnumListObjectType type, const char* queryRequest) {
  TxnCollectionInfo i;
  i.className = className;
  i.objectType = type;
  i.queryRequest = queryRequest;
  i.mirrorObjectName = className;
  return i;
}

std::string DefaultAP(const std::string& given) {
  if (!given.empty()) return given;
  auto company = State().CurrentCompany;
  return company ? company->DefaultAPAccount() : std::string();
}

// What the vendor documents' Adds share.
template <class Doc>
void FillVendorDocument(Doc& doc, const std::string& Vendor, const std::string& RefNumber, Date TxnDate,
                        const std::string& APAccount, const std::string& Memo) {
  if (const std::string ap = DefaultAP(APAccount); !ap.empty()) doc.SetAPAccount(ap);
  if (!Vendor.empty()) doc.SetVendor(Vendor);
  if (TxnDate != 0) doc.SetTxnDate(TxnDate);
  if (!RefNumber.empty()) doc.SetRefNumber(RefNumber);
  if (!Memo.empty()) doc.SetMemo(Memo);
}

// What the paying-account documents' Adds share.
template <class Doc>
void FillAccountDocument(Doc& doc, const std::string& Account, const std::string& PayeeEntity,
                         const std::string& RefNumber, Date TxnDate, const std::string& Memo) {
  if (!Account.empty()) doc.SetAccount(Account);
  if (!PayeeEntity.empty()) doc.SetPayeeEntity(PayeeEntity);
  if (!RefNumber.empty()) doc.SetRefNumber(RefNumber);
  if (TxnDate != 0) doc.SetTxnDate(TxnDate);
  if (!Memo.empty()) doc.SetMemo(Memo);
}

}  // namespace

Bills::Bills() : TxnCollection<Bill>(InfoOf("Bill", qoObjectTypeBill, "BillQueryRq")) {}
VendorCredits::VendorCredits()
    : TxnCollection<VendorCredit>(InfoOf("VendorCredit", qoObjectTypeVendorCredit, "VendorCreditQueryRq")) {}
ItemReceipts::ItemReceipts()
    : TxnCollection<ItemReceipt>(InfoOf("ItemReceipt", qoObjectTypeItemReceipt, "ItemReceiptQueryRq")) {}
Checks::Checks() : TxnCollection<Check>(InfoOf("Check", qoObjectTypeCheck, "CheckQueryRq")) {}
CreditCardCharges::CreditCardCharges()
    : TxnCollection<CreditCardCharge>(
          InfoOf("CreditCardCharge", qoObjectTypeCreditCardCharge, "CreditCardChargeQueryRq")) {}
CreditCardCredits::CreditCardCredits()
    : TxnCollection<CreditCardCredit>(
          InfoOf("CreditCardCredit", qoObjectTypeCreditCardCredit, "CreditCardCreditQueryRq")) {}
PurchaseOrders::PurchaseOrders()
    : TxnCollection<PurchaseOrder>(InfoOf("PurchaseOrder", qoObjectTypePurchaseOrder, "PurchaseOrderQueryRq")) {}

std::shared_ptr<Bill> Bills::Add(const std::string& Vendor, const std::string& RefNumber, Date TxnDate,
                                 const std::string& APAccount, const std::string& Terms, Date DueDate,
                                 const std::string& Memo) {
  Errors()->Clear();
  return AddNew([&](Bill& bill) {
    FillVendorDocument(bill, Vendor, RefNumber, TxnDate, APAccount, Memo);
    if (TxnDate != 0) bill.UpdateDueDate();
    if (!Terms.empty()) bill.SetTerms(Terms);
    if (DueDate != 0) bill.SetDueDate(DueDate);
  });
}

std::shared_ptr<VendorCredit> VendorCredits::Add(const std::string& Vendor, const std::string& RefNumber,
                                                 Date TxnDate, const std::string& APAccount,
                                                 const std::string& Memo) {
  Errors()->Clear();
  return AddNew([&](VendorCredit& doc) { FillVendorDocument(doc, Vendor, RefNumber, TxnDate, APAccount, Memo); });
}

std::shared_ptr<ItemReceipt> ItemReceipts::Add(const std::string& Vendor, const std::string& RefNumber,
                                               Date TxnDate, const std::string& APAccount, const std::string& Memo) {
  Errors()->Clear();
  return AddNew([&](ItemReceipt& doc) { FillVendorDocument(doc, Vendor, RefNumber, TxnDate, APAccount, Memo); });
}

std::shared_ptr<Check> Checks::Add(const std::string& Account, const std::string& PayeeEntity,
                                   const std::string& RefNumber, Date TxnDate, const std::string& Memo,
                                   std::optional<bool> IsToBePrinted) {
  Errors()->Clear();
  return AddNew([&](Check& doc) {
    FillAccountDocument(doc, Account, PayeeEntity, RefNumber, TxnDate, Memo);
    if (IsToBePrinted) doc.SetIsToBePrinted(*IsToBePrinted);
  });
}

std::shared_ptr<CreditCardCharge> CreditCardCharges::Add(const std::string& Account, const std::string& PayeeEntity,
                                                         const std::string& RefNumber, Date TxnDate,
                                                         const std::string& Memo) {
  Errors()->Clear();
  return AddNew([&](CreditCardCharge& doc) { FillAccountDocument(doc, Account, PayeeEntity, RefNumber, TxnDate, Memo); });
}

std::shared_ptr<CreditCardCredit> CreditCardCredits::Add(const std::string& Account, const std::string& PayeeEntity,
                                                         const std::string& RefNumber, Date TxnDate,
                                                         const std::string& Memo) {
  Errors()->Clear();
  return AddNew([&](CreditCardCredit& doc) { FillAccountDocument(doc, Account, PayeeEntity, RefNumber, TxnDate, Memo); });
}

std::shared_ptr<PurchaseOrder> PurchaseOrders::Add(const std::string& Vendor, const std::string& RefNumber,
                                                   Date TxnDate, const std::string& Class,
                                                   const std::string& ShipToEntity, const std::string& Terms,
                                                   const std::string& ShipMethod, const std::string& FOB,
                                                   const std::string& Memo, const std::string& VendorMessage,
                                                   std::optional<bool> IsToBePrinted) {
  Errors()->Clear();
  return AddNew([&](PurchaseOrder& doc) {
    if (!Vendor.empty()) doc.SetVendor(Vendor);
    if (!RefNumber.empty()) doc.SetRefNumber(RefNumber);
    if (TxnDate != 0) doc.SetTxnDate(TxnDate);
    if (!Class.empty()) doc.SetClass(Class);
    if (!ShipToEntity.empty()) doc.SetShipToEntity(ShipToEntity);
    if (!Terms.empty()) doc.SetTerms(Terms);
    if (!ShipMethod.empty()) doc.SetShipMethod(ShipMethod);
    if (!FOB.empty()) doc.SetFOB(FOB);
    if (!Memo.empty()) doc.SetMemo(Memo);
    if (!VendorMessage.empty()) doc.SetVendorMessage(VendorMessage);
    if (IsToBePrinted) doc.SetIsToBePrinted(*IsToBePrinted);
  });
}

}  // namespace tessaron
