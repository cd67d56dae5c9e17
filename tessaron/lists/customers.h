// Customers: the customers and jobs of the company. Beside the contract of every list
// collection it
//   - sends GetAll and GetActive as queries of its own, so MaxReturned and the balance
//     filter reach QuickBooks;
//   - refuses a response with two records of one full name (the company file can hold
//     them), raising 0x800403F9;
//   - commits the addresses of a Clean customer when they changed, re-keys a new customer
//     by the full name QuickBooks returns, and tells the committed customers to the
//     CustomersChanged callbacks.
//
//   auto& customers = *TessaronGlobals::Customers();
//   customers.GetAll(0, qbGreaterThan, Currency(100));      // those owing more than 100
//   auto job = customers.Add("Kitchen", "Abercrombie, Kristy");
//   customers.Commit();
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/dataext/custom_field_names.h"
#include "tessaron/foundation/enum_codes.h"
#include "tessaron/framework/list_collection.h"
#include "tessaron/lists/customer.h"

namespace tessaron {

class Customers final : public ListCollection<Customer> {
 public:
  Customers();

  // A New customer, or a job when Parent is given (Sublevel is then the number of parts
  // of Parent). Master only; nothing is sent until Commit. A full name already in the
  // collection raises the collection's error.
  std::shared_ptr<Customer> Add(
      const std::string& Name = "", const std::string& Parent = "", const std::string& CustomerType = "",
      const std::string& Terms = "", const std::string& SalesRep = "", const std::string& SalesTaxCode = "",
      const std::string& SalesTaxItem = "", const std::string& ResaleNumber = "", Currency CreditLimit = Currency(),
      Currency OpeningBalance = Currency(), Date OpeningBalanceDate = 0, qbEnumJobStatus JobStatus = qbJobStatusNone,
      Date JobStartDate = 0, Date JobProjectedEndDate = 0, Date JobEndDate = 0,
      const std::string& JobDescription = "", const std::string& JobType = "", const std::string& AccountNumber = "",
      const std::string& AltContact = "", const std::string& AltPhone = "", const std::string& CompanyName = "",
      const std::string& Contact = "", const std::string& Email = "", const std::string& Fax = "",
      const std::string& FirstName = "", const std::string& MiddleName = "", const std::string& LastName = "",
      bool IsActive = true, const std::string& Phone = "", const std::string& Salutation = "",
      const std::string& BillToLine1 = "", const std::string& BillToLine2 = "", const std::string& BillToLine3 = "",
      const std::string& BillToCity = "", const std::string& BillToState = "",
      const std::string& BillToPostalCode = "", const std::string& BillToCountry = "",
      const std::string& ShipToLine1 = "", const std::string& ShipToLine2 = "", const std::string& ShipToLine3 = "",
      const std::string& ShipToCity = "", const std::string& ShipToState = "",
      const std::string& ShipToPostalCode = "", const std::string& ShipToCountry = "");

  // ---- Queries ------------------------------------------------------------------------
  // Each replaces the content and returns Count (0 when a database path hands the records
  // to the mirror). MaxReturned above 0 limits the records. BalanceFilter (a
  // qbEnumOperator, 0 for none) keeps the customers whose total balance compares so with
  // Balance. A QuickBooks error lands in Errors; nothing is raised but the duplicate trap.
  int32_t GetAll(int32_t MaxReturned = 0, int32_t BalanceFilter = 0, Currency Balance = Currency(),
                 const std::string& sMDBPath = "");
  int32_t GetActive(int32_t MaxReturned = 0, int32_t BalanceFilter = 0, Currency Balance = Currency(),
                    const std::string& sMDBPath = "");
  int32_t GetByNameRange(const std::string& FromName, const std::string& ToName, int32_t MaxReturned = 0,
                         int32_t BalanceFilter = 0, Currency Balance = Currency(), const std::string& sMDBPath = "");
  // MatchType: qbEnumMatchType.
  int32_t GetByNameMatch(const std::string& MatchString, int32_t MatchType, int32_t MaxReturned = 0,
                         int32_t BalanceFilter = 0, Currency Balance = Currency(), const std::string& sMDBPath = "");
  int32_t GetByDateSpan(Date FromDate, Date ToDate, int32_t MaxReturned = 0, int32_t BalanceFilter = 0,
                        Currency Balance = Currency(), const std::string& sMDBPath = "");
  // The customers with these ListIDs, in one query. An empty list raises 0x800403FB.
  int32_t GetByListIDs(const std::vector<std::string>& sListID, const std::string& sMDBPath = "");
  // Counts the records of one active status (qbEnumActiveStatus) without making objects.
  // The request carries only the status: MaxReturned and the balance filter are accepted
  // and not sent, so every record of that status is counted.
  int32_t ListGetByActiveStatus(int32_t ActiveStatus, int32_t MaxReturned = 0, int32_t BalanceFilter = 0,
                                Currency Balance = Currency());

  // Whether queries ask for the custom fields of each record (from qbXML 2.0 on).
  bool IncludeDataExtensions() const { return IncludeDataExt(); }
  void SetIncludeDataExtensions(bool value) { SetIncludeDataExt(value); }
  // The names of the custom fields defined for customers, positions 1 to 7 (index 0 to
  // 6), read once from Company.CustomFields.
  const std::vector<std::string>& CustomFieldNames() { return customFieldNames_.Of(qoObjectTypeCustomer); }

  // ---- Beside the master -----------------------------------------------------------------
  // Puts a customer held elsewhere into this instance; returns the new Count. Not on the
  // master (0x80040401); a full name already here raises 0x800403F9.
  int32_t AddExisting(const std::shared_ptr<Customer>& oNew);
  // Gives Cust another name, to be committed later. False, with nothing changed, when a
  // customer of that name exists (looked up by full name, which may query QuickBooks).
  // A New customer keeps its key until its first commit; another is keyed anew.
  bool Rename(const std::shared_ptr<Customer>& Cust, const std::string& NewName);

  // ---- Events -----------------------------------------------------------------------------
  // After a commit in which QuickBooks accepted customers: those customers, in a collection
  // of their own (not the master).
  void OnCustomersChanged(std::function<void(const std::shared_ptr<Customers>& Custs)> callback);

 protected:
  void AddParsed(const std::shared_ptr<ListObject>& obj, long position) override;
  void OnResponseStart(ListObject& obj) override;
  void OnCommitted(const std::shared_ptr<ListObject>& obj) override;
  void OnCommitEnd(const std::shared_ptr<ListObject>& Member) override;
  int32_t ListGetAll(int32_t MaxReturned, const std::string& sMDBPath) override {
    return GetAll(MaxReturned, 0, Currency(), sMDBPath);
  }
  int32_t ListGetActive(int32_t MaxReturned, const std::string& sMDBPath) override {
    return GetActive(MaxReturned, 0, Currency(), sMDBPath);
  }

 private:
  // A query with MaxReturned, then `filter`, then the balance filter.
  int32_t Query(int32_t MaxReturned, int32_t BalanceFilter, Currency Balance, const std::string& sMDBPath,
                const std::function<void(xmlBldr&)>& filter);
  // Adds under the full name; a duplicate raises the duplicated-in-the-file error.
  void AddKeyed(const std::shared_ptr<ListObject>& obj);

  std::vector<std::function<void(const std::shared_ptr<Customers>&)>> customersChanged_;
  std::shared_ptr<Customers> committed_;
  std::vector<std::string> activeStatusNames_;  // what ListGetByActiveStatus found
  tessaron::CustomFieldNames customFieldNames_;
};

}  // namespace tessaron
