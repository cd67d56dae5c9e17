// Shared by the benchmarks: a count of every allocation of the program, and a console
// reporter that prints each benchmark's time as a ratio to a baseline measured in the same
// run. Include it in exactly one source per benchmark program: it replaces the global
// allocation functions.
#pragma once

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <new>
#include <string>
#include <vector>

namespace tessaron::bench {

inline std::atomic<long> g_allocations{0};

// Allocations of the whole program so far.
inline long Allocations() { return g_allocations.load(std::memory_order_relaxed); }

class RatioReporter : public benchmark::ConsoleReporter {
 public:
  explicit RatioReporter(std::string baseline) : baseline_(std::move(baseline)) {}
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const auto& r : runs) {
      if (times_.find(r.benchmark_name()) == times_.end()) order_.push_back(r.benchmark_name());
      times_[r.benchmark_name()] = r.GetAdjustedRealTime();
    }
    ConsoleReporter::ReportRuns(runs);
  }
  void Finalize() override {
    ConsoleReporter::Finalize();
    double base = times_[baseline_];
    if (base <= 0) return;
    for (const std::string& name : order_)
      if (name != baseline_) std::printf("%s / baseline: %.2f\n", name.c_str(), times_[name] / base);
  }

 private:
  std::string baseline_;
  std::vector<std::string> order_;
  std::map<std::string, double> times_;
};

// The main of a benchmark program whose ratios are taken against `baseline`.
inline int RunWithRatios(int argc, char** argv, const std::string& baseline) {
  benchmark::Initialize(&argc, argv);
  RatioReporter reporter(baseline);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}

}  // namespace tessaron::bench

// Counting replacements of the global allocation functions; the compiler cannot see that
// every allocation of the program comes from here, hence the pragma.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
void* operator new(std::size_t n) {
  tessaron::bench::g_allocations.fetch_add(1, std::memory_order_relaxed);
  if (void* p = std::malloc(n ? n : 1)) return p;
  throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
