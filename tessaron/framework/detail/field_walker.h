// The walking of a field table, once for every family of objects that is made of one:
// reading a response element's child into its row, writing the rows of an add, a modify
// or a query-response form, and the display texts of a listing. ListObject and the
// transaction base both drive their tables through these templates.
#pragma once

#include <charconv>
#include <climits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/framework/field_table.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/text.h"

namespace tessaron::detail {

inline int16_t Int16FromText(std::string_view text) {
  text = Trim(text);
  int value = 0;
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (ec != std::errc() || end != text.data() + text.size() || value < INT16_MIN || value > INT16_MAX) {
    RaisePlatform(ec == std::errc::result_out_of_range || (ec == std::errc() && end == text.data() + text.size())
                      ? platform_error::kOverflow
                      : platform_error::kTypeMismatch);
  }
  return static_cast<int16_t>(value);
}

template <class T, class Owner>
T& At(Owner& obj, const BasicFieldMember<Owner>& member) {
  return obj.*std::get<T Owner::*>(member);
}

// The row of a child of the element being walked. The children arrive in the order of the
// rows, so the search starts at `next` (behind the last match, 0 for the first child) and
// goes round once: a record costs one comparison per child, not one per row.
template <class Owner>
const BasicFieldDef<Owner>* FindRow(const std::vector<BasicFieldDef<Owner>>& rows, std::string_view tag,
                                    size_t& next) {
  for (size_t k = 0, n = rows.size(); k < n; ++k) {
    const size_t at = next + k < n ? next + k : next + k - n;
    if (rows[at].tag == tag) {
      next = at + 1;
      return &rows[at];
    }
  }
  return nullptr;
}

template <class Owner>
bool IsSet(const BasicFieldDef<Owner>& row, Owner& obj) {
  switch (row.kind) {
    case FieldKind::Text: return !At<std::string>(obj, row.member).empty();
    case FieldKind::Int16: return At<int16_t>(obj, row.member) != 0;
    case FieldKind::Int32: return At<int32_t>(obj, row.member) != 0;
    case FieldKind::DateTime:
    case FieldKind::Date: return At<Date>(obj, row.member) != 0;
    case FieldKind::Amount:
    case FieldKind::Quantity:
    case FieldKind::Percent: return At<Currency>(obj, row.member) != Currency();
    case FieldKind::Enum: return At<int32_t>(obj, row.member) != 0;
    default: return true;
  }
}

template <class Owner>
bool IsPositive(const BasicFieldDef<Owner>& row, Owner& obj) {
  switch (row.kind) {
    case FieldKind::Int16: return At<int16_t>(obj, row.member) > 0;
    case FieldKind::Int32: return At<int32_t>(obj, row.member) > 0;
    case FieldKind::Amount:
    case FieldKind::Quantity:
    case FieldKind::Percent: return At<Currency>(obj, row.member) > Currency();
    case FieldKind::Enum: return At<int32_t>(obj, row.member) > 0;
    default: return IsSet(row, obj);
  }
}

template <class Owner>
std::string ValueText(const BasicFieldDef<Owner>& row, Owner& obj, WriteMode mode, QueryBooleans booleans) {
  switch (row.kind) {
    case FieldKind::Text: return At<std::string>(obj, row.member);
    case FieldKind::Boolean: {
      bool b = At<bool>(obj, row.member);
      if (mode == WriteMode::QueryRs && booleans == QueryBooleans::Words) return b ? "true" : "false";
      return BooleanToText(b);
    }
    case FieldKind::Int16: return std::to_string(At<int16_t>(obj, row.member));
    case FieldKind::Int32: return std::to_string(At<int32_t>(obj, row.member));
    case FieldKind::DateTime: return DateTimeToText(At<Date>(obj, row.member));
    case FieldKind::Date: return DateToText(At<Date>(obj, row.member));
    case FieldKind::Amount: return AmountToText(At<Currency>(obj, row.member));
    case FieldKind::Quantity: return QuantityToText(At<Currency>(obj, row.member));
    case FieldKind::Percent: return PercentRateToText(At<Currency>(obj, row.member));
    case FieldKind::Enum:
      return EnumCodeToXML(At<int32_t>(obj, row.member), static_cast<qoEnumerationType>(row.aux));
    default: return {};
  }
}

template <class Owner>
void ReadRow(const BasicFieldDef<Owner>& row, Owner& obj, const XmlNode& node) {
  std::string scratch;
  switch (row.kind) {
    case FieldKind::Text: At<std::string>(obj, row.member).assign(node.textView(scratch)); break;
    case FieldKind::Boolean: At<bool>(obj, row.member) = BooleanFromText(node.textView(scratch)); break;
    case FieldKind::Int16: At<int16_t>(obj, row.member) = Int16FromText(node.textView(scratch)); break;
    case FieldKind::Int32:
      At<int32_t>(obj, row.member) =
          static_cast<int32_t>(Variant(std::string(Trim(node.textView(scratch)))).ToInteger());
      break;
    case FieldKind::DateTime:
    case FieldKind::Date: At<Date>(obj, row.member) = DateFromText(node.textView(scratch)); break;
    case FieldKind::Amount:
    case FieldKind::Quantity:
    case FieldKind::Percent: At<Currency>(obj, row.member) = CurrencyFromText(node.textView(scratch)); break;
    case FieldKind::Ref: {
      auto& ref = At<std::shared_ptr<qcListObjectRef>>(obj, row.member);
      if (!ref) ref = std::make_shared<qcListObjectRef>(static_cast<qoEnumListType>(row.aux));
      ListObjectAccess::ReadFromNode(*ref, node);
      break;
    }
    case FieldKind::Enum:
      At<int32_t>(obj, row.member) = EnumXMLToCode(node.textView(scratch), static_cast<qoEnumerationType>(row.aux));
      break;
    case FieldKind::Dropped: break;
    case FieldKind::Custom:
      if (row.read) row.read(obj, node);
      break;
  }
}

// Writes the rows in table order as the mode's column says; elements above the session's
// qbXML version are dropped by the builder.
template <class Owner>
void WriteRows(const std::vector<BasicFieldDef<Owner>>& rows, Owner& obj, xmlBldr& b, WriteMode mode,
               QueryBooleans booleans) {
  for (const auto& row : rows) {
    Send how = Send::Always;
    Currency minVersion;
    if (mode == WriteMode::Add) {
      how = row.add;
      minVersion = row.addMinVersion;
    } else if (mode == WriteMode::Modify) {
      how = row.mod;
      minVersion = row.modMinVersion;
    } else if (!row.inQuery) {
      how = Send::Never;
    }
    if (how == Send::Never) continue;
    if (mode != WriteMode::QueryRs && row.when && !row.when(obj)) continue;

    const std::string tag(row.tag);
    if (row.kind == FieldKind::Custom) {
      if (row.write && State().QBXMLVersionNumber >= minVersion) row.write(obj, b, mode);
      continue;
    }
    if (row.kind == FieldKind::Ref) {
      auto& ref = At<std::shared_ptr<qcListObjectRef>>(obj, row.member);
      if (!ref) continue;
      if (mode == WriteMode::QueryRs) ListObjectAccess::WriteQueryRs(*ref, b, ref->IsParent() ? std::string() : tag);
      else WriteListRef(*ref, b, tag, how == Send::Forced, minVersion);
      continue;
    }
    if (row.kind == FieldKind::Dropped) continue;
    if (how == Send::IfSet && !IsSet(row, obj)) continue;
    if (how == Send::IfPositive && !IsPositive(row, obj)) continue;
    b.CreateElement(tag, ValueText(row, obj, mode, booleans), minVersion);
  }
}

// The record as property name and display text, in table order. References give the
// target's full name; `fullName`, when given, stands for the FullName row.
template <class Owner>
std::vector<FieldText> Properties(const std::vector<BasicFieldDef<Owner>>& rows, Owner& obj,
                                  const std::string* fullName = nullptr) {
  std::vector<FieldText> out;
  out.reserve(rows.size());
  for (const auto& row : rows) {
    if (!row.inQuery) continue;
    std::string_view name = row.property.empty() ? row.tag : row.property;
    if (row.kind == FieldKind::Custom) {
      out.push_back({name, row.text ? row.text(obj) : std::string(), row.kind});
    } else if (row.kind == FieldKind::Ref) {
      const auto& ref = At<std::shared_ptr<qcListObjectRef>>(obj, row.member);
      out.push_back({name, ref ? ref->FullName() : std::string(), row.kind});
    } else if (fullName && row.tag == "FullName") {
      out.push_back({name, *fullName, row.kind});
    } else if (row.kind == FieldKind::Boolean) {
      out.push_back({name, At<bool>(obj, row.member) ? "true" : "false", row.kind});
    } else if ((row.kind == FieldKind::Date || row.kind == FieldKind::DateTime) && At<Date>(obj, row.member) == 0) {
      out.push_back({name, std::string(), row.kind});
    } else if (row.kind == FieldKind::Amount || row.kind == FieldKind::Quantity || row.kind == FieldKind::Percent) {
      out.push_back({name, At<Currency>(obj, row.member).ToString(), row.kind});
    } else if (row.kind == FieldKind::Enum) {
      const int32_t code = At<int32_t>(obj, row.member);
      out.push_back(
          {name, code == 0 ? std::string() : ValueText(row, obj, WriteMode::QueryRs, QueryBooleans::Words), row.kind});
    } else {
      out.push_back({name, ValueText(row, obj, WriteMode::QueryRs, QueryBooleans::Words), row.kind});
    }
  }
  return out;
}

}  // namespace tessaron::detail
