// A scripted session with a list registry, for tests of list objects and collections.
//
//   ListSession qb;                              // qbXML 2.0, nothing registered yet
//   auto classes = qb.Register<Classes>();       // master instance, registered under "Class"
//   qb.Answer(ScriptedProcessor::Response("ClassQueryRs", Ret("Class", ...)));
//
// The registry is installed as the current company's for the life of the object.
#pragma once

#include <memory>
#include <string>

#include "tessaron/framework/list_collection.h"
#include "tessaron/framework/lists.h"
#include "tests/support/qbxml_check.h"
#include "tests/support/scripted_processor.h"
#include "tessaron/framework/detail/list_object_access.h"

namespace tessaron::testing {

class ListSession : public ScriptedSession {
 public:
  explicit ListSession(const std::string& qbxmlVersion = "2.0")
      : ScriptedSession(qbxmlVersion), lists_(std::make_shared<Lists>()) {
    SetCurrentLists(lists_);
  }
  ~ListSession() { SetCurrentLists(nullptr); }

  // A master instance of the collection, registered under its list's key.
  template <class C>
  std::shared_ptr<C> Register() {
    auto list = std::make_shared<C>();
    detail::ListObjectAccess::SetMaster(*list, true);
    lists_->AddObject(list, ListTypeKey(list->ListType()));
    return list;
  }
  Lists& lists() { return *lists_; }
  // Queues a response after checking it against the qbXML schema.
  void Answer(const std::string& response) {
    EXPECT_TRUE(IsValidQbxml(response)) << response;
    processor().QueueResponse(response);
  }

 private:
  std::shared_ptr<Lists> lists_;
};

// A `...Ret` element with the common fields of a stored record and `more` inside.
inline std::string Ret(const std::string& name, const std::string& listId, const std::string& more,
                       const std::string& editSequence = "1000") {
  return "<" + name + "Ret><ListID>" + listId + "</ListID><TimeCreated>2004-02-29T13:05:09</TimeCreated>"
         "<TimeModified>2004-03-01T08:00:00</TimeModified><EditSequence>" + editSequence + "</EditSequence>" +
         more + "</" + name + "Ret>";
}

// Several responses in one message, as QuickBooks answers a batch.
inline std::string Batch(const std::vector<std::string>& responses) {
  std::string body;
  for (const auto& r : responses) body += r;
  return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs>" + body + "</QBXMLMsgsRs></QBXML>";
}

// One response element (without the envelope) with the attributes in QuickBooks' order.
inline std::string ResponseElement(const std::string& rsName, int requestId, int statusCode, const std::string& body,
                                   const std::string& message = "Status OK") {
  return "<" + rsName + " requestID=\"" + std::to_string(requestId) + "\" statusCode=\"" + std::to_string(statusCode) +
         "\" statusSeverity=\"" + (statusCode == 0 ? "Info" : "Error") + "\" statusMessage=\"" + message + "\">" +
         body + "</" + rsName + ">";
}

}  // namespace tessaron::testing
