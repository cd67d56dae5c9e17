#include "cli/company_view.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/values.h"
#include "tessaron/platform/error.h"

namespace tessaron::cli {
namespace {

std::string YesNo(bool value) { return value ? "true" : "false"; }
std::string DateText(Date d) { return d == kNullDate ? std::string() : DateToText(d); }

void Lines(std::ostream& out, const std::vector<std::pair<const char*, std::function<std::string()>>>& rows,
           const char* indent) {
  for (const auto& [name, value] : rows) {
    std::string text;
    try {
      text = value();
    } catch (const Error& e) {
      text = "(" + e.Description() + ")";  // a field this qbXML version does not have
    }
    std::string label = name;
    label.resize(std::max<size_t>(label.size() + 2, 40 - std::string(indent).size()), ' ');
    out << indent << label << text << "\n";
  }
}

}  // namespace

void PrintCompany(Company& c, std::ostream& out) {
  Lines(out,
        {{"Name", [&] { return c.Name(); }},
         {"LegalName", [&] { return c.LegalName(); }},
         {"Address", [&] { return AddressText(*c.Address()); }},
         {"AddressForCustomers", [&] { return AddressText(*c.AddressForCustomers()); }},
         {"LegalAddress", [&] { return AddressText(*c.LegalAddress()); }},
         {"Phone", [&] { return c.Phone(); }},
         {"Fax", [&] { return c.Fax(); }},
         {"Email", [&] { return c.Email(); }},
         {"EmailForCustomers", [&] { return c.EmailForCustomers(); }},
         {"WebSite", [&] { return c.WebSite(); }},
         {"CompanyType", [&] { return c.CompanyType(); }},
         {"EIN", [&] { return c.EIN(); }},
         {"TaxForm", [&] { return c.qbEnumTaxForm(); }},
         {"FirstMonthFiscalYear", [&] { return c.FirstMonthFiscalYear(); }},
         {"FirstMonthIncomeTaxYear", [&] { return c.FirstMonthIncomeTaxYear(); }},
         {"IsSampleCompany", [&] { return YesNo(c.IsSampleCompany()); }}},
        "");
  const Preferences& p = *c.Preferences();
  out << "Preferences\n";
  Lines(out,
        {{"IsUsingAccountNumbers", [&] { return YesNo(p.IsUsingAccountNumbers()); }},
         {"IsRequiringAccounts", [&] { return YesNo(p.IsRequiringAccounts()); }},
         {"IsUsingClassTracking", [&] { return YesNo(p.IsUsingClassTracking()); }},
         {"IsUsingAuditTrail", [&] { return YesNo(p.IsUsingAuditTrail()); }},
         {"IsAssigningJournalNumbers", [&] { return YesNo(p.IsAssigningJournalNumbers()); }},
         {"ClosingDate", [&] { return DateText(p.ClosingDate()); }},
         {"AnnualInterestRate", [&] { return p.AnnualInterestRate().ToString(); }},
         {"MinimumFinanceCharge", [&] { return p.MinimumFinanceCharge().ToString(); }},
         {"GracePeriod", [&] { return std::to_string(p.GracePeriod()); }},
         {"FinanceChargeAccount", [&] { return p.FinanceChargeAccount(); }},
         {"IsAssessingForOverdueCharges", [&] { return YesNo(p.IsAssessingForOverdueCharges()); }},
         {"CalculateChargesFrom", [&] { return EStr(p.CalculateChargesFrom(), qoeCalculateChargesFrom); }},
         {"IsMarkedToBePrinted", [&] { return YesNo(p.IsMarkedToBePrinted()); }},
         {"IsUsingEstimates", [&] { return YesNo(p.IsUsingEstimates()); }},
         {"IsUsingProgressInvoicing", [&] { return YesNo(p.IsUsingProgressInvoicing()); }},
         {"IsPrintingItemsWithZeroAmounts", [&] { return YesNo(p.IsPrintingItemsWithZeroAmounts()); }},
         {"IsUsingInventory", [&] { return YesNo(p.IsUsingInventory()); }},
         {"DaysBillsAreDue", [&] { return std::to_string(p.DaysBillsAreDue()); }},
         {"IsAutomaticallyUsingDiscounts", [&] { return YesNo(p.IsAutomaticallyUsingDiscounts()); }},
         {"DefaultDiscountAccount", [&] { return p.DefaultDiscountAccount(); }},
         {"AgingReportBasis", [&] { return EStr(p.AgingReportBasis(), qoeAgingReportBasis); }},
         {"SummaryReportBasis", [&] { return EStr(p.SummaryReportBasis(), qoeSummaryReportBasis); }},
         {"DefaultShipMethod", [&] { return p.DefaultShipMethod(); }},
         {"DefaultFOB", [&] { return p.DefaultFOB(); }},
         {"DefaultMarkup", [&] { return p.DefaultMarkup().ToString(); }},
         {"IsTrackingReimbursedExpensesAsIncome", [&] { return YesNo(p.IsTrackingReimbursedExpensesAsIncome()); }},
         {"IsAutoApplyingPayments", [&] { return YesNo(p.IsAutoApplyingPayments()); }},
         {"DefaultItemSalesTax", [&] { return p.DefaultItemSalesTax(); }},
         {"PaySalesTax", [&] { return EStr(p.PaySalesTax(), qoePaySalesTax); }},
         {"DefaultTaxableSalesTaxCode", [&] { return p.DefaultTaxableSalesTaxCode(); }},
         {"DefaultNonTaxableSalesTaxCode", [&] { return p.DefaultNonTaxableSalesTaxCode(); }},
         {"FirstDayOfWeek", [&] { return EStr(p.FirstDayOfWeek(), qoeDayOfWeek); }},
         {"TimeTrackingEnabled", [&] { return YesNo(p.TimeTrackingEnabled()); }},
         {"IsAutomaticLoginAllowed", [&] { return YesNo(p.IsAutomaticLoginAllowed()); }},
         {"IsSensitiveDataAccessAllowed", [&] { return YesNo(p.IsSensitiveDataAccessAllowed()); }}},
        "  ");
}

}  // namespace tessaron::cli
