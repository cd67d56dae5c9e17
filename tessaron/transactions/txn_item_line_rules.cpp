#include "tessaron/transactions/detail/line_rules.h"

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/lists/sales_tax_code.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"

namespace tessaron::detail {

void WriteLineId(xmlBldr& b, std::string& txnLineId, bool isRet, bool isMod) {
  if (isMod) {
    if (txnLineId.empty()) txnLineId = "-1";
    b.CreateElement("TxnLineID", txnLineId);
  } else if (isRet && !txnLineId.empty()) {
    b.CreateElement("TxnLineID", txnLineId);
  }
}

bool IsSalesOwner(int32_t ownerType, const char* className, bool withItemReceipt) {
  if (IsSalesType(ownerType)) return true;
  if (IsPayablesType(ownerType) && (withItemReceipt || ownerType != qoObjectTypeItemReceipt)) return false;
  RaiseInternal(className, "Unknown Transaction Type");
}

bool StoredLinesChangeable() { return State().QBXMLVersionNumber > Currency(2); }

void MarkLineModified(qoEnumObjectState& state, bool checkAllowed, const char* source) {
  if (state == qoObjectStateNew) return;
  if (checkAllowed && !StoredLinesChangeable())
    throw Error(err::kFieldCannotBeModified, source, err::kFieldCannotBeModifiedText);
  state = qoObjectStateDirty;
}

void FailLine(uint32_t number) { throw Error(number, "Tessaron:txnItemLine", ErrorText(number)); }

std::shared_ptr<qcListObjectRef> NewRef(qoEnumListType list, const std::string& name) {
  auto ref = std::make_shared<qcListObjectRef>(list);
  if (!name.empty()) ListObjectAccess::SetFullName(*ref, name);
  return ref;
}

std::shared_ptr<SalesTaxCode> FindSalesTaxCode(const std::string& name) {
  if (name.empty()) return nullptr;
  auto ref = NewRef(qoListSalesTaxCodes, name);
  return std::dynamic_pointer_cast<SalesTaxCode>(ref->Object());
}

Currency NumberOf(std::string text) {
  if (!text.empty() && text.back() == '%') text.pop_back();
  Currency value;
  return Currency::TryParse(text, value) ? value : Currency();
}

}  // namespace tessaron::detail
