// Employee: a person on the company's payroll, with the person's names and ways to reach
// them, an address, personal data (SSN, gender, dates) and the payroll data: pay period,
// class, the earnings (pay items with rates) and the sick and vacation hours.
//
// Its setters follow the version rule: a field that the session's modify request carries
// may be changed at any time and turns a stored employee Dirty; a field it cannot carry
// may be written only until the employee was first committed, and raises 0x800403EA
// afterwards. The modify carries the names, contact data, account number and notes at
// any version; the employee type, the dates and the payroll data from qbXML 2.0; IsActive
// from 3.0; the SSN and the gender never.
//
// The address, the earnings and the accrued hours keep states of their own: changing them
// leaves the employee Clean, and the commit still sends a modify for them (see Employees).
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/lists/employee_records.h"
#include "tessaron/lists/entity_object.h"

namespace tessaron {

class Employee final : public AddressedEntity {
 public:
  Employee();

  void SetName(const std::string& value) { StoreFromVersion(name_, value, 1); }
  // From qbXML 3.0 a stored employee can be made inactive; below, only a New one.
  void SetIsActive(bool value) { StoreFromVersion(isActive_, value, 3); }
  const std::string& PrintAs() const { return printAs_; }
  void SetPrintAs(const std::string& value) { StoreFromVersion(printAs_, value, 1); }
  const std::string& Mobile() const { return mobile_; }
  void SetMobile(const std::string& value) { StoreFromVersion(mobile_, value, 1); }
  const std::string& Pager() const { return pager_; }
  void SetPager(const std::string& value) { StoreFromVersion(pager_, value, 1); }
  // Only a New employee takes the SSN and the gender: no modify carries them.
  const std::string& SSN() const { return ssn_; }
  void SetSSN(const std::string& value) { StoreFromVersion(ssn_, value, kNever); }
  // A row of "GenderType" (1 male, 2 female); 0 for none.
  int32_t Gender() const { return gender_; }
  void SetGender(int32_t value);
  // A row of "EmployeeType" (1 regular, 2 officer, 3 statutory, 4 owner); 0 for none.
  int32_t EmployeeType() const { return employeeType_; }
  void SetEmployeeType(int32_t value);
  Date HiredDate() const { return hiredDate_; }
  void SetHiredDate(Date value) { StoreFromVersion(hiredDate_, value, 2); }
  Date ReleasedDate() const { return releasedDate_; }
  void SetReleasedDate(Date value) { StoreFromVersion(releasedDate_, value, 2); }
  Date BirthDate() const { return birthDate_; }
  void SetBirthDate(Date value) { StoreFromVersion(birthDate_, value, 2); }
  const std::string& Notes() const { return notes_; }
  void SetNotes(const std::string& value) { StoreFromVersion(notes_, value, 1); }

  // ---- Payroll (sent from qbXML 2.0) -----------------------------------------------------
  // A row of "Pay Periods" (1 daily ... 7 yearly); 0 for none.
  int32_t PayPeriod() const { return payPeriod_; }
  void SetPayPeriod(int32_t value);
  // The class the paychecks go to, by full name.
  const std::string& PayrollClass() const { return payrollClass_->FullName(); }
  void SetPayrollClass(const std::string& value);
  // The pay items with their rates, in the order QuickBooks keeps them. A modify sends
  // them all, so QuickBooks replaces its list with this one.
  const std::vector<std::shared_ptr<empEarningsType>>& EarningsTypes() const { return earnings_; }
  // Adds a pay item (under the version rule, as a field would be).
  std::shared_ptr<empEarningsType> AddEarningsType(const std::string& PayrollItemWage, Currency Rate,
                                                   bool IsPercent = false);
  std::shared_ptr<empAccruedTime> SickHours() { return sickHours_; }
  std::shared_ptr<empAccruedTime> VacationHours() { return vacationHours_; }

  // A new employee with all fields and the state of this one.
  std::shared_ptr<Employee> Clone();
  // Takes every field of From without the field rule, the state and UserData included.
  void Copy(Employee& From);

  // Library-internal, through detail::ListObjectAccess.
 protected:
  // A Clean employee is still sent when its address, an earnings record or the accrued
  // hours changed. Raises for a sub-record in no known state.
  bool ModifyWhileClean() override;

 protected:
  void AfterFromDom() override;
  // Back to New with the address and every payroll sub-record (an Add, a file load).
  void ResetToNew() override;
  // Contact fields follow the version rule too.
  void GuardContactField() override { CheckFieldFromVersion(1); }

 private:
  static constexpr int kNever = 999;  // no modify carries the field
  static constexpr char kAddressTag[] = "EmployeeAddress";
  static constexpr char kAddressLabel[] = "Employee Address";
  static const ListClassInfo& Info();
  static void ReadPayroll(ListObject& o, const XmlNode& node);
  static void WritePayroll(ListObject& o, xmlBldr& b, WriteMode mode);
  bool HasPayroll() const;

  // Employees have no company name and no contacts in QuickBooks.
  using EntityObject::AltContact;
  using EntityObject::CompanyName;
  using EntityObject::Contact;
  using EntityObject::SetAltContact;
  using EntityObject::SetCompanyName;
  using EntityObject::SetContact;

  std::string printAs_;
  std::string pagerPin_;  // kept and sent back; no property
  std::string ssn_;
  int32_t employeeType_ = 0;
  int32_t gender_ = 0;
  Date hiredDate_ = 0;
  Date releasedDate_ = 0;
  Date birthDate_ = 0;
  std::string notes_;
  int32_t payPeriod_ = 0;
  std::shared_ptr<qcListObjectRef> payrollClass_;
  std::vector<std::shared_ptr<empEarningsType>> earnings_;
  std::string useTimeData_;  // kept and sent back as QuickBooks names it
  std::shared_ptr<empAccruedTime> sickHours_;
  std::shared_ptr<empAccruedTime> vacationHours_;
};

}  // namespace tessaron
