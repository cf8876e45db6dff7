#pragma once

#include <string>
#include <string_view>

namespace callerid {

// One number of the phonebook and whose it is. Owned by the dictionary.
class Phonebook {
  public:
    std::string PhoneNumber = "0000000000";  // as the source wrote it
    std::string FirstName;                   // several joined by " or "
    std::string LastName;
    std::string Location;  // "home", "cell", "work" or ""
    std::string Wav;       // sound file for this caller
    std::string Icon;      // reserved

    // The display name; every "&" of it reads as "and".
    [[nodiscard]] std::string Name() const;

    // As it was given.
    [[nodiscard]] const std::string& stored_name() const noexcept { return name_; }

    void set_Name(std::string_view name) { name_ = name; }

    [[nodiscard]] std::string key() const;

  private:
    std::string name_;
};

// A number without "-", "(", ")" and blanks, by which it is found.
[[nodiscard]] std::string phone_key(std::string_view number);

}  // namespace callerid
