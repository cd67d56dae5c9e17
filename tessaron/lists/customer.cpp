#include "tessaron/lists/customer.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {

namespace {

// The lowest qbXML version whose modify request carries most fields, and the mark of the
// fields no modify carries.
const Currency kV3 = Currency(3);
const Currency kNever = Currency(999);

Customer& Self(ListObject& o) { return static_cast<Customer&>(o); }
const Customer& Self(const ListObject& o) { return static_cast<const Customer&>(o); }

bool IsUSEdition(const ListObject&) { return !State().IsNonUSProduct; }

using E = EntityObject::Shared;

}  // namespace

const ListClassInfo& Customer::Info() {
  using C = ListObject::Common;
  static const ListClassInfo info = [] {
    ListClassInfo i = ClassOf("Customer", qoObjectTypeCustomer, qoListCustomers, ModifyRule::Write);
    i.supportsChildren = true;
    i.key = KeyRule::TreeFullName;
    i.queryBooleans = QueryBooleans::Digits;
    auto text = [](std::string_view tag, std::string Customer::*m) {
      return field::Text(tag, m).Add(Send::IfSet).Mod(Send::Always);
    };
    auto ref = [](std::string_view tag, std::shared_ptr<qcListObjectRef> Customer::*m, qoEnumListType list) {
      return field::Ref(tag, m, list).Add(Send::IfSet).Mod(Send::Forced, kV3);
    };
    auto addOnly = [](FieldDef f) { return f.Add(Send::IfSet); };
    // One row per field, in the order of the query form; the add and modify requests take
    // their fields in the same order.
    i.fields = C::Rows({
        C::Name(Send::IfSet, Send::Always),
        C::FullName(),
        C::IsActive().Mod(Send::Always, kV3),
        C::ParentRef(),
        C::Sublevel(),
        text("CompanyName", &Customer::companyName_),
        text("Salutation", &Customer::salutation_),
        text("FirstName", &Customer::firstName_),
        text("MiddleName", &Customer::middleName_),
        text("LastName", &Customer::lastName_),
        addOnly(field::Text("Suffix", &Customer::suffix_)),
        E::AddressRow<&Customer::billTo_, E::AddressRule::UnlessClean>("BillAddress", "BillTo"),
        E::AddressRow<&Customer::shipTo_, E::AddressRule::UnlessClean>("ShipAddress", "ShipTo"),
        field::Text("PrintAs", &Customer::printAs_),
        text("Phone", &Customer::phone_),
        addOnly(field::Text("Mobile", &Customer::mobile_)),
        addOnly(field::Text("Pager", &Customer::pager_)),
        text("AltPhone", &Customer::altPhone_),
        text("Fax", &Customer::fax_),
        text("Email", &Customer::email_),
        text("Contact", &Customer::contact_),
        text("AltContact", &Customer::altContact_),
        ref("CustomerTypeRef", &Customer::customerType_, qoListCustomerTypes).As("CustomerType"),
        ref("TermsRef", &Customer::terms_, qoListTerms).As("Terms"),
        ref("SalesRepRef", &Customer::salesRep_, qoListSalesRep).As("SalesRep"),
        field::Amount("Balance", &Customer::balance_),
        field::Amount("TotalBalance", &Customer::totalBalance_),
        addOnly(field::Amount("OpenBalance", &Customer::openingBalance_)).NotInQuery().As("OpeningBalance"),
        addOnly(field::DateOnly("OpenBalanceDate", &Customer::openingBalanceDate_)).NotInQuery().As("OpeningBalanceDate"),
        ref("SalesTaxCodeRef", &Customer::salesTaxCode_, qoListSalesTaxCodes).When(IsUSEdition).As("SalesTaxCode"),
        ref("ItemSalesTaxRef", &Customer::salesTaxItem_, qoListItems).When(IsUSEdition).As("SalesTaxItem"),
        text("ResaleNumber", &Customer::resaleNumber_).Mod(Send::Always, kV3),
        text("AccountNumber", &Customer::accountNumber_),
        // A limit of 0 goes out in a modify only when the caller set it.
        field::Amount("CreditLimit", &Customer::creditLimit_)
            .Add(Send::IfSet)
            .Mod(Send::Always, kV3)
            .When([](const ListObject& o) {
              auto& c = static_cast<const Customer&>(o);
              return c.creditLimit_ != Currency() || c.creditLimitTouched_;
            }),
        ref("PreferredPaymentMethodRef", &Customer::paymentMethod_, qoListPaymentMethods).NotInQuery().As("PaymentMethod"),
        field::Custom(
            "CreditCardInfo",
            [](ListObject& o, const XmlNode& n) {
              auto& card = Self(o).creditCard_;
              if (!card) card = std::make_shared<tessaron::CreditCard>();
              detail::ListObjectAccess::FromDom(*card, n);
            },
            [](ListObject& o, xmlBldr& b, WriteMode) {
              const auto& card = Self(o).creditCard_;
              if (!card || card->IsEmpty()) return;
              b.OpenAggregateOnly("CreditCardInfo");
              detail::ListObjectAccess::Write(*card, b);
              b.EndAggregate("CreditCardInfo");
            })
            .Add(Send::Always)
            .Mod(Send::Always)
            .NotInQuery()
            .As("CreditCard"),
        // A modify sends the status even when it is 0, as "None".
        field::Enum("JobStatus", &Customer::jobStatus_, qoeJobStatus).Add(Send::IfSet).Mod(Send::Always, kV3),
        field::DateOnly("JobStartDate", &Customer::jobStartDate_).Add(Send::IfSet).Mod(Send::IfSet, kV3),
        field::DateOnly("JobProjectedEndDate", &Customer::jobProjectedEndDate_).Add(Send::IfSet).Mod(Send::IfSet, kV3),
        field::DateOnly("JobEndDate", &Customer::jobEndDate_).Add(Send::IfSet).Mod(Send::IfSet, kV3),
        text("JobDesc", &Customer::jobDescription_).Mod(Send::Always, kV3).As("JobDescription"),
        ref("JobTypeRef", &Customer::jobType_, qoListJobTypes).As("JobType"),
        field::Text("Notes", &Customer::notes_).Add(Send::IfSet, kV3).Mod(Send::Always, kV3),
        field::Custom(
            "IsStatementWithParent",
            [](ListObject& o, const XmlNode& n) {
              const std::string t = n.text();
              if (!t.empty()) Self(o).isStatementWithParent_ = BooleanFromText(t) ? 1 : 0;
            },
            [](ListObject& o, xmlBldr& b, WriteMode mode) {
              const int32_t v = Self(o).isStatementWithParent_;
              if (v > 0) b.CreateElement("IsStatementWithParent", "1");
              // The saved form keeps a known "no" as well; requests send only the "yes".
              else if (v == 0 && mode == WriteMode::QueryRs) b.CreateElement("IsStatementWithParent", "0");
            },
            [](const ListObject& o) {
              const int32_t v = Self(o).isStatementWithParent_;
              return std::string(v < 0 ? "" : v > 0 ? "true" : "false");
            })
            .Add(Send::Always),
        field::Custom(
            "DeliveryMethod",
            [](ListObject& o, const XmlNode& n) {
              const std::string t = n.text();
              if (!t.empty()) Self(o).deliveryMethod_ = EnumXMLToCode(t, qoeDeliveryMethod);
            },
            [](ListObject& o, xmlBldr& b, WriteMode) {
              const int32_t method = Self(o).deliveryMethod_;
              if (method > 0) b.CreateElement("DeliveryMethod", EnumCodeToDescription(method, qoeDeliveryMethod));
            },
            [](const ListObject& o) { return EStr(Self(o).deliveryMethod_, qoeDeliveryMethod); })
            .Add(Send::Always),
        // Known tags this library keeps nothing of.
        field::Dropped("TaxCodeRef"),
        field::Dropped("CurrencyRef"),
        field::Dropped("PriceLevelRef"),
    });
    auto length = [](std::string Customer::*m, const char* label, size_t max, uint32_t code, const char* message) {
      return check::MaxLength(m, label, max, code, message);
    };
    i.checks = {
        C::NameCheck(41, err::kCustomerNameTooLong, err::kCustomerNameTooLongText),
        C::ParentCheck(),
        length(&Customer::companyName_, "Company Name", 41, err::kCustomerNameTooLong, err::kCustomerNameTooLongText),
    };
    for (const CheckDef& c : E::PersonNameChecks()) i.checks.push_back(c);
    for (const CheckDef& c : std::initializer_list<CheckDef>{
        E::PhoneCheck(&Customer::phone_, "Phone"),
        check::Custom([](ListObject& o, qcErrors& e) { E::CheckAddress(Self(o).billTo_, "BillTo", e); }),
        check::Custom([](ListObject& o, qcErrors& e) { E::CheckAddress(Self(o).shipTo_, "ShipTo", e); }),
        E::PhoneCheck(&Customer::altPhone_, "Alt Phone"),
        E::EmailCheck(),
        length(&Customer::contact_, "Contact", 41, err::kCustomerNameTooLong, err::kCustomerNameTooLongText),
        length(&Customer::altContact_, "Alt Contact", 41, err::kCustomerNameTooLong, err::kCustomerNameTooLongText),
        length(&Customer::resaleNumber_, "Resale Number", 15, err::kResaleNumberTooLong,
               err::kResaleNumberTooLongText),
        E::AccountNumberCheck(),
        // The label of the job description has always been the account number's.
        length(&Customer::jobDescription_, "Account Number", 99, err::kJobDescTooLong, err::kJobDescTooLongText),
         })
      i.checks.push_back(c);
    return i;
  }();
  return info;
}

