// CreditMemo: money owed back to a customer. It lowers the customer's receivable balance;
// what has not yet been applied to an invoice is CreditRemaining.
#pragma once

#include "tessaron/platform/currency.h"
#include "tessaron/transactions/sales_txn.h"

namespace tessaron {

class CreditMemo final : public SalesTxn {
 public:
  CreditMemo();
  ~CreditMemo() override;

  // Beside the family's fields (sales_txn.h):
  using SalesTxn::ARAccount;
  using SalesTxn::SetARAccount;
  using SalesTxn::Terms;
  using SalesTxn::SetTerms;
  using SalesTxn::ShipTo;
  using SalesTxn::ShipMethod;
  using SalesTxn::SetShipMethod;
  using SalesTxn::ShipDate;
  using SalesTxn::SetShipDate;
  using SalesTxn::IsPending;
  using SalesTxn::SetIsPending;
  using SalesTxn::PONumber;
  using SalesTxn::SetPONumber;
  // Subtotal and sales tax.
  Currency Total() const { return TotalAmountFigure(); }
  // The credit not yet used, as QuickBooks last said.
  Currency CreditRemaining() const { return creditRemaining_; }

  // Validate's head tests: 0x800403F6/0x800407E4 (ARAccount), 0x800407E2 (Customer).

 protected:
  void ValidateHead(qcErrors& errors) override;

 private:
  static const TxnClassInfo& Info();

  Currency creditRemaining_;
};

}  // namespace tessaron
