// Customers and jobs end to end against a company file of the embedded processor, in each
// national edition: reading the tree, creating customers with jobs, addresses and cards,
// committing, changing, renaming, and every query with its filters.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "tessaron/connection/tessaron_globals.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/customers.h"
#include "tests/e2e/e2e_session.h"
#include "tests/support/raised.h"

namespace tessaron {
namespace {

using testing::EditionTest;

class CustomersEndToEnd : public EditionTest {
 protected:
  void SetUp() override {
    EditionTest::SetUp();
    customers = TessaronGlobals::Customers();
  }
  std::shared_ptr<Customers> customers;
};

TEST_P(CustomersEndToEnd, ReadsCustomersAndJobsThreeLevelsDeep) {
  EXPECT_EQ(customers->GetAll(), kCustomers);
  EXPECT_EQ(customers->Errors()->Count(), 0);

  int deepest = 0;
  for (const auto& c : *customers) {
    deepest = std::max<int>(deepest, c->Sublevel());
    if (c->Sublevel() == 0) {
      EXPECT_FALSE(c->BillTo()->City().empty()) << c->FullName();
      EXPECT_FALSE(c->BillTo()->State().empty()) << c->FullName();
      EXPECT_EQ(c->SalesTaxCode().empty(), !IsUS()) << c->FullName();
      continue;
    }
    // Each job hangs under its parent, and the parent lists it.
    auto parent = customers->Item(Variant(c->Parent()));
    EXPECT_EQ(parent->Sublevel(), c->Sublevel() - 1);
    EXPECT_TRUE(parent->Jobs()->ItemExists(Variant(c->FullName()))) << c->FullName();
    EXPECT_EQ(c->FullName(), c->Parent() + ":" + c->Name());
  }
  EXPECT_EQ(deepest, 2);
}

TEST_P(CustomersEndToEnd, CreatesCommitsChangesAndRenamesCustomersWithJobs) {
  auto c = customers->Add("Nordlicht Joinery", "", "Residential", "Net 30", "AC", IsUS() ? "Tax" : "", "", "R-77",
                          Currency(15000), Currency(250), DateSerial(2024, 1, 31));
  c->SetCompanyName("Nordlicht Joinery Ltd");
  c->SetFirstName("Edda");
  c->SetLastName("Lindqvist");
  c->SetPhone("555-0177");
  c->SetAltContact("Bram");
  c->BillTo()->SetLine1("12 Heron Street");
  c->BillTo()->SetCity("Millbrook");
  c->BillTo()->SetState("Kent");
  c->BillTo()->SetPostalCode("ME1 1AA");
  c->ShipTo()->SetLine1("Unit 4, Quarry Yard");
  c->CreditCard()->SetCardNumber("4111111111111111");
  c->CreditCard()->SetExpirationMonth(11);
  c->CreditCard()->SetExpirationYear(2027);
  c->CreditCard()->SetNameOnCard("E Lindqvist");
  auto job = customers->Add("Attic Conversion", "Nordlicht Joinery", "", "", "", "", "", "", Currency(), Currency(), 0,
                            qbJobStatusAwarded, DateSerial(2024, 3, 1), DateSerial(2024, 6, 30), 0, "Attic rooms",
                            "Installation");
  auto phase = customers->Add("Stairs", "Nordlicht Joinery:Attic Conversion");
  EXPECT_EQ(phase->Sublevel(), 2);

  EXPECT_EQ(customers->Commit(), 0);

  for (const auto& x : {c, job, phase}) {
    EXPECT_EQ(x->ObjectState(), qoObjectStateClean) << x->FullName();
    EXPECT_FALSE(x->ListID().empty()) << x->FullName();
  }
  EXPECT_EQ(phase->FullName(), "Nordlicht Joinery:Attic Conversion:Stairs");
  EXPECT_EQ(c->Balance(), Currency(250));
  EXPECT_EQ(c->TotalBalance(), Currency(250));
  EXPECT_EQ(job->JobStatus(), qbJobStatusAwarded);
  EXPECT_EQ(c->BillTo()->State(), "Kent");
  EXPECT_EQ(c->CreditCard()->NameOnCard(), "E Lindqvist");

  // A change of the customer, and one of an address alone.
  c->SetPhone("555-0178");
  job->ShipTo()->SetCity("Eastharbor");
  EXPECT_EQ(job->ObjectState(), qoObjectStateClean);
  EXPECT_TRUE(customers->Rename(phase, "Staircase"));
  EXPECT_EQ(customers->Commit(), 0);
  EXPECT_EQ(job->ShipTo()->ObjectState(), qoObjectStateClean);

  // Read back in a collection of the application's own.
  Customers fresh;
  auto back = fresh.GetByFullName("Nordlicht Joinery");
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->Phone(), "555-0178");
  EXPECT_EQ(back->AltContact(), "Bram");
  EXPECT_EQ(back->CompanyName(), "Nordlicht Joinery Ltd");
  EXPECT_EQ(back->Terms(), "Net 30");
  EXPECT_EQ(back->CreditLimit(), Currency(15000));
  EXPECT_EQ(back->BillTo()->Line1(), "12 Heron Street");
  EXPECT_EQ(back->BillTo()->State(), "Kent");
  EXPECT_EQ(back->ShipTo()->Line1(), "Unit 4, Quarry Yard");
  EXPECT_EQ(back->CreditCard()->CardNumber(), "4111111111111111");
  EXPECT_EQ(back->CreditCard()->ExpirationYear(), 2027);
  EXPECT_EQ(back->SalesTaxCode(), IsUS() ? "Tax" : "");
  EXPECT_EQ(fresh.GetByFullName("Nordlicht Joinery:Attic Conversion")->ShipTo()->City(), "Eastharbor");
  EXPECT_NE(fresh.GetByFullName("Nordlicht Joinery:Attic Conversion:Staircase"), nullptr);
  EXPECT_EQ(fresh.GetByFullName("Nordlicht Joinery:Attic Conversion:Stairs"), nullptr);
}

TEST_P(CustomersEndToEnd, RefusesWhatQuickBooksCannotTake) {
  customers->GetAll();
  std::vector<std::shared_ptr<Customer>> top;
  for (const auto& c : *customers)
    if (c->Sublevel() == 0) top.push_back(c);
  ASSERT_GE(top.size(), 2u);
  auto first = top[0];
  auto second = top[1];
  TakeRequests();
  EXPECT_FALSE(customers->Rename(first, second->Name()));
  EXPECT_EQ(testing::NumberRaised([&] { first->SetOpeningBalance(Currency(5)); }), err::kFieldCannotBeModified);

  EXPECT_EQ(first->ObjectState(), qoObjectStateClean);
  EXPECT_TRUE(TakeRequests().empty());  // the rename found the name loaded
}

TEST_P(CustomersEndToEnd, NameTakenOnFileLeavesTheNewCustomerNew) {
  customers->GetAll();
  const std::string taken = customers->Item(Variant(1))->FullName();
  State().ErrorMode = false;
  // Cleared, so that the name is not refused locally as a duplicate key.
  customers->Clear();
  auto dup = customers->Add(taken);
  EXPECT_EQ(customers->Commit(), 1);
  EXPECT_EQ(dup->ObjectState(), qoObjectStateNew);
  ASSERT_EQ(dup->Errors()->Count(), 1);
  EXPECT_EQ(dup->Errors()->Item(1)->Description(), "Name specified already exists on file");
}

TEST_P(CustomersEndToEnd, QueriesByEveryFilter) {
  const int32_t all = customers->GetAll();
  std::set<std::string> inactive;
  for (const auto& c : *customers)
    if (!c->IsActive()) inactive.insert(c->FullName());
  const int32_t owing = [&] {
    int n = 0;
    for (const auto& c : *customers) n += c->TotalBalance() > Currency(1000);
    return n;
  }();
  const auto first = customers->Item(Variant(1));
  const auto second = customers->Item(Variant(2));

  EXPECT_EQ(customers->GetAll(5), 5);
  EXPECT_EQ(customers->GetActive(), all - static_cast<int32_t>(inactive.size()));
  for (const auto& c : *customers) EXPECT_TRUE(c->IsActive());
  EXPECT_EQ(customers->ListGetByActiveStatus(qbStatusInactive, 1), static_cast<int32_t>(inactive.size()));

  EXPECT_EQ(customers->GetAll(0, qbGreaterThan, Currency(1000)), owing);
  for (const auto& c : *customers) EXPECT_GT(c->TotalBalance(), Currency(1000));

  EXPECT_EQ(customers->GetByListIDs({first->ListID(), second->ListID()}), 2);
  EXPECT_EQ(customers->Item(Variant(first->FullName()))->ListID(), first->ListID());

  customers->GetByNameMatch("Kitchen", qbMatchContains);
  EXPECT_GT(customers->Count(), 0);
  for (const auto& c : *customers) EXPECT_NE(c->FullName().find("Kitchen"), std::string::npos);

  customers->GetByNameRange("A", "C");
  EXPECT_GT(customers->Count(), 0);
  for (const auto& c : *customers) EXPECT_LE(c->FullName().substr(0, 1), "C");

  // Without a status, QuickBooks answers the active records of a range.
  EXPECT_EQ(customers->GetByDateSpan(DateSerial(2000, 1, 1), 0), all - static_cast<int32_t>(inactive.size()));
  EXPECT_EQ(customers->GetByDateSpan(DateSerial(2999, 1, 1), 0), 0);
  EXPECT_EQ(customers->GetByListID(second->ListID())->FullName(), second->FullName());
}

TEST_P(CustomersEndToEnd, DuplicatedFullNameInTheFileIsTrapped) {
  customers->GetAll();
  const std::string name = customers->Item(Variant(1))->FullName();
  State().GlobalConnection->CloseConnection();
  qbsim::AddDuplicateCustomerForTesting(Path(), name);
  TessaronGlobals::QBConnect("", "Tessaron end-to-end tests", qbFileOpenDoNotCare, Path());

  const auto e = testing::Raised([] { TessaronGlobals::Customers()->GetAll(); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kDuplicateName);
  EXPECT_EQ(e->Description(), "The Customer:Job: " + name + " is duplicated in the QuickBooks file.");
}

TESSARON_ALL_EDITIONS(CustomersEndToEnd);

}  // namespace
}  // namespace tessaron
