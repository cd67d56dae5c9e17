#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/lists/employee.h"

#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

namespace {

using E = EntityObject::Shared;
const Currency kV2 = Currency(2);
const Currency kV3 = Currency(3);

Employee& Self(ListObject& o) { return static_cast<Employee&>(o); }

}  // namespace

const ListClassInfo& Employee::Info() {
  using C = ListObject::Common;
  static const ListClassInfo info = [] {
    ListClassInfo i = ClassOf("Employee", qoObjectTypeEmployee, qoListEmployees, ModifyRule::Write);
    i.queryBooleans = QueryBooleans::Digits;
    auto text = [](std::string_view tag, std::string Employee::*m) {
      return field::Text(tag, m).Add(Send::IfSet).Mod(Send::Always);
    };
    auto from2 = [](FieldDef f) { return f.Add(Send::IfSet).Mod(Send::IfSet, kV2); };
    // One row per field, in the order of the query form, which the add and modify requests share.
    i.fields = C::Rows({
        C::Name(Send::IfSet, Send::Always),
        C::IsActive().Mod(Send::Always, kV3),
        E::Text("Salutation", &Employee::salutation_),
        E::Text("FirstName", &Employee::firstName_),
        E::Text("MiddleName", &Employee::middleName_),
        E::Text("LastName", &Employee::lastName_),
        E::Text("Suffix", &Employee::suffix_),
        AddressRow(kAddressTag),
        text("PrintAs", &Employee::printAs_),
        E::Text("Phone", &Employee::phone_),
        E::Text("Mobile", &Employee::mobile_),
        E::Text("Pager", &Employee::pager_),
        text("PagerPIN", &Employee::pagerPin_),
        E::Text("AltPhone", &Employee::altPhone_),
        E::Text("Fax", &Employee::fax_),
        field::Text("SSN", &Employee::ssn_).Add(Send::IfSet),
        E::Text("Email", &Employee::email_),
        from2(field::Enum("EmployeeType", &Employee::employeeType_, qoeEmployeeType)),
        field::Enum("Gender", &Employee::gender_, qoeGenderType).Add(Send::IfSet),
        from2(field::DateOnly("HiredDate", &Employee::hiredDate_)),
        from2(field::DateOnly("ReleasedDate", &Employee::releasedDate_)),
        from2(field::DateOnly("BirthDate", &Employee::birthDate_)),
        E::Text("AccountNumber", &Employee::accountNumber_),
        text("Notes", &Employee::notes_),
        field::Custom("EmployeePayrollInfo", &Employee::ReadPayroll, &Employee::WritePayroll)
            .Add(Send::Always, kV2)
            .Mod(Send::Always, kV2),
    });
    i.checks = {C::NameCheck(41, err::kNameTooLong, err::kNameTooLongText)};
    for (const CheckDef& c : E::PersonNameChecks()) i.checks.push_back(c);
    i.checks.push_back(AddressCheck<kAddressLabel>());
    i.checks.push_back(
        check::MaxLength(&Employee::printAs_, "Print As", 41, err::kPrintAsTooLong, err::kPrintAsTooLongText));
    i.checks.push_back(E::PhoneCheck(&Employee::phone_, "Phone"));
    i.checks.push_back(E::PhoneCheck(&Employee::altPhone_, "Alt Phone"));
    i.checks.push_back(E::PhoneCheck(&Employee::fax_, "Fax"));
    i.checks.push_back(E::EmailCheck());
    i.checks.push_back(check::MaxLength(&Employee::ssn_, "SSN", 15, err::kSsnTooLong, err::kSsnTooLongText));
    i.checks.push_back(E::AccountNumberCheck());
    // Each pay item must name a wage item.
    i.checks.push_back(check::Custom([](ListObject& o, qcErrors& e) {
      for (const auto& earning : Self(o).earnings_)
        if (earning->PayrollItemWage().empty())
          e.Add(err::kInvalidPayrollWageItem, "Earnings", err::kInvalidPayrollWageItemText);
    }));
    return i;
  }();
  return info;
}

Employee::Employee()
    : AddressedEntity(Info(), kAddressTag),
      payrollClass_(std::make_shared<qcListObjectRef>(qoListClasses)),
      sickHours_(std::make_shared<empAccruedTime>()),
      vacationHours_(std::make_shared<empAccruedTime>()) {}

void Employee::SetGender(int32_t value) {
  if (value != 0) EnumCodeToXML(value, qoeGenderType);  // raises for a code the table lacks
  StoreFromVersion(gender_, value, kNever);
}

void Employee::SetEmployeeType(int32_t value) {
  if (value != 0) EnumCodeToXML(value, qoeEmployeeType);
  StoreFromVersion(employeeType_, value, kV2);
}

void Employee::SetPayPeriod(int32_t value) {
  if (value != 0) EnumCodeToXML(value, qoePayrollPayFrequency);
  StoreFromVersion(payPeriod_, value, kV2);
}

void Employee::SetPayrollClass(const std::string& value) {
  CheckFieldFromVersion(kV2);
  detail::ListObjectAccess::SetFullName(*payrollClass_, value);
}

