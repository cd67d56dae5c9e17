// 10,000 records of one query answer parsed into objects, against pugixml's bare parse of
// the same text in the same run: ClassRet records into Class objects, and items of nine
// kinds side by side into the classes of Items. The ratio counter says how many times the
// bare parse the whole query costs.
#include <benchmark/benchmark.h>

#include <pugixml.hpp>

#include <memory>
#include <string>

#include "tessaron/connection/library_state.h"
#include "tessaron/lists/class.h"
#include "tessaron/lists/items.h"
#include "tessaron/platform/request_processor.h"

namespace {

constexpr int kRecords = 10000;

std::string Response() {
  std::string body;
  body.reserve(kRecords * 330);
  for (int i = 0; i < kRecords; ++i) {
    const std::string n = std::to_string(i);
    const bool child = i % 4 != 0;
    const std::string parent = "Region " + std::to_string(i / 4 * 4);
    const std::string name = child ? "Office " + n : "Region " + n;
    body += "<ClassRet><ListID>" + n + "-1071508731</ListID><TimeCreated>2004-02-29T13:05:09</TimeCreated>"
            "<TimeModified>2004-03-01T08:00:00</TimeModified><EditSequence>1071508731</EditSequence><Name>" +
            name + "</Name><FullName>" + (child ? parent + ":" + name : name) + "</FullName><IsActive>true</IsActive>";
    if (child) body += "<ParentRef><ListID>" + std::to_string(i / 4 * 4) + "-1071508731</ListID><FullName>" + parent +
                       "</FullName></ParentRef>";
    body += std::string("<Sublevel>") + (child ? "1" : "0") + "</Sublevel></ClassRet>";
  }
  return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><ClassQueryRs requestID=\"1\" statusCode=\"0\" "
         "statusSeverity=\"Info\" statusMessage=\"Status OK\">" + body + "</ClassQueryRs></QBXMLMsgsRs></QBXML>";
}

// Items of nine kinds in turn, every field a record of its kind usually carries.
std::string ItemsResponse() {
  std::string body;
  body.reserve(kRecords * 560);
  const std::string head = "<TimeCreated>2004-02-29T13:05:09</TimeCreated><TimeModified>2004-03-01T08:00:00"
                           "</TimeModified><EditSequence>1071508731</EditSequence>";
  const std::string account = "<AccountRef><ListID>80000010-1071508731</ListID><FullName>Sales</FullName></AccountRef>";
  const std::string tax = "<SalesTaxCodeRef><ListID>20000-1</ListID><FullName>Tax</FullName></SalesTaxCodeRef>";
  for (int i = 0; i < kRecords; ++i) {
    const std::string n = std::to_string(i);
    const std::string id = "<ListID>" + n + "-1071508731</ListID>" + head + "<Name>Item " + n + "</Name>";
    const std::string named = id + "<FullName>Item " + n + "</FullName><IsActive>true</IsActive><Sublevel>0</Sublevel>";
    switch (i % 9) {
      case 0:
        body += "<ItemServiceRet>" + named + tax + "<SalesOrPurchase><Desc>Labor, per hour</Desc><Price>65.00</Price>" +
                account + "</SalesOrPurchase></ItemServiceRet>";
        break;
      case 1:
        body += "<ItemInventoryRet>" + named + tax + "<SalesDesc>Maple panel</SalesDesc><SalesPrice>38.00</SalesPrice>"
                "<IncomeAccountRef><FullName>Sales</FullName></IncomeAccountRef><PurchaseDesc>Maple panel</PurchaseDesc>"
                "<PurchaseCost>21.50</PurchaseCost><COGSAccountRef><FullName>Cost of Goods Sold</FullName>"
                "</COGSAccountRef><AssetAccountRef><FullName>Inventory Asset</FullName></AssetAccountRef>"
                "<ReorderPoint>10</ReorderPoint><QuantityOnHand>42</QuantityOnHand><AverageCost>21.50</AverageCost>"
                "<QuantityOnOrder>0</QuantityOnOrder><QuantityOnSalesOrder>0</QuantityOnSalesOrder></ItemInventoryRet>";
        break;
      case 2:
        body += "<ItemNonInventoryRet>" + named + tax + "<SalesAndPurchase><SalesDesc>Hinges, pair</SalesDesc>"
                "<SalesPrice>7.50</SalesPrice><IncomeAccountRef><FullName>Sales</FullName></IncomeAccountRef>"
                "<PurchaseDesc>Hinges</PurchaseDesc><PurchaseCost>3.10</PurchaseCost><ExpenseAccountRef><FullName>"
                "Shop Supplies</FullName></ExpenseAccountRef></SalesAndPurchase></ItemNonInventoryRet>";
        break;
      case 3:
        body += "<ItemOtherChargeRet>" + named + tax + "<SalesOrPurchase><Desc>Restocking fee</Desc>"
                "<PricePercent>15.00</PricePercent>" + account + "</SalesOrPurchase></ItemOtherChargeRet>";
        break;
      case 4:
        body += "<ItemDiscountRet>" + named + "<ItemDesc>Trade discount</ItemDesc>" + tax +
                "<DiscountRatePercent>10.00</DiscountRatePercent>" + account + "</ItemDiscountRet>";
        break;
      case 5:
        body += "<ItemSalesTaxRet>" + id + "<IsActive>true</IsActive><ItemDesc>State sales tax</ItemDesc>"
                "<TaxRate>6.25</TaxRate><TaxVendorRef><FullName>State Revenue</FullName></TaxVendorRef>"
                "</ItemSalesTaxRet>";
        break;
      case 6:
        body += "<ItemGroupRet>" + id + "<IsActive>true</IsActive><ItemDesc>Install kit</ItemDesc>"
                "<IsPrintItemsInGroup>false</IsPrintItemsInGroup><ItemGroupLine><ItemRef><FullName>Item 0</FullName>"
                "</ItemRef><Quantity>2</Quantity></ItemGroupLine><ItemGroupLine><ItemRef><FullName>Item 2</FullName>"
                "</ItemRef><Quantity>4</Quantity></ItemGroupLine></ItemGroupRet>";
        break;
      case 7:
        body += "<ItemSubtotalRet>" + id + "<IsActive>true</IsActive><ItemDesc>Subtotal</ItemDesc></ItemSubtotalRet>";
        break;
      default:
        body += "<ItemPaymentRet>" + id + "<IsActive>true</IsActive><ItemDesc>Deposit</ItemDesc><DepositToAccountRef>"
                "<FullName>Undeposited Funds</FullName></DepositToAccountRef></ItemPaymentRet>";
    }
  }
  return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><ItemQueryRs requestID=\"1\" statusCode=\"0\" "
         "statusSeverity=\"Info\" statusMessage=\"Status OK\">" + body + "</ItemQueryRs></QBXMLMsgsRs></QBXML>";
}

const std::string& ClassesText() {
  static const std::string text = Response();
  return text;
}
const std::string& ItemsText() {
  static const std::string text = ItemsResponse();
  return text;
}
// The answer the canned processor gives.
const std::string* current = nullptr;
const std::string& Text() { return *current; }

// Answers every request with the prepared response.
class CannedProcessor : public tessaron::RequestProcessor {
 public:
  void OpenConnection(const std::string&, const std::string&) override {}
  std::string BeginSession(const std::string&, int32_t) override { return "t"; }
  void EndSession(const std::string&) override {}
  void CloseConnection() override {}
  std::string ProcessRequest(const std::string&, const std::string&) override { return Text(); }
  std::string ProcessSubscription(const std::string&) override { return {}; }
  std::vector<std::string> QBXMLVersionsForSession(const std::string&) override { return {"2.0"}; }
  std::string GetCurrentCompanyFileName(const std::string&) override { return {}; }
  int MajorVersion() override { return 2; }
  int MinorVersion() override { return 0; }
};

void BM_PugixmlBareParse(benchmark::State& state, const std::string* text) {
  for (auto _ : state) {
    pugi::xml_document doc;
    benchmark::DoNotOptimize(doc.load_buffer(text->data(), text->size()));
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text->size()));
}

