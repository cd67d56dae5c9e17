#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/lists/entity_object.h"

#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

FieldDef EntityObject::Shared::Text(std::string_view tag, std::string EntityObject::*m) {
  return field::Text(tag, m).Add(Send::IfSet).Mod(Send::Always);
}

FieldDef EntityObject::Shared::AddOnly(std::string_view tag, std::string EntityObject::*m) {
  return field::Text(tag, m).Add(Send::IfSet);
}

FieldDef EntityObject::Shared::LastNameUnlessFirst() {
  return field::Custom(
             "LastName",
             [](ListObject& o, const XmlNode& n) { static_cast<EntityObject&>(o).lastName_ = n.text(); },
             [](ListObject& o, xmlBldr& b, WriteMode mode) {
               const auto& e = static_cast<const EntityObject&>(o);
               switch (mode) {
                 case WriteMode::Add:
                   if (!e.lastName_.empty()) b.CreateElement("LastName", e.lastName_);
                   break;
                 // QuickBooks refuses a last name equal to the first; a modify then leaves it alone.
                 case WriteMode::Modify:
                   if (e.lastName_ != e.firstName_) b.CreateElement("LastName", e.lastName_);
                   break;
                 case WriteMode::QueryRs: b.CreateElement("LastName", e.lastName_); break;
               }
             },
             [](const ListObject& o) { return static_cast<const EntityObject&>(o).lastName_; })
      .Add(Send::Always)
      .Mod(Send::Always);
}

std::vector<CheckDef> EntityObject::Shared::PersonNameChecks() {
  return {
      check::MaxLength(&EntityObject::salutation_, "Salutation", 15, err::kSalutationTooLong,
                       err::kSalutationTooLongText),
      check::MaxLength(&EntityObject::firstName_, "First Name", 25, err::kFirstLastNameTooLong,
                       err::kFirstLastNameTooLongText),
      check::MaxLength(&EntityObject::middleName_, "Middle Name", 5, err::kMiddleNameTooLong,
                       err::kMiddleNameTooLongText),
      check::MaxLength(&EntityObject::lastName_, "Last Name", 25, err::kFirstLastNameTooLong,
                       err::kFirstLastNameTooLongText),
  };
}

CheckDef EntityObject::Shared::PhoneCheck(std::string EntityObject::*m, const char* label) {
  return check::MaxLength(m, label, 21, err::kPhoneTooLong, err::kPhoneTooLongText);
}

CheckDef EntityObject::Shared::EmailCheck() {
  return check::MaxLength(&EntityObject::email_, "Email", 99, err::kEmailTooLong, err::kEmailTooLongText);
}

CheckDef EntityObject::Shared::AccountNumberCheck() {
  return check::MaxLength(&EntityObject::accountNumber_, "Account Number", 99, err::kCustomerAccountNumberTooLong,
                          err::kCustomerAccountNumberTooLongText);
}

// The rows both classes share, from CompanyName to AltContact; `address` is the class's
// address row.
std::vector<FieldDef> EntityObject::Shared::PayeeContactRows(FieldDef address) {
  return {
      Text("CompanyName", &EntityObject::companyName_),
      Text("Salutation", &EntityObject::salutation_),
      Text("FirstName", &EntityObject::firstName_),
      Text("MiddleName", &EntityObject::middleName_),
      LastNameUnlessFirst(),
      AddOnly("Suffix", &EntityObject::suffix_),
      std::move(address),
      Text("Phone", &EntityObject::phone_),
      AddOnly("Mobile", &EntityObject::mobile_),
      AddOnly("Pager", &EntityObject::pager_),
      Text("AltPhone", &EntityObject::altPhone_),
      Text("Fax", &EntityObject::fax_),
      Text("Email", &EntityObject::email_),
      Text("Contact", &EntityObject::contact_),
      Text("AltContact", &EntityObject::altContact_),
  };
}

