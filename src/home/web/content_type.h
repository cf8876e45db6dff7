#pragma once

#include <string_view>

namespace home {

struct ContentType {
    std::string_view name;     // "text/html"
    bool has_charset = false;  // a text whose encoding the type tells
    bool is_packable = false;  // gets smaller when it is packed
};

// The kind of a file by the extension of its name, without regard to case; bytes of no kind for
// one that is not known.
[[nodiscard]] ContentType content_type_of(std::string_view file_name);

// True for a Content-Type header of a kind that gets smaller.
[[nodiscard]] bool is_packable(std::string_view content_type);

}  // namespace home
