#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/lists/payroll_item.h"

#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_enum.h"
#include "tessaron/foundation/qc_enum_value.h"
#include "tessaron/platform/text.h"

namespace tessaron {

namespace {

// The code of a kind by its qbXML name; 0 for a name the table lacks, which QuickBooks may
// well send ("HourlyOvertime", "CompanyContribution").
int32_t CodeOrZero(const std::string& xml, qoEnumerationType table) {
  if (xml.empty()) return 0;
  const QCEnum* t = QBEnumerations().Find(table);
  const qcEnumValue* row = t ? t->FindByXML(xml) : nullptr;
  return row ? row->Code() : 0;
}

}  // namespace

// ---- PayrollItemWage -----------------------------------------------------------------------

const ListClassInfo& PayrollItemWage::Info() {
  using C = ListObject::Common;
  static const ListClassInfo info = [] {
    ListClassInfo i = ClassOf("PayrollItemWage", qoObjectTypePayrollItemWage, qoListPayrollItemWages,
                              ModifyRule::Raise, "InsertModRq not allowed");
    i.fields = C::Rows({
        C::Name(Send::Always),
        C::IsActive(),
        field::Text("WageType", &PayrollItemWage::wageType_).Add(Send::Always),
        field::Ref("ExpenseAccountRef", &PayrollItemWage::expenseAccount_, qoListAccounts)
            .Add(Send::IfSet)
            .As("ExpenseAccount"),
    });
    i.checks = {C::NameCheck(31, err::kNameTooLong, err::kNameTooLongText)};
    return i;
  }();
  return info;
}

PayrollItemWage::PayrollItemWage()
    : ListObject(Info()), expenseAccount_(std::make_shared<qcListObjectRef>(qoListAccounts)) {}

int32_t PayrollItemWage::WageType() const { return CodeOrZero(wageType_, qoeWageType); }

void PayrollItemWage::SetWageType(int32_t value) {
  const std::string& xml = EnumCodeToXML(value, qoeWageType);  // raises for a code the table lacks
  Store(wageType_, xml, true);
}

void PayrollItemWage::SetExpenseAccount(const std::string& value) {
  CheckField(true);
  detail::ListObjectAccess::SetFullName(*expenseAccount_, value);
}

// ---- PayrollItemNonWage --------------------------------------------------------------------

const ListClassInfo& PayrollItemNonWage::Info() {
  using C = ListObject::Common;
  static const ListClassInfo info = [] {
    ListClassInfo i = ClassOf("PayrollItemNonWage", qoObjectTypePayrollItemNonWage, qoListPayrollItemNonWages);
    i.fields = C::Rows({
        C::Name(Send::Never),
        C::IsActive(Send::Never),
        field::Text("NonWageType", &PayrollItemNonWage::nonWageType_),
        field::Ref("ExpenseAccountRef", &PayrollItemNonWage::expenseAccount_, qoListAccounts).As("ExpenseAccount"),
        field::Ref("LiabilityAccountRef", &PayrollItemNonWage::liabilityAccount_, qoListAccounts)
            .As("LiabilityAccount"),
    });
    return i;
  }();
  return info;
}

PayrollItemNonWage::PayrollItemNonWage()
    : ListObject(Info()),
      expenseAccount_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      liabilityAccount_(std::make_shared<qcListObjectRef>(qoListAccounts)) {}

int32_t PayrollItemNonWage::NonWageType() const { return CodeOrZero(nonWageType_, qoePayrollItemNonWage); }

// ---- Collections ---------------------------------------------------------------------------

PayrollItemWages::PayrollItemWages()
    // A Dirty item reaches the object's modify writer, which raises.
    : ListCollection<PayrollItemWage>(CollectionOf("PayrollItemWage", qoListPayrollItemWages, "PayrollItemWageQueryRq",
                                                   qoObjectTypePayrollItemWage, DirtyStep::Modify)) {}

std::shared_ptr<PayrollItemWage> PayrollItemWages::Add(const std::string& Name, int32_t WageType,
                                                       const std::string& ExpenseAccount, bool IsActive) {
  return AddNew([&](PayrollItemWage& w) {
    detail::ListObjectAccess::SetNameInternal(w, Name);
    detail::ListObjectAccess::SetIsActiveInternal(w, IsActive);
    if (WageType != 0) w.SetWageType(WageType);
    w.SetExpenseAccount(ExpenseAccount);
  });
}

PayrollItemNonWages::PayrollItemNonWages()
    : ListCollection<PayrollItemNonWage>(CollectionOf("PayrollItemNonWage", qoListPayrollItemNonWages,
                                                      "PayrollItemNonWageQueryRq", qoObjectTypePayrollItemNonWage)) {}

}  // namespace tessaron
