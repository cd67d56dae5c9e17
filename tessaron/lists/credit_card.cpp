#include "tessaron/lists/credit_card.h"

#include <string_view>

#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

void CreditCard::SetCardNumber(const std::string& value) { Touch(); cardNumber_ = value; }
void CreditCard::SetExpirationMonth(int16_t value) { Touch(); expirationMonth_ = value; }
void CreditCard::SetExpirationYear(int16_t value) { Touch(); expirationYear_ = value; }
void CreditCard::SetNameOnCard(const std::string& value) { Touch(); nameOnCard_ = value; }
void CreditCard::SetAddress(const std::string& value) { Touch(); address_ = value; }
void CreditCard::SetPostalCode(const std::string& value) { Touch(); postalCode_ = value; }

bool CreditCard::IsEmpty() const {
  return cardNumber_.empty() && nameOnCard_.empty() && address_.empty() && postalCode_.empty() &&
         expirationMonth_ == 0 && expirationYear_ == 0;
}

void CreditCard::FromDom(const XmlNode& node) {
  for (const XmlNode& child : node.childNodes()) {
    std::string_view tag = child.baseName();
    if (tag == "CreditCardNumber") cardNumber_ = child.text();
    else if (tag == "ExpirationMonth") expirationMonth_ = static_cast<int16_t>(Variant(child.text()).ToInteger());
    else if (tag == "ExpirationYear") expirationYear_ = static_cast<int16_t>(Variant(child.text()).ToInteger());
    else if (tag == "NameOnCard") nameOnCard_ = child.text();
    else if (tag == "CreditCardAddress") address_ = child.text();
    else if (tag == "CreditCardPostalCode") postalCode_ = child.text();
    else NoteUnknownElement(tag, "Address");  // the card reports under the address's name
  }
  state_ = qoObjectStateClean;
}

void CreditCard::Write(xmlBldr& cxmlbldr) const {
  cxmlbldr.CreateElement("CreditCardNumber", cardNumber_);
  if (expirationMonth_ != 0) cxmlbldr.CreateElement("ExpirationMonth", std::to_string(expirationMonth_));
  if (expirationYear_ != 0) cxmlbldr.CreateElement("ExpirationYear", std::to_string(expirationYear_));
  cxmlbldr.CreateElement("NameOnCard", nameOnCard_);
  cxmlbldr.CreateElement("CreditCardAddress", address_);
  cxmlbldr.CreateElement("CreditCardPostalCode", postalCode_);
}

}  // namespace tessaron
