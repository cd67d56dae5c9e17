// A scripted session with the item list, the sales tax codes and the customers that line
// items price from, and lines wired to an owner the way a document wires them.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tessaron/events/qc_event_sink.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/lists/customers.h"
#include "tessaron/lists/items.h"
#include "tessaron/lists/sales_tax_code.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/transactions/detail/txn_access.h"
#include "tessaron/transactions/txn_item_lines.h"
#include "tests/support/list_session.h"
#include "tests/support/raised.h"

namespace tessaron::testing {

inline std::string ItemRecord(const std::string& kind, const std::string& id, const std::string& name,
                              const std::string& more) {
  return Ret(kind, id, "<Name>" + name + "</Name><IsActive>true</IsActive>" + more);
}
inline std::string TaxCodeRef(const std::string& code) {
  return "<SalesTaxCodeRef><FullName>" + code + "</FullName></SalesTaxCodeRef>";
}
inline std::string TaxCodeRecord(const std::string& id, const std::string& name, bool taxable) {
  return Ret("SalesTaxCode", id,
             "<Name>" + name + "</Name><IsActive>true</IsActive><IsTaxable>" + (taxable ? "true" : "false") +
                 "</IsTaxable>");
}

// Items: Labor (service, 10, code Tax), Design (service, 20, code Non), Consult (service,
// 15, no code), Fee (other charge, 10 percent), Bolts (non-inventory, 0.50, Tax), Hinge
// (inventory, sells at 4, costs 2, 5 on hand, 2 on sales orders, Tax), Subtotal,
// TenOff (discount 10 percent, Tax), Markdown (discount 5, Tax), State (sales tax 5
// percent), Deposit (payment), Kit (group: 2 Hinge, 1 Labor, 3 Bolts).
// Tax codes: Tax and Out (taxable), Non and Exm (not taxable). Customer: Acme.
class LineItemsTest : public ::testing::Test {
 protected:
  explicit LineItemsTest(const std::string& version = "3.0") : qb(version) {
    qb.Answer(ScriptedProcessor::Response("SalesTaxCodeQueryRs",
                                          TaxCodeRecord("1", "Tax", true) + TaxCodeRecord("2", "Out", true) +
                                              TaxCodeRecord("3", "Non", false) + TaxCodeRecord("4", "Exm", false)));
    codes->GetAll();
    const std::string account = "<AccountRef><FullName>Income</FullName></AccountRef>";
    auto service = [&](const std::string& code, const std::string& desc, const std::string& price) {
      return code + "<SalesOrPurchase><Desc>" + desc + "</Desc>" + price + account + "</SalesOrPurchase>";
    };
    qb.Answer(ScriptedProcessor::Response(
        "ItemQueryRs",
        ItemRecord("ItemService", "V1", "Labor", service(TaxCodeRef("Tax"), "Shop labor", "<Price>10.00</Price>")) +
            ItemRecord("ItemService", "V2", "Design", service(TaxCodeRef("Non"), "Design", "<Price>20.00</Price>")) +
            ItemRecord("ItemService", "V3", "Consult", service("", "Advice", "<Price>15.00</Price>")) +
            ItemRecord("ItemOtherCharge", "O1", "Fee",
                       service("", "Handling", "<PricePercent>10.00</PricePercent>")) +
            ItemRecord("ItemNonInventory", "N1", "Bolts", service(TaxCodeRef("Tax"), "Bolts", "<Price>0.50</Price>")) +
            ItemRecord("ItemInventory", "I1", "Hinge",
                       TaxCodeRef("Tax") + "<SalesDesc>Brass hinge</SalesDesc><SalesPrice>4.00</SalesPrice>" +
                           "<IncomeAccountRef><FullName>Income</FullName></IncomeAccountRef>"
                           "<PurchaseDesc>Hinge, bought</PurchaseDesc><PurchaseCost>2.00</PurchaseCost>"
                           "<COGSAccountRef><FullName>COGS</FullName></COGSAccountRef>"
                           "<AssetAccountRef><FullName>Stock</FullName></AssetAccountRef>"
                           "<QuantityOnHand>5</QuantityOnHand><QuantityOnSalesOrder>2</QuantityOnSalesOrder>") +
            ItemRecord("ItemSubtotal", "S1", "Subtotal", "<ItemDesc>Lines so far</ItemDesc>") +
            ItemRecord("ItemDiscount", "D1", "TenOff",
                       "<ItemDesc>Ten percent off</ItemDesc>" + TaxCodeRef("Tax") +
                           "<DiscountRatePercent>10</DiscountRatePercent>" + account) +
            ItemRecord("ItemDiscount", "D2", "Markdown",
                       "<ItemDesc>Five off</ItemDesc>" + TaxCodeRef("Tax") + "<DiscountRate>5.00</DiscountRate>" +
                           account) +
            ItemRecord("ItemSalesTax", "T1", "State", "<ItemDesc>State tax</ItemDesc><TaxRate>5</TaxRate>") +
            ItemRecord("ItemPayment", "P1", "Deposit", "<ItemDesc>Paid ahead</ItemDesc>") +
            ItemRecord("ItemGroup", "G1", "Kit",
                       "<ItemDesc>Door kit</ItemDesc><IsPrintItemsInGroup>false</IsPrintItemsInGroup>"
                       "<ItemGroupLine><ItemRef><FullName>Hinge</FullName></ItemRef><Quantity>2</Quantity></ItemGroupLine>"
                       "<ItemGroupLine><ItemRef><FullName>Labor</FullName></ItemRef><Quantity>1</Quantity></ItemGroupLine>"
                       "<ItemGroupLine><ItemRef><FullName>Bolts</FullName></ItemRef><Quantity>3</Quantity></ItemGroupLine>")));
    items->GetAll();
    qb.Answer(ScriptedProcessor::Response("CustomerQueryRs", Ret("Customer", "C1", "<Name>Acme</Name>")));
    customers->GetAll();
    qb.processor().ClearRecords();
    sink->OnEvent([this](qoEnumEventTypes& id, std::string& text) {
      if (id == qoEventAmountChange) ++amountChanges;
      if (id == qoEventItemTaxCodeQuery && refuseTaxItems) text.clear();
      if (id == qoEventNoQuantity) shortOf = text;
    });
  }

