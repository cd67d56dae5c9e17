// Account: one account of the chart of accounts. Accounts form a tree (a sub-account has
// the type of its parent), can carry a number, and can only be added: QuickBooks offers
// no modify for them, so a changed account cannot be committed (XMLModify raises).
//
//   auto& accounts = *TessaronGlobals::Accounts();
//   auto fuel = accounts.Add("Fuel", qbAccountTypeExpense, "Car Expenses", "6410");
//   accounts.Commit();
//   fuel->FullNameWithNumber();   // "6400·Car Expenses:6410·Fuel" when numbers are in use
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tessaron/dataext/data_ext_owner.h"
#include "tessaron/foundation/enum_codes.h"
#include "tessaron/framework/list_collection.h"
#include "tessaron/framework/list_object.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"

namespace tessaron {

class Account final : public ListObject, public DataExtOwner {
 public:
  Account();

  // Number, a middle dot and Name; Name alone when there is no number.
  std::string NameWithNumber() const;
  // With account numbers in use (company preference), the path of NameWithNumber of each
  // level, taken from the master accounts; otherwise FullName.
  std::string FullNameWithNumber() const;

  qbEnumAccountType AccountType() const { return static_cast<qbEnumAccountType>(accountType_); }
  void SetAccountType(qbEnumAccountType value);
  const std::string& Number() const { return number_; }
  void SetNumber(const std::string& value);
  const std::string& LastCheckNumber() const { return lastCheckNumber_; }
  void SetLastCheckNumber(const std::string& value);
  const std::string& BankNumber() const { return bankNumber_; }
  void SetBankNumber(const std::string& value);
  const std::string& Description() const { return description_; }
  void SetDescription(const std::string& value);
  // As QuickBooks reports them: of this account, and with its sub-accounts.
  Currency Balance() const { return balance_; }
  Currency TotalBalance() const { return totalBalance_; }
  // Sent with the add only; QuickBooks turns it into the balance.
  Currency OpeningBalance() const { return openingBalance_; }
  void SetOpeningBalance(Currency value);
  Date OpeningBalanceDate() const { return openingBalanceDate_; }
  void SetOpeningBalanceDate(Date value);
  const std::string& CashFlowClassification() const { return cashFlowClassification_; }
  const std::string& SpecialAccountType() const { return specialAccountType_; }
  int16_t TaxLineId() const { return taxLineId_; }
  const std::string& TaxLineName() const { return taxLineName_; }

  // Balance plus the balances of all sub-accounts, at every depth (found through Children).
  Currency RollUpBalances();

 protected:
  std::string DataExtRecordId() const override { return ListID(); }

 private:
  static const ListClassInfo& Info();
  Currency ChildBalances();

  int32_t accountType_ = 0;
  std::string specialAccountType_;
  std::string number_;
  std::string bankNumber_;
  std::string lastCheckNumber_;
  std::string description_;
  Currency balance_;
  Currency totalBalance_;
  Currency openingBalance_;
  Date openingBalanceDate_ = 0;
  int16_t taxLineId_ = 0;
  std::string taxLineName_;
  std::string cashFlowClassification_;
};

class Accounts final : public ListCollection<Account> {
 public:
  Accounts();

  // A New account; a sub-account when ParentFullName is given. Master only; nothing is
  // sent until Commit. A full name already in the collection raises the collection's error.
  std::shared_ptr<Account> Add(const std::string& Name, qbEnumAccountType AccountType,
                               const std::string& ParentFullName = "", const std::string& Number = "",
                               const std::string& Description = "", const std::string& BankNumber = "",
                               Currency OpeningBalance = Currency(), Date OpeningBalanceDate = 0,
                               bool IsActive = true);

  // Replaces the content by the accounts of one type (a qbEnumAccountType); returns Count,
  // or 0 when a database path hands the records to the mirror.
  int32_t GetByAccountType(qbEnumAccountType AccountType, int32_t MaxReturned = 0, const std::string& sMDBPath = "");

  // Whether queries ask for the custom fields of each record (from qbXML 2.0 on).
  bool IncludeDataExtensions() const { return IncludeDataExt(); }
  void SetIncludeDataExtensions(bool value) { SetIncludeDataExt(value); }
};

}  // namespace tessaron
