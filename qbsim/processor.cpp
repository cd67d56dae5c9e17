#include "qbsim/processor.h"

#include <algorithm>
#include <mutex>
#include <random>

#include "qbsim/status.h"
#include "qbsim/subscription_store.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/text.h"

namespace tessaron::qbsim {
namespace {

// The files with an open session in this process, newest last: the last one is the file
// "currently open" when the options name none.
std::mutex g_openMutex;
std::vector<std::string>& OpenFiles() {
  static std::vector<std::string> files;
  return files;
}

void NoteOpened(const std::string& path) {
  std::lock_guard lock(g_openMutex);
  OpenFiles().push_back(path);
}

void NoteClosed(const std::string& path) {
  std::lock_guard lock(g_openMutex);
  auto& files = OpenFiles();
  auto it = std::find(files.rbegin(), files.rend(), path);
  if (it != files.rend()) files.erase(std::next(it).base());
}

std::string CurrentlyOpen() {
  std::lock_guard lock(g_openMutex);
  return OpenFiles().empty() ? std::string() : OpenFiles().back();
}

std::string NewTicket() {
  static std::mutex mutex;
  static std::mt19937_64 rng(std::random_device{}());
  std::lock_guard lock(mutex);
  uint64_t a = rng(), b = rng();
  char buf[48];
  std::snprintf(buf, sizeof buf, "{%08X-%04X-%04X-%04X-%012llX}", static_cast<unsigned>(a >> 32),
                static_cast<unsigned>((a >> 16) & 0xFFFF), static_cast<unsigned>(a & 0xFFFF),
                static_cast<unsigned>(b >> 48), static_cast<unsigned long long>(b & 0xFFFFFFFFFFFFULL));
  return buf;
}

}  // namespace

Processor::Processor(ProcessorOptions options) : options_(std::move(options)) {}

Processor::~Processor() {
  // A released processor gives its files back, so a new session on them can start.
  for (auto& [ticket, s] : sessions_) NoteClosed(s.file->Path());
}

void Processor::OpenConnection(const std::string& appId, const std::string& appName) {
  for (const std::string& refused : options_.refusedApplications)
    if ((!appName.empty() && EqualsIgnoreCase(refused, appName)) || (!appId.empty() && EqualsIgnoreCase(refused, appId)))
      throw Error(processor_error::kAppRefused, kSource, processor_error::kAppRefusedText);
  connected_ = true;
}

std::string Processor::BeginSession(const std::string& companyFile, int32_t) {
  if (!connected_) throw Error(processor_error::kNotConnected, kSource, processor_error::kNotConnectedText);
  std::string path = companyFile;
  if (path.empty()) path = options_.currentCompanyFile;
  if (path.empty()) path = CurrentlyOpen();
  if (path.empty()) throw Error(processor_error::kNoFileOpen, kSource, processor_error::kNoFileOpenText);
  SessionInfo s;
  s.file = CompanyFile::Open(path, options_.databaseVfs);
  s.edition = options_.edition.value_or(s.file->FileEdition());
  s.newestVersion = options_.newestVersion.value_or(s.file->NewestVersion());
  std::string ticket = NewTicket();
  sessions_.emplace(ticket, s);
  NoteOpened(s.file->Path());
  Subscriptions().DeliverCompanyFileEvent(HostOf(s, options_), true);
  return ticket;
}

void Processor::EndSession(const std::string& ticket) {
  auto it = sessions_.find(ticket);
  if (it == sessions_.end()) return;
  NoteClosed(it->second.file->Path());
  const EventHost host = HostOf(it->second, options_);
  sessions_.erase(it);
  Subscriptions().DeliverCompanyFileEvent(host, false);
}

void Processor::CloseConnection() {
  std::vector<EventHost> closed;
  for (auto& [ticket, s] : sessions_) {
    NoteClosed(s.file->Path());
    closed.push_back(HostOf(s, options_));
  }
  sessions_.clear();
  for (const EventHost& host : closed) Subscriptions().DeliverCompanyFileEvent(host, false);
  connected_ = false;
}

SubscriptionStore& Processor::Subscriptions() const {
  return options_.subscriptions ? *options_.subscriptions : *ProcessSubscriptionStore();
}

const SessionInfo& Processor::SessionFor(const std::string& ticket) const {
  auto it = sessions_.find(ticket);
  if (it == sessions_.end()) throw Error(processor_error::kBadTicket, kSource, processor_error::kBadTicketText);
  return it->second;
}

std::string Processor::ProcessRequest(const std::string& ticket, const std::string& request) {
  return AnswerMessage(SessionFor(ticket), options_, request);
}

std::string Processor::ProcessSubscription(const std::string& request) {
  if (!connected_) throw Error(processor_error::kNotConnected, kSource, processor_error::kNotConnectedText);
  return AnswerSubscriptionMessage(options_, request);
}

std::vector<std::string> Processor::QBXMLVersionsForSession(const std::string& ticket) {
  const SessionInfo& s = SessionFor(ticket);
  return VersionList(s.edition, s.newestVersion);
}

std::string Processor::GetCurrentCompanyFileName(const std::string& ticket) { return SessionFor(ticket).file->Path(); }

int Processor::AnnouncedVersion() const { return options_.newestVersion.value_or(kDefaultNewestVersion); }

int Processor::MajorVersion() { return options_.processorMajorVersion.value_or(AnnouncedVersion() / 10); }

int Processor::MinorVersion() { return options_.processorMinorVersion.value_or(AnnouncedVersion() % 10); }

}  // namespace tessaron::qbsim
