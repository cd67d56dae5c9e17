// A sample company file and a strict processor with an open session, for the tests of the
// embedded company-file processor. Every message sent and answered is checked against the
// qbXML schema.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <pugixml.hpp>

#include "qbsim/qbsim.h"
#include "tests/support/qbxml_check.h"

namespace tessaron::qbsim::testing {

// The prologue the library writes, for a version text such as "4.0" or "CA2.0".
std::string Prologue(const std::string& version);
// A normal message set around `requests`, as the library writes it.
std::string Message(const std::string& requests, const std::string& version = "4.0",
                    const std::string& onError = "continueOnError");

// A parsed response with the helpers the tests use.
class Response {
 public:
  explicit Response(std::string text);
  const std::string& Text() const { return text_; }
  // The n-th response element (0-based) of the message.
  pugi::xml_node Rs(int n = 0) const;
  int Status(int n = 0) const { return Rs(n).attribute("statusCode").as_int(-1); }
  std::string Message(int n = 0) const { return Rs(n).attribute("statusMessage").value(); }
  int Count() const;
  // The text of the first element at `path` ("CustomerRet/FullName") below the n-th response.
  std::string Value(const std::string& path, int n = 0) const;
  // Every record of the n-th response.
  std::vector<pugi::xml_node> Records(int n = 0) const;

 private:
  std::string text_;
  pugi::xml_document doc_;
};

class QbsimTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Creates the company file and opens a session on it; called by SetUp with the defaults.
  void Open(const SampleOptions& sample = {}, ProcessorOptions options = StrictOptions());
  static ProcessorOptions StrictOptions();

  // Sends a message of requests at the session's version and returns the checked response.
  Response Send(const std::string& requests, const std::string& version = "");
  // Sends the text as it stands; `checkResponse` false for the few answers the schema lacks.
  Response SendRaw(const std::string& text, bool checkResponse = true);
  // The ListID and EditSequence of a record found by a query request of `kind` for `fullName`.
  std::pair<std::string, std::string> Key(const std::string& kind, const std::string& fullName);

  tessaron::testing::TempDir dir_;
  std::string path_;
  std::string version_ = "4.0";
  std::shared_ptr<Processor> processor_;
  std::string ticket_;
};

}  // namespace tessaron::qbsim::testing
