// Balances of list records, summed from the ledger's postings, and the opening balances
// that list records bring with them, posted as any other amount.
#pragma once

#include <cstdint>
#include <string>

#include "qbsim/record_row.h"

namespace tessaron::qbsim {

class CompanyFile;
class ListStore;
class RequestContext;
class WriteScope;

// Posts the opening balance of a new customer (receivable), vendor (payable) or account
// against Opening Balance Equity, dated `date` ("yyyy-mm-dd"; empty: today). The rows carry
// the record's ListID as their transaction, and a customer's as the document they keep open.
void PostOpeningBalance(CompanyFile& file, ListStore& store, WriteScope& scope, const ListRecord& record,
                        int64_t amount, const std::string& date);

// The Balance (withChildren false) or TotalBalance of a customer, vendor or account, in the
// sign QuickBooks answers: what a customer owes, what is owed to a vendor, an account's
// natural side.
int64_t LedgerBalance(RequestContext& ctx, const RecordRow& row, bool withChildren);

}  // namespace tessaron::qbsim
