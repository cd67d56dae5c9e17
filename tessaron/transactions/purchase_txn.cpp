#include "tessaron/transactions/purchase_txn.h"

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/account.h"
#include "tessaron/lists/address.h"
#include "tessaron/lists/terms.h"
#include "tessaron/lists/vendor.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/detail/line_checks.h"
#include "tessaron/transactions/detail/txn_access.h"
#include "tessaron/transactions/detail/txn_refs.h"
#include "tessaron/transactions/txn_expense_lines.h"
#include "tessaron/transactions/txn_item_lines.h"
#include "tessaron/transactions/txn_linked_transactions.h"

namespace tessaron {

using detail::NamedRef;
using detail::NameOf;
using detail::Target;

PurchaseTxn::PurchaseTxn(const TxnClassInfo& info, Header header, bool withExpenseLines)
    : TxnObject(info),
      vendorRef_(NamedRef(qoListVendors, "")),
      apAccountRef_(NamedRef(qoListAccounts, "")),
      accountRef_(NamedRef(qoListAccounts, "")),
      payeeEntityRef_(NamedRef(qoListEntity, "")),
      termsRef_(NamedRef(qoListTerms, "")),
      address_(std::make_shared<tessaron::Address>()),
      shipTo_(std::make_shared<tessaron::Address>()),
      header_(header) {
  txnDate_ = Today();
  if (withExpenseLines) {
    expenseLines_ = std::make_shared<txnExpenseLines>();
    detail::TxnAccess::SetOwnerType(*expenseLines_, info.objectType);
    detail::TxnAccess::SetEventSink(*expenseLines_, EventSink());
  }
}

PurchaseTxn::~PurchaseTxn() = default;

std::shared_ptr<txnExpenseLines> PurchaseTxn::ExpenseLines() {
  (void)ItemLines();  // reads the document again when its lines did not come
  return expenseLines_;
}

// ---- Setters -------------------------------------------------------------------------------

void PurchaseTxn::SetTxnDate(Date value) { MarkModified(true); txnDate_ = value; }
void PurchaseTxn::SetRefNumber(const std::string& value) { MarkModified(true); refNumber_ = value; }
void PurchaseTxn::SetMemo(const std::string& value) { MarkModified(true); memo_ = value; }

const std::string& PurchaseTxn::Vendor() const { return NameOf(vendorRef_); }
const std::string& PurchaseTxn::APAccount() const { return NameOf(apAccountRef_); }
const std::string& PurchaseTxn::Account() const { return NameOf(accountRef_); }
const std::string& PurchaseTxn::PayeeEntity() const { return NameOf(payeeEntityRef_); }
const std::string& PurchaseTxn::Terms() const { return NameOf(termsRef_); }

std::shared_ptr<tessaron::Vendor> PurchaseTxn::VendorObject() const { return Target<tessaron::Vendor>(vendorRef_); }

void PurchaseTxn::SetVendor(const std::string& value) {
  auto ref = NamedRef(qoListVendors, value);
  if (!value.empty() && !Target<tessaron::Vendor>(ref))
    throw Error(err::kVendorMissing, ClassInfo().className, err::kVendorMissingText);
  MarkModified(true);
  vendorRef_ = ref;
}

void PurchaseTxn::SetAPAccount(const std::string& value) {
  auto ref = NamedRef(qoListAccounts, value);
  if (!value.empty()) {
    auto account = Target<tessaron::Account>(ref);
    if (!account) throw Error(err::kBadAccount, ClassInfo().className, err::kBadAccountText);
    if (account->AccountType() != qbAccountTypeAccountsPayable)
      throw Error(err::kNeedApAccount, ClassInfo().className, err::kNeedApAccountText);
  }
  MarkModified(true);
  apAccountRef_ = ref;
}

void PurchaseTxn::SetAccount(const std::string& value) {
  MarkModified(true);
  accountRef_ = NamedRef(qoListAccounts, value);
}

void PurchaseTxn::SetPayeeEntity(const std::string& value) {
  MarkModified(true);
  payeeEntityRef_ = NamedRef(qoListEntity, value);
}

void PurchaseTxn::SetTermsRef(const std::string& value) {
  auto ref = NamedRef(qoListTerms, value);
  if (!value.empty() && !Target<qcTerm>(ref))
    throw Error(err::kTermMissing, ClassInfo().className, err::kTermMissingText);
  MarkModified(true);
  termsRef_ = ref;
}

void PurchaseTxn::RecalculateTotals() {
  if (totalsFromLines_) amount_ = Lines().Total() + (expenseLines_ ? expenseLines_->Total() : Currency());
}

// ---- Address rows --------------------------------------------------------------------------

namespace {

template <const char* Tag, std::shared_ptr<Address> PurchaseTxn::*Member>
struct AddressRowOf {
  static void Read(TxnObject& o, const XmlNode& n) {
    detail::ListObjectAccess::FromDom(*(static_cast<PurchaseTxn&>(o).*Member), n);
  }
  static void Write(TxnObject& o, xmlBldr& b, WriteMode) {
    b.OpenAggregateOnly(Tag);
    detail::ListObjectAccess::Write(*(static_cast<PurchaseTxn&>(o).*Member), b);
    b.EndAggregate(Tag);
  }
  static TxnFieldDef Row(bool sent) {
    auto row = field::CustomOf<TxnObject>(Tag, &Read, &Write);
    return sent ? row.Add(Send::Always).Mod(Send::Always) : row.NotInQuery();
  }
};

constexpr char kAddress[] = "Address";
constexpr char kVendorAddress[] = "VendorAddress";
constexpr char kShipAddress[] = "ShipAddress";

}  // namespace

TxnFieldDef PurchaseTxn::AddressRow(bool sent) { return AddressRowOf<kAddress, &PurchaseTxn::address_>::Row(sent); }
TxnFieldDef PurchaseTxn::VendorAddressRow() {
  return AddressRowOf<kVendorAddress, &PurchaseTxn::address_>::Row(true);
}
TxnFieldDef PurchaseTxn::ShipAddressRow() { return AddressRowOf<kShipAddress, &PurchaseTxn::shipTo_>::Row(true); }

// ---- Lines and parts -----------------------------------------------------------------------

void PurchaseTxn::WriteLineParts(xmlBldr& b, bool isRet, bool isMod) {
  // QuickBooks takes links only when the document is added.
  if (writesLinkIds_ && !isRet && !isMod)
    for (const auto& link : *LinkedTxns()) b.CreateElement("LinkToTxnID", link->TxnId());
  if (expenseLines_) detail::TxnAccess::WriteLines(*expenseLines_, b, isRet, isMod);
  TxnObject::WriteLineParts(b, isRet, isMod);
}

bool PurchaseTxn::ReadPart(std::string_view tag, const XmlNode& node) {
  if (!expenseLines_ || tag != "ExpenseLineRet") return false;
  detail::TxnAccess::ReadLine(*expenseLines_, node);
  return true;
}

void PurchaseTxn::ClearParts() {
  if (expenseLines_) detail::TxnAccess::ClearLines(*expenseLines_);
}

bool PurchaseTxn::PartsDirty() const {
  return (expenseLines_ && expenseLines_->ObjectState() == qoObjectStateDirty) ||
         address_->ObjectState() == qoObjectStateDirty || shipTo_->ObjectState() == qoObjectStateDirty;
}

void PurchaseTxn::AfterFromDom() {
  if (expenseLines_) detail::TxnAccess::SetObjectState(*expenseLines_, qoObjectStateClean);
  detail::ListObjectAccess::SetObjectState(*address_, qoObjectStateClean);
  detail::ListObjectAccess::SetObjectState(*shipTo_, qoObjectStateClean);
}

void PurchaseTxn::ResetToNew() {
  TxnObject::ResetToNew();
  detail::ListObjectAccess::SetObjectState(*address_, qoObjectStateNew);
  detail::ListObjectAccess::SetObjectState(*shipTo_, qoObjectStateNew);
  if (!expenseLines_) return;
  detail::TxnAccess::SetObjectState(*expenseLines_, qoObjectStateNew);
  for (const auto& line : *expenseLines_) detail::TxnAccess::SetObjectState(*line, qoObjectStateNew);
}

// ---- Checks --------------------------------------------------------------------------------

void PurchaseTxn::ValidateHeader(qcErrors& errors) {
  const bool clean = ObjectState() == qoObjectStateClean;
  switch (header_) {
    case Header::Vendor:
      if (!clean && Vendor().empty()) errors.Add(err::kVendorRequired, "Vendor", err::kVendorRequiredText);
      return;
    case Header::Check: {
      // These run on stored checks too.
      auto account = Target<tessaron::Account>(accountRef_);
      if (!account) errors.Add(err::kBadAccount, "Check", err::kBadAccountText);
      else if (account->AccountType() != qbAccountTypeBank)
        errors.Add(err::kCheckNeedsBank, "Check", err::kCheckNeedsBankText);
      if (!refNumber_.empty() && isToBePrinted_)
        errors.Add(err::kCheckNumberToPrint, "Check", err::kCheckNumberToPrintText);
      return;
    }
    case Header::CreditCard: {
      auto account = Target<tessaron::Account>(accountRef_);
      if (!account || account->AccountType() != qbAccountTypeCreditCard)
        errors.Add(err::kNeedCreditCardAccount, ClassInfo().className, err::kNeedCreditCardAccountText);
      return;
    }
  }
}

bool PurchaseTxn::Validate() {
  auto errors = Errors();
  errors->Clear();
  ValidateHeader(*errors);
  if (ObjectState() == qoObjectStateClean) return errors->Count() == 0;

  const long itemCount = detail::ValidateAndTrimLines(Lines(), *errors, detail::ItemLineHasContent<txnItemLine>);
  const long expenseCount =
      expenseLines_ ? detail::ValidateAndTrimLines(*expenseLines_, *errors, [](const txnExpenseLine& line) {
        return !line.Account().empty() || line.Amount() != Currency() || !line.Memo().empty();
      })
                    : 0;
  if (itemCount == 0 && expenseCount == 0) errors->Add(err::kNeedLine, "0", err::kNeedLineText);
  return errors->Count() == 0;
}

}  // namespace tessaron
