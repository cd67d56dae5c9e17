#include "tessaron/lists/employee_records.h"

#include <charconv>

#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

// ---- qcTimeInterval ----------------------------------------------------------------------

std::string qcTimeInterval::ToText() const {
  return "PT" + std::to_string(hours_) + "H" + std::to_string(minutes_) + "M";
}

qcTimeInterval qcTimeInterval::FromText(std::string_view text) {
  qcTimeInterval t;
  const size_t start = text.find("PT");
  if (start == std::string_view::npos) return t;
  const char* p = text.data() + start + 2;
  const char* end = text.data() + text.size();
  while (p < end) {
    int32_t n = 0;
    auto [next, ec] = std::from_chars(p, end, n);
    if (ec != std::errc() || next == end) return t;
    if (*next == 'H') t.hours_ = n;
    else if (*next == 'M') t.minutes_ = n;
    p = next + 1;
  }
  return t;
}

// ---- empAccruedTime ----------------------------------------------------------------------

void empAccruedTime::SetAccrualPeriod(int32_t value) {
  if (value != 0) EnumCodeToXML(value, qoePayrollAccrualPeriod);  // raises for a code the table lacks
  Touch();
  accrualPeriod_ = value;
}

bool empAccruedTime::IsEmpty() const {
  return hoursAvailable_.IsZero() && accrualPeriod_ == 0 && hoursAccrued_.IsZero() && maximumHours_.IsZero() &&
         !resettingSet_ && accrualStartDate_ == 0;
}

void empAccruedTime::FromDom(const XmlNode& node) {
  XmlNodeList children = node.childNodes();
  for (long i = 0; i < children.length(); ++i) {
    XmlNode child = children.item(i);
    const std::string_view tag = child.baseName();
    const std::string text = child.text();
    if (tag == "HoursAvailable") hoursAvailable_ = qcTimeInterval::FromText(text);
    else if (tag == "AccrualPeriod") accrualPeriod_ = EnumXMLToCode(text, qoePayrollAccrualPeriod);
    else if (tag == "HoursAccrued") hoursAccrued_ = qcTimeInterval::FromText(text);
    else if (tag == "MaximumHours") maximumHours_ = qcTimeInterval::FromText(text);
    else if (tag == "IsResettingHoursEachNewYear") {
      resetting_ = BooleanFromText(text);
      resettingSet_ = true;
    } else if (tag == "HoursUsed") hoursUsed_ = qcTimeInterval::FromText(text);
    else if (tag == "AccrualStartDate") accrualStartDate_ = DateFromText(text);
    else NoteUnknownElement(tag, "Employee");
  }
  state_ = qoObjectStateClean;
}

void empAccruedTime::Write(xmlBldr& b, std::string_view tag) const {
  b.OpenAggregateOnly(tag);
  if (!hoursAvailable_.IsZero()) b.CreateElement("HoursAvailable", hoursAvailable_.ToText());
  if (accrualPeriod_ != 0) b.CreateElement("AccrualPeriod", EnumCodeToXML(accrualPeriod_, qoePayrollAccrualPeriod));
  if (!hoursAccrued_.IsZero()) b.CreateElement("HoursAccrued", hoursAccrued_.ToText());
  if (!maximumHours_.IsZero()) b.CreateElement("MaximumHours", maximumHours_.ToText());
  if (resettingSet_) b.CreateElement("IsResettingHoursEachNewYear", BooleanToText(resetting_));
  if (accrualStartDate_ != 0) b.CreateElement("AccrualStartDate", DateToText(accrualStartDate_));
  b.EndAggregate(tag);
}

void empAccruedTime::CopyFrom(const empAccruedTime& from) {
  const qoEnumObjectState state = state_;
  *this = from;
  state_ = state;
  Touch();
}

// ---- empEarningsType ---------------------------------------------------------------------

void empEarningsType::FromDom(const XmlNode& node) {
  XmlNodeList children = node.childNodes();
  for (long i = 0; i < children.length(); ++i) {
    XmlNode child = children.item(i);
    const std::string_view tag = child.baseName();
    if (tag == "PayrollItemWageRef") {
      XmlNodeList ref = child.childNodes();
      for (long r = 0; r < ref.length(); ++r)
        if (ref.item(r).baseName() == "FullName") payrollItemWage_ = ref.item(r).text();
    } else if (tag == "Rate") {
      rate_ = Currency::Parse(child.text());
      isPercent_ = false;
    } else if (tag == "RatePercent") {
      std::string text = child.text();
      if (!text.empty() && text.back() == '%') text.pop_back();
      rate_ = Currency::Parse(text);
      isPercent_ = true;
    } else {
      NoteUnknownElement(tag, "Employee");
    }
  }
  state_ = qoObjectStateClean;
}

void empEarningsType::Write(xmlBldr& b) const {
  b.OpenAggregateOnly("Earnings");
  b.OpenAggregateOnly("PayrollItemWageRef");
  b.CreateElement("FullName", payrollItemWage_);
  b.EndAggregate("PayrollItemWageRef");
  b.CreateElement(isPercent_ ? "RatePercent" : "Rate", PercentRateToText(rate_));
  b.EndAggregate("Earnings");
}

}  // namespace tessaron
