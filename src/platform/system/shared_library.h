#pragma once

#include <string>

namespace platform {

// A library that is loaded when it is first wanted, and stays loaded until the program ends: the
// functions that were found in it outlive this object.
class SharedLibrary {
  public:
    // `purpose` begins the texts of errors. Throws: RunTimeError 429.
    SharedLibrary(std::string purpose, const char* name);

    // Throws: RunTimeError 429.
    template <typename Function>
    void find(const char* name, Function*& function) const {
        function = reinterpret_cast<Function*>(address_of(name));
    }

  private:
    using Address = void (*)();

    [[nodiscard]] Address address_of(const char* name) const;
    [[noreturn]] void fail(const char* otherwise) const;

    std::string purpose_;
    std::string name_;
};

}  // namespace platform
