// What an application can write: the members that skip the field rule or set the state are
// out of reach of application code (checked when this file compiles), and the public path
// still turns a stored object Dirty.
#include <gtest/gtest.h>

#include <concepts>
#include <string>

#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/company/company.h"
#include "tessaron/lists/class.h"
#include "tessaron/lists/account.h"
#include "tessaron/lists/customer.h"
#include "tessaron/lists/employee.h"
#include "tessaron/lists/payroll_item.h"
#include "tessaron/lists/sales_items.h"
#include "tessaron/lists/stock_items.h"
#include "tessaron/lists/vendor.h"
#include "tessaron/lists/sales_rep.h"
#include "tessaron/lists/sales_tax_code.h"
#include "tessaron/lists/terms.h"
#include "tessaron/lists/to_do.h"
#include "tests/lists/customer_records.h"

namespace tessaron {
namespace {

template <class T>
concept CanSetNameInternal = requires(T& t) { t.SetNameInternal(std::string()); };
template <class T>
concept CanSetIsActiveInternal = requires(T& t) { t.SetIsActiveInternal(true); };
template <class T>
concept CanSetParentInternal = requires(T& t) { t.SetParentInternal(std::string()); };
template <class T>
concept CanSetSublevelInternal = requires(T& t) { t.SetSublevelInternal(int16_t{1}); };
template <class T>
concept CanSetObjectState = requires(T& t) { t.SetObjectState(qoObjectStateNew); };
template <class T>
concept CanResetToNew = requires(T& t) { t.ResetToNew(); };
template <class T>
concept CanModifyWhileClean = requires(T& t) { t.ModifyWhileClean(); };
template <class T>
concept CanSetMaster = requires(T& t) { t.SetMaster(true); };
template <class T>
concept CanReadFromDom = requires(T& t, const XmlNode& n) { t.FromDom(n); };

template <class T>
constexpr bool HidesCommonInternals = !CanSetNameInternal<T> && !CanSetIsActiveInternal<T> &&
                                      !CanSetParentInternal<T> && !CanSetSublevelInternal<T> &&
                                      !CanSetObjectState<T> && !CanResetToNew<T> && !CanModifyWhileClean<T>;

static_assert(HidesCommonInternals<ListObject>);
static_assert(HidesCommonInternals<Class>);
static_assert(HidesCommonInternals<Customer>);
static_assert(HidesCommonInternals<StandardTerm>);
static_assert(HidesCommonInternals<ToDo>);
static_assert(HidesCommonInternals<Account>);
static_assert(HidesCommonInternals<Vendor> && HidesCommonInternals<OtherName>);
static_assert(HidesCommonInternals<Employee> && HidesCommonInternals<PayrollItemWage>);
// Items keep ObjectState writable: the item interface that lines and the collection price
// items through says so. Everything else stays inside.
static_assert(CanSetObjectState<ItemService> && !CanSetNameInternal<ItemService> && !CanSetParentInternal<ItemService> &&
              !CanResetToNew<ItemGroup> && !CanModifyWhileClean<ItemGroup>);
template <class T>
concept CanSetNameChecked = requires(T& t) { t.SetNameChecked(std::string()); };
template <class T, class... A>
concept CanSetTermsInternal = requires(T& t, A... a) { t.SetTermsInternal(a...); };
template <class T>
concept CanSetKeyInternal = requires(T& t) { t.SetKeyInternal(std::string()); };
template <class T>
concept CanSetInitialInternal = requires(T& t) { t.SetInitialInternal(std::string()); };
template <class T>
concept CanSetDescriptionInternal = requires(T& t) { t.SetDescriptionInternal(std::string()); };
template <class T>
concept CanSetIsTaxableInternal = requires(T& t) { t.SetIsTaxableInternal(true); };

static_assert(!CanSetNameChecked<Customer>);
static_assert(!CanSetTermsInternal<StandardTerm, int16_t, int16_t, Currency>);
static_assert(!CanSetTermsInternal<DateDrivenTerm, int16_t, int16_t, int16_t, Currency>);
static_assert(!CanSetKeyInternal<ToDo>);
static_assert(!CanSetInitialInternal<SalesRep>);
static_assert(!CanSetDescriptionInternal<SalesTaxCode> && !CanSetIsTaxableInternal<SalesTaxCode>);
static_assert(!CanSetObjectState<Address> && !CanReadFromDom<Address>);
static_assert(!CanSetObjectState<CreditCard> && !CanReadFromDom<CreditCard>);
static_assert(!CanReadFromDom<Company>);
static_assert(!CanSetMaster<Classes>);
template <class T>
concept CanSetFullName = requires(T& t) { t.SetFullName(std::string()); };
template <class T>
concept CanSetListID = requires(T& t) { t.SetListID(std::string()); };
template <class T>
concept CanReadFromNode = requires(T& t, const XmlNode& n) { t.ReadFromNode(n); };
// A reference is rewired only by the setters of its owner, which run the field rule.
static_assert(!CanSetFullName<qcListObjectRef> && !CanSetListID<qcListObjectRef> && !CanReadFromNode<qcListObjectRef>);
// The list objects' own FromDom stays public: it is the common interface of every record.
static_assert(CanReadFromDom<Class>);

using detail::ListObjectAccess;

TEST(InternalAccess, PublicSetterTurnsStoredCustomerDirty) {
  testing::ListSession session;
  auto c = testing::ParsedCustomer(testing::CustomerRet("80-1", "Acme"));
  ASSERT_EQ(c->ObjectState(), qoObjectStateClean);
  c->SetPhone("555-0100");
  EXPECT_EQ(c->ObjectState(), qoObjectStateDirty);
  EXPECT_EQ(c->Phone(), "555-0100");
}

TEST(InternalAccess, PublicReferenceSetterTurnsStoredCustomerDirty) {
  testing::ListSession session("3.0");  // the version whose modify carries the terms
  auto c = testing::ParsedCustomer(testing::CustomerRet("80-1", "Acme"));
  c->SetTerms("Net 30");
  EXPECT_EQ(c->ObjectState(), qoObjectStateDirty);
  EXPECT_EQ(c->Terms(), "Net 30");
}

TEST(InternalAccess, AccessClassWritesWithoutTheFieldRule) {
  testing::ListSession session;
  auto c = testing::ParsedCustomer(testing::CustomerRet("80-1", "Acme"));
  ListObjectAccess::SetNameInternal(*c, "Zenith");
  EXPECT_EQ(c->Name(), "Zenith");
  EXPECT_EQ(c->ObjectState(), qoObjectStateClean);
  ListObjectAccess::ResetToNew(*c);
  EXPECT_EQ(c->ObjectState(), qoObjectStateNew);
  EXPECT_EQ(c->BillTo()->ObjectState(), qoObjectStateNew);
}

}  // namespace
}  // namespace tessaron
