#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "callerid/phonebook.h"

namespace core {
class Instance;
}

namespace host {
struct AddressRecord;
class PhoneAddOn;
}  // namespace host

namespace callerid {

// Numbers and whose they are, from the host's telephone add-on and from Friends.txt; the add-on
// goes before. Filled anew by each load of the settings. Part of the caller-ID subsystem.
class PhonebookDictionary {
  public:
    explicit PhonebookDictionary(core::Instance& instance) : instance_(instance) {}

    void BuildPhonebook();

    // "number : name": the number as FormatPhoneNumber lays it out; the book's name with its
    // location, else the given name, "Unknown" for "" and "O". Logs its errors.
    std::string HSPAddressBookLookup(const std::string& number, const std::string& name);

    // Sound file of the entry that was looked up last, "" without one.
    [[nodiscard]] const std::string& CallerWav() const noexcept { return caller_wav_; }

    // Whether the add-on is there. It is asked for as long as it is wanted and not there.
    bool InitHSP();

    // Requires: InitHSP has given true.
    [[nodiscard]] host::PhoneAddOn& hsp() const noexcept { return *hsp_; }

    // All entries, by number.
    [[nodiscard]] std::vector<Phonebook> entries() const;

    [[nodiscard]] std::size_t size() const noexcept { return by_key_.size(); }

    void clear();

  private:
    void BuildHSPPhonebook();
    void BuildFriendsPhonebook();
    void AddHSP(const host::AddressRecord& record, const std::string& phone,
                std::string_view location);
    void join(Phonebook& entry, const host::AddressRecord& record) const;
    void add_friend(std::string_view line);

    core::Instance& instance_;
    host::PhoneAddOn* hsp_ = nullptr;
    std::unordered_map<std::string, Phonebook> by_key_;
    std::string caller_wav_;
};

}  // namespace callerid
