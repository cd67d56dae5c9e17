#include "tessaron/framework/response_status.h"

#include <vector>

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/platform/variant.h"

namespace tessaron {

ResponseStatus ReadResponseStatus(const XmlNode& node) {
  const std::string text = node.xml();
  std::vector<std::string_view> tokens;
  size_t start = 0;
  for (;;) {
    size_t quote = text.find('"', start);
    tokens.emplace_back(std::string_view(text).substr(start, quote == std::string::npos ? std::string::npos : quote - start));
    if (quote == std::string::npos) break;
    start = quote + 1;
  }
  auto token = [&](size_t i) { return i < tokens.size() ? std::string(tokens[i]) : std::string(); };
  ResponseStatus status;
  status.requestId = static_cast<long>(Variant(token(1)).ToInteger());
  status.code = static_cast<int32_t>(Variant(token(3)).ToInteger());
  status.message = token(7);
  return status;
}

std::string CutQuickBooksMessage(const std::string& message) {
  constexpr std::string_view kMarker = "QuickBooks error message: ";
  size_t at = message.find(kMarker);
  return at == std::string::npos ? message : message.substr(at + kMarker.size());
}

void NoteCommitFailure(qcErrors& collection, const std::string& key, qcErrors& object, const ResponseStatus& status) {
  collection.Add(err::kCommitFailed, key, err::kCommitFailedText);
  if (status.code == 3100) object.Add(err::kDuplicateName, "Name", err::kDuplicateNameText);
  else object.Add(err::kDatabaseOpenFailed, "QuickBooks: ", CutQuickBooksMessage(status.message));
}

XmlNodeList ResponsesOf(const XmlDocument& doc) { return doc.childNodes().item(1).childNodes().item(0).childNodes(); }

}  // namespace tessaron
