// The sub-records of an employee's payroll data: qcTimeInterval (a number of hours and
// minutes, "PT40H30M" in qbXML), empAccruedTime (the sick or vacation hours: what is
// available, how it accrues) and empEarningsType (one pay item with its rate). Like an
// address they have no identity in QuickBooks and keep an object state of their own:
// changing one turns it Dirty and leaves the employee's state alone (see Employees).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class xmlBldr;

class qcTimeInterval {
 public:
  qcTimeInterval() = default;
  qcTimeInterval(int32_t hours, int32_t minutes) : hours_(hours), minutes_(minutes) {}

  int32_t Hours() const { return hours_; }
  int32_t Minutes() const { return minutes_; }
  bool IsZero() const { return hours_ == 0 && minutes_ == 0; }
  // "PT40H30M"; seconds are not kept.
  std::string ToText() const;
  // Reads "PT40H30M0S" and its shorter forms; text it cannot read gives zero.
  static qcTimeInterval FromText(std::string_view text);

  bool operator==(const qcTimeInterval&) const = default;

 private:
  int32_t hours_ = 0;
  int32_t minutes_ = 0;
};

class empAccruedTime {
 public:
  empAccruedTime() = default;

  qoEnumObjectState ObjectState() const { return state_; }
  qcTimeInterval HoursAvailable() const { return hoursAvailable_; }
  void SetHoursAvailable(qcTimeInterval value) { Touch(); hoursAvailable_ = value; }
  // A row of "Payroll Accrual Period" (1 beginning of year, 2 every paycheck, 3 every
  // hour on a paycheck); 0 for none.
  int32_t AccrualPeriod() const { return accrualPeriod_; }
  void SetAccrualPeriod(int32_t value);
  qcTimeInterval HoursAccrued() const { return hoursAccrued_; }
  void SetHoursAccrued(qcTimeInterval value) { Touch(); hoursAccrued_ = value; }
  qcTimeInterval MaximumHours() const { return maximumHours_; }
  void SetMaximumHours(qcTimeInterval value) { Touch(); maximumHours_ = value; }
  bool IsResettingHoursEachNewYear() const { return resetting_; }
  void SetIsResettingHoursEachNewYear(bool value) { Touch(); resetting_ = value; resettingSet_ = true; }
  // What QuickBooks reports as used; read only.
  qcTimeInterval HoursUsed() const { return hoursUsed_; }
  Date AccrualStartDate() const { return accrualStartDate_; }
  void SetAccrualStartDate(Date value) { Touch(); accrualStartDate_ = value; }
  // True when nothing was set or read.
  bool IsEmpty() const;

  // Library-internal.
  void SetObjectState(qoEnumObjectState state) { state_ = state; }
  void FromDom(const XmlNode& node);
  // Writes the aggregate `tag` ("SickHours") with the fields that hold a value.
  void Write(xmlBldr& b, std::string_view tag) const;
  void CopyFrom(const empAccruedTime& from);

 private:
  void Touch() {
    if (state_ != qoObjectStateNew) state_ = qoObjectStateDirty;
  }

  qcTimeInterval hoursAvailable_;
  int32_t accrualPeriod_ = 0;
  qcTimeInterval hoursAccrued_;
  qcTimeInterval maximumHours_;
  bool resetting_ = false;
  bool resettingSet_ = false;  // sent only once set or read
  qcTimeInterval hoursUsed_;
  Date accrualStartDate_ = 0;
  qoEnumObjectState state_ = qoObjectStateNew;
};

class empEarningsType {
 public:
  empEarningsType() = default;

  qoEnumObjectState ObjectState() const { return state_; }
  // The wage item by full name.
  const std::string& PayrollItemWage() const { return payrollItemWage_; }
  void SetPayrollItemWage(const std::string& value) { Touch(); payrollItemWage_ = value; }
  // The rate: an amount, or with IsPercent a percentage.
  Currency Rate() const { return rate_; }
  void SetRate(Currency value) { Touch(); rate_ = value; }
  bool IsPercent() const { return isPercent_; }
  void SetIsPercent(bool value) { Touch(); isPercent_ = value; }

  // Library-internal.
  void SetObjectState(qoEnumObjectState state) { state_ = state; }
  void FromDom(const XmlNode& node);
  // Writes one Earnings aggregate.
  void Write(xmlBldr& b) const;

 private:
  void Touch() {
    if (state_ != qoObjectStateNew) state_ = qoObjectStateDirty;
  }

  std::string payrollItemWage_;
  Currency rate_;
  bool isPercent_ = false;
  qoEnumObjectState state_ = qoObjectStateNew;
};

}  // namespace tessaron
