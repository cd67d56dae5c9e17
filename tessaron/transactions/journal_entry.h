// JournalEntry: a balanced set of debit and credit lines against accounts. Add-only:
// QuickBooks keeps it as sent, so a stored entry, its lines included, never changes, and
// its XMLModify raises. Made by JournalEntries.Add or read by a query.
//
// The lines keep the caller's order; the add sends every debit line first, then every
// credit line, each group in that order.
#pragma once

#include <memory>
#include <string>

#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/transactions/journal_entry_line.h"
#include "tessaron/transactions/txn_object.h"

namespace tessaron {

class JournalEntry final : public TxnObject {
 public:
  // A new entry dated today.
  JournalEntry();
  ~JournalEntry() override;

  // As QuickBooks sent them ("2024-05-01T10:00:00"); empty until committed.
  std::string TimeCreated() const;
  std::string TimeModified() const;
  std::shared_ptr<JournalEntryLines> Lines() const { return lines_; }
  const std::string& RefNumber() const { return refNumber_; }
  void SetRefNumber(const std::string& value);
  Date TxnDate() const { return txnDate_; }
  void SetTxnDate(Date value);
  // Kept in the saved form only: the add does not carry it.
  const std::string& Memo() const { return memo_; }
  void SetMemo(const std::string& value);

  // Collects 0x80040641 (Memo), 0x80040708 (RefNumber), 0x800403F3 per failing line (the
  // line's number as field), 0x80040709 when debits and credits differ ("TotalBalance"),
  // and 0x800407E6 when no line has anything in it. Empty lines behind the last used one
  // are removed; empty lines between used ones stay. A Clean entry passes.
  bool Validate() override;
  // Debits less credits: 0 when the entry balances.
  Currency RemainingAmount() const;

  Variant FromDom(const XmlNode& obj) override;

 protected:
  void AfterFromDom() override;
  void ResetToNew() override;

 private:
  static const TxnClassInfo& Info();
  void ReadLine(const XmlNode& node, bool isDebit);
  void WriteLines(xmlBldr& b, WriteMode mode);

  Date txnDate_ = 0;
  std::string refNumber_;
  std::string memo_;
  Currency exchangeRate_;
  std::shared_ptr<JournalEntryLines> lines_;
};

}  // namespace tessaron
