// Preferences: the company's QuickBooks preferences, read-only, read by the connection
// right after the company record (from qbXML 1.1 on; at 1.0 every value keeps its
// default). Transactions take their defaults from here.
//
// It also carries the one access right of the application that the library enforces: when
// QuickBooks does not allow this application personal data, RequirePersonalDataAccess
// refuses (from qbXML 2.0 on).
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tessaron/foundation/enum_codes.h"
#include "tessaron/foundation/enum_types.h"
#include "tessaron/framework/qc_list_object_ref.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/date.h"
#include "tessaron/platform/variant.h"
#include "tessaron/platform/xml_dom.h"

namespace tessaron {

namespace detail {
class ListObjectAccess;
}

class Preferences {
 public:
  Preferences();

  // The access rights of the application; each raises 0x800403ED below qbXML 2.0.
  bool IsAutomaticLoginAllowed() const;
  const std::string& AutomaticLoginUserName() const;
  bool IsSensitiveDataAccessAllowed() const;

  // New until the record was read.
  qoEnumObjectState ObjectState() const { return state_; }
  const Variant& UserData() const { return userData_; }
  void SetUserData(const Variant& value) { userData_ = value; }

  // Accounting.
  bool IsUsingAccountNumbers() const { return isUsingAccountNumbers_; }
  bool IsRequiringAccounts() const { return isRequiringAccounts_; }
  bool IsUsingClassTracking() const { return isUsingClassTracking_; }
  bool IsUsingAuditTrail() const { return isUsingAuditTrail_; }
  bool IsAssigningJournalNumbers() const { return isAssigningJournalNumbers_; }
  Date ClosingDate() const { return closingDate_; }
  // Finance charges.
  Currency AnnualInterestRate() const { return annualInterestRate_; }
  Currency MinimumFinanceCharge() const { return minimumFinanceCharge_; }
  int16_t GracePeriod() const { return gracePeriod_; }
  // References are given by the full name of their record.
  const std::string& FinanceChargeAccount() const { return financeChargeAccount_->FullName(); }
  bool IsAssessingForOverdueCharges() const { return isAssessingForOverdueCharges_; }
  qoEnumCalculateChargesFrom CalculateChargesFrom() const {
    return static_cast<qoEnumCalculateChargesFrom>(calculateChargesFrom_);
  }
  bool IsMarkedToBePrinted() const { return isMarkedToBePrinted_; }
  // Jobs and estimates.
  bool IsUsingEstimates() const { return isUsingEstimates_; }
  bool IsUsingProgressInvoicing() const { return isUsingProgressInvoicing_; }
  bool IsPrintingItemsWithZeroAmounts() const { return isPrintingItemsWithZeroAmounts_; }
  // Purchases and vendors.
  bool IsUsingInventory() const { return isUsingInventory_; }
  int16_t DaysBillsAreDue() const { return daysBillsAreDue_; }
  bool IsAutomaticallyUsingDiscounts() const { return isAutomaticallyUsingDiscounts_; }
  const std::string& DefaultDiscountAccount() const { return defaultDiscountAccount_->FullName(); }
  // Reports.
  qoEnumAgingReportBasis AgingReportBasis() const { return static_cast<qoEnumAgingReportBasis>(agingReportBasis_); }
  qoEnumSummaryReportBasis SummaryReportBasis() const {
    return static_cast<qoEnumSummaryReportBasis>(summaryReportBasis_);
  }
  // Sales and customers.
  const std::string& DefaultShipMethod() const { return defaultShipMethod_->FullName(); }
  const std::string& DefaultFOB() const { return defaultFOB_; }
  Currency DefaultMarkup() const { return defaultMarkup_; }
  bool IsTrackingReimbursedExpensesAsIncome() const { return isTrackingReimbursedExpensesAsIncome_; }
  bool IsAutoApplyingPayments() const { return isAutoApplyingPayments_; }
  // Sales tax (the US editions).
  const std::string& DefaultItemSalesTax() const { return defaultItemSalesTax_->FullName(); }
  qoEnumPaySalesTax PaySalesTax() const { return static_cast<qoEnumPaySalesTax>(paySalesTax_); }
  const std::string& DefaultTaxableSalesTaxCode() const { return defaultTaxableSalesTaxCode_->FullName(); }
  const std::string& DefaultNonTaxableSalesTaxCode() const { return defaultNonTaxableSalesTaxCode_->FullName(); }
  // Time tracking: on when QuickBooks names a first day of the week.
  qoEnumDayOfWeek FirstDayOfWeek() const { return static_cast<qoEnumDayOfWeek>(firstDayOfWeek_); }
  bool TimeTrackingEnabled() const { return timeTrackingEnabled_; }

 private:
  // Library-internal, through detail::ListObjectAccess: reads a PreferencesRet element.
  // The groups QuickBooks knows are walked; unknown groups and fields go to the diagnostic
  // hook, and a field of any group is stored wherever it appears. The access to personal
  // data goes to the library state too.
  friend class detail::ListObjectAccess;
  void FromDom(const XmlNode& node);
  struct Row;
  static const std::vector<Row>& Rows();
  void ReadGroup(const XmlNode& group);

  bool isAutomaticLoginAllowed_ = false;
  std::string automaticLoginUserName_;
  bool isSensitiveDataAccessAllowed_ = false;
  qoEnumObjectState state_ = qoObjectStateNew;
  Variant userData_;
  bool isUsingAccountNumbers_ = false;
  bool isRequiringAccounts_ = false;
  bool isUsingClassTracking_ = false;
  bool isUsingAuditTrail_ = false;
  bool isAssigningJournalNumbers_ = false;
  Date closingDate_ = 0;
  Currency annualInterestRate_;
  Currency minimumFinanceCharge_;
  int16_t gracePeriod_ = 0;
  std::shared_ptr<qcListObjectRef> financeChargeAccount_;
  bool isAssessingForOverdueCharges_ = false;
  int32_t calculateChargesFrom_ = 0;
  bool isMarkedToBePrinted_ = false;
  bool isUsingEstimates_ = false;
  bool isUsingProgressInvoicing_ = false;
  bool isPrintingItemsWithZeroAmounts_ = false;
  bool isUsingInventory_ = false;
  int16_t daysBillsAreDue_ = 0;
  bool isAutomaticallyUsingDiscounts_ = false;
  std::shared_ptr<qcListObjectRef> defaultDiscountAccount_;
  int32_t agingReportBasis_ = 0;
  int32_t summaryReportBasis_ = 0;
  std::shared_ptr<qcListObjectRef> defaultShipMethod_;
  std::string defaultFOB_;
  Currency defaultMarkup_;
  bool isTrackingReimbursedExpensesAsIncome_ = false;
  bool isAutoApplyingPayments_ = false;
  std::shared_ptr<qcListObjectRef> defaultItemSalesTax_;
  int32_t paySalesTax_ = 0;
  std::shared_ptr<qcListObjectRef> defaultTaxableSalesTaxCode_;
  std::shared_ptr<qcListObjectRef> defaultNonTaxableSalesTaxCode_;
  int32_t firstDayOfWeek_ = 0;
  bool timeTrackingEnabled_ = false;
};

// Refuses with 0x800403EE, source "Tessaron", from qbXML 2.0 on when QuickBooks does not
// allow this application personal data (as the preferences last said; not allowed until
// they were read). Below qbXML 2.0 it never refuses.
void RequirePersonalDataAccess();

}  // namespace tessaron
