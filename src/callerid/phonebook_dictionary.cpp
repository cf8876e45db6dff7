#include "callerid/phonebook_dictionary.h"

#include <algorithm>

#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "callerid/format_phone_number.h"
#include "callerid/friends_file.h"
#include "core/instance.h"
#include "host/files.h"
#include "host/host_interface.h"
#include "host/telephone.h"

namespace callerid {

namespace {

using automation::guarded;
using automation::text_of;
using host::AddressRecord;

}  // namespace

void PhonebookDictionary::BuildPhonebook() {
    guarded(instance_.log, "BuildPhonebook ", [&] {
        by_key_.clear();
        if (instance_.settings.useHSPPhoneBook) {
            BuildHSPPhonebook();
        }
        if (instance_.settings.useFriends) {
            BuildFriendsPhonebook();
        }
    });
}

void PhonebookDictionary::clear() {
    by_key_.clear();
    hsp_ = nullptr;
}

// --- the telephone add-on -----------------------------------------------------------------------

bool PhonebookDictionary::InitHSP() {
    if (hsp_ == nullptr && instance_.settings.useHSPPhoneBook) {
        hsp_ = instance_.hs().phone_add_on();
        if (hsp_ == nullptr) {
            instance_.settings.CIDLineNumber = 0;
            const auto number =
                static_cast<int>(automation::ErrorNumber::ActiveXCannotCreateObject);
            instance_.log.VeloraWriteLog(
                core::kLogType, "Unable to Create hsp Object ,#=" + std::to_string(number));
        }
    }
    instance_.log.debug([&] {
        const std::string type = hsp_ == nullptr ? "Nothing" : "Application";
        return "InitHSP type = " + type + ", is Application = " + text_of(hsp_ != nullptr);
    });
    return hsp_ != nullptr;
}

void PhonebookDictionary::BuildHSPPhonebook() {
    guarded(instance_.log, "BuildHSPPhonebook ", [&] {
        if (!InitHSP()) {
            return;
        }
        const std::int32_t count = hsp_->ADRCount();
        for (std::int32_t index = 1; index <= count; ++index) {
            const AddressRecord record = hsp_->ADRGet(index);
            AddHSP(record, record.home_phone, "home");
            AddHSP(record, record.cell_phone, "cell");
            AddHSP(record, record.business_phone, "work");
        }
    });
}

void PhonebookDictionary::AddHSP(const AddressRecord& record, const std::string& phone,
                                 std::string_view location) {
    if (phone.empty()) {
        return;
    }
    guarded(instance_.log, "AddHSP ", [&] {
        const std::string key = phone_key(phone);
        if (const auto found = by_key_.find(key); found != by_key_.end()) {
            join(found->second, record);
            return;
        }
        Phonebook entry;
        entry.FirstName = record.First;
        entry.LastName = record.last;
        entry.set_Name(record.First + " " + record.last);
        entry.Location = instance_.settings.ExcludeHSPLocation ? "" : location;
        entry.PhoneNumber = phone;
        entry.Wav = record.announce_local_wav;
        by_key_.emplace(key, std::move(entry));
    });
}

// Two people share a number: of one family they read "Anna or Ben Smith".
void PhonebookDictionary::join(Phonebook& entry, const AddressRecord& record) const {
    if (entry.LastName == record.last) {
        entry.FirstName += " or " + record.First;
        entry.set_Name(entry.FirstName + " " + entry.LastName);
    } else {
        entry.set_Name(entry.Name() + " or " + record.First + " " + record.last);
    }
}

// --- Friends.txt --------------------------------------------------------------------------------

void PhonebookDictionary::BuildFriendsPhonebook() {
    guarded(instance_.log, "BuildFriendsPhonebook ", [&] {
        const std::string& folder = instance_.settings.FriendsLocation;
        const std::string path = folder + "Friends.txt";
        host::Files& files = instance_.platform().files;
        if (folder.empty() || !files.FileExists(path)) {
            return;
        }
        std::size_t number = 0;
        for (const std::string& line : lines_of(files.read(path))) {
            ++number;
            if (is_malformed(line)) {
                instance_.log.debug([&] {
                    return path + ", line " + std::to_string(number) +
                           ": no name behind a tab, passed over";
                });
            }
            add_friend(line);
        }
    });
}

void PhonebookDictionary::add_friend(std::string_view line) {
    auto found = parse_friend(line);
    if (!found) {
        return;
    }
    Phonebook entry;
    entry.PhoneNumber = found->number;
    entry.set_Name(found->name);
    const bool is_whole_path =
        found->wav.find("\\\\") != std::string::npos || found->wav.find(':') != std::string::npos;
    if (!found->wav.empty()) {
        entry.Wav = is_whole_path ? found->wav : instance_.settings.FriendsLocation + found->wav;
    }
    by_key_.try_emplace(entry.key(), entry);
}

// --- look-up ------------------------------------------------------------------------------------

std::string PhonebookDictionary::HSPAddressBookLookup(const std::string& number,
                                                      const std::string& name) {
    return guarded(instance_.log, "HSPAddressBookLookup ", [&] {
        const std::string key = phone_key(number);
        caller_wav_.clear();
        const auto found = by_key_.find(key);
        std::string shown = name.empty() || name == "O" ? "Unknown" : name;
        if (found != by_key_.end()) {
            const Phonebook& entry = found->second;
            shown = entry.Name();
            if (!entry.Location.empty()) {
                shown += " from " + entry.Location;
            }
            caller_wav_ = entry.Wav;
        }
        std::string answer = FormatPhoneNumber(key) + " : " + shown;
        instance_.log.debug([&] {
            return "Phonebook Entry Exists=" + text_of(found != by_key_.end()) + ", Number=" + key +
                   ", Default Name=" + name + ", Lookup=" + answer;
        });
        return answer;
    });
}

std::vector<Phonebook> PhonebookDictionary::entries() const {
    std::vector<Phonebook> entries;
    entries.reserve(by_key_.size());
    for (const auto& [key, entry] : by_key_) {
        entries.push_back(entry);
    }
    std::ranges::sort(entries, {}, &Phonebook::key);
    return entries;
}

}  // namespace callerid
