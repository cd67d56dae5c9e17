#include "tessaron/reports/rpt_filters.h"

#include "tessaron/foundation/error_numbers.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"

namespace tessaron {
namespace {

template <typename V>
size_t Slot(const V& v, long index) {
  if (index < 1 || index > static_cast<long>(v.size())) RaisePlatform(platform_error::kSubscriptOutOfRange);
  return static_cast<size_t>(index - 1);
}

template <typename T>
std::shared_ptr<T>& Made(std::shared_ptr<T>& f) {
  if (!f) f = std::make_shared<T>();
  return f;
}

}  // namespace

const std::string& qcIdList::Item(long index) const { return ids_[Slot(ids_, index)]; }
void qcIdList::Remove(long index) { ids_.erase(ids_.begin() + static_cast<long>(Slot(ids_, index))); }

void rptListFilter::Clear() {
  typeFilter_ = 0;
  listIds_.Clear();
  fullNames_.Clear();
  withChildren_ = false;
}

void rptListFilter::WriteList(xmlBldr& b, const qcIdList& list, const char* tag) const {
  const std::string withChildrenTag = std::string(tag) + "WithChildren";
  long n = 0;
  for (const std::string& entry : list) {
    // Descendants can be asked for one name only; the second entry is the caller's mistake.
    if (withChildren_ && ++n > 1)
      throw Error(err::kWithChildrenOneName, "Tessaron", err::kWithChildrenOneNameText);
    b.CreateElement(withChildren_ ? std::string_view(withChildrenTag) : std::string_view(tag), entry);
  }
}

void rptListFilter::Write(xmlBldr& b) const {
  const std::string aggregate = std::string("Report") + name_ + "Filter";
  if (*typeTag_ && typeFilter_ != 0) {
    b.OpenAggregateOnly(aggregate);
    b.CreateElement(typeTag_, EnumCodeToXML(typeFilter_, typeTable_));
    b.EndAggregate(aggregate);
    return;
  }
  if (listIds_.Count() == 0 && fullNames_.Count() == 0) return;
  b.OpenAggregateOnly(aggregate);
  WriteList(b, fullNames_, "FullName");
  WriteList(b, listIds_, "ListID");
  b.EndAggregate(aggregate);
}

void rptListFilter::FromDom(const XmlNode& obj) {
  for (const XmlNode& child : obj.childNodes()) {
    const std::string_view name = child.baseName();
    if (*typeTag_ && name == typeTag_) {
      typeFilter_ = EnumXMLToCode(child.text(), typeTable_);
    } else if (name == "ListID") {
      listIds_.Add(child.text());
    } else if (name == "FullName") {
      fullNames_.Add(child.text());
    } else if (name == "ListIDWithChildren") {
      listIds_.Add(child.text());
      withChildren_ = true;
    } else if (name == "FullNameWithChildren") {
      fullNames_.Add(child.text());
      withChildren_ = true;
    }
  }
}

int32_t rptTxnTypeFilter::Item(long index) const { return types_[Slot(types_, index)]; }
void rptTxnTypeFilter::Remove(long index) { types_.erase(types_.begin() + static_cast<long>(Slot(types_, index))); }

void rptTxnTypeFilter::FromDom(const XmlNode& obj) {
  for (const XmlNode& child : obj.childNodes())
    if (child.baseName() == "TxnTypeFilter") types_.push_back(EnumXMLToCode(child.text(), qoeTxnType));
}

void rptTxnTypeFilter::Write(xmlBldr& b) const {
  if (types_.empty()) return;
  b.OpenAggregateOnly("ReportTxnTypeFilter");
  for (int32_t t : types_) b.CreateElement("TxnTypeFilter", EnumCodeToXML(t, qoeTxnType));
  b.EndAggregate("ReportTxnTypeFilter");
}

std::shared_ptr<rptAccountFilter> rptFilters::AccountFilter() { return Made(account_); }
std::shared_ptr<rptEntityFilter> rptFilters::EntityFilter() { return Made(entity_); }
std::shared_ptr<rptItemFilter> rptFilters::ItemFilter() { return Made(item_); }
std::shared_ptr<rptClassFilter> rptFilters::ClassFilter() { return Made(class_); }
std::shared_ptr<rptTxnTypeFilter> rptFilters::TxnTypes() { return Made(txnTypes_); }

void rptFilters::Clear() {
  AccountFilter()->Clear();
  EntityFilter()->Clear();
  ItemFilter()->Clear();
  ClassFilter()->Clear();
  TxnTypes()->Clear();
}

void rptFilters::Write(xmlBldr& b) {
  // A filter set to the null handle by the application writes nothing.
  if (account_) account_->Write(b);
  if (entity_) entity_->Write(b);
  if (item_) item_->Write(b);
  if (class_) class_->Write(b);
  if (txnTypes_) txnTypes_->Write(b);
}

}  // namespace tessaron