  // Lines of a document of `owner` type whose header carries `headerCode`.
  std::shared_ptr<txnItemLines> Lines(qoEnumListObjectType owner, const std::string& headerCode = "") {
    auto lines = std::make_shared<txnItemLines>();
    header = std::make_shared<qcListObjectRef>(qoListSalesTaxCodes);
    if (!headerCode.empty()) detail::ListObjectAccess::SetFullName(*header, headerCode);
    detail::TxnAccess::SetOwnerType(*lines, owner);
    detail::TxnAccess::SetEventSink(*lines, sink);
    detail::TxnAccess::SetOwnerTaxCode(*lines, header);
    return lines;
  }

  // What WriteLines gives, as one text.
  static std::string Written(txnItemLines& lines, bool isRet, bool isMod) {
    xmlBldr b;
    b.Clear();
    detail::TxnAccess::WriteLines(lines, b, isRet, isMod);
    return b.GetXML().ToString();
  }

  ListSession qb;
  std::shared_ptr<SalesTaxCodes> codes = qb.Register<SalesTaxCodes>();
  std::shared_ptr<Items> items = qb.Register<Items>();
  std::shared_ptr<Customers> customers = qb.Register<Customers>();
  std::shared_ptr<qcEventSink> sink = std::make_shared<qcEventSink>();
  std::shared_ptr<qcListObjectRef> header;
  int amountChanges = 0;
  bool refuseTaxItems = false;
  std::string shortOf;
};

}  // namespace tessaron::testing
