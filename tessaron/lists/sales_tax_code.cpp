#include "tessaron/lists/sales_tax_code.h"

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/lists/name_list_tables.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {

namespace {
// The checks both tax code classes share: the name of at most 3, the description of at most 31.
template <class Obj>
std::vector<CheckDef> CodeChecks(std::string Obj::*desc) {
  return {ListObject::Common::NameCheck(3, err::kSalesTaxCodeNameTooLong, err::kSalesTaxCodeNameTooLongText),
          check::MaxLength(desc, "Description", 31, err::kSalesTaxCodeDescTooLong, err::kSalesTaxCodeDescTooLongText)};
}

}  // namespace

const ListClassInfo& SalesTaxCode::Info() {
  static const ListClassInfo info = [] {
    using C = ListObject::Common;
    ListClassInfo i = ClassOf("SalesTaxCode", qoObjectTypeSalesTaxCode, qoListSalesTaxCodes);
    i.fields = C::Rows({C::Name(Send::Always), C::IsActive(),
                        field::Boolean("IsTaxable", &SalesTaxCode::isTaxable_).Add(Send::Always),
                        field::Text("Desc", &SalesTaxCode::desc_).Add(Send::IfSet).As("Description")});
    i.checks = CodeChecks(&SalesTaxCode::desc_);
    return i;
  }();
  return info;
}

const ListClassInfo& TaxCode::Info() {
  static const ListClassInfo info = [] {
    using C = ListObject::Common;
    ListClassInfo i = ClassOf("TaxCode", qoObjectTypeTaxCode, static_cast<qoEnumListType>(0));
    i.fields = C::Rows({C::Name(Send::Always), C::IsActive(), field::Text("Desc", &TaxCode::desc_).Add(Send::IfSet)});
    i.checks = CodeChecks(&TaxCode::desc_);
    return i;
  }();
  return info;
}

SalesTaxCode::SalesTaxCode() : ListObject(Info()) {}
TaxCode::TaxCode() : ListObject(Info()) {}

SalesTaxCodes::SalesTaxCodes()
    : ListCollection<SalesTaxCode>(name_lists::CollectionInfo("SalesTaxCode", qoListSalesTaxCodes,
                                                              "SalesTaxCodeQueryRq", qoObjectTypeSalesTaxCode,
                                                              "SalesTaxCode")) {}

std::shared_ptr<SalesTaxCode> SalesTaxCodes::Add(const std::string& Name, const std::string& Description,
                                                 bool IsTaxable, bool IsActive) {
  return AddNew([&](SalesTaxCode& code) {
    detail::ListObjectAccess::SetNameInternal(code, Name);
    detail::ListObjectAccess::SetDescriptionInternal(code, Description);
    detail::ListObjectAccess::SetIsTaxableInternal(code, IsTaxable);
    detail::ListObjectAccess::SetIsActiveInternal(code, IsActive);
  });
}

TaxCodes::TaxCodes()
    : ReadOnlyListCollection<TaxCode>(name_lists::ReadOnlyInfo("TaxCode", static_cast<qoEnumListType>(0),
                                                                        "TaxCodeQueryRq", qoObjectTypeTaxCode)) {}

}  // namespace tessaron
