// Writing a request is the builder's hot path: one piece per call, values escaped, one
// assembly per send. Measured against the least such a request can cost (the same text
// appended to one reserved string, values already escaped); the ratio and the allocations
// per element are printed at the end.
#include <benchmark/benchmark.h>

#include <string>

#include "bench/bench_support.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/messaging/xml_bldr.h"

namespace {

using namespace tessaron;

constexpr int kElements = 5000;
const std::string kTags[] = {"Name", "CompanyName", "FullName", "Memo"};
const std::string kValues[] = {"Acme Supplies", "Smith & Sons <West>", "Müller Café", "Invoice 12345 for services"};

void BM_Baseline(benchmark::State& state) {
  std::string escaped[4];
  for (int i = 0; i < 4; ++i) escaped[i] = EscapeValue(kValues[i]);
  std::string text;
  for (auto _ : state) {
    text.clear();
    text.reserve(kElements * 64);
    for (int i = 0; i < kElements; ++i) {
      const std::string& tag = kTags[i & 3];
      text += '<';
      text += tag;
      text += '>';
      text += escaped[i & 3];
      text += "</";
      text += tag;
      text += '>';
    }
    std::string copy = text;
    benchmark::DoNotOptimize(copy.data());
  }
}
BENCHMARK(BM_Baseline);

void BM_BuildRequest(benchmark::State& state) {
  State().QBXMLVersionNumber = Currency(2);
  xmlBldr b;
  long allocations = 0;
  for (auto _ : state) {
    long before = tessaron::bench::Allocations();
    b.Clear();
    for (int i = 0; i < kElements; ++i) b.CreateElement(kTags[i & 3], kValues[i & 3]);
    Variant text = b.GetXML();
    benchmark::DoNotOptimize(&text);
    allocations += tessaron::bench::Allocations() - before;
  }
  state.counters["allocs_per_element"] =
      static_cast<double>(allocations) / static_cast<double>(state.iterations()) / kElements;
}
BENCHMARK(BM_BuildRequest);

}  // namespace

int main(int argc, char** argv) { return tessaron::bench::RunWithRatios(argc, argv, "BM_Baseline"); }
