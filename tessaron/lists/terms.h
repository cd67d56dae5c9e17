// Payment terms: StandardTerm counts days from the transaction date, DateDrivenTerm names
// days of the month. Documents compute due and discount dates through qcTerm without
// knowing the kind. Terms holds both kinds in one collection; QuickBooks offers no modify.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/framework/list_collection.h"
#include "tessaron/framework/list_object.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"

namespace tessaron {

class qcTerm {
 public:
  virtual ~qcTerm() = default;
  virtual bool IsDateDriven() const = 0;
  virtual Date CalculateDueDate(Date PostDate) const = 0;
  // The null date when the term grants no discount.
  virtual Date CalculateDiscountDate(Date PostDate) const = 0;
  virtual Currency DiscountPercent() const = 0;
};

class StandardTerm final : public ListObject, public qcTerm {
 public:
  StandardTerm();

  int16_t DueDays() const { return dueDays_; }
  int16_t DiscountDays() const { return discountDays_; }

  bool IsDateDriven() const override { return false; }
  // PostDate plus DueDays.
  Date CalculateDueDate(Date PostDate) const override;
  // PostDate plus DiscountDays; the null date when DiscountDays is 0.
  Date CalculateDiscountDate(Date PostDate) const override;
  Currency DiscountPercent() const override { return discountPct_; }

 private:
  friend class detail::ListObjectAccess;
  void SetTermsInternal(int16_t dueDays, int16_t discountDays, Currency discountPercent);
  static const ListClassInfo& Info();

  int16_t dueDays_ = 0;
  int16_t discountDays_ = 0;
  Currency discountPct_;
};

class DateDrivenTerm final : public ListObject, public qcTerm {
 public:
  DateDrivenTerm();

  int16_t DayOfMonthDue() const { return dayOfMonthDue_; }
  int16_t DueNextMonthDays() const { return dueNextMonthDays_; }
  int16_t DiscountDayOfMonth() const { return discountDayOfMonth_; }

  bool IsDateDriven() const override { return true; }
  // DayOfMonthDue of the posting month, or of the next month when the posting date lies
  // fewer than DueNextMonthDays days after that day (December runs into January).
  Date CalculateDueDate(Date PostDate) const override;
  // DiscountDayOfMonth of the month after the posting month. The system compares the
  // posting date with the day number taken as a date of 1900, so it always moves on one
  // month; that is kept.
  Date CalculateDiscountDate(Date PostDate) const override;
  Currency DiscountPercent() const override { return discountPct_; }

 private:
  friend class detail::ListObjectAccess;
  void SetTermsInternal(int16_t dayOfMonthDue, int16_t dueNextMonthDays, int16_t discountDayOfMonth,
                        Currency discountPercent);
  static const ListClassInfo& Info();

  int16_t dayOfMonthDue_ = 0;
  int16_t dueNextMonthDays_ = 0;
  int16_t discountDayOfMonth_ = 0;
  Currency discountPct_;
};

// Items are StandardTerm or DateDrivenTerm handles as ListObject; ask for qcTerm with
// std::dynamic_pointer_cast.
class Terms final : public ListCollection<ListObject> {
 public:
  Terms();

  // Master only; source "Terms" when refused.
  std::shared_ptr<StandardTerm> AddStandard(const std::string& Name = "", bool IsActive = true, int16_t DueDays = 0,
                                            int16_t DiscountDays = 0, Currency DiscountPercent = Currency());
  std::shared_ptr<DateDrivenTerm> AddDateDriven(const std::string& Name = "", int16_t DayOfMonthDue = 0,
                                                bool IsActive = true, int16_t DueNextMonthDays = 0,
                                                int16_t DiscountDayOfMonth = 0,
                                                Currency DiscountPercent = Currency());
  // TermType: 1 standard, 2 date driven; any other raises 0x8004076C before anything is sent.
  int32_t Delete(const std::string& ListID, int32_t TermType, bool bRemove = true);

  // TermsType (qbEnumTermsType) chooses the request: 0 both kinds, 1 standard, 2 date
  // driven; any other raises "Bad type in GetByType".
  int32_t GetAll(int32_t TermsType = qbTerms, int32_t MaxReturned = 0, const std::string& sMDBPath = "");
  int32_t GetActive(int32_t TermsType = qbTerms, int32_t MaxReturned = 0, const std::string& sMDBPath = "");

 protected:
  std::shared_ptr<ListObject> NewObject(const XmlNode& ret) override;
};

}  // namespace tessaron
