// TxnAccess: the library's one door to the members of line items and their collections
// that an application must not call (wiring a line to its owner, the object state,
// amounts stored without arithmetic, reading and writing lines). Those members are private
// in their classes, which befriend this class; transactions and tests reach them here, with
// the object first and the member's own name:
//
//   detail::TxnAccess::SetOwnerType(lines, qoObjectTypeInvoice);
//   detail::TxnAccess::WriteLines(lines, builder, isRet, isMod);
//
// The templates forward to the member of the same name of whatever class is passed.
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class qcEventSink;
class qcListObjectRef;
class xmlBldr;

namespace detail {

class TxnAccess {
 public:
  // ---- Wiring a line or a collection to its owner ----
  template <class T>
  static void SetOwnerType(T& obj, qoEnumListObjectType value) {
    obj.SetOwnerType(value);
  }
  template <class T>
  static void SetEventSink(T& obj, const std::shared_ptr<qcEventSink>& sink) {
    obj.SetEventSink(sink);
  }
  // The header's tax code, shared with the lines; call again whenever it changes.
  template <class T>
  static void SetOwnerTaxCode(T& obj, const std::shared_ptr<qcListObjectRef>& ref) {
    obj.SetOwnerTaxCode(ref);
  }
  template <class T>
  static void SetObjectState(T& obj, qoEnumObjectState state) {
    obj.SetObjectState(state);
  }

  // ---- The collection ----
  template <class L>
  static void SetIsGroupMemberList(L& lines, bool value) {
    lines.SetIsGroupMemberList(value);
  }
  template <class L>
  static void SetIsAddingGroup(L& lines, bool value) {
    lines.SetIsAddingGroup(value);
  }
  // Drops every line without the change rule or an event: before reading an answer again.
  template <class L>
  static void ClearLines(L& lines) {
    lines.ClearLines();
  }
  // Reads one line element of an answer into a new line added last.
  template <class L>
  static auto ReadLine(L& lines, const XmlNode& node, bool isGroup) {
    return lines.ReadLine(node, isGroup);
  }
  // Expense lines have no groups.
  template <class L>
  static auto ReadLine(L& lines, const XmlNode& node) {
    return lines.ReadLine(node);
  }
  // One linked document (a LinkedTxn, or an open bill or credit of a vendor), added last.
  template <class L>
  static void ReadLink(L& links, const XmlNode& node) {
    links.ReadLink(node);
  }
  // Writes every line in the owner's dialect (Ret, Mod or Add).
  template <class L, class B>
  static void WriteLines(L& lines, B& builder, bool isRet, bool isMod) {
    lines.WriteLines(builder, isRet, isMod);
  }

  // ---- Applied amounts of a payment ----
  // The owner's guard, run before every change of the collection.
  template <class A, class F>
  static void SetOwnerGuard(A& applied, F guard) {
    applied.SetOwnerGuard(std::move(guard));
  }
  template <class A>
  static void ClearMembers(A& applied) {
    applied.ClearMembers();
  }
  template <class A>
  static void ReadMember(A& applied, const XmlNode& node) {
    applied.ReadMember(node);
  }
  template <class A, class B>
  static void WriteRequest(const A& applied, B& builder, bool isMod) {
    applied.WriteRequest(builder, isMod);
  }
  template <class A, class B>
  static void WriteQueryRs(const A& applied, B& builder) {
    applied.WriteQueryRs(builder);
  }

  // ---- One line ----
  template <class T>
  static void SetIsGroup(T& line, bool value) {
    line.SetIsGroup(value);
  }
  template <class T>
  static void SetLineKey(T& line, const std::string& key) {
    line.SetLineKey(key);
  }
  template <class T>
  static void SetIsAddingLine(T& line, bool value) {
    line.SetIsAddingLine(value);
  }
  template <class T>
  static void SetAmountInternal(T& line, Currency value) {
    line.SetAmountInternal(value);
  }
  template <class T>
  static void SetGroupBaseQuantity(T& line, Currency value) {
    line.SetGroupBaseQuantity(value);
  }
  template <class T>
  static void SetQuantityFromGroup(T& line, Currency groupQuantity) {
    line.SetQuantityFromGroup(groupQuantity);
  }
  template <class T>
  static void RecalculateLine(T& line) {
    line.RecalculateLine();
  }
  template <class T>
  static void ResolveLineTaxCode(T& line) {
    line.ResolveLineTaxCode();
  }
  template <class T>
  static void ApplyMarkupDefaults(T& line) {
    line.ApplyMarkupDefaults();
  }
  template <class T>
  static void CheckInventory(T& line) {
    line.CheckInventory();
  }
  template <class T>
  static void FromDom(T& line, const XmlNode& node) {
    line.FromDom(node);
  }
  template <class T, class B>
  static void WriteLine(T& line, B& builder, bool isRet, bool isMod) {
    line.WriteLine(builder, isRet, isMod);
  }
  template <class T>
  static bool Validate(T& line) {
    return line.Validate();
  }
  template <class T>
  static void CheckNotInGroup(const T& line) {
    line.CheckNotInGroup();
  }
  template <class T>
  static void CheckOwnerTypeIn(const T& line, std::initializer_list<int32_t> types) {
    line.CheckOwnerTypeIn(types);
  }
  template <class T>
  static qbEnumItemType ItemTypeOfLine(const T& line) {
    return line.ItemTypeOfLine();
  }
  template <class T>
  static bool ItemTypeIn(const T& line, std::initializer_list<qbEnumItemType> types) {
    return line.ItemTypeIn(types);
  }
  // What the writers decide by: a quantity that came from the caller, the member quantity
  // for one group, the position text given before writing.
  template <class T>
  static bool QuantityWasSet(const T& line) {
    return line.QuantityWasSet();
  }
  template <class T>
  static Currency GroupBaseQuantity(const T& line) {
    return line.GroupBaseQuantity();
  }
  template <class T>
  static const std::string& LineKey(const T& line) {
    return line.LineKey();
  }
};

}  // namespace detail
}  // namespace tessaron
