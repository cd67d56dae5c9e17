// ItemObject: what every class of the item list shares beside the list-object contract: its
// kind (ItemType), the qcItem answers of an item without a sales or purchase side, and the
// rows and checks the item classes have in common (the parent, which must be an item of
// the same kind, and the tax code).
#pragma once

#include <memory>
#include <string>

#include "tessaron/dataext/data_ext_owner.h"
#include "tessaron/foundation/enum_codes.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/framework/list_object.h"
#include "tessaron/lists/item_records.h"
#include "tessaron/lists/qc_item.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

class ItemObject : public ListObject, public qcItem, public DataExtOwner {
 public:
  qbEnumItemType ItemType() const override { return itemType_; }

  // The answers of an item with nothing to sell or buy; classes with a money side override.
  std::string SalesDescription() const override { return {}; }
  std::string PurchaseDescription() const override { return {}; }
  bool SalesCostIsPercent() const override { return false; }
  bool PurchaseCostIsPercent() const override { return false; }
  Currency SalesCost() const override { return {}; }
  Currency PurchaseCost() const override { return {}; }
  std::string SalesTaxCode() const override { return {}; }
  bool HasSalesAndPurchase() const override { return false; }
  bool ContainsExpenseAccount() const override { return false; }

  // One implementation for both interfaces.
  const std::string& ListID() const override { return ListObject::ListID(); }
  const std::string& Name() const override { return ListObject::Name(); }
  std::string CollectionKey() const override { return ListObject::CollectionKey(); }
  std::shared_ptr<qcErrors> Errors() override { return ListObject::Errors(); }
  qoEnumObjectState ObjectState() const override { return ListObject::ObjectState(); }
  // Sets the state as it stands, for callers that decide themselves what a commit sends.
  void SetObjectState(qoEnumObjectState state) override { ListObject::SetObjectState(state); }
  std::string Parent() const override { return ListObject::Parent(); }
  std::shared_ptr<qcListObjectRefs> Children() override { return ListObject::Children(); }
  std::string FullName() const override { return ListObject::FullName(); }
  int16_t Sublevel() const override { return ListObject::Sublevel(); }
  bool SupportsChildren() const override { return ListObject::SupportsChildren(); }
  Variant FromDom(const XmlNode& obj) override { return ListObject::FromDom(obj); }
  bool Validate() override { return ListObject::Validate(); }

  // Rows and checks the item classes share.
  struct Rows {
    // The add writes the parent by FullName when set; the modify and the query form write
    // it by the reference's own writer (ListID when known).
    static FieldDef ParentRef();
    // Name (add and modify), IsActive (add and modify), for the items QuickBooks can change.
    static FieldDef Name() { return ListObject::Common::Name(Send::Always, Send::Always); }
    static FieldDef IsActive() { return ListObject::Common::IsActive(Send::Always, Send::Always); }
    // "ItemDesc", sent in the add when set and in the modify always.
    template <class O>
    static FieldDef ItemDesc(std::string O::*m) {
      return field::Text("ItemDesc", m).Add(Send::IfSet).Mod(Send::Always).As("Description");
    }
    // A reference sent in the add when set and in the modify when set.
    template <class O>
    static FieldDef Ref(std::string_view tag, std::shared_ptr<qcListObjectRef> O::*m, qoEnumListType list) {
      return field::Ref(tag, m, list).Add(Send::IfSet);
    }
  };
  // The name (31 characters); the parent, which must resolve and be of this item's kind.
  static CheckDef NameCheck();
  static CheckDef ParentOfSameKindCheck();
  // A tax code that names anything must resolve: 0x800403F7 under `field`.
  static void CheckTaxCode(qcListObjectRef& ref, qcErrors& errors, const char* field = "SalesTaxCode");
  // A reference must resolve: `code`, `message` under `field`; with `onlyIfSet`, an empty
  // one passes.
  static void CheckRef(qcListObjectRef& ref, qcErrors& errors, uint32_t code, const char* field,
                       const char* message, bool onlyIfSet);

 protected:
  ItemObject(const ListClassInfo& info, qbEnumItemType itemType)
      : ListObject(info), DataExtOwner(info.objectType), itemType_(itemType) {}
  std::string DataExtRecordId() const override { return ListID(); }
  // The class info of an item class: list type Items, keyed by full name; `tree` for the
  // kinds that have parents.
  static ListClassInfo ItemClass(const char* className, qoEnumListObjectType objectType, bool tree,
                                 ModifyRule modify, const char* modifyMessage = "XMLModify not supported");
  // Stores a reference's full name through the field rule.
  void StoreRef(std::shared_ptr<qcListObjectRef>& ref, const std::string& value, bool readOnlyUnlessNew) {
    CheckField(readOnlyUnlessNew);
    detail::ListObjectAccess::SetFullName(*ref, value);
  }

 private:
  const qbEnumItemType itemType_;
};

// A kind of item that holds lines (groups, assemblies): the lines of a record read replace
// those held, and a stored item whose lines changed is sent again with all of them.
// `T` names its lines' tags as T::kLineTag (the aggregate) and T::kRefTag (the item in it).
template <class Base>
class ItemWithLines : public Base {
 public:
  Variant FromDom(const XmlNode& obj) override {
    lines_->BeginRead();
    return Base::FromDom(obj);
  }

 protected:
  // Library-internal, through detail::ListObjectAccess.
  void ResetToNew() override {
    Base::ResetToNew();
    lines_->SetChanged(true);
  }
  bool ModifyWhileClean() override { return lines_->Changed(); }

 protected:
  using Base::Base;
  void AfterFromDom() override {
    Base::AfterFromDom();
    lines_->SetChanged(false);
  }
  // The row of the lines: all of them in an add; in a modify only when they changed, since
  // they then replace the lines on file.
  template <class T>
  static FieldDef LinesRow(std::string_view property) {
    return field::Custom(
               T::kLineTag, [](ListObject& o, const XmlNode& n) { static_cast<T&>(o).lines_->ReadLine(n, T::kRefTag); },
               [](ListObject& o, xmlBldr& b, WriteMode mode) {
                 const itemGroupLines& lines = *static_cast<T&>(o).lines_;
                 if (mode != WriteMode::Modify || lines.Changed()) lines.Write(b, T::kLineTag, T::kRefTag);
               },
               [](const ListObject& o) { return static_cast<const T&>(o).lines_->Text(); })
        .Add(Send::Always)
        .Mod(Send::Always)
        .As(property);
  }

  std::shared_ptr<itemGroupLines> lines_ = std::make_shared<itemGroupLines>();
};

}  // namespace tessaron
