#include "tessaron/lists/to_do.h"

#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_enum.h"
#include "tessaron/foundation/qc_enum_value.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/name_list_tables.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {

namespace {
std::string PositionKey(long position) { return std::to_string(position) + "~"; }
}  // namespace

const ListClassInfo& ToDo::Info() {
  static const ListClassInfo info = [] {
    using C = ListObject::Common;
    ListClassInfo i = ClassOf("ToDo", qoObjectTypeToDo, qoListToDo, ModifyRule::Ignore);
    i.fields = C::Rows({field::Text("Notes", &ToDo::notes_).Add(Send::IfSet), C::IsActive(),
                        field::Boolean("IsDone", &ToDo::isDone_).Add(Send::Always),
                        field::DateOnly("ReminderDate", &ToDo::reminderDate_).Add(Send::IfSet)});
    i.checks = {check::Required(&ToDo::notes_, "Notes", err::kNotesNull, err::kNotesNullText, 4095,
                                err::kNotesTooLong, err::kNotesTooLongText)};
    return i;
  }();
  return info;
}

ToDo::ToDo() : ListObject(Info()) {}

ToDoList::ToDoList()
    : ListCollection<ToDo>(name_lists::CollectionInfo("ToDo", qoListToDo, "ToDoQueryRq", qoObjectTypeToDo, "ToDo")) {}

std::shared_ptr<ToDo> ToDoList::Add(const std::string& Notes, bool IsActive, bool IsDone, Date ReminderDate) {
  Errors()->Clear();
  return AddNew([&](ToDo& note) {
    detail::ListObjectAccess::SetKeyInternal(note, PositionKey(Count() + 1));
    detail::ListObjectAccess::SetIsActiveInternal(note, IsActive);
    note.SetNotes(Notes);
    note.SetIsDone(IsDone);
    note.SetReminderDate(ReminderDate);
  });
}

void ToDoList::AddParsed(const std::shared_ptr<ListObject>& obj, long position) {
  detail::ListObjectAccess::SetKeyInternal(static_cast<ToDo&>(*obj), PositionKey(position));
  ListCollection<ToDo>::AddParsed(obj, position);
}

int32_t ToDoList::GetByDoneStatus(int32_t DoneStatus, int32_t MaxReturned, const std::string& sMDBPath) {
  const std::string status = DoneStatusTable().ItemByCode(static_cast<int16_t>(DoneStatus))->XMLText();
  return RunQuery("ToDoQueryRq", MaxReturned, sMDBPath,
                  [&](xmlBldr& b) { b.CreateElement("DoneStatus", status); });
}

}  // namespace tessaron
