// Commit of a master collection: request ids are positions, responses find their objects
// by position, failures are collected per object, ErrorMode decides what is raised.
#include <gtest/gtest.h>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/class.h"
#include "tests/support/list_session.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {
namespace {

using testing::Batch;
using testing::ListSession;
using testing::ResponseElement;
using testing::Ret;
using testing::ScriptedProcessor;

std::string ClassRet(const std::string& id, const std::string& name) {
  return Ret("Class", id, "<Name>" + name + "</Name><FullName>" + name + "</FullName><IsActive>true</IsActive><Sublevel>0</Sublevel>");
}

int32_t N(uint32_t number) { return static_cast<int32_t>(number); }

class CommitTest : public ::testing::Test {
 protected:
  ListSession qb;
  std::shared_ptr<Classes> classes = qb.Register<Classes>();
};

TEST_F(CommitTest, SendsOnlyValidObjectsWithTheirPositionsAsRequestIds) {
  auto a = classes->Add("Alpha");
  auto bad = classes->Add("");
  auto c = classes->Add("Gamma");
  qb.Answer(Batch({ResponseElement("ClassAddRs", 1, 0, ClassRet("10-1", "Alpha")),
                                      ResponseElement("ClassAddRs", 3, 0, ClassRet("30-1", "Gamma"))}));
  State().ErrorMode = false;

  EXPECT_EQ(classes->Commit(), 1);

  ASSERT_EQ(qb.processor().Requests().size(), 1u);
  const std::string& sent = qb.processor().LastRequest();
  EXPECT_NE(sent.find("<ClassAddRq requestID = \"1\"><ClassAdd><Name>Alpha</Name>"), std::string::npos) << sent;
  EXPECT_NE(sent.find("<ClassAddRq requestID = \"3\"><ClassAdd><Name>Gamma</Name>"), std::string::npos) << sent;
  EXPECT_EQ(sent.find("requestID = \"2\""), std::string::npos);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_EQ(a->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(a->ListID(), "10-1");
  EXPECT_EQ(bad->ObjectState(), qoObjectStateNew);
  EXPECT_EQ(c->ListID(), "30-1");
  ASSERT_EQ(classes->Errors()->Count(), 1);
  EXPECT_EQ(classes->Errors()->Item(1)->Number(), N(err::kValidateFailed));
  EXPECT_EQ(bad->Errors()->Item(1)->Description(), "Name cannot be null");
}

TEST_F(CommitTest, ErrorModeRaisesAfterTheGoodObjectsWereCommitted) {
  auto a = classes->Add("Alpha");
  classes->Add("");
  qb.Answer(Batch({ResponseElement("ClassAddRs", 1, 0, ClassRet("10-1", "Alpha"))}));
  try {
    classes->Commit();
    FAIL() << "no raise";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), N(err::kCommitErrors));
    EXPECT_EQ(e.Source(), "Class");
  }
  EXPECT_EQ(a->ObjectState(), qoObjectStateClean);
}

TEST_F(CommitTest, CommitKeepsObjectNewWhenStatusIs3100) {
  auto a = classes->Add("Alpha");
  qb.Answer(
      Batch({ResponseElement("ClassAddRs", 1, 3100, "", "The name &quot;Alpha&quot; of the list element is already in use.")}));
  State().ErrorMode = false;

  EXPECT_EQ(classes->Commit(), 1);

  EXPECT_EQ(a->ObjectState(), qoObjectStateNew);
  ASSERT_EQ(a->Errors()->Count(), 1);
  EXPECT_EQ(a->Errors()->Item(1)->Number(), N(err::kDuplicateName));
  EXPECT_EQ(a->Errors()->Item(1)->Field(), "Name");
  EXPECT_EQ(a->Errors()->Item(1)->Description(), "Name specified already exists on file");
  EXPECT_EQ(classes->Errors()->Item(1)->Number(), N(err::kCommitFailed));
  EXPECT_EQ(classes->Errors()->Item(1)->Field(), "Alpha");
}

struct StatusMessageCase {
  const char* sent;
  const char* stored;
};
class CommitMessageTest : public CommitTest, public ::testing::WithParamInterface<StatusMessageCase> {};

