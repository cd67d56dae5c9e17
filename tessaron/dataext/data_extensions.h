// DataExtensions: the values of one owner's data extensions on one record, by name.
//
// A record has two: CustomFields (owner "0", the public fields a QuickBooks user sees) and
// ApplicationFields (owner: the GUID the application registered). QuickBooks keeps the
// values outside the record, so they are committed after it, each in a request of its
// own: a DataExtAddRq for a new value, a DataExtModRq for a changed one, and a DataExtDelRq
// for a value changed to the empty value of its type.
//
//   customer->CustomFields()->Item("Colour")->SetValue("Blue");
//   customers.Commit();   // saves the customer, then the changed custom fields
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tessaron/dataext/data_extension.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/collection.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class DataExtensionDefinition;
class qcErrors;
class xmlBldr;

class DataExtensions {
 public:
  DataExtensions();
  ~DataExtensions();

  // A New value under Name (the key), with this collection's owner and owner type.
  std::shared_ptr<DataExtension> Add(const std::string& Name);
  // The value under a name or at a position from 1. A name not held yet is added, typed
  // from its definition: on custom fields a name without a definition is taken as text;
  // on application fields it must be defined for this object type (0x80040AF4). A number
  // that is no position raises 0x80040AF0.
  std::shared_ptr<DataExtension> Item(const Variant& vntIndexKey);
  void Clear() { col_.Clear(); }
  long Count() const { return col_.Count(); }
  bool ItemExists(const std::string& Name) const { return col_.Exists(Name); }
  std::vector<std::shared_ptr<DataExtension>> NewEnum() const;

  // Sends the New and Dirty values of the record ListOrTxnId (and line TxnLineId) in one
  // message. Returns the number of entries in Errors; with ErrorMode on, a failure raises
  // 0x800403FF afterwards.
  int32_t Commit(const std::string& ListOrTxnId, const std::string& TxnLineId = "");
  // Whether the last Commit sent anything.
  bool LastCommitSent() const { return lastCommitSent_; }
  bool Validate();
  std::shared_ptr<qcErrors> Errors();

  const std::string& ListOrTxnId() const { return listOrTxnId_; }
  qoEnumObjectState ObjectState() const { return state_; }
  // Set by the owner each time it hands the collection out.
  void SetOwnerType(qoEnumListObjectType value) { ownerType_ = value; }
  void SetOwnerId(const std::string& value) { ownerId_ = value; }
  const std::string& OwnerId() const { return ownerId_; }
  qoEnumListObjectType OwnerType() const { return ownerType_; }

  // Reading: the value under Name, added without a definition look-up when not held (a
  // read never fails): typed by the DataExtType text when the answer gives one.
  std::shared_ptr<DataExtension> ItemForReading(const std::string& Name, const std::string& typeText);

 private:
  // The definition of Name in the company's custom or application fields; null when none.
  std::shared_ptr<DataExtensionDefinition> DefinitionOf(const std::string& Name) const;
  // Raises 0x80040AF4 unless the definition is assigned to this owner's object type.
  void CheckAssignedTo(const DataExtensionDefinition& definition) const;
  void MarkModified();
  // A value of this collection's owner under Name, kept under it; the state untouched.
  std::shared_ptr<DataExtension> Insert(const std::string& Name);
  void WriteMember(xmlBldr& b, DataExtension& member, long position, int& written);
  void WriteTarget(xmlBldr& b, const DataExtension& member, bool withLine);

  Collection<std::shared_ptr<DataExtension>> col_;
  std::string listOrTxnId_;
  std::string ownerId_;
  qoEnumListObjectType ownerType_ = static_cast<qoEnumListObjectType>(0);
  qoEnumObjectState state_ = qoObjectStateClean;
  std::shared_ptr<qcErrors> errors_;
  bool lastCommitSent_ = false;
};

// Whether an object type is one of the item kinds (which share the definitions of Item).
bool IsItemObjectType(int32_t objectType);
// The text of an object type in AssignToObject, ListDataExtType and TxnDataExtType
// ("SalesOrder").
std::string DataExtObjectTypeText(int32_t objectType);
// The object type of such a text, without regard to case; 0 for a text no type has.
int32_t DataExtObjectTypeOfText(std::string_view text);

}  // namespace tessaron
