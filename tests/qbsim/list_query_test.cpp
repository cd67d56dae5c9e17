// List queries: every filter, the key queries, the families that span several kinds.
#include <algorithm>
#include <cctype>
#include <set>

#include "tessaron/platform/date.h"
#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {
namespace {

std::vector<std::string> FullNames(const Response& r) {
  std::vector<std::string> names;
  for (pugi::xml_node rec : r.Records())
    names.push_back(rec.child("FullName") ? rec.child_value("FullName") : rec.child_value("Name"));
  return names;
}

// The sample's classes (Retail, Trade, Trade:Export) and three more: Zeta (inactive),
// Zeta:North and Zeta:South.
class ClassQueryTest : public QbsimTest {
 protected:
  void SetUp() override {
    QbsimTest::SetUp();
    SetClockForTesting(DateSerial(2024, 3, 1) + TimeSerial(9, 0, 0));
    Open();
    SetClockForTesting(DateSerial(2024, 3, 2) + TimeSerial(9, 0, 0));
    Response r = Send("<ClassAddRq requestID=\"1\"><ClassAdd><Name>Zeta</Name><IsActive>0</IsActive></ClassAdd></ClassAddRq>"
                      "<ClassAddRq requestID=\"2\"><ClassAdd><Name>North</Name><IsActive>1</IsActive>"
                      "<ParentRef><FullName>Zeta</FullName></ParentRef></ClassAdd></ClassAddRq>"
                      "<ClassAddRq requestID=\"3\"><ClassAdd><Name>South</Name><IsActive>1</IsActive>"
                      "<ParentRef><FullName>Zeta</FullName></ParentRef></ClassAdd></ClassAddRq>");
    ASSERT_EQ(r.Status(0) + r.Status(1) + r.Status(2), 0) << r.Text();
  }
  void TearDown() override {
    SetClockForTesting(0);
    QbsimTest::TearDown();
  }
};

struct QueryCase {
  const char* name;
  const char* children;
  std::vector<std::string> expected;
  int status = 0;
};

class ClassFilterTest : public ClassQueryTest, public ::testing::WithParamInterface<QueryCase> {};

TEST_P(ClassFilterTest, AnswersTheRecordsTheFilterSelectsInHierarchyOrder) {
  const QueryCase& c = GetParam();
  Response r = Send(std::string("<ClassQueryRq>") + c.children + "</ClassQueryRq>");
  EXPECT_EQ(r.Status(), c.status) << r.Message();
  EXPECT_EQ(FullNames(r), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Filters, ClassFilterTest,
    ::testing::Values(
        QueryCase{"ActiveByDefault", "", {"Retail", "Trade", "Trade:Export", "Zeta:North", "Zeta:South"}},
        QueryCase{"All", "<ActiveStatus>All</ActiveStatus>",
                  {"Retail", "Trade", "Trade:Export", "Zeta", "Zeta:North", "Zeta:South"}},
        QueryCase{"InactiveOnly", "<ActiveStatus>InactiveOnly</ActiveStatus>", {"Zeta"}},
        QueryCase{"FullNameIgnoresCaseAndActiveStatus", "<FullName>zeta</FullName>", {"Zeta"}},
        QueryCase{"SeveralFullNames", "<FullName>Trade:Export</FullName><FullName>Retail</FullName>",
                  {"Trade:Export", "Retail"}},
        QueryCase{"FullNameNotOnFile", "<FullName>Nowhere</FullName>", {}, 500},
        QueryCase{"StartsWith",
                  "<NameFilter><MatchCriterion>StartsWith</MatchCriterion><Name>ze</Name></NameFilter>",
                  {"Zeta:North", "Zeta:South"}},
        QueryCase{"Contains", "<NameFilter><MatchCriterion>Contains</MatchCriterion><Name>EXPORT</Name></NameFilter>",
                  {"Trade:Export"}},
        QueryCase{"EndsWith", "<NameFilter><MatchCriterion>EndsWith</MatchCriterion><Name>south</Name></NameFilter>",
                  {"Zeta:South"}},
        QueryCase{"NoMatch", "<NameFilter><MatchCriterion>StartsWith</MatchCriterion><Name>q</Name></NameFilter>",
                  {}, 1},
        QueryCase{"NameRangeIncludesNamesBeginningWithTheEnd",
                  "<NameRangeFilter><FromName>S</FromName><ToName>Trade</ToName></NameRangeFilter>",
                  {"Trade", "Trade:Export"}},
        QueryCase{"NameRangeOpenEnded", "<ActiveStatus>All</ActiveStatus><NameRangeFilter><FromName>Z</FromName></NameRangeFilter>",
                  {"Zeta", "Zeta:North", "Zeta:South"}},
        QueryCase{"MaxReturned", "<MaxReturned>2</MaxReturned><ActiveStatus>All</ActiveStatus>", {"Retail", "Trade"}},
        QueryCase{"MaxReturnedCountsWhatPassesTheNameFilter",
                  "<MaxReturned>1</MaxReturned><NameFilter><MatchCriterion>Contains</MatchCriterion><Name>th</Name>"
                  "</NameFilter>",
                  {"Zeta:North"}},
        QueryCase{"ModifiedFromTheDayOfTheAdds", "<FromModifiedDate>2024-03-02T00:00:00</FromModifiedDate>",
                  {"Zeta:North", "Zeta:South"}},
        QueryCase{"ModifiedUpToADateTakesTheWholeDay",
                  "<ActiveStatus>All</ActiveStatus><ToModifiedDate>2024-03-01</ToModifiedDate>",
                  {"Retail", "Trade", "Trade:Export"}},
        QueryCase{"ModifiedInTheFuture", "<FromModifiedDate>2030-01-01T00:00:00</FromModifiedDate>", {}, 1}),
    [](const ::testing::TestParamInfo<QueryCase>& info) { return std::string(info.param.name); });

TEST_F(ClassQueryTest, ListIdsFindTheirRecordsAndAnUnknownOneIsNotFound) {
  auto [north, seq1] = Key("Class", "Zeta:North");
  auto [retail, seq2] = Key("Class", "Retail");
  Response r = Send("<ClassQueryRq requestID=\"1\"><ListID>" + north + "</ListID><ListID>" + retail +
                    "</ListID></ClassQueryRq>");
  EXPECT_EQ(FullNames(r), (std::vector<std::string>{"Zeta:North", "Retail"}));
  Response missing = Send("<ClassQueryRq requestID=\"1\"><ListID>80FFFFFF-1234567890</ListID></ClassQueryRq>");
  EXPECT_EQ(missing.Status(), status::kNotFoundByKey);
  EXPECT_STREQ(missing.Rs().attribute("statusSeverity").value(), "Warn");
}

TEST_F(ClassQueryTest, AListIdOfAnotherListIsNotFound) {
  auto [account, seq] = Key("Account", "Checking");
  Response r = Send("<ClassQueryRq requestID=\"1\"><ListID>" + account + "</ListID></ClassQueryRq>");
  EXPECT_EQ(r.Status(), status::kNotFoundByKey);
}

class ListQueryTest : public QbsimTest {
 protected:
  void SetUp() override {
    QbsimTest::SetUp();
    Open();
  }
};

TEST_F(ListQueryTest, AccountTypeSelectsAccountsOfThatType) {
  Response r = Send("<AccountQueryRq><AccountType>Bank</AccountType></AccountQueryRq>");
  EXPECT_EQ(FullNames(r), (std::vector<std::string>{"Checking", "Savings"}));
  EXPECT_EQ(r.Value("AccountRet/Balance"), "25000.00");
}

TEST_F(ListQueryTest, EveryAccountTypeIsOnTheSampleChart) {
  Response r = Send("<AccountQueryRq><ActiveStatus>All</ActiveStatus></AccountQueryRq>");
  std::set<std::string> types;
  for (pugi::xml_node rec : r.Records()) types.insert(rec.child_value("AccountType"));
  EXPECT_EQ(types.size(), 16u);
}

TEST_F(ListQueryTest, TotalBalanceFilterComparesTheBalanceWithJobs) {
  Response added = Send(
      "<CustomerAddRq requestID=\"1\"><CustomerAdd><Name>Balance Test</Name><OpenBalance>100.00</OpenBalance>"
      "</CustomerAdd></CustomerAddRq>"
      "<CustomerAddRq requestID=\"2\"><CustomerAdd><Name>Job</Name><ParentRef><FullName>Balance Test</FullName>"
      "</ParentRef><OpenBalance>250.50</OpenBalance></CustomerAdd></CustomerAddRq>");
  ASSERT_EQ(added.Status(0) + added.Status(1), 0) << added.Text();
  Response r = Send("<CustomerQueryRq><NameFilter><MatchCriterion>StartsWith</MatchCriterion><Name>Balance Test</Name>"
                    "</NameFilter><TotalBalanceFilter><Operator>GreaterThan</Operator><Amount>300.00</Amount>"
                    "</TotalBalanceFilter></CustomerQueryRq>");
  EXPECT_EQ(FullNames(r), (std::vector<std::string>{"Balance Test"}));
  EXPECT_EQ(r.Value("CustomerRet/Balance"), "100.00");
  EXPECT_EQ(r.Value("CustomerRet/TotalBalance"), "350.50");
}

TEST_F(ListQueryTest, DoneStatusSelectsToDoNotes) {
  Response done = Send("<ToDoQueryRq><DoneStatus>DoneOnly</DoneStatus></ToDoQueryRq>");
  ASSERT_EQ(done.Records().size(), 1u);
  EXPECT_EQ(done.Value("ToDoRet/IsDone"), "true");
  Response all = Send("<ToDoQueryRq><DoneStatus>All</DoneStatus></ToDoQueryRq>");
  EXPECT_EQ(all.Records().size(), 2u);
}

TEST_F(ListQueryTest, EntityQueryAnswersCustomersEmployeesOtherNamesAndVendors) {
  Response r = Send("<EntityQueryRq><ActiveStatus>All</ActiveStatus></EntityQueryRq>");
  std::set<std::string> tags;
  for (pugi::xml_node rec : r.Records()) tags.insert(rec.name());
  EXPECT_EQ(tags, (std::set<std::string>{"CustomerRet", "EmployeeRet", "OtherNameRet", "VendorRet"}));
}

TEST_F(ListQueryTest, ItemQueryAnswersEveryKindAndFindsAnyKindByName) {
  Response r = Send("<ItemQueryRq/>");
  std::set<std::string> tags;
  for (pugi::xml_node rec : r.Records()) tags.insert(rec.name());
  EXPECT_EQ(tags.size(), 12u);
  Response byName = Send("<ItemQueryRq requestID=\"1\"><FullName>Labor:Installation</FullName></ItemQueryRq>");
  EXPECT_STREQ(byName.Records().at(0).name(), "ItemServiceRet");
  Response one = Send("<ItemServiceQueryRq/>");
  for (pugi::xml_node rec : one.Records()) EXPECT_STREQ(rec.name(), "ItemServiceRet");
}

TEST_F(ListQueryTest, ItemQueryListsAllKindsInOneListOrderWithSubItemsBelowTheirParents) {
  Response r = Send("<ItemQueryRq/>");
  std::vector<std::string> names;
  std::set<std::string> kindsSeen;
  for (pugi::xml_node rec : r.Records()) {
    // Items without a hierarchy answer no FullName: their Name is their full name.
    const char* full = rec.child("FullName") ? rec.child_value("FullName") : rec.child_value("Name");
    names.emplace_back(full);
    kindsSeen.insert(rec.name());
  }
  ASSERT_GT(names.size(), 12u);
  EXPECT_EQ(kindsSeen.size(), 12u);
  // One order over every kind: the names compare without regard to case, and a sub-item
  // follows its parent before any name that merely starts the same way.
  auto key = [](std::string s) {
    for (char& c : s) c = c == ':' ? '\x01' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
  };
  for (size_t i = 1; i < names.size(); ++i) EXPECT_LT(key(names[i - 1]), key(names[i])) << names[i - 1] << " / " << names[i];
  auto at = [&](const std::string& n) { return std::find(names.begin(), names.end(), n) - names.begin(); };
  EXPECT_EQ(at("Hardware:Hinges"), at("Hardware") + 1);
  EXPECT_EQ(at("Labor:Installation"), at("Labor") + 1);
}

TEST_F(ListQueryTest, TermsQueryAnswersBothKinds) {
  Response r = Send("<TermsQueryRq/>");
  std::set<std::string> tags;
  for (pugi::xml_node rec : r.Records()) tags.insert(rec.name());
  EXPECT_EQ(tags, (std::set<std::string>{"StandardTermsRet", "DateDrivenTermsRet"}));
  Response dd = Send("<DateDrivenTermsQueryRq/>");
  EXPECT_EQ(FullNames(dd), (std::vector<std::string>{"15th of next month"}));
}

TEST_F(ListQueryTest, DuplicateFullNamesInADamagedFileAreAnsweredBoth) {
  auto [id, seq] = Key("Customer", "Amber Bakery");
  ASSERT_FALSE(id.empty());
  AddDuplicateCustomerForTesting(path_, "Amber Bakery");
  Response r = Send("<CustomerQueryRq><FullName>Amber Bakery</FullName></CustomerQueryRq>");
  EXPECT_EQ(FullNames(r), (std::vector<std::string>{"Amber Bakery", "Amber Bakery"}));
}

TEST_F(ListQueryTest, TaxCodesAreAListOfTheEditionsOutsideTheUS) {
  // Strict mode takes the request, which the library sends in every edition; neither it nor
  // its answer is in the schema of the US edition.
  Response us(processor_->ProcessRequest(ticket_, Message("<TaxCodeQueryRq/>")));
  EXPECT_EQ(us.Status(), status::kNotSupported);
}

TEST_F(ListQueryTest, SampleCustomersHaveJobsThreeLevelsDeep) {
  Response r = Send("<CustomerQueryRq><ActiveStatus>All</ActiveStatus></CustomerQueryRq>");
  EXPECT_EQ(r.Records().size(), 60u);
  int deepest = 0;
  for (pugi::xml_node rec : r.Records()) deepest = std::max(deepest, rec.child("Sublevel").text().as_int());
  EXPECT_EQ(deepest, 2);
}

TEST(ListQueryEditions, TaxCodesAreAnsweredOutsideTheUS) {
  tessaron::testing::TempDir dir;
  SampleOptions s;
  s.edition = Edition::CA;
  CreateSampleCompany(dir.File("ca.qbw"), s);
  ProcessorOptions o;
  o.strict = true;
  auto p = CreateProcessor(o);
  p->OpenConnection("", "test");
  std::string ticket = p->BeginSession(dir.File("ca.qbw"), 0);
  // TaxCodeQueryRs is not in the schema of the US edition, so this answer is not checked against it.
  Response r(p->ProcessRequest(ticket, Message("<TaxCodeQueryRq/>", "CA4.0")));
  EXPECT_EQ(r.Status(), 0);
  EXPECT_EQ(FullNames(r), (std::vector<std::string>{"E", "S", "Z"}));
}

}  // namespace
}  // namespace tessaron::qbsim::testing
