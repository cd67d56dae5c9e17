// Definitions of custom and application fields: who may add and delete them, their
// checks, what the commit writes (add, the difference of assigned types, rename), and
// reading definitions of every data type.
#include <gtest/gtest.h>

#include <string>

#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_extension_definitions.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tests/dataext/dataext_session.h"
#include "tests/support/raised.h"
#include "tests/support/text_match.h"

namespace tessaron {
namespace {

using testing::Contains;
using testing::DataExtSession;
using testing::DefRet;
using testing::kAppGuid;
using testing::NumberRaised;
using testing::ScriptedProcessor;

// ---- Who may define ----------------------------------------------------------------------

TEST(DefinitionGate, BelowVersion3CustomFieldsCannotBeDefined) {
  DataExtSession qb("2.0");
  qb.LoadDefinitions();
  EXPECT_EQ(NumberRaised([&] { qb.company()->CustomFields()->Add("Colour", qbDataExtTypeSTR255TYPE); }),
            err::kAppFieldsOnly);
  EXPECT_NE(qb.company()->ApplicationFields()->Add("Colour", qbDataExtTypeSTR255TYPE), nullptr);
}

TEST(DefinitionGate, BelowVersion3ApplicationFieldsNeedARegisteredGuid) {
  DataExtSession qb("2.0", "");
  qb.LoadDefinitions();
  EXPECT_EQ(NumberRaised([&] { qb.company()->ApplicationFields()->Add("Ref", qbDataExtTypeINTTYPE); }),
            err::kNoDataExtGuid);
}

TEST(DefinitionGate, FromVersion3CustomFieldsCanBeDefinedButNeverDeleted) {
  DataExtSession qb("3.0");
  qb.LoadDefinitions();
  auto fields = qb.company()->CustomFields();
  EXPECT_NE(fields->Add("Colour", qbDataExtTypeSTR255TYPE), nullptr);
  EXPECT_EQ(NumberRaised([&] { fields->Delete("Colour"); }), err::kAppFieldsOnly);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST(DefinitionGate, AddOutsideTheMasterAndWithoutNameRaise) {
  DataExtSession qb("3.0");
  DataExtensionDefinitions loose;
  EXPECT_EQ(NumberRaised([&] { loose.Add("Colour", qbDataExtTypeSTR255TYPE); }), err::kMasterOnly);
  EXPECT_EQ(NumberRaised([&] { qb.company()->CustomFields()->Add("", qbDataExtTypeSTR255TYPE); }), err::kNameNull);
}

// ---- Checks -------------------------------------------------------------------------------

TEST(DefinitionValidate, NameOf31CharactersPassesAnd32Fails) {
  DataExtSession qb("3.0");
  State().ErrorMode = false;
  qb.LoadDefinitions();
  auto fields = qb.company()->ApplicationFields();
  auto ok = fields->Add(std::string(31, 'a'), qbDataExtTypeSTR255TYPE);
  EXPECT_TRUE(ok->Validate());
  auto tooLong = fields->Add(std::string(32, 'b'), qbDataExtTypeSTR255TYPE);
  EXPECT_FALSE(tooLong->Validate());
  EXPECT_EQ(static_cast<uint32_t>(tooLong->Errors()->Item(Variant(1))->Number()), err::kNameTooLong);
  // One bad definition holds the whole message back.
  EXPECT_EQ(fields->Commit(), 1);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

// ---- What the commit writes ----------------------------------------------------------------

TEST(DefinitionCommit, AddCarriesOwnerNameTypeAndEveryAssignedType) {
  DataExtSession qb("3.0");
  qb.LoadDefinitions();
  auto fields = qb.company()->ApplicationFields();
  auto def = fields->Add("Route", qbDataExtTypeQUANTYPE);
  def->AssignedTos().Add(qoObjectTypeCustomer);
  def->AssignedTos().Add(qoObjectTypeSalesOrder);
  qb.processor().QueueResponse(ScriptedProcessor::Response(
      "DataExtDefAddRs", DefRet(kAppGuid, "Route", "QUANTYPE", "Customer,SalesOrder")));
  EXPECT_EQ(fields->Commit(), 0);
  const std::string sent = qb.processor().LastRequest();
  EXPECT_TRUE(Contains(sent, "<DataExtDefAdd><OwnerID>" + std::string(kAppGuid) +
                                 "</OwnerID><DataExtName>Route</DataExtName><DataExtType>QUANTYPE</DataExtType>"
                                 "<AssignToObject>Customer</AssignToObject><AssignToObject>SalesOrder</AssignToObject>"
                                 "</DataExtDefAdd>"))
      << sent;
  EXPECT_EQ(def->ObjectState(), qoObjectStateClean);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST(DefinitionCommit, TwoChangedTypesGiveOneAssignAndOneRemoveInOneMod) {
  DataExtSession qb("3.0", kAppGuid, "", DefRet(kAppGuid, "Route", "STR255TYPE", "Customer"));
  qb.LoadDefinitions();
  auto fields = qb.company()->ApplicationFields();
  auto def = fields->Item(Variant("Route"));
  ASSERT_EQ(def->ObjectState(), qoObjectStateClean);
  def->AssignedTos().Remove(Variant(1));
  def->AssignedTos().Add(qoObjectTypeVendor);
  EXPECT_EQ(def->ObjectState(), qoObjectStateDirty);
  EXPECT_EQ(fields->Commit(), 0);
  const std::string sent = qb.processor().LastRequest();
  EXPECT_TRUE(Contains(sent, "<DataExtName>Route</DataExtName><AssignToObject>Vendor</AssignToObject>"
                             "<RemoveFromObject>Customer</RemoveFromObject></DataExtDefMod>"))
      << sent;
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST(DefinitionCommit, RenameMovesTheKeyAtOnceAndSendsTheNewName) {
  DataExtSession qb("3.0", kAppGuid, "", DefRet(kAppGuid, "Route", "STR255TYPE", "Customer"));
  qb.LoadDefinitions();
  auto fields = qb.company()->ApplicationFields();
  auto def = fields->Item(Variant("Route"));
  fields->Rename(def, "Round");
  EXPECT_TRUE(fields->ItemExists(Variant("Round")));
  EXPECT_FALSE(fields->ItemExists(Variant("Route")));
  EXPECT_EQ(fields->Commit(), 0);
  EXPECT_TRUE(Contains(qb.processor().LastRequest(),
                       "<DataExtName>Route</DataExtName><DataExtNewName>Round</DataExtNewName></DataExtDefMod>"));
}

TEST(DefinitionCommit, StatusOf3100IsTheDuplicateNameError) {
  DataExtSession qb("3.0");
  qb.LoadDefinitions();
  State().ErrorMode = false;
  auto fields = qb.company()->ApplicationFields();
  auto def = fields->Add("Route", qbDataExtTypeSTR255TYPE);
  qb.processor().QueueResponse(ScriptedProcessor::Response("DataExtDefAddRs", "", 3100, "The name is in use."));
  EXPECT_EQ(fields->Commit(), 1);
  EXPECT_EQ(static_cast<uint32_t>(def->Errors()->Item(Variant(1))->Number()), err::kDuplicateName);
  EXPECT_EQ(def->ObjectState(), qoObjectStateNew);
}

TEST(DefinitionCommit, AStoredDefinitionKeepsItsType) {
  DataExtSession qb("3.0", kAppGuid, "", DefRet(kAppGuid, "Route", "STR255TYPE", "Customer"));
  qb.LoadDefinitions();
  auto def = qb.company()->ApplicationFields()->Item(Variant("Route"));
  EXPECT_EQ(NumberRaised([&] { def->SetDataType(qbDataExtTypeINTTYPE); }), err::kFieldCannotBeModified);
}

TEST(DefinitionCommit, BelowVersion3AStoredDefinitionsTypesCannotChange) {
  DataExtSession qb("2.0", kAppGuid, "", DefRet(kAppGuid, "Route", "STR255TYPE", "Customer"));
  qb.LoadDefinitions();
  auto def = qb.company()->ApplicationFields()->Item(Variant("Route"));
  auto e = testing::Raised([&] { def->AssignedTos().Add(qoObjectTypeVendor); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->Source(), "dataExtAssingedTos");
  EXPECT_EQ(def->AssignedTos().Count(), 1);
}

// ---- Queries ------------------------------------------------------------------------------

struct TypeRow {
  const char* text;
  qbEnumDataExtDataType type;
};

class DefinitionTypes : public ::testing::TestWithParam<TypeRow> {};

TEST_P(DefinitionTypes, QueryReadsTheTypeAndTheAssignedObjects) {
  const TypeRow row = GetParam();
  DataExtSession qb("3.0");
  auto fields = qb.company()->ApplicationFields();  // nothing registered yet is read
  qb.processor().QueueResponse(ScriptedProcessor::Response(
      "DataExtDefQueryRs", DefRet(kAppGuid, "Field", row.text, "Customer,Item,Invoice")));
  EXPECT_EQ(fields->GetByAssignedToObject(qoObjectTypeCustomer), 1);
  EXPECT_TRUE(Contains(qb.processor().LastRequest(), "<AssignToObject>Customer</AssignToObject>"));
  auto def = fields->Item(Variant(1));
  EXPECT_EQ(def->DataType(), row.type);
  EXPECT_EQ(def->AssignedTos().Count(), 3);
  EXPECT_TRUE(def->AssignedTos().Holds(qoObjectTypeInvoice));
  EXPECT_EQ(def->ObjectState(), qoObjectStateClean);
}

INSTANTIATE_TEST_SUITE_P(EveryDataType, DefinitionTypes,
                         ::testing::Values(TypeRow{"INTTYPE", qbDataExtTypeINTTYPE},
                                           TypeRow{"AMTTYPE", qbDataExtTypeAMTTYPE},
                                           TypeRow{"PRICETYPE", qbDataExtTypePRICETYPE},
                                           TypeRow{"QUANTYPE", qbDataExtTypeQUANTYPE},
                                           TypeRow{"PERCENTTYPE", qbDataExtTypePERCENTTYPE},
                                           TypeRow{"DATETIMETYPE", qbDataExtTypeDATETIMETYPE},
                                           TypeRow{"STR255TYPE", qbDataExtTypeSTR255TYPE},
                                           TypeRow{"STR1024TYPE", qbDataExtTypeSTR1024TYPE}));

TEST(DefinitionQuery, CompanyReadsEachOwnersDefinitionsOnce) {
  DataExtSession qb("3.0");
  qb.company()->CustomFields();
  qb.company()->CustomFields();
  qb.company()->ApplicationFields();
  ASSERT_EQ(qb.processor().Requests().size(), 2u);
  EXPECT_TRUE(Contains(qb.processor().Requests()[0], "<OwnerID>0</OwnerID>"));
  EXPECT_TRUE(Contains(qb.processor().Requests()[1], std::string("<OwnerID>") + kAppGuid + "</OwnerID>"));
}

TEST(DefinitionQuery, WithoutAGuidApplicationFieldsAreNotAskedFor) {
  DataExtSession qb("3.0", "");
  EXPECT_EQ(qb.company()->ApplicationFields()->Count(), 0);
  EXPECT_TRUE(qb.processor().Requests().empty());
}

}  // namespace
}  // namespace tessaron
