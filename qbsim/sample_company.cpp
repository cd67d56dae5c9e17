#include "qbsim/sample_company.h"

#include <map>
#include <tuple>
#include <vector>

#include "qbsim/company_records.h"
#include "qbsim/field_map.h"
#include "qbsim/ledger_balances.h"
#include "qbsim/list_store.h"
#include "qbsim/record_kind.h"
#include "qbsim/record_reader.h"
#include "qbsim/sample_invoices.h"
#include "qbsim/status.h"
#include "tessaron/platform/currency.h"
#include "tessaron/platform/error.h"

namespace tessaron::qbsim {
namespace {

using Fields = std::vector<std::pair<std::string, std::string>>;

// The field at a stored path ("SalesOrPurchase/Price", "ItemGroupLine#1/Quantity"), or null.
const Field* FieldAt(std::span<const Field> fields, std::string_view path) {
  for (;;) {
    const size_t slash = path.find('/');
    std::string_view tag = path.substr(0, slash);
    tag = tag.substr(0, tag.find('#'));
    const Field* found = nullptr;
    for (const Field& f : fields)
      if (tag == f.tag) found = &f;
    if (!found || slash == std::string_view::npos) return found;
    fields = found->children;
    path = path.substr(slash + 1);
  }
}

// Numbers in the form a request would have left them in ("65" is kept as the price "65.00").
std::string_view StoredForm(const ListKind& k, const std::string& path, const std::string& value, std::string& buffer) {
  const Field* f = FieldAt(k.fields, path);
  if (!f || f->kind != FieldKind::Value) return value;
  switch (f->type) {
    case ValueType::Amount:
    case ValueType::Price:
    case ValueType::Quantity:
    case ValueType::Percent:
      if (auto text = Canonical(f->type, value)) return buffer = *text;
      return value;
    default:
      return value;
  }
}

// Adds records straight to the file: the generator knows its names are unique, so none of
// the request-time checks run, and a hundred thousand customers take seconds.
class Builder {
 public:
  Builder(CompanyFile& file, WriteScope& scope) : file_(file), store_(file), scope_(scope) {}

  std::string Add(const char* kind, const std::string& name, const Fields& fields = {},
                  const std::string& parentId = "", bool active = true, int64_t openBalance = 0) {
    const ListKind* k = FindListKind(kind);
    ListRecord r;
    r.kind = kind;
    r.name = name;
    r.isActive = active;
    if (!parentId.empty()) {
      const Node& p = nodes_.at(parentId);
      r.parentListId = parentId;
      r.fullName = p.fullName + ":" + name;
      r.sublevel = p.sublevel + 1;
    } else {
      r.fullName = name;
    }
    r.listId = scope_.NewId();
    r.editSequence = scope_.NewEditSequence();
    r.timeCreated = r.timeModified = scope_.Timestamp();
    FieldMap body;
    for (const auto& [path, value] : fields)
      if (!value.empty()) body.Set(path, StoredForm(*k, path, value, buffer_));
    r.body = body.Encode();
    refs_.clear();
    CollectRefs(k->fields, body, refs_);
    store_.Insert(r, refs_);
    // Posted once the chart of accounts is complete, against its own equity account.
    if (openBalance) openingBalances_.push_back({r, openBalance});
    if (k->hierarchical) nodes_[r.listId] = {r.fullName, r.sublevel};
    ids_[std::string(kind) + "/" + r.fullName] = r.listId;
    return r.listId;
  }

  void PostOpeningBalances() {
    for (const auto& [record, amount] : openingBalances_) PostOpeningBalance(file_, store_, scope_, record, amount, "");
    openingBalances_.clear();
  }

  // The ListID of a record added before, by kind and full name.
  const std::string& Id(const std::string& kind, const std::string& fullName) const {
    return ids_.at(kind + "/" + fullName);
  }

