// What an operation raised, for tests that assert error numbers and sources.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "tessaron/platform/error.h"

namespace tessaron::testing {

// The error the call raised, or nothing when it returned normally.
inline std::optional<Error> Raised(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& e) {
    return e;
  }
  return std::nullopt;
}

// The number the call raised as its 32-bit pattern (0x800403EF), 0 when it raised nothing.
inline uint32_t NumberRaised(const std::function<void()>& call) {
  auto e = Raised(call);
  return e ? static_cast<uint32_t>(e->Number()) : 0u;
}

}  // namespace tessaron::testing
