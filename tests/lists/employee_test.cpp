// Employee and the payroll items: the version rule of the employee's setters at, below and
// above each limit, what its add and modify requests carry and in which order, its payroll
// sub-records, its checks; the wage item's add request and its refused modify.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>

#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/employees.h"
#include "tessaron/lists/payroll_item.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tests/support/text_match.h"
#include "tests/support/list_session.h"
#include "tests/support/raised.h"

namespace tessaron {
namespace {

using testing::Batch;
using testing::ListSession;
using testing::NumberRaised;
using testing::ResponseElement;
using testing::Ret;
using testing::ScriptedProcessor;

using testing::Contains;

const std::string kPayroll =
    "<EmployeePayrollInfo><PayPeriod>Weekly</PayPeriod><Earnings><PayrollItemWageRef><FullName>Hourly Wage"
    "</FullName></PayrollItemWageRef><Rate>24.00</Rate></Earnings><SickHours><HoursAvailable>PT16H0M0S"
    "</HoursAvailable><AccrualPeriod>BeginningOfYear</AccrualPeriod><HoursUsed>PT2H30M0S</HoursUsed></SickHours>"
    "</EmployeePayrollInfo>";

std::string EmployeeRet(const std::string& more = "") {
  return Ret("Employee", "90000001-1",
             "<Name>Lena Sorensen</Name><IsActive>true</IsActive><FirstName>Lena</FirstName>"
             "<LastName>Sorensen</LastName>" + more);
}

std::shared_ptr<Employee> Parsed(const std::string& ret) {
  XmlDocument doc = XmlDocument::Create();
  doc.loadXML(ret);
  auto e = std::make_shared<Employee>();
  e->FromDom(doc.documentElement());
  return e;
}

// ---- The version rule ---------------------------------------------------------------------

struct GateCase {
  const char* field;
  int limit;  // the lowest qbXML version whose modify carries the field; 999: none does
  std::function<void(Employee&)> set;
};

const GateCase kGates[] = {
    {"Phone", 1, [](Employee& e) { e.SetPhone("555-0199"); }},
    {"Notes", 1, [](Employee& e) { e.SetNotes("n"); }},
    {"HiredDate", 2, [](Employee& e) { e.SetHiredDate(DateSerial(2020, 1, 1)); }},
    {"EmployeeType", 2, [](Employee& e) { e.SetEmployeeType(2); }},
    {"PayPeriod", 2, [](Employee& e) { e.SetPayPeriod(5); }},
    {"Earnings", 2, [](Employee& e) { e.AddEarningsType("Salary", Currency(1000)); }},
    {"IsActive", 3, [](Employee& e) { e.SetIsActive(false); }},
    {"SSN", 999, [](Employee& e) { e.SetSSN("000-00-1234"); }},
    {"Gender", 999, [](Employee& e) { e.SetGender(1); }},
};

using GateParam = std::tuple<GateCase, int /*version*/, qoEnumObjectState>;

class EmployeeGateTest : public ::testing::TestWithParam<GateParam> {
 protected:
  void SetUp() override { ResetLibraryStateForTesting(); }
  void TearDown() override { ResetLibraryStateForTesting(); }
};

TEST_P(EmployeeGateTest, SetterPassesOrRefusesByVersionAndState) {
  const auto& [gate, version, state] = GetParam();
  auto e = state == qoObjectStateNew ? std::make_shared<Employee>() : Parsed(EmployeeRet());
  if (state == qoObjectStateDirty) detail::ListObjectAccess::SetObjectState(*e, qoObjectStateDirty);
  State().QBXMLVersionNumber = Currency(version);

  const auto raised = testing::Raised([&] { gate.set(*e); });

  if (state == qoObjectStateNew || version >= gate.limit) {
    EXPECT_FALSE(raised) << raised->Description();
    EXPECT_EQ(e->ObjectState(), state == qoObjectStateNew ? qoObjectStateNew : qoObjectStateDirty);
  } else {
    ASSERT_TRUE(raised);
    EXPECT_EQ(static_cast<uint32_t>(raised->Number()), err::kFieldCannotBeModified);
    EXPECT_EQ(raised->Source(), "Employee");
    EXPECT_EQ(e->ObjectState(), state);
  }
}

std::string GateName(const ::testing::TestParamInfo<GateParam>& info) {
  static const char* const kStates[] = {"", "New", "Clean", "Dirty"};
  return std::string(std::get<0>(info.param).field) + "_v" + std::to_string(std::get<1>(info.param)) + "_" +
         kStates[std::get<2>(info.param)];
}

// Versions 1 to 4 put each limit of 1, 2 and 3 below, at and above the session.
INSTANTIATE_TEST_SUITE_P(FieldsVersionsStates, EmployeeGateTest,
                         ::testing::Combine(::testing::ValuesIn(kGates), ::testing::Values(1, 2, 3, 4),
                                            ::testing::Values(qoObjectStateNew, qoObjectStateClean,
                                                              qoObjectStateDirty)),
                         GateName);

// ---- Requests -----------------------------------------------------------------------------

class EmployeesTest : public ::testing::Test {
 protected:
  explicit EmployeesTest(const std::string& version = "3.0") : qb(version) {}

