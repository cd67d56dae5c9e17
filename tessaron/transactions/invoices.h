// Invoices: the master collection of invoices (Company.Invoices), with the queries,
// Commit, Delete and Void of every transaction collection, its Add, and automatic
// numbering.
//
//   auto invoices = company->Invoices();
//   auto inv = invoices->Add("Acme");
//   inv->ItemLines()->Add("Consulting", Currency(3));
//   invoices->Commit(inv);
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "tessaron/platform/date.h"
#include "tessaron/transactions/invoice.h"
#include "tessaron/transactions/txn_collection.h"

namespace tessaron {

class Invoices final : public TxnCollection<Invoice> {
 public:
  Invoices();

  // A new invoice, New and held here; nothing is sent. Master only (else 0x800403FD).
  // Every argument is optional: an empty text, a zero date or an absent flag leaves the
  // default. FOB and ShipMethod start as the preferences say; ARAccount as the company's
  // first receivable account.
  std::shared_ptr<Invoice> Add(const std::string& Customer = "", const std::string& RefNumber = "", Date TxnDate = 0,
                               const std::string& ARAccount = "", const std::string& BillAddressLine1 = "",
                               const std::string& BillAddressLine2 = "", const std::string& BillAddressLine3 = "",
                               const std::string& BillAddressCity = "", const std::string& BillAddressState = "",
                               const std::string& BillAddressPostalCode = "",
                               const std::string& BillAddressCountry = "", const std::string& ShipAddressLine1 = "",
                               const std::string& ShipAddressLine2 = "", const std::string& ShipAddressLine3 = "",
                               const std::string& ShipAddressCity = "", const std::string& ShipAddressState = "",
                               const std::string& ShipAddressPostalCode = "",
                               const std::string& ShipAddressCountry = "", const std::string& Class = "",
                               const std::string& CustomerMessage = "", Date DueDate = 0, const std::string& FOB = "",
                               std::optional<bool> IsPending = std::nullopt,
                               std::optional<bool> IsToBePrinted = std::nullopt, const std::string& Memo = "",
                               const std::string& PONumber = "", const std::string& SalesRep = "", Date ShipDate = 0,
                               const std::string& ShipMethod = "");

  // While on, a commit of one invoice goes first as an add of qbXML 2.1 through a second
  // session of the older request processor, which gives it the next invoice number, and
  // then as a modify in the session's version with what the older add cannot carry.
  // Turning it on opens that session once; with qbXML 2.1 or older it stays off.
  bool AutoGenerateInvoiceNumbers() const { return AutoNumbering(); }
  void SetAutoGenerateInvoiceNumbers(bool value) { SetAutoNumbering(value); }

 private:
  static const TxnCollectionInfo& Info();
};

}  // namespace tessaron