 private:
  struct Node {
    std::string fullName;
    int sublevel;
  };
  CompanyFile& file_;
  ListStore store_;
  WriteScope& scope_;
  std::map<std::string, Node> nodes_;
  std::map<std::string, std::string> ids_;
  std::vector<std::string> refs_;
  std::string buffer_;
  std::vector<std::pair<ListRecord, int64_t>> openingBalances_;
};

std::string Amount(int64_t units) { return FormatCurrency(Currency(static_cast<int>(units)), "0.00"); }
// Whole currency units as ten-thousandths.
constexpr int64_t Units(int64_t units) { return units * Currency::kScale; }

// A small deterministic generator: the same size gives the same company.
class Dice {
 public:
  explicit Dice(uint32_t seed) : state_(seed ? seed : 1) {}
  uint32_t Next() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 17;
    state_ ^= state_ << 5;
    return state_;
  }
  int Below(int n) { return static_cast<int>(Next() % static_cast<uint32_t>(n)); }
  template <typename T, size_t N>
  const T& Pick(const T (&items)[N]) { return items[Below(static_cast<int>(N))]; }

 private:
  uint32_t state_;
};

struct Place {
  const char* city;
  const char* state;
  const char* postalCode;
};

// Invented towns; the state field holds what the edition calls a state, province or county.
const Place kUSPlaces[] = {{"Millbrook", "OR", "97401"}, {"Eastharbor", "WA", "98101"}, {"Cedar Falls", "ID", "83702"},
                           {"Pinecrest", "CA", "95814"}, {"Lakeview", "NV", "89501"}};
const Place kCAPlaces[] = {{"Millbrook", "ON", "K1A 0B1"}, {"Eastharbor", "BC", "V5K 0A1"}, {"Pinecrest", "AB", "T2P 1J9"}};
const Place kUKPlaces[] = {{"Millbrook", "Kent", "ME1 1AA"}, {"Eastharbor", "Devon", "EX1 1AA"}, {"Pinecrest", "Surrey", "GU1 1AA"}};
const Place kAUPlaces[] = {{"Millbrook", "NSW", "2000"}, {"Eastharbor", "VIC", "3000"}, {"Pinecrest", "QLD", "4000"}};

const char* kStreets[] = {"Alder", "Birch", "Copper", "Dune", "Elm", "Fern", "Granite", "Heron", "Juniper", "Kestrel"};
const char* kFirstNames[] = {"Ada", "Bram", "Cleo", "Dario", "Edda", "Finn", "Greta", "Hugo", "Ines", "Jonas",
                             "Kaia", "Lior", "Mira", "Nils", "Odile", "Pavel", "Quinn", "Rosa", "Soren", "Tova"};
const char* kLastNames[] = {"Abernath", "Brightwater", "Calloway", "Dunmore", "Eskildsen", "Fairbairn", "Galloway",
                            "Holmquist", "Ivers", "Jessup", "Kilbride", "Lindqvist", "Marchetti", "Northcott",
                            "Okonkwo", "Pellegrin", "Quartermain", "Rasmussen", "Stavros", "Thorvald"};
const char* kWords1[] = {"Amber", "Blue Heron", "Clearwater", "Driftwood", "Evergreen", "Foxglove", "Golden Oak",
                         "Highland", "Ironbridge", "Juniper", "Kingfisher", "Lantern", "Maple Row", "Northwind",
                         "Orchard", "Pebble Creek", "Quarry", "Riverbend", "Silverline", "Timberline"};
const char* kWords2[] = {"Bakery", "Builders", "Cafe", "Dental", "Designs", "Farms", "Fitness", "Gallery", "Grocers",
                         "Hardware", "Interiors", "Landscaping", "Law Office", "Motors", "Outfitters", "Printing",
                         "Properties", "Studio", "Supply", "Veterinary"};
const char* kJobs[] = {"Kitchen Remodel", "Office Fit-out", "Shop Counters", "Reception Desk", "Storage Wall",
                       "Library Shelving", "Display Cases", "Conference Room"};
const char* kPhases[] = {"Phase 1", "Phase 2", "Design", "Install"};

std::span<const Place> PlacesOf(Edition e) {
  switch (e) {
    case Edition::CA: return kCAPlaces;
    case Edition::UK: return kUKPlaces;
    case Edition::AU: return kAUPlaces;
    default: return kUSPlaces;
  }
}

void AddAddress(Fields& f, const std::string& tag, Dice& dice, Edition e) {
  std::span<const Place> places = PlacesOf(e);
  const Place& p = places[dice.Below(static_cast<int>(places.size()))];
  f.push_back({tag + "/Addr1", std::to_string(100 + dice.Below(9800)) + " " + dice.Pick(kStreets) + " Street"});
  f.push_back({tag + "/City", p.city});
  f.push_back({tag + "/State", p.state});
  f.push_back({tag + "/PostalCode", p.postalCode});
}

std::string Phone(Dice& dice) { return "555-01" + std::to_string(10 + dice.Below(89)); }

struct Accounts {
  std::string checking, ar, undeposited, inventory, ap, salesTaxPayable, sales, services, cogs, supplies, payroll,
      financeCharges, discounts, equipment;
};

Accounts AddAccounts(Builder& b) {
  Accounts a;
  auto add = [&](const char* name, const char* type, const char* number, const char* special = "",
                 const std::string& parent = "", int64_t openBalance = 0) {
    Fields f = {{"AccountType", type}, {"AccountNumber", number}, {"SpecialAccountType", special}};
    return b.Add("Account", name, f, parent, true, openBalance);
  };
  a.checking = add("Checking", "Bank", "1000", "", "", Units(25000));
  add("Savings", "Bank", "1010", "", "", Units(12000));
  a.ar = add("Accounts Receivable", "AccountsReceivable", "1200", "AccountsReceivable");
  a.undeposited = add("Undeposited Funds", "OtherCurrentAsset", "1300", "UndepositedFunds");
  a.inventory = add("Inventory Asset", "OtherCurrentAsset", "1400", "InventoryAssets");
  std::string fixed = add("Furniture and Equipment", "FixedAsset", "1500");
  a.equipment = fixed;
  add("Accumulated Depreciation", "FixedAsset", "1510", "", fixed);
  add("Security Deposits", "OtherAsset", "1800");
  a.ap = add("Accounts Payable", "AccountsPayable", "2000", "AccountsPayable");
  add("Company Card", "CreditCard", "2050");
  a.salesTaxPayable = add("Sales Tax Payable", "OtherCurrentLiability", "2200", "SalesTaxPayable");
  add("Payroll Liabilities", "OtherCurrentLiability", "2100", "PayrollLiabilities");
  add("Equipment Loan", "LongTermLiability", "2700");
  add("Opening Balance Equity", "Equity", "3000", "OpeningBalanceEquity");
  add("Owner Investment", "Equity", "3100");
  add("Retained Earnings", "Equity", "3900", "RetainedEarnings");
  a.sales = add("Sales", "Income", "4000");
  a.services = add("Services", "Income", "4100");
  add("Design Fees", "Income", "4110", "", a.services);
  a.financeCharges = add("Finance Charge Income", "Income", "4200");
  a.cogs = add("Cost of Goods Sold", "CostOfGoodsSold", "5000", "CostOfGoodsSold");
  std::string utilities = add("Utilities", "Expense", "6100");
  add("Electricity", "Expense", "6110", "", utilities);
  add("Water", "Expense", "6120", "", utilities);
  add("Rent", "Expense", "6200");
  a.supplies = add("Shop Supplies", "Expense", "6300");
  a.payroll = add("Payroll Expenses", "Expense", "6500", "PayrollExpenses");
  add("Advertising", "Expense", "6600");
  a.discounts = add("Discounts Given", "Income", "4900");
  add("Interest Income", "OtherIncome", "7000");
  add("Interest Expense", "OtherExpense", "8000");
  add("Purchase Orders", "NonPosting", "9000", "PurchaseOrders");
  add("Estimates", "NonPosting", "9100", "Estimates");
  return a;
}

std::string CustomerName(int k) {
  constexpr int n1 = static_cast<int>(std::size(kWords1)), n2 = static_cast<int>(std::size(kWords2));
  std::string name = std::string(kWords1[k % n1]) + " " + kWords2[(k / n1) % n2];
  int round = k / (n1 * n2);
  if (round > 0) name += " " + std::to_string(round + 1);
  return name;
}

void Fill(CompanyFile& file, const SampleOptions& o) {
  const bool us = o.edition == Edition::US;
  Dice dice(7);
  WriteScope scope(file);
  Builder b(file, scope);

  Accounts acc = AddAccounts(b);

  std::string net30 = b.Add("StandardTerms", "Net 30", {{"StdDueDays", "30"}});
  b.Add("StandardTerms", "Net 15", {{"StdDueDays", "15"}});
  b.Add("StandardTerms", "Due on receipt", {{"StdDueDays", "0"}});
  std::string discountTerms =
      b.Add("StandardTerms", "2% 10 Net 30", {{"StdDueDays", "30"}, {"StdDiscountDays", "10"}, {"DiscountPct", "2"}});
  b.Add("DateDrivenTerms", "15th of next month", {{"DayOfMonthDue", "15"}, {"DueNextMonthDays", "5"}});
  std::vector<std::string> terms = {net30, discountTerms};

  std::string taxable = b.Add("SalesTaxCode", "Tax", {{"IsTaxable", "true"}, {"Desc", "Taxable sales"}});
  std::string nonTaxable = b.Add("SalesTaxCode", "Non", {{"IsTaxable", "false"}, {"Desc", "Non-taxable sales"}});
  if (!us) {
    b.Add("TaxCode", "S", {{"Desc", "Standard rate"}});
    b.Add("TaxCode", "Z", {{"Desc", "Zero rated"}});
    b.Add("TaxCode", "E", {{"Desc", "Exempt"}});
  }

  for (const char* c : {"Retail", "Trade"}) b.Add("Class", c);
  std::string trade = b.Id("Class", "Trade");
  b.Add("Class", "Export", {}, trade);
  std::string commercial = b.Add("CustomerType", "Commercial");
  b.Add("CustomerType", "Government", {}, commercial);
  std::string residential = b.Add("CustomerType", "Residential");
  std::vector<std::string> customerTypes = {commercial, residential};
  std::vector<std::string> jobTypes;
  for (const char* j : {"Installation", "Repair", "Design"}) jobTypes.push_back(b.Add("JobType", j));
  for (const char* v : {"Materials", "Services", "Tax Agency"}) b.Add("VendorType", v);
  std::string courier = b.Add("ShipMethod", "Courier");
  b.Add("ShipMethod", "Freight");
  b.Add("ShipMethod", "Pickup");
  b.Add("PaymentMethod", "Cash", {{"PaymentMethodType", "Cash"}});
  b.Add("PaymentMethod", "Check", {{"PaymentMethodType", "Check"}});
  b.Add("PaymentMethod", "Card", {{"PaymentMethodType", "OtherCreditCard"}});
  b.Add("CustomerMsg", "Thank you for your business.");
  b.Add("CustomerMsg", "Please remit within the terms shown.");
  for (const auto& [name, type] : {std::pair{"Standard Invoice", "Invoice"}, {"Service Invoice", "Invoice"},
                                   {"Standard Credit Memo", "CreditMemo"}, {"Standard Estimate", "Estimate"},
                                   {"Standard Purchase Order", "PurchaseOrder"}, {"Standard Sales Order", "SalesOrder"},
                                   {"Standard Sales Receipt", "SalesReceipt"}})
    b.Add("Template", name, {{"TemplateType", type}});

  // Payroll items, wage and non-wage; the employees are paid by the wage items.
  const std::string hourly =
      b.Add("PayrollItemWage", "Hourly Wage", {{"WageType", "HourlyRegular"}, {"ExpenseAccountRef", acc.payroll}});
  const std::string salary =
      b.Add("PayrollItemWage", "Salary", {{"WageType", "SalaryRegular"}, {"ExpenseAccountRef", acc.payroll}});
  b.Add("PayrollItemWage", "Sick Pay", {{"WageType", "HourlySick"}, {"ExpenseAccountRef", acc.payroll}});
  b.Add("PayrollItemNonWage", "Health Insurance",
        {{"NonWageType", "Deduction"}, {"LiabilityAccountRef", b.Id("Account", "Payroll Liabilities")}});
  b.Add("PayrollItemNonWage", "Federal Withholding",
        {{"NonWageType", "Tax"}, {"LiabilityAccountRef", b.Id("Account", "Payroll Liabilities")}});

  // People.
  std::vector<std::string> employees;
  for (int i = 0; i < 4; ++i) {
    std::string first = kFirstNames[i * 3 % std::size(kFirstNames)], last = kLastNames[i * 7 % std::size(kLastNames)];
    Fields f = {{"FirstName", first}, {"LastName", last}, {"Phone", Phone(dice)}, {"EmployeeType", "Regular"},
                {"HiredDate", "20" + std::to_string(10 + i) + "-03-01"}, {"SSN", "000-00-000" + std::to_string(i)}};
    AddAddress(f, "EmployeeAddress", dice, o.edition);
    f.push_back({"EmployeePayrollInfo/PayPeriod", "Biweekly"});
    f.push_back({"EmployeePayrollInfo/Earnings#0/PayrollItemWageRef", i == 0 ? salary : hourly});
    f.push_back({"EmployeePayrollInfo/Earnings#0/Rate", i == 0 ? "52000" : std::to_string(22 + 2 * i)});
    employees.push_back(b.Add("Employee", first + " " + last, f));
  }
  b.Add("OtherName", "Petty Cash Holder", {{"FirstName", "Mira"}, {"LastName", "Holmquist"}});
  b.Add("OtherName", "Owner", {{"FirstName", "Nils"}, {"LastName", "Fairbairn"}});
  std::vector<std::string> reps = {b.Add("SalesRep", "AC", {{"SalesRepEntityRef", employees[0]}}),
                                   b.Add("SalesRep", "BH", {{"SalesRepEntityRef", employees[1]}})};
  b.Add("ToDo", "Order more cabinet hinges", {{"IsDone", "false"}, {"ReminderDate", "2024-06-03"}});
  b.Add("ToDo", "Call the timber supplier about the oak delivery", {{"IsDone", "true"}});

  // Vendors: a fifth of the customers, at least a handful.
  const int vendorCount = std::max(6, o.customers / 5);
  std::vector<std::string> vendors;
  std::string taxAgency = b.Add("Vendor", "State Revenue Office", {{"CompanyName", "State Revenue Office"}});
  for (int i = 0; i < vendorCount; ++i) {
    std::string name = std::string(kWords1[(i * 7 + 3) % std::size(kWords1)]) + " " +
                       kWords2[(i * 3 + 11) % std::size(kWords2)] + " Wholesale" +
                       (i >= 20 ? " " + std::to_string(i / 20 + 1) : "");
    Fields f = {{"CompanyName", name}, {"Phone", Phone(dice)}, {"TermsRef", net30},
                {"AccountNumber", "C-" + std::to_string(4000 + i)}, {"NameOnCheck", name}};
    AddAddress(f, "VendorAddress", dice, o.edition);
    vendors.push_back(b.Add("Vendor", name, f, "", i % 17 != 5, i % 4 == 0 ? Units(50 + dice.Below(5000)) : 0));
  }

  // Items of every kind.
  // Every item sold carries a tax code, as QuickBooks gives each one: labour and charges are
  // not taxed, goods are.
  auto salesOrPurchase = [&](const char* desc, const char* price, const std::string& account,
                             const std::string& taxCode) {
    return Fields{{"SalesTaxCodeRef", taxCode}, {"SalesOrPurchase/Desc", desc}, {"SalesOrPurchase/Price", price},
                  {"SalesOrPurchase/AccountRef", account}};
  };
  std::string labor = b.Add("ItemService", "Labor", salesOrPurchase("Shop labor, per hour", "65", acc.services, nonTaxable));
  b.Add("ItemService", "Installation", salesOrPurchase("On-site installation, per hour", "80", acc.services, nonTaxable), labor);
  b.Add("ItemService", "Design", salesOrPurchase("Design consultation, per hour", "95", acc.services, nonTaxable));
  Fields hardware = {{"SalesTaxCodeRef", taxable},          {"SalesAndPurchase/SalesDesc", "Cabinet hardware set"},
                     {"SalesAndPurchase/SalesPrice", "24"}, {"SalesAndPurchase/IncomeAccountRef", acc.sales},
                     {"SalesAndPurchase/PurchaseDesc", "Hardware set"}, {"SalesAndPurchase/PurchaseCost", "11.5"},
                     {"SalesAndPurchase/ExpenseAccountRef", acc.cogs}, {"SalesAndPurchase/PrefVendorRef", vendors[0]}};
  std::string hardwareId = b.Add("ItemNonInventory", "Hardware", hardware);
  b.Add("ItemNonInventory", "Finishing Oil", salesOrPurchase("Finishing oil, one litre", "18", acc.sales, taxable));
  b.Add("ItemNonInventory", "Hinges", salesOrPurchase("Soft-close hinges, pair", "7.5", acc.sales, taxable), hardwareId);
  std::string delivery = b.Add("ItemOtherCharge", "Delivery", salesOrPurchase("Delivery charge", "45", acc.sales, nonTaxable));
  b.Add("ItemOtherCharge", "Restocking Fee",
        {{"SalesTaxCodeRef", nonTaxable}, {"SalesOrPurchase/Desc", "Restocking fee"}, {"SalesOrPurchase/PricePercent", "15"},
         {"SalesOrPurchase/AccountRef", acc.sales}});
  std::vector<std::string> parts;
  for (const auto& [name, price, cost] : {std::tuple{"Oak Panel", "42", "21"}, {"Maple Panel", "38", "19"},
                                          {"Walnut Panel", "64", "33"}, {"Drawer Slide", "12", "5.25"}}) {
    Fields f = {{"SalesTaxCodeRef", taxable}, {"SalesDesc", name}, {"SalesPrice", price},
                {"IncomeAccountRef", acc.sales}, {"PurchaseDesc", name}, {"PurchaseCost", cost},
                {"COGSAccountRef", acc.cogs}, {"PrefVendorRef", vendors[1]}, {"AssetAccountRef", acc.inventory},
                {"ReorderPoint", "10"}, {"QuantityOnHand", std::to_string(20 + dice.Below(200))}};
    parts.push_back(b.Add("ItemInventory", name, f));
  }
  b.Add("ItemInventoryAssembly", "Base Cabinet",
        {{"SalesTaxCodeRef", taxable}, {"SalesDesc", "Assembled base cabinet"}, {"SalesPrice", "420"},
         {"IncomeAccountRef", acc.sales},
         {"COGSAccountRef", acc.cogs}, {"AssetAccountRef", acc.inventory}, {"BuildPoint", "2"},
         {"QuantityOnHand", "4"}, {"ItemInventoryAssemblyLine#0/ItemInventoryRef", parts[0]},
         {"ItemInventoryAssemblyLine#0/Quantity", "4"}, {"ItemInventoryAssemblyLine#1/ItemInventoryRef", parts[3]},
         {"ItemInventoryAssemblyLine#1/Quantity", "2"}});
  b.Add("ItemGroup", "Install Kit",
        {{"ItemDesc", "Hardware and delivery"}, {"IsPrintItemsInGroup", "true"}, {"ItemGroupLine#0/ItemRef", hardwareId},
         {"ItemGroupLine#0/Quantity", "2"}, {"ItemGroupLine#1/ItemRef", delivery}, {"ItemGroupLine#1/Quantity", "1"}});
  b.Add("ItemSubtotal", "Subtotal", {{"ItemDesc", "Subtotal"}});
  b.Add("ItemDiscount", "Trade Discount",
        {{"ItemDesc", "Trade discount"}, {"SalesTaxCodeRef", taxable}, {"DiscountRatePercent", "10"},
         {"AccountRef", acc.discounts}});
  b.Add("ItemPayment", "Deposit Received",
        {{"ItemDesc", "Deposit"}, {"DepositToAccountRef", acc.undeposited}});
  b.Add("ItemFixedAsset", "Panel Saw",
        {{"AcquiredAs", "New"}, {"PurchaseDesc", "Sliding panel saw"}, {"PurchaseDate", "2019-04-15"},
         {"PurchaseCost", "8900"}, {"AssetAccountRef", acc.equipment}});
  std::string stateTax = b.Add("ItemSalesTax", "State Tax",
                               {{"ItemDesc", "State sales tax"}, {"TaxRate", "6.25"}, {"TaxVendorRef", taxAgency}});
  std::string cityTax = b.Add("ItemSalesTax", "City Tax",
                              {{"ItemDesc", "City sales tax"}, {"TaxRate", "1.5"}, {"TaxVendorRef", taxAgency}});
  std::string combined = b.Add("ItemSalesTaxGroup", "Combined Tax",
                               {{"ItemDesc", "State and city tax"}, {"ItemSalesTaxRef#0", stateTax},
                                {"ItemSalesTaxRef#1", cityTax}});

  // Customers, with jobs and phases below them, up to the size asked for.
  int made = 0;
  auto customer = [&](const std::string& name, const std::string& parent, bool job) {
    Fields f;
    if (!job) {
      f = {{"CompanyName", name},
           {"FirstName", dice.Pick(kFirstNames)},
           {"LastName", dice.Pick(kLastNames)},
           {"Phone", Phone(dice)},
           {"Email", "accounts@example.com"},
           {"CustomerTypeRef", customerTypes[dice.Below(2)]},
           {"TermsRef", terms[dice.Below(2)]},
           {"SalesRepRef", reps[dice.Below(2)]},
           {"AccountNumber", "A-" + std::to_string(10000 + made)}};
      AddAddress(f, "BillAddress", dice, o.edition);
      if (us) {
        f.push_back({"SalesTaxCodeRef", dice.Below(5) ? taxable : nonTaxable});
        f.push_back({"ItemSalesTaxRef", combined});
      }
      f.push_back({"CreditLimit", Amount(5000 + dice.Below(20) * 1000)});
    } else {
      f = {{"JobStatus", dice.Pick({"Awarded", "InProgress", "Closed", "Pending"})},
           {"JobDesc", name},
           {"JobTypeRef", jobTypes[dice.Below(3)]},
           {"JobStartDate", "2024-0" + std::to_string(1 + dice.Below(9)) + "-1" + std::to_string(dice.Below(10))}};
    }
    int64_t balance = dice.Below(3) == 0 ? Units(100 + dice.Below(9000)) : 0;
    ++made;
    return b.Add("Customer", name, f, parent, dice.Below(20) != 0, balance);
  };
  for (int k = 0; made < o.customers; ++k) {
    std::string top = customer(CustomerName(k), "", false);
    if (made >= o.customers) break;
    std::string job = customer(kJobs[k % std::size(kJobs)], top, true);
    if (made < o.customers && k % 4 == 0) customer(kPhases[k % std::size(kPhases)], job, true);
    if (made < o.customers && k % 2 == 0) customer(kJobs[(k + 3) % std::size(kJobs)], top, true);
  }

  // The company record and the preferences.
  FieldMap company;
  Fields c = {{"IsSampleCompany", "true"},
              {"CompanyName", "Larkspur Cabinetry"},
              {"LegalCompanyName", "Larkspur Cabinetry and Millwork"},
              {"Phone", "555-0142"},
              {"Fax", "555-0143"},
              {"Email", "office@larkspur.example"},
              {"CompanyEmailForCustomer", "billing@larkspur.example"},
              {"CompanyWebSite", "www.larkspur.example"},
              {"FirstMonthFiscalYear", "January"},
              {"FirstMonthIncomeTaxYear", "January"},
              {"CompanyType", "Manufacturing"},
              {"EIN", "12-3456789"},
              {"TaxForm", "Form1120S"}};
  AddAddress(c, "Address", dice, o.edition);
  AddAddress(c, "LegalAddress", dice, o.edition);
  AddAddress(c, "CompanyAddressForCustomer", dice, o.edition);
  for (const auto& [p, v] : c) company.Set(p, v);
  file.SetMeta(meta::kCompany, company.Encode());

  FieldMap prefs;
  Fields p = {{"AccountingPreferences/IsUsingAccountNumbers", "true"},
              {"AccountingPreferences/IsRequiringAccounts", "true"},
              {"AccountingPreferences/IsUsingClassTracking", "true"},
              {"AccountingPreferences/IsUsingAuditTrail", "true"},
              {"AccountingPreferences/IsAssigningJournalEntryNumbers", "true"},
              {"FinanceChargePreferences/AnnualInterestRate", "18"},
              {"FinanceChargePreferences/MinFinanceCharge", "5.00"},
              {"FinanceChargePreferences/GracePeriod", "10"},
              {"FinanceChargePreferences/FinanceChargeAccountRef", acc.financeCharges},
              {"FinanceChargePreferences/IsAssessingForOverdueCharges", "false"},
              {"FinanceChargePreferences/CalculateChargesFrom", "DueDate"},
              {"FinanceChargePreferences/IsMarkedToBePrinted", "false"},
              {"JobsAndEstimatesPreferences/IsUsingEstimates", "true"},
              {"JobsAndEstimatesPreferences/IsUsingProgressInvoicing", "false"},
              {"JobsAndEstimatesPreferences/IsPrintingItemsWithZeroAmounts", "false"},
              {"PurchasesAndVendorsPreferences/IsUsingInventory", "true"},
              {"PurchasesAndVendorsPreferences/DaysBillsAreDue", "10"},
              {"PurchasesAndVendorsPreferences/IsAutomaticallyUsingDiscounts", "false"},
              {"PurchasesAndVendorsPreferences/DefaultDiscountAccountRef", acc.discounts},
              {"ReportsPreferences/AgingReportBasis", "AgeFromDueDate"},
              {"ReportsPreferences/SummaryReportBasis", "Accrual"},
              {"SalesAndCustomersPreferences/DefaultShipMethodRef", courier},
              {"SalesAndCustomersPreferences/DefaultFOB", "Origin"},
              {"SalesAndCustomersPreferences/DefaultMarkup", "25"},
              {"SalesAndCustomersPreferences/IsTrackingReimbursedExpensesAsIncome", "false"},
              {"SalesAndCustomersPreferences/IsAutoApplyingPayments", "true"},
              {"TimeTrackingPreferences/FirstDayOfWeek", "Monday"}};
  if (us && o.defaultSalesTaxItem) {
    p.push_back({"SalesTaxPreferences/DefaultItemSalesTaxRef", combined});
    p.push_back({"SalesTaxPreferences/PaySalesTax", "Monthly"});
    p.push_back({"SalesTaxPreferences/DefaultTaxableSalesTaxCodeRef", taxable});
    p.push_back({"SalesTaxPreferences/DefaultNonTaxableSalesTaxCodeRef", nonTaxable});
  }
  for (const auto& [path, v] : p) prefs.Set(path, v);
  file.SetMeta(meta::kPreferences, prefs.Encode());
  b.PostOpeningBalances();
  AddSampleInvoices(file, scope, o.edition, o.newestVersion, o.invoices < 0 ? o.customers / 2 : o.invoices);
  AddSampleSalesDocuments(file, scope, o.edition, o.newestVersion,
                          o.salesDocuments < 0 ? o.customers / 20 : o.salesDocuments);
  scope.Commit();
}

}  // namespace

