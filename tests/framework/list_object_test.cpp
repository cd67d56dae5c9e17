// The object contract: states, both forms of the field rule, reading a response element,
// and the add, modify and query-response writers driven by the field table.
#include <gtest/gtest.h>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/lists/class.h"
#include "tessaron/lists/customer_message.h"
#include "tessaron/lists/to_do.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tests/support/list_session.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {
namespace {

using testing::ListSession;
using testing::Ret;

int32_t N(uint32_t number) { return static_cast<int32_t>(number); }

XmlNode Parse(const std::string& text) {
  static XmlDocument doc;  // kept alive by the returned handle
  doc = XmlDocument::Create();
  EXPECT_TRUE(doc.loadXML(text)) << text;
  return doc.documentElement();
}

// A list class written for this test alone: a field on the Form B guard (version 3), one
// that is refused after the first commit (999), one that only changes when it differs,
// and a modify request. It shows what a class needs: its table and its setters.
class Gadget final : public ListObject {
 public:
  Gadget() : ListObject(Info()) {}
  void SetNotes(const std::string& v) { StoreFromVersion(notes_, v, 3); }
  void SetOpening(Currency v) { StoreFromVersion(opening_, v, 999); }
  void SetAltContact(const std::string& v) { SetIfChanged(altContact_, v, 0); }
  void SetTermsName(const std::string& v) {
    CheckFieldFromVersion(3);
    detail::ListObjectAccess::SetFullName(*termsRef_, v);
  }
  const std::string& Notes() const { return notes_; }
  const std::string& AltContact() const { return altContact_; }
  Currency Opening() const { return opening_; }
  const std::shared_ptr<qcListObjectRef>& TermsRef() const { return termsRef_; }

