// The library's logs. LogFile is a size-limited, tab-separated log that rotates to one old
// file (the database mirror keeps one, DBLog, and an application may keep its own); the
// trace of the connection is one plain file that always holds the last process's lines.
// Writing a line never fails its caller: every file failure of LogEntry and WriteTraceLine
// is dropped.
#pragma once

#include <cstdint>
#include <string>

#include "tessaron/platform/variant.h"

namespace tessaron {

class LogFile {
 public:
  // The limit of the file in units of 1000 bytes; a line that takes the file over it
  // moves the file to LogPath + "-old".
  int16_t MaxKB() const { return maxKB_; }
  void SetMaxKB(int16_t value) { maxKB_ = value; }
  // Written into every line.
  const std::string& Source() const { return source_; }
  void SetSource(const std::string& value) { source_ = value; }
  // The file; empty means logging is off. Setting a path whose file does not exist
  // creates the file empty; when it cannot be created, path not found (76) is raised and
  // the path is not stored.
  const std::string& LogPath() const { return logPath_; }
  void SetLogPath(const std::string& value);

  // Appends "yyyy-mm-dd hh:nn:ss<TAB>StatusCode<TAB>Source<TAB>Description", then rotates
  // when the file has grown past MaxKB. Does nothing without a LogPath.
  void LogEntry(int32_t StatusCode, const std::string& Description);
  // Empties the file; a file that cannot be opened raises path/file access error (75).
  // Without a LogPath there is nothing to empty.
  Variant Clear();

 private:
  int16_t maxKB_ = 0;
  std::string source_;
  std::string logPath_;
};

// Writes one line to the trace file (TraceFilePath()). The first line of the process
// empties the file; later ones append. Failures are ignored.
void WriteTraceLine(const std::string& text);
// Makes the next trace line the first of the process again (see ResetLibraryStateForTesting).
void ResetTraceFileForTesting();

}  // namespace tessaron
