// Reading speed: 10,000 customers and 10,000 invoices, every field filled, each answer
// read the whole way (request built and sent to an in-memory processor, the answer text
// parsed into the document, the objects made), against pugixml's bare parse of the same
// text in the same run. The goal is a read of at most 2.5 times the bare parse.
// BM_Read is a first read into a new collection; BM_ReadAgain reads into the same
// collection again, which also drops the objects of the read before.
//
// Counters:
//   x_bare_parse     time of the read / time of the bare parse of the same text (CPU time)
//   bytes_per_record heap bytes still held after the read, per record: the difference of
//                    glibc's mallinfo2().uordblks (bytes in use) before the collection was
//                    made and after its read, with the document already released
//   allocs_per_record allocations made during one read, per record (counting operator new)
//   other_requests   requests the read sent besides its query (look-ups of records the
//                    lines name, none of them on file here), over the session so far
//
// The heap is held steady for the whole run: glibc keeps what is freed (no trimming, no
// mmap for large blocks), so neither measurement pays for page faults that the one before
// it caused by giving memory back, and the order of the runs does not change the figures.
// Each run warms up first for the same reason.
#include <benchmark/benchmark.h>

#include <malloc.h>

#include <pugixml.hpp>

#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <type_traits>

#include "bench/bench_support.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/connection/qb_connection.h"
#include "tessaron/connection/tessaron_globals.h"
#include "tessaron/lists/customers.h"
#include "tessaron/transactions/invoices.h"
#include "tessaron/platform/request_processor.h"

