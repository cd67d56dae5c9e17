#include "tessaron/transactions/txn_linked_transactions.h"

#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

std::shared_ptr<qcErrors> txnLinkedTransaction::Errors() {
  if (!errors_) errors_ = std::make_shared<qcErrors>();
  return errors_;
}

namespace {

Currency AmountOf(const XmlNode& node) {
  std::string text = node.text();
  return CurrencyFromText(text);
}

}  // namespace

void txnLinkedTransaction::FromDom(const XmlNode& node) {
  for (const XmlNode& child : node.childNodes()) {
    const std::string_view tag = child.baseName();
    if (tag == "TxnID") txnId_ = child.text();
    else if (tag == "TxnLineID") txnLineId_ = child.text();
    else if (tag == "TxnType") {
      txnTypeName_ = child.text();
      txnType_ = static_cast<qoEnumListObjectType>(EnumDescriptionToCode(txnTypeName_, qoeObjectType));
    } else if (tag == "TxnDate") txnDate_ = DateFromText(child.text());
    else if (tag == "RefNumber") refNumber_ = child.text();
    else if (tag == "LinkType") {
      linkType_ = child.text();
      isQuantityLink_ = linkType_ != "AMTTYPE";
    } else if (tag == "Amount") amount_ = AmountOf(child);
    // An open bill tells what is due, an open credit what remains: that is its amount.
    else if (tag == "AmountDue") amount_ = amountDue_ = AmountOf(child);
    else if (tag == "CreditRemaining") amount_ = creditRemaining_ = AmountOf(child);
    else if (tag == "DueDate") dueDate_ = DateFromText(child.text());
    else if (tag == "APAccountRef") {
      for (const XmlNode& part : child.childNodes())
        if (part.baseName() == "FullName") apAccount_ = part.text();
    }
    // Line details and anything newer are not kept.
  }
  state_ = qoObjectStateClean;
}

void txnLinkedTransaction::WriteQueryRs(xmlBldr& b) const {
  b.OpenAggregateOnly("LinkedTxn");
  b.CreateElement("TxnID", txnId_);
  b.CreateElement("TxnType", txnTypeName_);
  b.CreateElement("TxnDate", DateToText(txnDate_));
  if (!refNumber_.empty()) b.CreateElement("RefNumber", refNumber_);
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
