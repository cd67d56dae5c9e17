#include "tessaron/company/company.h"

#include <string_view>

#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_ext_owner.h"
#include "tessaron/dataext/data_extension_definitions.h"
#include "tessaron/dataext/data_extensions.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/transactions/credit_memos.h"
#include "tessaron/transactions/estimates.h"
#include "tessaron/transactions/invoices.h"
#include "tessaron/transactions/receive_payments.h"
#include "tessaron/transactions/sales_orders.h"
#include "tessaron/transactions/sales_receipts.h"

namespace tessaron {

namespace {

[[noreturn]] void NotAvailable(const char* what) { RaiseNotAvailable("Company", what); }

// A master instance, registered under its list key when it has one.
template <class C>
std::shared_ptr<C> Master(Lists& lists, const char* key) {
  auto list = std::make_shared<C>();
  detail::ListObjectAccess::SetMaster(*list, true);
  if (key) lists.AddObject(list, key);
  return list;
}

}  // namespace

Company::Company()
    : address_(std::make_shared<tessaron::Address>()),
      addressForCustomers_(std::make_shared<tessaron::Address>()),
      legalAddress_(std::make_shared<tessaron::Address>()),
      preferences_(std::make_shared<tessaron::Preferences>()),
      lists_(std::make_shared<tessaron::Lists>()) {
  // Registered in the order of the list keys; the lists still to come keep their places.
  tessaron::Lists& l = *lists_;
  accounts_ = Master<tessaron::Accounts>(l, "Account");
  customers_ = Master<tessaron::Customers>(l, "Customer");
  salesTaxCodes_ = Master<tessaron::SalesTaxCodes>(l, "SalesTaxCode");
  items_ = Master<tessaron::Items>(l, "Item");
  terms_ = Master<tessaron::Terms>(l, "Terms");
  salesReps_ = Master<tessaron::SalesReps>(l, "SalesRep");
  customerMessages_ = Master<tessaron::CustomerMessages>(l, "CustomerMessage");
  toDoList_ = Master<tessaron::ToDoList>(l, "ToDo");
  classes_ = Master<tessaron::Classes>(l, "Class");
  paymentMethods_ = Master<tessaron::PaymentMethods>(l, "PaymentMethod");
  customerTypes_ = Master<tessaron::CustomerTypes>(l, "CustomerType");
  jobTypes_ = Master<tessaron::JobTypes>(l, "JobType");
  vendorTypes_ = Master<tessaron::VendorTypes>(l, "VendorType");
  shipMethods_ = Master<tessaron::ShipMethods>(l, "ShipMethod");
  entities_ = Master<tessaron::Entities>(l, "Entity");
  vendors_ = Master<tessaron::Vendors>(l, ListTypeKey(qoListVendors).c_str());
  otherNames_ = Master<tessaron::OtherNames>(l, ListTypeKey(qoListOtherNames).c_str());
  employees_ = Master<tessaron::Employees>(l, ListTypeKey(qoListEmployees).c_str());
  payrollItemWages_ = Master<tessaron::PayrollItemWages>(l, ListTypeKey(qoListPayrollItemWages).c_str());
  payrollItemNonWages_ = Master<tessaron::PayrollItemNonWages>(l, ListTypeKey(qoListPayrollItemNonWages).c_str());
  // Transactions are not in the list registry.
  invoices_ = std::make_shared<tessaron::Invoices>();
  detail::ListObjectAccess::SetMaster(*invoices_, true);
  receivePayments_ = std::make_shared<tessaron::ReceivePayments>();
  detail::ListObjectAccess::SetMaster(*receivePayments_, true);
  salesReceipts_ = std::make_shared<tessaron::SalesReceipts>();
  detail::ListObjectAccess::SetMaster(*salesReceipts_, true);
  creditMemos_ = std::make_shared<tessaron::CreditMemos>();
  detail::ListObjectAccess::SetMaster(*creditMemos_, true);
  estimates_ = std::make_shared<tessaron::Estimates>();
  detail::ListObjectAccess::SetMaster(*estimates_, true);
  salesOrders_ = std::make_shared<tessaron::SalesOrders>();
  detail::ListObjectAccess::SetMaster(*salesOrders_, true);
  // The entity list makes records of their own classes of its ...Ret elements.
  tessaron::Entities::RegisterEntityKind("CustomerRet", [] { return std::make_shared<Customer>(); });
  tessaron::Entities::RegisterEntityKind("VendorRet", [] { return std::make_shared<Vendor>(); });
  tessaron::Entities::RegisterEntityKind("OtherNameRet", [] { return std::make_shared<OtherName>(); });
  tessaron::Entities::RegisterEntityKind("EmployeeRet", [] { return std::make_shared<Employee>(); });
}

Company::~Company() = default;

std::shared_ptr<qcErrors> Company::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

std::shared_ptr<tessaron::Templates> Company::Templates() {
  if (!templates_) templates_ = std::make_shared<tessaron::Templates>();
  return templates_;
}

// ---- Reading the record ----------------------------------------------------------------

void Company::FromDom(const XmlNode& node) {
  XmlNodeList records = node.childNodes();
  for (long r = 0; r < records.length(); ++r) {
    XmlNodeList fields = records.item(r).childNodes();
    const long count = fields.length();
    for (long i = 0; i < count; ++i) {
      XmlNode field = fields.item(i);
      const std::string_view tag = field.baseName();
      if (tag == "CompanyEmailForCustomer") emailForCustomers_ = field.text();
      else if (tag == "CompanyName") name_ = field.text();
      else if (tag == "CompanyType") companyType_ = field.text();
      else if (tag == "CompanyWebSite") webSite_ = field.text();
      else if (tag == "Email") email_ = field.text();
      else if (tag == "Fax") fax_ = field.text();
      else if (tag == "FirstMonthFiscalYear") firstMonthFiscalYear_ = EnumXMLToCode(field.text(), qoeMonth);
      else if (tag == "FirstMonthIncomeTaxYear") firstMonthIncomeTaxYear_ = EnumXMLToCode(field.text(), qoeMonth);
      else if (tag == "LegalCompanyName") legalName_ = field.text();
      else if (tag == "Phone") phone_ = field.text();
      else if (tag == "Address") detail::ListObjectAccess::FromDom(*address_, field);
      else if (tag == "LegalAddress") detail::ListObjectAccess::FromDom(*legalAddress_, field);
      else if (tag == "CompanyAddressForCustomer") detail::ListObjectAccess::FromDom(*addressForCustomers_, field);
      else if (tag == "TaxForm") taxForm_ = field.text();
      else if (tag == "EIN") ein_ = field.text();
      else if (tag == "IsSampleCompany") isSampleCompany_ = BooleanFromText(field.text());
      // The company carries only application fields; public ones have nowhere to go.
      else if (tag == "DataExtRet") ReadDataExtRet(field, nullptr, CompanyApplicationFields().get());
      else NoteUnknownElement(tag, "Companies");
    }
  }
}

// ---- Beside the record -------------------------------------------------------------------

std::string Company::DefaultAccount(std::string& cache, qbEnumAccountType type) {
  if (!cache.empty()) return cache;
  tessaron::Accounts accounts;  // not the master: the query must not replace what the application holds
  if (accounts.GetByAccountType(type) > 0) cache = accounts.Item(Variant(1))->FullName();
  return cache;
}

std::string Company::DefaultARAccount() { return DefaultAccount(defaultARAccount_, qbAccountTypeAccountsReceivable); }
std::string Company::DefaultAPAccount() { return DefaultAccount(defaultAPAccount_, qbAccountTypeAccountsPayable); }
std::string Company::DefaultBankAccount() { return DefaultAccount(defaultBankAccount_, qbAccountTypeBank); }

// ---- Data extensions -----------------------------------------------------------------------

std::shared_ptr<DataExtensionDefinitions> Company::CustomFields() {
  if (!customFields_) {
    customFields_ = std::make_shared<DataExtensionDefinitions>();
    customFields_->SetMasterOf("0");
    customFields_->GetByOwner("0");
  }
  return customFields_;
}

std::shared_ptr<DataExtensionDefinitions> Company::ApplicationFields() {
  if (!applicationFields_) {
    const std::string& guid = State().DataExtensionsGUID;
    applicationFields_ = std::make_shared<DataExtensionDefinitions>();
    applicationFields_->SetMasterOf(guid);
    if (!guid.empty()) applicationFields_->GetByOwner(guid);
  }
  return applicationFields_;
}

std::shared_ptr<DataExtensions> Company::CompanyApplicationFields() {
  if (!companyApplicationFields_) companyApplicationFields_ = std::make_shared<DataExtensions>();
  companyApplicationFields_->SetOwnerType(qoObjectTypeCompany);
  companyApplicationFields_->SetOwnerId(State().DataExtensionsGUID);
  return companyApplicationFields_;
}

int32_t Company::SaveApplicationFields() { return CompanyApplicationFields()->Commit("", "Company"); }

// ---- Activity ----------------------------------------------------------------------------

Date Company::ActivityTime(std::string_view name) {
  Errors()->Clear();
  xmlBldr b;
  b.NewClear();
  b.OpenAggregateOnly("CompanyActivityQueryRq");
  b.EndAggregate();
  XmlDocument doc = b.NewSendRequest();
  // By name: a company condensed but never restored answers LastCondenseTime alone.
  XmlNode ret = doc.childNodes().item(1).childNodes().item(0).childNodes().item(0).childNodes().item(0);
  for (const XmlNode& field : ret.childNodes())
    if (field.baseName() == name) return DateFromText(field.text());
  return DateFromText(std::string());
}

Date Company::LastRestoreTime() { return ActivityTime("LastRestoreTime"); }
Date Company::LastCondenseTime() { return ActivityTime("LastCondenseTime"); }

// ---- Operations --------------------------------------------------------------------------

bool Company::ValidateAll() {
  auto errors = Errors();
  errors->Clear();
  bool all = true;
  for (const auto& list : lists_->NewEnum()) {
    if (list->Validate()) continue;
    all = false;
    errors->Add(err::kValidateFailed, ListTypeKey(list->ListType()), err::kValidateFailedText);
  }
  return all;
}

int32_t Company::XMLVendorQueryRs(xmlBldr& cxmlbldr, int16_t iRequestId) {
  xmlBldr& b = cxmlbldr;
  b.OpenAggregate("VendorQueryRs", "requestID", std::to_string(iRequestId));
  b.OpenAggregateOnly("VendorRet");
  b.CreateElement("Name", name_);
  b.CreateElement("CompanyName", name_);
  b.OpenAggregateOnly("VendorAddress");
  detail::ListObjectAccess::Write(*address_, b);
  b.EndAggregate("VendorAddress");
  b.CreateElement("Phone", phone_);
  b.CreateElement("Fax", fax_);
  b.CreateElement("Email", email_);
  b.EndAggregate("VendorRet");
  b.EndAggregate("VendorQueryRs");
  return 0;
}

int32_t Company::SetClearedStatus(int32_t ClearedStatus, const std::string& TxnId, const std::string& TxnLineId) {
  const std::string& status = EnumCodeToXML(ClearedStatus, qoeClearedStatus);
  xmlBldr b;
  b.NewClear();
  b.OpenAggregate("ClearedStatusModRq", "requestID", "1");
  b.OpenAggregateOnly("ClearedStatusMod");
  b.CreateElement("TxnID", TxnId);
  if (!TxnLineId.empty()) b.CreateElement("TxnLineID", TxnLineId);
  b.CreateElement("ClearedStatus", status);
  b.EndAggregate("ClearedStatusMod");
  b.EndAggregate("ClearedStatusModRq");
  b.NewSendRequest();
  return b.ErrNumber();
}

// ---- Collections still to come -------------------------------------------------------------

#define TESSARON_NOT_YET(Name) \
  std::shared_ptr<tessaron::Name> Company::Name() { NotAvailable(#Name); }
TESSARON_NOT_YET(JournalEntries)
TESSARON_NOT_YET(Bills)
TESSARON_NOT_YET(Checks)
TESSARON_NOT_YET(PurchaseOrders)
TESSARON_NOT_YET(VendorCredits)
TESSARON_NOT_YET(CreditCardCharges)
TESSARON_NOT_YET(CreditCardCredits)
TESSARON_NOT_YET(TimeTrackings)
TESSARON_NOT_YET(BillPayments)
TESSARON_NOT_YET(UndepositedFunds)
TESSARON_NOT_YET(Deposits)
TESSARON_NOT_YET(StatementCharges)
TESSARON_NOT_YET(InventoryAdjustments)
TESSARON_NOT_YET(SalesTaxPaymentChecks)
TESSARON_NOT_YET(ItemReceipts)
#undef TESSARON_NOT_YET

// ---- The company of the session ------------------------------------------------------------

void SetCurrentCompany(std::shared_ptr<Company> company) {
  SetCurrentLists(company ? company->Lists() : nullptr);
  State().CurrentCompany = std::move(company);
}

}  // namespace tessaron
