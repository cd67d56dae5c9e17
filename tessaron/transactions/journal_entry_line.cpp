#include "tessaron/transactions/journal_entry_line.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/framework/detail/field_walker.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/lists/account.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"

namespace tessaron {

namespace {

constexpr char kLineSource[] = "JournalEntryLine";

}  // namespace

// The line element's children in their order; the add takes the same order.
const std::vector<BasicFieldDef<JournalEntryLine>>& JournalEntryLine::Fields() {
  using L = JournalEntryLine;
  static const std::vector<BasicFieldDef<L>> rows = {
      field::Text("TxnLineID", &L::txnLineId_),
      field::Ref("AccountRef", &L::accountRef_, qoListAccounts).Add(Send::IfSet),
      // A zero amount goes out only when something was typed.
      field::CustomOf<L>(
          "Amount", [](L& l, const XmlNode& n) { l.amount_ = CurrencyFromText(n.text()); },
          [](L& l, xmlBldr& b, WriteMode mode) {
            if (mode == WriteMode::QueryRs || l.amount_ != Currency() || !l.amountText_.empty())
              b.CreateElement("Amount", AmountToText(l.amount_));
          },
          [](const L& l) { return AmountToText(l.amount_); })
          .Add(Send::Always),
      field::Text("Memo", &L::memo_).Add(Send::IfSet),
      field::Ref("EntityRef", &L::entityRef_, qoListEntity).Add(Send::IfSet),
      field::Ref("ClassRef", &L::classRef_, qoListClasses).Add(Send::IfSet),
  };
  return rows;
}

JournalEntryLine::JournalEntryLine()
    : TxnPlainLine(kLineSource),
      accountRef_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      classRef_(std::make_shared<qcListObjectRef>(qoListClasses)),
      entityRef_(std::make_shared<qcListObjectRef>(qoListEntity)) {}

void JournalEntryLine::SetIsDebit(bool value) { Changing(); isDebit_ = value; }
void JournalEntryLine::SetAmount(Currency value) { Changing(); amount_ = value; }
void JournalEntryLine::SetMemo(const std::string& value) { Changing(); memo_ = value; }

void JournalEntryLine::SetAmountAsString(const std::string& value) {
  Changing();
  if (!value.empty()) {
    Currency parsed;
    if (!Currency::TryParse(value, parsed))
      throw Error(err::kInvalidCharacter, kLineSource, err::kInvalidCharacterText);
    amount_ = parsed;
  }
  amountText_ = value;
}

void JournalEntryLine::SetAccount(const std::string& value) {
  Changing();
  SetCheckedRef(accountRef_, qoListAccounts, value, err::kInvalidTxnAccount, err::kInvalidTxnAccountText, kLineSource);
}
void JournalEntryLine::SetClass(const std::string& value) {
  Changing();
  SetCheckedRef(classRef_, qoListClasses, value, err::kClassMissing, err::kClassMissingText, kLineSource);
}
void JournalEntryLine::SetEntity(const std::string& value) {
  Changing();
  SetCheckedRef(entityRef_, qoListEntity, value, err::kEntityMissing, err::kEntityMissingText, kLineSource);
}

bool JournalEntryLine::IsUsed() const {
  return !Account().empty() || !Class().empty() || !Entity().empty() || !memo_.empty() || amount_ != Currency();
}

bool JournalEntryLine::Validate() {
  auto errors = Errors();
  errors->Clear();
  if (state_ == qoObjectStateClean) return true;
  if (amount_ < Currency()) errors->Add(err::kJournalNegativeAmount, "Amount", err::kJournalNegativeAmountText);
  std::shared_ptr<qcListObject> entity = LookupRecord(qoListEntity, Entity());
  if (!Entity().empty() && !entity) errors->Add(err::kEntityMissing, "Entity", err::kEntityMissingText);
  if (!Class().empty() && !LookupRecord(qoListClasses, Class()))
    errors->Add(err::kClassMissing, "Class", err::kClassMissingText);
  if (!Account().empty()) {
    auto account = std::dynamic_pointer_cast<tessaron::Account>(LookupRecord(qoListAccounts, Account()));
    const auto entityType = entity ? entity->ObjectType() : static_cast<qoEnumListObjectType>(0);
    if (!account) {
      errors->Add(err::kBadAccount, "Account", err::kBadAccountText);
    } else if (account->AccountType() == qbAccountTypeAccountsPayable && entityType != qoObjectTypeVendor) {
      errors->Add(err::kNeedVendor, "Entity", err::kNeedVendorText);
    } else if (account->AccountType() == qbAccountTypeAccountsReceivable && entityType != qoObjectTypeCustomer) {
      errors->Add(err::kNeedCustomer, "Entity", err::kNeedCustomerText);
    } else if (account->AccountType() == qbAccountTypeNonPosting) {
      errors->Add(err::kNonPostingAccount, "Account", err::kNonPostingAccountText);
    }
  } else if (amount_ != Currency()) {
    errors->Add(err::kAccountRequired, "Account", err::kAccountRequiredText);
  }
  return errors->Count() == 0;
}

void JournalEntryLine::Read(const XmlNode& node, bool isDebit) {
  isDebit_ = isDebit;
  size_t next = 0;
  for (const XmlNode& child : node.childNodes()) {
    if (const auto* row = detail::FindRow(Fields(), child.baseName(), next)) detail::ReadRow(*row, *this, child);
  }
  state_ = qoObjectStateClean;
}

void JournalEntryLine::Write(xmlBldr& b, WriteMode mode) {
  const char* tag = isDebit_ ? "JournalDebitLine" : "JournalCreditLine";
  b.OpenAggregateOnly(tag);
  detail::WriteRows(Fields(), *this, b, mode, QueryBooleans::Words);
  b.EndAggregate(std::string_view(tag));
}

// ---- The collection --------------------------------------------------------------------------

std::shared_ptr<JournalEntryLine> JournalEntryLines::Add(const std::string& Account, Currency Amount, bool IsDebit,
                                                         const std::string& Class, const std::string& Entity,
                                                         const std::string& Memo) {
  auto line = Append(true);
  if (!Account.empty()) line->SetAccount(Account);
  if (!Class.empty()) line->SetClass(Class);
  if (!Entity.empty()) line->SetEntity(Entity);
  line->SetAmount(Amount);
  line->SetIsDebit(IsDebit);
  line->SetMemo(Memo);
  Insert(line);
  return line;
}

}  // namespace tessaron
