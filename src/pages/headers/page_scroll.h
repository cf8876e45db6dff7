#pragma once

#include <string>

namespace pages {

class HostPage;

// The script that scrolls texts through the page, by the setting `usePageScroll`: "Default" for
// the weather, else the texts themselves, separated by "|". "" when the setting is off or the
// script's file, \html\javascript\page_scroll.js, is not there.
[[nodiscard]] std::string PageScroll(HostPage& page);

// The script's lines for the weather: now, the forecast in two lines, alerts.
[[nodiscard]] std::string PageScrollWeatherman(HostPage& page);

}  // namespace pages
