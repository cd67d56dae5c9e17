// Every list of the simple lists and terms, end to end against a company file of the
// embedded processor in strict mode: create, commit, query back, delete. Every message
// that passes is checked against the qbXML schema.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <mutex>

#include "qbsim/qbsim.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/connection/qb_connection.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/framework/lists.h"
#include "tessaron/lists/class.h"
#include "tessaron/lists/customer_message.h"
#include "tessaron/lists/entities.h"
#include "tessaron/lists/sales_rep.h"
#include "tessaron/lists/sales_tax_code.h"
#include "tessaron/lists/ship_method.h"
#include "tessaron/lists/template.h"
#include "tessaron/lists/terms.h"
#include "tessaron/lists/to_do.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/recording_processor.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {
namespace {

using testing::RecordingProcessor;

class SimpleListsE2E : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetLibraryStateForTesting();
    qbsim::SampleOptions sample;
    sample.customers = 20;
    qbsim::CreateSampleCompany(file_, sample);
    qbsim::ProcessorOptions options;
    options.strict = true;
    recorder_ = std::make_shared<RecordingProcessor>(qbsim::CreateProcessor(options));
    for (const char* id : {kRequestProcessor1, kRequestProcessor2})
      RegisterRequestProcessor(id, [r = recorder_] { return r; });
    connection_ = std::make_unique<QBConnection>();
    connection_->Connect("", "Tessaron end-to-end tests", qbFileOpenDoNotCare, file_);
    lists_ = std::make_shared<Lists>();
    SetCurrentLists(lists_);
  }

  void TearDown() override {
    for (const std::string& m : recorder_->messages) EXPECT_TRUE(testing::IsValidQbxml(m)) << m;
    SetCurrentLists(nullptr);
    connection_->CloseConnection();
    connection_.reset();
    UnregisterRequestProcessor(kRequestProcessor1);
    UnregisterRequestProcessor(kRequestProcessor2);
    ResetLibraryStateForTesting();
  }

  template <class C>
  std::shared_ptr<C> Master() {
    auto list = std::make_shared<C>();
    detail::ListObjectAccess::SetMaster(*list, true);
    lists_->AddObject(list, ListTypeKey(list->ListType()));
    return list;
  }

  // Commit the New object, read it back through a fresh instance by name and by list,
  // then delete it and see it gone.
  template <class C>
  void RoundTrip(C& master, const std::shared_ptr<ListObject>& obj, const std::function<int32_t(C&)>& deleteIt) {
    const std::string key = obj->CollectionKey();
    ASSERT_EQ(master.Commit(), 0) << (master.Errors()->Count() ? master.Errors()->Item(1)->Description() : "");
    EXPECT_EQ(obj->ObjectState(), qoObjectStateClean);
    ASSERT_FALSE(obj->ListID().empty());

    C reader;
    const int32_t all = reader.GetAll();
    EXPECT_GT(all, 0);
    bool seen = false;
    for (const auto& o : reader.NewEnum()) seen = seen || o->ListID() == obj->ListID();
    EXPECT_TRUE(seen) << key;
    C single;
    auto byId = single.GetByListID(obj->ListID());
    ASSERT_NE(byId, nullptr) << key;
    EXPECT_EQ(byId->FullName(), obj->FullName());

    EXPECT_EQ(deleteIt(master), 0);
    EXPECT_FALSE(master.ItemExists(Variant(key)));
    C after;
    EXPECT_EQ(after.GetByListID(obj->ListID()), nullptr);
    EXPECT_EQ(after.GetAll(), all - 1);
  }

  testing::TempDir dir_;
  std::string file_ = dir_.File("company.qbw");
  std::shared_ptr<RecordingProcessor> recorder_;
  std::unique_ptr<QBConnection> connection_;
  std::shared_ptr<Lists> lists_;
};

template <class C>
std::function<int32_t(C&)> DeleteById(const std::string& id) {
  return [id](C& c) { return c.Delete(id); };
}

TEST_F(SimpleListsE2E, ClassesWithAParentQueriedFromTheFile) {
  auto classes = Master<Classes>();
  auto parent = classes->Add("E2E Region");
  ASSERT_EQ(classes->Commit(), 0);
  classes->Clear();  // the child's Validate queries its parent back
  auto child = classes->Add("E2E Office", true, "E2E Region");
  RoundTrip<Classes>(*classes, child, [&](Classes& c) { return c.Delete(child->ListID()); });
  EXPECT_EQ(child->Sublevel(), 1);
  EXPECT_EQ(child->FullName(), "E2E Region:E2E Office");
  EXPECT_EQ(classes->Delete(parent->ListID()), 0);
}

TEST_F(SimpleListsE2E, CustomerJobAndVendorTypes) {
  auto customerTypes = Master<CustomerTypes>();
  auto a = customerTypes->Add("E2E Customer Type");
  RoundTrip<CustomerTypes>(*customerTypes, a, [&](CustomerTypes& c) { return c.Delete(a->ListID()); });
  auto jobTypes = Master<JobTypes>();
  auto b = jobTypes->Add("E2E Job Type");
  RoundTrip<JobTypes>(*jobTypes, b, [&](JobTypes& c) { return c.Delete(b->ListID()); });
  auto vendorTypes = Master<VendorTypes>();
  auto c = vendorTypes->Add("E2E Vendor Type", false);
  RoundTrip<VendorTypes>(*vendorTypes, c, [&](VendorTypes& l) { return l.Delete(c->ListID()); });
}

