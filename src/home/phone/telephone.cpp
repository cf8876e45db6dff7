#include "home/phone/telephone.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include "automation/code_page.h"
#include "automation/run_time_error.h"
#include "home/phone/address_book.h"

namespace home {

namespace {

bool is_vcard(const std::filesystem::path& file) {
    return automation::equals_ignoring_case(file.extension().string(), ".vcf");
}

bool is_csv(const std::filesystem::path& file) {
    return automation::equals_ignoring_case(file.extension().string(), ".csv");
}

}  // namespace

Telephone::Stamps Telephone::stamps() const {
    Stamps stamps;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder_, error)) {
        if (is_vcard(entry.path()) || is_csv(entry.path())) {
            stamps[entry.path()] = entry.last_write_time(error);
        }
    }
    return stamps;
}

std::int32_t Telephone::ADRCount() {
    if (Stamps now = stamps(); now != read_) {
        read_ = std::move(now);
        read_book();
    }
    return static_cast<std::int32_t>(book_.size());
}

void Telephone::read_book() {
    book_.clear();
    for (const auto& [file, stamp] : read_) {
        read_file(file);
    }
}

void Telephone::read_file(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        complain_(file.filename().string() + ": cannot be read");
        return;
    }
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    const BookComplaint complain = [&](const std::string& reason) {
        complain_(file.filename().string() + ", " + reason);
    };
    auto records = is_vcard(file) ? read_vcards(text, complain) : read_csv(text, complain);
    book_.insert(book_.end(), std::make_move_iterator(records.begin()),
                 std::make_move_iterator(records.end()));
}

host::AddressRecord Telephone::ADRGet(std::int32_t index) {
    if (index < 1 || static_cast<std::size_t>(index) > book_.size()) {
        throw automation::RunTimeError(automation::ErrorNumber::SubscriptOutOfRange);
    }
    return book_[static_cast<std::size_t>(index) - 1];
}

std::string Telephone::CIDNumber(std::int16_t line) {
    return last_calls_[line].number;
}

std::string Telephone::CIDName(std::int16_t line) {
    return last_calls_[line].name;
}

void Telephone::note_call(std::int16_t line, const std::string& number, const std::string& name) {
    last_calls_[line] = {number, name};
}

}  // namespace home
