#include "tessaron/lists/terms.h"

#include <cmath>

#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/values.h"
#include "tessaron/lists/name_list_tables.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {

namespace {

ListClassInfo TermClass(const char* name, qoEnumListObjectType objectType) {
  ListClassInfo i = ClassOf(name, objectType, qoListTerms);
  // The limit tested is 41 although the message says 31; both are the system's.
  i.checks = {ListObject::Common::NameCheck(41, err::kNameTooLong, err::kNameTooLongText)};
  return i;
}

// Whole days from `from` to `to`, counting the midnights between them.
long DaysBetween(Date from, Date to) { return static_cast<long>(std::floor(to) - std::floor(from)); }

// The day of the posting month, or of the next month when `nextMonth`.
Date DayOfMonth(Date postDate, int day, bool nextMonth) {
  DateParts p = SplitDate(postDate);
  int year = p.year, month = p.month;
  if (nextMonth && ++month > 12) {
    month = 1;
    ++year;
  }
  return DateSerial(year, month, day);
}

const char* QueryName(int32_t termsType) {
  switch (termsType) {
    case qbTerms: return "TermsQueryRq";
    case qbStandardTerms: return "StandardTermsQueryRq";
    case qbDateDrivenTerms: return "DateDrivenTermsQueryRq";
    default: RaiseInternal("Terms", "Bad type in GetByType");
  }
}

}  // namespace

// ---- StandardTerm ------------------------------------------------------------------------

const ListClassInfo& StandardTerm::Info() {
  static const ListClassInfo info = [] {
    using C = ListObject::Common;
    ListClassInfo i = TermClass("StandardTerms", qoObjectTypeStandardTerms);
    i.fields = C::Rows({C::Name(Send::Always), C::IsActive(), field::Int16("StdDueDays", &StandardTerm::dueDays_).Add(Send::IfPositive).As("DueDays"),
                field::Int16("StdDiscountDays", &StandardTerm::discountDays_).Add(Send::IfPositive).As("DiscountDays"),
                field::Percent("DiscountPct", &StandardTerm::discountPct_).Add(Send::IfPositive).As("DiscountPercent")});
    return i;
  }();
  return info;
}

StandardTerm::StandardTerm() : ListObject(Info()) {}

void StandardTerm::SetTermsInternal(int16_t dueDays, int16_t discountDays, Currency discountPercent) {
  dueDays_ = dueDays;
  discountDays_ = discountDays;
  discountPct_ = discountPercent;
}

Date StandardTerm::CalculateDueDate(Date PostDate) const { return PostDate + dueDays_; }

Date StandardTerm::CalculateDiscountDate(Date PostDate) const {
  return discountDays_ != 0 ? PostDate + discountDays_ : kNullDate;
}

// ---- DateDrivenTerm ----------------------------------------------------------------------

const ListClassInfo& DateDrivenTerm::Info() {
  static const ListClassInfo info = [] {
    using C = ListObject::Common;
    ListClassInfo i = TermClass("DateDrivenTerms", qoObjectTypeDateDrivenTerms);
    i.fields = C::Rows({C::Name(Send::Always), C::IsActive(), field::Int16("DayOfMonthDue", &DateDrivenTerm::dayOfMonthDue_).Add(Send::IfPositive),
                field::Int16("DueNextMonthDays", &DateDrivenTerm::dueNextMonthDays_).Add(Send::IfPositive),
                field::Int16("DiscountDayOfMonth", &DateDrivenTerm::discountDayOfMonth_).Add(Send::IfPositive),
                field::Percent("DiscountPct", &DateDrivenTerm::discountPct_).Add(Send::IfPositive).As("DiscountPercent")});
    return i;
  }();
  return info;
}

DateDrivenTerm::DateDrivenTerm() : ListObject(Info()) {}

