// The library's error numbers and their fixed texts.
//
// Raised failures and validation records (qcError) share one space of numbers, from
// 0x80040000 on, grouped by the hundreds: 0x800403E8 general, 0x8004044D items,
// 0x800404B1 addresses, 0x80040514 accounts, 0x80040578 sales tax codes, 0x800405DC
// customers, 0x80040640 transaction and query checks, 0x800406A4 vendors, 0x80040708
// journal entries, 0x8004076C terms, 0x800407CF transactions, 0x80040834 employees,
// 0x80040898 sales reps, 0x800408FC checks, 0x80040960 customer messages, 0x800409C4
// to-do notes, 0x80040A29 reports, 0x80040A8C bill payments, 0x80040AF0 data extensions,
// 0x80040B0E payroll, 0x80040B36 events, 0x80040B4A deposits, 0x80040B5E flat views.
//
// Each row of the table below gives `err::kName` (the number) and `err::kNameText` (its
// text, exactly as the system shows it, odd spellings and double blanks included).
// Compare with Error::Number() directly: tessaron::Error keeps the 32-bit pattern, so
// e.Number() == static_cast<int32_t>(err::kFieldCannotBeModified).
#pragma once

#include <cstdint>
#include <string>

namespace tessaron {

// The five numbers that the type library names; the others are used all the same.
enum qoEnumErrors : int32_t {
  qErrorValidateFailed = static_cast<int32_t>(0x800403F3u),
  qErrorBadAccount = static_cast<int32_t>(0x800403F6u),
  qErrorNeedCustomer = static_cast<int32_t>(0x8004070Du),
  qErrorNeedVendor = static_cast<int32_t>(0x8004070Eu),
  qErrorAccountRequired = static_cast<int32_t>(0x8004070Cu),
};

// Numbers with one fixed text: X(name, number, text).
#define TESSARON_ERRORS_WITH_TEXT(X)                                                                  \
  /* general */                                                                                       \
  X(NotConnected, 0x800403E8, "QBConnect has not been called, or it failed")                          \
  /* a failed commit of one object records this number with field "QuickBooks: " and the status */  \
  /* message; the mirror raises it with the text */                                                   \
  X(DatabaseOpenFailed, 0x800403E9, "Unable to open database connection.")                            \
  X(FieldCannotBeModified, 0x800403EA, "Field cannot be modified")                                    \
  X(QuickBooksTooOld, 0x800403EC, "Tessaron must have QuickBooks Pro 2002 or higher installed")       \
  X(VersionNotSupported, 0x800403ED,                                                                  \
    "The version of QuickBooks you are running does not support this feature.")                       \
  X(AccessDenied, 0x800403EE, "Tessaron, S_MSG_ACCESS_DENIED")                                        \
  X(InvalidEnumValue, 0x800403EF, "An invalid enumeration value was supplied.")                       \
  X(InvalidEnumString, 0x800403F0, "An invalid enumeration string was supplied.")                     \
  X(UnknownTxnType, 0x800403F1, "Internal error.  Unknown transaction type.")                         \
  X(InvalidParent, 0x800403F2, "Invalid parent specified")                                            \
  X(ValidateFailed, 0x800403F3, "Indicated object failed validation.  Check object's errors for details.") \
  X(NameNull, 0x800403F4, "Name cannot be null")                                                      \
  X(NameTooLong, 0x800403F5, "Name cannot exceed 31 characters")                                      \
  X(BadAccount, 0x800403F6, "Invalid account specified")                                              \
  X(BadSalesTaxCode, 0x800403F7, "Invalid sales tax code specified")                                  \
  X(BadVendor, 0x800403F8, "Invalid vendor specified")                                                \
  X(DuplicateName, 0x800403F9, "Name specified already exists on file")                               \
  X(CommitFailed, 0x800403FA, "Indicated object failed commit.  Check object's errors for details.")  \
  X(EmptyArray, 0x800403FB, "Empty array passed to GetBy... call")                                    \
  X(InvalidDateFormat, 0x800403FC, "Invalid date format")                                             \
  X(MasterOnly, 0x800403FD, "This operation is only permitted on the master collection")              \
  X(NotAMember, 0x800403FE, "The specified object is not a member of the collection")                 \
  X(CommitErrors, 0x800403FF, "Error(s) occurred during commit.  Check each object's Errors for details.") \
  X(NotOnMaster, 0x80040401, "This operation is not permitted on the master collection")              \
  X(InvalidCharacter, 0x80040404, "This field cantains an invalid character.")                        \
  X(ItemRename, 0x80040405, "Existing items cannot be renamed")                                       \
  X(UnsupportedObjectType, 0x80040406, "This operation is not supported for the indicated object type.") \
  X(InvalidId, 0x80040407, "In invalid list or txn ID was passed.")                                   \
  X(XmlParserMissing, 0x800407CF, "Microsoft XML 4.0 parser not installed.")                          \
  /* items */                                                                                         \
  X(InvalidItemType, 0x8004044D, "Invalid item type specified")                                       \
  X(SalesTaxGroupQuantity, 0x8004044F, "Quantity must be 1 for sales tax group lines")                \
  X(ParentItemType, 0x80040450, "Parent item type must be the same as the child's")                   \
  X(DiscountQuantity, 0x80040451, "Cannot specify Quanity if Item is of type Discount.")              \
  X(FixedAssetPurchaseDesc, 0x80040452, "Fixed Assets require a purchase description")                \
  /* addresses, accounts, sales tax codes */                                                          \
  X(AddressError, 0x800404B1, "Address error")                                                        \
  X(AccountNumberTooLong, 0x80040514, "Account number cannot exceed 7 characters")                    \
  X(BankNumberTooLong, 0x80040515, "Bank number cannot exceed 25 characters")                         \
  X(AccountDescTooLong, 0x80040516, "Account description cannot exceed 29 characters")                \
  X(ParentAccountType, 0x80040517, "Parent account type must be the same as childs")                  \
  X(SalesTaxCodeNameTooLong, 0x80040578, "Sales tax code name cannot exceed 3 characters")            \
  X(SalesTaxCodeDescTooLong, 0x80040579, "Sales tax code description cannot exceed 31 characters")    \
  /* customers */                                                                                     \
  X(CustomerNameTooLong, 0x800405DC, "Customer/Company name cannot exceed 41 characters")             \
  X(SalutationTooLong, 0x800405DD, "Salutation cannot exceed 15 characters")                          \
  X(FirstLastNameTooLong, 0x800405DE, "First/Last name cannot exceed 25 characters")                  \
  X(MiddleNameTooLong, 0x800405DF, "Middle name cannot exceed 5 characters")                          \
  X(PhoneTooLong, 0x800405E0, "Phone numbers cannot exceed 21 characters")                            \
  X(EmailTooLong, 0x800405E1, "Email cannot exceed 99 characters")                                    \
  X(ResaleNumberTooLong, 0x800405E2, "Resale number cannot exceed 15 characters")                     \
  X(CustomerAccountNumberTooLong, 0x800405E3, "Account number cannot exceed 99 characters")           \
  X(JobDescTooLong, 0x800405E4, "Job description cannot exceed 99 characters")                        \
  X(LastNameSameAsFirst, 0x800405E5, "Last Name cannot be the same as First Name")                    \
  /* transaction and query checks */                                                                  \
  X(WithChildrenOneName, 0x80040640, "If WithChildren is specified only one name is allowed")         \
  X(MemoTooLong, 0x80040641, "Memo length cannot exceed 4095 characters")                             \
  /* vendors */                                                                                       \
  X(VendorNameTooLong, 0x800406A4, "Vendor/Company name cannot exceed 41 characters")                 \
  X(ContactTooLong, 0x800406A5, "Contact names cannot exceed 41 characters")                          \
  X(NameOnCheckTooLong, 0x800406A6, "Names on Checks cannot exceed 41 characters")                    \
  X(VendorTypeTooLong, 0x800406A8, "VendorType FullName cannot exceed 159 characters")                \
  X(TermsRefTooLong, 0x800406A9, "TermsRef FullName cannot exceed 31 characters")                     \
  X(VendorTaxIdTooLong, 0x800406AA, "Vendor TaxID cannot exceed 15 characters")                       \
  X(Vendor1099NeedsAddress, 0x800406AB, "If EligibleFor1099 is True, Vendor Address and TaxID is required") \
  X(NeedBillsAndCredits, 0x800406AC, "You must call GetBillsAndCredits before accessing this property.") \
  /* journal entries */                                                                               \
  X(EntryNumberTooLong, 0x80040708, "EntryNumber cannot exceed 11 characters")                        \
  X(JournalUnbalanced, 0x80040709, "Journal lines do not balance")                                    \
  X(JournalNegativeAmount, 0x8004070B, "Journal lines can only contain positive amounts")             \
  X(AccountRequired, 0x8004070C, "Journal entries require an account on each line with an amount")   \
  X(NeedCustomer, 0x8004070D, "Transactions to accounts receivable must include a customer")         \
  X(NeedVendor, 0x8004070E, "Transactions to accounts payable must include a vendor")                \
  X(NonPostingAccount, 0x8004070F, "Non-posting accounts cannot be used")                             \
  /* terms */                                                                                         \
  X(InvalidTermsType, 0x8004076C, "Invalid terms type specified")                                     \
  /* transactions */                                                                                  \
  X(GroupLineChange, 0x800407D0, "Line items within item groups cannot be changed")                   \
  X(InvalidItem, 0x800407D1, "Invalid item specified")                                                \
  X(UnsupportedItemType, 0x800407D2, "Unsupported item type for this transaction")                    \
  X(VendorMissing, 0x800407D3, "Vendor does not exist")                                               \
  X(TermMissing, 0x800407D4, "Term code does not exist")                                              \
  X(ApPercentItem, 0x800407D5, "AP Transactions don't support percentage priced items")               \
  X(AmountReadOnly, 0x800407D6, "Amount cannot be modified")                                          \
  X(PropertyNotForTxnType, 0x800407D8, "This property is not valid for current transaction type")     \
  X(ItemGroupsOnly, 0x800407D9, "This property applies to item groups only")                          \
  X(EntityMissing, 0x800407DA, "Entity does not exist")                                               \
  X(NeedCreditCardAccount, 0x800407DB, "Account type must be Credit Card")                            \
  X(CustomerMissing, 0x800407DC, "Customer code does not exist")                                      \
  X(ClassMissing, 0x800407DD, "Class code does not exist")                                            \
  X(ItemMissing, 0x800407DE, "Item code does not exist")                                              \
  X(SalesTaxCodeMissing, 0x800407DF, "Sales tax code does not exits")                                 \
  X(TaxItemInHeader, 0x800407E0, "Tax item is already included in the transaction header")            \
  X(TaxItemInLines, 0x800407E1, "Tax item is in already included within the transaction lines")      \
  X(InvalidCustomer, 0x800407E2, "Invalid customer specified")                                        \
  X(InvalidTxnAccount, 0x800407E3, "Invalid account specified")                                       \
  X(NeedArAccount, 0x800407E4, "Account type must be Accounts Receivable")                            \
  X(LineNeedsItem, 0x800407E5, "Transaction lines with amounts must have items")                      \
  X(NeedLine, 0x800407E6, "Transactions must have at least one line item")                            \
  X(MarkupEstimatesOnly, 0x800407E7, "Markup property is only valid for estimates")                   \
  X(VendorRequired, 0x800407E8, "Vendor is required for this type of transaction")                    \
  X(CustomerRequired, 0x800407E9, "Customer is required for this type of transaction")                \
  X(TimeTrackingHours, 0x800407EA, "Hours and/or minutes must be supplied for a TimeTracking item")   \
  X(AutoApplyWithAppliedTo, 0x800407EB,                                                               \
    "Cannot specify transactions to apply ReceivePayments to when IsAutoApply is True")               \
  X(InvalidPaymentMethod, 0x800407EC, "Invalid payment method specified")                             \
  X(DuplicateAppliedTo, 0x800407EE,                                                                   \
    "Cannot apply more than one payment to the same TxnID in a ReceivePayment.Add call")              \
  X(AppliedExceedsTotal, 0x800407EF, "Total AppliedTos payment amount cannot exceed ReceivePayment.Total") \
  /* payments and applied amounts */                                                                  \
  X(BadDiscountAccount, 0x800407ED,                                                                   \
    "Invalid DiscountAccount specified. DiscountAccount should be of type Expense, Income, OtherExpense or OtherIncome.") \
  X(NeedApAccount, 0x800407F1, "Account type must be Accounts Payable")                               \
  X(TxnTypeNotSet, 0x800407F2, "The TxnType property has not been set")                               \
  /* employees, sales reps, checks, customer messages, to-do notes */                                 \
  X(PrintAsTooLong, 0x80040834, "Print As value cannot exceed 41 characters")                         \
  X(SsnTooLong, 0x80040835, "Social Security Number (SSN) cannot exceed 15 characters")               \
  X(InitialsTooLong, 0x80040898, "Initials cannot exceed 5 characters")                               \
  X(SalesRepEntityTooLong, 0x80040899, "SalesRepEntity FullName cannot exceed 31 characters")         \
  X(SalesRepNameRequired, 0x8004089A, "SalesRep Name or ListID must be provided")                     \
  X(SalesRepEntityInvalid, 0x8004089B, "SalesRepEntity is not valid")                                 \
  X(SalesRepEntityNotFound, 0x8004089C, "SalesRepEntity not found")                                   \
  X(CheckNumberToPrint, 0x800408FC, "You cannot specify a check number for a check to be printed")    \
  X(CheckNeedsBank, 0x800408FD, "Checks can only be written against bank accounts")                   \
  X(MessageTooLong, 0x80040960, "Message cannot exceed 101 characters")                               \
  X(NotesNull, 0x800409C4, "Notes cannot be null")                                                    \
  X(NotesTooLong, 0x800409C5, "Notes cannot exceed 4095 characters")                                  \
  /* reports, bill payments, data extensions, payroll, events, deposits, flat views */                \
  X(InvalidBaseReport, 0x80040A29, "Invalid BaseReport property.")                                    \
  X(InvalidBasis, 0x80040A2A, "Basis must be Cash or Accural")                                        \
  X(InvalidBillPaymentMethod, 0x80040A8C, "Invalid bill payment method specified.")                   \
  X(InvalidDataExtIndex, 0x80040AF0, "Invalid data extension index specified.")                       \
  X(AppFieldsOnly, 0x80040AF1, "This operation is only permitted on application defined fields.")     \
  X(NoDataExtGuid, 0x80040AF2, "No GUID has been registered for application defined fields")          \
  X(DataExtNotDefined, 0x80040AF4, "Specified data extension in not defined for this object type.")   \
  X(InvalidPayrollWageItem, 0x80040B0E, "Invalid payroll wage item specified.")                       \
  X(NoEventGuid, 0x80040B36, "QBConnection.RegisterEventGUID has not been called")                    \
  X(DepositLineTarget, 0x80040B4A, "Deposit lines must include either a TxnId or an Account.")        \
  X(FeatureNotSupported, 0x80040B5E, "This version of tessaron does not support this feature.")       \
  X(ListTypeNotSet, 0x80040B5F, "The ListType property has not been set or is invalid")

// Numbers whose text comes from elsewhere: X(name, number).
#define TESSARON_ERRORS_WITHOUT_TEXT(X)                                                               \
  /* RaiseInternal: source "Tessaron: " + class name, the message as text */                          \
  X(Internal, 0x800403EB)                                                                             \
  /* a duplicate while saving an item list: the text of the QuickBooks response */                    \
  X(DuplicateInItemList, 0x80040400)                                                                  \
  /* a commit's builder status: the status number as text, the builder's ErrMsg */                    \
  X(BuilderStatus, 0x80040402)                                                                        \
  /* the transaction collections */                                                                   \
  X(TxnCollection, 0x80040403)                                                                        \
  /* a replayed session that leaves its transcript: the position and the first differing line */      \
  X(ReplayMismatch, 0x80040B60)                                                                       \
  /* a collection's LoadFromXml: the file name and why it is no saved collection of that kind */      \
  X(NotASavedCollection, 0x80040B6A)

namespace err {

#define TESSARON_DECLARE_ERROR_WITH_TEXT(name, number, text) \
  inline constexpr uint32_t k##name = number;                \
  inline constexpr char k##name##Text[] = text;
#define TESSARON_DECLARE_ERROR(name, number) inline constexpr uint32_t k##name = number;
TESSARON_ERRORS_WITH_TEXT(TESSARON_DECLARE_ERROR_WITH_TEXT)
TESSARON_ERRORS_WITHOUT_TEXT(TESSARON_DECLARE_ERROR)
#undef TESSARON_DECLARE_ERROR_WITH_TEXT
#undef TESSARON_DECLARE_ERROR

// Numbers that carry a second text in some uses.
inline constexpr uint32_t kDatabaseFileNotFound = kValidateFailed;  // raised by the mirror
inline constexpr char kDatabaseFileNotFoundText[] =
    "Could not find the database file specified. Make sure you typed the path and filename correctly.";
inline constexpr uint32_t kFixedAssetPurchaseDate = kDiscountQuantity;
inline constexpr char kFixedAssetPurchaseDateText[] = "Fixed Assets require a purchase date";
// The duplicate-job text of Customers: "The Customer:Job: " + name + " is duplicated in the
// QuickBooks file.", source "Customers:Getxxx".
inline constexpr char kDuplicateJobSource[] = "Customers:Getxxx";

}  // namespace err

// The fixed text of a number of the first table; the empty text for any other number.
const char* ErrorText(uint32_t number);

// Raises the number with its fixed text and the given source.
[[noreturn]] void RaiseError(uint32_t number, const std::string& source);

}  // namespace tessaron
