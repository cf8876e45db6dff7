#include "pages/headers/logo_bar.h"

#include <array>
#include <chrono>
#include <string_view>

#include "automation/date.h"
#include "host/clock.h"
#include "pages/fast_string.h"
#include "pages/headers/host_page.h"
#include "pages/headers/links.h"

namespace pages {

namespace {

using std::chrono::days;
using std::chrono::floor;

automation::DateTime now(HostPage& page) {
    return page.instance().platform().clock.now();
}

std::string clock_script(HostPage& page) {
    const std::string script = FileContents(page, "\\html\\javascript\\clock.js");
    return script == kNoFile ? "" : "<script language=\"JavaScript\">" + script + "</script>";
}

std::string date_today(HostPage& page) {
    return automation::general_date(floor<days>(now(page)));
}

// The general form shows the time alone on day 0.
std::string time_of_day(HostPage& page) {
    const automation::DateTime moment = now(page);
    return automation::general_date(automation::date_time_of({}) + (moment - floor<days>(moment)));
}

// What the xAP network has told goes before what the host knows.
std::string sun_word(HostPage& page, const std::string& told, std::string_view name) {
    return told.empty() ? page.host_word(name) : told;
}

std::string sunrise(HostPage& page) {
    return sun_word(page, page.instance().Sunrise, "Sunrise");
}

std::string sunset(HostPage& page) {
    return sun_word(page, page.instance().Sunset, "Sunset");
}

std::string temperature(HostPage& page) {
    return page.setting("WeatherCom_CurrentData", "Temp", "", "WeatherData.ini");
}

std::string user_name(HostPage& page) {
    return page.SecureUser;
}

struct Cell {
    std::string_view option;
    std::string (*content)(HostPage& page);
};

constexpr std::array<Cell, 7> kCells{{
    {"logoShowClock", &clock_script},
    {"logoShowDate", &date_today},
    {"logoShowTime", &time_of_day},
    {"logoShowSunrise", &sunrise},
    {"logoShowSunset", &sunset},
    {"logoShowWeatherManTemp", &temperature},
    {"logoShowUsername", &user_name},
}};

}  // namespace

std::string logo_bar(HostPage& page) {
    FastString html;
    html.Add("<tr class=\"logobar\">");
    for (const Cell& cell : kCells) {
        if (is_on(page.page_setting(cell.option, "0"))) {
            html.Add("<td>" + cell.content(page) + "</td>");
        }
    }
    html.Add("<td align=\"right\"><a href=\"" + page.page_setting("logoImageLink", "/") +
             "\"><img src=\"/Tervalis.JPG\" border=\"0\"></a></td></tr>");
    return html.value();
}

}  // namespace pages