TEST_F(SimpleListsE2E, ShipAndPaymentMethods) {
  auto ship = Master<ShipMethods>();
  auto a = ship->Add("E2E Courier");
  RoundTrip<ShipMethods>(*ship, a, [&](ShipMethods& c) { return c.Delete(a->ListID()); });
  auto pay = Master<PaymentMethods>();
  auto b = pay->Add("E2E Voucher");
  RoundTrip<PaymentMethods>(*pay, b, [&](PaymentMethods& c) { return c.Delete(b->ListID()); });
}

TEST_F(SimpleListsE2E, CustomerMessageCannotBeRenamedAfterItsCommit) {
  auto messages = Master<CustomerMessages>();
  auto m = messages->Add("E2E thanks for your business");
  ASSERT_EQ(messages->Commit(), 0);
  m->SetName("E2E renamed");
  const size_t before = recorder_->messages.size();
  EXPECT_THROW(messages->Commit(), Error);  // QuickBooks has no modify for it: nothing is sent
  EXPECT_EQ(recorder_->messages.size(), before);
  CustomerMessages reader;
  ASSERT_NE(reader.GetByListID(m->ListID()), nullptr);
  EXPECT_EQ(reader.GetByListID(m->ListID())->Name(), "E2E thanks for your business");
  EXPECT_EQ(messages->Delete(m->ListID()), 0);
  CustomerMessages after;
  EXPECT_EQ(after.GetByListID(m->ListID()), nullptr);
}

TEST_F(SimpleListsE2E, SalesRepNamesAPersonOnFile) {
  Entities people;
  ASSERT_GT(people.GetAll(), 0);
  std::string person;
  for (const auto& p : people.NewEnum())
    if (person.empty() && p->Parent().empty()) person = p->FullName();
  ASSERT_FALSE(person.empty());
  auto reps = Master<SalesReps>();
  auto rep = reps->Add("E2E", true, "Nobody At All");
  EXPECT_FALSE(rep->Validate());
  rep = reps->Add("E2EB", true, person);
  reps->Remove(Variant("E2E"));
  RoundTrip<SalesReps>(*reps, rep, [&](SalesReps& c) { return c.Delete(rep->ListID()); });
}

TEST_F(SimpleListsE2E, ToDoNotes) {
  auto todo = Master<ToDoList>();
  auto note = todo->Add("E2E call the bank", true, false, DateSerial(2030, 5, 1));
  RoundTrip<ToDoList>(*todo, note, [&](ToDoList& c) { return c.Delete(note->ListID()); });
  ToDoList done;
  done.GetByDoneStatus(1);
  EXPECT_EQ(done.Errors()->Count(), 0);
}

TEST_F(SimpleListsE2E, SalesTaxCodes) {
  auto codes = Master<SalesTaxCodes>();
  auto code = codes->Add("E2E", "End-to-end code", true);
  RoundTrip<SalesTaxCodes>(*codes, code, [&](SalesTaxCodes& c) { return c.Delete(code->ListID()); });
}

TEST_F(SimpleListsE2E, StandardAndDateDrivenTerms) {
  auto terms = Master<Terms>();
  auto standard = terms->AddStandard("E2E Net 45", true, 45, 10, Currency(2));
  RoundTrip<Terms>(*terms, standard, [&](Terms& t) { return t.Delete(standard->ListID(), qbStandardTerms); });
  auto driven = terms->AddDateDriven("E2E 25th", 25, true, 5, 10, Currency::Parse("1.5"));
  RoundTrip<Terms>(*terms, driven, [&](Terms& t) { return t.Delete(driven->ListID(), qbDateDrivenTerms); });
  Terms reader;
  reader.GetAll(qbDateDrivenTerms);
  for (const auto& t : reader.NewEnum()) EXPECT_TRUE(std::dynamic_pointer_cast<qcTerm>(t)->IsDateDriven());
}

TEST_F(SimpleListsE2E, TemplatesAreReadOnly) {
  Templates templates;
  EXPECT_GE(templates.GetAll(), 0);
  EXPECT_EQ(templates.Errors()->Count(), 0);
}

TEST_F(SimpleListsE2E, QueriesByNameAndDate) {
  Classes classes;
  const int32_t all = classes.GetAll();
  ASSERT_GT(all, 0);
  const std::string first = classes.Item(1)->FullName();
  Classes byMatch;
  EXPECT_GE(byMatch.GetByNameMatch(first.substr(0, 2), qbMatchStartsWith), 1);
  Classes byRange;
  EXPECT_GE(byRange.GetByNameRange("A", "zzzz"), 1);
  Classes byDate;
  EXPECT_EQ(byDate.GetByDateSpan(DateSerial(1990, 1, 1), 0), all);
  Classes active;
  EXPECT_LE(active.GetActive(), all);
}

}  // namespace
}  // namespace tessaron
