#pragma once

#include <cstdint>
#include <string>

namespace host {

// One record of the telephone add-on's address book. Fields without a value are "".
struct AddressRecord {
    std::string home_phone;
    std::string cell_phone;
    std::string business_phone;
    std::string First;
    std::string last;
    std::string announce_local_wav;  // sound file for this caller
};

// The host's telephone add-on, "hsPhone.Application": its address book and the last caller of each
// line. Owned by the host, outlives the plug-in. Texts are in code page 1252.
class PhoneAddOn {
  public:
    virtual ~PhoneAddOn() = default;

    [[nodiscard]] virtual std::int32_t ADRCount() = 0;

    // From 1. Throws: RunTimeError 9 for an index that is not there.
    [[nodiscard]] virtual AddressRecord ADRGet(std::int32_t index) = 0;

    // The last call on a line, from 1; "" before the first.
    [[nodiscard]] virtual std::string CIDNumber(std::int16_t line) = 0;
    [[nodiscard]] virtual std::string CIDName(std::int16_t line) = 0;
};

}  // namespace host
