#include "tessaron/transactions/invoice.h"

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
#include "tessaron/transactions/invoices.h"
#include "tessaron/transactions/txn_item_line.h"
#include "tessaron/transactions/txn_item_lines.h"

namespace tessaron {

namespace {

constexpr char kSource[] = "Tessaron:Invoice";
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
template <std::shared_ptr<Address> Invoice::*Member>
TxnFieldDef AddressRow(std::string_view tag) {
  static std::string_view savedTag;
  savedTag = tag;
  return field::CustomOf<TxnObject>(
             tag,
             [](TxnObject& o, const XmlNode& n) {
               detail::ListObjectAccess::FromDom(*(static_cast<Invoice&>(o).*Member), n);
             },
             [](TxnObject& o, xmlBldr& b, WriteMode) {
               b.OpenAggregateOnly(savedTag);
               detail::ListObjectAccess::Write(*(static_cast<Invoice&>(o).*Member), b);
               b.EndAggregate(savedTag);
             })
      .Add(Send::Always)
      .Mod(Send::Always);
}

}  // namespace

// The table is in the order of the query-response element; the add and modify requests
// take the rows their columns name, in the same order, which is also theirs.
const TxnClassInfo& Invoice::Info() {
  static const TxnClassInfo info = [] {
    TxnClassInfo i;
    i.className = "Invoice";
    i.objectType = qoObjectTypeInvoice;
    i.gate = TxnModifyGate::AboveVersion20;
    i.lineRet = "InvoiceLineRet";
    i.lineGroupRet = "InvoiceLineGroupRet";
    i.master = [] { return std::static_pointer_cast<TxnCollectionBase>(State().CurrentCompany->Invoices()); };
    const auto addMod = [](TxnFieldDef row, Send mod = Send::Always) { return row.Add(Send::IfSet).Mod(mod); };
    i.fields = Common::Rows({
        addMod(field::Ref("CustomerRef", &Invoice::customerRef_, qoListCustomers), Send::IfSet),
        addMod(field::Ref("ClassRef", &Invoice::classRef_, qoListClasses), Send::IfSet),
        addMod(field::Ref("ARAccountRef", &Invoice::arAccountRef_, qoListAccounts), Send::IfSet),
        field::Ref("TemplateRef", &Invoice::templateRef_, qoListTemplates)
            .Add(Send::IfSet, kV3)
            .Mod(Send::IfSet, kV3)
            .NotInQuery(),
        addMod(field::DateOnly("TxnDate", &Invoice::txnDate_), Send::IfSet),
        addMod(field::Text("RefNumber", &Invoice::refNumber_)),
        AddressRow<&Invoice::billTo_>("BillAddress"),
        AddressRow<&Invoice::shipTo_>("ShipAddress"),
        field::Boolean("IsPending", &Invoice::isPending_).Add(Send::Always).Mod(Send::Always),
        field::Boolean("IsFinanceCharge", &Invoice::isFinanceCharge_),
        addMod(field::Text("PONumber", &Invoice::poNumber_)),
        addMod(field::Ref("TermsRef", &Invoice::termsRef_, qoListTerms), Send::IfSet),
        addMod(field::DateOnly("DueDate", &Invoice::dueDate_), Send::IfSet),
        addMod(field::Ref("SalesRepRef", &Invoice::salesRepRef_, qoListSalesRep), Send::IfSet),
        addMod(field::Text("FOB", &Invoice::fob_)),
        addMod(field::DateOnly("ShipDate", &Invoice::shipDate_), Send::IfSet),
        addMod(field::Ref("ShipMethodRef", &Invoice::shipMethodRef_, qoListShipMethods), Send::IfSet),
        field::Amount("Subtotal", &Invoice::subtotal_),
        addMod(field::Ref("ItemSalesTaxRef", &Invoice::salesTaxItemRef_, qoListItems), Send::IfSet)
            .When([](const TxnObject&) {
              auto company = State().CurrentCompany;
              return IsUSProduct() && company && !company->Preferences()->DefaultItemSalesTax().empty();
            }),
        field::Percent("SalesTaxPercentage", &Invoice::salesTaxPercentage_),
        field::Amount("SalesTaxTotal", &Invoice::salesTaxTotal_),
        field::Amount("AppliedAmount", &Invoice::appliedAmount_),
        field::Amount("BalanceRemaining", &Invoice::balanceRemaining_),
        addMod(field::Text("Memo", &Invoice::memo_)),
        addMod(field::Ref("CustomerMsgRef", &Invoice::customerMsgRef_, qoListCustomerMessages), Send::IfSet),
        field::Boolean("IsToBePrinted", &Invoice::isToBePrinted_).Add(Send::Always).Mod(Send::Always),
        addMod(field::Ref("CustomerSalesTaxCodeRef", &Invoice::salesTaxCodeRef_, qoListSalesTaxCodes), Send::IfSet)
            .When([](const TxnObject&) { return IsUSProduct(); }),
        field::Amount("SuggestedDiscountAmount", &Invoice::suggestedDiscountAmount_),
        field::DateOnly("SuggestedDiscountDate", &Invoice::suggestedDiscountDate_),
        // Read only, and not part of the saved form.
        field::Boolean("IsPaid", &Invoice::isPaid_).NotInQuery(),
        field::Amount("Tax1Total", &Invoice::gstTaxTotal_).NotInQuery(),
        field::Amount("Tax2Total", &Invoice::pstTaxTotal_).NotInQuery(),
        field::Quantity("ExchangeRate", &Invoice::exchangeRate_).NotInQuery(),
    });
    return i;
  }();
  return info;
}

Invoice::Invoice()
    : TxnObject(Info()),
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

Invoice::~Invoice() = default;

// ---- Reference getters ---------------------------------------------------------------------

const std::string& Invoice::Template() const { return NameOf(templateRef_); }
const std::string& Invoice::Class() const { return NameOf(classRef_); }
const std::string& Invoice::Terms() const { return NameOf(termsRef_); }
const std::string& Invoice::ShipMethod() const { return NameOf(shipMethodRef_); }
const std::string& Invoice::Customer() const { return NameOf(customerRef_); }
const std::string& Invoice::ARAccount() const { return NameOf(arAccountRef_); }
const std::string& Invoice::SalesRep() const { return NameOf(salesRepRef_); }
const std::string& Invoice::SalesTaxItem() const { return NameOf(salesTaxItemRef_); }
const std::string& Invoice::CustomerMessage() const { return NameOf(customerMsgRef_); }
const std::string& Invoice::SalesTaxCode() const { return NameOf(salesTaxCodeRef_); }

bool Invoice::IsPaid() const {
  if (State().QBXMLVersionNumber < Currency(2))
    throw Error(err::kVersionNotSupported, kSource, err::kVersionNotSupportedText);
  return isPaid_;
}

// ---- Plain setters -------------------------------------------------------------------------

void Invoice::SetTxnDate(Date value) { MarkModified(true); txnDate_ = value; }
void Invoice::SetRefNumber(const std::string& value) { MarkModified(true); refNumber_ = value; }
void Invoice::SetFOB(const std::string& value) { MarkModified(true); fob_ = value; }
void Invoice::SetMemo(const std::string& value) { MarkModified(true); memo_ = value; }
void Invoice::SetIsPending(bool value) { MarkModified(true); isPending_ = value; }
void Invoice::SetIsToBePrinted(bool value) { MarkModified(true); isToBePrinted_ = value; }
void Invoice::SetPONumber(const std::string& value) { MarkModified(true); poNumber_ = value; }
void Invoice::SetDueDate(Date value) { MarkModified(true); dueDate_ = value; }
void Invoice::SetShipDate(Date value) { MarkModified(true); shipDate_ = value; }

// Names of these lists are stored unchecked.
void Invoice::SetTemplate(const std::string& value) { MarkModified(true); templateRef_ = NamedRef(qoListTemplates, value); }
void Invoice::SetClass(const std::string& value) { MarkModified(true); classRef_ = NamedRef(qoListClasses, value); }
void Invoice::SetShipMethod(const std::string& value) {
  MarkModified(true);
  shipMethodRef_ = NamedRef(qoListShipMethods, value);
}
void Invoice::SetSalesRep(const std::string& value) { MarkModified(true); salesRepRef_ = NamedRef(qoListSalesRep, value); }
void Invoice::SetCustomerMessage(const std::string& value) {
  MarkModified(true);
  customerMsgRef_ = NamedRef(qoListCustomerMessages, value);
}

// ---- Setters with a look-up ----------------------------------------------------------------

void Invoice::SetCustomer(const std::string& value) {
  auto ref = NamedRef(qoListCustomers, value);
  auto customer = Target<tessaron::Customer>(ref);
  if (!customer) {
    if (value.empty()) return;
    throw Error(err::kInvalidCustomer, kSource, err::kInvalidCustomerText);
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

void Invoice::SetARAccount(const std::string& value) {
  MarkModified(true);
  auto ref = NamedRef(qoListAccounts, value);
  if (!value.empty()) {
    auto account = Target<Account>(ref);
    if (!account) throw Error(err::kInvalidTxnAccount, kSource, err::kInvalidTxnAccountText);
    if (account->AccountType() != qbAccountTypeAccountsReceivable)
      throw Error(err::kNeedArAccount, kSource, err::kNeedArAccountText);
  }
  arAccountRef_ = ref;
}

void Invoice::SetTerms(const std::string& value) {
  auto ref = NamedRef(qoListTerms, value);
  auto term = Target<qcTerm>(ref);
  if (!term) {
    if (value.empty()) return;
    throw Error(err::kTermMissing, kSource, err::kTermMissingText);
  }
  MarkModified(true);
  termsRef_ = ref;
  UpdateDueDates();
}

void Invoice::SetSalesTaxCode(const std::string& value) {
  MarkModified(true);
  auto ref = NamedRef(qoListSalesTaxCodes, value);
  if (!value.empty()) {
    auto code = Target<tessaron::SalesTaxCode>(ref);
    if (!code) throw Error(err::kSalesTaxCodeMissing, kSource, err::kSalesTaxCodeMissingText);
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
void CheckLinesAgainst(qcItemTax& tax, const txnItemLines& lines) {
  for (const auto& line : lines) {
    auto item = line->ItemObject();
    if (!item) continue;
    if (IsTaxItemType(item->ItemType()) && Contains(tax, line->Item()))
      throw Error(err::kTaxItemInLines, kSource, err::kTaxItemInLinesText);
    if (item->ItemType() != qbItemGroup || !line->GroupLines()) continue;
    for (const auto& member : *line->GroupLines()) {
      auto memberItem = member->ItemObject();
      if (memberItem && IsTaxItemType(memberItem->ItemType()) && Contains(tax, member->Item()))
        throw Error(err::kTaxItemInLines, kSource, err::kTaxItemInLinesText);
    }
  }
}

}  // namespace

void Invoice::SetSalesTaxItem(const std::string& value) {
  MarkModified(true);
  auto ref = NamedRef(qoListItems, value);
  auto tax = Target<qcItemTax>(ref);
  if (!tax && !value.empty()) throw Error(err::kSalesTaxCodeMissing, kSource, err::kSalesTaxCodeMissingText);
  if (tax) CheckLinesAgainst(*tax, Lines());
  salesTaxItemRef_ = ref;
  salesTaxPercentage_ = tax ? tax->TaxRate() : Currency();
  CalculateTax();
}

// ---- Figures -------------------------------------------------------------------------------

bool Invoice::HeaderTaxIsTaxable() {
  if (!headerTaxKnown_ && !SalesTaxCode().empty()) {
    if (auto code = Target<tessaron::SalesTaxCode>(salesTaxCodeRef_)) {
      headerTaxIsTaxable_ = code->IsTaxable();
      headerTaxKnown_ = true;
    }
  }
  return headerTaxIsTaxable_;
}

void Invoice::CalculateTax() {
  auto tax = Target<qcItemTax>(salesTaxItemRef_);
  salesTaxTotal_ = tax && HeaderTaxIsTaxable() ? tax->CalculateTax(Lines().TaxableTotal()) : Currency();
}

void Invoice::RecalculateTotals() {
  subtotal_ = Lines().Total();
  CalculateTax();
  if (auto term = Target<qcTerm>(termsRef_))
    suggestedDiscountAmount_ = Currency::FromDouble(subtotal_.ToDouble() * term->DiscountPercent().ToDouble() / 100);
  balanceRemaining_ = subtotal_ - appliedAmount_;
}

void Invoice::UpdateDueDates() {
  auto term = Target<qcTerm>(termsRef_);
  if (!term) return;
  dueDate_ = term->CalculateDueDate(txnDate_);
  suggestedDiscountDate_ = term->CalculateDiscountDate(txnDate_);
  // The base here is the balance; RecalculateTotals takes the subtotal.
  suggestedDiscountAmount_ =
      Currency::FromDouble(term->DiscountPercent().ToDouble() * balanceRemaining_.ToDouble() / 100);
}

void Invoice::CheckHeaderTaxItem(std::string& name) {
  auto tax = Target<qcItemTax>(salesTaxItemRef_);
  if (!tax || !Contains(*tax, name)) return;
  name.clear();
  throw Error(err::kTaxItemInHeader, kSource, err::kTaxItemInHeaderText);
}

// ---- State ---------------------------------------------------------------------------------

bool Invoice::PartsDirty() const {
  return billTo_->ObjectState() == qoObjectStateDirty || shipTo_->ObjectState() == qoObjectStateDirty;
}

void Invoice::AfterFromDom() {
  detail::ListObjectAccess::SetObjectState(*billTo_, qoObjectStateClean);
  detail::ListObjectAccess::SetObjectState(*shipTo_, qoObjectStateClean);
  detail::TxnAccess::SetOwnerTaxCode(Lines(), salesTaxCodeRef_);
  headerTaxKnown_ = false;
}

void Invoice::ResetToNew() {
  TxnObject::ResetToNew();
  detail::ListObjectAccess::SetObjectState(*billTo_, qoObjectStateNew);
  detail::ListObjectAccess::SetObjectState(*shipTo_, qoObjectStateNew);
}

// ---- Checks --------------------------------------------------------------------------------

bool Invoice::Validate() {
  auto errors = Errors();
  errors->Clear();
  if (ObjectState() == qoObjectStateClean) return true;

  if (!ARAccount().empty()) {
    auto account = Target<Account>(arAccountRef_);
    if (!account) errors->Add(err::kBadAccount, "ARAccount", err::kBadAccountText);
    else if (account->AccountType() != qbAccountTypeAccountsReceivable)
      errors->Add(err::kNeedArAccount, "ARAccount", err::kNeedArAccountText);
  }
  if (Customer().empty()) errors->Add(err::kInvalidCustomer, "Customer", err::kInvalidCustomerText);

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

int32_t Invoice::SaveAsqBill(const std::string& FilePath) {
  xmlBldr b;
  b.IOClear();
  if (auto customer = Target<tessaron::Customer>(customerRef_)) b.InsertQueryRs(*customer, 1);
  if (auto company = State().CurrentCompany) company->XMLVendorQueryRs(b, 2);
  b.InsertQueryRs(*this, 3);
  return b.SaveToFile(FilePath);
}

}  // namespace tessaron
