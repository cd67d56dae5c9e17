#include "tessaron/transactions/txn_linked_transactions.h"

#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

void txnLinkedTransaction::FromDom(const XmlNode& node) {
  for (const XmlNode& child : node.childNodes()) {
    const std::string_view tag = child.baseName();
    if (tag == "TxnID") txnId_ = child.text();
    else if (tag == "TxnType") txnType_ = child.text();
    else if (tag == "TxnDate") txnDate_ = DateFromText(child.text());
    else if (tag == "RefNumber") refNumber_ = child.text();
    else if (tag == "LinkType") linkType_ = child.text();
    // An open bill tells what is due, an open credit what remains.
    else if (tag == "Amount" || tag == "AmountDue" || tag == "CreditRemaining") {
      std::string text = child.text();
      amount_ = CurrencyFromText(text);
    }
    // Line details and anything newer are not kept.
  }
}

void txnLinkedTransaction::WriteQueryRs(xmlBldr& b) const {
  b.OpenAggregateOnly("LinkedTxn");
  b.CreateElement("TxnID", txnId_);
  b.CreateElement("TxnType", txnType_);
  b.CreateElement("TxnDate", DateToText(txnDate_));
  if (!refNumber_.empty()) b.CreateElement("RefNumber", refNumber_);
  if (!linkType_.empty()) b.CreateElement("LinkType", linkType_);
  b.CreateElement("Amount", AmountToText(amount_));
  b.EndAggregate("LinkedTxn");
}

void txnLinkedTransactions::ReadLink(const XmlNode& node) {
  auto link = std::make_shared<txnLinkedTransaction>();
  link->FromDom(node);
  col_.Add(link);
}

void txnLinkedTransactions::WriteQueryRs(xmlBldr& b) const {
  for (const auto& link : col_) link->WriteQueryRs(b);
}

}  // namespace tessaron
