#include "tessaron/messaging/xml_bldr.h"

#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_extension_definitions.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/qc_base.h"
#include "tessaron/platform/error.h"

namespace tessaron {
namespace {

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" ?>";
constexpr std::string_view kDocTypeStart = "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD ";
constexpr std::string_view kDocTypeEnd = "//EN' >";

// The escaping table of the library, in its order. It is not a full table: a character
// that is not in it goes out as it is. Three rows are kept as they have always been:
// row 39 searches for the capital letter again (so small o-umlaut is never escaped),
// row 45 maps a-circumflex to entity 266, and rows 21 and 28 are the same row twice.
struct EscapeRow {
  std::string_view character;  // UTF-8
  std::string_view entity;
};
constexpr EscapeRow kEscapeTable[] = {
    {"&", "&amp;"},     {">", "&gt;"},      {"\"", "&quot;"},   {"'", "&apos;"},    {"<", "&lt;"},
    {"@", "&#64;"},     {"¡", "&#161;"},    {"¼", "&#188;"},    {"½", "&#189;"},    {"¾", "&#190;"},
    {"¿", "&#191;"},    {"Ä", "&#196;"},    {"Å", "&#197;"},    {"Æ", "&#198;"},    {"Ç", "&#199;"},
    {"É", "&#201;"},    {"Ñ", "&#209;"},    {"Ö", "&#214;"},    {"Ø", "&#216;"},    {"Ü", "&#220;"},
    {"é", "&#233;"},    {"ß", "&#223;"},    {"à", "&#224;"},    {"á", "&#225;"},    {"ä", "&#228;"},
    {"ç", "&#231;"},    {"è", "&#232;"},    {"é", "&#233;"},    {"ê", "&#234;"},    {"ë", "&#235;"},
    {"ì", "&#236;"},    {"í", "&#237;"},    {"î", "&#238;"},    {"ï", "&#239;"},    {"ñ", "&#241;"},
    {"ò", "&#242;"},    {"ó", "&#243;"},    {"ô", "&#244;"},    {"Ö", "&#246;"},    {"ù", "&#249;"},
    {"ú", "&#250;"},    {"û", "&#251;"},    {"ü", "&#252;"},    {"ÿ", "&#255;"},    {"â", "&#266;"},
};

// The table as a lookup by code point (all its characters lie below 256). The rows run in
// order and a row whose character an earlier row already replaced has no effect, exactly
// as the replacements one after the other behave: the ampersand goes first, and no
// entity holds a character that a later row searches for.
struct EscapeLookup {
  std::array<std::string_view, 256> entity{};
  // Bytes that may start an escaped character: the ASCII rows and the lead bytes of the
  // two-byte UTF-8 forms of U+0080..U+00FF.
  std::array<bool, 256> mayStart{};
  constexpr EscapeLookup() {
    for (const EscapeRow& row : kEscapeTable) {
      unsigned lead = static_cast<unsigned char>(row.character[0]);
      unsigned cp = lead;
      if (row.character.size() == 2)
        cp = ((lead & 0x1Fu) << 6) | (static_cast<unsigned char>(row.character[1]) & 0x3Fu);
      if (entity[cp].empty()) entity[cp] = row.entity;
      mayStart[lead] = true;
    }
  }
};
constexpr EscapeLookup kEscapes;

// Appends the escaped value; runs without anything to escape are copied whole.
void EscapeInto(std::string& out, std::string_view value) {
  const char* p = value.data();
  const char* const end = p + value.size();
  const char* run = p;
  while (p != end) {
    const unsigned char c = static_cast<unsigned char>(*p);
    if (!kEscapes.mayStart[c]) {
      ++p;
      continue;
    }
    std::string_view entity;
    size_t width = 1;
    if (c < 0x80) {
      entity = kEscapes.entity[c];
    } else if (p + 1 != end && (static_cast<unsigned char>(p[1]) & 0xC0u) == 0x80u) {
      entity = kEscapes.entity[((c & 0x1Fu) << 6) | (static_cast<unsigned char>(p[1]) & 0x3Fu)];
      width = 2;
    }
    if (entity.empty()) {
      p += width;
      continue;
    }
    out.append(run, static_cast<size_t>(p - run));
    out.append(entity);
    p += width;
    run = p;
  }
  out.append(run, static_cast<size_t>(end - run));
}

bool BelowVersion(Currency minVersion) { return State().QBXMLVersionNumber < minVersion; }

std::string Decimal(int64_t value) {
  char buf[24];
  auto [end, ec] = std::to_chars(buf, buf + sizeof buf, value);
  return std::string(buf, end);
}

// The name that objects of a type carry in requests: the key of the type's row in the
// "ObjectType" table ("Item Service" gives "ItemService").
// A code without a row raises as ItemByCode does (0x800403EB).
const std::string& KeyOfCode(qoEnumerationType table, int32_t code) {
  const QCEnum* rows = QBEnumerations().Find(table);
  const qcEnumValue* row = rows ? rows->FindByCode(code) : nullptr;
  if (!row) return QBEnumerations().Item(table)->ItemByCode(static_cast<int16_t>(code))->CollectionKey();
  return row->CollectionKey();
}

}  // namespace

std::string ObjectTypeName(qoEnumListObjectType type) { return KeyOfCode(qoeObjectType, type); }

std::string EscapeValue(std::string_view value) {
  std::string out;
  if (value.empty()) return out;
  out.reserve(value.size() + 8);
  EscapeInto(out, value);
  return out;
}

bool ObjectTypeHasAppFields(qoEnumListObjectType objectType) {
  const std::shared_ptr<Company>& company = State().CurrentCompany;
  if (!company) return false;
  for (const auto& definition : company->ApplicationFields()->NewEnum()) {
    for (int32_t assigned : definition->AssignedTos().Types()) {
      // The entity list holds the four kinds of names.
      if (objectType == qoObjectTypeEntity
              ? (assigned == qoObjectTypeVendor || assigned == qoObjectTypeOtherName ||
                 assigned == qoObjectTypeEmployee || assigned == qoObjectTypeCustomer)
              : assigned == objectType)
        return true;
    }
  }
  return false;
}

xmlBldr::xmlBldr() = default;

// ---- pieces ---------------------------------------------------------------------------

void xmlBldr::AppendPiece(std::string_view text) {
  pieces_.append(text);
  ClosePiece();
}

void xmlBldr::AssemblePieces() { buffer_.assign(pieces_); }

void xmlBldr::AppendEscaped(std::string_view value) { EscapeInto(pieces_, value); }

void xmlBldr::AppendElement(std::string_view tag, std::string_view value) {
  pieces_ += '<';
  pieces_ += tag;
  pieces_ += '>';
  EscapeInto(pieces_, value);
  pieces_ += "</";
  pieces_ += tag;
  pieces_ += '>';
  ClosePiece();
}

std::string xmlBldr::InsertRawXML(const std::string& XMLString) {
  AppendPiece(XMLString);
  return std::string();
}

int32_t xmlBldr::ErrNumber() const {
  // The numeric value of the kept text, as the platform's Val reads it: a leading number,
  // anything else 0.
  int64_t value = 0;
  std::string_view t = errNumberText_;
  while (!t.empty() && t.front() == ' ') t.remove_prefix(1);
  std::from_chars(t.data(), t.data() + t.size(), value);
  return static_cast<int32_t>(value);
}

Variant xmlBldr::GetXML() {
  AssemblePieces();
  return Variant(buffer_);
}

void xmlBldr::Clear() {
  pieces_.clear();
  pieceEnds_.clear();
}

// ---- envelope and elements --------------------------------------------------------------

void xmlBldr::CreateRptTop() { AppendPiece(kDeclaration); }

void xmlBldr::CreateTop() {
  Clear();
  const std::string& version = State().QBXMLVersionText;
  pieces_ += kDeclaration;
  pieces_ += kDocTypeStart;
  // A country prefix ("CA2.0") goes into the public identifier as it stands.
  pieces_ += version.empty() ? std::string_view("1.0") : std::string_view(version);
  pieces_ += kDocTypeEnd;
  ClosePiece();
}

void xmlBldr::CreateElement2(std::string_view TagName, std::string_view Value, bool ForceNull, Currency MinVersion) {
  if (BelowVersion(MinVersion)) return;
  if (!Value.empty() || ForceNull) AppendElement(TagName, Value);
}

void xmlBldr::CreateElement(std::string_view TagName, std::string_view Value, Currency MinVersion) {
  if (BelowVersion(MinVersion)) return;
  AppendElement(TagName, Value);
}

void xmlBldr::CreateDateElement(std::string_view Tag, Date d, Currency MinVersion) {
  if (d == 0) return;
  CreateElement2(Tag, DateToText(d), true, MinVersion);
}

void xmlBldr::CreateBlankTag(std::string_view TagName) {
  pieces_ += '<';
  pieces_ += TagName;
  pieces_ += "/>";
  ClosePiece();
}

void xmlBldr::OpenAggregate(std::string_view TagName, std::string_view Attrib, std::string_view Value) {
  lastTag_ = TagName;
  pieces_ += '<';
  pieces_ += TagName;
  pieces_ += ' ';
  pieces_ += Attrib;
  pieces_ += " = \"";
  EscapeInto(pieces_, Value);
  pieces_ += "\">";
  ClosePiece();
}

void xmlBldr::OpenAggregateOnly(std::string_view TagName) {
  lastTag_ = TagName;
  pieces_ += '<';
  pieces_ += TagName;
  pieces_ += '>';
  ClosePiece();
}

void xmlBldr::EndAggregate(std::string& TagName) {
  if (TagName.empty()) TagName = lastTag_;
  pieces_ += "</";
  pieces_ += TagName;
  pieces_ += '>';
  ClosePiece();
}

void xmlBldr::EndAggregate(std::string_view TagName) {
  pieces_ += "</";
  pieces_ += TagName.empty() ? std::string_view(lastTag_) : TagName;
  pieces_ += '>';
  ClosePiece();
}

void xmlBldr::EnterValueOnly(std::string_view TagName) {
  EscapeInto(pieces_, TagName);
  ClosePiece();
}

// ---- message sets -------------------------------------------------------------------------

void xmlBldr::OpenMessageSet() {
  OpenAggregateOnly("QBXML");
  // QuickBooks always goes on after a failed request of a batch.
  OpenAggregate("QBXMLMsgsRq", "onError", "continueOnError");
}

void xmlBldr::NewClear() {
  Clear();
  CreateTop();
  OpenMessageSet();
}

void xmlBldr::NewClearSubscriptions() {
  Clear();
  CreateTop();
  OpenAggregateOnly("QBXML");
  OpenAggregateOnly("QBXMLSubscriptionMsgsRq");
}

XmlDocument xmlBldr::NewSendRequest() {
  EndAggregate("QBXMLMsgsRq");
  EndAggregate("QBXML");
  return SendToQB();
}

XmlDocument xmlBldr::NewSendSubscriptionRequest() {
  EndAggregate("QBXMLSubscriptionMsgsRq");
  EndAggregate("QBXML");
  return SendToQB();
}

void xmlBldr::IOClear() {
  Clear();
  OpenAggregateOnly("Tessaron");
  OpenAggregate("QBXMLMsgsRq", "onError", "continueOnError");
}

int32_t xmlBldr::SaveToFile(const std::string& Path) {
  EndAggregate("QBXMLMsgsRq");
  EndAggregate("Tessaron");
  AssemblePieces();
  std::ofstream out(Path, std::ios::binary | std::ios::trunc);
  if (!out) {
    std::error_code ec;
    bool folderExists = std::filesystem::is_directory(std::filesystem::path(Path).parent_path(), ec) ||
                        std::filesystem::path(Path).parent_path().empty();
    RaisePlatform(folderExists ? platform_error::kPathFileAccess : platform_error::kPathNotFound, "xmlBldr");
  }
  out << buffer_ << '\n';
  out.close();
  if (!out) RaisePlatform(platform_error::kPathFileAccess, "xmlBldr");
  return 0;
}

XmlDocument xmlBldr::ReadXml(const std::string& sFile) {
  XmlDocument doc = XmlDocument::Create();
  std::error_code ec;
  if (std::filesystem::is_regular_file(sFile, ec)) {
    std::ifstream in(sFile, std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    doc.loadXML(text);
    doc.SetAsync(false);
  }
  return doc;
}

// ---- queries ------------------------------------------------------------------------------

XmlDocument xmlBldr::QueryFullTableExecute(const std::string& QueryName, int32_t MaxRows) {
  CreateTop();
  OpenMessageSet();
  OpenAggregate(QueryName, "requestID", "1");
  EndAggregate(QueryName);
  EndAggregate("QBXMLMsgsRq");
  EndAggregate("QBXML");
  return SendToQB();
}

void xmlBldr::WriteSingleQuery(const std::string& QueryType, const std::string& sValue, const std::string& sIdentifier,
                               int32_t MaxReturned, qoEnumListObjectType ObjType, const std::string& sFilterType,
                               bool IncludeDataExtensions) {
  CreateTop();
  OpenMessageSet();
  OpenAggregate(QueryType, "requestID", "1");
  if (MaxReturned != 0) CreateElement("MaxReturned", Decimal(MaxReturned));
  if (!sFilterType.empty()) {
    OpenAggregateOnly(sFilterType);
    CreateElement(sIdentifier, sValue);
    EndAggregate(sFilterType);
  } else {
    CreateElement(sIdentifier, sValue);
  }
  AddDataExtTag(IncludeDataExtensions, ObjType);
  EndAggregate(QueryType);
}

XmlDocument xmlBldr::QuerySingleExecute(const std::string& QueryType, const std::string& sValue,
                                        const std::string& sIdentifier, int32_t MaxRows, qoEnumListObjectType ObjType,
                                        const std::string& sFilterType, bool IncludeDataExtensions) {
  WriteSingleQuery(QueryType, sValue, sIdentifier, 0, ObjType, sFilterType, IncludeDataExtensions);
  EndAggregate("QBXMLMsgsRq");
  EndAggregate("QBXML");
  return SendToQB();
}

std::string xmlBldr::XMLQuerySingleExecute(const std::string& QueryType, const std::string& sValue,
                                           const std::string& sIdentifier, int32_t MaxRows,
                                           qoEnumListObjectType ObjType, const std::string& sFilterType,
                                           bool IncludeDataExtensions) {
  WriteSingleQuery(QueryType, sValue, sIdentifier, MaxRows, ObjType, sFilterType, IncludeDataExtensions);
  return XMLSendToQB();
}

void xmlBldr::AddDataExtTag(bool bAdd, qoEnumListObjectType mObjectType) {
  if (!bAdd || BelowVersion(2)) return;
  CreateElement("OwnerID", "0");  // the public custom fields
  const std::string& guid = State().DataExtensionsGUID;
  if (!guid.empty() && ObjectTypeHasAppFields(mObjectType)) CreateElement("OwnerID", guid);
}

// ---- objects ------------------------------------------------------------------------------

void xmlBldr::InsertObject(qcBase& o, int16_t iRequestId, const char* outerSuffix, const char* innerSuffix,
                           int which) {
  const std::string name = ObjectTypeName(o.ObjectType());
  const std::string outer = name + outerSuffix;
  const std::string inner = name + innerSuffix;
  OpenAggregate(outer, "requestID", Decimal(iRequestId));
  OpenAggregateOnly(inner);
  switch (which) {
    case 0: o.XMLInsert(*this); break;
    case 1: o.XMLModify(*this); break;
    default: o.XMLQueryRs(*this); break;
  }
  EndAggregate(inner);
  EndAggregate(outer);
}

void xmlBldr::InsertAddRq(qcBase& o, int16_t iRequestId) { InsertObject(o, iRequestId, "AddRq", "Add", 0); }
void xmlBldr::InsertModRq(qcBase& o, int16_t iRequestId) { InsertObject(o, iRequestId, "ModRq", "Mod", 1); }
void xmlBldr::InsertQueryRs(qcBase& o, int16_t iRequestId) { InsertObject(o, iRequestId, "QueryRs", "Ret", 2); }

std::string xmlBldr::XMLInsertBegin(const std::string& QueryType, const std::string& InsertCmd) {
  try {
    CreateTop();
    OpenMessageSet();
    OpenAggregate(QueryType, "requestID", "2");
    OpenAggregateOnly(InsertCmd);
  } catch (const Error& e) {
    errNumberText_ = Decimal(e.Number());
    errMsg_ = e.Description();
  }
  return std::string();
}

XmlDocument xmlBldr::XMLInsertFinish(const std::string& QueryType, const std::string& InsertCmd) {
  try {
    EndAggregate(InsertCmd);
    EndAggregate(QueryType);
    EndAggregate("QBXMLMsgsRq");
    EndAggregate("QBXML");
    return SendToQB();
  } catch (const Error& e) {
    errNumberText_ = Decimal(e.Number());
    errMsg_ = e.Description();
  }
  return XmlDocument();
}

// ---- filters ------------------------------------------------------------------------------

void xmlBldr::WriteNameFilter(const char* tag, const std::vector<std::string>& names, bool withChildren) {
  if (names.empty()) RaisePlatform(platform_error::kSubscriptOutOfRange, "xmlBldr");
  OpenAggregateOnly(tag);
  if (withChildren) {
    // The collections refuse more than one name first; the others are ignored here.
    CreateElement("FullNameWithChildren", names.front());
  } else {
    for (const std::string& name : names) CreateElement("FullName", name);
  }
  EndAggregate(tag);
}

Variant xmlBldr::InsertAccountFilter(const std::vector<std::string>& Accounts, bool WithChildren) {
  WriteNameFilter("AccountFilter", Accounts, WithChildren);
  return Variant();
}

Variant xmlBldr::InsertEntityFilter(const std::vector<std::string>& Entities, bool WithChildren) {
  WriteNameFilter("EntityFilter", Entities, WithChildren);
  return Variant();
}

Variant xmlBldr::InsertDateFilter(const std::string& FilterType, Date FromDate, Date ToDate,
                                  qbEnumDateMacro DateMacro) {
  const std::string tag = FilterType + "DateRangeFilter";
  // Only the modification dates carry a time (from qbXML 2.0 on); transaction dates never do.
  const bool withTime = FilterType == "Modified";
  OpenAggregateOnly(tag);
  if (FromDate != 0)
    CreateElement("From" + FilterType + "Date", withTime ? DateTimeToText(FromDate) : DateToText(FromDate));
  if (ToDate != 0) CreateElement("To" + FilterType + "Date", withTime ? DateTimeToText(ToDate) : DateToText(ToDate));
  if (DateMacro != 0) CreateElement("DateMacro", KeyOfCode(qoeDateMacro, DateMacro));
  EndAggregate(tag);
  return Variant();
}

}  // namespace tessaron