std::shared_ptr<empEarningsType> Employee::AddEarningsType(const std::string& PayrollItemWage, Currency Rate,
                                                           bool IsPercent) {
  CheckFieldFromVersion(kV2);
  auto earning = std::make_shared<empEarningsType>();
  earning->SetPayrollItemWage(PayrollItemWage);
  earning->SetRate(Rate);
  earning->SetIsPercent(IsPercent);
  earnings_.push_back(earning);
  return earning;
}

// ---- Payroll data ------------------------------------------------------------------------

bool Employee::HasPayroll() const {
  return payPeriod_ != 0 || !payrollClass_->FullName().empty() || !earnings_.empty() || !useTimeData_.empty() ||
         !sickHours_->IsEmpty() || !vacationHours_->IsEmpty();
}

void Employee::ReadPayroll(ListObject& o, const XmlNode& node) {
  Employee& e = Self(o);
  e.earnings_.clear();
  XmlNodeList children = node.childNodes();
  for (long i = 0; i < children.length(); ++i) {
    XmlNode child = children.item(i);
    const std::string_view tag = child.baseName();
    if (tag == "PayPeriod") e.payPeriod_ = EnumXMLToCode(child.text(), qoePayrollPayFrequency);
    else if (tag == "ClassRef") detail::ListObjectAccess::ReadFromNode(*e.payrollClass_, child);
    else if (tag == "Earnings") {
      auto earning = std::make_shared<empEarningsType>();
      earning->FromDom(child);
      e.earnings_.push_back(earning);
    } else if (tag == "UseTimeDataToCreatePaychecks") e.useTimeData_ = child.text();
    else if (tag == "SickHours") e.sickHours_->FromDom(child);
    else if (tag == "VacationHours") e.vacationHours_->FromDom(child);
    else NoteUnknownElement(tag, "Employee");
  }
}

void Employee::WritePayroll(ListObject& o, xmlBldr& b, WriteMode mode) {
  Employee& e = Self(o);
  if (!e.HasPayroll()) return;
  // The modify names the aggregate differently; its content is the same.
  const char* tag = mode == WriteMode::Modify ? "EmployeePayrollInfoMod" : "EmployeePayrollInfo";
  b.OpenAggregateOnly(tag);
  if (e.payPeriod_ != 0) b.CreateElement("PayPeriod", EnumCodeToXML(e.payPeriod_, qoePayrollPayFrequency));
  if (mode == WriteMode::QueryRs) detail::ListObjectAccess::WriteQueryRs(*e.payrollClass_, b, "ClassRef");
  else WriteListRef(*e.payrollClass_, b, "ClassRef");
  for (const auto& earning : e.earnings_) earning->Write(b);
  if (!e.useTimeData_.empty()) b.CreateElement("UseTimeDataToCreatePaychecks", e.useTimeData_);
  if (!e.sickHours_->IsEmpty()) e.sickHours_->Write(b, "SickHours");
  if (!e.vacationHours_->IsEmpty()) e.vacationHours_->Write(b, "VacationHours");
  b.EndAggregate(tag);
}

// ---- Copies and sub-records ----------------------------------------------------------------

std::shared_ptr<Employee> Employee::Clone() { return CloneOf(*this); }

void Employee::Copy(Employee& From) {
  CopyEntity(From, true);
  From.Address()->CopyAddress(*Address());
  printAs_ = From.printAs_;
  pagerPin_ = From.pagerPin_;
  ssn_ = From.SSN();
  employeeType_ = From.EmployeeType();
  gender_ = From.Gender();
  hiredDate_ = From.HiredDate();
  releasedDate_ = From.ReleasedDate();
  birthDate_ = From.BirthDate();
  notes_ = From.Notes();
  payPeriod_ = From.PayPeriod();
  detail::ListObjectAccess::SetFullName(*payrollClass_, From.PayrollClass());
  earnings_.clear();
  for (const auto& earning : From.EarningsTypes()) earnings_.push_back(std::make_shared<empEarningsType>(*earning));
  useTimeData_ = From.useTimeData_;
  sickHours_->CopyFrom(*From.SickHours());
  vacationHours_->CopyFrom(*From.VacationHours());
  SetObjectState(From.ObjectState());
}

void Employee::AfterFromDom() {
  AddressedEntity::AfterFromDom();
  for (const auto& earning : earnings_) earning->SetObjectState(qoObjectStateClean);
  sickHours_->SetObjectState(qoObjectStateClean);
  vacationHours_->SetObjectState(qoObjectStateClean);
}

void Employee::ResetToNew() {
  AddressedEntity::ResetToNew();
  for (const auto& earning : earnings_) earning->SetObjectState(qoObjectStateNew);
  sickHours_->SetObjectState(qoObjectStateNew);
  vacationHours_->SetObjectState(qoObjectStateNew);
}

bool Employee::ModifyWhileClean() {
  if (AddressedEntity::ModifyWhileClean()) return true;
  for (const auto& earning : earnings_)
    if (SubRecordNeedsModify(earning->ObjectState())) return true;
  return SubRecordNeedsModify(sickHours_->ObjectState()) || SubRecordNeedsModify(vacationHours_->ObjectState());
}

}  // namespace tessaron
