// ListObjectAccess: the library's one door to the members of list objects, records and
// collections that an application must not call (internal setters that skip the field
// rule, the object state, the master flag, the readers of sub-records). Those members are
// private in their classes, which befriend this class; collections, Company, file loads
// and tests reach them here, with the object as first argument and the member's own name:
//
//   detail::ListObjectAccess::SetNameInternal(obj, "Acme");
//   detail::ListObjectAccess::SetTermsInternal(term, 30, 10, Currency(2));
//
// The templates forward to the member of the same name of whatever class is passed, so a
// new class only has to befriend this class to offer its own internal setters.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/framework/list_object.h"

namespace tessaron {

class XmlNode;

namespace detail {

class ListObjectAccess {
 public:
  // Common fields of every list object, written while the object is New.
  static void SetNameInternal(ListObject& obj, const std::string& value) { obj.SetNameInternal(value); }
  static void SetIsActiveInternal(ListObject& obj, bool value) { obj.SetIsActiveInternal(value); }
  static void SetParentInternal(ListObject& obj, const std::string& parentFullName) {
    obj.SetParentInternal(parentFullName);
  }
  static void SetSublevelInternal(ListObject& obj, int16_t value) { obj.SetSublevelInternal(value); }
  // Back to New after an Add or a file load; records with sub-records reset those too.
  static void ResetToNew(ListObject& obj) { obj.ResetToNew(); }
  // Whether a Clean object must still be sent as a modify because a sub-record changed.
  static bool ModifyWhileClean(ListObject& obj) { return obj.ModifyWhileClean(); }

  // The state of a list object or of a sub-record (Address, CreditCard).
  template <class T>
  static void SetObjectState(T& obj, qoEnumObjectState state) {
    obj.SetObjectState(state);
  }
  // Readers and writers of records that are not list objects (Company, Address,
  // CreditCard); list objects read through their public FromDom.
  template <class T>
  static void FromDom(T& obj, const XmlNode& node) {
    obj.FromDom(node);
  }
  template <class T, class B>
  static void Write(const T& obj, B& cxmlbldr) {
    obj.Write(cxmlbldr);
  }
  // Company marks its own collection instances; only those may Add and Commit.
  template <class L>
  static void SetMaster(L& list, bool value) {
    list.SetMaster(value);
  }

  // References (qcListObjectRef): the texts, the list, and the reading and writing of a
  // `...Ref` element.
  template <class R>
  static void SetListID(R& ref, const std::string& value) {
    ref.SetListID(value);
  }
  template <class R>
  static void SetFullName(R& ref, const std::string& value) {
    ref.SetFullName(value);
  }
  template <class R, class L>
  static void SetList(R& ref, L list) {
    ref.SetList(list);
  }
  template <class R>
  static void SetIsParent(R& ref, bool value) {
    ref.SetIsParent(value);
  }
  template <class R>
  static void ReadFromNode(R& ref, const XmlNode& node) {
    ref.ReadFromNode(node);
  }
  template <class R, class B>
  static void WriteQueryRs(R& ref, B& cxmlbldr, const std::string& tag = "") {
    ref.WriteQueryRs(cxmlbldr, tag);
  }
  template <class R, class T>
  static void SetCachedObject(R& ref, T target) {
    ref.SetCachedObject(std::move(target));
  }

  // Internal setters of single classes, forwarded by name.
  template <class T, class... A>
  static void SetTermsInternal(T& obj, A&&... args) {
    obj.SetTermsInternal(std::forward<A>(args)...);
  }
  template <class T>
  static void SetNameChecked(T& obj, const std::string& value) {
    obj.SetNameChecked(value);
  }
  template <class T>
  static void SetKeyInternal(T& obj, const std::string& key) {
    obj.SetKeyInternal(key);
  }
  template <class T>
  static void SetInitialInternal(T& obj, const std::string& value) {
    obj.SetInitialInternal(value);
  }
  template <class T>
  static void SetDescriptionInternal(T& obj, const std::string& value) {
    obj.SetDescriptionInternal(value);
  }
  template <class T>
  static void SetHasSalesAndPurchaseInternal(T& obj, bool value) {
    obj.SetHasSalesAndPurchaseInternal(value);
  }
  template <class T>
  static void SetIsTaxableInternal(T& obj, bool value) {
    obj.SetIsTaxableInternal(value);
  }
};

}  // namespace detail
}  // namespace tessaron
