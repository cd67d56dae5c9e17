// The shared part of the lines of transactions whose lines are records of their own (the
// debit and credit lines of a journal entry, the lines of a deposit), not item lines:
// the line's state, errors and user data, the rule that a line of a document QuickBooks
// already holds cannot change, and the collection of such lines.
#pragma once

#include <memory>
#include <string>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/platform/collection.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/variant.h"

namespace tessaron {

class qcListObjectRef;

class TxnPlainLine {
 public:
  std::shared_ptr<qcErrors> Errors() {
    if (!errors_) errors_ = std::make_shared<qcErrors>();
    return errors_;
  }
  const Variant& UserData() const { return userData_; }
  void SetUserData(const Variant& value) { userData_ = value; }
  qoEnumObjectState ObjectState() const { return state_; }

 protected:
  explicit TxnPlainLine(const char* source) : source_(source) {}
  // A setter's guard: a line of a stored document raises 0x800403EA; a read line turns Dirty.
  void Changing() {
    if (stored_ && *stored_) throw Error(err::kFieldCannotBeModified, source_, err::kFieldCannotBeModifiedText);
    if (state_ == qoObjectStateClean) state_ = qoObjectStateDirty;
  }

  qoEnumObjectState state_ = qoObjectStateNew;

 private:
  template <class Line>
  friend class TxnPlainLines;
  const char* source_;
  std::shared_ptr<qcErrors> errors_;
  Variant userData_;
  // Shared with the owning document: true once QuickBooks holds it.
  std::shared_ptr<const bool> stored_;
};

class qcListObject;

// The full name held by a reference, empty for none.
const std::string& RefName(const std::shared_ptr<qcListObjectRef>& ref);
// The record a name stands for in `list`; null for an empty name, no company, or no
// record. `refOut` receives a fresh reference holding the name.
std::shared_ptr<qcListObject> LookupRecord(qoEnumListType list, const std::string& name,
                                           std::shared_ptr<qcListObjectRef>* refOut = nullptr);
// A reference setter's look-up: a name not on file raises `number` with `source`, and
// `target` keeps its old value; an empty name clears it.
void SetCheckedRef(std::shared_ptr<qcListObjectRef>& target, qoEnumListType list, const std::string& value,
                   uint32_t number, const char* text, const char* source);

template <class Line>
class TxnPlainLines {
 public:
  qoEnumObjectState ObjectState() const { return state_; }
  std::shared_ptr<qcErrors> Errors() {
    if (!errors_) errors_ = std::make_shared<qcErrors>();
    return errors_;
  }
  void Clear() {
    Guard();
    col_ = Collection<std::shared_ptr<Line>>();
  }
  bool ItemExists(const Variant& vntIndexKey) const {
    if (vntIndexKey.IsString()) return col_.Exists(vntIndexKey.ToString());
    const auto at = vntIndexKey.ToInteger();
    return at >= 1 && at <= col_.Count();
  }
  // By position from 1 or by key; raises the collection's error when absent.
  std::shared_ptr<Line> Item(const Variant& vntIndexKey) const { return col_.Item(vntIndexKey); }
  long Count() const { return col_.Count(); }
  void Remove(const Variant& vntIndexKey) {
    Guard();
    col_.Remove(vntIndexKey);
  }
  auto begin() const { return col_.begin(); }
  auto end() const { return col_.end(); }

  // The owner's side, library-internal.
  // Whether the owning document is stored (its lines then refuse every change).
  void SetStored(bool value) { *stored_ = value; }
  void SetState(qoEnumObjectState value) {
    state_ = value;
    for (const auto& line : col_) line->state_ = value;
  }
  // Forgets every line without the guard (a document being read again).
  void Reset() { col_ = Collection<std::shared_ptr<Line>>(); }
  // Removes lines from the end until `count` are left, without the guard.
  void TrimTo(long count) {
    while (col_.Count() > count) col_.Remove(col_.Count());
  }
  // The document's answer is about to be read: its lines go.
  void BeforeRead() {
    SetStored(false);
    Reset();
  }
  // The answer is read: the lines are QuickBooks' now and refuse every change.
  void AfterRead() {
    SetState(qoObjectStateClean);
    SetStored(true);
  }
  // A saved form loaded: lines to send again.
  void BackToNew() {
    SetStored(false);
    SetState(qoObjectStateNew);
  }
  // The document's check of its lines: `each` sees every line in turn; a line with
  // anything in it runs its Validate, and a failure adds 0x800403F3 with the line's number
  // as field. With a used line, the empty lines behind the last one are removed. Returns
  // the position of the last used line, 0 when none is.
  template <class Each>
  long CheckLines(qcErrors& errors, Each each) {
    long lastUsed = 0, counter = 0;
    for (const auto& line : col_) {
      ++counter;
      each(*line);
      if (!line->IsUsed()) continue;
      lastUsed = counter;
      if (!line->Validate()) errors.Add(err::kValidateFailed, std::to_string(counter), err::kValidateFailedText);
    }
    if (lastUsed > 0) TrimTo(lastUsed);
    return lastUsed;
  }
  // A new line at the end, bound to the document; `add` tells whether a caller adds it.
  std::shared_ptr<Line> Append(bool add = false) {
    if (add) Guard();
    auto line = std::make_shared<Line>();
    line->stored_ = stored_;
    return line;
  }
  void Insert(const std::shared_ptr<Line>& line) { col_.Add(line); }

 protected:
  explicit TxnPlainLines(const char* source) : source_(source), stored_(std::make_shared<bool>(false)) {}
  void Guard() const {
    if (*stored_) throw Error(err::kFieldCannotBeModified, source_, err::kFieldCannotBeModifiedText);
  }

 private:
  const char* source_;
  mutable Collection<std::shared_ptr<Line>> col_;
  qoEnumObjectState state_ = qoObjectStateNew;
  std::shared_ptr<qcErrors> errors_;
  std::shared_ptr<bool> stored_;
};

}  // namespace tessaron
