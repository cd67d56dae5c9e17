#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/lists/item_object.h"

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

ListClassInfo ItemObject::ItemClass(const char* className, qoEnumListObjectType objectType, bool tree,
                                  ModifyRule modify, const char* modifyMessage) {
  ListClassInfo i = ClassOf(className, objectType, qoListItems, modify, modifyMessage);
  i.supportsChildren = tree;
  i.key = KeyRule::TreeFullName;
  return i;
}

FieldDef ItemObject::Rows::ParentRef() {
  return field::Custom(
             "ParentRef", [](ListObject& o, const XmlNode& n) { detail::ListObjectAccess::ReadFromNode(*o.ParentRef(), n); },
             [](ListObject& o, xmlBldr& b, WriteMode mode) {
               if (mode == WriteMode::Add) WriteListRef(o.ParentRef(), b, "ParentRef");
               else detail::ListObjectAccess::WriteQueryRs(*o.ParentRef(), b);
             },
             [](const ListObject& o) { return o.Parent(); })
      .Add(Send::Always)
      .Mod(Send::Always)
      .As("Parent");
}

CheckDef ItemObject::NameCheck() { return Common::NameCheck(31, err::kNameTooLong, err::kNameTooLongText); }

CheckDef ItemObject::ParentOfSameKindCheck() {
  return check::Custom([](ListObject& o, qcErrors& errors) {
    if (o.Parent().empty()) return;
    auto parent = std::dynamic_pointer_cast<qcItem>(Common::LookUpParent(o));
    if (!parent) errors.Add(err::kInvalidParent, "Parent", err::kInvalidParentText);
    else if (parent->ItemType() != static_cast<ItemObject&>(o).ItemType())
      errors.Add(err::kParentItemType, "Parent", err::kParentItemTypeText);
  });
}

void ItemObject::CheckRef(qcListObjectRef& ref, qcErrors& errors, uint32_t code, const char* field,
                        const char* message, bool onlyIfSet) {
  if (onlyIfSet && ref.FullName().empty() && ref.ListID().empty()) return;
  if (!IsListRefValid(ref)) errors.Add(code, field, message);
}

void ItemObject::CheckTaxCode(qcListObjectRef& ref, qcErrors& errors, const char* field) {
  CheckRef(ref, errors, err::kBadSalesTaxCode, field, err::kBadSalesTaxCodeText, true);
}

}  // namespace tessaron
