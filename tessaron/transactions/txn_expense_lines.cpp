#include "tessaron/transactions/txn_expense_lines.h"

#include "tessaron/events/qc_event_sink.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/detail/line_checks.h"
#include "tessaron/transactions/detail/line_rules.h"

namespace tessaron {

txnExpenseLines::txnExpenseLines() = default;

qoEnumObjectState txnExpenseLines::ObjectState() const {
  if (objectState_ != qoObjectStateClean) return objectState_;
  for (const auto& line : col_)
    if (line->ObjectState() != qoObjectStateClean) return qoObjectStateDirty;
  return objectState_;
}

std::shared_ptr<qcErrors> txnExpenseLines::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

void txnExpenseLines::MarkModified() { detail::MarkLineModified(objectState_, true, "txnExpenseLines"); }

void txnExpenseLines::RaiseAmountChange() {
  if (eventSink_) eventSink_->Raise(qoEventAmountChange);
}

std::shared_ptr<txnExpenseLine> txnExpenseLines::Add(const std::string& Account, Currency Amount,
                                                     const std::string& Memo, const std::string& Class,
                                                     const std::string& Customer, long Before) {
  MarkModified();
  auto line = std::make_shared<txnExpenseLine>();
  line->SetOwnerType(ownerType_);
  // The line is not wired to the sink yet: Add raises once, at the end.
  line->SetAccount(Account);
  line->SetAmount(Amount);
  line->SetClass(Class);
  line->SetCustomer(Customer);
  line->SetMemo(Memo);
  line->SetEventSink(eventSink_);
  if (Before != 0) detail::InsertBefore(col_, line, Before);
  else col_.Add(line);
  line->SetLineKey(std::to_string(col_.Count()));
  RaiseAmountChange();
  return line;
}

bool txnExpenseLines::ItemExists(const Variant& vntIndexKey) const {
  try {
    (void)const_cast<Collection<std::shared_ptr<txnExpenseLine>>&>(col_).Item(vntIndexKey);
    return true;
  } catch (const Error&) {
    return false;
  }
}

std::shared_ptr<txnExpenseLine> txnExpenseLines::Item(const Variant& vntIndexKey) const {
  return const_cast<Collection<std::shared_ptr<txnExpenseLine>>&>(col_).Item(vntIndexKey);
}

void txnExpenseLines::Clear() {
  MarkModified();
  col_ = Collection<std::shared_ptr<txnExpenseLine>>();
}

Currency txnExpenseLines::Total() const {
  Currency total;
  for (const auto& line : col_) total += line->Amount();
  return total;
}

void txnExpenseLines::Remove(const Variant& vntIndexKey) {
  MarkModified();
  col_.Remove(vntIndexKey);
  RaiseAmountChange();
}

void txnExpenseLines::SetOwnerType(qoEnumListObjectType value) {
  ownerType_ = value;
  for (const auto& line : col_) line->SetOwnerType(value);
}

void txnExpenseLines::SetEventSink(const std::shared_ptr<qcEventSink>& sink) {
  eventSink_ = sink;
  for (const auto& line : col_) line->SetEventSink(sink);
}

std::shared_ptr<txnExpenseLine> txnExpenseLines::ReadLine(const XmlNode& node) {
  auto line = std::make_shared<txnExpenseLine>();
  line->SetOwnerType(ownerType_);
  line->SetEventSink(eventSink_);
  line->FromDom(node);
  objectState_ = qoObjectStateClean;
  col_.Add(line);
  return line;
}

void txnExpenseLines::WriteLines(xmlBldr& builder, bool isRet, bool isMod) {
  long position = 1;
  for (const auto& line : col_) {
    line->SetLineKey(std::to_string(position++));
    line->WriteLine(builder, isRet, isMod);
  }
}

}  // namespace tessaron
