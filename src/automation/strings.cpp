#include "automation/strings.h"

namespace automation {

std::vector<std::string> split(std::string_view text, std::string_view separator) {
    std::vector<std::string> fields;
    while (true) {
        const std::size_t end = text.find(separator);
        fields.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return fields;
        }
        text.remove_prefix(end + separator.size());
    }
}

std::vector<std::string> split(std::string_view text, char separator) {
    return split(text, std::string_view(&separator, 1));
}

std::string replace_all(std::string_view text, std::string_view what, std::string_view with) {
    return join(split(text, what), with);
}

std::string join(const std::vector<std::string>& fields, std::string_view separator) {
    std::string joined;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        joined += i == 0 ? std::string_view() : separator;
        joined += fields[i];
    }
    return joined;
}

}  // namespace automation
