#include "qbsim/strict_mode.h"

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <sstream>
#include <string_view>
#include <vector>

#include "qbsim/schema_validator.h"

namespace tessaron::qbsim {
namespace {

using Node = pugi::xml_node;

std::vector<Node> Elements(Node parent, std::string_view name) {
  std::vector<Node> out;
  for (Node c = parent.first_child(); c; c = c.next_sibling())
    if (c.type() == pugi::node_element && name == c.name()) out.push_back(c);
  return out;
}

// Every element below `root` in document order. A loop, not a recursion: a message can be
// nested deeper than the stack is high, and must then be refused, not crash the process.
// `fn` may rename an element but not remove one.
void ForEachDescendant(Node root, const std::function<void(Node)>& fn) {
  Node n = root.first_child();
  while (n) {
    if (n.type() == pugi::node_element) {
      fn(n);
      if (Node child = n.first_child()) {
        n = child;
        continue;
      }
    }
    while (n != root && !n.next_sibling()) n = n.parent();
    if (n == root) return;
    n = n.next_sibling();
  }
}

// Deviations of the library's requests that the schema refuses but QuickBooks' own
// editions or the library's design make necessary. Each one is undone on a copy of the
// message before validation; the message itself is answered as it came.
struct Tolerance {
  const char* reason;
  void (*apply)(Node requests);
};

const Tolerance kTolerances[] = {
    {"TaxCodes.GetAll sends TaxCodeQueryRq, a request of the non-US editions that the US schema lacks.",
     [](Node rqs) {
       for (Node rq : Elements(rqs, "TaxCodeQueryRq")) rqs.remove_child(rq);
     }},
    {"The editions outside the US name the state of an address Province or County.",
     [](Node rqs) {
       ForEachDescendant(rqs, [](Node n) {
         std::string_view name = n.name();
         if (name == "Province" || name == "County") n.set_name("State");
       });
     }},
    {"Delete requests may carry the type as its description with blanks (\"Item Service\").",
     [](Node rqs) {
       for (const char* del : {"ListDelRq", "TxnDelRq", "TxnVoidRq"})
         for (Node rq : Elements(rqs, del))
           for (Node type = rq.first_child(); type; type = type.next_sibling()) {
             std::string_view n = type.name();
             if (n != "ListDelType" && n != "TxnDelType" && n != "TxnVoidType") continue;
             std::string text;
             for (char c : std::string_view(type.text().get()))
               if (c != ' ') text += c;
             type.text().set(text.c_str());
           }
     }},
    {"XMLQuerySingleExecute writes MaxReturned before the ListID or FullName key.",
     [](Node rqs) {
       for (Node rq = rqs.first_child(); rq; rq = rq.next_sibling())
         if (rq.child("MaxReturned") && (rq.child("ListID") || rq.child("FullName") || rq.child("TxnID")))
           rq.remove_child("MaxReturned");
     }},
    {"Entities asks for custom fields with OwnerID, which EntityQueryRq does not take.",
     [](Node rqs) {
       for (Node rq : Elements(rqs, "EntityQueryRq"))
         while (rq.child("OwnerID")) rq.remove_child("OwnerID");
     }},
    {"ToDoList.GetByFullName queries by FullName, which ToDoQueryRq does not take.",
     [](Node rqs) {
       for (Node rq : Elements(rqs, "ToDoQueryRq"))
         while (rq.child("FullName")) rq.remove_child("FullName");
     }},
    {"An OtherName add carries Suffix, Mobile and Pager as a vendor's does.",
     [](Node rqs) {
       for (Node rq : Elements(rqs, "OtherNameAddRq"))
         for (Node add : Elements(rq, "OtherNameAdd"))
           for (const char* tag : {"Suffix", "Mobile", "Pager"}) add.remove_child(tag);
     }},
    {"Showing the add form of a bill payment names the type BillPaymentCheck, which only the modify form takes.",
     [](Node rqs) {
       for (Node rq : Elements(rqs, "TxnDisplayAddRq"))
         for (Node type : Elements(rq, "TxnDisplayAddType"))
           if (std::string_view(type.text().get()) == "BillPaymentCheck") type.text().set("Check");
     }},
    {"Report requests name the columns to return ReturnCols; the schema calls the element ReturnColumns.",
     [](Node rqs) {
       for (Node rq = rqs.first_child(); rq; rq = rq.next_sibling())
         for (Node cols : Elements(rq, "ReturnCols")) cols.set_name("ReturnColumns");
     }},
    {"Job and time report requests carry the ReportBasis the application set; the report refuses it (3151) "
     "and the library asks once more without it.",
     [](Node rqs) {
       for (const char* kind : {"JobReportQueryRq", "TimeReportQueryRq"})
         for (Node rq : Elements(rqs, kind)) rq.remove_child("ReportBasis");
     }},
    {"Clearing a data extension value names the application's GUID as owner, which is empty when no GUID is "
     "registered; the delete is then taken as one of a custom field.",
     [](Node rqs) {
       for (Node rq : Elements(rqs, "DataExtDelRq"))
         for (Node del : Elements(rq, "DataExtDel"))
           if (Node owner = del.child("OwnerID"); owner && std::string_view(owner.text().get()).empty())
             owner.text().set("0");
     }},
    {"A vendor add writes Notes before AccountNumber.",
     [](Node rqs) {
       for (Node rq : Elements(rqs, "VendorAddRq"))
         for (Node add : Elements(rq, "VendorAdd")) {
           Node notes = add.child("Notes"), account = add.child("AccountNumber");
           if (notes && account) add.insert_move_after(notes, account);
         }
     }},
};

// Compiling the schema takes far longer than checking a message: each folder's schema is
// compiled once per process and kept.
SchemaValidator& ValidatorFor(const std::string& dir) {
  if (dir.empty() || dir == SchemaValidator::DefaultSchemaDir()) return SchemaValidator::Default();
  static std::mutex mutex;
  static std::map<std::string, std::unique_ptr<SchemaValidator>> validators;
  std::lock_guard lock(mutex);
  auto& v = validators[dir];
  if (!v) v = std::make_unique<SchemaValidator>(dir);
  return *v;
}

}  // namespace

std::string SchemaProblem(const pugi::xml_document& message, const std::string& schemaDir) {
  pugi::xml_document copy;
  copy.reset(message);
  Node root = copy.document_element();
  for (Node set = root.first_child(); set; set = set.next_sibling())
    for (const Tolerance& t : kTolerances) t.apply(set);
  std::ostringstream text;
  copy.save(text, "", pugi::format_raw | pugi::format_no_declaration);
  return ValidatorFor(schemaDir).Validate(text.str());
}

}  // namespace tessaron::qbsim
