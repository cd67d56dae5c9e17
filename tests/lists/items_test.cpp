// Items: the request each kind of item writes (add and modify, checked against the qbXML
// schema), the guards that differ per class, the rates of discounts and tax groups, the
// factory of a mixed response, the version gates of the later kinds, and the errors of the
// collection.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/account.h"
#include "tessaron/lists/items.h"
#include "tessaron/lists/sales_tax_code.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tests/support/text_match.h"
#include "tests/support/list_session.h"
#include "tests/support/raised.h"

namespace tessaron {
namespace {

using testing::Batch;
using testing::ListSession;
using testing::NumberRaised;
using testing::Raised;
using testing::ResponseElement;
using testing::Ret;
using testing::ScriptedProcessor;

using testing::Contains;

// One request of `which` kind (add or modify) for the object, in a whole message.
std::string Message(ItemObject& item, bool modify) {
  xmlBldr b;
  b.Clear();
  if (modify) b.InsertModRq(item, 1);
  else b.InsertAddRq(item, 1);
  return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRq onError=\"stopOnError\">" + b.GetXML().ToString() +
         "</QBXMLMsgsRq></QBXML>";
}

std::string ItemRet(const std::string& kind, const std::string& id, const std::string& name, const std::string& more) {
  return Ret(kind, id, "<Name>" + name + "</Name><IsActive>true</IsActive>" + more);
}

class ItemsTest : public ::testing::Test {
 protected:
  explicit ItemsTest(const std::string& version = "3.0") : qb(version) {}
  void Load(const std::string& records) {
    qb.Answer(ScriptedProcessor::Response("ItemQueryRs", records));
    items->GetAll();
    qb.processor().ClearRecords();
  }
  template <class T>
  std::shared_ptr<T> At(const char* key) {
    return items->CastObject<T>(items->Item(Variant(key)));
  }

