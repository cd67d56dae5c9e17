// The tax code lists. SalesTaxCode (US editions): a code of at most three characters
// that says whether a sale is taxable. TaxCode (other editions): read only. QuickBooks'
// modify is not used for either.
#pragma once

#include <memory>
#include <string>

#include "tessaron/framework/list_collection.h"
#include "tessaron/framework/list_object.h"

namespace tessaron {

class SalesTaxCode final : public ListObject {
 public:
  SalesTaxCode();

  bool IsTaxable() const { return isTaxable_; }
  // At most 31 characters.
  const std::string& Description() const { return desc_; }

 private:
  friend class detail::ListObjectAccess;
  void SetIsTaxableInternal(bool value) { isTaxable_ = value; }
  void SetDescriptionInternal(const std::string& value) { desc_ = value; }
  static const ListClassInfo& Info();

  bool isTaxable_ = false;
  std::string desc_;
};

// Its description travels in files but has no getter.
class TaxCode final : public ListObject {
 public:
  TaxCode();

 private:
  static const ListClassInfo& Info();

  std::string desc_;
};

class SalesTaxCodes final : public ListCollection<SalesTaxCode> {
 public:
  SalesTaxCodes();
  // A New code; master only; nothing is sent until Commit.
  std::shared_ptr<SalesTaxCode> Add(const std::string& Name = "", const std::string& Description = "",
                                    bool IsTaxable = false, bool IsActive = true);
};

class TaxCodes final : public ReadOnlyListCollection<TaxCode> {
 public:
  TaxCodes();
};

}  // namespace tessaron