 private:
  static const ListClassInfo& Info() {
    static const ListClassInfo info = [] {
      using C = ListObject::Common;
      ListClassInfo i = ClassOf("Gadget", qoObjectTypeCustomer, qoListCustomers, ModifyRule::Write);
      i.queryBooleans = QueryBooleans::Digits;
      i.fields = C::Rows({C::Name(Send::IfSet, Send::Always), C::IsActive(Send::Always, Send::Always),
                  field::Ref("TermsRef", &Gadget::termsRef_, qoListTerms).Add(Send::IfSet).Mod(Send::Forced, 3),
                  field::Amount("OpenBalance", &Gadget::opening_).Add(Send::IfSet),
                  field::Text("AltContact", &Gadget::altContact_).Add(Send::IfSet).Mod(Send::Always),
                  field::Text("Notes", &Gadget::notes_).Add(Send::IfSet, 3).Mod(Send::Always, 3),
                  field::Dropped("CurrencyRef")});
      return i;
    }();
    return info;
  }
  std::string notes_;
  Currency opening_;
  std::string altContact_;
  std::shared_ptr<qcListObjectRef> termsRef_ = std::make_shared<qcListObjectRef>(qoListTerms);
};

std::string GadgetRet() {
  return Ret("Customer", "80-1",
             "<Name>Acme</Name><IsActive>true</IsActive><TermsRef><ListID>T-1</ListID><FullName>Net 30</FullName>"
             "</TermsRef><AltContact>Bo</AltContact><Notes>n</Notes><CurrencyRef><FullName>USD</FullName></CurrencyRef>");
}

class ObjectTest : public ::testing::Test {
 protected:
  ListSession qb{"2.0"};
};

TEST_F(ObjectTest, FromDomFillsTheFieldsAndLeavesTheObjectClean) {
  Gadget g;
  g.FromDom(Parse(GadgetRet()));
  EXPECT_EQ(g.ObjectState(), qoObjectStateClean);
  EXPECT_EQ(g.ListID(), "80-1");
  EXPECT_EQ(g.EditSequence(), "1000");
  EXPECT_EQ(g.Name(), "Acme");
  EXPECT_EQ(g.TermsRef()->FullName(), "Net 30");
  EXPECT_EQ(g.TermsRef()->ListID(), "T-1");
  EXPECT_EQ(g.Notes(), "n");
  EXPECT_DOUBLE_EQ(g.TimeCreated(), DateFromText("2004-02-29T13:05:09"));
}

TEST_F(ObjectTest, UnknownTagGoesToTheHookOnlyAndTheWalkGoesOn) {
  std::vector<std::string> seen;
  SetUnknownFieldHook([&](std::string_view message, std::string_view tag) {
    seen.push_back(std::string(message) + "|" + std::string(tag));
  });
  Class c;
  c.FromDom(Parse(Ret("Class", "1-1", "<Color>red</Color><Name>Sales</Name>")));
  SetUnknownFieldHook(nullptr);
  EXPECT_EQ(c.Name(), "Sales");
  EXPECT_EQ(c.ObjectState(), qoObjectStateClean);
  EXPECT_EQ(c.Errors()->Count(), 0);
  ASSERT_EQ(seen.size(), 1u);
  EXPECT_EQ(seen[0], "Unknown Field: Color|Class");
}

// The reader expects the elements in the order of the table and starts each search behind
// the last match; elements in any other order, repeated, or among unknown ones must still
// land in their fields.
TEST_F(ObjectTest, FromDomReadsElementsInAnyOrder) {
  std::vector<std::string> seen;
  SetUnknownFieldHook([&](std::string_view message, std::string_view) { seen.emplace_back(message); });
  Gadget g;
  g.FromDom(Parse("<CustomerRet><Notes>n</Notes><Color>red</Color><AltContact>Bo</AltContact><TermsRef><FullName>"
                  "Net 30</FullName></TermsRef><Name>Acme</Name><OpenBalance>7.5%</OpenBalance><ListID>80-1</ListID>"
                  "<Notes>second</Notes><EditSequence>1000</EditSequence></CustomerRet>"));
  SetUnknownFieldHook(nullptr);
  EXPECT_EQ(g.ListID(), "80-1");
  EXPECT_EQ(g.EditSequence(), "1000");
  EXPECT_EQ(g.Name(), "Acme");
  EXPECT_EQ(g.TermsRef()->FullName(), "Net 30");
  EXPECT_EQ(g.Opening(), Currency::Parse("7.5"));
  EXPECT_EQ(g.Notes(), "second");  // the last of a repeated element wins
  EXPECT_EQ(seen, std::vector<std::string>{"Unknown Field: Color"});
}

// Values that are not in the plain form still read: blanks around a text, a date with a
// blank in a part, an element whose text is split by a comment.
TEST_F(ObjectTest, FromDomReadsOddlyWrittenValues) {
  Gadget g;
  g.FromDom(Parse("<CustomerRet><TimeCreated>2004- 2-29T 1:05:09</TimeCreated><Name>\n  Acme  \n</Name>"
                  "<AltContact>B<!-- a note -->o</AltContact><OpenBalance> 1,234.50 </OpenBalance></CustomerRet>"));
  EXPECT_EQ(g.Name(), "Acme");
  EXPECT_EQ(g.AltContact(), "B o");
  EXPECT_DOUBLE_EQ(g.TimeCreated(), DateSerial(2004, 2, 29) + TimeSerial(1, 5, 9));
  EXPECT_EQ(g.Opening(), Currency::Parse("1234.5"));
}

TEST_F(ObjectTest, ConversionFailureRaisesAndKeepsTheState) {
  Class c;
  EXPECT_THROW(c.FromDom(Parse(Ret("Class", "1-1", "<Sublevel>deep</Sublevel>"))), Error);
  EXPECT_EQ(c.ObjectState(), qoObjectStateNew);
}

TEST_F(ObjectTest, FormAWritesAStoredObjectOnlyWhenTheFlagIsFalse) {
  CustomerMessage m;  // Name: flag false
  m.FromDom(Parse(Ret("CustomerMsg", "1-1", "<Name>Thanks</Name>")));
  m.SetName("Thanks");  // the same value dirties all the same
  EXPECT_EQ(m.ObjectState(), qoObjectStateDirty);

  ToDo note;  // Notes: flag true
  note.FromDom(Parse(Ret("ToDo", "2-1", "<Notes>call</Notes>")));
  try {
    note.SetNotes("write");
    FAIL() << "no raise";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), N(err::kFieldCannotBeModified));
    EXPECT_EQ(e.Source(), "ToDo");
    EXPECT_EQ(e.Description(), "Field cannot be modified");
  }
  EXPECT_EQ(note.Notes(), "call");
  EXPECT_EQ(note.ObjectState(), qoObjectStateClean);
}

