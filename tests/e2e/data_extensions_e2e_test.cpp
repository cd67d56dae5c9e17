// Custom and application fields end to end against the embedded processor in strict mode:
// defining fields, setting them on customers, reading them back with the queries, changing
// and clearing them, and what QuickBooks refuses.
#include <gtest/gtest.h>

#include <string>

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/connection/tessaron_globals.h"
#include "tessaron/dataext/data_extension_definitions.h"
#include "tessaron/dataext/data_extensions.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/customers.h"
#include "tessaron/transactions/invoices.h"
#include "tessaron/transactions/txn_item_lines.h"
#include "tests/e2e/e2e_session.h"
#include "tests/support/text_match.h"

namespace tessaron {
namespace {

using testing::Contains;
using testing::EditionTest;

constexpr const char* kGuid = "{6B063959-81B0-4622-85D6-F548C8CCB517}";

class DataExtensionsEndToEnd : public EditionTest {
 protected:
  void SetUp() override {
    EditionTest::SetUp();
    State().DataExtensionsGUID = kGuid;
    company = TessaronGlobals::Company();
    customers = TessaronGlobals::Customers();
  }
  // Defines a custom field for customers and an application field for customers.
  void Define() {
    auto colour = company->CustomFields()->Add("Colour", qbDataExtTypeSTR255TYPE);
    colour->AssignedTos().Add(qoObjectTypeCustomer);
    ASSERT_EQ(company->CustomFields()->Commit(), 0);
    auto visits = company->ApplicationFields()->Add("Visits", qbDataExtTypeINTTYPE);
    visits->AssignedTos().Add(qoObjectTypeCustomer);
    ASSERT_EQ(company->ApplicationFields()->Commit(), 0);
  }
  std::shared_ptr<Customer> ReadBack(const std::string& fullName) {
    customers->SetIncludeDataExtensions(true);
    customers->GetAll();
    return customers->Item(Variant(fullName));
  }
  std::shared_ptr<Company> company;
  std::shared_ptr<Customers> customers;
};

TEST_P(DataExtensionsEndToEnd, FieldsSetOnCustomersAreReadBackByTheQueries) {
  Define();
  EXPECT_EQ(customers->CustomFieldNames()[0], "Colour");
  customers->SetIncludeDataExtensions(true);
  customers->GetAll();
  auto first = customers->Item(Variant(1));
  auto second = customers->Item(Variant(2));
  const std::string firstName = first->FullName(), secondName = second->FullName();
  EXPECT_EQ(first->CustomFields()->Count(), 0);
  first->CustomFields()->Item(Variant("Colour"))->SetValue(Variant("Blue"));
  first->ApplicationFields()->Item(Variant("Visits"))->SetValue(Variant(3));
  second->CustomFields()->Item(Variant("Colour"))->SetValue(Variant("Green"));
  TakeRequests();
  EXPECT_EQ(customers->Commit(), 0);
  // The records were Clean: only the values went out, one message for each record's owner.
  for (const std::string& r : TakeRequests()) EXPECT_FALSE(Contains(r, "CustomerModRq")) << r;

  auto again = ReadBack(firstName);
  EXPECT_EQ(again->CustomFields()->Item(Variant("Colour"))->Value().ToString(), "Blue");
  EXPECT_EQ(again->ApplicationFields()->Item(Variant("Visits"))->Value().ToInteger(), 3);
  EXPECT_EQ(customers->Item(Variant(secondName))->CustomFields()->Item(Variant("Colour"))->Value().ToString(), "Green");
  EXPECT_EQ(customers->Item(Variant(secondName))->ApplicationFields()->Count(), 0);
}

TEST_P(DataExtensionsEndToEnd, ChangingAndClearingValuesReachTheFile) {
  Define();
  customers->GetAll();
  const std::string name = customers->Item(Variant(1))->FullName();
  auto first = ReadBack(name);
  first->CustomFields()->Item(Variant("Colour"))->SetValue(Variant("Blue"));
  first->ApplicationFields()->Item(Variant("Visits"))->SetValue(Variant(3));
  ASSERT_EQ(customers->Commit(), 0);

  first = ReadBack(name);
  first->CustomFields()->Item(Variant("Colour"))->SetValue(Variant("Red"));
  first->ApplicationFields()->Item(Variant("Visits"))->SetValue(Variant(0));  // cleared: deleted on file
  first->SetNotes("Prefers red");
  ASSERT_EQ(customers->Commit(first), 0);

  first = ReadBack(name);
  EXPECT_EQ(first->Notes(), "Prefers red");
  EXPECT_EQ(first->CustomFields()->Item(Variant("Colour"))->Value().ToString(), "Red");
  EXPECT_FALSE(first->ApplicationFields()->ItemExists("Visits"));
}

TEST_P(DataExtensionsEndToEnd, WithoutIncludeDataExtensionsNoValuesAreRead) {
  Define();
  customers->GetAll();
  auto first = customers->Item(Variant(1));
  first->CustomFields()->Item(Variant("Colour"))->SetValue(Variant("Blue"));
  ASSERT_EQ(customers->Commit(), 0);
  customers->SetIncludeDataExtensions(false);
  customers->GetAll();
  EXPECT_EQ(customers->Item(Variant(1))->CustomFields()->Count(), 0);
}

TEST_P(DataExtensionsEndToEnd, QuickBooksRefusesWhatACustomFieldCannotBe) {
  State().ErrorMode = false;
  auto fields = company->CustomFields();
  // Custom fields hold text only.
  auto number = fields->Add("Number", qbDataExtTypeINTTYPE);
  number->AssignedTos().Add(qoObjectTypeCustomer);
  EXPECT_EQ(fields->Commit(number), 1);
  EXPECT_EQ(number->ObjectState(), qoObjectStateNew);
  fields->Remove(Variant("Number"));
  // At most seven for one type.
  for (int i = 1; i <= 8; ++i) fields->Add("Field " + std::to_string(i), qbDataExtTypeSTR255TYPE)->AssignedTos().Add(qoObjectTypeCustomer);
  EXPECT_EQ(fields->Commit(), 1);
  EXPECT_EQ(fields->Item(Variant("Field 8"))->ObjectState(), qoObjectStateNew);
  EXPECT_EQ(fields->Item(Variant("Field 7"))->ObjectState(), qoObjectStateClean);
  // A name is taken once per owner.
  fields->Remove(Variant("Field 8"));
  auto twin = company->ApplicationFields()->Add("Field 1", qbDataExtTypeSTR255TYPE);
  EXPECT_EQ(company->ApplicationFields()->Commit(), 0);
  EXPECT_EQ(twin->ObjectState(), qoObjectStateClean);
}

TEST_P(DataExtensionsEndToEnd, AValueOfTheWrongFormIsRefusedAndStaysDirty) {
  Define();
  State().ErrorMode = false;
  customers->GetAll();
  auto first = ReadBack(customers->Item(Variant(1))->FullName());
  auto visits = first->ApplicationFields()->Item(Variant("Visits"));
  visits->SetDataType(qbDataExtTypeSTR255TYPE);  // the application asks for text where a number is defined
  visits->SetValue(Variant("many"));
  EXPECT_EQ(customers->Commit(), 1);
  EXPECT_EQ(visits->ObjectState(), qoObjectStateNew);
  EXPECT_EQ(visits->Errors()->Count(), 1);
}

// A document takes its customer's custom fields in its header and the application fields
// assigned to its own kind; a query that asks for data extensions reads both back.
TEST_P(DataExtensionsEndToEnd, FieldsSetOnAnInvoiceAreReadBackByTheQuery) {
  Define();
  auto batch = company->ApplicationFields()->Add("Batch", qbDataExtTypeSTR255TYPE);
  batch->AssignedTos().Add(qoObjectTypeInvoice);
  ASSERT_EQ(company->ApplicationFields()->Commit(), 0);
  customers->GetAll();
  auto customer = customers->Item(Variant(1));
  auto invoices = TessaronGlobals::Invoices();
  auto inv = invoices->Add(customer->FullName(), "DX-1");
  inv->ItemLines()->Add("Labor", Currency(2));
  inv->ApplicationFields()->Item(Variant("Batch"))->SetValue(Variant("B-17"));
  ASSERT_EQ(invoices->Commit(inv), 0);  // the document, then its application field
  ASSERT_FALSE(inv->TxnId().empty());
  inv->CustomFields()->Item(Variant("Colour"))->SetValue(Variant("Blue"));
  ASSERT_EQ(inv->CommitCustomFields(), 0);
  // The customer's own value is a value of its own.
  customer->CustomFields()->Item(Variant("Colour"))->SetValue(Variant("Green"));
  ASSERT_EQ(customers->Commit(customer), 0);

  Invoices withFields;
  withFields.SetIncludeDataExtensions(true);
  auto again = withFields.GetByTxnID(inv->TxnId());
  ASSERT_TRUE(again);
  EXPECT_EQ(again->CustomFields()->Item(Variant("Colour"))->Value().ToString(), "Blue");
  EXPECT_EQ(again->ApplicationFields()->Item(Variant("Batch"))->Value().ToString(), "B-17");
  Invoices without;
  EXPECT_EQ(without.GetByTxnID(inv->TxnId())->CustomFields()->Count(), 0);
  EXPECT_EQ(ReadBack(customer->FullName())->CustomFields()->Item(Variant("Colour"))->Value().ToString(), "Green");

  // Cleared, the value is deleted on file.
  again->ApplicationFields()->Item(Variant("Batch"))->SetValue(Variant(""));
  ASSERT_EQ(again->SaveDataExtensions(again->TxnId()), true);
  Invoices afterwards;
  afterwards.SetIncludeDataExtensions(true);
  EXPECT_FALSE(afterwards.GetByTxnID(inv->TxnId())->ApplicationFields()->ItemExists("Batch"));
}

TESSARON_ALL_EDITIONS(DataExtensionsEndToEnd);

}  // namespace
}  // namespace tessaron
