#include "qbsim/record_writer.h"

#include "qbsim/data_ext_store.h"
#include "qbsim/request_context.h"

namespace tessaron::qbsim {
namespace {
// An aggregate with derived members is answered even when nothing of it is stored.
bool HasComputed(std::span<const Field> fields) {
  for (const Field& f : fields)
    if (f.kind == FieldKind::Computed) return true;
  return false;
}
// The path of the i-th occurrence of a repeated element: "ItemGroupLine#2".
void Indexed(std::string& path, size_t base, const char* tag, int i) {
  path.resize(base);
  path += tag;
  path += '#';
  path += std::to_string(i);
}
}  // namespace

void RecordWriter::WriteRet(XmlOut& out, const ListKind& kind, const RecordRow& row,
                            std::span<const std::string> dataExtOwners) {
  out.Open(kind.retTag);
  WriteFields(out, kind.fields, row);
  WriteDataExtRets(ctx_.file, out, row.listId, dataExtOwners);
  out.Close(kind.retTag);
}

void RecordWriter::WriteFields(XmlOut& out, std::span<const Field> fields, const RecordRow& row) {
  body_.Parse(row.body);
  path_.clear();
  Write(out, fields, row, path_);
}

void RecordWriter::WriteRef(XmlOut& out, const char* tag, std::string_view listId) {
  const std::string& fullName = ctx_.store.FullNameOf(listId);
  // A reference to a record that has gone is left out rather than answered half.
  if (fullName.empty()) return;
  out.Open(tag);
  out.Element("ListID", listId);
  out.Element("FullName", fullName);
  out.Close(tag);
}

void RecordWriter::Write(XmlOut& out, std::span<const Field> fields, const RecordRow& row, std::string& prefix) {
  const size_t base = prefix.size();
  for (const Field& f : fields) {
    if (!(f.flags & kInRet)) continue;
    if ((f.flags & kUsOnly) && !ctx_.IsUS()) continue;
    if (f.addMinVersion > ctx_.version) continue;  // not yet in the session's version
    prefix.resize(base);
    prefix += f.tag;
    const std::string& path = prefix;
    switch (f.kind) {
      case FieldKind::ListID: out.Element(f.tag, row.listId); break;
      case FieldKind::TimeCreated: out.Element(f.tag, row.timeCreated); break;
      case FieldKind::TimeModified: out.Element(f.tag, row.timeModified); break;
      case FieldKind::EditSequence: out.Element(f.tag, row.editSequence); break;
      case FieldKind::Name: out.Element(f.tag, row.name); break;
      case FieldKind::FullName: out.Element(f.tag, row.fullName); break;
      case FieldKind::IsActive: out.Element(f.tag, row.isActive ? "true" : "false"); break;
      case FieldKind::Sublevel: out.Element(f.tag, std::to_string(row.sublevel)); break;
      case FieldKind::ParentRef:
        if (!row.parentListId.empty()) {
          // The parent's full name is this record's without its last level.
          size_t colon = row.fullName.rfind(':');
          out.Open(f.tag);
          out.Element("ListID", row.parentListId);
          out.Element("FullName", row.fullName.substr(0, colon == std::string_view::npos ? 0 : colon));
          out.Close(f.tag);
        }
        break;
      case FieldKind::Value:
        if (const std::string_view* v = body_.Find(path)) out.Element(f.tag, *v);
        break;
      case FieldKind::Ref:
        if (const std::string_view* v = body_.Find(path)) WriteRef(out, f.tag, *v);
        break;
      case FieldKind::Group:
        if (body_.HasTree(path) || HasComputed(f.children)) {
          out.Open(f.tag);
          prefix += '/';
          Write(out, f.children, row, prefix);
          out.Close(f.tag);
        }
        break;
      case FieldKind::RepeatedRef:
        for (int i = 0;; ++i) {
          Indexed(prefix, base, f.tag, i);
          const std::string_view* v = body_.Find(prefix);
          if (!v) break;
          WriteRef(out, f.tag, *v);
        }
        break;
      case FieldKind::RepeatedGroup:
        for (int i = 0;; ++i) {
          Indexed(prefix, base, f.tag, i);
          if (!body_.HasTree(prefix)) break;
          out.Open(f.tag);
          prefix += '/';
          Write(out, f.children, row, prefix);
          out.Close(f.tag);
        }
        break;
      case FieldKind::Computed: {
        std::string v = f.compute(row, ctx_);
        if (!v.empty()) out.Element(f.tag, v);
        break;
      }
    }
  }
  prefix.resize(base);
}

}  // namespace tessaron::qbsim