TEST_F(ObjectTest, SettersOnANewObjectKeepItNew) {
  ToDo note;
  note.SetNotes("a");
  note.SetIsDone(true);
  EXPECT_EQ(note.ObjectState(), qoObjectStateNew);
}

TEST_F(ObjectTest, FormBRefusesAFieldTheSessionCannotModify) {
  Gadget g;
  g.SetNotes("before");  // New: any version
  g.FromDom(Parse(GadgetRet()));
  try {
    g.SetNotes("after");  // needs 3.0, session is 2.0
    FAIL() << "no raise";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), N(err::kFieldCannotBeModified));
    EXPECT_EQ(e.Source(), "Gadget");
  }
  EXPECT_EQ(g.Notes(), "n");
  EXPECT_EQ(g.ObjectState(), qoObjectStateClean);
}

TEST_F(ObjectTest, FormBWith999IsWritableOnlyWhileNew) {
  Gadget g;
  g.SetOpening(Currency(5));
  EXPECT_EQ(g.Opening(), Currency(5));
  g.FromDom(Parse(GadgetRet()));
  State().QBXMLVersionNumber = Currency(12);
  EXPECT_THROW(g.SetOpening(Currency(6)), Error);
}

TEST_F(ObjectTest, SetIfChangedLeavesACleanObjectCleanForTheSameValue) {
  Gadget g;
  g.FromDom(Parse(GadgetRet()));
  g.SetAltContact("Bo");
  EXPECT_EQ(g.ObjectState(), qoObjectStateClean);
  g.SetAltContact("Al");
  EXPECT_EQ(g.ObjectState(), qoObjectStateDirty);
}

TEST_F(ObjectTest, AddSkipsEmptyValuesAndModifySendsThem) {
  Gadget g;
  detail::ListObjectAccess::SetNameInternal(g, "Acme");
  xmlBldr add;
  add.InsertAddRq(g, 1);
  EXPECT_EQ(add.GetXML().ToString(),
            "<CustomerAddRq requestID = \"1\"><CustomerAdd><Name>Acme</Name><IsActive>1</IsActive></CustomerAdd></CustomerAddRq>");

  g.FromDom(Parse(Ret("Customer", "80-1", "<Name>Acme</Name>")));
  g.SetAltContact("");  // unchanged: stays Clean, but write a modify anyway
  State().QBXMLVersionNumber = Currency(3);
  g.SetTermsName("");
  xmlBldr mod;
  mod.InsertModRq(g, 2);
  EXPECT_EQ(mod.GetXML().ToString(),
            "<CustomerModRq requestID = \"2\"><CustomerMod><ListID>80-1</ListID><EditSequence>1000</EditSequence>"
            "<Name>Acme</Name><IsActive>1</IsActive><TermsRef><FullName></FullName></TermsRef>"
            "<AltContact></AltContact><Notes></Notes></CustomerMod></CustomerModRq>");
}

TEST_F(ObjectTest, ElementsAboveTheSessionVersionAreDroppedSilently) {
  Gadget g;
  detail::ListObjectAccess::SetNameInternal(g, "Acme");
  g.SetNotes("hello");  // Notes exists from 3.0; the session is 2.0
  xmlBldr add;
  add.InsertAddRq(g, 1);
  EXPECT_EQ(add.GetXML().ToString().find("Notes"), std::string::npos);
}

TEST_F(ObjectTest, ReferenceGoesOutAsFullNameInRequestsAndAsListIdInTheQueryForm) {
  Gadget g;
  g.FromDom(Parse(GadgetRet()));
  xmlBldr add;
  add.InsertAddRq(g, 1);
  EXPECT_NE(add.GetXML().ToString().find("<TermsRef><FullName>Net 30</FullName></TermsRef>"), std::string::npos);
  xmlBldr rs;
  rs.InsertQueryRs(g, 1);
  EXPECT_NE(rs.GetXML().ToString().find("<TermsRef><ListID>T-1</ListID></TermsRef>"), std::string::npos);
}

