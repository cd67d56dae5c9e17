#include "tessaron/platform/text.h"

namespace tessaron {
namespace {
inline unsigned char Lower(unsigned char c) { return (c >= 'A' && c <= 'Z') ? c + 32 : c; }
// Length of the UTF-8 sequence that starts with `lead` (1 for stray bytes).
inline size_t SeqLen(unsigned char lead) {
  if (lead < 0x80) return 1;
  if ((lead >> 5) == 0x6) return 2;
  if ((lead >> 4) == 0xE) return 3;
  if ((lead >> 3) == 0x1E) return 4;
  return 1;
}
}  // namespace

size_t Utf16Length(std::string_view s) {
  size_t units = 0;
  for (size_t i = 0; i < s.size();) {
    size_t len = SeqLen(static_cast<unsigned char>(s[i]));
    units += len == 4 ? 2 : 1;
    i += len;
  }
  return units;
}

std::string_view Utf16Left(std::string_view s, size_t units) {
  size_t used = 0, i = 0;
  while (i < s.size()) {
    size_t len = SeqLen(static_cast<unsigned char>(s[i]));
    size_t u = len == 4 ? 2 : 1;
    if (used + u > units || i + len > s.size()) break;
    used += u;
    i += len;
  }
  return s.substr(0, i);
}

std::string FoldCase(std::string_view s) {
  std::string out(s);
  for (char& c : out) c = static_cast<char>(Lower(static_cast<unsigned char>(c)));
  return out;
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (Lower(static_cast<unsigned char>(a[i])) != Lower(static_cast<unsigned char>(b[i]))) return false;
  return true;
}

size_t CaseInsensitiveHash::operator()(std::string_view s) const noexcept {
  size_t h = 1469598103934665603ull;  // FNV-1a over the folded bytes
  for (unsigned char c : s) {
    h ^= Lower(c);
    h *= 1099511628211ull;
  }
  return h;
}

std::string_view Trim(std::string_view s) {
  size_t b = 0, e = s.size();
  while (b < e && (s[b] == ' ' || s[b] == '\t' || s[b] == '\r' || s[b] == '\n')) ++b;
  while (e > b && (s[e - 1] == ' ' || s[e - 1] == '\t' || s[e - 1] == '\r' || s[e - 1] == '\n')) --e;
  return s.substr(b, e - b);
}

bool StartsWith(std::string_view s, std::string_view p) { return s.substr(0, p.size()) == p; }
bool EndsWith(std::string_view s, std::string_view p) {
  return s.size() >= p.size() && s.substr(s.size() - p.size()) == p;
}

std::string ReplaceAll(std::string_view s, std::string_view from, std::string_view to) {
  std::string out;
  if (from.empty()) return std::string(s);
  out.reserve(s.size());
  size_t pos = 0;
  for (size_t hit; (hit = s.find(from, pos)) != std::string_view::npos; pos = hit + from.size()) {
    out.append(s, pos, hit - pos);
    out.append(to);
  }
  out.append(s, pos);
  return out;
}

}  // namespace tessaron
