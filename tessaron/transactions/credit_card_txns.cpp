#include "tessaron/transactions/credit_card_txns.h"

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/transactions/purchase_collections.h"

namespace tessaron {

namespace {
const auto addOnly = [](TxnFieldDef row) { return row.Add(Send::IfSet).Mod(Send::Never); };
}  // namespace

TxnClassInfo CreditCardTxn::InfoOf(const char* className, qoEnumListObjectType type) {
  TxnClassInfo i;
  i.className = className;
  i.objectType = type;
  i.gate = TxnModifyGate::Never;
  i.modifyRefusal = "ModRq not supported";
  i.lineRet = "ItemLineRet";
  i.lineGroupRet = "ItemGroupLineRet";
  i.fields = Common::Rows({
      addOnly(field::Ref("AccountRef", &CreditCardTxn::accountRef_, qoListAccounts)),
      addOnly(field::Ref("PayeeEntityRef", &CreditCardTxn::payeeEntityRef_, qoListEntity)),
      addOnly(field::DateOnly("TxnDate", &CreditCardTxn::txnDate_)),
      field::Amount("Amount", &CreditCardTxn::amount_),
      addOnly(field::Text("RefNumber", &CreditCardTxn::refNumber_)),
      addOnly(field::Text("Memo", &CreditCardTxn::memo_)),
      AddressRow(false),
      field::Dropped<TxnObject>("DataExtRet"),
  });
  return i;
}

CreditCardTxn::CreditCardTxn(const TxnClassInfo& info) : PurchaseTxn(info, Header::CreditCard, true) {
  totalsFromLines_ = true;
}

const TxnClassInfo& CreditCardCharge::Info() {
  static const TxnClassInfo info = [] {
    TxnClassInfo i = InfoOf("CreditCardCharge", qoObjectTypeCreditCardCharge);
    i.master = [] { return std::static_pointer_cast<TxnCollectionBase>(State().CurrentCompany->CreditCardCharges()); };
    return i;
  }();
  return info;
}

const TxnClassInfo& CreditCardCredit::Info() {
  static const TxnClassInfo info = [] {
    TxnClassInfo i = InfoOf("CreditCardCredit", qoObjectTypeCreditCardCredit);
    i.master = [] { return std::static_pointer_cast<TxnCollectionBase>(State().CurrentCompany->CreditCardCredits()); };
    return i;
  }();
  return info;
}

CreditCardCharge::CreditCardCharge() : CreditCardTxn(Info()) {}
CreditCardCredit::CreditCardCredit() : CreditCardTxn(Info()) {}

}  // namespace tessaron
