#include "tessaron/company/preferences.h"

#include <string_view>
#include <variant>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/values.h"
#include "tessaron/platform/error.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {

namespace {

// The groups of the record, each read by the same inner step.
constexpr std::string_view kGroups[] = {
    "AccountingPreferences",       "FinanceChargePreferences", "JobsAndEstimatesPreferences",
    "PurchasesAndVendorsPreferences", "ReportsPreferences",    "SalesAndCustomersPreferences",
    "SalesTaxPreferences",         "TimeTrackingPreferences",  "CurrentAppAccessRights",
    "TaxPreferences"};

// Fields of later qbXML versions that this record keeps nothing of.
constexpr std::string_view kIgnored[] = {"IsUsingMulticurrency", "IsUsingUnitsOfMeasure", "HomeCurrencyRef",
                                         "IsUsingForeignPricesOnItems", "ForeignCurrencyRef"};

int16_t Int16Of(const std::string& text) { return static_cast<int16_t>(Variant(text).ToInteger()); }

}  // namespace

struct Preferences::Row {
  struct Enum {
    int32_t Preferences::*member;
    qoEnumerationType table;
  };
  std::string_view tag;
  std::variant<bool Preferences::*, std::string Preferences::*, Date Preferences::*, Currency Preferences::*,
               int16_t Preferences::*, std::shared_ptr<qcListObjectRef> Preferences::*, Enum>
      member;
};

const std::vector<Preferences::Row>& Preferences::Rows() {
  using P = Preferences;
  static const std::vector<Row> rows = {
      {"IsAutomaticLoginAllowed", &P::isAutomaticLoginAllowed_},
      {"AutomaticLoginUserName", &P::automaticLoginUserName_},
      {"IsPersonalDataAccessAllowed", &P::isSensitiveDataAccessAllowed_},
      {"IsUsingAccountNumbers", &P::isUsingAccountNumbers_},
      {"IsRequiringAccounts", &P::isRequiringAccounts_},
      {"IsUsingClassTracking", &P::isUsingClassTracking_},
      {"IsUsingAuditTrail", &P::isUsingAuditTrail_},
      {"IsAssigningJournalEntryNumbers", &P::isAssigningJournalNumbers_},
      {"ClosingDate", &P::closingDate_},
      {"AnnualInterestRate", &P::annualInterestRate_},
      {"MinFinanceCharge", &P::minimumFinanceCharge_},
      {"GracePeriod", &P::gracePeriod_},
      {"FinanceChargeAccountRef", &P::financeChargeAccount_},
      {"IsAssessingForOverdueCharges", &P::isAssessingForOverdueCharges_},
      {"CalculateChargesFrom", Row::Enum{&P::calculateChargesFrom_, qoeCalculateChargesFrom}},
      {"IsMarkedToBePrinted", &P::isMarkedToBePrinted_},
      {"IsUsingEstimates", &P::isUsingEstimates_},
      {"IsUsingProgressInvoicing", &P::isUsingProgressInvoicing_},
      {"IsPrintingItemsWithZeroAmounts", &P::isPrintingItemsWithZeroAmounts_},
      {"IsUsingInventory", &P::isUsingInventory_},
      {"DaysBillsAreDue", &P::daysBillsAreDue_},
      {"IsAutomaticallyUsingDiscounts", &P::isAutomaticallyUsingDiscounts_},
      {"DefaultDiscountAccountRef", &P::defaultDiscountAccount_},
      {"AgingReportBasis", Row::Enum{&P::agingReportBasis_, qoeAgingReportBasis}},
      {"SummaryReportBasis", Row::Enum{&P::summaryReportBasis_, qoeSummaryReportBasis}},
      {"DefaultShipMethodRef", &P::defaultShipMethod_},
      {"DefaultFOB", &P::defaultFOB_},
      {"DefaultMarkup", &P::defaultMarkup_},
      {"IsTrackingReimbursedExpensesAsIncome", &P::isTrackingReimbursedExpensesAsIncome_},
      {"IsAutoApplyingPayments", &P::isAutoApplyingPayments_},
      {"DefaultItemSalesTaxRef", &P::defaultItemSalesTax_},
      {"PaySalesTax", Row::Enum{&P::paySalesTax_, qoePaySalesTax}},
      {"DefaultTaxableSalesTaxCodeRef", &P::defaultTaxableSalesTaxCode_},
      {"DefaultNonTaxableSalesTaxCodeRef", &P::defaultNonTaxableSalesTaxCode_},
      {"FirstDayOfWeek", Row::Enum{&P::firstDayOfWeek_, qoeDayOfWeek}},
  };
  return rows;
}

