#include "tessaron/events/qb_event.h"

#include "tessaron/foundation/values.h"
#include "tessaron/platform/text.h"

namespace tessaron {

void qbEvent::ParseXML(const std::string& EventXML) {
  doc_ = XmlDocument::Create();
  doc_.loadXML(EventXML);
  // Document children: 0 the declaration, 1 the <?qbxml?> instruction, 2 <QBXML>; then
  // <QBXMLEvents> and the event. A message without the instruction has its positions
  // shifted and fails at the first node that is not there.
  const XmlNode event = doc_.childNodes().item(2).childNodes().item(0).childNodes().item(0);
  const XmlNodeList parts = event.childNodes();
  const std::string_view kind = event.baseName();
  if (kind == "UIExtensionEvent") {
    EventType = qbEventUIExtension;
    EventTag = parts.item(2).text();
  } else if (kind == "UIEvent") {
    EventType = qbEventUI;
    const XmlNode fileEvent = parts.item(2);
    if (EqualsIgnoreCase(fileEvent.baseName(), "CompanyFileEvent")) ReadCompanyFileEvent(fileEvent);
  } else if (kind == "DataEvent") {
    EventType = qbEventData;
  }
  CompanyPath = parts.item(0).text();
  const XmlNodeList host = parts.item(1).childNodes();
  ProductName = host.item(0).text();
  MajorVersion = host.item(1).text();
  MinorVersion = host.item(2).text();
}

// The operation and the two flags, by name in any letter case; anything else a newer
// QuickBooks adds is skipped.
void qbEvent::ReadCompanyFileEvent(const XmlNode& fileEvent) {
  for (const XmlNode& child : fileEvent.childNodes()) {
    const std::string_view name = child.baseName();
    if (EqualsIgnoreCase(name, "CompanyFileEventOperation"))
      CompanyfileOpened = EqualsIgnoreCase(child.text(), "Open");
    else if (EqualsIgnoreCase(name, "IsNewCompany"))
      NewCompany = BooleanFromText(child.text());
    else if (EqualsIgnoreCase(name, "IsAutomaticLogin"))
      AutomaticLogin = BooleanFromText(child.text());
  }
}

}  // namespace tessaron
