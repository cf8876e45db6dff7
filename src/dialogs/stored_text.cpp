#include "dialogs/stored_text.h"

#include <algorithm>

#include "automation/convert.h"
#include "host/protection.h"

namespace dialogs {

namespace {

bool is_control(char character) {
    constexpr unsigned char kBlank = 0x20;
    constexpr unsigned char kDelete = 0x7F;
    const auto byte = static_cast<unsigned char>(character);
    return byte < kBlank || byte == kDelete;
}

std::string without(std::string_view text, std::string_view unwanted) {
    std::string kept(text);
    std::erase_if(kept, [unwanted](char character) {
        return is_control(character) || unwanted.find(character) != std::string_view::npos;
    });
    return kept;
}

}  // namespace

std::string stored_value(const host::Protection& protection, std::string_view text) {
    return protection.settings_are_checked ? without(text, "\"") : std::string(text);
}

std::string stored_field(const host::Protection& protection, std::string_view text) {
    return protection.settings_are_checked ? without(text, "\",=") : std::string(text);
}

std::string stored_key(const host::Protection& protection, std::string_view text) {
    if (!protection.settings_are_checked) {
        return std::string(text);
    }
    std::string key = without(text, "\"=");
    key.erase(0, std::min(key.find_first_not_of(" ;#"), key.size()));
    return automation::trim(key);
}

}  // namespace dialogs
