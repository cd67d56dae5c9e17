// Reading many documents: the records their lines name are looked up once per read, also
// when they are not on file, and looked up afresh by the next read.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tessaron/transactions/invoices.h"
#include "tessaron/transactions/txn_item_line.h"
#include "tessaron/transactions/txn_item_lines.h"
#include "tests/transactions/invoice_session.h"

namespace tessaron {
namespace {

using testing::InvoiceSession;
using testing::ScriptedProcessor;

std::string Line(const std::string& id, const std::string& item) {
  return "<InvoiceLineRet><TxnLineID>" + id + "</TxnLineID><ItemRef><FullName>" + item +
         "</FullName></ItemRef><Amount>10.00</Amount></InvoiceLineRet>";
}

// Three invoices of two lines each, all naming the same item.
std::string ThreeInvoices(const std::string& item) {
  std::string body;
  for (int i = 1; i <= 3; ++i) {
    const std::string n = std::to_string(i);
    body += InvoiceSession::InvoiceRet(n + "A-1", Line(n + "B-1", item) + Line(n + "C-1", item), "100" + n);
  }
  return ScriptedProcessor::Response("InvoiceQueryRs", body);
}

long ItemQueries(InvoiceSession& qb) {
  const auto names = qb.processor().RequestNames();
  return std::count(names.begin(), names.end(), "ItemQueryRq");
}

TEST(ReadingLookups, AnItemNotOnFileIsAskedForOncePerRead) {
  InvoiceSession qb;
  qb.processor().RespondTo("ItemQueryRq", ScriptedProcessor::Response("ItemQueryRs", "", 1, "No match"));
  Invoices invoices;
  qb.Answer(ThreeInvoices("Gone"));
  ASSERT_EQ(invoices.GetAll(), 3);
  EXPECT_EQ(ItemQueries(qb), 1);
  EXPECT_EQ(invoices.Item(Variant(3))->ItemLines()->Item(Variant(2))->Item(), "Gone");
  // The next read asks again: the item may have been added meanwhile.
  invoices.Clear();
  qb.Answer(ThreeInvoices("Gone"));
  ASSERT_EQ(invoices.GetAll(), 3);
  EXPECT_EQ(ItemQueries(qb), 2);
}

TEST(ReadingLookups, AnItemFoundIsSharedByTheLinesOfEveryDocument) {
  InvoiceSession qb;
  Invoices invoices;
  qb.Answer(ThreeInvoices("Labor"));
  ASSERT_EQ(invoices.GetAll(), 3);
  EXPECT_EQ(ItemQueries(qb), 1);
  auto first = invoices.Item(Variant(1))->ItemLines()->Item(Variant(1))->ItemObject();
  auto last = invoices.Item(Variant(3))->ItemLines()->Item(Variant(2))->ItemObject();
  ASSERT_TRUE(first);
  EXPECT_EQ(first, last);
}

}  // namespace
}  // namespace tessaron
