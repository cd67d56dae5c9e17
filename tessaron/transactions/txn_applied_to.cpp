#include "tessaron/transactions/txn_applied_to.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/events/qc_event_sink.h"
#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/lists/account.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"

namespace tessaron {

namespace {

constexpr char kSource[] = "Tessaron:txnAppliedTo";

Currency AmountOf(const XmlNode& node) {
  std::string text = node.text();
  return CurrencyFromText(text);
}

void RaiseAmountChange(const std::shared_ptr<qcEventSink>& sink) {
  if (sink) sink->Raise(qoEventAmountChange);
}

}  // namespace

// ---- txnDetailLine ---------------------------------------------------------------------------

std::shared_ptr<qcErrors> txnDetailLine::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

void txnDetailLine::SetAmount(Currency value) {
  amount_ = value;
  RaiseAmountChange(sink_);
}

void txnDetailLine::FromDom(const XmlNode& node) {
  for (const XmlNode& child : node.childNodes()) {
    const std::string_view tag = child.baseName();
    if (tag == "AppliedAmount" || tag == "Amount") amount_ = AmountOf(child);
    else if (tag == "CreditTxnID" || tag == "CreditTxnId" || tag == "TxnID") creditTxnId_ = child.text();
  }
  // A credit applied to a payment shows as a negative amount in a link.
  if (amount_ < Currency()) amount_ = Currency() - amount_;
}

// ---- txnDetailLines --------------------------------------------------------------------------

std::shared_ptr<txnDetailLine> txnDetailLines::Add(const std::string& CreditTxnID, Currency Amount) {
  auto line = std::make_shared<txnDetailLine>();
  line->creditTxnId_ = CreditTxnID;
  line->amount_ = Amount;
  line->SetEventSink(sink_);
  col_.Add(line);
  Changed();
  return line;
}

void txnDetailLines::Remove(long Index) {
  col_.Remove(Index);
  Changed();
}

void txnDetailLines::Clear() {
  col_ = Collection<std::shared_ptr<txnDetailLine>>();
  Changed();
}

Currency txnDetailLines::Total() const {
  Currency sum;
  for (const auto& line : col_)
    if (line->Amount() != Currency()) sum = sum + line->Amount();
  return sum;
}

void txnDetailLines::SetEventSink(const std::shared_ptr<qcEventSink>& sink) {
  sink_ = sink;
  for (const auto& line : col_) line->SetEventSink(sink);
}

void txnDetailLines::Changed() const { RaiseAmountChange(sink_); }

// ---- txnAppliedTo ----------------------------------------------------------------------------

txnAppliedTo::txnAppliedTo()
    : discountAccountRef_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      credits_(std::make_shared<txnDetailLines>()) {}

std::shared_ptr<qcErrors> txnAppliedTo::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

const std::string& txnAppliedTo::DiscountAccount() const { return discountAccountRef_->FullName(); }

void txnAppliedTo::SetDiscountAccount(const std::string& value) {
  auto ref = std::make_shared<qcListObjectRef>(qoListAccounts);
  detail::ListObjectAccess::SetFullName(*ref, value);
  if (!value.empty()) {
    auto account = State().CurrentCompany ? std::dynamic_pointer_cast<Account>(ResolveListRef(*ref)) : nullptr;
    if (!account) throw Error(err::kInvalidTxnAccount, kSource, err::kInvalidTxnAccountText);
    switch (account->AccountType()) {
      case qbAccountTypeIncome:
      case qbAccountTypeOtherIncome:
      case qbAccountTypeExpense:
      case qbAccountTypeOtherExpense: break;
      default: throw Error(err::kBadDiscountAccount, kSource, err::kBadDiscountAccountText);
    }
  }
  discountAccountRef_ = ref;
}

void txnAppliedTo::SetDiscountAmount(Currency value) {
  discountAmount_ = value;
  Changed();
}

void txnAppliedTo::SetAmount(Currency value) {
  amount_ = value;
  Changed();
}

void txnAppliedTo::SetEventSink(const std::shared_ptr<qcEventSink>& sink) {
  sink_ = sink;
  credits_->SetEventSink(sink);
}

void txnAppliedTo::Changed() const { RaiseAmountChange(sink_); }

bool txnAppliedTo::Validate() {
  Errors()->Clear();
  return true;
}

void txnAppliedTo::FromDom(const XmlNode& obj) {
  // Credits arrive through the reading, not as changes: no events meanwhile.
  credits_->sink_ = nullptr;
  credits_->col_ = Collection<std::shared_ptr<txnDetailLine>>();
  for (const XmlNode& child : obj.childNodes()) {
    const std::string_view tag = child.baseName();
    if (tag == "TxnID") txnId_ = child.text();
    else if (tag == "TxnType") txnType_ = static_cast<qoEnumListObjectType>(EnumDescriptionToCode(child.text(), qoeObjectType));
    else if (tag == "TxnDate") txnDate_ = DateFromText(child.text());
    else if (tag == "RefNumber") refNumber_ = child.text();
    else if (tag == "BalanceRemaining") balanceRemaining_ = AmountOf(child);
    else if (tag == "DiscountAmount") discountAmount_ = AmountOf(child);
    else if (tag == "DiscountAccountRef") detail::ListObjectAccess::ReadFromNode(*discountAccountRef_, child);
    else if (tag == "Amount" || tag == "PaymentAmount") amount_ = AmountOf(child);
    else if (tag == "LinkedTxn" || tag == "SetCredit") {
      auto line = std::make_shared<txnDetailLine>();
      line->FromDom(child);
      credits_->col_.Add(line);
    } else if (tag == "UserData") {
      userData_ = Variant(child.text());
    }
    // Line details and anything newer are not kept.
  }
  credits_->SetEventSink(sink_);
  state_ = qoObjectStateClean;
}

void txnAppliedTo::WriteRequest(xmlBldr& b, bool isMod) const {
  const char* tag = isMod ? "AppliedToTxnMod" : "AppliedToTxnAdd";
  b.OpenAggregateOnly(tag);
  b.CreateElement("TxnID", txnId_);
  b.CreateElement("PaymentAmount", AmountToText(amount_));
  for (const auto& credit : *credits_) {
    b.OpenAggregateOnly("SetCredit");
    b.CreateElement("CreditTxnID", credit->CreditTxnID());
    b.CreateElement("AppliedAmount", AmountToText(credit->Amount()));
    b.EndAggregate("SetCredit");
  }
  if (discountAmount_ != Currency()) {
    b.CreateElement("DiscountAmount", AmountToText(discountAmount_));
    WriteListRef(discountAccountRef_, b, "DiscountAccountRef");
  }
  b.EndAggregate(tag);
}

void txnAppliedTo::WriteQueryRs(xmlBldr& b) const {
  b.OpenAggregateOnly("AppliedToTxnRet");
  b.CreateElement("TxnID", txnId_);
  b.CreateElement("TxnType", txnType_ == 0 ? std::string() : EnumCodeToDescription(txnType_, qoeObjectType));
  if (txnDate_ != 0) b.CreateElement("TxnDate", DateToText(txnDate_));
  if (!refNumber_.empty()) b.CreateElement("RefNumber", refNumber_);
  b.CreateElement("BalanceRemaining", AmountToText(balanceRemaining_));
  b.CreateElement("Amount", AmountToText(amount_));
  b.CreateElement("DiscountAmount", AmountToText(discountAmount_));
  if (!DiscountAccount().empty()) detail::ListObjectAccess::WriteQueryRs(*discountAccountRef_, b, "DiscountAccountRef");
  b.EndAggregate("AppliedToTxnRet");
}

// ---- txnAppliedTos ---------------------------------------------------------------------------

std::shared_ptr<qcErrors> txnAppliedTos::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

void txnAppliedTos::MarkModified() {
  if (guard_) guard_();
  if (state_ != qoObjectStateNew) state_ = qoObjectStateDirty;
}

void txnAppliedTos::SetObjectState(qoEnumObjectState value) {
  state_ = value;
  for (const auto& member : col_) member->SetObjectState(value);
}

std::shared_ptr<txnAppliedTo> txnAppliedTos::Add(const std::string& TxnId, Currency PaymentAmount,
                                                  Currency DiscountAmount, const std::string& DiscountAccount) {
  MarkModified();
  Errors()->Clear();
  auto member = std::make_shared<txnAppliedTo>();
  member->SetOwnerType(ownerType_);
  member->SetTxnId(TxnId);
  member->SetAmount(PaymentAmount);
  member->SetDiscountAmount(DiscountAmount);
  member->SetDiscountAccount(DiscountAccount);
  if (!member->Validate()) return nullptr;
  col_.Add(member);
  member->SetEventSink(sink_);
  RaiseAmountChange(sink_);
  return member;
}

std::shared_ptr<txnAppliedTo> txnAppliedTos::Item(const Variant& Index) const {
  if (Index.IsString()) {
    for (const auto& member : col_)
      if (member->TxnId() == Index.ToString()) return member;
    return col_.Item(std::string_view(Index.ToString()));  // raises the collection's error
  }
  return col_.Item(static_cast<long>(Index.ToInteger()));
}

bool txnAppliedTos::ItemExists(const Variant& Index) const {
  try {
    (void)Item(Index);
    return true;
  } catch (const Error&) {
    return false;
  }
}

void txnAppliedTos::Clear() {
  MarkModified();
  ClearMembers();
  RaiseAmountChange(sink_);
}

void txnAppliedTos::Remove(const Variant& Index) {
  MarkModified();
  auto member = Item(Index);
  for (long i = 1; i <= col_.Count(); ++i)
    if (col_.Item(i) == member) {
      col_.Remove(i);
      break;
    }
  RaiseAmountChange(sink_);
}

Currency txnAppliedTos::TotalDiscounts() const {
  Currency sum;
  for (const auto& m : col_)
    if (m->DiscountAmount() != Currency()) sum = sum + m->DiscountAmount();
  return sum;
}

Currency txnAppliedTos::TotalCredits() const {
  Currency sum;
  for (const auto& m : col_) sum = sum + m->Credits()->Total();
  return sum;
}

Currency txnAppliedTos::Total() const {
  Currency sum;
  for (const auto& m : col_)
    if (m->Amount() != Currency()) sum = sum + m->Amount();
  return sum;
}

void txnAppliedTos::ReadMember(const XmlNode& node) {
  auto member = std::make_shared<txnAppliedTo>();
  member->SetOwnerType(ownerType_);
  member->FromDom(node);
  member->SetEventSink(sink_);
  col_.Add(member);
}

void txnAppliedTos::WriteRequest(xmlBldr& b, bool isMod) const {
  for (const auto& m : col_) m->WriteRequest(b, isMod);
}

void txnAppliedTos::WriteQueryRs(xmlBldr& b) const {
  for (const auto& m : col_) m->WriteQueryRs(b);
}

}  // namespace tessaron
