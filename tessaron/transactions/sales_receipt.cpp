#include "tessaron/transactions/sales_receipt.h"

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/transactions/sales_receipts.h"

namespace tessaron {

// The saved form follows the add order with the figures after the tax item. It spells one
// tag "SalesTaPercentage", as files written before expect; the answer's spelling is read.
const TxnClassInfo& SalesReceipt::Info() {
  static const TxnClassInfo info = [] {
    TxnClassInfo i;
    i.className = "SalesReceipt";
    i.objectType = qoObjectTypeSalesReceipt;
    i.gate = TxnModifyGate::Never;
    i.modifyRefusal = "ModRq not supported";
    i.lineRet = "SalesReceiptLineRet";
    i.lineGroupRet = "SalesReceiptLineGroupRet";
    i.master = [] { return std::static_pointer_cast<TxnCollectionBase>(State().CurrentCompany->SalesReceipts()); };
    using F = SalesField;
    const auto addMod = [](TxnFieldDef row) { return row.Add(Send::IfSet).Mod(Send::Always); };
    i.fields = Common::Rows({
        Row(F::CustomerRef), Row(F::ClassRef), Row(F::TemplateRef), Row(F::TxnDate), Row(F::RefNumber),
        Row(F::BillAddress), Row(F::ShipAddress), Row(F::IsPending),
        addMod(field::Text("CheckNumber", &SalesReceipt::checkNumber_)),
        addMod(field::Ref("PaymentMethodRef", &SalesReceipt::paymentMethodRef_, qoListPaymentMethods)),
        Row(F::DueDate), Row(F::SalesRepRef), Row(F::ShipDate), Row(F::ShipMethodRef), Row(F::FOB),
        Row(F::ItemSalesTaxRef).When(&SalesTxn::HasDefaultTaxItem), Row(F::Subtotal),
        field::Percent("SalesTaPercentage", &SalesReceipt::salesTaxPercentage_),
        field::Percent("SalesTaxPercentage", &SalesReceipt::salesTaxPercentage_).NotInQuery(),
        Row(F::SalesTaxTotal), Row(F::TotalAmount), Row(F::Memo), Row(F::CustomerMsgRef), Row(F::IsToBePrinted),
        Row(F::CustomerSalesTaxCodeRef).When(nullptr),
        addMod(field::Ref("DepositToAccountRef", &SalesReceipt::depositToAccountRef_, qoListAccounts)),
        Row(F::Tax1Total), Row(F::Tax2Total), Row(F::ExchangeRate), Row(F::DataExtRet),
    });
    return i;
  }();
  return info;
}

SalesReceipt::SalesReceipt()
    : SalesTxn(Info()),
      paymentMethodRef_(std::make_shared<qcListObjectRef>(qoListPaymentMethods)),
      depositToAccountRef_(std::make_shared<qcListObjectRef>(qoListAccounts)) {}

SalesReceipt::~SalesReceipt() = default;

void SalesReceipt::SetCheckNumber(const std::string& value) { MarkModified(true); checkNumber_ = value; }

const std::string& SalesReceipt::PaymentMethod() const { return paymentMethodRef_->FullName(); }
void SalesReceipt::SetPaymentMethod(const std::string& value) {
  MarkModified(true);
  detail::ListObjectAccess::SetFullName(*paymentMethodRef_, value);
}

const std::string& SalesReceipt::DepositToAccount() const { return depositToAccountRef_->FullName(); }
void SalesReceipt::SetDepositToAccount(const std::string& value) {
  MarkModified(true);
  detail::ListObjectAccess::SetFullName(*depositToAccountRef_, value);
}

void SalesReceipt::ValidateHead(qcErrors& errors) {
  if (Customer().empty()) errors.Add(err::kCustomerRequired, "Customer", err::kCustomerRequiredText);
}

}  // namespace tessaron
