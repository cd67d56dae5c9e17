// The amounts of single lines and of the document: quantity times rate and back, and the
// pass over the lines that prices subtotal, discount, percent and tax lines from the lines
// above them.
#include "tests/transactions/line_items_fixture.h"

namespace tessaron {
namespace {

using testing::LineItemsTest;
using testing::NumberRaised;

TEST_F(LineItemsTest, QuantityTimesRateAndAnAmountTypedOverIt) {
  auto lines = Lines(qoObjectTypeInvoice);
  auto line = lines->Add("Labor", Currency(3));
  EXPECT_EQ(line->Cost(), Currency(10));
  EXPECT_EQ(line->Amount(), Currency(30));
  line->SetAmount(Currency(40));
  // The rate is rounded to four places and the amount recomputed from it at once.
  EXPECT_EQ(line->Cost(), Currency::Parse("13.3333"));
  EXPECT_EQ(line->Amount(), Currency::Parse("39.9999"));
}

TEST_F(LineItemsTest, WithQuantityOneOrZeroTheAmountBecomesTheRate) {
  auto lines = Lines(qoObjectTypeInvoice);
  auto one = lines->Add("Labor");
  one->SetAmount(Currency(25));
  EXPECT_EQ(one->Cost(), Currency(25));
  EXPECT_EQ(one->Amount(), Currency(25));
  auto none = lines->Add("Subtotal");  // quantity reads 1
  EXPECT_EQ(none->Quantity(), Currency(1));
}

TEST_F(LineItemsTest, AnAmountOnALineWithARateAndNoQuantityGivesTheQuantity) {
  auto lines = Lines(qoObjectTypeInvoice);
  auto line = lines->Add("Labor", Currency(3));
  line->SetQuantity(Currency());
  EXPECT_EQ(line->Quantity(), Currency(3));
  EXPECT_EQ(line->Amount(), Currency(30));
}

TEST_F(LineItemsTest, AnAmountOnALineWithoutARateGivesTheRate) {
  auto lines = Lines(qoObjectTypeInvoice);
  auto line = lines->Add("", Currency(4));
  EXPECT_EQ(line->Amount(), Currency());
  line->SetAmount(Currency(20));
  EXPECT_EQ(line->Cost(), Currency(5));
  EXPECT_EQ(line->Amount(), Currency(20));
  // A rate cleared under an amount is computed back from it.
  line->SetCost(Currency());
  EXPECT_EQ(line->Cost(), Currency(5));
}

TEST_F(LineItemsTest, ADiscountAfterASubtotalTakesItsPercentOfTheSubtotal) {
  auto lines = Lines(qoObjectTypeInvoice);
  lines->Add("Labor");
  lines->Add("Labor", Currency(2));
  auto subtotal = lines->Add("Subtotal");
  auto discount = lines->Add("TenOff");
  EXPECT_EQ(lines->Total(), Currency(27));
  EXPECT_EQ(subtotal->Amount(), Currency(30));
  EXPECT_EQ(discount->Amount(), Currency(-3));
}

TEST_F(LineItemsTest, APercentDiscountWithNothingAboveIsZeroAndAFixedOneIsItsRate) {
  auto lines = Lines(qoObjectTypeInvoice);
  auto percent = lines->Add("TenOff");
  EXPECT_EQ(lines->Total(), Currency());
  EXPECT_EQ(percent->Amount(), Currency());
  lines->Add("Labor");
  lines->Add("Markdown");
  EXPECT_EQ(lines->Total(), Currency(5));
}

TEST_F(LineItemsTest, ATaxLineTaxesOnlyTheTaxableLineRightAboveIt) {
  auto lines = Lines(qoObjectTypeInvoice);
  lines->Add("Design");                  // 20, not taxable
  lines->Add("Labor", Currency(3));      // 30, taxable
  auto tax = lines->Add("State");
  EXPECT_EQ(lines->TaxableTotal(), Currency());  // nothing computed yet
  EXPECT_EQ(lines->Total(), Currency::Parse("51.5"));
  EXPECT_EQ(tax->Amount(), Currency::Parse("1.5"));
  EXPECT_EQ(lines->TaxableTotal(), Currency(30));
}

TEST_F(LineItemsTest, ATaxLineBelowANonTaxableLineTaxesNothing) {
  auto lines = Lines(qoObjectTypeInvoice);
  lines->Add("Labor", Currency(3));
  lines->Add("Design");
  auto tax = lines->Add("State");
  EXPECT_EQ(lines->Total(), Currency(50));
  EXPECT_EQ(tax->Amount(), Currency());
}

TEST_F(LineItemsTest, AFixedTaxLineReplacesTheRunningTotalWithItsAmountAndTheLineAbove) {
  auto lines = Lines(qoObjectTypeInvoice);
  lines->Add("Labor", Currency(3));
  lines->Add("Design");
  auto tax = lines->Add("State");
  tax->SetCostIsPercent(false);
  tax->SetAmount(Currency(4));
  EXPECT_EQ(lines->Total(), Currency(24));
}

TEST_F(LineItemsTest, ATaxableDiscountWidensTheTaxBaseOfTheTaxLineBelow) {
  auto lines = Lines(qoObjectTypeInvoice);
  lines->Add("Labor", Currency(10));  // 100
  lines->Add("TenOff");               // -10, taxable: the base becomes 100 - (-10)
  auto tax = lines->Add("State");
  EXPECT_EQ(lines->Total(), Currency::Parse("95.5"));
  EXPECT_EQ(tax->Amount(), Currency::Parse("5.5"));
  EXPECT_EQ(lines->TaxableTotal(), Currency(90));
}

TEST_F(LineItemsTest, APaymentLineIsSubtractedButKeepsItsOwnAmount) {
  auto lines = Lines(qoObjectTypeInvoice);
  lines->Add("Labor", Currency(3));
  auto paid = lines->Add("Deposit");
  paid->SetAmount(Currency(12));
  EXPECT_EQ(lines->Total(), Currency(18));
  EXPECT_EQ(paid->Amount(), Currency(12));
}

TEST_F(LineItemsTest, APercentPricedItemTakesItsPercentOfTheLineAbove) {
  auto lines = Lines(qoObjectTypeInvoice);
  lines->Add("Labor", Currency(3));
  auto fee = lines->Add("Fee");
  EXPECT_EQ(lines->Total(), Currency(33));
  EXPECT_EQ(fee->Amount(), Currency(3));
}

TEST_F(LineItemsTest, TheTotalOfAReceiptOfGoodsCannotPriceAPercentItem) {
  auto lines = Lines(qoObjectTypeItemReceipt);
  lines->Add("Labor", Currency(3));
  EXPECT_EQ(lines->Total(), Currency(30));  // plain lines never ask
  auto fee = lines->Add("Consult");
  detail::TxnAccess::SetOwnerType(*lines, qoObjectTypeInvoice);
  fee->SetItem("Fee");  // a percent item, priced on the sales side
  detail::TxnAccess::SetOwnerType(*lines, qoObjectTypeItemReceipt);
  EXPECT_EQ(NumberRaised([&] { lines->Total(); }), err::kInternal);
}

TEST_F(LineItemsTest, AnEstimateLineAddsItsMarkup) {
  auto lines = Lines(qoObjectTypeEstimate);
  auto stock = lines->Add("Hinge", Currency(2));
  EXPECT_TRUE(stock->MarkupIsPercent());
  EXPECT_EQ(stock->Markup(), Currency(50));
  EXPECT_EQ(stock->Amount(), Currency(12));  // 2 x 4, half again
  auto labor = lines->Add("Labor", Currency(2));
  EXPECT_EQ(labor->Markup(), Currency());  // no purchase side, no markup
  labor->SetMarkupIsPercent(false);
  labor->SetMarkup(Currency(5));
  EXPECT_EQ(labor->Amount(), Currency(25));
}

}  // namespace
}  // namespace tessaron
