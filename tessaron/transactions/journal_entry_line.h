// JournalEntryLine: one debit or credit of a journal entry against an account, and
// JournalEntryLines, the entry's lines in the order the caller gave them.
//
// A line keeps what was typed into a grid (AmountAsString) beside its Amount. Lines of an
// entry QuickBooks already holds cannot change: journal entries are add-only, so every
// setter of a stored line, and Add, Remove and Clear of its collection, raise 0x800403EA.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/framework/field_table.h"
#include "tessaron/platform/collection.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"
#include "tessaron/transactions/txn_plain_line.h"

namespace tessaron {

class qcErrors;
class qcListObjectRef;
class xmlBldr;
class JournalEntry;

class JournalEntryLine : public TxnPlainLine {
 public:
  // The class the rows of the line's field table point at.
  using FieldOwner = JournalEntryLine;

  JournalEntryLine();

  // Empty until the entry is committed.
  const std::string& TxnLineId() const { return txnLineId_; }
  // Debit lines go out as JournalDebitLine, the others as JournalCreditLine.
  bool IsDebit() const { return isDebit_; }
  void SetIsDebit(bool value);
  Currency Amount() const { return amount_; }
  void SetAmount(Currency value);
  // The amount as typed. Empty text is kept as it is; numeric text also sets Amount; any
  // other text raises 0x80040404.
  const std::string& AmountAsString() const { return amountText_; }
  void SetAmountAsString(const std::string& value);
  // Raises 0x800407E3 for an account not on file.
  const std::string& Account() const { return RefName(accountRef_); }
  void SetAccount(const std::string& value);
  // Raises 0x800407DD for a class not on file.
  const std::string& Class() const { return RefName(classRef_); }
  void SetClass(const std::string& value);
  // A customer, vendor, employee or other name; raises 0x800407DA when none has that name.
  const std::string& Entity() const { return RefName(entityRef_); }
  void SetEntity(const std::string& value);
  const std::string& Memo() const { return memo_; }
  void SetMemo(const std::string& value);

  // Collects, in this order: 0x8004070B negative amount, 0x800407DA entity, 0x800407DD
  // class, 0x800403F6 account (or what its type needs: a vendor on payables, a customer on
  // receivables, never a non-posting account), 0x8004070C an amount without an account.
  // A Clean line passes.
  bool Validate();
  // Whether anything is in the line: account, class, entity, memo or a non-zero amount.
  bool IsUsed() const;

 private:
  friend class JournalEntry;
  static const std::vector<BasicFieldDef<JournalEntryLine>>& Fields();
  void Read(const XmlNode& node, bool isDebit);
  void Write(xmlBldr& b, WriteMode mode);

  std::string txnLineId_;
  bool isDebit_ = true;
  Currency amount_;
  std::string amountText_;
  std::shared_ptr<qcListObjectRef> accountRef_;
  std::shared_ptr<qcListObjectRef> classRef_;
  std::shared_ptr<qcListObjectRef> entityRef_;
  std::string memo_;
};

class JournalEntryLines : public TxnPlainLines<JournalEntryLine> {
 public:
  JournalEntryLines() : TxnPlainLines("JournalEntryLines") {}
  // A new line at the end, filled with what is given; a name not on file raises and adds
  // no line.
  std::shared_ptr<JournalEntryLine> Add(const std::string& Account = "", Currency Amount = Currency(),
                                        bool IsDebit = true, const std::string& Class = "",
                                        const std::string& Entity = "", const std::string& Memo = "");
};

}  // namespace tessaron
