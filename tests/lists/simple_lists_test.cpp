// What the simple lists add to the contract: their limits, their keys, their requests.
#include <gtest/gtest.h>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/customer_message.h"
#include "tessaron/lists/entities.h"
#include "tessaron/lists/sales_rep.h"
#include "tessaron/lists/sales_tax_code.h"
#include "tessaron/lists/ship_method.h"
#include "tessaron/lists/template.h"
#include "tessaron/lists/to_do.h"
#include "tests/support/list_session.h"

namespace tessaron {
namespace {

using testing::ListSession;
using testing::Ret;
using testing::ScriptedProcessor;

std::vector<std::string> Descriptions(ListObject& obj) {
  std::vector<std::string> out;
  for (const auto& e : *obj.Errors()) out.push_back(e->Description());
  return out;
}

class SimpleListsTest : public ::testing::Test {
 protected:
  ListSession qb;
};

struct LimitCase {
  const char* name;
  std::function<std::shared_ptr<ListObject>(ListSession&)> make;
  std::vector<std::string> errors;
};
class LimitTest : public SimpleListsTest, public ::testing::WithParamInterface<LimitCase> {};

TEST_P(LimitTest, ValidateReportsExactlyTheseProblems) {
  auto obj = GetParam().make(qb);
  obj->Validate();
  EXPECT_EQ(Descriptions(*obj), GetParam().errors);
}

const std::string kTooLong = "Sales tax code name cannot exceed 3 characters";
const std::string kDescTooLong = "Sales tax code description cannot exceed 31 characters";

INSTANTIATE_TEST_SUITE_P(
    Limits, LimitTest,
    ::testing::Values(
        LimitCase{"TaxCode3", [](ListSession& s) { return s.Register<SalesTaxCodes>()->Add("Tax"); }, {}},
        LimitCase{"TaxCode4", [](ListSession& s) { return s.Register<SalesTaxCodes>()->Add("Taxy"); }, {kTooLong}},
        LimitCase{"TaxCodeEmptyLongDesc",
                  [](ListSession& s) { return s.Register<SalesTaxCodes>()->Add("", std::string(32, 'd')); },
                  {"Name cannot be null", kDescTooLong}},
        LimitCase{"Message101",
                  [](ListSession& s) { return s.Register<CustomerMessages>()->Add(std::string(101, 'm')); }, {}},
        LimitCase{"Message102",
                  [](ListSession& s) { return s.Register<CustomerMessages>()->Add(std::string(102, 'm')); },
                  {"Message cannot exceed 101 characters"}},
        LimitCase{"Notes4095", [](ListSession& s) { return s.Register<ToDoList>()->Add(std::string(4095, 'n')); }, {}},
        LimitCase{"Notes4096", [](ListSession& s) { return s.Register<ToDoList>()->Add(std::string(4096, 'n')); },
                  {"Notes cannot exceed 4095 characters"}},
        LimitCase{"NotesEmpty", [](ListSession& s) { return s.Register<ToDoList>()->Add(""); },
                  {"Notes cannot be null"}},
        LimitCase{"ShipMethod32",
                  [](ListSession& s) { return s.Register<ShipMethods>()->Add(std::string(32, 's')); },
                  {"Name cannot exceed 31 characters"}},
        LimitCase{"SalesRepWithoutPerson", [](ListSession& s) { return s.Register<SalesReps>()->Add("ABCDEF"); },
                  {"Initials cannot exceed 5 characters", "SalesRep Name or ListID must be provided",
                   "SalesRepEntity not found"}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(SimpleListsTest, SalesRepLooksItsPersonUpInAFreshEntityListEachTime) {
  auto reps = qb.Register<SalesReps>();
  auto rep = reps->Add("JD", true, "John Doe");
  qb.Answer(ScriptedProcessor::Response("EntityQueryRs", "", 500, "not found"));
  EXPECT_FALSE(rep->Validate());
  EXPECT_EQ(Descriptions(*rep), std::vector<std::string>{"SalesRepEntity not found"});
  qb.Answer(ScriptedProcessor::Response(
      "EntityQueryRs", Ret("Employee", "E-1", "<Name>John Doe</Name><IsActive>true</IsActive>")));
  EXPECT_TRUE(rep->Validate());
  EXPECT_EQ(qb.processor().RequestNames(), (std::vector<std::string>{"EntityQueryRq", "EntityQueryRq"}));
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST_F(SimpleListsTest, SalesRepIsKeyedByItsInitialsAndSendsItsPerson) {
  auto reps = qb.Register<SalesReps>();
  auto rep = reps->Add("JD", true, "John Doe");
  EXPECT_TRUE(reps->ItemExists(Variant("jd")));
  qb.Answer(ScriptedProcessor::Response("EntityQueryRs", Ret("Employee", "E-1", "<Name>John Doe</Name>")));
  qb.Answer(ScriptedProcessor::Response("SalesRepAddRs", Ret("SalesRep", "R-1", "<Initial>JD</Initial>")));
  EXPECT_EQ(reps->Commit(), 0);
  EXPECT_NE(qb.processor().LastRequest().find("<SalesRepAdd><Initial>JD</Initial><IsActive>1</IsActive>"
                                              "<SalesRepEntityRef><FullName>John Doe</FullName></SalesRepEntityRef>"),
            std::string::npos);
  EXPECT_THROW(rep->SetEntity("Jane"), Error);  // fixed after the first commit
}

TEST_F(SimpleListsTest, ToDoNotesAreKeyedByTheirPositionInTheResponse) {
  auto todo = qb.Register<ToDoList>();
  qb.Answer(ScriptedProcessor::Response("ToDoQueryRs", Ret("ToDo", "1-1", "<Notes>call</Notes>") +
                                                           Ret("ToDo", "2-1", "<Notes>write</Notes><IsDone>true</IsDone>")));
  EXPECT_EQ(todo->GetAll(), 2);
  EXPECT_EQ(todo->Item(Variant("2~"))->Notes(), "write");
  EXPECT_TRUE(todo->Item(Variant("2~"))->IsDone());
  auto added = todo->Add("new note");
  EXPECT_EQ(added->CollectionKey(), "3~");
  EXPECT_THROW(todo->Item(Variant("1~"))->SetNotes("x"), Error);
}

TEST_F(SimpleListsTest, ToDoDoneStatusQuery) {
  auto todo = qb.Register<ToDoList>();
  qb.Answer(ScriptedProcessor::Response("ToDoQueryRs"));
  todo->GetByDoneStatus(2);
  EXPECT_NE(qb.processor().LastRequest().find("<ToDoQueryRq><DoneStatus>DoneOnly</DoneStatus></ToDoQueryRq>"),
            std::string::npos);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST_F(SimpleListsTest, CustomerMessageBecomesDirtyAndIsThenRefused) {
  auto messages = qb.Register<CustomerMessages>();
  qb.Answer(ScriptedProcessor::Response("CustomerMsgQueryRs", Ret("CustomerMsg", "1-1", "<Name>Thanks</Name>")));
  messages->GetAll();
  messages->Item(Variant("Thanks"))->SetName("Thank you");
  EXPECT_EQ(messages->Item(1)->ObjectState(), qoObjectStateDirty);
  EXPECT_THROW(messages->Commit(), Error);
}

TEST_F(SimpleListsTest, SalesTaxCodeAddAlwaysCarriesIsTaxable) {
  auto codes = qb.Register<SalesTaxCodes>();
  codes->Add("Non");
  qb.Answer(ScriptedProcessor::Response("SalesTaxCodeAddRs", Ret("SalesTaxCode", "1-1", "<Name>Non</Name>")));
  codes->Commit();
  EXPECT_NE(qb.processor().LastRequest().find(
                "<SalesTaxCodeAdd><Name>Non</Name><IsActive>1</IsActive><IsTaxable>0</IsTaxable></SalesTaxCodeAdd>"),
            std::string::npos);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST_F(SimpleListsTest, TemplatesAreReadWithTheirKindAndSendNoStatus) {
  Templates templates;
  qb.Answer(ScriptedProcessor::Response(
      "TemplateQueryRs", Ret("Template", "1-1", "<Name>Intuit Product Invoice</Name><IsActive>true</IsActive>"
                                                "<TemplateType>Invoice</TemplateType>") +
                             Ret("Template", "2-1", "<Name>Build</Name><TemplateType>BuildAssembly</TemplateType>")));
  EXPECT_EQ(templates.GetAll(), 2);
  EXPECT_NE(qb.processor().LastRequest().find("<TemplateQueryRq requestID = \"1\"></TemplateQueryRq>"),
            std::string::npos);
  EXPECT_EQ(templates.Item(1)->AppliesTo(), qbTxnTypeInvoice);
  EXPECT_EQ(templates.Item(2)->AppliesTo(), 0);
  EXPECT_EQ(templates.Item(1)->TimeCreated(), "2004-02-29T13:05:09");
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST_F(SimpleListsTest, TemplatesHaveTheirListTypeAndTaxCodesNone) {
  EXPECT_EQ(Templates().ListType(), qoListTemplates);
  EXPECT_EQ(TaxCodes().ListType(), 0);
}

}  // namespace
}  // namespace tessaron
