#include "home/web/url_text.h"

#include "automation/convert.h"
#include "automation/hexadecimal.h"
#include "automation/strings.h"

namespace home {
namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";

bool stays_in_addresses(char character) {
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z') ||
           std::string_view("-_.~").find(character) != std::string_view::npos;
}

}  // namespace

std::string percent_decoded(std::string_view text, Plus plus) {
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view digits = text.substr(i + 1, 2);
        if (text[i] == '%' && digits.size() == 2 && automation::is_hexadecimal(digits)) {
            decoded += automation::bytes_of_hexadecimal(digits);
            i += 2;
        } else {
            decoded += text[i] == '+' && plus == Plus::IsBlank ? ' ' : text[i];
        }
    }
    return decoded;
}

std::string form_encoded(std::string_view text) {
    std::string encoded;
    for (const char character : text) {
        if (stays_in_addresses(character)) {
            encoded += character;
        } else if (character == ' ') {
            encoded += '+';
        } else {
            const auto code = static_cast<unsigned char>(character);
            encoded += {'%', kDigits[code / 16U], kDigits[code % 16U]};
        }
    }
    return encoded;
}

NamedTexts parse_form(std::string_view text) {
    NamedTexts pairs;
    for (const std::string& part : automation::split(text, '&')) {
        if (part.empty()) {
            continue;
        }
        const std::size_t sign = part.find('=');
        const std::string value = sign == std::string::npos ? "" : part.substr(sign + 1);
        pairs.emplace_back(percent_decoded(part.substr(0, sign), Plus::IsBlank),
                           percent_decoded(value, Plus::IsBlank));
    }
    return pairs;
}

NamedTexts parse_cookies(std::string_view text) {
    NamedTexts pairs;
    for (const std::string& part : automation::split(text, ';')) {
        const std::size_t sign = part.find('=');
        const std::string name = automation::trim(part.substr(0, sign));
        if (sign != std::string::npos && !name.empty()) {
            pairs.emplace_back(
                percent_decoded(name, Plus::IsBlank),
                percent_decoded(automation::trim(part.substr(sign + 1)), Plus::IsBlank));
        }
    }
    return pairs;
}

}  // namespace home
