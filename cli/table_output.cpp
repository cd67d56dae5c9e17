#include "cli/table_output.h"

#include <algorithm>
#include <cstdio>
#include <iostream>

#include <CLI/CLI.hpp>

#include "tessaron/foundation/values.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/text.h"

namespace tessaron::cli {

namespace {

// The pseudo column that names each record's class, for lists of several kinds.
constexpr const char* kClassColumn = "Class";

std::string JsonValue(const std::string& text, FieldKind kind) {
  switch (kind) {
    case FieldKind::Boolean: return text;
    case FieldKind::Int16:
    case FieldKind::Amount:
    case FieldKind::Quantity:
    case FieldKind::Percent: return text.empty() ? "null" : text;
    default: return JsonString(text);
  }
}


}  // namespace

std::string JsonString(const std::string& s) {
  std::string out = "\"";
  for (unsigned char ch : s) {
    switch (ch) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (ch < 0x20) {
          char esc[8];
          std::snprintf(esc, sizeof esc, "\\u%04x", ch);
          out += esc;
        } else {
          out += static_cast<char>(ch);
        }
    }
  }
  return out + "\"";
}

std::string CsvCell(const std::string& s) {
  if (s.find_first_of(",\"\r\n") == std::string::npos) return s;
  return "\"" + ReplaceAll(s, "\"", "\"\"") + "\"";
}

Table Select(const Table& t, const std::vector<std::string>& names, bool skipUnknown) {
  Table out;
  std::vector<long> from;  // column of t, or -1 for the class
  for (const auto& name : names) {
    auto it = std::find_if(t.columns.begin(), t.columns.end(), [&](const auto& c) { return EqualsIgnoreCase(c, name); });
    long index = it == t.columns.end() ? -2 : it - t.columns.begin();
    if (index == -2 && EqualsIgnoreCase(name, kClassColumn)) index = -1;
    if (index == -2) {
      if (skipUnknown) continue;
      std::string known;
      for (const auto& c : t.columns) known += c + ", ";
      throw CLI::ValidationError("--columns", "no property " + name + "; the records have: " + known + kClassColumn);
    }
    if (std::find(from.begin(), from.end(), index) != from.end()) continue;
    from.push_back(index);
    out.columns.push_back(index < 0 ? kClassColumn : t.columns[index]);
    out.kinds.push_back(index < 0 ? FieldKind::Text : t.kinds[index]);
  }
  for (size_t r = 0; r < t.rows.size(); ++r) {
    std::vector<std::string> row;
    for (long index : from) row.push_back(index < 0 ? t.classes[r] : t.rows[r][index]);
    out.rows.push_back(std::move(row));
  }
  out.classes = t.classes;
  return out;
}

void FormatAmounts(Table& t) {
  for (size_t c = 0; c < t.columns.size(); ++c) {
    if (t.kinds[c] != FieldKind::Amount) continue;
    for (auto& row : t.rows) {
      Currency value;
      if (!row[c].empty() && Currency::TryParse(row[c], value)) row[c] = FormatCurrency(value, "0.00");
    }
  }
}

void PrintTable(const Table& t) {
  std::vector<size_t> width(t.columns.size());
  for (size_t c = 0; c < t.columns.size(); ++c) {
    width[c] = Utf16Length(t.columns[c]);
    for (const auto& row : t.rows) width[c] = std::max(width[c], Utf16Length(row[c]));
  }
  auto line = [&](const std::vector<std::string>& cells) {
    std::string out;
    for (size_t c = 0; c < cells.size(); ++c) {
      out += cells[c];
      if (c + 1 < cells.size()) out.append(width[c] - Utf16Length(cells[c]) + 2, ' ');
    }
    std::cout << out << "\n";
  };
  line(t.columns);
  std::vector<std::string> rule;
  for (size_t w : width) rule.emplace_back(w, '-');
  line(rule);
  for (const auto& row : t.rows) line(row);
}

void PrintJson(const Table& t) {
  std::cout << "[";
  for (size_t r = 0; r < t.rows.size(); ++r) {
    std::cout << (r ? ",\n " : "\n ") << "{";
    for (size_t c = 0; c < t.columns.size(); ++c)
      std::cout << (c ? ", " : "") << JsonString(t.columns[c]) << ": " << JsonValue(t.rows[r][c], t.kinds[c]);
    std::cout << "}";
  }
  std::cout << (t.rows.empty() ? "]\n" : "\n]\n");
}

void PrintCsv(const Table& t) {
  auto line = [](const std::vector<std::string>& cells) {
    for (size_t c = 0; c < cells.size(); ++c) std::cout << (c ? "," : "") << CsvCell(cells[c]);
    std::cout << "\r\n";
  };
  line(t.columns);
  for (const auto& row : t.rows) line(row);
}

}  // namespace tessaron::cli