Customer::Customer()
    : EntityObject(Info()),
      customerType_(std::make_shared<qcListObjectRef>(qoListCustomerTypes)),
      terms_(std::make_shared<qcListObjectRef>(qoListTerms)),
      salesRep_(std::make_shared<qcListObjectRef>(qoListSalesRep)),
      salesTaxCode_(std::make_shared<qcListObjectRef>(qoListSalesTaxCodes)),
      salesTaxItem_(std::make_shared<qcListObjectRef>(qoListItems)),
      jobType_(std::make_shared<qcListObjectRef>(qoListJobTypes)) {}

// ---- Setters ---------------------------------------------------------------------------

void Customer::SetRef(std::shared_ptr<qcListObjectRef>& ref, const std::string& value, Currency minVersion) {
  CheckFieldFromVersion(minVersion);
  // Only the name changes: an old ListID stays, and the name wins when the reference is sent.
  detail::ListObjectAccess::SetFullName(*ref, value);
}

void Customer::SetIsActive(bool value) { StoreFromVersion(isActive_, value, kV3); }
void Customer::SetCustomerType(const std::string& value) { SetRef(customerType_, value, kV3); }
void Customer::SetTerms(const std::string& value) { SetRef(terms_, value, kV3); }
void Customer::SetSalesRep(const std::string& value) { SetRef(salesRep_, value, kV3); }
void Customer::SetSalesTaxCode(const std::string& value) { SetRef(salesTaxCode_, value, kV3); }
void Customer::SetSalesTaxItem(const std::string& value) { SetRef(salesTaxItem_, value, kV3); }
void Customer::SetJobType(const std::string& value) { SetRef(jobType_, value, kV3); }

