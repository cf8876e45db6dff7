#include "app/request_members.h"

#include <cstdio>
#include <nlohmann/json.hpp>

#include "automation/code_page.h"

namespace app {

automation::RunTimeError bad_request(const std::string& text) {
    return {automation::ErrorNumber::InvalidProcedureCall, text};
}

Json parsed_request(const std::string& line) {
    Json request = Json::parse(line, nullptr, false);
    if (!request.is_object()) {
        throw bad_request("The request is no JSON object in one line");
    }
    return request;
}

// Texts of a request are told in errors, which are in the code page like all the others.
std::string text_member(const Json& request, const char* name) {
    const auto member = request.find(name);
    if (member == request.end() || !member->is_string()) {
        throw bad_request("The request wants a text \"" + std::string(name) + "\"");
    }
    return automation::utf8_to_code_page(member->get<std::string>());
}

std::vector<std::string> texts_member(const Json& request, const char* name) {
    const auto problem =
        bad_request("The request wants an array of texts \"" + std::string(name) + "\"");
    const auto member = request.find(name);
    if (member == request.end() || !member->is_array() || member->empty()) {
        throw problem;
    }
    std::vector<std::string> texts;
    for (const Json& entry : *member) {
        if (!entry.is_string()) {
            throw problem;
        }
        texts.push_back(automation::utf8_to_code_page(entry.get<std::string>()));
    }
    return texts;
}

std::int64_t count_member(const Json& request, const char* name, std::int64_t fallback) {
    const auto member = request.find(name);
    if (member == request.end()) {
        return fallback;
    }
    if (!member->is_number_integer() || member->get<double>() < 0) {
        throw bad_request("The request wants a whole number \"" + std::string(name) +
                          "\", 0 or more");
    }
    return member->get<std::int64_t>();
}

Json texts_json(const std::vector<std::string>& code_page_texts) {
    Json array = Json::array();
    for (const std::string& text : code_page_texts) {
        array.push_back(automation::code_page_to_utf8(text));
    }
    return array;
}

Json moment_json(const std::optional<automation::DateTime>& moment) {
    if (!moment) {
        return nullptr;
    }
    const auto day = std::chrono::floor<std::chrono::days>(*moment);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(std::chrono::floor<std::chrono::seconds>(*moment - day));
    char text[48];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return std::string(text);
}

}  // namespace app
