#include "tessaron/platform/variant.h"

#include <cmath>
#include <cstdio>

#include "tessaron/platform/error.h"

namespace tessaron {

bool Variant::IsNumeric() const {
  switch (GetType()) {
    case Type::Empty: case Type::Boolean: case Type::Integer: case Type::Double: case Type::Currency:
      return true;
    case Type::String: {
      tessaron::Currency c;
      return tessaron::Currency::TryParse(std::get<std::string>(v_), c);
    }
    default:
      return false;
  }
}

bool Variant::ToBoolean() const {
  switch (GetType()) {
    case Type::Empty: return false;
    case Type::Boolean: return std::get<bool>(v_);
    case Type::Integer: return std::get<int64_t>(v_) != 0;
    case Type::Double: return std::get<double>(v_) != 0;
    case Type::Currency: return std::get<tessaron::Currency>(v_).Raw() != 0;
    case Type::Date: return std::get<DateBox>(v_).value != 0;
    case Type::String: {
      const std::string& s = std::get<std::string>(v_);
      if (s.size() == 4 && (s[0] | 0x20) == 't' && (s[1] | 0x20) == 'r' && (s[2] | 0x20) == 'u' && (s[3] | 0x20) == 'e')
        return true;
      if (s.size() == 5 && (s[0] | 0x20) == 'f' && (s[1] | 0x20) == 'a' && (s[2] | 0x20) == 'l' &&
          (s[3] | 0x20) == 's' && (s[4] | 0x20) == 'e')
        return false;
      return tessaron::Currency::Parse(s).Raw() != 0;
    }
    default: RaisePlatform(platform_error::kTypeMismatch);
  }
}

int64_t Variant::ToInteger() const {
  switch (GetType()) {
    case Type::Integer: return std::get<int64_t>(v_);
    case Type::Boolean: return std::get<bool>(v_) ? -1 : 0;
    case Type::Empty: return 0;
    default: {
      double d = ToDouble();
      return static_cast<int64_t>(std::nearbyint(d));
    }
  }
}

double Variant::ToDouble() const {
  switch (GetType()) {
    case Type::Empty: return 0;
    case Type::Boolean: return std::get<bool>(v_) ? -1 : 0;
    case Type::Integer: return static_cast<double>(std::get<int64_t>(v_));
    case Type::Double: return std::get<double>(v_);
    case Type::Currency: return std::get<tessaron::Currency>(v_).ToDouble();
    case Type::Date: return std::get<DateBox>(v_).value;
    case Type::String: return tessaron::Currency::Parse(std::get<std::string>(v_)).ToDouble();
    default: RaisePlatform(platform_error::kTypeMismatch);
  }
}

tessaron::Currency Variant::ToCurrency() const {
  switch (GetType()) {
    case Type::Currency: return std::get<tessaron::Currency>(v_);
    case Type::String: return tessaron::Currency::Parse(std::get<std::string>(v_));
    case Type::Integer: return tessaron::Currency::FromRaw(std::get<int64_t>(v_) * tessaron::Currency::kScale);
    default: return tessaron::Currency::FromDouble(ToDouble());
  }
}

tessaron::Date Variant::ToDate() const {
  switch (GetType()) {
    case Type::Date: return std::get<DateBox>(v_).value;
    case Type::String: return ParseDate(std::get<std::string>(v_));
    default: return ToDouble();
  }
}

std::string Variant::ToString() const {
  switch (GetType()) {
    case Type::Empty: return {};
    case Type::Boolean: return std::get<bool>(v_) ? "True" : "False";
    case Type::Integer: return std::to_string(std::get<int64_t>(v_));
    case Type::Double: {
      char buf[32];
      std::snprintf(buf, sizeof buf, "%.15g", std::get<double>(v_));
      return buf;
    }
    case Type::Currency: return std::get<tessaron::Currency>(v_).ToString();
    case Type::Date: {
      tessaron::Date d = std::get<DateBox>(v_).value;
      return FormatDate(d, d == std::trunc(d) ? "yyyy-mm-dd" : "yyyy-mm-dd hh:nn:ss");
    }
    case Type::String: return std::get<std::string>(v_);
    default: RaisePlatform(platform_error::kTypeMismatch);
  }
}

const ObjectHandle& Variant::ToObject() const {
  if (GetType() != Type::Object) RaisePlatform(platform_error::kTypeMismatch);
  return std::get<ObjectHandle>(v_);
}

const std::vector<Variant>& Variant::ToArray() const {
  if (GetType() != Type::Array) RaisePlatform(platform_error::kTypeMismatch);
  return std::get<std::vector<Variant>>(v_);
}

}  // namespace tessaron
