#include "cli/list_columns.h"

#include <map>

#include "tessaron/platform/text.h"

namespace tessaron::cli {

namespace {

// "Class" is not a property: it names the record's class, which tells the kinds of a
// mixed list (items, terms) apart.
const std::map<std::string, std::vector<std::string>>& Defaults() {
  static const std::vector<std::string> kTreeName = {"FullName", "IsActive"};
  static const std::vector<std::string> kFlatName = {"Name", "IsActive"};
  static const std::vector<std::string> kItem = {"FullName", "Type", "Description", "Price", "IsActive"};
  static const std::vector<std::string> kEntity = {"Name", "CompanyName", "Phone", "Balance", "IsActive"};
  static const std::map<std::string, std::vector<std::string>> table = {
      {"Account", {"FullName", "AccountType", "Number", "Balance", "TotalBalance", "IsActive"}},
      {"Class", kTreeName},
      {"Customer", {"FullName", "CompanyName", "Phone", "TotalBalance", "IsActive"}},
      {"CustomerMessage", kFlatName},
      {"CustomerType", kTreeName},
      {"DateDrivenTerms", {"Name", "Class", "DayOfMonthDue", "DueNextMonthDays", "DiscountDayOfMonth",
                          "DiscountPercent", "IsActive"}},
      {"Employee", {"Name", "FirstName", "LastName", "Phone", "IsActive"}},
      {"ItemAssembly", kItem},
      {"ItemDiscount", kItem},
      {"ItemFixedAsset", kItem},
      {"ItemGroup", kItem},
      {"ItemInventory", kItem},
      {"ItemNonInventory", kItem},
      {"ItemOtherCharge", kItem},
      {"ItemPayment", kItem},
      {"ItemSalesTax", kItem},
      {"ItemSalesTaxGroup", kItem},
      {"ItemService", kItem},
      {"ItemSubtotal", kItem},
      {"JobType", kTreeName},
      {"OtherName", kEntity},
      {"PaymentMethod", kFlatName},
      {"PayrollItemNonWage", {"Name", "NonWageType", "IsActive"}},
      {"PayrollItemWage", {"Name", "WageType", "ExpenseAccount", "IsActive"}},
      {"SalesRep", {"Initial", "Entity", "IsActive"}},
      {"SalesTaxCode", {"Name", "Description", "IsTaxable", "IsActive"}},
      {"ShipMethod", kFlatName},
      {"StandardTerms", {"Name", "Class", "DueDays", "DiscountDays", "DiscountPercent", "IsActive"}},
      {"Template", {"Name", "AppliesTo", "IsActive"}},
      {"ToDo", {"Notes", "IsDone", "ReminderDate", "IsActive"}},
      {"Vendor", kEntity},
      {"VendorType", kTreeName},
  };
  return table;
}

}  // namespace

const std::vector<std::string>& DefaultColumns(const std::string& className) {
  static const std::vector<std::string> kOther = {"Name", "FullName", "IsActive"};
  const auto& table = Defaults();
  auto it = table.find(className);
  return it == table.end() ? kOther : it->second;
}

std::vector<std::string> SplitColumnList(const std::string& text) {
  std::vector<std::string> out;
  size_t start = 0;
  while (start <= text.size()) {
    size_t comma = text.find(',', start);
    if (comma == std::string::npos) comma = text.size();
    std::string part = text.substr(start, comma - start);
    const size_t first = part.find_first_not_of(" \t");
    const size_t last = part.find_last_not_of(" \t");
    if (first != std::string::npos) out.push_back(part.substr(first, last - first + 1));
    start = comma + 1;
  }
  return out;
}

}  // namespace tessaron::cli
