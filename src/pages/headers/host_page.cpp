#include "pages/headers/host_page.h"

#include <algorithm>
#include <array>
#include <utility>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/date.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "host/clock.h"
#include "host/host_interface.h"

namespace pages {

using automation::guarded;

namespace {

constexpr double kNewerHost = 1.538;
constexpr std::string_view kNoAddresses;
constexpr std::array<std::string_view, 2> kTouchscreenBrowsers{"Velora", "QNX"};

automation::Object& required(const std::shared_ptr<automation::Object>& object) {
    if (object == nullptr) {
        throw automation::RunTimeError(automation::ErrorNumber::ObjectVariableNotSet);
    }
    return *object;
}

}  // namespace

void HostPage::set_objects(std::shared_ptr<automation::Object> request,
                           std::shared_ptr<automation::Object> response) {
    request_ = std::move(request);
    response_ = std::move(response);
}

std::string HostPage::server_variable(std::string_view name) const {
    std::array<automation::Value, 1> arguments{automation::Value(name)};
    return automation::to_text(required(request_).call("ServerVariables", arguments));
}

void HostPage::redirect(std::string_view location) const {
    std::array<automation::Value, 1> arguments{automation::Value(location)};
    required(response_).call("Redirect", arguments);
}

std::string HostPage::setting(std::string_view section, std::string_view key,
                              std::string_view fallback, std::string_view file) const {
    return core::without_quotes(instance_.hs().GetIniSetting(section, key, fallback, file));
}

std::string HostPage::page_setting(std::string_view key, std::string_view fallback) const {
    return setting("header.asp", key, fallback, "includes.ini");
}

std::string HostPage::web_setting(std::string_view key, std::string_view fallback) const {
    return setting("Settings", key, fallback, "web_settings.ini");
}

std::string HostPage::host_word(std::string_view name) const {
    const std::shared_ptr<automation::Object> object = instance_.hs().object();
    const bool is_told = object != nullptr && object->find_member(name).has_value();
    return is_told ? automation::to_text(object->call(name)) : "";
}

std::vector<host::DatabaseRow> HostPage::rows(std::string_view statement) const {
    return menus_ == nullptr ? std::vector<host::DatabaseRow>() : menus_->run(statement);
}

void HostPage::execute(std::string_view statement) const {
    static_cast<void>(rows(statement));
}

std::string HostPage::database_type() const {
    return menus_ == nullptr ? "" : menus_->type();
}

std::string HostPage::general_now() const {
    return automation::general_date(instance_.platform().clock.now());
}

bool is_on(std::string_view text) {
    const auto is_word = [text](std::string_view word) {
        return automation::equals_ignoring_case(text, word);
    };
    return is_word("yes") || is_word("on") || automation::parse_boolean(text).value_or(false);
}

std::string quoted_part(std::string_view value) {
    return automation::replace_all(value, "'", "''");
}

std::string column(const host::DatabaseRow& row, std::size_t index) {
    return index < row.size() ? row[index] : "";
}

void XStartMiscFunctionsASP(HostPage& page) {
    guarded(page.log(), " XStartMiscFunctionsASP: ", [&] {
        page.IsTouchscreen = false;
        page.SecurityMode.clear();
        page.SecureLevel = 0;
        page.SecureUser.clear();
        page.TouchscreenAddresses = automation::split(kNoAddresses, ',');
    });
}

bool xStartHeaderASP(HostPage& page) {
    return guarded(page.log(), "xStartHeaderASP ", [&] {
        page.is_newer_host = NumericHSVersion(page) >= kNewerHost;
        const std::string address = page.server_variable("REMOTE_ADDR");
        const std::string browser = page.server_variable("HTTP_USER_AGENT");
        const bool is_known = std::ranges::count(page.TouchscreenAddresses, address) > 0;
        if (is_known || std::ranges::any_of(kTouchscreenBrowsers, [&browser](auto word) {
                return browser.find(word) != std::string::npos;
            })) {
            page.IsTouchscreen = true;
        }
        return page.IsTouchscreen;
    });
}

double NumericHSVersion(HostPage& page) {
    return guarded(page.log(), "NumericHSVersion: ", [&] {
        std::string text = page.instance().hs().Version();
        for (const std::string_view word : {"Build", "Beta", " "}) {
            text = automation::replace_all(text, word, "");
        }
        if (text.empty()) {
            return kNewerHost;
        }
        std::vector<std::string> parts = automation::split(text, '.');
        parts.resize(std::min<std::size_t>(parts.size(), 2));
        return automation::parse_number(automation::join(parts, ".")).value_or(0);
    });
}

std::string fnPageName(HostPage& page) {
    return guarded(page.log(), "fnPageName: ", [&] {
        const std::string path = page.server_variable("PATH_INFO");
        return path.substr(path.rfind('\\') + 1);
    });
}

}  // namespace pages
