#include "tessaron/transactions/invoices.h"

#include "tessaron/company/company.h"
#include "tessaron/company/preferences.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/address.h"

namespace tessaron {

const TxnCollectionInfo& Invoices::Info() {
  static const TxnCollectionInfo info = [] {
    TxnCollectionInfo i;
    i.className = "Invoice";
    i.objectType = qoObjectTypeInvoice;
    i.queryRequest = "InvoiceQueryRq";
    i.mirrorObjectName = "Invoice";
    return i;
  }();
  return info;
}

Invoices::Invoices() : TxnCollection<Invoice>(Info()) {}

namespace {

void FillAddress(Address& a, const std::string& line1, const std::string& line2, const std::string& line3,
                 const std::string& city, const std::string& state, const std::string& postalCode,
                 const std::string& country) {
  if (!line1.empty()) a.SetLine1(line1);
  if (!line2.empty()) a.SetLine2(line2);
  if (!line3.empty()) a.SetLine3(line3);
  if (!city.empty()) a.SetCity(city);
  if (!state.empty()) a.SetState(state);
  if (!postalCode.empty()) a.SetPostalCode(postalCode);
  if (!country.empty()) a.SetCountry(country);
}

}  // namespace

std::shared_ptr<Invoice> Invoices::Add(
    const std::string& Customer, const std::string& RefNumber, Date TxnDate, const std::string& ARAccount,
    const std::string& BillAddressLine1, const std::string& BillAddressLine2, const std::string& BillAddressLine3,
    const std::string& BillAddressCity, const std::string& BillAddressState, const std::string& BillAddressPostalCode,
    const std::string& BillAddressCountry, const std::string& ShipAddressLine1, const std::string& ShipAddressLine2,
    const std::string& ShipAddressLine3, const std::string& ShipAddressCity, const std::string& ShipAddressState,
    const std::string& ShipAddressPostalCode, const std::string& ShipAddressCountry, const std::string& Class,
    const std::string& CustomerMessage, Date DueDate, const std::string& FOB, std::optional<bool> IsPending,
    std::optional<bool> IsToBePrinted, const std::string& Memo, const std::string& PONumber,
    const std::string& SalesRep, Date ShipDate, const std::string& ShipMethod) {
  Errors()->Clear();
  return AddNew([&](Invoice& inv) {
    auto company = State().CurrentCompany;
    if (company) {
      inv.SetFOB(company->Preferences()->DefaultFOB());
      inv.SetShipMethod(company->Preferences()->DefaultShipMethod());
    }
    if (!ARAccount.empty()) inv.SetARAccount(ARAccount);
    else if (company) inv.SetARAccount(company->DefaultARAccount());
    if (!Customer.empty()) inv.SetCustomer(Customer);
    if (IsToBePrinted) inv.SetIsToBePrinted(*IsToBePrinted);
    if (TxnDate != 0) inv.SetTxnDate(TxnDate);
    FillAddress(*inv.BillTo(), BillAddressLine1, BillAddressLine2, BillAddressLine3, BillAddressCity,
                BillAddressState, BillAddressPostalCode, BillAddressCountry);
    FillAddress(*inv.ShipTo(), ShipAddressLine1, ShipAddressLine2, ShipAddressLine3, ShipAddressCity,
                ShipAddressState, ShipAddressPostalCode, ShipAddressCountry);
    if (!Class.empty()) inv.SetClass(Class);
    if (!CustomerMessage.empty()) inv.SetCustomerMessage(CustomerMessage);
    if (DueDate != 0) inv.SetDueDate(DueDate);
    if (!FOB.empty()) inv.SetFOB(FOB);
    if (IsPending) inv.SetIsPending(*IsPending);
    if (!Memo.empty()) inv.SetMemo(Memo);
    if (!PONumber.empty()) inv.SetPONumber(PONumber);
    if (!RefNumber.empty()) inv.SetRefNumber(RefNumber);
    if (!SalesRep.empty()) inv.SetSalesRep(SalesRep);
    if (ShipDate != 0) inv.SetShipDate(ShipDate);
    if (!ShipMethod.empty()) inv.SetShipMethod(ShipMethod);
  });
}

}  // namespace tessaron
