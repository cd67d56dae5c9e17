#include "tessaron/framework/collection_xml.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/qc_base.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/text.h"

namespace tessaron {

namespace {

constexpr std::string_view kRoot = "Tessaron";
constexpr std::string_view kMessages = "QBXMLMsgsRq";
constexpr std::string_view kResponseSuffix = "QueryRs";

// The offset of the first byte that does not belong to a well-formed UTF-8 sequence
// (overlong forms, surrogates and values above U+10FFFF included), or npos. The parser
// takes bytes as they come, and a record read from such a file would carry text that
// QuickBooks refuses later, far from its cause.
size_t FirstInvalidUtf8(std::string_view s) {
  size_t i = 0;
  while (i < s.size()) {
    const auto c = static_cast<unsigned char>(s[i]);
    if (c < 0x80) {
      ++i;
      continue;
    }
    size_t len = 0;
    unsigned char lo = 0x80, hi = 0xBF;  // the allowed range of the second byte
    if (c >= 0xC2 && c <= 0xDF) len = 2;
    else if (c == 0xE0) len = 3, lo = 0xA0;
    else if (c == 0xED) len = 3, hi = 0x9F;
    else if (c >= 0xE1 && c <= 0xEF) len = 3;
    else if (c == 0xF0) len = 4, lo = 0x90;
    else if (c >= 0xF1 && c <= 0xF3) len = 4;
    else if (c == 0xF4) len = 4, hi = 0x8F;
    else return i;
    if (i + len > s.size()) return i;
    for (size_t k = 1; k < len; ++k) {
      const auto b = static_cast<unsigned char>(s[i + k]);
      if (b < (k == 1 ? lo : 0x80) || b > (k == 1 ? hi : 0xBF)) return i;
    }
    i += len;
  }
  return std::string_view::npos;
}

XmlNode FirstElement(const XmlNode& node) {
  for (const XmlNode& child : node.childNodes())
    if (child.nodeType() == XmlNodeType::Element) return child;
  return XmlNode();
}

}  // namespace

int32_t CollectionXml::SaveToXml(const std::string& FilePath) {
  xmlBldr b;
  b.IOClear();
  const long count = SavedCount();
  const long last = mSaveEnd_ > 0 ? std::min<long>(mSaveEnd_, count) : count;
  for (long i = std::max<long>(mSaveStart_, 1); i <= last; ++i) b.InsertQueryRs(SavedAt(i), static_cast<int16_t>(i));
  return b.SaveToFile(FilePath);
}

std::shared_ptr<qcBase> CollectionXml::LoadFromXml(const std::string& FilePath) {
  XmlDocument doc;
  const std::vector<XmlNode> records = ReadSavedRecords(FilePath, doc);
  LoadSavedRecords(records, FilePath);
  return nullptr;
}

void CollectionXml::RaiseBadFile(const std::string& FilePath, const std::string& reason) const {
  throw Error(err::kNotASavedCollection, SavedSource(), FilePath + " cannot be loaded: " + reason + ".");
}

std::vector<XmlNode> CollectionXml::ReadSavedRecords(const std::string& FilePath, XmlDocument& doc) const {
  std::error_code ec;
  if (!std::filesystem::exists(FilePath, ec))
    throw Error(platform_error::kFileNotFound, SavedSource(), "File not found: " + FilePath);
  std::ifstream in(FilePath, std::ios::binary);
  if (!std::filesystem::is_regular_file(FilePath, ec) || !in)
    throw Error(platform_error::kPathFileAccess, SavedSource(), "Path/File access error: " + FilePath);
  const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (in.bad()) throw Error(platform_error::kPathFileAccess, SavedSource(), "Path/File access error: " + FilePath);

  if (size_t at = FirstInvalidUtf8(text); at != std::string::npos)
    RaiseBadFile(FilePath, "the text is not UTF-8 (byte " + std::to_string(at) + ")");
  doc = XmlDocument::Create();
  if (!doc.loadXML(text)) RaiseBadFile(FilePath, "the XML is not well-formed (" + doc.parseErrorReason() + ")");
  doc.SetAsync(false);

  const XmlNode root = doc.documentElement();
  if (!root.Is(kRoot)) RaiseBadFile(FilePath, "it is not a saved collection (no <Tessaron> element)");
  const XmlNode messages = FirstElement(root);
  if (!messages.Is(kMessages)) RaiseBadFile(FilePath, "it is not a saved collection (no <QBXMLMsgsRq> element)");

  std::vector<XmlNode> records;
  for (const XmlNode& response : messages.childNodes()) {
    if (response.nodeType() != XmlNodeType::Element) continue;
    if (!EndsWith(response.baseName(), kResponseSuffix)) {
      // Something a later version or a hand may have added: noted, and the records read.
      NoteUnknownElement(response.baseName(), kMessages);
      continue;
    }
    const XmlNode record = FirstElement(response);
    if (record.IsNull())
      RaiseBadFile(FilePath, "the response <" + std::string(response.baseName()) + "> holds no record");
    records.push_back(record);
  }
  return records;
}

void CollectionXml::CheckSavedKind(const XmlNode& record, const qcBase* obj, const std::string& FilePath) const {
  const std::string name = obj ? ObjectTypeName(obj->ObjectType()) : std::string();
  const XmlNode response = record.parentNode();
  if (obj && record.baseName() == name + "Ret" && response.baseName() == name + std::string(kResponseSuffix)) return;
  RaiseBadFile(FilePath, "it holds a <" + std::string(record.baseName()) + ">, which is no record of this collection");
}

}  // namespace tessaron
