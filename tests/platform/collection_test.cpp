#include <gtest/gtest.h>

#include "tessaron/platform/collection.h"
#include "tessaron/platform/text.h"
#include "tests/support/raised.h"

namespace tessaron {
namespace {

TEST(Collection, KeysAreCaseInsensitiveAndPositionsOneBased) {
  Collection<int> c;
  c.Add(10, "Alpha");
  c.Add(20);
  c.Add(30, "gamma");
  EXPECT_EQ(c.Count(), 3);
  EXPECT_EQ(c.Item(1), 10);
  EXPECT_EQ(c.Item("ALPHA"), 10);
  EXPECT_EQ(c.Item(Variant("Gamma")), 30);
  EXPECT_EQ(c.Item(Variant(2)), 20);
  EXPECT_EQ(c.PositionOf("GAMMA"), 3);
}

TEST(Collection, RaisesThePlatformErrors) {
  Collection<int> c;
  c.Add(1, "a");
  EXPECT_EQ(testing::NumberRaised([&] { c.Item("b"); }), platform_error::kInvalidArgument);
  EXPECT_EQ(testing::NumberRaised([&] { c.Item(0L); }), platform_error::kSubscriptOutOfRange);
  EXPECT_EQ(testing::NumberRaised([&] { c.Item(2L); }), platform_error::kSubscriptOutOfRange);
  EXPECT_EQ(testing::NumberRaised([&] { c.Add(2, "A"); }), platform_error::kDuplicateKey);
  EXPECT_EQ(c.Count(), 1);  // the refused add changed nothing
}

TEST(Collection, RemoveKeepsKeysAndOrderOfTheRest) {
  Collection<std::string> c;
  for (const char* k : {"a", "b", "c", "d"}) c.Add(k, k);
  c.Remove("b");
  c.Remove(1L);
  EXPECT_EQ(c.Count(), 2);
  EXPECT_EQ(c.Item(1), "c");
  EXPECT_EQ(c.Item("D"), "d");
  EXPECT_EQ(c.PositionOf("d"), 2);
  std::string joined;
  for (auto& v : c) joined += v;
  EXPECT_EQ(joined, "cd");
}

TEST(Text, CountsUtf16UnitsAndCutsWholeCharacters) {
  EXPECT_EQ(Utf16Length("abc"), 3u);
  EXPECT_EQ(Utf16Length("\xC3\xA9t\xC3\xA9"), 3u);         // été
  EXPECT_EQ(Utf16Length("\xF0\x9F\x98\x80"), 2u);          // one emoji, a surrogate pair
  EXPECT_EQ(Utf16Left("\xC3\xA9t\xC3\xA9", 2), "\xC3\xA9t");
  EXPECT_EQ(Utf16Left("a\xF0\x9F\x98\x80", 2), "a");       // never half a pair
}

}  // namespace
}  // namespace tessaron
