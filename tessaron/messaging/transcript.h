// The transcript of messages: when the application sets QBConnection.DebugLogPath, every
// request and response is appended to that file, so that it reads as one document:
//
//   <TessaronLog CompanyPath="..." qbXMLVersion="..." ...>
//   <OUTGOING> ... </OUTGOING> <RETURNS> ... </RETURNS> ...
//   </TessaronLog>
//
// Library-internal: the builder writes the lines, the connection starts and ends the file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessaron {

// What the first line of a new transcript tells about the session.
struct TranscriptHeader {
  std::string companyPath;
  std::string qbXMLVersion;
  std::string productName;
  std::string majorVersion;
  std::string minorVersion;
};

// Appends one line to the transcript, when one is kept, in its TranscriptForm. Failures
// are ignored.
void WriteDebugLog(std::string_view text);

// A message as the transcript holds it: the XML declaration and the document types of the
// versions 1.0 to 4.0, as the builder writes them, are removed so that the transcript
// stays one well-formed document; a document type of any other version stays, as it
// always has.
std::string TranscriptForm(std::string_view text);

// One request of a transcript with its response; a request whose call failed has none.
struct TranscriptExchange {
  std::string request;
  std::string response;
  bool answered = false;
};

// What a transcript holds, in the order sent: the header's company path and qbXML version
// (empty when the transcript was started before the connection), and every exchange.
struct TranscriptContent {
  std::string companyPath;
  std::string qbXMLVersion;
  std::vector<TranscriptExchange> exchanges;
};
TranscriptContent ReadTranscript(std::string_view text);

// Sets the transcript path (State().DebugLogPath). With a path already set, the old file is
// closed with </TessaronLog> and the new path is simply stored (no header). Otherwise a
// non-empty path gets a new file that holds the header line; when that file cannot be
// made, the path is cleared and the platform's failure number is raised with source
// "Tessaron" and description "Invalid path specified".
void SetDebugLogPath(const std::string& path, const TranscriptHeader& header);

// Appends </TessaronLog> when a transcript is kept; failures are ignored.
void CloseTranscript();

}  // namespace tessaron
