// ReceivePayment: money taken from a customer and applied to open invoices, with early
// payment discounts and earlier credits. Made by ReceivePayments.Add or read by a query;
// QuickBooks keeps no modify for it here, so it changes only while New.
//
//   auto payment = company->ReceivePayments()->Add("Acme", Currency(100));
//   payment->AppliedToTxns()->Add(invoice->TxnId(), Currency(80), Currency(5), "Discounts Given");
//   // payment->UnusedPayment() is 15 now
//   company->ReceivePayments()->Commit(payment);
//
// Or let QuickBooks pick the oldest open invoices: SetIsAutoApply(true) and no applied list.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/transactions/txn_object.h"

namespace tessaron {

class qcListObjectRef;
class txnAppliedTos;

class ReceivePayment final : public TxnObject {
 public:
  // A new payment dated today into the company's first receivable account.
  ReceivePayment();
  ~ReceivePayment() override;

  Date TxnDate() const { return txnDate_; }
  void SetTxnDate(Date value);
  // Always Active for what QuickBooks returns; payments here are deleted, not voided.
  qoEnumTxnState TxnState() const { return qoTxnStateActive; }
  // Raises 0x800407E3 for an account not on file; its type is checked by Validate.
  const std::string& ARAccount() const;
  void SetARAccount(const std::string& value);
  const std::string& RefNumber() const { return refNumber_; }
  void SetRefNumber(const std::string& value);
  const std::string& Memo() const { return memo_; }
  void SetMemo(const std::string& value);
  // Raises 0x800407EC for a payment method not on file.
  const std::string& PaymentMethod() const;
  void SetPaymentMethod(const std::string& value);
  // Raises 0x800407E2 for a customer not on file; an empty name does nothing.
  const std::string& Customer() const;
  void SetCustomer(const std::string& value);
  // The money received. Raises 0x800407EF (and keeps the old total) when less than what
  // is already applied.
  Currency Total() const { return total_; }
  void SetTotal(Currency value);
  // Raises 0x800407E3 for an account not on file; empty: QuickBooks' undeposited funds.
  const std::string& DepositToAccount() const;
  void SetDepositToAccount(const std::string& value);
  // Total less what is applied, credited and discounted.
  Currency UnusedPayment() const { return unusedPayment_; }
  // What is left of the credits used, once applied.
  Currency UnusedCredit() const { return unusedCredit_; }
  // Lets QuickBooks apply the money to the oldest open invoices; the applied list must
  // then stay empty. Write only: never read back.
  void SetIsAutoApply(bool value);
  std::shared_ptr<txnAppliedTos> AppliedToTxns() const { return applied_; }

  // Works out UnusedPayment and UnusedCredit from the applied list; raises 0x800407EF
  // when the amounts applied exceed Total.
  void RecalculatePayment();

  // Collects 0x800407E9 (no customer), 0x800407E4 (ARAccount not receivable), then
  // without IsAutoApply 0x800407EE for a second entry on one TxnId and 0x800403F3 for a
  // member that fails; with IsAutoApply and members 0x800407EB. A Clean payment passes.
  bool Validate() override;

  Variant FromDom(const XmlNode& obj) override;

 protected:
  void RecalculateTotals() override { RecalculatePayment(); }
  void ResetToNew() override;

 private:
  static const TxnClassInfo& Info();

  Date txnDate_ = 0;
  std::shared_ptr<qcListObjectRef> arAccountRef_;
  std::string refNumber_;
  std::string memo_;
  std::shared_ptr<qcListObjectRef> paymentMethodRef_;
  std::shared_ptr<qcListObjectRef> customerRef_;
  Currency total_;
  std::shared_ptr<qcListObjectRef> depositToAccountRef_;
  Currency unusedPayment_;
  Currency unusedCredit_;
  bool isAutoApply_ = false;
  std::shared_ptr<txnAppliedTos> applied_;
};

}  // namespace tessaron