TEST_P(CommitMessageTest, StoresTheStatusMessageWithoutTheQuickBooksPrefix) {
  auto a = classes->Add("Alpha");
  qb.Answer(Batch({ResponseElement("ClassAddRs", 1, 3000, "", GetParam().sent)}));
  State().ErrorMode = false;
  classes->Commit();
  ASSERT_EQ(a->Errors()->Count(), 1);
  EXPECT_EQ(a->Errors()->Item(1)->Number(), N(err::kDatabaseOpenFailed));
  EXPECT_EQ(a->Errors()->Item(1)->Field(), "QuickBooks: ");
  EXPECT_EQ(a->Errors()->Item(1)->Description(), GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(Messages, CommitMessageTest,
                         ::testing::Values(StatusMessageCase{"QuickBooks error message: Bad parent", "Bad parent"},
                                           StatusMessageCase{"Bad parent", "Bad parent"},
                                           StatusMessageCase{"Said: QuickBooks error message: x", "x"}));

TEST_F(CommitTest, ErrorModeOffReturnsTheCountWithoutRaising) {
  classes->Add("");
  classes->Add("");
  State().ErrorMode = false;
  EXPECT_EQ(classes->Commit(), 2);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST_F(CommitTest, ParentLookupDuringCommitKeepsTheFailuresGatheredBeforeIt) {
  classes->Add("");
  auto child = classes->Add("East", true, "Sales");
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", ClassRet("1-1", "Sales")));
  qb.Answer(Batch({ResponseElement("ClassAddRs", 2, 0, ClassRet("20-1", "East"))}));
  State().ErrorMode = false;

  EXPECT_EQ(classes->Commit(), 1);

  ASSERT_EQ(classes->Errors()->Count(), 1);
  EXPECT_EQ(classes->Errors()->Item(1)->Number(), N(err::kValidateFailed));
  EXPECT_EQ(child->ObjectState(), qoObjectStateClean);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST_F(CommitTest, ParentLookupDuringValidateKeepsTheFailuresGatheredBeforeIt) {
  classes->Add("");
  classes->Add("East", true, "Sales");
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", ClassRet("1-1", "Sales")));

  EXPECT_FALSE(classes->Validate());

  ASSERT_EQ(classes->Errors()->Count(), 1);
  EXPECT_EQ(classes->Errors()->Item(1)->Number(), N(err::kValidateFailed));
}

TEST_F(CommitTest, CommitOfOnlyCleanObjectsSendsNothing) {
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", ClassRet("1-1", "A") + ClassRet("2-1", "B")));
  classes->GetAll();
  qb.processor().ClearRecords();
  EXPECT_EQ(classes->Commit(), 0);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST_F(CommitTest, DirtyObjectOfAListWithoutModifyRaises) {
  auto a = classes->Add("Alpha");
  detail::ListObjectAccess::SetObjectState(*a, qoObjectStateDirty);
  try {
    classes->Commit();
    FAIL() << "no raise";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), N(err::kInternal));
    EXPECT_EQ(e.Description(), "Modify not allowed");
    EXPECT_EQ(e.Source(), "Tessaron: Class");
  }
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST_F(CommitTest, MemberThatIsNotInTheCollectionIsReported) {
  classes->Add("Alpha");
  auto stranger = std::make_shared<Class>();
  detail::ListObjectAccess::SetNameInternal(*stranger, "Alpha");
  State().ErrorMode = false;
  EXPECT_EQ(classes->Commit(stranger), 1);
  EXPECT_EQ(classes->Errors()->Item(1)->Number(), N(err::kNotAMember));
  EXPECT_EQ(classes->Errors()->Item(1)->Description(), "The specified object is not a member of the collection");
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST_F(CommitTest, CommitOfOneMemberUsesItsPosition) {
  classes->Add("Alpha");
  auto b = classes->Add("Beta");
  qb.Answer(Batch({ResponseElement("ClassAddRs", 2, 0, ClassRet("20-1", "Beta"))}));
  EXPECT_EQ(classes->Commit(b), 0);
  EXPECT_NE(qb.processor().LastRequest().find("<ClassAddRq requestID = \"2\">"), std::string::npos);
  EXPECT_EQ(qb.processor().LastRequest().find("Alpha"), std::string::npos);
  EXPECT_EQ(b->ObjectState(), qoObjectStateClean);
}

TEST_F(CommitTest, NonMasterCollectionRefusesAddAndCommit) {
  Classes mine;
  try {
    mine.Add("Alpha");
    FAIL() << "no raise";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), N(err::kMasterOnly));
    EXPECT_EQ(e.Source(), "Class");
  }
  EXPECT_EQ(mine.Count(), 0);
  EXPECT_THROW(mine.Commit(), Error);
}

TEST_F(CommitTest, AddOfADuplicateKeyRaisesAndLeavesTheCollection) {
  classes->Add("Sales");
  EXPECT_THROW(classes->Add("SALES"), Error);
  EXPECT_EQ(classes->Count(), 1);
}

TEST_F(CommitTest, RemovedNewObjectIsNotSent) {
  classes->Add("Alpha");
  classes->Remove(Variant("Alpha"));
  EXPECT_EQ(classes->Commit(), 0);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST_F(CommitTest, TransportFailureIsRaisedOnlyWithErrorMode) {
  classes->Add("Alpha");
  qb.Answer(ScriptedProcessor::Response("ClassAddRs", "", 3000, "QuickBooks error message: no"));
  State().ErrorMode = false;
  EXPECT_EQ(classes->Commit(), 1);  // the object's failure; ErrNumber is read only with ErrorMode
}

TEST_F(CommitTest, DeleteRefusedRaisesAndKeepsTheObject) {
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", ClassRet("1-1", "A")));
  classes->GetAll();
  qb.Answer(ScriptedProcessor::Response("ListDelRs", "", 3200, "Object in use"));
  try {
    classes->Delete("1-1");
    FAIL() << "no raise";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), N(err::kBuilderStatus));
    EXPECT_EQ(e.Description(), "Object in use");
    EXPECT_EQ(e.Source(), "Class");
  }
  EXPECT_EQ(classes->Count(), 1);
  EXPECT_NE(qb.processor().LastRequest().find(
                "<ListDelRq requestID = \"1\"><ListDelType>Class</ListDelType><ListID>1-1</ListID></ListDelRq>"),
            std::string::npos);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST_F(CommitTest, DeleteRemovesTheObjectWhenAsked) {
  qb.Answer(ScriptedProcessor::Response("ClassQueryRs", ClassRet("1-1", "A") + ClassRet("2-1", "B")));
  classes->GetAll();
  qb.Answer(ScriptedProcessor::Response("ListDelRs", "<ListDelType>Class</ListDelType><ListID>1-1</ListID>"));
  EXPECT_EQ(classes->Delete("1-1"), 0);
  EXPECT_EQ(classes->Count(), 1);
  EXPECT_FALSE(classes->ItemExists(Variant("A")));
}

}  // namespace
}  // namespace tessaron
