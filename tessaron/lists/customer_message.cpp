#include "tessaron/lists/customer_message.h"

#include "tessaron/foundation/error_numbers.h"

namespace tessaron {

namespace {
const ListClassInfo& MessageClass() {
  static const ListClassInfo info = name_lists::FlatInfo(
      "CustomerMessage", qoObjectTypeCustomerMsg, qoListCustomerMessages, Send::IfSet,
      ListObject::Common::NameCheck(101, err::kMessageTooLong, err::kMessageTooLongText));
  return info;
}
ListCollectionInfo MessageList() {
  return name_lists::CollectionInfo("CustomerMessage", qoListCustomerMessages, "CustomerMsgQueryRq",
                                    qoObjectTypeCustomerMsg, "CustomerMsg");
}
}  // namespace

CustomerMessage::CustomerMessage() : ListObject(MessageClass()) {}
CustomerMessages::CustomerMessages() : FlatNameCollection<CustomerMessage>(MessageList()) {}

}  // namespace tessaron
