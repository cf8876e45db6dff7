#pragma once

#include <string>

#include "callerid/xap_callers.h"

namespace core {
class Instance;
}

namespace xap {

class XapMessageQueue;

// Announces a call on the network, as "CID.Incoming" to all. Part of the node.
class XapCid final : public callerid::XapCallers {
  public:
    XapCid(core::Instance& instance, XapMessageQueue& queue) : instance_(instance), queue_(queue) {}

    // At once, past the queue. From now on the house takes no calls from the network, until the
    // settings are loaded again. Logs its errors.
    void XapCID(const std::string& given_name, const std::string& name,
                const std::string& number) override;

  private:
    core::Instance& instance_;
    XapMessageQueue& queue_;
};

}  // namespace xap
