// qcEventSink: the one channel through which the inner objects of a document (its lines)
// tell the document, and through it the application, that something changed. The owner
// makes one sink and hands it to its parts; a part calls Raise; whoever listens registers
// once with OnEvent instead of holding every part. Nothing here talks to QuickBooks.
//
//   auto sink = std::make_shared<qcEventSink>();
//   sink->OnEvent([&](qoEnumEventTypes& id, std::string& text) {
//     if (id == qoEventAmountChange) RecomputeTotals();
//   });
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/variant.h"

namespace tessaron {

class qcEventSink {
 public:
  // The event qoEvent: both arguments by reference, so that a listener can answer through
  // the text (a tax-code query is refused by clearing it).
  using EventHandler = std::function<void(qoEnumEventTypes& EventId, std::string& EventParam)>;

  // Calls every listener, in the order they registered, on the caller's thread, unless the
  // sink is Disabled. Returns an empty Variant; the caller reads the answer in EventParam.
  Variant Raise(qoEnumEventTypes EventId, std::string& EventParam);
  // For events whose text nobody answers.
  Variant Raise(qoEnumEventTypes EventId, const std::string& EventParam = std::string());

  // True mutes the sink; no event arrives and nothing is raised.
  bool Disabled() const { return disabled_; }
  void SetDisabled(bool value) { disabled_ = value; }

  // Registers a listener of qoEvent; the number returned removes it again.
  size_t OnEvent(EventHandler handler);
  void RemoveEventHandler(size_t id);

 private:
  struct Listener {
    size_t id;
    EventHandler handler;
  };
  bool disabled_ = false;
  size_t nextId_ = 1;
  std::vector<Listener> listeners_;
};

}  // namespace tessaron
