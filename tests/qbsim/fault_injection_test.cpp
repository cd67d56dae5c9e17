// A disk that fails: for each modifying request and for every N, the Nth read, write, sync
// or lock of the company file fails. The request must then be carried out wholly or
// refused with the database failure 0x80040420 and nothing done: the same session answers
// the next request, shows the file as it was (records, postings, balances, counters), and
// carries out the same request when it is sent again. The file must open again and pass
// SQLite's integrity check.
#include <filesystem>
#include <map>

#include "tessaron/platform/error.h"
#include "tests/qbsim/faulty_vfs.h"
#include "tests/qbsim/qbsim_fixture.h"

namespace tessaron::qbsim::testing {
namespace {

namespace fs = std::filesystem;
using Op = FaultyVfs::Op;

struct SweepCase {
  const char* name;
  // {PARENT_ID}, {PARENT_SEQ}, {DOOMED_ID}, {CUSTOMER}, {OTHER_ID} (a customer with a value
  // of the custom field "Kept Field"), {INVOICE_ID}, {INVOICE_SEQ} and {INVOICE_LINE_ID}
  // are filled in.
  const char* request;
  const char* probe;    // a query whose answer shows whether the request was carried out
};

// What a probe answered, without what differs between two runs of the same change (the
// identifiers, edit sequences and times that a change hands out).
std::string Signature(const std::string& response) {
  pugi::xml_document doc;
  doc.load_string(response.c_str());
  std::vector<pugi::xml_node> volatileNodes;
  for (pugi::xpath_node n : doc.select_nodes("//ListID | //TxnID | //TxnLineID | //EditSequence | //TimeCreated | "
                                             "//TimeModified | //TimeDeleted"))
    volatileNodes.push_back(n.node());
  for (pugi::xml_node n : volatileNodes) n.parent().remove_child(n);
  std::ostringstream out;
  doc.save(out, "", pugi::format_raw);
  return out.str();
}

class FaultSweep : public ::testing::TestWithParam<SweepCase> {
 protected:
  static void SetUpTestSuite() {
    FaultyVfs::Register();
    dir_ = new tessaron::testing::TempDir;
    base_ = dir_->File("base.qbw");
    SampleOptions sample;
    sample.customers = 5;
    CreateSampleCompany(base_, sample);
    auto p = CreateProcessor();
    p->OpenConnection("", "sweep setup");
    std::string t = p->BeginSession(base_, 0);
    Response doomed(p->ProcessRequest(
        t, Message("<ClassAddRq requestID=\"1\"><ClassAdd><Name>Doomed</Name></ClassAdd></ClassAddRq>")));
    keys_["{DOOMED_ID}"] = doomed.Value("ClassRet/ListID");
    Response customers(p->ProcessRequest(t, Message("<CustomerQueryRq requestID=\"1\"/>")));
    std::string parent;
    for (pugi::xml_node c : customers.Records())
      if (c.child("ParentRef")) parent = c.child("ParentRef").child_value("FullName");
    for (pugi::xml_node c : customers.Records())
      if (parent == c.child_value("FullName")) {
        keys_["{PARENT_ID}"] = c.child_value("ListID");
        keys_["{PARENT_SEQ}"] = c.child_value("EditSequence");
        keys_["{CUSTOMER}"] = c.child_value("FullName");
      } else if (!c.child("ParentRef")) {
        keys_["{OTHER_ID}"] = c.child_value("ListID");
      }
    // A public custom field of customers with a value on another customer than the parent
    // (whose edit sequence the rename needs as it was).
    Response field(p->ProcessRequest(
        t, Message("<DataExtDefAddRq requestID=\"1\"><DataExtDefAdd><OwnerID>0</OwnerID><DataExtName>Kept Field"
                   "</DataExtName><DataExtType>STR255TYPE</DataExtType><AssignToObject>Customer</AssignToObject>"
                   "</DataExtDefAdd></DataExtDefAddRq><DataExtAddRq requestID=\"2\"><DataExtAdd><OwnerID>0</OwnerID>"
                   "<DataExtName>Kept Field</DataExtName><ListDataExtType>Customer</ListDataExtType><ListObjRef>"
                   "<ListID>" + keys_["{OTHER_ID}"] + "</ListID></ListObjRef><DataExtValue>Before</DataExtValue>"
                   "</DataExtAdd></DataExtAddRq>")));
    ASSERT_EQ(field.Status(0), 0) << field.Message(0);
    ASSERT_EQ(field.Status(1), 0) << field.Message(1);
    // An invoice of the sample with its lines and no payment applied (which would keep it
    // from being voided or deleted): the one that is modified, voided, deleted.
    Response invoices(p->ProcessRequest(
        t, Message("<InvoiceQueryRq requestID=\"1\"><IncludeLineItems>true</IncludeLineItems>"
                   "<IncludeLinkedTxns>true</IncludeLinkedTxns></InvoiceQueryRq>")));
    for (pugi::xml_node inv : invoices.Records()) {
      if (!inv.child("InvoiceLineRet") || inv.child("LinkedTxn")) continue;
      keys_["{INVOICE_ID}"] = inv.child_value("TxnID");
      keys_["{INVOICE_SEQ}"] = inv.child_value("EditSequence");
      keys_["{INVOICE_LINE_ID}"] = inv.child("InvoiceLineRet").child_value("TxnLineID");
      break;
    }
    p->CloseConnection();
    ASSERT_EQ(keys_.count("{INVOICE_ID}"), 1u) << "the sample has no invoice with lines";
  }
  static void TearDownTestSuite() { delete dir_; }

