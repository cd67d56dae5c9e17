// Builds response text: compact (no white space between elements), escaped values,
// attributes in the order they are written. One buffer, grown in place.
#pragma once

#include <string>
#include <string_view>

namespace tessaron::qbsim {

class XmlOut {
 public:
  void Reserve(size_t n) { text_.reserve(n); }
  void Open(std::string_view tag);
  // Opens a tag whose attributes follow; finish with EndAttributes.
  void OpenWithAttributes(std::string_view tag);
  void Attribute(std::string_view name, std::string_view value);
  void EndAttributes() { text_ += '>'; }
  void Close(std::string_view tag);
  void Element(std::string_view tag, std::string_view value);
  // Appends text that is already XML.
  void Raw(std::string_view xml) { text_ += xml; }
  void Text(std::string_view value) { AppendEscaped(value); }

  const std::string& Str() const { return text_; }
  std::string Take() { return std::move(text_); }
  size_t Size() const { return text_.size(); }
  void Truncate(size_t size) { text_.resize(size); }

 private:
  void AppendEscaped(std::string_view value);
  std::string text_;
};

}  // namespace tessaron::qbsim
