// Records a session against a company file of the embedded processor, keeping the
// transcript of its messages, then runs the same session again from the transcript alone:
// the way to turn a session seen once (at a customer's, against QuickBooks) into a test
// that runs anywhere. A session that asks for something else than it did when recorded
// fails at the first request that differs.
//
//   record_and_replay [COMPANY_FILE]
#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include <qbsim/qbsim.h>
#include <tessaron/tessaron.h>

using namespace tessaron;

namespace {

// The session: the company's name, its customers with a balance, and a new class.
std::vector<std::string> Session(const std::string& file, const std::string& transcript) {
  QBConnection qb;
  if (!transcript.empty()) qb.SetDebugLogPath(transcript);
  qb.Connect("", "Record and replay example", qbFileOpenDoNotCare, file);
  std::vector<std::string> seen{qb.Company()->Name()};
  auto customers = qb.Company()->Customers();
  customers->GetAll(0, qbGreaterThan, Currency(0));
  for (long i = 1; i <= customers->Count(); ++i) seen.push_back(customers->Item(Variant(int32_t(i)))->FullName());
  auto classes = qb.Company()->Classes();
  classes->Add("Recorded Example");
  if (classes->Commit() != 0) throw std::runtime_error("the class was not added");
  seen.push_back(classes->GetByFullName("Recorded Example")->ListID());
  qb.CloseConnection();
  return seen;
}

}  // namespace

int main(int argc, char** argv) {
  std::string file = argc > 1 ? argv[1] : "record-and-replay.qbw";
  std::string transcript = file + ".transcript.xml";
  std::remove(file.c_str());
  qbsim::CreateSampleCompany(file);

  try {
    qbsim::RegisterProcessor();
    std::vector<std::string> recorded = Session(file, transcript);
    std::cout << "recorded: " << recorded.front() << ", " << recorded.size() - 2 << " customers with a balance\n";

    // The company file is not needed any more: every answer comes from the transcript.
    std::remove(file.c_str());
    RegisterReplayProcessor(transcript);
    std::vector<std::string> replayed = Session(file, "");
    std::cout << "replayed: " << (replayed == recorded ? "the same answers" : "different answers") << "\n";
  } catch (const Error& e) {
    std::cerr << "error " << std::hex << static_cast<uint32_t>(e.Number()) << " from " << e.Source() << ": "
              << e.Description() << "\n";
    return 1;
  } catch (const std::exception& e) {
    std::cerr << "error: " << e.what() << "\n";
    return 1;
  }
  return 0;
}
