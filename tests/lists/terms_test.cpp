// Terms: the due and discount date arithmetic (with the system's slips), reading both
// kinds from one response, and the terms-specific requests.
#include <gtest/gtest.h>

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/terms.h"
#include "tests/support/list_session.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {
namespace {

using testing::ListSession;
using testing::Ret;
using testing::ScriptedProcessor;

std::string YMD(Date d) {
  DateParts p = SplitDate(d);
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", p.year, p.month, p.day);
  return text;
}

struct DueCase {
  int dayDue, nextMonthDays;
  Date post;
  const char* due;
};
class DateDrivenDueTest : public ::testing::TestWithParam<DueCase> {};

TEST_P(DateDrivenDueTest, DueDateMovesToTheNextMonthWithinTheGraceDays) {
  DateDrivenTerm t;
  detail::ListObjectAccess::SetTermsInternal(t, static_cast<int16_t>(GetParam().dayDue), static_cast<int16_t>(GetParam().nextMonthDays), 0, Currency());
  EXPECT_EQ(YMD(t.CalculateDueDate(GetParam().post)), GetParam().due);
}

INSTANTIATE_TEST_SUITE_P(
    Terms, DateDrivenDueTest,
    ::testing::Values(DueCase{15, 10, DateSerial(2004, 1, 20), "2004-02-15"},   // 5 days after the 15th, below 10
                      DueCase{15, 0, DateSerial(2004, 1, 20), "2004-01-15"},    // before the posting date, kept
                      DueCase{15, 10, DateSerial(2004, 12, 20), "2005-01-15"},  // December wraps
                      DueCase{10, 5, DateSerial(2004, 12, 31), "2004-12-10"},   // 21 days after: this month
                      DueCase{31, 10, DateSerial(2004, 1, 31), "2004-03-02"},  // day 31 of February rolls over
                      DueCase{1, 40, DateSerial(2003, 12, 31) + 0.75, "2004-01-01"}));

TEST(DateDrivenTerm, DiscountDateAlwaysFallsInTheNextMonth) {
  DateDrivenTerm t;
  detail::ListObjectAccess::SetTermsInternal(t, 28, 0, 10, Currency(2));
  EXPECT_EQ(YMD(t.CalculateDiscountDate(DateSerial(2004, 1, 5))), "2004-02-10");
  EXPECT_EQ(YMD(t.CalculateDiscountDate(DateSerial(2004, 12, 20))), "2005-01-10");
  EXPECT_TRUE(t.IsDateDriven());
  EXPECT_EQ(t.DiscountPercent(), Currency(2));
}

TEST(StandardTerm, CountsDaysFromThePostingDate) {
  StandardTerm t;
  detail::ListObjectAccess::SetTermsInternal(t, 30, 10, Currency(2));
  EXPECT_EQ(YMD(t.CalculateDueDate(DateSerial(2004, 12, 15))), "2005-01-14");
  EXPECT_EQ(YMD(t.CalculateDiscountDate(DateSerial(2004, 2, 25))), "2004-03-06");
  detail::ListObjectAccess::SetTermsInternal(t, 30, 0, Currency());
  EXPECT_EQ(t.CalculateDiscountDate(DateSerial(2004, 2, 25)), kNullDate);
  EXPECT_FALSE(t.IsDateDriven());
}

class TermsTest : public ::testing::Test {
 protected:
  ListSession qb;
  std::shared_ptr<Terms> terms = qb.Register<Terms>();
};

TEST_F(TermsTest, OneResponseHoldsBothKinds) {
  qb.Answer(ScriptedProcessor::Response(
      "TermsQueryRs", Ret("StandardTerms", "1-1", "<Name>Net 30</Name><IsActive>true</IsActive><StdDueDays>30</StdDueDays>"
                                                  "<DiscountPct>2.5</DiscountPct>") +
                          Ret("DateDrivenTerms", "2-1", "<Name>15th</Name><DayOfMonthDue>15</DayOfMonthDue>")));
  EXPECT_EQ(terms->GetAll(), 2);
  EXPECT_NE(qb.processor().LastRequest().find("<TermsQueryRq requestID = \"1\"><ActiveStatus>All</ActiveStatus>"),
            std::string::npos);
  auto net30 = std::dynamic_pointer_cast<StandardTerm>(terms->Item(Variant("Net 30")));
  ASSERT_NE(net30, nullptr);
  EXPECT_EQ(net30->DueDays(), 30);
  EXPECT_EQ(net30->DiscountPercent(), Currency::Parse("2.5"));
  auto fifteenth = std::dynamic_pointer_cast<qcTerm>(terms->Item(Variant("15th")));
  ASSERT_NE(fifteenth, nullptr);
  EXPECT_TRUE(fifteenth->IsDateDriven());
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST_F(TermsTest, KindChoosesTheRequest) {
  qb.Answer(ScriptedProcessor::Response("StandardTermsQueryRs"));
  terms->GetActive(qbStandardTerms);
  EXPECT_NE(qb.processor().LastRequest().find("<StandardTermsQueryRq requestID = \"1\"><ActiveStatus>ActiveOnly"),
            std::string::npos);
  try {
    terms->GetAll(7);
    FAIL() << "no raise";
  } catch (const Error& e) {
    EXPECT_EQ(e.Description(), "Bad type in GetByType");
    EXPECT_EQ(e.Source(), "Tessaron: Terms");
  }
}

TEST_F(TermsTest, AddWritesOnlyPositiveOwnFields) {
  terms->AddStandard("Net 10", true, 10, 0, Currency());
  terms->AddDateDriven("20th", 20, true, 5);
  qb.Answer(testing::Batch({testing::ResponseElement("StandardTermsAddRs", 1, 0, Ret("StandardTerms", "1-1", "<Name>Net 10</Name>")),
                            testing::ResponseElement("DateDrivenTermsAddRs", 2, 0, Ret("DateDrivenTerms", "2-1", "<Name>20th</Name>"))}));
  EXPECT_EQ(terms->Commit(), 0);
  const std::string& sent = qb.processor().LastRequest();
  EXPECT_NE(sent.find("<StandardTermsAdd><Name>Net 10</Name><IsActive>1</IsActive><StdDueDays>10</StdDueDays>"
                      "</StandardTermsAdd>"),
            std::string::npos)
      << sent;
  EXPECT_NE(sent.find("<DateDrivenTermsAdd><Name>20th</Name><IsActive>1</IsActive><DayOfMonthDue>20</DayOfMonthDue>"
                      "<DueNextMonthDays>5</DueNextMonthDays></DateDrivenTermsAdd>"),
            std::string::npos);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST_F(TermsTest, NameLimitIs41ThoughTheMessageSays31) {
  auto ok = terms->AddStandard(std::string(41, 'n'));
  auto bad = terms->AddStandard(std::string(42, 'n'));
  EXPECT_TRUE(ok->Validate());
  EXPECT_FALSE(bad->Validate());
  EXPECT_EQ(bad->Errors()->Item(1)->Description(), "Name cannot exceed 31 characters");
}

TEST_F(TermsTest, DeleteWithAnUnknownKindRaisesBeforeSending) {
  try {
    terms->Delete("1-1", 0);
    FAIL() << "no raise";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), static_cast<int32_t>(err::kInvalidTermsType));
    EXPECT_EQ(e.Source(), "Terms");
  }
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST_F(TermsTest, DeleteNamesTheKindsObjectType) {
  qb.Answer(ScriptedProcessor::Response("TermsQueryRs", "", 500, "not found"));
  qb.Answer(ScriptedProcessor::Response("ListDelRs", "<ListDelType>DateDrivenTerms</ListDelType><ListID>2-1</ListID>"));
  terms->Delete("2-1", qbDateDrivenTerms);
  EXPECT_NE(qb.processor().LastRequest().find("<ListDelType>DateDrivenTerms</ListDelType>"), std::string::npos);
}

TEST_F(TermsTest, AddOnANonMasterRaisesWithTermsAsSource) {
  Terms mine;
  try {
    mine.AddStandard("Net 30");
    FAIL() << "no raise";
  } catch (const Error& e) {
    EXPECT_EQ(e.Source(), "Terms");
  }
}

}  // namespace
}  // namespace tessaron
