#include <gtest/gtest.h>

#include "tests/support/raised.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"

namespace tessaron {
namespace {

using testing::NumberRaised;

TEST(qcErrors, AddKeepsEveryRecordInOrderEvenWithTheSameCodeAndField) {
  qcErrors errors;
  errors.Add(err::kNameNull, "Name", err::kNameNullText);
  errors.Add(err::kNameNull, "Name", "second");
  ASSERT_EQ(errors.Count(), 2);
  EXPECT_EQ(errors.Item(1)->Description(), "Name cannot be null");
  EXPECT_EQ(errors.Item(2)->Description(), "second");
  EXPECT_EQ(errors.Item(1)->Key(), "");
}

TEST(qcErrors, NumberReadsBackAsTheInt32Given) {
  qcErrors errors;
  auto e = errors.Add(qErrorValidateFailed, "Customer", "missing");
  EXPECT_EQ(e->Number(), qErrorValidateFailed);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), 0x800403F3u);
  EXPECT_EQ(errors.Add(0x800403F3u, "", "")->Number(), static_cast<int32_t>(0x800403F3u));
  EXPECT_EQ(errors.Add(int32_t{3100}, "QuickBooks: ", "")->Number(), 3100);
}

TEST(qcErrors, AddObjectUsesTheRecordsKeyAndRefusesADuplicate) {
  qcErrors errors;
  errors.Add(err::kBadVendor, "Vendor", err::kBadVendorText);
  auto keyed = std::make_shared<qcError>();
  keyed->SetKey("Phone");
  keyed->SetNumber(static_cast<int32_t>(err::kPhoneTooLong));
  EXPECT_EQ(errors.AddObject(keyed), 2);
  EXPECT_EQ(errors.Item(Variant("PHONE")), keyed);
  EXPECT_EQ(errors.Item(Variant(2)), keyed);

  auto again = std::make_shared<qcError>();
  again->SetKey("phone");
  EXPECT_EQ(NumberRaised([&] { errors.AddObject(again); }), 457u);
  EXPECT_EQ(errors.Count(), 2);
}

TEST(qcErrors, ItemAndRemoveRaiseTheCollectionsErrorsAndChangeNothing) {
  qcErrors errors;
  errors.Add(err::kNameNull, "Name", err::kNameNullText);
  EXPECT_EQ(NumberRaised([&] { errors.Item(Variant("nokey")); }), 5u);
  EXPECT_EQ(NumberRaised([&] { errors.Item(Variant(2)); }), 9u);
  EXPECT_EQ(NumberRaised([&] { errors.Remove(Variant(0)); }), 9u);
  EXPECT_EQ(NumberRaised([&] { errors.Remove(Variant("nokey")); }), 5u);
  EXPECT_EQ(errors.Count(), 1);
}

TEST(qcErrors, RemoveAndClear) {
  qcErrors errors;
  errors.Clear();
  EXPECT_EQ(errors.Count(), 0);
  errors.Add(1, "A", "a");
  errors.Add(2, "B", "b");
  errors.Add(3, "C", "c");
  errors.Remove(Variant(2));
  std::vector<std::string> fields;
  for (const auto& e : errors.NewEnum()) fields.push_back(e->Field());
  EXPECT_EQ(fields, (std::vector<std::string>{"A", "C"}));
  errors.Clear();
  EXPECT_EQ(errors.Count(), 0);
}

TEST(ErrorNumbers, FixedTextsBelongToTheirNumbers) {
  EXPECT_STREQ(ErrorText(0x800403EA), "Field cannot be modified");
  EXPECT_STREQ(ErrorText(0x800403FF), "Error(s) occurred during commit.  Check each object's Errors for details.");
  EXPECT_STREQ(ErrorText(0x80040B5F), "The ListType property has not been set or is invalid");
  EXPECT_STREQ(ErrorText(0x800403EB), "");
  EXPECT_EQ(err::kAccountRequired, static_cast<uint32_t>(qErrorAccountRequired));
  EXPECT_EQ(err::kNeedCustomer, static_cast<uint32_t>(qErrorNeedCustomer));
  EXPECT_EQ(err::kNeedVendor, static_cast<uint32_t>(qErrorNeedVendor));
  EXPECT_EQ(err::kBadAccount, static_cast<uint32_t>(qErrorBadAccount));
}

TEST(ErrorNumbers, RaiseErrorCarriesNumberSourceAndText) {
  auto e = testing::Raised([] { RaiseError(err::kMasterOnly, "Customer"); });
  ASSERT_TRUE(e);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), 0x800403FDu);
  EXPECT_EQ(e->Source(), "Customer");
  EXPECT_EQ(e->Description(), "This operation is only permitted on the master collection");
}

}  // namespace
}  // namespace tessaron
