// Values of custom and application fields: reading them from answers that mix owners,
// addressing them by name, the form each data type is sent in, and the commit that follows
// a record's commit and saves changed values only.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_ext_owner.h"
#include "tessaron/dataext/data_extension_definitions.h"
#include "tessaron/dataext/data_extensions.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/lists/customers.h"
#include "tessaron/lists/entities.h"
#include "tessaron/lists/items.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/date.h"
#include "tests/dataext/dataext_session.h"
#include "tests/lists/customer_records.h"
#include "tests/support/raised.h"
#include "tests/support/text_match.h"

namespace tessaron {
namespace {

using testing::Contains;
using testing::CustomerRet;
using testing::DataExtSession;
using testing::DefRet;
using testing::ExtRet;
using testing::kAppGuid;
using testing::NumberRaised;
using testing::ScriptedProcessor;

const std::string kOtherGuid = "{11111111-2222-3333-4444-555555555555}";

// A customers master answering one query with `ret`, read.
std::shared_ptr<Customer> ReadCustomer(DataExtSession& qb, const std::string& more) {
  auto customers = qb.company()->Customers();
  customers->SetIncludeDataExtensions(true);
  const std::string answer = ScriptedProcessor::Response("CustomerQueryRs", CustomerRet("80000001-1", "Abercrombie", more));
  EXPECT_TRUE(testing::IsValidQbxml(answer)) << answer;
  qb.processor().QueueResponse(answer);
  customers->GetAll();
  qb.processor().ClearRecords();
  return customers->Item(Variant(1));
}

// ---- Reading --------------------------------------------------------------------------------

TEST(ValueReading, AnswerMixingOwnersFillsEachOwnersValuesAndDropsForeignOnes) {
  DataExtSession qb("3.0");
  qb.LoadDefinitions();
  std::vector<std::string> noted;
  SetUnknownFieldHook([&](std::string_view message, std::string_view) { noted.emplace_back(message); });
  auto customer = ReadCustomer(qb, "<Notes>call first</Notes>" + ExtRet("0", "Colour", "STR255TYPE", "Blue") +
                                       ExtRet(kAppGuid, "Visits", "INTTYPE", "12") +
                                       ExtRet(kOtherGuid, "Secret", "STR255TYPE", "x") +
                                       ExtRet("0", "Since", "DATETIMETYPE", "2004-02-29"));
  SetUnknownFieldHook(nullptr);
  EXPECT_TRUE(noted.empty()) << noted.front();
  EXPECT_EQ(customer->Notes(), "call first");
  auto custom = customer->CustomFields();
  ASSERT_EQ(custom->Count(), 2);
  EXPECT_EQ(custom->Item(Variant("Colour"))->Value().ToString(), "Blue");
  EXPECT_EQ(custom->Item(Variant("Since"))->Value().ToDate(), DateSerial(2004, 2, 29));
  auto app = customer->ApplicationFields();
  ASSERT_EQ(app->Count(), 1);
  EXPECT_EQ(app->Item(Variant("Visits"))->Value().ToInteger(), 12);
  EXPECT_EQ(app->Item(Variant("Visits"))->ObjectState(), qoObjectStateClean);
  EXPECT_FALSE(app->ItemExists("Secret"));
}

TEST(ValueReading, CustomerQueryAsksForBothOwnersWhenCustomersHaveApplicationFields) {
  DataExtSession qb("3.0", kAppGuid, "", DefRet(kAppGuid, "Visits", "INTTYPE", "Customer"));
  qb.LoadDefinitions();
  ReadCustomer(qb, "");
  qb.processor().QueueResponse(ScriptedProcessor::Response("CustomerQueryRs", ""));
  qb.company()->Customers()->GetAll();
  const std::string sent = qb.processor().LastRequest();
  EXPECT_TRUE(Contains(sent, std::string("<OwnerID>0</OwnerID><OwnerID>") + kAppGuid + "</OwnerID>")) << sent;
}

// ---- Addressing by name ---------------------------------------------------------------------

TEST(ValueItem, AnUnknownPositionRaisesInvalidIndex) {
  DataExtSession qb("3.0");
  auto customer = qb.company()->Customers()->Add("New");
  EXPECT_EQ(NumberRaised([&] { customer->CustomFields()->Item(Variant(3)); }), err::kInvalidDataExtIndex);
}

TEST(ValueItem, APublicFieldWithoutDefinitionIsText) {
  DataExtSession qb("3.0");
  qb.LoadDefinitions();
  auto customer = qb.company()->Customers()->Add("New");
  auto value = customer->CustomFields()->Item(Variant("Undefined"));
  EXPECT_EQ(value->DataType(), qbDataExtTypeSTR255TYPE);
  EXPECT_EQ(value->OwnerId(), "0");
  EXPECT_EQ(value->ObjectState(), qoObjectStateNew);
}

TEST(ValueItem, AnApplicationFieldMustBeDefinedForTheObjectType) {
  DataExtSession qb("3.0", kAppGuid, "",
                    DefRet(kAppGuid, "Visits", "INTTYPE", "Vendor") + DefRet(kAppGuid, "Shelf", "QUANTYPE", "Item"));
  qb.LoadDefinitions();
  auto customer = qb.company()->Customers()->Add("New");
  EXPECT_EQ(NumberRaised([&] { customer->ApplicationFields()->Item(Variant("Undefined")); }), err::kDataExtNotDefined);
  EXPECT_EQ(NumberRaised([&] { customer->ApplicationFields()->Item(Variant("Visits")); }), err::kDataExtNotDefined);
  // Every kind of item shares what is defined for Item.
  auto service = qb.company()->Items()->AddServiceWithSalesOrPurchase("Labour", "", "", Currency(), "Income");
  auto shelf = service->ApplicationFields()->Item(Variant("Shelf"));
  EXPECT_EQ(shelf->DataType(), qbDataExtTypeQUANTYPE);
  EXPECT_EQ(shelf->OwnerId(), kAppGuid);
}

// ---- The form of each type ---------------------------------------------------------------------

struct FormRow {
  qbEnumDataExtDataType type;
  Variant value;
  const char* sent;
};

class ValueForms : public ::testing::TestWithParam<FormRow> {};

TEST_P(ValueForms, ValueIsSentInTheFormOfItsType) {
  DataExtSession qb("3.0");
  DataExtensions values;
  values.SetOwnerId("0");
  auto v = values.Add("F");
  v->SetDataType(GetParam().type);
  v->SetValue(GetParam().value);
  EXPECT_EQ(v->ValueText(), GetParam().sent);
}

INSTANTIATE_TEST_SUITE_P(
    EveryDataType, ValueForms,
    ::testing::Values(FormRow{qbDataExtTypeINTTYPE, Variant("42"), "42"},
                      FormRow{qbDataExtTypeAMTTYPE, Variant(Currency::Parse("1234.5")), "1234.50"},
                      FormRow{qbDataExtTypeAMTTYPE, Variant("1.005"), "1.01"},
                      FormRow{qbDataExtTypePRICETYPE, Variant("3.25"), "0000003.2500"},
                      FormRow{qbDataExtTypeQUANTYPE, Variant(Currency::Parse("12.5")), "0000012.5000"},
                      FormRow{qbDataExtTypePERCENTTYPE, Variant("7.5%"), "0000007.5000"},
                      FormRow{qbDataExtTypeDATETIMETYPE, Variant("2004-02-29"), "2004-02-29"},
                      FormRow{qbDataExtTypeSTR255TYPE, Variant("a & b"), "a & b"},
                      FormRow{qbDataExtTypeSTR1024TYPE, Variant(""), ""}));

TEST(ValueForms, AnUnknownTypeRaisesAsAProgrammingFailure) {
  DataExtensions values;
  auto v = values.Add("F");
  v->SetDataType(static_cast<qbEnumDataExtDataType>(9));
  auto e = testing::Raised([&] { v->SetValue(Variant("1")); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->Source(), "Tessaron: DataExt");
}

// ---- Saving after the record ---------------------------------------------------------------------

TEST(ValueCommit, ACustomerCommitSavesTheChangedCustomFieldsAndOnlyThose) {
  DataExtSession qb("3.0");
  qb.LoadDefinitions();
  auto customer = ReadCustomer(qb, ExtRet("0", "Colour", "STR255TYPE", "Blue") +
                                       ExtRet("0", "Size", "STR255TYPE", "Large"));
  customer->CustomFields()->Item(Variant("Colour"))->SetValue(Variant("Green"));
  customer->CustomFields()->Item(Variant("Region"))->SetValue(Variant("North"));
  customer->CustomFields()->Item(Variant("Looked at"));  // addressed, never set
  EXPECT_EQ(qb.company()->Customers()->Commit(), 0);
  // The customer itself is Clean: one message with the two values only.
  ASSERT_EQ(qb.processor().Requests().size(), 1u);
  const std::string sent = qb.processor().LastRequest();
  EXPECT_TRUE(Contains(sent, "<DataExtMod><OwnerID>0</OwnerID><DataExtName>Colour</DataExtName>"
                             "<ListDataExtType>Customer</ListDataExtType><ListObjRef><ListID>80000001-1</ListID>"
                             "</ListObjRef><DataExtValue>Green</DataExtValue></DataExtMod>"))
      << sent;
  EXPECT_TRUE(Contains(sent, "<DataExtAdd><OwnerID>0</OwnerID><DataExtName>Region</DataExtName>")) << sent;
  EXPECT_FALSE(Contains(sent, "Size"));
  EXPECT_FALSE(Contains(sent, "Looked at"));
  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_EQ(customer->CustomFields()->Item(Variant("Colour"))->ObjectState(), qoObjectStateClean);
  // Nothing changed since: a second commit sends nothing.
  qb.processor().ClearRecords();
  qb.company()->Customers()->Commit();
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST(ValueCommit, AValueSetToTheEmptyValueOfItsTypeIsDeleted) {
  DataExtSession qb("3.0", kAppGuid, "", DefRet(kAppGuid, "Credit", "AMTTYPE", "Customer"));
  qb.LoadDefinitions();
  auto customer = ReadCustomer(qb, ExtRet(kAppGuid, "Credit", "AMTTYPE", "250.00"));
  customer->ApplicationFields()->Item(Variant("Credit"))->SetValue(Variant(Currency()));
  EXPECT_TRUE(customer->SaveDataExtensions(customer->ListID()));
  const std::string sent = qb.processor().LastRequest();
  EXPECT_TRUE(Contains(sent, std::string("<DataExtDel><OwnerID>") + kAppGuid +
                                 "</OwnerID><DataExtName>Credit</DataExtName><ListDataExtType>Customer"))
      << sent;
  EXPECT_FALSE(Contains(sent, "DataExtValue"));
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST(ValueCommit, BelowVersion3ApplicationFieldsAreNotSavedAndStoredValuesCannotChange) {
  DataExtSession qb("2.0", kAppGuid, "", DefRet(kAppGuid, "Visits", "INTTYPE", "Customer"));
  qb.LoadDefinitions();
  auto customer = ReadCustomer(qb, ExtRet("0", "Colour", "STR255TYPE", "Blue"));
  EXPECT_EQ(NumberRaised([&] { customer->CustomFields()->Item(Variant("Colour"))->SetValue(Variant("Red")); }),
            err::kFieldCannotBeModified);
  customer->ApplicationFields()->Item(Variant("Visits"))->SetValue(Variant(3));
  customer->SaveDataExtensions(customer->ListID());
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST(ValueCommit, AFailedValueIsCountedByTheCollectionAndStaysDirty) {
  DataExtSession qb("3.0");
  qb.LoadDefinitions();
  State().ErrorMode = false;
  auto customer = ReadCustomer(qb, ExtRet("0", "Colour", "STR255TYPE", "Blue"));
  auto colour = customer->CustomFields()->Item(Variant("Colour"));
  colour->SetValue(Variant("Green"));
  qb.processor().QueueResponse(ScriptedProcessor::Response(
      "DataExtModRs", "", 3120, "Object not found. QuickBooks error message: Invalid data extension"));
  EXPECT_EQ(qb.company()->Customers()->Commit(), 1);
  EXPECT_EQ(colour->ObjectState(), qoObjectStateDirty);
  auto error = colour->Errors()->Item(Variant(1));
  EXPECT_EQ(static_cast<uint32_t>(error->Number()), err::kDatabaseOpenFailed);
  EXPECT_EQ(error->Description(), "Invalid data extension");
}

TEST(ValueCommit, TheCompanysApplicationFieldsGoOutAsOtherDataExtType) {
  DataExtSession qb("3.0", kAppGuid, "", DefRet(kAppGuid, "Licence", "STR255TYPE", "Company"));
  qb.LoadDefinitions();
  auto v = qb.company()->CompanyApplicationFields()->Item(Variant("Licence"));
  v->SetValue(Variant("A-1"));
  EXPECT_EQ(qb.company()->Commit(), 0);
  EXPECT_TRUE(Contains(qb.processor().LastRequest(),
                       "<DataExtName>Licence</DataExtName><OtherDataExtType>Company</OtherDataExtType>"
                       "<DataExtValue>A-1</DataExtValue>"));
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

// A line of an invoice, as a transaction line holds its values.
class InvoiceLine final : public DataExtOwner {
 public:
  InvoiceLine() : DataExtOwner(qoObjectTypeInvoice) {}

 protected:
  std::string DataExtRecordId() const override { return "TXN-1"; }
  std::string DataExtLineId() const override { return "LINE-7"; }
};

TEST(ValueCommit, ALinesValuesNameTheLineWhenChangedButNotWhenAdded) {
  DataExtSession qb("3.0");
  qb.LoadDefinitions();
  InvoiceLine line;
  line.CustomFields()->Item(Variant("Colour"))->SetValue(Variant("Blue"));
  EXPECT_EQ(line.CommitCustomFields(), 0);
  const std::string add = qb.processor().LastRequest();
  EXPECT_TRUE(Contains(add, "<TxnDataExtType>Invoice</TxnDataExtType><TxnID>TXN-1</TxnID><DataExtValue>")) << add;
  line.CustomFields()->Item(Variant("Colour"))->SetValue(Variant("Red"));
  EXPECT_EQ(line.CommitCustomFields(), 0);
  const std::string mod = qb.processor().LastRequest();
  EXPECT_TRUE(Contains(mod, "<TxnID>TXN-1</TxnID><TxnLineID>LINE-7</TxnLineID><DataExtValue>Red")) << mod;
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

// ---- Which queries ask for application fields -------------------------------------------------------

struct AppFieldsRow {
  const char* assignedTo;
  qoEnumListObjectType asked;
  bool has;
};

class AppFieldsOfType : public ::testing::TestWithParam<AppFieldsRow> {};

TEST_P(AppFieldsOfType, ObjectTypeHasAppFieldsFollowsTheAssignedTypes) {
  DataExtSession qb("3.0", kAppGuid, "", DefRet(kAppGuid, "F", "STR255TYPE", GetParam().assignedTo));
  qb.LoadDefinitions();
  EXPECT_EQ(ObjectTypeHasAppFields(GetParam().asked), GetParam().has);
}

INSTANTIATE_TEST_SUITE_P(Entities, AppFieldsOfType,
                         ::testing::Values(AppFieldsRow{"Vendor", qoObjectTypeEntity, true},
                                           AppFieldsRow{"OtherName", qoObjectTypeEntity, true},
                                           AppFieldsRow{"Employee", qoObjectTypeEntity, true},
                                           AppFieldsRow{"Customer", qoObjectTypeEntity, true},
                                           AppFieldsRow{"Item,Account", qoObjectTypeEntity, false},
                                           AppFieldsRow{"Vendor", qoObjectTypeCustomer, false},
                                           AppFieldsRow{"Invoice,Customer", qoObjectTypeCustomer, true}));

TEST(ValueReading, EntitiesAskForTheApplicationsFieldsWhenAKindOfNameHasThem) {
  DataExtSession qb("3.0", kAppGuid, "", DefRet(kAppGuid, "Visits", "INTTYPE", "Employee"));
  qb.LoadDefinitions();
  auto entities = qb.company()->Entities();
  entities->SetIncludeDataExtensions(true);
  entities->GetAll();
  EXPECT_TRUE(Contains(qb.processor().LastRequest(), std::string("<OwnerID>0</OwnerID><OwnerID>") + kAppGuid))
      << qb.processor().LastRequest();
}

TEST(CustomFieldNames, NamesFollowTheDefinitionsOfTheTypeAndAreReadOnce) {
  DataExtSession qb("3.0", kAppGuid,
                    DefRet("0", "Colour", "STR255TYPE", "Customer,Vendor") + DefRet("0", "Shelf", "STR255TYPE", "Item") +
                        DefRet("0", "Region", "STR255TYPE", "Customer"));
  qb.LoadDefinitions();
  const auto& names = qb.company()->Customers()->CustomFieldNames();
  ASSERT_EQ(names.size(), 7u);
  EXPECT_EQ(names[0], "Colour");
  EXPECT_EQ(names[1], "Region");
  EXPECT_EQ(names[2], "");
  qb.company()->CustomFields()->Add("Later", qbDataExtTypeSTR255TYPE)->AssignedTos().Add(qoObjectTypeCustomer);
  EXPECT_EQ(qb.company()->Customers()->CustomFieldNames()[2], "");
  EXPECT_EQ(qb.company()->Items()->CustomFieldNames()[0], "Shelf");
}

}  // namespace
}  // namespace tessaron
