#include "pages/headers/links.h"

#include <array>

#include "automation/code_page.h"
#include "automation/guarded.h"
#include "host/files.h"
#include "pages/fast_string.h"
#include "pages/headers/host_page.h"

namespace pages {

using automation::guarded;

namespace {

constexpr int kCustomPages = 4;

std::string_view suffix(const HostPage& page) {
    return page.IsTouchscreen ? "_touchscreen" : "";
}

std::string part_file(const HostPage& page, std::string_view stem) {
    return "\\html\\" + std::string(stem) + std::string(suffix(page)) + ".htm";
}

std::string link(std::string_view location, std::string_view text) {
    return " <a href=\"" + std::string(location) + "\">" + std::string(text) + "</a>";
}

bool host_option(const HostPage& page, std::string_view key) {
    return is_on(page.setting("Settings", key, "0", "settings.ini"));
}

std::string custom_links(const HostPage& page) {
    std::string links;
    for (int number = 1; number <= kCustomPages; ++number) {
        const auto read = [&](std::string_view key) {
            return page.setting("Settings", std::string(key) + std::to_string(number), "",
                                "settings.ini");
        };
        const std::string text = read("gCustomPageDesc");
        const std::string file = read("gCustomPageFile");
        if (!text.empty() && !file.empty()) {
            const bool is_whole = file.find("http") != std::string::npos;
            links += link(is_whole ? file : "/" + file, text);
        }
    }
    return links;
}

}  // namespace

std::string FileContents(HostPage& page, std::string_view file) {
    return guarded(page.log(), "FileContents: ", [&] {
        host::Files& files = page.instance().platform().files;
        const std::string path = page.instance().application_path + std::string(file);
        return files.FileExists(path) ? files.read(path) : std::string(kNoFile);
    });
}

std::string optional_page_part(HostPage& page, std::string_view stem) {
    const std::string text = FileContents(page, part_file(page, stem));
    return text == kNoFile ? "" : text;
}

std::string LinkFile(HostPage& page) {
    return guarded(page.log(), "LinkFile: ", [&] {
        if (automation::equals_ignoring_case(page.SecurityMode, "ENHANCED")) {
            std::string of_level =
                FileContents(page, part_file(page, "links" + std::to_string(page.SecureLevel)));
            if (of_level != kNoFile) {
                return of_level;
            }
        }
        return FileContents(page, part_file(page, "links"));
    });
}

std::string HSLinks(HostPage& page) {
    return guarded(page.log(), "HSLinks: ", [&] {
        FastString html;
        html.Add("<p><a href=\"/\">Home</a>");
        html.Add(link("/status", "Status"));
        html.Add(link("/events", "Events"));
        if (host_option(page, "gMessages")) {
            html.Add(link("/messages", "Messages"));
        }
        if (host_option(page, "gLaunchHSPhone")) {
            html.Add(link("/voice", "Voice"));
        }
        html.Add(link("/html_help/hlp_contents.htm", "Help"));
        html.Add(custom_links(page));
        html.Add(link("/logo", "Log Out"));
        html.Add("</p>");
        return html.value();
    });
}

}  // namespace pages
