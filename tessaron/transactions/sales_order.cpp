#include "tessaron/transactions/sales_order.h"

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/transactions/sales_orders.h"

namespace tessaron {

// The saved form follows the add order with the figures after the tax item. The tax item
// goes out when the company has a default one, the customer's tax code whenever set.
const TxnClassInfo& SalesOrder::Info() {
  static const TxnClassInfo info = [] {
    TxnClassInfo i;
    i.className = "SalesOrder";
    i.objectType = qoObjectTypeSalesOrder;
    i.gate = TxnModifyGate::FromVersion30;
    i.lineRet = "SalesOrderLineRet";
    i.lineGroupRet = "SalesOrderLineGroupRet";
    i.master = [] { return std::static_pointer_cast<TxnCollectionBase>(State().CurrentCompany->SalesOrders()); };
    using F = SalesField;
    i.fields = Common::Rows({
        Row(F::CustomerRef), Row(F::ClassRef), Row(F::TemplateRef), Row(F::TxnDate), Row(F::RefNumber),
        Row(F::BillAddress), Row(F::ShipAddress), Row(F::PONumber), Row(F::TermsRef), Row(F::DueDate),
        Row(F::SalesRepRef), Row(F::FOB), Row(F::ShipDate), Row(F::ShipMethodRef),
        Row(F::ItemSalesTaxRef).When(&SalesTxn::HasDefaultTaxItem), Row(F::Subtotal), Row(F::SalesTaxPercentage),
        Row(F::SalesTaxTotal), Row(F::TotalAmount),
        field::Boolean("IsManuallyClosed", &SalesOrder::isManuallyClosed_).Add(Send::Always).Mod(Send::Always),
        field::Boolean("IsFullyInvoiced", &SalesOrder::isFullyInvoiced_), Row(F::Memo), Row(F::CustomerMsgRef),
        Row(F::IsToBePrinted), Row(F::CustomerSalesTaxCodeRef).When(nullptr), Row(F::Tax1Total),
        Row(F::Tax2Total), Row(F::ExchangeRate), Row(F::DataExtRet),
    });
    return i;
  }();
  return info;
}

SalesOrder::SalesOrder() : SalesTxn(Info()) {}

SalesOrder::~SalesOrder() = default;

void SalesOrder::SetIsManuallyClosed(bool value) { MarkModified(true); isManuallyClosed_ = value; }

void SalesOrder::ValidateHead(qcErrors& errors) {
  if (Customer().empty()) errors.Add(err::kInvalidCustomer, "Customer", err::kInvalidCustomerText);
}

}  // namespace tessaron
