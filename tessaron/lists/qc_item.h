// The interfaces every item answers, whatever its kind: line items and the item list price
// any item through qcItem without knowing its class (an item without a sales or purchase
// side answers with empty texts and zeros), and compute tax through qcItemTax.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

class qcErrors;
class qcListObjectRefs;

class qcItem {
 public:
  virtual ~qcItem() = default;

  virtual const std::string& ListID() const = 0;
  virtual const std::string& Name() const = 0;
  virtual qbEnumItemType ItemType() const = 0;
  virtual std::string CollectionKey() const = 0;
  virtual std::shared_ptr<qcErrors> Errors() = 0;
  virtual std::string SalesDescription() const = 0;
  virtual std::string PurchaseDescription() const = 0;
  virtual bool SalesCostIsPercent() const = 0;
  virtual bool PurchaseCostIsPercent() const = 0;
  virtual Currency SalesCost() const = 0;
  virtual Currency PurchaseCost() const = 0;
  virtual std::string SalesTaxCode() const = 0;
  virtual bool HasSalesAndPurchase() const = 0;
  // True when buying the item posts to an expense account of its own.
  virtual bool ContainsExpenseAccount() const = 0;
  virtual qoEnumObjectState ObjectState() const = 0;
  virtual void SetObjectState(qoEnumObjectState state) = 0;
  virtual std::string Parent() const = 0;
  virtual std::shared_ptr<qcListObjectRefs> Children() = 0;
  virtual std::string FullName() const = 0;
  virtual int16_t Sublevel() const = 0;
  virtual bool SupportsChildren() const = 0;
  virtual Variant FromDom(const XmlNode& obj) = 0;
  virtual bool Validate() = 0;
};

// Sales tax items and groups of them.
class qcItemTax {
 public:
  virtual ~qcItemTax() = default;

  virtual bool IsGroup() const = 0;
  // The tax on Amount at TaxRate.
  virtual Currency CalculateTax(Currency Amount) = 0;
  // Whether the tax item with this ListID is, or is part of, this item.
  virtual bool ContainsTax(const std::string& TaxCode) = 0;
  // A percentage (7.5 for 7.5%).
  virtual Currency TaxRate() = 0;
};

}  // namespace tessaron
