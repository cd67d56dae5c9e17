// The services of the connection beside opening and closing.
#include <gtest/gtest.h>

#include <fstream>

#include "tessaron/connection/library_state.h"
#include "tessaron/connection/qb_connection.h"
#include "tessaron/platform/host_services.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/scripted_processor.h"

namespace tessaron {
namespace {

using testing::ScriptedSession;

TEST(ConnectionSettings, FreshLoadDefaults) {
  ScriptedSession qb("");
  QBConnection& c = qb.connection();
  EXPECT_TRUE(c.ErrorMode());
  EXPECT_FALSE(c.DatabaseRecursiveUpdates());
  EXPECT_FALSE(c.IsRemote());
  EXPECT_FALSE(c.DBLogDetail());
  EXPECT_TRUE(c.IsUSProduct());
  EXPECT_FALSE(c.UseRequestProcessor1());
  ASSERT_NE(c.DBLog(), nullptr);
  EXPECT_EQ(c.TessaronVersion(), c.version());
  const std::string version = c.TessaronVersion();
  EXPECT_EQ(std::count(version.begin(), version.end(), '.'), 2);
}

TEST(ConnectionSettings, SettingsLiveInTheLibraryState) {
  ScriptedSession qb("");
  QBConnection& c = qb.connection();
  c.SetErrorMode(false);
  c.SetDatabaseRecursiveUpdates(true);
  c.SetIsRemote(true);
  EXPECT_EQ(c.RegisterEventGUID("{E}"), 0);
  EXPECT_EQ(c.RegisterDataExtensionsGUID("{D}"), 0);
  QBConnection other;  // a second connection sees the same session values
  EXPECT_FALSE(other.ErrorMode());
  EXPECT_TRUE(other.DatabaseRecursiveUpdates());
  EXPECT_FALSE(State().RecursiveUpdatesOff);
  EXPECT_TRUE(other.IsRemote());
  EXPECT_EQ(State().EventGUID, "{E}");
  EXPECT_EQ(State().DataExtensionsGUID, "{D}");
}

TEST(ConnectionSettings, LastOpenCompanyFileComesFromTheSettingsFile) {
  ScriptedSession qb("");
  testing::TempDir dir;
  SetQuickBooksIniPath(dir.File("qbw.ini"));
  EXPECT_EQ(qb.connection().LastOpenCompanyFile(), "");
  std::ofstream(dir.File("qbw.ini")) << "[PREFS]\nDataFile=C:\\Books\\Acme.qbw\n";
  EXPECT_EQ(qb.connection().LastOpenCompanyFile(), "C:\\Books\\Acme.qbw");
  SetQuickBooksIniPath("");
}

TEST(ConnectionSettings, TableGettersGiveTheEnumerationTables) {
  ScriptedSession qb("");
  QBConnection& c = qb.connection();
  EXPECT_EQ(c.MatchTypes()->Count(), 3);
  EXPECT_EQ(c.Operators()->Count(), 5);
  EXPECT_EQ(c.FieldNames()->Count(), 0);  // the empty table "Field", not "Field Names"
  EXPECT_EQ(c.Months()->Count(), 12);
  EXPECT_EQ(c.DateMacros()->Count(), 8);
  EXPECT_EQ(c.AvailableFields()->Count(), 90);
  EXPECT_EQ(c.ObjectTypes()->Count(), 63);
  EXPECT_EQ(c.ReportAccountFilters()->Count(), 36);
  EXPECT_EQ(c.TxnTypes().ToObject().As<QCEnum>()->Count(), 23);
  EXPECT_EQ(c.ReportDateMacros()->Item(Variant(1))->Description(), "All");
}

// ---- DisplayQBForm ----------------------------------------------------------------------------

TEST(DisplayQBForm, BelowVersion3RaisesBeforeAnythingIsSent) {
  ScriptedSession qb("2.1");
  try {
    qb.connection().DisplayQBForm(qoObjectTypeCustomer);
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), static_cast<int32_t>(0x800403EDu));
  }
  EXPECT_TRUE(qb.processor().Requests().empty());
}

struct FormCase {
  qoEnumListObjectType type;
  const char* id;
  const char* written;
  // The add form of a bill payment is asked for as "BillPaymentCheck", which the schema
  // lists only for the modify form; the request is kept as the system has always sent it.
  bool schemaValid = true;
};

class DisplayQBFormRequest : public ::testing::TestWithParam<FormCase> {};

TEST_P(DisplayQBFormRequest, AsksForTheFormOfTheType) {
  ScriptedSession qb("3.0");
  qb.connection().DisplayQBForm(GetParam().type, GetParam().id);
  EXPECT_NE(qb.processor().LastRequest().find(GetParam().written), std::string::npos) << qb.processor().LastRequest();
  if (GetParam().schemaValid) {
    EXPECT_TRUE(qb.processor().AllRequestsValid());
  }
}

INSTANTIATE_TEST_SUITE_P(
    Types, DisplayQBFormRequest,
    ::testing::Values(
        FormCase{qoObjectTypeCustomer, "", "<ListDisplayAddRq><ListDisplayAddType>Customer</ListDisplayAddType>"},
        FormCase{qoObjectTypeOtherName, "80000001-1",
                 "<ListDisplayModRq><ListDisplayModType>OtherName</ListDisplayModType><ListID>80000001-1</ListID>"},
        FormCase{qoObjectTypeInvoice, "", "<TxnDisplayAddRq><TxnDisplayAddType>Invoice</TxnDisplayAddType>"},
        FormCase{qoObjectTypeInventoryAdjustment, "12-34",
                 "<TxnDisplayModRq><TxnDisplayModType>InventoryAdjustment</TxnDisplayModType><TxnID>12-34</TxnID>"},
        FormCase{qoObjectTypeBillPayment, "", "<TxnDisplayAddType>BillPaymentCheck</TxnDisplayAddType>", false}));

TEST(DisplayQBForm, OtherTypesAreNotSupported) {
  ScriptedSession qb("3.0");
  for (auto [type, id] : {std::pair{qoObjectTypeAccount, ""}, std::pair{qoObjectTypeBillPayment, "12-34"}}) {
    try {
      qb.connection().DisplayQBForm(type, id);
      ADD_FAILURE();
    } catch (const Error& e) {
      EXPECT_EQ(e.Number(), static_cast<int32_t>(0x80040406u));
      EXPECT_EQ(e.Source(), "tessaron:QBConnection:DisplayQBForm");
    }
  }
  EXPECT_TRUE(qb.processor().Requests().empty());
}

}  // namespace
}  // namespace tessaron
