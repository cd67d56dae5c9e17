// Writes records as …Ret elements, in the element order of their field table.
#pragma once

#include <span>
#include <string>

#include "qbsim/field_map.h"
#include "qbsim/record_kind.h"
#include "qbsim/record_row.h"
#include "qbsim/xml_out.h"

namespace tessaron::qbsim {

class RequestContext;

class RecordWriter {
 public:
  explicit RecordWriter(RequestContext& ctx) : ctx_(ctx) {}

  // The whole …Ret of a list record, ending in the values of the data extensions of those
  // owners.
  void WriteRet(XmlOut& out, const ListKind& kind, const RecordRow& row,
                std::span<const std::string> dataExtOwners = {});
  // The fields of a table alone, from a record's stored fields (the company record, the preferences).
  void WriteFields(XmlOut& out, std::span<const Field> fields, const RecordRow& row);

 private:
  void Write(XmlOut& out, std::span<const Field> fields, const RecordRow& row, std::string& prefix);
  void WriteRef(XmlOut& out, const char* tag, std::string_view listId);

  RequestContext& ctx_;
  // Both reused from record to record: answering a record allocates nothing of its own.
  FieldView body_;
  std::string path_;
};

}  // namespace tessaron::qbsim
