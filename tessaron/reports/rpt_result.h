// The result of a report: typed column headers, rows of four kinds, and the cells of each
// row. Report::FromDom fills them from a response; the rows then get their depth from the
// indentation step (IndentRows), so an application can draw the report as QuickBooks does.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/platform/collection.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

// The kind of a row, from its element name.
enum qbEnumRptRowType : int32_t {
  qbRptRowTypeText = 1,      // "TextRow": a heading
  qbrptRowTypeData = 2,      // "DataRow"
  qbRptRowTypeTotal = 3,     // "TotalRow"
  qbRptRowTypeSubTotal = 4,  // "SubtotalRow"
};

// A 1-based, ordered list of shared objects; the shape of the report's collections.
template <class T>
class rptList {
 public:
  void Clear() { items_.clear(); }
  void AddObject(std::shared_ptr<T> o) { items_.push_back(std::move(o)); }
  // Outside 1..Count raises subscript out of range (9).
  std::shared_ptr<T> Item(long index) const { return items_[Slot(index)]; }
  long Count() const { return static_cast<long>(items_.size()); }
  void Remove(long index) { items_.erase(items_.begin() + static_cast<long>(Slot(index))); }
  std::vector<std::shared_ptr<T>> NewEnum() const { return items_; }
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  size_t Slot(long index) const {
    if (index < 1 || index > Count()) RaisePlatform(platform_error::kSubscriptOutOfRange);
    return static_cast<size_t>(index - 1);
  }
  std::vector<std::shared_ptr<T>> items_;
};

// One column of the report ("ColDesc").
class rptColumnHeader {
 public:
  int32_t ID() const { return id_; }
  void SetID(int32_t v) { id_ = v; }
  // Variant type of the column: 8 text, 7 date, 6 amount or quantity, 3 whole number,
  // 11 boolean, 4 percent or time interval.
  int32_t DataType() const { return dataType_; }
  void SetDataType(int32_t v) { dataType_ = v; }
  // The number of the last title row seen, and its text.
  int32_t TitleRow() const { return titleRow_; }
  void SetTitleRow(int32_t v) { titleRow_ = v; }
  const std::string& Title() const { return title_; }
  void SetTitle(const std::string& v) { title_ = v; }
  // The report field of the column ("ColType"); 0 for "Unsupported".
  int32_t Field() const { return field_; }
  void SetField(int32_t v) { field_ = v; }
  // Title lines, one per "ColTitle" seen; TitleText is 1-based.
  int16_t TitleLines() const { return static_cast<int16_t>(titleLines_.size()); }
  const std::string& TitleText(long index) const;
  void SetTitleText(long index, const std::string& text);

  // Library-internal: reads a "ColDesc" element.
  void FromDom(const XmlNode& colDesc);

 private:
  int32_t id_ = 0, dataType_ = 0, titleRow_ = 0, field_ = 0;
  std::string title_;
  std::vector<std::string> titleLines_;
};

class rptColumnHeaders : public rptList<rptColumnHeader> {
 public:
  // True when the application chose the columns (a custom detail report then sends these).
  bool UserSet() const { return userSet_; }
  void SetUserSet(bool v) { userSet_ = v; }
  // Adds a header for a report field (a qbEnumReportFields code).
  std::shared_ptr<rptColumnHeader> Add(int32_t Field);
  // Library-internal: adds a header by column id and title row.
  std::shared_ptr<rptColumnHeader> AddByID(int32_t id, int32_t titleRow);

 private:
  bool userSet_ = false;
};

// One cell ("ColData").
class rptColumn {
 public:
  int32_t ID() const { return id_; }
  void SetID(int32_t v) { id_ = v; }
  const std::string& Text() const { return text_; }
  void SetText(const std::string& v) { text_ = v; }
  // The "dataType" attribute as it stands.
  const std::string& DataType() const { return dataType_; }
  void SetDataType(const std::string& v) { dataType_ = v; }

 private:
  int32_t id_ = 0;
  std::string text_, dataType_;
};

class rptColumns : public rptList<rptColumn> {
 public:
  std::shared_ptr<rptColumn> Add();
};

// One row of the report.
class rptRow {
 public:
  qbEnumRptRowType RowType() const { return rowType_; }
  void SetRowType(qbEnumRptRowType v) { rowType_ = v; }
  int32_t RowNumber() const { return rowNumber_; }
  void SetRowNumber(int32_t v) { rowNumber_ = v; }
  // The row's own "value" (the text of a heading row).
  const std::string& Text() const { return text_; }
  void SetText(const std::string& v) { text_ = v; }
  // Free for the application.
  const std::string& Name() const { return name_; }
  void SetName(const std::string& v) { name_ = v; }
  // "RowData": what the row is about ("account", "customer", ...) and its full name.
  const std::string& RowDataType() const { return rowDataType_; }
  const std::string& RowDataValue() const { return rowDataValue_; }
  // Position in ReportRows.
  int32_t CollectionIndex() const { return collectionIndex_; }
  void SetCollectionIndex(int32_t v) { collectionIndex_ = v; }
  // Depth of the row in the report's outline, from the indentation step.
  int16_t IndentLevel() const { return indentLevel_; }
  void SetIndentLevel(int16_t v) { indentLevel_ = v; }
  Variant& UserData() { return userData_; }
  rptColumns& Columns() { return columns_; }
  const rptColumns& Columns() const { return columns_; }

  // Library-internal: reads a row element of "ReportData".
  void FromDom(const XmlNode& row);

 private:
  qbEnumRptRowType rowType_ = qbRptRowTypeText;
  int32_t rowNumber_ = 0, collectionIndex_ = 0;
  int16_t indentLevel_ = 0;
  std::string text_, name_, rowDataType_, rowDataValue_;
  Variant userData_;
  rptColumns columns_;
};

class rptRows {
 public:
  void Clear() { col_.Clear(); }
  // Adds a new row at the end.
  std::shared_ptr<rptRow> Add();
  // Adds a new row under a key (keys compare case-insensitively; a duplicate raises 457).
  std::shared_ptr<rptRow> AddWithKey(const std::string& key);
  void AddObject(std::shared_ptr<rptRow> row, const std::string& key = "") { col_.Add(std::move(row), key); }
  std::shared_ptr<rptRow> Item(const Variant& indexKey) { return col_.Item(indexKey); }
  std::shared_ptr<rptRow> Item(long index) const { return col_.Item(index); }
  long Count() const { return col_.Count(); }
  void Remove(const Variant& indexKey) { col_.Remove(indexKey); }
  std::vector<std::shared_ptr<rptRow>> NewEnum() const { return col_.Values(); }
  auto begin() const { return col_.begin(); }
  auto end() const { return col_.end(); }

 private:
  Collection<std::shared_ptr<rptRow>> col_;
};

// The indentation step: gives each row its IndentLevel. `namePath` selects the variant for
// the reports whose rows carry full names (check detail, journal, the transaction lists);
// the others follow their headings and totals.
void IndentRows(rptRows& rows, bool namePath);

}  // namespace tessaron
