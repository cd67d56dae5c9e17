#include "tessaron/transactions/txn_object.h"

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_extensions.h"
#include "tessaron/events/qc_event_sink.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/detail/field_walker.h"
#include "tessaron/lists/items.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/detail/txn_access.h"
#include "tessaron/transactions/txn_collection.h"
#include "tessaron/transactions/txn_item_line.h"
#include "tessaron/transactions/txn_item_lines.h"
#include "tessaron/transactions/txn_linked_transactions.h"

namespace tessaron {

TxnObject::TxnObject(const TxnClassInfo& info)
    : DataExtOwner(info.objectType),
      info_(info),
      eventSink_(std::make_shared<qcEventSink>()),
      itemLines_(std::make_shared<txnItemLines>()),
      linkedTxns_(std::make_shared<txnLinkedTransactions>()) {
  sinkListener_ = eventSink_->OnEvent([this](qoEnumEventTypes& id, std::string& text) { HandleEvent(id, text); });
  detail::TxnAccess::SetOwnerType(*itemLines_, info_.objectType);
  detail::TxnAccess::SetEventSink(*itemLines_, eventSink_);
  linkedTxns_->SetOwnerType(info_.objectType);
}

// A line the caller still holds may raise after its document is gone: the sink forgets
// the document first.
TxnObject::~TxnObject() { eventSink_->RemoveEventHandler(sinkListener_); }

std::shared_ptr<qcErrors> TxnObject::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

qoEnumObjectState TxnObject::ObjectState() const {
  if (state_ != qoObjectStateClean) return state_;
  if (itemLines_->ObjectState() == qoObjectStateDirty || PartsDirty()) return qoObjectStateDirty;
  return state_;
}

std::shared_ptr<txnItemLines> TxnObject::ItemLines() {
  if (linesNotLoaded_ && info_.master) {
    if (auto master = info_.master()) master->GetMeBase(*this);
  }
  return itemLines_;
}

// ---- Marking a change ------------------------------------------------------------------------

void TxnObject::MarkModified(bool checkAllowed) {
  if (checkAllowed && state_ != qoObjectStateNew) {
    const Currency version = State().QBXMLVersionNumber;
    bool allowed = false;
    switch (info_.gate) {
      case TxnModifyGate::AboveVersion20: allowed = version > Currency(2); break;
      case TxnModifyGate::FromVersion30: allowed = version >= Currency(3); break;
      case TxnModifyGate::Never: allowed = false; break;
    }
    if (!allowed) throw Error(err::kFieldCannotBeModified, info_.className, err::kFieldCannotBeModifiedText);
  }
  if (state_ != qoObjectStateNew) state_ = qoObjectStateDirty;
}

namespace {

// The lines, and the lines inside each group, down to the last.
void ResetLinesToNew(txnItemLines& lines) {
  detail::TxnAccess::SetObjectState(lines, qoObjectStateNew);
  for (const auto& line : lines) {
    detail::TxnAccess::SetObjectState(*line, qoObjectStateNew);
    if (const auto& group = line->GroupLines()) ResetLinesToNew(*group);
  }
}

}  // namespace

void TxnObject::ResetToNew() {
  state_ = qoObjectStateNew;
  // A New document has all its lines in hand: nothing is to be asked of QuickBooks.
  linesNotLoaded_ = false;
  ResetLinesToNew(*itemLines_);
}

// ---- The lines' events -----------------------------------------------------------------------

size_t TxnObject::OnWarning(WarningHandler handler) {
  warningHandlers_.push_back(std::move(handler));
  return warningHandlers_.size();
}

size_t TxnObject::OnNoQuantity(NoQuantityHandler handler) {
  noQuantityHandlers_.push_back(std::move(handler));
  return noQuantityHandlers_.size();
}

void TxnObject::HandleEvent(qoEnumEventTypes& id, std::string& text) {
  switch (id) {
    case qoEventAmountChange: RecalculateTotals(); return;
    case qoEventItemTaxCodeQuery: CheckHeaderTaxItem(text); return;
    case qoEventWarning: {
      const auto code = static_cast<int32_t>(Variant(text).ToInteger());
      const std::string& message = EnumCodeToDescription(code, qoeWarnings);
      for (const auto& handler : warningHandlers_) handler(code, message);
      return;
    }
    case qoEventNoQuantity: {
      auto company = State().CurrentCompany;
      if (!company) return;
      auto items = company->Items();
      if (!items->ItemExists(Variant(text))) return;
      std::shared_ptr<qcListObject> item = items->Item(Variant(text));
      for (const auto& handler : noQuantityHandlers_) handler(item);
      return;
    }
  }
}

// ---- Reading ---------------------------------------------------------------------------------

Variant TxnObject::FromDom(const XmlNode& obj) {
  detail::TxnAccess::ClearLines(*itemLines_);
  linkedTxns_->Clear();
  ClearParts();
  linesNotLoaded_ = true;
  const std::string_view lineRet = info_.lineRet;
  const std::string_view lineGroupRet = info_.lineGroupRet;
  size_t next = 0;
  for (const XmlNode& child : obj.childNodes()) {
    const std::string_view tag = child.baseName();
    if (!lineRet.empty() && (tag == lineRet || tag == lineGroupRet)) {
      detail::TxnAccess::ReadLine(*itemLines_, child, tag == lineGroupRet);
      linesNotLoaded_ = false;
    } else if (tag == "LinkedTxn") {
      linkedTxns_->ReadLink(child);
    } else if (tag == "DataExtRet") {
      ReadDataExtRet(child);
    } else if (const TxnFieldDef* row = detail::FindRow(info_.fields, tag, next)) {
      detail::ReadRow(*row, *this, child);
    } else if (tag == "UserData") {
      userData_ = Variant(child.text());
    } else if (ReadPart(tag, child)) {
      linesNotLoaded_ = false;
    } else {
      NoteUnknownElement(tag, info_.unknownElementClass ? info_.unknownElementClass : info_.className);
    }
  }
  // An answer without lines leaves a collection that is Clean, not New.
  detail::TxnAccess::SetObjectState(*itemLines_, qoObjectStateClean);
  AfterFromDom();
  state_ = qoObjectStateClean;
  return Variant();
}

// ---- Writing ---------------------------------------------------------------------------------

int32_t TxnObject::XMLInsert(xmlBldr& cxmlbldr) {
  detail::WriteRows(info_.fields, *this, cxmlbldr, WriteMode::Add, info_.queryBooleans);
  WriteLineParts(cxmlbldr, false, false);
  return 0;
}

int32_t TxnObject::XMLModify(xmlBldr& cxmlbldr) {
  if (info_.modifyRefusal) RaiseInternal(info_.className, info_.modifyRefusal);
  detail::WriteRows(info_.fields, *this, cxmlbldr, WriteMode::Modify, info_.queryBooleans);
  WriteLineParts(cxmlbldr, false, true);
  return 0;
}

int32_t TxnObject::XMLQueryRs(xmlBldr& cxmlbldr) {
  detail::WriteRows(info_.fields, *this, cxmlbldr, WriteMode::QueryRs, info_.queryBooleans);
  linkedTxns_->WriteQueryRs(cxmlbldr);
  WriteLineParts(cxmlbldr, true, false);
  if (!userData_.IsEmpty() && !userData_.IsObject()) cxmlbldr.CreateElement("UserData", userData_.ToString());
  return 0;
}

void TxnObject::WriteLineParts(xmlBldr& b, bool isRet, bool isMod) {
  detail::TxnAccess::WriteLines(*itemLines_, b, isRet, isMod);
}

std::vector<FieldText> TxnObject::Properties() { return detail::Properties(info_.fields, *this); }

// ---- Data extensions -------------------------------------------------------------------------

bool TxnObject::SaveDataExtensions(const std::string& ListOrTxnId) {
  if (State().DataExtensionsGUID.empty()) return true;
  return ApplicationFields()->Commit(ListOrTxnId) == 0;
}

int32_t TxnObject::CommitCustomFields() {
  int32_t errors = CustomFields()->Commit(txnId_);
  long position = 1;
  for (const auto& line : *itemLines_) {
    detail::TxnAccess::SetLineKey(*line, std::to_string(position++));
    errors += line->CustomFields()->Commit(txnId_, line->TxnLineId());
  }
  return errors;
}

bool TxnObject::Validate() {
  Errors()->Clear();
  return true;
}

// ---- Common rows -----------------------------------------------------------------------------

std::vector<TxnFieldDef> TxnObject::Common::Rows(std::initializer_list<TxnFieldDef> own) {
  std::vector<TxnFieldDef> rows{
      field::Text("TxnID", &TxnObject::txnId_).Mod(Send::Always),
      field::DateTime("TimeCreated", &TxnObject::timeCreated_),
      field::DateTime("TimeModified", &TxnObject::timeModified_),
      field::Text("EditSequence", &TxnObject::editSequence_).Mod(Send::Always),
      field::Int32("TxnNumber", &TxnObject::txnNumber_),
  };
  rows.insert(rows.end(), own.begin(), own.end());
  return rows;
}

}  // namespace tessaron
