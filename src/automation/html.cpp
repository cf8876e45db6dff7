#include "automation/html.h"

namespace automation {

namespace {

// "" for a character that stands for itself.
constexpr std::string_view entity_of(char character, Apostrophe apostrophe) noexcept {
    switch (character) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return apostrophe == Apostrophe::Escape ? "&#39;" : "";
        default:
            return {};
    }
}

}  // namespace

std::string html_encoded(std::string_view text, Apostrophe apostrophe) {
    std::string encoded;
    encoded.reserve(text.size());
    for (const char character : text) {
        if (const std::string_view entity = entity_of(character, apostrophe); entity.empty()) {
            encoded += character;
        } else {
            encoded += entity;
        }
    }
    return encoded;
}

}  // namespace automation
