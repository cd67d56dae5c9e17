// The host record, the company record, the preferences, the company activity, the forms.
#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {
namespace {

class CompanyRecordsTest : public QbsimTest {};

TEST_F(CompanyRecordsTest, HostRecordShowsTheConfiguredProductAndTheSessionsVersions) {
  SampleOptions s;
  s.edition = Edition::AU;
  s.newestVersion = 30;
  ProcessorOptions o = StrictOptions();
  o.productName = "QuickBooks Accountant";
  o.productMajorVersion = 17;
  o.productMinorVersion = 2;
  o.fileMode = "MultiUser";
  Open(s, o);
  Response r = Send("<HostQueryRq requestID=\"1\"/>");
  EXPECT_EQ(r.Value("HostRet/ProductName"), "QuickBooks Accountant");
  EXPECT_EQ(r.Value("HostRet/MajorVersion"), "17");
  EXPECT_EQ(r.Value("HostRet/MinorVersion"), "2");
  EXPECT_EQ(r.Value("HostRet/Country"), "AU");
  EXPECT_EQ(r.Value("HostRet/QBFileMode"), "MultiUser");
  std::vector<std::string> versions;
  for (pugi::xml_node v : r.Rs().child("HostRet").children("SupportedQBXMLVersion")) versions.push_back(v.text().get());
  EXPECT_EQ(versions, processor_->QBXMLVersionsForSession(ticket_));
  EXPECT_EQ(versions.back(), "AU3.0");
}

TEST_F(CompanyRecordsTest, CompanyQueryTakesAnyOwnerAndAnswersTheCompanyRecord) {
  Open();
  Response r = Send("<CompanyQueryRq/><CompanyQueryRq><OwnerID>0</OwnerID></CompanyQueryRq>"
                    "<CompanyQueryRq><OwnerID>{8A0E3A5D-1C0B-4E7A-9D47-3E1F2A9B7C10}</OwnerID></CompanyQueryRq>");
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(r.Status(i), 0);
    EXPECT_EQ(r.Value("CompanyRet/CompanyName", i), "Larkspur Cabinetry");
  }
  EXPECT_EQ(r.Value("CompanyRet/FirstMonthFiscalYear"), "January");
  EXPECT_EQ(r.Value("CompanyRet/IsSampleCompany"), "true");
  EXPECT_NE(r.Value("CompanyRet/Address/City"), "<missing>");
}

TEST_F(CompanyRecordsTest, UsPreferencesCarryTheSalesTaxDefaults) {
  Open();
  Response r = Send("<PreferencesQueryRq requestID=\"1\"/>");
  EXPECT_EQ(r.Value("PreferencesRet/SalesTaxPreferences/DefaultItemSalesTaxRef/FullName"), "Combined Tax");
  EXPECT_EQ(r.Value("PreferencesRet/AccountingPreferences/IsUsingClassTracking"), "true");
  EXPECT_EQ(r.Value("PreferencesRet/TimeTrackingPreferences/FirstDayOfWeek"), "Monday");
  EXPECT_EQ(r.Value("PreferencesRet/CurrentAppAccessRights/IsPersonalDataAccessAllowed"), "true");
}

TEST_F(CompanyRecordsTest, WithoutADefaultTaxItemOrOutsideTheUSThereAreNoSalesTaxPreferences) {
  SampleOptions s;
  s.defaultSalesTaxItem = false;
  Open(s);
  EXPECT_EQ(Send("<PreferencesQueryRq requestID=\"1\"/>").Value("PreferencesRet/SalesTaxPreferences"), "<missing>");
}

TEST_F(CompanyRecordsTest, OutsideTheUSThereAreNoSalesTaxPreferences) {
  SampleOptions s;
  s.edition = Edition::UK;
  Open(s);
  EXPECT_EQ(Send("<PreferencesQueryRq requestID=\"1\"/>").Value("PreferencesRet/SalesTaxPreferences"), "<missing>");
}

TEST_F(CompanyRecordsTest, PersonalDataAccessIsConfigurableAndArrivesWithVersion20) {
  ProcessorOptions o = StrictOptions();
  o.personalDataAccessAllowed = false;
  Open({}, o);
  EXPECT_EQ(Send("<PreferencesQueryRq requestID=\"1\"/>").Value("PreferencesRet/CurrentAppAccessRights/"
                                                                "IsPersonalDataAccessAllowed"),
            "false");
  EXPECT_EQ(Send("<PreferencesQueryRq requestID=\"1\"/>", "1.1").Value("PreferencesRet/CurrentAppAccessRights"),
            "<missing>");
}

TEST_F(CompanyRecordsTest, CompanyActivityAnswersBothTimesInOrder) {
  Open();
  Response r = Send("<CompanyActivityQueryRq/>");
  pugi::xml_node ret = r.Rs().child("CompanyActivityRet");
  ASSERT_TRUE(ret);
  EXPECT_STREQ(ret.first_child().name(), "LastRestoreTime");
  EXPECT_STREQ(ret.last_child().name(), "LastCondenseTime");
}

TEST_F(CompanyRecordsTest, DisplayRequestsTellWhoeverListens) {
  std::vector<std::string> shown;
  ProcessorOptions o = StrictOptions();
  o.onFormShown = [&](const std::string& rq, const std::string& type, const std::string& id) {
    shown.push_back(rq + " " + type + " " + id);
  };
  Open({}, o);
  auto [id, seq] = Key("Customer", "Amber Bakery");
  Response r = Send("<ListDisplayAddRq requestID=\"1\"><ListDisplayAddType>Vendor</ListDisplayAddType></ListDisplayAddRq>"
                    "<ListDisplayModRq requestID=\"1\"><ListDisplayModType>Customer</ListDisplayModType><ListID>" +
                    id + "</ListID></ListDisplayModRq>");
  EXPECT_EQ(r.Status(0) + r.Status(1), 0);
  EXPECT_EQ(shown, (std::vector<std::string>{"ListDisplayAddRq Vendor ", "ListDisplayModRq Customer " + id}));
}

}  // namespace
}  // namespace tessaron::qbsim::testing
