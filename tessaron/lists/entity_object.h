// EntityObject: what the people and firms of the company (customers, vendors, other names,
// employees) have in common: the person's name, the company name, the ways to reach them
// and an account number. The classes add their own fields, and build their tables and
// checks from the rows and checks below, so that a contact field travels and is checked
// the same way in all of them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/dataext/data_ext_owner.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/framework/list_object.h"
#include "tessaron/lists/address.h"

namespace tessaron {

template <class T>
struct detail_member_owner;
template <class T, class O>
struct detail_member_owner<T O::*> {
  using type = O;
};

class EntityObject : public ListObject, public DataExtOwner {
 public:
  const std::string& CompanyName() const { return companyName_; }
  void SetCompanyName(const std::string& value) { StoreContact(companyName_, value); }
  const std::string& Salutation() const { return salutation_; }
  void SetSalutation(const std::string& value) { StoreContact(salutation_, value); }
  const std::string& FirstName() const { return firstName_; }
  void SetFirstName(const std::string& value) { StoreContact(firstName_, value); }
  const std::string& MiddleName() const { return middleName_; }
  void SetMiddleName(const std::string& value) { StoreContact(middleName_, value); }
  const std::string& LastName() const { return lastName_; }
  void SetLastName(const std::string& value) { StoreContact(lastName_, value); }
  const std::string& Phone() const { return phone_; }
  void SetPhone(const std::string& value) { StoreContact(phone_, value); }
  const std::string& AltPhone() const { return altPhone_; }
  void SetAltPhone(const std::string& value) { StoreContact(altPhone_, value); }
  const std::string& Fax() const { return fax_; }
  void SetFax(const std::string& value) { StoreContact(fax_, value); }
  const std::string& Email() const { return email_; }
  void SetEmail(const std::string& value) { StoreContact(email_, value); }
  const std::string& Contact() const { return contact_; }
  void SetContact(const std::string& value) { StoreContact(contact_, value); }
  const std::string& AltContact() const { return altContact_; }
  virtual void SetAltContact(const std::string& value) { StoreContact(altContact_, value); }
  const std::string& AccountNumber() const { return accountNumber_; }
  void SetAccountNumber(const std::string& value) { StoreContact(accountNumber_, value); }

  // Rows and checks shared by the entity classes.
  struct Shared {
    // A text field that add sends when set and modify always (an empty one clears it).
    static FieldDef Text(std::string_view tag, std::string EntityObject::*m);
    // A text field that only the add request carries (suffix, mobile, pager).
    static FieldDef AddOnly(std::string_view tag, std::string EntityObject::*m);
    // LastName, which a modify leaves out when it equals FirstName.
    static FieldDef LastNameUnlessFirst();
    // When an address aggregate travels.
    enum class AddressRule : uint8_t {
      UnlessClean,    // add and modify send it unless Clean (so a New empty one goes out empty)
      AddWhenFilled,  // add sends it unless empty, modify always
    };
    // The row of an address aggregate held in `Member` (a std::shared_ptr<Address> of the
    // class, one of several), made on demand when read. The tag is kept per member, so a
    // member is always given the same tag. Classes with one address use AddressedEntity.
    template <auto Member, AddressRule Rule>
    static FieldDef AddressRow(std::string_view tag, std::string_view property);

    // Vendors and other names: CompanyName to AltContact in the order of their requests,
    // with `address` after the person's name; and their checks, `address` after LastName.
    static std::vector<FieldDef> PayeeContactRows(FieldDef address);
    static std::vector<CheckDef> PayeeContactChecks(CheckDef address);

    // Salutation 15, FirstName 25, MiddleName 5, LastName 25, in that order.
    static std::vector<CheckDef> PersonNameChecks();
    static CheckDef PhoneCheck(std::string EntityObject::*m, const char* label);
    static CheckDef EmailCheck();
    static CheckDef AccountNumberCheck();
    // The address's own Validate, then 0x800404B1 "Address error" when it has errors.
    static void CheckAddress(const std::shared_ptr<Address>& address, const char* field, qcErrors& errors);
  };

