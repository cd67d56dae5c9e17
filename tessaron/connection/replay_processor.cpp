#include "tessaron/connection/replay_processor.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/messaging/transcript.h"
#include "tessaron/platform/error.h"

namespace tessaron {
namespace {

constexpr const char* kSource = "ReplayProcessor";
// How much of a differing line is shown, from the element where the texts part.
constexpr size_t kExcerpt = 120;
constexpr const char* kDeclaration = "<?xml version=\"1.0\" ?>";

[[noreturn]] void Mismatch(const std::string& text) { throw Error(err::kReplayMismatch, kSource, text); }

std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  for (size_t pos = 0;;) {
    size_t end = text.find('\n', pos);
    lines.push_back(text.substr(pos, end == std::string_view::npos ? std::string_view::npos : end - pos));
    if (end == std::string_view::npos) return lines;
    pos = end + 1;
  }
}

std::string Excerpt(std::string_view line, size_t from) {
  if (from >= line.size()) return "(end of line)";
  std::string out(line.substr(from, kExcerpt));
  if (from > 0) out.insert(0, "...");
  if (from + kExcerpt < line.size()) out += "...";
  return out;
}

// The first line where the texts part, both sides shown from the start of the element
// that differs: a message is mostly one long line.
std::string FirstDifference(std::string_view recorded, std::string_view sent) {
  std::vector<std::string_view> r = Lines(recorded), s = Lines(sent);
  size_t line = 0;
  while (line < r.size() && line < s.size() && r[line] == s[line]) ++line;
  std::string_view a = line < r.size() ? r[line] : std::string_view(), b = line < s.size() ? s[line] : std::string_view();
  size_t column = 0;
  while (column < a.size() && column < b.size() && a[column] == b[column]) ++column;
  size_t from = a.substr(0, column).rfind('<');
  if (from == std::string_view::npos) from = 0;
  return "line " + std::to_string(line + 1) + ", column " + std::to_string(column + 1) +
         ":\n  recorded: " + (line < r.size() ? Excerpt(a, from) : "(no such line)") +
         "\n  sent:     " + (line < s.size() ? Excerpt(b, from) : "(no such line)");
}

// The versions of the first host record answered in the recording.
std::vector<std::string> RecordedVersions(const TranscriptContent& recording) {
  constexpr std::string_view kOpen = "<SupportedQBXMLVersion>";
  std::vector<std::string> versions;
  for (const TranscriptExchange& e : recording.exchanges) {
    for (size_t at = e.response.find(kOpen); at != std::string::npos; at = e.response.find(kOpen, at)) {
      at += kOpen.size();
      size_t close = e.response.find('<', at);
      if (close == std::string::npos) break;
      versions.push_back(e.response.substr(at, close - at));
    }
    if (!versions.empty()) return versions;
  }
  if (!recording.qbXMLVersion.empty()) versions.push_back(recording.qbXMLVersion);
  return versions;
}

std::shared_ptr<const TranscriptContent> Load(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw Error(platform_error::kFileNotFound, kSource, "The transcript " + path + " could not be read.");
  std::ostringstream text;
  text << in.rdbuf();
  auto recording = std::make_shared<TranscriptContent>(ReadTranscript(text.str()));
  if (recording->exchanges.empty()) Mismatch("The transcript " + path + " holds no request.");
  return recording;
}

}  // namespace

ReplayProcessor::ReplayProcessor(const std::string& transcriptPath) : recording_(Load(transcriptPath)) {}

ReplayProcessor::ReplayProcessor(std::shared_ptr<const TranscriptContent> recording)
    : recording_(std::move(recording)) {}

size_t ReplayProcessor::Count() const { return recording_->exchanges.size(); }

void ReplayProcessor::OpenConnection(const std::string&, const std::string&) {}

std::string ReplayProcessor::BeginSession(const std::string& companyFile, int32_t) {
  companyFile_ = companyFile.empty() ? recording_->companyPath : companyFile;
  return "replay";
}

void ReplayProcessor::EndSession(const std::string&) {}
void ReplayProcessor::CloseConnection() {}

std::string ReplayProcessor::ProcessRequest(const std::string&, const std::string& request) { return Answer(request); }
std::string ReplayProcessor::ProcessSubscription(const std::string& request) { return Answer(request); }

std::string ReplayProcessor::Answer(const std::string& request) {
  const size_t n = position_ + 1;
  const std::string sent = TranscriptForm(request);
  if (position_ >= Count())
    Mismatch("Request " + std::to_string(n) + " was not recorded: the transcript ends after " +
             std::to_string(Count()) + " requests. It begins: " + Excerpt(Lines(sent).front(), 0));
  const TranscriptExchange& recorded = recording_->exchanges[position_];
  if (recorded.request != sent)
    Mismatch("Request " + std::to_string(n) + " differs from the recording at " +
             FirstDifference(recorded.request, sent));
  if (!recorded.answered)
    Mismatch("Request " + std::to_string(n) + " has no recorded response: its call failed when it was recorded.");
  ++position_;
  // The transcript drops the declaration that every response begins with; the library
  // counts on it (the QBXML element is the document's second node).
  if (recorded.response.rfind("<QBXML", 0) == 0) return std::string(kDeclaration) + recorded.response;
  return recorded.response;
}

std::vector<std::string> ReplayProcessor::QBXMLVersionsForSession(const std::string&) {
  std::vector<std::string> versions = RecordedVersions(*recording_);
  if (versions.empty()) Mismatch("The transcript tells no qbXML version: it holds no host record and no version in its header.");
  return versions;
}

std::string ReplayProcessor::GetCurrentCompanyFileName(const std::string&) { return companyFile_; }

// "CA3.0" gives 3 and 0; a recording without versions gives 1.0, the oldest.
int ReplayProcessor::MajorVersion() {
  std::vector<std::string> v = RecordedVersions(*recording_);
  if (v.empty()) return 1;
  size_t digit = v.back().find_first_of("0123456789");
  return digit == std::string::npos ? 1 : std::atoi(v.back().c_str() + digit);
}

int ReplayProcessor::MinorVersion() {
  std::vector<std::string> v = RecordedVersions(*recording_);
  size_t dot = v.empty() ? std::string::npos : v.back().find('.');
  return dot == std::string::npos ? 0 : std::atoi(v.back().c_str() + dot + 1);
}

void RegisterReplayProcessor(const std::string& transcriptPath) {
  std::shared_ptr<const TranscriptContent> recording = Load(transcriptPath);
  auto factory = [recording] { return std::make_shared<ReplayProcessor>(recording); };
  RegisterRequestProcessor(kRequestProcessor1, factory);
  RegisterRequestProcessor(kRequestProcessor2, factory);
}

}  // namespace tessaron
