// Data extension values on transactions and their lines: read with the document, the
// queries that ask for them, and the two saves (application fields after the document's
// commit, custom fields of the document and its lines by CommitCustomFields).
#include <gtest/gtest.h>

#include <string>

#include "tessaron/connection/library_state.h"
#include "tessaron/dataext/data_extensions.h"
#include "tessaron/transactions/invoices.h"
#include "tessaron/transactions/txn_item_line.h"
#include "tessaron/transactions/txn_item_lines.h"
#include "tests/dataext/dataext_session.h"
#include "tests/support/text_match.h"

namespace tessaron {
namespace {

using testing::Contains;
using testing::DataExtSession;
using testing::DefRet;
using testing::ExtRet;
using testing::kAppGuid;
using testing::ScriptedProcessor;

const std::string kCustomDefs = DefRet("0", "Colour", "STR255TYPE", "Customer") +
                                DefRet("0", "Finish", "STR255TYPE", "Item");
const std::string kAppDefs = DefRet(kAppGuid, "Batch", "STR255TYPE", "Invoice");

// An invoice on file with one line; `header` and `line` are DataExtRet elements of each.
std::string InvoiceRet(const std::string& header, const std::string& line) {
  return "<InvoiceRet><TxnID>1A-1</TxnID><TimeCreated>2024-05-01T10:00:00</TimeCreated>"
         "<TimeModified>2024-05-01T10:00:00</TimeModified><EditSequence>1714557600</EditSequence>"
         "<TxnNumber>7</TxnNumber><CustomerRef><ListID>80000001-1</ListID><FullName>Acme</FullName></CustomerRef>"
         "<TxnDate>2024-05-01</TxnDate><RefNumber>1001</RefNumber><IsPending>false</IsPending>"
         "<Subtotal>30.00</Subtotal><SalesTaxPercentage>0.00</SalesTaxPercentage><SalesTaxTotal>0.00</SalesTaxTotal>"
         "<AppliedAmount>0.00</AppliedAmount><BalanceRemaining>30.00</BalanceRemaining><IsPaid>false</IsPaid>"
         "<InvoiceLineRet><TxnLineID>1B-1</TxnLineID><Desc>Labor</Desc><Amount>30.00</Amount>" + line +
         "</InvoiceLineRet>" + header + "</InvoiceRet>";
}

class TransactionValues : public ::testing::Test {
 protected:
  TransactionValues() : session("3.0", kAppGuid, kCustomDefs, kAppDefs) { session.LoadDefinitions(); }

  // The master collection holding the invoice, read from an answer with these values.
  std::shared_ptr<Invoice> Read(const std::string& header, const std::string& line) {
    const std::string answer = ScriptedProcessor::Response("InvoiceQueryRs", InvoiceRet(header, line));
    EXPECT_TRUE(testing::IsValidQbxml(answer)) << answer;
    session.processor().QueueResponse(answer);
    invoices = session.company()->Invoices();
    invoices->SetIncludeDataExtensions(true);
    invoices->GetAll();
    session.processor().ClearRecords();
    return invoices->Item(Variant(1));
  }
  std::shared_ptr<txnItemLine> Line(const std::shared_ptr<Invoice>& inv) { return inv->ItemLines()->Item(Variant(1)); }
  // The requests whose first element is `name`.
  std::vector<std::string> Sent(const std::string& name) {
    std::vector<std::string> out;
    const auto names = session.processor().RequestNames();
    for (size_t i = 0; i < names.size(); ++i)
      if (names[i] == name) out.push_back(session.processor().Requests()[i]);
    return out;
  }