// The checks both classes share, from CompanyName to AltContact, in their order.
std::vector<CheckDef> EntityObject::Shared::PayeeContactChecks(CheckDef address) {
  std::vector<CheckDef> checks = {check::MaxLength(&EntityObject::companyName_, "Company Name", 41,
                                                   err::kVendorNameTooLong, err::kVendorNameTooLongText)};
  for (const CheckDef& c : PersonNameChecks()) checks.push_back(c);
  checks.push_back(check::Custom([](ListObject& o, qcErrors& errors) {
    auto& e = static_cast<EntityObject&>(o);
    if (!e.LastName().empty() && e.LastName() == e.FirstName())
      errors.Add(err::kLastNameSameAsFirst, "Last Name", err::kLastNameSameAsFirstText);
  }));
  checks.push_back(address);
  checks.push_back(PhoneCheck(&EntityObject::phone_, "Phone"));
  checks.push_back(PhoneCheck(&EntityObject::altPhone_, "Alt Phone"));
  checks.push_back(PhoneCheck(&EntityObject::fax_, "Fax"));
  checks.push_back(EmailCheck());
  checks.push_back(check::MaxLength(&EntityObject::contact_, "Contact", 41, err::kContactTooLong,
                                    err::kContactTooLongText));
  checks.push_back(check::MaxLength(&EntityObject::altContact_, "Alt Contact", 41, err::kContactTooLong,
                                    err::kContactTooLongText));
  return checks;
}

void EntityObject::Shared::CheckAddress(const std::shared_ptr<Address>& address, const char* field,
                                        qcErrors& errors) {
  if (address && (address->Validate(), address->Errors()->Count() > 0))
    errors.Add(err::kAddressError, field, err::kAddressErrorText);
}

void EntityObject::WriteAddress(const std::shared_ptr<Address>& address, std::string_view tag, xmlBldr& b,
                                WriteMode mode, Shared::AddressRule rule) {
  if (!address) return;
  if (mode == WriteMode::Add) {
    if (rule == Shared::AddressRule::UnlessClean ? address->ObjectState() == qoObjectStateClean : address->IsEmpty()) return;
  } else if (mode == WriteMode::Modify) {
    if (rule == Shared::AddressRule::UnlessClean && address->ObjectState() == qoObjectStateClean) return;
  }
  const std::string name(tag);
  b.OpenAggregateOnly(name);
  detail::ListObjectAccess::Write(*address, b);
  b.EndAggregate(name);
}

void EntityObject::CopyEntity(const EntityObject& from, bool travelling) {
  name_ = from.Name();
  isActive_ = from.IsActive();
  userData_ = from.UserData();
  if (travelling) {
    suffix_ = from.suffix_;
    mobile_ = from.mobile_;
    pager_ = from.pager_;
  }
  companyName_ = from.CompanyName();
  salutation_ = from.Salutation();
  firstName_ = from.FirstName();
  middleName_ = from.MiddleName();
  lastName_ = from.LastName();
  phone_ = from.Phone();
  altPhone_ = from.AltPhone();
  fax_ = from.Fax();
  email_ = from.Email();
  contact_ = from.Contact();
  altContact_ = from.AltContact();
  accountNumber_ = from.AccountNumber();
}

// ---- AddressedEntity ----------------------------------------------------------------------

std::shared_ptr<Address> AddressedEntity::Address() {
  if (!address_) address_ = std::make_shared<tessaron::Address>();
  return address_;
}

FieldDef AddressedEntity::AddressRow(const char* addressTag) {
  return field::Custom(
             addressTag,
             [](ListObject& o, const XmlNode& n) { detail::ListObjectAccess::FromDom(*static_cast<AddressedEntity&>(o).Address(), n); },
             [](ListObject& o, xmlBldr& b, WriteMode mode) {
               auto& e = static_cast<AddressedEntity&>(o);
               WriteAddress(e.address_, e.addressTag_, b, mode, Shared::AddressRule::AddWhenFilled);
             },
             [](const ListObject& o) {
               const auto& address = static_cast<const AddressedEntity&>(o).address_;
               return address ? AddressText(*address) : std::string();
             })
      .Add(Send::Always)
      .Mod(Send::Always)
      .As("Address");
}

void AddressedEntity::AfterFromDom() { detail::ListObjectAccess::SetObjectState(*Address(), qoObjectStateClean); }

void AddressedEntity::ResetToNew() {
  SetObjectState(qoObjectStateNew);
  detail::ListObjectAccess::SetObjectState(*Address(), qoObjectStateNew);
}

bool AddressedEntity::ModifyWhileClean() { return SubRecordNeedsModify(Address()->ObjectState()); }

bool AddressedEntity::SubRecordNeedsModify(qoEnumObjectState state) const {
  switch (state) {
    case qoObjectStateNew:
    case qoObjectStateClean: return false;
    case qoObjectStateDirty: return true;
  }
  RaiseInternal(ClassInfo().className, "Unknown Child Object State");
}

}  // namespace tessaron
