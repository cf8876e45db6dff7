#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace core {

// Ends a key and a pair in the body of an outgoing xAP message, as the transport takes it.
inline constexpr char kXapKeyEnd = '\x01';
inline constexpr char kXapPairEnd = '\x00';

struct XapPair {
    std::string_view key;
    std::string_view value;
};

// The pairs of a message's first block, in this order.
[[nodiscard]] inline std::string xap_body(std::initializer_list<XapPair> pairs) {
    std::string body;
    for (const XapPair& pair : pairs) {
        if (!body.empty()) {
            body += kXapPairEnd;
        }
        body += pair.key;
        body += kXapKeyEnd;
        body += pair.value;
    }
    return body;
}

}  // namespace core
