#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// One entry of the telephone add-on's address book.
struct PhoneEntry {
    std::string number;
    std::string name;
    std::string location;
};

// The host's telephone add-on: its address book and the last caller of each line.
class PhoneAddOn {
  public:
    virtual ~PhoneAddOn() = default;

    [[nodiscard]] virtual bool is_available() const { return false; }

    [[nodiscard]] virtual std::vector<PhoneEntry> address_book() { return {}; }

    [[nodiscard]] virtual PhoneEntry last_caller(std::int16_t /*line*/) { return {}; }
};

}  // namespace host
