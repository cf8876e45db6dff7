#include "pages/headers/security.h"

#include <array>
#include <string>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "pages/headers/host_page.h"

namespace pages {

using automation::guarded;

namespace {

constexpr std::int16_t kGuestLevel = 0;
constexpr std::int16_t kFullLevel = 10;
constexpr std::string_view kUnauthorizedPage = "unauthorized.asp";

void set_user(HostPage& page, std::int16_t level, std::string_view user) {
    page.SecureLevel = level;
    page.SecureUser = user;
}

// A session is known by the client's address.
void check_enhanced(HostPage& page) {
    const std::string session = page.server_variable("REMOTE_ADDR");
    std::vector<host::DatabaseRow> users;
    if (!session.empty() && session != "NA") {
        const std::string where = " WHERE SecID = '" + quoted_part(session) + "' ";
        users = page.rows("SELECT UserID, SecureLevel, SecID FROM MenuUsers" + where);
        const std::string now = page.database_type() == "SQL Server" ? " GetDate() " : " Now() ";
        page.execute("UPDATE MenuUsers SET LastSessTime = " + now + where);
    }
    if (users.empty()) {
        set_user(page, kGuestLevel, "None");
        return;
    }
    const host::DatabaseRow& user = users.front();
    const double level = automation::numeric_prefix(column(user, 1));
    set_user(page, automation::checked_int16(level), column(user, 0));
}

void check_basic(HostPage& page) {
    const std::string user = automation::to_upper(page.server_variable("AUTH_USER"));
    if (user.ends_with("SET")) {
        set_user(page, kFullLevel, "LOCAL");
    } else if (user == "GUEST") {
        set_user(page, kGuestLevel, user);
    } else {
        set_user(page, kFullLevel, user);
    }
}

void check_none(HostPage& page) {
    set_user(page, kFullLevel, "NO SECURITY");
}

struct Mode {
    std::string_view name;
    void (*check)(HostPage& page);
};

constexpr std::array<Mode, 3> kModes{{
    {"ENHANCED", &check_enhanced},
    {"BASIC", &check_basic},
    {"NONE", &check_none},
}};

// The name under which an attempt is noted, "" when it is not.
std::string noted_name(const HostPage& page) {
    const std::string mode = automation::to_upper(page.SecurityMode);
    if (mode == "ENHANCED") {
        return page.SecureUser;
    }
    return mode == "BASIC" ? "Anonymous Guest" : "";
}

}  // namespace

void XSecurityCheck(HostPage& page) {
    guarded(page.log(), "XSecurityCheck: ", [&] {
        if (page.SecurityMode.empty()) {
            page.SecurityMode = page.web_setting("usesecurity", "");
        }
        const std::string name = automation::to_upper(page.SecurityMode);
        for (const Mode& mode : kModes) {
            if (mode.name == name) {
                mode.check(page);
            }
        }
    });
}

void LogAuthorized(HostPage& page, std::int16_t wanted_level) {
    guarded(page.log(), "LogAuthorized: ", [&] {
        const std::string name = fnPageName(page);
        if (page.SecureLevel >= wanted_level ||
            automation::equals_ignoring_case(name, kUnauthorizedPage)) {
            return;
        }
        if (const std::string who = noted_name(page); !who.empty()) {
            page.log().VeloraWriteLog("Unauthorized", who + " at " +
                                                          page.server_variable("REMOTE_ADDR") +
                                                          " attempted to access " + name + " at " +
                                                          page.general_now() + ". ");
        }
        page.redirect("/" + std::string(kUnauthorizedPage));
    });
}

}  // namespace pages
