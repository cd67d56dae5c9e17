// Strict mode: what QuickBooks refuses as a whole message, and the library's deviations
// that are tolerated on purpose.
#include "tessaron/platform/error.h"
#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {
namespace {

class StrictModeTest : public QbsimTest {
 protected:
  static ProcessorOptions Lenient() {
    ProcessorOptions o;
    o.strict = false;
    return o;
  }
  // The error a message raises; the test fails when it raises none.
  Error Refusal(const std::string& text) {
    try {
      processor_->ProcessRequest(ticket_, text);
    } catch (const Error& e) {
      return e;
    }
    ADD_FAILURE() << "no error for " << text;
    return Error(0, "", "");
  }
  // Sends a message that the schema refuses on purpose and checks only the answer.
  Response SendTolerated(const std::string& requests, const std::string& version = "4.0") {
    std::string text = Message(requests, version);
    EXPECT_FALSE(tessaron::testing::IsValidQbxml(text)) << "the case is no longer a deviation";
    Response r(processor_->ProcessRequest(ticket_, text));
    EXPECT_TRUE(tessaron::testing::IsValidQbxml(r.Text()));
    return r;
  }
};

TEST_F(StrictModeTest, SchemaInvalidMessageRaisesTheParseErrorWithTheValidatorsMessage) {
  Open();
  Error e = Refusal(Message("<ClassAddRq requestID=\"1\"><ClassAdd><Name>Early</Name></ClassAdd></ClassAddRq>"
                            "<ClassAddRq requestID=\"2\"><ClassAdd><IsActive>1</IsActive><Name>Late</Name></ClassAdd>"
                            "</ClassAddRq>"));
  EXPECT_EQ(e.Number(), static_cast<int32_t>(0x80040400));
  EXPECT_EQ(e.Description().rfind("QuickBooks found an error when parsing the provided XML text stream. ", 0), 0u);
  EXPECT_NE(e.Description().find("IsActive"), std::string::npos) << e.Description();
  // Nothing of the message was carried out, not even the valid request before the fault.
  Response r = Send("<ClassQueryRq requestID=\"1\"><FullName>Early</FullName></ClassQueryRq>");
  EXPECT_EQ(r.Status(), status::kNotFoundByKey);
}

// What QuickBooks refuses as it parses, refused by a processor made with the default options.
struct RefusalCase {
  const char* name;
  const char* version;
  const char* requests;
  const char* named;  // a word the refusal names
};

class DefaultRefusalTest : public StrictModeTest, public ::testing::WithParamInterface<RefusalCase> {};

TEST_P(DefaultRefusalTest, RaisesTheParseErrorAndDoesNothing) {
  Open({}, ProcessorOptions{});
  const RefusalCase& c = GetParam();
  Error e = Refusal(Message(c.requests, c.version));
  EXPECT_EQ(e.Number(), static_cast<int32_t>(processor_error::kParse));
  EXPECT_EQ(e.Description().rfind(processor_error::kParseText, 0), 0u) << e.Description();
  EXPECT_NE(e.Description().find(c.named), std::string::npos) << e.Description();
  EXPECT_EQ(Send("<ClassQueryRq requestID=\"1\"><FullName>Refused</FullName></ClassQueryRq>").Status(),
            status::kNotFoundByKey);
}

INSTANTIATE_TEST_SUITE_P(
    Refusals, DefaultRefusalTest,
    ::testing::Values(
        RefusalCase{"OutOfOrder", "4.0",
                    "<ClassAddRq requestID=\"1\"><ClassAdd><IsActive>1</IsActive><Name>Refused</Name></ClassAdd>"
                    "</ClassAddRq>",
                    "IsActive"},
        RefusalCase{"UnknownElement", "4.0",
                    "<ClassAddRq requestID=\"1\"><ClassAdd><Name>Refused</Name><Colour>red</Colour></ClassAdd>"
                    "</ClassAddRq>",
                    "Colour"},
        RefusalCase{"MissingRequiredElement", "4.0",
                    "<ClassAddRq requestID=\"1\"><ClassAdd><IsActive>1</IsActive></ClassAdd></ClassAddRq>"
                    "<ClassAddRq requestID=\"2\"><ClassAdd><Name>Refused</Name></ClassAdd></ClassAddRq>",
                    "Name"},
        RefusalCase{"AboveTheMessagesVersion", "2.1",
                    "<ClassAddRq requestID=\"1\"><ClassAdd><Name>Refused</Name></ClassAdd></ClassAddRq>"
                    "<ListDisplayAddRq requestID=\"2\"><ListDisplayAddType>Customer</ListDisplayAddType>"
                    "</ListDisplayAddRq>",
                    "version 2.1"},
        RefusalCase{"DocumentTypeOfAnotherEdition", "CA4.0",
                    "<ClassAddRq requestID=\"1\"><ClassAdd><Name>Refused</Name></ClassAdd></ClassAddRq>", "CA4.0"}),
    [](const ::testing::TestParamInfo<RefusalCase>& info) { return std::string(info.param.name); });

TEST_F(StrictModeTest, AMessageNestedDeeperThanTheStackIsRefusedNotACrash) {
  Open();
  const int depth = 300000;
  std::string deep;
  for (int i = 0; i < depth; ++i) deep += "<a>";
  for (int i = 0; i < depth; ++i) deep += "</a>";
  Error e = Refusal(Message("<ClassQueryRq requestID=\"1\">" + deep + "</ClassQueryRq>"));
  EXPECT_EQ(e.Number(), static_cast<int32_t>(processor_error::kParse));
}

TEST_F(StrictModeTest, TextThatIsNotXmlRaisesInEveryMode) {
  Open({}, Lenient());
  EXPECT_EQ(Refusal("<QBXML><QBXMLMsgsRq>").Number(), static_cast<int32_t>(0x80040400));
}

TEST_F(StrictModeTest, LenientModeAnswersWhatTheSchemaRefuses) {
  Open({}, Lenient());
  Response r(processor_->ProcessRequest(
      ticket_, Message("<ClassAddRq requestID=\"1\"><ClassAdd><IsActive>1</IsActive><Name>abcdefghijabcdefghijabcdefghijab"
                       "</Name></ClassAdd></ClassAddRq>")));
  EXPECT_EQ(r.Status(), status::kTooLong);
}

TEST_F(StrictModeTest, VersionAboveTheSessionsNewestRaises) {
  SampleOptions s;
  s.newestVersion = 20;
  Open(s);
  EXPECT_EQ(Refusal(Message("<HostQueryRq/>", "3.0")).Number(), static_cast<int32_t>(processor_error::kVersionNotSupported));
  EXPECT_EQ(Refusal(Message("<HostQueryRq/>", "9.9")).Number(), static_cast<int32_t>(processor_error::kVersionNotSupported));
}

struct GateCase {
  const char* name;
  const char* version;
  const char* requests;
};

class VersionGateTest : public StrictModeTest, public ::testing::WithParamInterface<GateCase> {};

TEST_P(VersionGateTest, ElementsAboveTheMessagesVersionAreRefused) {
  Open();
  const GateCase& c = GetParam();
  std::string text = Message(c.requests, c.version);
  ASSERT_TRUE(tessaron::testing::IsValidQbxml(text));
  Error e = Refusal(text);
  EXPECT_EQ(e.Number(), static_cast<int32_t>(0x80040400));
  EXPECT_NE(e.Description().find(std::string("version ") + c.version), std::string::npos) << e.Description();
}

INSTANTIATE_TEST_SUITE_P(
    Gates, VersionGateTest,
    ::testing::Values(
        GateCase{"PreferencesBefore11", "1.0", "<PreferencesQueryRq requestID=\"1\"/>"},
        GateCase{"OwnerIdBefore20", "1.1", "<CustomerQueryRq><OwnerID>0</OwnerID></CustomerQueryRq>"},
        GateCase{"ModifiedTimeBefore20", "1.1", "<ClassQueryRq><FromModifiedDate>2024-01-01T10:00:00</FromModifiedDate>"
                                                "</ClassQueryRq>"},
        GateCase{"Addr4Before20", "1.1", "<CustomerAddRq requestID=\"1\"><CustomerAdd><Name>Gate</Name><BillAddress>"
                                         "<Addr4>x</Addr4></BillAddress></CustomerAdd></CustomerAddRq>"},
        GateCase{"CustomerAddNotesBefore30", "2.1", "<CustomerAddRq requestID=\"1\"><CustomerAdd><Name>Gate</Name>"
                                                    "<Notes>n</Notes></CustomerAdd></CustomerAddRq>"},
        GateCase{"CustomerModRefsBefore30", "2.0",
                 "<CustomerModRq requestID=\"1\"><CustomerMod><ListID>1</ListID><EditSequence>1</EditSequence>"
                 "<TermsRef><FullName>Net 30</FullName></TermsRef></CustomerMod></CustomerModRq>"},
        GateCase{"ListDisplayBefore30", "2.1", "<ListDisplayAddRq requestID=\"1\"><ListDisplayAddType>Customer"
                                               "</ListDisplayAddType></ListDisplayAddRq>"}),
    [](const ::testing::TestParamInfo<GateCase>& info) { return std::string(info.param.name); });

TEST_F(StrictModeTest, UsOnlyElementsAreRefusedOutsideTheUS) {
  SampleOptions s;
  s.edition = Edition::CA;
  Open(s);
  std::string text = Message("<CustomerAddRq requestID=\"1\"><CustomerAdd><Name>Maple Leaf</Name>"
                             "<SalesTaxCodeRef><FullName>Tax</FullName></SalesTaxCodeRef></CustomerAdd></CustomerAddRq>",
                             "CA4.0");
  Error e = Refusal(text);
  EXPECT_EQ(e.Number(), static_cast<int32_t>(0x80040400));
  EXPECT_NE(e.Description().find("CA edition"), std::string::npos);
}

TEST_F(StrictModeTest, DocumentTypeOfAnotherEditionIsRefused) {
  SampleOptions s;
  s.edition = Edition::UK;
  Open(s);
  EXPECT_EQ(Refusal(Message("<HostQueryRq/>", "4.0")).Number(), static_cast<int32_t>(0x80040400));
  EXPECT_EQ(Send("<HostQueryRq/>", "UK4.0").Status(), 0);
}

TEST_F(StrictModeTest, LenientModeDropsUsOnlyElementsOutsideTheUS) {
  SampleOptions s;
  s.edition = Edition::CA;
  Open(s, Lenient());
  Response r = Send("<CustomerAddRq requestID=\"1\"><CustomerAdd><Name>Maple Leaf</Name>"
                    "<SalesTaxCodeRef><FullName>Tax</FullName></SalesTaxCodeRef></CustomerAdd></CustomerAddRq>");
  ASSERT_EQ(r.Status(), 0);
  EXPECT_EQ(r.Value("CustomerRet/SalesTaxCodeRef"), "<missing>");
}

TEST_F(StrictModeTest, ProvinceAndCountyAreTakenAndAnsweredAsState) {
  SampleOptions s;
  s.edition = Edition::UK;
  Open(s);
  Response r = SendTolerated("<VendorAddRq requestID=\"1\"><VendorAdd><Name>Thames Timber</Name><VendorAddress>"
                             "<Addr1>1 Quay</Addr1><County>Kent</County></VendorAddress></VendorAdd></VendorAddRq>",
                             "UK4.0");
  ASSERT_EQ(r.Status(), 0) << r.Message();
  EXPECT_EQ(r.Value("VendorRet/VendorAddress/State"), "Kent");
}

// The library's requests that the schema refuses by design; each is answered.
struct ToleratedCase {
  const char* name;
  const char* requests;
  int status;
};

class ToleratedTest : public StrictModeTest, public ::testing::WithParamInterface<ToleratedCase> {};

TEST_P(ToleratedTest, IsAnswered) {
  Open();
  Response r = SendTolerated(GetParam().requests);
  EXPECT_EQ(r.Status(), GetParam().status) << r.Message();
}

INSTANTIATE_TEST_SUITE_P(
    Deviations, ToleratedTest,
    ::testing::Values(
        ToleratedCase{"VendorNotesBeforeAccountNumber",
                      "<VendorAddRq requestID=\"1\"><VendorAdd><Name>Order Co</Name><Notes>n</Notes>"
                      "<AccountNumber>1</AccountNumber></VendorAdd></VendorAddRq>",
                      0},
        ToleratedCase{"OtherNameSuffixMobilePager",
                      "<OtherNameAddRq requestID=\"1\"><OtherNameAdd><Name>Other Co</Name><Suffix>Jr</Suffix>"
                      "<Mobile>1</Mobile><Pager>2</Pager></OtherNameAdd></OtherNameAddRq>",
                      0},
        ToleratedCase{"MaxReturnedBeforeTheKey",
                      "<CustomerQueryRq requestID=\"1\"><MaxReturned>1</MaxReturned><FullName>Amber Bakery</FullName>"
                      "</CustomerQueryRq>",
                      0},
        ToleratedCase{"EntityOwnerId", "<EntityQueryRq><FullName>Owner</FullName><OwnerID>0</OwnerID></EntityQueryRq>", 0},
        ToleratedCase{"ToDoByFullName", "<ToDoQueryRq requestID=\"1\"><FullName>x</FullName></ToDoQueryRq>",
                      status::kNotFoundByKey},
        ToleratedCase{"BillPaymentAddForm",
                      "<TxnDisplayAddRq requestID=\"1\"><TxnDisplayAddType>BillPaymentCheck</TxnDisplayAddType>"
                      "</TxnDisplayAddRq>",
                      0},
        ToleratedCase{"DeleteTypeWithABlank",
                      "<ListDelRq requestID=\"1\"><ListDelType>Ship Method</ListDelType><ListID>1</ListID></ListDelRq>",
                      status::kObjectNotFound}),
    [](const ::testing::TestParamInfo<ToleratedCase>& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tessaron::qbsim::testing
