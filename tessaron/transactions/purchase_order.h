// PurchaseOrder: what the company ordered from a vendor. It posts nothing; it carries the
// vendor's and the delivery address, terms, shipping and item lines in a dialect of its
// own (rates, service dates), and no expense lines.
#pragma once

#include <memory>
#include <string>

#include "tessaron/transactions/purchase_txn.h"

namespace tessaron {

class PurchaseOrder final : public PurchaseTxn {
 public:
  // A new order dated today.
  PurchaseOrder();

  // Sent from qbXML 3.0.
  const std::string& Template() const;
  void SetTemplate(const std::string& value);
  using PurchaseTxn::TxnDate;
  using PurchaseTxn::SetTxnDate;
  using PurchaseTxn::RefNumber;
  using PurchaseTxn::SetRefNumber;
  const std::string& FOB() const { return fob_; }
  void SetFOB(const std::string& value);
  using PurchaseTxn::Memo;
  using PurchaseTxn::SetMemo;
  // Both kept in the saved form only; never sent.
  Date DueDate() const { return dueDate_; }
  void SetDueDate(Date value);
  Date ExpectedDate() const { return expectedDate_; }
  void SetExpectedDate(Date value);
  Currency TotalAmount() const { return amount_; }
  const std::string& VendorMessage() const { return vendorMsg_; }
  void SetVendorMessage(const std::string& value);
  bool IsToBePrinted() const { return isToBePrinted_; }
  void SetIsToBePrinted(bool value);
  std::shared_ptr<tessaron::Address> VendorAddress() const { return address_; }
  std::shared_ptr<tessaron::Address> ShipTo() const { return shipTo_; }
  // Raises 0x800407D3 for a vendor not on file.
  using PurchaseTxn::Vendor;
  using PurchaseTxn::SetVendor;
  // Stored unchecked.
  const std::string& Class() const;
  void SetClass(const std::string& value);
  // Raises 0x800407D4 for a term not on file.
  using PurchaseTxn::Terms;
  void SetTerms(const std::string& value) { SetTermsRef(value); }
  // Where the goods go: a customer (its ShipTo is copied), a vendor or another name (its
  // Address is copied) into ShipTo. 0x800407DA for a name not on file; an empty name
  // clears the reference and leaves the address.
  const std::string& ShipToEntity() const;
  void SetShipToEntity(const std::string& value);
  // Stored unchecked.
  const std::string& ShipMethod() const;
  void SetShipMethod(const std::string& value);
  // Read from answers and kept.
  bool IsManuallyClosed() const { return isManuallyClosed_; }
  bool IsFullyReceived() const { return isFullyReceived_; }

 private:
  static const TxnClassInfo& Info();

  std::shared_ptr<qcListObjectRef> templateRef_;
  std::string fob_;
  Date expectedDate_ = 0;
  std::string vendorMsg_;
  std::shared_ptr<qcListObjectRef> classRef_;
  std::shared_ptr<qcListObjectRef> shipToEntityRef_;
  std::shared_ptr<qcListObjectRef> shipMethodRef_;
  bool isManuallyClosed_ = false;
  bool isFullyReceived_ = false;
};

}  // namespace tessaron
