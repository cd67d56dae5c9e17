// CustomerQueryRq with ActiveStatus All on a company file of 100,000 customers and jobs,
// against a bare SQLite scan of the same rows in the same run. The counter "vs_sqlite_scan"
// is the ratio of the two times per query (the reporter prints it for the whole runs too);
// "allocs_per_record" counts the allocations of answering, per customer.
#include <benchmark/benchmark.h>

#include "bench/bench_support.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

#include <sqlite3.h>

#include "qbsim/qbsim.h"

namespace {

constexpr int kCustomers = 100000;

struct Company {
  std::string dir, path;
  std::shared_ptr<tessaron::qbsim::Processor> processor;
  std::string ticket;

  Company() {
    dir = (std::filesystem::temp_directory_path() / ("tessaron-bench-" + std::to_string(::getpid()))).string();
    std::filesystem::create_directories(dir);
    path = dir + "/customers.qbw";
    tessaron::qbsim::SampleOptions o;
    o.customers = kCustomers;
    tessaron::qbsim::CreateSampleCompany(path, o);
    processor = tessaron::qbsim::CreateProcessor();
    processor->OpenConnection("", "bench");
    ticket = processor->BeginSession(path, 0);
  }
  ~Company() {
    processor->CloseConnection();
    processor.reset();
    std::error_code ec;
    std::filesystem::remove_all(dir, ec);
  }
};

Company& TheCompany() {
  static Company c;
  return c;
}

const std::string kRequest =
    "<?xml version=\"1.0\" ?><!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 4.0//EN' ><QBXML>"
    "<QBXMLMsgsRq onError = \"continueOnError\"><CustomerQueryRq><ActiveStatus>All</ActiveStatus>"
    "</CustomerQueryRq></QBXMLMsgsRq></QBXML>";

// Reads every column of every customer row, as the processor must, and touches each byte count.
size_t BareScan(sqlite3* db) {
  sqlite3_stmt* st = nullptr;
  sqlite3_prepare_v2(db,
                     "SELECT rowid, kind, list_id, name, full_name, parent_list_id, sublevel, is_active, "
                     "edit_sequence, time_created, time_modified, balance, total_balance, body FROM list_record "
                     "WHERE kind = 'Customer' ORDER BY name_key, rowid",
                     -1, &st, nullptr);
  size_t bytes = 0, rows = 0;
  while (sqlite3_step(st) == SQLITE_ROW) {
    ++rows;
    for (int c = 0; c < 14; ++c) bytes += static_cast<size_t>(sqlite3_column_bytes(st, c));
  }
  sqlite3_finalize(st);
  return rows + bytes;
}

double SecondsOfBareScan(const std::string& path) {
  sqlite3* db = nullptr;
  sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
  double best = 1e9;
  for (int i = 0; i < 5; ++i) {
    auto start = std::chrono::steady_clock::now();
    benchmark::DoNotOptimize(BareScan(db));
    best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
  sqlite3_close(db);
  return best;
}

void BM_BareSqliteScan(benchmark::State& state) {
  Company& c = TheCompany();
  sqlite3* db = nullptr;
  sqlite3_open_v2(c.path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
  for (auto _ : state) benchmark::DoNotOptimize(BareScan(db));
  sqlite3_close(db);
  state.SetItemsProcessed(state.iterations() * kCustomers);
}

void BM_CustomerQueryActiveStatusAll(benchmark::State& state) {
  Company& c = TheCompany();
  const double baseline = SecondsOfBareScan(c.path);
  size_t bytes = 0;
  double seconds = 0;
  long allocations = 0;
  for (auto _ : state) {
    long before = tessaron::bench::Allocations();
    auto start = std::chrono::steady_clock::now();
    std::string response = c.processor->ProcessRequest(c.ticket, kRequest);
    seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    allocations += tessaron::bench::Allocations() - before;
    bytes = response.size();
    benchmark::DoNotOptimize(response);
  }
  state.SetItemsProcessed(state.iterations() * kCustomers);
  state.counters["response_MB"] = static_cast<double>(bytes) / 1e6;
  state.counters["bare_scan_ms"] = baseline * 1e3;
  state.counters["vs_sqlite_scan"] = seconds / static_cast<double>(state.iterations()) / baseline;
  state.counters["allocs_per_record"] =
      static_cast<double>(allocations) / static_cast<double>(state.iterations()) / kCustomers;
}

BENCHMARK(BM_BareSqliteScan)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CustomerQueryActiveStatusAll)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) { return tessaron::bench::RunWithRatios(argc, argv, "BM_BareSqliteScan"); }
