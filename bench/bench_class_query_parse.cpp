// 10,000 ClassRet records of one ClassQueryRs parsed into Class objects, against
// pugixml's bare parse of the same text in the same run. The ratio counter says how many
// times the bare parse the whole query costs.
#include <benchmark/benchmark.h>

#include <pugixml.hpp>

#include <memory>
#include <string>

#include "tessaron/connection/library_state.h"
#include "tessaron/lists/class.h"
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

const std::string& Text() {
  static const std::string text = Response();
  return text;
}

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

void BM_PugixmlBareParse(benchmark::State& state) {
  for (auto _ : state) {
    pugi::xml_document doc;
    benchmark::DoNotOptimize(doc.load_buffer(Text().data(), Text().size()));
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * Text().size()));
}

void BM_ClassesGetAll(benchmark::State& state) {
  tessaron::State().RequestProcessor = std::make_shared<CannedProcessor>();
  tessaron::State().SessionTicket = "t";
  tessaron::State().QBXMLVersionText = "2.0";
  tessaron::State().QBXMLVersionNumber = tessaron::Currency(2);
  tessaron::Classes classes;
  for (auto _ : state) benchmark::DoNotOptimize(classes.GetAll());
  if (classes.Count() != kRecords) state.SkipWithError("records lost");
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * Text().size()));
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
  benchmark::RegisterBenchmark("BM_PugixmlBareParse", BM_PugixmlBareParse)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("BM_ClassesGetAll", BM_ClassesGetAll)->Unit(benchmark::kMillisecond);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
