// A request processor that answers from a transcript of messages, the file kept with
// QBConnection.SetDebugLogPath or `tessaron --transcript`: a session recorded once against
// QuickBooks or the embedded processor runs again with neither, for tests and for
// reproducing a report from the field.
//
//   tessaron::RegisterReplayProcessor("session.xml");   // before connecting
//   QBConnection qb; qb.Connect("", "My app", 0, "any.qbw");
//
// Requests must come in the recorded order and be the recorded text. The first one that
// is not raises err::kReplayMismatch, naming its position and its first line that differs
// from the recording; so does a request past the end of the recording.
#pragma once

#include <memory>
#include <string>

#include "tessaron/platform/request_processor.h"

namespace tessaron {

struct TranscriptContent;

class ReplayProcessor : public RequestProcessor {
 public:
  // Reads the transcript. A file that cannot be read raises the platform's file-not-found
  // error; one without any request raises err::kReplayMismatch.
  explicit ReplayProcessor(const std::string& transcriptPath);
  // Another processor replaying the same recording from its start.
  explicit ReplayProcessor(std::shared_ptr<const TranscriptContent> recording);

  // Requests answered so far, and how many the recording holds.
  size_t Position() const { return position_; }
  size_t Count() const;

  // The session announces the versions of the recorded host record (or of the header);
  // the processor's own version is the newest of them.
  void OpenConnection(const std::string& appId, const std::string& appName) override;
  std::string BeginSession(const std::string& companyFile, int32_t openMode) override;
  void EndSession(const std::string& ticket) override;
  void CloseConnection() override;
  std::string ProcessRequest(const std::string& ticket, const std::string& request) override;
  std::string ProcessSubscription(const std::string& request) override;
  std::vector<std::string> QBXMLVersionsForSession(const std::string& ticket) override;
  std::string GetCurrentCompanyFileName(const std::string& ticket) override;
  int MajorVersion() override;
  int MinorVersion() override;

 private:
  std::string Answer(const std::string& request);

  std::shared_ptr<const TranscriptContent> recording_;
  size_t position_ = 0;
  std::string companyFile_;
};

// Registers the replay under both programmatic identifiers. The transcript is read once,
// now; every processor the library creates replays it from its start.
void RegisterReplayProcessor(const std::string& transcriptPath);

}  // namespace tessaron
