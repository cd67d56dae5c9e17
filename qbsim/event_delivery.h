// Events as QuickBooks delivers them to subscribed applications: the change a request made
// to a list or transaction record (a data event), and the opening and closing of a company
// file (a UI event). The host's SubscriptionStore decides who receives them; this builds
// what they receive.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include <pugixml.hpp>

#include "qbsim/edition.h"

namespace tessaron::qbsim {

// A change of one record, in the words of ListEvent and TxnEvent.
struct DataChange {
  bool isTxn = false;
  std::string type;       // "Customer", "ItemService", "Invoice", "BillPaymentCheck"
  std::string operation;  // "Add", "Modify", "Delete"
  std::string id;         // its ListID or TxnID
  std::string refNumber;  // of a transaction, when it has one
};

// The change a request that succeeded made, read off the request and its answer's body;
// nothing for a query or a request whose record kind no data event names. A void is a
// modify of the transaction, as QuickBooks reports it; so is a custom field added, changed
// or removed on a record (`listIdOf` finds a record named by its full name only).
using ListIdLookup = std::function<std::string(const std::string& type, const std::string& fullName)>;
std::optional<DataChange> ChangeOf(const pugi::xml_node& request, const std::string& answerBody,
                                   const ListIdLookup& listIdOf);

// Who sends the event: the company file and the product.
struct EventHost {
  std::string companyPath;
  std::string productName;
  int majorVersion = 0;
  int minorVersion = 0;
  Edition edition = Edition::US;
  int qbxmlVersion = kDefaultNewestVersion;  // of the instruction, in tenths
};

// The whole callback text: the XML declaration, the qbXML instruction, QBXML/QBXMLEvents
// and the event, without whitespace between elements.
std::string DataEventXml(const EventHost& host, const DataChange& change);
std::string CompanyFileEventXml(const EventHost& host, bool opened);

}  // namespace tessaron::qbsim
