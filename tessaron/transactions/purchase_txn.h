// PurchaseTxn: what the payables documents share (Bill, Check, VendorCredit,
// CreditCardCharge, CreditCardCredit, ItemReceipt, PurchaseOrder): the expense lines
// beside the item lines, the two kinds of header (a vendor with its payables account, or
// a paying account with a payee), their setters and the checks of Validate. Each class
// exposes the members it has with `using` and gives its field table.
#pragma once

#include <memory>
#include <string>

#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/transactions/txn_object.h"

namespace tessaron {

class Address;
class qcListObjectRef;
class txnExpenseLines;
class Vendor;

class PurchaseTxn : public TxnObject {
 public:
  ~PurchaseTxn() override;

  // The expense lines; like ItemLines, a document read without lines is read again first.
  std::shared_ptr<txnExpenseLines> ExpenseLines();
  // The item-line checks, trailing empty lines removed, at least one line of either kind.
  // A Clean document passes them; the header checks of each class come first.
  bool Validate() override;

 protected:
  // Which header the document has, and so which checks Validate runs.
  enum class Header { Vendor, Check, CreditCard };
  PurchaseTxn(const TxnClassInfo& info, Header header, bool withExpenseLines);

  Date TxnDate() const { return txnDate_; }
  void SetTxnDate(Date value);
  const std::string& RefNumber() const { return refNumber_; }
  void SetRefNumber(const std::string& value);
  const std::string& Memo() const { return memo_; }
  void SetMemo(const std::string& value);

  // ---- Vendor header ----
  // Raises 0x800407D3 for a vendor not on file; an empty name clears.
  const std::string& Vendor() const;
  void SetVendor(const std::string& value);
  std::shared_ptr<tessaron::Vendor> VendorObject() const;
  // Raises 0x800403F6 for an account not on file, 0x800407F1 for one that is not
  // accounts payable; an empty name clears.
  const std::string& APAccount() const;
  void SetAPAccount(const std::string& value);
  Currency OpenAmount() const { return openAmount_; }

  // ---- Paying-account header: both stored unchecked; Validate tests the account ----
  const std::string& Account() const;
  void SetAccount(const std::string& value);
  const std::string& PayeeEntity() const;
  void SetPayeeEntity(const std::string& value);
  std::shared_ptr<tessaron::Address> Address() const { return address_; }
  // Worked out from the lines; QuickBooks' figure after a read.
  Currency Amount() const { return amount_; }

  // Raises 0x800407D4 for a term not on file; an empty name clears.
  const std::string& Terms() const;
  void SetTermsRef(const std::string& value);

  // Check, CreditCardCharge and CreditCardCredit: Amount is the total of both kinds of line.
  void RecalculateTotals() override;
  // Bill's AmountDue; Check's and the cards' Amount.
  bool totalsFromLines_ = false;

  // Address rows, written whole in add and modify (empty or not) when `sent`.
  static TxnFieldDef AddressRow(bool sent);        // "Address"
  static TxnFieldDef VendorAddressRow();           // "VendorAddress"
  static TxnFieldDef ShipAddressRow();             // "ShipAddress"

  void WriteLineParts(xmlBldr& b, bool isRet, bool isMod) override;
  bool ReadPart(std::string_view tag, const XmlNode& node) override;
  void ClearParts() override;
  bool PartsDirty() const override;
  void AfterFromDom() override;
  void ResetToNew() override;
  // Bill and ItemReceipt send one LinkToTxnID per linked document in their add.
  bool writesLinkIds_ = false;

  Date txnDate_ = 0;
  std::string refNumber_;
  std::string memo_;
  std::shared_ptr<qcListObjectRef> vendorRef_;
  std::shared_ptr<qcListObjectRef> apAccountRef_;
  std::shared_ptr<qcListObjectRef> accountRef_;
  std::shared_ptr<qcListObjectRef> payeeEntityRef_;
  std::shared_ptr<qcListObjectRef> termsRef_;
  std::shared_ptr<tessaron::Address> address_;   // Check and cards: Address; PurchaseOrder: VendorAddress
  std::shared_ptr<tessaron::Address> shipTo_;    // PurchaseOrder: ShipAddress
  bool isToBePrinted_ = false;
  Currency amount_;
  Currency openAmount_;
  Date dueDate_ = 0;

 private:
  void ValidateHeader(qcErrors& errors);

  Header header_;
  std::shared_ptr<txnExpenseLines> expenseLines_;
};

}  // namespace tessaron
