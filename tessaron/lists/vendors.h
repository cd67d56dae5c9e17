// Vendors and OtherNames: the master collections of vendors and other names. Beside the
// contract of every list collection, Vendors take a balance filter in the range, match and
// date queries, find several vendors by full name in one query (GetMultiple), and both
// commit the address of a Clean record when it changed.
//
//   auto& vendors = *TessaronGlobals::Vendors();
//   auto v = vendors.Add("Cal Telephone", "Cal Telephone Inc.");
//   v->Address()->SetLine1("12 Main St");
//   vendors.Commit();
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/dataext/custom_field_names.h"
#include "tessaron/framework/list_collection.h"
#include "tessaron/lists/vendor.h"

namespace tessaron {

class Vendors final : public ListCollection<Vendor> {
 public:
  Vendors();

  // A New vendor. Master only; nothing is sent until Commit. A name already in the
  // collection raises the collection's error.
  std::shared_ptr<Vendor> Add(
      const std::string& Name = "", const std::string& CompanyName = "", const std::string& Salutation = "",
      const std::string& FirstName = "", const std::string& MiddleName = "", const std::string& LastName = "",
      const std::string& Phone = "", const std::string& AltPhone = "", const std::string& Fax = "",
      const std::string& Email = "", const std::string& Contact = "", const std::string& AltContact = "",
      const std::string& NameOnCheck = "", const std::string& AccountNumber = "", const std::string& Notes = "",
      Currency CreditLimit = Currency(), const std::string& TaxId = "", bool EligibleFor1099 = false,
      Currency OpeningBalance = Currency(), Date OpeningBalanceDate = 0, bool IsActive = true,
      const std::string& AddressLine1 = "", const std::string& AddressLine2 = "",
      const std::string& AddressLine3 = "", const std::string& AddressCity = "",
      const std::string& AddressState = "", const std::string& AddressPostalCode = "",
      const std::string& AddressCountry = "");

  // ---- Queries ------------------------------------------------------------------------
  // GetAll and GetActive accept MaxReturned and the balance filter but do not send them:
  // every vendor of the status comes back. The range, match and date queries send both;
  // BalanceFilter (a qbEnumOperator, 0 for none) compares each vendor's balance with Balance.
  int32_t GetAll(int32_t MaxReturned = 0, int32_t BalanceFilter = 0, Currency Balance = Currency(),
                 const std::string& sMDBPath = "");
  int32_t GetActive(int32_t MaxReturned = 0, int32_t BalanceFilter = 0, Currency Balance = Currency(),
                    const std::string& sMDBPath = "");
  int32_t GetByNameRange(const std::string& FromName, const std::string& ToName, int32_t MaxReturned = 0,
                         int32_t BalanceFilter = 0, Currency Balance = Currency(), const std::string& sMDBPath = "");
  int32_t GetByNameMatch(const std::string& MatchString, int32_t MatchType, int32_t MaxReturned = 0,
                         int32_t BalanceFilter = 0, Currency Balance = Currency(), const std::string& sMDBPath = "");
  int32_t GetByDateSpan(Date FromDate, Date ToDate, int32_t MaxReturned = 0, int32_t BalanceFilter = 0,
                        Currency Balance = Currency(), const std::string& sMDBPath = "");
  // The vendors of these full names, in one query. An empty list raises 0x800403FB.
  int32_t GetMultiple(const std::vector<std::string>& FullNames, const std::string& sMDBPath = "");

  // Whether queries ask for the custom fields of each record (from qbXML 2.0 on).
  bool IncludeDataExtensions() const { return IncludeDataExt(); }
  void SetIncludeDataExtensions(bool value) { SetIncludeDataExt(value); }
  // The names of the custom fields defined for vendors, positions 1 to 7 (index 0 to 6),
  // read once from Company.CustomFields.
  const std::vector<std::string>& CustomFieldNames() { return customFieldNames_.Of(qoObjectTypeVendor); }

 protected:
  void WriteQueryTail(xmlBldr& b) override;

 private:
  tessaron::CustomFieldNames customFieldNames_;
  // The balance filter of the query under way.
  struct BalanceScope {
    BalanceScope(Vendors& v, int32_t op, Currency amount) : v_(v) {
      v_.balanceFilter_ = op;
      v_.balance_ = amount;
    }
    ~BalanceScope() { v_.balanceFilter_ = 0; }
    Vendors& v_;
  };
  int32_t balanceFilter_ = 0;
  Currency balance_;
};

class OtherNames final : public ListCollection<OtherName> {
 public:
  OtherNames();

  // A New other name. Master only; nothing is sent until Commit.
  std::shared_ptr<OtherName> Add(
      const std::string& Name = "", const std::string& CompanyName = "", const std::string& Salutation = "",
      const std::string& FirstName = "", const std::string& MiddleName = "", const std::string& LastName = "",
      const std::string& Phone = "", const std::string& AltPhone = "", const std::string& Fax = "",
      const std::string& Email = "", const std::string& Contact = "", const std::string& AltContact = "",
      const std::string& AccountNumber = "", bool IsActive = true, const std::string& AddressLine1 = "",
      const std::string& AddressLine2 = "", const std::string& AddressLine3 = "",
      const std::string& AddressCity = "", const std::string& AddressState = "",
      const std::string& AddressPostalCode = "", const std::string& AddressCountry = "");

  bool IncludeDataExtensions() const { return IncludeDataExt(); }
  void SetIncludeDataExtensions(bool value) { SetIncludeDataExt(value); }
};

}  // namespace tessaron