std::shared_ptr<qcListObjectRef>& Customer::PaymentMethodRef() {
  if (!paymentMethod_) paymentMethod_ = std::make_shared<qcListObjectRef>(qoListPaymentMethods);
  return paymentMethod_;
}
const std::string& Customer::PaymentMethod() const {
  static const std::string none;
  return paymentMethod_ ? paymentMethod_->FullName() : none;
}
void Customer::SetPaymentMethod(const std::string& value) { SetRef(PaymentMethodRef(), value, kV3); }

void Customer::SetOpeningBalance(Currency value) { StoreFromVersion(openingBalance_, value, kNever); }
void Customer::SetOpeningBalanceDate(Date value) { StoreFromVersion(openingBalanceDate_, value, kNever); }
void Customer::SetResaleNumber(const std::string& value) { StoreFromVersion(resaleNumber_, value, kV3); }
void Customer::SetCreditLimit(Currency value) {
  StoreFromVersion(creditLimit_, value, kV3);
  creditLimitTouched_ = true;
}

std::shared_ptr<tessaron::CreditCard> Customer::CreditCard() {
  if (!creditCard_) creditCard_ = std::make_shared<tessaron::CreditCard>();
  return creditCard_;
}

void Customer::SetJobStatus(qbEnumJobStatus value) { StoreFromVersion(jobStatus_, value, kV3); }
void Customer::SetJobStartDate(Date value) { StoreFromVersion(jobStartDate_, value, kV3); }
void Customer::SetJobProjectedEndDate(Date value) { StoreFromVersion(jobProjectedEndDate_, value, kV3); }
void Customer::SetJobEndDate(Date value) { StoreFromVersion(jobEndDate_, value, kV3); }
void Customer::SetJobDescription(const std::string& value) { StoreFromVersion(jobDescription_, value, kV3); }
void Customer::SetNotes(const std::string& value) { StoreFromVersion(notes_, value, 1); }

