#include "tessaron/foundation/log_file.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "tessaron/platform/date.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/host_services.h"

namespace tessaron {
namespace {

// Whether this process has written its first trace line (which empties the file).
bool g_traceStarted = false;

}  // namespace

void LogFile::SetLogPath(const std::string& value) {
  if (!value.empty()) {
    std::error_code ec;
    if (!std::filesystem::exists(value, ec) && !std::ofstream(value, std::ios::app))
      RaisePlatform(platform_error::kPathNotFound);
  }
  logPath_ = value;
}

void LogFile::LogEntry(int32_t StatusCode, const std::string& Description) {
  if (logPath_.empty()) return;
  try {
    {
      std::ofstream out(logPath_, std::ios::app | std::ios::binary);
      if (!out) return;
      out << FormatDate(Now(), "yyyy-mm-dd Hh:Nn:Ss") << '\t' << StatusCode << '\t' << source_ << '\t'
          << Description << '\n';
    }
    std::error_code ec;
    auto size = std::filesystem::file_size(logPath_, ec);
    if (ec || static_cast<double>(size) / 1000.0 <= maxKB_) return;
    // Keep one live file and one old one; the next entry starts a new live file.
    std::string old = logPath_ + "-old";
    std::filesystem::remove(old, ec);
    std::filesystem::rename(logPath_, old, ec);
  } catch (...) {
    // A log never fails its caller.
  }
}

Variant LogFile::Clear() {
  if (!logPath_.empty() && !std::ofstream(logPath_, std::ios::trunc)) RaisePlatform(platform_error::kPathFileAccess);
  return Variant();
}

void WriteTraceLine(const std::string& text) {
  try {
    auto mode = std::ios::binary | (g_traceStarted ? std::ios::app : std::ios::trunc);
    g_traceStarted = true;
    std::ofstream out(TraceFilePath(), mode);
    if (out) out << text << '\n';
  } catch (...) {
    // Tracing never fails the connection.
  }
}

void ResetTraceFileForTesting() { g_traceStarted = false; }

}  // namespace tessaron
