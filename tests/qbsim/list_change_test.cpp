// Modifies and deletes of list records, and the statuses the library reacts to.
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {
namespace {

class ListChangeTest : public QbsimTest {
 protected:
  void SetUp() override {
    QbsimTest::SetUp();
    Open();
  }

  Response Add(const std::string& kind, const std::string& body) {
    return Send("<" + kind + "AddRq requestID=\"1\"><" + kind + "Add>" + body + "</" + kind + "Add></" + kind + "AddRq>");
  }
  Response Mod(const std::string& kind, const std::string& fullName, const std::string& body) {
    auto [id, seq] = Key(kind, fullName);
    return ModById(kind, id, seq, body);
  }
  Response ModById(const std::string& kind, const std::string& id, const std::string& seq, const std::string& body) {
    return Send("<" + kind + "ModRq requestID=\"2\"><" + kind + "Mod><ListID>" + id + "</ListID><EditSequence>" + seq +
                "</EditSequence>" + body + "</" + kind + "Mod></" + kind + "ModRq>");
  }
  Response Query(const std::string& kind, const std::string& fullName) {
    return Send("<" + kind + "QueryRq requestID=\"1\"><FullName>" + fullName + "</FullName></" + kind + "QueryRq>");
  }
  Response Delete(const std::string& type, const std::string& id) {
    return Send("<ListDelRq requestID=\"1\"><ListDelType>" + type + "</ListDelType><ListID>" + id +
                "</ListID></ListDelRq>");
  }
};

TEST_F(ListChangeTest, ModifyAnswersANewEditSequenceAndTheOldOneIsThenRefused) {
  auto [id, seq] = Key("Customer", "Amber Bakery");
  SetClockForTesting(Now() + 1.0);  // a day later, so the change has a later time
  Response first = ModById("Customer", id, seq, "<Name>Amber Bakery</Name><Phone>555-0999</Phone>");
  SetClockForTesting(0);
  ASSERT_EQ(first.Status(), 0) << first.Message();
  std::string newSeq = first.Value("CustomerRet/EditSequence");
  EXPECT_NE(newSeq, seq);
  EXPECT_GT(first.Value("CustomerRet/TimeModified"), first.Value("CustomerRet/TimeCreated"));
  Response stale = ModById("Customer", id, seq, "<Name>Amber Bakery</Name><Phone>555-0000</Phone>");
  EXPECT_EQ(stale.Status(), status::kStaleEditSequence);
  Response now = Query("Customer", "Amber Bakery");
  EXPECT_EQ(now.Value("CustomerRet/Phone"), "555-0999");
  EXPECT_EQ(now.Value("CustomerRet/EditSequence"), newSeq);
}

TEST_F(ListChangeTest, EmptyElementsClearFieldsAndAnEmptyFullNameClearsAReference) {
  Response r = Mod("Customer", "Amber Bakery",
                   "<Name>Amber Bakery</Name><Phone></Phone><TermsRef><FullName></FullName></TermsRef>");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  EXPECT_EQ(r.Value("CustomerRet/Phone"), "<missing>");
  EXPECT_EQ(r.Value("CustomerRet/TermsRef"), "<missing>");
  EXPECT_EQ(r.Value("CustomerRet/CompanyName"), "Amber Bakery");  // what was not sent stays
}

TEST_F(ListChangeTest, AModifiedAddressReplacesTheOldOneWhole) {
  Response r = Mod("Customer", "Amber Bakery",
                   "<Name>Amber Bakery</Name><BillAddress><Addr1>2 New Road</Addr1><City>Eastharbor</City></BillAddress>");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  EXPECT_EQ(r.Value("CustomerRet/BillAddress/Addr1"), "2 New Road");
  EXPECT_EQ(r.Value("CustomerRet/BillAddress/PostalCode"), "<missing>");
}

TEST_F(ListChangeTest, RenamingAParentRenamesEveryRecordBelowIt) {
  Response r = Mod("Customer", "Amber Bakery", "<Name>Amber Patisserie</Name>");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  Response phase = Query("Customer", "Amber Patisserie:Kitchen Remodel:Phase 1");
  EXPECT_EQ(phase.Status(), 0);
  EXPECT_EQ(phase.Value("CustomerRet/ParentRef/FullName"), "Amber Patisserie:Kitchen Remodel");
  EXPECT_EQ(phase.Value("CustomerRet/Sublevel"), "2");
  EXPECT_EQ(Query("Customer", "Amber Bakery:Kitchen Remodel").Status(), status::kNotFoundByKey);
}

TEST_F(ListChangeTest, MovingARecordUnderAnotherParentMovesItsTreeAndBalances) {
  auto [target, seq] = Key("Customer", "Blue Heron Builders");
  Response before = Query("Customer", "Amber Bakery:Kitchen Remodel");
  std::string movedTotal = before.Value("CustomerRet/TotalBalance");
  Response targetBefore = Query("Customer", "Blue Heron Builders");
  Response r = Mod("Customer", "Amber Bakery:Kitchen Remodel",
                   "<Name>Kitchen Remodel</Name><ParentRef><ListID>" + target + "</ListID></ParentRef>");
  // CustomerMod carries no ParentRef in the library; QuickBooks takes it all the same.
  ASSERT_EQ(r.Status(), 0) << r.Message();
  EXPECT_EQ(r.Value("CustomerRet/FullName"), "Blue Heron Builders:Kitchen Remodel");
  EXPECT_EQ(Query("Customer", "Blue Heron Builders:Kitchen Remodel:Phase 1").Value("CustomerRet/Sublevel"), "2");
  Currency expected = Currency::Parse(targetBefore.Value("CustomerRet/TotalBalance")) + Currency::Parse(movedTotal);
  EXPECT_EQ(Currency::Parse(Query("Customer", "Blue Heron Builders").Value("CustomerRet/TotalBalance")), expected);
}

TEST_F(ListChangeTest, ARecordCannotMoveBelowItsOwnChild) {
  auto [child, seq] = Key("Customer", "Amber Bakery:Kitchen Remodel");
  Response r = Mod("Customer", "Amber Bakery", "<Name>Amber Bakery</Name><ParentRef><ListID>" + child +
                                                   "</ListID></ParentRef>");
  EXPECT_EQ(r.Status(), status::kRefused);
}

TEST_F(ListChangeTest, ItemPriceBlocksMergeAndSwitch) {
  Response r = Mod("ItemService", "Labor", "<Name>Labor</Name><SalesOrPurchaseMod><Price>70.00</Price></SalesOrPurchaseMod>");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  EXPECT_EQ(r.Value("ItemServiceRet/SalesOrPurchase/Price"), "70.00");
  EXPECT_EQ(r.Value("ItemServiceRet/SalesOrPurchase/AccountRef/FullName"), "Services");  // kept
  Response sw = Mod("ItemService", "Labor",
                    "<Name>Labor</Name><SalesAndPurchaseMod><SalesPrice>72.00</SalesPrice><PurchaseCost>30.00</PurchaseCost>"
                    "</SalesAndPurchaseMod>");
  ASSERT_EQ(sw.Status(), 0) << sw.Message();
  EXPECT_EQ(sw.Value("ItemServiceRet/SalesOrPurchase"), "<missing>");
  EXPECT_EQ(sw.Value("ItemServiceRet/SalesAndPurchase/SalesPrice"), "72.00");
}

TEST_F(ListChangeTest, ModifyOfARecordThatIsNotOnFileOrOfAnotherKindFails) {
  Response missing = ModById("Class", "80FFFFFF-1234567890", "1", "<Name>X</Name>");
  EXPECT_EQ(missing.Status(), status::kObjectNotFound);
  auto [account, seq] = Key("Account", "Checking");
  EXPECT_EQ(ModById("Class", account, seq, "<Name>X</Name>").Status(), status::kObjectNotFound);
}

struct NameCase {
  const char* name;
  const char* kind;
  const char* body;
  int status;
};

class NameSpaceTest : public ListChangeTest, public ::testing::WithParamInterface<NameCase> {};

TEST_P(NameSpaceTest, NamesAreUniqueWithinTheirNameSpace) {
  const NameCase& c = GetParam();
  Response r = Add(c.kind, c.body);
  EXPECT_EQ(r.Status(), c.status) << r.Message();
  if (c.status == status::kItemNameInUse) {
    EXPECT_NE(r.Message().find("QuickBooks error message: "), std::string::npos);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Names, NameSpaceTest,
    ::testing::Values(
        NameCase{"SameNameIgnoringCase", "Class", "<Name>RETAIL</Name>", status::kNameInUse},
        NameCase{"SameNameUnderAnotherParentIsFree", "Class",
                 "<Name>Retail</Name><ParentRef><FullName>Trade</FullName></ParentRef>", 0},
        NameCase{"VendorWithACustomersName", "Vendor", "<Name>Amber Bakery</Name>", status::kNameInUse},
        NameCase{"EmployeeWithAnOtherNamesName", "Employee", "<Name>Owner</Name>", status::kNameInUse},
        NameCase{"StandardTermsWithADateDrivenTermsName", "StandardTerms", "<Name>15th of next month</Name>",
                 status::kNameInUse},
        NameCase{"ItemOfTheSameKind", "ItemService", "<Name>Design</Name><SalesOrPurchase><Price>1</Price>"
                                                     "</SalesOrPurchase>", status::kNameInUse},
        NameCase{"ItemOfAnotherKind", "ItemSubtotal", "<Name>Design</Name>", status::kItemNameInUse},
        NameCase{"AccountAndClassAreSeparateLists", "Class", "<Name>Checking</Name>", 0},
        NameCase{"UnknownReference", "Customer", "<Name>New One</Name><TermsRef><FullName>Net 99</FullName></TermsRef>",
                 status::kInvalidReference},
        NameCase{"UnknownParent", "Class", "<Name>Orphan</Name><ParentRef><ListID>80FFFFFF-1</ListID></ParentRef>",
                 status::kInvalidReference},
        NameCase{"ReferenceIntoTheWrongList", "Customer",
                 "<Name>New One</Name><TermsRef><FullName>Checking</FullName></TermsRef>", status::kInvalidReference}),
    [](const ::testing::TestParamInfo<NameCase>& info) { return std::string(info.param.name); });

TEST_F(ListChangeTest, RenamingOntoAnExistingNameFails) {
  Response r = Mod("Class", "Retail", "<Name>Trade</Name>");
  EXPECT_EQ(r.Status(), status::kNameInUse);
  EXPECT_EQ(Query("Class", "Retail").Status(), 0);
}

TEST_F(ListChangeTest, DeleteAnswersWhatWasDeletedAndLogsIt) {
  Response added = Add("ItemService", "<Name>Temporary</Name><SalesOrPurchase><Price>1</Price></SalesOrPurchase>");
  std::string id = added.Value("ItemServiceRet/ListID");
  // The library may send the type as its description with a blank; strict mode takes it.
  std::string rq = Message("<ListDelRq requestID=\"1\"><ListDelType>Item Service</ListDelType><ListID>" + id +
                           "</ListID></ListDelRq>");
  Response r(processor_->ProcessRequest(ticket_, rq));
  EXPECT_TRUE(tessaron::testing::IsValidQbxml(r.Text()));
  ASSERT_EQ(r.Status(), 0) << r.Message();
  EXPECT_EQ(r.Value("ListDelType"), "ItemService");
  EXPECT_EQ(r.Value("ListID"), id);
  EXPECT_EQ(r.Value("FullName"), "Temporary");
  EXPECT_EQ(Query("Item", "Temporary").Status(), status::kNotFoundByKey);
  Response log = Send("<ListDeletedQueryRq><ListDelType>ItemService</ListDelType><ListDelType>Class</ListDelType>"
                      "</ListDeletedQueryRq>");
  ASSERT_EQ(log.Records().size(), 1u);
  EXPECT_EQ(log.Value("ListDeletedRet/ListID"), id);
  EXPECT_EQ(log.Value("ListDeletedRet/TimeCreated"), added.Value("ItemServiceRet/TimeCreated"));
  Response none = Send("<ListDeletedQueryRq><ListDelType>ItemService</ListDelType><DeletedDateRangeFilter>"
                       "<FromDeletedDate>2099-01-01</FromDeletedDate></DeletedDateRangeFilter></ListDeletedQueryRq>");
  EXPECT_EQ(none.Status(), status::kNoMatch);
}

TEST_F(ListChangeTest, DeleteRefusesRecordsInUseUnknownIdsAndOtherKinds) {
  auto [terms, s1] = Key("StandardTerms", "Net 30");  // customers name it
  EXPECT_EQ(Delete("StandardTerms", terms).Status(), status::kInUse);
  auto [trade, s2] = Key("Class", "Trade");  // has a sub-class
  EXPECT_EQ(Delete("Class", trade).Status(), status::kInUse);
  EXPECT_EQ(Delete("Class", "80FFFFFF-1234567890").Status(), status::kObjectNotFound);
  auto [retail, s3] = Key("Class", "Retail");
  EXPECT_EQ(Delete("CustomerType", retail).Status(), status::kObjectNotFound);
  EXPECT_EQ(Delete("Class", retail).Status(), 0);
}

TEST_F(ListChangeTest, LenientModeIgnoresElementsItDoesNotKeep) {
  ProcessorOptions lenient;
  lenient.strict = false;
  processor_ = CreateProcessor(lenient);
  processor_->OpenConnection("", "lenient");
  ticket_ = processor_->BeginSession(path_, 0);
  Response r = Add("Customer", "<Name>Lenient</Name><PriceLevelRef><FullName>Retail</FullName></PriceLevelRef>");
  EXPECT_EQ(r.Status(), 0);
}

TEST_F(ListChangeTest, StrictModeRefusesElementsItDoesNotKeepWithAStatus) {
  Response r = Add("Customer", "<Name>Strict</Name><PriceLevelRef><FullName>Retail</FullName></PriceLevelRef>");
  EXPECT_EQ(r.Status(), status::kNotSupported);
  EXPECT_NE(r.Message().find("PriceLevelRef"), std::string::npos);
}

}  // namespace
}  // namespace tessaron::qbsim::testing
