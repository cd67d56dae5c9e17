// Accounts and every kind of item end to end against a company file of the embedded
// processor, in each national edition: created, committed, read back by every query,
// changed where QuickBooks allows it, and deleted.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/connection/tessaron_globals.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/lists/account.h"
#include "tessaron/lists/items.h"
#include "tests/e2e/e2e_session.h"
#include "tests/support/raised.h"

namespace tessaron {
namespace {

using testing::EditionTest;
using testing::NumberRaised;

std::string FirstError(qcErrors& errors) {
  return errors.Count() ? errors.Item(Variant(1))->Field() + ": " + errors.Item(Variant(1))->Description() : "";
}

class ItemsEndToEnd : public EditionTest {
 protected:
  void SetUp() override {
    EditionTest::SetUp();
    items = TessaronGlobals::Items();
    accounts = TessaronGlobals::Accounts();
  }

  // Commits the master and expects every object accepted.
  void CommitAll() {
    const int32_t failures = items->Commit();
    std::string why;
    for (const auto& i : *items)
      if (i->Errors()->Count()) why += i->FullName() + " - " + FirstError(*i->Errors()) + "; ";
    ASSERT_EQ(failures, 0) << why << FirstError(*items->Errors());
  }

  // Every query finds the item: by its kind, active or all, by name range, match and date
  // span, and by full name and list id through the query of all kinds.
  void FindEveryWay(const std::shared_ptr<ItemObject>& item) {
    const int32_t kind = item->ItemType();
    const std::string name = item->FullName();
    auto holds = [&](Items& found) {
      for (const auto& i : found)
        if (i->ListID() == item->ListID()) return i->ItemType() == item->ItemType();
      return false;
    };
    Items all, active, range, match, span, every;
    EXPECT_GT(all.GetAll(kind), 0);
    EXPECT_TRUE(holds(all)) << name;
    active.GetActive(kind);
    EXPECT_EQ(holds(active), item->IsActive()) << name;
    range.GetByNameRange(kind, name, name + "z");
    EXPECT_TRUE(holds(range)) << name;
    match.GetByNameMatch(kind, name.substr(name.size() - 4), qbMatchEndsWith);
    EXPECT_TRUE(holds(match)) << name;
    span.GetByDateSpan(kind, DateSerial(2000, 1, 1), 0);
    EXPECT_TRUE(holds(span)) << name;
    EXPECT_GT(every.GetAll(), all.Count());
    Items single;
    auto byName = single.GetByFullName(name);
    ASSERT_NE(byName, nullptr) << name;
    EXPECT_EQ(byName->ItemType(), item->ItemType());
    Items byId;
    ASSERT_NE(byId.GetByListID(item->ListID()), nullptr) << name;
    for (auto* c : {&all, &active, &range, &match, &span, &every, &single, &byId})
      EXPECT_EQ(c->Errors()->Count(), 0) << name << " " << FirstError(*c->Errors());
  }

  // Deletes through the master and sees the item gone from the file.
  void DeleteAndCheck(const std::shared_ptr<ItemObject>& item) {
    const std::string id = item->ListID();
    EXPECT_EQ(items->Delete(id, item->ItemType()), 0) << item->FullName();
    EXPECT_FALSE(items->ItemExists(Variant(item->FullName())));
    Items after;
    EXPECT_EQ(after.GetByListID(id), nullptr) << item->FullName();
  }

