// What setting an item brings to a line (group members, tax codes, stock warnings) and
// how the collection adds, removes and tells the owner.
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/stock_items.h"
#include "tests/transactions/line_items_fixture.h"

namespace tessaron {
namespace {

using detail::TxnAccess;
using testing::LineItemsTest;
using testing::NumberRaised;

// ---- Groups --------------------------------------------------------------------------------

TEST_F(LineItemsTest, AGroupBecomesAHeadLineWithOneMemberPerItemFollowingItsQuantity) {
  auto lines = Lines(qoObjectTypeInvoice);
  auto head = lines->Add("Kit");
  ASSERT_EQ(head->GroupLines()->Count(), 3);
  EXPECT_TRUE(head->IsGroup());
  EXPECT_FALSE(head->IsGroupMemberLine());
  EXPECT_EQ(head->Description(), "Door kit");
  auto member = [&](long i) { return head->GroupLines()->Item(Variant(static_cast<int>(i))); };
  EXPECT_EQ(member(1)->Item(), "Hinge");
  EXPECT_TRUE(member(1)->IsGroupMemberLine());
  EXPECT_EQ(member(3)->Quantity(), Currency(3));

  head->SetQuantity(Currency(2));
  EXPECT_EQ(member(1)->Quantity(), Currency(4));
  EXPECT_EQ(member(2)->Quantity(), Currency(2));
  EXPECT_EQ(member(3)->Quantity(), Currency(6));
  // Members are priced by the document's pass: 4 x 4 + 2 x 10 + 6 x 0.50.
  EXPECT_EQ(lines->Total(), Currency(39));
  EXPECT_EQ(head->Amount(), Currency(39));
  EXPECT_EQ(member(2)->Amount(), Currency(20));
}

TEST_F(LineItemsTest, GroupMembersTakeTheirTaxCodesAgainstTheHeader) {
  auto lines = Lines(qoObjectTypeInvoice, "Exm");
  auto head = lines->Add("Kit");
  EXPECT_EQ(head->SalesTaxCode(), "");
  EXPECT_EQ(head->GroupLines()->Item(Variant(2))->SalesTaxCode(), "Exm");  // Labor: taxable, header named
}

TEST_F(LineItemsTest, TheMembersOfAGroupCannotBeAddedOrRemovedByHand) {
  auto lines = Lines(qoObjectTypeInvoice);
  auto head = lines->Add("Kit");
  EXPECT_EQ(NumberRaised([&] { head->GroupLines()->Add("Labor"); }), err::kGroupLineChange);
  EXPECT_EQ(NumberRaised([&] { head->GroupLines()->Remove(Variant(1)); }), err::kGroupLineChange);
  EXPECT_EQ(head->GroupLines()->Count(), 3);
}

TEST_F(LineItemsTest, ReplacingTheGroupByAPlainItemDropsTheMembers) {
  auto lines = Lines(qoObjectTypeInvoice);
  auto head = lines->Add("Kit");
  head->SetItem("Labor");
  EXPECT_FALSE(head->IsGroup());
  EXPECT_EQ(head->GroupLines()->Count(), 0);
  EXPECT_EQ(head->Amount(), Currency(10));
}

// ---- Tax codes -----------------------------------------------------------------------------

struct TaxCase {
  const char* name;
  const char* item;
  const char* header;
  const char* line;
};
class LineTaxCodeTest : public LineItemsTest, public ::testing::WithParamInterface<TaxCase> {};

TEST_P(LineTaxCodeTest, TheLineTakesTheCodeOfTheItemOrOfTheHeader) {
  auto lines = Lines(qoObjectTypeInvoice, GetParam().header);
  auto line = lines->Add(GetParam().item);
  EXPECT_EQ(line->SalesTaxCode(), GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(
    Table, LineTaxCodeTest,
    ::testing::Values(TaxCase{"ItemWithoutCodeTakesTheHeaders", "Consult", "Exm", "Exm"},
                      TaxCase{"TaxableItemUnderANamedHeaderTakesTheHeaders", "Labor", "Out", "Out"},
                      TaxCase{"TaxableItemUnderAnEmptyHeaderKeepsItsOwn", "Labor", "", "Tax"},
                      TaxCase{"NonTaxableItemUnderNoHeaderKeepsItsOwn", "Design", "", "Non"},
                      TaxCase{"NonTaxableItemUnderATaxableHeaderKeepsItsOwn", "Design", "Out", "Non"},
                      TaxCase{"NonTaxableItemUnderANonTaxableHeaderTakesTheHeaders", "Design", "Exm", "Exm"},
                      TaxCase{"SubtotalHasNone", "Subtotal", "Tax", ""},
                      TaxCase{"TaxItemHasNone", "State", "Tax", ""}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(LineItemsTest, ALineThatTookTheHeadersCodeFollowsTheHeader) {
  auto lines = Lines(qoObjectTypeInvoice, "Exm");
  auto line = lines->Add("Consult");
  detail::ListObjectAccess::SetFullName(*header, "Out");
  EXPECT_EQ(line->SalesTaxCode(), "Out");
  auto replaced = std::make_shared<qcListObjectRef>(qoListSalesTaxCodes);
  detail::ListObjectAccess::SetFullName(*replaced, "Non");
  TxnAccess::SetOwnerTaxCode(*lines, replaced);
  EXPECT_EQ(line->SalesTaxCode(), "Non");
}

TEST_F(LineItemsTest, AnUnknownTaxCodeIsRefusedAndTheOldOneStays) {
  auto lines = Lines(qoObjectTypeInvoice);
  auto line = lines->Add("Labor");
  EXPECT_EQ(NumberRaised([&] { line->SetSalesTaxCode("Nope"); }), err::kSalesTaxCodeMissing);
  EXPECT_EQ(line->SalesTaxCode(), "Tax");
  EXPECT_TRUE(line->IsTaxable());
  line->SetSalesTaxCode("");
  EXPECT_FALSE(line->IsTaxable());
}

TEST_F(LineItemsTest, TheOwnerCanRefuseATaxItemOnALine) {
  auto lines = Lines(qoObjectTypeInvoice);
  refuseTaxItems = true;
  EXPECT_EQ(NumberRaised([&] { lines->Add("State"); }), err::kTaxItemInHeader);
  EXPECT_EQ(lines->Count(), 0);
}

// ---- Items a document cannot take ----------------------------------------------------------

TEST_F(LineItemsTest, PayablesRefuseDiscountsAndTaxAndEstimatesRefusePayments) {
  EXPECT_EQ(NumberRaised([&] { Lines(qoObjectTypeBill)->Add("TenOff"); }), err::kUnsupportedItemType);
  EXPECT_EQ(NumberRaised([&] { Lines(qoObjectTypeCheck)->Add("State"); }), err::kUnsupportedItemType);
  EXPECT_EQ(NumberRaised([&] { Lines(qoObjectTypeEstimate)->Add("Deposit"); }), err::kUnsupportedItemType);
  EXPECT_EQ(NumberRaised([&] { Lines(qoObjectTypeInvoice)->Add("Nothing"); }), err::kInvalidItem);
}

TEST_F(LineItemsTest, PayablesPriceFromThePurchaseSide) {
  auto line = Lines(qoObjectTypeBill)->Add("Hinge", Currency(3));
  EXPECT_EQ(line->Cost(), Currency(2));
  EXPECT_EQ(line->Description(), "Hinge, bought");
  EXPECT_EQ(line->Amount(), Currency(6));
}

// ---- Stock -----------------------------------------------------------------------------------

TEST_F(LineItemsTest, SellingMoreThanIsFreeToSellIsToldEvenThroughAMutedSink) {
  auto lines = Lines(qoObjectTypeInvoice);
  auto line = lines->Add("Hinge");  // 5 on hand, 2 promised: 3 free
  std::string heard;
  line->OnInsuficientQuantity([&](const std::shared_ptr<ItemInventory>& item) { heard = item->Name(); });
  line->SetQuantity(Currency(3));
  EXPECT_EQ(heard, "");
  sink->SetDisabled(true);
  line->SetQuantity(Currency(4));
  EXPECT_EQ(heard, "Hinge");
  EXPECT_EQ(shortOf, "Hinge");
  EXPECT_TRUE(sink->Disabled());
}

// ---- The collection and the sink -------------------------------------------------------------

TEST_F(LineItemsTest, EachChangeOfAnAmountReachesTheOwnerOnce) {
  auto lines = Lines(qoObjectTypeInvoice);
  auto line = lines->Add("Labor");
  amountChanges = 0;
  line->SetQuantity(Currency(2));
  EXPECT_EQ(amountChanges, 1);
  line->SetCost(Currency(12));
  EXPECT_EQ(amountChanges, 2);
  line->SetAmount(Currency(30));
  EXPECT_EQ(amountChanges, 3);
  line->SetDescription("Overtime");
  EXPECT_EQ(amountChanges, 3);
  lines->Add("Design");
  const int afterAdd = amountChanges;
  lines->Remove(Variant(2));
  EXPECT_EQ(amountChanges, afterAdd + 1);
  lines->Clear();
  EXPECT_EQ(amountChanges, afterAdd + 1);
}

TEST_F(LineItemsTest, AMutedSinkHearsNoChangeUntilAnItemIsSet) {
  auto lines = Lines(qoObjectTypeInvoice);
  auto line = lines->Add("Labor");
  amountChanges = 0;
  sink->SetDisabled(true);
  line->SetQuantity(Currency(2));
  lines->Remove(Variant(1));
  EXPECT_EQ(amountChanges, 0);
  // Setting an item mutes the sink while it prices the line and opens it again after.
  line->SetItem("Design");
  EXPECT_FALSE(sink->Disabled());
}

TEST_F(LineItemsTest, AddPutsALineBeforeTheGivenPosition) {
  auto lines = Lines(qoObjectTypeInvoice);
  lines->Add("Labor");
  lines->Add("Design");
  lines->Add("Consult", Currency(), "", "", "", 0, 2);
  ASSERT_EQ(lines->Count(), 3);
  EXPECT_EQ(lines->Item(Variant(2))->Item(), "Consult");
  EXPECT_EQ(lines->Item(Variant(3))->Item(), "Design");
  EXPECT_EQ(lines->Add("", Currency(2), "Note")->Description(), "Note");
}

TEST_F(LineItemsTest, ALineWithAnAmountAndNoItemDoesNotValidate) {
  auto lines = Lines(qoObjectTypeInvoice);
  auto line = lines->Add("", Currency(), "Note only");
  ASSERT_NE(line, nullptr);
  line->SetAmount(Currency(5));
  EXPECT_FALSE(TxnAccess::Validate(*line));
  ASSERT_EQ(line->Errors()->Count(), 1);
  EXPECT_EQ(static_cast<uint32_t>(line->Errors()->Item(Variant(1))->Number()), err::kLineNeedsItem);
  EXPECT_EQ(line->Errors()->Item(Variant(1))->Field(), "Item");
}

}  // namespace
}  // namespace tessaron
