// CreditCardCharge and CreditCardCredit: a purchase on a company credit card and its
// refund. Both charge a credit card account for expense and item lines; neither can be
// modified once stored ("ModRq not supported").
#pragma once

#include <memory>
#include <string>

#include "tessaron/transactions/purchase_txn.h"

namespace tessaron {

class CreditCardTxn : public PurchaseTxn {
 public:
  using PurchaseTxn::ExpenseLines;
  // Stored unchecked; Validate wants a credit card account.
  using PurchaseTxn::Account;
  using PurchaseTxn::SetAccount;
  using PurchaseTxn::PayeeEntity;
  using PurchaseTxn::SetPayeeEntity;
  // Read from answers only.
  using PurchaseTxn::Address;
  using PurchaseTxn::TxnDate;
  using PurchaseTxn::SetTxnDate;
  using PurchaseTxn::RefNumber;
  using PurchaseTxn::SetRefNumber;
  // Item lines plus expense lines after a local change; never sent.
  using PurchaseTxn::Amount;
  using PurchaseTxn::Memo;
  using PurchaseTxn::SetMemo;

 protected:
  explicit CreditCardTxn(const TxnClassInfo& info);
  static TxnClassInfo InfoOf(const char* className, qoEnumListObjectType type);
};

class CreditCardCharge final : public CreditCardTxn {
 public:
  CreditCardCharge();

 private:
  static const TxnClassInfo& Info();
};

class CreditCardCredit final : public CreditCardTxn {
 public:
  CreditCardCredit();

 private:
  static const TxnClassInfo& Info();
};

}  // namespace tessaron
