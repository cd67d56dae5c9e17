#include "qbsim/field_map.h"

namespace tessaron::qbsim {
namespace {

// Separators that XML 1.0 text can never hold, so no value needs escaping.
constexpr char kPathEnd = '\x1F';
constexpr char kValueEnd = '\x1E';

template <typename Sink>
void DecodeInto(std::string_view text, Sink sink) {
  size_t pos = 0;
  while (pos < text.size()) {
    size_t mid = text.find(kPathEnd, pos);
    if (mid == std::string_view::npos) break;
    size_t end = text.find(kValueEnd, mid + 1);
    if (end == std::string_view::npos) end = text.size();
    sink(text.substr(pos, mid - pos), text.substr(mid + 1, end - mid - 1));
    pos = end + 1;
  }
}

}  // namespace

bool PathInTree(std::string_view path, std::string_view tree) {
  if (path.size() < tree.size() || path.compare(0, tree.size(), tree) != 0) return false;
  return path.size() == tree.size() || path[tree.size()] == '/' || path[tree.size()] == '#';
}

FieldMap FieldMap::Decode(std::string_view text) {
  FieldMap m;
  DecodeInto(text, [&](std::string_view p, std::string_view v) { m.fields_.emplace_back(p, v); });
  return m;
}

std::string FieldMap::Encode() const {
  std::string out;
  size_t size = 0;
  for (const auto& [p, v] : fields_) size += p.size() + v.size() + 2;
  out.reserve(size);
  for (const auto& [p, v] : fields_) {
    out += p;
    out += kPathEnd;
    out += v;
    out += kValueEnd;
  }
  return out;
}

const std::string* FieldMap::Find(std::string_view path) const {
  for (const auto& [p, v] : fields_)
    if (p == path) return &v;
  return nullptr;
}

std::string_view FieldMap::Get(std::string_view path) const {
  const std::string* v = Find(path);
  return v ? std::string_view(*v) : std::string_view();
}

void FieldMap::Set(std::string_view path, std::string_view value) {
  for (auto& [p, v] : fields_) {
    if (p == path) {
      v = value;
      return;
    }
  }
  fields_.emplace_back(path, value);
}

void FieldMap::Erase(std::string_view path) {
  std::erase_if(fields_, [&](const auto& f) { return f.first == path; });
}

void FieldMap::EraseTree(std::string_view path) {
  std::erase_if(fields_, [&](const auto& f) { return PathInTree(f.first, path); });
}

bool FieldMap::HasTree(std::string_view path) const {
  for (const auto& f : fields_)
    if (PathInTree(f.first, path)) return true;
  return false;
}

void FieldView::Parse(std::string_view text) {
  fields_.clear();
  DecodeInto(text, [&](std::string_view p, std::string_view v) { fields_.emplace_back(p, v); });
}

const std::string_view* FieldView::Find(std::string_view path) const {
  for (const auto& f : fields_)
    if (f.first == path) return &f.second;
  return nullptr;
}

bool FieldView::HasTree(std::string_view path) const {
  for (const auto& f : fields_)
    if (PathInTree(f.first, path)) return true;
  return false;
}

}  // namespace tessaron::qbsim
