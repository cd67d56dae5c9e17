// The owner families of line items and the small helpers the line's sources share.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/currency.h"

namespace tessaron {

class qcListObjectRef;
class xmlBldr;
class SalesTaxCode;

namespace detail {

inline bool OneOf(int32_t value, std::initializer_list<int32_t> set) {
  for (int32_t v : set)
    if (v != 0 && v == value) return true;
  return false;
}

inline bool TypeIn(qbEnumItemType type, std::initializer_list<qbEnumItemType> set) {
  for (qbEnumItemType t : set)
    if (t == type) return true;
  return false;
}

// Documents whose lines buy: the vendor side. PurchaseOrder belongs here for pricing,
// though it writes a dialect of its own.
inline bool IsPayablesType(int32_t t) {
  return OneOf(t, {qoObjectTypeBill, qoObjectTypeCheck, qoObjectTypePurchaseOrder, qoObjectTypeVendorCredit,
                   qoObjectTypeCreditCardCharge, qoObjectTypeCreditCardCredit, qoObjectTypeItemReceipt});
}
inline bool IsSalesType(int32_t t) {
  return OneOf(t, {qoObjectTypeInvoice, qoObjectTypeSalesReceipt, qoObjectTypeCreditMemo, qoObjectTypeEstimate,
                   qoObjectTypeSalesOrder});
}

// True for a sales owner, false for a payables owner; anything else is a programming
// failure ("Unknown Transaction Type" from `className`). The collection's own test knows
// no ItemReceipt, so it passes withItemReceipt false.
bool IsSalesOwner(int32_t ownerType, const char* className, bool withItemReceipt = true);

// Whether the connected version lets a stored line change: above qbXML 2.0.
bool StoredLinesChangeable();
// The rule of a change: New stays New; anything else turns Dirty, and with `checkAllowed`
// only above qbXML 2.0 (at 2.0 and below 0x800403EA "Field cannot be modified", `source`).
void MarkLineModified(qoEnumObjectState& state, bool checkAllowed, const char* source);

// Raises a failure of a line's setter: the number with its fixed text, source
// "Tessaron:txnItemLine".
[[noreturn]] void FailLine(uint32_t number);

// The TxnLineID of a written line: in a modify always, a line QuickBooks has not stored
// yet becoming "-1" (which tells QuickBooks it is new); in the saved form when known.
void WriteLineId(xmlBldr& b, std::string& txnLineId, bool isRet, bool isMod);

// A fresh reference into `list` holding `name`.
std::shared_ptr<qcListObjectRef> NewRef(qoEnumListType list, const std::string& name = "");
// The sales tax code a name stands for; null when empty or not on file.
std::shared_ptr<SalesTaxCode> FindSalesTaxCode(const std::string& name);
// Lenient number reading for texts from grids and answers: a final "%" is cut, text that
// is no number gives 0.
Currency NumberOf(std::string text);

}  // namespace detail
}  // namespace tessaron
