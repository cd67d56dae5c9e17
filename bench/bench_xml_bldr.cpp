// Writing a request is the builder's hot path: one piece per call, values escaped, one
// assembly per send. Measured against the least such a request can cost (the same text
// appended to one reserved string, values already escaped); the ratio and the allocations
// per element are printed at the end.
#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <new>
#include <string>

#include "tessaron/connection/library_state.h"
#include "tessaron/messaging/xml_bldr.h"

namespace {

std::atomic<long> g_allocations{0};

}  // namespace

#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
void* operator new(std::size_t n) {
  ++g_allocations;
  if (void* p = std::malloc(n ? n : 1)) return p;
  throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }

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
    long before = g_allocations;
    b.Clear();
    for (int i = 0; i < kElements; ++i) b.CreateElement(kTags[i & 3], kValues[i & 3]);
    Variant text = b.GetXML();
    benchmark::DoNotOptimize(&text);
    allocations += g_allocations - before;
  }
  state.counters["allocs_per_element"] =
      static_cast<double>(allocations) / static_cast<double>(state.iterations()) / kElements;
}
BENCHMARK(BM_BuildRequest);

class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const auto& r : runs) times_[r.benchmark_name()] = r.GetAdjustedRealTime();
    ConsoleReporter::ReportRuns(runs);
  }
  void Finalize() override {
    ConsoleReporter::Finalize();
    if (times_["BM_Baseline"] > 0)
      std::printf("BM_BuildRequest / baseline: %.2f\n", times_["BM_BuildRequest"] / times_["BM_Baseline"]);
  }

 private:
  std::map<std::string, double> times_;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
