#include <algorithm>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/strings.h"
#include "home/phone/address_book.h"

namespace home {

namespace {

using automation::equals_ignoring_case;
using host::AddressRecord;

struct Line {
    std::size_t number = 0;  // from 1, of its first part
    std::string text;
};

// One property: "TEL;TYPE=cell:555 1234".
struct Property {
    std::string name;                     // without its group
    std::vector<std::string> parameters;  // "TYPE=cell"
    std::string value;
};

// Lines that begin with a blank go on with the one before.
std::vector<Line> unfolded(std::string_view text) {
    std::vector<Line> lines;
    std::size_t number = 0;
    for (std::string line : automation::split(text, '\n')) {
        ++number;
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        const bool is_folded = line.starts_with(' ') || line.starts_with('\t');
        if (is_folded && !lines.empty()) {
            lines.back().text += line.substr(1);
        } else if (!line.empty()) {
            lines.push_back({number, line});
        }
    }
    return lines;
}

// Cuts at separators outside quotes and behind no backslash.
std::vector<std::string> cut(std::string_view text, char separator) {
    std::vector<std::string> parts(1);
    bool is_quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') {
            is_quoted = !is_quoted;
        }
        if (text[i] == '\\' && i + 1 < text.size()) {
            parts.back().append(text.substr(i++, 2));
        } else if (text[i] == separator && !is_quoted) {
            parts.emplace_back();
        } else {
            parts.back() += text[i];
        }
    }
    return parts;
}

std::string unescaped(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size()) {
            const char next = text[++i];
            result += next == 'n' || next == 'N' ? ' ' : next;
        } else {
            result += text[i];
        }
    }
    return automation::utf8_to_code_page(automation::trim(result));
}

Property property_of(const std::string& line) {
    const std::vector<std::string> halves = cut(line, ':');
    const std::vector<std::string> head = cut(halves.front(), ';');
    Property property;
    property.name = head.front().substr(head.front().rfind('.') + 1);
    property.parameters.assign(head.begin() + 1, head.end());
    property.value = line.substr(std::min(halves.front().size() + 1, line.size()));
    return property;
}

bool is_of_type(const Property& property, std::string_view type) {
    return std::ranges::any_of(property.parameters, [&](const std::string& parameter) {
        return automation::find_ignoring_case(parameter, type) != std::string::npos;
    });
}

void set_if_empty(std::string& field, const std::string& value) {
    if (field.empty()) {
        field = value;
    }
}

void take_number(AddressRecord& record, const Property& property) {
    std::string number = property.value;
    if (automation::find_ignoring_case(number, "tel:") == 0) {  // the form of version 4.0
        number.erase(0, 4);
    }
    std::string& field = is_of_type(property, "cell")   ? record.cell_phone
                         : is_of_type(property, "work") ? record.business_phone
                                                        : record.home_phone;
    set_if_empty(field, unescaped(number));
}

void take_name(AddressRecord& record, const std::string& value) {
    const std::vector<std::string> parts = cut(value, ';');
    record.last = unescaped(parts.front());
    record.First = parts.size() > 1 ? unescaped(parts[1]) : std::string();
}

void take_full_name(AddressRecord& record, const std::string& value) {
    const std::string name = unescaped(value);
    const std::size_t blank = name.rfind(' ');
    if (blank == std::string::npos) {
        record.last = name;
    } else {
        record.First = name.substr(0, blank);
        record.last = name.substr(blank + 1);
    }
}

void take(AddressRecord& record, const Property& property) {
    if (equals_ignoring_case(property.name, "N")) {
        take_name(record, property.value);
    } else if (equals_ignoring_case(property.name, "FN") && record.last.empty() &&
               record.First.empty()) {
        take_full_name(record, property.value);
    } else if (equals_ignoring_case(property.name, "TEL")) {
        take_number(record, property);
    } else if (equals_ignoring_case(property.name, "X-SOUND")) {
        record.announce_local_wav = unescaped(property.value);
    }
}

bool has_number(const AddressRecord& record) {
    return !(record.home_phone + record.cell_phone + record.business_phone).empty();
}

}  // namespace

std::vector<AddressRecord> read_vcards(std::string_view text, const BookComplaint& complain) {
    std::vector<AddressRecord> records;
    AddressRecord record;
    std::size_t begin = 0;  // line of the open card, 0 outside one
    const auto refuse = [&](std::size_t line, const std::string& reason) {
        complain("line " + std::to_string(line) + ": " + reason);
    };
    for (const Line& line : unfolded(text)) {
        const std::string word = automation::trim(line.text);
        if (equals_ignoring_case(word, "BEGIN:VCARD")) {
            if (begin != 0) {
                refuse(begin, "a card without an end, passed over");
            }
            record = {};
            begin = line.number;
        } else if (begin == 0) {
            refuse(line.number, "no card has begun, passed over");
        } else if (equals_ignoring_case(word, "END:VCARD")) {
            if (has_number(record) && !(record.First + record.last).empty()) {
                records.push_back(record);
            } else {
                refuse(begin, "a card without a name or a number, passed over");
            }
            begin = 0;
        } else if (line.text.find(':') == std::string::npos) {
            refuse(line.number, "no ':' behind the property, passed over");
        } else {
            take(record, property_of(line.text));
        }
    }
    if (begin != 0) {
        refuse(begin, "a card without an end, passed over");
    }
    return records;
}

}  // namespace home
