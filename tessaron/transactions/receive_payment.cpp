#include "tessaron/transactions/receive_payment.h"

#include <set>

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/qc_list_object.h"
#include "tessaron/lists/account.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/detail/txn_access.h"
#include "tessaron/transactions/credit_memos.h"
#include "tessaron/transactions/detail/txn_refs.h"
#include "tessaron/transactions/txn_applied_to.h"

namespace tessaron {

namespace {

constexpr char kSource[] = "Tessaron:ReceivePayment";

using detail::NamedRef;
using detail::NameOf;
using detail::Target;

ReceivePayment& Self(TxnObject& o) { return static_cast<ReceivePayment&>(o); }

// A reference that must name a record on file when it names anything.
std::shared_ptr<qcListObjectRef> CheckedRef(qoEnumListType list, const std::string& name, uint32_t code,
                                            const char* text) {
  auto ref = NamedRef(list, name);
  if (!name.empty() && !Target<qcListObject>(ref)) throw Error(code, kSource, text);
  return ref;
}

}  // namespace

// The table is in the order of the query-response element. The applied amounts close
// the add: either IsAutoApply or one AppliedToTxnAdd per member.
const TxnClassInfo& ReceivePayment::Info() {
  static const TxnClassInfo info = [] {
    TxnClassInfo i;
    i.className = "ReceivePayment";
    i.objectType = qoObjectTypeReceivePayment;
    i.gate = TxnModifyGate::Never;
    const auto addMod = [](TxnFieldDef row) { return row.Add(Send::IfSet).Mod(Send::IfSet); };
    i.fields = Common::Rows({
        addMod(field::Ref("CustomerRef", &ReceivePayment::customerRef_, qoListCustomers)),
        addMod(field::Ref("ARAccountRef", &ReceivePayment::arAccountRef_, qoListAccounts)),
        addMod(field::DateOnly("TxnDate", &ReceivePayment::txnDate_)),
        addMod(field::Text("RefNumber", &ReceivePayment::refNumber_)),
        addMod(field::Amount("TotalAmount", &ReceivePayment::total_)).As("Total"),
        addMod(field::Ref("PaymentMethodRef", &ReceivePayment::paymentMethodRef_, qoListPaymentMethods)),
        addMod(field::Text("Memo", &ReceivePayment::memo_)),
        addMod(field::Ref("DepositToAccountRef", &ReceivePayment::depositToAccountRef_, qoListAccounts)),
        field::Amount("UnusedPayment", &ReceivePayment::unusedPayment_),
        // QuickBooks answers UnusedCredits; the saved form says UnusedCredit.
        field::Amount("UnusedCredits", &ReceivePayment::unusedCredit_).NotInQuery(),
        field::CustomOf<TxnObject>(
            "UnusedCredit",
            [](TxnObject& o, const XmlNode& n) {
              std::string text = n.text();
              Self(o).unusedCredit_ = CurrencyFromText(text);
            },
            [](TxnObject& o, xmlBldr& b, WriteMode mode) {
              if (mode == WriteMode::QueryRs) b.CreateElement("UnusedCredit", AmountToText(Self(o).unusedCredit_));
            }),
        field::CustomOf<TxnObject>(
            "AppliedToTxnRet",
            [](TxnObject& o, const XmlNode& n) { detail::TxnAccess::ReadMember(*Self(o).applied_, n); },
            [](TxnObject& o, xmlBldr& b, WriteMode mode) {
              ReceivePayment& p = Self(o);
              if (mode == WriteMode::QueryRs) detail::TxnAccess::WriteQueryRs(*p.applied_, b);
              else if (p.isAutoApply_ && mode == WriteMode::Add) b.CreateElement("IsAutoApply", "true");
              else detail::TxnAccess::WriteRequest(*p.applied_, b, mode == WriteMode::Modify);
            },
            [](const TxnObject& o) {
              return std::to_string(static_cast<const ReceivePayment&>(o).AppliedToTxns()->Count());
            })
            .Add(Send::Always)
            .Mod(Send::Always)
            .As("AppliedToTxns"),
        field::Dropped<TxnObject>("DataExtRet"),
    });
    return i;
  }();
  return info;
}

ReceivePayment::ReceivePayment()
    : TxnObject(Info()),
      arAccountRef_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      paymentMethodRef_(std::make_shared<qcListObjectRef>(qoListPaymentMethods)),
      customerRef_(std::make_shared<qcListObjectRef>(qoListCustomers)),
      depositToAccountRef_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      applied_(std::make_shared<txnAppliedTos>()) {
  txnDate_ = Today();
  if (auto company = State().CurrentCompany) arAccountRef_ = NamedRef(qoListAccounts, company->DefaultARAccount());
  detail::TxnAccess::SetOwnerType(*applied_, qoObjectTypeReceivePayment);
  detail::TxnAccess::SetEventSink(*applied_, EventSink());
  detail::TxnAccess::SetOwnerGuard(*applied_, [this] { MarkModified(true); });
}

ReceivePayment::~ReceivePayment() = default;

const std::string& ReceivePayment::ARAccount() const { return NameOf(arAccountRef_); }
const std::string& ReceivePayment::PaymentMethod() const { return NameOf(paymentMethodRef_); }
const std::string& ReceivePayment::Customer() const { return NameOf(customerRef_); }
const std::string& ReceivePayment::DepositToAccount() const { return NameOf(depositToAccountRef_); }

void ReceivePayment::SetTxnDate(Date value) { MarkModified(true); txnDate_ = value; }
void ReceivePayment::SetRefNumber(const std::string& value) { MarkModified(true); refNumber_ = value; }
void ReceivePayment::SetMemo(const std::string& value) { MarkModified(true); memo_ = value; }
void ReceivePayment::SetIsAutoApply(bool value) { MarkModified(true); isAutoApply_ = value; }

void ReceivePayment::SetARAccount(const std::string& value) {
  MarkModified(true);
  arAccountRef_ = CheckedRef(qoListAccounts, value, err::kInvalidTxnAccount, err::kInvalidTxnAccountText);
}

void ReceivePayment::SetDepositToAccount(const std::string& value) {
  MarkModified(true);
  depositToAccountRef_ = CheckedRef(qoListAccounts, value, err::kInvalidTxnAccount, err::kInvalidTxnAccountText);
}

void ReceivePayment::SetPaymentMethod(const std::string& value) {
  MarkModified(true);
  paymentMethodRef_ =
      CheckedRef(qoListPaymentMethods, value, err::kInvalidPaymentMethod, err::kInvalidPaymentMethodText);
}

void ReceivePayment::SetCustomer(const std::string& value) {
  if (value.empty()) return;
  auto ref = CheckedRef(qoListCustomers, value, err::kInvalidCustomer, err::kInvalidCustomerText);
  MarkModified(true);
  customerRef_ = ref;
}

void ReceivePayment::SetTotal(Currency value) {
  MarkModified(true);
  const Currency before = total_;
  total_ = value;
  try {
    RecalculatePayment();
  } catch (...) {
    total_ = before;
    throw;
  }
}

void ReceivePayment::RecalculatePayment() {
  const Currency credits = applied_->TotalCredits();
  const Currency discounts = applied_->TotalDiscounts();
  const Currency applied = applied_->Total();
  if (applied > total_) throw Error(err::kAppliedExceedsTotal, kSource, err::kAppliedExceedsTotalText);
  unusedPayment_ = total_ - (applied + credits + discounts);
  // What the credits used amount to, each asked of QuickBooks once, less what is used.
  Currency creditTotals;
  if (credits != Currency() && State().CurrentCompany) {
    CreditMemos memos;
    for (const auto& member : *applied_)
      for (const auto& credit : *member->Credits())
        if (auto memo = memos.GetByTxnID(credit->CreditTxnID(), true)) creditTotals = creditTotals + memo->Total();
  }
  unusedCredit_ = creditTotals - credits;
}

// ---- Checks --------------------------------------------------------------------------------

bool ReceivePayment::Validate() {
  auto errors = Errors();
  errors->Clear();
  if (ObjectState() == qoObjectStateClean) return true;

  if (Customer().empty()) errors->Add(err::kCustomerRequired, "Customer", err::kCustomerRequiredText);
  if (!ARAccount().empty()) {
    auto account = Target<Account>(arAccountRef_);
    if (!account || account->AccountType() != qbAccountTypeAccountsReceivable)
      errors->Add(err::kNeedArAccount, "ARAccount", err::kNeedArAccountText);
  }
  if (!isAutoApply_) {
    std::set<std::string> seen;
    long position = 0;
    for (const auto& member : *applied_) {
      ++position;
      if (!seen.insert(member->TxnId()).second)
        errors->Add(err::kDuplicateAppliedTo, std::to_string(position), err::kDuplicateAppliedToText);
      if (!detail::TxnAccess::Validate(*member))
        errors->Add(err::kValidateFailed, std::to_string(position), err::kValidateFailedText);
    }
  } else if (applied_->Count() > 0) {
    errors->Add(err::kAutoApplyWithAppliedTo, "IsAutoApply", err::kAutoApplyWithAppliedToText);
  }
  return errors->Count() == 0;
}

// ---- State ---------------------------------------------------------------------------------

Variant ReceivePayment::FromDom(const XmlNode& obj) {
  detail::TxnAccess::ClearMembers(*applied_);
  Variant result = TxnObject::FromDom(obj);
  isAutoApply_ = false;
  detail::TxnAccess::SetObjectState(*applied_, qoObjectStateClean);
  return result;
}

void ReceivePayment::ResetToNew() {
  TxnObject::ResetToNew();
  detail::TxnAccess::SetObjectState(*applied_, qoObjectStateNew);
}

}  // namespace tessaron
