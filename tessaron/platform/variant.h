// A tagged value: empty, null, boolean, integer, double, currency, date, text, object, array.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <typeinfo>
#include <variant>
#include <vector>

#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"

namespace tessaron {

struct Null {
  bool operator==(const Null&) const = default;
};

// A shared handle to any object, with its type kept so that it can be taken back typed.
class ObjectHandle {
 public:
  ObjectHandle() = default;
  template <class T>
  ObjectHandle(std::shared_ptr<T> p)  // NOLINT(google-explicit-constructor)
      : ptr_(std::move(p)), type_(&typeid(T)) {}

  explicit operator bool() const { return ptr_ != nullptr; }
  template <class T>
  std::shared_ptr<T> As() const {
    return ptr_ && *type_ == typeid(T) ? std::static_pointer_cast<T>(ptr_) : nullptr;
  }
  const void* Get() const { return ptr_.get(); }
  bool operator==(const ObjectHandle& o) const { return ptr_ == o.ptr_; }

 private:
  std::shared_ptr<void> ptr_;
  const std::type_info* type_ = &typeid(void);
};

class Variant {
 public:
  enum class Type { Empty, Null, Boolean, Integer, Double, Currency, Date, String, Object, Array };

  Variant() = default;
  Variant(Null) : v_(Null{}) {}                                   // NOLINT
  Variant(bool b) : v_(b) {}                                      // NOLINT
  Variant(int i) : v_(int64_t{i}) {}                              // NOLINT
  Variant(int64_t i) : v_(i) {}                                   // NOLINT
  Variant(tessaron::Currency c) : v_(c) {}                        // NOLINT
  Variant(std::string s) : v_(std::move(s)) {}                    // NOLINT
  Variant(const char* s) : v_(std::string(s)) {}                  // NOLINT
  Variant(ObjectHandle o) : v_(std::move(o)) {}                   // NOLINT
  Variant(std::vector<Variant> a) : v_(std::move(a)) {}           // NOLINT
  static Variant FromDouble(double d) { Variant v; v.v_ = d; return v; }
  static Variant FromDate(tessaron::Date d) { Variant v; v.v_ = DateBox{d}; return v; }
  template <class T>
  static Variant FromObject(std::shared_ptr<T> p) { return Variant(ObjectHandle(std::move(p))); }

  Type GetType() const { return static_cast<Type>(v_.index()); }
  bool IsEmpty() const { return GetType() == Type::Empty; }
  bool IsNull() const { return GetType() == Type::Null; }
  bool IsObject() const { return GetType() == Type::Object; }
  bool IsString() const { return GetType() == Type::String; }
  bool IsNumeric() const;

  // Conversions as the platform makes them: numbers from numeric text, text from numbers;
  // a value that does not convert raises type mismatch (13).
  bool ToBoolean() const;
  int64_t ToInteger() const;
  double ToDouble() const;
  tessaron::Currency ToCurrency() const;
  tessaron::Date ToDate() const;
  std::string ToString() const;  // Empty gives "", booleans "True"/"False"
  const ObjectHandle& ToObject() const;
  const std::vector<Variant>& ToArray() const;

  bool operator==(const Variant& o) const { return v_ == o.v_; }

 private:
  struct DateBox {
    tessaron::Date value;
    bool operator==(const DateBox&) const = default;
  };
  std::variant<std::monostate, Null, bool, int64_t, double, tessaron::Currency, DateBox, std::string,
               ObjectHandle, std::vector<Variant>>
      v_;
};

}  // namespace tessaron
