// SalesOrder: goods and services promised to a customer. It posts nothing; invoices made
// from it link back and count against its lines (Invoiced on each line), until every line
// is invoiced or closed (IsFullyInvoiced). Lines can be closed one by one
// (IsManuallyClosed on the line), the whole order with IsManuallyClosed here.
#pragma once

#include "tessaron/platform/currency.h"
#include "tessaron/transactions/sales_txn.h"

namespace tessaron {

class SalesOrder final : public SalesTxn {
 public:
  SalesOrder();
  ~SalesOrder() override;

  // Beside the family's fields (sales_txn.h):
  using SalesTxn::Terms;
  using SalesTxn::SetTerms;
  using SalesTxn::ShipTo;
  using SalesTxn::ShipMethod;
  using SalesTxn::SetShipMethod;
  using SalesTxn::ShipDate;
  using SalesTxn::SetShipDate;
  using SalesTxn::PONumber;
  using SalesTxn::SetPONumber;
  using SalesTxn::IsFinanceCharge;
  // Read: every line invoiced or closed.
  bool IsFullyInvoiced() const { return isFullyInvoiced_; }
  // Closes the whole order; sent in add and modify.
  bool IsManuallyClosed() const { return isManuallyClosed_; }
  void SetIsManuallyClosed(bool value);
  // Subtotal and sales tax.
  Currency TotalAmount() const { return TotalAmountFigure(); }

  // Validate's head tests: 0x800407E2 without a customer.

 protected:
  void ValidateHead(qcErrors& errors) override;

 private:
  static const TxnClassInfo& Info();

  bool isFullyInvoiced_ = false;
  bool isManuallyClosed_ = false;
};

}  // namespace tessaron
