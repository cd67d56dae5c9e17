// tessaron fields list   --company FILE [--app GUID]
// tessaron fields define NAME --company FILE --for TYPE[,TYPE...] [--type STR255TYPE] [--app GUID]
// tessaron fields set    LIST RECORD NAME VALUE --company FILE [--app GUID]
//
// Custom fields (the public ones a QuickBooks user sees) unless --app names the GUID of an
// application, whose own fields are then meant. LIST is Customer, Vendor, Employee,
// OtherName, Account or Item; RECORD the record's full name.
#include <iostream>
#include <memory>
#include <sstream>
#include <string>

#include "cli/commands.h"
#include "cli/session.h"
#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_ext_owner.h"
#include "tessaron/dataext/data_extension_definitions.h"
#include "tessaron/dataext/data_extensions.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/account.h"
#include "tessaron/lists/customers.h"
#include "tessaron/lists/employees.h"
#include "tessaron/lists/items.h"
#include "tessaron/lists/vendors.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/text.h"

namespace tessaron::cli {

namespace {

constexpr const char* kSource = "tessaron fields";

struct FieldsOptions {
  std::string company;
  std::string app;  // the application's GUID; empty for custom fields
  std::string name, type = "STR255TYPE", assignedTo;
  std::string list, record, value;
};

std::shared_ptr<tessaron::Company> OpenCompany(Session& session) {
  auto company = session.Connection().Company();
  if (!company) throw Error(platform_error::kObjectNotSet, kSource, "The company record could not be read.");
  return company;
}

// The application's GUID is registered before the connection, so that the company and
// every query ask for its fields.
void Register(const FieldsOptions& o) { State().DataExtensionsGUID = o.app; }

std::shared_ptr<DataExtensionDefinitions> Definitions(tessaron::Company& company, const FieldsOptions& o) {
  return o.app.empty() ? company.CustomFields() : company.ApplicationFields();
}

// Throws the first error a commit left, for one line on the console.
[[noreturn]] void Refused(qcErrors& errors, const std::string& what) {
  std::string message = what;
  if (errors.Count() > 0) message += ": " + errors.Item(Variant(1))->Description();
  throw Error(err::kCommitFailed, kSource, message);
}

template <class C>
std::shared_ptr<ListObject> Find(C& collection, const std::string& fullName) {
  collection.SetIncludeDataExtensions(true);
  return collection.GetByFullName(fullName);
}

std::shared_ptr<ListObject> FindRecord(tessaron::Company& company, const std::string& list, const std::string& name) {
  if (EqualsIgnoreCase(list, "Customer")) return Find(*company.Customers(), name);
  if (EqualsIgnoreCase(list, "Vendor")) return Find(*company.Vendors(), name);
  if (EqualsIgnoreCase(list, "Employee")) return Find(*company.Employees(), name);
  if (EqualsIgnoreCase(list, "OtherName")) return Find(*company.OtherNames(), name);
  if (EqualsIgnoreCase(list, "Account")) return Find(*company.Accounts(), name);
  if (EqualsIgnoreCase(list, "Item")) return Find(*company.Items(), name);
  throw Error(err::kInvalidDataExtIndex, kSource,
              "Unknown list " + list + ": say Customer, Vendor, Employee, OtherName, Account or Item.");
}

void List(const FieldsOptions& o, const GlobalOptions& global) {
  Register(o);
  Session session(o.company, global);
  auto definitions = Definitions(*OpenCompany(session), o);
  std::cout << (o.app.empty() ? "Custom fields" : "Fields of " + o.app) << ": " << definitions->Count() << "\n";
  for (const auto& d : definitions->NewEnum()) {
    std::ostringstream types;
    for (int32_t t : d->AssignedTos().Types()) types << (types.tellp() > 0 ? ", " : "") << DataExtObjectTypeText(t);
    std::cout << "  " << d->Name() << "  " << EnumCodeToXML(d->DataType(), qoeDataExtDataTypes) << "  " << types.str()
              << "\n";
  }
}

void Define(const FieldsOptions& o, const GlobalOptions& global) {
  const int32_t type = EnumXMLToCode(o.type, qoeDataExtDataTypes);
  if (type <= 0) throw Error(err::kInvalidDataExtIndex, kSource, "Unknown data type " + o.type + ".");
  Register(o);
  Session session(o.company, global);
  auto definitions = Definitions(*OpenCompany(session), o);
  auto definition = definitions->Add(o.name, static_cast<qbEnumDataExtDataType>(type));
  std::stringstream list(o.assignedTo);
  for (std::string t; std::getline(list, t, ',');) {
    const int32_t objectType = DataExtObjectTypeOfText(Trim(t));
    if (objectType == 0) throw Error(err::kInvalidDataExtIndex, kSource, "Unknown object type " + t + ".");
    definition->AssignedTos().Add(objectType);
  }
  State().ErrorMode = false;
  if (definitions->Commit(definition) != 0) Refused(*definition->Errors(), "The field " + o.name + " was not defined");
  std::cout << "Defined " << o.name << " (" << o.type << ") for " << o.assignedTo << "\n";
}

void Set(const FieldsOptions& o, const GlobalOptions& global) {
  Register(o);
  Session session(o.company, global);
  auto company = OpenCompany(session);
  std::shared_ptr<ListObject> record = FindRecord(*company, o.list, o.record);
  if (!record) throw Error(platform_error::kObjectNotSet, kSource, o.list + " " + o.record + " is not on file.");
  auto* owner = dynamic_cast<DataExtOwner*>(record.get());
  if (!owner) throw Error(err::kInvalidDataExtIndex, kSource, "A " + o.list + " has no custom fields.");
  auto values = o.app.empty() ? owner->CustomFields() : owner->ApplicationFields();
  auto value = values->Item(Variant(o.name));
  value->SetValue(Variant(o.value));
  State().ErrorMode = false;
  if (values->Commit(record->ListID()) != 0) Refused(*value->Errors(), "The value was not saved");
  std::cout << o.list << " " << record->FullName() << ": " << o.name << " = " << value->ValueText() << "\n";
}

}  // namespace

void AddFieldsCommand(CLI::App& app, const GlobalOptions& global) {
  CLI::App* fields = app.add_subcommand("fields", "Define custom and application fields and set their values");
  fields->require_subcommand(1);
  auto o = std::make_shared<FieldsOptions>();
  auto common = [o](CLI::App* sub) {
    sub->add_option("--company", o->company, "The company file")->required();
    sub->add_option("--app", o->app, "The GUID of the application whose own fields are meant (default: custom fields)");
  };

  CLI::App* list = fields->add_subcommand("list", "Print the definitions of the fields");
  common(list);
  list->callback([o, &global] { List(*o, global); });

  CLI::App* define = fields->add_subcommand("define", "Define a field and the kinds of record it applies to");
  common(define);
  define->add_option("name", o->name, "The field's name (31 characters at most)")->required();
  define->add_option("--for", o->assignedTo, "The kinds of record, such as Customer,Vendor")->required();
  define->add_option("--type", o->type, "INTTYPE, AMTTYPE, PRICETYPE, QUANTYPE, PERCENTTYPE, DATETIMETYPE, STR255TYPE "
                                        "or STR1024TYPE (custom fields are STR255TYPE)");
  define->callback([o, &global] { Define(*o, global); });

  CLI::App* set = fields->add_subcommand("set", "Set a field's value on one record");
  common(set);
  set->add_option("list", o->list, "Customer, Vendor, Employee, OtherName, Account or Item")->required();
  set->add_option("record", o->record, "The record's full name")->required();
  set->add_option("name", o->name, "The field's name")->required();
  set->add_option("value", o->value, "The value; an empty text clears it")->required();
  set->callback([o, &global] { Set(*o, global); });
}

}  // namespace tessaron::cli
