#include "cli/txn_kinds.h"

#include <span>

#include "tessaron/platform/text.h"
#include "tessaron/transactions/invoices.h"

namespace tessaron::cli {

namespace {

template <class C>
std::unique_ptr<TxnCollectionBase> Make() {
  return std::make_unique<C>();
}

constexpr TxnKindInfo kKinds[] = {
    {"Invoices", "Invoice", true, &Make<Invoices>},
};

}  // namespace

const TxnKindInfo* FindTxnKind(const std::string& name) {
  for (const TxnKindInfo& k : kKinds)
    if (EqualsIgnoreCase(name, k.collection) || EqualsIgnoreCase(name, k.kind)) return &k;
  return nullptr;
}

std::string TxnCollectionNames() {
  std::string out;
  for (const TxnKindInfo& k : kKinds) out += (out.empty() ? "" : ", ") + std::string(k.collection);
  return out;
}

std::vector<std::string> TxnKindNames() {
  std::vector<std::string> out;
  for (const TxnKindInfo& k : kKinds) out.emplace_back(k.kind);
  return out;
}

}  // namespace tessaron::cli
