// CreditCard: the card a customer pays with. Like an address it has no identity in
// QuickBooks and keeps an object state of its own: changing it turns a stored card Dirty
// and leaves the customer's state alone. AuthCode is the application's: it is never sent
// nor read.
#pragma once

#include <cstdint>
#include <string>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

namespace detail {
class ListObjectAccess;
}

class xmlBldr;

class CreditCard {
 public:
  CreditCard() = default;

  const std::string& AuthCode() const { return authCode_; }
  void SetAuthCode(const std::string& value) { authCode_ = value; }
  qoEnumObjectState ObjectState() const { return state_; }
  const std::string& CardNumber() const { return cardNumber_; }
  void SetCardNumber(const std::string& value);
  int16_t ExpirationMonth() const { return expirationMonth_; }
  void SetExpirationMonth(int16_t value);
  int16_t ExpirationYear() const { return expirationYear_; }
  void SetExpirationYear(int16_t value);
  const std::string& NameOnCard() const { return nameOnCard_; }
  void SetNameOnCard(const std::string& value);
  // The card holder's street address.
  const std::string& Address() const { return address_; }
  void SetAddress(const std::string& value);
  const std::string& PostalCode() const { return postalCode_; }
  void SetPostalCode(const std::string& value);
  // True when the texts are empty and the month and year are 0.
  bool IsEmpty() const;

 private:
  // Library-internal, through detail::ListObjectAccess.
  friend class detail::ListObjectAccess;
  void SetObjectState(qoEnumObjectState state) { state_ = state; }
  // Reads a CreditCardInfo aggregate; Clean afterwards.
  void FromDom(const XmlNode& node);
  // Writes the fields inside the CreditCardInfo aggregate the owner opened: the texts
  // always (an empty one clears the field), month and year only when not 0.
  void Write(xmlBldr& cxmlbldr) const;
  void Touch() {
    if (state_ != qoObjectStateNew) state_ = qoObjectStateDirty;
  }

  std::string authCode_;
  std::string cardNumber_;
  int16_t expirationMonth_ = 0;
  int16_t expirationYear_ = 0;
  std::string nameOnCard_;
  std::string address_;
  std::string postalCode_;
  qoEnumObjectState state_ = qoObjectStateNew;
};

}  // namespace tessaron
