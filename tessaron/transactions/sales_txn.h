// SalesTxn: what the sales documents (Invoice, SalesReceipt, CreditMemo, Estimate,
// SalesOrder) share. The header fields of the family live here with one setter each; the
// setters with a look-up (Customer, Terms, ARAccount, SalesTaxCode, SalesTaxItem), the
// tax and total arithmetic, the defaults from the preferences and the line checks of
// Validate are the same code for every member.
//
// A member class publishes what it has: the getters and setters every sales document
// carries are public here, the others are protected and a class that has them brings them
// into its public part with `using`. Its field table is a list of the family's rows
// (`Row(SalesField::CustomerRef)` ...) in the order of its saved form, plus its own rows.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/transactions/txn_object.h"

namespace tessaron {

class Address;
class qcErrors;
class qcListObjectRef;

// The header fields of the family, as rows of a field table.
enum class SalesField : uint8_t {
  CustomerRef, ClassRef, ARAccountRef, TemplateRef, TxnDate, RefNumber, BillAddress, ShipAddress, IsPending,
  IsFinanceCharge, PONumber, TermsRef, DueDate, SalesRepRef, FOB, ShipDate, ShipMethodRef, Subtotal,
  ItemSalesTaxRef, SalesTaxPercentage, SalesTaxTotal, TotalAmount, AppliedAmount, BalanceRemaining, Memo,
  CustomerMsgRef, IsToBePrinted, CustomerSalesTaxCodeRef, SuggestedDiscountAmount, SuggestedDiscountDate, IsPaid,
  Tax1Total, Tax2Total, ExchangeRate, DataExtRet,
};

class SalesTxn : public TxnObject {
 public:
  ~SalesTxn() override;

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
  std::shared_ptr<Address> BillTo() const { return billTo_; }
  bool IsToBePrinted() const { return isToBePrinted_; }
  void SetIsToBePrinted(bool value);
  // Raises 0x800407E2 for a customer not on file; an empty name does nothing. Takes the
  // customer's terms, sales tax code and item, and both addresses, in that order.
  const std::string& Customer() const;
  void SetCustomer(const std::string& value);
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
  // 0 leaves the date out of the request.
  Date DueDate() const { return dueDate_; }
  void SetDueDate(Date value);

  Currency Subtotal() const { return subtotal_; }
  Currency SalesTaxPercentage() const { return salesTaxPercentage_; }
  Currency SalesTaxTotal() const { return salesTaxTotal_; }

  // The sales tax on the taxable lines at the header's tax item, when the header's code
  // is taxable; else 0.
  void CalculateTax();

  // The class's head tests (customer, account), then each line's own (0x800403F3 with the
  // line number); trailing empty lines (no item, no description) are removed, and
  // 0x800407E6 when none is left. True when Errors is empty; a Clean document passes
  // untested.
  bool Validate() override;

 protected:
  // A new document dated today (also its due and ship dates), with the company's default
  // FOB, ship method, printing flag, sales tax item and taxable tax code.
  explicit SalesTxn(const TxnClassInfo& info);

  // Brought into the public part by the classes that have them.
  // Raises 0x800407D4 for a term not on file; sets the due and discount dates.
  const std::string& Terms() const;
  void SetTerms(const std::string& value);
  std::shared_ptr<Address> ShipTo() const { return shipTo_; }
  const std::string& ShipMethod() const;
  void SetShipMethod(const std::string& value);
  Date ShipDate() const { return shipDate_; }
  void SetShipDate(Date value);
  bool IsPending() const { return isPending_; }
  void SetIsPending(bool value);
  const std::string& PONumber() const { return poNumber_; }
  void SetPONumber(const std::string& value);
  // Raises 0x800407E3 for an account not on file, 0x800407E4 for one that is not
  // accounts receivable.
  const std::string& ARAccount() const;
  void SetARAccount(const std::string& value);
  bool IsFinanceCharge() const { return isFinanceCharge_; }
  Currency AppliedAmount() const { return appliedAmount_; }
  // Subtotal less AppliedAmount after a local change (sales tax not counted).
  Currency BalanceRemaining() const { return balanceRemaining_; }
  Currency SuggestedDiscountAmount() const { return suggestedDiscountAmount_; }
  Date SuggestedDiscountDate() const { return suggestedDiscountDate_; }
  // Subtotal and sales tax: worked out locally, then QuickBooks' figure.
  Currency TotalAmountFigure() const { return totalAmount_; }
  // Due date, discount date and discount from the terms; nothing without a term.
  void UpdateDueDates();

  // The family's row for one header field, as the invoice sends it: the tax references
  // only for the US edition (the item also only with a default tax item), IsPending and
  // IsToBePrinted always, dates when set, the figures read only.
  static TxnFieldDef Row(SalesField f);
  // Conditions on the tax references that the other documents use instead.
  static bool HasDefaultTaxItem(const TxnObject&);

  // The checks before the lines, in the class's order.
  virtual void ValidateHead(qcErrors& errors) = 0;
  // 0x800403F6 or 0x800407E4 in field "ARAccount" for a wrong receivable account.
  void ValidateARAccount(qcErrors& errors);
  // Errors raised by the setters name the class: "Tessaron:Invoice".
  std::string Source() const;

  void RecalculateTotals() override;
  void CheckHeaderTaxItem(std::string& name) override;
  bool PartsDirty() const override;
  void AfterFromDom() override;
  void ResetToNew() override;

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
  Currency totalAmount_;
  Currency appliedAmount_;
  Currency balanceRemaining_;
  Currency suggestedDiscountAmount_;
  Date suggestedDiscountDate_ = 0;

 private:
  bool HeaderTaxIsTaxable();

  // Whether the header's tax code is taxable; worked out from the code when first needed
  // after a read or a default.
  bool headerTaxIsTaxable_ = false;
  bool headerTaxKnown_ = false;
};

// What Add of every sales collection takes beside its own arguments: each is set only
// when given (non-empty text, non-zero date), the customer first (it brings its terms,
// tax settings and addresses).
void FillSalesAdd(SalesTxn& doc, const std::string& Customer, const std::string& RefNumber, Date TxnDate,
                  const std::string& Class, const std::string& CustomerMessage, const std::string& Memo,
                  const std::string& SalesRep);

}  // namespace tessaron
