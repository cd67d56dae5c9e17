#include "tessaron/reports/rpt_result.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

#include "tessaron/foundation/enumerations.h"
#include "tessaron/platform/text.h"

namespace tessaron {
namespace {

int32_t WholeNumber(std::string_view text) {
  int32_t n = 0;
  bool negative = false;
  size_t i = 0;
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) negative = text[i++] == '-';
  for (; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])); ++i) n = n * 10 + (text[i] - '0');
  return negative ? -n : n;
}

// The variant type of a column, from the "dataType" the response gives it.
int32_t VariantTypeOf(std::string_view dataType) {
  if (dataType == "STRTYPE" || dataType == "ENUMTYPE") return 8;
  if (dataType == "DATETYPE") return 7;
  if (dataType == "AMTTYPE" || dataType == "QUANTYPE") return 6;
  if (dataType == "INTTYPE") return 3;
  if (dataType == "BOOLTYPE") return 11;
  if (dataType == "PERCENTTYPE" || dataType == "TIMEINTERVALTYPE") return 4;
  return 0;
}

qbEnumRptRowType RowTypeOf(std::string_view name) {
  if (name == "DataRow") return qbrptRowTypeData;
  if (name == "TotalRow") return qbRptRowTypeTotal;
  if (name == "SubtotalRow") return qbRptRowTypeSubTotal;
  return qbRptRowTypeText;
}

// Calls fn(name, value) for each attribute of an element, in document order.
template <class Fn>
void ForEachAttribute(const XmlNode& element, Fn fn) {
  XmlAttributes attrs = element.attributes();
  for (long i = 0; i < attrs.length(); ++i) {
    XmlNode a = attrs.item(i);
    fn(a.baseName(), a.text());
  }
}

std::string Upper(std::string_view s) {
  std::string u(s);
  for (char& c : u) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return u;
}

std::string FirstCellUpper(const rptRow& row) {
  return row.Columns().Count() ? Upper(row.Columns().Item(1)->Text()) : std::string();
}

// Reports that list full names ("Customer:Job") indent by the parts of the name.
void IndentByNamePath(rptRows& rows) {
  std::vector<std::string> names;
  int16_t indent = 0;
  for (const auto& row : rows) {
    if (row->RowType() == qbRptRowTypeText) {
      auto it = std::find(names.begin(), names.end(), row->Text());
      if (it != names.end()) indent = static_cast<int16_t>(it - names.begin());
    } else if (row->RowType() == qbrptRowTypeData) {
      names.clear();
      std::string_view value = row->RowDataValue();
      for (size_t start = 0;;) {
        size_t colon = value.find(':', start);
        names.emplace_back(value.substr(start, colon == std::string_view::npos ? colon : colon - start));
        if (colon == std::string_view::npos) break;
        start = colon + 1;
      }
      indent = static_cast<int16_t>(names.size());
    }
    row->SetIndentLevel(indent);
  }
}

// The other reports nest by their headings: a subtotal row opens a level under its label,
// and a "Total <label>" row closes back to it.
class LabelStack {
 public:
  void Text(rptRow& row) {
    const std::string text = Upper(row.Text());
    for (int i = 0; i <= depth_; ++i) {
      const std::string& label = Label(i);
      if (label.empty()) continue;
      if (StartsWith(text, label) || (label == "COGS" && StartsWith(text, "COST OF GOODS SOLD"))) {
        depth_ = i;
        break;
      }
    }
    row.SetIndentLevel(static_cast<int16_t>(depth_));
  }
  void Data(rptRow& row) {
    StepBackTo(FirstCellUpper(row));
    row.SetIndentLevel(static_cast<int16_t>(depth_));
  }
  void Total(rptRow& row) {
    const std::string text = FirstCellUpper(row);
    if (StartsWith(text, "TOTAL ")) StepBackTo(text.substr(6));
    row.SetIndentLevel(static_cast<int16_t>(depth_));
  }
  void Subtotal(rptRow& row) {
    const std::string text = FirstCellUpper(row);
    if (StartsWith(text, "GROSS PROFIT")) {
      if (depth_ > 0) --depth_;
      row.SetIndentLevel(static_cast<int16_t>(depth_));
      return;
    }
    std::string label = text;
    if (StartsWith(text, "TOTAL ")) label = text.substr(6);
    else if (StartsWith(text, "NET ")) label = text.substr(4);
    Label(depth_) = label;
    row.SetIndentLevel(static_cast<int16_t>(depth_));
    ++depth_;
  }

