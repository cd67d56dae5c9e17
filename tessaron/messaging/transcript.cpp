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

// The value of `name="..."` in a header line; the header writes "MinorVersion = " with
// blanks, so blanks around the equals sign are allowed.
std::string HeaderAttribute(std::string_view line, std::string_view name) {
  for (size_t at = line.find(name); at != std::string_view::npos; at = line.find(name, at + 1)) {
    size_t p = at + name.size();
    while (p < line.size() && line[p] == ' ') ++p;
    if (p >= line.size() || line[p] != '=') continue;
    size_t open = line.find('"', p);
    size_t close = open == std::string_view::npos ? open : line.find('"', open + 1);
    if (close != std::string_view::npos) return std::string(line.substr(open + 1, close - open - 1));
  }
  return {};
}

}  // namespace

std::string TranscriptForm(std::string_view text) {
  std::string line(text);
  if (line.find("<?xml") != std::string::npos || line.find("<!DOCTYPE") != std::string::npos)
    for (std::string_view prologue : kRemovedPrologues) RemoveAll(line, prologue);
  return line;
}

void WriteDebugLog(std::string_view text) {
  const std::string& path = State().DebugLogPath;
  if (path.empty()) return;
  AppendLine(path, TranscriptForm(text));
}

// Each message was written as its text and a line end between marker lines, so the text
// is the lines between the markers joined again.
TranscriptContent ReadTranscript(std::string_view text) {
  TranscriptContent content;
  enum { Outside, InRequest, InResponse } where = Outside;
  std::string body;
  bool first = true;
  size_t pos = 0;
  while (pos < text.size()) {
    size_t end = text.find('\n', pos);
    std::string_view line = text.substr(pos, end == std::string_view::npos ? std::string_view::npos : end - pos);
    pos = end == std::string_view::npos ? text.size() : end + 1;
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);  // a copy that went through Windows
    if (where == Outside) {
      if (line == "<OUTGOING>" || line == "<RETURNS>") {
        where = line == "<OUTGOING>" ? InRequest : InResponse;
        body.clear();
        first = true;
      } else if (line.rfind("<TessaronLog ", 0) == 0 && content.exchanges.empty()) {
        content.companyPath = HeaderAttribute(line, "CompanyPath");
        content.qbXMLVersion = HeaderAttribute(line, "qbXMLVersion");
      }
      continue;
    }
    if (line == (where == InRequest ? "</OUTGOING>" : "</RETURNS>")) {
      if (where == InRequest) {
        content.exchanges.push_back({body, {}, false});
      } else if (!content.exchanges.empty() && !content.exchanges.back().answered) {
        content.exchanges.back().response = body;
        content.exchanges.back().answered = true;
      }
      where = Outside;
      continue;
    }
    if (!first) body += '\n';
    body.append(line);
    first = false;
  }
  return content;
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
