#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "host/xap_message.h"

namespace core {

struct XapPair {
    std::string_view key;
    std::string_view value;
};

// The pairs of a message's first block, in this order.
[[nodiscard]] inline std::string xap_body(std::initializer_list<XapPair> pairs) {
    std::string body;
    for (const XapPair& pair : pairs) {
        if (!body.empty()) {
            body += host::kXapPairEnd;
        }
        body += pair.key;
        body += host::kXapKeyEnd;
        body += pair.value;
    }
    return body;
}

}  // namespace core
