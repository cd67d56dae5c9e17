#include "tessaron/lists/address.h"

#include <iterator>
#include <string_view>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"

namespace tessaron {

const Address::LineRow (&Address::Lines())[8] {
  static const LineRow lines[8] = {{"Addr1", &Address::line1_},       {"Addr2", &Address::line2_},
                                   {"Addr3", &Address::line3_},       {"Addr4", &Address::line4_},
                                   {"City", &Address::city_},         {"State", &Address::state_text_},
                                   {"PostalCode", &Address::postalCode_}, {"Country", &Address::country_}};
  return lines;
}

std::shared_ptr<qcErrors> Address::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

bool Address::IsEmpty() const {
  return line1_.empty() && line2_.empty() && line3_.empty() && line4_.empty() && city_.empty() &&
         state_text_.empty() && postalCode_.empty() && country_.empty();
}

void Address::CheckField(bool readOnlyBelowVersion2) {
  if (readOnlyBelowVersion2 && tessaron::State().QBXMLVersionNumber <= Currency(2))
    throw Error(err::kFieldCannotBeModified, "Address", err::kFieldCannotBeModifiedText);
  if (state_ != qoObjectStateNew) state_ = qoObjectStateDirty;
}

void Address::SetLine1(const std::string& value) { CheckField(false); line1_ = value; }
void Address::SetLine2(const std::string& value) { CheckField(false); line2_ = value; }
void Address::SetLine3(const std::string& value) { CheckField(false); line3_ = value; }
void Address::SetLine4(const std::string& value) {
  RequireVersion(2);
  CheckField(false);
  line4_ = value;
}
void Address::SetCity(const std::string& value) { CheckField(false); city_ = value; }
void Address::SetState(const std::string& value) { CheckField(false); state_text_ = value; }
void Address::SetPostalCode(const std::string& value) { CheckField(false); postalCode_ = value; }
void Address::SetCountry(const std::string& value) { CheckField(false); country_ = value; }

bool Address::Validate() {
  auto errors = Errors();
  errors->Clear();
  if (state_ == qoObjectStateClean) return true;
  return errors->Count() == 0;
}

void Address::CopyAddress(Address& ToAddress) const {
  ToAddress.SetLine1(line1_);
  ToAddress.SetLine2(line2_);
  ToAddress.SetLine3(line3_);
  if (tessaron::State().QBXMLVersionNumber >= Currency(2)) ToAddress.SetLine4(line4_);
  ToAddress.SetCity(city_);
  ToAddress.SetState(state_text_);
  ToAddress.SetPostalCode(postalCode_);
  ToAddress.SetCountry(country_);
}

const char* Address::StateTag() {
  const LibraryState& s = tessaron::State();
  if (s.IsUKProduct) return "County";
  return s.IsNonUSProduct ? "Province" : "State";
}

void Address::FromDom(const XmlNode& node) {
  std::string scratch;
  const auto& lines = Lines();
  const size_t kLines = std::size(lines);
  size_t next = 0;  // the lines arrive in order: each search starts behind the last match
  for (const XmlNode& child : node.childNodes()) {
    std::string_view tag = child.baseName();
    // Whatever the edition, a state arrives in one of three names.
    if (tag == "Province" || tag == "County") tag = "State";
    bool known = false;
    for (size_t k = 0; k < kLines; ++k) {
      const size_t at = (next + k) % kLines;
      if (lines[at].tag == tag) {
        (this->*lines[at].member).assign(child.textView(scratch));
        next = at + 1;
        known = true;
        break;
      }
    }
    if (!known) NoteUnknownElement(tag, "Address");
  }
  state_ = qoObjectStateClean;
}

void Address::Write(xmlBldr& cxmlbldr) const {
  const std::string stateTag = StateTag();
  for (const LineRow& line : Lines()) {
    const std::string& value = this->*line.member;
    if (value.empty()) continue;
    cxmlbldr.CreateElement(line.member == &Address::state_text_ ? stateTag : std::string(line.tag), value);
  }
}

std::string AddressText(const Address& a) {
  std::string out;
  for (const std::string* part : {&a.Line1(), &a.Line2(), &a.Line3(), &a.Line4(), &a.City()}) {
    if (part->empty()) continue;
    if (!out.empty()) out += ", ";
    out += *part;
  }
  std::string tail = a.State();
  if (!a.PostalCode().empty()) tail += (tail.empty() ? "" : " ") + a.PostalCode();
  if (!a.Country().empty()) tail += (tail.empty() ? "" : ", ") + a.Country();
  if (!tail.empty()) out += (out.empty() ? "" : ", ") + tail;
  return out;
}

}  // namespace tessaron
