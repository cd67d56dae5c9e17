// The typed enumerations that classes pass around: object types, list types, object states.
// Their texts (descriptions, keys, qbXML tags) live in the enumeration tables.
#pragma once

#include <cstdint>

namespace tessaron {

// The kind of a record; the code of its row in the "ObjectType" table.
enum qoEnumListObjectType : int32_t {
  qoObjectTypeAccount = 1,
  qoObjectTypeSalesTaxCode = 2,
  qoObjectTypeItemService = 3,
  qoObjectTypeItemInventory = 4,
  qoObjectTypeItemNonInventory = 5,
  qoObjectTypeItemOtherCharge = 6,
  qoObjectTypeItemSubtotal = 7,
  qoObjectTypeItemGroup = 8,
  qoObjectTypeItemDiscount = 9,
  qoObjectTypeItemPayment = 10,
  qoObjectTypeItemSalesTax = 11,
  qoObjectTypeItemSalesTaxGroup = 12,
  qoObjectTypeClass = 13,
  qoObjectTypeCustomer = 14,
  qoObjectTypePaymentMethod = 15,
  qoObjectTypeCustomerType = 16,
  qoObjectTypeJobType = 17,
  qoObjectTypeVendorType = 18,
  qoObjectTypeShipMethod = 19,
  qoObjectTypeVendor = 20,
  qoObjectTypeOtherName = 21,
  qoObjectTypeJournalEntry = 22,
  qoObjectTypeBill = 23,
  qoObjectTypeStandardTerms = 24,
  qoObjectTypeDateDrivenTerms = 25,
  qoObjectTypeEmployee = 26,
  qoObjectTypeCheck = 27,
  qoObjectTypeSalesRep = 28,
  qoObjectTypePurchaseOrder = 29,
  qoObjectTypeCustomerMsg = 30,
  qoObjectTypeToDo = 31,
  qoObjectTypeVendorCredit = 32,
  qoObjectTypeCreditCardCharge = 33,
  qoObjectTypeCreditCardCredit = 34,
  qoObjectTypeTimeTracking = 35,
  qoObjectTypeInvoice = 36,
  qoObjectTypePayrollItemWage = 37,
  qoObjectTypeSalesReceipt = 38,
  qoObjectTypeCreditMemo = 39,
  qoObjectTypeEstimate = 40,
  qoObjectTypeReceivePayment = 41,
  qoObjectTypeBillPayment = 42,
  qoObjectTypeUndepositedFund = 43,
  qoObjectTypeDeposit = 44,
  qoObjectTypeItem = 45,
  qoObjectTypeDataExtDef = 46,
  qoObjectTypeDataExt = 47,
  qoObjectTypeCharge = 48,
  qoObjectTypeItemInventoryAssembly = 49,
  qoObjectTypeInventoryAdjustment = 50,
  qoObjectTypeSalesTaxPaymentCheck = 51,
  qoObjectTypeSalesOrder = 52,
  qoObjectTypeCurrency = 53,
  qoObjectTypeTaxCode = 54,
  qoObjectTypeTemplate = 55,
  qoObjectTypeCompany = 56,
  qoObjectTypeEntity = 57,
  qoObjectTypeTerm = 58,
  qoObjectTypeItemReceipt = 59,
  qoObjectTypePayrollItemNonWage = 60,
  qoObjectTypeItemFixedAsset = 61,
  qoObjectTypeUIExtensionSubscription = 62,
  qoObjectTypeUIEventSubscription = 63,
};

// The list a reference points into; the code of its row in the "ListType" table.
enum qoEnumListType : int32_t {
  qoListAccounts = 1,
  qoListSalesTaxCodes = 2,
  qoListVendors = 3,
  qoListItems = 4,
  qoListCustomers = 5,
  qoListCustomerTypes = 6,
  qoListJobTypes = 7,
  qoListVendorTypes = 8,
  qoListShipMethods = 9,
  qoListClasses = 10,
  qoListPaymentMethods = 11,
  qoListEntity = 13,
  qoListJournalEntries = 14,
  qoListTerms = 15,
  qoListSalesRep = 16,
  qoListOtherNames = 17,
  qoListBills = 18,
  qoListEmployees = 19,
  qoListCustomerMessages = 20,
  qoListToDo = 21,
  qoListPayrollItemWages = 22,
  qoListTemplates = 23,
  qoListPayrollItemNonWages = 24,
};

enum qoEnumObjectState : int32_t {
  qoObjectStateNew = 1,    // created here, never accepted: a commit sends an add
  qoObjectStateClean = 2,  // as last returned: a commit sends nothing
  qoObjectStateDirty = 3,  // changed since it was read: a commit sends a modify
};

// What an inner object tells its owner through a qcEventSink.
enum qoEnumEventTypes : int32_t {
  qoEventAmountChange = 1,     // an amount of a line changed: the owner recomputes its totals
  qoEventItemTaxCodeQuery = 2, // may a tax item go on a line? the owner clears the text to refuse
  qoEventWarning = 3,          // the text is a qoEnumWarning number (enum_codes.h)
  qoEventNoQuantity = 4,       // not enough stock; the text is the item's name
};

// The cells of a line item that a grid edits one by one.
enum qoEnumFldTxn : int32_t {
  qoFldTxnItem = 1,
  qoFldTxnQuantity = 2,
  qoFldTxnDescription = 3,
  qoFldTxnCost = 4,
  qoFldTxnServiceDate = 5,
  qoFldTxnClass = 6,
  qoFldTxnAmount = 7,
  qoFldTxnTax = 8,
  qoFldTxnMarkup = 9,
  qoFldTxnCustomer = 10,
};

}  // namespace tessaron
