#include <algorithm>

#include "qbsim/processor_options.h"

namespace tessaron::qbsim {

void FaultPlan::Add(Fault fault) {
  std::lock_guard lock(mutex_);
  faults_.push_back(std::move(fault));
}

void FaultPlan::Clear() {
  std::lock_guard lock(mutex_);
  faults_.clear();
}

bool FaultPlan::Empty() const {
  std::lock_guard lock(mutex_);
  return faults_.empty();
}

std::optional<Fault> FaultPlan::Take(const std::vector<std::string>& requestNames,
                                     std::initializer_list<Fault::Kind> kinds) {
  std::lock_guard lock(mutex_);
  for (auto it = faults_.begin(); it != faults_.end(); ++it) {
    if (std::find(kinds.begin(), kinds.end(), it->kind) == kinds.end()) continue;
    bool matches = it->requestName.empty() ||
                   std::find(requestNames.begin(), requestNames.end(), it->requestName) != requestNames.end();
    if (!matches) continue;
    Fault f = *it;
    if (--it->times <= 0) faults_.erase(it);
    return f;
  }
  return std::nullopt;
}

}  // namespace tessaron::qbsim
