// Collections of every shape, filled from QuickBooks answers, for the tests of saving to
// files: each case reads its records through a query, as an application would, and hands
// back the collection seen through what those tests need.
#pragma once

#include <fstream>
#include <functional>
#include <iterator>
#include <ostream>
#include <memory>
#include <string>

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/framework/collection_xml.h"
#include "tessaron/lists/class.h"
#include "tessaron/lists/customers.h"
#include "tessaron/lists/employees.h"
#include "tessaron/lists/items.h"
#include "tessaron/lists/ship_method.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tests/support/list_session.h"
#include "tests/transactions/invoice_session.h"

namespace tessaron::testing {

inline std::string FileText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

inline void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

// A collection, list or transactions, through the members the tests use.
struct Held {
  CollectionXml* xml = nullptr;
  std::function<long()> count;
  // Every field of the object at a position: its properties and its saved form.
  std::function<std::string(long)> fields;
  std::function<qoEnumObjectState(long)> state;
  std::function<Variant(long)> userData;
  std::function<void(long, const Variant&)> setUserData;
  // The identifier QuickBooks gave the record (ListID or TxnID).
  std::function<std::string(long)> id;
};

template <class Obj>
std::string FieldsOf(Obj& obj) {
  std::string out;
  for (const auto& p : obj.Properties()) out += std::string(p.name) + "=" + p.text + "\n";
  xmlBldr b;
  b.InsertQueryRs(obj, 1);
  return out + b.GetXML().ToString();
}

template <class C>
Held Hold(const std::shared_ptr<C>& c) {
  Held h;
  h.xml = c.get();
  h.count = [c] { return c->Count(); };
  h.fields = [c](long i) { return FieldsOf(*c->Item(Variant(i))); };
  h.state = [c](long i) { return c->Item(Variant(i))->ObjectState(); };
  h.userData = [c](long i) { return c->Item(Variant(i))->UserData(); };
  h.setUserData = [c](long i, const Variant& v) { c->Item(Variant(i))->SetUserData(v); };
  h.id = [c](long i) {
    auto obj = c->Item(Variant(i));
    if constexpr (requires { obj->TxnId(); }) return obj->TxnId();
    else return obj->ListID();
  };
  return h;
}

// A session with a company at qbXML 3.0 whose collections the cases fill.
class SavedSession : public InvoiceSession {
 public:
  SavedSession() { State().ErrorMode = true; }
  Company& company() { return *State().CurrentCompany; }
  // Queues one query answer holding `records`.
  void Records(const std::string& rsName, const std::string& records) {
    processor().QueueResponse(ScriptedProcessor::Response(rsName, records));
  }
};

inline std::string Common(const std::string& name, const std::string& more = "") {
  return "<Name>" + name + "</Name><FullName>" + name + "</FullName><IsActive>true</IsActive>" + more;
}

// An invoice with a linked payment, an item line, a group of two members and a line of text alone. The group
// carries only what the saved form of a sales group keeps (see SavedForms tests).
inline std::string InvoiceWithEveryLine(const std::string& txnId, const std::string& ref) {
  const std::string lines =
      "<LinkedTxn><TxnID>P-9</TxnID><TxnType>ReceivePayment</TxnType><TxnDate>2024-05-20</TxnDate>"
      "<RefNumber>552</RefNumber><LinkType>AMTTYPE</LinkType><Amount>-10.00</Amount></LinkedTxn>" +
      InvoiceSession::LineRet(txnId + "-L1", "Labor", "30.00") +
      "<InvoiceLineGroupRet><TxnLineID>" + txnId + "-G1</TxnLineID><ItemGroupRef><FullName>Kit</FullName>"
      "</ItemGroupRef><Quantity>2</Quantity>"
      "<InvoiceLineRet><TxnLineID>" + txnId + "-G2</TxnLineID><ItemRef><FullName>Hinge</FullName></ItemRef>"
      "<Quantity>2</Quantity><Rate>4</Rate><Amount>8.00</Amount></InvoiceLineRet>"
      "<InvoiceLineRet><TxnLineID>" + txnId + "-G3</TxnLineID><ItemRef><FullName>Labor</FullName></ItemRef>"
      "<Quantity>1</Quantity><Rate>10.50</Rate><Amount>10.50</Amount></InvoiceLineRet></InvoiceLineGroupRet>"
      "<InvoiceLineRet><TxnLineID>" + txnId + "-L4</TxnLineID><Desc>A note line</Desc></InvoiceLineRet>";
  // References named by FullName only: one known by its ListID is saved by its ListID alone.
  std::string ret = InvoiceSession::InvoiceRet(txnId, lines, ref);
  const std::string id = "<ListID>80000001-1</ListID>";
  ret.erase(ret.find(id), id.size());
  return ret;
}

// One shape of collection: its name and how its records are read.
struct SavedCase {
  const char* name;
  std::function<Held(SavedSession&)> fill;
};

inline void PrintTo(const SavedCase& c, std::ostream* os) { *os << c.name; }

inline const SavedCase kSavedCases[] = {
    {"FlatList",
     [](SavedSession& qb) {
       qb.Records("ShipMethodQueryRs", Ret("ShipMethod", "1-1", "<Name>Freight</Name><IsActive>true</IsActive>") +
                                           Ret("ShipMethod", "2-1", "<Name>Courier</Name><IsActive>false</IsActive>") +
                                           Ret("ShipMethod", "3-1", "<Name>Post &amp; Parcel</Name><IsActive>true</IsActive>"));
       auto c = qb.company().ShipMethods();
       c->GetAll();
       return Hold(c);
     }},
    {"TreeWithParents",
     [](SavedSession& qb) {
       qb.Records("ClassQueryRs",
                  Ret("Class", "1-1", Common("Dept", "<Sublevel>0</Sublevel>")) +
                      Ret("Class", "2-1",
                          "<Name>East</Name><FullName>Dept:East</FullName><IsActive>true</IsActive>"
                          "<ParentRef><ListID>1-1</ListID><FullName>Dept</FullName></ParentRef><Sublevel>1</Sublevel>") +
                      Ret("Class", "3-1",
                          "<Name>Retail</Name><FullName>Dept:East:Retail</FullName><IsActive>false</IsActive>"
                          "<ParentRef><ListID>2-1</ListID><FullName>Dept:East</FullName></ParentRef>"
                          "<Sublevel>2</Sublevel>"));
       auto c = qb.company().Classes();
       c->GetAll();
       return Hold(c);
     }},
    {"CustomersWithAddressesAndJobs",
     [](SavedSession& qb) {
       qb.Records(
           "CustomerQueryRs",
           Ret("Customer", "8-1",
               Common("Acme", "<Sublevel>0</Sublevel><CompanyName>Acme Ltd</CompanyName><FirstName>Ann</FirstName>"
                              "<BillAddress><Addr1>1 Main St</Addr1><Addr2>Suite 4</Addr2><City>Bayshore</City>"
                              "<State>CA</State><PostalCode>94000</PostalCode></BillAddress>"
                              "<ShipAddress><Addr1>9 Dock Rd</Addr1><City>Harbor</City></ShipAddress>"
                              "<Phone>555-0100</Phone><Email>ann@acme.test</Email>"
                              "<TermsRef><FullName>Net 30</FullName></TermsRef><Balance>120.50</Balance>"
                              "<TotalBalance>300.00</TotalBalance><AccountNumber>A-7</AccountNumber>"
                              "<CreditLimit>5000.00</CreditLimit><Notes>Calls on Mondays</Notes>"
                              "<IsStatementWithParent>false</IsStatementWithParent>"
                              "<DeliveryMethod>Email</DeliveryMethod>")) +
               Ret("Customer", "8-2",
                   "<Name>Roof</Name><FullName>Acme:Roof</FullName><IsActive>true</IsActive>"
                   "<ParentRef><ListID>8-1</ListID><FullName>Acme</FullName></ParentRef><Sublevel>1</Sublevel>"
                   "<ShipAddress><Addr1>12 Hill Rd</Addr1></ShipAddress><TotalBalance>179.50</TotalBalance>"
                   "<JobStatus>InProgress</JobStatus><JobStartDate>2004-01-05</JobStartDate>"
                   "<JobProjectedEndDate>2004-03-01</JobProjectedEndDate><JobDesc>New roof</JobDesc>"
                   "<JobTypeRef><FullName>Repair</FullName></JobTypeRef>"
                   "<IsStatementWithParent>true</IsStatementWithParent>"));
       auto c = qb.company().Customers();
       c->GetAll();
       return Hold(c);
     }},
    {"ItemsOfSeveralKinds",
     [](SavedSession& qb) {
       qb.Records(
           "ItemQueryRs",
           Ret("ItemService", "B-1",
               Common("Labor", "<Sublevel>0</Sublevel><SalesTaxCodeRef><FullName>Tax</FullName></SalesTaxCodeRef>"
                               "<SalesOrPurchase><Desc>Labor</Desc><Price>10.00</Price>"
                               "<AccountRef><FullName>Income</FullName></AccountRef></SalesOrPurchase>")) +
               Ret("ItemNonInventory", "B-2",
                   Common("Bolts", "<Sublevel>0</Sublevel><SalesAndPurchase><SalesDesc>Bolts</SalesDesc>"
                                   "<SalesPrice>0.25</SalesPrice><IncomeAccountRef><FullName>Income</FullName>"
                                   "</IncomeAccountRef><PurchaseDesc>Bolts, bag</PurchaseDesc>"
                                   "<PurchaseCost>0.10</PurchaseCost><ExpenseAccountRef><FullName>Supplies"
                                   "</FullName></ExpenseAccountRef></SalesAndPurchase>")) +
               Ret("ItemOtherCharge", "B-3",
                   Common("Fee", "<Sublevel>0</Sublevel><SalesOrPurchase><Desc>Handling</Desc>"
                                 "<PricePercent>2.50</PricePercent><AccountRef><FullName>Income</FullName>"
                                 "</AccountRef></SalesOrPurchase>")) +
               Ret("ItemDiscount", "B-4",
                   Common("Off", "<ItemDesc>Five off</ItemDesc><DiscountRate>5.00</DiscountRate>"
                                 "<AccountRef><FullName>Discounts</FullName></AccountRef>")) +
               Ret("ItemSubtotal", "B-5", Common("Sub", "<ItemDesc>Subtotal</ItemDesc>")) +
               Ret("ItemSalesTax", "B-6",
                   Common("State", "<ItemDesc>State tax</ItemDesc><TaxRate>7.5</TaxRate>"
                                   "<TaxVendorRef><FullName>Revenue Board</FullName></TaxVendorRef>")));
       auto c = qb.company().Items();
       c->GetAll();
       return Hold(c);
     }},
    {"EmployeesWithSubRecords",
     [](SavedSession& qb) {
       qb.Records(
           "EmployeeQueryRs",
           Ret("Employee", "9-1",
               "<Name>Lena Sorensen</Name><IsActive>true</IsActive><Salutation>Ms.</Salutation>"
               "<FirstName>Lena</FirstName><LastName>Sorensen</LastName>"
               "<EmployeeAddress><Addr1>4 Elm St</Addr1><City>Bayshore</City><State>CA</State>"
               "<PostalCode>94001</PostalCode></EmployeeAddress><PrintAs>L. Sorensen</PrintAs>"
               "<Phone>555-0101</Phone><SSN>123-45-6789</SSN><EmployeeType>Regular</EmployeeType>"
               "<Gender>Female</Gender><HiredDate>2003-06-02</HiredDate><BirthDate>1970-02-14</BirthDate>"
               "<EmployeePayrollInfo><PayPeriod>Weekly</PayPeriod><Earnings><PayrollItemWageRef><FullName>"
               "Hourly Wage</FullName></PayrollItemWageRef><Rate>24.00</Rate></Earnings><SickHours>"
               "<HoursAvailable>PT16H0M0S</HoursAvailable><AccrualPeriod>BeginningOfYear</AccrualPeriod>"
               "<HoursUsed>PT2H30M0S</HoursUsed></SickHours><VacationHours><HoursAvailable>PT40H0M0S"
               "</HoursAvailable><AccrualPeriod>EveryPaycheck</AccrualPeriod></VacationHours>"
               "</EmployeePayrollInfo>"));
       auto c = qb.company().Employees();
       c->GetAll();
       return Hold(c);
     }},
    {"InvoicesWithEveryKindOfLine",
     [](SavedSession& qb) {
       // The items the lines name, so that the lines find their kinds without a query.
       qb.Records("ItemQueryRs",
                  Ret("ItemService", "B-1", Common("Labor", "<SalesOrPurchase><Price>10.00</Price></SalesOrPurchase>")) +
                      Ret("ItemService", "B-2", Common("Hinge", "<SalesOrPurchase><Price>4.00</Price></SalesOrPurchase>")) +
                      Ret("ItemGroup", "B-3", Common("Kit", "<IsPrintItemsInGroup>true</IsPrintItemsInGroup>")));
       qb.company().Items()->GetAll();
       qb.Records("InvoiceQueryRs", InvoiceWithEveryLine("1A-1", "1001") + InvoiceWithEveryLine("1B-1", "1002"));
       auto c = qb.invoices();
       c->GetAll();
       return Hold(c);
     }},
};

}  // namespace tessaron::testing