  std::string Request() const {
    std::string text = GetParam().request;
    for (const auto& [key, value] : keys_)
      for (size_t at = text.find(key); at != std::string::npos; at = text.find(key)) text.replace(at, key.size(), value);
    return Message(text);
  }

  struct Outcome {
    bool struck = false;
    bool answered = false;  // false: refused with the database failure
    int status = -1;
    std::string probe;
    // After a refusal: what the same session's next request (the probe) answered, and the
    // status of the request sent once more.
    std::string probeAfterRefusal;
    int retryStatus = -1;
  };

  // Sends the request to a fresh copy of the base file with the fault armed (n = 0: none);
  // when it is refused, probes in the same session and sends it again. Then opens the file
  // again without faults and probes it.
  Outcome Run(Op op, int n, bool send = true) {
    const std::string work = dir_->File("work.qbw");
    for (const char* suffix : {"", "-wal", "-shm"}) fs::remove(work + suffix);
    fs::copy_file(base_, work);
    Outcome o;
    {
      ProcessorOptions options;
      options.databaseVfs = FaultyVfs::kName;
      auto p = CreateProcessor(options);
      p->OpenConnection("", "sweep");
      std::string t = p->BeginSession(work, 0);
      if (n > 0) FaultyVfs::Arm(op, n);
      try {
        if (send) {
          Response r(p->ProcessRequest(t, Request()));
          o.answered = true;
          o.status = r.Status();
        }
      } catch (const Error& e) {
        EXPECT_EQ(e.Number(), static_cast<int32_t>(processor_error::kDatabase)) << e.Description();
      }
      o.struck = n > 0 && FaultyVfs::Struck();
      FaultyVfs::Disarm();
      if (send && !o.answered) {
        try {
          o.probeAfterRefusal = Signature(p->ProcessRequest(t, Message(GetParam().probe)));
          o.retryStatus = Response(p->ProcessRequest(t, Request())).Status();
        } catch (const Error& e) {
          ADD_FAILURE() << "the session fails after the refusal: " << e.Description();
        }
      }
      p->CloseConnection();
    }
    auto file = CompanyFile::Open(work);
    SqlStatement check = file->Db().Prepare("PRAGMA integrity_check");
    EXPECT_TRUE(check.Step());
    EXPECT_EQ(check.Text(0), "ok");
    auto p = CreateProcessor();
    p->OpenConnection("", "sweep probe");
    o.probe = Signature(p->ProcessRequest(p->BeginSession(work, 0), Message(GetParam().probe)));
    p->CloseConnection();
    return o;
  }