TEST_F(ObjectTest, QueryFormWritesEverythingAndUserDataText) {
  qb.Register<Classes>();
  qb.Answer(testing::ScriptedProcessor::Response("ClassQueryRs", Ret("Class", "S-1", "<Name>Sales</Name>")));
  Class c;
  c.FromDom(Parse(Ret("Class", "1-1", "<Name>East</Name><FullName>Sales:East</FullName><IsActive>false</IsActive>"
                                       "<ParentRef><FullName>Sales</FullName></ParentRef><Sublevel>1</Sublevel>")));
  c.SetUserData(Variant("mine"));
  xmlBldr b;
  b.InsertQueryRs(c, 4);
  // The parent is resolved first, and its ListID is written.
  EXPECT_EQ(b.GetXML().ToString(),
            "<ClassQueryRs requestID = \"4\"><ClassRet><ListID>1-1</ListID><TimeCreated>2004-02-29T13:05:09</TimeCreated>"
            "<TimeModified>2004-03-01T08:00:00</TimeModified><EditSequence>1000</EditSequence><Name>East</Name>"
            "<FullName>Sales:East</FullName><IsActive>false</IsActive><ParentRef><ListID>S-1</ListID></ParentRef>"
            "<Sublevel>1</Sublevel><UserData>mine</UserData></ClassRet></ClassQueryRs>");
}

TEST_F(ObjectTest, ClassModifyRaisesWithItsOwnMessage) {
  Class c;
  xmlBldr b;
  try {
    c.XMLModify(b);
    FAIL() << "no raise";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), N(err::kInternal));
    EXPECT_EQ(e.Description(), "XMLModify not allowed");
    EXPECT_EQ(e.Source(), "Tessaron: Class");
  }
}

TEST_F(ObjectTest, FullNameAndKeyOfATreeRecordFollowTheParentReference) {
  Class c;
  detail::ListObjectAccess::SetNameInternal(c, "East");
  detail::ListObjectAccess::SetParentInternal(c, "Sales:North");
  EXPECT_EQ(c.FullName(), "Sales:North:East");
  EXPECT_EQ(c.CollectionKey(), "Sales:North:East");
  EXPECT_EQ(c.Parent(), "Sales:North");
  EXPECT_EQ(c.Sublevel(), 0);  // computed by QuickBooks, not here
}

struct NameCase {
  std::string name;
  bool valid;
  const char* message;
};
class ClassNameTest : public ObjectTest, public ::testing::WithParamInterface<NameCase> {};

TEST_P(ClassNameTest, ValidateChecksTheNameOfANewObject) {
  Class c;
  detail::ListObjectAccess::SetNameInternal(c, GetParam().name);
  EXPECT_EQ(c.Validate(), GetParam().valid);
  if (!GetParam().valid) {
    ASSERT_EQ(c.Errors()->Count(), 1);
    EXPECT_EQ(c.Errors()->Item(1)->Description(), GetParam().message);
    EXPECT_EQ(c.Errors()->Item(1)->Field(), "Name");
  }
}

INSTANTIATE_TEST_SUITE_P(Names, ClassNameTest,
                         ::testing::Values(NameCase{std::string(31, 'a'), true, ""},
                                           NameCase{std::string(32, 'a'), false, "Name cannot exceed 31 characters"},
                                           NameCase{"", false, "Name cannot be null"},
                                           NameCase{std::string(30, 'a') + "\xC3\xA9", true, ""}));

TEST_F(ObjectTest, CleanObjectIsNeverChecked) {
  Class c;
  c.FromDom(Parse(Ret("Class", "1-1", "<Name>" + std::string(40, 'x') + "</Name>")));
  EXPECT_TRUE(c.Validate());
}

TEST_F(ObjectTest, UserDataKeepsObjectsAsHandles) {
  Class c;
  auto other = std::make_shared<Class>();
  c.SetUserData(Variant::FromObject(other));
  EXPECT_EQ(c.UserData().ToObject().As<Class>(), other);
}

}  // namespace
}  // namespace tessaron
