#include "qbsim/request_table.h"

namespace tessaron::qbsim {

const RequestTable& RequestTable::Instance() {
  static const RequestTable table = [] {
    RequestTable t;
    RegisterCompanyRequests(t);
    RegisterListRequests(t);
    RegisterTxnRequests(t);
    RegisterReportRequests(t);
    RegisterDataExtRequests(t);
    return t;
  }();
  return table;
}

void RequestTable::Add(const std::string& name, RequestEntry entry) { entries_[name] = std::move(entry); }

const RequestEntry* RequestTable::Find(std::string_view name) const {
  auto it = entries_.find(name);
  return it == entries_.end() ? nullptr : &it->second;
}

}  // namespace tessaron::qbsim