  static tessaron::testing::TempDir* dir_;
  static std::string base_;
  static std::map<std::string, std::string> keys_;
};

tessaron::testing::TempDir* FaultSweep::dir_ = nullptr;
std::string FaultSweep::base_;
std::map<std::string, std::string> FaultSweep::keys_;

TEST_P(FaultSweep, EveryFailureLeavesTheRequestWhollyDoneOrRefusedAndTheFileSound) {
  const std::string before = Run(Op::Read, 0, false).probe;
  Outcome clean = Run(Op::Read, 0);
  ASSERT_TRUE(clean.answered);
  ASSERT_EQ(clean.status, 0);
  ASSERT_NE(clean.probe, before) << "the probe does not show the change";
  int refused = 0;
  for (Op op : {Op::Read, Op::Write, Op::Sync, Op::Lock}) {
    int n = 1;
    for (;; ++n) {
      Outcome o = Run(op, n);
      if (!o.struck) break;
      SCOPED_TRACE(std::string(OpName(op)) + " " + std::to_string(n));
      if (o.answered) {
        EXPECT_EQ(o.status, 0);
        EXPECT_TRUE(o.probe == clean.probe) << "answered, but not all of it was kept";
      } else {
        ++refused;
        EXPECT_TRUE(o.probeAfterRefusal == before)
            << (o.probeAfterRefusal == clean.probe ? "refused, but it was made" : "refused, but some of it was kept");
        EXPECT_EQ(o.retryStatus, 0) << "the same request, sent again, was not carried out";
        EXPECT_TRUE(o.probe == clean.probe) << "sent again after a refusal, it left the file unlike one clean run";
      }
      if (HasFailure()) return;
    }
    // Every request writes and syncs; a sweep that never struck would prove nothing.
    if (op == Op::Write || op == Op::Sync) {
      EXPECT_GT(n, 1) << OpName(op);
    }
  }
  // Nor would one in which no failure ever led to a refusal.
  EXPECT_GT(refused, 0);
}

TEST(DatabaseVfs, AVfsThatIsNotRegisteredIsRefusedWhenTheFileOpens) {
  tessaron::testing::TempDir dir;
  CreateCompany(dir.File("c.qbw"));
  ProcessorOptions options;
  options.databaseVfs = "no-such-vfs";
  auto p = CreateProcessor(options);
  p->OpenConnection("", "vfs");
  try {
    p->BeginSession(dir.File("c.qbw"), 0);
    ADD_FAILURE() << "opened";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), static_cast<int32_t>(processor_error::kCannotOpenFile));
    EXPECT_NE(e.Description().find("no-such-vfs"), std::string::npos) << e.Description();
  }
}

// The invoices with their lines, the balances of the customers and the accounts, and the
// record of deleted invoices.
constexpr const char* kInvoiceProbe =
    "<InvoiceQueryRq requestID=\"1\"><IncludeLineItems>true</IncludeLineItems></InvoiceQueryRq>"
    "<CustomerQueryRq requestID=\"2\"/><AccountQueryRq requestID=\"3\"/>"
    "<TxnDeletedQueryRq requestID=\"4\"><TxnDelType>Invoice</TxnDelType></TxnDeletedQueryRq>";

// The custom field definitions and the values on customers.
constexpr const char* kCustomFieldProbe =
    "<DataExtDefQueryRq requestID=\"1\"><OwnerID>0</OwnerID></DataExtDefQueryRq>"
    "<CustomerQueryRq requestID=\"2\"><OwnerID>0</OwnerID></CustomerQueryRq>";

