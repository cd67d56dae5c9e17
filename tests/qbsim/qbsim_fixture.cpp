#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {

std::string Prologue(const std::string& version) {
  return "<?xml version=\"1.0\" ?><!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD " + version + "//EN' >";
}

std::string Message(const std::string& requests, const std::string& version, const std::string& onError) {
  return Prologue(version) + "<QBXML><QBXMLMsgsRq onError = \"" + onError + "\">" + requests +
         "</QBXMLMsgsRq></QBXML>";
}

Response::Response(std::string text) : text_(std::move(text)) { doc_.load_string(text_.c_str()); }

pugi::xml_node Response::Rs(int n) const {
  pugi::xml_node rs = doc_.document_element().first_child().first_child();
  for (int i = 0; i < n && rs; ++i) rs = rs.next_sibling();
  return rs;
}

int Response::Count() const {
  int n = 0;
  for (pugi::xml_node rs = doc_.document_element().first_child().first_child(); rs; rs = rs.next_sibling()) ++n;
  return n;
}

std::string Response::Value(const std::string& path, int n) const {
  pugi::xml_node node = Rs(n);
  size_t start = 0;
  while (node && start <= path.size()) {
    size_t slash = path.find('/', start);
    std::string part = path.substr(start, slash == std::string::npos ? std::string::npos : slash - start);
    node = node.child(part.c_str());
    if (slash == std::string::npos) break;
    start = slash + 1;
  }
  return node ? node.text().get() : "<missing>";
}

std::vector<pugi::xml_node> Response::Records(int n) const {
  std::vector<pugi::xml_node> out;
  for (pugi::xml_node r = Rs(n).first_child(); r; r = r.next_sibling()) out.push_back(r);
  return out;
}

ProcessorOptions QbsimTest::StrictOptions() {
  ProcessorOptions o;
  o.strict = true;
  return o;
}

void QbsimTest::SetUp() { path_ = dir_.File("company.qbw"); }

void QbsimTest::TearDown() {
  if (processor_) processor_->CloseConnection();
}

void QbsimTest::Open(const SampleOptions& sample, ProcessorOptions options) {
  CreateSampleCompany(path_, sample);
  version_ = std::string(VersionPrefix(sample.edition)) + VersionText(sample.newestVersion);
  processor_ = CreateProcessor(options);
  processor_->OpenConnection("", "qbsim tests");
  ticket_ = processor_->BeginSession(path_, 0);
}

Response QbsimTest::Send(const std::string& requests, const std::string& version) {
  return SendRaw(Message(requests, version.empty() ? version_ : version));
}

Response QbsimTest::SendRaw(const std::string& text, bool checkResponse) {
  EXPECT_TRUE(tessaron::testing::IsValidQbxml(text));
  Response r(processor_->ProcessRequest(ticket_, text));
  if (checkResponse) {
    EXPECT_TRUE(tessaron::testing::IsValidQbxml(r.Text()));
  }
  return r;
}

std::pair<std::string, std::string> QbsimTest::Key(const std::string& kind, const std::string& fullName) {
  Response r = Send("<" + kind + "QueryRq><FullName>" + fullName + "</FullName></" + kind + "QueryRq>");
  pugi::xml_node rec = r.Rs().first_child();
  return {rec.child_value("ListID"), rec.child_value("EditSequence")};
}

}  // namespace tessaron::qbsim::testing
