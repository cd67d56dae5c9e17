#include "tessaron/events/menu_extension.h"

#include "tessaron/foundation/enumerations.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

namespace {

std::shared_ptr<mnuConditions> MadeOnFirstUse(std::shared_ptr<mnuConditions>& list) {
  if (!list) list = std::make_shared<mnuConditions>();
  return list;
}

void WriteConditions(xmlBldr& bldr, const char* tag, const std::shared_ptr<mnuConditions>& list) {
  if (!list) return;
  for (qbMnuConditions c : *list) bldr.CreateElement(tag, EnumCodeToXML(c, qoeMenuConditions));
}

}  // namespace

std::shared_ptr<mnuConditions> mnuDisplayCondition::VisibleIfs() { return MadeOnFirstUse(visibleIfs_); }
std::shared_ptr<mnuConditions> mnuDisplayCondition::VisibleIfNots() { return MadeOnFirstUse(visibleIfNots_); }
std::shared_ptr<mnuConditions> mnuDisplayCondition::EnabledIfs() { return MadeOnFirstUse(enabledIfs_); }
std::shared_ptr<mnuConditions> mnuDisplayCondition::EnabledIfNots() { return MadeOnFirstUse(enabledIfNots_); }

void mnuDisplayCondition::ToXML(xmlBldr& bldr) {
  bldr.OpenAggregateOnly("DisplayCondition");
  WriteConditions(bldr, "VisibleIf", visibleIfs_);
  WriteConditions(bldr, "VisibleIfNot", visibleIfNots_);
  WriteConditions(bldr, "EnabledIf", enabledIfs_);
  WriteConditions(bldr, "EnabledIfNot", enabledIfNots_);
  bldr.EndAggregate("DisplayCondition");
}

std::shared_ptr<mnuDisplayCondition> mnuItem::DisplayConditions() {
  if (!conditions_) conditions_ = std::make_shared<mnuDisplayCondition>();
  return conditions_;
}

void mnuItem::ToXML(xmlBldr& bldr) {
  bldr.OpenAggregateOnly("MenuItem");
  bldr.CreateElement("MenuText", Text);
  bldr.CreateElement("EventTag", EventTag);
  DisplayConditions()->ToXML(bldr);
  bldr.EndAggregate("MenuItem");
}

std::shared_ptr<mnuItem> mnuItems::Add() {
  auto item = std::make_shared<mnuItem>();
  col_.Add(item);
  return item;
}

void mnuItems::ToXML(xmlBldr& bldr) {
  for (const auto& item : col_) item->ToXML(bldr);
}

}  // namespace tessaron
