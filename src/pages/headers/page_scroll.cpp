#include "pages/headers/page_scroll.h"

#include <array>
#include <vector>

#include "automation/code_page.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "pages/headers/host_page.h"
#include "pages/headers/links.h"

namespace pages {

using automation::guarded;

namespace {

constexpr std::string_view kMark = "(******REPLACE_PAGESCROLL******)";

// What the weather's lines are made of: a label and values of WeatherData.ini, one section each.
struct WeatherLine {
    std::string_view label;
    std::string_view section;
    std::array<std::string_view, 2> keys;
};

constexpr std::array<WeatherLine, 4> kWeather{{
    {"Now: ", "WeatherCom_CurrentData", {"Temp", "Conditions"}},
    {"Today: ", "WeatherCom_ForecastData", {"Day0", "High0"}},
    {"Tomorrow: ", "WeatherCom_ForecastData", {"Day1", "High1"}},
    {"Weather Alerts: ", "WeatherCom_CurrentData", {"AlertIDs", ""}},
}};

std::string weather_text(const HostPage& page, const WeatherLine& line) {
    std::string text(line.label);
    for (const std::string_view key : line.keys) {
        if (!key.empty()) {
            text += page.setting(line.section, key, "", "WeatherData.ini") + " ";
        }
    }
    return text;
}

std::string script_lines(const std::vector<std::string>& texts) {
    std::string lines;
    for (std::size_t index = 0; index < texts.size(); ++index) {
        lines += "wcontent[" + std::to_string(index) + "]=\"<font class='pagescrolltext'>" +
                 texts[index] + "</font>\";\r\n";
    }
    return lines;
}

bool is_off(std::string_view setting) {
    return setting.empty() || setting == "0" || automation::equals_ignoring_case(setting, "No");
}

}  // namespace

std::string PageScroll(HostPage& page) {
    return guarded(page.log(), "PageScroll: ", [&] {
        const std::string setting = page.page_setting("usePageScroll", "");
        const std::string script = is_off(setting)
                                       ? std::string(kNoFile)
                                       : FileContents(page, "\\html\\javascript\\page_scroll.js");
        if (script == kNoFile) {
            return std::string();
        }
        const std::string lines = automation::equals_ignoring_case(setting, "Default")
                                      ? PageScrollWeatherman(page)
                                      : script_lines(automation::split(setting, '|'));
        return "<script language=\"JavaScript\">" + automation::replace_all(script, kMark, lines) +
               "</script>";
    });
}

std::string PageScrollWeatherman(HostPage& page) {
    return guarded(page.log(), "PageScrollWeatherman: ", [&] {
        std::vector<std::string> texts;
        texts.reserve(kWeather.size());
        for (const WeatherLine& line : kWeather) {
            texts.push_back(weather_text(page, line));
        }
        return script_lines(texts);
    });
}

}  // namespace pages
