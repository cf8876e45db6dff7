#include "pages/headers/header.h"

#include <array>
#include <string_view>

#include "automation/code_page.h"
#include "automation/guarded.h"
#include "pages/fast_string.h"
#include "pages/headers/host_page.h"
#include "pages/headers/links.h"
#include "pages/headers/logo_bar.h"
#include "pages/headers/menu_row.h"
#include "pages/headers/page_scroll.h"

namespace pages {

namespace {

constexpr std::string_view kOldStyle = "OldStyle";

std::string given_or_setting(const HostPage& page, const std::string& given, std::string_view key,
                             std::string_view fallback) {
    return given.empty() ? page.page_setting(key, fallback) : given;
}

bool is_no(std::string_view text) {
    return automation::equals_ignoring_case(text, "No");
}

std::string style_sheet(const HeaderArguments& given, std::string_view links) {
    const bool is_old = automation::equals_ignoring_case(links, kOldStyle);
    const std::string_view own = is_old ? "styleNoBody.css" : "style.css";
    return "<link rel=\"stylesheet\" type=\"text/css\" href=\"/" +
           (given.style_sheet.empty() ? std::string(own) : given.style_sheet) + "\">";
}

std::string refresh(const HostPage& page) {
    const std::string seconds = page.page_setting("strRefresh", "0");
    return seconds == "0" ? "" : "<meta HTTP-EQUIV=\"refresh\" CONTENT=\"" + seconds + "\">";
}

// The first of the host's backgrounds that is set, unless the page has one of its own.
std::string background(const HostPage& page, const std::string& own) {
    if (!own.empty()) {
        return " bgcolor=\"" + own + "\"";
    }
    for (const std::string_view key : {"bgcolor", "background", "style"}) {
        if (const std::string value = page.page_setting(key, ""); !value.empty()) {
            return " " + std::string(key) + "=\"" + value + "\"";
        }
    }
    return "";
}

std::string on_load(const HostPage& page) {
    for (const std::string_view key : {"BODY_OnLoad", "auto_refresh"}) {
        if (const std::string value = page.page_setting(key, ""); !value.empty()) {
            return " onload=\"" + value + "\"";
        }
    }
    return "";
}

std::string link_row(HostPage& page, std::string_view links) {
    if (is_no(links)) {
        return "";
    }
    const std::string row = LinkFile(page);
    return row == kNoFile ? HSLinks(page) : row;
}

void add_head(HostPage& page, const HeaderArguments& given, const std::string& title,
              std::string_view links, FastString& html) {
    html.Add("<html><head><title>" + title + "</title>");
    html.Add(style_sheet(given, links));
    html.Add("<meta HTTP-EQUIV=\"EXPIRES\" CONTENT=\"0\">");
    html.Add("<meta HTTP-EQUIV=\"Pragma\" CONTENT=\"no-cache\">");
    html.Add(refresh(page));
    html.Add(optional_page_part(page, "meta"));
    html.Add("</head>");
}

void add_links(HostPage& page, std::string_view links, FastString& html) {
    const bool is_on_top =
        automation::equals_ignoring_case(page.page_setting("linkslocation", ""), "top");
    const std::string row = link_row(page, links);
    html.Add("<a href=\"#pagecontent\"></a>");
    html.Add(is_on_top ? row : "");
    html.Add(optional_page_part(page, "head"));
    html.Add(is_on_top ? "" : row);
    html.Add(MenuRow(page));
    html.Add(PageScroll(page));
}

}  // namespace

std::string CustomHeader(HostPage& page, const HeaderArguments& given) {
    FastString html;
    automation::guarded(page.log(), " CustomHeader: ", [&] {
        const std::string title = given_or_setting(page, given.title, "strPageTitle", "n/a");
        const std::string links = given_or_setting(page, given.links, "strShowLinks", kOldStyle);
        add_head(page, given, title, links, html);
        html.Add("<body" + background(page, given.background) + on_load(page) + ">");
        add_links(page, links, html);
        html.Add("<table width=\"100%\" border=\"0\">");
        if (!is_no(page.page_setting("strLogoYN", "Yes"))) {
            html.Add(logo_bar(page));
        }
        if (!is_no(given_or_setting(page, given.header, "strHeader", ""))) {
            html.Add("<tr class=\"pagetitle\"><td>" + title + "</td></tr>");
        }
        html.Add("</table><a name=\"pagecontent\"></a>");
    });
    return html.value();
}

}  // namespace pages
