// Whether a message or output holds a piece of text: what most request-shape checks ask.
#pragma once

#include <string>

namespace tessaron::testing {

inline bool Contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

}  // namespace tessaron::testing
