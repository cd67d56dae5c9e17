// Customer records as QuickBooks returns them, for the tests of customers and jobs.
#pragma once

#include <memory>
#include <string>

#include "tessaron/lists/customer.h"
#include "tessaron/platform/xml_dom.h"
#include "tests/support/list_session.h"
#include "tests/support/qbxml_check.h"

namespace tessaron::testing {

// A CustomerRet: the common fields, then `more` (which must follow the schema's order
// after Sublevel).
inline std::string CustomerRet(const std::string& id, const std::string& name, const std::string& more = "",
                               const std::string& parent = "", const std::string& editSequence = "1000") {
  const std::string fullName = parent.empty() ? name : parent + ":" + name;
  int sublevel = 0;
  for (char c : fullName) sublevel += c == ':';
  std::string body = "<Name>" + name + "</Name><FullName>" + fullName + "</FullName><IsActive>true</IsActive>";
  if (!parent.empty()) body += "<ParentRef><FullName>" + parent + "</FullName></ParentRef>";
  body += "<Sublevel>" + std::to_string(sublevel) + "</Sublevel>" + more;
  return Ret("Customer", id, body, editSequence);
}

// A customer read from a record, Clean, outside any collection.
inline std::shared_ptr<Customer> ParsedCustomer(const std::string& ret) {
  XmlDocument doc = XmlDocument::Create();
  doc.loadXML(ret);
  auto c = std::make_shared<Customer>();
  c->FromDom(doc.documentElement());
  return c;
}

}  // namespace tessaron::testing
