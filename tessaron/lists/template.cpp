#include "tessaron/lists/template.h"

#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/values.h"
#include "tessaron/lists/name_list_tables.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

const ListClassInfo& Template::Info() {
  static const ListClassInfo info = [] {
    using C = ListObject::Common;
    ListClassInfo i = ClassOf("Template", qoObjectTypeTemplate, qoListTemplates);
    // A template kind outside the table is kept as 0 rather than failing the whole query.
    auto read = [](ListObject& obj, const XmlNode& node) {
      const std::string text = node.text();
      auto& self = static_cast<Template&>(obj);
      try {
        self.appliesTo_ = EnumXMLToCode(text, qoeTxnType);
      } catch (const Error&) {
        self.appliesTo_ = 0;
      }
    };
    auto write = [](ListObject& obj, xmlBldr& b, WriteMode) {
      auto& self = static_cast<Template&>(obj);
      if (self.appliesTo_ != 0) b.CreateElement("TemplateType", EnumCodeToXML(self.appliesTo_, qoeTxnType));
    };
    auto text = [](const ListObject& obj) {
      const int32_t code = static_cast<const Template&>(obj).appliesTo_;
      return code == 0 ? std::string() : EnumCodeToXML(code, qoeTxnType);
    };
    i.fields = C::Rows({C::Name(Send::Never), C::IsActive(Send::Never),
                        field::Custom("TemplateType", read, write, text).As("AppliesTo")});
    return i;
  }();
  return info;
}

Template::Template() : ListObject(Info()) {}

std::string Template::TimeCreated() const { return DateTimeToText(timeCreated_); }
std::string Template::TimeModified() const { return DateTimeToText(timeModified_); }

Templates::Templates()
    : ReadOnlyListCollection<Template>(name_lists::ReadOnlyInfo("Template", qoListTemplates, "TemplateQueryRq",
                                                                          qoObjectTypeTemplate)) {}

}  // namespace tessaron
