#include "tessaron/lists/customers.h"
#include <tuple>

#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {

namespace {

const ListCollectionInfo& Info() {
  static const ListCollectionInfo info = [] {
    ListCollectionInfo i;
    i.className = "Customer";
    i.listType = qoListCustomers;
    i.queryRequest = "CustomerQueryRq";
    i.queryObjectType = qoObjectTypeCustomer;
    i.mirrorObjectName = "Customer";
    i.dirty = DirtyStep::Modify;
    i.rekeyNewOnResponse = true;
    i.commitErrorField = "QuickBooks response: ";
    i.handBuiltStatusQuery = true;
    return i;
  }();
  return info;
}

}  // namespace

Customers::Customers() : ListCollection<Customer>(Info()) {}

std::shared_ptr<Customer> Customers::Add(
    const std::string& Name, const std::string& Parent, const std::string& CustomerType, const std::string& Terms,
    const std::string& SalesRep, const std::string& SalesTaxCode, const std::string& SalesTaxItem,
    const std::string& ResaleNumber, Currency CreditLimit, Currency OpeningBalance, Date OpeningBalanceDate,
    qbEnumJobStatus JobStatus, Date JobStartDate, Date JobProjectedEndDate, Date JobEndDate,
    const std::string& JobDescription, const std::string& JobType, const std::string& AccountNumber,
    const std::string& AltContact, const std::string& AltPhone, const std::string& CompanyName,
    const std::string& Contact, const std::string& Email, const std::string& Fax, const std::string& FirstName,
    const std::string& MiddleName, const std::string& LastName, bool IsActive, const std::string& Phone,
    const std::string& Salutation, const std::string& BillToLine1, const std::string& BillToLine2,
    const std::string& BillToLine3, const std::string& BillToCity, const std::string& BillToState,
    const std::string& BillToPostalCode, const std::string& BillToCountry, const std::string& ShipToLine1,
    const std::string& ShipToLine2, const std::string& ShipToLine3, const std::string& ShipToCity,
    const std::string& ShipToState, const std::string& ShipToPostalCode, const std::string& ShipToCountry) {
  // The object is New throughout, so no setter's guard can refuse here.
  return AddNew([&](Customer& c) {
    detail::ListObjectAccess::SetNameInternal(c, Name);
    detail::ListObjectAccess::SetParentInternal(c, Parent);
    detail::ListObjectAccess::SetSublevelInternal(c, SublevelUnder(Parent));
    c.SetCustomerType(CustomerType);
    c.SetTerms(Terms);
    c.SetSalesRep(SalesRep);
    c.SetSalesTaxCode(SalesTaxCode);
    c.SetSalesTaxItem(SalesTaxItem);
    c.SetResaleNumber(ResaleNumber);
    c.SetCreditLimit(CreditLimit);
    c.SetOpeningBalance(OpeningBalance);
    c.SetOpeningBalanceDate(OpeningBalanceDate);
    c.SetJobStatus(JobStatus);
    c.SetJobStartDate(JobStartDate);
    c.SetJobProjectedEndDate(JobProjectedEndDate);
    c.SetJobEndDate(JobEndDate);
    c.SetJobDescription(JobDescription);
    c.SetJobType(JobType);
    c.SetAccountNumber(AccountNumber);
    c.SetAltContact(AltContact);
    c.SetAltPhone(AltPhone);
    c.SetCompanyName(CompanyName);
    c.SetContact(Contact);
    c.SetEmail(Email);
    c.SetFax(Fax);
    c.SetFirstName(FirstName);
    c.SetIsActive(IsActive);
    c.SetLastName(LastName);
    c.SetMiddleName(MiddleName);
    c.SetPhone(Phone);
    c.SetSalutation(Salutation);
    for (auto [address, line1, line2, line3, city, state, country, postal] :
         {std::tuple{c.BillTo(), &BillToLine1, &BillToLine2, &BillToLine3, &BillToCity, &BillToState,
                     &BillToCountry, &BillToPostalCode},
          std::tuple{c.ShipTo(), &ShipToLine1, &ShipToLine2, &ShipToLine3, &ShipToCity, &ShipToState,
                     &ShipToCountry, &ShipToPostalCode}}) {
      address->SetLine1(*line1);
      address->SetLine2(*line2);
      address->SetLine3(*line3);
      address->SetCity(*city);
      address->SetState(*state);
      address->SetCountry(*country);
      address->SetPostalCode(*postal);
    }
  });
}

