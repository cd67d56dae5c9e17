// ListObject: the one implementation of the list-object contract that every list class
// shares. It holds the common fields, the three states, both forms of the field rule,
// and walks the class's tables for FromDom, XMLInsert, XMLModify, XMLQueryRs and Validate.
//
// How to add a list class (say `Vehicle`, collection `Vehicles`):
//
// 1. `tessaron/lists/vehicle.h`: `class Vehicle final : public ListObject` with its own
//    fields as private members, its getters, and public setters that store through the
//    field rule: `Store(desc_, value, /*readOnlyUnlessNew=*/false)` (Form A) or
//    `StoreFromVersion(desc_, value, 3)` (Form B); `SetIfChanged` where a setter must not
//    dirty an object when the value is the same.
// 2. In `vehicle.cpp`, one static `ListClassInfo` made by a private static `Info()`:
//        ListClassInfo i = ClassOf("Vehicle", qoObjectTypeVehicle, qoListVehicles);  // + modify rule
//        i.fields = Common::Rows({Common::Name(Send::Always), Common::IsActive(),
//                                 field::Text("Desc", &Vehicle::desc_).Add(Send::IfSet).Mod(Send::Always)});
//        i.checks = {Common::NameCheck(31, err::kNameTooLong, err::kNameTooLongText),
//                    check::MaxLength(&Vehicle::desc_, "Desc", 99, ...), check::Custom(&Vehicle::CheckMore)};
//    The field table is in the order of the query-response element, which is also the
//    order of the add and modify requests; each row says how it travels in each (Send),
//    from which qbXML version, and under which property name it is shown (As). The
//    constructor passes `Info()` to ListObject.
// 3. The collection: `class Vehicles final : public ListCollection<Vehicle>` with a static
//    `ListCollectionInfo` (request name, list type, what a Dirty object does, ...), its
//    `Add(...)` built on `AddNew`, and any query of its own built on `RunQuery`
//    (list_collection.h).
// 4. Register the collection under its list key in `Lists` (Company does that).
//
// Records with sub-records (addresses, credit cards) add Custom rows for them and
// override `AfterFromDom`, `ResetToNew` and `ModifyWhileClean`.
//
// The public header shows only what an application may write. Members that skip the field
// rule or set the state (`SetNameInternal`, `SetIsActiveInternal`, `SetParentInternal`,
// `SetSublevelInternal`, `SetObjectState`, `ResetToNew`, `ModifyWhileClean`) are protected
// here, and a class's own internal setters (`SetTermsInternal`, ...) are private with
// `friend class detail::ListObjectAccess;`. Collections, Company and file loads call them
// through tessaron/framework/detail/list_object_access.h, under the same name with the
// object first: `detail::ListObjectAccess::SetNameInternal(obj, Name)`. A new internal
// setter gets a forwarding template of the same name there.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/framework/field_table.h"
#include "tessaron/framework/qc_list_object.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/variant.h"

namespace tessaron {

namespace detail {
class ListObjectAccess;
}

// The depth of a new record under the parent of that full name: 0 at the top, else the
// number of parts of the name ("A:B" gives 2).
int16_t SublevelUnder(const std::string& parentFullName);

class ListObject : public qcListObject {
 public:
  // The class whose members the rows of a list class's field table point at.
  using FieldOwner = ListObject;
  ~ListObject() override;

  // qcBase.
  int32_t XMLInsert(xmlBldr& cxmlbldr) override;
  int32_t XMLQueryRs(xmlBldr& cxmlbldr) override;
  int32_t XMLModify(xmlBldr& cxmlbldr) override;
  qoEnumListObjectType ObjectType() const override { return info_.objectType; }
  // Walks the children by position and stores what the field table knows; an unknown tag
  // goes to the diagnostic hook. Fields the element does not mention keep their values.
  // The object is Clean afterwards.
  Variant FromDom(const XmlNode& obj) override;

  // qcListObject.
  const std::string& ListID() const override { return listID_; }
  const std::string& Name() const override { return name_; }
  std::string CollectionKey() const override { return FullName(); }
  std::shared_ptr<qcErrors> Errors() override;
  bool SupportsChildren() const override { return info_.supportsChildren; }
  std::string Parent() const override;
  std::shared_ptr<qcListObjectRefs> Children() override;
  // In tree lists the parent's full name, ":" and Name; otherwise Name.
  std::string FullName() const override;
  int16_t Sublevel() const override { return sublevel_; }
  qoEnumObjectState ObjectState() const override { return state_; }
  bool Validate() override;