  std::shared_ptr<Employee> LoadOne(const std::string& more = "") {
    qb.Answer(ScriptedProcessor::Response("EmployeeQueryRs", EmployeeRet(more)));
    employees->GetAll();
    qb.processor().ClearRecords();
    return employees->Item(Variant(1));
  }
  void CommitAnswering(const std::string& rs) {
    qb.Answer(Batch({ResponseElement(rs, 1, 0, EmployeeRet())}));
    employees->Commit();
  }
  const std::string& Sent() { return qb.processor().LastRequest(); }

  ListSession qb;
  std::shared_ptr<Employees> employees = qb.Register<Employees>();
};

class EmployeesAt2Test : public EmployeesTest {
 protected:
  EmployeesAt2Test() : EmployeesTest("2.0") {}
};
class EmployeesAt1Test : public EmployeesTest {
 protected:
  EmployeesAt1Test() : EmployeesTest("1.1") {}
};

TEST_F(EmployeesTest, AddSendsEveryFieldInTheOrderQuickBooksWants) {
  auto e = employees->Add("Lena Sorensen", "Lena", "M", "Sorensen", "Ms.", "L Sorensen", "555-0160", "555-0161",
                          "555-0162", "lena.test", "000-00-0099", 1, 2, DateSerial(2023, 4, 3), 0,
                          DateSerial(1990, 7, 14), "E-12", "Joinery", true, "3 Mill Lane", "", "Millbrook", "Kent",
                          "ME1 4DD");
  e->SetPayPeriod(2);
  e->AddEarningsType("Hourly Wage", Currency(24));
  e->AddEarningsType("Bonus", Currency(5), true);
  e->VacationHours()->SetMaximumHours(qcTimeInterval(80, 30));
  CommitAnswering("EmployeeAddRs");

  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_TRUE(Contains(
      Sent(),
      "<EmployeeAdd><Name>Lena Sorensen</Name><IsActive>1</IsActive><Salutation>Ms.</Salutation>"
      "<FirstName>Lena</FirstName><MiddleName>M</MiddleName><LastName>Sorensen</LastName><EmployeeAddress>"
      "<Addr1>3 Mill Lane</Addr1><City>Millbrook</City><State>Kent</State><PostalCode>ME1 4DD</PostalCode>"
      "</EmployeeAddress><PrintAs>L Sorensen</PrintAs><Phone>555-0160</Phone><AltPhone>555-0161</AltPhone>"
      "<Fax>555-0162</Fax><SSN>000-00-0099</SSN><Email>lena.test</Email><EmployeeType>Regular</EmployeeType>"
      "<Gender>Female</Gender><HiredDate>2023-04-03</HiredDate><BirthDate>1990-07-14</BirthDate>"
      "<AccountNumber>E-12</AccountNumber><Notes>Joinery</Notes><EmployeePayrollInfo><PayPeriod>Weekly</PayPeriod>"
      "<Earnings><PayrollItemWageRef><FullName>Hourly Wage</FullName></PayrollItemWageRef>"
      "<Rate>0000024.0000</Rate></Earnings><Earnings><PayrollItemWageRef><FullName>Bonus</FullName>"
      "</PayrollItemWageRef><RatePercent>0000005.0000</RatePercent></Earnings><VacationHours>"
      "<MaximumHours>PT80H30M</MaximumHours></VacationHours></EmployeePayrollInfo></EmployeeAdd>"))
      << Sent();
}

TEST_F(EmployeesTest, ModifyAt3CarriesEverythingItCanAndThePayrollAsAModify) {
  auto e = LoadOne("<SSN>000-00-0001</SSN><EmployeeType>Regular</EmployeeType>" + kPayroll);
  e->SetIsActive(false);
  CommitAnswering("EmployeeModRs");
  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_TRUE(Contains(Sent(), "<EmployeeMod><ListID>90000001-1</ListID><EditSequence>1000</EditSequence>"
                               "<Name>Lena Sorensen</Name><IsActive>0</IsActive><Salutation></Salutation>"
                               "<FirstName>Lena</FirstName>"))
      << Sent();
  EXPECT_TRUE(Contains(Sent(), "<EmployeeType>Regular</EmployeeType><AccountNumber></AccountNumber><Notes></Notes>"
                               "<EmployeePayrollInfoMod><PayPeriod>Weekly</PayPeriod>"))
      << Sent();
  EXPECT_FALSE(Contains(Sent(), "<SSN>")) << Sent();
  EXPECT_FALSE(Contains(Sent(), "<HoursUsed>")) << Sent();
}

TEST_F(EmployeesAt2Test, ModifyAt2LeavesOutIsActive) {
  auto e = LoadOne(kPayroll);
  e->SetPhone("555-0100");
  CommitAnswering("EmployeeModRs");
  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_FALSE(Contains(Sent(), "<IsActive>")) << Sent();
  EXPECT_TRUE(Contains(Sent(), "<EmployeePayrollInfoMod>")) << Sent();
}

TEST_F(EmployeesAt1Test, ModifyBelow2LeavesOutTypeDatesAndPayroll) {
  auto e = LoadOne("<EmployeeType>Regular</EmployeeType><HiredDate>2020-01-01</HiredDate>" + kPayroll);
  e->SetPhone("555-0100");
  CommitAnswering("EmployeeModRs");
  EXPECT_TRUE(Contains(Sent(), "<Phone>555-0100</Phone>")) << Sent();
  for (const char* tag : {"<EmployeeType>", "<HiredDate>", "EmployeePayrollInfo", "<IsActive>"})
    EXPECT_FALSE(Contains(Sent(), tag)) << tag << Sent();
}

TEST_F(EmployeesTest, AChangedRateOrAccruedTimeAloneSendsAModify) {
  auto e = LoadOne(kPayroll);
  ASSERT_EQ(e->EarningsTypes().size(), 1u);
  EXPECT_EQ(e->EarningsTypes()[0]->Rate(), Currency(24));
  EXPECT_EQ(e->SickHours()->HoursUsed(), qcTimeInterval(2, 30));

  e->EarningsTypes()[0]->SetRate(Currency(26));
  EXPECT_EQ(e->ObjectState(), qoObjectStateClean);
  CommitAnswering("EmployeeModRs");
  EXPECT_TRUE(Contains(Sent(), "<Rate>0000026.0000</Rate>")) << Sent();

  qb.processor().ClearRecords();
  e->SickHours()->SetHoursAvailable(qcTimeInterval(20, 0));
  CommitAnswering("EmployeeModRs");
  EXPECT_TRUE(Contains(Sent(), "<HoursAvailable>PT20H0M</HoursAvailable>")) << Sent();

  qb.processor().ClearRecords();
  employees->Commit();  // everything Clean again: nothing to send
  EXPECT_TRUE(qb.processor().Requests().empty());
}

// ---- Sub-records and checks ---------------------------------------------------------------

struct IntervalCase {
  const char* text;
  int hours;
  int minutes;
};
class TimeIntervalTest : public ::testing::TestWithParam<IntervalCase> {};

TEST_P(TimeIntervalTest, ReadsWhatQuickBooksSends) {
  const IntervalCase& c = GetParam();
  EXPECT_EQ(qcTimeInterval::FromText(c.text), qcTimeInterval(c.hours, c.minutes));
}

INSTANTIATE_TEST_SUITE_P(Texts, TimeIntervalTest,
                         ::testing::Values(IntervalCase{"PT40H30M0S", 40, 30}, IntervalCase{"PT8H", 8, 0},
                                           IntervalCase{"PT45M", 0, 45}, IntervalCase{"PT0H0M0S", 0, 0},
                                           IntervalCase{"", 0, 0}, IntervalCase{"forty", 0, 0}));

TEST(TimeIntervalFormatTest, WritesHoursAndMinutes) { EXPECT_EQ(qcTimeInterval(7, 5).ToText(), "PT7H5M"); }

struct EmployeeCheckCase {
  const char* label;
  std::function<void(Employee&)> set;
  uint32_t code;
  const char* field;
};
class EmployeeCheckTest : public ::testing::TestWithParam<EmployeeCheckCase> {
 protected:
  void SetUp() override {
    ResetLibraryStateForTesting();
    State().QBXMLVersionNumber = Currency(3);
  }
  void TearDown() override { ResetLibraryStateForTesting(); }
};

TEST_P(EmployeeCheckTest, ReportsOneEntryWithItsLabel) {
  const EmployeeCheckCase& c = GetParam();
  Employee e;
  detail::ListObjectAccess::SetNameInternal(e, "Lena Sorensen");
  c.set(e);
  EXPECT_FALSE(e.Validate());
  ASSERT_EQ(e.Errors()->Count(), 1);
  EXPECT_EQ(static_cast<uint32_t>(e.Errors()->Item(1)->Number()), c.code);
  EXPECT_EQ(e.Errors()->Item(1)->Field(), c.field);
}

INSTANTIATE_TEST_SUITE_P(
    Checks, EmployeeCheckTest,
    ::testing::Values(
        EmployeeCheckCase{"SSN", [](Employee& e) { e.SetSSN(std::string(16, '1')); }, err::kSsnTooLong, "SSN"},
        EmployeeCheckCase{"PrintAs", [](Employee& e) { e.SetPrintAs(std::string(42, 'p')); }, err::kPrintAsTooLong,
                          "Print As"},
        EmployeeCheckCase{"EarningsWithoutWageItem", [](Employee& e) { e.AddEarningsType("", Currency(1)); },
                          err::kInvalidPayrollWageItem, "Earnings"},
        EmployeeCheckCase{"MiddleName", [](Employee& e) { e.SetMiddleName("Maria"  "n"); },
                          err::kMiddleNameTooLong, "Middle Name"}),
    [](const auto& info) { return std::string(info.param.label); });

TEST(EmployeeCopyTest, CloneCopiesFieldsPayrollAndState) {
  ResetLibraryStateForTesting();
  State().QBXMLVersionNumber = Currency(3);
  auto e = Parsed(EmployeeRet("<Phone>1</Phone><SSN>000-00-0001</SSN><Gender>Male</Gender>" + kPayroll));
  auto c = e->Clone();
  EXPECT_EQ(c->Name(), "Lena Sorensen");
  EXPECT_EQ(c->Phone(), "1");
  EXPECT_EQ(c->SSN(), "000-00-0001");
  EXPECT_EQ(c->Gender(), 1);
  EXPECT_EQ(c->PayPeriod(), 2);
  ASSERT_EQ(c->EarningsTypes().size(), 1u);
  EXPECT_NE(c->EarningsTypes()[0], e->EarningsTypes()[0]);  // a copy, not the same record
  EXPECT_EQ(c->SickHours()->HoursAvailable(), qcTimeInterval(16, 0));
  EXPECT_EQ(c->ObjectState(), qoObjectStateClean);
  ResetLibraryStateForTesting();
}

// ---- Payroll wage items -------------------------------------------------------------------

TEST(PayrollItemWagesTest, AddFollowsTheSchemaAndAChangedItemCannotBeCommitted) {
  ListSession qb("3.0");
  auto wages = qb.Register<PayrollItemWages>();
  wages->Add("Overtime", 1, "Payroll Expenses");
  qb.Answer(Batch({ResponseElement(
      "PayrollItemWageAddRs", 1, 0,
      Ret("PayrollItemWage", "A0-1",
          "<Name>Overtime</Name><IsActive>true</IsActive><WageType>HourlyOvertime</WageType>"
          "<ExpenseAccountRef><FullName>Payroll Expenses</FullName></ExpenseAccountRef>"))}));
  EXPECT_EQ(wages->Commit(), 0);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_TRUE(Contains(qb.processor().LastRequest(),
                       "<PayrollItemWageAdd><Name>Overtime</Name><IsActive>1</IsActive><WageType>HourlyRegular"
                       "</WageType><ExpenseAccountRef><FullName>Payroll Expenses</FullName></ExpenseAccountRef>"
                       "</PayrollItemWageAdd>"))
      << qb.processor().LastRequest();

  auto w = wages->Item(Variant("Overtime"));
  EXPECT_EQ(w->WageType(), 0);  // a kind the table does not know is kept as text
  EXPECT_EQ(w->WageTypeText(), "HourlyOvertime");
  EXPECT_EQ(NumberRaised([&] { w->SetExpenseAccount("Other"); }), err::kFieldCannotBeModified);
  detail::ListObjectAccess::SetObjectState(*w, qoObjectStateDirty);
  const auto raised = testing::Raised([&] { wages->Commit(); });
  ASSERT_TRUE(raised);
  EXPECT_EQ(raised->Description(), "InsertModRq not allowed");
}

}  // namespace
}  // namespace tessaron
