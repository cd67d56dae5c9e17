#include "tessaron/lists/tax_items.h"

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

// ---- ItemSalesTax --------------------------------------------------------------------------

const ListClassInfo& ItemSalesTax::Info() {
  using C = ListObject::Common;
  static const ListClassInfo info = [] {
    ListClassInfo i = ItemClass("ItemSalesTax", qoObjectTypeItemSalesTax, false, ModifyRule::Raise, "Modify not allowed");
    i.fields = C::Rows({
        C::Name(Send::Always),
        C::IsActive(),
        Rows::ItemDesc(&ItemSalesTax::description_),
        field::Percent("TaxRate", &ItemSalesTax::taxRate_).Add(Send::IfSet),
        Rows::Ref("TaxVendorRef", &ItemSalesTax::vendor_, qoListVendors).As("Vendor"),
        field::Dropped("DataExtRet"),
    });
    i.checks = {
        NameCheck(),
        check::Custom([](ListObject& o, qcErrors& e) {
          CheckRef(*static_cast<ItemSalesTax&>(o).vendor_, e, err::kBadVendor, "Vendor", err::kBadVendorText, true);
        }),
    };
    return i;
  }();
  return info;
}

ItemSalesTax::ItemSalesTax()
    : ItemObject(Info(), qbItemSalesTax), vendor_(std::make_shared<qcListObjectRef>(qoListVendors)) {}

Currency ItemSalesTax::CalculateTax(Currency Amount) {
  return Currency::FromDouble((Amount * taxRate_).ToDouble() / 100.0);
}

// ---- ItemSalesTaxGroup ---------------------------------------------------------------------

namespace {
ItemSalesTaxGroup& AsGroup(ListObject& o) { return static_cast<ItemSalesTaxGroup&>(o); }
}  // namespace

const ListClassInfo& ItemSalesTaxGroup::Info() {
  using C = ListObject::Common;
  static const ListClassInfo info = [] {
    ListClassInfo i = ItemClass("ItemSalesTaxGroup", qoObjectTypeItemSalesTaxGroup, false, ModifyRule::Raise);
    i.fields = C::Rows({
        C::Name(Send::Always),
        C::IsActive(),
        Rows::ItemDesc(&ItemSalesTaxGroup::description_),
        // One ItemSalesTaxRef per member, by full name.
        field::Custom(
            "ItemSalesTaxRef", [](ListObject& o, const XmlNode& n) { AsGroup(o).lines_->ReadRefLine(n); },
            [](ListObject& o, xmlBldr& b, WriteMode) {
              for (const auto& line : *AsGroup(o).lines_) {
                b.OpenAggregateOnly("ItemSalesTaxRef");
                b.CreateElement("FullName", line->Item());
                b.EndAggregate("ItemSalesTaxRef");
              }
            },
            [](const ListObject& o) {
              std::string text;
              for (const auto& line : *static_cast<const ItemSalesTaxGroup&>(o).lines_)
                text += (text.empty() ? "" : ", ") + line->Item();
              return text;
            })
            .Add(Send::Always)
            .As("GroupLines"),
        field::Dropped("DataExtRet"),
    });
    i.checks = {
        NameCheck(),
        check::Custom([](ListObject& o, qcErrors& e) {
          for (const auto& line : *AsGroup(o).lines_)
            if (line->Quantity() != Currency(1)) e.Add(err::kSalesTaxGroupQuantity, line->Item(), err::kSalesTaxGroupQuantityText);
        }),
    };
    return i;
  }();
  return info;
}

ItemSalesTaxGroup::ItemSalesTaxGroup()
    : ItemObject(Info(), qbItemSalesTaxGroup), lines_(std::make_shared<itemGroupLines>()) {}

Currency ItemSalesTaxGroup::TaxRate() {
  Currency sum;
  for (const auto& line : *lines_)
    if (auto tax = std::dynamic_pointer_cast<qcItemTax>(line->ItemRef()->Object())) sum += tax->TaxRate();
  return sum;
}

Currency ItemSalesTaxGroup::CalculateTax(Currency Amount) {
  return Currency::FromDouble(Amount.ToDouble() * (TaxRate().ToDouble() / 100.0));
}

bool ItemSalesTaxGroup::ContainsTax(const std::string& TaxCode) {
  for (const auto& line : *lines_) {
    if (!line->ItemRef()->ListID().empty() && line->ItemRef()->ListID() == TaxCode) return true;
    if (auto tax = std::dynamic_pointer_cast<qcItemTax>(line->ItemRef()->Object()); tax && tax->ContainsTax(TaxCode))
      return true;
  }
  return false;
}

}  // namespace tessaron
