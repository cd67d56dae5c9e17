// Employees: the master collection of employees. Beside the contract of every list
// collection, GetAll and GetActive send MaxReturned, and the commit sends a modify for a
// Clean employee whose address, earnings or accrued hours changed.
//
//   auto e = TessaronGlobals::Employees()->Add("Dan Miller", "Dan", "", "Miller");
//   e->AddEarningsType("Regular Pay", Currency(22));
//   TessaronGlobals::Employees()->Commit();
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/dataext/custom_field_names.h"
#include "tessaron/framework/list_collection.h"
#include "tessaron/lists/employee.h"

namespace tessaron {

class Employees final : public ListCollection<Employee> {
 public:
  Employees();

  // A New employee (EmployeeType, Gender: rows of their tables, 0 for none). Master only;
  // nothing is sent until Commit.
  std::shared_ptr<Employee> Add(const std::string& Name = "", const std::string& FirstName = "",
                                const std::string& MiddleName = "", const std::string& LastName = "",
                                const std::string& Salutation = "", const std::string& PrintAs = "",
                                const std::string& Phone = "", const std::string& AltPhone = "",
                                const std::string& Fax = "", const std::string& Email = "",
                                const std::string& SSN = "", int32_t EmployeeType = 0, int32_t Gender = 0,
                                Date HiredDate = 0, Date ReleasedDate = 0, Date BirthDate = 0,
                                const std::string& AccountNumber = "", const std::string& Notes = "",
                                bool IsActive = true, const std::string& AddressLine1 = "",
                                const std::string& AddressLine2 = "", const std::string& AddressCity = "",
                                const std::string& AddressState = "", const std::string& AddressPostalCode = "");

  // Whether queries ask for the custom fields of each record (from qbXML 2.0 on).
  bool IncludeDataExtensions() const { return IncludeDataExt(); }
  void SetIncludeDataExtensions(bool value) { SetIncludeDataExt(value); }
  // The names of the custom fields defined for employees, positions 1 to 7 (index 0 to 6),
  // read once from Company.CustomFields.
  const std::vector<std::string>& CustomFieldNames() { return customFieldNames_.Of(qoObjectTypeEmployee); }

 private:
  tessaron::CustomFieldNames customFieldNames_;
};

}  // namespace tessaron
