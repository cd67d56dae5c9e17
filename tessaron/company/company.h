// Company: the root of the object graph for one open company file. It holds the company
// record QuickBooks reports, its three addresses and the preferences, and owns one master
// instance of each list collection, registered in Lists, through which references and
// parent checks find the lists. The connection makes it when a session opens and drops it
// when the session closes; the application reaches it as TessaronGlobals::Company() or
// QBConnection::Company().
//
//   auto company = TessaronGlobals::Company();
//   std::cout << company->Name() << ", " << company->Address()->City() << "\n";
//   company->Customers()->GetActive();
//
// Collections whose classes the library does not have yet raise 0x80040B5E, "... is not
// available in this version of Tessaron", from their getters.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/company/preferences.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/framework/lists.h"
#include "tessaron/lists/account.h"
#include "tessaron/lists/address.h"
#include "tessaron/lists/class.h"
#include "tessaron/lists/customer_message.h"
#include "tessaron/lists/customers.h"
#include "tessaron/lists/entities.h"
#include "tessaron/lists/items.h"
#include "tessaron/lists/sales_rep.h"
#include "tessaron/lists/sales_tax_code.h"
#include "tessaron/lists/ship_method.h"
#include "tessaron/lists/template.h"
#include "tessaron/lists/terms.h"
#include "tessaron/lists/to_do.h"
#include "tessaron/lists/employees.h"
#include "tessaron/lists/payroll_item.h"
#include "tessaron/lists/vendors.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

namespace detail {
class ListObjectAccess;
}

class DataExtensionDefinitions;
class DataExtensions;
class qcErrors;
class xmlBldr;
// Not part of the library yet.
class BillPayments;
class Bills;
class Checks;
class CreditCardCharges;
class CreditCardCredits;
class CreditMemos;
class Deposits;
class Employees;
class Estimates;
class InventoryAdjustments;
class Invoices;
class ItemReceipts;
class JournalEntries;
class OtherNames;
class PayrollItemNonWages;
class PayrollItemWages;
class PurchaseOrders;
class ReceivePayments;
class SalesOrders;
class SalesReceipts;
class SalesTaxPaymentChecks;
class StatementCharges;
class TimeTrackings;
class UndepositedFunds;
class VendorCredits;
class Vendors;

class Company {
 public:
  Company();
  ~Company();
  Company(const Company&) = delete;
  Company& operator=(const Company&) = delete;

  // ---- The company record (as QuickBooks reported it) ---------------------------------------
  const std::string& Name() const { return name_; }
  const std::string& LegalName() const { return legalName_; }
  std::shared_ptr<tessaron::Address> Address() const { return address_; }
  std::shared_ptr<tessaron::Address> AddressForCustomers() const { return addressForCustomers_; }
  std::shared_ptr<tessaron::Address> LegalAddress() const { return legalAddress_; }
  const std::string& Phone() const { return phone_; }
  const std::string& Fax() const { return fax_; }
  const std::string& Email() const { return email_; }
  const std::string& EmailForCustomers() const { return emailForCustomers_; }
  const std::string& WebSite() const { return webSite_; }
  // The tax form, under the name of its enumeration.
  const std::string& qbEnumTaxForm() const { return taxForm_; }
  const std::string& CompanyType() const { return companyType_; }
  const std::string& EIN() const { return ein_; }
  // The code of the month in the "Month" table, as decimal text.
  std::string FirstMonthIncomeTaxYear() const { return std::to_string(firstMonthIncomeTaxYear_); }
  std::string FirstMonthFiscalYear() const { return std::to_string(firstMonthFiscalYear_); }
  bool IsSampleCompany() const { return isSampleCompany_; }
  qoEnumListObjectType ObjectType() const { return qoObjectTypeCompany; }

  // ---- What QuickBooks knows beside the record --------------------------------------------
  // The full name of the first account of its type, found by a query of the accounts and
  // kept once found (while there is none, each read asks again).
  std::string DefaultARAccount();
  std::string DefaultAPAccount();
  std::string DefaultBankAccount();
  // Each read asks QuickBooks again; a company never condensed or restored gives the null date.
  Date LastCondenseTime();
  Date LastRestoreTime();
  std::shared_ptr<tessaron::Preferences> Preferences() const { return preferences_; }
  // The registry of the master list collections, by list key ("Customer", "Class", ...).
  std::shared_ptr<tessaron::Lists> Lists() const { return lists_; }
  // What ValidateAll and the activity queries found.
  std::shared_ptr<qcErrors> Errors();
  // The definitions of the public custom fields (owner "0"), read on first use and kept.
  std::shared_ptr<DataExtensionDefinitions> CustomFields();
  // The definitions of the application's own fields (owner: the GUID registered with
  // RegisterDataExtensionsGUID); read on first use when a GUID is registered, and kept.
  std::shared_ptr<DataExtensionDefinitions> ApplicationFields();
  // The values of the application's fields on the company itself.
  std::shared_ptr<DataExtensions> CompanyApplicationFields();

