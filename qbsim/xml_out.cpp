#include "qbsim/xml_out.h"

namespace tessaron::qbsim {

void XmlOut::Open(std::string_view tag) {
  text_ += '<';
  text_ += tag;
  text_ += '>';
}

void XmlOut::OpenWithAttributes(std::string_view tag) {
  text_ += '<';
  text_ += tag;
}

void XmlOut::Attribute(std::string_view name, std::string_view value) {
  text_ += ' ';
  text_ += name;
  text_ += "=\"";
  AppendEscaped(value);
  text_ += '"';
}

void XmlOut::Close(std::string_view tag) {
  text_ += "</";
  text_ += tag;
  text_ += '>';
}

void XmlOut::Element(std::string_view tag, std::string_view value) {
  Open(tag);
  AppendEscaped(value);
  Close(tag);
}

void XmlOut::AppendEscaped(std::string_view value) {
  size_t start = 0;
  for (size_t i = 0; i < value.size(); ++i) {
    const char* entity = nullptr;
    switch (value[i]) {
      case '&': entity = "&amp;"; break;
      case '<': entity = "&lt;"; break;
      case '>': entity = "&gt;"; break;
      case '"': entity = "&quot;"; break;
      case '\'': entity = "&apos;"; break;
      default: continue;
    }
    text_.append(value.substr(start, i - start));
    text_ += entity;
    start = i + 1;
  }
  text_.append(value.substr(start));
}

}  // namespace tessaron::qbsim
