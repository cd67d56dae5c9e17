// A connection to a company file of the embedded processor reads the company record, its
// addresses and the preferences, in each national edition.
#include <gtest/gtest.h>

#include "tessaron/connection/tessaron_globals.h"
#include "tests/e2e/e2e_session.h"

namespace tessaron {
namespace {

using testing::EditionTest;

class CompanyEndToEnd : public EditionTest {};

TEST_P(CompanyEndToEnd, ConnectingReadsTheCompanyRecordAndPreferences) {
  auto qb = TessaronGlobals::QBConnection();
  EXPECT_EQ(qb->Country().ToString(), qbsim::EditionName(GetParam()));
  EXPECT_EQ(qb->IsUSProduct(), IsUS());
  EXPECT_EQ(qb->CompanyPath(), Path());

  auto company = TessaronGlobals::Company();
  EXPECT_EQ(company->Name(), "Larkspur Cabinetry");
  EXPECT_EQ(company->LegalName(), "Larkspur Cabinetry and Millwork");
  EXPECT_EQ(company->qbEnumTaxForm(), "Form1120S");
  EXPECT_TRUE(company->IsSampleCompany());
  for (const auto& address : {company->Address(), company->LegalAddress(), company->AddressForCustomers()}) {
    EXPECT_FALSE(address->Line1().empty());
    EXPECT_FALSE(address->State().empty());
    EXPECT_EQ(address->ObjectState(), qoObjectStateClean);
  }

  auto prefs = company->Preferences();
  EXPECT_EQ(prefs->ObjectState(), qoObjectStateClean);
  EXPECT_TRUE(prefs->IsUsingClassTracking());
  EXPECT_EQ(prefs->DefaultMarkup(), Currency(25));
  EXPECT_EQ(prefs->DefaultShipMethod(), "Courier");
  EXPECT_EQ(prefs->FinanceChargeAccount(), "Finance Charge Income");
  EXPECT_EQ(prefs->FirstDayOfWeek(), qoDayOfWeekMonday);
  EXPECT_TRUE(prefs->TimeTrackingEnabled());
  EXPECT_EQ(prefs->DefaultItemSalesTax(), IsUS() ? "Combined Tax" : "");
  EXPECT_TRUE(prefs->IsSensitiveDataAccessAllowed());
  RequirePersonalDataAccess();
}

TEST_P(CompanyEndToEnd, MastersOfTheCompanyResolveReferences) {
  auto customers = TessaronGlobals::Customers();
  customers->GetAll(3);
  auto c = customers->Item(Variant(1));
  auto terms = CurrentListFor(qoListTerms);
  EXPECT_EQ(terms, std::static_pointer_cast<qcList>(TessaronGlobals::Terms()));
  // The reference asks the master collection, which asks QuickBooks once.
  auto target = c->Jobs()->Count() > 0 ? c->Jobs()->Object(Variant(1)) : nullptr;
  if (target) {
    EXPECT_EQ(target->Parent(), c->FullName());
  }
  EXPECT_TRUE(TessaronGlobals::Company()->ValidateAll());
}

TESSARON_ALL_EDITIONS(CompanyEndToEnd);

}  // namespace
}  // namespace tessaron