  std::shared_ptr<Items> items;
  std::shared_ptr<Accounts> accounts;
};

TEST_P(ItemsEndToEnd, AccountsAreAddedQueriedAndDeletedButNeverChanged) {
  auto gas = accounts->Add("E2E Gas", qbAccountTypeExpense, "Utilities", "6130", "Gas bill", "", Currency(), 0);
  ASSERT_EQ(accounts->Commit(), 0) << FirstError(*gas->Errors()) << FirstError(*accounts->Errors());
  ASSERT_FALSE(gas->ListID().empty());
  EXPECT_EQ(gas->FullName(), "Utilities:E2E Gas");
  EXPECT_EQ(gas->Sublevel(), 1);

  Accounts all, byType, range, match, span, active;
  EXPECT_GT(all.GetAll(), 20);
  EXPECT_TRUE(all.ItemExists(Variant("Utilities:E2E Gas")));
  EXPECT_GT(all.Item(Variant("Utilities"))->RollUpBalances(), Currency(-1));
  EXPECT_GT(byType.GetByAccountType(qbAccountTypeExpense), 0);
  for (const auto& a : byType) EXPECT_EQ(a->AccountType(), qbAccountTypeExpense) << a->FullName();
  EXPECT_GE(range.GetByNameRange("Utilities", "Utilities:F"), 2);
  EXPECT_GE(match.GetByNameMatch("E2E", qbMatchContains), 1);
  EXPECT_EQ(span.GetByDateSpan(DateSerial(2000, 1, 1), 0), all.Count());
  EXPECT_EQ(active.GetActive(), all.Count());
  Accounts single;
  ASSERT_NE(single.GetByListID(gas->ListID()), nullptr);
  EXPECT_EQ(single.GetByListID(gas->ListID())->Number(), "6130");

  // A child of another type is refused before anything is sent.
  auto odd = accounts->Add("E2E Odd", qbAccountTypeBank, "Utilities");
  EXPECT_FALSE(odd->Validate());
  accounts->Remove(Variant("Utilities:E2E Odd"));

  gas->SetDescription("Gas and heating");
  EXPECT_EQ(NumberRaised([&] { accounts->Commit(gas); }), err::kInternal);

  auto company = TessaronGlobals::Company();
  EXPECT_EQ(company->DefaultARAccount(), "Accounts Receivable");
  EXPECT_EQ(company->DefaultAPAccount(), "Accounts Payable");
  EXPECT_EQ(company->DefaultBankAccount(), "Checking");

  EXPECT_EQ(accounts->Delete(gas->ListID()), 0);
  Accounts after;
  EXPECT_EQ(after.GetByListID(gas->ListID()), nullptr);
}

TEST_P(ItemsEndToEnd, SalesAndChargeItemsLiveAndDie) {
  auto service = items->AddServiceWithSalesOrPurchase("E2E Labor", "", "Weekend labor", Currency(90), "Services", "Non");
  auto child = items->AddServiceWithSalesOrPurchase("E2E Overtime", "E2E Labor", "Overtime", Currency(120), "Services");
  auto part = items->AddNonInventoryWithSalesAndPurchase("E2E Screws", "", "Tax", "Cost of Goods Sold", "Sales",
                                                         Currency(3), "Screws bought", Currency(6), "Screws sold");
  auto rush = items->AddOtherChargeWithSalesOrPurchase("E2E Rush", "", "Rush fee", Currency(15), "Sales", "", true, true);
  auto discount = items->AddDiscount("E2E Discount", "", "Discounts Given", "Spring discount", Currency(5), false);
  auto payment = items->AddPayment("E2E Payment", "Deposit taken", "Check", "Undeposited Funds");
  auto subtotal = items->AddSubTotal("E2E Subtotal", "Lines so far");
  auto state = items->AddSalesTax("E2E State", "State tax", Currency(5));
  auto city = items->AddSalesTax("E2E City", "City tax", Currency::Parse("2.5"));
  CommitAll();
  auto group = items->AddSalesTaxGroup("E2E Combined", "State and city");
  group->GroupLines()->Add("E2E State");
  group->GroupLines()->Add("E2E City");
  CommitAll();

  EXPECT_EQ(child->Sublevel(), 1);
  EXPECT_EQ(child->FullName(), "E2E Labor:E2E Overtime");
  EXPECT_EQ(group->TaxRate(), Currency::Parse("7.5"));
  EXPECT_EQ(group->CalculateTax(Currency(100)), Currency::Parse("7.50"));
  for (std::shared_ptr<ItemObject> i : std::initializer_list<std::shared_ptr<ItemObject>>{
           service, child, part, rush, discount, payment, subtotal, state, city, group}) {
    EXPECT_EQ(i->ObjectState(), qoObjectStateClean) << i->FullName();
    FindEveryWay(i);
  }
  Items reread;
  reread.GetAll(qbItemOtherCharge);
  auto readRush = reread.CastObject<ItemOtherCharge>(reread.Item(Variant("E2E Rush")));
  ASSERT_NE(readRush, nullptr);
  EXPECT_TRUE(readRush->SalesOrPurchase()->AmountIsPercent());
  EXPECT_EQ(readRush->SalesCost(), Currency(15));
  reread.GetAll(qbItemDiscount);
  EXPECT_FALSE(reread.CastObject<ItemDiscount>(reread.Item(Variant("E2E Discount")))->AmountIsPercent());

  // Changes QuickBooks takes: a price, the active flag, a subtotal marked for sending.
  service->SalesOrPurchase()->SetAmount(Currency(95));
  part->SetIsActive(false);
  subtotal->SetDescription("Running total");
  subtotal->SetObjectState(qoObjectStateDirty);
  CommitAll();
  Items check;
  check.GetAll(qbItemService);
  EXPECT_EQ(check.CastObject<ItemService>(check.Item(Variant("E2E Labor")))->SalesCost(), Currency(95));
  check.GetAll(qbItemNonInventory);
  EXPECT_FALSE(check.Item(Variant("E2E Screws"))->IsActive());
  check.GetAll(qbItemSubtotal);
  EXPECT_EQ(check.Item(Variant("E2E Subtotal"))->SalesDescription(), "Running total");
  // ... and those it does not.
  EXPECT_EQ(NumberRaised([&] { rush->SetIsActive(false); }), err::kFieldCannotBeModified);
  discount->SetDescription("Summer discount");
  EXPECT_EQ(NumberRaised([&] { items->Commit(discount); }), err::kInternal);
  discount->SetObjectState(qoObjectStateClean);

  // A name another kind of item holds on file (here the master holds it too, and would
  // refuse the key at once).
  items->Remove(Variant("E2E Payment"));
  auto clash = items->AddOtherChargeWithSalesOrPurchase("E2E Payment", "", "", Currency(1), "Sales");
  State().ErrorMode = false;
  EXPECT_EQ(items->Commit(clash), 1);
  ASSERT_EQ(clash->Errors()->Count(), 1);
  EXPECT_EQ(static_cast<uint32_t>(clash->Errors()->Item(Variant(1))->Number()), err::kDuplicateInItemList);
  items->Remove(Variant("E2E Payment"));
  State().ErrorMode = true;

  for (std::shared_ptr<ItemObject> i : std::initializer_list<std::shared_ptr<ItemObject>>{
           group, state, city, child, service, part, rush, discount, payment, subtotal})
    DeleteAndCheck(i);
}

TEST_P(ItemsEndToEnd, StockAndCompositeItemsLiveAndDie) {
  auto hinge = items->AddInventory("E2E Hinge", "", "Sales", "Cost of Goods Sold", "Inventory Asset", Currency(4),
                                   "Brass hinge", Currency(2), "Hinge bought", "Tax", "", Currency(10), Currency(50),
                                   Currency(100), DateSerial(2024, 1, 2));
  auto asset = items->AddFixedAsset("E2E Lathe", "Wood lathe", DateSerial(2023, 5, 1), Currency(3200),
                                    "Furniture and Equipment", "New", "Tool Co", "Lathe");
  asset->SetSerialNumber("L-100");
  CommitAll();
  auto cabinet = items->AddAssembly("E2E Cabinet", "", "Sales", "Cost of Goods Sold", "Inventory Asset",
                                    Currency(300), "Cabinet", Currency(), "", "Tax", Currency(2));
  cabinet->Lines()->Add("E2E Hinge", Currency(4));
  auto kit = items->AddGroup("E2E Kit", "Hinge kit", true);
  kit->GroupLines()->Add("E2E Hinge", Currency(6));
  CommitAll();

  for (std::shared_ptr<ItemObject> i : std::initializer_list<std::shared_ptr<ItemObject>>{hinge, asset, cabinet, kit}) {
    EXPECT_EQ(i->ObjectState(), qoObjectStateClean) << i->FullName();
    FindEveryWay(i);
  }
  EXPECT_EQ(hinge->QuantityOnHand(), Currency(50));
  Items reread;
  reread.GetAll(qbItemAssembly);
  auto readCabinet = reread.CastObject<ItemAssembly>(reread.Item(Variant("E2E Cabinet")));
  ASSERT_NE(readCabinet, nullptr);
  ASSERT_EQ(readCabinet->Lines()->Count(), 1);
  EXPECT_EQ(readCabinet->Lines()->Item(1)->Item(), "E2E Hinge");
  EXPECT_EQ(readCabinet->Lines()->Item(1)->Quantity(), Currency(4));

  // Every kind here can be changed; the opening stock cannot, once committed.
  hinge->SetSalesPrice(Currency(5));
  EXPECT_EQ(NumberRaised([&] { hinge->SetQuantityOnHand(Currency(60)); }), err::kFieldCannotBeModified);
  cabinet->SetBuildPoint(Currency(3));
  kit->GroupLines()->Add("Hardware", Currency(1));
  asset->SetLocation("Workshop");
  CommitAll();
  Items check;
  check.GetAll(qbItemInventory);
  EXPECT_EQ(check.Item(Variant("E2E Hinge"))->SalesCost(), Currency(5));
  check.GetAll(qbItemGroup);
  EXPECT_EQ(check.CastObject<ItemGroup>(check.Item(Variant("E2E Kit")))->GroupLines()->Count(), 2);
  check.GetAll(qbItemFixedAsset);
  EXPECT_EQ(check.CastObject<ItemFixedAsset>(check.Item(Variant("E2E Lathe")))->Location(), "Workshop");

  // Assemblies and fixed assets are not deleted through the item list.
  EXPECT_EQ(NumberRaised([&] { items->Delete(cabinet->ListID(), qbItemAssembly); }), err::kInvalidItemType);
  DeleteAndCheck(kit);
}

TESSARON_ALL_EDITIONS(ItemsEndToEnd);

}  // namespace
}  // namespace tessaron
