// The text forms of values in qbXML, and the small helpers that every class calls while it
// reads or writes a record: conversions both ways, entity decoding, blank removal, the key
// counter of unsaved objects, the version gates and the hook for unknown elements.
//
// Everything qbXML carries is text, so each kind of value has exactly one text form:
// dates "yyyy-mm-dd" (no date: "None"), amounts "#######0.00", quantities and rates
// "0000000.0000", booleans "1" and "0".
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tessaron/foundation/enum_types.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/variant.h"

namespace tessaron {

// ---- Text to value ---------------------------------------------------------------------

// Empty text gives 0. A last character "%" is cut off, and the cut text is written back
// into `text`, so a caller holding "7.5%" is left with "7.5". The rest converts as a
// number; text that is not one raises type mismatch (13).
Currency CurrencyFromText(std::string& text);
// The same conversion for text nobody needs back (a response being read).
Currency CurrencyFromText(std::string_view text);

// "None" and the empty text give the null date (0). "yyyy-mm-dd" is read by position
// (the separators are never looked at; months and days roll over as DateSerial does);
// "yyyy-mm-ddThh:mm:ss" adds the time, and anything behind position 19 (a zone) is
// dropped. Text that fits neither goes through the general date conversion, whose
// failure raises type mismatch (13).
Date DateFromText(std::string_view text);

// Reads a qbXML boolean: "true" and "false" in any letter case, and numbers (0 is false,
// any other number true), with surrounding blanks ignored. The empty text is false. Any
// other text raises type mismatch (13), as the platform's conversion to Boolean does.
bool BooleanFromText(std::string_view text);

// ---- Value to text ---------------------------------------------------------------------

// "None" for the null date (0); otherwise "yyyy-mm-dd". A negative date is a date.
std::string DateToText(Date value);
// "None" for the null date; otherwise "yyyy-mm-dd" below qbXML 2.0 (which knows no times)
// and "yyyy-mm-ddThh:mm:ss" from 2.0 on. Reads the connected version.
std::string DateTimeToText(Date value);
// "0000000.0000": seven integer digits, zero-filled, four decimals.
std::string QuantityToText(Currency value);
// The same form as QuantityToText, kept apart for rates and prices.
std::string PercentRateToText(Currency value);
// "#######0.00" after adding 0.001, so that a value ending in exactly 5 in the third
// decimal rounds up. Negative values get the 0.001 too (so -1.005 gives "-1.00").
std::string AmountToText(Currency value);
// "#,##0.00", for display only (the AmountAsString properties).
std::string AmountToDisplayText(Currency value);
// "1" or "0".
std::string BooleanToText(bool value);

// ---- Text helpers ----------------------------------------------------------------------

// Turns the entities a caller may have written into plain characters, repeating until a
// pass finds nothing to do: "&amp;amp;" ends as "&", "&#64;" as "&@". A pass that changes
// nothing also ends it, so a lone "&lt" (which the stop test sees) cannot hang.
std::string DecodeEntities(std::string_view text);
// DecodeEntities on every element, in place.
void DecodeEntitiesInArray(std::vector<std::string>& texts);

// Removes every blank (" "); other white space stays. "Item Service" -> "ItemService".
std::string RemoveSpaces(std::string_view text);
inline std::string RemoveSpaces(const std::string& text) { return RemoveSpaces(std::string_view(text)); }
inline std::string RemoveSpaces(const char* text) { return RemoveSpaces(std::string_view(text)); }
// The same for a text value; any other value is returned unchanged.
Variant RemoveSpaces(const Variant& value);

// The key of an object that QuickBooks has not yet given an ID: "1Pending", "2Pending", ...
// from a counter of the process that starts at 0.
std::string NextPendingKey();

// ---- Version gates ---------------------------------------------------------------------

// Raises 0x800403ED "The version of QuickBooks you are running does not support this
// feature." (source "Tessaron") when the connected qbXML version is below `minimum`.
// Call as RequireVersion(2) or RequireVersion(Currency::Parse("2.1")).
void RequireVersion(Currency minimum);
// The gate of a setter that exists only from some version on, called before the new value
// is stored. A New object passes whatever the version (it is tested when it is sent); a
// Clean one is gated and, when it passes, becomes Dirty; a Dirty one is gated; any other
// state passes untouched. A refused change leaves the state as it was.
void RequireVersionForChange(Currency minimum, int32_t& state);
inline void RequireVersionForChange(Currency minimum, qoEnumObjectState& state) {
  int32_t value = state;
  RequireVersionForChange(minimum, value);
  state = static_cast<qoEnumObjectState>(value);
}

// ---- Failures and diagnostics ----------------------------------------------------------

// Raises 0x800403EB with source "Tessaron: " + className and the message as description:
// an operation that a class does not support ("SalesRep", "XMLModify not supported").
[[noreturn]] void RaiseInternal(const std::string& className, const std::string& message);
// Raises 0x80040B5E with `source` and the description "<what> is not available in this
// version of Tessaron.": a member whose subsystem this version of the library lacks.
[[noreturn]] void RaiseNotAvailable(const std::string& source, const std::string& what);

// Called by the parsers for an element they do not know; `message` is "Unknown Field: "
// followed by the element name, `tag` the name of the enclosing ...Ret. Does nothing
// unless a hook is installed: an unknown element never fails a parse.
void NoteUnknownField(std::string_view message, std::string_view tag);
// The same for parsers in a hot loop: the message is built only when a hook is installed.
void NoteUnknownElement(std::string_view elementName, std::string_view tag);
// Installs a hook (tests, diagnostics); an empty function removes it.
using UnknownFieldHook = std::function<void(std::string_view message, std::string_view tag)>;
void SetUnknownFieldHook(UnknownFieldHook hook);

// ---- Files -----------------------------------------------------------------------------

// The value of `key` in `[section]` of an ini file, as the platform's private-profile read
// gives it: section and key compared without letter case, blanks around the value and one
// pair of enclosing quotes removed, at most 254 characters (a 255-character buffer holds
// its terminating NUL), cut at the first NUL. The empty text when the file, the section
// or the key does not exist.
std::string ReadIniValue(const std::string& file, const std::string& section, const std::string& key);

// Sets the pending-key counter back to 0, as in a fresh process (see
// ResetLibraryStateForTesting).
void ResetPendingKeysForTesting();

}  // namespace tessaron
