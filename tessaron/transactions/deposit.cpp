#include "tessaron/transactions/deposit.h"

#include "tessaron/foundation/values.h"
#include "tessaron/framework/detail/field_walker.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/text.h"

namespace tessaron {

namespace {
constexpr char kLineSource[] = "DepositLine";
constexpr size_t kMaxMemo = 4095;
}  // namespace

// ---- Lines -----------------------------------------------------------------------------------

// In the order of the answer's line; an add of money from an account takes the rows with
// an add column, in the same order.
const std::vector<BasicFieldDef<DepositLine>>& DepositLine::Fields() {
  using L = DepositLine;
  static const std::vector<BasicFieldDef<L>> rows = {
      field::Text("TxnType", &L::txnType_),
      field::Text("TxnID", &L::txnId_).As("TxnId"),
      field::Text("TxnLineID", &L::txnLineId_),
      field::Text("PaymentTxnLineID", &L::paymentTxnLineId_),
      field::Ref("EntityRef", &L::entityRef_, qoListEntity).Add(Send::IfSet),
      field::Ref("AccountRef", &L::accountRef_, qoListAccounts).Add(Send::Forced),
      field::Text("Memo", &L::memo_).Add(Send::IfSet),
      field::Text("CheckNumber", &L::checkNumber_).Add(Send::IfSet),
      field::Ref("PaymentMethodRef", &L::paymentMethodRef_, qoListPaymentMethods).Add(Send::IfSet),
      field::Ref("ClassRef", &L::classRef_, qoListClasses).Add(Send::IfSet),
      field::Amount("Amount", &L::amount_).Add(Send::IfSet),
  };
  return rows;
}

DepositLine::DepositLine()
    : TxnPlainLine(kLineSource),
      entityRef_(std::make_shared<qcListObjectRef>(qoListEntity)),
      accountRef_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      paymentMethodRef_(std::make_shared<qcListObjectRef>(qoListPaymentMethods)),
      classRef_(std::make_shared<qcListObjectRef>(qoListClasses)) {}

void DepositLine::SetTxnId(const std::string& value) { Changing(); txnId_ = value; }
void DepositLine::SetMemo(const std::string& value) { Changing(); memo_ = value; }
void DepositLine::SetCheckNumber(const std::string& value) { Changing(); checkNumber_ = value; }
void DepositLine::SetAmount(Currency value) { Changing(); amount_ = value; }
void DepositLine::SetEntity(const std::string& value) {
  Changing();
  SetCheckedRef(entityRef_, qoListEntity, value, err::kEntityMissing, err::kEntityMissingText, kLineSource);
}
void DepositLine::SetAccount(const std::string& value) {
  Changing();
  SetCheckedRef(accountRef_, qoListAccounts, value, err::kInvalidTxnAccount, err::kInvalidTxnAccountText, kLineSource);
}
void DepositLine::SetClass(const std::string& value) {
  Changing();
  SetCheckedRef(classRef_, qoListClasses, value, err::kClassMissing, err::kClassMissingText, kLineSource);
}
void DepositLine::SetPaymentMethod(const std::string& value) {
  Changing();
  auto ref = std::make_shared<qcListObjectRef>(qoListPaymentMethods);
  LookupRecord(qoListPaymentMethods, value, &ref);
  paymentMethodRef_ = ref;
}

bool DepositLine::IsUsed() const {
  return !txnId_.empty() || !Account().empty() || !Entity().empty() || !memo_.empty() || amount_ != Currency();
}

bool DepositLine::Validate() {
  auto errors = Errors();
  errors->Clear();
  if (state_ == qoObjectStateClean) return true;
  if (txnId_.empty() && Account().empty())
    errors->Add(err::kDepositLineTarget, "Account", err::kDepositLineTargetText);
  return errors->Count() == 0;
}

void DepositLine::Read(const XmlNode& node) {
  size_t next = 0;
  for (const XmlNode& child : node.childNodes())
    if (const auto* row = detail::FindRow(Fields(), child.baseName(), next)) detail::ReadRow(*row, *this, child);
  state_ = qoObjectStateClean;
}

// A payment goes by its id, what it carries coming from the payment; money from an
// account carries the rest of the line.
void DepositLine::Write(xmlBldr& b, WriteMode mode) {
  const char* tag = mode == WriteMode::QueryRs ? "DepositLineRet" : "DepositLineAdd";
  b.OpenAggregateOnly(tag);
  if (mode != WriteMode::QueryRs && !txnId_.empty()) {
    b.CreateElement("PaymentTxnID", txnId_);
    if (!paymentTxnLineId_.empty()) b.CreateElement("PaymentTxnLineID", paymentTxnLineId_);
    if (!memo_.empty()) b.CreateElement("OverrideMemo", memo_);
    if (!checkNumber_.empty()) b.CreateElement("OverrideCheckNumber", checkNumber_);
  } else {
    detail::WriteRows(Fields(), *this, b, mode, QueryBooleans::Words);
  }
  b.EndAggregate(std::string_view(tag));
}

std::shared_ptr<DepositLine> DepositLines::AddPayment(const std::string& TxnId, const std::string& Memo) {
  auto line = Append(true);
  line->SetTxnId(TxnId);
  line->SetMemo(Memo);
  Insert(line);
  return line;
}

std::shared_ptr<DepositLine> DepositLines::Add(const std::string& Account, Currency Amount, const std::string& Entity,
                                               const std::string& Memo, const std::string& Class) {
  auto line = Append(true);
  if (!Account.empty()) line->SetAccount(Account);
  if (!Entity.empty()) line->SetEntity(Entity);
  if (!Class.empty()) line->SetClass(Class);
  line->SetAmount(Amount);
  line->SetMemo(Memo);
  Insert(line);
  return line;
}

// ---- The deposit -----------------------------------------------------------------------------

// In the order of the answer; the add takes the rows with an add column.
const TxnClassInfo& Deposit::Info() {
  static const TxnClassInfo info = [] {
    TxnClassInfo i;
    i.className = "Deposit";
    i.objectType = qoObjectTypeDeposit;
    i.gate = TxnModifyGate::Never;
    i.fields = Common::Rows({
        field::DateOnly("TxnDate", &Deposit::txnDate_).Add(Send::IfSet),
        field::Ref("DepositToAccountRef", &Deposit::depositToRef_, qoListAccounts).Add(Send::Forced),
        field::Text("Memo", &Deposit::memo_).Add(Send::IfSet),
        field::Amount("DepositTotal", &Deposit::depositTotal_),
        field::Quantity("ExchangeRate", &Deposit::exchangeRate_).NotInQuery(),
        field::Dropped<TxnObject>("CashBackInfoRet"),
        field::CustomOf<TxnObject>(
            "DepositLineRet",
            [](TxnObject& o, const XmlNode& n) {
              auto& d = static_cast<Deposit&>(o);
              auto line = d.lines_->Append();
              line->Read(n);
              d.lines_->Insert(line);
            },
            [](TxnObject& o, xmlBldr& b, WriteMode mode) {
              for (const auto& line : *static_cast<Deposit&>(o).lines_) line->Write(b, mode);
            })
            .Add(Send::Always),
        field::Dropped<TxnObject>("DataExtRet"),
    });
    return i;
  }();
  return info;
}

Deposit::Deposit()
    : TxnObject(Info()),
      depositToRef_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      lines_(std::make_shared<DepositLines>()) {
  txnDate_ = Today();
}

Deposit::~Deposit() = default;

void Deposit::SetTxnDate(Date value) { MarkModified(true); txnDate_ = value; }
void Deposit::SetMemo(const std::string& value) { MarkModified(true); memo_ = value; }
void Deposit::SetDepositToAccount(const std::string& value) {
  MarkModified(true);
  SetCheckedRef(depositToRef_, qoListAccounts, value, err::kInvalidTxnAccount, err::kInvalidTxnAccountText,
                "Deposit");
}

Currency Deposit::DepositTotal() const {
  if (totalRead_) return depositTotal_;
  Currency sum;
  for (const auto& line : *lines_) sum = sum + line->Amount();
  return sum;
}

Variant Deposit::FromDom(const XmlNode& obj) {
  lines_->BeforeRead();
  return TxnObject::FromDom(obj);
}

void Deposit::AfterFromDom() {
  totalRead_ = true;
  lines_->AfterRead();
}

void Deposit::ResetToNew() {
  TxnObject::ResetToNew();
  totalRead_ = false;
  lines_->BackToNew();
}

bool Deposit::Validate() {
  auto errors = Errors();
  errors->Clear();
  if (ObjectState() == qoObjectStateClean) return true;
  if (Utf16Length(memo_) > kMaxMemo) errors->Add(err::kMemoTooLong, "Memo", err::kMemoTooLongText);
  if (DepositToAccount().empty() || !LookupRecord(qoListAccounts, DepositToAccount()))
    errors->Add(err::kBadAccount, "DepositToAccount", err::kBadAccountText);
  if (lines_->CheckLines(*errors, [](const DepositLine&) {}) == 0)
    errors->Add(err::kNeedLine, "DepositLines", err::kNeedLineText);
  return errors->Count() == 0;
}

}  // namespace tessaron
