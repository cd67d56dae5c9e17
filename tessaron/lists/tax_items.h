// Sales tax items: one tax at a rate paid to a tax agency (ItemSalesTax), and a group of
// them charged together (ItemSalesTaxGroup), whose rate is the sum of its members'.
// QuickBooks has no modify for either here: a changed one raises when committed.
#pragma once

#include <memory>
#include <string>

#include "tessaron/lists/item_object.h"
#include "tessaron/lists/item_records.h"

namespace tessaron {

class ItemSalesTax final : public ItemObject, public qcItemTax {
 public:
  ItemSalesTax();

  const std::string& Description() const { return description_; }
  void SetDescription(const std::string& value) { Store(description_, value, false); }
  // A percentage; the setter leaves the state as it is.
  Currency TaxRate() override { return taxRate_; }
  void SetTaxRate(Currency value) { taxRate_ = value; }
  // The tax agency (a vendor) by full name.
  const std::string& Vendor() const { return vendor_->FullName(); }
  void SetVendor(const std::string& value) { StoreRef(vendor_, value, false); }

  bool IsGroup() const override { return false; }
  // Amount x TaxRate / 100.
  Currency CalculateTax(Currency Amount) override;
  // True when TaxCode is this item's ListID.
  bool ContainsTax(const std::string& TaxCode) override { return TaxCode == ListID(); }

  std::string SalesDescription() const override { return description_; }
  Currency SalesCost() const override { return taxRate_; }
  bool SalesCostIsPercent() const override { return true; }

 private:
  static const ListClassInfo& Info();

  std::string description_;
  Currency taxRate_;
  std::shared_ptr<qcListObjectRef> vendor_;
};

class ItemSalesTaxGroup final : public ItemObject, public qcItemTax {
 public:
  ItemSalesTaxGroup();

  // The member tax items, each with quantity 1.
  const std::shared_ptr<itemGroupLines>& GroupLines() const { return lines_; }
  void SetGroupLines(const std::shared_ptr<itemGroupLines>& value) { Store(lines_, value, false); }
  const std::string& Description() const { return description_; }
  void SetDescription(const std::string& value) { Store(description_, value, false); }

  // The members of the record replace those held.
  Variant FromDom(const XmlNode& obj) override {
    lines_->BeginRead();
    return ItemObject::FromDom(obj);
  }

  bool IsGroup() const override { return true; }
  // The sum of the members' rates; each member is looked up (and may be queried).
  Currency TaxRate() override;
  // Amount x (TaxRate / 100).
  Currency CalculateTax(Currency Amount) override;
  // True when a member is the tax item with this ListID.
  bool ContainsTax(const std::string& TaxCode) override;

  std::string SalesDescription() const override { return description_; }

 private:
  static const ListClassInfo& Info();

  std::shared_ptr<itemGroupLines> lines_;
  std::string description_;
};

}  // namespace tessaron
