// Check: a payment written against a bank account, to a payee, for expense and item
// lines. QuickBooks cannot modify a check at this level: once stored it is read only,
// and its modify request raises "ModRq not supported".
#pragma once

#include <memory>
#include <string>

#include "tessaron/transactions/purchase_txn.h"

namespace tessaron {

class Check final : public PurchaseTxn {
 public:
  // A new check dated today.
  Check();

  using PurchaseTxn::ExpenseLines;
  bool IsToBePrinted() const { return isToBePrinted_; }
  void SetIsToBePrinted(bool value);
  // Stored unchecked; Validate wants a bank account.
  using PurchaseTxn::Account;
  using PurchaseTxn::SetAccount;
  using PurchaseTxn::PayeeEntity;
  using PurchaseTxn::SetPayeeEntity;
  using PurchaseTxn::Address;
  using PurchaseTxn::TxnDate;
  using PurchaseTxn::SetTxnDate;
  using PurchaseTxn::RefNumber;
  using PurchaseTxn::SetRefNumber;
  using PurchaseTxn::Memo;
  using PurchaseTxn::SetMemo;
  // Item lines plus expense lines after a local change; never sent.
  using PurchaseTxn::Amount;
  // The amount in words as a printed check shows it: "One thousand Two Hundred Thirty
  // Four and 5/100".
  std::string AmountAsString() const;

 private:
  static const TxnClassInfo& Info();
};

// The words of a check's amount (AmountAsString).
std::string CheckAmountInWords(Currency amount);

}  // namespace tessaron
