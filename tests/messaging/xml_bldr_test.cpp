// The text the builder writes: envelope, escaping, version gates, elements, objects, filters.
#include <gtest/gtest.h>

#include <fstream>

#include "tessaron/connection/library_state.h"
#include "tessaron/framework/qc_base.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/scripted_processor.h"

namespace tessaron {
namespace {

using testing::ScriptedSession;

constexpr const char* kDecl = "<?xml version=\"1.0\" ?>";
constexpr const char* kMsgsRq = "<QBXML><QBXMLMsgsRq onError = \"continueOnError\">";

// A builder at a qbXML version, without a connection.
void AtVersion(const std::string& versionText) {
  ResetLibraryStateForTesting();
  State().QBXMLVersionText = versionText;
  std::string number = versionText.size() > 2 && !isdigit(versionText[0]) ? versionText.substr(2) : versionText;
  State().QBXMLVersionNumber = number.empty() ? Currency(0) : Currency::Parse(number);
}

std::string Text(xmlBldr& b) { return b.GetXML().ToString(); }

class XmlBldrText : public ::testing::Test {
 protected:
  void SetUp() override { AtVersion("2.0"); }
  void TearDown() override { ResetLibraryStateForTesting(); }
  xmlBldr b;
};

// ---- Envelope -------------------------------------------------------------------------------

struct EnvelopeCase {
  const char* versionText;
  const char* docType;
};

class EnvelopeByVersion : public ::testing::TestWithParam<EnvelopeCase> {};

TEST_P(EnvelopeByVersion, NewClearWritesDeclarationDocumentTypeAndMessageSet) {
  AtVersion(GetParam().versionText);
  xmlBldr b;
  b.NewClear();
  EXPECT_EQ(Text(b), std::string(kDecl) + GetParam().docType + kMsgsRq);
}

INSTANTIATE_TEST_SUITE_P(
    Versions, EnvelopeByVersion,
    ::testing::Values(EnvelopeCase{"", "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 1.0//EN' >"},
                      EnvelopeCase{"1.0", "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 1.0//EN' >"},
                      EnvelopeCase{"2.0", "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 2.0//EN' >"},
                      EnvelopeCase{"CA2.0", "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD CA2.0//EN' >"}));

TEST_F(XmlBldrText, SubscriptionSetHasNoAttribute) {
  b.NewClearSubscriptions();
  EXPECT_EQ(Text(b), std::string(kDecl) + "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 2.0//EN' >" +
                         "<QBXML><QBXMLSubscriptionMsgsRq>");
}

TEST_F(XmlBldrText, ReportTopIsTheDeclarationAloneAndKeepsWhatWasWritten) {
  b.OpenAggregateOnly("A");
  b.CreateRptTop();
  EXPECT_EQ(Text(b), std::string("<A>") + kDecl);
}

TEST_F(XmlBldrText, PersistenceDocumentHasNoDeclaration) {
  b.NewClear();
  b.IOClear();
  EXPECT_EQ(Text(b), "<Tessaron><QBXMLMsgsRq onError = \"continueOnError\">");
}

TEST_F(XmlBldrText, ClearForgetsPiecesButKeepsTheAssembledText) {
  b.OpenAggregateOnly("A");
  EXPECT_EQ(Text(b), "<A>");
  b.Clear();
  EXPECT_EQ(b.PieceCount(), 0);
  EXPECT_EQ(b.AssembledText(), "<A>");
  EXPECT_EQ(Text(b), "");
}

TEST_F(XmlBldrText, EveryCallIsOnePiece) {
  b.OpenAggregate("A", "x", "1");
  b.CreateElement("B", "v");
  b.EnterValueOnly("");
  b.CreateBlankTag("C");
  b.InsertRawXML("<D/>");
  b.EndAggregate("A");
  EXPECT_EQ(b.PieceCount(), 6);
  EXPECT_EQ(Text(b), "<A x = \"1\"><B>v</B><C/><D/></A>");
}

// ---- Escaping -------------------------------------------------------------------------------

struct EscapeCase {
  const char* value;
  const char* written;
};

class EscapingTable : public ::testing::TestWithParam<EscapeCase> {};

TEST_P(EscapingTable, ValueIsWrittenAsTheTableSays) {
  EXPECT_EQ(EscapeValue(GetParam().value), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, EscapingTable,
    ::testing::Values(
        EscapeCase{"", ""}, EscapeCase{"plain text", "plain text"}, EscapeCase{"AT&T <x>", "AT&amp;T &lt;x&gt;"},
        EscapeCase{"\"q\" 'a'", "&quot;q&quot; &apos;a&apos;"}, EscapeCase{"a@b", "a&#64;b"},
        EscapeCase{"&amp;", "&amp;amp;"}, EscapeCase{"¡¼½¾¿", "&#161;&#188;&#189;&#190;&#191;"},
        EscapeCase{"ÄÅÆÇÉÑÖØÜ", "&#196;&#197;&#198;&#199;&#201;&#209;&#214;&#216;&#220;"},
        EscapeCase{"éßàáäçèêë", "&#233;&#223;&#224;&#225;&#228;&#231;&#232;&#234;&#235;"},
        EscapeCase{"ìíîïñòóô", "&#236;&#237;&#238;&#239;&#241;&#242;&#243;&#244;"},
        EscapeCase{"ùúûüÿ", "&#249;&#250;&#251;&#252;&#255;"},
        // The three rows kept as they are: small o-umlaut is never escaped, a-circumflex
        // goes out as entity 266, and e-acute (listed twice) is escaped once.
        EscapeCase{"ö", "ö"}, EscapeCase{"â", "&#266;"}, EscapeCase{"é", "&#233;"},
        // Characters outside the table go out as they are.
        EscapeCase{"ãõ€中", "ãõ€中"}, EscapeCase{"Müller & Söhne", "M&#252;ller &amp; Söhne"},
        // A lead byte without its continuation is no character of the table: nothing is lost.
        EscapeCase{"a\xC3" ")b", "a\xC3" ")b"}, EscapeCase{"a\xC3" "<", "a\xC3" "&lt;"}));

TEST_F(XmlBldrText, OnlyValuesAreEscaped) {
  b.OpenAggregate("A", "note", "x<y");
  b.CreateElement("Name", "Tom & Jerry");
  b.EnterValueOnly("@");
  EXPECT_EQ(Text(b), "<A note = \"x&lt;y\"><Name>Tom &amp; Jerry</Name>&#64;");
}

// ---- Elements and version gates ---------------------------------------------------------------

TEST_F(XmlBldrText, EmptyElementsAreWrittenOnlyWhereAskedFor) {
  b.CreateElement("Name", "");
  b.CreateElement2("Skipped", "", false, 0);
  b.CreateElement2("Forced", "", true, 0);
  b.CreateElement2("Kept", "v", false, 0);
  EXPECT_EQ(Text(b), "<Name></Name><Forced></Forced><Kept>v</Kept>");
}

TEST_F(XmlBldrText, ElementsAboveTheConnectedVersionAreLeftOutSilently) {
  b.CreateElement("X", "v", 3);
  b.CreateElement2("Y", "v", true, Currency::Parse("2.1"));
  b.CreateDateElement("D", DateSerial(2024, 2, 29), 3);
  EXPECT_EQ(Text(b), "");
  AtVersion("3.0");
  b.CreateElement("X", "v", 3);
  EXPECT_EQ(Text(b), "<X>v</X>");
}

TEST_F(XmlBldrText, DateElementSkipsTheNullDateAndWritesOnlyTheDay) {
  b.CreateDateElement("TxnDate", 0);
  b.CreateDateElement("TxnDate", DateSerial(2024, 2, 29) + TimeSerial(13, 5, 9));
  EXPECT_EQ(Text(b), "<TxnDate>2024-02-29</TxnDate>");
}

TEST_F(XmlBldrText, EndAggregateWithoutNameClosesTheLastOpenedTagAgainAndAgain) {
  b.OpenAggregate("A", "requestID", "1");
  b.OpenAggregate("B", "requestID", "2");
  std::string name;
  b.EndAggregate(name);
  EXPECT_EQ(name, "B");  // written back into the caller's variable
  b.EndAggregate();
  EXPECT_EQ(Text(b), "<A requestID = \"1\"><B requestID = \"2\"></B></B>");
}

// ---- Objects ----------------------------------------------------------------------------------

class FakeItemService : public qcBase {
 public:
  int32_t XMLInsert(xmlBldr& b) override { b.CreateElement("Name", "add"); return 0; }
  int32_t XMLQueryRs(xmlBldr& b) override { b.CreateElement("Name", "ret"); return 0; }
  int32_t XMLModify(xmlBldr& b) override { b.CreateElement("Name", "mod"); return 0; }
  qoEnumListObjectType ObjectType() const override { return qoObjectTypeItemService; }
  Variant FromDom(const XmlNode&) override { return Variant(); }
};

TEST_F(XmlBldrText, ObjectsAreWrappedUnderTheKeyOfTheirType) {
  FakeItemService item;
  b.InsertAddRq(item, 1);
  b.InsertModRq(item, 2);
  b.InsertQueryRs(item, 3);
  EXPECT_EQ(Text(b),
            "<ItemServiceAddRq requestID = \"1\"><ItemServiceAdd><Name>add</Name></ItemServiceAdd></ItemServiceAddRq>"
            "<ItemServiceModRq requestID = \"2\"><ItemServiceMod><Name>mod</Name></ItemServiceMod></ItemServiceModRq>"
            "<ItemServiceQueryRs requestID = \"3\"><ItemServiceRet><Name>ret</Name></ItemServiceRet>"
            "</ItemServiceQueryRs>");
}

// ---- Files ------------------------------------------------------------------------------------

TEST_F(XmlBldrText, ReadXmlOfAMissingFileIsAnEmptyDocument) {
  testing::TempDir dir;
  XmlDocument doc = b.ReadXml(dir.File("missing.xml"));
  ASSERT_FALSE(doc.IsNull());
  EXPECT_EQ(doc.childNodes().length(), 0);
}

TEST_F(XmlBldrText, SaveToFileWritesOneLineThatReadXmlReadsBack) {
  testing::TempDir dir;
  std::ofstream(dir.File("c.xml")) << "old content that is replaced";
  b.IOClear();
  b.CreateElement("Name", "A&B");
  EXPECT_EQ(b.SaveToFile(dir.File("c.xml")), 0);
  std::ifstream in(dir.File("c.xml"));
  std::string all((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_EQ(all, "<Tessaron><QBXMLMsgsRq onError = \"continueOnError\"><Name>A&amp;B</Name></QBXMLMsgsRq></Tessaron>\n");
  XmlDocument doc = b.ReadXml(dir.File("c.xml"));
  EXPECT_EQ(doc.documentElement().childNodes().item(0).childNodes().item(0).text(), "A&B");
  EXPECT_FALSE(doc.async());
}

TEST_F(XmlBldrText, SaveToFileInAMissingFolderRaisesPathNotFound) {
  testing::TempDir dir;
  b.IOClear();
  try {
    b.SaveToFile(dir.File("no/such/folder.xml"));
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), platform_error::kPathNotFound);
  }
}

// ---- Queries through a session ------------------------------------------------------------------

TEST(XmlBldrQueries, FullTableQueryIgnoresMaxRows) {
  ScriptedSession qb("2.0");
  xmlBldr b;
  b.QueryFullTableExecute("CustomerQueryRq", 5);
  EXPECT_EQ(qb.processor().LastRequest(),
            std::string(kDecl) + "<!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD 2.0//EN' >" + kMsgsRq +
                "<CustomerQueryRq requestID = \"1\"></CustomerQueryRq></QBXMLMsgsRq></QBXML>");
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST(XmlBldrQueries, SingleQueryWritesKeyInFilterAndAsksForPublicCustomFields) {
  ScriptedSession qb("2.0");
  State().DataExtensionsGUID = "{6B063959-81B0-4622-85D6-DD4F8E3C5C0E}";  // no application fields yet
  xmlBldr b;
  b.QuerySingleExecute("InvoiceQueryRq", "2024-01-31", "FromModifiedDate", 7, qoObjectTypeInvoice,
                       "ModifiedDateRangeFilter", true);
  EXPECT_NE(qb.processor().LastRequest().find(
                "<InvoiceQueryRq requestID = \"1\"><ModifiedDateRangeFilter><FromModifiedDate>2024-01-31"
                "</FromModifiedDate></ModifiedDateRangeFilter><OwnerID>0</OwnerID></InvoiceQueryRq>"),
            std::string::npos);
  b.QuerySingleExecute("CustomerQueryRq", "Acme", "FullName", 0, qoObjectTypeCustomer);
  EXPECT_NE(qb.processor().LastRequest().find("<CustomerQueryRq requestID = \"1\"><FullName>Acme</FullName>"
                                              "</CustomerQueryRq>"),
            std::string::npos);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST(XmlBldrQueries, CustomFieldsAreNotAskedForBelowVersion2) {
  ScriptedSession qb("1.1");
  xmlBldr b;
  b.QuerySingleExecute("CustomerQueryRq", "Acme", "FullName", 0, qoObjectTypeCustomer, "", true);
  EXPECT_EQ(qb.processor().LastRequest().find("OwnerID"), std::string::npos);
}

TEST(XmlBldrQueries, RawSingleQueryPutsMaxReturnedBeforeTheKeyAndReturnsText) {
  ScriptedSession qb("2.0");
  const std::string canned = testing::ScriptedProcessor::Response("InvoiceQueryRs", "", 1, "No match");
  qb.processor().QueueResponse(canned);
  xmlBldr b;
  std::string text = b.XMLQuerySingleExecute("InvoiceQueryRq", "2024-01-31", "FromTxnDate", 3, qoObjectTypeInvoice,
                                             "TxnDateRangeFilter");
  EXPECT_EQ(text, canned);
  EXPECT_NE(qb.processor().LastRequest().find("<InvoiceQueryRq requestID = \"1\"><MaxReturned>3</MaxReturned>"
                                              "<TxnDateRangeFilter><FromTxnDate>2024-01-31</FromTxnDate>"
                                              "</TxnDateRangeFilter></InvoiceQueryRq>"),
            std::string::npos);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST(XmlBldrQueries, InsertEnvelopeUsesRequestId2AndSends) {
  ScriptedSession qb("2.0");
  xmlBldr b;
  EXPECT_EQ(b.XMLInsertBegin("ClassAddRq", "ClassAdd"), "");
  b.CreateElement("Name", "West");
  XmlDocument doc = b.XMLInsertFinish("ClassAddRq", "ClassAdd");
  EXPECT_FALSE(doc.IsNull());
  EXPECT_NE(qb.processor().LastRequest().find(
                "<ClassAddRq requestID = \"2\"><ClassAdd><Name>West</Name></ClassAdd></ClassAddRq>"),
            std::string::npos);
  EXPECT_TRUE(qb.processor().AllRequestsValid());
}

TEST(XmlBldrQueries, InsertEnvelopeCatchesFailuresIntoTheStatus) {
  ScriptedSession qb("2.0");
  qb.processor().FailOn("ProcessRequest", Error(0x80040408u, "QBXMLRP2", "The session is lost"));
  xmlBldr b;
  b.XMLInsertBegin("ClassAddRq", "ClassAdd");
  b.CreateElement("Name", "West");
  XmlDocument doc;
  EXPECT_NO_THROW(doc = b.XMLInsertFinish("ClassAddRq", "ClassAdd"));
  EXPECT_TRUE(doc.IsNull());
  EXPECT_EQ(b.ErrNumber(), static_cast<int32_t>(0x80040408u));
  EXPECT_EQ(b.ErrMsg(), "The session is lost");
}

// ---- Filters ----------------------------------------------------------------------------------

TEST_F(XmlBldrText, NameFilterWithChildrenWritesOnlyTheFirstName) {
  b.InsertAccountFilter({"Bank", "Checking"}, true);
  b.InsertEntityFilter({"Acme", "Bolt"}, false);
  EXPECT_EQ(Text(b),
            "<AccountFilter><FullNameWithChildren>Bank</FullNameWithChildren></AccountFilter>"
            "<EntityFilter><FullName>Acme</FullName><FullName>Bolt</FullName></EntityFilter>");
}

TEST_F(XmlBldrText, NameFilterOfAnEmptyArrayRaisesSubscriptOutOfRange) {
  try {
    b.InsertEntityFilter({}, false);
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), platform_error::kSubscriptOutOfRange);
  }
}

struct DateFilterCase {
  const char* version;
  const char* filterType;
  Date from, to;
  int32_t macro;
  const char* written;
};

class DateFilter : public ::testing::TestWithParam<DateFilterCase> {};

TEST_P(DateFilter, WritesTheRangeAsTheVersionAllows) {
  const DateFilterCase& c = GetParam();
  AtVersion(c.version);
  xmlBldr b;
  b.InsertDateFilter(c.filterType, c.from, c.to, static_cast<qbEnumDateMacro>(c.macro));
  EXPECT_EQ(Text(b), c.written);
}

const Date kD1 = DateSerial(2024, 1, 31) + TimeSerial(8, 30, 0);
const Date kD2 = DateSerial(2024, 2, 29);

INSTANTIATE_TEST_SUITE_P(
    Cases, DateFilter,
    ::testing::Values(
        DateFilterCase{"2.0", "Modified", kD1, kD2, 0,
                       "<ModifiedDateRangeFilter><FromModifiedDate>2024-01-31T08:30:00</FromModifiedDate>"
                       "<ToModifiedDate>2024-02-29T00:00:00</ToModifiedDate></ModifiedDateRangeFilter>"},
        DateFilterCase{"1.1", "Modified", kD1, kD2, 0,
                       "<ModifiedDateRangeFilter><FromModifiedDate>2024-01-31</FromModifiedDate>"
                       "<ToModifiedDate>2024-02-29</ToModifiedDate></ModifiedDateRangeFilter>"},
        DateFilterCase{"2.0", "Txn", kD1, 0, 0, "<TxnDateRangeFilter><FromTxnDate>2024-01-31</FromTxnDate></TxnDateRangeFilter>"},
        DateFilterCase{"2.0", "Txn", 0, 0, 6, "<TxnDateRangeFilter><DateMacro>LastMonth</DateMacro></TxnDateRangeFilter>"},
        DateFilterCase{"2.0", "Txn", 0, 0, 0, "<TxnDateRangeFilter></TxnDateRangeFilter>"}));

TEST(XmlBldrQueries, FiltersInsideAQueryAreValidQbxml) {
  ScriptedSession qb("2.0");
  xmlBldr b;
  b.NewClear();
  b.OpenAggregate("InvoiceQueryRq", "requestID", "1");
  b.InsertDateFilter("Txn", 0, 0, qbDateMacroThisFiscalYearToDate);
  b.InsertEntityFilter({"Acme"}, true);
  b.InsertAccountFilter({"Accounts Receivable", "Other"}, false);
  b.EndAggregate("InvoiceQueryRq");
  b.NewSendRequest();
  EXPECT_TRUE(qb.processor().AllRequestsValid());
  EXPECT_NE(qb.processor().LastRequest().find("<DateMacro>ThisFiscalYearToDate</DateMacro>"), std::string::npos);
}

}  // namespace
}  // namespace tessaron
