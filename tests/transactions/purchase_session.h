// A scripted session with a company whose accounts, vendors, terms and items are loaded
// once, for tests of the payables documents and their collections.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/lists/account.h"
#include "tessaron/lists/items.h"
#include "tessaron/lists/terms.h"
#include "tessaron/lists/vendors.h"
#include "tessaron/transactions/purchase_collections.h"
#include "tessaron/transactions/txn_expense_lines.h"
#include "tessaron/transactions/txn_item_lines.h"
#include "tests/support/list_session.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/scripted_processor.h"
#include "tests/transactions/expense_lines_fixture.h"

namespace tessaron::testing {

// Accounts as in ExpenseLinesTest; vendor "Paint Co"; terms "Net 30" (30 days, 2 percent
// within 10) and "15th" (due on the 15th, next month when fewer than 5 days remain); the
// service item "Painting" bought at 12.00.
class PurchaseSession : public ScriptedSession {
 public:
  explicit PurchaseSession(const std::string& qbxmlVersion = "3.0") : ScriptedSession(qbxmlVersion) {
    State().ErrorMode = false;
    auto company = State().CurrentCompany;
    Load("AccountQueryRs",
         AccountRecord("A1", "Rent", "Expense") + AccountRecord("A2", "Supplies", "Expense") +
             AccountRecord("A3", "Checking", "Bank") + AccountRecord("A4", "Visa", "CreditCard") +
             AccountRecord("A5", "Payables", "AccountsPayable") + AccountRecord("A6", "Estimates", "NonPosting"),
         [&] { company->Accounts()->GetAll(); });
    Load("VendorQueryRs",
         Ret("Vendor", "V1", "<Name>Paint Co</Name><IsActive>true</IsActive><VendorAddress><Addr1>2 Mill Rd</Addr1>"
                             "</VendorAddress>"),
         [&] { company->Vendors()->GetAll(); });
    Load("TermsQueryRs",
         Ret("StandardTerms", "T1", "<Name>Net 30</Name><IsActive>true</IsActive><StdDueDays>30</StdDueDays>"
                                    "<StdDiscountDays>10</StdDiscountDays><DiscountPct>2.00</DiscountPct>") +
             Ret("DateDrivenTerms", "T2", "<Name>15th</Name><IsActive>true</IsActive><DayOfMonthDue>15</DayOfMonthDue>"
                                          "<DueNextMonthDays>5</DueNextMonthDays>"),
         [&] { company->Terms()->GetAll(); });
    Load("ItemQueryRs",
         Ret("ItemService", "I1", "<Name>Painting</Name><FullName>Painting</FullName><IsActive>true</IsActive>"
                                  "<SalesAndPurchase><SalesDesc>Painting</SalesDesc><SalesPrice>30.00</SalesPrice>"
                                  "<IncomeAccountRef><FullName>Rent</FullName></IncomeAccountRef>"
                                  "<PurchaseDesc>Paint work</PurchaseDesc><PurchaseCost>12.00</PurchaseCost>"
                                  "<ExpenseAccountRef><FullName>Supplies</FullName></ExpenseAccountRef>"
                                  "</SalesAndPurchase>"),
         [&] { company->Items()->GetAll(); });
    // Any other account asked for (by name, or the default payables account by type) is
    // not on file.
    processor().RespondTo("AccountQueryRq", ScriptedProcessor::Response("AccountQueryRs", "", 500, "not found"));
    processor().ClearRecords();
  }

  std::shared_ptr<Company> company() { return State().CurrentCompany; }
  void Answer(const std::string& response) {
    EXPECT_TRUE(IsValidQbxml(response)) << response;
    processor().QueueResponse(response);
  }

 private:
  template <class F>
  void Load(const char* response, const std::string& records, F&& read) {
    Answer(ScriptedProcessor::Response(response, records));
    read();
  }
};

}  // namespace tessaron::testing
