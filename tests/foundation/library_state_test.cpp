#include <gtest/gtest.h>

#include <filesystem>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/log_file.h"
#include "tessaron/platform/host_services.h"
#include "tests/support/qbxml_check.h"

namespace tessaron {
namespace {

class LibraryLoad : public ::testing::Test {
 protected:
  void SetUp() override {
    SetLibraryFolder(dir_.Path());
    ResetLibraryStateForTesting();
  }
  void TearDown() override {
    SetLibraryFolder("");
    ResetLibraryStateForTesting();
  }
  testing::TempDir dir_;
};

TEST_F(LibraryLoad, SetsTheDefaults) {
  const LibraryState& s = State();
  EXPECT_TRUE(s.ErrorMode);
  EXPECT_TRUE(s.RecursiveUpdatesOff);
  EXPECT_FALSE(s.IsConnected);
  EXPECT_FALSE(s.IsNonUSProduct);
  EXPECT_EQ(s.QBXMLVersionNumber, Currency(0));
  EXPECT_EQ(s.SessionTicket, "");
  EXPECT_EQ(s.DatabaseMode, 0);
  EXPECT_EQ(s.RequestProcessor, nullptr);
}

TEST_F(LibraryLoad, FillsTheAddressIndex) {
  const auto& index = State().AddressFieldIndex;
  ASSERT_EQ(index.Count(), 8);
  const char* names[] = {"Addr1", "Addr2", "Addr3", "Addr4", "City", "State", "PostalCode", "Country"};
  for (int i = 0; i < 8; ++i) EXPECT_EQ(index.Item(std::string_view(names[i])), i + 1) << names[i];
  EXPECT_EQ(index.Item(std::string_view("postalcode")), 7);
}

TEST_F(LibraryLoad, MakesTheMirrorsLogBesideTheLibrary) {
  const auto& log = State().DBLog;
  ASSERT_NE(log, nullptr);
  EXPECT_EQ(log->MaxKB(), 100);
  EXPECT_EQ(log->Source(), "ModAccess");
  EXPECT_EQ(log->LogPath(), dir_.Path() + "/TessaronDB.Log");
  EXPECT_TRUE(std::filesystem::exists(log->LogPath()));
}

TEST_F(LibraryLoad, AMissingLibraryFolderLeavesTheMirrorWithoutALog) {
  SetLibraryFolder(dir_.File("missing"));
  ResetLibraryStateForTesting();
  ASSERT_NE(State().DBLog, nullptr);
  EXPECT_EQ(State().DBLog->LogPath(), "");
}

TEST_F(LibraryLoad, FillsTheTablesBeforeTheFirstObjectWorks) {
  State();
  EXPECT_EQ(QBEnumerations().Count(), 56);
}

TEST_F(LibraryLoad, ResetPutsTheSessionValuesBack) {
  State().ErrorMode = false;
  State().SessionTicket = "ticket";
  State().QBXMLVersionNumber = Currency(13);
  ResetLibraryStateForTesting();
  EXPECT_TRUE(State().ErrorMode);
  EXPECT_EQ(State().SessionTicket, "");
  EXPECT_EQ(State().QBXMLVersionNumber, Currency(0));
  EXPECT_EQ(State().AddressFieldIndex.Count(), 8);
}

}  // namespace
}  // namespace tessaron