namespace {

constexpr int kRecords = 10000;

std::string Ref(const char* tag, const std::string& id, const std::string& name) {
  return std::string("<") + tag + "><ListID>" + id + "</ListID><FullName>" + name + "</FullName></" + tag + ">";
}

std::string Address(const char* tag, const std::string& n) {
  return std::string("<") + tag + "><Addr1>Customer " + n + "</Addr1><Addr2>Attn. Accounts Payable</Addr2>"
         "<Addr3>Suite " + n + "</Addr3><Addr4>Building C</Addr4><City>Middlefield</City><State>CA</State>"
         "<PostalCode>94482</PostalCode><Country>USA</Country></" + tag + ">";
}

std::string Envelope(const char* response, const std::string& body) {
  return std::string("<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><") + response +
         " requestID=\"1\" statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"Status OK\">" + body + "</" +
         response + "></QBXMLMsgsRs></QBXML>";
}

// Every field of the customer's response element: a quarter are jobs of the customer
// before them, all have both addresses, every reference, balances and contact fields.
std::string CustomersResponse() {
  std::string body;
  body.reserve(kRecords * 1800);
  for (int i = 0; i < kRecords; ++i) {
    const std::string n = std::to_string(i);
    const bool job = i % 4 == 3;
    const std::string parent = "Customer " + std::to_string(i - 1);
    const std::string name = job ? "Job " + n : "Customer " + n;
    body += "<CustomerRet><ListID>" + n + "-1071508731</ListID><TimeCreated>2004-02-29T13:05:09-08:00</TimeCreated>"
            "<TimeModified>2004-03-01T08:00:00-08:00</TimeModified><EditSequence>1071508731</EditSequence>"
            "<Name>" + name + "</Name><FullName>" + (job ? parent + ":" + name : name) +
            "</FullName><IsActive>true</IsActive>";
    if (job) body += Ref("ParentRef", std::to_string(i - 1) + "-1071508731", parent);
    body += std::string("<Sublevel>") + (job ? "1" : "0") + "</Sublevel><CompanyName>Company " + n +
            " Ltd.</CompanyName><Salutation>Ms.</Salutation><FirstName>Kristy</FirstName><MiddleName>J</MiddleName>"
            "<LastName>Abercrombie</LastName>" + Address("BillAddress", n) + Address("ShipAddress", n) +
            "<PrintAs>Company " + n + "</PrintAs><Phone>415-555-6579</Phone><Mobile>415-555-0001</Mobile>"
            "<Pager>415-555-0002</Pager><AltPhone>415-555-9876</AltPhone><Fax>415-555-1234</Fax>"
            "<Email>kristy" + n + "@example.com</Email><Contact>Kristy Abercrombie</Contact>"
            "<AltContact>Steve North</AltContact>" +
            Ref("CustomerTypeRef", "10000-1071508731", "Residential") +
            Ref("TermsRef", "20000-1071508731", "Net 30") + Ref("SalesRepRef", "30000-1071508731", "SR") +
            "<Balance>" + std::to_string(i % 997) + ".25</Balance><TotalBalance>" + std::to_string(i % 997 * 2) +
            ".50</TotalBalance>" + Ref("SalesTaxCodeRef", "40000-1071508731", "Tax") +
            Ref("ItemSalesTaxRef", "50000-1071508731", "San Tomas") +
            "<ResaleNumber>R-" + n + "</ResaleNumber><AccountNumber>A-" + n +
            "</AccountNumber><CreditLimit>5000.00</CreditLimit>" +
            Ref("PreferredPaymentMethodRef", "60000-1071508731", "Check") +
            "<CreditCardInfo><CreditCardNumber>4111111111111111</CreditCardNumber><ExpirationMonth>12"
            "</ExpirationMonth><ExpirationYear>2027</ExpirationYear><NameOnCard>Kristy Abercrombie</NameOnCard>"
            "<CreditCardAddress>5647 Cypress Hill Rd</CreditCardAddress><CreditCardPostalCode>94482"
            "</CreditCardPostalCode></CreditCardInfo><JobStatus>InProgress</JobStatus>"
            "<JobStartDate>2004-01-15</JobStartDate><JobProjectedEndDate>2004-06-30</JobProjectedEndDate>"
            "<JobEndDate>2004-07-02</JobEndDate><JobDesc>Kitchen remodel</JobDesc>" +
            Ref("JobTypeRef", "70000-1071508731", "Remodel") +
            "<Notes>Gate code 4411; call ahead.</Notes><IsStatementWithParent>false</IsStatementWithParent>"
            "<DeliveryMethod>Email</DeliveryMethod>" + Ref("PriceLevelRef", "80000-1071508731", "Retail") +
            "</CustomerRet>";
  }
  return Envelope("CustomerQueryRs", body);
}

std::string Line(const std::string& id, const std::string& item, const std::string& rest) {
  return "<InvoiceLineRet><TxnLineID>" + id + "</TxnLineID>" + Ref("ItemRef", "90000-1071508731", item) + rest +
         "</InvoiceLineRet>";
}

// Every header field of an invoice and six lines of different kinds: two item lines with
// quantity and rate, a percent discount, a subtotal, a description-only line and a group
// line with two lines of its own.
std::string InvoicesResponse() {
  std::string body;
  body.reserve(kRecords * 4000);
  const std::string tax = Ref("SalesTaxCodeRef", "40000-1071508731", "Tax");
  for (int i = 0; i < kRecords; ++i) {
    const std::string n = std::to_string(i);
    const std::string customer = "Customer " + std::to_string(i % 5000);
    auto lineId = [&](int k) { return std::to_string(i * 8 + k) + "-1071508731"; };
    body += "<InvoiceRet><TxnID>" + n + "-1071508731</TxnID><TimeCreated>2004-02-29T13:05:09-08:00</TimeCreated>"
            "<TimeModified>2004-03-01T08:00:00-08:00</TimeModified><EditSequence>1071508731</EditSequence>"
            "<TxnNumber>" + n + "</TxnNumber>" + Ref("CustomerRef", "1-1071508731", customer) +
            Ref("ClassRef", "11000-1071508731", "Remodel") + Ref("ARAccountRef", "12000-1071508731",
                                                                  "Accounts Receivable") +
            Ref("TemplateRef", "13000-1071508731", "Intuit Product Invoice") + "<TxnDate>2004-03-01</TxnDate>"
            "<RefNumber>" + std::to_string(10000 + i) + "</RefNumber>" + Address("BillAddress", n) +
            Address("ShipAddress", n) + "<IsPending>false</IsPending><IsFinanceCharge>false</IsFinanceCharge>"
            "<PONumber>PO-" + n + "</PONumber>" + Ref("TermsRef", "20000-1071508731", "Net 30") +
            "<DueDate>2004-03-31</DueDate>" + Ref("SalesRepRef", "30000-1071508731", "SR") +
            "<FOB>Middlefield</FOB><ShipDate>2004-03-02</ShipDate>" +
            Ref("ShipMethodRef", "14000-1071508731", "UPS") + "<Subtotal>1312.50</Subtotal>" +
            Ref("ItemSalesTaxRef", "50000-1071508731", "San Tomas") +
            "<SalesTaxPercentage>7.75</SalesTaxPercentage><SalesTaxTotal>101.72</SalesTaxTotal>"
            "<AppliedAmount>-100.00</AppliedAmount><BalanceRemaining>1314.22</BalanceRemaining>"
            "<Memo>Thank you for your business " + n + "</Memo><IsPaid>false</IsPaid>" +
            Ref("CustomerMsgRef", "15000-1071508731", "Thank you") +
            "<IsToBePrinted>true</IsToBePrinted><IsToBeEmailed>false</IsToBeEmailed>" +
            Ref("CustomerSalesTaxCodeRef", "40000-1071508731", "Tax") + "<Other>Other " + n + "</Other>" +
            Line(lineId(1), "Cabinets",
                 "<Desc>Maple cabinets</Desc><Quantity>4</Quantity><Rate>150.00</Rate>" +
                     Ref("ClassRef", "11000-1071508731", "Remodel") +
                     "<Amount>600.00</Amount><ServiceDate>2004-03-01</ServiceDate>" + tax +
                     "<Other1>a</Other1><Other2>b</Other2>") +
            Line(lineId(2), "Labor",
                 "<Desc>Installation, per hour</Desc><Quantity>12.5</Quantity><Rate>65.00</Rate>"
                 "<Amount>812.50</Amount>" + tax) +
            Line(lineId(3), "Subtotal", "<Desc>Subtotal</Desc><Amount>1412.50</Amount>") +
            Line(lineId(4), "Trade discount",
                 "<Desc>Trade discount</Desc><RatePercent>-10.0</RatePercent><Amount>-141.25</Amount>" + tax) +
            "<InvoiceLineRet><TxnLineID>" + lineId(5) + "</TxnLineID><Desc>Delivered by the back door"
            "</Desc></InvoiceLineRet>"
            "<InvoiceLineGroupRet><TxnLineID>" + lineId(6) + "</TxnLineID>" +
            Ref("ItemGroupRef", "16000-1071508731", "Install kit") +
            "<Desc>Install kit</Desc><Quantity>1</Quantity><IsPrintItemsInGroup>false</IsPrintItemsInGroup>"
            "<TotalAmount>41.25</TotalAmount>" +
            Line(lineId(7), "Hinges", "<Desc>Hinges, pair</Desc><Quantity>2</Quantity><Rate>7.50</Rate>"
                                      "<Amount>15.00</Amount>" + tax) +
            Line(lineId(8), "Handles", "<Desc>Handles</Desc><Quantity>3</Quantity><Rate>8.75</Rate>"
                                       "<Amount>26.25</Amount>" + tax) +
            "</InvoiceLineGroupRet></InvoiceRet>";
  }
  return Envelope("InvoiceQueryRs", body);
}

const std::string& CustomersText() {
  static const std::string text = CustomersResponse();
  return text;
}
const std::string& InvoicesText() {
  static const std::string text = InvoicesResponse();
  return text;
}

// The processor of the in-memory session: the session's opening queries (host, company,
// preferences) are answered with records of their own, the read's query with the prepared
// text, and anything else with "no match", counted: a read that asks QuickBooks for more
// than its query shows in `other_requests`.
class InMemoryProcessor : public tessaron::RequestProcessor {
 public:
  explicit InMemoryProcessor(const std::string* text) : text_(text) {}
  void OpenConnection(const std::string&, const std::string&) override {}
  std::string BeginSession(const std::string&, int32_t) override { return "t"; }
  void EndSession(const std::string&) override {}
  void CloseConnection() override {}
  std::string ProcessRequest(const std::string&, const std::string& request) override {
    const std::string name = FirstRequest(request);
    if (name == "HostQueryRq") {
      return Envelope("HostQueryRs",
                      "<HostRet><ProductName>QuickBooks Pro 2004</ProductName><MajorVersion>14</MajorVersion>"
                      "<MinorVersion>0</MinorVersion><Country>US</Country><SupportedQBXMLVersion>3.0"
                      "</SupportedQBXMLVersion><IsAutomaticLogin>false</IsAutomaticLogin>"
                      "<QBFileMode>SingleUser</QBFileMode></HostRet>");
    }
    if (name == "CompanyQueryRq")
      return Envelope("CompanyQueryRs", "<CompanyRet><IsSampleCompany>false</IsSampleCompany><CompanyName>"
                                        "Middlefield Remodelling</CompanyName></CompanyRet>");
    if (name == "PreferencesQueryRq") {
      return Envelope("PreferencesQueryRs",
                      "<PreferencesRet><SalesTaxPreferences>" + Ref("DefaultItemSalesTaxRef", "50000-1071508731",
                                                                    "San Tomas") +
                          "<PaySalesTax>Monthly</PaySalesTax>" +
                          Ref("DefaultTaxableSalesTaxCodeRef", "40000-1071508731", "Tax") +
                          Ref("DefaultNonTaxableSalesTaxCodeRef", "40001-1071508731", "Non") +
                          "</SalesTaxPreferences></PreferencesRet>");
    }
    if (name == "CustomerQueryRq" || name == "InvoiceQueryRq") return *text_;
    ++otherRequests;
    const std::string rs = name.substr(0, name.size() - 2) + "Rs";
    return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><" + rs +
           " requestID=\"1\" statusCode=\"1\" statusSeverity=\"Info\" statusMessage=\"A query request did not "
           "find a matching object in QuickBooks\"/></QBXMLMsgsRs></QBXML>";
  }
  std::string ProcessSubscription(const std::string&) override { return {}; }
  std::vector<std::string> QBXMLVersionsForSession(const std::string&) override { return {"3.0"}; }
  std::string GetCurrentCompanyFileName(const std::string&) override { return {}; }
  int MajorVersion() override { return 3; }
  int MinorVersion() override { return 0; }