// ---- Queries ---------------------------------------------------------------------------

int32_t Customers::Query(int32_t MaxReturned, int32_t BalanceFilter, Currency Balance, const std::string& sMDBPath,
                         const std::function<void(xmlBldr&)>& filter) {
  return RunQuery(CollectionInfo().queryRequest, MaxReturned, sMDBPath, [&](xmlBldr& b) {
    if (filter) filter(b);
    if (BalanceFilter == 0) return;
    b.OpenAggregateOnly("TotalBalanceFilter");
    b.CreateElement("Operator", EnumCodeToXML(BalanceFilter, qoeOperator));
    b.CreateElement("Amount", AmountToText(Balance));
    b.EndAggregate("TotalBalanceFilter");
  });
}

// The status queries are built by hand like the others: the records replace the content
// only when they arrive, so a refused query leaves the collection as it was.
int32_t Customers::GetAll(int32_t MaxReturned, int32_t BalanceFilter, Currency Balance, const std::string& sMDBPath) {
  return Query(MaxReturned, BalanceFilter, Balance, sMDBPath, [](xmlBldr& b) {
    b.CreateElement("ActiveStatus", EnumCodeToDescription(qbStatusAny, qoeActiveStatus));
  });
}

int32_t Customers::GetActive(int32_t MaxReturned, int32_t BalanceFilter, Currency Balance,
                             const std::string& sMDBPath) {
  return Query(MaxReturned, BalanceFilter, Balance, sMDBPath, [](xmlBldr& b) {
    b.CreateElement("ActiveStatus", EnumCodeToDescription(qbStatusActive, qoeActiveStatus));
  });
}

int32_t Customers::GetByNameRange(const std::string& FromName, const std::string& ToName, int32_t MaxReturned,
                                  int32_t BalanceFilter, Currency Balance, const std::string& sMDBPath) {
  return Query(MaxReturned, BalanceFilter, Balance, sMDBPath, [&](xmlBldr& b) {
    b.OpenAggregateOnly("NameRangeFilter");
    b.CreateElement("FromName", FromName);
    b.CreateElement("ToName", ToName);
    b.EndAggregate("NameRangeFilter");
  });
}

int32_t Customers::GetByNameMatch(const std::string& MatchString, int32_t MatchType, int32_t MaxReturned,
                                  int32_t BalanceFilter, Currency Balance, const std::string& sMDBPath) {
  const std::string& criterion = EnumCodeToXML(MatchType, qoeMatchType);
  return Query(MaxReturned, BalanceFilter, Balance, sMDBPath, [&](xmlBldr& b) {
    b.OpenAggregateOnly("NameFilter");
    b.CreateElement("MatchCriterion", criterion);
    b.CreateElement("Name", MatchString);
    b.EndAggregate("NameFilter");
  });
}

int32_t Customers::GetByDateSpan(Date FromDate, Date ToDate, int32_t MaxReturned, int32_t BalanceFilter,
                                 Currency Balance, const std::string& sMDBPath) {
  // An end of 0 is left open: "None" is no date-time QuickBooks would take.
  return Query(MaxReturned, BalanceFilter, Balance, sMDBPath, [&](xmlBldr& b) {
    if (FromDate != 0) b.CreateElement("FromModifiedDate", DateTimeToText(FromDate));
    if (ToDate != 0) b.CreateElement("ToModifiedDate", DateTimeToText(ToDate));
  });
}

int32_t Customers::GetByListIDs(const std::vector<std::string>& sListID, const std::string& sMDBPath) {
  // Without a single ListID the query would ask for every customer.
  if (sListID.empty()) throw Error(err::kEmptyArray, "Customers", err::kEmptyArrayText);
  return RunQuery(CollectionInfo().queryRequest, 0, sMDBPath, [&](xmlBldr& b) {
    for (const std::string& id : sListID) b.CreateElement("ListID", id);
  });
}