  // ---- The master collections ---------------------------------------------------------------
  std::shared_ptr<tessaron::Accounts> Accounts() const { return accounts_; }
  std::shared_ptr<tessaron::Customers> Customers() const { return customers_; }
  std::shared_ptr<tessaron::Classes> Classes() const { return classes_; }
  std::shared_ptr<tessaron::SalesTaxCodes> SalesTaxCodes() const { return salesTaxCodes_; }
  std::shared_ptr<tessaron::Items> Items() const { return items_; }
  std::shared_ptr<tessaron::PaymentMethods> PaymentMethods() const { return paymentMethods_; }
  std::shared_ptr<tessaron::CustomerTypes> CustomerTypes() const { return customerTypes_; }
  std::shared_ptr<tessaron::Terms> Terms() const { return terms_; }
  std::shared_ptr<tessaron::SalesReps> SalesReps() const { return salesReps_; }
  std::shared_ptr<tessaron::CustomerMessages> CustomerMessages() const { return customerMessages_; }
  std::shared_ptr<tessaron::ToDoList> ToDoList() const { return toDoList_; }
  std::shared_ptr<tessaron::ShipMethods> ShipMethods() const { return shipMethods_; }
  std::shared_ptr<tessaron::JobTypes> JobTypes() const { return jobTypes_; }
  std::shared_ptr<tessaron::VendorTypes> VendorTypes() const { return vendorTypes_; }
  std::shared_ptr<tessaron::Entities> Entities() const { return entities_; }
  std::shared_ptr<tessaron::Vendors> Vendors() const { return vendors_; }
  std::shared_ptr<tessaron::OtherNames> OtherNames() const { return otherNames_; }
  std::shared_ptr<tessaron::Employees> Employees() const { return employees_; }
  std::shared_ptr<tessaron::PayrollItemWages> PayrollItemWages() const { return payrollItemWages_; }
  std::shared_ptr<tessaron::PayrollItemNonWages> PayrollItemNonWages() const { return payrollItemNonWages_; }
  std::shared_ptr<tessaron::Invoices> Invoices() const { return invoices_; }
  std::shared_ptr<tessaron::ReceivePayments> ReceivePayments() const { return receivePayments_; }
  std::shared_ptr<tessaron::SalesReceipts> SalesReceipts() const { return salesReceipts_; }
  std::shared_ptr<tessaron::CreditMemos> CreditMemos() const { return creditMemos_; }
  std::shared_ptr<tessaron::Estimates> Estimates() const { return estimates_; }
  std::shared_ptr<tessaron::SalesOrders> SalesOrders() const { return salesOrders_; }
  // Not a master: QuickBooks only reads templates out. Made on first use.
  std::shared_ptr<tessaron::Templates> Templates();

  // Collections whose classes come later: each raises "not available" for now.
  std::shared_ptr<tessaron::JournalEntries> JournalEntries();
  std::shared_ptr<tessaron::Bills> Bills();
  std::shared_ptr<tessaron::Checks> Checks();
  std::shared_ptr<tessaron::PurchaseOrders> PurchaseOrders();
  std::shared_ptr<tessaron::VendorCredits> VendorCredits();
  std::shared_ptr<tessaron::CreditCardCharges> CreditCardCharges();
  std::shared_ptr<tessaron::CreditCardCredits> CreditCardCredits();
  std::shared_ptr<tessaron::TimeTrackings> TimeTrackings();
  std::shared_ptr<tessaron::BillPayments> BillPayments();
  std::shared_ptr<tessaron::UndepositedFunds> UndepositedFunds();
  std::shared_ptr<tessaron::Deposits> Deposits();
  std::shared_ptr<tessaron::StatementCharges> StatementCharges();
  std::shared_ptr<tessaron::InventoryAdjustments> InventoryAdjustments();
  std::shared_ptr<tessaron::SalesTaxPaymentChecks> SalesTaxPaymentChecks();
  std::shared_ptr<tessaron::ItemReceipts> ItemReceipts();

