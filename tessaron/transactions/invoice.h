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
#include "tessaron/transactions/txn_object.h"

namespace tessaron {

class Address;
class qcListObjectRef;

class Invoice final : public TxnObject {
 public:
  // A new invoice dated today (also its due and ship dates), with the company's default
  // FOB, ship method, printing flag, sales tax item and taxable tax code.
  Invoice();
  ~Invoice() override;

  double ExchangeRate() const { return exchangeRate_.ToDouble(); }
  Currency GSTTaxTotal() const { return gstTaxTotal_; }
  Currency PSTTaxTotal() const { return pstTaxTotal_; }
  const std::string& Template() const;
  void SetTemplate(const std::string& value);

  Date TxnDate() const { return txnDate_; }
  // Due dates are not worked out again.
  void SetTxnDate(Date value);
  const std::string& RefNumber() const { return refNumber_; }
  void SetRefNumber(const std::string& value);
  const std::string& FOB() const { return fob_; }
  void SetFOB(const std::string& value);
  const std::string& Memo() const { return memo_; }
  void SetMemo(const std::string& value);
  const std::string& Class() const;
  void SetClass(const std::string& value);
  // Raises 0x800407D4 for a term not on file; sets the due and discount dates.
  const std::string& Terms() const;
  void SetTerms(const std::string& value);
  std::shared_ptr<Address> BillTo() const { return billTo_; }
  std::shared_ptr<Address> ShipTo() const { return shipTo_; }
  bool IsPending() const { return isPending_; }
  void SetIsPending(bool value);
  // Needs qbXML 2.0, else raises 0x800403ED.
  bool IsPaid() const;
  bool IsFinanceCharge() const { return isFinanceCharge_; }
  bool IsToBePrinted() const { return isToBePrinted_; }
  void SetIsToBePrinted(bool value);
  const std::string& ShipMethod() const;
  void SetShipMethod(const std::string& value);
  // Raises 0x800407E2 for a customer not on file; an empty name does nothing. Takes the
  // customer's terms, sales tax code and item, and both addresses, in that order.
  const std::string& Customer() const;
  void SetCustomer(const std::string& value);
  // Raises 0x800407E3 for an account not on file, 0x800407E4 for one that is not
  // accounts receivable.
  const std::string& ARAccount() const;
  void SetARAccount(const std::string& value);
  const std::string& SalesRep() const;
  void SetSalesRep(const std::string& value);
  // Raises 0x800407DF for an item not on file, 0x800407E1 when a line already carries a
  // tax it contains.
  const std::string& SalesTaxItem() const;
  void SetSalesTaxItem(const std::string& value);
  const std::string& CustomerMessage() const;
  void SetCustomerMessage(const std::string& value);
  // Raises 0x800407DF for a code not on file; an empty name clears it. The lines follow.
  const std::string& SalesTaxCode() const;
  void SetSalesTaxCode(const std::string& value);
  const std::string& PONumber() const { return poNumber_; }
  void SetPONumber(const std::string& value);
  // 0 leaves the date out of the request.
  Date DueDate() const { return dueDate_; }
  void SetDueDate(Date value);
  Date ShipDate() const { return shipDate_; }
  void SetShipDate(Date value);

  Currency Subtotal() const { return subtotal_; }
  Currency SalesTaxPercentage() const { return salesTaxPercentage_; }
  Currency SalesTaxTotal() const { return salesTaxTotal_; }
  Currency AppliedAmount() const { return appliedAmount_; }
  // Subtotal less AppliedAmount after a local change (sales tax not counted).
  Currency BalanceRemaining() const { return balanceRemaining_; }
  Currency SuggestedDiscountAmount() const { return suggestedDiscountAmount_; }
  Date SuggestedDiscountDate() const { return suggestedDiscountDate_; }

  // Collects 0x800403F6/0x800407E4 (ARAccount), 0x800407E2 (Customer), 0x800403F3 per
  // failing line, and 0x800407E6 when no line is left once the trailing empty lines
  // (no item, no description) are removed. A Clean invoice passes untested.
  bool Validate() override;
  // Writes the customer, the company (as a vendor record) and the invoice to one file in
  // the saved form. Returns the builder's result.
  int32_t SaveAsqBill(const std::string& FilePath);

  // The sales tax on the taxable lines at the header's tax item, when the header's code
  // is taxable; else 0.
  void CalculateTax();
  // Due date, discount date and discount from the terms; nothing without a term.
  void UpdateDueDates();

 protected:
  void RecalculateTotals() override;
  void CheckHeaderTaxItem(std::string& name) override;
  bool PartsDirty() const override;
  void AfterFromDom() override;
  void ResetToNew() override;

 private:
  static const TxnClassInfo& Info();
  bool HeaderTaxIsTaxable();

  Currency exchangeRate_;
  Currency gstTaxTotal_;
  Currency pstTaxTotal_;
  std::shared_ptr<qcListObjectRef> templateRef_;
  Date txnDate_ = 0;
  std::string refNumber_;
  std::string fob_;
  std::string memo_;
  std::shared_ptr<qcListObjectRef> classRef_;
  std::shared_ptr<qcListObjectRef> termsRef_;
  std::shared_ptr<Address> billTo_;
  std::shared_ptr<Address> shipTo_;
  bool isPending_ = false;
  bool isPaid_ = false;
  bool isFinanceCharge_ = false;
  bool isToBePrinted_ = false;
  std::shared_ptr<qcListObjectRef> shipMethodRef_;
  std::shared_ptr<qcListObjectRef> customerRef_;
  std::shared_ptr<qcListObjectRef> arAccountRef_;
  std::shared_ptr<qcListObjectRef> salesRepRef_;
  std::shared_ptr<qcListObjectRef> salesTaxItemRef_;
  std::shared_ptr<qcListObjectRef> customerMsgRef_;
  std::shared_ptr<qcListObjectRef> salesTaxCodeRef_;
  std::string poNumber_;
  Date dueDate_ = 0;
  Date shipDate_ = 0;
  Currency subtotal_;
  Currency salesTaxPercentage_;
  Currency salesTaxTotal_;
  Currency appliedAmount_;
  Currency balanceRemaining_;
  Currency suggestedDiscountAmount_;
  Date suggestedDiscountDate_ = 0;
  // Whether the header's tax code is taxable; worked out from the code when first needed
  // after a read or a default.
  bool headerTaxIsTaxable_ = false;
  bool headerTaxKnown_ = false;
};

}  // namespace tessaron
