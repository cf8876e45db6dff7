#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace home {

// Why a page could not be made, with the place in the file that is to blame. Texts are in code
// page 1252.
class AspFailure : public std::exception {
  public:
    std::string file;         // "/slides/clock.asp"
    std::int32_t line = 0;    // from 1; 0 when no line is to blame
    std::int32_t number = 0;  // of a run-time or syntax error; 0 for a fault of the page's form
    std::string description;
    std::string text;  // the line of the script, "" when it is not known

    [[nodiscard]] const char* what() const noexcept override { return "a page could not be made"; }

    // "/a.asp, line 3: error 13, Type mismatch (x = 1 + "a")"
    [[nodiscard]] std::string message() const;
};

// How a page ends before its last line: by `Response.End` or `Response.Redirect`. No error:
// `On Error Resume Next` does not see it, and whoever runs the page takes it as its end.
class AspEnd final : public std::exception {
  public:
    [[nodiscard]] const char* what() const noexcept override { return "the page has ended"; }
};

}  // namespace home
