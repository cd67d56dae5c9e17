// What the company record carries of data extensions: the owner its query asks for, its
// application fields, and the activity times read by the names of their elements.
#include <gtest/gtest.h>

#include <string>

#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_extensions.h"
#include "tessaron/platform/date.h"
#include "tests/dataext/dataext_session.h"
#include "tests/support/text_match.h"

namespace tessaron {
namespace {

using testing::Contains;
using testing::ExtRet;
using testing::kAppGuid;
using testing::ScriptedProcessor;
using testing::ScriptedSession;

TEST(CompanyQuery, AsksForTheRegisteredApplicationsFieldsAndReadsThem) {
  ScriptedSession qb("");
  State().DataExtensionsGUID = kAppGuid;
  const std::string company = ScriptedProcessor::Response(
      "CompanyQueryRs", "<CompanyRet><CompanyName>Castle</CompanyName>" + ExtRet(kAppGuid, "Licence", "STR255TYPE", "A-1") +
                            ExtRet("0", "Public", "STR255TYPE", "x") + "</CompanyRet>");
  ASSERT_TRUE(testing::IsValidQbxml(company));
  qb.processor().RespondTo("CompanyQueryRq", company);
  qb.processor().SetVersions({"3.0"});
  TessaronGlobals::QBConnect("Tests", "Tessaron tests", qbFileOpenDoNotCare);
  bool asked = false;
  for (const std::string& r : qb.processor().Requests())
    if (Contains(r, std::string("<CompanyQueryRq><OwnerID>") + kAppGuid + "</OwnerID></CompanyQueryRq>")) asked = true;
  EXPECT_TRUE(asked);
  auto fields = TessaronGlobals::Company()->CompanyApplicationFields();
  ASSERT_EQ(fields->Count(), 1);
  EXPECT_EQ(fields->Item(Variant("Licence"))->Value().ToString(), "A-1");
  State().GlobalConnection.reset();
}

TEST(CompanyQuery, WithoutAGuidAsksForNoOwner) {
  ScriptedSession fresh("");
  fresh.processor().SetVersions({"3.0"});
  TessaronGlobals::QBConnect("Tests", "Tessaron tests", qbFileOpenDoNotCare);
  for (const std::string& r : fresh.processor().Requests()) EXPECT_FALSE(Contains(r, "OwnerID"));
  State().GlobalConnection.reset();
}

TEST(CompanyActivity, ACompanyCondensedButNeverRestoredGivesItsCondenseTime) {
  testing::DataExtSession qb("3.0");
  const std::string activity = ScriptedProcessor::Response(
      "CompanyActivityQueryRs", "<CompanyActivityRet><LastCondenseTime>2005-01-02T03:04:05</LastCondenseTime>"
                                "</CompanyActivityRet>");
  ASSERT_TRUE(testing::IsValidQbxml(activity));
  qb.processor().RespondTo("CompanyActivityQueryRq", activity);
  EXPECT_EQ(qb.company()->LastCondenseTime(), DateSerial(2005, 1, 2) + TimeSerial(3, 4, 5));
  EXPECT_EQ(qb.company()->LastRestoreTime(), kNullDate);
}

}  // namespace
}  // namespace tessaron
