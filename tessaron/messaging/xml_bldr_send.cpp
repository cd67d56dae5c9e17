// The single door between the library and QuickBooks: sending what a builder holds and
// reading the status of the answer.
#include <charconv>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/log_file.h"
#include "tessaron/messaging/transcript.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/host_services.h"

namespace tessaron {
namespace {

constexpr uint32_t kParserNotInstalled = 0x800407CF;
constexpr const char* kUpdateXmlCaption = "Upgrade installation of the Microsoft XML 4.0 Parser";
constexpr const char* kUpdateXmlText =
    "The installation of the Microsoft XML Parser version 4.0 is either missing or corrupted.  This application will "
    "not function until the parser installation has been corrected.  Click on the following link to upgrade your "
    "installation and then select \"Open\" when prompted.  After upgrading your parser installation you will need to "
    "restart this application.";

void LogExchange(const char* open, std::string_view text, const char* close) {
  WriteDebugLog(open);
  WriteDebugLog(text);
  WriteDebugLog(close);
}

RequestProcessor& Processor() {
  const auto& processor = State().RequestProcessor;
  if (!processor) RaisePlatform(platform_error::kObjectNotSet);
  return *processor;
}

}  // namespace

// Steps shared by both send members; `asSendToQB` adds the trace of the host query and
// the routing of subscription message sets.
std::string xmlBldr::Exchange(bool asSendToQB) {
  AssemblePieces();
  const LibraryState& state = State();
  if (asSendToQB && state.TraceSend) WriteTraceLine("SendToQB:  " + buffer_);
  LogExchange("<OUTGOING>", buffer_, "</OUTGOING>");
  const std::string ticket = state.SessionTicket;
  std::string response;
  // A plain search: the word inside a value routes the message too.
  if (asSendToQB && buffer_.find("QBXMLSubscriptionMsgsRq") != std::string::npos)
    response = Processor().ProcessSubscription(buffer_);
  else
    response = Processor().ProcessRequest(ticket, buffer_);
  if (asSendToQB) Clear();  // the next request starts empty; the text stays in the buffer
  LogExchange("<RETURNS>", response, "</RETURNS>");
  return response;
}

XmlDocument xmlBldr::SendToQB() {
  XmlDocument doc;
  try {
    doc = XmlDocument::Create();
    // A response that does not parse is no error here: the document stays empty and the
    // caller's walk finds nothing. The answer can be many megabytes: it is parsed where
    // it lies, not copied.
    doc.loadXMLInPlace(Exchange(true));
    doc.SetAsync(false);
  } catch (const Error& e) {
    PassOnFailure(e);
  }
  ReadStatus(doc);
  return doc;
}

std::string xmlBldr::XMLSendToQB() {
  try {
    EndAggregate("QBXMLMsgsRq");
    EndAggregate("QBXML");
    return Exchange(false);
  } catch (const Error& e) {
    PassOnFailure(e);
  }
}

void xmlBldr::PassOnFailure(const Error& e) {
  if (e.Number() == platform_error::kCannotCreateObject) {
    // What the user is shown in a window where there is one.
    Notify(kUpdateXmlCaption, kUpdateXmlText);
    throw Error(kParserNotInstalled, "tessaron", "Microsoft XML 4.0 parser not installed.");
  }
  char buf[16];
  auto [end, ec] = std::to_chars(buf, buf + sizeof buf, e.Number());
  errNumberText_.assign(buf, end);
  errMsg_ = e.Description();
  throw e.WithSource("XMLBldr");
}

// Only the first response of a batch sets the status; a document without the expected
// nodes or attributes leaves the fields as they were.
void xmlBldr::ReadStatus(const XmlDocument& doc) {
  try {
    if (doc.IsNull()) return;
    XmlNode root = doc.childNodes().item(1);
    if (root.IsNull()) return;
    XmlNode set = root.childNodes().item(0);
    if (set.IsNull()) return;
    XmlNode response = set.childNodes().item(0);
    if (response.IsNull()) return;
    XmlAttributes attributes = response.attributes();
    const long count = attributes.length();
    for (long i = 0; i < count; ++i) {
      XmlNode attribute = attributes.item(i);
      std::string_view name = attribute.baseName();
      if (name == "statusCode") {
        errNumberText_ = attribute.text();
        if (ErrNumber() == 1) errNumberText_ = "0";  // status 1 (no match) counts as success
      } else if (name == "statusMessage") {
        errMsg_ = attribute.text();
      }
    }
  } catch (const Error&) {
  }
}

}  // namespace tessaron
