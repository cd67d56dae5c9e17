#include "tessaron/platform/host_services.h"

#include <cstdlib>
#include <iostream>

namespace tessaron {
namespace {

struct Settings {
  std::string tracePath;
  std::string iniPath;
  std::string libraryFolder;
  NotifyHandler notify;
};

Settings& S() {
  static Settings s;
  return s;
}

std::string FromEnv(const char* name, const char* fallback) {
  const char* v = std::getenv(name);
  return v && *v ? v : fallback;
}

}  // namespace

std::string TraceFilePath() {
  return S().tracePath.empty() ? FromEnv("TESSARON_TRACE_FILE", "/tmp/tessaron.log") : S().tracePath;
}
void SetTraceFilePath(const std::string& path) { S().tracePath = path; }

std::string QuickBooksIniPath() {
  return S().iniPath.empty() ? FromEnv("TESSARON_QBW_INI", "/etc/tessaron/qbw.ini") : S().iniPath;
}
void SetQuickBooksIniPath(const std::string& path) { S().iniPath = path; }

std::string LibraryFolder() {
  return S().libraryFolder.empty() ? FromEnv("TESSARON_HOME", "/tmp") : S().libraryFolder;
}
void SetLibraryFolder(const std::string& path) { S().libraryFolder = path; }

void SetNotifyHandler(NotifyHandler handler) { S().notify = std::move(handler); }

void Notify(const std::string& caption, const std::string& text) {
  if (S().notify) {
    S().notify(caption, text);
    return;
  }
  std::cerr << caption << ": " << text << std::endl;
}

}  // namespace tessaron