int32_t Customers::ListGetByActiveStatus(int32_t ActiveStatus, int32_t, int32_t, Currency) {
  // The single-key query starts a new message, so the limit and the balance filter never
  // reach QuickBooks: every record of the status is counted.
  Errors()->Clear();
  xmlBldr& b = Bldr();
  XmlDocument doc = b.QuerySingleExecute(CollectionInfo().queryRequest,
                                         EnumCodeToDescription(ActiveStatus, qoeActiveStatus), "ActiveStatus", 0,
                                         qoObjectTypeCustomer, "", IncludeDataExt());
  activeStatusNames_.clear();
  if (b.ErrNumber() != 0) {
    Errors()->Add(b.ErrNumber(), "", b.ErrMsg());
    return 0;
  }
  XmlNodeList records = doc.childNodes().item(1).childNodes().item(0).childNodes().item(0).childNodes();
  const long count = records.length();
  if (count == 0) return 0;
  // The name child of the first record decides for all: FullName, or else Name.
  std::string_view nameTag = "Name";
  XmlNodeList first = records.item(0).childNodes();
  for (long i = 0; i < first.length(); ++i)
    if (first.item(i).baseName() == "FullName") nameTag = "FullName";
  activeStatusNames_.reserve(static_cast<size_t>(count));
  for (long r = 0; r < count; ++r) {
    XmlNodeList fields = records.item(r).childNodes();
    std::string name;
    for (long i = 0; i < fields.length(); ++i) {
      XmlNode field = fields.item(i);
      if (field.baseName() == nameTag) {
        name = field.text();
        break;
      }
    }
    activeStatusNames_.push_back(std::move(name));
  }
  return static_cast<int32_t>(count);
}

// ---- Keys ------------------------------------------------------------------------------

void Customers::AddKeyed(const std::shared_ptr<ListObject>& obj) {
  const std::string key = obj->CollectionKey();
  // One lookup per record: the collection refuses the duplicate, unchanged.
  try {
    Objects().Add(obj, key);
  } catch (const Error& e) {
    if (e.Number() != platform_error::kDuplicateKey) throw;
    throw Error(err::kDuplicateName, err::kDuplicateJobSource,
                "The Customer:Job: " + key + " is duplicated in the QuickBooks file.");
  }
}

void Customers::AddParsed(const std::shared_ptr<ListObject>& obj, long) { AddKeyed(obj); }

int32_t Customers::AddExisting(const std::shared_ptr<Customer>& oNew) {
  if (IsMaster()) throw Error(err::kNotOnMaster, "Customer", err::kNotOnMasterText);
  AddKeyed(oNew);
  return static_cast<int32_t>(Count());
}

bool Customers::Rename(const std::shared_ptr<Customer>& Cust, const std::string& NewName) {
  if (GetByFullName(NewName)) return false;
  if (!Cust) return true;
  if (Cust->ObjectState() == qoObjectStateNew) {
    // The key follows at the first commit, which re-keys a New customer.
    detail::ListObjectAccess::SetNameChecked(*Cust, NewName);
    return true;
  }
  Objects().Remove(Variant(Cust->CollectionKey()));
  detail::ListObjectAccess::SetNameChecked(*Cust, NewName);
  Objects().Add(Cust, Cust->CollectionKey());
  return true;
}

// ---- Commit ----------------------------------------------------------------------------

void Customers::OnResponseStart(ListObject& obj) { obj.Errors()->Clear(); }

void Customers::OnCommitted(const std::shared_ptr<ListObject>& obj) {
  if (!committed_) committed_ = std::make_shared<Customers>();
  committed_->AddExisting(std::static_pointer_cast<Customer>(obj));
}

void Customers::OnCommitEnd(const std::shared_ptr<ListObject>&) {
  // Each commit hands over a collection of its own, so a callback may keep it.
  std::shared_ptr<Customers> changed = std::move(committed_);
  committed_.reset();
  if (!changed || changed->Count() == 0) return;
  for (const auto& callback : customersChanged_) callback(changed);
}

void Customers::OnCustomersChanged(std::function<void(const std::shared_ptr<Customers>&)> callback) {
  customersChanged_.push_back(std::move(callback));
}

}  // namespace tessaron
