// CustomerMessage: a message printed on sales forms, keyed by its text. The text has a
// public setter that follows the field rule, so a stored message turns Dirty; QuickBooks
// has no modify for it, and the commit then refuses ("Modify not allowed").
#pragma once

#include <string>

#include "tessaron/framework/list_collection.h"
#include "tessaron/framework/list_object.h"
#include "tessaron/lists/name_list_tables.h"

namespace tessaron {

class CustomerMessage final : public ListObject {
 public:
  CustomerMessage();
  void SetName(const std::string& value) { Store(name_, value, false); }
};

class CustomerMessages final : public FlatNameCollection<CustomerMessage> {
 public:
  CustomerMessages();
};

}  // namespace tessaron
