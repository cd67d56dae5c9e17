// A scripted session with the accounts that expense lines charge, and expense lines wired
// to an owner the way a payables document wires them.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tessaron/events/qc_event_sink.h"
#include "tessaron/lists/account.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/transactions/detail/txn_access.h"
#include "tessaron/transactions/txn_expense_lines.h"
#include "tests/support/list_session.h"
#include "tests/support/raised.h"

namespace tessaron::testing {

inline std::string AccountRecord(const std::string& id, const std::string& name, const std::string& type) {
  return Ret("Account", id,
             "<Name>" + name + "</Name><FullName>" + name + "</FullName><IsActive>true</IsActive>"
             "<Sublevel>0</Sublevel><AccountType>" + type + "</AccountType><Balance>0.00</Balance>");
}

// Accounts: Rent and Supplies (expense), Checking (bank), Visa (credit card), Payables
// (accounts payable), Estimates (non-posting).
class ExpenseLinesTest : public ::testing::Test {
 protected:
  explicit ExpenseLinesTest(const std::string& version = "3.0") : qb(version) {
    qb.Answer(ScriptedProcessor::Response(
        "AccountQueryRs", AccountRecord("A1", "Rent", "Expense") + AccountRecord("A2", "Supplies", "Expense") +
                              AccountRecord("A3", "Checking", "Bank") + AccountRecord("A4", "Visa", "CreditCard") +
                              AccountRecord("A5", "Payables", "AccountsPayable") +
                              AccountRecord("A6", "Estimates", "NonPosting")));
    accounts->GetAll();
    qb.processor().ClearRecords();
    sink->OnEvent([this](qoEnumEventTypes& id, std::string&) {
      if (id == qoEventAmountChange) ++amountChanges;
    });
  }

  std::shared_ptr<txnExpenseLines> Lines(qoEnumListObjectType owner = qoObjectTypeBill) {
    auto lines = std::make_shared<txnExpenseLines>();
    detail::TxnAccess::SetOwnerType(*lines, owner);
    detail::TxnAccess::SetEventSink(*lines, sink);
    return lines;
  }

  static std::string Written(txnExpenseLines& lines, bool isRet, bool isMod) {
    xmlBldr b;
    b.Clear();
    detail::TxnAccess::WriteLines(lines, b, isRet, isMod);
    return b.GetXML().ToString();
  }

  ListSession qb;
  std::shared_ptr<Accounts> accounts = qb.Register<Accounts>();
  std::shared_ptr<qcEventSink> sink = std::make_shared<qcEventSink>();
  int amountChanges = 0;
};

}  // namespace tessaron::testing
