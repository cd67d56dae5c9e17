// The interface through which collections, references and the application treat any
// list record alike. Every list class implements it (through ListObject) beside its
// own interface, and through qcBase it is what the request builder drives.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/framework/qc_base.h"

namespace tessaron {

class qcErrors;
class qcListObjectRef;
class qcListObjectRefs;

class qcListObject : public qcBase {
 public:
  // ObjectType comes from qcBase.
  virtual const std::string& ListID() const = 0;
  virtual const std::string& Name() const = 0;
  // The object's key inside its collection; a rename changes it.
  virtual std::string CollectionKey() const = 0;
  // Validation and commit problems of this object.
  virtual std::shared_ptr<qcErrors> Errors() = 0;
  virtual bool SupportsChildren() const = 0;
  // Full name of the parent record; empty at the top of a tree and in flat lists.
  virtual std::string Parent() const = 0;
  // References to the records below this one; null in flat lists.
  virtual std::shared_ptr<qcListObjectRefs> Children() = 0;
  virtual std::string FullName() const = 0;
  virtual int16_t Sublevel() const = 0;
  virtual qoEnumObjectState ObjectState() const = 0;
  // FromDom is qcBase's: the same walk, whose result the callers never read.
  // Checks the fields, gathering problems in Errors; a Clean object is never checked.
  virtual bool Validate() = 0;
};

}  // namespace tessaron
