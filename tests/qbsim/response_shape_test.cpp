// The shape of every response: what the library walks by position and splits at quotes.
#include "tessaron/platform/error.h"
#include "tessaron/platform/xml_dom.h"
#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {
namespace {

class ResponseShapeTest : public QbsimTest {
 protected:
  void SetUp() override {
    QbsimTest::SetUp();
    Open();
  }
};

TEST_F(ResponseShapeTest, DeclarationIsChildZeroAndNoWhiteSpaceNodesExist) {
  Response r = Send("<HostQueryRq requestID=\"1\"/><ClassQueryRq/>");
  EXPECT_EQ(r.Text().rfind("<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs>", 0), 0u);
  EXPECT_EQ(r.Text().find_first_of("\n\t"), std::string::npos);
  XmlDocument doc = XmlDocument::Create();
  ASSERT_TRUE(doc.loadXML(r.Text()));
  EXPECT_EQ(doc.childNodes().item(0).nodeType(), XmlNodeType::ProcessingInstruction);
  XmlNode set = doc.childNodes().item(1).childNodes().item(0);
  EXPECT_EQ(set.baseName(), "QBXMLMsgsRs");
  EXPECT_EQ(set.childNodes().item(0).childNodes().item(0).baseName(), "HostRet");
}

TEST_F(ResponseShapeTest, AttributesComeInTheOrderTheLibrarySplitsAtQuotes) {
  Response r = Send("<ClassAddRq requestID=\"7\"><ClassAdd><Name>Retail</Name></ClassAdd></ClassAddRq>");
  XmlDocument doc = XmlDocument::Create();
  ASSERT_TRUE(doc.loadXML(r.Text()));
  std::string xml = doc.childNodes().item(1).childNodes().item(0).childNodes().item(0).xml();
  std::vector<std::string> tokens;
  for (size_t start = 0;;) {
    size_t q = xml.find('"', start);
    tokens.push_back(xml.substr(start, q == std::string::npos ? std::string::npos : q - start));
    if (q == std::string::npos) break;
    start = q + 1;
  }
  ASSERT_GE(tokens.size(), 8u);
  EXPECT_EQ(tokens[1], "7");
  EXPECT_EQ(tokens[3], "3100");
  EXPECT_EQ(tokens[5], "Error");
  EXPECT_NE(tokens[7].find("Retail"), std::string::npos);
}

TEST_F(ResponseShapeTest, RequestIdIsEchoedOnlyWhenTheRequestHadOne) {
  Response r = Send("<ClassQueryRq requestID=\"abc 1\"/><ClassQueryRq/>");
  EXPECT_STREQ(r.Rs(0).attribute("requestID").value(), "abc 1");
  EXPECT_TRUE(r.Rs(1).attribute("requestID").empty());
  EXPECT_STREQ(r.Rs(1).first_attribute().name(), "statusCode");
}

TEST_F(ResponseShapeTest, EveryRequestOfABatchIsAnsweredInOrderAfterFailures) {
  Response r = Send(
      "<ClassQueryRq requestID=\"1\"><FullName>No Such Class</FullName></ClassQueryRq>"
      "<ClassAddRq requestID=\"2\"><ClassAdd><Name>Retail</Name></ClassAdd></ClassAddRq>"
      "<ClassAddRq requestID=\"3\"><ClassAdd><Name>Wholesale</Name></ClassAdd></ClassAddRq>"
      "<ClassQueryRq requestID=\"4\"><ActiveStatus>All</ActiveStatus></ClassQueryRq>");
  ASSERT_EQ(r.Count(), 4);
  EXPECT_EQ(std::string(r.Rs(0).name()), "ClassQueryRs");
  EXPECT_EQ(std::string(r.Rs(1).name()), "ClassAddRs");
  EXPECT_EQ(r.Status(0), status::kNotFoundByKey);
  EXPECT_EQ(r.Status(1), status::kNameInUse);
  EXPECT_EQ(r.Status(2), 0);
  EXPECT_EQ(r.Status(3), 0);
}

TEST_F(ResponseShapeTest, StopOnErrorLeavesTheRestUnanswered) {
  Response r = SendRaw(Message("<ClassAddRq requestID=\"1\"><ClassAdd><Name>Retail</Name></ClassAdd></ClassAddRq>"
                               "<ClassAddRq requestID=\"2\"><ClassAdd><Name>Other</Name></ClassAdd></ClassAddRq>",
                               "4.0", "stopOnError"));
  EXPECT_EQ(r.Count(), 1);
}

TEST_F(ResponseShapeTest, EmptyFilterResultIsStatusOneWithAnEmptyResponse) {
  Response r = Send("<ClassQueryRq requestID=\"1\"><NameFilter><MatchCriterion>StartsWith</MatchCriterion>"
                    "<Name>zzz</Name></NameFilter></ClassQueryRq>");
  EXPECT_EQ(r.Status(), status::kNoMatch);
  EXPECT_STREQ(r.Rs().attribute("statusSeverity").value(), "Info");
  EXPECT_TRUE(r.Records().empty());
}

TEST_F(ResponseShapeTest, ReferencesCarryListIdFirstThenFullName) {
  Response r = Send("<CustomerQueryRq><MaxReturned>1</MaxReturned></CustomerQueryRq>");
  pugi::xml_node terms = r.Rs().child("CustomerRet").child("TermsRef");
  ASSERT_TRUE(terms);
  EXPECT_STREQ(terms.first_child().name(), "ListID");
  EXPECT_STREQ(terms.last_child().name(), "FullName");
  EXPECT_STREQ(r.Rs().child("CustomerRet").first_child().name(), "ListID");
}

TEST_F(ResponseShapeTest, IdsHaveNoBlanksAndTimesHaveTheLibrarysFixedPositions) {
  Response r = Send("<ClassQueryRq requestID=\"1\"><ActiveStatus>All</ActiveStatus></ClassQueryRq>");
  for (pugi::xml_node rec : r.Records()) {
    std::string id = rec.child_value("ListID"), time = rec.child_value("TimeModified");
    EXPECT_EQ(id.find(' '), std::string::npos);
    ASSERT_GE(time.size(), 19u);
    EXPECT_EQ(time[4], '-');
    EXPECT_EQ(time[10], 'T');
    EXPECT_EQ(time[13], ':');
  }
}

TEST_F(ResponseShapeTest, ValuesAreEscapedAndNumericReferencesDecoded) {
  Response r = Send("<VendorAddRq requestID=\"1\"><VendorAdd><Name>AT&amp;T &lt;Caf&#233;&gt; &#64; &#266;</Name>"
                    "</VendorAdd></VendorAddRq>");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  EXPECT_EQ(r.Value("VendorRet/Name"), "AT&T <Café> @ \xC4\x8A");
}

TEST_F(ResponseShapeTest, UnknownRequestsAreAnsweredNotSupported) {
  ProcessorOptions lenient;
  processor_ = CreateProcessor(lenient);
  processor_->OpenConnection("", "lenient");
  ticket_ = processor_->BeginSession(path_, 0);
  Response r = Send("<BillQueryRq><MaxReturned>1</MaxReturned></BillQueryRq>"
                    "<VehicleQueryRq><MaxReturned>1</MaxReturned></VehicleQueryRq>");
  EXPECT_EQ(r.Status(0), status::kNotSupported);
  EXPECT_EQ(r.Status(1), status::kNotSupported);
  EXPECT_NE(r.Message(0).find("not supported by this company file processor"), std::string::npos);
}

// ---- Faults a test can ask for ----

class FaultTest : public ResponseShapeTest {
 protected:
  static Fault Of(Fault::Kind kind, const std::string& requestName = "") {
    Fault f;
    f.kind = kind;
    f.requestName = requestName;
    return f;
  }
  void Plan(Fault f) {
    ProcessorOptions o = StrictOptions();
    o.faults = std::make_shared<FaultPlan>();
    o.faults->Add(std::move(f));
    processor_ = CreateProcessor(o);
    processor_->OpenConnection("", "faults");
    ticket_ = processor_->BeginSession(path_, 0);
  }
  std::string Raw(const std::string& requests) { return processor_->ProcessRequest(ticket_, Message(requests)); }
};

TEST_F(FaultTest, RaiseStrikesOnceWithItsNumber) {
  Fault f = Of(Fault::Kind::Raise, "ClassQueryRq");
  f.number = 0x80040410;
  f.description = "QuickBooks is busy.";
  Plan(f);
  EXPECT_NO_THROW(Raw("<HostQueryRq/>"));
  try {
    Raw("<ClassQueryRq/>");
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), static_cast<int32_t>(0x80040410));
    EXPECT_EQ(e.Description(), "QuickBooks is busy.");
  }
  EXPECT_NO_THROW(Raw("<ClassQueryRq/>"));
}

TEST_F(FaultTest, UnparsableTextIsNotXml) {
  Plan(Of(Fault::Kind::UnparsableText));
  XmlDocument doc = XmlDocument::Create();
  EXPECT_FALSE(doc.loadXML(Raw("<HostQueryRq/>")));
}

TEST_F(FaultTest, NoAttributesLeavesTheResponseElementBare) {
  Plan(Of(Fault::Kind::NoAttributes, "ClassQueryRq"));
  Response r(Raw("<HostQueryRq/><ClassQueryRq/>"));
  EXPECT_FALSE(r.Rs(0).attributes().empty());
  EXPECT_TRUE(r.Rs(1).attributes().empty());
}

TEST_F(FaultTest, DropResponseLeavesOutOneResponseElement) {
  Plan(Of(Fault::Kind::DropResponse, "ClassQueryRq"));
  Response r(Raw("<HostQueryRq/><ClassQueryRq/><ShipMethodQueryRq/>"));
  ASSERT_EQ(r.Count(), 2);
  EXPECT_STREQ(r.Rs(1).name(), "ShipMethodQueryRs");
}

}  // namespace
}  // namespace tessaron::qbsim::testing
