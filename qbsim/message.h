// Answers one qbXML message of a session: parses it, applies strict mode, runs each
// request through the request table and assembles the response text.
#pragma once

#include <memory>
#include <string>

#include "qbsim/company_file.h"
#include "qbsim/edition.h"
#include "qbsim/event_delivery.h"
#include "qbsim/processor_options.h"

namespace tessaron::qbsim {

struct SessionInfo {
  std::shared_ptr<CompanyFile> file;
  Edition edition = Edition::US;
  int newestVersion = kDefaultNewestVersion;
};

// The sender of the session's events.
EventHost HostOf(const SessionInfo& session, const ProcessorOptions& options);

// A normal message set (QBXMLMsgsRq). Raises 0x80040400 for text that does not parse or,
// in strict mode, does not validate; 0x80040418 for a qbXML version above the session's.
// The changes it made reach the host's data event subscribers once it is answered.
std::string AnswerMessage(const SessionInfo& session, const ProcessorOptions& options, const std::string& text);

// A subscription message set (QBXMLSubscriptionMsgsRq); no session is needed. The
// subscriptions are kept by the host's store (ProcessorOptions::subscriptions).
std::string AnswerSubscriptionMessage(const ProcessorOptions& options, const std::string& text);

}  // namespace tessaron::qbsim
