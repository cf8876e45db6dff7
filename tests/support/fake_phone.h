#pragma once

#include <string>
#include <vector>

#include "host/telephone.h"

namespace support {

struct Numbers {
    std::string home{};
    std::string cell{};
    std::string work{};
};

[[nodiscard]] inline host::AddressRecord person(const std::string& first, const std::string& last,
                                                const Numbers& numbers,
                                                const std::string& sound = "") {
    host::AddressRecord record;
    record.First = first;
    record.last = last;
    record.home_phone = numbers.home;
    record.cell_phone = numbers.cell;
    record.business_phone = numbers.work;
    record.announce_local_wav = sound;
    return record;
}

// A telephone add-on with the book and the last call that a test gives it.
class FakePhone final : public host::PhoneAddOn {
  public:
    std::vector<host::AddressRecord> book;
    std::string number;
    std::string name;

    [[nodiscard]] std::int32_t ADRCount() override {
        return static_cast<std::int32_t>(book.size());
    }

    [[nodiscard]] host::AddressRecord ADRGet(std::int32_t index) override {
        return book.at(static_cast<std::size_t>(index) - 1);
    }

    [[nodiscard]] std::string CIDNumber(std::int16_t) override { return number; }

    [[nodiscard]] std::string CIDName(std::int16_t) override { return name; }
};

}  // namespace support
