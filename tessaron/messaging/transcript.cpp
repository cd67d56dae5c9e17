#include "tessaron/messaging/transcript.h"

#include <cerrno>
#include <cstdio>

#include "tessaron/connection/library_state.h"
#include "tessaron/platform/error.h"
#include "tessaron/version.h"

namespace tessaron {
namespace {

// What the builder writes at the top of a request, for the versions the transcript mends.
constexpr std::string_view kRemovedPrologues[] = {
    "<?xml version=\"1.0\" ?>",
    "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 1.0//EN' >",
    "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 1.1//EN' >",
    "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 2.0//EN' >",
    "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 2.1//EN' >",
    "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 3.0//EN' >",
    "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 4.0//EN' >",
};

void RemoveAll(std::string& text, std::string_view what) {
  size_t at = text.find(what);
  while (at != std::string::npos) {
    text.erase(at, what.size());
    at = text.find(what, at);
  }
}

// Opens, writes one line, closes: the transcript stays readable while the application
// runs and survives a crash.
bool AppendLine(const std::string& path, std::string_view line, const char* mode = "ab") {
  std::FILE* f = std::fopen(path.c_str(), mode);
  if (!f) return false;
  bool ok = std::fwrite(line.data(), 1, line.size(), f) == line.size() && std::fputc('\n', f) != EOF;
  return std::fclose(f) == 0 && ok;
}

}  // namespace

void WriteDebugLog(std::string_view text) {
  const std::string& path = State().DebugLogPath;
  if (path.empty()) return;
  std::string line(text);
  if (line.find("<?xml") != std::string::npos || line.find("<!DOCTYPE") != std::string::npos)
    for (std::string_view prologue : kRemovedPrologues) RemoveAll(line, prologue);
  AppendLine(path, line);
}

void SetDebugLogPath(const std::string& path, const TranscriptHeader& header) {
  LibraryState& state = State();
  if (!state.DebugLogPath.empty()) {
    AppendLine(state.DebugLogPath, "</TessaronLog>");
    state.DebugLogPath = path;
    return;
  }
  if (path.empty()) return;
  state.DebugLogPath = path;
  std::string companyPath = header.companyPath;
  for (char& c : companyPath)
    if (c == '&') c = '+';
  std::string line = "<TessaronLog CompanyPath=\"" + companyPath + "\" qbXMLVersion=\"" + header.qbXMLVersion +
                     "\" ProductName=\"" + header.productName + "\" MajorVersion=\"" + header.majorVersion +
                     "\" MinorVersion = \"" + header.minorVersion + "\" TessaronVersion=\"" TESSARON_VERSION_TEXT
                     "\">";
  errno = 0;
  if (!AppendLine(path, line, "wb")) {
    int32_t number = errno == ENOENT || errno == ENOTDIR ? platform_error::kPathNotFound
                                                          : platform_error::kPathFileAccess;
    state.DebugLogPath.clear();
    throw Error(number, "Tessaron", "Invalid path specified");
  }
}

void CloseTranscript() {
  const std::string& path = State().DebugLogPath;
  if (!path.empty()) AppendLine(path, "</TessaronLog>");
}

}  // namespace tessaron