void DateDrivenTerm::SetTermsInternal(int16_t dayOfMonthDue, int16_t dueNextMonthDays, int16_t discountDayOfMonth,
                                      Currency discountPercent) {
  dayOfMonthDue_ = dayOfMonthDue;
  dueNextMonthDays_ = dueNextMonthDays;
  discountDayOfMonth_ = discountDayOfMonth;
  discountPct_ = discountPercent;
}

Date DateDrivenTerm::CalculateDueDate(Date PostDate) const {
  const long sinceDueDay = DaysBetween(DayOfMonth(PostDate, dayOfMonthDue_, false), PostDate);
  return DayOfMonth(PostDate, dayOfMonthDue_, dueNextMonthDays_ > sinceDueDay);
}

Date DateDrivenTerm::CalculateDiscountDate(Date PostDate) const {
  (void)DayOfMonth(PostDate, dayOfMonthDue_, false);  // made and dropped, as the system does
  const long sinceDayNumber = DaysBetween(static_cast<Date>(discountDayOfMonth_), PostDate);
  return DayOfMonth(PostDate, discountDayOfMonth_, sinceDayNumber > 0);
}

// ---- Terms -------------------------------------------------------------------------------

Terms::Terms()
    : ListCollection<ListObject>(
          name_lists::CollectionInfo("Terms", qoListTerms, "TermsQueryRq", qoObjectTypeTerm, "Terms")) {}

std::shared_ptr<StandardTerm> Terms::AddStandard(const std::string& Name, bool IsActive, int16_t DueDays,
                                                 int16_t DiscountDays, Currency DiscountPercent) {
  return AddNew<StandardTerm>([&](StandardTerm& term) {
    detail::ListObjectAccess::SetNameInternal(term, Name);
    detail::ListObjectAccess::SetIsActiveInternal(term, IsActive);
    detail::ListObjectAccess::SetTermsInternal(term, DueDays, DiscountDays, DiscountPercent);
  });
}

std::shared_ptr<DateDrivenTerm> Terms::AddDateDriven(const std::string& Name, int16_t DayOfMonthDue, bool IsActive,
                                                     int16_t DueNextMonthDays, int16_t DiscountDayOfMonth,
                                                     Currency DiscountPercent) {
  return AddNew<DateDrivenTerm>([&](DateDrivenTerm& term) {
    detail::ListObjectAccess::SetNameInternal(term, Name);
    detail::ListObjectAccess::SetIsActiveInternal(term, IsActive);
    detail::ListObjectAccess::SetTermsInternal(term, DayOfMonthDue, DueNextMonthDays, DiscountDayOfMonth, DiscountPercent);
  });
}

int32_t Terms::Delete(const std::string& ListID, int32_t TermType, bool bRemove) {
  qoEnumListObjectType type;
  if (TermType == qbStandardTerms) type = qoObjectTypeStandardTerms;
  else if (TermType == qbDateDrivenTerms) type = qoObjectTypeDateDrivenTerms;
  else throw Error(err::kInvalidTermsType, "Terms", err::kInvalidTermsTypeText);
  return DeleteRecord(ListID, bRemove, EnumCodeToXML(type, qoeObjectType), "Terms");
}

int32_t Terms::GetAll(int32_t TermsType, int32_t MaxReturned, const std::string& sMDBPath) {
  return StatusQuery(QueryName(TermsType), qbStatusAny, MaxReturned, sMDBPath);
}

int32_t Terms::GetActive(int32_t TermsType, int32_t MaxReturned, const std::string& sMDBPath) {
  return StatusQuery(QueryName(TermsType), qbStatusActive, MaxReturned, sMDBPath);
}

std::shared_ptr<ListObject> Terms::NewObject(const XmlNode& ret) {
  std::string_view tag = ret.baseName();
  if (tag == "StandardTermsRet") return std::make_shared<StandardTerm>();
  if (tag == "DateDrivenTermsRet") return std::make_shared<DateDrivenTerm>();
  RaiseInternal("Terms", "Unknown Term");
}

}  // namespace tessaron
