// List queries and references: what each query sends, what it drops, when it sends
// nothing, and how references find their targets.
#include <gtest/gtest.h>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/query_mirror.h"
#include "tessaron/lists/class.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tests/support/list_session.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {
namespace {

using testing::ListSession;
using testing::Ret;
using testing::ScriptedProcessor;

std::string ClassRet(const std::string& id, const std::string& name, const std::string& parent = "") {
  std::string more = "<Name>" + name.substr(name.rfind(':') == std::string::npos ? 0 : name.rfind(':') + 1) +
                     "</Name><FullName>" + name + "</FullName><IsActive>true</IsActive>";
  if (!parent.empty()) more += "<ParentRef><FullName>" + parent + "</FullName></ParentRef>";
  return Ret("Class", id, more);
}

std::string Classes3() {
  return ScriptedProcessor::Response("ClassQueryRs", ClassRet("1-1", "Sales") + ClassRet("2-1", "Sales:East", "Sales") +
                                                         ClassRet("3-1", "Orphan:Child", "Orphan"));
}

class QueryTest : public ::testing::Test {
 protected:
  ListSession qb;
  std::shared_ptr<Classes> classes = qb.Register<Classes>();
  const std::string& Sent() { return qb.processor().LastRequest(); }
  bool SentHas(const std::string& text) { return Sent().find(text) != std::string::npos; }
};

TEST_F(QueryTest, GetAllReplacesTheContentAndLinksChildrenToLoadedParents) {
  classes->Add("Uncommitted");
  qb.Answer(Classes3());
  EXPECT_EQ(classes->GetAll(), 3);
  EXPECT_FALSE(classes->ItemExists(Variant("Uncommitted")));
  EXPECT_TRUE(SentHas("<ClassQueryRq requestID = \"1\"><ActiveStatus>All</ActiveStatus></ClassQueryRq>")) << Sent();
  EXPECT_EQ(classes->Item(Variant("sales"))->Children()->Count(), 1);
  EXPECT_TRUE(classes->Item(Variant("Sales"))->Children()->ItemExists(Variant("Sales:East")));
  EXPECT_EQ(classes->Item(Variant("Orphan:Child"))->ObjectState(), qoObjectStateClean);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST_F(QueryTest, StatusQueriesDropMaxReturned) {
  qb.Answer(Classes3());
  EXPECT_EQ(classes->GetActive(5), 3);
  EXPECT_TRUE(SentHas("<ActiveStatus>ActiveOnly</ActiveStatus>"));
  EXPECT_FALSE(SentHas("MaxReturned"));
}

struct FilterCase {
  const char* name;
  std::function<void(Classes&)> call;
  const char* expected;
};
class QueryFilterTest : public QueryTest, public ::testing::WithParamInterface<FilterCase> {};

TEST_P(QueryFilterTest, WritesTheFilterInsideAHandBuiltQuery) {
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", ClassRet("1-1", "Sales")));
  GetParam().call(*classes);
  EXPECT_TRUE(SentHas(GetParam().expected)) << Sent();
  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_EQ(classes->Count(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Filters, QueryFilterTest,
    ::testing::Values(
        FilterCase{"RangeWithoutLimit", [](Classes& c) { c.GetByNameRange("A", "M"); },
                   "<ClassQueryRq><NameRangeFilter><FromName>A</FromName><ToName>M</ToName></NameRangeFilter>"
                   "</ClassQueryRq>"},
        FilterCase{"RangeWithLimit", [](Classes& c) { c.GetByNameRange("A", "M", 7); },
                   "<ClassQueryRq><MaxReturned>7</MaxReturned><NameRangeFilter>"},
        FilterCase{"NegativeLimit", [](Classes& c) { c.GetByNameRange("A", "M", -1); }, "<ClassQueryRq><NameRangeFilter>"},
        FilterCase{"Match", [](Classes& c) { c.GetByNameMatch("Sa", qbMatchContains, 2); },
                   "<ClassQueryRq><MaxReturned>2</MaxReturned><NameFilter><MatchCriterion>Contains</MatchCriterion>"
                   "<Name>Sa</Name></NameFilter></ClassQueryRq>"},
        FilterCase{"DateSpan",
                   [](Classes& c) { c.GetByDateSpan(DateSerial(2004, 2, 1), DateSerial(2004, 3, 1) + 0.5); },
                   "<ClassQueryRq><FromModifiedDate>2004-02-01T00:00:00</FromModifiedDate>"
                   "<ToModifiedDate>2004-03-01T12:00:00</ToModifiedDate></ClassQueryRq>"},
        FilterCase{"OpenDateSpan", [](Classes& c) { c.GetByDateSpan(DateSerial(2004, 2, 1), 0); },
                   "<FromModifiedDate>2004-02-01T00:00:00</FromModifiedDate></ClassQueryRq>"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(QueryTest, GetByFullNameOfALoadedRecordSendsNothingEvenWithAPath) {
  qb.Answer(Classes3());
  classes->GetAll();
  qb.processor().ClearRecords();
  auto found = classes->GetByFullName("sales:east", "/tmp/mirror.db");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->ListID(), "2-1");
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST_F(QueryTest, GetByFullNameAndListIdOfTheEmptyTextSendNothing) {
  EXPECT_EQ(classes->GetByFullName(""), nullptr);
  EXPECT_EQ(classes->GetByListID(""), nullptr);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST_F(QueryTest, GetByFullNameQueriesOnceAndAppends) {
  qb.Answer(Classes3());
  classes->GetAll();
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", ClassRet("9-1", "Admin")));
  auto found = classes->GetByFullName("Admin");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(classes->Count(), 4);
  EXPECT_TRUE(SentHas("<ClassQueryRq requestID = \"1\"><FullName>Admin</FullName></ClassQueryRq>"));
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST_F(QueryTest, RecordNotOnFileGivesNullAndAnError) {
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", "", 500, "The query request has not been fully completed."));
  EXPECT_EQ(classes->GetByFullName("Nobody"), nullptr);
  ASSERT_EQ(classes->Errors()->Count(), 1);
  EXPECT_EQ(classes->Errors()->Item(1)->Number(), 500);
}

TEST_F(QueryTest, GetByListIdFindsALoadedRecordWithoutARequest) {
  qb.Answer(Classes3());
  classes->GetAll();
  qb.processor().ClearRecords();
  EXPECT_EQ(classes->GetByListID("2-1"), classes->Item(Variant("Sales:East")));
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST_F(QueryTest, QueryWithAPathHandsTheResponseToTheMirror) {
  qb.Answer(Classes3());
  try {
    classes->GetAll(0, "/tmp/mirror.db");
    FAIL() << "no raise";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), static_cast<int32_t>(err::kFeatureNotSupported));
  }
  struct Recorder : QueryMirror {
    std::string seen;
    void UpdateDatabase(const XmlNode& rs, const std::string& path, const std::string& name) override {
      seen = std::string(rs.baseName()) + "|" + path + "|" + name + "|" + std::to_string(rs.childNodes().length());
    }
  };
  auto recorder = std::make_shared<Recorder>();
  SetQueryMirror(recorder);
  qb.Answer(Classes3());
  EXPECT_EQ(classes->GetAll(0, "/tmp/mirror.db"), 0);
  SetQueryMirror(nullptr);
  EXPECT_EQ(recorder->seen, "ClassQueryRs|/tmp/mirror.db|Class|3");
}

TEST_F(QueryTest, QuickBooksErrorOfAQueryIsCollectedNotRaised) {
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", "", 3120, "bad"));
  EXPECT_EQ(classes->GetAll(), 0);
  ASSERT_EQ(classes->Errors()->Count(), 1);
  EXPECT_EQ(classes->Errors()->Item(1)->Description(), "bad");
}

// ---- Parents and references --------------------------------------------------------------

TEST_F(QueryTest, ValidateOfAChildWithAnUnloadedParentSendsExactlyOneQuery) {
  auto child = classes->Add("East", true, "Sales");
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", ClassRet("1-1", "Sales")));
  EXPECT_TRUE(child->Validate());
  EXPECT_EQ(qb.processor().Requests().size(), 1u);
  EXPECT_TRUE(classes->ItemExists(Variant("Sales")));
  EXPECT_TRUE(child->Validate());  // now loaded: no second query
  EXPECT_EQ(qb.processor().Requests().size(), 1u);
}

TEST_F(QueryTest, ValidateReportsAParentThatIsNotOnFile) {
  auto child = classes->Add("East", true, "Nowhere");
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", "", 500, "not found"));
  EXPECT_FALSE(child->Validate());
  EXPECT_EQ(child->Errors()->Item(1)->Description(), "Invalid parent specified");
  EXPECT_EQ(child->Errors()->Item(1)->Field(), "Parent");
}

TEST_F(QueryTest, CommitOfAChildWhoseParentIsQueriedStillSendsOneWellFormedMessage) {
  auto child = classes->Add("East", true, "Sales");
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", ClassRet("1-1", "Sales")));
  qb.Answer(ScriptedProcessor::Response("ClassAddRs", ClassRet("2-1", "Sales:East", "Sales")));
  EXPECT_EQ(classes->Commit(), 0);
  EXPECT_EQ(child->ObjectState(), qoObjectStateClean);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_TRUE(SentHas("<ClassAdd><Name>East</Name><IsActive>1</IsActive><ParentRef><FullName>Sales</FullName>"));
}

TEST_F(QueryTest, AddLinksTheChildToALoadedParentOnly) {
  qb.Answer(Classes3());
  classes->GetAll();
  classes->Add("West", true, "Sales");
  classes->Add("Lost", true, "Nowhere");
  EXPECT_TRUE(classes->Item(Variant("Sales"))->Children()->ItemExists(Variant("Sales:West")));
}

TEST_F(QueryTest, ReferenceObjectQueriesOnceWhenTheRecordExists) {
  qcListObjectRef ref(qoListClasses);
  detail::ListObjectAccess::SetFullName(ref, "Sales");
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", ClassRet("1-1", "Sales")));
  ASSERT_NE(ref.Object(), nullptr);
  ASSERT_NE(ref.Object(), nullptr);
  EXPECT_EQ(qb.processor().Requests().size(), 1u);
}

TEST_F(QueryTest, ReferenceObjectQueriesOnEachReadWhenTheRecordIsMissing) {
  qcListObjectRef ref(qoListClasses);
  detail::ListObjectAccess::SetFullName(ref, "Nobody");
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", "", 500, "not found"));
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", "", 500, "not found"));
  EXPECT_EQ(ref.Object(), nullptr);
  EXPECT_EQ(ref.Object(), nullptr);
  EXPECT_EQ(qb.processor().Requests().size(), 2u);
}

TEST_F(QueryTest, ReferenceWithOnlyAListIdResolvesOnlyThroughResolveListRef) {
  qcListObjectRef ref(qoListClasses);
  detail::ListObjectAccess::SetListID(ref, "1-1");
  EXPECT_EQ(ref.Object(), nullptr);
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", ClassRet("1-1", "Sales")));
  auto found = ResolveListRef(ref);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->FullName(), "Sales");
  EXPECT_TRUE(SentHas("<ListID>1-1</ListID>"));
}

TEST_F(QueryTest, ResolveByFullNameFillsTheListId) {
  qcListObjectRef ref(qoListClasses);
  detail::ListObjectAccess::SetFullName(ref, "Sales");
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", ClassRet("1-1", "Sales")));
  EXPECT_TRUE(IsListRefValid(ref));
  EXPECT_EQ(ref.ListID(), "1-1");
}

TEST_F(QueryTest, ReferenceToAListThatIsNotRegisteredRaises) {
  qcListObjectRef ref(qoListTerms);
  detail::ListObjectAccess::SetFullName(ref, "Net 30");
  EXPECT_THROW(ref.Object(), Error);
}

struct RefCase {
  const char* fullName;
  const char* listId;
  bool force;
  const char* expected;
};
class WriteListRefTest : public QueryTest, public ::testing::WithParamInterface<RefCase> {};

TEST_P(WriteListRefTest, WritesFullNameFirstThenListId) {
  qcListObjectRef ref(qoListTerms);
  detail::ListObjectAccess::SetFullName(ref, GetParam().fullName);
  detail::ListObjectAccess::SetListID(ref, GetParam().listId);
  xmlBldr b;
  WriteListRef(ref, b, "TermsRef", GetParam().force);
  EXPECT_EQ(b.GetXML().ToString(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Refs, WriteListRefTest,
                         ::testing::Values(RefCase{"Net 30", "T-1", false, "<TermsRef><FullName>Net 30</FullName></TermsRef>"},
                                           RefCase{"", "T-1", false, "<TermsRef><ListID>T-1</ListID></TermsRef>"},
                                           RefCase{"", "", false, ""},
                                           RefCase{"", "", true, "<TermsRef><FullName></FullName></TermsRef>"}));

TEST_F(QueryTest, WriteListRefBelowItsVersionWritesNothing) {
  qcListObjectRef ref(qoListTerms);
  detail::ListObjectAccess::SetFullName(ref, "Net 30");
  xmlBldr b;
  WriteListRef(ref, b, "TermsRef", false, Currency(3));
  EXPECT_EQ(b.GetXML().ToString(), "");
}

TEST_F(QueryTest, RefsCollectionKeysByFullName) {
  qcListObjectRefs refs;
  EXPECT_EQ(refs.Count(), 0);
  refs.Add("A", qoListClasses);
  EXPECT_THROW(refs.Add("a", qoListClasses), Error);
  EXPECT_TRUE(refs.ItemExists(Variant("A")));
  EXPECT_FALSE(refs.ItemExists(Variant("B")));
}

}  // namespace
}  // namespace tessaron
