// The flat name lists ShipMethod and PaymentMethod: a name and an active flag, keyed by
// the name. QuickBooks offers no modify for them, so after the first commit their fields
// are fixed.
#pragma once

#include "tessaron/framework/list_collection.h"
#include "tessaron/framework/list_object.h"
#include "tessaron/lists/name_list_tables.h"

namespace tessaron {

class ShipMethod final : public ListObject {
 public:
  ShipMethod();
};

class PaymentMethod final : public ListObject {
 public:
  PaymentMethod();
};

class ShipMethods final : public FlatNameCollection<ShipMethod> {
 public:
  ShipMethods();
};

class PaymentMethods final : public FlatNameCollection<PaymentMethod> {
 public:
  PaymentMethods();
};

}  // namespace tessaron
