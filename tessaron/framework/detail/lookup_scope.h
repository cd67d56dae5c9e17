// LookupScope: while one answer is read, a list record looked up by name is looked up
// once. A document's lines ask for their items and tax codes line by line, and a name that
// is not on file would otherwise cost a query to QuickBooks each time it is met again.
// What the scope remembers (found or not) lives until the scope ends; scopes nest, the
// outermost one keeps the answers.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tessaron {
class qcListObject;
}

namespace tessaron::detail {

class LookupScope {
 public:
  LookupScope();
  ~LookupScope();
  LookupScope(const LookupScope&) = delete;
  LookupScope& operator=(const LookupScope&) = delete;

  // The remembered result of the record `fullName` of the list; false when not asked yet
  // (or no scope is open).
  static bool Find(int32_t list, std::string_view fullName, std::shared_ptr<qcListObject>& out);
  static void Remember(int32_t list, std::string_view fullName, const std::shared_ptr<qcListObject>& found);

 private:
  bool outermost_;
};

}  // namespace tessaron::detail
