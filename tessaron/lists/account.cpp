#include "tessaron/framework/detail/list_object_access.h"
#include "tessaron/lists/account.h"

#include "tessaron/company/company.h"
#include "tessaron/connection/library_state.h"
#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/qc_error.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"

namespace tessaron {

namespace {

Account& Self(ListObject& o) { return static_cast<Account&>(o); }

// The middle dot between an account's number and its name, in UTF-8.
constexpr char kMiddleDot[] = "\xC2\xB7";

}  // namespace

const ListClassInfo& Account::Info() {
  using C = ListObject::Common;
  static const ListClassInfo info = [] {
    ListClassInfo i = ClassOf("Account", qoObjectTypeAccount, qoListAccounts, ModifyRule::Raise, "XMLModify not supported");
    i.supportsChildren = true;
    i.key = KeyRule::TreeFullName;
    auto addText = [](std::string_view tag, std::string Account::*m) { return field::Text(tag, m).Add(Send::IfSet); };
    i.fields = C::Rows({
        C::Name(Send::Always),
        C::FullName(),
        C::IsActive(),
        C::ParentRef(),
        C::Sublevel(),
        field::Enum("AccountType", &Account::accountType_, qoeAccountType).Add(Send::IfSet),
        field::Dropped("DetailAccountType"),
        field::Text("SpecialAccountType", &Account::specialAccountType_),
        addText("AccountNumber", &Account::number_).As("Number"),
        addText("BankNumber", &Account::bankNumber_),
        field::Text("LastCheckNumber", &Account::lastCheckNumber_),
        addText("Desc", &Account::description_).As("Description"),
        field::Amount("Balance", &Account::balance_),
        field::Amount("TotalBalance", &Account::totalBalance_),
        field::Amount("OpenBalance", &Account::openingBalance_).Add(Send::IfSet).NotInQuery().As("OpeningBalance"),
        field::DateOnly("OpenBalanceDate", &Account::openingBalanceDate_)
            .Add(Send::IfSet)
            .NotInQuery()
            .As("OpeningBalanceDate"),
        field::Custom(
            "TaxLineInfoRet",
            [](ListObject& o, const XmlNode& n) {
              for (const XmlNode& c : n.childNodes()) {
                if (c.baseName() == "TaxLineID") Self(o).taxLineId_ = static_cast<int16_t>(Variant(c.text()).ToInteger());
                else if (c.baseName() == "TaxLineName") Self(o).taxLineName_ = c.text();
              }
            },
            [](ListObject& o, xmlBldr& b, WriteMode) {
              if (Self(o).taxLineId_ == 0) return;
              b.OpenAggregateOnly("TaxLineInfoRet");
              b.CreateElement("TaxLineID", std::to_string(Self(o).taxLineId_));
              b.CreateElement("TaxLineName", Self(o).taxLineName_);
              b.EndAggregate("TaxLineInfoRet");
            },
            [](const ListObject& o) { return static_cast<const Account&>(o).taxLineName_; })
            .As("TaxLineName"),
        field::Text("CashFlowClassification", &Account::cashFlowClassification_),
        field::Dropped("DataExtRet"),
        field::Dropped("TaxCodeRef"),
        field::Dropped("CurrencyRef"),
    });
    i.checks = {
        C::NameCheck(31, err::kNameTooLong, err::kNameTooLongText),
        // A sub-account has the type of its parent.
        check::Custom([](ListObject& o, qcErrors& errors) {
          if (o.Parent().empty()) return;
          auto parent = std::dynamic_pointer_cast<Account>(C::LookUpParent(o));
          if (!parent) errors.Add(err::kInvalidParent, "Parent", err::kInvalidParentText);
          else if (parent->AccountType() != Self(o).AccountType())
            errors.Add(err::kParentAccountType, "Parent", err::kParentAccountTypeText);
        }),
        check::MaxLength(&Account::number_, "Number", 7, err::kAccountNumberTooLong, err::kAccountNumberTooLongText),
        check::MaxLength(&Account::bankNumber_, "BankNumber", 25, err::kBankNumberTooLong, err::kBankNumberTooLongText),
        check::MaxLength(&Account::description_, "Description", 29, err::kAccountDescTooLong,
                         err::kAccountDescTooLongText),
    };
    return i;
  }();
  return info;
}

Account::Account() : ListObject(Info()), DataExtOwner(qoObjectTypeAccount) {}

void Account::SetAccountType(qbEnumAccountType value) { Store(accountType_, value, false); }
void Account::SetNumber(const std::string& value) { Store(number_, value, false); }
void Account::SetLastCheckNumber(const std::string& value) { Store(lastCheckNumber_, value, false); }
void Account::SetBankNumber(const std::string& value) { Store(bankNumber_, value, false); }
void Account::SetDescription(const std::string& value) { Store(description_, value, false); }
void Account::SetOpeningBalance(Currency value) { Store(openingBalance_, value, false); }
void Account::SetOpeningBalanceDate(Date value) { Store(openingBalanceDate_, value, false); }

std::string Account::NameWithNumber() const { return number_.empty() ? name_ : number_ + kMiddleDot + name_; }

std::string Account::FullNameWithNumber() const {
  const auto& company = State().CurrentCompany;
  if (!company || !company->Preferences()->IsUsingAccountNumbers()) return FullName();
  const std::string parent = Parent();
  if (parent.empty()) return NameWithNumber();
  auto accounts = company->Accounts();
  std::string path, prefix;
  size_t start = 0;
  for (;;) {
    const size_t colon = parent.find(':', start);
    prefix = parent.substr(0, colon);
    if (!path.empty()) path += ":";
    path += accounts->Item(Variant(prefix))->NameWithNumber();
    if (colon == std::string::npos) break;
    start = colon + 1;
  }
  return path + ":" + NameWithNumber();
}

Currency Account::ChildBalances() {
  Currency sum;
  for (const auto& ref : *Children()) {
    auto child = std::dynamic_pointer_cast<Account>(ref->Object());
    if (child) sum += child->Balance() + child->ChildBalances();
  }
  return sum;
}

Currency Account::RollUpBalances() { return ChildBalances() + balance_; }

// ---- Accounts ------------------------------------------------------------------------------

namespace {
const ListCollectionInfo& AccountsInfo() {
  static const ListCollectionInfo info = [] {
    ListCollectionInfo i;
    i.className = "Account";
    i.listType = qoListAccounts;
    i.queryRequest = "AccountQueryRq";
    i.queryObjectType = qoObjectTypeAccount;
    i.mirrorObjectName = "Account";
    // A Dirty account goes to XMLModify, which refuses: QuickBooks has no modify for it.
    i.dirty = DirtyStep::Modify;
    i.commitErrorField = "QuickBooks response: ";
    return i;
  }();
  return info;
}
}  // namespace

Accounts::Accounts() : ListCollection<Account>(AccountsInfo()) {}

std::shared_ptr<Account> Accounts::Add(const std::string& Name, qbEnumAccountType AccountType,
                                       const std::string& ParentFullName, const std::string& Number,
                                       const std::string& Description, const std::string& BankNumber,
                                       Currency OpeningBalance, Date OpeningBalanceDate, bool IsActive) {
  return AddNew([&](Account& a) {
    detail::ListObjectAccess::SetNameInternal(a, Name);
    detail::ListObjectAccess::SetIsActiveInternal(a, IsActive);
    detail::ListObjectAccess::SetParentInternal(a, ParentFullName);
    a.SetAccountType(AccountType);
    a.SetNumber(Number);
    a.SetDescription(Description);
    a.SetBankNumber(BankNumber);
    a.SetOpeningBalance(OpeningBalance);
    a.SetOpeningBalanceDate(OpeningBalanceDate);
  });
}

int32_t Accounts::GetByAccountType(qbEnumAccountType AccountType, int32_t MaxReturned, const std::string& sMDBPath) {
  const std::string& type = EnumCodeToXML(AccountType, qoeAccountType);
  return RunQuery(CollectionInfo().queryRequest, MaxReturned, sMDBPath,
                  [&](xmlBldr& b) { b.CreateElement("AccountType", type); });
}

}  // namespace tessaron
