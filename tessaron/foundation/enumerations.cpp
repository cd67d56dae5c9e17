#include "tessaron/foundation/enumerations.h"

#include "tessaron/foundation/detail/enumeration_data.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/platform/error.h"

namespace tessaron {
namespace {

std::shared_ptr<QCEnum> MakeTable(std::span<const detail::EnumRowData> rows) {
  auto table = std::make_shared<QCEnum>();
  for (const auto& r : rows) table->Add(r.code, r.description, r.xmlTag);
  return table;
}

const qcEnumValue& RowOfCode(int32_t code, qoEnumerationType enumeration) {
  const QCEnum* table = QBEnumerations().Find(enumeration);
  const qcEnumValue* row = table ? table->FindByCode(code) : nullptr;
  if (!row) RaiseError(err::kInvalidEnumValue, "Tessaron");
  return *row;
}

}  // namespace

void Enumerations::AddObject(std::shared_ptr<QCEnum> NewObject, const std::string& Key) {
  col_.Add(std::move(NewObject), Key);
}

std::shared_ptr<QCEnum> Enumerations::Item(qoEnumerationType EnumCode) const { return col_.Item(long{EnumCode}); }

std::shared_ptr<QCEnum> Enumerations::Item(const std::string& tableName) const {
  return col_.Item(std::string_view(tableName));
}

std::vector<std::shared_ptr<QCEnum>> Enumerations::NewEnum() const { return col_.Values(); }

const QCEnum* Enumerations::Find(qoEnumerationType EnumCode) const noexcept {
  if (EnumCode < 1 || EnumCode > col_.Count()) return nullptr;
  return col_.Entries()[static_cast<size_t>(EnumCode - 1)].value.get();
}

namespace {
Enumerations& Tables() {
  static Enumerations tables;
  return tables;
}
}  // namespace

Enumerations& QBEnumerations() {
  static const bool loaded = (LoadEnumerations(), true);
  (void)loaded;
  return Tables();
}

void LoadEnumerations() {
  Enumerations& tables = Tables();
  if (tables.Count() != 0) return;
  for (const auto& t : detail::EnumerationTableData()) tables.AddObject(MakeTable(t.rows), t.name);
}

const QCEnum& TermsKindTable() {
  static const std::shared_ptr<QCEnum> table = MakeTable(detail::TermsKindData());
  return *table;
}

const QCEnum& DoneStatusTable() {
  static const std::shared_ptr<QCEnum> table = MakeTable(detail::DoneStatusData());
  return *table;
}

const std::string& EnumCodeToXML(int32_t code, qoEnumerationType enumeration) {
  return RowOfCode(code, enumeration).XMLText();
}

const std::string& EnumCodeToDescription(int32_t code, qoEnumerationType enumeration) {
  return RowOfCode(code, enumeration).Description();
}

int32_t EnumDescriptionToCode(const std::string& description, qoEnumerationType enumeration) {
  const QCEnum* table = QBEnumerations().Find(enumeration);
  const qcEnumValue* row = table ? table->FindByKey(description) : nullptr;
  if (!row) RaiseError(err::kInvalidEnumString, "Tessaron");
  return row->Code();
}

int32_t EnumXMLToCode(std::string_view xml, qoEnumerationType enumeration) {
  const QCEnum* table = QBEnumerations().Find(enumeration);
  const qcEnumValue* row = table ? table->FindByXML(xml) : nullptr;
  if (!row) RaiseError(err::kInvalidEnumString, "Tessaron");
  return row->Code();
}

std::string EStr(int32_t Code, qoEnumerationType Enumeration) {
  const QCEnum* table = QBEnumerations().Find(Enumeration);
  const qcEnumValue* row = table ? table->FindByCode(Code) : nullptr;
  return row ? row->Description() : std::string();
}

int32_t eVal(const std::string& Description, qoEnumerationType Enumeration) {
  const QCEnum* table = QBEnumerations().Find(Enumeration);
  const qcEnumValue* row = table ? table->FindByKey(Description) : nullptr;
  return row ? row->Code() : 0;
}

}  // namespace tessaron
