#include "callerid/phonebook.h"

#include "automation/strings.h"

namespace callerid {

std::string Phonebook::Name() const {
    return automation::replace_all(name_, "&", "and");
}

std::string Phonebook::key() const {
    return phone_key(PhoneNumber);
}

std::string phone_key(std::string_view number) {
    std::string key(number);
    std::erase_if(key, [](char c) { return c == '-' || c == '(' || c == ')' || c == ' '; });
    return key;
}

}  // namespace callerid
