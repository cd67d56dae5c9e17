// Reading a line from an answer and writing it in the dialect of its owner.
#include "tessaron/company/company.h"
#include "tessaron/company/preferences.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_ext_owner.h"
#include "tessaron/dataext/data_extensions.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/transactions/detail/line_rules.h"
#include "tessaron/transactions/txn_item_line.h"
#include "tessaron/transactions/txn_item_lines.h"

namespace tessaron {

using detail::ListObjectAccess;
using detail::NumberOf;

namespace {

// A reference read from its element: into the line's own empty reference, or else into a
// fresh one (never into one shared with the header).
void ReadRef(std::shared_ptr<qcListObjectRef>& ref, qoEnumListType list, const XmlNode& node) {
  if (!ref || ref.use_count() != 1 || ref->List() != list || !ref->FullName().empty() || !ref->ListID().empty())
    ref = detail::NewRef(list);
  ListObjectAccess::ReadFromNode(*ref, node);
}

bool IsMemberLineElement(std::string_view tag) {
  return tag == "ItemLineRet" || tag == "PurchaseOrderLineRet" || tag == "InvoiceLineRet" ||
         tag == "SalesReceiptLineRet" || tag == "CreditMemoLineRet" || tag == "EstimateLineRet" ||
         tag == "SalesOrderLineRet";
}

// The saved-answer form names the reference by ListID when known; requests by FullName.
void WriteRef(xmlBldr& b, const std::shared_ptr<qcListObjectRef>& ref, const char* tag, bool isRet) {
  if (!ref) return;
  if (isRet) {
    if (!ref->FullName().empty() || !ref->ListID().empty()) ListObjectAccess::WriteQueryRs(*ref, b, tag);
  } else {
    WriteListRef(*ref, b, tag);
  }
}

bool DefaultItemSalesTaxSet() {
  auto company = State().CurrentCompany;
  return company && company->Preferences() && !company->Preferences()->DefaultItemSalesTax().empty();
}

}  // namespace

std::shared_ptr<DataExtensions> txnItemLine::CustomFields() {
  if (!customFields_) customFields_ = std::make_shared<DataExtensions>();
  customFields_->SetOwnerId("0");
  customFields_->SetOwnerType(ownerType_);
  return customFields_;
}

void txnItemLine::FromDom(const XmlNode& node) {
  quantity_ = Currency();
  for (const XmlNode& child : node.childNodes()) {
    const std::string_view tag = child.baseName();
    if (tag == "Amount" || tag == "TotalAmount") {
      amount_ = NumberOf(child.text());
    } else if (tag == "RatePercent") {
      cost_ = NumberOf(child.text());
      costIsPercent_ = true;
    } else if (tag == "Cost" || tag == "Rate") {
      cost_ = NumberOf(child.text());
    } else if (tag == "Desc") {
      description_ = child.text();
    } else if (tag == "Quantity") {
      quantity_ = NumberOf(child.text());
    } else if (tag == "TxnLineID") {
      txnLineId_ = child.text();
    } else if (tag == "ItemRef" || tag == "ItemGroupRef") {
      ReadRef(itemRef_, qoListItems, child);
    } else if (tag == "CustomerRef") {
      ReadRef(customerRef_, qoListCustomers, child);
    } else if (tag == "ClassRef") {
      ReadRef(classRef_, qoListClasses, child);
    } else if (tag == "SalesTaxCodeRef") {
      ReadRef(salesTaxCodeRef_, qoListSalesTaxCodes, child);
    } else if (tag == "TaxCodeRef") {
      ReadRef(taxCodeRef_, qoListSalesTaxCodes, child);
    } else if (IsMemberLineElement(tag)) {
      groupLines_->ReadLine(child, true);
    } else if (tag == "IsPrintItemsInGroup") {
      printItemsInGroup_ = BooleanFromText(child.text());
    } else if (tag == "ReceivedQuantity") {
      receivedQuantity_ = NumberOf(child.text());
    } else if (tag == "ServiceDate") {
      serviceDate_ = DateFromText(child.text());
    } else if (tag == "MarkupRate") {
      markup_ = NumberOf(child.text());
      markupIsPercent_ = false;
    } else if (tag == "MarkupRatePercent") {
      markup_ = NumberOf(child.text());
      markupIsPercent_ = true;
    } else if (tag == "BillableStatus") {
      billableStatus_ = static_cast<qbEnumBillableStatus>(EnumXMLToCode(child.text(), qoeBillableStatus));
    } else if (tag == "IsManuallyClosed") {
      isManuallyClosed_ = BooleanFromText(child.text());
    } else if (tag == "Invoiced") {
      invoiced_ = NumberOf(child.text());
    } else if (tag == "DataExtRet") {
      ReadDataExtRet(child, CustomFields().get(), nullptr);
    } else {
      NoteUnknownElement(tag, "txnItemLine");
    }
  }
  objectState_ = qoObjectStateClean;
}

std::string txnItemLine::ElementBase() const {
  const bool group = isGroup_ && ItemTypeOfLine() == qbItemGroup;
  switch (ownerType_) {
    case qoObjectTypeBill:
    case qoObjectTypeCheck:
    case qoObjectTypeVendorCredit:
    case qoObjectTypeCreditCardCharge:
    case qoObjectTypeCreditCardCredit:
    case qoObjectTypeItemReceipt:
      return group ? "ItemGroupLine" : "ItemLine";
    case qoObjectTypePurchaseOrder:
      return group ? "PurchaseOrderLineGroup" : "PurchaseOrderLine";
    case qoObjectTypeInvoice:
      return group ? "InvoiceLineGroup" : "InvoiceLine";
    case qoObjectTypeSalesReceipt:
      return group ? "SalesReceiptLineGroup" : "SalesReceiptLine";
    case qoObjectTypeCreditMemo:
      return group ? "CreditMemoLineGroup" : "CreditMemoLine";
    case qoObjectTypeSalesOrder:
      return group ? "SalesOrderLineGroup" : "SalesOrderLine";
    case qoObjectTypeEstimate:
      return group ? "EstimateLineGroup" : "EstimateLine";
    default:
      RaiseInternal("txnItemLine", "Unknown Transaction Type");
  }
}

void txnItemLine::WriteLine(xmlBldr& b, bool isRet, bool isMod) {
  const std::string element = ElementBase() + (isRet ? "Ret" : isMod ? "Mod" : "Add");
  b.OpenAggregateOnly(element);
  detail::WriteLineId(b, txnLineId_, isRet, isMod);
  if (isGroup_ && ItemTypeOfLine() == qbItemGroup) WriteGroupHead(b, isRet, isMod);
  else WritePlain(b, isRet, isMod);
  b.EndAggregate(element);
}

void txnItemLine::WritePlain(xmlBldr& b, bool isRet, bool isMod) {
  const bool hasItem = !Item().empty();
  const qbEnumItemType type = ItemTypeOfLine();
  auto rate = [&] {
    if (costIsPercent_) b.CreateElement("RatePercent", PercentRateToText(cost_));
    else b.CreateElement("Rate", PercentRateToText(cost_));
  };
  const bool usProduct = !State().IsNonUSProduct;

  switch (ownerType_) {
    case qoObjectTypePurchaseOrder:
      WriteRef(b, itemRef_, "ItemRef", isRet);
      b.CreateElement2("Desc", description_, isMod);
      if (quantityWasSet_) b.CreateElement("Quantity", QuantityToText(quantity_));
      rate();
      WriteRef(b, classRef_, "ClassRef", isRet);
      b.CreateElement("Amount", AmountToText(amount_));
      WriteRef(b, customerRef_, "CustomerRef", isRet);
      b.CreateDateElement("ServiceDate", serviceDate_);
      if (isRet) b.CreateElement("ReceivedQuantity", QuantityToText(receivedQuantity_));
      return;
    case qoObjectTypeEstimate:
      WriteRef(b, itemRef_, "ItemRef", isRet);
      b.CreateElement2("Desc", description_, isMod);
      if (hasItem) {
        if (quantity_ != Currency(1) && quantityWasSet_) b.CreateElement("Quantity", QuantityToText(quantity_));
        rate();
      }
      WriteRef(b, classRef_, "ClassRef", isRet);
      if (hasItem) {
        if (type != qbItemSubtotal) b.CreateElement("Amount", AmountToText(amount_));
        if (usProduct) WriteRef(b, salesTaxCodeRef_, "SalesTaxCodeRef", isRet);
        if (quantity_ != Currency()) {
          if (markupIsPercent_) b.CreateElement("MarkupRatePercent", PercentRateToText(markup_));
          else b.CreateElement("MarkupRate", PercentRateToText(markup_));
        }
      }
      return;
    default:
      break;
  }

  if (detail::IsPayablesType(ownerType_)) {
    const bool linked = !linkedTxnId_.empty() && !linkedTxnLineId_.empty();
    if (linkedTxnId_.empty() && linkedTxnLineId_.empty()) WriteRef(b, itemRef_, "ItemRef", isRet);
    b.CreateElement2("Desc", description_, isMod);
    b.CreateElement("Quantity", QuantityToText(quantity_));
    b.CreateElement("Cost", PercentRateToText(cost_));
    b.CreateElement("Amount", AmountToText(amount_));
    WriteRef(b, customerRef_, "CustomerRef", isRet);
    WriteRef(b, classRef_, "ClassRef", isRet);
    if (billableStatus_ != 0) b.CreateElement("BillableStatus", EnumCodeToXML(billableStatus_, qoeBillableStatus));
    if (linked) {
      b.OpenAggregateOnly("LinkToTxn");
      b.CreateElement("TxnID", linkedTxnId_);
      b.CreateElement("TxnLineID", linkedTxnLineId_);
      b.EndAggregate("LinkToTxn");
    }
    return;
  }

  // The sales documents.
  WriteRef(b, itemRef_, "ItemRef", isRet);
  b.CreateElement2("Desc", description_, isMod);
  if (hasItem) {
    if (quantityWasSet_ && !detail::TypeIn(type, {qbItemPayment, qbItemDiscount, qbItemSalesTax, qbItemSalesTaxGroup,
                                    qbItemSubtotal, qbItemFixedAsset}))
      b.CreateElement("Quantity", QuantityToText(quantity_));
    if (!detail::TypeIn(type, {qbItemSalesTax, qbItemSubtotal, qbItemSalesTaxGroup})) rate();
    WriteRef(b, classRef_, "ClassRef", isRet);
    if (type != qbItemSubtotal) b.CreateElement("Amount", AmountToText(amount_));
  }
  b.CreateDateElement("ServiceDate", serviceDate_);
  if (DefaultItemSalesTaxSet() && usProduct) WriteRef(b, salesTaxCodeRef_, "SalesTaxCodeRef", isRet);
  if (ownerType_ == qoObjectTypeSalesOrder) b.CreateElement("IsManuallyClosed", BooleanToText(isManuallyClosed_));
}

void txnItemLine::WriteGroupHead(xmlBldr& b, bool isRet, bool isMod) {
  auto members = [&] {
    if (isRet) groupLines_->WriteLines(b, true, false);
  };
  WriteRef(b, itemRef_, "ItemGroupRef", isRet);
  switch (ownerType_) {
    case qoObjectTypePurchaseOrder:
      b.CreateElement2("Desc", description_, isMod);
      b.CreateElement("Quantity", QuantityToText(quantity_));
      b.CreateDateElement("ServiceDate", serviceDate_);
      members();
      return;
    case qoObjectTypeEstimate:
      b.CreateElement2("Desc", description_, isMod);
      if (quantity_ != Currency(1)) b.CreateElement("Quantity", QuantityToText(quantity_));
      members();
      return;
    default:
      break;
  }
  if (detail::IsPayablesType(ownerType_)) {
    b.CreateElement2("Desc", description_, isMod);
    b.CreateElement("Quantity", QuantityToText(quantity_));
    members();
    if (billableStatus_ != 0) b.CreateElement("BillableStatus", EnumCodeToXML(billableStatus_, qoeBillableStatus));
    return;
  }
  if (quantity_ != Currency(1)) b.CreateElement("Quantity", QuantityToText(quantity_));
  members();
}

}  // namespace tessaron
