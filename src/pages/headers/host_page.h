#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "core/instance.h"
#include "host/menu_database.h"

namespace pages {

// A page with the look of the host's own web interface, while it is put together: what its pieces
// (header, menus, links, footer) share, and their way to the host. Owned by the plug-in for its
// whole life; each page begins it anew with `set_objects` and `XStartMiscFunctionsASP`.
class HostPage {
  public:
    // A host without a menu database has no users and no menus. Both outlive the page.
    HostPage(core::Instance& instance, host::MenuDatabase* menus)
        : instance_(instance), menus_(menus) {}

    // The menus of a host that has handed itself over after the page was made.
    void set_menus(host::MenuDatabase* menus) noexcept { menus_ = menus; }

    HostPage(const HostPage&) = delete;
    HostPage& operator=(const HostPage&) = delete;

    // Request and response of the page, late bound since the host's own server has its own.
    void set_objects(std::shared_ptr<automation::Object> request,
                     std::shared_ptr<automation::Object> response);

    // --- state of the page -----------------------------------------------------------------------

    bool IsTouchscreen = false;    // the client is a small screen
    std::string SecurityMode;      // "ENHANCED", "BASIC", "NONE" in any case, or ""
    std::int16_t SecureLevel = 0;  // 0 a guest, 10 full rights
    std::string SecureUser;        // a name, or "None", "GUEST", "LOCAL", "NO SECURITY"
    std::vector<std::string> TouchscreenAddresses;  // of clients that always count as such
    bool is_newer_host = false;                     // from version 1.538 on

    // --- ways to the host ------------------------------------------------------------------------

    [[nodiscard]] core::Instance& instance() noexcept { return instance_; }

    [[nodiscard]] core::VeloraLog& log() noexcept { return instance_.log; }

    // A variable of the request, "" when it has none. Throws: RunTimeError 91 without a request.
    [[nodiscard]] std::string server_variable(std::string_view name) const;

    // Throws: RunTimeError 91 without a response.
    void redirect(std::string_view location) const;

    // A setting of the host without quotes.
    [[nodiscard]] std::string setting(std::string_view section, std::string_view key,
                                      std::string_view fallback, std::string_view file) const;

    // The same of the page's own settings in includes.ini, and of the web server in
    // web_settings.ini.
    [[nodiscard]] std::string page_setting(std::string_view key, std::string_view fallback) const;
    [[nodiscard]] std::string web_setting(std::string_view key, std::string_view fallback) const;

    // A word of the host that only some hosts tell, such as "Sunrise"; "" otherwise.
    [[nodiscard]] std::string host_word(std::string_view name) const;

    // Throw: RunTimeError of the database.
    [[nodiscard]] std::vector<host::DatabaseRow> rows(std::string_view statement) const;
    void execute(std::string_view statement) const;

    [[nodiscard]] std::string database_type() const;

    [[nodiscard]] std::string general_now() const;

  private:
    core::Instance& instance_;
    host::MenuDatabase* menus_;
    std::shared_ptr<automation::Object> request_;
    std::shared_ptr<automation::Object> response_;
};

// "1", "Yes", "True", "On" in any case.
[[nodiscard]] bool is_on(std::string_view text);

// A value for use between the quotes of a statement.
[[nodiscard]] std::string quoted_part(std::string_view value);

// A column of a row, "" when the row is shorter.
[[nodiscard]] std::string column(const host::DatabaseRow& row, std::size_t index);

// --- start of a page ----------------------------------------------------------------------------
// As all functions of the header pieces, these log a failure under their name and end there; the
// page is sent with what it has.

// Clears what a page before has left. The list of addresses is empty: one empty entry.
void XStartMiscFunctionsASP(HostPage& page);

// Finds out what kind of client this is. Gives `IsTouchscreen`.
bool xStartHeaderASP(HostPage& page);

// 1.7 for "1.7.0", with the words "Build" and "Beta" passed over; 0 when that is no number.
[[nodiscard]] double NumericHSVersion(HostPage& page);

// The file name in PATH_INFO, behind its last backslash.
[[nodiscard]] std::string fnPageName(HostPage& page);

}  // namespace pages
