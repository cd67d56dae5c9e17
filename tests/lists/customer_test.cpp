// Customer as a record: the version rule of its setters, AltContact, the checks of
// Validate, reading a response, and copies.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/lists/customer.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tests/support/raised.h"
#include "tests/lists/customer_records.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron {
namespace {

using testing::CustomerRet;
using testing::NumberRaised;
using testing::ParsedCustomer;

// A record with a value in every field the setters below change.
const std::string kStored = CustomerRet(
    "80000001-1", "Acme", "<CompanyName>Acme Ltd</CompanyName><Salutation>Mr.</Salutation><FirstName>Al</FirstName>"
    "<MiddleName>B</MiddleName><LastName>Cox</LastName><Phone>555-0100</Phone><AltPhone>555-0101</AltPhone>"
    "<Fax>555-0102</Fax><Email>al@acme.test</Email><Contact>Al Cox</Contact><AltContact>Bo Cox</AltContact>"
    "<CustomerTypeRef><FullName>Retail</FullName></CustomerTypeRef><TermsRef><FullName>Net 30</FullName></TermsRef>"
    "<SalesRepRef><FullName>JD</FullName></SalesRepRef><Balance>12.50</Balance><TotalBalance>20.00</TotalBalance>"
    "<SalesTaxCodeRef><FullName>Tax</FullName></SalesTaxCodeRef>"
    "<ItemSalesTaxRef><FullName>State Tax</FullName></ItemSalesTaxRef><ResaleNumber>R-1</ResaleNumber>"
    "<AccountNumber>A-1</AccountNumber><CreditLimit>500.00</CreditLimit>"
    "<PreferredPaymentMethodRef><FullName>Check</FullName></PreferredPaymentMethodRef>"
    "<JobStatus>InProgress</JobStatus><JobStartDate>2004-01-05</JobStartDate>"
    "<JobProjectedEndDate>2004-02-05</JobProjectedEndDate><JobEndDate>2004-03-05</JobEndDate>"
    "<JobDesc>Kitchen</JobDesc><JobTypeRef><FullName>Remodel</FullName></JobTypeRef><Notes>Old</Notes>");

// ---- The version rule -------------------------------------------------------------------

struct GateCase {
  const char* field;
  int limit;  // the lowest qbXML version whose modify carries the field; 999: none does
  std::function<void(Customer&)> set;
  std::function<std::string(Customer&)> get;
};

std::string Text(Currency c) { return c.ToString(); }
std::string Text(Date d) { return std::to_string(d); }

const GateCase kGates[] = {
    {"IsActive", 3, [](Customer& c) { c.SetIsActive(false); }, [](Customer& c) { return std::string(c.IsActive() ? "1" : "0"); }},
    {"CustomerType", 3, [](Customer& c) { c.SetCustomerType("Wholesale"); }, [](Customer& c) { return c.CustomerType(); }},
    {"Terms", 3, [](Customer& c) { c.SetTerms("Net 10"); }, [](Customer& c) { return c.Terms(); }},
    {"SalesRep", 3, [](Customer& c) { c.SetSalesRep("KL"); }, [](Customer& c) { return c.SalesRep(); }},
    {"SalesTaxCode", 3, [](Customer& c) { c.SetSalesTaxCode("Non"); }, [](Customer& c) { return c.SalesTaxCode(); }},
    {"SalesTaxItem", 3, [](Customer& c) { c.SetSalesTaxItem("City"); }, [](Customer& c) { return c.SalesTaxItem(); }},
    {"PaymentMethod", 3, [](Customer& c) { c.SetPaymentMethod("Cash"); }, [](Customer& c) { return c.PaymentMethod(); }},
    {"ResaleNumber", 3, [](Customer& c) { c.SetResaleNumber("R-2"); }, [](Customer& c) { return c.ResaleNumber(); }},
    {"CreditLimit", 3, [](Customer& c) { c.SetCreditLimit(Currency(900)); }, [](Customer& c) { return Text(c.CreditLimit()); }},
    {"JobStatus", 3, [](Customer& c) { c.SetJobStatus(qbJobStatusClosed); }, [](Customer& c) { return std::to_string(c.JobStatus()); }},
    {"JobStartDate", 3, [](Customer& c) { c.SetJobStartDate(DateSerial(2005, 1, 1)); }, [](Customer& c) { return Text(c.JobStartDate()); }},
    {"JobProjectedEndDate", 3, [](Customer& c) { c.SetJobProjectedEndDate(DateSerial(2005, 1, 1)); }, [](Customer& c) { return Text(c.JobProjectedEndDate()); }},
    {"JobEndDate", 3, [](Customer& c) { c.SetJobEndDate(DateSerial(2005, 1, 1)); }, [](Customer& c) { return Text(c.JobEndDate()); }},
    {"JobDescription", 3, [](Customer& c) { c.SetJobDescription("Bath"); }, [](Customer& c) { return c.JobDescription(); }},
    {"JobType", 3, [](Customer& c) { c.SetJobType("Repair"); }, [](Customer& c) { return c.JobType(); }},
    {"OpeningBalance", 999, [](Customer& c) { c.SetOpeningBalance(Currency(7)); }, [](Customer& c) { return Text(c.OpeningBalance()); }},
    {"OpeningBalanceDate", 999, [](Customer& c) { c.SetOpeningBalanceDate(DateSerial(2005, 1, 1)); }, [](Customer& c) { return Text(c.OpeningBalanceDate()); }},
    {"AccountNumber", 1, [](Customer& c) { c.SetAccountNumber("A-2"); }, [](Customer& c) { return c.AccountNumber(); }},
    {"Notes", 1, [](Customer& c) { c.SetNotes("New"); }, [](Customer& c) { return c.Notes(); }},
    {"CompanyName", 1, [](Customer& c) { c.SetCompanyName("Acme Inc"); }, [](Customer& c) { return c.CompanyName(); }},
    {"Salutation", 1, [](Customer& c) { c.SetSalutation("Dr."); }, [](Customer& c) { return c.Salutation(); }},
    {"FirstName", 1, [](Customer& c) { c.SetFirstName("Bo"); }, [](Customer& c) { return c.FirstName(); }},
    {"MiddleName", 1, [](Customer& c) { c.SetMiddleName("C"); }, [](Customer& c) { return c.MiddleName(); }},
    {"LastName", 1, [](Customer& c) { c.SetLastName("Dee"); }, [](Customer& c) { return c.LastName(); }},
    {"Phone", 1, [](Customer& c) { c.SetPhone("1"); }, [](Customer& c) { return c.Phone(); }},
    {"AltPhone", 1, [](Customer& c) { c.SetAltPhone("2"); }, [](Customer& c) { return c.AltPhone(); }},
    {"Fax", 1, [](Customer& c) { c.SetFax("3"); }, [](Customer& c) { return c.Fax(); }},
    {"Email", 1, [](Customer& c) { c.SetEmail("x@y.test"); }, [](Customer& c) { return c.Email(); }},
    {"Contact", 1, [](Customer& c) { c.SetContact("Cy"); }, [](Customer& c) { return c.Contact(); }},
};

using GateParam = std::tuple<GateCase, int /*version*/, qoEnumObjectState>;

class CustomerGateTest : public ::testing::TestWithParam<GateParam> {
 protected:
  void SetUp() override { ResetLibraryStateForTesting(); }
  void TearDown() override { ResetLibraryStateForTesting(); }
};

TEST_P(CustomerGateTest, SetterPassesOrRefusesByVersionAndState) {
  const auto& [gate, version, state] = GetParam();
  std::shared_ptr<Customer> c = state == qoObjectStateNew ? std::make_shared<Customer>() : ParsedCustomer(kStored);
  if (state == qoObjectStateDirty) detail::ListObjectAccess::SetObjectState(*c, qoObjectStateDirty);
  State().QBXMLVersionNumber = Currency(version);
  const std::string before = gate.get(*c);
  const bool carried = version >= gate.limit;

  const auto raised = testing::Raised([&] { gate.set(*c); });

  if (state == qoObjectStateNew || carried) {
    EXPECT_FALSE(raised) << raised->Description();
    EXPECT_NE(gate.get(*c), before);
    EXPECT_EQ(c->ObjectState(), state == qoObjectStateNew ? qoObjectStateNew : qoObjectStateDirty);
  } else {
    ASSERT_TRUE(raised);
    EXPECT_EQ(static_cast<uint32_t>(raised->Number()), err::kFieldCannotBeModified);
    EXPECT_EQ(raised->Source(), "Customer");
    EXPECT_EQ(raised->Description(), "Field cannot be modified");
    EXPECT_EQ(gate.get(*c), before);
    EXPECT_EQ(c->ObjectState(), state);
  }
}

std::string GateName(const ::testing::TestParamInfo<GateParam>& info) {
  static const char* const kStates[] = {"", "New", "Clean", "Dirty"};
  return std::string(std::get<0>(info.param).field) + "_v" + std::to_string(std::get<1>(info.param)) + "_" +
         kStates[std::get<2>(info.param)];
}

INSTANTIATE_TEST_SUITE_P(FieldsVersionsStates, CustomerGateTest,
                         ::testing::Combine(::testing::ValuesIn(kGates), ::testing::Values(1, 2, 3, 4),
                                            ::testing::Values(qoObjectStateNew, qoObjectStateClean,
                                                              qoObjectStateDirty)),
                         GateName);

class CustomerRecordTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetLibraryStateForTesting();
    State().QBXMLVersionNumber = Currency(3);
  }
  void TearDown() override { ResetLibraryStateForTesting(); }
};

