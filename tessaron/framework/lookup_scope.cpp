#include "tessaron/framework/detail/lookup_scope.h"

#include "tessaron/platform/text.h"

namespace tessaron::detail {

namespace {

// Keyed by list and folded name: the lists compare names without regard to case.
struct Remembered {
  int depth = 0;
  std::unordered_map<std::string, std::shared_ptr<qcListObject>> found;
};

Remembered& Open() {
  static Remembered remembered;
  return remembered;
}

std::string KeyOf(int32_t list, std::string_view fullName) {
  std::string key = std::to_string(list);
  key += '\x1f';
  key += FoldCase(fullName);
  return key;
}

}  // namespace

LookupScope::LookupScope() : outermost_(Open().depth++ == 0) {}

LookupScope::~LookupScope() {
  Remembered& r = Open();
  --r.depth;
  if (outermost_) r.found.clear();
}

bool LookupScope::Find(int32_t list, std::string_view fullName, std::shared_ptr<qcListObject>& out) {
  Remembered& r = Open();
  if (r.depth == 0) return false;
  auto it = r.found.find(KeyOf(list, fullName));
  if (it == r.found.end()) return false;
  out = it->second;
  return true;
}

void LookupScope::Remember(int32_t list, std::string_view fullName, const std::shared_ptr<qcListObject>& found) {
  Remembered& r = Open();
  if (r.depth > 0) r.found[KeyOf(list, fullName)] = found;
}

}  // namespace tessaron::detail