  Date TimeCreated() const { return timeCreated_; }
  Date TimeModified() const { return timeModified_; }
  // The optimistic-lock token of the last response, sent back in the next modify.
  const std::string& EditSequence() const { return editSequence_; }
  bool IsActive() const { return isActive_; }
  // A free value of the application; objects are kept as handles, other values as copies.
  const Variant& UserData() const { return userData_; }
  void SetUserData(const Variant& value) { userData_ = value; }
  // The reference to the parent record; null in flat lists.
  const std::shared_ptr<qcListObjectRef>& ParentRef() const { return parentRef_; }

  const ListClassInfo& ClassInfo() const { return info_; }

  // The record as property name and display text, in the order of the field table: what
  // a listing shows. References give the target's full name, FullName the computed one.
  using PropertyText = FieldText;
  std::vector<PropertyText> Properties();

  // Rows for the common fields, in the form most classes use.
  struct Common {
    // ListID, TimeCreated, TimeModified and EditSequence, which open every record, then `own`.
    static std::vector<FieldDef> Rows(std::initializer_list<FieldDef> own);
    static FieldDef ListID();        // read; first in a modify
    static FieldDef TimeCreated();
    static FieldDef TimeModified();
    static FieldDef EditSequence();  // read; second in a modify
    static FieldDef Name(Send add, Send mod = Send::Never);
    static FieldDef FullName();      // the stored tag; query form only
    static FieldDef IsActive(Send add = Send::Always, Send mod = Send::Never);
    static FieldDef ParentRef();     // add if set
    static FieldDef Sublevel();
    // Name empty: 0x800403F4 "Name cannot be null"; else longer than maxLength: longCode, longMessage.
    static CheckDef NameCheck(size_t maxLength, uint32_t longCode, const char* longMessage);
    // The parent must be in the master collection or on file (may send one query).
    static CheckDef ParentCheck();
    // The parent record: from the master collection when loaded, else by one query; null
    // when the object has no parent or the parent is not on file.
    static std::shared_ptr<qcListObject> LookUpParent(ListObject& obj);
  };


 protected:
  explicit ListObject(const ListClassInfo& info);

  // Library-internal, reached through detail::ListObjectAccess: the collection's Add sets
  // these while the object is New, without the field rule; a file load sets the state.
  friend class detail::ListObjectAccess;
  void SetNameInternal(const std::string& value) { name_ = value; }
  void SetIsActiveInternal(bool value) { isActive_ = value; }
  void SetParentInternal(const std::string& parentFullName);
  void SetSublevelInternal(int16_t value) { sublevel_ = value; }
  void SetObjectState(qoEnumObjectState state) { state_ = state; }
  // Back to New after an Add or a file load; records with sub-records reset those too.
  virtual void ResetToNew() { state_ = qoObjectStateNew; }
  // Whether a Clean object must still be sent as a modify because a sub-record changed.
  // Raises for a sub-record in an unknown state.
  virtual bool ModifyWhileClean() { return false; }


  // Form A of the field rule: with `readOnlyUnlessNew` false a stored object turns Dirty;
  // with true only a New object may be written, others raise 0x800403EA.
  void CheckField(bool readOnlyUnlessNew);
  // Form B: a field that the session's modify request carries (version at least
  // `minVersion`) turns a stored object Dirty; otherwise only a New object may be written.
  void CheckFieldFromVersion(Currency minVersion);
  template <class T, class V>
  void Store(T& field, V&& value, bool readOnlyUnlessNew) {
    CheckField(readOnlyUnlessNew);
    field = std::forward<V>(value);
  }
  template <class T, class V>
  void StoreFromVersion(T& field, V&& value, Currency minVersion) {
    CheckFieldFromVersion(minVersion);
    field = std::forward<V>(value);
  }
  // Stores and runs the Form B guard only when the text differs (case-sensitive).
  void SetIfChanged(std::string& field, const std::string& value, Currency minVersion);

  // Called at the end of FromDom, before the state turns Clean (sub-records, flags).
  virtual void AfterFromDom() {}

  std::string listID_;
  Date timeCreated_ = 0;
  Date timeModified_ = 0;
  std::string editSequence_;
  std::string name_;
  std::string fullName_;  // the FullName tag as last received
  bool isActive_ = true;
  Variant userData_;
  std::shared_ptr<qcListObjectRef> parentRef_;
  int16_t sublevel_ = 0;

 private:
  void WriteRows(xmlBldr& cxmlbldr, WriteMode mode);

  const ListClassInfo& info_;
  std::shared_ptr<qcErrors> errors_;
  std::shared_ptr<qcListObjectRefs> children_;
  qoEnumObjectState state_ = qoObjectStateNew;
};

}  // namespace tessaron
