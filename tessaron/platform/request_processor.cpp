#include "tessaron/platform/request_processor.h"

#include <map>
#include <mutex>

#include "tessaron/platform/error.h"
#include "tessaron/platform/text.h"

namespace tessaron {
namespace {

struct Registry {
  std::mutex mutex;
  std::map<std::string, RequestProcessorFactory> factories;  // keyed by folded identifier
};

Registry& TheRegistry() {
  static Registry r;
  return r;
}

}  // namespace

void RegisterRequestProcessor(const std::string& progId, RequestProcessorFactory factory) {
  Registry& r = TheRegistry();
  std::lock_guard lock(r.mutex);
  r.factories[FoldCase(progId)] = std::move(factory);
}

void UnregisterRequestProcessor(const std::string& progId) {
  Registry& r = TheRegistry();
  std::lock_guard lock(r.mutex);
  r.factories.erase(FoldCase(progId));
}

bool IsRequestProcessorRegistered(const std::string& progId) {
  Registry& r = TheRegistry();
  std::lock_guard lock(r.mutex);
  return r.factories.count(FoldCase(progId)) != 0;
}

std::shared_ptr<RequestProcessor> CreateRequestProcessorObject(const std::string& progId) {
  RequestProcessorFactory factory;
  {
    Registry& r = TheRegistry();
    std::lock_guard lock(r.mutex);
    auto it = r.factories.find(FoldCase(progId));
    if (it != r.factories.end()) factory = it->second;
  }
  std::shared_ptr<RequestProcessor> p;
  if (factory) {
    try {
      p = factory();
    } catch (...) {
      p = nullptr;
    }
  }
  if (!p) RaisePlatform(platform_error::kCannotCreateObject);
  return p;
}

}  // namespace tessaron
