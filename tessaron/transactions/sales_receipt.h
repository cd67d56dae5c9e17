// SalesReceipt: a sale paid on the spot. The customer pays at once, so there is no
// receivable account, no terms, no PO number and no links; the money goes to
// DepositToAccount (Undeposited Funds when empty). QuickBooks keeps no modify for it at
// this level: a stored receipt can't change, and a commit of a changed one raises
// "ModRq not supported".
#pragma once

#include <memory>
#include <string>

#include "tessaron/platform/currency.h"
#include "tessaron/transactions/sales_txn.h"

namespace tessaron {

class qcListObjectRef;

class SalesReceipt final : public SalesTxn {
 public:
  SalesReceipt();
  ~SalesReceipt() override;

  // Beside the family's fields (sales_txn.h):
  using SalesTxn::ShipTo;
  using SalesTxn::ShipMethod;
  using SalesTxn::SetShipMethod;
  using SalesTxn::ShipDate;
  using SalesTxn::SetShipDate;
  using SalesTxn::IsPending;
  using SalesTxn::SetIsPending;
  const std::string& CheckNumber() const { return checkNumber_; }
  void SetCheckNumber(const std::string& value);
  // Unchecked name of the payment method list.
  const std::string& PaymentMethod() const;
  void SetPaymentMethod(const std::string& value);
  // Unchecked account name; empty leaves it to QuickBooks (Undeposited Funds).
  const std::string& DepositToAccount() const;
  void SetDepositToAccount(const std::string& value);
  // Subtotal and sales tax.
  Currency Total() const { return TotalAmountFigure(); }

  // Validate's head tests: 0x800407E9 without a customer.

 protected:
  void ValidateHead(qcErrors& errors) override;

 private:
  using TxnObject::LinkedTxns;
  static const TxnClassInfo& Info();

  std::string checkNumber_;
  std::shared_ptr<qcListObjectRef> paymentMethodRef_;
  std::shared_ptr<qcListObjectRef> depositToAccountRef_;
};

}  // namespace tessaron
