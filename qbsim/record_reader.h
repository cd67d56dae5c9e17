// Reads the body of an add or modify request (CustomerAdd, CustomerMod, ...) into a
// record's fields, by the kind's field table: values are converted to their stored form,
// references resolved to ListIDs, aggregates merged or replaced.
#pragma once

#include <optional>
#include <span>
#include <string>

#include <pugixml.hpp>

#include "qbsim/field_map.h"
#include "qbsim/record_kind.h"
#include "qbsim/status.h"

namespace tessaron::qbsim {

class RequestContext;

class RecordReader {
 public:
  // `form` is kInAdd or kInMod.
  RecordReader(RequestContext& ctx, const ListKind& kind, uint16_t form) : ctx_(ctx), kind_(kind), form_(form) {}

  // Applies the request's children to `body`; the record's columns land in the members below.
  Status Read(const pugi::xml_node& node, FieldMap& body);

  std::optional<std::string> name;
  std::optional<bool> active;
  bool parentGiven = false;
  std::string parentListId;  // empty: top level

 private:
  Status ReadGroup(std::span<const Field> fields, const pugi::xml_node& node, const std::string& prefix,
                   FieldMap& body, bool top);
  // Resolves a …Ref element to a ListID of its target lists; an empty id means "clear".
  Status Resolve(const Field& f, const pugi::xml_node& ref, std::string& listId);

  RequestContext& ctx_;
  const ListKind& kind_;
  uint16_t form_;
};

// Every missing element that an add must carry; an empty text when none is missing.
std::string MissingRequired(std::span<const Field> fields, const FieldMap& body);

// The ListIDs a record's fields refer to, for the check that keeps referenced records.
void CollectRefs(std::span<const Field> fields, const FieldMap& body, std::vector<std::string>& out);

}  // namespace tessaron::qbsim
