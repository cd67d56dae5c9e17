#include "tessaron/lists/list_catalog.h"

#include <functional>
#include <map>

#include "tessaron/lists/account.h"
#include "tessaron/lists/class.h"
#include "tessaron/lists/customer_message.h"
#include "tessaron/lists/customers.h"
#include "tessaron/lists/employees.h"
#include "tessaron/lists/entities.h"
#include "tessaron/lists/items.h"
#include "tessaron/lists/payroll_item.h"
#include "tessaron/lists/sales_rep.h"
#include "tessaron/lists/sales_tax_code.h"
#include "tessaron/lists/ship_method.h"
#include "tessaron/lists/template.h"
#include "tessaron/lists/terms.h"
#include "tessaron/lists/to_do.h"
#include "tessaron/lists/vendors.h"
#include "tessaron/platform/text.h"

namespace tessaron {

namespace {
using Factory = std::function<std::shared_ptr<ListCollectionBase>()>;

template <class C>
Factory Make() {
  return [] { return std::make_shared<C>(); };
}

const std::map<std::string, Factory>& Catalog() {
  static const std::map<std::string, Factory> catalog = {
      {"Accounts", Make<Accounts>()},
      {"Classes", Make<Classes>()},
      {"CustomerMessages", Make<CustomerMessages>()},
      {"CustomerTypes", Make<CustomerTypes>()},
      {"Customers", Make<Customers>()},
      {"Employees", Make<Employees>()},
      {"Entities", Make<Entities>()},
      {"Items", Make<Items>()},
      {"JobTypes", Make<JobTypes>()},
      {"OtherNames", Make<OtherNames>()},
      {"PaymentMethods", Make<PaymentMethods>()},
      {"PayrollItemNonWages", Make<PayrollItemNonWages>()},
      {"PayrollItemWages", Make<PayrollItemWages>()},
      {"SalesReps", Make<SalesReps>()},
      {"SalesTaxCodes", Make<SalesTaxCodes>()},
      {"ShipMethods", Make<ShipMethods>()},
      {"TaxCodes", Make<TaxCodes>()},
      {"Templates", Make<Templates>()},
      {"Terms", Make<Terms>()},
      {"ToDoList", Make<ToDoList>()},
      {"VendorTypes", Make<VendorTypes>()},
      {"Vendors", Make<Vendors>()},
  };
  return catalog;
}
}  // namespace

std::shared_ptr<ListCollectionBase> CreateListCollection(const std::string& name) {
  for (const auto& [key, factory] : Catalog())
    if (EqualsIgnoreCase(key, name)) return factory();
  return nullptr;
}

std::vector<std::string> ListCollectionNames() {
  std::vector<std::string> names;
  for (const auto& entry : Catalog()) names.push_back(entry.first);
  return names;
}

}  // namespace tessaron