  DataExtSession session;
  std::shared_ptr<Invoices> invoices;
};

TEST_F(TransactionValues, ReadingFillsTheDocumentsFieldsOfBothOwnersAndTheLinesCustomFields) {
  auto inv = Read(ExtRet("0", "Colour", "STR255TYPE", "Blue") + ExtRet(kAppGuid, "Batch", "STR255TYPE", "B-17"),
                  ExtRet("0", "Finish", "STR255TYPE", "Oak") + ExtRet(kAppGuid, "Batch", "STR255TYPE", "dropped"));
  EXPECT_EQ(inv->CustomFields()->Item(Variant("Colour"))->Value().ToString(), "Blue");
  EXPECT_EQ(inv->ApplicationFields()->Item(Variant("Batch"))->Value().ToString(), "B-17");
  EXPECT_EQ(inv->CustomFields()->Item(Variant("Colour"))->ObjectState(), qoObjectStateClean);
  // A line keeps custom fields only: QuickBooks has no application fields on lines.
  auto line = Line(inv);
  EXPECT_EQ(line->CustomFields()->Count(), 1);
  EXPECT_EQ(line->CustomFields()->Item(Variant("Finish"))->Value().ToString(), "Oak");
  EXPECT_EQ(inv->ObjectState(), qoObjectStateClean);
}

TEST_F(TransactionValues, QueriesAskForTheFieldsOfBothOwnersWhenIncludeDataExtensionsIsOn) {
  Read("", "");
  session.processor().QueueResponse(ScriptedProcessor::Response("InvoiceQueryRs", "", 1));
  invoices->Clear();
  invoices->GetByRefNumber("1001", "1001");
  const std::string rq = session.processor().Requests().front();
  EXPECT_TRUE(Contains(rq, "<IncludeLineItems>true</IncludeLineItems><OwnerID>0</OwnerID><OwnerID>" +
                               std::string(kAppGuid) + "</OwnerID></InvoiceQueryRq>"))
      << rq;
  EXPECT_TRUE(session.processor().AllRequestsValid());
}

TEST_F(TransactionValues, CommitSavesTheApplicationFieldsUnderTheTxnIDAndLeavesCustomFieldsAlone) {
  auto inv = Read("", "");
  inv->ApplicationFields()->Item(Variant("Batch"))->SetValue(Variant("B-18"));
  inv->CustomFields()->Item(Variant("Colour"))->SetValue(Variant("Red"));
  session.processor().QueueResponse(
      ScriptedProcessor::Response("DataExtAddRs", ExtRet(kAppGuid, "Batch", "STR255TYPE", "B-18")));
  EXPECT_EQ(invoices->Commit(inv), 0);
  // The document was Clean: only its application field went out.
  EXPECT_EQ(session.processor().RequestNames(), std::vector<std::string>{"DataExtAddRq"});
  const std::string rq = session.processor().LastRequest();
  EXPECT_TRUE(Contains(rq, "<DataExtName>Batch</DataExtName><TxnDataExtType>Invoice</TxnDataExtType>"
                           "<TxnID>1A-1</TxnID><DataExtValue>B-18</DataExtValue>"))
      << rq;
  EXPECT_EQ(inv->ApplicationFields()->Item(Variant("Batch"))->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(inv->CustomFields()->Item(Variant("Colour"))->ObjectState(), qoObjectStateNew);
  EXPECT_TRUE(session.processor().AllRequestsValid());
}

TEST_F(TransactionValues, AFailedSaveOfAValueCountsInTheCollectionsErrors) {
  State().ErrorMode = false;
  auto inv = Read("", "");
  inv->ApplicationFields()->Item(Variant("Batch"))->SetValue(Variant("B-18"));
  session.processor().QueueResponse(ScriptedProcessor::Response("DataExtAddRs", "", 3120, "Object not found"));
  EXPECT_EQ(invoices->Commit(inv), 1);
  EXPECT_EQ(inv->ApplicationFields()->Errors()->Count(), 1);
  EXPECT_EQ(inv->ObjectState(), qoObjectStateClean);
}

TEST_F(TransactionValues, CommitCustomFieldsSavesTheDocumentsThenEachLinesUnderItsLineId) {
  auto inv = Read(ExtRet("0", "Colour", "STR255TYPE", "Blue"), ExtRet("0", "Finish", "STR255TYPE", "Oak"));
  inv->CustomFields()->Item(Variant("Colour"))->SetValue(Variant("Red"));
  Line(inv)->CustomFields()->Item(Variant("Finish"))->SetValue(Variant("Ash"));
  session.processor().QueueResponse(
      ScriptedProcessor::Response("DataExtModRs", ExtRet("0", "Colour", "STR255TYPE", "Red")));
  session.processor().QueueResponse(
      ScriptedProcessor::Response("DataExtModRs", ExtRet("0", "Finish", "STR255TYPE", "Ash")));
  EXPECT_EQ(inv->CommitCustomFields(), 0);
  const auto mods = Sent("DataExtModRq");
  ASSERT_EQ(mods.size(), 2u);
  EXPECT_TRUE(Contains(mods[0], "<TxnID>1A-1</TxnID><DataExtValue>Red</DataExtValue>")) << mods[0];
  EXPECT_TRUE(Contains(mods[1], "<TxnID>1A-1</TxnID><TxnLineID>1B-1</TxnLineID><DataExtValue>Ash</DataExtValue>"))
      << mods[1];
  EXPECT_EQ(Line(inv)->CustomFields()->Item(Variant("Finish"))->ObjectState(), qoObjectStateClean);
  EXPECT_TRUE(session.processor().AllRequestsValid());
}

// The add of a value names the document only, also for a value of a line; the modify and
// the delete name the line.
TEST_F(TransactionValues, ANewValueOfALineIsAddedWithoutItsLineId) {
  auto inv = Read("", "");
  Line(inv)->CustomFields()->Item(Variant("Finish"))->SetValue(Variant("Ash"));
  session.processor().QueueResponse(
      ScriptedProcessor::Response("DataExtAddRs", ExtRet("0", "Finish", "STR255TYPE", "Ash")));
  EXPECT_EQ(inv->CommitCustomFields(), 0);
  const auto adds = Sent("DataExtAddRq");
  ASSERT_EQ(adds.size(), 1u);
  EXPECT_TRUE(Contains(adds[0], "<TxnID>1A-1</TxnID><DataExtValue>Ash</DataExtValue>")) << adds[0];
}

}  // namespace
}  // namespace tessaron
