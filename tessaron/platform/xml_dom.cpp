#include "tessaron/platform/xml_dom.h"

#include <sstream>

#include "tessaron/platform/error.h"

namespace tessaron {
namespace {

std::string_view LocalName(const char* name) {
  std::string_view n(name);
  size_t colon = n.find(':');
  return colon == std::string_view::npos ? n : n.substr(colon + 1);
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string_view Trimmed(std::string_view v) {
  while (!v.empty() && IsBlank(v.front())) v.remove_prefix(1);
  while (!v.empty() && IsBlank(v.back())) v.remove_suffix(1);
  return v;
}

void AppendTrimmed(std::string& out, const char* value) {
  std::string_view v = Trimmed(value);
  if (v.empty()) return;
  if (!out.empty()) out.push_back(' ');
  out.append(v);
}

// The texts below `root` in document order. A loop, not a recursion: a response can be
// nested deeper than the stack is high.
void CollectText(pugi::xml_node root, std::string& out) {
  pugi::xml_node n = root.first_child();
  while (n) {
    switch (n.type()) {
      case pugi::node_pcdata:
      case pugi::node_cdata: AppendTrimmed(out, n.value()); break;
      case pugi::node_element:
        if (pugi::xml_node child = n.first_child()) {
          n = child;
          continue;
        }
        break;
      default: break;
    }
    while (n != root && !n.next_sibling()) n = n.parent();
    if (n == root) return;
    n = n.next_sibling();
  }
}

// A document with the text it was parsed from in place.
struct OwnedDocument : pugi::xml_document {
  std::string text;
};

constexpr unsigned kParseOptions = pugi::parse_default | pugi::parse_declaration | pugi::parse_doctype |
                                   pugi::parse_pi | pugi::parse_comments;

}  // namespace

void XmlNode::Check() const {
  if (IsNull()) RaisePlatform(platform_error::kObjectNotSet);
}

XmlNodeList XmlNode::childNodes() const {
  Check();
  return XmlNodeList(doc_, node_);  // an attribute has no children: the list is empty
}

XmlAttributes XmlNode::attributes() const {
  Check();
  return XmlAttributes(doc_, node_.type() == pugi::node_element ? node_ : pugi::xml_node());
}

std::string_view XmlNode::baseName() const {
  Check();
  if (attr_) return LocalName(attr_.name());
  switch (node_.type()) {
    case pugi::node_element:
    case pugi::node_pi:
    case pugi::node_declaration:
    case pugi::node_doctype: return LocalName(node_.name());
    default: return {};
  }
}

std::string_view XmlNode::nodeName() const {
  Check();
  if (attr_) return attr_.name();
  switch (node_.type()) {
    case pugi::node_pcdata: return "#text";
    case pugi::node_cdata: return "#cdata-section";
    case pugi::node_comment: return "#comment";
    case pugi::node_document: return "#document";
    case pugi::node_doctype: {
      std::string_view v(node_.value());
      size_t end = v.find_first_of(" \t\r\n");
      return v.substr(0, end);
    }
    default: return node_.name();
  }
}

XmlNodeType XmlNode::nodeType() const {
  if (attr_) return XmlNodeType::Attribute;
  switch (node_.type()) {
    case pugi::node_element: return XmlNodeType::Element;
    case pugi::node_pcdata: return XmlNodeType::Text;
    case pugi::node_cdata: return XmlNodeType::CData;
    case pugi::node_pi:
    case pugi::node_declaration: return XmlNodeType::ProcessingInstruction;
    case pugi::node_comment: return XmlNodeType::Comment;
    case pugi::node_document: return XmlNodeType::Document;
    case pugi::node_doctype: return XmlNodeType::DocumentType;
    default: return XmlNodeType::Null;
  }
}

std::string XmlNode::text() const {
  Check();
  if (attr_) return attr_.value();
  switch (node_.type()) {
    case pugi::node_pcdata:
    case pugi::node_cdata:
    case pugi::node_comment:
    case pugi::node_pi:
    case pugi::node_doctype: return node_.value();
    case pugi::node_declaration: {
      std::string out;
      for (pugi::xml_attribute a = node_.first_attribute(); a; a = a.next_attribute()) {
        if (!out.empty()) out.push_back(' ');
        out.append(a.name()).append("=\"").append(a.value()).append("\"");
      }
      return out;
    }
    default: break;
  }
  // Fast path: an element whose only child is its text.
  pugi::xml_node first = node_.first_child();
  if (first && !first.next_sibling() && first.type() == pugi::node_pcdata) {
    std::string out;
    AppendTrimmed(out, first.value());
    return out;
  }
  std::string out;
  CollectText(node_, out);
  return out;
}

std::string_view XmlNode::textView(std::string& scratch) const {
  if (attr_) return attr_.value();
  // Only elements have element or text children, so the child alone decides the common case.
  if (pugi::xml_node first = node_.first_child()) {
    if (!first.next_sibling() && first.type() == pugi::node_pcdata) return Trimmed(first.value());
  } else if (node_.type() == pugi::node_element) {
    return {};
  }
  scratch = text();
  return scratch;
}

std::string XmlNode::xml() const {
  Check();
  if (attr_) return std::string(attr_.name()) + "=\"" + attr_.value() + "\"";
  std::ostringstream os;
  if (node_.type() == pugi::node_document) {
    for (pugi::xml_node c = node_.first_child(); c; c = c.next_sibling()) {
      c.print(os, "", pugi::format_raw | pugi::format_no_declaration);
      os << "\r\n";
    }
  } else {
    node_.print(os, "", pugi::format_raw | pugi::format_no_declaration);
  }
  return os.str();
}

bool XmlNode::hasChildNodes() const {
  Check();
  return node_ && node_.first_child();
}

XmlNode XmlNode::firstChild() const {
  Check();
  pugi::xml_node c = node_.first_child();
  return c ? XmlNode(doc_, c) : XmlNode();
}

XmlNode XmlNode::nextSibling() const {
  Check();
  pugi::xml_node c = node_.next_sibling();
  return c ? XmlNode(doc_, c) : XmlNode();
}

XmlNode XmlNode::parentNode() const {
  Check();
  pugi::xml_node c = node_.parent();
  return c ? XmlNode(doc_, c) : XmlNode();
}

XmlNode XmlNode::child(std::string_view name) const {
  Check();
  for (pugi::xml_node c = node_.first_child(); c; c = c.next_sibling())
    if (c.type() == pugi::node_element && LocalName(c.name()) == name) return XmlNode(doc_, c);
  return XmlNode();
}

long XmlNodeList::length() const {
  if (length_ < 0) {
    long n = 0;
    for (pugi::xml_node c = parent_.first_child(); c; c = c.next_sibling()) ++n;
    length_ = n;
  }
  return length_;
}

XmlNode XmlNodeList::item(long index) const {
  if (index < 0 || !parent_) return XmlNode();
  pugi::xml_node c;
  long i;
  if (cursor_ && cursorIndex_ <= index) {
    c = cursor_;
    i = cursorIndex_;
  } else {
    c = parent_.first_child();
    i = 0;
  }
  for (; c && i < index; ++i) c = c.next_sibling();
  if (!c) return XmlNode();
  cursor_ = c;
  cursorIndex_ = index;
  return XmlNode(doc_, c);
}

long XmlAttributes::length() const {
  long n = 0;
  for (pugi::xml_attribute a = owner_.first_attribute(); a; a = a.next_attribute()) ++n;
  return n;
}

XmlNode XmlAttributes::item(long index) const {
  if (index < 0) return XmlNode();
  pugi::xml_attribute a = owner_.first_attribute();
  for (long i = 0; a && i < index; ++i) a = a.next_attribute();
  return a ? XmlNode(doc_, a) : XmlNode();
}

XmlNode XmlAttributes::getNamedItem(std::string_view name) const {
  for (pugi::xml_attribute a = owner_.first_attribute(); a; a = a.next_attribute())
    if (name == a.name()) return XmlNode(doc_, a);
  return XmlNode();
}

XmlDocument XmlDocument::Create() {
  XmlDocument d;
  d.doc_ = std::make_shared<OwnedDocument>();
  d.node_ = *d.doc_;
  return d;
}

bool XmlDocument::loadXML(std::string_view text) {
  Check();
  doc_->reset();
  static_cast<OwnedDocument&>(*doc_).text = std::string();  // text an earlier in-place load left
  return Loaded(doc_->load_buffer(text.data(), text.size(), kParseOptions, pugi::encoding_utf8));
}

bool XmlDocument::loadXMLInPlace(std::string&& text) {
  Check();
  doc_->reset();
  // Every document comes from Create, so it has room for its text.
  auto& owned = static_cast<OwnedDocument&>(*doc_);
  owned.text = std::move(text);
  return Loaded(doc_->load_buffer_inplace(owned.text.data(), owned.text.size(), kParseOptions, pugi::encoding_utf8));
}

bool XmlDocument::Loaded(const pugi::xml_parse_result& r) {
  if (!r || !doc_->document_element()) {
    parseError_ = r ? "no document element" : r.description();
    doc_->reset();
    static_cast<OwnedDocument&>(*doc_).text = std::string();
    return false;
  }
  parseError_.clear();
  return true;
}

XmlNode XmlDocument::documentElement() const {
  Check();
  pugi::xml_node e = doc_->document_element();
  return e ? XmlNode(doc_, e) : XmlNode();
}

}  // namespace tessaron
