#include "qbsim/event_delivery.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "qbsim/xml_out.h"

namespace tessaron::qbsim {
namespace {

// The record kinds data events name (ListEventType and TxnEventType).
constexpr std::array<std::string_view, 30> kListTypes = {
    "Account",       "Class",          "Customer",     "CustomerMsg",  "CustomerType",  "DateDrivenTerms",
    "Employee",      "ItemDiscount",   "ItemFixedAsset", "ItemGroup",  "ItemInventory", "ItemInventoryAssembly",
    "ItemNonInventory", "ItemOtherCharge", "ItemPayment", "ItemSalesTax", "ItemSalesTaxGroup", "ItemService",
    "ItemSubtotal",  "JobType",        "OtherName",    "PaymentMethod", "PriceLevel",   "SalesRep",
    "SalesTaxCode",  "ShipMethod",     "StandardTerms", "ToDo",        "Vendor",        "VendorType"};
constexpr std::array<std::string_view, 22> kTxnTypes = {
    "ARRefundCreditCard", "Bill",         "BillPaymentCheck", "BillPaymentCreditCard", "Charge",
    "Check",              "CreditCardCharge", "CreditCardCredit", "CreditMemo",         "Deposit",
    "Estimate",           "InventoryAdjustment", "Invoice",     "ItemReceipt",          "JournalEntry",
    "PurchaseOrder",      "ReceivePayment", "SalesOrder",     "SalesReceipt",         "SalesTaxPaymentCheck",
    "TimeTracking",       "VendorCredit"};

template <size_t N>
bool Has(const std::array<std::string_view, N>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool EndsWith(std::string_view text, std::string_view tail) {
  return text.size() > tail.size() && text.substr(text.size() - tail.size()) == tail;
}

// The first element of that name anywhere in the answer's record.
std::string Find(const pugi::xml_node& ret, const char* name) {
  pugi::xml_node n = ret.child(name);
  return n ? n.text().as_string() : std::string();
}

void Head(XmlOut& out, const char* event, const EventHost& host) {
  out.Raw("<?xml version=\"1.0\"?><?qbxml version=\"");
  out.Raw(VersionPrefix(host.edition));
  out.Raw(VersionText(host.qbxmlVersion));
  out.Raw("\"?><QBXML><QBXMLEvents>");
  out.Open(event);
  out.Element("CompanyFilePath", host.companyPath);
  out.Open("HostInfo");
  out.Element("ProductName", host.productName);
  out.Element("MajorVersion", std::to_string(host.majorVersion));
  out.Element("MinorVersion", std::to_string(host.minorVersion));
  out.Element("Country", EditionName(host.edition));
  out.Close("HostInfo");
}

void Tail(XmlOut& out, const char* event) {
  out.Close(event);
  out.Raw("</QBXMLEvents></QBXML>");
}

}  // namespace

std::optional<DataChange> ChangeOf(const pugi::xml_node& request, const std::string& answerBody,
                                   const ListIdLookup& listIdOf) {
  const std::string_view name = request.name();
  DataChange change;
  if (name == "DataExtAddRq" || name == "DataExtModRq" || name == "DataExtDelRq") {
    const std::string element(name.substr(0, name.size() - 2));  // DataExtAdd, DataExtMod, DataExtDel
    const pugi::xml_node owner = request.child(element.c_str());
    change.operation = "Modify";
    if (pugi::xml_node list = owner.child("ListDataExtType")) {
      change.type = list.text().as_string();
      const pugi::xml_node ref = owner.child("ListObjRef");
      change.id = ref.child("ListID").text().as_string();
      if (change.id.empty() && listIdOf) change.id = listIdOf(change.type, ref.child("FullName").text().as_string());
    } else if (pugi::xml_node txn = owner.child("TxnDataExtType")) {
      change.type = txn.text().as_string();
      change.id = owner.child("TxnID").text().as_string();
    } else {
      return std::nullopt;  // the company's own fields
    }
    change.isTxn = Has(kTxnTypes, change.type);
    if (change.id.empty() || (!change.isTxn && !Has(kListTypes, change.type))) return std::nullopt;
    return change;
  }
  if (name == "ListDelRq" || name == "TxnDelRq" || name == "TxnVoidRq") {
    const bool list = name == "ListDelRq";
    change.isTxn = !list;
    change.type = request.child(list ? "ListDelType" : name == "TxnDelRq" ? "TxnDelType" : "TxnVoidType").text().as_string();
    change.operation = name == "TxnVoidRq" ? "Modify" : "Delete";
    change.id = request.child(list ? "ListID" : "TxnID").text().as_string();
  } else if (EndsWith(name, "AddRq") || EndsWith(name, "ModRq")) {
    change.type = std::string(name.substr(0, name.size() - 5));
    change.operation = EndsWith(name, "AddRq") ? "Add" : "Modify";
  } else {
    return std::nullopt;
  }
  change.isTxn = Has(kTxnTypes, change.type);
  if (!change.isTxn && !Has(kListTypes, change.type)) return std::nullopt;

  // The record's identity comes from the answer, which also carries the new number.
  if (!answerBody.empty()) {
    pugi::xml_document doc;
    if (doc.load_buffer(answerBody.data(), answerBody.size())) {
      for (pugi::xml_node ret = doc.first_child(); ret; ret = ret.next_sibling()) {
        if (ret.type() != pugi::node_element) continue;
        if (change.id.empty()) change.id = Find(ret, change.isTxn ? "TxnID" : "ListID");
        if (change.isTxn && change.refNumber.empty()) change.refNumber = Find(ret, "RefNumber");
        break;
      }
    }
  }
  if (change.id.empty()) return std::nullopt;
  return change;
}

std::string DataEventXml(const EventHost& host, const DataChange& change) {
  XmlOut out;
  Head(out, "DataEvent", host);
  const char* tag = change.isTxn ? "TxnEvent" : "ListEvent";
  out.Open(tag);
  out.Element(change.isTxn ? "TxnEventType" : "ListEventType", change.type);
  out.Element(change.isTxn ? "TxnEventOperation" : "ListEventOperation", change.operation);
  out.Element(change.isTxn ? "TxnID" : "ListID", change.id);
  if (change.isTxn && !change.refNumber.empty()) out.Element("RefNumber", change.refNumber);
  out.Close(tag);
  Tail(out, "DataEvent");
  return out.Take();
}

std::string CompanyFileEventXml(const EventHost& host, bool opened) {
  XmlOut out;
  Head(out, "UIEvent", host);
  out.Open("CompanyFileEvent");
  out.Element("CompanyFileEventOperation", opened ? "Open" : "Close");
  out.Close("CompanyFileEvent");
  Tail(out, "UIEvent");
  return out.Take();
}

}  // namespace tessaron::qbsim
