#include "tessaron/transactions/estimate.h"

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/transactions/estimates.h"

namespace tessaron {

// The saved form follows the add order with the figures after the tax item. Both tax
// references go out whenever they are set; IsToBePrinted is kept but never sent.
const TxnClassInfo& Estimate::Info() {
  static const TxnClassInfo info = [] {
    TxnClassInfo i;
    i.className = "Estimate";
    i.objectType = qoObjectTypeEstimate;
    i.gate = TxnModifyGate::FromVersion30;
    i.lineRet = "EstimateLineRet";
    i.lineGroupRet = "EstimateLineGroupRet";
    i.master = [] { return std::static_pointer_cast<TxnCollectionBase>(State().CurrentCompany->Estimates()); };
    using F = SalesField;
    i.fields = Common::Rows({
        Row(F::CustomerRef), Row(F::ClassRef), Row(F::TemplateRef), Row(F::TxnDate), Row(F::RefNumber),
        Row(F::BillAddress),
        field::Boolean("IsActive", &Estimate::isActive_).Add(Send::Always).Mod(Send::Always),
        Row(F::PONumber), Row(F::TermsRef), Row(F::DueDate), Row(F::SalesRepRef), Row(F::FOB),
        Row(F::ItemSalesTaxRef).When(nullptr), Row(F::Subtotal), Row(F::SalesTaxPercentage),
        Row(F::SalesTaxTotal), Row(F::TotalAmount), Row(F::Memo), Row(F::CustomerMsgRef),
        Row(F::IsToBePrinted).Add(Send::Never).Mod(Send::Never), Row(F::CustomerSalesTaxCodeRef).When(nullptr),
        Row(F::Tax1Total), Row(F::Tax2Total), Row(F::ExchangeRate), Row(F::DataExtRet),
    });
    return i;
  }();
  return info;
}

Estimate::Estimate() : SalesTxn(Info()) {}

Estimate::~Estimate() = default;

void Estimate::SetIsActive(bool value) { MarkModified(true); isActive_ = value; }

void Estimate::ValidateHead(qcErrors& errors) {
  if (Customer().empty()) errors.Add(err::kInvalidCustomer, "Customer", err::kInvalidCustomerText);
}

}  // namespace tessaron