Preferences::Preferences()
    : financeChargeAccount_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      defaultDiscountAccount_(std::make_shared<qcListObjectRef>(qoListAccounts)),
      defaultShipMethod_(std::make_shared<qcListObjectRef>(qoListShipMethods)),
      defaultItemSalesTax_(std::make_shared<qcListObjectRef>(qoListItems)),
      defaultTaxableSalesTaxCode_(std::make_shared<qcListObjectRef>(qoListSalesTaxCodes)),
      defaultNonTaxableSalesTaxCode_(std::make_shared<qcListObjectRef>(qoListSalesTaxCodes)) {}

bool Preferences::IsAutomaticLoginAllowed() const {
  RequireVersion(2);
  return isAutomaticLoginAllowed_;
}
const std::string& Preferences::AutomaticLoginUserName() const {
  RequireVersion(2);
  return automaticLoginUserName_;
}
bool Preferences::IsSensitiveDataAccessAllowed() const {
  RequireVersion(2);
  return isSensitiveDataAccessAllowed_;
}

void Preferences::FromDom(const XmlNode& node) {
  for (const XmlNode& group : node.childNodes()) {
    const std::string_view name = group.baseName();
    bool known = false;
    for (std::string_view g : kGroups) known = known || g == name;
    if (known) ReadGroup(group);
    else NoteUnknownField("Unknown Field: " + std::string(name), "Preferences");
  }
  state_ = qoObjectStateClean;
}

void Preferences::ReadGroup(const XmlNode& group) {
  for (const XmlNode& field : group.childNodes()) {
    const std::string_view tag = field.baseName();
    const Row* row = nullptr;
    for (const Row& r : Rows()) {
      if (r.tag == tag) {
        row = &r;
        break;
      }
    }
    if (!row) {
      bool ignored = false;
      for (std::string_view t : kIgnored) ignored = ignored || t == tag;
      if (!ignored) NoteUnknownField("Unknown Field:  " + std::string(tag), "Preferences");
      continue;
    }
    std::visit(
        [&](auto member) {
          using M = decltype(member);
          if constexpr (std::is_same_v<M, bool Preferences::*>) {
            this->*member = BooleanFromText(field.text());
          } else if constexpr (std::is_same_v<M, std::string Preferences::*>) {
            this->*member = field.text();
          } else if constexpr (std::is_same_v<M, Date Preferences::*>) {
            this->*member = DateFromText(field.text());
          } else if constexpr (std::is_same_v<M, Currency Preferences::*>) {
            std::string text = field.text();
            this->*member = CurrencyFromText(text);
          } else if constexpr (std::is_same_v<M, int16_t Preferences::*>) {
            this->*member = Int16Of(field.text());
          } else if constexpr (std::is_same_v<M, std::shared_ptr<qcListObjectRef> Preferences::*>) {
            detail::ListObjectAccess::ReadFromNode(*(this->*member), field);
          } else {
            this->*member.member = EnumXMLToCode(field.text(), member.table);
          }
        },
        row->member);
    if (tag == "IsPersonalDataAccessAllowed") State().IsPersonalDataAccessAllowed = isSensitiveDataAccessAllowed_;
    if (tag == "FirstDayOfWeek") timeTrackingEnabled_ = true;
  }
}

void RequirePersonalDataAccess() {
  const LibraryState& s = State();
  if (s.QBXMLVersionNumber >= Currency(2) && !s.IsPersonalDataAccessAllowed)
    throw Error(err::kAccessDenied, "Tessaron", err::kAccessDeniedText);
}

}  // namespace tessaron
