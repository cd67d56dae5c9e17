// Text helpers for UTF-8 strings that the library measures as the platform does (UTF-16 units).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessaron {

// Length in UTF-16 code units: what "cannot exceed N characters" counts.
size_t Utf16Length(std::string_view s);
// The longest prefix of at most `units` UTF-16 code units; never splits a character.
std::string_view Utf16Left(std::string_view s, size_t units);

// Case-insensitive comparison and folding, as keys of collections compare.
// ASCII letters fold; other characters compare as they stand.
std::string FoldCase(std::string_view s);
bool EqualsIgnoreCase(std::string_view a, std::string_view b);
struct CaseInsensitiveHash {
  using is_transparent = void;
  size_t operator()(std::string_view s) const noexcept;
};
struct CaseInsensitiveEqual {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const noexcept { return EqualsIgnoreCase(a, b); }
};

std::string_view Trim(std::string_view s);
bool StartsWith(std::string_view s, std::string_view prefix);
bool EndsWith(std::string_view s, std::string_view suffix);
// Replaces every occurrence of `from` (exact comparison) by `to`.
std::string ReplaceAll(std::string_view s, std::string_view from, std::string_view to);

}  // namespace tessaron
