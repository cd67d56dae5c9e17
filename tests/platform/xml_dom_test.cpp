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

// An answer of many megabytes is parsed where it lies: the document keeps the text, so
// its nodes stay readable after the caller's variable is gone.
TEST(XmlDom, TextParsedInPlaceLivesAsLongAsTheDocument) {
  XmlNode ret;
  {
    XmlDocument doc = XmlDocument::Create();
    std::string text = kResponse;
    ASSERT_TRUE(doc.loadXMLInPlace(std::move(text)));
    ret = doc.childNodes().item(1).childNodes().item(0).childNodes().item(0).childNodes().item(0);
  }
  std::string overwrite(4096, 'x');  // reuses what a freed text would have held
  EXPECT_EQ(ret.childNodes().item(0).text(), "80000001-1");
  EXPECT_EQ(ret.childNodes().item(2).text(), "Job 1");
}

TEST(XmlDom, LoadingAgainReplacesWhatWasParsedInPlace) {
  XmlDocument doc = XmlDocument::Create();
  ASSERT_TRUE(doc.loadXMLInPlace("<A><B>1</B></A>"));
  EXPECT_FALSE(doc.loadXMLInPlace("<A><B></A>"));
  EXPECT_TRUE(doc.documentElement().IsNull());
  EXPECT_FALSE(doc.parseErrorReason().empty());
  ASSERT_TRUE(doc.loadXML("<C>2</C>"));
  EXPECT_EQ(doc.documentElement().text(), "2");
}

struct ViewCase {
  const char* name;
  const char* xml;
  const char* text;
};
class TextViewTest : public ::testing::TestWithParam<ViewCase> {};
// The view gives what text() gives, whatever the shape of the element.
TEST_P(TextViewTest, GivesWhatTextGives) {
  XmlDocument doc = XmlDocument::Create();
  ASSERT_TRUE(doc.loadXML(GetParam().xml));
  XmlNode e = doc.documentElement();
  std::string scratch;
  EXPECT_EQ(e.textView(scratch), GetParam().text);
  EXPECT_EQ(e.text(), GetParam().text);
}
INSTANTIATE_TEST_SUITE_P(
    Shapes, TextViewTest,
    ::testing::Values(ViewCase{"OneText", "<A>Acme</A>", "Acme"}, ViewCase{"Blanks", "<A>\n  Acme  Inc \t</A>", "Acme  Inc"},
                      ViewCase{"Empty", "<A/>", ""}, ViewCase{"OnlyBlanks", "<A>   </A>", ""},
                      ViewCase{"Entities", "<A>a &amp; b</A>", "a & b"},
                      ViewCase{"CData", "<A><![CDATA[<x>]]></A>", "<x>"},
                      ViewCase{"Nested", "<A><B>8-1</B><C> Acme </C></A>", "8-1 Acme"},
                      ViewCase{"SplitByComment", "<A>B<!-- c -->o</A>", "B o"}),
    [](const ::testing::TestParamInfo<ViewCase>& info) { return std::string(info.param.name); });

TEST(XmlDom, TextViewOfAnAttributeIsItsValue) {
  XmlDocument doc = XmlDocument::Create();
  ASSERT_TRUE(doc.loadXML("<A statusCode=\" 3100 \"/>"));
  std::string scratch;
  EXPECT_EQ(doc.documentElement().attributes().item(0).textView(scratch), " 3100 ");
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
