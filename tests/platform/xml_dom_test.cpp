#include <gtest/gtest.h>

#include "tessaron/platform/error.h"
#include "tessaron/platform/request_processor.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {
namespace {

const char* kResponse =
    "<?xml version=\"1.0\" ?>\n<QBXML>\n  <QBXMLMsgsRs>\n"
    "    <CustomerQueryRs requestID=\"1\" statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"OK\">\n"
    "      <CustomerRet><ListID>80000001-1</ListID><ParentRef><ListID>8-1</ListID><FullName>Acme  Inc</FullName>"
    "</ParentRef><Name> Job 1 </Name></CustomerRet>\n"
    "    </CustomerQueryRs>\n  </QBXMLMsgsRs>\n</QBXML>\n";

TEST(XmlDom, ResponsesWalkByPositionAsTheLibraryExpects) {
  XmlDocument doc = XmlDocument::Create();
  ASSERT_TRUE(doc.loadXML(kResponse));
  EXPECT_EQ(doc.childNodes().item(0).nodeType(), XmlNodeType::ProcessingInstruction);
  XmlNode rs = doc.childNodes().item(1).childNodes().item(0).childNodes().item(0);
  EXPECT_EQ(rs.baseName(), "CustomerQueryRs");
  XmlAttributes attrs = rs.attributes();
  ASSERT_EQ(attrs.length(), 4);
  EXPECT_EQ(attrs.item(1).baseName(), "statusCode");
  EXPECT_EQ(attrs.item(3).text(), "OK");
  XmlNode ret = rs.childNodes().item(0);
  EXPECT_EQ(rs.childNodes().length(), 1);  // white space between elements is no node
  EXPECT_EQ(ret.childNodes().item(1).text(), "8-1 Acme  Inc");  // descendants joined by one blank
  EXPECT_EQ(ret.childNodes().item(2).text(), "Job 1");
  std::string walked;
  for (const XmlNode& child : ret.childNodes()) walked += std::string(child.baseName()) + ";";
  EXPECT_EQ(walked, "ListID;ParentRef;Name;");  // a range-for visits what item(0..length-1) gives
}

TEST(XmlDom, TextOfAnElementNestedDeeperThanTheStackIsCollected) {
  const int depth = 300000;
  std::string text = "<Name>";
  for (int i = 0; i < depth; ++i) text += "<a>";
  text += "deep";
  for (int i = 0; i < depth; ++i) text += "</a>";
  text += " end</Name>";
  XmlDocument doc = XmlDocument::Create();
  ASSERT_TRUE(doc.loadXML(text));
  EXPECT_EQ(doc.childNodes().item(0).text(), "deep end");
}

TEST(XmlDom, MissingItemIsNullAndUsingItRaises91) {
  XmlDocument doc = XmlDocument::Create();
  ASSERT_TRUE(doc.loadXML("<A/>"));
  XmlNode missing = doc.childNodes().item(5);
  EXPECT_TRUE(missing.IsNull());
  try {
    (void)missing.baseName();
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), platform_error::kObjectNotSet);
  }
}

TEST(XmlDom, UnparsableTextLeavesTheDocumentEmpty) {
  XmlDocument doc = XmlDocument::Create();
  ASSERT_TRUE(doc.loadXML("<A><B/></A>"));
  EXPECT_FALSE(doc.loadXML("<A><B></A>"));
  EXPECT_EQ(doc.childNodes().length(), 0);
  EXPECT_FALSE(doc.parseErrorReason().empty());
}

TEST(XmlDom, DocumentTypeIsAChildAfterTheDeclaration) {
  XmlDocument doc = XmlDocument::Create();
  ASSERT_TRUE(doc.loadXML("<?xml version=\"1.0\"?><!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 4.0//EN' ><QBXML/>"));
  EXPECT_EQ(doc.childNodes().item(1).nodeType(), XmlNodeType::DocumentType);
  EXPECT_EQ(doc.childNodes().item(2).baseName(), "QBXML");
}

class FakeProcessor : public RequestProcessor {
 public:
  void OpenConnection(const std::string&, const std::string&) override {}
  std::string BeginSession(const std::string&, int32_t) override { return "t"; }
  void EndSession(const std::string&) override {}
  void CloseConnection() override {}
  std::string ProcessRequest(const std::string&, const std::string& r) override { return r; }
  std::string ProcessSubscription(const std::string& r) override { return r; }
  std::vector<std::string> QBXMLVersionsForSession(const std::string&) override { return {"1.0"}; }
  std::string GetCurrentCompanyFileName(const std::string&) override { return ""; }
  int MajorVersion() override { return 3; }
  int MinorVersion() override { return 0; }
};

TEST(RequestProcessorRegistry, UnknownOrFailingFactoriesRaise429) {
  RegisterRequestProcessor("Test.Fake", [] { return std::make_shared<FakeProcessor>(); });
  EXPECT_EQ(CreateRequestProcessorObject("test.fake")->MajorVersion(), 3);
  RegisterRequestProcessor("Test.Broken", []() -> std::shared_ptr<RequestProcessor> { throw std::runtime_error("x"); });
  for (const char* id : {"Test.Broken", "Test.Missing"}) {
    try {
      CreateRequestProcessorObject(id);
      ADD_FAILURE() << id;
    } catch (const Error& e) {
      EXPECT_EQ(e.Number(), platform_error::kCannotCreateObject);
    }
  }
  UnregisterRequestProcessor("Test.Fake");
  EXPECT_FALSE(IsRequestProcessorRegistered("Test.Fake"));
}

}  // namespace
}  // namespace tessaron
