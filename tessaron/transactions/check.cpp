#include "tessaron/transactions/check.h"

#include <array>

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/transactions/purchase_collections.h"

namespace tessaron {

namespace {

const auto addOnly = [](TxnFieldDef row) { return row.Add(Send::IfSet).Mod(Send::Never); };

// "Zero" to "Nineteen" at 0..19, then the tens from "Twenty" at 20 to "Ninety" at 27.
const std::array<const char*, 28>& Words() {
  static const std::array<const char*, 28> words = {
      "Zero",    "One",     "Two",       "Three",    "Four",     "Five",    "Six",     "Seven",
      "Eight",   "Nine",    "Ten",       "Eleven",   "Twelve",   "Thirteen", "Fourteen", "Fifteen",
      "Sixteen", "Seventeen", "Eighteen", "Nineteen", "Twenty",   "Thirty",  "Forty",   "Fifty",
      "Sixty",   "Seventy", "Eighty",    "Ninety"};
  return words;
}

// 0..999 in words; empty for 0. The spacing is that of the printed form (a ten ends in a
// blank of its own).
std::string ThreeDigits(int64_t n) {
  std::string text;
  if (const int64_t h = n / 100; h != 0) {
    text += Words()[static_cast<size_t>(h)];
    text += " Hundred ";
    n %= 100;
  }
  if (const int64_t t = n / 10; t != 0) {
    if (t >= 2) {
      text += Words()[static_cast<size_t>(t + 18)];
      text += " ";
      n %= 10;
    } else {
      text += Words()[static_cast<size_t>(n)];
      n = 0;
    }
  }
  if (n != 0) text += Words()[static_cast<size_t>(n)];
  return text;
}

}  // namespace

std::string CheckAmountInWords(Currency amount) {
  const int64_t cents = amount.Raw() / (Currency::kScale / 100);
  int64_t whole = cents / 100;
  std::string text;
  if (std::string millions = ThreeDigits(whole / 1000000); !millions.empty()) text = millions + " million ";
  whole %= 1000000;
  if (std::string thousands = ThreeDigits(whole / 1000); !thousands.empty()) text += thousands + " thousand ";
  whole %= 1000;
  if (std::string rest = ThreeDigits(whole); !rest.empty()) text += rest + " ";
  if (text.empty()) text = "Zero ";
  return text + "and " + std::to_string(cents % 100) + "/100";
}

const TxnClassInfo& Check::Info() {
  static const TxnClassInfo info = [] {
    TxnClassInfo i;
    i.className = "Check";
    i.objectType = qoObjectTypeCheck;
    i.gate = TxnModifyGate::Never;
    i.modifyRefusal = "ModRq not supported";
    i.lineRet = "ItemLineRet";
    i.lineGroupRet = "ItemGroupLineRet";
    i.master = [] { return std::static_pointer_cast<TxnCollectionBase>(State().CurrentCompany->Checks()); };
    i.fields = Common::Rows({
        addOnly(field::Ref("AccountRef", &Check::accountRef_, qoListAccounts)),
        addOnly(field::Ref("PayeeEntityRef", &Check::payeeEntityRef_, qoListEntity)),
        addOnly(field::Text("RefNumber", &Check::refNumber_)),
        addOnly(field::DateOnly("TxnDate", &Check::txnDate_)),
        field::Amount("Amount", &Check::amount_),
        addOnly(field::Text("Memo", &Check::memo_)),
        AddressRow(true),
        field::Boolean("IsToBePrinted", &Check::isToBePrinted_).Add(Send::Always),
        field::Dropped<TxnObject>("DataExtRet"),
    });
    return i;
  }();
  return info;
}

Check::Check() : PurchaseTxn(Info(), Header::Check, true) { totalsFromLines_ = true; }

void Check::SetIsToBePrinted(bool value) { MarkModified(true); isToBePrinted_ = value; }

std::string Check::AmountAsString() const { return CheckAmountInWords(amount_); }

}  // namespace tessaron