  long otherRequests = 0;

 private:
  // The name of the first request of the message ("InvoiceQueryRq").
  static std::string FirstRequest(const std::string& request) {
    const size_t set = request.find("<QBXMLMsgsRq");
    const size_t open = set == std::string::npos ? std::string::npos : request.find('<', set + 1);
    if (open == std::string::npos) return {};
    const size_t end = request.find_first_of(" />", open + 1);
    return request.substr(open + 1, end - open - 1);
  }

  const std::string* text_;
};

std::shared_ptr<InMemoryProcessor> processor;

// Opens a session on the in-memory processor, as an application does: the host query, the
// company and its preferences are read once here, outside every timed loop.
void Connect(const std::string* text) {
  if (tessaron::State().GlobalConnection) tessaron::State().GlobalConnection->CloseConnection();
  processor = std::make_shared<InMemoryProcessor>(text);
  for (const char* id : {tessaron::kRequestProcessor1, tessaron::kRequestProcessor2})
    tessaron::RegisterRequestProcessor(id, [] { return processor; });
  tessaron::TessaronGlobals::QBConnect("", "Reading benchmark", tessaron::qbFileOpenDoNotCare, "bench.qbw");
}

// The baseline: pugixml's own parse of the text, as it is usually called.
void BM_BareParse(benchmark::State& state, const std::string* text) {
  for (auto _ : state) {
    pugi::xml_document doc;
    pugi::xml_parse_result result = doc.load_buffer(text->data(), text->size());
    if (!result) state.SkipWithError(result.description());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text->size()));
}

