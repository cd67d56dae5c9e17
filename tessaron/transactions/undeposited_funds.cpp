#include "tessaron/transactions/undeposited_funds.h"

#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/framework/response_status.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

void UndepositedFund::FromDom(const XmlNode& node) {
  for (const XmlNode& child : node.childNodes()) {
    const std::string_view tag = child.baseName();
    if (tag == "TxnID") txnId_ = child.text();
    else if (tag == "TxnLineID") txnLineId_ = child.text();
    else if (tag == "TxnType") txnType_ = child.text();
    else if (tag == "CustomerRef") {
      for (const XmlNode& part : child.childNodes())
        if (part.baseName() == "FullName") customer_ = part.text();
    } else if (tag == "TxnDate") txnDate_ = DateFromText(child.text());
    else if (tag == "RefNumber") refNumber_ = child.text();
    else if (tag == "Amount") amount_ = CurrencyFromText(child.text());
  }
}

UndepositedFunds::UndepositedFunds() = default;
UndepositedFunds::~UndepositedFunds() = default;

std::shared_ptr<qcErrors> UndepositedFunds::Errors() {
  if (!mErrors_) mErrors_ = std::make_shared<qcErrors>();
  return mErrors_;
}

bool UndepositedFunds::ItemExists(const Variant& vntIndexKey) const {
  if (vntIndexKey.IsString()) return mCol_.Exists(vntIndexKey.ToString());
  const auto at = vntIndexKey.ToInteger();
  return at >= 1 && at <= mCol_.Count();
}

Currency UndepositedFunds::Total() const {
  Currency sum;
  for (const auto& f : mCol_) sum = sum + f->Amount();
  return sum;
}

int32_t UndepositedFunds::GetAll() {
  Errors()->Clear();
  Clear();
  xmlBldr b;
  b.NewClear();
  b.OpenAggregateOnly("ReceivePaymentToDepositQueryRq");
  b.EndAggregate("ReceivePaymentToDepositQueryRq");
  XmlDocument doc = b.NewSendRequest();
  if (b.ErrNumber() != 0) {
    Errors()->Add(b.ErrNumber(), "", b.ErrMsg());
    return 0;
  }
  for (const XmlNode& ret : ResponsesOf(doc).item(0).childNodes()) {
    auto fund = std::make_shared<UndepositedFund>();
    fund->FromDom(ret);
    if (fund->TxnId().empty() || mCol_.Exists(fund->TxnId())) mCol_.Add(fund);
    else mCol_.Add(fund, fund->TxnId());
  }
  return static_cast<int32_t>(Count());
}

}  // namespace tessaron
