// Vendors, other names, employees and payroll items end to end against a company file of
// the embedded processor, in each national edition: create, commit, change, query by every
// filter, delete; and the entity list reading all four kinds in one answer.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "tessaron/connection/tessaron_globals.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/employees.h"
#include "tessaron/lists/entities.h"
#include "tessaron/lists/payroll_item.h"
#include "tessaron/lists/vendors.h"
#include "tests/e2e/e2e_session.h"
#include "tests/support/raised.h"

namespace tessaron {
namespace {

using testing::EditionTest;
using testing::NumberRaised;

std::string FirstError(qcList& list) {
  return list.Errors()->Count() ? list.Errors()->Item(1)->Description() : std::string();
}

class EntitiesEndToEnd : public EditionTest {};

TEST_P(EntitiesEndToEnd, VendorIsCreatedChangedReadBackAndDeleted) {
  auto vendors = TessaronGlobals::Vendors();
  auto v = vendors->Add("Harbour Timber", "Harbour Timber Ltd", "Ms.", "Ines", "R", "Okafor", "555-0140",
                        "555-0141", "555-0142", "orders.harbour.test", "Ines Okafor", "Tom Reed", "Harbour Timber Ltd",
                        "HT-9", "", Currency(8000), "98-7654321", true, Currency(120), DateSerial(2024, 1, 31), true,
                        "4 Quay Road", "", "", "Portside", "Kent", "ME2 2BB");
  ASSERT_EQ(vendors->Commit(), 0) << FirstError(*vendors) << " " << v->Errors()->Count();
  EXPECT_EQ(v->ObjectState(), qoObjectStateClean);
  ASSERT_FALSE(v->ListID().empty());
  EXPECT_EQ(v->Balance(), Currency(120));

  // A change of the vendor, then one of its address alone.
  v->SetPhone("555-0149");
  v->SetLastName("");
  ASSERT_EQ(vendors->Commit(), 0) << FirstError(*vendors);
  v->Address()->SetCity("Eastharbor");
  EXPECT_EQ(v->ObjectState(), qoObjectStateClean);
  ASSERT_EQ(vendors->Commit(), 0) << FirstError(*vendors);
  EXPECT_EQ(v->Address()->ObjectState(), qoObjectStateClean);

  Vendors fresh;
  auto back = fresh.GetByFullName("Harbour Timber");
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->Phone(), "555-0149");
  EXPECT_EQ(back->LastName(), "");
  EXPECT_EQ(back->FirstName(), "Ines");
  EXPECT_EQ(back->NameOnCheck(), "Harbour Timber Ltd");
  EXPECT_EQ(back->AccountNumber(), "HT-9");
  EXPECT_EQ(back->TaxId(), "98-7654321");
  EXPECT_EQ(back->EligibleFor1099(), IsUS());  // only the US editions are sent the flag
  EXPECT_EQ(back->CreditLimit(), Currency(8000));
  EXPECT_EQ(back->Address()->Line1(), "4 Quay Road");
  EXPECT_EQ(back->Address()->City(), "Eastharbor");
  EXPECT_EQ(back->Address()->State(), "Kent");

  // A field the modify cannot carry is fixed once committed.
  EXPECT_EQ(NumberRaised([&] { back->SetTaxId("1"); }), err::kFieldCannotBeModified);

  // The opening balance is a transaction of the vendor's, so QuickBooks keeps the name.
  EXPECT_EQ(back->Balance(), Currency(120));
  const std::string id = v->ListID();
  EXPECT_EQ(NumberRaised([&] { vendors->Delete(id); }), err::kBuilderStatus);
  Vendors after;
  EXPECT_NE(after.GetByListID(id), nullptr);

