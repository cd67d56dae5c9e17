// A scripted session with a company, for tests of invoices and their collection: the
// records an invoice looks up are answered by canned query responses.
#pragma once

#include <memory>
#include <string>

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/transactions/invoices.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/scripted_processor.h"

namespace tessaron::testing {

class InvoiceSession : public ScriptedSession {
 public:
  explicit InvoiceSession(const std::string& qbxmlVersion = "3.0") : ScriptedSession(qbxmlVersion) {
    State().ErrorMode = false;
    // Every customer look-up finds Acme, with net-30 terms, a taxable code and two addresses.
    processor().RespondTo("CustomerQueryRq", ScriptedProcessor::Response("CustomerQueryRs", CustomerRet()));
    processor().RespondTo("TermsQueryRq", ScriptedProcessor::Response("TermsQueryRs", TermsRet()));
    processor().RespondTo("SalesTaxCodeQueryRq", ScriptedProcessor::Response("SalesTaxCodeQueryRs", TaxCodeRet()));
    processor().RespondTo("ItemQueryRq", ScriptedProcessor::Response("ItemQueryRs", ServiceRet()));
  }
  std::shared_ptr<Invoices> invoices() { return State().CurrentCompany->Invoices(); }
  // Queues a response after checking it against the qbXML schema.
  void Answer(const std::string& response) {
    EXPECT_TRUE(IsValidQbxml(response)) << response;
    processor().QueueResponse(response);
  }

  static std::string CustomerRet() {
    return "<CustomerRet><ListID>80000001-1</ListID><TimeCreated>2004-02-29T13:05:09</TimeCreated>"
           "<TimeModified>2004-03-01T08:00:00</TimeModified><EditSequence>1000</EditSequence>"
           "<Name>Acme</Name><FullName>Acme</FullName><IsActive>true</IsActive><Sublevel>0</Sublevel>"
           "<BillAddress><Addr1>1 Main St</Addr1><City>Bayshore</City></BillAddress>"
           "<ShipAddress><Addr1>9 Dock Rd</Addr1><City>Harbor</City></ShipAddress>"
           "<TermsRef><FullName>Net 30</FullName></TermsRef>"
           "<SalesTaxCodeRef><FullName>Tax</FullName></SalesTaxCodeRef></CustomerRet>";
  }
  // The service item "Labor" at 10.00, taxable.
  static std::string ServiceRet() {
    return "<ItemServiceRet><ListID>B0000001-1</ListID><TimeCreated>2004-02-29T13:05:09</TimeCreated>"
           "<TimeModified>2004-03-01T08:00:00</TimeModified><EditSequence>1000</EditSequence>"
           "<Name>Labor</Name><FullName>Labor</FullName><IsActive>true</IsActive><Sublevel>0</Sublevel>"
           "<SalesTaxCodeRef><FullName>Tax</FullName></SalesTaxCodeRef><SalesOrPurchase><Desc>Labor</Desc>"
           "<Price>10.00</Price><AccountRef><FullName>Income</FullName></AccountRef></SalesOrPurchase>"
           "</ItemServiceRet>";
  }
  static std::string TermsRet() {
    return "<StandardTermsRet><ListID>90000001-1</ListID><TimeCreated>2004-02-29T13:05:09</TimeCreated>"
           "<TimeModified>2004-03-01T08:00:00</TimeModified><EditSequence>1000</EditSequence>"
           "<Name>Net 30</Name><IsActive>true</IsActive><StdDueDays>30</StdDueDays></StandardTermsRet>";
  }
  static std::string TaxCodeRet() {
    return "<SalesTaxCodeRet><ListID>A0000001-1</ListID><TimeCreated>2004-02-29T13:05:09</TimeCreated>"
           "<TimeModified>2004-03-01T08:00:00</TimeModified><EditSequence>1000</EditSequence>"
           "<Name>Tax</Name><IsActive>true</IsActive><IsTaxable>true</IsTaxable></SalesTaxCodeRet>";
  }
  // A stored invoice of Acme; `lines` go inside after the header.
  static std::string InvoiceRet(const std::string& txnId = "1A-1", const std::string& lines = "",
                                const std::string& refNumber = "1001") {
    return "<InvoiceRet><TxnID>" + txnId +
           "</TxnID><TimeCreated>2024-05-01T10:00:00</TimeCreated><TimeModified>2024-05-01T10:00:00</TimeModified>"
           "<EditSequence>1714557600</EditSequence><TxnNumber>7</TxnNumber>"
           "<CustomerRef><ListID>80000001-1</ListID><FullName>Acme</FullName></CustomerRef>"
           "<TxnDate>2024-05-01</TxnDate><RefNumber>" + refNumber + "</RefNumber>"
           "<BillAddress><Addr1>1 Main St</Addr1></BillAddress><IsPending>false</IsPending>"
           "<DueDate>2024-05-31</DueDate><Subtotal>30.00</Subtotal><SalesTaxPercentage>0.00</SalesTaxPercentage>"
           "<SalesTaxTotal>0.00</SalesTaxTotal><AppliedAmount>0.00</AppliedAmount>"
           "<BalanceRemaining>30.00</BalanceRemaining><IsPaid>false</IsPaid>" + lines + "</InvoiceRet>";
  }
  static std::string LineRet(const std::string& lineId, const std::string& desc, const std::string& amount) {
    return "<InvoiceLineRet><TxnLineID>" + lineId + "</TxnLineID><ItemRef><FullName>Labor</FullName></ItemRef><Desc>" + desc + "</Desc><Amount>" + amount +
           "</Amount></InvoiceLineRet>";
  }
};

}  // namespace tessaron::testing
