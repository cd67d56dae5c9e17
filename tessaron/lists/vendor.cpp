#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/lists/vendor.h"

#include "tessaron/framework/response_status.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/transactions/detail/txn_access.h"
#include "tessaron/transactions/txn_linked_transactions.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/values.h"
#include "tessaron/platform/text.h"

namespace tessaron {

namespace {

using E = EntityObject::Shared;

Vendor& AsVendor(ListObject& o) { return static_cast<Vendor&>(o); }

std::vector<FieldDef> Join(std::vector<FieldDef> head, const std::vector<FieldDef>& tail) {
  head.insert(head.end(), tail.begin(), tail.end());
  return head;
}

}  // namespace

// ---- Vendor ------------------------------------------------------------------------------

const ListClassInfo& Vendor::Info() {
  using C = ListObject::Common;
  static const ListClassInfo info = [] {
    ListClassInfo i = ClassOf("Vendor", qoObjectTypeVendor, qoListVendors, ModifyRule::Write);
    i.queryBooleans = QueryBooleans::Digits;
    std::vector<FieldDef> own = E::PayeeContactRows(AddressRow(kAddressTag));
    const std::vector<FieldDef> vendorRows = {
        field::Text("NameOnCheck", &Vendor::nameOnCheck_).Add(Send::IfSet).Mod(Send::Always),
        // Notes go before AccountNumber here, as the add request of this library always wrote them.
        field::Text("Notes", &Vendor::notes_).Add(Send::IfSet),
        E::Text("AccountNumber", &Vendor::accountNumber_),
        field::Text("AppendNotes", &Vendor::appendNotes_).NotInQuery(),
        // Kept from responses and checked, never sent.
        field::Ref("VendorTypeRef", &Vendor::vendorType_, qoListVendorTypes).As("VendorType"),
        field::Ref("TermsRef", &Vendor::terms_, qoListTerms).As("Terms"),
        field::Amount("CreditLimit", &Vendor::creditLimit_).Add(Send::IfPositive),
        field::Text("VendorTaxIdent", &Vendor::taxId_).Add(Send::IfSet).As("TaxId"),
        // Only the US editions know the 1099 flag.
        field::Boolean("IsVendorEligibleFor1099", &Vendor::eligibleFor1099_)
            .Add(Send::Always)
            .When([](const ListObject&) { return !State().IsNonUSProduct; })
            .As("EligibleFor1099"),
        field::Amount("Balance", &Vendor::balance_),
        field::Amount("OpenBalance", &Vendor::openingBalance_).Add(Send::IfSet).NotInQuery().As("OpeningBalance"),
        field::DateOnly("OpenBalanceDate", &Vendor::openingBalanceDate_)
            .Add(Send::IfSet)
            .When([](const ListObject& o) { return static_cast<const Vendor&>(o).openingBalance_ != Currency(); })
            .NotInQuery()
            .As("OpeningBalanceDate"),
    };
    own = Join(std::move(own), vendorRows);
    std::vector<FieldDef> rows = {C::Name(Send::Always, Send::Always), C::IsActive()};
    i.fields = C::Rows({});
    i.fields = Join(Join(std::move(i.fields), rows), own);

    i.checks = {C::NameCheck(41, err::kNameTooLong, err::kNameTooLongText)};
    for (const CheckDef& c : E::PayeeContactChecks(AddressCheck<kAddressLabel>()))
      i.checks.push_back(c);
    i.checks.push_back(check::MaxLength(&Vendor::nameOnCheck_, "Name On Check", 41, err::kNameOnCheckTooLong,
                                        err::kNameOnCheckTooLongText));
    i.checks.push_back(E::AccountNumberCheck());
    i.checks.push_back(check::Custom([](ListObject& o, qcErrors& e) {
      if (Utf16Length(AsVendor(o).VendorType()) >= 160)
        e.Add(err::kVendorTypeTooLong, "Vendor Type: Full Name", err::kVendorTypeTooLongText);
    }));
    i.checks.push_back(check::Custom([](ListObject& o, qcErrors& e) {
      if (Utf16Length(AsVendor(o).Terms()) >= 32)
        e.Add(err::kTermsRefTooLong, "TermsRef: Full Name", err::kTermsRefTooLongText);
    }));
    i.checks.push_back(check::MaxLength(&Vendor::taxId_, "Tax ID", 15, err::kVendorTaxIdTooLong,
                                        err::kVendorTaxIdTooLongText));
    i.checks.push_back(check::Custom([](ListObject& o, qcErrors& e) {
      Vendor& v = AsVendor(o);
      if (v.eligibleFor1099_ && (!v.address_ || v.address_->IsEmpty() || v.taxId_.empty()))
        e.Add(err::kVendor1099NeedsAddress, "Eligible For 1099", err::kVendor1099NeedsAddressText);
    }));
    return i;
  }();
  return info;
}

Vendor::Vendor()
    : AddressedEntity(Info(), kAddressTag),
      vendorType_(std::make_shared<qcListObjectRef>(qoListVendorTypes)),
      terms_(std::make_shared<qcListObjectRef>(qoListTerms)) {}

void Vendor::SetVendorType(const std::string& value) {
  CheckField(true);
  detail::ListObjectAccess::SetFullName(*vendorType_, value);
}
void Vendor::SetTerms(const std::string& value) {
  CheckField(true);
  detail::ListObjectAccess::SetFullName(*terms_, value);
}

std::shared_ptr<Vendor> Vendor::Clone() { return CloneOf(*this); }

void Vendor::Copy(Vendor& From) {
  CopyEntity(From, true);
  From.Address()->CopyAddress(*Address());
  nameOnCheck_ = From.NameOnCheck();
  notes_ = From.Notes();
  appendNotes_ = From.AppendNotes();
  creditLimit_ = From.CreditLimit();
  taxId_ = From.TaxId();
  eligibleFor1099_ = From.EligibleFor1099();
  balance_ = From.Balance();
  openingBalance_ = From.OpeningBalance();
  openingBalanceDate_ = From.OpeningBalanceDate();
  detail::ListObjectAccess::SetFullName(*vendorType_, From.VendorType());
  detail::ListObjectAccess::SetFullName(*terms_, From.Terms());
  SetObjectState(From.ObjectState());
}

// Asks QuickBooks for what can be paid to this vendor: each BillToPayRet holds either an
// open bill (BillToPay) or a credit that can be applied (CreditToApply).
void Vendor::GetBillsAndCredits(const std::string& APAccount) {
  RequireVersion(2);
  Errors()->Clear();
  xmlBldr b;
  b.NewClear();
  b.OpenAggregate("BillToPayQueryRq", "requestID", "1");
  b.OpenAggregateOnly("PayeeEntityRef");
  b.CreateElement("FullName", FullName());
  b.EndAggregate("PayeeEntityRef");
  if (!APAccount.empty()) {
    b.OpenAggregateOnly("APAccountRef");
    b.CreateElement("FullName", APAccount);
    b.EndAggregate("APAccountRef");
  }
  b.EndAggregate("BillToPayQueryRq");
  XmlDocument doc = b.NewSendRequest();
  openBills_ = std::make_shared<txnLinkedTransactions>();
  openCredits_ = std::make_shared<txnLinkedTransactions>();
  XmlNode response = ResponsesOf(doc).item(0);
  if (!response) return;
  for (const XmlNode& ret : response.childNodes()) {
    for (const XmlNode& entry : ret.childNodes()) {
      auto& list = entry.baseName() == "BillToPay" ? openBills_ : openCredits_;
      detail::TxnAccess::ReadLink(*list, entry);
    }
  }
}

bool Vendor::HaveOpenBillsAndCredits() { return OpenBills()->Count() > 0 || OpenCredits()->Count() > 0; }

std::shared_ptr<txnLinkedTransactions> Vendor::OpenBills() {
  if (!openBills_) openBills_ = std::make_shared<txnLinkedTransactions>();
  return openBills_;
}

std::shared_ptr<txnLinkedTransactions> Vendor::OpenCredits() {
  if (!openCredits_) openCredits_ = std::make_shared<txnLinkedTransactions>();
  return openCredits_;
}

std::shared_ptr<BillPayment> Vendor::Payment() { RaiseNotAvailable("Vendor", "Payment"); }
void Vendor::AddPaymentForPosting() { RaiseNotAvailable("Vendor", "AddPaymentForPosting"); }


// ---- OtherName ---------------------------------------------------------------------------

const ListClassInfo& OtherName::Info() {
  using C = ListObject::Common;
  static const ListClassInfo info = [] {
    ListClassInfo i = ClassOf("OtherName", qoObjectTypeOtherName, qoListOtherNames, ModifyRule::Write);
    i.queryBooleans = QueryBooleans::Digits;
    std::vector<FieldDef> rows = {C::Name(Send::Always, Send::Always), C::IsActive()};
    rows = Join(std::move(rows),
                E::PayeeContactRows(AddressRow(kAddressTag)));
    rows.push_back(E::Text("AccountNumber", &OtherName::accountNumber_));
    i.fields = Join(C::Rows({}), rows);
    i.checks = {C::NameCheck(41, err::kNameTooLong, err::kNameTooLongText)};
    for (const CheckDef& c : E::PayeeContactChecks(AddressCheck<kAddressLabel>()))
      i.checks.push_back(c);
    i.checks.push_back(E::AccountNumberCheck());
    return i;
  }();
  return info;
}

OtherName::OtherName() : AddressedEntity(Info(), kAddressTag) {}

std::shared_ptr<OtherName> OtherName::Clone() { return CloneOf(*this); }

void OtherName::Copy(OtherName& From) {
  CopyEntity(From, false);
  From.Address()->CopyAddress(*Address());
  SetObjectState(From.ObjectState());
}

}  // namespace tessaron
