// VendorCredit and ItemReceipt: the two vendor documents without terms. A vendor credit
// lowers what the company owes (it cannot be modified once stored); an item receipt takes
// items into stock before their bill comes (stored ones change only through a modify of
// the whole receipt).
#pragma once

#include <memory>
#include <string>

#include "tessaron/transactions/purchase_txn.h"

namespace tessaron {

// The members both have.
class VendorDocument : public PurchaseTxn {
 public:
  using PurchaseTxn::ExpenseLines;
  // Raises 0x800403F6 for an account not on file, 0x800407F1 when not accounts payable.
  using PurchaseTxn::APAccount;
  using PurchaseTxn::SetAPAccount;
  // Raises 0x800407D3 for a vendor not on file.
  using PurchaseTxn::Vendor;
  using PurchaseTxn::SetVendor;
  using PurchaseTxn::VendorObject;
  using PurchaseTxn::TxnDate;
  using PurchaseTxn::SetTxnDate;
  using PurchaseTxn::RefNumber;
  using PurchaseTxn::SetRefNumber;
  using PurchaseTxn::Memo;
  using PurchaseTxn::SetMemo;

 protected:
  using PurchaseTxn::PurchaseTxn;
};

class VendorCredit final : public VendorDocument {
 public:
  VendorCredit();
  // CreditAmount of QuickBooks' answer.
  Currency Amount() const { return amount_; }
  using PurchaseTxn::OpenAmount;

 private:
  static const TxnClassInfo& Info();
};

class ItemReceipt final : public VendorDocument {
 public:
  ItemReceipt();
  // TotalAmount of QuickBooks' answer.
  Currency TotalAmount() const { return amount_; }

 private:
  static const TxnClassInfo& Info();
};

}  // namespace tessaron