  ListSession qb;
  std::shared_ptr<Items> items = qb.Register<Items>();
  std::shared_ptr<Accounts> accounts = qb.Register<Accounts>();
  std::shared_ptr<SalesTaxCodes> taxCodes = qb.Register<SalesTaxCodes>();
};

// ---- What each class writes ----------------------------------------------------------------

struct WriteCase {
  const char* name;
  std::function<std::shared_ptr<ItemObject>(Items&)> make;
  bool modifies;  // false: QuickBooks has no modify here and XMLModify raises
  const char* addPart;
};
class ItemWriteTest : public ItemsTest, public ::testing::WithParamInterface<WriteCase> {};

TEST_P(ItemWriteTest, AddAndModifyFollowTheSchema) {
  auto item = GetParam().make(*items);
  const std::string add = Message(*item, false);
  EXPECT_TRUE(testing::IsValidQbxml(add)) << add;
  EXPECT_TRUE(Contains(add, GetParam().addPart)) << add;
  if (GetParam().modifies) {
    const std::string mod = Message(*item, true);
    EXPECT_TRUE(testing::IsValidQbxml(mod)) << mod;
  } else {
    EXPECT_EQ(NumberRaised([&] { Message(*item, true); }), err::kInternal);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ItemWriteTest,
    ::testing::Values(
        WriteCase{"ServiceSalesOrPurchase",
                  [](Items& i) { return i.AddServiceWithSalesOrPurchase("Labor", "", "Shop labor", Currency(65), "Services", "Tax"); },
                  true,
                  "<SalesTaxCodeRef><FullName>Tax</FullName></SalesTaxCodeRef><SalesOrPurchase><Desc>Shop labor</Desc>"
                  "<Price>65.00</Price><AccountRef><FullName>Services</FullName></AccountRef></SalesOrPurchase>"},
        WriteCase{"NonInventorySalesAndPurchase",
                  [](Items& i) {
                    return i.AddNonInventoryWithSalesAndPurchase("Bolts", "", "", "Cost of Goods Sold", "Sales", Currency(2),
                                                                 "Bolts bought", Currency(5), "Bolts sold", "Acme");
                  },
                  true, "<SalesAndPurchase><SalesDesc>Bolts sold</SalesDesc><SalesPrice>5.00</SalesPrice>"},
        WriteCase{"OtherChargePercent",
                  [](Items& i) {
                    return i.AddOtherChargeWithSalesOrPurchase("Rush", "", "Rush fee", Currency(10), "Sales", "", true, true);
                  },
                  true, "<PricePercent>0000010.0000</PricePercent>"},
        WriteCase{"Discount",
                  [](Items& i) { return i.AddDiscount("Trade", "", "Discounts", "Trade discount", Currency(10), true, "Non"); },
                  false, "<ItemDesc>Trade discount</ItemDesc><SalesTaxCodeRef><FullName>Non</FullName></SalesTaxCodeRef>"
                         "<DiscountRatePercent>0000010.0000</DiscountRatePercent><AccountRef>"},
        WriteCase{"Payment",
                  [](Items& i) { return i.AddPayment("Deposit", "Deposit received", "Check", "Undeposited Funds"); },
                  false, "<ItemDesc>Deposit received</ItemDesc><DepositToAccountRef>"},
        WriteCase{"Subtotal", [](Items& i) { return i.AddSubTotal("Subtotal", "Subtotal of the lines"); }, true,
                  "<ItemSubtotalAdd><Name>Subtotal</Name><IsActive>1</IsActive><ItemDesc>"},
        WriteCase{"SalesTax",
                  [](Items& i) { return i.AddSalesTax("State", "State tax", Currency::Parse("6.25"), "Tax Agency"); },
                  false, "<TaxRate>0000006.2500</TaxRate><TaxVendorRef><FullName>Tax Agency</FullName>"},
        WriteCase{"SalesTaxGroup",
                  [](Items& i) {
                    auto g = i.AddSalesTaxGroup("Combined", "State and city");
                    g->GroupLines()->Add("State");
                    g->GroupLines()->Add("City");
                    return g;
                  },
                  false, "<ItemSalesTaxRef><FullName>State</FullName></ItemSalesTaxRef><ItemSalesTaxRef>"},
        WriteCase{"Inventory",
                  [](Items& i) {
                    return i.AddInventory("Hinge", "", "Sales", "Cost of Goods Sold", "Inventory Asset", Currency(4),
                                          "Hinge", Currency(2), "Hinge bought", "Tax", "Acme", Currency(10),
                                          Currency(50), Currency(100), DateSerial(2004, 1, 2));
                  },
                  true, "<ReorderPoint>0000010.0000</ReorderPoint><QuantityOnHand>0000050.0000</QuantityOnHand>"
                        "<TotalValue>100.00</TotalValue><InventoryDate>2004-01-02</InventoryDate>"},
        WriteCase{"Assembly",
                  [](Items& i) {
                    auto a = i.AddAssembly("Cabinet", "", "Sales", "Cost of Goods Sold", "Inventory Asset",
                                           Currency(420), "Cabinet", Currency(), "", "", Currency(2));
                    a->Lines()->Add("Hinge", Currency(4));
                    return a;
                  },
                  true, "<BuildPoint>0000002.0000</BuildPoint><ItemInventoryAssemblyLine><ItemInventoryRef>"},
        WriteCase{"Group",
                  [](Items& i) {
                    auto g = i.AddGroup("Kit", "Install kit", true);
                    g->GroupLines()->Add("Hinge", Currency(2));
                    return g;
                  },
                  true, "<IsPrintItemsInGroup>1</IsPrintItemsInGroup><ItemGroupLine><ItemRef><FullName>Hinge</FullName>"
                        "</ItemRef><Quantity>0000002.0000</Quantity></ItemGroupLine>"},
        WriteCase{"FixedAsset",
                  [](Items& i) {
                    auto f = i.AddFixedAsset("Saw", "Panel saw", DateSerial(2003, 5, 1), Currency(8900),
                                             "Furniture and Equipment", "New", "Tool Co", "Saw");
                    f->SetSerialNumber("S-1");
                    f->SetWarrantyExpDate(DateSerial(2006, 5, 1));
                    f->SetCostBasis(Currency(8900));
                    return f;
                  },
                  true, "<AcquiredAs>New</AcquiredAs><PurchaseDesc>Panel saw</PurchaseDesc>"
                        "<PurchaseDate>2003-05-01</PurchaseDate><PurchaseCost>8900.00</PurchaseCost>"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(ItemsTest, SubRecordReferencesGoByListIDFirst) {
  auto labor = items->AddServiceWithSalesOrPurchase("Labor", "", "", Currency(65), "Services");
  detail::ListObjectAccess::SetListID(*labor->SalesOrPurchase()->AccountRef(), "80000001-1");
  labor->SalesOrPurchase()->SetAccount("Services");
  EXPECT_TRUE(Contains(Message(*labor, false), "<AccountRef><ListID>80000001-1</ListID></AccountRef>"));
}

TEST_F(ItemsTest, PercentIsAllowedOnlyForOtherCharges) {
  const auto e = Raised([&] {
    items->AddServiceWithSalesOrPurchase("Labor", "", "", Currency(65), "Services", "", true, true);
  });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->Description(), "Percent not allowed");
  EXPECT_EQ(e->Source(), "Tessaron: Items:AddWithSalesOrPurchase");
  EXPECT_EQ(items->Count(), 0);
}

struct DiscountCase {
  const char* name;
  Currency amount;
  int percent;  // 1 yes, 0 no, -1 never set
  const char* sent;  // the rate element, or "" for none
};
class DiscountRateTest : public ItemsTest, public ::testing::WithParamInterface<DiscountCase> {};

TEST_P(DiscountRateTest, TheRateTravelsInTheFormOfItsKind) {
  auto d = std::make_shared<ItemDiscount>();
  d->SetAmount(GetParam().amount);
  if (GetParam().percent >= 0) d->SetAmountIsPercent(GetParam().percent == 1);
  const std::string add = Message(*d, false);
  if (*GetParam().sent) EXPECT_TRUE(Contains(add, GetParam().sent)) << add;
  else EXPECT_FALSE(Contains(add, "DiscountRate")) << add;
}

INSTANTIATE_TEST_SUITE_P(Forms, DiscountRateTest,
                         ::testing::Values(DiscountCase{"ZeroSendsNoRate", Currency(), 1, ""},
                                           DiscountCase{"Percent", Currency(5), 1, "<DiscountRatePercent>0000005.0000<"},
                                           DiscountCase{"Amount", Currency(5), 0, "<DiscountRate>5.00<"},
                                           DiscountCase{"NeverSetIsPercent", Currency(5), -1, "<DiscountRatePercent>"}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(ItemsTest, ADiscountReadAsAnAmountIsNoPercentage) {
  Load(ItemRet("ItemDiscount", "D1", "Off", "<DiscountRate>5.00</DiscountRate>"));
  EXPECT_FALSE(At<ItemDiscount>("Off")->AmountIsPercent());
  EXPECT_EQ(At<ItemDiscount>("Off")->Amount(), Currency(5));
}

// ---- Version gates -------------------------------------------------------------------------

struct GateCase {
  const char* name;
  const char* version;
  std::function<void(Items&)> call;
  bool raises;
};
class ItemGateTest : public ::testing::TestWithParam<GateCase> {};

TEST_P(ItemGateTest, LaterKindsNeedTheirVersion) {
  ListSession qb(GetParam().version);
  auto items = qb.Register<Items>();
  EXPECT_EQ(NumberRaised([&] { GetParam().call(*items); }), GetParam().raises ? err::kVersionNotSupported : 0u);
}

auto Assembly = [](Items& i) { i.AddAssembly("A", "", "Sales", "COGS", "Asset"); };
auto FixedAsset = [](Items& i) { i.AddFixedAsset("F", "Saw", DateSerial(2003, 1, 1)); };
INSTANTIATE_TEST_SUITE_P(Versions, ItemGateTest,
                         ::testing::Values(GateCase{"AssemblyBelow", "1.1", Assembly, true},
                                           GateCase{"AssemblyAt", "2.0", Assembly, false},
                                           GateCase{"FixedAssetBelow", "2.1", FixedAsset, true},
                                           GateCase{"FixedAssetAt", "3.0", FixedAsset, false},
                                           GateCase{"FixedAssetAbove", "4.0", FixedAsset, false}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ItemFieldGate, ManufacturerPartNumberTravelsFromVersion7) {
  for (const char* version : {"6.0", "7.0"}) {
    ListSession qb(version);
    auto items = qb.Register<Items>();
    auto part = items->AddInventory("Hinge", "", "Sales", "COGS", "Asset");
    part->SetManufacturerPartNumber("MPN-1");
    EXPECT_EQ(Contains(Message(*part, false), "<ManufacturerPartNumber>MPN-1<"), std::string(version) == "7.0")
        << version;
  }
}

// ---- Guards and states ---------------------------------------------------------------------

TEST_F(ItemsTest, GuardsDifferPerClass) {
  Load(ItemRet("ItemOtherCharge", "O1", "Fee", "") + ItemRet("ItemNonInventory", "N1", "Bolts", ""));
  auto fee = At<ItemOtherCharge>("Fee");
  EXPECT_EQ(NumberRaised([&] { fee->SetIsActive(false); }), err::kFieldCannotBeModified);
  EXPECT_TRUE(fee->IsActive());
  EXPECT_EQ(fee->ObjectState(), qoObjectStateClean);
  auto bolts = At<ItemNonInventory>("Bolts");
  bolts->SetIsActive(false);
  EXPECT_EQ(bolts->ObjectState(), qoObjectStateDirty);
}

TEST_F(ItemsTest, SubtotalModifySendsOnlyItsDescription) {
  Load(ItemRet("ItemSubtotal", "S1", "Subtotal", "<ItemDesc>Old</ItemDesc>"));
  auto subtotal = At<ItemSubtotal>("Subtotal");
  subtotal->SetDescription("Lines so far");
  EXPECT_EQ(subtotal->ObjectState(), qoObjectStateClean);  // the setter leaves the state
  EXPECT_EQ(items->Commit(), 0);
  EXPECT_TRUE(qb.processor().Requests().empty());
  subtotal->SetObjectState(qoObjectStateDirty);
  qb.Answer(Batch({ResponseElement("ItemSubtotalModRs", 1, 0, ItemRet("ItemSubtotal", "S1", "Subtotal", ""))}));
  EXPECT_EQ(items->Commit(), 0);
  EXPECT_TRUE(Contains(qb.processor().LastRequest(),
                       "<ItemSubtotalMod><ListID>S1</ListID><EditSequence>1000</EditSequence>"
                       "<ItemDesc>Lines so far</ItemDesc></ItemSubtotalMod>"))
      << qb.processor().LastRequest();
}

TEST_F(ItemsTest, AChangedPriceOfAStoredServiceIsSentAsAModify) {
  Load(ItemRet("ItemService", "V1", "Labor",
               "<SalesOrPurchase><Desc>Labor</Desc><Price>65.00</Price><AccountRef><FullName>Services</FullName>"
               "</AccountRef></SalesOrPurchase>"));
  auto labor = At<ItemService>("Labor");
  labor->SalesOrPurchase()->SetAmount(Currency(70));
  EXPECT_EQ(labor->ObjectState(), qoObjectStateClean);
  qb.Answer(Batch({ResponseElement("ItemServiceModRs", 1, 0, ItemRet("ItemService", "V1", "Labor", ""))}));
  items->Commit();
  EXPECT_TRUE(Contains(qb.processor().LastRequest(), "<SalesOrPurchaseMod><Desc>Labor</Desc><Price>70.00</Price>"
                                                     "</SalesOrPurchaseMod>"))
      << qb.processor().LastRequest();
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

// ---- Reading -------------------------------------------------------------------------------

TEST_F(ItemsTest, AMixedResponseGivesEachRecordItsOwnClass) {
  Load(ItemRet("ItemService", "V1", "Labor", "") + ItemRet("ItemInventory", "I1", "Hinge", "") +
       ItemRet("ItemInventoryAssembly", "A1", "Cabinet", "") + ItemRet("ItemFixedAsset", "F1", "Saw", "") +
       ItemRet("ItemGroup", "G1", "Kit", ""));
  ASSERT_EQ(items->Count(), 5);
  EXPECT_EQ(items->Item(Variant(1))->ItemType(), qbItemService);
  EXPECT_EQ(items->Item(Variant(3))->ItemType(), qbItemAssembly);
  EXPECT_NE(items->CastObject<ItemInventory>(items->Item(Variant(2))), nullptr);
  EXPECT_EQ(items->CastObject<ItemInventory>(items->Item(Variant(1))), nullptr);
  EXPECT_NE(items->CastObject<ItemFixedAsset>(items->Item(Variant("Saw"))), nullptr);
  EXPECT_NE(items->CastObject<ItemGroup>(items->Item(Variant("Kit"))), nullptr);
}

TEST_F(ItemsTest, AnUnknownRecordStopsTheParse) {
  qb.processor().QueueResponse(ScriptedProcessor::Response("ItemQueryRs", ItemRet("ItemWidget", "W1", "W", "")));
  const auto e = Raised([&] { items->GetAll(); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->Description(), "Unknown Item");
  EXPECT_EQ(e->Source(), "Tessaron: Items");
}

TEST_F(ItemsTest, APercentWithItsSignReads) {
  qb.processor().QueueResponse(
      ScriptedProcessor::Response("ItemQueryRs", ItemRet("ItemSalesTax", "T1", "State", "<TaxRate>7.5%</TaxRate>")));
  items->GetAll();
  EXPECT_EQ(At<ItemSalesTax>("State")->TaxRate(), Currency::Parse("7.5"));
}

TEST_F(ItemsTest, TheGroupRateIsTheSumOfItsMembers) {
  Load(ItemRet("ItemSalesTax", "T1", "State", "<TaxRate>5</TaxRate>") +
       ItemRet("ItemSalesTax", "T2", "City", "<TaxRate>2.5</TaxRate>") +
       ItemRet("ItemSalesTaxGroup", "G1", "Combined",
               "<ItemSalesTaxRef><FullName>State</FullName></ItemSalesTaxRef>"
               "<ItemSalesTaxRef><FullName>City</FullName></ItemSalesTaxRef>"));
  auto group = At<ItemSalesTaxGroup>("Combined");
  EXPECT_EQ(group->TaxRate(), Currency::Parse("7.5"));
  EXPECT_EQ(group->CalculateTax(Currency(100)), Currency::Parse("7.50"));
  EXPECT_TRUE(group->ContainsTax("T2"));
  EXPECT_FALSE(group->ContainsTax("T9"));
  EXPECT_EQ(At<ItemSalesTax>("State")->CalculateTax(Currency(80)), Currency(4));
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST_F(ItemsTest, ACommittedGroupHoldsTheLinesOfTheResponseOnce) {
  auto kit = items->AddGroup("Kit");
  kit->GroupLines()->Add("Hinge", Currency(2));
  qb.Answer(Batch({ResponseElement(
      "ItemGroupAddRs", 1, 0,
      ItemRet("ItemGroup", "G1", "Kit",
              "<ItemGroupLine><ItemRef><ListID>I1</ListID><FullName>Hinge</FullName></ItemRef>"
              "<Quantity>2</Quantity></ItemGroupLine>"))}));
  EXPECT_EQ(items->Commit(), 0);
  ASSERT_EQ(kit->GroupLines()->Count(), 1);
  EXPECT_EQ(kit->GroupLines()->Item(1)->ItemRef()->ListID(), "I1");
  EXPECT_FALSE(detail::ListObjectAccess::ModifyWhileClean(*kit));
  kit->GroupLines()->Item(1)->SetQuantity(Currency(3));
  EXPECT_TRUE(detail::ListObjectAccess::ModifyWhileClean(*kit));
}

// ---- Queries, deletes and checks -----------------------------------------------------------

TEST_F(ItemsTest, TheKindNamesTheQuery) {
  items->GetAll(qbItemNonInventory);
  items->GetActive(qbItemAssembly);
  items->GetByNameMatch(qbItemFixedAsset, "S", qbMatchStartsWith);
  items->GetAll();
  EXPECT_EQ(qb.processor().RequestNames(),
            (std::vector<std::string>{"ItemNonInventoryQueryRq", "ItemInventoryAssemblyQueryRq",
                                      "ItemFixedAssetQueryRq", "ItemQueryRq"}));
  EXPECT_TRUE(qb.processor().AllRequestsValid());
  const auto e = Raised([&] { items->GetAll(13); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->Description(), "Bad type in GetByType");
}

TEST_F(ItemsTest, DeleteTakesOnlyTheKindsUpToSalesTaxGroups) {
  const auto e = Raised([&] { items->Delete("A1", qbItemAssembly); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kInvalidItemType);
  EXPECT_EQ(e->Source(), "Item");
  EXPECT_TRUE(qb.processor().Requests().empty());
}

TEST_F(ItemsTest, AChildOfAnotherKindFailsValidation) {
  Load(ItemRet("ItemService", "V1", "Labor", ""));
  auto part = items->AddNonInventoryWithSalesOrPurchase("Bolt", "Labor", "", Currency(1), "Sales");
  EXPECT_EQ(part->Sublevel(), 1);
  EXPECT_FALSE(part->Validate());
  EXPECT_EQ(static_cast<uint32_t>(part->Errors()->Item(Variant(1))->Number()), err::kParentItemType);
}

TEST_F(ItemsTest, ANameTakenByAnotherKindGetsTheItemListText) {
  auto fee = items->AddOtherChargeWithSalesOrPurchase("Labor", "", "", Currency(1), "Sales");
  fee->SalesOrPurchase()->SetObjectState(qoObjectStateClean);  // no account look-up
  qb.Answer(Batch({ResponseElement("ItemOtherChargeAddRs", 1, 3180, "", "The name is in use")}));
  State().ErrorMode = false;
  EXPECT_EQ(items->Commit(), 1);
  ASSERT_EQ(fee->Errors()->Count(), 1);
  auto e = fee->Errors()->Item(Variant(1));
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), err::kDuplicateInItemList);
  EXPECT_EQ(e->Field(), "QuickBooks");
  EXPECT_EQ(e->Description(),
            "There was an error when saving this Items list.  The name of this list element is already in use.");
  EXPECT_EQ(fee->ObjectState(), qoObjectStateNew);
}

TEST_F(ItemsTest, AddExistingWorksOnlyBesideTheMaster) {
  auto kept = items->AddSubTotal("Sub");
  EXPECT_EQ(NumberRaised([&] { items->AddExisting(kept); }), err::kNotOnMaster);
  Items mine;
  EXPECT_EQ(mine.AddExisting(kept), 1);
  EXPECT_EQ(NumberRaised([&] { mine.AddSubTotal("Other"); }), err::kMasterOnly);
}

}  // namespace
}  // namespace tessaron
