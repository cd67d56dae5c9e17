// The enumeration lookups run once per enumerated field of every record parsed or written.
// Measured against the least a lookup can cost (a walk over the same keys held in a plain
// vector); the ratio and the allocations per lookup are printed at the end.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>
#include <vector>

#include "bench/bench_support.h"
#include "tessaron/foundation/enumerations.h"

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
  long before = tessaron::bench::Allocations();
  for (auto _ : state) benchmark::DoNotOptimize(EnumXMLToCode(kTexts[i++ & 3], qoeReportField));
  state.counters["allocs_per_lookup"] =
      static_cast<double>(tessaron::bench::Allocations() - before) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_EnumXMLToCode);

void BM_EnumCodeToXML(benchmark::State& state) {
  QBEnumerations();
  int32_t code = 0;
  long before = tessaron::bench::Allocations();
  for (auto _ : state) benchmark::DoNotOptimize(&EnumCodeToXML(87 + (code++ & 3), qoeReportField));
  state.counters["allocs_per_lookup"] =
      static_cast<double>(tessaron::bench::Allocations() - before) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_EnumCodeToXML);

}  // namespace

int main(int argc, char** argv) { return tessaron::bench::RunWithRatios(argc, argv, "BM_Baseline"); }
