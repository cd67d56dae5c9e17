#include "tessaron/transactions/sales_txn.h"

#include "tessaron/company/company.h"
#include "tessaron/company/preferences.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/lists/account.h"
#include "tessaron/lists/address.h"
#include "tessaron/lists/customer.h"
#include "tessaron/lists/qc_item.h"
#include "tessaron/lists/sales_tax_code.h"
#include "tessaron/lists/terms.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/detail/txn_access.h"
#include "tessaron/transactions/txn_item_line.h"
#include "tessaron/transactions/txn_item_lines.h"

namespace tessaron {

namespace {

const Currency kV3 = Currency(3);

std::shared_ptr<qcListObjectRef> NamedRef(qoEnumListType list, const std::string& name) {
  auto ref = std::make_shared<qcListObjectRef>(list);
  detail::ListObjectAccess::SetFullName(*ref, name);
  return ref;
}

// The record behind a reference as its own class; null for an empty name or a record
// not on file.
template <class T>
std::shared_ptr<T> Target(const std::shared_ptr<qcListObjectRef>& ref) {
  if (!ref || ref->FullName().empty() || !State().CurrentCompany) return nullptr;
  return std::dynamic_pointer_cast<T>(ResolveListRef(*ref));
}

const std::string& NameOf(const std::shared_ptr<qcListObjectRef>& ref) {
  static const std::string none;
  return ref ? ref->FullName() : none;
}

bool IsUSProduct() { return !State().IsNonUSProduct; }

// The address aggregates are always written, empty or not.
template <std::shared_ptr<Address> SalesTxn::*Member>
TxnFieldDef AddressRow(std::string_view tag) {
  static std::string_view savedTag;
  savedTag = tag;
  return field::CustomOf<TxnObject>(
             tag,
             [](TxnObject& o, const XmlNode& n) {
               detail::ListObjectAccess::FromDom(*(static_cast<SalesTxn&>(o).*Member), n);
             },
             [](TxnObject& o, xmlBldr& b, WriteMode) {
               b.OpenAggregateOnly(savedTag);
               detail::ListObjectAccess::Write(*(static_cast<SalesTxn&>(o).*Member), b);
               b.EndAggregate(savedTag);
             })
      .Add(Send::Always)
      .Mod(Send::Always);
}

}  // namespace

SalesTxn::SalesTxn(const TxnClassInfo& info)
    : TxnObject(info),
      templateRef_(std::make_shared<qcListObjectRef>(qoListTemplates)),
      classRef_(std::make_shared<qcListObjectRef>(qoListClasses)),
      termsRef_(std::make_shared<qcListObjectRef>(qoListTerms)),
      billTo_(std::make_shared<Address>()),
      shipTo_(std::make_shared<Address>()),
      shipMethodRef_(std::make_shared<qcListObjectRef>(qoListShipMethods)),
      customerRef_(std::make_shared<qcListObjectRef>(qoListCustomers)),
      arAccountRef_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      salesRepRef_(std::make_shared<qcListObjectRef>(qoListSalesRep)),
      salesTaxItemRef_(std::make_shared<qcListObjectRef>(qoListItems)),
      customerMsgRef_(std::make_shared<qcListObjectRef>(qoListCustomerMessages)),
      salesTaxCodeRef_(std::make_shared<qcListObjectRef>(qoListSalesTaxCodes)) {
  const Date now = Today();
  txnDate_ = now;
  dueDate_ = now;
  shipDate_ = now;
  if (auto company = State().CurrentCompany) {
    const Preferences& prefs = *company->Preferences();
    fob_ = prefs.DefaultFOB();
    isToBePrinted_ = prefs.IsMarkedToBePrinted();
    detail::ListObjectAccess::SetFullName(*shipMethodRef_, prefs.DefaultShipMethod());
    detail::ListObjectAccess::SetFullName(*salesTaxItemRef_, prefs.DefaultItemSalesTax());
    detail::ListObjectAccess::SetFullName(*salesTaxCodeRef_, prefs.DefaultTaxableSalesTaxCode());
  }
  detail::TxnAccess::SetOwnerTaxCode(Lines(), salesTaxCodeRef_);
}

SalesTxn::~SalesTxn() = default;

std::string SalesTxn::Source() const { return std::string("Tessaron:") + ClassInfo().className; }

// ---- Rows ----------------------------------------------------------------------------------

bool SalesTxn::HasDefaultTaxItem(const TxnObject&) {
  auto company = State().CurrentCompany;
  return company && !company->Preferences()->DefaultItemSalesTax().empty();
}

TxnFieldDef SalesTxn::Row(SalesField f) {
  // Add skips what is empty; modify sends it, which clears the field.
  const auto addMod = [](TxnFieldDef row, Send mod = Send::Always) { return row.Add(Send::IfSet).Mod(mod); };
  switch (f) {
    case SalesField::CustomerRef:
      return addMod(field::Ref("CustomerRef", &SalesTxn::customerRef_, qoListCustomers), Send::IfSet);
    case SalesField::ClassRef: return addMod(field::Ref("ClassRef", &SalesTxn::classRef_, qoListClasses), Send::IfSet);
    case SalesField::ARAccountRef:
      return addMod(field::Ref("ARAccountRef", &SalesTxn::arAccountRef_, qoListAccounts), Send::IfSet);
    case SalesField::TemplateRef:
      return field::Ref("TemplateRef", &SalesTxn::templateRef_, qoListTemplates)
          .Add(Send::IfSet, kV3)
          .Mod(Send::IfSet, kV3)
          .NotInQuery();
    case SalesField::TxnDate: return addMod(field::DateOnly("TxnDate", &SalesTxn::txnDate_), Send::IfSet);
    case SalesField::RefNumber: return addMod(field::Text("RefNumber", &SalesTxn::refNumber_));
    case SalesField::BillAddress: return AddressRow<&SalesTxn::billTo_>("BillAddress");
    case SalesField::ShipAddress: return AddressRow<&SalesTxn::shipTo_>("ShipAddress");
    case SalesField::IsPending:
      return field::Boolean("IsPending", &SalesTxn::isPending_).Add(Send::Always).Mod(Send::Always);
    case SalesField::IsFinanceCharge: return field::Boolean("IsFinanceCharge", &SalesTxn::isFinanceCharge_);
    case SalesField::PONumber: return addMod(field::Text("PONumber", &SalesTxn::poNumber_));
    case SalesField::TermsRef: return addMod(field::Ref("TermsRef", &SalesTxn::termsRef_, qoListTerms), Send::IfSet);
    case SalesField::DueDate: return addMod(field::DateOnly("DueDate", &SalesTxn::dueDate_), Send::IfSet);
    case SalesField::SalesRepRef:
      return addMod(field::Ref("SalesRepRef", &SalesTxn::salesRepRef_, qoListSalesRep), Send::IfSet);
    case SalesField::FOB: return addMod(field::Text("FOB", &SalesTxn::fob_));
    case SalesField::ShipDate: return addMod(field::DateOnly("ShipDate", &SalesTxn::shipDate_), Send::IfSet);
    case SalesField::ShipMethodRef:
      return addMod(field::Ref("ShipMethodRef", &SalesTxn::shipMethodRef_, qoListShipMethods), Send::IfSet);
    case SalesField::Subtotal: return field::Amount("Subtotal", &SalesTxn::subtotal_);
    case SalesField::ItemSalesTaxRef:
      return addMod(field::Ref("ItemSalesTaxRef", &SalesTxn::salesTaxItemRef_, qoListItems), Send::IfSet)
          .When([](const TxnObject& o) { return IsUSProduct() && HasDefaultTaxItem(o); });
    case SalesField::SalesTaxPercentage: return field::Percent("SalesTaxPercentage", &SalesTxn::salesTaxPercentage_);
    case SalesField::SalesTaxTotal: return field::Amount("SalesTaxTotal", &SalesTxn::salesTaxTotal_);
    case SalesField::TotalAmount: return field::Amount("TotalAmount", &SalesTxn::totalAmount_);
    case SalesField::AppliedAmount: return field::Amount("AppliedAmount", &SalesTxn::appliedAmount_);
    case SalesField::BalanceRemaining: return field::Amount("BalanceRemaining", &SalesTxn::balanceRemaining_);
    case SalesField::Memo: return addMod(field::Text("Memo", &SalesTxn::memo_));
    case SalesField::CustomerMsgRef:
      return addMod(field::Ref("CustomerMsgRef", &SalesTxn::customerMsgRef_, qoListCustomerMessages), Send::IfSet);
    case SalesField::IsToBePrinted:
      return field::Boolean("IsToBePrinted", &SalesTxn::isToBePrinted_).Add(Send::Always).Mod(Send::Always);
    case SalesField::CustomerSalesTaxCodeRef:
      return addMod(field::Ref("CustomerSalesTaxCodeRef", &SalesTxn::salesTaxCodeRef_, qoListSalesTaxCodes),
                    Send::IfSet)
          .When([](const TxnObject&) { return IsUSProduct(); });
    case SalesField::SuggestedDiscountAmount:
      return field::Amount("SuggestedDiscountAmount", &SalesTxn::suggestedDiscountAmount_);
    case SalesField::SuggestedDiscountDate:
      return field::DateOnly("SuggestedDiscountDate", &SalesTxn::suggestedDiscountDate_);
    // Read only, and not part of the saved form.
    case SalesField::IsPaid: return field::Boolean("IsPaid", &SalesTxn::isPaid_).NotInQuery();
    case SalesField::Tax1Total: return field::Amount("Tax1Total", &SalesTxn::gstTaxTotal_).NotInQuery();
    case SalesField::Tax2Total: return field::Amount("Tax2Total", &SalesTxn::pstTaxTotal_).NotInQuery();
    case SalesField::ExchangeRate: return field::Quantity("ExchangeRate", &SalesTxn::exchangeRate_).NotInQuery();
    case SalesField::DataExtRet: return field::Dropped<TxnObject>("DataExtRet");
  }
  return field::Dropped<TxnObject>("");
}

// ---- Reference getters ---------------------------------------------------------------------

const std::string& SalesTxn::Template() const { return NameOf(templateRef_); }
const std::string& SalesTxn::Class() const { return NameOf(classRef_); }
const std::string& SalesTxn::Terms() const { return NameOf(termsRef_); }
const std::string& SalesTxn::ShipMethod() const { return NameOf(shipMethodRef_); }
const std::string& SalesTxn::Customer() const { return NameOf(customerRef_); }
const std::string& SalesTxn::ARAccount() const { return NameOf(arAccountRef_); }
const std::string& SalesTxn::SalesRep() const { return NameOf(salesRepRef_); }
const std::string& SalesTxn::SalesTaxItem() const { return NameOf(salesTaxItemRef_); }
const std::string& SalesTxn::CustomerMessage() const { return NameOf(customerMsgRef_); }
const std::string& SalesTxn::SalesTaxCode() const { return NameOf(salesTaxCodeRef_); }

// ---- Plain setters -------------------------------------------------------------------------

void SalesTxn::SetTxnDate(Date value) { MarkModified(true); txnDate_ = value; }
void SalesTxn::SetRefNumber(const std::string& value) { MarkModified(true); refNumber_ = value; }
void SalesTxn::SetFOB(const std::string& value) { MarkModified(true); fob_ = value; }
void SalesTxn::SetMemo(const std::string& value) { MarkModified(true); memo_ = value; }
void SalesTxn::SetIsPending(bool value) { MarkModified(true); isPending_ = value; }
void SalesTxn::SetIsToBePrinted(bool value) { MarkModified(true); isToBePrinted_ = value; }
void SalesTxn::SetPONumber(const std::string& value) { MarkModified(true); poNumber_ = value; }
void SalesTxn::SetDueDate(Date value) { MarkModified(true); dueDate_ = value; }
void SalesTxn::SetShipDate(Date value) { MarkModified(true); shipDate_ = value; }

// Names of these lists are stored unchecked.
void SalesTxn::SetTemplate(const std::string& value) { MarkModified(true); templateRef_ = NamedRef(qoListTemplates, value); }
void SalesTxn::SetClass(const std::string& value) { MarkModified(true); classRef_ = NamedRef(qoListClasses, value); }
void SalesTxn::SetShipMethod(const std::string& value) {
  MarkModified(true);
  shipMethodRef_ = NamedRef(qoListShipMethods, value);
}
void SalesTxn::SetSalesRep(const std::string& value) { MarkModified(true); salesRepRef_ = NamedRef(qoListSalesRep, value); }
void SalesTxn::SetCustomerMessage(const std::string& value) {
  MarkModified(true);
  customerMsgRef_ = NamedRef(qoListCustomerMessages, value);
}

// ---- Setters with a look-up ----------------------------------------------------------------

void SalesTxn::SetCustomer(const std::string& value) {
  auto ref = NamedRef(qoListCustomers, value);
  auto customer = Target<tessaron::Customer>(ref);
  if (!customer) {
    if (value.empty()) return;
    throw Error(err::kInvalidCustomer, Source(), err::kInvalidCustomerText);
  }
  MarkModified(true);
  customerRef_ = ref;
  // Each of these may refuse; what was done before the refusal stays.
  SetTerms(customer->Terms());
  SetSalesTaxCode(customer->SalesTaxCode());
  SetSalesTaxItem(customer->SalesTaxItem());
  customer->BillTo()->CopyAddress(*billTo_);
  customer->ShipTo()->CopyAddress(*shipTo_);
}

void SalesTxn::SetARAccount(const std::string& value) {
  MarkModified(true);
  auto ref = NamedRef(qoListAccounts, value);
  if (!value.empty()) {
    auto account = Target<Account>(ref);
    if (!account) throw Error(err::kInvalidTxnAccount, Source(), err::kInvalidTxnAccountText);
    if (account->AccountType() != qbAccountTypeAccountsReceivable)
      throw Error(err::kNeedArAccount, Source(), err::kNeedArAccountText);
  }
  arAccountRef_ = ref;
}

void SalesTxn::SetTerms(const std::string& value) {
  auto ref = NamedRef(qoListTerms, value);
  auto term = Target<qcTerm>(ref);
  if (!term) {
    if (value.empty()) return;
    throw Error(err::kTermMissing, Source(), err::kTermMissingText);
  }
  MarkModified(true);
  termsRef_ = ref;
  UpdateDueDates();
}

void SalesTxn::SetSalesTaxCode(const std::string& value) {
  MarkModified(true);
  auto ref = NamedRef(qoListSalesTaxCodes, value);
  if (!value.empty()) {
    auto code = Target<tessaron::SalesTaxCode>(ref);
    if (!code) throw Error(err::kSalesTaxCodeMissing, Source(), err::kSalesTaxCodeMissingText);
    headerTaxIsTaxable_ = code->IsTaxable();
    headerTaxKnown_ = true;
  }
  salesTaxCodeRef_ = ref;
  detail::TxnAccess::SetOwnerTaxCode(Lines(), ref);
  RecalculateTotals();
}

namespace {

bool IsTaxItemType(qbEnumItemType type) { return type == qbItemSalesTax || type == qbItemSalesTaxGroup; }

// Tax items know their members by ListID; lines name them. Both are asked.
bool Contains(qcItemTax& tax, const std::string& itemName) {
  if (itemName.empty()) return false;
  if (tax.ContainsTax(itemName)) return true;
  auto item = Target<qcListObject>(NamedRef(qoListItems, itemName));
  return item && tax.ContainsTax(item->ListID());
}

// Raises 0x800407E1 when `tax` contains the tax item of a line (or of a group's member).
void CheckLinesAgainst(qcItemTax& tax, const txnItemLines& lines, const std::string& source) {
  for (const auto& line : lines) {
    auto item = line->ItemObject();
    if (!item) continue;
    if (IsTaxItemType(item->ItemType()) && Contains(tax, line->Item()))
      throw Error(err::kTaxItemInLines, source, err::kTaxItemInLinesText);
    if (item->ItemType() != qbItemGroup || !line->GroupLines()) continue;
    for (const auto& member : *line->GroupLines()) {
      auto memberItem = member->ItemObject();
      if (memberItem && IsTaxItemType(memberItem->ItemType()) && Contains(tax, member->Item()))
        throw Error(err::kTaxItemInLines, source, err::kTaxItemInLinesText);
    }
  }
}

}  // namespace

void SalesTxn::SetSalesTaxItem(const std::string& value) {
  MarkModified(true);
  auto ref = NamedRef(qoListItems, value);
  auto tax = Target<qcItemTax>(ref);
  if (!tax && !value.empty()) throw Error(err::kSalesTaxCodeMissing, Source(), err::kSalesTaxCodeMissingText);
  if (tax) CheckLinesAgainst(*tax, Lines(), Source());
  salesTaxItemRef_ = ref;
  salesTaxPercentage_ = tax ? tax->TaxRate() : Currency();
  CalculateTax();
}

// ---- Figures -------------------------------------------------------------------------------

bool SalesTxn::HeaderTaxIsTaxable() {
  if (!headerTaxKnown_ && !SalesTaxCode().empty()) {
    if (auto code = Target<tessaron::SalesTaxCode>(salesTaxCodeRef_)) {
      headerTaxIsTaxable_ = code->IsTaxable();
      headerTaxKnown_ = true;
    }
  }
  return headerTaxIsTaxable_;
}

void SalesTxn::CalculateTax() {
  auto tax = Target<qcItemTax>(salesTaxItemRef_);
  salesTaxTotal_ = tax && HeaderTaxIsTaxable() ? tax->CalculateTax(Lines().TaxableTotal()) : Currency();
  totalAmount_ = subtotal_ + salesTaxTotal_;
}

void SalesTxn::RecalculateTotals() {
  subtotal_ = Lines().Total();
  CalculateTax();
  if (auto term = Target<qcTerm>(termsRef_))
    suggestedDiscountAmount_ = Currency::FromDouble(subtotal_.ToDouble() * term->DiscountPercent().ToDouble() / 100);
  balanceRemaining_ = subtotal_ - appliedAmount_;
}

void SalesTxn::UpdateDueDates() {
  auto term = Target<qcTerm>(termsRef_);
  if (!term) return;
  dueDate_ = term->CalculateDueDate(txnDate_);
  suggestedDiscountDate_ = term->CalculateDiscountDate(txnDate_);
  // The base here is the balance; RecalculateTotals takes the subtotal.
  suggestedDiscountAmount_ =
      Currency::FromDouble(term->DiscountPercent().ToDouble() * balanceRemaining_.ToDouble() / 100);
}

void SalesTxn::CheckHeaderTaxItem(std::string& name) {
  auto tax = Target<qcItemTax>(salesTaxItemRef_);
  if (!tax || !Contains(*tax, name)) return;
  name.clear();
  throw Error(err::kTaxItemInHeader, Source(), err::kTaxItemInHeaderText);
}

// ---- State ---------------------------------------------------------------------------------

bool SalesTxn::PartsDirty() const {
  return billTo_->ObjectState() == qoObjectStateDirty || shipTo_->ObjectState() == qoObjectStateDirty;
}

void SalesTxn::AfterFromDom() {
  detail::ListObjectAccess::SetObjectState(*billTo_, qoObjectStateClean);
  detail::ListObjectAccess::SetObjectState(*shipTo_, qoObjectStateClean);
  detail::TxnAccess::SetOwnerTaxCode(Lines(), salesTaxCodeRef_);
  headerTaxKnown_ = false;
}

void SalesTxn::ResetToNew() {
  TxnObject::ResetToNew();
  detail::ListObjectAccess::SetObjectState(*billTo_, qoObjectStateNew);
  detail::ListObjectAccess::SetObjectState(*shipTo_, qoObjectStateNew);
}

// ---- Checks --------------------------------------------------------------------------------

void SalesTxn::ValidateARAccount(qcErrors& errors) {
  if (ARAccount().empty()) return;
  auto account = Target<Account>(arAccountRef_);
  if (!account) errors.Add(err::kBadAccount, "ARAccount", err::kBadAccountText);
  else if (account->AccountType() != qbAccountTypeAccountsReceivable)
    errors.Add(err::kNeedArAccount, "ARAccount", err::kNeedArAccountText);
}

bool SalesTxn::Validate() {
  auto errors = Errors();
  errors->Clear();
  if (ObjectState() == qoObjectStateClean) return true;
  ValidateHead(*errors);
  txnItemLines& lines = Lines();
  long lastUsed = 0;
  for (long i = 1; i <= lines.Count(); ++i) {
    auto line = lines.Item(Variant(static_cast<int64_t>(i)));
    if (!detail::TxnAccess::Validate(*line))
      errors->Add(err::kValidateFailed, std::to_string(i), err::kValidateFailedText);
    if (!line->Item().empty() || !line->Description().empty()) lastUsed = i;
  }
  // Trailing empty lines never reach QuickBooks.
  while (lines.Count() > lastUsed) lines.Remove(Variant(static_cast<int64_t>(lines.Count())));
  if (lines.Count() == 0) errors->Add(err::kNeedLine, std::to_string(lines.Count()), err::kNeedLineText);
  return errors->Count() == 0;
}

void FillSalesAdd(SalesTxn& doc, const std::string& Customer, const std::string& RefNumber, Date TxnDate,
                  const std::string& Class, const std::string& CustomerMessage, const std::string& Memo,
                  const std::string& SalesRep) {
  if (!Customer.empty()) doc.SetCustomer(Customer);
  if (TxnDate != 0) doc.SetTxnDate(TxnDate);
  if (!RefNumber.empty()) doc.SetRefNumber(RefNumber);
  if (!Class.empty()) doc.SetClass(Class);
  if (!CustomerMessage.empty()) doc.SetCustomerMessage(CustomerMessage);
  if (!Memo.empty()) doc.SetMemo(Memo);
  if (!SalesRep.empty()) doc.SetSalesRep(SalesRep);
}

}  // namespace tessaron