void CreateSampleCompany(const std::string& path, const SampleOptions& options) {
  CompanySetup setup;
  setup.edition = options.edition;
  setup.newestVersion = options.newestVersion;
  auto file = CompanyFile::Create(path, setup);
  // One big transaction goes faster straight into the file than through the write-ahead
  // log, and unsynced: nobody else can have the new file open yet, and a file that is not
  // complete is of no use anyway. The switch back to the log syncs it once.
  SqlDatabase& db = file->Db();
  db.Exec("PRAGMA journal_mode=DELETE");
  db.Exec("PRAGMA synchronous=OFF");
  db.Exec("PRAGMA cache_size=-65536");
  Fill(*file, options);
  db.Exec("PRAGMA cache_size=-2000");
  db.Exec("PRAGMA synchronous=FULL");
  db.Exec("PRAGMA journal_mode=WAL");
}

std::string AddDuplicateCustomerForTesting(const std::string& path, const std::string& fullName) {
  auto file = CompanyFile::Open(path);
  WriteScope scope(*file);
  ListStore store(*file);
  std::vector<std::string> kinds = {"Customer"};
  auto existing = store.ByFullName(std::span<const std::string>(kinds), fullName);
  if (existing.empty()) throw Error(processor_error::kDatabase, kSource, "No customer " + fullName + " to copy.");
  ListRecord copy = existing.front();
  copy.listId = scope.NewId();
  copy.editSequence = scope.NewEditSequence();
  copy.balance = copy.totalBalance = 0;
  store.Insert(copy, {});
  scope.Commit();
  return copy.listId;
}

}  // namespace tessaron::qbsim
