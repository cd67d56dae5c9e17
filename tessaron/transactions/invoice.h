// Invoice: the receivable document, and the fullest member of the transaction family.
// It carries the header, two addresses, the lines, the sales tax figures, the terms with
// their due and discount dates, and the links. Made by Invoices.Add or read by a query.
//
// Setters of references look the record up (Customer, ARAccount, Terms, SalesTaxCode,
// SalesTaxItem) and raise, with source "Tessaron:Invoice", when it is not on file; the
// others store the name unchecked. Setting Customer also takes its terms, tax settings and
// both addresses. Totals are worked out locally as lines change and give way to the
// figures of QuickBooks' answer.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/transactions/sales_txn.h"

namespace tessaron {

class Invoice final : public SalesTxn {
 public:
  // A new invoice dated today (also its due and ship dates), with the company's default
  // FOB, ship method, printing flag, sales tax item and taxable tax code.
  Invoice();
  ~Invoice() override;

  // Beside the family's fields (sales_txn.h):
  using SalesTxn::Terms;
  using SalesTxn::SetTerms;
  using SalesTxn::ShipTo;
  using SalesTxn::IsPending;
  using SalesTxn::SetIsPending;
  // Needs qbXML 2.0, else raises 0x800403ED.
  bool IsPaid() const;
  using SalesTxn::IsFinanceCharge;
  using SalesTxn::ShipMethod;
  using SalesTxn::SetShipMethod;
  using SalesTxn::ARAccount;
  using SalesTxn::SetARAccount;
  using SalesTxn::PONumber;
  using SalesTxn::SetPONumber;
  using SalesTxn::ShipDate;
  using SalesTxn::SetShipDate;
  using SalesTxn::AppliedAmount;
  using SalesTxn::BalanceRemaining;
  using SalesTxn::SuggestedDiscountAmount;
  using SalesTxn::SuggestedDiscountDate;

  // Validate's head tests: 0x800403F6/0x800407E4 (ARAccount), 0x800407E2 (Customer).
  // Writes the customer, the company (as a vendor record) and the invoice to one file in
  // the saved form. Returns the builder's result.
  int32_t SaveAsqBill(const std::string& FilePath);

  using SalesTxn::UpdateDueDates;

 protected:
  void ValidateHead(qcErrors& errors) override;

 private:
  static const TxnClassInfo& Info();
};

}  // namespace tessaron