// The whole query: the request built and sent, the answer parsed, the objects made.
template <class List>
void BM_GetAll(benchmark::State& state, const std::string* text) {
  current = text;
  tessaron::State().RequestProcessor = std::make_shared<CannedProcessor>();
  tessaron::State().SessionTicket = "t";
  tessaron::State().QBXMLVersionText = "2.0";
  tessaron::State().QBXMLVersionNumber = tessaron::Currency(2);
  List list;
  for (auto _ : state) benchmark::DoNotOptimize(list.GetAll());
  if (list.Count() != kRecords) state.SkipWithError("records lost");
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text->size()));
}

}  // namespace

// The bare parse first, then the query, so that the ratio can be reported in one run.
int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  struct Reporter : benchmark::ConsoleReporter {
    double bare = 0;
    void ReportRuns(const std::vector<Run>& runs) override {
      for (const Run& run : runs) {
        if (run.benchmark_name().find("Pugixml") != std::string::npos) bare = run.GetAdjustedCPUTime();
        else if (bare > 0) const_cast<Run&>(run).counters["x_bare_parse"] = run.GetAdjustedCPUTime() / bare;
      }
      ConsoleReporter::ReportRuns(runs);
    }
  } reporter;
  // Each query right after the bare parse of its own text, which is its baseline.
  benchmark::RegisterBenchmark("BM_PugixmlBareParse/classes", BM_PugixmlBareParse, &ClassesText())
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("BM_ClassesGetAll", BM_GetAll<tessaron::Classes>, &ClassesText())
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("BM_PugixmlBareParse/items", BM_PugixmlBareParse, &ItemsText())
      ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("BM_ItemsOfNineKindsGetAll", BM_GetAll<tessaron::Items>, &ItemsText())
      ->Unit(benchmark::kMillisecond);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
