// The interface through which the request builder and the collections drive an object:
// write it as an add, a modify or a query response, and read it from a response element.
#pragma once

#include <cstdint>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class xmlBldr;

class qcBase {
 public:
  virtual ~qcBase() = default;

  // Writes the body of the add request (the builder writes the two enclosing aggregates).
  virtual int32_t XMLInsert(xmlBldr& cxmlbldr) = 0;
  // Writes the whole record in the shape of a query response, for saving to files.
  virtual int32_t XMLQueryRs(xmlBldr& cxmlbldr) = 0;
  // Writes the body of the modify request.
  virtual int32_t XMLModify(xmlBldr& cxmlbldr) = 0;
  virtual qoEnumListObjectType ObjectType() const = 0;
  // Reads the fields from a response element; the object is Clean afterwards.
  virtual Variant FromDom(const XmlNode& obj) = 0;
};

}  // namespace tessaron
