#include "tessaron/transactions/invoice.h"

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/lists/customer.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/transactions/invoices.h"

namespace tessaron {

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
    using F = SalesField;
    i.fields = Common::Rows({
        Row(F::CustomerRef), Row(F::ClassRef), Row(F::ARAccountRef), Row(F::TemplateRef), Row(F::TxnDate),
        Row(F::RefNumber), Row(F::BillAddress), Row(F::ShipAddress), Row(F::IsPending), Row(F::IsFinanceCharge),
        Row(F::PONumber), Row(F::TermsRef), Row(F::DueDate), Row(F::SalesRepRef), Row(F::FOB), Row(F::ShipDate),
        Row(F::ShipMethodRef), Row(F::Subtotal), Row(F::ItemSalesTaxRef), Row(F::SalesTaxPercentage),
        Row(F::SalesTaxTotal), Row(F::AppliedAmount), Row(F::BalanceRemaining), Row(F::Memo),
        Row(F::CustomerMsgRef), Row(F::IsToBePrinted), Row(F::CustomerSalesTaxCodeRef),
        Row(F::SuggestedDiscountAmount), Row(F::SuggestedDiscountDate), Row(F::IsPaid), Row(F::Tax1Total),
        Row(F::Tax2Total), Row(F::ExchangeRate), Row(F::DataExtRet),
    });
    return i;
  }();
  return info;
}

Invoice::Invoice() : SalesTxn(Info()) {}

Invoice::~Invoice() = default;

bool Invoice::IsPaid() const {
  if (State().QBXMLVersionNumber < Currency(2))
    throw Error(err::kVersionNotSupported, Source(), err::kVersionNotSupportedText);
  return isPaid_;
}

void Invoice::ValidateHead(qcErrors& errors) {
  ValidateARAccount(errors);
  if (Customer().empty()) errors.Add(err::kInvalidCustomer, "Customer", err::kInvalidCustomerText);
}

int32_t Invoice::SaveAsqBill(const std::string& FilePath) {
  xmlBldr b;
  b.IOClear();
  if (auto customer = std::dynamic_pointer_cast<tessaron::Customer>(
          Customer().empty() || !State().CurrentCompany ? nullptr : ResolveListRef(*customerRef_)))
    b.InsertQueryRs(*customer, 1);
  if (auto company = State().CurrentCompany) company->XMLVendorQueryRs(b, 2);
  b.InsertQueryRs(*this, 3);
  return b.SaveToFile(FilePath);
}

}  // namespace tessaron
