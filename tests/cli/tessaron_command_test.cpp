// The tessaron command, run as a user runs it.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <sys/wait.h>

#include "tests/support/qbxml_check.h"

namespace {

struct Outcome {
  int exitCode = -1;
  std::string out, err;
};

Outcome Tessaron(const std::string& args, const tessaron::testing::TempDir& dir) {
  std::string errFile = dir.File("stderr.txt");
  std::string command = std::string(TESSARON_BINARY_DIR) + "/cli/tessaron " + args + " 2>" + errFile;
  Outcome r;
  FILE* p = popen(command.c_str(), "r");
  std::array<char, 4096> buf;
  while (size_t n = fread(buf.data(), 1, buf.size(), p)) r.out.append(buf.data(), n);
  int status = pclose(p);
  r.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  std::ifstream in(errFile);
  r.err.assign(std::istreambuf_iterator<char>(in), {});
  return r;
}

class TessaronCommand : public ::testing::Test {
 protected:
  void SetUp() override {
    company_ = dir_.File("demo.qbw");
    Outcome r = Tessaron("company create " + company_ + " --size 30 --edition CA --qbxml-version 3.0", dir_);
    ASSERT_EQ(r.exitCode, 0) << r.err;
  }
  tessaron::testing::TempDir dir_;
  std::string company_;
};

TEST_F(TessaronCommand, HostPrintsTheHostRecordOfTheCompanyFile) {
  Outcome r = Tessaron("host --company " + company_, dir_);
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_NE(r.out.find("Country                CA"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("SupportedQBXMLVersion  CA3.0"), std::string::npos) << r.out;
}

TEST_F(TessaronCommand, SendPrintsTheResponseAsTheProcessorReturnedItAndKeepsTheTranscript) {
  std::string request =
      "<?xml version=\"1.0\" ?><!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD CA3.0//EN' ><QBXML>"
      "<QBXMLMsgsRq onError = \"continueOnError\"><ClassQueryRq requestID=\"1\"><FullName>Trade:Export</FullName>"
      "</ClassQueryRq></QBXMLMsgsRq></QBXML>\n";
  std::ofstream(dir_.File("rq.xml")) << request;
  Outcome r = Tessaron("--transcript " + dir_.File("log.xml") + " send " + dir_.File("rq.xml") + " --company " + company_,
                   dir_);
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out.rfind("<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><ClassQueryRs requestID=\"1\" statusCode=\"0\"", 0),
            0u)
      << r.out;
  EXPECT_TRUE(tessaron::testing::IsValidQbxml(r.out));
  std::ifstream log(dir_.File("log.xml"));
  std::string text((std::istreambuf_iterator<char>(log)), {});
  EXPECT_NE(text.find("<OUTGOING>"), std::string::npos);
  EXPECT_NE(text.find("Trade:Export"), std::string::npos);
}

TEST_F(TessaronCommand, FailuresPrintOneLineAndExitNonZero) {
  Outcome r = Tessaron("host --company " + dir_.File("missing.qbw"), dir_);
  EXPECT_NE(r.exitCode, 0);
  EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;
  EXPECT_NE(r.err.find("0x80040403"), std::string::npos) << r.err;
  Outcome again = Tessaron("company create " + company_, dir_);
  EXPECT_NE(again.exitCode, 0);
  EXPECT_NE(again.err.find("exists"), std::string::npos) << again.err;
}

TEST_F(TessaronCommand, SendRefusesAMessageTheSchemaRefusesUnlessLenient) {
  std::ofstream(dir_.File("bad.xml"))
      << "<?xml version=\"1.0\" ?><!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD CA3.0//EN' ><QBXML>"
         "<QBXMLMsgsRq onError = \"continueOnError\"><ClassQueryRq><Colour>red</Colour></ClassQueryRq>"
         "</QBXMLMsgsRq></QBXML>";
  // --strict is still accepted and changes nothing.
  for (const char* flags : {"", "--strict "}) {
    Outcome strict = Tessaron(std::string(flags) + "send " + dir_.File("bad.xml") + " --company " + company_, dir_);
    EXPECT_NE(strict.exitCode, 0) << flags;
    EXPECT_NE(strict.err.find("0x80040400"), std::string::npos) << strict.err;
  }
  Outcome lenient = Tessaron("--lenient send " + dir_.File("bad.xml") + " --company " + company_, dir_);
  EXPECT_EQ(lenient.exitCode, 0) << lenient.err;
}

TEST_F(TessaronCommand, DemoConnectsAndCloses) {
  Outcome r = Tessaron("demo --company " + company_, dir_);
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_NE(r.out.find("qbXML       CA3.0"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("Connection closed."), std::string::npos) << r.out;
}

TEST_F(TessaronCommand, DemoShowsTheCompanyTheCustomerTreeAndANewCustomerReadBack) {
  Outcome first = Tessaron("demo --company " + company_, dir_);
  ASSERT_EQ(first.exitCode, 0) << first.err;
  EXPECT_NE(first.out.find("Name                                    Larkspur Cabinetry"), std::string::npos) << first.out;
  EXPECT_NE(first.out.find("\n  Amber Bakery "), std::string::npos) << first.out;
  EXPECT_NE(first.out.find("\n    Kitchen Remodel "), std::string::npos) << first.out;
  EXPECT_NE(first.out.find("\n      Phase 1 "), std::string::npos) << first.out;
  EXPECT_NE(first.out.find("committing: accepted"), std::string::npos) << first.out;
  EXPECT_NE(first.out.find("Read back: Tessaron Demo Customer, 555-0199, 1 Demo Way, Millbrook"), std::string::npos)
      << first.out;
  // A second run on the same file adds a customer of another name.
  Outcome second = Tessaron("demo --company " + company_, dir_);
  ASSERT_EQ(second.exitCode, 0) << second.err;
  EXPECT_NE(second.out.find("Read back: Tessaron Demo Customer 2,"), std::string::npos) << second.out;
}

TEST_F(TessaronCommand, CompanyShowPrintsTheRecordItsAddressesAndPreferences) {
  Outcome r = Tessaron("company show --company " + company_, dir_);
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_NE(r.out.find("LegalName                               Larkspur Cabinetry and Millwork\n"), std::string::npos)
      << r.out;
  EXPECT_NE(r.out.find("\nLegalAddress                            "), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("\nPreferences\n  IsUsingAccountNumbers                 true\n"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("  DefaultShipMethod                     Courier\n"), std::string::npos) << r.out;
}

TEST_F(TessaronCommand, ListCustomersAsATreeWithTheBalanceFilter) {
  Outcome tree = Tessaron("list Customers --tree --company " + company_, dir_);
  ASSERT_EQ(tree.exitCode, 0) << tree.err;
  EXPECT_EQ(tree.out.rfind("Name ", 0), 0u) << tree.out;
  const size_t customer = tree.out.find("\nAmber Bakery ");
  const size_t job = tree.out.find("\n  Kitchen Remodel ");
  const size_t phase = tree.out.find("\n    Phase 1 ");
  ASSERT_NE(customer, std::string::npos) << tree.out;
  EXPECT_LT(customer, job);
  EXPECT_LT(job, phase);

  Outcome owing = Tessaron("list Customers --balance gt 5000 --format csv --company " + company_, dir_);
  ASSERT_EQ(owing.exitCode, 0) << owing.err;
  Outcome all = Tessaron("list Customers --format csv --company " + company_, dir_);
  const auto lines = [](const std::string& text) { return std::count(text.begin(), text.end(), '\n'); };
  EXPECT_GT(lines(owing.out), 1) << owing.out;
  EXPECT_LT(lines(owing.out), lines(all.out));

  EXPECT_NE(Tessaron("list Classes --balance gt 5 --company " + company_, dir_).exitCode, 0);
  EXPECT_NE(Tessaron("list Customers --balance over 5 --company " + company_, dir_).exitCode, 0);
  EXPECT_NE(Tessaron("list Customers --tree --format json --company " + company_, dir_).exitCode, 0);
}

TEST_F(TessaronCommand, EveryCommandHasHelp) {
  for (const char* args : {"--help", "company --help", "company create --help", "company show --help", "send --help",
                           "host --help", "demo --help", "version --help", "list --help", "fields --help",
                           "fields list --help", "fields define --help", "fields set --help"}) {
    Outcome r = Tessaron(args, dir_);
    EXPECT_EQ(r.exitCode, 0) << args;
    EXPECT_NE(r.out.find("Usage"), std::string::npos) << args;
  }
}

TEST_F(TessaronCommand, FieldsDefinesCustomAndApplicationFieldsAndSetsTheirValues) {
  const std::string app = " --app {6B063959-81B0-4622-85D6-F548C8CCB517} --company " + company_;
  Outcome colour = Tessaron("fields define Colour --for Customer,Vendor --company " + company_, dir_);
  ASSERT_EQ(colour.exitCode, 0) << colour.err;
  ASSERT_EQ(Tessaron("fields define Visits --type INTTYPE --for Customer" + app, dir_).exitCode, 0);
  Outcome custom = Tessaron("fields list --company " + company_, dir_);
  EXPECT_NE(custom.out.find("Colour  STR255TYPE  Customer, Vendor"), std::string::npos) << custom.out;
  EXPECT_EQ(custom.out.find("Visits"), std::string::npos) << custom.out;
  EXPECT_NE(Tessaron("fields list" + app, dir_).out.find("Visits  INTTYPE  Customer"), std::string::npos);

  Outcome set = Tessaron("fields set Customer \"Amber Bakery\" Colour Blue --company " + company_, dir_);
  ASSERT_EQ(set.exitCode, 0) << set.err;
  // A second set changes the value that is now on file.
  Outcome change = Tessaron("fields set Customer \"Amber Bakery\" Colour Red --company " + company_, dir_);
  ASSERT_EQ(change.exitCode, 0) << change.err;
  EXPECT_NE(change.out.find("Colour = Red"), std::string::npos) << change.out;
  EXPECT_NE(Tessaron("fields set Customer \"Amber Bakery\" Visits 12" + app, dir_).out.find("Visits = 12"),
            std::string::npos);

  // A custom field holds text only; a field not defined for the type is refused.
  Outcome number = Tessaron("fields define Count --type INTTYPE --for Customer --company " + company_, dir_);
  EXPECT_NE(number.exitCode, 0);
  EXPECT_NE(number.err.find("DataExtType"), std::string::npos) << number.err;
  EXPECT_NE(Tessaron("fields set Vendor Nobody Colour x --company " + company_, dir_).exitCode, 0);
  EXPECT_NE(Tessaron("fields set Customer \"Amber Bakery\" Missing 1" + app, dir_).exitCode, 0);
}

}  // namespace
