#include "tessaron/events/qc_event_sink.h"

#include <algorithm>

namespace tessaron {

Variant qcEventSink::Raise(qoEnumEventTypes EventId, std::string& EventParam) {
  if (disabled_) return {};
  // A listener may register or remove listeners while it runs: walk a copy.
  const std::vector<Listener> listeners = listeners_;
  for (const auto& l : listeners) l.handler(EventId, EventParam);
  return {};
}

Variant qcEventSink::Raise(qoEnumEventTypes EventId, const std::string& EventParam) {
  std::string text = EventParam;
  return Raise(EventId, text);
}

size_t qcEventSink::OnEvent(EventHandler handler) {
  listeners_.push_back({nextId_, std::move(handler)});
  return nextId_++;
}

void qcEventSink::RemoveEventHandler(size_t id) {
  std::erase_if(listeners_, [id](const Listener& l) { return l.id == id; });
}

}  // namespace tessaron
