// DataExtension: the value of one custom field (owner "0") or application field (owner:
// the application's GUID) on one record, a transaction or a transaction line.
//
// The value is held in the form its data type asks for (whole number, Currency, Single,
// Date or text) and is sent in the qbXML form of that type. Changing the value of a value
// read from QuickBooks makes it Dirty; the owner's DataExtensions commits it afterwards.
#pragma once

#include <memory>
#include <string>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class DataExtensions;
class qcErrors;

class DataExtension {
 public:
  DataExtension() = default;

  // The name of the field (DataExtName).
  const std::string& Name() const { return name_; }
  qbEnumDataExtDataType DataType() const { return dataType_; }
  void SetDataType(qbEnumDataExtDataType value) { dataType_ = value; }
  // The value in the form of its data type; empty until set or read.
  const Variant& Value() const { return value_; }
  // Converts by the data type. A value read from QuickBooks turns Dirty; below qbXML 3.0
  // such a value cannot change (0x800403EA).
  void SetValue(const Variant& value);
  // Converts text by the data type without touching the state.
  void SetValueAsString(const std::string& text);
  // The value in the qbXML form of its data type (amounts "0.00", quantities "0000000.0000").
  std::string ValueText() const;
  // The value as read from QuickBooks.
  const Variant& OldValue() const { return oldValue_; }

  // The record the value belongs to, and the line within it (transaction lines only).
  const std::string& ListOrTxnId() const { return listOrTxnId_; }
  const std::string& TxnLineId() const { return txnLineId_; }
  void SetTxnLineId(const std::string& value) { txnLineId_ = value; }
  qoEnumObjectState ObjectState() const { return state_; }
  void SetObjectState(qoEnumObjectState value) { state_ = value; }
  const Variant& UserData() const { return userData_; }
  void SetUserData(const Variant& value) { userData_ = value; }
  std::shared_ptr<qcErrors> Errors();

  // Reads a DataExtRet: the name, the owner and the value; the value is then Clean.
  void FromDom(const XmlNode& obj);

  // The owner id ("0" or a GUID) and the owner's object type; set by DataExtensions.
  const std::string& OwnerId() const { return ownerId_; }
  qoEnumListObjectType OwnerType() const { return ownerType_; }
  // Whether the value is the empty value of its type (0, the null date, empty text).
  bool IsEmptyValue() const;

 private:
  friend class DataExtensions;
  // New stays New; otherwise Dirty, or with `checkAllowed` below qbXML 3.0 raises.
  void MarkModified(bool checkAllowed);
  Variant Convert(const std::string& text) const;
  Variant Convert(const Variant& value) const;

  std::string name_;
  qbEnumDataExtDataType dataType_ = qbDataExtTypeSTR255TYPE;
  Variant value_;
  Variant oldValue_;
  std::string listOrTxnId_;
  std::string txnLineId_;
  qoEnumObjectState state_ = qoObjectStateNew;
  std::string ownerId_;
  qoEnumListObjectType ownerType_ = static_cast<qoEnumListObjectType>(0);
  Variant userData_;
  std::shared_ptr<qcErrors> errors_;
};

}  // namespace tessaron