TEST_F(CustomerRecordTest, AltContactWithItsPresentValueKeepsACleanCustomerClean) {
  auto c = ParsedCustomer(kStored);
  c->SetAltContact("Bo Cox");
  EXPECT_EQ(c->ObjectState(), qoObjectStateClean);
  c->SetAltContact("bo cox");  // compared with letter case
  EXPECT_EQ(c->ObjectState(), qoObjectStateDirty);
  EXPECT_EQ(c->AltContact(), "bo cox");
}

TEST_F(CustomerRecordTest, OtherSettersDirtyEvenWithThePresentValue) {
  auto c = ParsedCustomer(kStored);
  c->SetNotes("Old");
  EXPECT_EQ(c->ObjectState(), qoObjectStateDirty);
}

TEST_F(CustomerRecordTest, NotesCanBeSetBelowTheVersionThatSendsThem) {
  State().QBXMLVersionNumber = Currency(2);
  auto c = ParsedCustomer(kStored);
  c->SetNotes("New");
  EXPECT_EQ(c->ObjectState(), qoObjectStateDirty);
}

TEST_F(CustomerRecordTest, ChangingAnAddressOrTheCardLeavesTheCustomerClean) {
  auto c = ParsedCustomer(kStored);
  c->ShipTo()->SetCity("Bayshore");
  c->CreditCard()->SetNameOnCard("Al Cox");
  EXPECT_EQ(c->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(c->ShipTo()->ObjectState(), qoObjectStateDirty);
  EXPECT_EQ(c->BillTo()->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(c->CreditCard()->ObjectState(), qoObjectStateDirty);
}

// ---- Reading ----------------------------------------------------------------------------

TEST_F(CustomerRecordTest, ReadsEveryFieldAndEndsClean) {
  auto c = ParsedCustomer(kStored);
  EXPECT_EQ(c->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(c->ListID(), "80000001-1");
  EXPECT_EQ(c->EditSequence(), "1000");
  EXPECT_EQ(c->CompanyName(), "Acme Ltd");
  EXPECT_EQ(c->Terms(), "Net 30");
  EXPECT_EQ(c->PaymentMethod(), "Check");
  EXPECT_EQ(c->Balance(), Currency::Parse("12.5"));
  EXPECT_EQ(c->TotalBalance(), Currency(20));
  EXPECT_EQ(c->CreditLimit(), Currency(500));
  EXPECT_EQ(c->JobStatus(), qbJobStatusInProgress);
  EXPECT_EQ(c->JobStartDate(), DateSerial(2004, 1, 5));
  EXPECT_EQ(c->JobType(), "Remodel");
  EXPECT_EQ(c->Notes(), "Old");
  EXPECT_EQ(c->BillTo()->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(c->CreditCard()->ObjectState(), qoObjectStateClean);
}

TEST_F(CustomerRecordTest, DropsItsKnownTagsSilentlyAndReportsUnknownOnes) {
  std::vector<std::string> noted;
  SetUnknownFieldHook([&](std::string_view message, std::string_view tag) {
    noted.push_back(std::string(message) + "|" + std::string(tag));
  });
  auto c = ParsedCustomer(CustomerRet("1-1", "Acme",
                                      "<Phone>1</Phone><PriceLevelRef><FullName>P</FullName></PriceLevelRef>"
                                      "<CurrencyRef><FullName>USD</FullName></CurrencyRef><Cheer>yes</Cheer>"
                                      "<TaxCodeRef><FullName>T</FullName></TaxCodeRef>"));
  SetUnknownFieldHook(nullptr);
  EXPECT_EQ(c->Phone(), "1");
  EXPECT_EQ(noted, std::vector<std::string>{"Unknown Field: Cheer|Customer"});
  EXPECT_EQ(c->ObjectState(), qoObjectStateClean);
}

TEST_F(CustomerRecordTest, AnyOfTheThreeStateTagsLandsInState) {
  auto c = ParsedCustomer(CustomerRet("1-1", "Acme",
                                      "<BillAddress><Addr1>1 Main</Addr1><County>Kent</County></BillAddress>"
                                      "<ShipAddress><Province>ON</Province></ShipAddress>"));
  EXPECT_EQ(c->BillTo()->State(), "Kent");
  EXPECT_EQ(c->ShipTo()->State(), "ON");
  EXPECT_EQ(c->BillTo()->Line1(), "1 Main");
}

TEST_F(CustomerRecordTest, StatementAndDeliveryAreReadOnlyFromNonEmptyText) {
  auto c = ParsedCustomer(CustomerRet("1-1", "Acme", "<IsStatementWithParent>true</IsStatementWithParent>"
                                                     "<DeliveryMethod>Email</DeliveryMethod>"));
  c->FromDom([] {
    static XmlDocument doc = XmlDocument::Create();
    doc.loadXML("<CustomerRet><IsStatementWithParent></IsStatementWithParent><DeliveryMethod/></CustomerRet>");
    return doc.documentElement();
  }());
  xmlBldr b;
  b.NewClear();
  b.InsertQueryRs(*c, 1);
  const std::string text = b.GetXML().ToString();
  EXPECT_NE(text.find("<IsStatementWithParent>1</IsStatementWithParent><DeliveryMethod>Email</DeliveryMethod>"),
            std::string::npos)
      << text;
}

// ---- Validate ---------------------------------------------------------------------------

struct CheckCase {
  const char* name;
  std::function<void(Customer&)> spoil;
  uint32_t code;
  const char* field;
  const char* message;
};

const CheckCase kChecks[] = {
    {"EmptyName", [](Customer& c) { detail::ListObjectAccess::SetNameInternal(c, ""); }, err::kNameNull, "Name", "Name cannot be null"},
    {"LongName", [](Customer& c) { detail::ListObjectAccess::SetNameInternal(c, std::string(42, 'n')); }, err::kCustomerNameTooLong, "Name",
     "Customer/Company name cannot exceed 41 characters"},
    {"CompanyName", [](Customer& c) { c.SetCompanyName(std::string(42, 'c')); }, err::kCustomerNameTooLong,
     "Company Name", "Customer/Company name cannot exceed 41 characters"},
    {"Salutation", [](Customer& c) { c.SetSalutation(std::string(16, 's')); }, err::kSalutationTooLong, "Salutation",
     "Salutation cannot exceed 15 characters"},
    {"FirstName", [](Customer& c) { c.SetFirstName(std::string(26, 'f')); }, err::kFirstLastNameTooLong, "First Name",
     "First/Last name cannot exceed 25 characters"},
    {"MiddleName", [](Customer& c) { c.SetMiddleName("Middle"); }, err::kMiddleNameTooLong, "Middle Name",
     "Middle name cannot exceed 5 characters"},
    {"LastName", [](Customer& c) { c.SetLastName(std::string(26, 'l')); }, err::kFirstLastNameTooLong, "Last Name",
     "First/Last name cannot exceed 25 characters"},
    {"Phone", [](Customer& c) { c.SetPhone(std::string(22, '1')); }, err::kPhoneTooLong, "Phone",
     "Phone numbers cannot exceed 21 characters"},
    {"AltPhone", [](Customer& c) { c.SetAltPhone(std::string(22, '1')); }, err::kPhoneTooLong, "Alt Phone",
     "Phone numbers cannot exceed 21 characters"},
    {"Email", [](Customer& c) { c.SetEmail(std::string(100, 'e')); }, err::kEmailTooLong, "Email",
     "Email cannot exceed 99 characters"},
    {"Contact", [](Customer& c) { c.SetContact(std::string(42, 'c')); }, err::kCustomerNameTooLong, "Contact",
     "Customer/Company name cannot exceed 41 characters"},
    {"AltContact", [](Customer& c) { c.SetAltContact(std::string(42, 'c')); }, err::kCustomerNameTooLong,
     "Alt Contact", "Customer/Company name cannot exceed 41 characters"},
    {"ResaleNumber", [](Customer& c) { c.SetResaleNumber(std::string(16, 'r')); }, err::kResaleNumberTooLong,
     "Resale Number", "Resale number cannot exceed 15 characters"},
    {"AccountNumber", [](Customer& c) { c.SetAccountNumber(std::string(100, 'a')); },
     err::kCustomerAccountNumberTooLong, "Account Number", "Account number cannot exceed 99 characters"},
    // The job description reports under the account number's label.
    {"JobDescription", [](Customer& c) { c.SetJobDescription(std::string(100, 'j')); }, err::kJobDescTooLong,
     "Account Number", "Job description cannot exceed 99 characters"},
};

class CustomerCheckTest : public CustomerRecordTest, public ::testing::WithParamInterface<CheckCase> {};

TEST_P(CustomerCheckTest, ReportsOneEntryWithItsLabel) {
  Customer c;
  detail::ListObjectAccess::SetNameInternal(c, "Acme");
  // A value right at each limit passes.
  c.SetCompanyName(std::string(41, 'c'));
  c.SetMiddleName("Mid");
  c.SetEmail(std::string(99, 'e'));
  GetParam().spoil(c);

  EXPECT_FALSE(c.Validate());

  ASSERT_EQ(c.Errors()->Count(), 1);
  auto e = c.Errors()->Item(1);
  EXPECT_EQ(static_cast<uint32_t>(e->Number()), GetParam().code);
  EXPECT_EQ(e->Field(), GetParam().field);
  EXPECT_EQ(e->Description(), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Checks, CustomerCheckTest, ::testing::ValuesIn(kChecks),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(CustomerRecordTest, ValidateCountsUnicodeAsThePlatformDoes) {
  Customer c;
  c.SetFax(std::string(200, '9'));  // the fax is never checked
  std::string name;
  for (int i = 0; i < 41; ++i) name += "\xC3\xA9";  // 41 characters, 82 bytes
  detail::ListObjectAccess::SetNameInternal(c, name);
  EXPECT_TRUE(c.Validate());
}

TEST_F(CustomerRecordTest, ACleanCustomerIsNeverChecked) {
  auto c = ParsedCustomer(CustomerRet("1-1", std::string(60, 'n')));
  EXPECT_TRUE(c->Validate());
}

// ---- Copies -----------------------------------------------------------------------------

TEST_F(CustomerRecordTest, CloneCopiesFieldsStateAndJobsButNotTheIdentity) {
  auto c = ParsedCustomer(kStored);
  c->Jobs()->Add("Acme:Kitchen", qoListCustomers, "9-1");
  c->ShipTo()->SetLine1("9 Dock St");
  c->CreditCard()->SetCardNumber("4111");
  c->SetUserData(Variant("mine"));

  auto copy = c->Clone();

  EXPECT_EQ(copy->ObjectState(), qoObjectStateClean);
  EXPECT_EQ(copy->ListID(), "");
  EXPECT_EQ(copy->Name(), "Acme");
  EXPECT_EQ(copy->Terms(), "Net 30");
  EXPECT_EQ(copy->PaymentMethod(), "Check");
  EXPECT_EQ(copy->CreditLimit(), Currency(500));
  EXPECT_EQ(copy->ShipTo()->Line1(), "9 Dock St");
  EXPECT_EQ(copy->CreditCard()->CardNumber(), "4111");
  EXPECT_EQ(copy->UserData().ToString(), "mine");
  ASSERT_EQ(copy->Jobs()->Count(), 1);
  EXPECT_EQ(copy->Jobs()->Item(1)->FullName(), "Acme:Kitchen");
  EXPECT_EQ(copy->Jobs()->Item(1)->ListID(), "9-1");
}

// ---- Address and credit card -----------------------------------------------------------

TEST_F(CustomerRecordTest, Line4NeedsVersion2EvenOnANewAddress) {
  State().QBXMLVersionNumber = Currency::Parse("1.1");
  Address a;
  EXPECT_EQ(NumberRaised([&] { a.SetLine4("x"); }), err::kVersionNotSupported);
  EXPECT_EQ(a.Line4(), "");
  State().QBXMLVersionNumber = Currency(2);
  a.SetLine4("x");
  EXPECT_EQ(a.Line4(), "x");
}

TEST_F(CustomerRecordTest, CopyAddressLeavesLine4AloneBelowVersion2) {
  State().QBXMLVersionNumber = Currency(2);
  Address from, to;
  from.SetLine1("1");
  from.SetLine4("4");
  to.SetLine4("old");
  detail::ListObjectAccess::SetObjectState(to, qoObjectStateClean);
  State().QBXMLVersionNumber = Currency::Parse("1.1");
  from.CopyAddress(to);
  EXPECT_EQ(to.Line1(), "1");
  EXPECT_EQ(to.Line4(), "old");
  EXPECT_EQ(to.ObjectState(), qoObjectStateDirty);
}

TEST_F(CustomerRecordTest, CreditCardIsEmptyUntilAnyFieldIsSet) {
  CreditCard card;
  EXPECT_TRUE(card.IsEmpty());
  card.SetAuthCode("auth");  // the application's own, not part of the card's data
  EXPECT_TRUE(card.IsEmpty());
  card.SetExpirationMonth(4);
  EXPECT_FALSE(card.IsEmpty());
}

}  // namespace
}  // namespace tessaron
