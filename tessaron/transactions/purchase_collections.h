// The master collections of the payables documents (Company.Bills, .Checks, ...): the
// queries, Commit, Delete and Void of every transaction collection, and each one's Add.
// An Add makes a New document held by the collection; nothing is sent until Commit.
//
//   auto bill = company->Bills()->Add("Office Supply Co", "INV-88");
//   bill->ExpenseLines()->Add("Rent", Currency(1200));
//   company->Bills()->Commit(bill);
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/transactions/bill.h"
#include "tessaron/transactions/check.h"
#include "tessaron/transactions/credit_card_txns.h"
#include "tessaron/transactions/purchase_order.h"
#include "tessaron/transactions/txn_collection.h"
#include "tessaron/transactions/vendor_documents.h"

namespace tessaron {

class Bills final : public TxnCollection<Bill> {
 public:
  Bills();
  // Empty texts and zero dates leave the defaults; APAccount starts as the company's
  // first payables account. Master only (else 0x800403FD).
  std::shared_ptr<Bill> Add(const std::string& Vendor = "", const std::string& RefNumber = "", Date TxnDate = 0,
                            const std::string& APAccount = "", const std::string& Terms = "", Date DueDate = 0,
                            const std::string& Memo = "");
};

class VendorCredits final : public TxnCollection<VendorCredit> {
 public:
  VendorCredits();
  std::shared_ptr<VendorCredit> Add(const std::string& Vendor = "", const std::string& RefNumber = "",
                                    Date TxnDate = 0, const std::string& APAccount = "",
                                    const std::string& Memo = "");
};

class ItemReceipts final : public TxnCollection<ItemReceipt> {
 public:
  ItemReceipts();
  std::shared_ptr<ItemReceipt> Add(const std::string& Vendor = "", const std::string& RefNumber = "",
                                   Date TxnDate = 0, const std::string& APAccount = "",
                                   const std::string& Memo = "");
};

class Checks final : public TxnCollection<Check> {
 public:
  Checks();
  std::shared_ptr<Check> Add(const std::string& Account = "", const std::string& PayeeEntity = "",
                             const std::string& RefNumber = "", Date TxnDate = 0, const std::string& Memo = "",
                             std::optional<bool> IsToBePrinted = std::nullopt);
};

class CreditCardCharges final : public TxnCollection<CreditCardCharge> {
 public:
  CreditCardCharges();
  std::shared_ptr<CreditCardCharge> Add(const std::string& Account = "", const std::string& PayeeEntity = "",
                                        const std::string& RefNumber = "", Date TxnDate = 0,
                                        const std::string& Memo = "");
};

class CreditCardCredits final : public TxnCollection<CreditCardCredit> {
 public:
  CreditCardCredits();
  std::shared_ptr<CreditCardCredit> Add(const std::string& Account = "", const std::string& PayeeEntity = "",
                                        const std::string& RefNumber = "", Date TxnDate = 0,
                                        const std::string& Memo = "");
};

class PurchaseOrders final : public TxnCollection<PurchaseOrder> {
 public:
  PurchaseOrders();
  std::shared_ptr<PurchaseOrder> Add(const std::string& Vendor = "", const std::string& RefNumber = "",
                                     Date TxnDate = 0, const std::string& Class = "",
                                     const std::string& ShipToEntity = "", const std::string& Terms = "",
                                     const std::string& ShipMethod = "", const std::string& FOB = "",
                                     const std::string& Memo = "", const std::string& VendorMessage = "",
                                     std::optional<bool> IsToBePrinted = std::nullopt);
};

}  // namespace tessaron
