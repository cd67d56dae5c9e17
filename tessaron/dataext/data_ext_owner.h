// DataExtOwner: what a record that carries data extension values holds (a list record, a
// transaction, a transaction line): its CustomFields (owner "0") and its ApplicationFields
// (owner: the GUID the application registered), read with the record from each DataExtRet
// of the answer and saved after the record, since QuickBooks keeps them outside it.
//
// A class becomes an owner by deriving from DataExtOwner with its object type and telling
// the id of its record (ListID or TxnID); a line also tells its TxnLineID.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class DataExtensions;

class DataExtOwner {
 public:
  virtual ~DataExtOwner();

  // The values of the public custom fields. Each read sets the owner "0" and the type.
  std::shared_ptr<DataExtensions> CustomFields();
  // The values of the application's own fields. Each read sets the registered GUID.
  std::shared_ptr<DataExtensions> ApplicationFields();
  // Saves the changed values of the record ListOrTxnId: the custom fields and, from
  // qbXML 3.0 on, the application fields. True when the last save that ran had no error.
  virtual bool SaveDataExtensions(const std::string& ListOrTxnId);
  // Saves the custom fields alone, under the record's own id (and line id, for a line).
  virtual int32_t CommitCustomFields();

  // Reads one DataExtRet into the values of its owner: "0" into CustomFields, the
  // registered GUID into ApplicationFields; another application's values are dropped.
  void ReadDataExtRet(const XmlNode& node);

 protected:
  explicit DataExtOwner(qoEnumListObjectType ownerType) : ownerType_(ownerType) {}
  // The ListID or TxnID of the record, and the TxnLineID of a line (empty otherwise).
  virtual std::string DataExtRecordId() const = 0;
  virtual std::string DataExtLineId() const { return {}; }

 private:
  qoEnumListObjectType ownerType_;
  std::shared_ptr<DataExtensions> customFields_;
  std::shared_ptr<DataExtensions> applicationFields_;
};

// The reader behind ReadDataExtRet, for owners that keep their values elsewhere (the
// company keeps only application fields): a null collection drops its values.
void ReadDataExtRet(const XmlNode& node, DataExtensions* customFields, DataExtensions* applicationFields);

}  // namespace tessaron
