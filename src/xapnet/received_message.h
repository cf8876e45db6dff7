#pragma once

#include <utility>

#include "host/xap_message.h"
#include "xapnet/message.h"

namespace xapnet {

// A parsed message as the logic reads it. Owned by the node that has received it, for the time of
// the listener's call. Blocks are those of the body; the header is no section.
class ReceivedMessage final : public host::XapMessage {
  public:
    explicit ReceivedMessage(Message message) : message_(std::move(message)) {}

    [[nodiscard]] std::string MsgSource() const override { return message_.source; }

    [[nodiscard]] std::string MsgClass() const override { return message_.message_class; }

    [[nodiscard]] std::string MsgTarget() const override { return message_.target; }

    [[nodiscard]] std::vector<std::string> MsgSection() const override;

    // All lines, also those that are no items. Throws: RunTimeError 9 for no such block.
    [[nodiscard]] std::vector<std::string> msgCollection(std::size_t block) const override;

    [[nodiscard]] bool CompareClass(std::string_view message_class) const override;
    [[nodiscard]] bool CompareTarget(std::string_view address) const override;

    // The first such item of the blocks of this name.
    [[nodiscard]] std::string GetItem(std::string_view section,
                                      std::string_view key) const override;

  private:
    Message message_;
};

}  // namespace xapnet
