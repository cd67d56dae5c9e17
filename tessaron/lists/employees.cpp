#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/lists/employees.h"

namespace tessaron {

Employees::Employees()
    : ListCollection<Employee>([] {
        ListCollectionInfo i =
            CollectionOf("Employee", qoListEmployees, "EmployeeQueryRq", qoObjectTypeEmployee, DirtyStep::Modify);
        // GetAll and GetActive send MaxReturned.
        i.handBuiltStatusQuery = true;
        return i;
      }()) {}

std::shared_ptr<Employee> Employees::Add(const std::string& Name, const std::string& FirstName,
                                         const std::string& MiddleName, const std::string& LastName,
                                         const std::string& Salutation, const std::string& PrintAs,
                                         const std::string& Phone, const std::string& AltPhone,
                                         const std::string& Fax, const std::string& Email, const std::string& SSN,
                                         int32_t EmployeeType, int32_t Gender, Date HiredDate, Date ReleasedDate,
                                         Date BirthDate, const std::string& AccountNumber, const std::string& Notes,
                                         bool IsActive, const std::string& AddressLine1,
                                         const std::string& AddressLine2, const std::string& AddressCity,
                                         const std::string& AddressState, const std::string& AddressPostalCode) {
  // The object is New throughout, so no setter's guard can refuse here.
  return AddNew([&](Employee& e) {
    detail::ListObjectAccess::SetNameInternal(e, Name);
    detail::ListObjectAccess::SetIsActiveInternal(e, IsActive);
    e.SetFirstName(FirstName);
    e.SetMiddleName(MiddleName);
    e.SetLastName(LastName);
    e.SetSalutation(Salutation);
    e.SetPrintAs(PrintAs);
    e.SetPhone(Phone);
    e.SetAltPhone(AltPhone);
    e.SetFax(Fax);
    e.SetEmail(Email);
    e.SetSSN(SSN);
    e.SetEmployeeType(EmployeeType);
    e.SetGender(Gender);
    e.SetHiredDate(HiredDate);
    e.SetReleasedDate(ReleasedDate);
    e.SetBirthDate(BirthDate);
    e.SetAccountNumber(AccountNumber);
    e.SetNotes(Notes);
    auto address = e.Address();
    address->SetLine1(AddressLine1);
    address->SetLine2(AddressLine2);
    address->SetCity(AddressCity);
    address->SetState(AddressState);
    address->SetPostalCode(AddressPostalCode);
  });
}

}  // namespace tessaron
