// National editions of QuickBooks and qbXML versions as the processor announces them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaron::qbsim {

enum class Edition { US, CA, UK, AU };

// "US", "CA", "UK", "AU".
const char* EditionName(Edition e);
// Parses an edition name, without regard to case ("OZ" is taken as AU); nothing when unknown.
std::optional<Edition> ParseEdition(std::string_view text);
// The prefix of version texts in that edition: "" for the US, else the edition's name.
const char* VersionPrefix(Edition e);

// qbXML versions as tenths: 1.0 -> 10, 2.1 -> 21, 12.0 -> 120.
// The versions the processor can announce, oldest first; the newest is configurable.
const std::vector<int>& KnownVersions();
bool IsKnownVersion(int tenths);
// "2.1" -> 21; a country prefix ("CA2.1") is skipped. Nothing when the text is no version.
std::optional<int> ParseVersion(std::string_view text);
// 21 -> "2.1".
std::string VersionText(int tenths);
// The versions of a session: every known version up to `newest`, each with the edition's prefix.
std::vector<std::string> VersionList(Edition e, int newest);

inline constexpr int kDefaultNewestVersion = 40;

}  // namespace tessaron::qbsim