  auto plain = vendors->Add("Quay Fuels");
  ASSERT_EQ(vendors->Commit(), 0) << FirstError(*vendors);
  EXPECT_EQ(vendors->Delete(plain->ListID()), 0);
  EXPECT_FALSE(vendors->ItemExists(Variant("Quay Fuels")));
}

TEST_P(EntitiesEndToEnd, VendorThatFailsItsChecksStaysNewAndOthersGoThrough) {
  auto vendors = TessaronGlobals::Vendors();
  auto bad = vendors->Add("Nordic Fasteners");
  bad->SetEligibleFor1099(true);  // without address and TaxId
  auto good = vendors->Add("Nordic Hinges");
  good->SetNotes("Deliveries on Tuesdays");
  State().ErrorMode = false;
  EXPECT_EQ(vendors->Commit(), 1);
  EXPECT_EQ(bad->ObjectState(), qoObjectStateNew);
  EXPECT_EQ(static_cast<uint32_t>(bad->Errors()->Item(1)->Number()), err::kVendor1099NeedsAddress);
  EXPECT_EQ(good->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(Vendors().GetByFullName("Nordic Hinges")->Notes(), "Deliveries on Tuesdays");
}

TEST_P(EntitiesEndToEnd, VendorsByEveryFilter) {
  auto vendors = TessaronGlobals::Vendors();
  const int32_t all = vendors->GetAll();
  ASSERT_GT(all, 5);
  int32_t inactive = 0, owing = 0;
  for (const auto& v : *vendors) {
    inactive += !v->IsActive();
    owing += v->Balance() > Currency(1000);
  }
  const auto first = vendors->Item(Variant(1));
  const auto second = vendors->Item(Variant(2));

  // The status queries send neither the limit nor the balance filter.
  EXPECT_EQ(vendors->GetAll(5, qbGreaterThan, Currency(1000)), all);
  EXPECT_EQ(vendors->GetActive(), all - inactive);
  for (const auto& v : *vendors) EXPECT_TRUE(v->IsActive());

  EXPECT_EQ(vendors->GetMultiple({first->FullName(), second->FullName()}), 2);
  EXPECT_EQ(vendors->GetByListID(second->ListID())->FullName(), second->FullName());

  vendors->GetByNameMatch("Wholesale", qbMatchContains);
  EXPECT_GT(vendors->Count(), 0);
  for (const auto& v : *vendors) EXPECT_NE(v->FullName().find("Wholesale"), std::string::npos);

  vendors->GetByNameRange("A", "M", 0, qbGreaterThan, Currency(1000));
  for (const auto& v : *vendors) {
    EXPECT_LE(v->FullName().substr(0, 1), "M");
    EXPECT_GT(v->Balance(), Currency(1000));
  }
  EXPECT_LE(vendors->Count(), owing);

  EXPECT_EQ(vendors->GetByDateSpan(DateSerial(2000, 1, 1), 0), all - inactive);
  EXPECT_EQ(vendors->GetByDateSpan(DateSerial(2999, 1, 1), 0), 0);
}

TEST_P(EntitiesEndToEnd, OtherNameIsCreatedChangedQueriedAndDeleted) {
  auto names = TessaronGlobals::OtherNames();
  const int32_t before = names->GetAll();
  auto o = names->Add("Board Member", "", "Dr.", "Kaja", "", "Brandt", "555-0190", "", "", "", "", "", "BM-1", true,
                      "9 Elm Row", "", "", "Millbrook");
  ASSERT_EQ(names->Commit(), 0) << FirstError(*names);
  ASSERT_FALSE(o->ListID().empty());
  o->SetEmail("kaja.brandt.test");
  o->Address()->SetPostalCode("ME1 3CC");
  ASSERT_EQ(names->Commit(), 0) << FirstError(*names);

  OtherNames fresh;
  EXPECT_EQ(fresh.GetAll(), before + 1);
  EXPECT_EQ(fresh.GetActive(), before + 1);
  fresh.GetByNameMatch("Board", qbMatchStartsWith);
  ASSERT_EQ(fresh.Count(), 1);
  auto back = fresh.Item(Variant(1));
  EXPECT_EQ(back->Email(), "kaja.brandt.test");
  EXPECT_EQ(back->Address()->PostalCode(), "ME1 3CC");
  EXPECT_EQ(back->AccountNumber(), "BM-1");
  EXPECT_GE(fresh.GetByNameRange("O", "P"), 1);
  EXPECT_TRUE(fresh.ItemExists(Variant("Owner")));
  EXPECT_FALSE(fresh.ItemExists(Variant("Board Member")));
  EXPECT_EQ(fresh.GetByDateSpan(DateSerial(2999, 1, 1), 0), 0);

  EXPECT_EQ(names->Delete(o->ListID()), 0);
  OtherNames after;
  EXPECT_EQ(after.GetAll(), before);
}

TEST_P(EntitiesEndToEnd, EmployeeWithPayrollIsCreatedChangedQueriedAndDeleted) {
  auto employees = TessaronGlobals::Employees();
  const int32_t before = employees->GetAll();
  ASSERT_GT(before, 2);
  EXPECT_EQ(employees->GetAll(2), 2);  // the status query of employees sends the limit

  auto e = employees->Add("Lena Sorensen", "Lena", "", "Sorensen", "Ms.", "Lena Sorensen", "555-0160", "", "",
                          "lena.test", "000-00-0099", 1 /* regular */, 2 /* female */, DateSerial(2023, 4, 3), 0,
                          DateSerial(1990, 7, 14), "E-12", "Joinery", true, "3 Mill Lane", "", "Millbrook", "Kent",
                          "ME1 4DD");
  e->SetPayPeriod(2 /* weekly */);
  e->AddEarningsType("Hourly Wage", Currency(24));
  e->SickHours()->SetHoursAvailable(qcTimeInterval(16, 0));
  e->SickHours()->SetAccrualPeriod(1 /* beginning of year */);
  ASSERT_EQ(employees->Commit(), 0) << FirstError(*employees);
  ASSERT_FALSE(e->ListID().empty());
  EXPECT_EQ(e->ObjectState(), qoObjectStateClean);

  // A change of a pay rate alone leaves the employee Clean and still goes out.
  e->EarningsTypes().at(0)->SetRate(Currency(26));
  EXPECT_EQ(e->ObjectState(), qoObjectStateClean);
  e->SetPhone("555-0161");
  ASSERT_EQ(employees->Commit(), 0) << FirstError(*employees);
  e->EarningsTypes().at(0)->SetRate(Currency(27));
  ASSERT_EQ(employees->Commit(), 0) << FirstError(*employees);
  EXPECT_EQ(NumberRaised([&] { e->SetSSN("1"); }), err::kFieldCannotBeModified);

  Employees fresh;
  auto back = fresh.GetByFullName("Lena Sorensen");
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(back->Phone(), "555-0161");
  EXPECT_EQ(back->Gender(), 2);
  EXPECT_EQ(back->EmployeeType(), 1);
  EXPECT_EQ(back->BirthDate(), DateSerial(1990, 7, 14));
  EXPECT_EQ(back->Address()->City(), "Millbrook");
  EXPECT_EQ(back->PayPeriod(), 2);
  ASSERT_EQ(back->EarningsTypes().size(), 1u);
  EXPECT_EQ(back->EarningsTypes()[0]->PayrollItemWage(), "Hourly Wage");
  EXPECT_EQ(back->EarningsTypes()[0]->Rate(), Currency(27));
  EXPECT_EQ(back->SickHours()->HoursAvailable(), qcTimeInterval(16, 0));

  EXPECT_EQ(fresh.GetActive(), before + 1);
  fresh.GetByNameMatch("Sorensen", qbMatchEndsWith);
  EXPECT_EQ(fresh.Count(), 1);
  EXPECT_GT(fresh.GetByNameRange("A", "Z"), 0);
  EXPECT_EQ(fresh.GetByDateSpan(DateSerial(2999, 1, 1), 0), 0);

  EXPECT_EQ(employees->Delete(e->ListID()), 0);
  Employees after;
  EXPECT_EQ(after.GetAll(), before);
}

TEST_P(EntitiesEndToEnd, PayrollItemsAreReadAndWageItemsAdded) {
  auto wages = TessaronGlobals::PayrollItemWages();
  const int32_t before = wages->GetAll();
  ASSERT_GE(before, 2);
  auto w = wages->Add("Overtime Pay", 1 /* hourly regular */, "Payroll Expenses");
  ASSERT_EQ(wages->Commit(), 0) << FirstError(*wages);
  ASSERT_FALSE(w->ListID().empty());
  EXPECT_EQ(w->WageTypeText(), "HourlyRegular");
  EXPECT_EQ(w->ExpenseAccount(), "Payroll Expenses");
  EXPECT_EQ(NumberRaised([&] { w->SetWageType(2); }), err::kFieldCannotBeModified);

  PayrollItemWages fresh;
  EXPECT_EQ(fresh.GetAll(), before + 1);
  EXPECT_EQ(fresh.GetActive(), before + 1);
  EXPECT_EQ(fresh.GetByNameMatch("Overtime", qbMatchStartsWith), 1);
  EXPECT_EQ(fresh.GetByNameRange("Sa", "Sb"), 1);  // "Salary"
  EXPECT_EQ(fresh.GetByDateSpan(DateSerial(2999, 1, 1), 0), 0);
  EXPECT_NE(fresh.GetByListID(w->ListID()), nullptr);

  auto nonWages = TessaronGlobals::PayrollItemNonWages();
  ASSERT_GE(nonWages->GetAll(), 1);
  auto health = nonWages->GetByFullName("Health Insurance");
  ASSERT_NE(health, nullptr);
  EXPECT_EQ(health->NonWageTypeText(), "Deduction");
  EXPECT_EQ(health->NonWageType(), 2);
  EXPECT_EQ(health->LiabilityAccount(), "Payroll Liabilities");
  EXPECT_EQ(nonWages->GetByNameMatch("Health", qbMatchStartsWith), 1);
}

TEST_P(EntitiesEndToEnd, EntityListReadsAllFourKindsInOneAnswer) {
  auto entities = TessaronGlobals::Entities();
  ASSERT_GT(entities->GetAll(), 0);
  std::set<std::string> kinds;
  for (const auto& obj : entities->NewEnum()) {
    if (std::dynamic_pointer_cast<Customer>(obj)) kinds.insert("Customer");
    else if (std::dynamic_pointer_cast<Vendor>(obj)) kinds.insert("Vendor");
    else if (std::dynamic_pointer_cast<OtherName>(obj)) kinds.insert("OtherName");
    else if (std::dynamic_pointer_cast<Employee>(obj)) kinds.insert("Employee");
  }
  EXPECT_EQ(kinds, (std::set<std::string>{"Customer", "Employee", "OtherName", "Vendor"}));
  auto owner = std::dynamic_pointer_cast<OtherName>(entities->GetByFullName("Owner"));
  ASSERT_NE(owner, nullptr);
  EXPECT_EQ(owner->FirstName(), "Nils");
}

TESSARON_ALL_EDITIONS(EntitiesEndToEnd);

}  // namespace
}  // namespace tessaron
