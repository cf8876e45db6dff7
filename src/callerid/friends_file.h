#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace callerid {

// One line of Friends.txt: "number TAB name [TAB sound file]". Blank fields count for nothing, and
// so do those behind the sound file.
struct Friend {
    std::string number;  // in any lay-out
    std::string name;
    std::string wav;  // "" without one
};

// What a line says; none for a comment, which begins with ";", and for a line without a name.
[[nodiscard]] std::optional<Friend> parse_friend(std::string_view line);

// A line that holds something, but neither a comment nor a friend.
[[nodiscard]] bool is_malformed(std::string_view line);

// The lines of a text, ended by CR LF or LF, without their ends.
[[nodiscard]] std::vector<std::string> lines_of(std::string_view text);

}  // namespace callerid
