#include "tessaron/transactions/journal_entry.h"

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/text.h"
#include "tessaron/transactions/journal_entries.h"

namespace tessaron {

namespace {
constexpr size_t kMaxMemo = 4095;
constexpr size_t kMaxRefNumber = 11;
}  // namespace

// In the order of the query-response element. The debit row reads debit lines and writes
// all lines; the credit row only reads.
const TxnClassInfo& JournalEntry::Info() {
  static const TxnClassInfo info = [] {
    TxnClassInfo i;
    i.className = "Journal Entry";
    i.unknownElementClass = "JournalEntries";
    i.objectType = qoObjectTypeJournalEntry;
    i.gate = TxnModifyGate::Never;
    i.modifyRefusal = "ModRq not supported";
    i.fields = Common::Rows({
        field::DateOnly("TxnDate", &JournalEntry::txnDate_).Add(Send::IfSet),
        field::Text("RefNumber", &JournalEntry::refNumber_).Add(Send::IfSet),
        field::Text("Memo", &JournalEntry::memo_),
        field::CustomOf<TxnObject>(
            "JournalDebitLine",
            [](TxnObject& o, const XmlNode& n) { static_cast<JournalEntry&>(o).ReadLine(n, true); },
            [](TxnObject& o, xmlBldr& b, WriteMode mode) { static_cast<JournalEntry&>(o).WriteLines(b, mode); })
            .Add(Send::Always),
        field::CustomOf<TxnObject>(
            "JournalCreditLine",
            [](TxnObject& o, const XmlNode& n) { static_cast<JournalEntry&>(o).ReadLine(n, false); }, nullptr)
            .NotInQuery(),
        field::Quantity("ExchangeRate", &JournalEntry::exchangeRate_).NotInQuery(),
        field::Dropped<TxnObject>("DataExtRet"),
    });
    return i;
  }();
  return info;
}

JournalEntry::JournalEntry() : TxnObject(Info()), lines_(std::make_shared<JournalEntryLines>()) {
  txnDate_ = Today();
}

JournalEntry::~JournalEntry() = default;

std::string JournalEntry::TimeCreated() const { return timeCreated_ == 0 ? "" : DateTimeToText(timeCreated_); }
std::string JournalEntry::TimeModified() const { return timeModified_ == 0 ? "" : DateTimeToText(timeModified_); }

void JournalEntry::SetRefNumber(const std::string& value) { MarkModified(true); refNumber_ = value; }
void JournalEntry::SetTxnDate(Date value) { MarkModified(true); txnDate_ = value; }
void JournalEntry::SetMemo(const std::string& value) { MarkModified(true); memo_ = value; }

Currency JournalEntry::RemainingAmount() const {
  Currency sum;
  for (const auto& line : *lines_) sum = line->IsDebit() ? sum + line->Amount() : sum - line->Amount();
  return sum;
}

// ---- Reading and writing -------------------------------------------------------------------

Variant JournalEntry::FromDom(const XmlNode& obj) {
  lines_->BeforeRead();
  return TxnObject::FromDom(obj);
}

void JournalEntry::ReadLine(const XmlNode& node, bool isDebit) {
  auto line = lines_->Append();
  line->Read(node, isDebit);
  lines_->Insert(line);
}

void JournalEntry::WriteLines(xmlBldr& b, WriteMode mode) {
  if (mode != WriteMode::Add) {
    for (const auto& line : *lines_) line->Write(b, mode);
    return;
  }
  // QuickBooks wants every debit line before the first credit line.
  for (bool debits : {true, false})
    for (const auto& line : *lines_)
      if (line->IsDebit() == debits) line->Write(b, mode);
}

void JournalEntry::AfterFromDom() {
  lines_->AfterRead();
}

void JournalEntry::ResetToNew() {
  TxnObject::ResetToNew();
  lines_->BackToNew();
}

// ---- Checks --------------------------------------------------------------------------------

bool JournalEntry::Validate() {
  auto errors = Errors();
  errors->Clear();
  if (ObjectState() == qoObjectStateClean) return true;
  if (Utf16Length(memo_) > kMaxMemo) errors->Add(err::kMemoTooLong, "Memo", err::kMemoTooLongText);
  if (Utf16Length(refNumber_) > kMaxRefNumber)
    errors->Add(err::kEntryNumberTooLong, "RefNumber", err::kEntryNumberTooLongText);

  // Debits are taken off and credits added: anything left means they differ.
  Currency balance;
  const long lastUsed = lines_->CheckLines(*errors, [&](const JournalEntryLine& line) {
    balance = line.IsDebit() ? balance - line.Amount() : balance + line.Amount();
  });
  if (balance != Currency()) errors->Add(err::kJournalUnbalanced, "TotalBalance", err::kJournalUnbalancedText);
  if (lastUsed == 0) errors->Add(err::kNeedLine, "JournalEntryLines", err::kNeedLineText);
  return errors->Count() == 0;
}

}  // namespace tessaron
