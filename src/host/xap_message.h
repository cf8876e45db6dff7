#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// Stands for a block or key that is not there; a value of this text cannot be told from it.
inline constexpr std::string_view kXapUnknown = "Unknown";

// Ends a key and a pair in the body of an outgoing message, as the callback object takes it.
inline constexpr char kXapKeyEnd = '\x01';
inline constexpr char kXapPairEnd = '\x00';

// One received message of an xAP network (xAP 1.2), as the transport hands it over. Texts are in
// code page 1252 and keep the case that came. Owned by the transport; valid during the call.
class XapMessage {
  public:
    virtual ~XapMessage() = default;

    // Header: the sender's address "vendor.device.instance[:sub.address]", the class, and the
    // address that the message is for, "" without one.
    [[nodiscard]] virtual std::string MsgSource() const = 0;
    [[nodiscard]] virtual std::string MsgClass() const = 0;
    [[nodiscard]] virtual std::string MsgTarget() const = 0;

    // Names of the body's blocks, in order.
    [[nodiscard]] virtual std::vector<std::string> MsgSection() const = 0;

    // The lines of one block, "key=value", in order. Throws: RunTimeError 9 for no such block.
    [[nodiscard]] virtual std::vector<std::string> msgCollection(std::size_t block) const = 0;

    // Without regard to case. A target covers an address by its wildcards; one that is not there
    // covers none.
    [[nodiscard]] virtual bool CompareClass(std::string_view message_class) const = 0;
    [[nodiscard]] virtual bool CompareTarget(std::string_view address) const = 0;

    // A value of a block, both named without regard to case; "Unknown" when there is none.
    [[nodiscard]] virtual std::string GetItem(std::string_view section,
                                              std::string_view key) const = 0;
};

}  // namespace host
