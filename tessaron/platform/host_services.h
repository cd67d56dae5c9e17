// What the library needs from its host system beyond the language: where its fixed
// files live, and how it tells the user something that needs their attention.
#pragma once

#include <functional>
#include <string>

namespace tessaron {

// The trace file of the connection, rewritten by the first trace line of each process.
// Default: "/tmp/tessaron.log", or the value of the environment variable TESSARON_TRACE_FILE.
std::string TraceFilePath();
void SetTraceFilePath(const std::string& path);  // empty restores the default

// The settings file of the accounting program, read for the last open company file.
// Default: "/etc/tessaron/qbw.ini", or the environment variable TESSARON_QBW_INI.
std::string QuickBooksIniPath();
void SetQuickBooksIniPath(const std::string& path);  // empty restores the default

// The folder of the library's own files (the mirror's log lives there).
// Default: "/tmp", or the environment variable TESSARON_HOME.
std::string LibraryFolder();
void SetLibraryFolder(const std::string& path);

// Where the library must tell the user something (a missing component, say), it calls the
// notification handler with a caption and a text. The default writes both to standard error.
using NotifyHandler = std::function<void(const std::string& caption, const std::string& text)>;
void SetNotifyHandler(NotifyHandler handler);  // an empty handler restores the default
void Notify(const std::string& caption, const std::string& text);

}  // namespace tessaron
