// What the documents' Validate does with their lines, for any kind of line collection:
// each line's own checks, then the trailing lines without content dropped.
#pragma once

#include <string>

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/platform/variant.h"
#include "tessaron/transactions/detail/txn_access.h"

namespace tessaron::detail {

// Adds 0x800403F3 with the position for each line that fails its Validate, removes the
// lines after the last one with content (they never reach QuickBooks), and returns how
// many lines are left.
template <class Lines, class HasContent>
long ValidateAndTrimLines(Lines& lines, qcErrors& errors, HasContent hasContent) {
  long lastUsed = 0;
  for (long i = 1; i <= lines.Count(); ++i) {
    auto line = lines.Item(Variant(static_cast<int64_t>(i)));
    if (!TxnAccess::Validate(*line)) errors.Add(err::kValidateFailed, std::to_string(i), err::kValidateFailedText);
    if (hasContent(*line)) lastUsed = i;
  }
  while (lines.Count() > lastUsed) lines.Remove(Variant(static_cast<int64_t>(lines.Count())));
  return lines.Count();
}

// An item line counts when it names an item or has a description.
template <class Line>
bool ItemLineHasContent(const Line& line) {
  return !line.Item().empty() || !line.Description().empty();
}

// Rebuilds `col` with `value` in place `before` (1-based; the platform collection only
// appends). A position outside the collection raises as the collection does.
template <class C, class V>
void InsertBefore(C& col, const V& value, long before) {
  (void)col.Item(before);
  C rebuilt;
  long position = 1;
  for (const auto& entry : col.Entries()) {
    if (position++ == before) rebuilt.Add(value);
    rebuilt.Add(entry.value, entry.key);
  }
  col = std::move(rebuilt);
}

}  // namespace tessaron::detail