// Heap bytes in use now, by glibc's count.
size_t BytesInUse() { return mallinfo2().uordblks; }

template <class List>
void BM_Read(benchmark::State& state, const std::string* text) {
  Connect(text);
  {
    // What one read leaves behind, outside the timed loop.
    const size_t before = BytesInUse();
    auto list = std::make_unique<List>();
    const long allocsBefore = tessaron::bench::Allocations();
    try {
      list->GetAll();
    } catch (const tessaron::Error& e) {
      state.SkipWithError((std::to_string(e.Number()) + " " + e.Source() + ": " + e.Description()).c_str());
      return;
    }
    const long allocs = tessaron::bench::Allocations() - allocsBefore;
    if (list->Count() != kRecords) state.SkipWithError("records lost");
    state.counters["other_requests"] = static_cast<double>(processor->otherRequests);
    state.counters["bytes_per_record"] = static_cast<double>(BytesInUse() - before) / kRecords;
    state.counters["allocs_per_record"] = static_cast<double>(allocs) / kRecords;
  }
  // A first read, as an application makes it: a new collection each time. Dropping the
  // objects afterwards is not reading and is left out of the time.
  for (auto _ : state) {
    auto list = std::make_unique<List>();
    benchmark::DoNotOptimize(list->GetAll());
    state.PauseTiming();
    list.reset();
    state.ResumeTiming();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text->size()));
}

