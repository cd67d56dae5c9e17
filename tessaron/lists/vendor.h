// Vendor: a supplier of the company, and OtherName: a name that is neither customer,
// vendor nor employee (an owner, a partner). Both carry the contact fields of every entity
// and one address; a vendor adds what a payable needs: the name on checks, a tax id, the
// 1099 flag, balances, and the type and terms QuickBooks reports for it.
//
// Their setters follow the flag rule: a field that the modify request carries turns a
// stored record Dirty; one it cannot carry (IsActive, notes, the tax fields, the opening
// balance) may be written only until the record was first committed, and raises
// 0x800403EA afterwards. The address keeps a state of its own: changing it leaves the
// record Clean, and the commit still sends a modify for it (see Vendors).
#pragma once

#include <memory>
#include <string>

#include "tessaron/lists/entity_object.h"

namespace tessaron {

class BillPayment;
class txnLinkedTransactions;

class Vendor final : public AddressedEntity {
 public:
  Vendor();

  void SetName(const std::string& value) { Store(name_, value, false); }
  // Only a New vendor takes it: the modify request does not carry IsActive.
  void SetIsActive(bool value) { Store(isActive_, value, true); }
  const std::string& NameOnCheck() const { return nameOnCheck_; }
  void SetNameOnCheck(const std::string& value) { Store(nameOnCheck_, value, false); }
  const std::string& Notes() const { return notes_; }
  void SetNotes(const std::string& value) { Store(notes_, value, true); }
  // Notes QuickBooks appended to the record; read only.
  const std::string& AppendNotes() const { return appendNotes_; }
  Currency CreditLimit() const { return creditLimit_; }
  void SetCreditLimit(Currency value) { Store(creditLimit_, value, true); }
  const std::string& TaxId() const { return taxId_; }
  void SetTaxId(const std::string& value) { Store(taxId_, value, true); }
  // Sent to the US editions only; a vendor eligible for 1099 needs an address and a TaxId.
  bool EligibleFor1099() const { return eligibleFor1099_; }
  void SetEligibleFor1099(bool value) { Store(eligibleFor1099_, value, true); }
  Currency Balance() const { return balance_; }
  Currency OpeningBalance() const { return openingBalance_; }
  void SetOpeningBalance(Currency value) { Store(openingBalance_, value, true); }
  Date OpeningBalanceDate() const { return openingBalanceDate_; }
  void SetOpeningBalanceDate(Date value) { Store(openingBalanceDate_, value, true); }
  // Read from QuickBooks and checked by Validate, but never sent: set them in QuickBooks.
  const std::string& VendorType() const { return vendorType_->FullName(); }
  void SetVendorType(const std::string& value);
  const std::string& Terms() const { return terms_->FullName(); }
  void SetTerms(const std::string& value);

  // A new vendor with all fields and the state of this one.
  std::shared_ptr<Vendor> Clone();
  // Takes every field of From without the field rule, the state and UserData included.
  void Copy(Vendor& From);

  // Reads the vendor's open bills and the credits that can be applied to them (of one
  // payables account when given) into OpenBills and OpenCredits, replacing what they
  // held. Needs qbXML 2.0 (else 0x800403ED); a refusal of QuickBooks leaves both empty.
  void GetBillsAndCredits(const std::string& APAccount = "");
  // Whether the last GetBillsAndCredits found a bill or a credit.
  bool HaveOpenBillsAndCredits();
  // Empty until GetBillsAndCredits runs. Each entry's Amount is the bill's AmountDue or
  // the credit's CreditRemaining.
  std::shared_ptr<txnLinkedTransactions> OpenBills();
  std::shared_ptr<txnLinkedTransactions> OpenCredits();
  // Paying bills needs bill payments, which this version of the library does not have:
  // both raise 0x80040B5E.
  std::shared_ptr<BillPayment> Payment();
  void AddPaymentForPosting();

 private:
  static constexpr char kAddressTag[] = "VendorAddress";
  static constexpr char kAddressLabel[] = "Vendor Address";
  static const ListClassInfo& Info();

  std::string nameOnCheck_;
  std::string notes_;
  std::string appendNotes_;
  Currency creditLimit_;
  std::string taxId_;
  bool eligibleFor1099_ = false;
  Currency balance_;
  Currency openingBalance_;
  Date openingBalanceDate_ = 0;
  std::shared_ptr<qcListObjectRef> vendorType_;
  std::shared_ptr<qcListObjectRef> terms_;
  std::shared_ptr<txnLinkedTransactions> openBills_;
  std::shared_ptr<txnLinkedTransactions> openCredits_;
};

class OtherName final : public AddressedEntity {
 public:
  OtherName();

  void SetName(const std::string& value) { Store(name_, value, false); }
  // Only a New record takes it: the modify request does not carry IsActive.
  void SetIsActive(bool value) { Store(isActive_, value, true); }

  std::shared_ptr<OtherName> Clone();
  void Copy(OtherName& From);

 private:
  static constexpr char kAddressTag[] = "OtherNameAddress";
  static constexpr char kAddressLabel[] = "OtherName Address";
  static const ListClassInfo& Info();
};

}  // namespace tessaron
