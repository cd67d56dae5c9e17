// Template: a form layout of the company (invoice, estimate, ...). QuickBooks only reads
// templates out: nothing is added, changed or sent.
#pragma once

#include <cstdint>
#include <string>

#include "tessaron/framework/list_collection.h"
#include "tessaron/framework/list_object.h"

namespace tessaron {

class Template final : public ListObject {
 public:
  Template();

  // The kind of transaction the template is for, a qbEnumTxnType code ("Txn Types" table);
  // 0 for a kind the table does not hold (such as assembly builds).
  int32_t AppliesTo() const { return appliesTo_; }
  // These two are text here, as the date-time text of the record.
  std::string TimeCreated() const;
  std::string TimeModified() const;

 private:
  static const ListClassInfo& Info();

  int32_t appliesTo_ = 0;
};

class Templates final : public ReadOnlyListCollection<Template> {
 public:
  Templates();
};

}  // namespace tessaron
