// The cost of the embedded processor's strict check of one request message, as a ratio to
// pugixml parsing the same message in the same run. The processor parses every message
// anyway; the check is what strict mode adds on top. The message is a typical commit: ten
// customer adds with addresses, as the library writes them.
#include "bench/bench_support.h"

#include <pugixml.hpp>

#include <string>

#include "qbsim/strict_mode.h"

namespace {

std::string Message() {
  std::string rqs;
  for (int i = 0; i < 10; ++i) {
    const std::string n = std::to_string(i);
    rqs += "<CustomerAddRq requestID=\"" + n + "\"><CustomerAdd><Name>Customer " + n +
           "</Name><IsActive>1</IsActive><CompanyName>Company " + n +
           "</CompanyName><FirstName>Ann</FirstName><LastName>Baker</LastName><BillAddress><Addr1>" + n +
           " Mill Road</Addr1><City>Springfield</City><State>IL</State><PostalCode>62701</PostalCode></BillAddress>"
           "<Phone>555-0100</Phone><Email>ann@example.com</Email><TermsRef><FullName>Net 30</FullName></TermsRef>"
           "<CreditLimit>1000.00</CreditLimit><Notes>Opened in the benchmark</Notes></CustomerAdd></CustomerAddRq>";
  }
  return "<?xml version=\"1.0\" ?><!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 4.0//EN' ><QBXML>"
         "<QBXMLMsgsRq onError = \"continueOnError\">" + rqs + "</QBXMLMsgsRq></QBXML>";
}

const std::string& Text() {
  static const std::string text = Message();
  return text;
}

void BM_Baseline(benchmark::State& state) {
  for (auto _ : state) {
    pugi::xml_document doc;
    benchmark::DoNotOptimize(doc.load_buffer(Text().data(), Text().size()));
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * Text().size()));
}
BENCHMARK(BM_Baseline);

void BM_StrictCheck(benchmark::State& state) {
  pugi::xml_document doc;
  doc.load_buffer(Text().data(), Text().size());
  // The first check compiles the schema; it is paid once per process and not measured.
  if (!tessaron::qbsim::SchemaProblem(doc, "").empty()) state.SkipWithError("the message is not valid");
  for (auto _ : state) benchmark::DoNotOptimize(tessaron::qbsim::SchemaProblem(doc, ""));
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * Text().size()));
}
BENCHMARK(BM_StrictCheck);

}  // namespace

int main(int argc, char** argv) { return tessaron::bench::RunWithRatios(argc, argv, "BM_Baseline"); }
