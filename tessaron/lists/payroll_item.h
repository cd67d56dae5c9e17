// The payroll items: PayrollItemWage, a kind of pay (hourly, salary, bonus, ...) booked to
// an expense account, and PayrollItemNonWage, an addition, deduction, contribution or tax,
// which QuickBooks only reads out.
//
// QuickBooks has no modify for either: a wage item's fields may be written only until it
// was first committed (0x800403EA afterwards), and committing a changed one raises
// "InsertModRq not allowed". There is no delete for wage items.
//
//   auto wage = TessaronGlobals::PayrollItemWages()->Add("Regular Pay", 1 /* hourly regular */, "Payroll Expenses");
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/framework/list_collection.h"
#include "tessaron/framework/list_object.h"

namespace tessaron {

class PayrollItemWage final : public ListObject {
 public:
  PayrollItemWage();

  void SetIsActive(bool value) { Store(isActive_, value, true); }
  // A row of the "WageType" table (1 hourly regular ... 8 commission); 0 when QuickBooks
  // sent a kind the table does not know (WageTypeText has it).
  int32_t WageType() const;
  void SetWageType(int32_t value);
  // The kind as QuickBooks names it ("HourlyRegular").
  const std::string& WageTypeText() const { return wageType_; }
  // The expense account by full name.
  const std::string& ExpenseAccount() const { return expenseAccount_->FullName(); }
  void SetExpenseAccount(const std::string& value);

 private:
  static const ListClassInfo& Info();

  std::string wageType_;
  std::shared_ptr<qcListObjectRef> expenseAccount_;
};

class PayrollItemNonWage final : public ListObject {
 public:
  PayrollItemNonWage();

  // A row of the "Payroll Items Non-Wage" table; 0 for a kind it does not know.
  int32_t NonWageType() const;
  const std::string& NonWageTypeText() const { return nonWageType_; }
  const std::string& ExpenseAccount() const { return expenseAccount_->FullName(); }
  const std::string& LiabilityAccount() const { return liabilityAccount_->FullName(); }

 private:
  static const ListClassInfo& Info();

  std::string nonWageType_;
  std::shared_ptr<qcListObjectRef> expenseAccount_;
  std::shared_ptr<qcListObjectRef> liabilityAccount_;
};

class PayrollItemWages final : public ListCollection<PayrollItemWage> {
 public:
  PayrollItemWages();

  // A New wage item (WageType: a row of "WageType"). Master only; nothing is sent until Commit.
  std::shared_ptr<PayrollItemWage> Add(const std::string& Name = "", int32_t WageType = 0,
                                       const std::string& ExpenseAccount = "", bool IsActive = true);
  // QuickBooks deletes no payroll items through this library.
  int32_t Delete(const std::string&, bool = true) = delete;
};

class PayrollItemNonWages final : public ListCollection<PayrollItemNonWage> {
 public:
  PayrollItemNonWages();

  // Read only: nothing to add, commit or delete.
  int32_t Commit(const std::shared_ptr<ListObject>&) = delete;
  int32_t Delete(const std::string&, bool = true) = delete;
};

}  // namespace tessaron
