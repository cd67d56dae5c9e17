// Bill: what the company owes a vendor. A vendor header with its payables account, terms
// that set the due date, expense lines and item lines. AmountDue follows the lines as they
// change and gives way to QuickBooks' figure when an answer is read.
#pragma once

#include <memory>
#include <string>

#include "tessaron/transactions/purchase_txn.h"

namespace tessaron {

class Bill final : public PurchaseTxn {
 public:
  // A new bill dated today, due as UpdateDueDate says (ten days on without terms).
  Bill();

  using PurchaseTxn::ExpenseLines;
  // Raises 0x800403F6 for an account not on file, 0x800407F1 when not accounts payable.
  using PurchaseTxn::APAccount;
  using PurchaseTxn::SetAPAccount;
  bool IsPaid() const { return isPaid_; }
  // Raises 0x800407D3 for a vendor not on file.
  using PurchaseTxn::Vendor;
  using PurchaseTxn::SetVendor;
  using PurchaseTxn::VendorObject;
  using PurchaseTxn::TxnDate;
  using PurchaseTxn::SetTxnDate;
  Date DueDate() const { return dueDate_; }
  void SetDueDate(Date value);
  // The lines' total after a local change; QuickBooks' figure after a read.
  Currency AmountDue() const { return amount_; }
  using PurchaseTxn::RefNumber;
  using PurchaseTxn::SetRefNumber;
  using PurchaseTxn::Memo;
  using PurchaseTxn::SetMemo;
  // Raises 0x800407D4 for a term not on file; a change sets the due date again.
  using PurchaseTxn::Terms;
  void SetTerms(const std::string& value);
  using PurchaseTxn::OpenAmount;
  // From the terms and TxnDate, at each read; 0 without terms.
  Date DiscountDate() const;
  // DiscountPercent of the terms x AmountDue / 100, to the cent.
  Currency DiscountAmount() const;

  // No term: TxnDate + 10 days. A standard term: + DueDays. A date-driven term: the
  // DayOfMonthDue of TxnDate's month, one month on when that day lies fewer than
  // DueNextMonthDays days after TxnDate.
  void UpdateDueDate();

 private:
  static const TxnClassInfo& Info();
  bool isPaid_ = false;
};

}  // namespace tessaron