  // ---- Operations ---------------------------------------------------------------------------
  // Saves the company's own application fields; the collections commit themselves.
  int32_t Commit() { return SaveApplicationFields(); }
  // Sends the changed values of CompanyApplicationFields; returns the number of errors.
  int32_t SaveApplicationFields();
  // Validates every registered list, adding 0x800403F3 with the list's key to Errors for
  // each that fails; goes on through all of them. Transactions are not validated here.
  bool ValidateAll();
  // Writes the company as a vendor record in query-response form (for saving to files).
  int32_t XMLVendorQueryRs(xmlBldr& cxmlbldr, int16_t iRequestId);
  // Marks a transaction (or one of its lines) cleared, not cleared or pending (a row of
  // "Cleared Status"). Returns the status of QuickBooks' answer.
  int32_t SetClearedStatus(int32_t ClearedStatus, const std::string& TxnId, const std::string& TxnLineId = "");

 private:
  // Library-internal, through detail::ListObjectAccess: reads the response element of the
  // company query (CompanyQueryRs): the fields of each record it holds.
  friend class detail::ListObjectAccess;
  void FromDom(const XmlNode& node);
  Date ActivityTime(std::string_view field);
  std::string DefaultAccount(std::string& cache, qbEnumAccountType type);

  std::string name_;
  std::string legalName_;
  std::shared_ptr<tessaron::Address> address_;
  std::shared_ptr<tessaron::Address> addressForCustomers_;
  std::shared_ptr<tessaron::Address> legalAddress_;
  std::string phone_;
  std::string fax_;
  std::string email_;
  std::string emailForCustomers_;
  std::string webSite_;
  std::string taxForm_;
  std::string companyType_;
  std::string ein_;
  int32_t firstMonthIncomeTaxYear_ = 0;
  int32_t firstMonthFiscalYear_ = 0;
  bool isSampleCompany_ = false;

  std::shared_ptr<tessaron::Preferences> preferences_;
  std::shared_ptr<tessaron::Lists> lists_;
  std::shared_ptr<qcErrors> errors_;

  std::string defaultARAccount_;
  std::string defaultAPAccount_;
  std::string defaultBankAccount_;

  std::shared_ptr<tessaron::Accounts> accounts_;
  std::shared_ptr<tessaron::Items> items_;
  std::shared_ptr<tessaron::Customers> customers_;
  std::shared_ptr<tessaron::Classes> classes_;
  std::shared_ptr<tessaron::SalesTaxCodes> salesTaxCodes_;
  std::shared_ptr<tessaron::PaymentMethods> paymentMethods_;
  std::shared_ptr<tessaron::CustomerTypes> customerTypes_;
  std::shared_ptr<tessaron::Terms> terms_;
  std::shared_ptr<tessaron::SalesReps> salesReps_;
  std::shared_ptr<tessaron::CustomerMessages> customerMessages_;
  std::shared_ptr<tessaron::ToDoList> toDoList_;
  std::shared_ptr<tessaron::ShipMethods> shipMethods_;
  std::shared_ptr<tessaron::JobTypes> jobTypes_;
  std::shared_ptr<tessaron::VendorTypes> vendorTypes_;
  std::shared_ptr<tessaron::Entities> entities_;
  std::shared_ptr<tessaron::Vendors> vendors_;
  std::shared_ptr<tessaron::OtherNames> otherNames_;
  std::shared_ptr<tessaron::Employees> employees_;
  std::shared_ptr<tessaron::PayrollItemWages> payrollItemWages_;
  std::shared_ptr<tessaron::PayrollItemNonWages> payrollItemNonWages_;
  std::shared_ptr<tessaron::Templates> templates_;
  std::shared_ptr<tessaron::Invoices> invoices_;
  std::shared_ptr<tessaron::ReceivePayments> receivePayments_;
  std::shared_ptr<tessaron::SalesReceipts> salesReceipts_;
  std::shared_ptr<tessaron::CreditMemos> creditMemos_;
  std::shared_ptr<tessaron::Estimates> estimates_;
  std::shared_ptr<tessaron::SalesOrders> salesOrders_;
  std::shared_ptr<DataExtensionDefinitions> customFields_;
  std::shared_ptr<DataExtensionDefinitions> applicationFields_;
  std::shared_ptr<DataExtensions> companyApplicationFields_;
};

// Makes `company` the company of the session: the library state's CurrentCompany, and its
// Lists the registry that references and parent checks search. Null ends it.
void SetCurrentCompany(std::shared_ptr<Company> company);

}  // namespace tessaron
