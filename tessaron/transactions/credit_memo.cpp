#include "tessaron/transactions/credit_memo.h"

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/transactions/credit_memos.h"

namespace tessaron {

// The saved form follows the add order with the figures after the tax item. Both tax
// references go out whenever they are set, whatever the edition.
const TxnClassInfo& CreditMemo::Info() {
  static const TxnClassInfo info = [] {
    TxnClassInfo i;
    i.className = "CreditMemo";
    i.objectType = qoObjectTypeCreditMemo;
    i.gate = TxnModifyGate::AboveVersion20;
    i.lineRet = "CreditMemoLineRet";
    i.lineGroupRet = "CreditMemoLineGroupRet";
    i.master = [] { return std::static_pointer_cast<TxnCollectionBase>(State().CurrentCompany->CreditMemos()); };
    using F = SalesField;
    i.fields = Common::Rows({
        Row(F::CustomerRef), Row(F::ClassRef), Row(F::ARAccountRef), Row(F::TemplateRef), Row(F::TxnDate),
        Row(F::RefNumber), Row(F::BillAddress), Row(F::ShipAddress), Row(F::IsPending), Row(F::PONumber),
        Row(F::TermsRef), Row(F::DueDate), Row(F::SalesRepRef), Row(F::FOB), Row(F::ShipDate),
        Row(F::ShipMethodRef), Row(F::ItemSalesTaxRef).When(nullptr), Row(F::Subtotal),
        Row(F::SalesTaxPercentage), Row(F::SalesTaxTotal), Row(F::TotalAmount),
        field::Amount("CreditRemaining", &CreditMemo::creditRemaining_).NotInQuery(), Row(F::Memo),
        Row(F::CustomerMsgRef), Row(F::IsToBePrinted), Row(F::CustomerSalesTaxCodeRef).When(nullptr),
        Row(F::Tax1Total), Row(F::Tax2Total), Row(F::ExchangeRate), Row(F::DataExtRet),
    });
    return i;
  }();
  return info;
}

CreditMemo::CreditMemo() : SalesTxn(Info()) {}

CreditMemo::~CreditMemo() = default;

void CreditMemo::ValidateHead(qcErrors& errors) {
  ValidateARAccount(errors);
  if (Customer().empty()) errors.Add(err::kInvalidCustomer, "Customer", err::kInvalidCustomerText);
}

}  // namespace tessaron
