// Deposit: money put into a bank account, from the payments waiting in Undeposited Funds
// (a line naming the payment's TxnId) or from another account (a line naming the account).
// A stored deposit cannot change. Made by Deposits.Add or read by a query.
#pragma once

#include <memory>
#include <string>

#include "tessaron/framework/field_table.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/xml_dom.h"
#include "tessaron/transactions/txn_object.h"
#include "tessaron/transactions/txn_plain_line.h"

namespace tessaron {

class Deposit;

class DepositLine : public TxnPlainLine {
 public:
  using FieldOwner = DepositLine;

  DepositLine();

  const std::string& TxnLineId() const { return txnLineId_; }
  // The payment deposited (its TxnID), empty for money from an account.
  const std::string& TxnId() const { return txnId_; }
  void SetTxnId(const std::string& value);
  // What the payment is ("ReceivePayment", "SalesReceipt", ...), as QuickBooks answers it.
  const std::string& TxnType() const { return txnType_; }
  // Raises 0x800407DA when no customer, vendor, employee or other name has that name.
  const std::string& Entity() const { return RefName(entityRef_); }
  void SetEntity(const std::string& value);
  // The account the money comes from; raises 0x800407E3 for an account not on file.
  const std::string& Account() const { return RefName(accountRef_); }
  void SetAccount(const std::string& value);
  const std::string& Memo() const { return memo_; }
  void SetMemo(const std::string& value);
  const std::string& CheckNumber() const { return checkNumber_; }
  void SetCheckNumber(const std::string& value);
  const std::string& PaymentMethod() const { return RefName(paymentMethodRef_); }
  void SetPaymentMethod(const std::string& value);
  // Raises 0x800407DD for a class not on file.
  const std::string& Class() const { return RefName(classRef_); }
  void SetClass(const std::string& value);
  // For a payment QuickBooks takes what is still undeposited of it.
  Currency Amount() const { return amount_; }
  void SetAmount(Currency value);

  // 0x80040B4A when the line names neither a payment nor an account. A Clean line passes.
  bool Validate();
  bool IsUsed() const;

 private:
  friend class Deposit;
  static const std::vector<BasicFieldDef<DepositLine>>& Fields();
  void Read(const XmlNode& node);
  void Write(xmlBldr& b, WriteMode mode);

  std::string txnType_;
  std::string txnId_;
  std::string txnLineId_;
  std::string paymentTxnLineId_;
  std::shared_ptr<qcListObjectRef> entityRef_;
  std::shared_ptr<qcListObjectRef> accountRef_;
  std::string memo_;
  std::string checkNumber_;
  std::shared_ptr<qcListObjectRef> paymentMethodRef_;
  std::shared_ptr<qcListObjectRef> classRef_;
  Currency amount_;
};

class DepositLines : public TxnPlainLines<DepositLine> {
 public:
  DepositLines() : TxnPlainLines("DepositLines") {}
  // A line depositing a payment waiting in Undeposited Funds.
  std::shared_ptr<DepositLine> AddPayment(const std::string& TxnId, const std::string& Memo = "");
  // A line of money from an account; a name not on file raises and adds no line.
  std::shared_ptr<DepositLine> Add(const std::string& Account, Currency Amount, const std::string& Entity = "",
                                   const std::string& Memo = "", const std::string& Class = "");
};

class Deposit final : public TxnObject {
 public:
  // A new deposit dated today.
  Deposit();
  ~Deposit() override;

  std::shared_ptr<DepositLines> Lines() const { return lines_; }
  Date TxnDate() const { return txnDate_; }
  void SetTxnDate(Date value);
  // The bank (or other) account the money goes to; raises 0x800407E3 for one not on file.
  const std::string& DepositToAccount() const { return RefName(depositToRef_); }
  void SetDepositToAccount(const std::string& value);
  const std::string& Memo() const { return memo_; }
  void SetMemo(const std::string& value);
  // As QuickBooks worked it out; the sum of the lines before the first answer.
  Currency DepositTotal() const;

  // Collects 0x80040641 (Memo), 0x800403F6 (DepositToAccount missing or not on file),
  // 0x800403F3 per failing line, 0x800407E6 when no line is used. Empty lines behind the
  // last used one are removed. A Clean deposit passes.
  bool Validate() override;

  Variant FromDom(const XmlNode& obj) override;

 protected:
  void AfterFromDom() override;
  void ResetToNew() override;

 private:
  static const TxnClassInfo& Info();

  Date txnDate_ = 0;
  std::shared_ptr<qcListObjectRef> depositToRef_;
  std::string memo_;
  Currency depositTotal_;
  bool totalRead_ = false;
  Currency exchangeRate_;
  std::shared_ptr<DepositLines> lines_;
};

}  // namespace tessaron
