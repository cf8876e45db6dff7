#pragma once

#include <string_view>

namespace host {

// The host's log. A line has a type, shown as a column, and a text of code page 1252.
class Log {
  public:
    virtual ~Log() = default;

    // Throws: RunTimeError when the line cannot be stored.
    virtual void Writelog(std::string_view type, std::string_view message) = 0;
};

}  // namespace host
