#include "tessaron/lists/sales_rep.h"

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/entities.h"
#include "tessaron/lists/name_list_tables.h"
#include "tessaron/platform/text.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {

const ListClassInfo& SalesRep::Info() {
  static const ListClassInfo info = [] {
    using C = ListObject::Common;
    ListClassInfo i = ClassOf("SalesRep", qoObjectTypeSalesRep, qoListSalesRep);
    i.fields = C::Rows(
        {field::Text("Initial", &SalesRep::initial_).Add(Send::IfSet), C::IsActive(),
         field::Ref("SalesRepEntityRef", &SalesRep::entityRef_, qoListSalesRep).Add(Send::IfSet).As("Entity")});
    i.checks = {check::MaxLength(&SalesRep::initial_, "Initial", 5, err::kInitialsTooLong, err::kInitialsTooLongText),
                check::Custom(&SalesRep::CheckEntity)};
    return i;
  }();
  return info;
}

SalesRep::SalesRep() : ListObject(Info()) {}

void SalesRep::SetEntity(const std::string& value) {
  CheckField(true);
  if (!entityRef_) entityRef_ = std::make_shared<qcListObjectRef>(qoListSalesRep);
  detail::ListObjectAccess::SetFullName(*entityRef_, value);
}

void SalesRep::CheckEntity(ListObject& obj, qcErrors& errors) {
  auto& rep = static_cast<SalesRep&>(obj);
  if (!rep.entityRef_) {
    errors.Add(err::kSalesRepNameRequired, "SalesRepEntityRef", err::kSalesRepNameRequiredText);
  } else if (Utf16Length(rep.entityRef_->FullName()) > 31) {
    errors.Add(err::kSalesRepEntityTooLong, "SalesRepEntity:FullName", err::kSalesRepEntityTooLongText);
  }
  Entities entities;
  if (!entities.GetByFullName(rep.Entity())) {
    errors.Add(err::kSalesRepEntityNotFound, "SalesRepEntityRef", err::kSalesRepEntityNotFoundText);
  } else if (entities.EntityKind() == 1) {
    // Kept as the system has it: the kind is never set, so this branch does not fire.
    errors.Add(err::kSalesRepEntityInvalid, "SalesRepEntityRef", err::kSalesRepEntityInvalidText);
  }
}

SalesReps::SalesReps()
    : ListCollection<SalesRep>(name_lists::CollectionInfo("SalesRep", qoListSalesRep, "SalesRepQueryRq",
                                                          qoObjectTypeSalesRep, "SalesRep")) {}

std::shared_ptr<SalesRep> SalesReps::Add(const std::string& Initial, bool IsActive, const std::string& EntityFullName) {
  return AddNew([&](SalesRep& rep) {
    detail::ListObjectAccess::SetInitialInternal(rep, Initial);
    detail::ListObjectAccess::SetIsActiveInternal(rep, IsActive);
    if (!EntityFullName.empty()) rep.SetEntity(EntityFullName);
  });
}

}  // namespace tessaron
