// tessaron send REQUEST.xml --company FILE [--pretty]
#include <fstream>
#include <iostream>
#include <sstream>

#include <pugixml.hpp>

#include "cli/session.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/text.h"

namespace tessaron::cli {
namespace {

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + path);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

std::string Indented(const std::string& response) {
  pugi::xml_document doc;
  if (!doc.load_string(response.c_str())) return response;
  std::ostringstream out;
  doc.save(out, "  ", pugi::format_indent | pugi::format_no_declaration);
  std::string declaration = response.substr(0, response.find("?>") + 2);
  return (StartsWith(response, "<?xml") ? declaration + "\n" : std::string()) + out.str();
}

}  // namespace

void AddSendCommand(CLI::App& app, const GlobalOptions& global) {
  CLI::App* send = app.add_subcommand("send", "Send a qbXML request file and print the response");
  struct Args {
    std::string request, company;
    bool pretty = false;
  };
  auto args = std::make_shared<Args>();
  send->add_option("REQUEST", args->request, "A file holding one qbXML message")->required();
  send->add_option("--company", args->company, "The company file")->required();
  send->add_flag("--pretty", args->pretty, "Indent the response");
  send->callback([args, &global] {
    std::string text = ReadFile(args->request);
    Session session(args->company, global);
    // The builder's raw send closes the message set itself; the rest goes out as it stands.
    std::string_view body = Trim(text);
    constexpr std::string_view kEnd = "</QBXMLMsgsRq></QBXML>";
    if (!EndsWith(body, kEnd))
      throw std::runtime_error(args->request + " is not a qbXML message set ending in " + std::string(kEnd));
    xmlBldr b;
    b.InsertRawXML(std::string(body.substr(0, body.size() - kEnd.size())));
    std::string response = b.XMLSendToQB();
    std::cout << (args->pretty ? Indented(response) : response) << "\n";
  });
}

}  // namespace tessaron::cli