 private:
  void StepBackTo(const std::string& label) {
    if (label.empty()) return;
    for (int i = 0; i <= depth_; ++i)
      if (Label(i) == label) {
        depth_ = i;
        return;
      }
  }
  // Thirty-one levels is what the outline holds; a deeper report is refused.
  std::string& Label(int i) {
    if (i >= static_cast<int>(labels_.size())) RaisePlatform(platform_error::kSubscriptOutOfRange);
    return labels_[static_cast<size_t>(i)];
  }
  std::array<std::string, 31> labels_;
  int depth_ = 0;
};

}  // namespace

const std::string& rptColumnHeader::TitleText(long index) const {
  if (index < 1 || index > static_cast<long>(titleLines_.size())) RaisePlatform(platform_error::kSubscriptOutOfRange);
  return titleLines_[static_cast<size_t>(index - 1)];
}

void rptColumnHeader::SetTitleText(long index, const std::string& text) {
  if (index < 1 || index > static_cast<long>(titleLines_.size())) RaisePlatform(platform_error::kSubscriptOutOfRange);
  titleLines_[static_cast<size_t>(index - 1)] = text;
}

void rptColumnHeader::FromDom(const XmlNode& colDesc) {
  ForEachAttribute(colDesc, [&](std::string_view name, const std::string& value) {
    if (name == "colID") id_ = WholeNumber(value);
    else if (name == "dataType") dataType_ = VariantTypeOf(value);
  });
  for (const XmlNode& child : colDesc.childNodes()) {
    if (child.baseName() == "ColTitle") {
      std::string title;
      ForEachAttribute(child, [&](std::string_view name, const std::string& value) {
        if (name == "titleRow") titleRow_ = WholeNumber(value);
        else if (name == "value") title_ = title = value;
      });
      // A title row without a value is a blank line of the heading.
      titleLines_.push_back(title);
    } else if (child.baseName() == "ColType") {
      const std::string type = child.text();
      if (type == "Unsupported") {
        field_ = 0;
      } else {
        // A column type this library does not know reads as unsupported.
        const QCEnum* fields = QBEnumerations().Find(qoeReportField);
        const qcEnumValue* v = fields ? fields->FindByKey(type) : nullptr;
        field_ = v ? v->Code() : 0;
      }
    }
  }
}

std::shared_ptr<rptColumnHeader> rptColumnHeaders::Add(int32_t Field) {
  auto h = std::make_shared<rptColumnHeader>();
  h->SetField(Field);
  AddObject(h);
  return h;
}

std::shared_ptr<rptColumnHeader> rptColumnHeaders::AddByID(int32_t id, int32_t titleRow) {
  auto h = std::make_shared<rptColumnHeader>();
  h->SetID(id);
  h->SetTitleRow(titleRow);
  AddObject(h);
  return h;
}

std::shared_ptr<rptColumn> rptColumns::Add() {
  auto c = std::make_shared<rptColumn>();
  AddObject(c);
  return c;
}

void rptRow::FromDom(const XmlNode& row) {
  rowType_ = RowTypeOf(row.baseName());
  ForEachAttribute(row, [&](std::string_view name, const std::string& value) {
    if (name == "rowNumber") rowNumber_ = WholeNumber(value);
    else if (name == "value") text_ = value;
  });
  for (const XmlNode& child : row.childNodes()) {
    if (child.baseName() == "ColData") {
      auto cell = columns_.Add();
      ForEachAttribute(child, [&](std::string_view name, const std::string& value) {
        if (name == "colID") cell->SetID(WholeNumber(value));
        else if (name == "value") cell->SetText(value);
        else if (name == "dataType") cell->SetDataType(value);
      });
    } else if (child.baseName() == "RowData") {
      ForEachAttribute(child, [&](std::string_view name, const std::string& value) {
        if (name == "rowType") rowDataType_ = value;
        else if (name == "value") rowDataValue_ = value;
      });
    }
  }
}

std::shared_ptr<rptRow> rptRows::Add() {
  auto row = std::make_shared<rptRow>();
  col_.Add(row);
  return row;
}

std::shared_ptr<rptRow> rptRows::AddWithKey(const std::string& key) {
  auto row = std::make_shared<rptRow>();
  col_.Add(row, key);
  return row;
}

void IndentRows(rptRows& rows, bool namePath) {
  if (namePath) {
    IndentByNamePath(rows);
    return;
  }
  LabelStack stack;
  for (const auto& row : rows) {
    switch (row->RowType()) {
      case qbRptRowTypeText: stack.Text(*row); break;
      case qbrptRowTypeData: stack.Data(*row); break;
      case qbRptRowTypeTotal: stack.Total(*row); break;
      case qbRptRowTypeSubTotal: stack.Subtotal(*row); break;
    }
  }
}

}  // namespace tessaron
