// What QuickBooks really sends, beyond what the schema promises: percent texts with a
// sign, elements of newer versions, iterator attributes, answers without requestID,
// entities in names, records with optional parts missing. None of it may fail a read or
// lose a field the class knows; keys and full names come out with the entities decoded.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/class.h"
#include "tessaron/lists/customers.h"
#include "tessaron/lists/sales_tax_code.h"
#include "tessaron/lists/terms.h"
#include "tests/support/list_session.h"

namespace tessaron {
namespace {

using testing::ListSession;
using testing::Ret;

struct RealCase {
  const char* name;
  const char* collection;  // "Classes", "Customers", "Terms", "SalesTaxCodes"
  std::string message;     // the whole response message
  std::string key;         // the record's key in the collection after GetAll
  std::vector<std::pair<std::string, std::string>> properties;  // property name -> display text
};

std::string Message(const std::string& rsAttributes, const std::string& rsName, const std::string& body) {
  return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs><" + rsName + rsAttributes + ">" + body + "</" + rsName +
         "></QBXMLMsgsRs></QBXML>";
}
std::string Ok(const std::string& rsName, const std::string& body) {
  return Message(" requestID=\"1\" statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"Status OK\"", rsName, body);
}

std::shared_ptr<ListCollectionBase> Register(ListSession& qb, const std::string& collection) {
  if (collection == "Classes") return qb.Register<Classes>();
  if (collection == "Customers") return qb.Register<Customers>();
  if (collection == "Terms") return qb.Register<Terms>();
  return qb.Register<SalesTaxCodes>();
}

class RealResponses : public ::testing::TestWithParam<RealCase> {};

TEST_P(RealResponses, RecordIsReadWithEveryKnownField) {
  const RealCase& c = GetParam();
  ListSession qb;
  auto list = Register(qb, c.collection);
  qb.processor().QueueResponse(c.message);
  EXPECT_EQ(list->GetAll(), 1);
  EXPECT_EQ(list->Errors()->Count(), 0);
  ASSERT_TRUE(list->ItemExists(Variant(c.key))) << c.key;
  auto obj = std::static_pointer_cast<ListObject>(list->Item(Variant(c.key)));
  EXPECT_EQ(obj->ObjectState(), qoObjectStateClean);
  std::map<std::string, std::string> shown;
  for (const auto& p : obj->Properties()) shown[std::string(p.name)] = p.text;
  for (const auto& [name, text] : c.properties) EXPECT_EQ(shown[name], text) << name;
}

const std::string kClassBody = "<Name>Sales</Name><FullName>Sales</FullName><IsActive>true</IsActive>";

INSTANTIATE_TEST_SUITE_P(
    Cases, RealResponses,
    ::testing::Values(
        RealCase{"PercentTextWithSign", "Terms",
                 Ok("TermsQueryRs", Ret("StandardTerms", "1-1",
                                        "<Name>2% 10 Net 30</Name><IsActive>true</IsActive><StdDueDays>30</StdDueDays>"
                                        "<StdDiscountDays>10</StdDiscountDays><DiscountPct>7.5%</DiscountPct>")),
                 "2% 10 Net 30",
                 {{"DueDays", "30"}, {"DiscountDays", "10"}, {"DiscountPercent", "7.5"}}},
        RealCase{"PercentWithSignAndSpace", "Terms",
                 Ok("TermsQueryRs", Ret("DateDrivenTerms", "1-1",
                                        "<Name>15th</Name><IsActive>true</IsActive><DayOfMonthDue>15</DayOfMonthDue>"
                                        "<DueNextMonthDays>5</DueNextMonthDays><DiscountPct>2 %</DiscountPct>")),
                 "15th",
                 {{"DayOfMonthDue", "15"}, {"DiscountPercent", "2"}}},
        RealCase{"ElementsOfANewerVersion", "Customers",
                 Ok("CustomerQueryRs",
                    Ret("Customer", "80-1",
                        "<Name>Acme</Name><FullName>Acme</FullName><IsActive>true</IsActive>"
                        "<ClassRef><ListID>9-1</ListID><FullName>Retail</FullName></ClassRef>"
                        "<Sublevel>0</Sublevel><CompanyName>Acme Ltd</CompanyName>"
                        "<AdditionalContactRef><ContactName>Main</ContactName><ContactValue>1</ContactValue>"
                        "</AdditionalContactRef><Phone>555-0100</Phone><ExternalGUID>{0}</ExternalGUID>"
                        "<Balance>12.50</Balance><TotalBalance>12.50</TotalBalance>")),
                 "Acme",
                 {{"CompanyName", "Acme Ltd"}, {"Phone", "555-0100"}, {"TotalBalance", "12.5"}}},
        RealCase{"IteratorAttributesOnTheAnswer", "Classes",
                 Message(" requestID=\"1\" statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"Status OK\" "
                         "iteratorRemainingCount=\"0\" iteratorID=\"{6b3c2f1a-0000-4000-8000-000000000001}\"",
                         "ClassQueryRs", Ret("Class", "1-1", kClassBody)),
                 "Sales",
                 {{"Name", "Sales"}, {"IsActive", "true"}}},
        RealCase{"AnswerWithoutRequestID", "Classes",
                 Message(" statusCode=\"0\" statusSeverity=\"Info\" statusMessage=\"Status OK\"", "ClassQueryRs",
                         Ret("Class", "1-1", kClassBody)),
                 "Sales",
                 {{"Name", "Sales"}}},
        RealCase{"EntitiesInNames", "Classes",
                 Ok("ClassQueryRs", Ret("Class", "2-1",
                                        "<Name>O&apos;Brien &amp; Sons</Name><FullName>A&amp;B:O&apos;Brien &amp; "
                                        "Sons</FullName><IsActive>true</IsActive><ParentRef><ListID>1-1</ListID>"
                                        "<FullName>A&amp;B</FullName></ParentRef><Sublevel>1</Sublevel>")),
                 "A&B:O'Brien & Sons",
                 {{"Name", "O'Brien & Sons"}, {"FullName", "A&B:O'Brien & Sons"}, {"Parent", "A&B"}}},
        RealCase{"EntitiesInCustomerNames", "Customers",
                 Ok("CustomerQueryRs", Ret("Customer", "80-1",
                                           "<Name>Smith &amp; Jones</Name><FullName>Smith &amp; Jones</FullName>"
                                           "<IsActive>true</IsActive><Sublevel>0</Sublevel>"
                                           "<CompanyName>Smith &amp; Jones&apos; Shop</CompanyName>")),
                 "Smith & Jones",
                 {{"CompanyName", "Smith & Jones' Shop"}}},
        RealCase{"RetWithOnlyIdAndName", "Classes",
                 Ok("ClassQueryRs", "<ClassRet><ListID>1-1</ListID><Name>Bare</Name></ClassRet>"), "Bare",
                 {{"Name", "Bare"}, {"IsActive", "true"}, {"EditSequence", ""}}},
        RealCase{"CustomerWithPartOfAnAddressAndEmptyElements", "Customers",
                 Ok("CustomerQueryRs",
                    Ret("Customer", "80-1",
                        "<Name>Acme</Name><IsActive>true</IsActive><Sublevel>0</Sublevel><CompanyName/>"
                        "<BillAddress><City>Springfield</City></BillAddress><Phone>555-0100</Phone>")),
                 "Acme",
                 {{"Phone", "555-0100"}, {"CompanyName", ""}}},
        RealCase{"SalesTaxCodeWithoutDesc", "SalesTaxCodes",
                 Ok("SalesTaxCodeQueryRs", Ret("SalesTaxCode", "1-1",
                                               "<Name>Tax</Name><IsActive>true</IsActive><IsTaxable>true</IsTaxable>")),
                 "Tax",
                 {{"IsTaxable", "true"}, {"Description", ""}}}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tessaron
