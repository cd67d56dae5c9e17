#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/lists/vendors.h"

#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"

namespace tessaron {

namespace {

template <class Obj>
void FillAddress(Obj& o, const std::string& line1, const std::string& line2, const std::string& line3,
                 const std::string& city, const std::string& state, const std::string& postalCode,
                 const std::string& country) {
  auto address = o.Address();
  address->SetLine1(line1);
  address->SetLine2(line2);
  address->SetLine3(line3);
  address->SetCity(city);
  address->SetState(state);
  address->SetCountry(country);
  address->SetPostalCode(postalCode);
}

// The fields every entity's Add takes, through the public setters: the object is New, so
// no guard refuses.
void FillContact(EntityObject& o, const std::string& CompanyName, const std::string& Salutation,
                 const std::string& FirstName, const std::string& MiddleName, const std::string& LastName,
                 const std::string& Phone, const std::string& AltPhone, const std::string& Fax,
                 const std::string& Email, const std::string& Contact, const std::string& AltContact,
                 const std::string& AccountNumber) {
  o.SetCompanyName(CompanyName);
  o.SetSalutation(Salutation);
  o.SetFirstName(FirstName);
  o.SetMiddleName(MiddleName);
  o.SetLastName(LastName);
  o.SetPhone(Phone);
  o.SetAltPhone(AltPhone);
  o.SetFax(Fax);
  o.SetEmail(Email);
  o.SetContact(Contact);
  o.SetAltContact(AltContact);
  o.SetAccountNumber(AccountNumber);
}

}  // namespace

// ---- Vendors -------------------------------------------------------------------------------

Vendors::Vendors()
    : ListCollection<Vendor>([] {
        ListCollectionInfo i =
            CollectionOf("Vendor", qoListVendors, "VendorQueryRq", qoObjectTypeVendor, DirtyStep::Modify);
        // QuickBooks may file a new vendor under another name.
        i.rekeyNewOnResponse = true;
        return i;
      }()) {}

std::shared_ptr<Vendor> Vendors::Add(
    const std::string& Name, const std::string& CompanyName, const std::string& Salutation,
    const std::string& FirstName, const std::string& MiddleName, const std::string& LastName,
    const std::string& Phone, const std::string& AltPhone, const std::string& Fax, const std::string& Email,
    const std::string& Contact, const std::string& AltContact, const std::string& NameOnCheck,
    const std::string& AccountNumber, const std::string& Notes, Currency CreditLimit, const std::string& TaxId,
    bool EligibleFor1099, Currency OpeningBalance, Date OpeningBalanceDate, bool IsActive,
    const std::string& AddressLine1, const std::string& AddressLine2, const std::string& AddressLine3,
    const std::string& AddressCity, const std::string& AddressState, const std::string& AddressPostalCode,
    const std::string& AddressCountry) {
  return AddNew([&](Vendor& v) {
    detail::ListObjectAccess::SetNameInternal(v, Name);
    detail::ListObjectAccess::SetIsActiveInternal(v, IsActive);
    FillContact(v, CompanyName, Salutation, FirstName, MiddleName, LastName, Phone, AltPhone, Fax, Email, Contact,
                AltContact, AccountNumber);
    v.SetNameOnCheck(NameOnCheck);
    v.SetNotes(Notes);
    v.SetCreditLimit(CreditLimit);
    v.SetTaxId(TaxId);
    v.SetEligibleFor1099(EligibleFor1099);
    v.SetOpeningBalance(OpeningBalance);
    v.SetOpeningBalanceDate(OpeningBalanceDate);
    FillAddress(v, AddressLine1, AddressLine2, AddressLine3, AddressCity, AddressState, AddressPostalCode,
                AddressCountry);
  });
}

int32_t Vendors::GetAll(int32_t MaxReturned, int32_t, Currency, const std::string& sMDBPath) {
  // The status query starts a message of its own: the limit and the balance filter that
  // were meant for it never reach QuickBooks.
  return ListGetAll(MaxReturned, sMDBPath);
}

int32_t Vendors::GetActive(int32_t MaxReturned, int32_t, Currency, const std::string& sMDBPath) {
  return ListGetActive(MaxReturned, sMDBPath);
}

int32_t Vendors::GetByNameRange(const std::string& FromName, const std::string& ToName, int32_t MaxReturned,
                                int32_t BalanceFilter, Currency Balance, const std::string& sMDBPath) {
  BalanceScope scope(*this, BalanceFilter, Balance);
  return ListCollection<Vendor>::GetByNameRange(FromName, ToName, MaxReturned, sMDBPath);
}

int32_t Vendors::GetByNameMatch(const std::string& MatchString, int32_t MatchType, int32_t MaxReturned,
                                int32_t BalanceFilter, Currency Balance, const std::string& sMDBPath) {
  BalanceScope scope(*this, BalanceFilter, Balance);
  return ListCollection<Vendor>::GetByNameMatch(MatchString, MatchType, MaxReturned, sMDBPath);
}

int32_t Vendors::GetByDateSpan(Date FromDate, Date ToDate, int32_t MaxReturned, int32_t BalanceFilter,
                               Currency Balance, const std::string& sMDBPath) {
  BalanceScope scope(*this, BalanceFilter, Balance);
  return ListCollection<Vendor>::GetByDateSpan(FromDate, ToDate, MaxReturned, sMDBPath);
}

int32_t Vendors::GetMultiple(const std::vector<std::string>& FullNames, const std::string& sMDBPath) {
  // Without a single name the query would ask for every vendor.
  if (FullNames.empty()) throw Error(err::kEmptyArray, "Vendors", err::kEmptyArrayText);
  return RunQuery(CollectionInfo().queryRequest, 0, sMDBPath, [&](xmlBldr& b) {
    for (const std::string& name : FullNames) b.CreateElement("FullName", name);
  });
}

void Vendors::WriteQueryTail(xmlBldr& b) {
  if (balanceFilter_ == 0) return;
  b.OpenAggregateOnly("TotalBalanceFilter");
  b.CreateElement("Operator", EnumCodeToXML(balanceFilter_, qoeOperator));
  b.CreateElement("Amount", AmountToText(balance_));
  b.EndAggregate("TotalBalanceFilter");
}

// ---- OtherNames ----------------------------------------------------------------------------

OtherNames::OtherNames()
    : ListCollection<OtherName>(CollectionOf("OtherName", qoListOtherNames, "OtherNameQueryRq", qoObjectTypeOtherName,
                                             DirtyStep::Modify)) {}

std::shared_ptr<OtherName> OtherNames::Add(
    const std::string& Name, const std::string& CompanyName, const std::string& Salutation,
    const std::string& FirstName, const std::string& MiddleName, const std::string& LastName,
    const std::string& Phone, const std::string& AltPhone, const std::string& Fax, const std::string& Email,
    const std::string& Contact, const std::string& AltContact, const std::string& AccountNumber, bool IsActive,
    const std::string& AddressLine1, const std::string& AddressLine2, const std::string& AddressLine3,
    const std::string& AddressCity, const std::string& AddressState, const std::string& AddressPostalCode,
    const std::string& AddressCountry) {
  return AddNew([&](OtherName& o) {
    detail::ListObjectAccess::SetNameInternal(o, Name);
    detail::ListObjectAccess::SetIsActiveInternal(o, IsActive);
    FillContact(o, CompanyName, Salutation, FirstName, MiddleName, LastName, Phone, AltPhone, Fax, Email, Contact,
                AltContact, AccountNumber);
    FillAddress(o, AddressLine1, AddressLine2, AddressLine3, AddressCity, AddressState, AddressPostalCode,
                AddressCountry);
  });
}

}  // namespace tessaron
