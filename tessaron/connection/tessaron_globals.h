// TessaronGlobals: the global object through which an application reaches everything
// without holding a connection of its own. QBConnect opens the session on a connection the
// library keeps; Company and the collection getters then hand out the master collections
// of the open company, and raise 0x800403E8 while no session is open.
//
//   TessaronGlobals::QBConnect("", "My application", qbFileOpenDoNotCare, "/data/acme.qbw");
//   auto customers = TessaronGlobals::Customers();
//   customers->GetActive();
//   for (const auto& c : *customers) std::cout << c->FullName() << "\n";
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/company/company.h"
#include "tessaron/connection/qb_connection.h"
#include "tessaron/events/subscriptions.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/platform/date.h"

namespace tessaron {

class TessaronGlobals {
 public:
  TessaronGlobals() = delete;

  // The description of a code in an enumeration table, and back; neither raises.
  static std::string EStr(int32_t Code, qoEnumerationType Enumeration) { return tessaron::EStr(Code, Enumeration); }
  static int32_t eVal(const std::string& Description, qoEnumerationType Enumeration) {
    return tessaron::eVal(Description, Enumeration);
  }
  // "No date".
  static constexpr Date qbNullDate = kNullDate;
  static Enumerations& QBEnumerations() { return tessaron::QBEnumerations(); }
  // The connection of the global object, made on first use.
  static std::shared_ptr<tessaron::QBConnection> QBConnection();
  // Connects the global connection (see QBConnection::Connect); returns its result.
  static int32_t QBConnect(const std::string& AppID, const std::string& AppName, qbEnumFileOpenMode ConnectionType,
                           const std::string& QBWFilePath = "");
  // Raises 0x800403E8 "QBConnect has not been called, or it failed", source "Tessaron",
  // when no session is open.
  static void EnsureConnected();
  // The company of the session; the null handle when its company query failed.
  static std::shared_ptr<tessaron::Company> Company();

  // The master collections of the company (each after EnsureConnected).
  static std::shared_ptr<tessaron::Accounts> Accounts() { return Open()->Accounts(); }
  static std::shared_ptr<tessaron::Customers> Customers() { return Open()->Customers(); }
  static std::shared_ptr<tessaron::SalesOrders> SalesOrders() { return Open()->SalesOrders(); }
  static std::shared_ptr<tessaron::Items> Items() { return Open()->Items(); }
  static std::shared_ptr<tessaron::Vendors> Vendors() { return Open()->Vendors(); }
  static std::shared_ptr<tessaron::JournalEntries> JournalEntries() { return Open()->JournalEntries(); }
  static std::shared_ptr<tessaron::SalesTaxCodes> SalesTaxCodes() { return Open()->SalesTaxCodes(); }
  static std::shared_ptr<tessaron::PaymentMethods> PaymentMethods() { return Open()->PaymentMethods(); }
  static std::shared_ptr<tessaron::Classes> Classes() { return Open()->Classes(); }
  static std::shared_ptr<tessaron::CustomerTypes> CustomerTypes() { return Open()->CustomerTypes(); }
  static std::shared_ptr<tessaron::OtherNames> OtherNames() { return Open()->OtherNames(); }
  static std::shared_ptr<tessaron::Bills> Bills() { return Open()->Bills(); }
  static std::shared_ptr<tessaron::Terms> Terms() { return Open()->Terms(); }
  static std::shared_ptr<tessaron::Employees> Employees() { return Open()->Employees(); }
  static std::shared_ptr<tessaron::Checks> Checks() { return Open()->Checks(); }
  static std::shared_ptr<tessaron::SalesReps> SalesReps() { return Open()->SalesReps(); }
  static std::shared_ptr<tessaron::PurchaseOrders> PurchaseOrders() { return Open()->PurchaseOrders(); }
  static std::shared_ptr<tessaron::CustomerMessages> CustomerMessages() { return Open()->CustomerMessages(); }
  static std::shared_ptr<tessaron::ToDoList> ToDoList() { return Open()->ToDoList(); }
  static std::shared_ptr<tessaron::VendorCredits> VendorCredits() { return Open()->VendorCredits(); }
  static std::shared_ptr<tessaron::CreditCardCharges> CreditCardCharges() { return Open()->CreditCardCharges(); }
  static std::shared_ptr<tessaron::CreditCardCredits> CreditCardCredits() { return Open()->CreditCardCredits(); }
  static std::shared_ptr<tessaron::Invoices> Invoices() { return Open()->Invoices(); }
  static std::shared_ptr<tessaron::TimeTrackings> TimeTrackings() { return Open()->TimeTrackings(); }
  static std::shared_ptr<tessaron::ShipMethods> ShipMethods() { return Open()->ShipMethods(); }
  static std::shared_ptr<tessaron::SalesReceipts> SalesReceipts() { return Open()->SalesReceipts(); }
  static std::shared_ptr<tessaron::CreditMemos> CreditMemos() { return Open()->CreditMemos(); }
  static std::shared_ptr<tessaron::Estimates> Estimates() { return Open()->Estimates(); }
  static std::shared_ptr<tessaron::Entities> Entities() { return Open()->Entities(); }
  static std::shared_ptr<tessaron::JobTypes> JobTypes() { return Open()->JobTypes(); }
  static std::shared_ptr<tessaron::VendorTypes> VendorTypes() { return Open()->VendorTypes(); }
  static std::shared_ptr<tessaron::PayrollItemWages> PayrollItemWages() { return Open()->PayrollItemWages(); }
  static std::shared_ptr<tessaron::ReceivePayments> ReceivePayments() { return Open()->ReceivePayments(); }
  static std::shared_ptr<tessaron::BillPayments> BillPayments() { return Open()->BillPayments(); }
  static std::shared_ptr<tessaron::UndepositedFunds> UndepositedFunds() { return Open()->UndepositedFunds(); }
  static std::shared_ptr<tessaron::Deposits> Deposits() { return Open()->Deposits(); }
  static std::shared_ptr<tessaron::StatementCharges> StatementCharges() { return Open()->StatementCharges(); }
  static std::shared_ptr<tessaron::InventoryAdjustments> InventoryAdjustments() {
    return Open()->InventoryAdjustments();
  }
  static std::shared_ptr<tessaron::SalesTaxPaymentChecks> SalesTaxPaymentChecks() {
    return Open()->SalesTaxPaymentChecks();
  }
  static std::shared_ptr<tessaron::Templates> Templates() { return Open()->Templates(); }
  static std::shared_ptr<tessaron::ItemReceipts> ItemReceipts() { return Open()->ItemReceipts(); }
  static std::shared_ptr<tessaron::PayrollItemNonWages> PayrollItemNonWages() {
    return Open()->PayrollItemNonWages();
  }
  // The subscription collections of the global connection; no session needed.
  static std::shared_ptr<tessaron::UIExtensionSubscriptions> UIExtensionSubscriptions() {
    return QBConnection()->UIExtensionSubscriptions();
  }
  static std::shared_ptr<tessaron::UISubscriptions> UISubscriptions() { return QBConnection()->UISubscriptions(); }

 private:
  // Company, as a reference the getters can use.
  static tessaron::Company* Open();
};

}  // namespace tessaron
