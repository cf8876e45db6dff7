#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "host/telephone.h"

namespace home {

// The telephone add-on of the embedded host: the address book of a home, and the last call on each
// line. The book is read from the files *.vcf and *.csv of one folder, in the order of their names,
// and anew whenever it is asked for its size after one of them has changed. Owned by the host.
class Telephone final : public host::PhoneAddOn {
  public:
    // Takes "contacts.csv, line 3: no number, passed over".
    using Complain = std::function<void(const std::string& text)>;

    Telephone(std::filesystem::path folder, Complain complain)
        : folder_(std::move(folder)), complain_(std::move(complain)) {}

    [[nodiscard]] std::int32_t ADRCount() override;
    [[nodiscard]] host::AddressRecord ADRGet(std::int32_t index) override;
    [[nodiscard]] std::string CIDNumber(std::int16_t line) override;
    [[nodiscard]] std::string CIDName(std::int16_t line) override;

    // A call has come in.
    void note_call(std::int16_t line, const std::string& number, const std::string& name);

  private:
    struct Caller {
        std::string number;
        std::string name;
    };

    using Stamps = std::map<std::filesystem::path, std::filesystem::file_time_type>;

    [[nodiscard]] Stamps stamps() const;
    void read_book();
    void read_file(const std::filesystem::path& file);

    std::filesystem::path folder_;
    Complain complain_;
    Stamps read_;  // of the book as it is
    std::vector<host::AddressRecord> book_;
    std::map<std::int16_t, Caller> last_calls_;
};

}  // namespace home
