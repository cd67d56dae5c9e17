// Loading a file that is not a good saved collection of the right kind: a clear error that
// names the file and the reason, and the collection exactly as it was before the load.
// Unknown elements are noted and passed over; the rest is read.
#include <gtest/gtest.h>

#include <algorithm>

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/values.h"
#include "tests/persistence/saved_collections.h"
#include "tests/support/raised.h"
#include "tests/support/text_match.h"

namespace tessaron {
namespace {

using testing::Contains;
using testing::FileText;
using testing::Held;
using testing::SavedCase;
using testing::SavedSession;
using testing::TempDir;
using testing::WriteFile;

// How a bad file is made from a good saved file of the collection (`good`) and of another
// collection (`other`); an empty result means no file at all.
struct BadFile {
  const char* name;
  std::function<std::string(const std::string& good, const std::string& other)> make;
  int32_t number;
  const char* reason;  // a phrase of the description
};

const int32_t kBad = static_cast<int32_t>(err::kNotASavedCollection);

const BadFile kBadFiles[] = {
    {"Missing", [](const std::string&, const std::string&) { return std::string(); },
     platform_error::kFileNotFound, "File not found"},
    {"Truncated", [](const std::string& good, const std::string&) { return good.substr(0, good.size() * 2 / 3); },
     kBad, "not well-formed"},
    {"TruncatedAfterARecord",
     [](const std::string& good, const std::string&) { return good.substr(0, good.find("QueryRs>") + 8); },
     kBad, "not well-formed"},
    {"Empty", [](const std::string&, const std::string&) { return std::string(" "); }, kBad, "not well-formed"},
    {"OfAnotherCollection", [](const std::string&, const std::string& other) { return other; }, kBad,
     "no record of this collection"},
    {"InvalidUtf8",
     [](const std::string& good, const std::string&) {
       std::string bad = good;
       bad.insert(bad.find("</Name>") != std::string::npos ? bad.find("</Name>") : bad.find("</RefNumber>"), "\xC3\x28");
       return bad;
     },
     kBad, "not UTF-8"},
    {"AQueryAnswerNotASavedFile",
     [](const std::string&, const std::string&) {
       return std::string("<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs></QBXMLMsgsRs></QBXML>");
     },
     kBad, "<Tessaron>"},
    {"AResponseWithoutARecord",
     [](const std::string& good, const std::string&) {
       std::string bad = good;
       const size_t open = bad.find("<QBXMLMsgsRq onError = \"continueOnError\">") + 41;
       bad.insert(open, "<ClassQueryRs requestID = \"9\"></ClassQueryRs>");
       return bad;
     },
     kBad, "holds no record"},
};

class BadFiles : public ::testing::TestWithParam<std::tuple<SavedCase, BadFile>> {
 protected:
  SavedSession qb;
  TempDir dir;
};

TEST_P(BadFiles, RaiseNamingTheFileAndLeaveTheCollectionAsItWas) {
  const auto& [shape, bad] = GetParam();
  Held held = shape.fill(qb);
  // The other collection: ship methods, or classes when the collection is ship methods.
  SavedSession other;
  Held foreign = testing::kSavedCases[std::string_view(shape.name) == "FlatList" ? 1 : 0].fill(other);
  foreign.xml->SaveToXml(dir.File("other.xml"));
  held.xml->SaveToXml(dir.File("good.xml"));
  held.setUserData(1, Variant(std::string("still here")));
  std::vector<std::string> before;
  for (long i = 1; i <= held.count(); ++i) before.push_back(held.fields(i));

  const std::string path = dir.File("bad.xml");
  const std::string text = bad.make(FileText(dir.File("good.xml")), FileText(dir.File("other.xml")));
  if (!text.empty()) WriteFile(path, text);

  const auto e = testing::Raised([&] { held.xml->LoadFromXml(path); });
  ASSERT_TRUE(e.has_value());
  EXPECT_EQ(e->Number(), bad.number);
  EXPECT_TRUE(Contains(e->Description(), path)) << e->Description();
  EXPECT_TRUE(Contains(e->Description(), bad.reason)) << e->Description();
  ASSERT_EQ(held.count(), static_cast<long>(before.size()));
  for (long i = 1; i <= held.count(); ++i) {
    EXPECT_EQ(held.fields(i), before[i - 1]);
    EXPECT_EQ(held.state(i), qoObjectStateClean);
  }
}

INSTANTIATE_TEST_SUITE_P(ListsAndTransactions, BadFiles,
                         ::testing::Combine(::testing::Values(testing::kSavedCases[0], testing::kSavedCases[5]),
                                            ::testing::ValuesIn(kBadFiles)),
                         [](const auto& info) {
                           return std::string(std::get<0>(info.param).name) + "_" + std::get<1>(info.param).name;
                         });

// ---- Duplicates ------------------------------------------------------------------------------

TEST(DuplicateKeys, RaiseTheCollectionsErrorAndKeepTheContent) {
  SavedSession qb;
  TempDir dir;
  Held held = testing::kSavedCases[0].fill(qb);
  held.xml->SaveToXml(dir.File("good.xml"));
  std::string text = FileText(dir.File("good.xml"));
  // The second record under the first one's name.
  const size_t second = text.find("<Name>", text.find("requestID = \"2\""));
  text.replace(second, text.find("</Name>", second) - second, "<Name>Freight");
  WriteFile(dir.File("dup.xml"), text);
  EXPECT_EQ(testing::NumberRaised([&] { held.xml->LoadFromXml(dir.File("dup.xml")); }),
            static_cast<uint32_t>(platform_error::kDuplicateKey));
  EXPECT_EQ(held.count(), 3);
  EXPECT_EQ(held.state(1), qoObjectStateClean);
}

TEST(DuplicateKeys, CustomersRaiseTheirOwnDuplicateError) {
  SavedSession qb;
  TempDir dir;
  Held held = testing::kSavedCases[2].fill(qb);
  held.xml->SaveToXml(dir.File("good.xml"));
  std::string text = FileText(dir.File("good.xml"));
  const size_t end = text.find("</CustomerQueryRs>") + std::string("</CustomerQueryRs>").size();
  const size_t begin = text.find("<CustomerQueryRs");
  text.insert(end, text.substr(begin, end - begin));
  WriteFile(dir.File("dup.xml"), text);
  const auto e = testing::Raised([&] { held.xml->LoadFromXml(dir.File("dup.xml")); });
  ASSERT_TRUE(e.has_value());
  EXPECT_EQ(e->Number(), static_cast<int32_t>(err::kDuplicateName));
  EXPECT_EQ(e->Description(), "The Customer:Job: Acme is duplicated in the QuickBooks file.");
  EXPECT_EQ(held.count(), 2);
}

// ---- Unknown elements ------------------------------------------------------------------------

class UnknownElements : public ::testing::TestWithParam<SavedCase> {
 protected:
  void SetUp() override {
    SetUnknownFieldHook([this](std::string_view message, std::string_view tag) {
      noted.push_back(std::string(message) + "|" + std::string(tag));
    });
  }
  void TearDown() override { SetUnknownFieldHook(nullptr); }
  SavedSession qb;
  TempDir dir;
  std::vector<std::string> noted;
};

TEST_P(UnknownElements, AreNotedAndTheRestIsRead) {
  Held held = GetParam().fill(qb);
  std::vector<std::string> before;
  for (long i = 1; i <= held.count(); ++i) before.push_back(held.fields(i));
  held.xml->SaveToXml(dir.File("good.xml"));
  std::string text = FileText(dir.File("good.xml"));
  // One inside the first record, one between the responses.
  const size_t firstRet = text.find("Ret>") + 4;
  text.insert(firstRet, "<FutureField>x</FutureField>");
  text.insert(text.find("<", text.find("QueryRs>") + 8), "<Note>added by hand</Note>");
  WriteFile(dir.File("more.xml"), text);
  noted.clear();

  held.xml->LoadFromXml(dir.File("more.xml"));

  ASSERT_EQ(held.count(), static_cast<long>(before.size()));
  for (long i = 1; i <= held.count(); ++i) EXPECT_EQ(held.fields(i), before[i - 1]);
  EXPECT_EQ(noted.size(), 2u);
  EXPECT_TRUE(std::find(noted.begin(), noted.end(), "Unknown Field: Note|QBXMLMsgsRq") != noted.end());
}

INSTANTIATE_TEST_SUITE_P(ListsAndTransactions, UnknownElements,
                         ::testing::Values(testing::kSavedCases[1], testing::kSavedCases[5]),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tessaron
