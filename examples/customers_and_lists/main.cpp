// Keeps a class, a payment term and a customer with a job in a company file, through the
// global object: create, commit, read back, change, delete. Runs on a sample company
// file of the embedded processor, so it needs no accounting program.
//
//   customers_and_lists [COMPANY_FILE]
#include <cstdio>
#include <iostream>
#include <string>

#include <qbsim/qbsim.h>
#include <tessaron/tessaron.h>

using namespace tessaron;

int main(int argc, char** argv) {
  std::string file = argc > 1 ? argv[1] : "customers-and-lists.qbw";
  std::remove(file.c_str());
  qbsim::CreateSampleCompany(file);
  qbsim::RegisterProcessor();

  try {
    TessaronGlobals::QBConnect("", "Customers and lists example", qbFileOpenSingleUser, file);
    std::cout << "company: " << TessaronGlobals::Company()->Name() << "\n";

    // A class under an existing one, and a payment term.
    auto classes = TessaronGlobals::Classes();
    classes->GetAll();
    auto parent = classes->Item(Variant(1));
    classes->Add("Example", true, parent->FullName());
    auto terms = TessaronGlobals::Terms();
    terms->AddStandard("Net 45 Example", true, 45);
    if (classes->Commit() != 0 || terms->Commit() != 0) {
      std::cerr << "commit failed: " << classes->Errors()->Count() + terms->Errors()->Count() << " errors\n";
      return 1;
    }
    auto added = classes->GetByFullName(parent->FullName() + ":Example");
    std::cout << "class: " << added->FullName() << ", sublevel " << added->Sublevel() << "\n";

    // A customer on that term, with a job.
    auto customers = TessaronGlobals::Customers();
    auto customer = customers->Add("Example Customer");
    customer->SetTerms("Net 45 Example");
    customer->SetPhone("555-0100");
    customer->BillTo()->SetLine1("1 Example Road");
    customer->BillTo()->SetCity("Millbrook");
    customers->Add("First Job", "Example Customer");
    if (customers->Commit() != 0) {
      std::cerr << "customer commit failed\n";
      return 1;
    }

    // Read it back as another application would, then change it.
    customers->GetByNameMatch("Example Customer", qbMatchStartsWith);
    auto read = customers->Item(Variant("Example Customer"));
    std::cout << "customer: " << read->FullName() << ", terms " << read->Terms() << ", "
              << read->BillTo()->Line1() << ", " << read->BillTo()->City() << "\n";
    std::cout << "job: " << customers->Item(Variant("Example Customer:First Job"))->FullName() << "\n";
    read->SetPhone("555-0199");
    customers->Commit();
    std::cout << "phone now: " << customers->GetByFullName("Example Customer")->Phone() << "\n";

    // Lists can be deleted while nothing refers to them.
    classes->Delete(added->ListID());
    std::cout << "class deleted: " << (classes->GetByFullName(parent->FullName() + ":Example") ? "no" : "yes") << "\n";

    TessaronGlobals::QBConnection()->CloseConnection();
  } catch (const Error& e) {
    std::cerr << "error " << std::hex << static_cast<uint32_t>(e.Number()) << " from " << e.Source() << ": "
              << e.Description() << "\n";
    return 1;
  }
  return 0;
}
