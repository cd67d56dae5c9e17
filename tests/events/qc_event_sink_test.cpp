// The event channel from a document's parts to the document: every listener hears each
// event once and in order, a listener answers through the text, a muted sink is silent.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tessaron/events/qc_event_sink.h"

namespace tessaron {
namespace {

TEST(EventSink, EveryListenerHearsTheEventOnceInTheOrderTheyRegistered) {
  qcEventSink sink;
  std::vector<std::string> heard;
  sink.OnEvent([&](qoEnumEventTypes& id, std::string& text) { heard.push_back("a" + std::to_string(id) + text); });
  sink.OnEvent([&](qoEnumEventTypes& id, std::string& text) { heard.push_back("b" + std::to_string(id) + text); });
  sink.Raise(qoEventNoQuantity, "Hinge");
  EXPECT_EQ(heard, (std::vector<std::string>{"a4Hinge", "b4Hinge"}));
}

TEST(EventSink, AListenerAnswersThroughTheTextAndTheRaiserSeesIt) {
  qcEventSink sink;
  sink.OnEvent([](qoEnumEventTypes& id, std::string& text) {
    if (id == qoEventItemTaxCodeQuery) text.clear();
  });
  std::string text = "State";
  sink.Raise(qoEventItemTaxCodeQuery, text);
  EXPECT_EQ(text, "");
}

TEST(EventSink, AMutedSinkIsSilentAndRaisesNothing) {
  qcEventSink sink;
  int calls = 0;
  sink.OnEvent([&](qoEnumEventTypes&, std::string&) { ++calls; });
  sink.SetDisabled(true);
  std::string text = "keep";
  EXPECT_NO_THROW(sink.Raise(qoEventAmountChange, text));
  EXPECT_EQ(calls, 0);
  EXPECT_EQ(text, "keep");
  sink.SetDisabled(false);
  sink.Raise(qoEventAmountChange);
  EXPECT_EQ(calls, 1);
}

TEST(EventSink, WithoutListenersOrAfterRemovalNothingHappens) {
  qcEventSink sink;
  EXPECT_TRUE(sink.Raise(qoEventWarning, "1").IsEmpty());
  int calls = 0;
  const size_t id = sink.OnEvent([&](qoEnumEventTypes&, std::string&) { ++calls; });
  sink.RemoveEventHandler(id);
  sink.Raise(qoEventAmountChange);
  EXPECT_EQ(calls, 0);
}

TEST(EventSink, AListenerThatRemovesItselfWhileCalledDoesNotDisturbTheOthers) {
  qcEventSink sink;
  int second = 0;
  size_t first = 0;
  first = sink.OnEvent([&](qoEnumEventTypes&, std::string&) { sink.RemoveEventHandler(first); });
  sink.OnEvent([&](qoEnumEventTypes&, std::string&) { ++second; });
  sink.Raise(qoEventAmountChange);
  sink.Raise(qoEventAmountChange);
  EXPECT_EQ(second, 2);
}

}  // namespace
}  // namespace tessaron
