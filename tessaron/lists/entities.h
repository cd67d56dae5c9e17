// Entities: the customers, employees, vendors and other names of the company as one list,
// read by EntityQueryRq. A record's class is chosen by its `...Ret` element; kinds whose
// own class is registered (RegisterEntityKind) get it, the others an EntityRecord with the
// common fields. Nothing can be added here.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "tessaron/framework/list_collection.h"
#include "tessaron/framework/list_object.h"

namespace tessaron {

// A record of the entity list with the common fields only.
class EntityRecord final : public ListObject {
 public:
  EntityRecord();
};

class Entities final : public ListCollection<ListObject> {
 public:
  Entities();

  // Makes the records of one `...Ret` element ("CustomerRet") with the given class.
  using Factory = std::function<std::shared_ptr<ListObject>()>;
  static void RegisterEntityKind(std::string_view retTag, Factory factory);

  // The kind of the last record found, compared by SalesRep validation. Nothing in the
  // library sets it, so it stays 0.
  int32_t EntityKind() const { return mEntityKind_; }
  // Whether queries ask for the custom fields of each record (from qbXML 2.0 on), and for
  // the application's fields when one of its definitions is for a kind of name.
  bool IncludeDataExtensions() const { return IncludeDataExt(); }
  void SetIncludeDataExtensions(bool value) { SetIncludeDataExt(value); }

 protected:
  std::shared_ptr<ListObject> NewObject(const XmlNode& ret) override;

 private:
  int32_t mEntityKind_ = 0;
};

}  // namespace tessaron