// One row per kind of request that changes the company file: a new kind of change adds its
// row here. (Subscriptions live in the host's memory, and reports only read.)
INSTANTIATE_TEST_SUITE_P(
    ModifyingRequests, FaultSweep,
    ::testing::Values(
        SweepCase{"ClassAdd", "<ClassAddRq requestID=\"1\"><ClassAdd><Name>Swept</Name></ClassAdd></ClassAddRq>",
                  "<ClassQueryRq requestID=\"1\"/>"},
        SweepCase{"JobAdd",
                  "<CustomerAddRq requestID=\"1\"><CustomerAdd><Name>Swept Job</Name><ParentRef><ListID>{PARENT_ID}"
                  "</ListID></ParentRef><Phone>555-0142</Phone></CustomerAdd></CustomerAddRq>",
                  "<CustomerQueryRq requestID=\"1\"/>"},
        // A rename of a customer rewrites the full names of all its jobs in the same change.
        SweepCase{"CustomerRenameWithJobs",
                  "<CustomerModRq requestID=\"1\"><CustomerMod><ListID>{PARENT_ID}</ListID><EditSequence>{PARENT_SEQ}"
                  "</EditSequence><Name>Swept Parent</Name></CustomerMod></CustomerModRq>",
                  "<CustomerQueryRq requestID=\"1\"/>"},
        SweepCase{"VendorAdd",
                  "<VendorAddRq requestID=\"1\"><VendorAdd><Name>Swept Supplies</Name><VendorAddress><Addr1>1 Sweep Lane"
                  "</Addr1></VendorAddress></VendorAdd></VendorAddRq>",
                  "<VendorQueryRq requestID=\"1\"/>"},
        SweepCase{"ClassDelete",
                  "<ListDelRq requestID=\"1\"><ListDelType>Class</ListDelType><ListID>{DOOMED_ID}</ListID></ListDelRq>",
                  "<ClassQueryRq requestID=\"1\"/>"},
        // An invoice posts to the receivable and income accounts and the customer's balance,
        // and takes the next transaction and reference numbers.
        SweepCase{"InvoiceAdd",
                  "<InvoiceAddRq requestID=\"1\"><InvoiceAdd><CustomerRef><FullName>{CUSTOMER}</FullName>"
                  "</CustomerRef><TxnDate>2024-05-01</TxnDate><InvoiceLineAdd><ItemRef><FullName>Labor</FullName>"
                  "</ItemRef><Quantity>3</Quantity><Rate>40</Rate></InvoiceLineAdd><InvoiceLineAdd><ItemRef>"
                  "<FullName>Hardware</FullName></ItemRef><Quantity>2</Quantity></InvoiceLineAdd></InvoiceAdd>"
                  "</InvoiceAddRq>",
                  kInvoiceProbe},
        SweepCase{"InvoiceModify",
                  "<InvoiceModRq requestID=\"1\"><InvoiceMod><TxnID>{INVOICE_ID}</TxnID><EditSequence>{INVOICE_SEQ}"
                  "</EditSequence><Memo>Swept</Memo><InvoiceLineMod><TxnLineID>{INVOICE_LINE_ID}</TxnLineID>"
                  "<Quantity>7</Quantity></InvoiceLineMod><InvoiceLineMod><TxnLineID>-1</TxnLineID><ItemRef>"
                  "<FullName>Hardware</FullName></ItemRef></InvoiceLineMod></InvoiceMod></InvoiceModRq>",
                  kInvoiceProbe},
        SweepCase{"InvoiceVoid",
                  "<TxnVoidRq requestID=\"1\"><TxnVoidType>Invoice</TxnVoidType><TxnID>{INVOICE_ID}</TxnID>"
                  "</TxnVoidRq>",
                  kInvoiceProbe},
        SweepCase{"InvoiceDelete",
                  "<TxnDelRq requestID=\"1\"><TxnDelType>Invoice</TxnDelType><TxnID>{INVOICE_ID}</TxnID></TxnDelRq>",
                  kInvoiceProbe},
        SweepCase{"CustomFieldDefinitionAdd",
                  "<DataExtDefAddRq requestID=\"1\"><DataExtDefAdd><OwnerID>0</OwnerID><DataExtName>Swept Field"
                  "</DataExtName><DataExtType>STR255TYPE</DataExtType><AssignToObject>Customer</AssignToObject>"
                  "</DataExtDefAdd></DataExtDefAddRq>",
                  kCustomFieldProbe},
        // A rename carries the values along.
        SweepCase{"CustomFieldDefinitionRename",
                  "<DataExtDefModRq requestID=\"1\"><DataExtDefMod><OwnerID>0</OwnerID><DataExtName>Kept Field"
                  "</DataExtName><DataExtNewName>Swept Field</DataExtNewName></DataExtDefMod></DataExtDefModRq>",
                  kCustomFieldProbe},
        // A deleted definition takes its values with it.
        SweepCase{"CustomFieldDefinitionDelete",
                  "<DataExtDefDelRq requestID=\"1\"><OwnerID>0</OwnerID><DataExtName>Kept Field</DataExtName>"
                  "</DataExtDefDelRq>",
                  kCustomFieldProbe},
        SweepCase{"CustomFieldValueAdd",
                  "<DataExtAddRq requestID=\"1\"><DataExtAdd><OwnerID>0</OwnerID><DataExtName>Kept Field"
                  "</DataExtName><ListDataExtType>Customer</ListDataExtType><ListObjRef><ListID>{PARENT_ID}</ListID>"
                  "</ListObjRef><DataExtValue>Swept</DataExtValue></DataExtAdd></DataExtAddRq>",
                  kCustomFieldProbe},
        SweepCase{"CustomFieldValueModify",
                  "<DataExtModRq requestID=\"1\"><DataExtMod><OwnerID>0</OwnerID><DataExtName>Kept Field"
                  "</DataExtName><ListDataExtType>Customer</ListDataExtType><ListObjRef><ListID>{OTHER_ID}</ListID>"
                  "</ListObjRef><DataExtValue>Swept</DataExtValue></DataExtMod></DataExtModRq>",
                  kCustomFieldProbe},
        SweepCase{"CustomFieldValueDelete",
                  "<DataExtDelRq requestID=\"1\"><DataExtDel><OwnerID>0</OwnerID><DataExtName>Kept Field"
                  "</DataExtName><ListDataExtType>Customer</ListDataExtType><ListObjRef><ListID>{OTHER_ID}</ListID>"
                  "</ListObjRef></DataExtDel></DataExtDelRq>",
                  kCustomFieldProbe}),
    [](const ::testing::TestParamInfo<SweepCase>& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tessaron::qbsim::testing
