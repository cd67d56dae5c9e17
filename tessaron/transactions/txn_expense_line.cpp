#include "tessaron/transactions/txn_expense_line.h"

#include "tessaron/events/qc_event_sink.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/lists/account.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/detail/line_rules.h"

namespace tessaron {

using detail::NewRef;

namespace {

constexpr const char* kSource = "Tessaron:txnExpenseLine";
constexpr const char* kClass = "txnExpenseLine";

const std::string& NameOf(const std::shared_ptr<qcListObjectRef>& ref) {
  static const std::string kEmpty;
  return ref ? ref->FullName() : kEmpty;
}

std::shared_ptr<qcListObjectRef> ReadRef(qoEnumListType list, const XmlNode& node) {
  auto ref = NewRef(list);
  detail::ListObjectAccess::ReadFromNode(*ref, node);
  return ref;
}

// Answers name references by ListID when known; requests by FullName.
void WriteRef(xmlBldr& b, const std::shared_ptr<qcListObjectRef>& ref, const char* tag, bool isRet) {
  if (isRet) {
    if (!ref->FullName().empty() || !ref->ListID().empty()) detail::ListObjectAccess::WriteQueryRs(*ref, b, tag);
  } else {
    WriteListRef(*ref, b, tag);
  }
}

}  // namespace

txnExpenseLine::txnExpenseLine()
    : accountRef_(NewRef(qoListAccounts)), customerRef_(NewRef(qoListCustomers)), classRef_(NewRef(qoListClasses)) {}

txnExpenseLine::~txnExpenseLine() = default;

std::shared_ptr<qcErrors> txnExpenseLine::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

// Lines of a stored document change under the same rule as item lines.
void txnExpenseLine::MarkModified() { detail::MarkLineModified(objectState_, true, kClass); }

const std::string& txnExpenseLine::Account() const { return NameOf(accountRef_); }
const std::string& txnExpenseLine::Customer() const { return NameOf(customerRef_); }
const std::string& txnExpenseLine::Class() const { return NameOf(classRef_); }

void txnExpenseLine::SetBillableStatus(qbEnumBillableStatus value) {
  MarkModified();
  billableStatus_ = value;
}

void txnExpenseLine::SetAccount(const std::string& value) {
  MarkModified();
  auto ref = NewRef(qoListAccounts, value);
  if (!value.empty()) {
    auto account = std::dynamic_pointer_cast<tessaron::Account>(ResolveListRef(*ref));
    if (!account) throw Error(err::kBadAccount, kSource, err::kBadAccountText);
    if (account->AccountType() == qbAccountTypeNonPosting)
      throw Error(err::kNonPostingAccount, kSource, err::kNonPostingAccountText);
  }
  accountRef_ = ref;
}

void txnExpenseLine::SetCustomer(const std::string& value) {
  MarkModified();
  customerRef_ = NewRef(qoListCustomers, value);
}

void txnExpenseLine::SetClass(const std::string& value) {
  MarkModified();
  classRef_ = NewRef(qoListClasses, value);
}

void txnExpenseLine::SetAmount(Currency value) {
  if (value == amount_) return;
  MarkModified();
  amount_ = value;
  if (eventSink_) eventSink_->Raise(qoEventAmountChange);
}

void txnExpenseLine::SetAmountAsString(const std::string& value) {
  if (value.empty()) {
    amountAsString_.clear();
    amount_ = Currency();
    return;
  }
  Currency parsed;
  if (!Currency::TryParse(value, parsed)) throw Error(err::kInvalidCharacter, kSource, err::kInvalidCharacterText);
  amountAsString_ = value;
  amount_ = parsed;
}

void txnExpenseLine::SetMemo(const std::string& value) {
  MarkModified();
  memo_ = value;
}

bool txnExpenseLine::Validate() {
  Errors()->Clear();
  return true;
}

void txnExpenseLine::FromDom(const XmlNode& node) {
  for (const XmlNode& child : node.childNodes()) {
    const std::string_view tag = child.baseName();
    if (tag == "TxnLineID") txnLineId_ = child.text();
    else if (tag == "Amount") amount_ = detail::NumberOf(child.text());
    else if (tag == "Memo") memo_ = child.text();
    else if (tag == "AccountRef") accountRef_ = ReadRef(qoListAccounts, child);
    else if (tag == "CustomerRef") customerRef_ = ReadRef(qoListCustomers, child);
    else if (tag == "ClassRef") classRef_ = ReadRef(qoListClasses, child);
    else if (tag == "BillableStatus")
      billableStatus_ = static_cast<qbEnumBillableStatus>(EnumXMLToCode(child.text(), qoeBillableStatus));
    else NoteUnknownElement(tag, kClass);
  }
  objectState_ = qoObjectStateClean;
}

void txnExpenseLine::WriteLine(xmlBldr& b, bool isRet, bool isMod) {
  const std::string element = std::string("ExpenseLine") + (isRet ? "Ret" : isMod ? "Mod" : "Add");
  b.OpenAggregateOnly(element);
  detail::WriteLineId(b, txnLineId_, isRet, isMod);
  WriteRef(b, accountRef_, "AccountRef", isRet);
  // A zero amount goes out only when the user typed one.
  if (amount_ != Currency() || !amountAsString_.empty()) b.CreateElement("Amount", AmountToText(amount_));
  b.CreateElement2("Memo", memo_, isMod);
  WriteRef(b, customerRef_, "CustomerRef", isRet);
  WriteRef(b, classRef_, "ClassRef", isRet);
  if (billableStatus_ != 0) b.CreateElement("BillableStatus", EnumCodeToXML(billableStatus_, qoeBillableStatus));
  b.EndAggregate(element);
}

}  // namespace tessaron
