// The tables the tessaron command prints: records as rows of property texts, shown as an
// aligned table, one JSON array or CSV.
#pragma once

#include <string>
#include <vector>

#include "tessaron/framework/field_table.h"

namespace tessaron::cli {

// One row per record; `kinds` says how each column's text is typed (JSON numbers, money).
struct Table {
  std::vector<std::string> columns;
  std::vector<std::vector<std::string>> rows;
  std::vector<FieldKind> kinds;
  std::vector<std::string> classes;  // the class of each row's record
};

// The table with only `names`, in that order (matched case-insensitively). "Class" is the
// record's class unless the records have a property of that name. With `skipUnknown` a name
// no record has is left out; otherwise it fails with the names there are.
Table Select(const Table& t, const std::vector<std::string>& names, bool skipUnknown);

// Money with two decimals, as people read it; the other formats keep the stored text.
void FormatAmounts(Table& t);

// A JSON string literal of the text, and a CSV cell quoted when it must be.
std::string JsonString(const std::string& s);
std::string CsvCell(const std::string& s);

void PrintTable(const Table& t);
void PrintJson(const Table& t);
// CSV with a header row and CRLF line ends.
void PrintCsv(const Table& t);

}  // namespace tessaron::cli
