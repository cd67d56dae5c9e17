// Customer: a customer of the company or, when it has a parent, a job. The largest list
// record: names and contacts, references to the lists it uses, balances, job data, two
// addresses and a credit card.
//
// Its setters follow the version rule: a field that the session's modify request carries
// may be changed at any time and turns a stored customer Dirty; a field it cannot carry
// (IsActive and the references below qbXML 3.0, the opening balance at any version) may be
// written only until the customer was first committed, and raises 0x800403EA afterwards.
//
// The addresses and the credit card keep states of their own: changing them leaves the
// customer Clean, and the commit still sends a modify for them (see Customers).
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/lists/address.h"
#include "tessaron/lists/credit_card.h"
#include "tessaron/lists/entity_object.h"

namespace tessaron {

class Customer final : public EntityObject {
 public:
  Customer();

  // The jobs under this customer (the Children of the record).
  std::shared_ptr<qcListObjectRefs> Jobs() { return Children(); }
  // From qbXML 3.0 a stored customer can be made inactive; below, only a New one.
  void SetIsActive(bool value);

  // References by full name. From qbXML 3.0 a modify sends them, an empty one clearing
  // the reference; below, only a New customer takes them.
  const std::string& CustomerType() const { return customerType_->FullName(); }
  void SetCustomerType(const std::string& value);
  const std::string& Terms() const { return terms_->FullName(); }
  void SetTerms(const std::string& value);
  const std::string& SalesRep() const { return salesRep_->FullName(); }
  void SetSalesRep(const std::string& value);
  // Sent only to the US editions; it can be set in any.
  const std::string& SalesTaxCode() const { return salesTaxCode_->FullName(); }
  void SetSalesTaxCode(const std::string& value);
  const std::string& SalesTaxItem() const { return salesTaxItem_->FullName(); }
  void SetSalesTaxItem(const std::string& value);
  const std::string& PaymentMethod() const;
  void SetPaymentMethod(const std::string& value);
  const std::string& JobType() const { return jobType_->FullName(); }
  void SetJobType(const std::string& value);

  // Balances as QuickBooks reports them: of this record, and with its jobs.
  Currency Balance() const { return balance_; }
  Currency TotalBalance() const { return totalBalance_; }
  // Only a New customer takes an opening balance; QuickBooks cannot modify it.
  Currency OpeningBalance() const { return openingBalance_; }
  void SetOpeningBalance(Currency value);
  Date OpeningBalanceDate() const { return openingBalanceDate_; }
  void SetOpeningBalanceDate(Date value);
  const std::string& ResaleNumber() const { return resaleNumber_; }
  void SetResaleNumber(const std::string& value);
  // Setting the limit, even to its present value or to 0, makes the next modify send it.
  Currency CreditLimit() const { return creditLimit_; }
  void SetCreditLimit(Currency value);
  // The card the customer pays with; made on first use.
  std::shared_ptr<tessaron::CreditCard> CreditCard();

  qbEnumJobStatus JobStatus() const { return static_cast<qbEnumJobStatus>(jobStatus_); }
  void SetJobStatus(qbEnumJobStatus value);
  Date JobStartDate() const { return jobStartDate_; }
  void SetJobStartDate(Date value);
  Date JobProjectedEndDate() const { return jobProjectedEndDate_; }
  void SetJobProjectedEndDate(Date value);
  Date JobEndDate() const { return jobEndDate_; }
  void SetJobEndDate(Date value);
  const std::string& JobDescription() const { return jobDescription_; }
  void SetJobDescription(const std::string& value);
  // Notes can be written at any version, but travel only from qbXML 3.0 on.
  const std::string& Notes() const { return notes_; }
  void SetNotes(const std::string& value);

  // The addresses; made on first use.
  std::shared_ptr<Address> BillTo();
  std::shared_ptr<Address> ShipTo();

  // The names and ways to reach the customer are those of every entity (EntityObject).
  // Writing the present AltContact leaves a stored customer Clean; another value turns it Dirty.
  void SetAltContact(const std::string& value) override;

  // A new customer with all fields, the state and the jobs of this one.
  std::shared_ptr<Customer> Clone();
  // Takes every field from FromCustomer without the field rule: the state, the jobs and
  // UserData too. The addresses go over by CopyAddress, the card by its setters.
  void Copy(Customer& FromCustomer);


 protected:
  void AfterFromDom() override;
  // Contact fields follow the version rule too.
  void GuardContactField() override { CheckFieldFromVersion(1); }

 private:
  // Library-internal, through detail::ListObjectAccess.
  friend class detail::ListObjectAccess;
  // The name under the version rule (Rename turns a stored customer Dirty with it).
  void SetNameChecked(const std::string& value);
  void ResetToNew() override;
  // A Clean customer is still sent when ShipTo is Dirty, or ShipTo is Clean and BillTo
  // Dirty. Raises for an address in no known state.
  bool ModifyWhileClean() override;

  static const ListClassInfo& Info();
  std::shared_ptr<qcListObjectRef>& PaymentMethodRef();
  void SetRef(std::shared_ptr<qcListObjectRef>& ref, const std::string& value, Currency minVersion);

  std::shared_ptr<qcListObjectRef> customerType_;
  std::shared_ptr<qcListObjectRef> terms_;
  std::shared_ptr<qcListObjectRef> salesRep_;
  std::shared_ptr<qcListObjectRef> salesTaxCode_;
  std::shared_ptr<qcListObjectRef> salesTaxItem_;
  std::shared_ptr<qcListObjectRef> paymentMethod_;  // made on demand
  std::shared_ptr<qcListObjectRef> jobType_;
  Currency balance_;
  Currency totalBalance_;
  Currency openingBalance_;
  Date openingBalanceDate_ = 0;
  std::string resaleNumber_;
  Currency creditLimit_;
  bool creditLimitTouched_ = false;
  std::shared_ptr<tessaron::CreditCard> creditCard_;
  int32_t jobStatus_ = qbJobStatusNone;
  Date jobStartDate_ = 0;
  Date jobProjectedEndDate_ = 0;
  Date jobEndDate_ = 0;
  std::string jobDescription_;
  std::string notes_;
  std::shared_ptr<Address> billTo_;
  std::shared_ptr<Address> shipTo_;
  std::string printAs_;  // the query form only
  // Unknown (-1), false (0) or true (1); sent only when true.
  int32_t isStatementWithParent_ = -1;
  int32_t deliveryMethod_ = 0;  // a row of "DeliveryMethod"; sent only above 0
};

}  // namespace tessaron
