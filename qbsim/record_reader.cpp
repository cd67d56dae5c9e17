#include "qbsim/record_reader.h"

#include <map>

#include "qbsim/request_context.h"
#include "tessaron/platform/text.h"

namespace tessaron::qbsim {
namespace {

bool Contains(std::span<const char* const> kinds, std::string_view kind) {
  for (const char* k : kinds)
    if (kind == k) return true;
  return false;
}

// Clears the other members of a choice (Price against PricePercent, SalesOrPurchase against
// SalesAndPurchase), so that a record never holds two of them.
void ClearChoice(std::span<const Field> fields, const Field& chosen, const std::string& prefix, FieldMap& body) {
  if (chosen.choice == 0) return;
  for (const Field& other : fields)
    if (&other != &chosen && other.choice == chosen.choice) body.EraseTree(prefix + other.tag);
}

void EraseRepeated(const std::string& path, FieldMap& body) {
  std::vector<std::string> gone;
  for (const auto& [p, v] : body.Items())
    if (p.size() > path.size() && p.compare(0, path.size(), path) == 0 && p[path.size()] == '#') gone.push_back(p);
  for (const std::string& p : gone) body.Erase(p);
}

}  // namespace

Status RecordReader::Read(const pugi::xml_node& node, FieldMap& body) {
  return ReadGroup(kind_.fields, node, "", body, true);
}

Status RecordReader::Resolve(const Field& f, const pugi::xml_node& ref, std::string& listId) {
  std::string id = ref.child_value("ListID");
  std::string fullName = ref.child_value("FullName");
  listId.clear();
  std::span<const char* const> kinds = f.target->kinds;
  if (!id.empty()) {
    auto rec = ctx_.store.ByListId(id);
    if (!rec || !Contains(kinds, rec->kind)) return status::InvalidReference(f.target->description, id);
    listId = rec->listId;
    return status::Ok();
  }
  if (fullName.empty()) return status::Ok();  // "clear the reference"
  auto recs = ctx_.store.ByFullName(kinds, fullName);
  if (recs.empty()) return status::InvalidReference(f.target->description, fullName);
  listId = recs.front().listId;
  return status::Ok();
}

Status RecordReader::ReadGroup(std::span<const Field> fields, const pugi::xml_node& node, const std::string& prefix,
                               FieldMap& body, bool top) {
  std::map<std::string, int, std::less<>> repeats;  // next position of each repeated element
  for (pugi::xml_node c = node.first_child(); c; c = c.next_sibling()) {
    if (c.type() != pugi::node_element) continue;
    std::string_view tag = c.name();
    if (top && form_ == kInMod && (tag == "ListID" || tag == "EditSequence")) continue;
    const Field* f = FindRequestField(fields, tag, form_);
    if (!f || f->kind == FieldKind::Computed) {
      if (ctx_.Strict()) return status::NotSupported("The element " + std::string(tag) + " in " + node.name());
      continue;
    }
    // Outside the US the edition has no such element; strict mode refused the message before.
    if ((f->flags & kUsOnly) && !ctx_.IsUS()) continue;
    const std::string path = prefix + f->tag;
    const std::string text = c.text().get();
    switch (f->kind) {
      case FieldKind::Name: {
        std::string v(Trim(text));
        if (v.empty()) return status::MissingElement(f->tag);
        int limit = f->maxLength ? f->maxLength : kind_.nameMaxLength;
        if (static_cast<int>(Utf16Length(v)) > limit) return status::TooLong(f->tag, v, limit);
        if (kind_.hierarchical && v.find(':') != std::string::npos) return status::BadValue(f->tag, v);
        name = v;
        break;
      }
      case FieldKind::IsActive: {
        auto v = Canonical(ValueType::Bool, text);
        if (!v) return status::BadValue(f->tag, text);
        if (!v->empty()) active = *v == "true";
        break;
      }
      case FieldKind::ParentRef: {
        std::string id;
        std::string pid = c.child_value("ListID"), pname = c.child_value("FullName");
        if (!pid.empty()) {
          auto rec = ctx_.store.ByListId(pid);
          if (!rec || rec->kind != kind_.name) return status::InvalidReference(kind_.name, pid);
          id = rec->listId;
        } else if (!pname.empty()) {
          auto recs = ctx_.store.ByFullName(std::span<const std::string>(std::vector<std::string>{kind_.name}), pname);
          if (recs.empty()) return status::InvalidReference(kind_.name, pname);
          id = recs.front().listId;
        }
        parentGiven = true;
        parentListId = id;
        break;
      }
      case FieldKind::Value: {
        auto v = Canonical(f->type, text, f->enumValues);
        if (!v) return status::BadValue(f->tag, text);
        if (f->maxLength && static_cast<int>(Utf16Length(*v)) > f->maxLength)
          return status::TooLong(f->tag, *v, f->maxLength);
        if (v->empty()) {
          // An empty element clears the field in a modify and means nothing in an add.
          if (form_ == kInMod) body.Erase(path);
          break;
        }
        ClearChoice(fields, *f, prefix, body);
        body.Set(path, *v);
        break;
      }
      case FieldKind::Ref: {
        std::string id;
        Status s = Resolve(*f, c, id);
        if (!s.Ok()) return s;
        if (id.empty()) {
          if (form_ == kInMod) body.Erase(path);
          break;
        }
        ClearChoice(fields, *f, prefix, body);
        body.Set(path, id);
        break;
      }
      case FieldKind::Group: {
        ClearChoice(fields, *f, prefix, body);
        if (form_ == kInMod && (f->flags & kReplaceOnMod)) body.EraseTree(path);
        Status s = ReadGroup(f->children, c, path + "/", body, false);
        if (!s.Ok()) return s;
        break;
      }
      case FieldKind::RepeatedRef: {
        auto [it, first] = repeats.try_emplace(path, 0);
        if (first) EraseRepeated(path, body);
        std::string id;
        Status s = Resolve(*f, c, id);
        if (!s.Ok()) return s;
        if (id.empty()) return status::MissingElement(std::string(f->tag) + "/FullName");
        body.Set(path + "#" + std::to_string(it->second++), id);
        break;
      }
      case FieldKind::RepeatedGroup: {
        auto [it, first] = repeats.try_emplace(path, 0);
        if (first) EraseRepeated(path, body);
        Status s = ReadGroup(f->children, c, path + "#" + std::to_string(it->second++) + "/", body, false);
        if (!s.Ok()) return s;
        break;
      }
      default:
        break;
    }
  }
  return status::Ok();
}

std::string MissingRequired(std::span<const Field> fields, const FieldMap& body) {
  for (const Field& f : fields) {
    if (!(f.flags & kRequired) || f.kind == FieldKind::Name) continue;
    if (!body.HasTree(f.tag)) return f.tag;
  }
  return {};
}

namespace {
void Collect(std::span<const Field> fields, const FieldMap& body, const std::string& prefix,
             std::vector<std::string>& out) {
  for (const Field& f : fields) {
    std::string path = prefix + f.tag;
    if (f.kind == FieldKind::Ref) {
      if (const std::string* v = body.Find(path)) out.push_back(*v);
    } else if (f.kind == FieldKind::Group) {
      Collect(f.children, body, path + "/", out);
    } else if (f.kind == FieldKind::RepeatedRef) {
      for (int i = 0; const std::string* v = body.Find(path + "#" + std::to_string(i)); ++i) out.push_back(*v);
    } else if (f.kind == FieldKind::RepeatedGroup) {
      for (int i = 0; body.HasTree(path + "#" + std::to_string(i)); ++i)
        Collect(f.children, body, path + "#" + std::to_string(i) + "/", out);
    }
  }
}
}  // namespace

void CollectRefs(std::span<const Field> fields, const FieldMap& body, std::vector<std::string>& out) {
  Collect(fields, body, "", out);
}

}  // namespace tessaron::qbsim
