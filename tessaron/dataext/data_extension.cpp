#include "tessaron/dataext/data_extension.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/error.h"

namespace tessaron {

namespace {

[[noreturn]] void UnknownType(qbEnumDataExtDataType type) {
  RaiseInternal("DataExt", "Unknown Data Type: " + std::to_string(static_cast<int32_t>(type)));
}

// Text of a rate: "7.5%" is read as 7.5.
double RateFromText(std::string text) {
  if (!text.empty() && text.back() == '%') text.pop_back();
  return text.empty() ? 0.0 : Variant(text).ToDouble();
}

}  // namespace

std::shared_ptr<qcErrors> DataExtension::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

Variant DataExtension::Convert(const std::string& text) const {
  switch (dataType_) {
    case qbDataExtTypeINTTYPE: return text.empty() ? Variant(int64_t{0}) : Variant(Variant(text).ToInteger());
    case qbDataExtTypeAMTTYPE:
    case qbDataExtTypePRICETYPE:
    case qbDataExtTypeQUANTYPE: {
      std::string copy = text;
      return Variant(CurrencyFromText(copy));
    }
    case qbDataExtTypePERCENTTYPE: return Variant::FromDouble(static_cast<float>(RateFromText(text)));
    case qbDataExtTypeDATETIMETYPE: return Variant::FromDate(DateFromText(text));
    case qbDataExtTypeSTR255TYPE:
    case qbDataExtTypeSTR1024TYPE: return Variant(text);
  }
  UnknownType(dataType_);
}

Variant DataExtension::Convert(const Variant& value) const {
  if (value.IsString()) return Convert(value.ToString());
  if (value.IsEmpty() || value.IsNull()) return Convert(std::string());
  switch (dataType_) {
    case qbDataExtTypeINTTYPE: return Variant(value.ToInteger());
    case qbDataExtTypeAMTTYPE:
    case qbDataExtTypePRICETYPE:
    case qbDataExtTypeQUANTYPE: return Variant(value.ToCurrency());
    case qbDataExtTypePERCENTTYPE: return Variant::FromDouble(static_cast<float>(value.ToDouble()));
    case qbDataExtTypeDATETIMETYPE: return Variant::FromDate(value.ToDate());
    case qbDataExtTypeSTR255TYPE:
    case qbDataExtTypeSTR1024TYPE: return Variant(value.ToString());
  }
  UnknownType(dataType_);
}

void DataExtension::SetValue(const Variant& value) {
  Variant converted = Convert(value);
  MarkModified(true);
  value_ = std::move(converted);
}

void DataExtension::SetValueAsString(const std::string& text) { value_ = Convert(text); }

std::string DataExtension::ValueText() const {
  switch (dataType_) {
    case qbDataExtTypeINTTYPE: return std::to_string(value_.IsEmpty() ? 0 : value_.ToInteger());
    case qbDataExtTypeAMTTYPE: return AmountToText(value_.IsEmpty() ? Currency() : value_.ToCurrency());
    case qbDataExtTypePRICETYPE:
    case qbDataExtTypePERCENTTYPE:
      return PercentRateToText(value_.IsEmpty() ? Currency() : Currency::FromDouble(value_.ToDouble()));
    case qbDataExtTypeQUANTYPE: return QuantityToText(value_.IsEmpty() ? Currency() : value_.ToCurrency());
    case qbDataExtTypeDATETIMETYPE: return DateToText(value_.IsEmpty() ? Date(0) : value_.ToDate());
    case qbDataExtTypeSTR255TYPE:
    case qbDataExtTypeSTR1024TYPE: return value_.ToString();
  }
  UnknownType(dataType_);
}

bool DataExtension::IsEmptyValue() const {
  if (value_.IsEmpty() || value_.IsNull()) return true;
  switch (dataType_) {
    case qbDataExtTypeSTR255TYPE:
    case qbDataExtTypeSTR1024TYPE: return value_.ToString().empty();
    case qbDataExtTypeDATETIMETYPE: return value_.ToDate() == 0;
    default: return value_.ToDouble() == 0;
  }
}

void DataExtension::MarkModified(bool checkAllowed) {
  if (state_ == qoObjectStateNew) return;
  // Before qbXML 3.0 a stored value could only be added, never changed.
  if (checkAllowed && State().QBXMLVersionNumber < Currency(3))
    throw Error(err::kFieldCannotBeModified, "DataExt", err::kFieldCannotBeModifiedText);
  state_ = qoObjectStateDirty;
}

void DataExtension::FromDom(const XmlNode& obj) {
  for (const XmlNode& child : obj.childNodes()) {
    const std::string_view tag = child.baseName();
    if (tag == "OwnerID") ownerId_ = child.text();
    else if (tag == "DataExtName") name_ = child.text();
    else if (tag == "DataExtValue") {
      SetValueAsString(child.text());
      oldValue_ = value_;
    } else if (tag != "DataExtType" && tag != "ListDataExtType" && tag != "ListObjRef" && tag != "TxnDataExtType" &&
               tag != "TxnID" && tag != "TxnLineID" && tag != "OtherDataExtType") {
      NoteUnknownField("Unknown Field: " + std::string(tag), "DataExtRet");
    }
  }
  state_ = qoObjectStateClean;
}

}  // namespace tessaron
