// A list record as the company file keeps it: the columns every record has, and its
// other fields as one stored text (see FieldMap).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessaron::qbsim {

// A record read from the file, as views into the row being read: valid until the next row.
struct RecordRow {
  int64_t rowid = 0;
  std::string_view kind, listId, name, fullName, parentListId;
  std::string_view editSequence, timeCreated, timeModified, body;
  int sublevel = 0;
  bool isActive = true;
  int64_t balance = 0;       // ten-thousandths
  int64_t totalBalance = 0;  // ten-thousandths; with the records below this one
};

// A record held for writing.
struct ListRecord {
  int64_t rowid = 0;  // 0 until stored
  std::string kind, listId, name, fullName, parentListId;
  std::string editSequence, timeCreated, timeModified, body;
  int sublevel = 0;
  bool isActive = true;
  int64_t balance = 0;
  int64_t totalBalance = 0;

  RecordRow View() const {
    RecordRow r;
    r.rowid = rowid;
    r.kind = kind;
    r.listId = listId;
    r.name = name;
    r.fullName = fullName;
    r.parentListId = parentListId;
    r.editSequence = editSequence;
    r.timeCreated = timeCreated;
    r.timeModified = timeModified;
    r.body = body;
    r.sublevel = sublevel;
    r.isActive = isActive;
    r.balance = balance;
    r.totalBalance = totalBalance;
    return r;
  }
};

}  // namespace tessaron::qbsim
