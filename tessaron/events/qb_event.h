// qbEvent: the message QuickBooks calls a subscribed application back with, read into
// plain fields. It needs no connection:
//
//   qbEvent e;
//   e.ParseXML(text);
//   if (e.EventType == qbEventUI && e.CompanyfileOpened) ...
//
// The message is walked by position, as QuickBooks writes it: declaration, the
// <?qbxml version?> instruction, <QBXML>, <QBXMLEvents>, then the event element whose
// first children are the company path and the host. Elements past those positions, and
// any the library does not know, are never read and never fail the parse.
#pragma once

#include <string>

#include "tessaron/platform/date.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

enum qbEventTypes { qbEventData = 1, qbEventUI = 2, qbEventUIExtension = 3 };
enum qbListEventOperations { qbEventAdd = 1, qbEventModify = 2, qbEventDelete = 3, qbEventMerge = 4 };
enum qbTxnEventOperations { qbTxnEventAdd = 1, qbTxnEventModify = 2, qbTxnEventDelete = 3 };

class qbEvent {
 public:
  // Set by ParseXML for every kind of event (EventType stays as it was for an unknown kind).
  qbEventTypes EventType = static_cast<qbEventTypes>(0);
  std::string CompanyPath;
  std::string ProductName;
  std::string MajorVersion;
  std::string MinorVersion;
  // Set for UI events from the company file event.
  bool CompanyfileOpened = false;
  bool AutomaticLogin = false;
  bool NewCompany = false;
  // Held for the application; the parser leaves them alone.
  Date DataEventRecoveryTime = 0;
  Date LastRestoreTime = 0;
  Date LastCondenseTime = 0;
  std::string ListID;
  std::string AfterMergeListID;
  std::string TxnId;
  std::string RefNumber;
  qbListEventOperations qbListEventOp = static_cast<qbListEventOperations>(0);
  qbTxnEventOperations qbTxnEventOp = static_cast<qbTxnEventOperations>(0);
  // Set for UI extension events: the tag of the menu item the user chose.
  std::string EventTag;

  // Reads the message. A text that does not parse, or a message of another shape, raises
  // the platform's error 91 at the first missing node; fields set before that stay.
  void ParseXML(const std::string& EventXML);

  // The document of the last ParseXML, kept after parsing.
  const XmlDocument& Document() const { return doc_; }

 private:
  void ReadCompanyFileEvent(const XmlNode& fileEvent);

  XmlDocument doc_;
};

}  // namespace tessaron
