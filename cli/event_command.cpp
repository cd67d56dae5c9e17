// tessaron event parse FILE
//
// Reads an event message as QuickBooks sends it to a subscribed application and prints
// what the library makes of it as one JSON object: the kind, the company file and the
// host for every event, the company file operation and flags for UI events, the menu
// item's tag for UI extension events.
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "cli/commands.h"
#include "tessaron/events/qb_event.h"

namespace tessaron::cli {

namespace {

std::string Quoted(const std::string& s) {
  std::ostringstream out;
  out << '"';
  for (unsigned char ch : s) {
    if (ch == '"' || ch == '\\') {
      out << '\\' << ch;
    } else if (ch < 0x20) {
      static const char* kHex = "0123456789abcdef";
      out << "\\u00" << kHex[ch >> 4] << kHex[ch & 15];
    } else {
      out << ch;
    }
  }
  out << '"';
  return out.str();
}

const char* KindName(qbEventTypes type) {
  switch (type) {
    case qbEventData: return "DataEvent";
    case qbEventUI: return "UIEvent";
    case qbEventUIExtension: return "UIExtensionEvent";
  }
  return "";
}

std::string EventJson(const qbEvent& e) {
  std::ostringstream out;
  out << "{\n  \"EventType\": " << static_cast<int>(e.EventType) << ",\n  \"Kind\": " << Quoted(KindName(e.EventType))
      << ",\n  \"CompanyPath\": " << Quoted(e.CompanyPath) << ",\n  \"ProductName\": " << Quoted(e.ProductName)
      << ",\n  \"MajorVersion\": " << Quoted(e.MajorVersion) << ",\n  \"MinorVersion\": " << Quoted(e.MinorVersion);
  const auto flag = [](bool b) { return b ? "true" : "false"; };
  if (e.EventType == qbEventUI)
    out << ",\n  \"CompanyfileOpened\": " << flag(e.CompanyfileOpened) << ",\n  \"NewCompany\": "
        << flag(e.NewCompany) << ",\n  \"AutomaticLogin\": " << flag(e.AutomaticLogin);
  if (e.EventType == qbEventUIExtension) out << ",\n  \"EventTag\": " << Quoted(e.EventTag);
  out << "\n}\n";
  return out.str();
}

}  // namespace

void AddEventCommand(CLI::App& app) {
  CLI::App* event = app.add_subcommand("event", "Work with the event messages QuickBooks sends to subscribers");
  event->require_subcommand(1);
  auto file = std::make_shared<std::string>();
  CLI::App* parse = event->add_subcommand("parse", "Print an event message read from FILE as JSON");
  parse->add_option("FILE", *file, "The event message, as QuickBooks sent it")->required();
  parse->callback([file] {
    std::ifstream in(*file, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + *file);
    const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    qbEvent e;
    e.ParseXML(text);
    std::cout << EventJson(e);
  });
}

}  // namespace tessaron::cli
