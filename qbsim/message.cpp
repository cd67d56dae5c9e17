#include "qbsim/message.h"

#include <vector>

#include <pugixml.hpp>

#include "qbsim/event_delivery.h"
#include "qbsim/request_context.h"
#include "qbsim/request_table.h"
#include "qbsim/status.h"
#include "qbsim/strict_mode.h"
#include "qbsim/subscription_store.h"
#include "qbsim/xml_out.h"
#include "tessaron/platform/error.h"

namespace tessaron::qbsim {
namespace {

constexpr const char* kDeclaration = "<?xml version=\"1.0\" ?>";

[[noreturn]] void ParseError(const std::string& detail) {
  throw Error(processor_error::kParse, kSource, std::string(processor_error::kParseText) + " " + detail);
}

// The version text of the document type ("CA2.0" from "...//DTD QBXML QBD CA2.0//EN'"),
// or an empty text when the message has none.
std::string DoctypeVersion(const std::string& text) {
  size_t doctype = text.find("<!DOCTYPE");
  if (doctype == std::string::npos) return {};
  size_t end = text.find('>', doctype);
  size_t qbd = text.find("QBD ", doctype);
  if (qbd == std::string::npos || qbd > end) return {};
  size_t stop = text.find("//", qbd);
  if (stop == std::string::npos || stop > end) return {};
  return text.substr(qbd + 4, stop - qbd - 4);
}

// The message's qbXML version, x10; raises when the session cannot take it.
int MessageVersion(const std::string& text, const SessionInfo& session, bool strict) {
  std::string declared = DoctypeVersion(text);
  if (declared.empty()) return session.newestVersion;
  std::optional<int> v = ParseVersion(declared);
  if (!v || !IsKnownVersion(*v) || *v > session.newestVersion)
    throw Error(processor_error::kVersionNotSupported, kSource,
                std::string(processor_error::kVersionNotSupportedText) + " (" + declared + "; the newest is " +
                    VersionPrefix(session.edition) + VersionText(session.newestVersion) + ")");
  if (strict) {
    std::string prefix = declared.substr(0, declared.find_first_of("0123456789"));
    bool ok = prefix == VersionPrefix(session.edition) || (session.edition == Edition::AU && prefix == "OZ");
    if (!ok)
      ParseError("The document type names the qbXML version " + declared + ", which is not one of the " +
                 EditionName(session.edition) + " edition.");
  }
  return *v;
}

void Parse(const std::string& text, pugi::xml_document& doc) {
  pugi::xml_parse_result r = doc.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
  if (!r) ParseError(std::string(r.description()) + " at offset " + std::to_string(r.offset) + ".");
}

std::string ResponseName(std::string_view request) {
  std::string name(request);
  if (name.size() > 2 && name.compare(name.size() - 2, 2, "Rq") == 0) name.replace(name.size() - 2, 2, "Rs");
  else name += "Rs";
  return name;
}

std::vector<std::string> RequestNames(pugi::xml_node set) {
  std::vector<std::string> names;
  for (pugi::xml_node rq = set.first_child(); rq; rq = rq.next_sibling())
    if (rq.type() == pugi::node_element) names.push_back(rq.name());
  return names;
}

// Takes the faults that strike the message as a whole.
void MessageFaults(const ProcessorOptions& options, const std::vector<std::string>& names, std::string& replacement) {
  if (!options.faults) return;
  auto f = options.faults->Take(names, {Fault::Kind::Raise, Fault::Kind::UnparsableText});
  if (!f) return;
  if (f->kind == Fault::Kind::Raise) throw Error(f->number, kSource, f->description);
  replacement = "<QBXML><QBXMLMsgsRs><Unfinished";
}

void WriteResponse(XmlOut& out, const std::string& name, const pugi::xml_node& request, const Status& s,
                   const std::string& body, bool withAttributes) {
  out.OpenWithAttributes(name);
  if (withAttributes) {
    // The order is part of the format: the library splits the element's text at quotes.
    if (pugi::xml_attribute id = request.attribute("requestID")) out.Attribute("requestID", id.value());
    out.Attribute("statusCode", std::to_string(s.code));
    out.Attribute("statusSeverity", s.Severity());
    out.Attribute("statusMessage", s.message);
  }
  if (body.empty()) {
    out.Raw("/>");
  } else {
    out.EndAttributes();
    out.Raw(body);
    out.Close(name);
  }
}

SubscriptionStore& StoreOf(const ProcessorOptions& options) {
  return options.subscriptions ? *options.subscriptions : *ProcessSubscriptionStore();
}

}  // namespace

EventHost HostOf(const SessionInfo& session, const ProcessorOptions& options) {
  return {session.file->Path(), options.productName, options.productMajorVersion, options.productMinorVersion,
          session.edition, session.newestVersion};
}

std::string AnswerMessage(const SessionInfo& session, const ProcessorOptions& options, const std::string& text) {
  pugi::xml_document doc;
  Parse(text, doc);
  pugi::xml_node root = doc.document_element();
  if (std::string_view(root.name()) != "QBXML") ParseError("The root element is not QBXML.");
  pugi::xml_node set = root.child("QBXMLMsgsRq");
  if (!set) {
    if (root.child("QBXMLSubscriptionMsgsRq")) return AnswerSubscriptionMessage(options, text);
    ParseError("The message has no QBXMLMsgsRq.");
  }
  std::vector<std::string> names = RequestNames(set);
  std::string broken;
  MessageFaults(options, names, broken);
  if (!broken.empty()) return broken;

  std::unique_lock lock(session.file->Mutex());
  SubscriptionStore& subscriptions = StoreOf(options);
  const bool tellSubscribers = subscriptions.WantsDataEvents();
  std::vector<DataChange> changes;
  RequestContext ctx(*session.file, options, session.edition, MessageVersion(text, session, options.strict),
                     session.newestVersion);
  const RequestTable& table = RequestTable::Instance();
  if (options.strict) {
    // The whole message is judged before any request of it is carried out.
    if (std::string problem = SchemaProblem(doc, options.schemaDir); !problem.empty()) ParseError(problem);
    for (pugi::xml_node rq = set.first_child(); rq; rq = rq.next_sibling()) {
      const RequestEntry* entry = table.Find(rq.name());
      if (!entry) continue;
      if (ctx.version < entry->minVersion)
        ParseError(std::string(rq.name()) + " is not available in qbXML version " + VersionText(ctx.version) + ".");
      if (entry->check)
        if (std::string problem = entry->check(ctx, rq); !problem.empty()) ParseError(problem);
    }
  }

  const bool stopOnError = std::string_view(set.attribute("onError").value()) != "continueOnError" &&
                           set.attribute("onError");
  const ListIdLookup listIdOf = [&ctx](const std::string& type, const std::string& fullName) {
    const std::string kinds[] = {type};
    std::vector<ListRecord> found = ctx.store.ByFullName(kinds, fullName);
    return found.empty() ? std::string() : found.front().listId;
  };
  XmlOut out;
  out.Raw(kDeclaration);
  out.Raw("<QBXML><QBXMLMsgsRs>");
  for (pugi::xml_node rq = set.first_child(); rq; rq = rq.next_sibling()) {
    if (rq.type() != pugi::node_element) continue;
    std::optional<Fault> fault;
    if (options.faults) fault = options.faults->Take({rq.name()}, {Fault::Kind::DropResponse, Fault::Kind::NoAttributes});
    const RequestEntry* entry = table.Find(rq.name());
    XmlOut body;
    Status s = entry ? entry->handle(ctx, rq, body) : status::NotSupported(rq.name());
    if (fault && fault->kind == Fault::Kind::DropResponse) continue;
    WriteResponse(out, ResponseName(rq.name()), rq, s, body.Str(),
                  !(fault && fault->kind == Fault::Kind::NoAttributes));
    const bool failed = std::string_view(s.Severity()) == "Error";
    if (tellSubscribers && !failed)
      if (std::optional<DataChange> change = ChangeOf(rq, body.Str(), listIdOf)) changes.push_back(std::move(*change));
    if (stopOnError && failed) break;
  }
  out.Raw("</QBXMLMsgsRs></QBXML>");
  lock.unlock();
  if (!changes.empty()) subscriptions.DeliverDataEvents(HostOf(session, options), changes);
  return out.Take();
}

std::string AnswerSubscriptionMessage(const ProcessorOptions& options, const std::string& text) {
  pugi::xml_document doc;
  Parse(text, doc);
  pugi::xml_node set = doc.document_element().child("QBXMLSubscriptionMsgsRq");
  if (std::string_view(doc.document_element().name()) != "QBXML" || !set)
    ParseError("The message has no QBXMLSubscriptionMsgsRq.");
  std::vector<std::string> names = RequestNames(set);
  std::string broken;
  MessageFaults(options, names, broken);
  if (!broken.empty()) return broken;
  if (options.strict)
    if (std::string problem = SchemaProblem(doc, options.schemaDir); !problem.empty()) ParseError(problem);
  SubscriptionStore& store = StoreOf(options);
  XmlOut out;
  out.Raw(kDeclaration);
  out.Raw("<QBXML><QBXMLSubscriptionMsgsRs>");
  for (pugi::xml_node rq = set.first_child(); rq; rq = rq.next_sibling()) {
    if (rq.type() != pugi::node_element) continue;
    XmlOut body;
    Status s = store.Answer(rq, body);
    WriteResponse(out, ResponseName(rq.name()), rq, s, body.Str(), true);
  }
  out.Raw("</QBXMLSubscriptionMsgsRs></QBXML>");
  return out.Take();
}

}  // namespace tessaron::qbsim
