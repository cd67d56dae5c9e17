// Estimate: a quotation. It posts nothing; an invoice made from it links back to it. Its
// lines carry a markup over cost (Markup, ApplyMarkupDefaults). It has no shipping fields
// and no receivable account, and keeps IsToBePrinted without sending it.
#pragma once

#include "tessaron/platform/currency.h"
#include "tessaron/transactions/sales_txn.h"

namespace tessaron {

class Estimate final : public SalesTxn {
 public:
  Estimate();
  ~Estimate() override;

  // Beside the family's fields (sales_txn.h):
  using SalesTxn::Terms;
  using SalesTxn::SetTerms;
  using SalesTxn::PONumber;
  using SalesTxn::SetPONumber;
  // A new estimate is active.
  bool IsActive() const { return isActive_; }
  void SetIsActive(bool value);
  // Subtotal and sales tax.
  Currency Total() const { return TotalAmountFigure(); }

  // Validate's head tests: 0x800407E2 without a customer.

 protected:
  void ValidateHead(qcErrors& errors) override;

 private:
  static const TxnClassInfo& Info();

  bool isActive_ = true;
};

}  // namespace tessaron
