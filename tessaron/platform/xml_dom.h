// The XML document object model the library walks, over pugixml.
//
// Behaviours the library relies on: the XML declaration is child 0 of a document (a
// document type, when present, is the next child); text that is only white space is
// not a node; an element's `text` joins the texts of its descendants with single blanks;
// `item` past the end gives a null node, and any use of a null node raises the
// platform's error 91 ("Object variable or With block variable not set"). Test with
// `IsNull()` first where a node may be missing. Handles are cheap to copy and keep
// their document alive.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace tessaron {

class XmlNodeList;
class XmlAttributes;

enum class XmlNodeType {
  Null = 0, Element = 1, Attribute = 2, Text = 3, CData = 4, ProcessingInstruction = 7,
  Comment = 8, Document = 9, DocumentType = 10
};

class XmlNode {
 public:
  XmlNode() = default;  // the null handle

  bool IsNull() const { return !node_ && !attr_; }
  explicit operator bool() const { return !IsNull(); }

  XmlNodeList childNodes() const;
  XmlAttributes attributes() const;
  // The local name, without a namespace prefix; empty for text nodes. No copy is made.
  std::string_view baseName() const;
  std::string_view nodeName() const;
  XmlNodeType nodeType() const;
  // Text content: for an element the trimmed texts of all descendants joined by one blank.
  std::string text() const;
  // The same text without a copy where it can be had so (an element holding one text, an
  // attribute); otherwise it is built in `scratch`. The view lives as long as the
  // document, or the scratch.
  std::string_view textView(std::string& scratch) const;
  // The node as XML text, without line breaks or indentation.
  std::string xml() const;

  bool hasChildNodes() const;
  XmlNode firstChild() const;
  XmlNode nextSibling() const;
  XmlNode parentNode() const;
  // The first child element with this name, or the null node; a convenience for callers
  // that look elements up by name rather than walk by position.
  XmlNode child(std::string_view name) const;
  // True when this is an element named `name` (exact comparison of the local name).
  bool Is(std::string_view name) const { return !IsNull() && baseName() == name; }

  const pugi::xml_node& Raw() const { return node_; }

 protected:
  friend class XmlNodeList;
  friend class XmlAttributes;
  friend class XmlDocument;
  XmlNode(std::shared_ptr<pugi::xml_document> doc, pugi::xml_node node)
      : doc_(std::move(doc)), node_(node) {}
  XmlNode(std::shared_ptr<pugi::xml_document> doc, pugi::xml_attribute attr)
      : doc_(std::move(doc)), attr_(attr) {}
  void Check() const;

  std::shared_ptr<pugi::xml_document> doc_;
  pugi::xml_node node_;
  pugi::xml_attribute attr_;
};

// Children of a node by position (0-based). Walking 0..length-1 in order costs O(1) a
// step, and so does a range-for, which visits the same nodes in the same order:
//   for (const XmlNode& child : node.childNodes()) ...
class XmlNodeList {
 public:
  XmlNodeList() = default;
  long length() const;
  XmlNode item(long index) const;

  class iterator {
   public:
    const XmlNode& operator*() const { return current_; }
    const XmlNode* operator->() const { return &current_; }
    iterator& operator++() {
      current_.node_ = current_.node_.next_sibling();
      return *this;
    }
    bool operator==(const iterator& o) const { return current_.node_ == o.current_.node_; }

   private:
    friend class XmlNodeList;
    explicit iterator(XmlNode n) : current_(std::move(n)) {}
    XmlNode current_;
  };
  iterator begin() const { return iterator(XmlNode(doc_, parent_.first_child())); }
  // The end compares by node only, so it holds no document.
  iterator end() const { return iterator(XmlNode(nullptr, pugi::xml_node())); }

 private:
  friend class XmlNode;
  XmlNodeList(std::shared_ptr<pugi::xml_document> doc, pugi::xml_node parent)
      : doc_(std::move(doc)), parent_(parent) {}
  std::shared_ptr<pugi::xml_document> doc_;
  pugi::xml_node parent_;
  mutable long length_ = -1;
  mutable long cursorIndex_ = -1;
  mutable pugi::xml_node cursor_;
};

// The attributes of an element by position; each item is an attribute node with
// `baseName` and `text`.
class XmlAttributes {
 public:
  XmlAttributes() = default;
  long length() const;
  XmlNode item(long index) const;
  XmlNode getNamedItem(std::string_view name) const;

 private:
  friend class XmlNode;
  XmlAttributes(std::shared_ptr<pugi::xml_document> doc, pugi::xml_node owner)
      : doc_(std::move(doc)), owner_(owner) {}
  std::shared_ptr<pugi::xml_document> doc_;
  pugi::xml_node owner_;
};

class XmlDocument : public XmlNode {
 public:
  // A null document handle; see Create for an empty document.
  XmlDocument() = default;
  static XmlDocument Create();

  // Parses the text, replacing what the document held. Answers false when the text is
  // not well-formed, and leaves the document empty.
  bool loadXML(std::string_view text);
  // As loadXML, for text the document may take over: it is parsed where it lies, without
  // a copy, and kept as long as the document (its nodes point into it).
  bool loadXMLInPlace(std::string&& text);
  void SetAsync(bool value) { async_ = value; }
  bool async() const { return async_; }
  // The root element, or the null node.
  XmlNode documentElement() const;
  // Why the last loadXML failed; empty after a success.
  const std::string& parseErrorReason() const { return parseError_; }

 private:
  bool Loaded(const pugi::xml_parse_result& r);

  bool async_ = true;
  std::string parseError_;
};

}  // namespace tessaron