std::shared_ptr<Address> Customer::BillTo() {
  if (!billTo_) billTo_ = std::make_shared<Address>();
  return billTo_;
}
std::shared_ptr<Address> Customer::ShipTo() {
  if (!shipTo_) shipTo_ = std::make_shared<Address>();
  return shipTo_;
}

void Customer::SetAltContact(const std::string& value) { SetIfChanged(altContact_, value, 0); }
void Customer::SetNameChecked(const std::string& value) { StoreFromVersion(name_, value, 1); }

// ---- Copies ----------------------------------------------------------------------------

std::shared_ptr<Customer> Customer::Clone() { return CloneOf(*this); }

void Customer::Copy(Customer& FromCustomer) {
  Customer& f = FromCustomer;
  CopyEntity(f, false);
  balance_ = f.Balance();
  f.BillTo()->CopyAddress(*BillTo());
  creditLimit_ = f.CreditLimit();
  detail::ListObjectAccess::SetFullName(*customerType_, f.CustomerType());
  detail::ListObjectAccess::SetFullName(*terms_, f.Terms());
  detail::ListObjectAccess::SetFullName(*salesRep_, f.SalesRep());
  detail::ListObjectAccess::SetFullName(*salesTaxCode_, f.SalesTaxCode());
  detail::ListObjectAccess::SetFullName(*salesTaxItem_, f.SalesTaxItem());
  detail::ListObjectAccess::SetFullName(*jobType_, f.JobType());
  jobStatus_ = f.JobStatus();
  jobStartDate_ = f.JobStartDate();
  jobProjectedEndDate_ = f.JobProjectedEndDate();
  jobEndDate_ = f.JobEndDate();
  jobDescription_ = f.JobDescription();
  notes_ = f.Notes();
  openingBalance_ = f.OpeningBalance();
  openingBalanceDate_ = f.OpeningBalanceDate();
  SetParentInternal(f.Parent());
  resaleNumber_ = f.ResaleNumber();
  f.ShipTo()->CopyAddress(*ShipTo());
  sublevel_ = f.Sublevel();
  totalBalance_ = f.TotalBalance();
  SetObjectState(f.ObjectState());
  if (!f.PaymentMethod().empty() || paymentMethod_) detail::ListObjectAccess::SetFullName(*PaymentMethodRef(), f.PaymentMethod());

  auto jobs = Jobs();
  for (long i = jobs->Count(); i >= 1; --i) jobs->Remove(Variant(static_cast<int64_t>(i)));
  for (const auto& job : *f.Jobs()) jobs->Add(job->FullName(), job->List(), job->ListID());

  auto from = f.CreditCard();
  auto to = CreditCard();
  to->SetCardNumber(from->CardNumber());
  to->SetExpirationMonth(from->ExpirationMonth());
  to->SetExpirationYear(from->ExpirationYear());
  to->SetNameOnCard(from->NameOnCard());
  to->SetAddress(from->Address());
  to->SetPostalCode(from->PostalCode());
}

// ---- Sub-records -----------------------------------------------------------------------

void Customer::AfterFromDom() {
  // An address or card the response did not mention is Clean too, so a later modify does
  // not send it back.
  detail::ListObjectAccess::SetObjectState(*BillTo(), qoObjectStateClean);
  detail::ListObjectAccess::SetObjectState(*ShipTo(), qoObjectStateClean);
  detail::ListObjectAccess::SetObjectState(*CreditCard(), qoObjectStateClean);
  creditLimitTouched_ = false;
}

void Customer::ResetToNew() {
  SetObjectState(qoObjectStateNew);
  detail::ListObjectAccess::SetObjectState(*BillTo(), qoObjectStateNew);
  detail::ListObjectAccess::SetObjectState(*ShipTo(), qoObjectStateNew);
}

bool Customer::ModifyWhileClean() {
  // The ship-to address decides first: a New one holds back whatever the bill-to address is.
  switch (ShipTo()->ObjectState()) {
    case qoObjectStateNew: return false;
    case qoObjectStateDirty: return true;
    case qoObjectStateClean: break;
    default: RaiseInternal("Customer", "Unknown Address Object State");
  }
  switch (BillTo()->ObjectState()) {
    case qoObjectStateNew:
    case qoObjectStateClean: return false;
    case qoObjectStateDirty: return true;
    default: RaiseInternal("Customer", "Unknown Address Object State");
  }
}

}  // namespace tessaron
