// Address: a postal address that hangs off a record (a customer's BillTo and ShipTo, a
// vendor's address, the company's three addresses). It has no identity in QuickBooks and
// no collection, but it keeps an object state of its own, so that its owner can tell
// whether to send it: an address read from QuickBooks and then changed is Dirty while its
// owner stays Clean.
//
// Unlike the fields of a list object, an address can always be changed: its setters only
// turn a stored address Dirty. Line4 alone needs qbXML 2.0.
#pragma once

#include <memory>
#include <string>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

namespace detail {
class ListObjectAccess;
}

class qcErrors;
class xmlBldr;

class Address {
 public:
  Address() = default;

  qoEnumObjectState ObjectState() const { return state_; }
  // Problems an owner noted about this address; made on first read.
  std::shared_ptr<qcErrors> Errors();
  const Variant& UserData() const { return userData_; }
  void SetUserData(const Variant& value) { userData_ = value; }
  // True when every line, the city, state, postal code and country are empty.
  bool IsEmpty() const;

  const std::string& Line1() const { return line1_; }
  void SetLine1(const std::string& value);
  const std::string& Line2() const { return line2_; }
  void SetLine2(const std::string& value);
  const std::string& Line3() const { return line3_; }
  void SetLine3(const std::string& value);
  const std::string& Line4() const { return line4_; }
  // Raises 0x800403ED below qbXML 2.0, whatever the state; nothing changes then.
  void SetLine4(const std::string& value);
  const std::string& City() const { return city_; }
  void SetCity(const std::string& value);
  // The state, province or county: the edition of QuickBooks decides the tag it travels in.
  const std::string& State() const { return state_text_; }
  void SetState(const std::string& value);
  const std::string& PostalCode() const { return postalCode_; }
  void SetPostalCode(const std::string& value);
  const std::string& Country() const { return country_; }
  void SetCountry(const std::string& value);

  // Clears Errors; nothing else is checked, so the result is always true. Owners read
  // Errors.Count afterwards.
  bool Validate();
  // Copies into ToAddress through its setters (so it turns Dirty unless New); Line4 only
  // from qbXML 2.0 on.
  void CopyAddress(Address& ToAddress) const;

  // The tag of the state in this session: "County" in the UK editions, "Province" in the
  // other editions outside the US, "State" in the US.
  static const char* StateTag();

 private:
  // Library-internal, through detail::ListObjectAccess.
  friend class detail::ListObjectAccess;
  void SetObjectState(qoEnumObjectState state) { state_ = state; }
  // Reads an address aggregate; State, Province and County all land in State. Clean afterwards.
  void FromDom(const XmlNode& node);
  // Writes the lines that are not empty, in the order qbXML wants, inside the aggregate
  // the owner opened.
  void Write(xmlBldr& cxmlbldr) const;
  // The guard of every setter. With false a stored address turns Dirty; the refusing
  // branch (true) is kept for the owners' sake, though no setter takes it.
  void CheckField(bool readOnlyBelowVersion2);

  // The lines in the order of the qbXML aggregate, by tag; "State" stands for the
  // edition's tag.
  struct LineRow {
    const char* tag;
    std::string Address::*member;
  };
  static const LineRow (&Lines())[8];

  std::string line1_;
  std::string line2_;
  std::string line3_;
  std::string line4_;
  std::string city_;
  std::string state_text_;
  std::string postalCode_;
  std::string country_;
  std::shared_ptr<qcErrors> errors_;
  Variant userData_;
  qoEnumObjectState state_ = qoObjectStateNew;
};

// The address on one line, for listings: "12 Heron Street, Millbrook, OR 97401, USA".
std::string AddressText(const Address& address);

}  // namespace tessaron
