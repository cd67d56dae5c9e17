// Company and Preferences as a connection reads them, the registry of master collections,
// ValidateAll, the activity and cleared-status requests, TessaronGlobals, and the national
// editions: all through the scripted request processor.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tessaron/company/company.h"
#include "tessaron/transactions/invoices.h"
#include "tessaron/transactions/purchase_collections.h"
#include "tessaron/company/preferences.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/connection/tessaron_globals.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/lists/class.h"
#include "tessaron/lists/customers.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tests/support/text_match.h"
#include "tests/support/raised.h"
#include "tests/lists/customer_records.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/scripted_processor.h"

namespace tessaron {
namespace {

using testing::Batch;
using testing::CustomerRet;
using testing::NumberRaised;
using testing::ResponseElement;
using testing::ScriptedProcessor;
using testing::ScriptedSession;

using testing::Contains;

const std::string kCompanyRet =
    "<CompanyRet><IsSampleCompany>true</IsSampleCompany><CompanyName>Rock Castle</CompanyName>"
    "<LegalCompanyName>Rock Castle Construction</LegalCompanyName>"
    "<Address><Addr1>1735 County Road</Addr1><City>Bayshore</City><State>CA</State><PostalCode>94326</PostalCode>"
    "</Address><LegalAddress><Addr1>PO Box 1</Addr1><City>Bayshore</City></LegalAddress>"
    "<CompanyAddressForCustomer><Addr1>1735 County Road</Addr1></CompanyAddressForCustomer>"
    "<Phone>555-0100</Phone><Fax>555-0101</Fax><Email>rock@castle.test</Email>"
    "<CompanyEmailForCustomer>billing@castle.test</CompanyEmailForCustomer>"
    "<CompanyWebSite>castle.test</CompanyWebSite><FirstMonthFiscalYear>March</FirstMonthFiscalYear>"
    "<FirstMonthIncomeTaxYear>January</FirstMonthIncomeTaxYear><CompanyType>Construction</CompanyType>"
    "<EIN>00-7904153</EIN><TaxForm>Form1120</TaxForm></CompanyRet>";

std::string PreferencesRet(const std::string& salesAndCustomersExtra = "", bool timeTracking = true) {
  return "<PreferencesRet><AccountingPreferences><IsUsingAccountNumbers>true</IsUsingAccountNumbers>"
         "<IsRequiringAccounts>true</IsRequiringAccounts><IsUsingClassTracking>false</IsUsingClassTracking>"
         "<IsUsingAuditTrail>true</IsUsingAuditTrail><IsAssigningJournalEntryNumbers>true"
         "</IsAssigningJournalEntryNumbers><ClosingDate>2003-12-31</ClosingDate></AccountingPreferences>"
         "<FinanceChargePreferences><AnnualInterestRate>18.5</AnnualInterestRate>"
         "<MinFinanceCharge>2.50</MinFinanceCharge><GracePeriod>10</GracePeriod>"
         "<FinanceChargeAccountRef><ListID>A-1</ListID><FullName>Finance Charge Income</FullName>"
         "</FinanceChargeAccountRef><IsAssessingForOverdueCharges>false</IsAssessingForOverdueCharges>"
         "<CalculateChargesFrom>InvoiceOrBilledDate</CalculateChargesFrom>"
         "<IsMarkedToBePrinted>false</IsMarkedToBePrinted></FinanceChargePreferences>"
         "<MultiCurrencyPreferences><IsMultiCurrencyOn>false</IsMultiCurrencyOn></MultiCurrencyPreferences>"
         "<ReportsPreferences><AgingReportBasis>AgeFromDueDate</AgingReportBasis>"
         "<SummaryReportBasis>Cash</SummaryReportBasis></ReportsPreferences>"
         "<SalesAndCustomersPreferences><DefaultShipMethodRef><FullName>UPS</FullName></DefaultShipMethodRef>"
         "<DefaultMarkup>12.5</DefaultMarkup><IsTrackingReimbursedExpensesAsIncome>true"
         "</IsTrackingReimbursedExpensesAsIncome><IsAutoApplyingPayments>false</IsAutoApplyingPayments>" +
         salesAndCustomersExtra + "</SalesAndCustomersPreferences>" +
         (timeTracking ? "<TimeTrackingPreferences><FirstDayOfWeek>Sunday</FirstDayOfWeek></TimeTrackingPreferences>"
                       : "") +
         "<CurrentAppAccessRights><IsAutomaticLoginAllowed>true</IsAutomaticLoginAllowed>"
         "<AutomaticLoginUserName>Admin</AutomaticLoginUserName>"
         "<IsPersonalDataAccessAllowed>false</IsPersonalDataAccessAllowed></CurrentAppAccessRights>"
         "</PreferencesRet>";
}

// A session that answers the company query and the preferences query with the texts given.
class CompanySession : public ScriptedSession {
 public:
  explicit CompanySession(const std::string& version = "3.0", const std::string& preferences = PreferencesRet(),
                          const std::string& hostCountry = "US")
      : ScriptedSession("") {
    const std::string company = ScriptedProcessor::Response("CompanyQueryRs", kCompanyRet);
    const std::string prefs = ScriptedProcessor::Response("PreferencesQueryRs", preferences);
    EXPECT_TRUE(testing::IsValidQbxml(company));
    EXPECT_TRUE(testing::IsValidQbxml(prefs));
    processor().RespondTo("CompanyQueryRq", company);
    processor().RespondTo("PreferencesQueryRq", prefs);
    processor().SetVersions({version});
    processor().SetHost("QuickBooks Pro 2013", "23", "0", hostCountry);
    TessaronGlobals::QBConnect("Tests", "Tessaron tests", qbFileOpenDoNotCare);
    processor().ClearRecords();
  }
  ~CompanySession() { State().GlobalConnection.reset(); }
  std::shared_ptr<Company> company() { return TessaronGlobals::Company(); }
};

// ---- The record ---------------------------------------------------------------------------

TEST(CompanyRecord, ConnectionReadsTheRecordItsAddressesAndThePreferences) {
  CompanySession qb;
  auto company = qb.company();
  ASSERT_NE(company, nullptr);
  EXPECT_EQ(company->Name(), "Rock Castle");
  EXPECT_EQ(company->LegalName(), "Rock Castle Construction");
  EXPECT_EQ(company->Address()->City(), "Bayshore");
  EXPECT_EQ(company->Address()->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(company->LegalAddress()->Line1(), "PO Box 1");
  EXPECT_EQ(company->AddressForCustomers()->Line1(), "1735 County Road");
  EXPECT_EQ(company->EmailForCustomers(), "billing@castle.test");
  EXPECT_EQ(company->qbEnumTaxForm(), "Form1120");
  EXPECT_EQ(company->EIN(), "00-7904153");
  EXPECT_TRUE(company->IsSampleCompany());
  // Every month has the code 8 in the month table.
  EXPECT_EQ(company->FirstMonthFiscalYear(), "8");
  EXPECT_EQ(company->ObjectType(), qoObjectTypeCompany);

  auto prefs = company->Preferences();
  EXPECT_EQ(prefs->ObjectState(), qoObjectStateClean);
  EXPECT_TRUE(prefs->IsUsingAccountNumbers());
  EXPECT_EQ(prefs->ClosingDate(), DateSerial(2003, 12, 31));
  EXPECT_EQ(prefs->AnnualInterestRate(), Currency::Parse("18.5"));
  EXPECT_EQ(prefs->GracePeriod(), 10);
  EXPECT_EQ(prefs->FinanceChargeAccount(), "Finance Charge Income");
  EXPECT_EQ(prefs->CalculateChargesFrom(), qoCalculateChargesFromInvoiceOrBilledDate);
  EXPECT_EQ(prefs->SummaryReportBasis(), qoSummaryReportBasisCash);
  EXPECT_EQ(prefs->DefaultShipMethod(), "UPS");
  EXPECT_EQ(prefs->FirstDayOfWeek(), qoDayOfWeekSunday);
  EXPECT_TRUE(prefs->TimeTrackingEnabled());
  EXPECT_TRUE(prefs->IsAutomaticLoginAllowed());
  EXPECT_EQ(prefs->AutomaticLoginUserName(), "Admin");
  EXPECT_FALSE(prefs->IsSensitiveDataAccessAllowed());
}

TEST(CompanyRecord, CloseDropsTheCompanyAndGlobalsRefuseAfterwards) {
  CompanySession qb;
  auto before = qb.company();
  TessaronGlobals::QBConnection()->CloseConnection();
  EXPECT_EQ(State().CurrentCompany, nullptr);
  EXPECT_EQ(NumberRaised([] { TessaronGlobals::Customers(); }), err::kNotConnected);
  EXPECT_EQ(NumberRaised([] { CurrentLists(); }), static_cast<uint32_t>(platform_error::kObjectNotSet));
}

TEST(CompanyRecord, WritesItselfAsAVendorRecord) {
  CompanySession qb;
  xmlBldr b;
  b.NewClear();
  qb.company()->XMLVendorQueryRs(b, 4);
  EXPECT_TRUE(Contains(b.GetXML().ToString(),
                       "<VendorQueryRs requestID = \"4\"><VendorRet><Name>Rock Castle</Name>"
                       "<CompanyName>Rock Castle</CompanyName><VendorAddress><Addr1>1735 County Road</Addr1>"
                       "<City>Bayshore</City><State>CA</State><PostalCode>94326</PostalCode></VendorAddress>"
                       "<Phone>555-0100</Phone><Fax>555-0101</Fax><Email>rock&#64;castle.test</Email></VendorRet>"
                       "</VendorQueryRs>"))
      << b.GetXML().ToString();
}

// ---- Registry and masters -------------------------------------------------------------------

TEST(CompanyLists, RegistryHandsOutTheMasterInstances) {
  CompanySession qb;
  auto company = qb.company();
  EXPECT_EQ(company->Lists()->Item(Variant("Class")), std::static_pointer_cast<qcList>(company->Classes()));
  EXPECT_EQ(company->Lists()->Item(Variant("Customer")), std::static_pointer_cast<qcList>(company->Customers()));
  EXPECT_EQ(CurrentListFor(qoListCustomers), std::static_pointer_cast<qcList>(company->Customers()));
  EXPECT_EQ(TessaronGlobals::Customers(), company->Customers());
  EXPECT_TRUE(company->Customers()->IsMaster());
  EXPECT_TRUE(company->ToDoList()->IsMaster());
  EXPECT_FALSE(company->Templates()->IsMaster());
  EXPECT_EQ(company->Lists()->Count(), 20);
  EXPECT_EQ(company->Lists()->Item(Variant("Item")), std::static_pointer_cast<qcList>(company->Items()));
  EXPECT_EQ(company->Lists()->Item(Variant("Account")), std::static_pointer_cast<qcList>(company->Accounts()));
  // The entity lists and payroll items, under the keys of their list types.
  EXPECT_EQ(company->Lists()->Item(Variant("Vendor")), std::static_pointer_cast<qcList>(company->Vendors()));
  EXPECT_EQ(company->Lists()->Item(Variant("OtherName")), std::static_pointer_cast<qcList>(company->OtherNames()));
  EXPECT_EQ(CurrentListFor(qoListEmployees), std::static_pointer_cast<qcList>(company->Employees()));
  EXPECT_EQ(CurrentListFor(qoListPayrollItemWages), std::static_pointer_cast<qcList>(company->PayrollItemWages()));
  EXPECT_EQ(CurrentListFor(qoListPayrollItemNonWages),
            std::static_pointer_cast<qcList>(company->PayrollItemNonWages()));
  EXPECT_EQ(TessaronGlobals::Vendors(), company->Vendors());
  EXPECT_EQ(TessaronGlobals::Employees(), company->Employees());
}

TEST(CompanyLists, CollectionsStillToComeSayTheyAreNotAvailable) {
  CompanySession qb;
  const auto e = testing::Raised([] { TessaronGlobals::TimeTrackings(); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kFeatureNotSupported);
  EXPECT_EQ(e->Description(), "TimeTrackings is not available in this version of Tessaron.");
  EXPECT_EQ(NumberRaised([&] { qb.company()->TimeTrackings(); }), err::kFeatureNotSupported);
}

TEST(CompanyLists, InvoicesAreTheCompanysMasterInstance) {
  CompanySession qb;
  auto invoices = qb.company()->Invoices();
  ASSERT_NE(invoices, nullptr);
  EXPECT_TRUE(invoices->IsMaster());
  EXPECT_EQ(TessaronGlobals::Invoices(), invoices);
}

TEST(CompanyLists, PayablesCollectionsAreTheCompanysMasterInstances) {
  CompanySession qb;
  auto company = qb.company();
  EXPECT_TRUE(company->Bills()->IsMaster());
  EXPECT_EQ(TessaronGlobals::Bills(), company->Bills());
  EXPECT_EQ(TessaronGlobals::Checks(), company->Checks());
  EXPECT_EQ(TessaronGlobals::PurchaseOrders(), company->PurchaseOrders());
  EXPECT_EQ(TessaronGlobals::VendorCredits(), company->VendorCredits());
  EXPECT_EQ(TessaronGlobals::CreditCardCharges(), company->CreditCardCharges());
  EXPECT_EQ(TessaronGlobals::CreditCardCredits(), company->CreditCardCredits());
  EXPECT_EQ(TessaronGlobals::ItemReceipts(), company->ItemReceipts());
}

TEST(CompanyLists, ValidateAllReportsEachFailingListAndGoesOn) {
  CompanySession qb;
  auto company = qb.company();
  company->Customers()->Add(std::string(42, 'x'));
  company->Classes()->Add("");
  company->ShipMethods()->Add("UPS");

  EXPECT_FALSE(company->ValidateAll());

  ASSERT_EQ(company->Errors()->Count(), 2);
  EXPECT_EQ(company->Errors()->Item(1)->Field(), "Customer");
  EXPECT_EQ(company->Errors()->Item(2)->Field(), "Class");
  EXPECT_EQ(static_cast<uint32_t>(company->Errors()->Item(1)->Number()), err::kValidateFailed);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST(CompanyLists, CommitOfTheCompanyCommitsNoCollection) {
  CompanySession qb;
  auto company = qb.company();
  auto cls = company->Classes()->Add("Remodel");
  EXPECT_EQ(company->Commit(), 0);
  EXPECT_EQ(cls->ObjectState(), qoObjectStateNew);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST(CompanyLists, ParentCheckOfAJobSearchesTheCompanysCustomers) {
  CompanySession qb;
  auto customers = TessaronGlobals::Customers();
  const std::string parent = ScriptedProcessor::Response("CustomerQueryRs", CustomerRet("1-1", "Acme"));
  EXPECT_TRUE(testing::IsValidQbxml(parent));
  qb.processor().QueueResponse(parent);
  auto job = customers->Add("Kitchen", "Acme");

  EXPECT_TRUE(job->Validate());

  EXPECT_EQ(qb.processor().RequestNames(), std::vector<std::string>{"CustomerQueryRq"});
  EXPECT_TRUE(customers->ItemExists(Variant("Acme")));
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST(CompanyLists, EntitiesMakeCustomersOfCustomerRecords) {
  CompanySession qb;
  const std::string response = ScriptedProcessor::Response(
      "EntityQueryRs", CustomerRet("1-1", "Acme", "<Phone>555-0100</Phone>") +
                           testing::Ret("Vendor", "2-1", "<Name>Timber Co</Name><IsActive>true</IsActive>"));
  EXPECT_TRUE(testing::IsValidQbxml(response));
  qb.processor().QueueResponse(response);
  EXPECT_EQ(TessaronGlobals::Entities()->GetAll(), 2);
  auto acme = std::dynamic_pointer_cast<Customer>(TessaronGlobals::Entities()->Item(Variant("Acme")));
  ASSERT_NE(acme, nullptr);
  EXPECT_EQ(acme->Phone(), "555-0100");
  EXPECT_EQ(std::dynamic_pointer_cast<Customer>(TessaronGlobals::Entities()->Item(Variant(2))), nullptr);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

// ---- Requests of the company -------------------------------------------------------------

TEST(CompanyRequests, ActivityTimesAskQuickBooksOnEveryRead) {
  CompanySession qb;
  const std::string activity = ScriptedProcessor::Response(
      "CompanyActivityQueryRs",
      "<CompanyActivityRet><LastRestoreTime>2004-05-06T07:08:09</LastRestoreTime></CompanyActivityRet>");
  EXPECT_TRUE(testing::IsValidQbxml(activity));
  qb.processor().RespondTo("CompanyActivityQueryRq", activity);
  EXPECT_EQ(qb.company()->LastRestoreTime(), DateSerial(2004, 5, 6) + TimeSerial(7, 8, 9));
  EXPECT_EQ(qb.company()->LastCondenseTime(), kNullDate);
  EXPECT_EQ(qb.company()->LastCondenseTime(), kNullDate);
  EXPECT_EQ(qb.processor().Requests().size(), 3u);
  EXPECT_TRUE(Contains(qb.processor().LastRequest(), "<CompanyActivityQueryRq></CompanyActivityQueryRq>"));
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST(CompanyRequests, ClearedStatusOfAWholeTransactionSendsNoLine) {
  CompanySession qb;
  EXPECT_EQ(qb.company()->SetClearedStatus(1, "T-1"), 0);
  EXPECT_TRUE(Contains(qb.processor().LastRequest(),
                       "<ClearedStatusModRq requestID = \"1\"><ClearedStatusMod><TxnID>T-1</TxnID>"
                       "<ClearedStatus>Cleared</ClearedStatus></ClearedStatusMod></ClearedStatusModRq>"));
  qb.company()->SetClearedStatus(3, "T-1", "L-2");
  EXPECT_TRUE(Contains(qb.processor().LastRequest(), "<TxnLineID>L-2</TxnLineID><ClearedStatus>Pending"));
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

// ---- Preferences ------------------------------------------------------------------------

TEST(CompanyPreferences, AtVersion1ThePreferencesAreNotRead) {
  CompanySession qb("1.0");
  auto prefs = qb.company()->Preferences();
  EXPECT_EQ(prefs->ObjectState(), qoObjectStateNew);
  EXPECT_FALSE(prefs->IsUsingAccountNumbers());
  EXPECT_EQ(NumberRaised([&] { prefs->IsAutomaticLoginAllowed(); }), err::kVersionNotSupported);
  RequirePersonalDataAccess();  // never refuses below qbXML 2.0
}

TEST(CompanyPreferences, AccessRightsNeedVersion2) {
  CompanySession qb("1.1");
  auto prefs = qb.company()->Preferences();
  EXPECT_EQ(prefs->ObjectState(), qoObjectStateClean);
  for (auto get : {+[](Preferences& p) { p.IsAutomaticLoginAllowed(); },
                   +[](Preferences& p) { p.AutomaticLoginUserName(); },
                   +[](Preferences& p) { p.IsSensitiveDataAccessAllowed(); }})
    EXPECT_EQ(NumberRaised([&] { get(*prefs); }), err::kVersionNotSupported);
}

TEST(CompanyPreferences, PersonalDataIsRefusedAsQuickBooksSays) {
  CompanySession qb("2.0");
  const auto e = testing::Raised([] { RequirePersonalDataAccess(); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kAccessDenied);
  EXPECT_EQ(e->Description(), "Tessaron, S_MSG_ACCESS_DENIED");
  EXPECT_EQ(e->Source(), "Tessaron");
}

TEST(CompanyPreferences, LaterFieldsAndGroupsChangeNothingAndRaiseNothing) {
  std::vector<std::string> noted;
  SetUnknownFieldHook([&](std::string_view message, std::string_view) { noted.emplace_back(message); });
  CompanySession qb("3.0", PreferencesRet("<PriceLevels><IsUsingPriceLevels>true</IsUsingPriceLevels>"
                                          "<IsRoundingSalesPriceUp>false</IsRoundingSalesPriceUp></PriceLevels>",
                                          false));
  SetUnknownFieldHook(nullptr);
  auto prefs = qb.company()->Preferences();
  EXPECT_EQ(prefs->DefaultMarkup(), Currency::Parse("12.5"));
  EXPECT_FALSE(prefs->TimeTrackingEnabled());
  EXPECT_EQ(noted, (std::vector<std::string>{"Unknown Field: MultiCurrencyPreferences", "Unknown Field:  PriceLevels"}));
}

// ---- Globals ----------------------------------------------------------------------------

TEST(Globals, CollectionsBeforeQBConnectRaiseNotConnected) {
  ScriptedSession qb("");
  const auto e = testing::Raised([] { TessaronGlobals::Customers(); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kNotConnected);
  EXPECT_EQ(e->Source(), "Tessaron");
  EXPECT_EQ(e->Description(), "QBConnect has not been called, or it failed");
  EXPECT_EQ(NumberRaised([] { TessaronGlobals::Company(); }), err::kNotConnected);
  EXPECT_EQ(TessaronGlobals::EStr(qbJobStatusInProgress, qoeJobStatus), "In Progress");
  EXPECT_EQ(TessaronGlobals::eVal("in progress", qoeJobStatus), qbJobStatusInProgress);
  EXPECT_EQ(TessaronGlobals::qbNullDate, 0.0);
}

TEST(Globals, QBConnectUsesOneConnectionOfTheLibrary) {
  CompanySession qb;
  EXPECT_EQ(TessaronGlobals::QBConnection(), State().GlobalConnection);
  EXPECT_EQ(TessaronGlobals::QBConnection()->Company(), qb.company());
  EXPECT_EQ(TessaronGlobals::QBConnection()->Company()->Name(), "Rock Castle");
}

// ---- Editions ---------------------------------------------------------------------------

struct EditionCase {
  const char* version;
  const char* country;
  const char* stateTag;
  bool us;
};

class Editions : public ::testing::TestWithParam<EditionCase> {};

TEST_P(Editions, DetectedFromTheHostAndWrittenIntoAddresses) {
  CompanySession qb(GetParam().version, PreferencesRet(), GetParam().country);
  auto connection = TessaronGlobals::QBConnection();
  EXPECT_EQ(connection->Country().ToString(), GetParam().country);
  EXPECT_EQ(connection->IsUSProduct(), GetParam().us);

  auto customers = TessaronGlobals::Customers();
  auto c = customers->Add("Acme", "", "", "", "", "Tax", "", "", Currency(), Currency(), 0, qbJobStatusNone, 0, 0,
                          0, "", "", "", "", "", "", "", "", "", "", "", "", true, "", "", "1 High St", "", "", "Leeds",
                          "West Yorkshire");
  const std::string added = Batch({ResponseElement("CustomerAddRs", 1, 0, CustomerRet("1-1", "Acme"))});
  EXPECT_TRUE(testing::IsValidQbxml(added));
  qb.processor().QueueResponse(added);
  customers->Commit();

  const std::string tag = GetParam().stateTag;
  const std::string& sent = qb.processor().LastRequest();
  EXPECT_TRUE(Contains(sent, "<City>Leeds</City><" + tag + ">West Yorkshire</" + tag + "></BillAddress>")) << sent;
  EXPECT_EQ(Contains(sent, "SalesTaxCodeRef"), GetParam().us) << sent;
  EXPECT_TRUE(testing::IsValidQbxmlOfAnyEdition(sent));
}

INSTANTIATE_TEST_SUITE_P(UsCaUkAu, Editions,
                         ::testing::Values(EditionCase{"3.0", "US", "State", true},
                                           EditionCase{"CA3.0", "CA", "Province", false},
                                           EditionCase{"UK3.0", "UK", "County", false},
                                           EditionCase{"AU3.0", "AU", "Province", false}),
                         [](const auto& info) { return std::string(info.param.country); });

}  // namespace
}  // namespace tessaron