 protected:
  explicit EntityObject(const ListClassInfo& info) : ListObject(info), DataExtOwner(info.objectType) {}
  std::string DataExtRecordId() const override { return ListID(); }

  // The field rule of the contact setters: by default a stored object turns Dirty.
  virtual void GuardContactField() { CheckField(false); }
  void StoreContact(std::string& field, const std::string& value) {
    GuardContactField();
    field = value;
  }
  // Copies Name, IsActive, UserData and the public contact fields of `from` without the
  // field rule; with `travelling` also the suffix, mobile and pager, which have no property.
  void CopyEntity(const EntityObject& from, bool travelling);
  // Clone: a new object of the class with Copy applied.
  template <class T>
  static std::shared_ptr<T> CloneOf(T& from) {
    auto copy = std::make_shared<T>();
    copy->Copy(from);
    return copy;
  }
  static void WriteAddress(const std::shared_ptr<Address>& address, std::string_view tag, xmlBldr& b,
                           WriteMode mode, Shared::AddressRule rule);

  std::string companyName_;
  std::string salutation_;
  std::string firstName_;
  std::string middleName_;
  std::string lastName_;
  std::string suffix_;  // travels in add requests and the query form only
  std::string phone_;
  std::string mobile_;  // as suffix_
  std::string pager_;   // as suffix_
  std::string altPhone_;
  std::string fax_;
  std::string email_;
  std::string contact_;
  std::string altContact_;
  std::string accountNumber_;
};

// An entity with one address of its own (vendors, other names, employees). The address
// keeps its state: a Clean record whose address changed is still sent as a modify.
class AddressedEntity : public EntityObject {
 public:
  // The address; made on first use.
  std::shared_ptr<tessaron::Address> Address();

 protected:
  // Library-internal, through detail::ListObjectAccess.
  void ResetToNew() override;
  // True when the address is Dirty; raises 0x800403EB "Unknown Child Object State" for an
  // address in no known state.
  bool ModifyWhileClean() override;

 protected:
  // `addressTag` names the address aggregate in requests ("VendorAddress").
  AddressedEntity(const ListClassInfo& info, const char* addressTag) : EntityObject(info), addressTag_(addressTag) {}

  void AfterFromDom() override;
  // The address row under the class's tag (the one given to the constructor): add sends
  // it unless empty, modify always.
  static FieldDef AddressRow(const char* addressTag);
  // The address's Validate, then 0x800404B1 with `label` when it found errors.
  template <const char* Label>
  static CheckDef AddressCheck() {
    return check::Custom([](ListObject& o, qcErrors& e) {
      Shared::CheckAddress(static_cast<AddressedEntity&>(o).address_, Label, e);
    });
  }
  // Whether a sub-record in `state` asks for a modify of a Clean record.
  bool SubRecordNeedsModify(qoEnumObjectState state) const;

  std::shared_ptr<tessaron::Address> address_;

 private:
  const char* addressTag_;
};

template <auto Member, EntityObject::Shared::AddressRule Rule>
FieldDef EntityObject::Shared::AddressRow(std::string_view tag, std::string_view property) {
  using Owner = typename detail_member_owner<decltype(Member)>::type;
  // One row per member, so the tag can live with the instantiation.
  static std::string_view savedTag;
  savedTag = tag;
  return field::Custom(
             tag,
             [](ListObject& o, const XmlNode& n) {
               auto& address = static_cast<Owner&>(o).*Member;
               if (!address) address = std::make_shared<Address>();
               detail::ListObjectAccess::FromDom(*address, n);
             },
             [](ListObject& o, xmlBldr& b, WriteMode mode) {
               WriteAddress(static_cast<Owner&>(o).*Member, savedTag, b, mode, Rule);
             },
             [](const ListObject& o) {
               const auto& address = static_cast<const Owner&>(o).*Member;
               return address ? AddressText(*address) : std::string();
             })
      .Add(Send::Always)
      .Mod(Send::Always)
      .As(property);
}

}  // namespace tessaron
