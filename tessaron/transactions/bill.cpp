#include "tessaron/transactions/bill.h"

#include <cmath>

#include "tessaron/company/company.h"
#include "tessaron/lists/terms.h"
#include "tessaron/transactions/detail/txn_refs.h"
#include "tessaron/transactions/purchase_collections.h"

namespace tessaron {

namespace {
const auto addMod = [](TxnFieldDef row, Send mod = Send::Always) { return row.Add(Send::IfSet).Mod(mod); };
}  // namespace

// In the order of the saved form; the add and the modify take their rows in that order.
const TxnClassInfo& Bill::Info() {
  static const TxnClassInfo info = [] {
    TxnClassInfo i;
    i.className = "Bill";
    i.objectType = qoObjectTypeBill;
    i.gate = TxnModifyGate::AboveVersion20;
    i.lineRet = "ItemLineRet";
    i.lineGroupRet = "ItemGroupLineRet";
    i.master = [] { return std::static_pointer_cast<TxnCollectionBase>(State().CurrentCompany->Bills()); };
    i.fields = Common::Rows({
        addMod(field::Ref("VendorRef", &Bill::vendorRef_, qoListVendors), Send::IfSet),
        addMod(field::Ref("APAccountRef", &Bill::apAccountRef_, qoListAccounts), Send::IfSet).NotInQuery(),
        addMod(field::DateOnly("TxnDate", &Bill::txnDate_), Send::IfSet),
        addMod(field::DateOnly("DueDate", &Bill::dueDate_), Send::IfSet),
        field::Amount("AmountDue", &Bill::amount_),
        addMod(field::Text("RefNumber", &Bill::refNumber_)),
        addMod(field::Ref("TermsRef", &Bill::termsRef_, qoListTerms), Send::IfSet),
        addMod(field::Text("Memo", &Bill::memo_)),
        field::Boolean("IsPaid", &Bill::isPaid_).NotInQuery(),
        field::Amount("OpenAmount", &Bill::openAmount_),
        field::Dropped<TxnObject>("DataExtRet"),
    });
    return i;
  }();
  return info;
}

Bill::Bill() : PurchaseTxn(Info(), Header::Vendor, true) {
  totalsFromLines_ = true;
  writesLinkIds_ = true;
  UpdateDueDate();
}

void Bill::SetDueDate(Date value) { MarkModified(true); dueDate_ = value; }

void Bill::SetTerms(const std::string& value) {
  SetTermsRef(value);
  UpdateDueDate();
}

void Bill::UpdateDueDate() {
  auto term = detail::Target<qcTerm>(termsRef_);
  if (auto standard = std::dynamic_pointer_cast<StandardTerm>(term)) {
    dueDate_ = txnDate_ + standard->DueDays();
  } else if (auto dated = std::dynamic_pointer_cast<DateDrivenTerm>(term)) {
    const DateParts parts = SplitDate(txnDate_);
    Date due = DateSerial(parts.year, parts.month, dated->DayOfMonthDue());
    const long days = static_cast<long>(std::floor(due) - std::floor(txnDate_));
    if (dated->DueNextMonthDays() > days) {
      // Month 13 is January of the next year.
      const int month = parts.month + 1 > 12 ? 1 : parts.month + 1;
      const int year = parts.month + 1 > 12 ? parts.year + 1 : parts.year;
      due = DateSerial(year, month, dated->DayOfMonthDue());
    }
    dueDate_ = due;
  } else {
    dueDate_ = txnDate_ + 10;
  }
}

Date Bill::DiscountDate() const {
  auto term = detail::Target<qcTerm>(termsRef_);
  return term ? term->CalculateDiscountDate(txnDate_) : Date(0);
}

Currency Bill::DiscountAmount() const {
  auto term = detail::Target<qcTerm>(termsRef_);
  if (!term) return Currency();
  const double amount = term->DiscountPercent().ToDouble() * amount_.ToDouble() / 100;
  return Currency::FromDouble(std::round(amount * 100) / 100);
}

}  // namespace tessaron
