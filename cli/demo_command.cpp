// tessaron demo [--company FILE]
#include <filesystem>
#include <fstream>
#include <iostream>
#include <vector>

#include <pugixml.hpp>
#include <unistd.h>

#include "cli/commands.h"
#include "cli/session.h"
#include "cli/company_view.h"
#include "cli/txn_view.h"
#include "cli/report_render.h"
#include "qbsim/qbsim.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/company/company.h"
#include "tessaron/connection/tessaron_globals.h"
#include "tessaron/dataext/data_extension_definitions.h"
#include "tessaron/dataext/data_extensions.h"
#include "tessaron/events/qb_event.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/lists/account.h"
#include "tessaron/lists/customers.h"
#include "tessaron/lists/items.h"
#include "tessaron/reports/report.h"
#include "tessaron/platform/text.h"
#include "tessaron/transactions/invoices.h"
#include "tessaron/transactions/receive_payments.h"
#include "tessaron/transactions/txn_applied_to.h"
#include "tessaron/transactions/txn_item_lines.h"
#include "tessaron/version.h"

namespace tessaron::cli {
namespace {

// Without a company file the demo makes a small sample of its own and removes it after.
class Scratch {
 public:
  Scratch() {
    path_ = (std::filesystem::temp_directory_path() / ("tessaron-demo-" + std::to_string(getpid()) + ".qbw")).string();
    qbsim::CreateSampleCompany(path_);
  }
  ~Scratch() {
    std::error_code ec;
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(path_ + suffix, ec);
  }
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

void ShowConnection(QBConnection& qb) {
  std::cout << "Connected to " << qb.CompanyPath() << "\n"
            << "  host        " << qb.ProductName() << " " << qb.QBMajorVersion() << "." << qb.QBMinorVersion()
            << ", edition " << qb.Country().ToString() << (qb.IsUSProduct() ? "" : " (outside the US)") << "\n"
            << "  qbXML       " << qb.qbXMLVersion() << ", file mode " << qb.QBFileMode().ToString() << "\n";
}

void ShowCustomerTree(Customers& customers) {
  customers.GetAll();
  std::cout << "\nCustomers and jobs (" << customers.Count() << "):\n";
  for (const auto& c : customers) {
    std::string name(2 + 2 * static_cast<size_t>(c->Sublevel()), ' ');
    name += c->Name();
    if (name.size() < 44) name.resize(44, ' ');
    std::cout << name << "  balance " << AmountToDisplayText(c->TotalBalance()) << (c->IsActive() ? "" : "  (inactive)") << "\n";
  }
}

// Pads to a column width counted in characters as a person sees them.
std::string Column(std::string text, size_t width) {
  const size_t shown = Utf16Length(text);
  if (shown < width) text.append(width - shown, ' ');
  return text;
}

void ShowChartOfAccounts(Accounts& accounts) {
  accounts.GetAll();
  std::cout << "\nChart of accounts (" << accounts.Count() << "), balances with their sub-accounts:\n";
  for (const auto& a : accounts) {
    std::string name(2 + 2 * static_cast<size_t>(a->Sublevel()), ' ');
    name += a->NameWithNumber();
    std::cout << Column(name, 40) << "  " << Column(EnumCodeToXML(a->AccountType(), qoeAccountType), 22) << "  "
              << AmountToDisplayText(a->RollUpBalances()) << "\n";
  }
}

void ShowItems(Items& items) {
  items.GetAll();
  std::cout << "\nItems (" << items.Count() << "):\n";
  for (const auto& i : items) {
    std::string name(2 + 2 * static_cast<size_t>(i->Sublevel()), ' ');
    name += i->Name();
    std::string price;
    if (i->SalesCost() != Currency())
      price = i->SalesCostIsPercent() ? FormatCurrency(i->SalesCost(), "0.00") + "%" : AmountToDisplayText(i->SalesCost());
    std::cout << Column(name, 28) << "  " << Column(i->ClassInfo().className, 20) << "  "
              << Column(i->SalesDescription(), 32) << "  " << price << "\n";
  }
}

// A name not yet on file, so that the demo can run again on the same company file.
std::string FreeName(Customers& customers) {
  std::string name = "Tessaron Demo Customer";
  for (int n = 2; customers.ItemExists(Variant(name)); ++n) name = "Tessaron Demo Customer " + std::to_string(n);
  return name;
}

std::string AddAndReadBack(Customers& customers) {
  const std::string name = FreeName(customers);
  auto c = customers.Add(name);
  c->SetCompanyName(name);
  c->SetPhone("555-0199");
  c->BillTo()->SetLine1("1 Demo Way");
  c->BillTo()->SetCity("Millbrook");
  customers.Add("First Job", name)->SetJobDescription("The first job of the demo customer");
  std::cout << "\nAdding \"" << name << "\" with a job, and committing: ";
  customers.Commit();
  std::cout << (c->ObjectState() == qoObjectStateClean ? "accepted" : "refused") << ", ListID " << c->ListID() << "\n";

  Customers mine;  // a collection of the application's own, filled from the company file
  auto back = mine.GetByFullName(name);
  if (!back) throw Error(0x80040407u, "tessaron demo", "The new customer could not be read back.");
  std::cout << "Read back: " << back->FullName() << ", " << back->Phone() << ", " << AddressText(*back->BillTo())
            << ", EditSequence " << back->EditSequence() << "\n";
  auto job = mine.GetByFullName(name + ":First Job");
  if (job) std::cout << "           " << job->FullName() << ": " << job->JobDescription() << "\n";
  return name;
}

// Stops the demo with QuickBooks' reason when it refused the document.
void RequireAccepted(TxnObject& txn, const std::string& what) {
  if (txn.ObjectState() == qoObjectStateClean) return;
  auto errors = txn.Errors();
  throw Error(0x80040407u, "tessaron demo",
              "The " + what + " was refused: " + (errors->Count() ? errors->Item(1)->Description() : std::string("?")));
}

// An invoice with a subtotal, a percentage discount after it and sales tax on the taxable
// lines: the library works the figures out as the lines are added, the company file works
// them out again from the request, and the two agree.
std::shared_ptr<Invoice> AddInvoice(const std::string& customer) {
  auto invoices = TessaronGlobals::Invoices();
  auto inv = invoices->Add(customer);
  inv->SetSalesTaxCode("Tax");
  inv->SetSalesTaxItem("Combined Tax");
  inv->SetMemo("Made by tessaron demo");
  auto lines = inv->ItemLines();
  lines->Add("Design", Currency(3));
  lines->Add("Oak Panel", Currency(4));
  lines->Add("Subtotal");
  lines->Add("Trade Discount");
  std::cout << "\nAn invoice for \"" << customer << "\" with a discount and tax; the library's figures: subtotal "
            << AmountToDisplayText(inv->Subtotal()) << ", tax " << AmountToDisplayText(inv->SalesTaxTotal())
            << ". Committing: ";
  invoices->Commit(inv);
  RequireAccepted(*inv, "invoice");
  std::cout << "accepted as number " << inv->RefNumber() << ", TxnID " << inv->TxnId() << "\n\n";
  PrintInvoice(*inv, std::cout);
  return inv;
}

// The customer pays the whole invoice; read again, the invoice shows itself paid.
void ReceivePaymentFor(const Invoice& inv) {
  auto payments = TessaronGlobals::ReceivePayments();
  auto payment = payments->Add(inv.Customer(), inv.BalanceRemaining());
  payment->SetMemo("Received by tessaron demo");
  payment->AppliedToTxns()->Add(inv.TxnId(), inv.BalanceRemaining());
  std::cout << "\nA payment of " << AmountToDisplayText(payment->Total()) << " for invoice " << inv.RefNumber()
            << ". Committing: ";
  payments->Commit(payment);
  RequireAccepted(*payment, "payment");
  std::cout << "accepted, TxnID " << payment->TxnId() << "\n";
  Invoices fresh;
  auto paid = fresh.GetByTxnID(inv.TxnId(), false);
  if (!paid) return;
  std::cout << "Invoice " << paid->RefNumber() << " read again: paid " << (paid->IsPaid() ? "yes" : "no")
            << ", balance " << AmountToDisplayText(paid->BalanceRemaining()) << "\n\n";
}

// A custom field on customers, set on the demo customer, and the data event the change
// produces. The demo subscribes like an application that wants to hear of changed
// customers; the embedded processor calls its handler as QuickBooks would call the
// application's callback object.
void SetCustomFieldAndShowEvent(const std::string& customer) {
  const std::string subscriber = "{7A3D5E21-0B4C-4F6E-8D9A-2C1B0E3F4A5D}";
  auto host = qbsim::CreateProcessor();
  host->OpenConnection("", "tessaron demo");
  host->ProcessSubscription(
      "<?xml version=\"1.0\"?><?qbxml version=\"8.0\"?><QBXML><QBXMLSubscriptionMsgsRq>"
      "<DataEventSubscriptionAddRq><DataEventSubscriptionAdd><SubscriberID>" + subscriber + "</SubscriberID>"
      "<COMCallbackInfo><AppName>tessaron demo</AppName><ProgID>Tessaron.Demo</ProgID></COMCallbackInfo>"
      "<DeliveryPolicy>DeliverOnlyIfRunning</DeliveryPolicy><ListEventSubscription>"
      "<ListEventType>Customer</ListEventType><ListEventOperation>Modify</ListEventOperation>"
      "</ListEventSubscription></DataEventSubscriptionAdd></DataEventSubscriptionAddRq>"
      "</QBXMLSubscriptionMsgsRq></QBXML>");
  std::vector<std::string> received;
  qbsim::SetEventHandler([&received](const std::string&, const std::string& xml) { received.push_back(xml); });

  const std::string field = "Loyalty Tier";
  auto definitions = TessaronGlobals::Company()->CustomFields();
  if (!definitions->ItemExists(Variant(field))) {
    definitions->Add(field, qbDataExtTypeSTR255TYPE)->AssignedTos().Add(qoObjectTypeCustomer);
    definitions->Commit();
  }
  auto customers = TessaronGlobals::Customers();
  auto c = customers->Item(Variant(customer));
  c->CustomFields()->Item(Variant(field))->SetValue(Variant("Gold"));
  customers->Commit();
  std::cout << "\nCustom field \"" << field << "\" on customers, set to \""
            << c->CustomFields()->Item(Variant(field))->Value().ToString() << "\" on \"" << customer << "\".\n";
  qbsim::SetEventHandler(nullptr);

  for (const std::string& xml : received) {
    qbEvent e;
    e.ParseXML(xml);
    pugi::xml_document doc;
    doc.load_string(xml.c_str());
    const pugi::xml_node list = doc.first_element_by_path("QBXML/QBXMLEvents/DataEvent/ListEvent");
    std::cout << "The subscription received a data event: " << list.child_value("ListEventType") << " "
              << list.child_value("ListEventOperation") << ", ListID " << list.child_value("ListID") << ", from "
              << e.ProductName << " " << e.MajorVersion << "." << e.MinorVersion << " on " << e.CompanyPath << "\n";
  }
  if (received.empty()) std::cout << "No data event arrived.\n";
}

// Two reports the company file works out from its postings: last quarter's Profit and Loss
// on the terminal, and the Balance Sheet as a page written beside the company file.
void ShowReports(const std::string& companyPath) {
  Report profit;
  profit.SetBaseReport(qbRptProfitAndLossStandard);
  profit.SetDateMacro(qbRptDateMacroLastQuarter);
  profit.Refresh();
  std::cout << "\n";
  WriteTable(ViewOf(profit, false), std::cout);

  Report sheet;
  sheet.SetBaseReport(qbRptBalanceSheetStandard);
  sheet.SetDateMacro(qbRptDateMacroToday);
  sheet.Refresh();
  const std::filesystem::path page = std::filesystem::path(companyPath).parent_path() / "balance-sheet.html";
  std::ofstream file(page, std::ios::binary | std::ios::trunc);
  WriteHtml(ViewOf(sheet, false), file);
  std::cout << "\nThe Balance Sheet as a page: " << page.string() << "\n";
}

}  // namespace

void AddDemoCommand(CLI::App& app, const GlobalOptions& global) {
  CLI::App* demo = app.add_subcommand("demo", "Connect to a company file and show what the library reads");
  auto file = std::make_shared<std::string>();
  demo->add_option("--company", *file, "The company file (default: a new sample, removed afterwards)");
  demo->callback([file, &global] {
    std::cout << "Tessaron " << TESSARON_VERSION_TEXT << "\n";
    std::unique_ptr<Scratch> scratch;
    if (file->empty()) scratch = std::make_unique<Scratch>();
    std::error_code ec;
    const std::string path = std::filesystem::absolute(scratch ? scratch->Path() : *file, ec).string();

    // An application connects through the global object and reads everything from there.
    RegisterEmbeddedProcessor(global);
    auto qb = TessaronGlobals::QBConnection();
    if (!global.transcript.empty()) qb->SetDebugLogPath(global.transcript);
    TessaronGlobals::QBConnect("", "tessaron demo", qbFileOpenDoNotCare, path);
    ShowConnection(*qb);
    std::cout << "\nCompany\n";
    PrintCompany(*TessaronGlobals::Company(), std::cout);
    ShowChartOfAccounts(*TessaronGlobals::Accounts());
    ShowItems(*TessaronGlobals::Items());
    auto customers = TessaronGlobals::Customers();
    ShowCustomerTree(*customers);
    const std::string demoCustomer = AddAndReadBack(*customers);
    SetCustomFieldAndShowEvent(demoCustomer);
    ReceivePaymentFor(*AddInvoice(demoCustomer));
    ShowReports(path);
    qb->CloseConnection();
    State().GlobalConnection.reset();
    std::cout << "Connection closed.\n";
  });
}

}  // namespace tessaron::cli
