#include "tessaron/foundation/qc_error.h"

#include "tessaron/platform/error.h"

namespace tessaron {

void qcErrors::Clear() { col_ = Collection<std::shared_ptr<qcError>>(); }

std::shared_ptr<qcError> qcErrors::Add(int32_t Code, const std::string& sField, const std::string& sMsg) {
  auto e = std::make_shared<qcError>();
  e->SetNumber(Code);
  e->SetField(sField);
  e->SetDescription(sMsg);
  col_.Add(e);
  return e;
}

std::shared_ptr<qcError> qcErrors::Item(const Variant& vntIndexKey) const {
  if (vntIndexKey.IsString()) return col_.Item(std::string_view(vntIndexKey.ToString()));
  return col_.Item(static_cast<long>(vntIndexKey.ToInteger()));
}

std::vector<std::shared_ptr<qcError>> qcErrors::NewEnum() const { return col_.Values(); }

int32_t qcErrors::AddObject(std::shared_ptr<qcError> oNew) {
  if (!oNew) RaisePlatform(platform_error::kObjectNotSet);
  std::string key = oNew->CollectionKey();
  col_.Add(std::move(oNew), key);
  return static_cast<int32_t>(col_.Count());
}

void qcErrors::Remove(const Variant& vntIndexKey) { col_.Remove(vntIndexKey); }

}  // namespace tessaron
