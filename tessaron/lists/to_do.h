// ToDo: a to-do note. It has no name: the collection keys each note by its position in
// the response that brought it ("3~"), so keys hold only until the next query. Its fields
// can be written only until the first commit; QuickBooks' modify is not used (XMLModify
// writes nothing).
#pragma once

#include <memory>
#include <string>

#include "tessaron/framework/list_collection.h"
#include "tessaron/framework/list_object.h"

namespace tessaron {

class ToDo final : public ListObject {
 public:
  ToDo();

  // Required; at most 4095 characters.
  const std::string& Notes() const { return notes_; }
  void SetNotes(const std::string& value) { Store(notes_, value, true); }
  bool IsDone() const { return isDone_; }
  void SetIsDone(bool value) { Store(isDone_, value, true); }
  // 0 means no reminder.
  Date ReminderDate() const { return reminderDate_; }
  void SetReminderDate(Date value) { Store(reminderDate_, value, true); }

  std::string CollectionKey() const override { return key_; }
 private:
  friend class detail::ListObjectAccess;
  void SetKeyInternal(const std::string& key) { key_ = key; }
  static const ListClassInfo& Info();

  std::string notes_;
  bool isDone_ = false;
  Date reminderDate_ = 0;
  std::string key_;
};

class ToDoList final : public ListCollection<ToDo> {
 public:
  ToDoList();
  // A New note; master only; nothing is sent until Commit.
  std::shared_ptr<ToDo> Add(const std::string& Notes = "", bool IsActive = true, bool IsDone = false,
                            Date ReminderDate = 0);
  // DoneStatus: 1 all, 2 done only, 3 not done only.
  int32_t GetByDoneStatus(int32_t DoneStatus, int32_t MaxReturned = 0, const std::string& sMDBPath = "");

 protected:
  void AddParsed(const std::shared_ptr<ListObject>& obj, long position) override;
};

}  // namespace tessaron
