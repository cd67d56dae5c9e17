#include "qbsim/edition.h"

#include <algorithm>

#include "tessaron/platform/text.h"

namespace tessaron::qbsim {

const char* EditionName(Edition e) {
  switch (e) {
    case Edition::US: return "US";
    case Edition::CA: return "CA";
    case Edition::UK: return "UK";
    case Edition::AU: return "AU";
  }
  return "US";
}

std::optional<Edition> ParseEdition(std::string_view text) {
  text = Trim(text);
  if (EqualsIgnoreCase(text, "US")) return Edition::US;
  if (EqualsIgnoreCase(text, "CA")) return Edition::CA;
  if (EqualsIgnoreCase(text, "UK")) return Edition::UK;
  if (EqualsIgnoreCase(text, "AU") || EqualsIgnoreCase(text, "OZ")) return Edition::AU;
  return std::nullopt;
}

const char* VersionPrefix(Edition e) { return e == Edition::US ? "" : EditionName(e); }

const std::vector<int>& KnownVersions() {
  // The versions of the message specification up to the one whose schema the processor holds.
  static const std::vector<int> versions = {10, 11, 20, 21, 30, 40, 41, 50, 60, 70, 80, 100, 110, 120};
  return versions;
}

bool IsKnownVersion(int tenths) {
  const auto& v = KnownVersions();
  return std::find(v.begin(), v.end(), tenths) != v.end();
}

std::optional<int> ParseVersion(std::string_view text) {
  text = Trim(text);
  while (!text.empty() && ((text[0] >= 'A' && text[0] <= 'Z') || (text[0] >= 'a' && text[0] <= 'z')))
    text.remove_prefix(1);
  size_t dot = text.find('.');
  if (dot == std::string_view::npos || dot == 0 || dot + 2 != text.size()) return std::nullopt;
  int major = 0;
  for (size_t i = 0; i < dot; ++i) {
    if (text[i] < '0' || text[i] > '9') return std::nullopt;
    major = major * 10 + (text[i] - '0');
  }
  char minor = text[dot + 1];
  if (minor < '0' || minor > '9' || major > 99) return std::nullopt;
  return major * 10 + (minor - '0');
}

std::string VersionText(int tenths) { return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10); }

std::vector<std::string> VersionList(Edition e, int newest) {
  std::vector<std::string> out;
  for (int v : KnownVersions())
    if (v <= newest) out.push_back(VersionPrefix(e) + VersionText(v));
  return out;
}

}  // namespace tessaron::qbsim
