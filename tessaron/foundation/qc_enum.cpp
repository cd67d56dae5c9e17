#include "tessaron/foundation/qc_enum.h"

#include "tessaron/foundation/values.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/text.h"

namespace tessaron {
namespace {

// A text key ignores blanks, so it needs no copy when it has none.
template <class F>
auto WithKey(std::string_view key, F&& f) {
  if (key.find(' ') == std::string_view::npos) return f(key);
  std::string stripped = RemoveSpaces(key);
  return f(std::string_view(stripped));
}

}  // namespace

void QCEnum::AddObject(std::shared_ptr<qcEnumValue> o) {
  if (!o) RaisePlatform(platform_error::kObjectNotSet);
  std::string key = o->CollectionKey();
  col_.Add(std::move(o), key);
}

std::shared_ptr<qcEnumValue> QCEnum::Add(int16_t iCode, const std::string& sDesc, const std::string& XMLTag) {
  auto v = std::make_shared<qcEnumValue>();
  v->SetCode(iCode);
  v->SetDescription(sDesc);
  v->SetXMLTag(XMLTag);
  AddObject(v);
  return v;
}

bool QCEnum::ItemExists(const Variant& vColKey) const {
  try {
    Item(vColKey);
    return true;
  } catch (const Error&) {
    return false;
  }
}

std::shared_ptr<qcEnumValue> QCEnum::Item(const Variant& vntIndexKey) const {
  if (vntIndexKey.IsString())
    return WithKey(vntIndexKey.ToString(), [&](std::string_view k) { return col_.Item(k); });
  return col_.Item(static_cast<long>(vntIndexKey.ToInteger()));
}

std::shared_ptr<qcEnumValue> QCEnum::ItemByCode(int16_t iCode) const {
  const qcEnumValue* row = FindByCode(iCode);
  if (!row) RaiseInternal("TypeCodes", "Unknown Code");
  for (const auto& v : col_)
    if (v.get() == row) return v;
  return nullptr;  // not reached: the row came from this table
}

std::vector<std::shared_ptr<qcEnumValue>> QCEnum::NewEnum() const { return col_.Values(); }

const qcEnumValue* QCEnum::FindByCode(int32_t code) const noexcept {
  for (const auto& v : col_)
    if (v->Code() == code) return v.get();
  return nullptr;
}

const qcEnumValue* QCEnum::FindByXML(std::string_view xml) const noexcept {
  for (const auto& v : col_)
    if (v->XMLText() == xml) return v.get();
  return nullptr;
}

const qcEnumValue* QCEnum::FindByKey(std::string_view key) const {
  return WithKey(key, [&](std::string_view k) -> const qcEnumValue* {
    long at = col_.PositionOf(k);
    return at == 0 ? nullptr : col_.Item(at).get();
  });
}

}  // namespace tessaron
