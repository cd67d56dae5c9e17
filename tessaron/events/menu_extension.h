// The parts of a UI extension subscription: the menu items the application adds to a
// QuickBooks menu, and the conditions under which QuickBooks shows or enables them.
//
//   auto& item = *sub->MenuItems()->Add();
//   item.Text = "Export to Acme";
//   item.EventTag = "export";
//   item.DisplayConditions()->EnabledIfs()->Add(qbMnuHasCustomers);
#pragma once

#include <memory>
#include <string>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/collection.h"
#include "tessaron/platform/variant.h"

namespace tessaron {

class xmlBldr;

// The QuickBooks menus an application can extend (XML tags of "Menu Names").
enum qbMnuNames { qbMnuFile = 1, qbMnuCompany, qbMnuCustomers, qbMnuVendors, qbMnuEmployees, qbMnuBanking };

// The states of the company file a menu item may depend on (XML tags of "Menu Conditions").
enum qbMnuConditions {
  qbMnuMultiUserMode = 1, qbMnuHasCustomers, qbMnuHasVendors, qbMnuInventoryEnabled, qbMnuClassesEnabled,
  qbMnuPayrollEnabled, qbMnuTimeTrackingEnabled, qbMnuPriceLevelsEnabled, qbMnuAssemblyItemsEnabled,
  qbMnuSalesOrdersEnabled, qbMnuEstimatesEnabled, qbMnuSalesTaxEnabled, qbMnuIsAccountantCopy,
  qbMnuAccountantCopyExists
};

// An ordered list of conditions.
class mnuConditions {
 public:
  qoEnumObjectState ObjectState() const { return qoObjectStateNew; }
  void Clear() { col_.Clear(); }
  void Add(qbMnuConditions MenuCondition) { col_.Add(MenuCondition); }
  qbMnuConditions Item(const Variant& vntIndexKey) { return col_.Item(vntIndexKey); }
  long Count() const { return col_.Count(); }
  void Remove(const Variant& vntIndexKey) { col_.Remove(vntIndexKey); }

  auto begin() const { return col_.begin(); }
  auto end() const { return col_.end(); }

 private:
  Collection<qbMnuConditions> col_;
};

// When QuickBooks shows and enables a menu item or a submenu.
class mnuDisplayCondition {
 public:
  std::shared_ptr<mnuConditions> VisibleIfs();
  std::shared_ptr<mnuConditions> VisibleIfNots();
  std::shared_ptr<mnuConditions> EnabledIfs();
  std::shared_ptr<mnuConditions> EnabledIfNots();
  // <DisplayCondition> with every VisibleIf, VisibleIfNot, EnabledIf, EnabledIfNot in this
  // order; the empty aggregate when there are none.
  void ToXML(xmlBldr& bldr);

 private:
  std::shared_ptr<mnuConditions> visibleIfs_, visibleIfNots_, enabledIfs_, enabledIfNots_;
};

// One item of the menu: its text, the tag its event carries back, its conditions.
class mnuItem {
 public:
  std::string Text;
  std::string EventTag;
  std::shared_ptr<mnuDisplayCondition> DisplayConditions();
  // <MenuItem> with MenuText, EventTag and the DisplayCondition aggregate.
  void ToXML(xmlBldr& bldr);

 private:
  std::shared_ptr<mnuDisplayCondition> conditions_;
};

class mnuItems {
 public:
  qoEnumObjectState ObjectState() const { return qoObjectStateNew; }
  void Clear() { col_.Clear(); }
  std::shared_ptr<mnuItem> Add();
  std::shared_ptr<mnuItem> Item(const Variant& vntIndexKey) { return col_.Item(vntIndexKey); }
  long Count() const { return col_.Count(); }
  void Remove(const Variant& vntIndexKey) { col_.Remove(vntIndexKey); }
  // Every item's ToXML, in order.
  void ToXML(xmlBldr& bldr);

 private:
  Collection<std::shared_ptr<mnuItem>> col_;
};

}  // namespace tessaron
