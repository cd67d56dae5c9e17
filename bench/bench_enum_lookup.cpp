// The enumeration lookups run once per enumerated field of every record parsed or written.
// Measured against the least a lookup can cost (a walk over the same keys held in a plain
// vector); the ratio and the allocations per lookup are printed at the end.
#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "tessaron/foundation/enumerations.h"

namespace {

std::atomic<long> g_allocations{0};

}  // namespace

// Counting replacements of the global allocation functions; the compiler cannot see that
// every allocation of the program comes from here, hence the pragma.
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

// Rows near the end of the report-field table: the longest walks the parsers make.
const char* const kTexts[] = {"PercentOfTotalRetail", "TxnID", "Amount", "CalculatedAmount"};

void BM_Baseline(benchmark::State& state) {
  std::vector<std::string> keys;
  for (const auto& row : QBEnumerations().Item(qoeReportField)->NewEnum()) keys.push_back(row->CollectionKey());
  size_t i = 0;
  for (auto _ : state) {
    std::string_view text = kTexts[i++ & 3];
    int code = 0;
    for (size_t k = 0; k < keys.size(); ++k)
      if (keys[k] == text) { code = static_cast<int>(k) + 1; break; }
    benchmark::DoNotOptimize(code);
  }
}
BENCHMARK(BM_Baseline);

void BM_EnumXMLToCode(benchmark::State& state) {
  QBEnumerations();
  size_t i = 0;
  long before = g_allocations;
  for (auto _ : state) benchmark::DoNotOptimize(EnumXMLToCode(kTexts[i++ & 3], qoeReportField));
  state.counters["allocs_per_lookup"] =
      static_cast<double>(g_allocations - before) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_EnumXMLToCode);

void BM_EnumCodeToXML(benchmark::State& state) {
  QBEnumerations();
  int32_t code = 0;
  long before = g_allocations;
  for (auto _ : state) benchmark::DoNotOptimize(&EnumCodeToXML(87 + (code++ & 3), qoeReportField));
  state.counters["allocs_per_lookup"] =
      static_cast<double>(g_allocations - before) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_EnumCodeToXML);

class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const auto& r : runs) times_[r.benchmark_name()] = r.GetAdjustedRealTime();
    ConsoleReporter::ReportRuns(runs);
  }
  void Finalize() override {
    ConsoleReporter::Finalize();
    double base = times_["BM_Baseline"];
    if (base > 0)
      for (const char* name : {"BM_EnumXMLToCode", "BM_EnumCodeToXML"})
        if (times_.count(name)) std::printf("%s / baseline: %.2f\n", name, times_[name] / base);
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
