// Strange and hostile answers through every reader of outside text: the lists, invoices,
// reports, the company record and events. Whatever arrives, a reader either raises a
// tessaron::Error or reads on; when it reads on, the known field that follows the oddity
// in the message is still read. Nothing crashes, hangs or raises anything else.
#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/events/qb_event.h"
#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/lists/customers.h"
#include "tessaron/platform/error.h"
#include "tessaron/reports/report.h"
#include "tessaron/reports/report_catalog.h"
#include "tests/support/list_session.h"
#include "tests/transactions/invoice_session.h"

namespace tessaron {
namespace {

using testing::ScriptedProcessor;

// A message with places for the odd parts: {EXTRA} (elements inside the record, before
// the field the test reads back), {AMOUNT}, {DATE} and {ENUM} (values of known fields).
struct Reader {
  std::string name;
  std::string message;
  std::string amount, date, enumValue;
  // What the reader gives back for the field after {EXTRA} (raises tessaron::Error when
  // the message cannot be read).
  std::function<std::string(const std::string& message)> read;
  std::string expected;
};

std::string Replace(std::string text, const std::string& from, const std::string& to) {
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

struct Parts {
  std::string extra, amount, date, enumValue;
};

std::string Render(const Reader& r, const Parts& p) {
  std::string text = Replace(r.message, "{EXTRA}", p.extra);
  text = Replace(text, "{AMOUNT}", p.amount.empty() ? r.amount : p.amount);
  text = Replace(text, "{DATE}", p.date.empty() ? r.date : p.date);
  return Replace(text, "{ENUM}", p.enumValue.empty() ? r.enumValue : p.enumValue);
}

std::string Envelope(const std::string& response, const std::string& body) {
  return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><" + response +
         " requestID=\"1\" statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"Status OK\">" + body + "</" +
         response + "></QBXMLMsgsRs></QBXML>";
}

std::vector<Reader> Readers() {
  std::vector<Reader> readers;
  readers.push_back(
      {"Customers",
       Envelope("CustomerQueryRs",
                "<CustomerRet><ListID>80000001-1</ListID><TimeCreated>2004-02-29T13:05:09</TimeCreated>"
                "<TimeModified>2004-03-01T08:00:00</TimeModified><EditSequence>1000</EditSequence>"
                "<Name>Acme</Name><FullName>Acme</FullName><IsActive>true</IsActive><Sublevel>0</Sublevel>"
                "<Balance>{AMOUNT}</Balance><TotalBalance>{AMOUNT}</TotalBalance><JobStatus>{ENUM}</JobStatus>"
                "<JobStartDate>{DATE}</JobStartDate>{EXTRA}<JobDesc>kept</JobDesc></CustomerRet>"),
       "12.50", "2024-01-15", "Awarded",
       [](const std::string& message) {
         testing::ListSession qb("12.0");
         qb.processor().QueueResponse(message);
         Customers customers;
         customers.GetAll();
         if (customers.Count() != 1) return "count " + std::to_string(customers.Count());
         return customers.Item(Variant(1))->JobDescription();
       },
       "kept"});
  readers.push_back(
      {"Invoices",
       Envelope("InvoiceQueryRs",
                "<InvoiceRet><TxnID>1A-1</TxnID><TimeCreated>2024-05-01T10:00:00</TimeCreated>"
                "<TimeModified>2024-05-01T10:00:00</TimeModified><EditSequence>1714557600</EditSequence>"
                "<TxnNumber>7</TxnNumber><CustomerRef><ListID>80000001-1</ListID><FullName>Acme</FullName>"
                "</CustomerRef><TxnDate>{DATE}</TxnDate><RefNumber>1001</RefNumber><DueDate>{DATE}</DueDate>"
                "<Subtotal>{AMOUNT}</Subtotal><SalesTaxPercentage>0.00</SalesTaxPercentage>"
                "<SalesTaxTotal>0.00</SalesTaxTotal><AppliedAmount>0.00</AppliedAmount>"
                "<BalanceRemaining>{AMOUNT}</BalanceRemaining>{EXTRA}<Memo>kept</Memo><IsPaid>false</IsPaid>"
                "<InvoiceLineRet><TxnLineID>L-1</TxnLineID><ItemRef><FullName>Labor</FullName></ItemRef>"
                "<Quantity>{AMOUNT}</Quantity><Amount>{AMOUNT}</Amount></InvoiceLineRet></InvoiceRet>"),
       "30.00", "2024-05-01", "",
       [](const std::string& message) {
         testing::InvoiceSession qb("12.0");
         qb.processor().QueueResponse(message);
         Invoices invoices;
         invoices.GetAll();
         if (invoices.Count() != 1) return "count " + std::to_string(invoices.Count());
         return invoices.Item(Variant(1))->Memo();
       },
       "kept"});
  readers.push_back(
      {"Reports",
       Envelope("GeneralSummaryReportQueryRs",
                "<ReportRet><ReportTitle>Profit &amp; Loss</ReportTitle><ReportBasis>{ENUM}</ReportBasis>"
                "<NumRows>2</NumRows><NumColumns>2</NumColumns><NumColTitleRows>1</NumColTitleRows>"
                "<ColDesc colID=\"1\" dataType=\"STRTYPE\"><ColTitle titleRow=\"1\"/><ColType>Label</ColType></ColDesc>"
                "<ColDesc colID=\"2\" dataType=\"AMTTYPE\"><ColTitle titleRow=\"1\" value=\"{DATE}\"/>"
                "<ColType>Amount</ColType></ColDesc><ReportData>"
                "<DataRow rowNumber=\"1\"><RowData rowType=\"account\" value=\"Sales\"/>"
                "<ColData colID=\"1\" value=\"Sales\"/><ColData colID=\"2\" value=\"{AMOUNT}\"/></DataRow>{EXTRA}"
                "<TotalRow rowNumber=\"2\"><ColData colID=\"1\" value=\"kept\"/>"
                "<ColData colID=\"2\" value=\"{AMOUNT}\"/></TotalRow></ReportData></ReportRet>"),
       "120.00", "Jan - May 24", "Accrual",
       [](const std::string& message) {
         testing::ScriptedSession qb("12.0");
         qb.processor().QueueResponse(message);
         Report report;
         report.SetBaseReport(qbRptProfitAndLossStandard);
         report.Refresh();
         const rptRows& rows = report.ReportRows();
         for (long r = 1; r <= rows.Count(); ++r)
           if (rows.Item(r)->RowType() == qbRptRowTypeTotal && rows.Item(r)->Columns().Count() > 0)
             return rows.Item(r)->Columns().Item(1)->Text();
         return std::string("no total row");
       },
       "kept"});
  readers.push_back(
      {"CompanyRecord",
       Envelope("CompanyQueryRs",
                "<CompanyRet><IsSampleCompany>true</IsSampleCompany><CompanyName>Rock Castle</CompanyName>"
                "<Phone>555-0100</Phone>{EXTRA}<FirstMonthFiscalYear>{ENUM}</FirstMonthFiscalYear>"
                "<EIN>kept</EIN></CompanyRet>"),
       "", "", "March",
       [](const std::string& message) {
         XmlDocument doc = XmlDocument::Create();
         if (!doc.loadXML(message)) throw Error(1, "test", "does not parse");
         Company company;
         detail::ListObjectAccess::FromDom(company, doc.documentElement().child("QBXMLMsgsRs").firstChild());
         return company.EIN();
       },
       "kept"});
  readers.push_back(
      {"Events",
       "<?xml version=\"1.0\"?>\r\n<?qbxml version=\"7.0\"?>\r\n<QBXML><QBXMLEvents><UIEvent>"
       "<CompanyFilePath>C:\\Books\\acme.qbw</CompanyFilePath><HostInfo><ProductName>Premier</ProductName>"
       "<MajorVersion>18</MajorVersion><MinorVersion>0</MinorVersion></HostInfo><CompanyFileEvent>"
       "<CompanyFileEventOperation>{ENUM}</CompanyFileEventOperation>{EXTRA}<IsNewCompany>true</IsNewCompany>"
       "</CompanyFileEvent></UIEvent></QBXMLEvents></QBXML>",
       "", "", "Open",
       [](const std::string& message) {
         qbEvent event;
         event.ParseXML(message);
         return std::string(event.NewCompany ? "kept" : "lost");
       },
       "kept"});
  return readers;
}

enum class Expect {
  kReadsKeepingKnownFields,  // reads, and the field after the oddity is read
  kReadsOrRaises,            // a clear tessaron::Error, or a read that keeps that field
  kRaises,                   // a tessaron::Error
};

struct Oddity {
  std::string name;
  std::function<std::string(const Reader&)> message;
  Expect expect;
};

std::string Nested(int depth) {
  std::string open, close;
  for (int i = 0; i < depth; ++i) open += "<Deeper>", close += "</Deeper>";
  return open + "x" + close;
}

std::vector<Oddity> Oddities() {
  const auto extra = [](std::string text) { return [text](const Reader& r) { return Render(r, {text, "", "", ""}); }; };
  const auto amount = [](std::string text) { return [text](const Reader& r) { return Render(r, {"", text, "", ""}); }; };
  const auto date = [](std::string text) { return [text](const Reader& r) { return Render(r, {"", "", text, ""}); }; };
  const auto value = [](std::string text) {
    return [text](const Reader& r) { return Render(r, {"", "", "", text}); };
  };
  return {
      {"Unchanged", extra(""), Expect::kReadsKeepingKnownFields},
      {"TenThousandLevelsDeep", extra("<Unknown>" + Nested(10000) + "</Unknown>"), Expect::kReadsKeepingKnownFields},
      {"TenMegabyteElement", extra("<Unknown>" + std::string(10 << 20, 'x') + "</Unknown>"),
       Expect::kReadsKeepingKnownFields},
      {"ElementOfANewerVersion", extra("<ExternalGUID>{6B063959-81B0-4B52-8B7C-1E6C1F4D3A2B}</ExternalGUID>"),
       Expect::kReadsKeepingKnownFields},
      {"DuplicatedElements", extra("<Phone>1</Phone><Phone>2</Phone><Unknown/><Unknown/>"),
       Expect::kReadsKeepingKnownFields},
      {"InvalidUtf8", extra("<Unknown>\xC3\x28\xFF\xFE\xED\xA0\x80</Unknown>"), Expect::kReadsOrRaises},
      {"NulByte", extra(std::string("<Unknown>a\0b</Unknown>", 22)), Expect::kReadsOrRaises},
      {"AmountBeyondRange", amount("99999999999999999999"), Expect::kReadsOrRaises},
      {"NegativeAmountBeyondRange", amount("-99999999999999999999.99"), Expect::kReadsOrRaises},
      {"AmountNotANumber", amount("1e999"), Expect::kReadsOrRaises},
      {"DateOfZeros", date("0000-00-00"), Expect::kReadsOrRaises},
      {"DateThatDoesNotExist", date("2024-02-30"), Expect::kReadsOrRaises},
      {"DateWithZone", date("2024-01-01T10:00:00+14:00"), Expect::kReadsOrRaises},
      // A value the enumeration does not know raises 0x800403F0 from the conversion.
      {"EnumValueOfANewerVersion", value("Hibernating"), Expect::kReadsOrRaises},
      {"CutInTheMiddle", [](const Reader& r) { std::string m = Render(r, {"", "", "", ""}); return m.substr(0, m.size() / 2); },
       Expect::kRaises},
  };
}

struct Case {
  Reader reader;
  Oddity oddity;
};

std::vector<Case> Cases() {
  std::vector<Case> cases;
  for (const auto& r : Readers())
    for (const auto& o : Oddities()) cases.push_back({r, o});
  return cases;
}

void PrintTo(const Case& c, std::ostream* os) { *os << c.reader.name << " " << c.oddity.name; }

class HostileInput : public ::testing::TestWithParam<Case> {};

TEST_P(HostileInput, RaisesAClearErrorOrKeepsTheKnownFields) {
  const Case& c = GetParam();
  const std::string message = c.oddity.message(c.reader);
  std::string read;
  bool raised = false;
  try {
    read = c.reader.read(message);
  } catch (const Error& e) {
    raised = true;
    EXPECT_NE(e.Number(), 0) << e.Description();
  } catch (const std::exception& e) {
    FAIL() << "not a tessaron::Error: " << e.what();
  }
  switch (c.oddity.expect) {
    case Expect::kReadsKeepingKnownFields:
      EXPECT_FALSE(raised);
      EXPECT_EQ(read, c.reader.expected);
      break;
    case Expect::kReadsOrRaises:
      if (!raised) {
        EXPECT_EQ(read, c.reader.expected);
      }
      break;
    case Expect::kRaises:
      EXPECT_TRUE(raised) << "read: " << read;
      break;
  }
}

INSTANTIATE_TEST_SUITE_P(Readers, HostileInput, ::testing::ValuesIn(Cases()),
                         [](const ::testing::TestParamInfo<Case>& info) {
                           return info.param.reader.name + "_" + info.param.oddity.name;
                         });

}  // namespace
}  // namespace tessaron
