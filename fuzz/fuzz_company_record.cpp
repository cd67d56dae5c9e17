// The reading of the company record and of the preferences, as a connection reads them
// when it opens: the first byte picks which query the input answers. A response never
// raises anything but tessaron::Error.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "fuzz/canned_processor.h"
#include "tessaron/company/company.h"
#include "tessaron/company/preferences.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"

using namespace tessaron;

namespace {

// The first response of the answer, or its first record, found by position as the
// connection finds them.
XmlNode FirstResponse(const XmlDocument& doc) { return doc.childNodes().item(1).childNodes().item(0).childNodes().item(0); }
XmlNode FirstRecord(const XmlDocument& doc) { return FirstResponse(doc).childNodes().item(0); }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  fuzz::Canned().response.assign(reinterpret_cast<const char*>(data) + 1, size - 1);
  try {
    auto company = std::make_shared<Company>();
    State().CurrentCompany = company;
    xmlBldr builder;
    if (data[0] % 2 == 0) {
      builder.NewClear();
      builder.OpenAggregateOnly("CompanyQueryRq");
      builder.EndAggregate("CompanyQueryRq");
      XmlDocument doc = builder.NewSendRequest();
      if (builder.ErrNumber() == 0) detail::ListObjectAccess::FromDom(*company, FirstResponse(doc));
      company->Name();
      company->Address()->City();
    } else {
      XmlDocument doc = builder.QueryFullTableExecute("PreferencesQueryRq", 0);
      XmlNode preferences = FirstRecord(doc);
      if (!preferences.IsNull()) detail::ListObjectAccess::FromDom(*company->Preferences(), preferences);
      company->Preferences()->DefaultShipMethod();
    }
  } catch (const Error&) {
  }
  State().CurrentCompany.reset();
  return 0;
}