// A read again into the same collection, which first drops what it held.
template <class List>
void BM_ReadAgain(benchmark::State& state, const std::string* text) {
  Connect(text);
  List list;
  try {
    list.GetAll();
  } catch (const tessaron::Error& e) {
    state.SkipWithError((std::to_string(e.Number()) + " " + e.Source() + ": " + e.Description()).c_str());
    return;
  }
  for (auto _ : state) {
    // A transaction query adds to what the collection holds: it is emptied first.
    if constexpr (std::is_base_of_v<tessaron::TxnCollectionBase, List>) list.Clear();
    benchmark::DoNotOptimize(list.GetAll());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text->size()));
}

}  // namespace

// Each read right after the bare parse of its own text, which is its baseline.
int main(int argc, char** argv) {
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  benchmark::Initialize(&argc, argv);
  // With repetitions, a mean is compared with the mean, a median with the median.
  struct Reporter : benchmark::ConsoleReporter {
    std::map<std::string, double> bare;
    void ReportRuns(const std::vector<Run>& runs) override {
      for (const Run& run : runs) {
        if (run.aggregate_name == "stddev" || run.aggregate_name == "cv") continue;
        if (run.benchmark_name().find("BareParse") != std::string::npos) {
          bare[run.aggregate_name] = run.GetAdjustedCPUTime();
        } else if (bare[run.aggregate_name] > 0) {
          const_cast<Run&>(run).counters["x_bare_parse"] = run.GetAdjustedCPUTime() / bare[run.aggregate_name];
        }
      }
      ConsoleReporter::ReportRuns(runs);
    }
  } reporter;
  // The texts are made before anything is timed.
  std::printf("customers answer: %.1f MB, invoices answer: %.1f MB\n", CustomersText().size() / 1e6,
              InvoicesText().size() / 1e6);
  benchmark::RegisterBenchmark("BM_BareParse/customers", BM_BareParse, &CustomersText())->Unit(benchmark::kMillisecond)->MinWarmUpTime(0.5);
  benchmark::RegisterBenchmark("BM_Read/customers", BM_Read<tessaron::Customers>, &CustomersText())
      ->Unit(benchmark::kMillisecond)->MinWarmUpTime(0.5);
  benchmark::RegisterBenchmark("BM_ReadAgain/customers", BM_ReadAgain<tessaron::Customers>, &CustomersText())
      ->Unit(benchmark::kMillisecond)->MinWarmUpTime(0.5);
  benchmark::RegisterBenchmark("BM_BareParse/invoices", BM_BareParse, &InvoicesText())->Unit(benchmark::kMillisecond)->MinWarmUpTime(0.5);
  benchmark::RegisterBenchmark("BM_Read/invoices", BM_Read<tessaron::Invoices>, &InvoicesText())
      ->Unit(benchmark::kMillisecond)->MinWarmUpTime(0.5);
  benchmark::RegisterBenchmark("BM_ReadAgain/invoices", BM_ReadAgain<tessaron::Invoices>, &InvoicesText())
      ->Unit(benchmark::kMillisecond)->MinWarmUpTime(0.5);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
