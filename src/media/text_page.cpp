#include "media/text_page.h"

#include <memory>
#include <string_view>

#include "automation/guarded.h"
#include "host/files.h"

namespace media {

namespace {

// Read by the unit's browser: the unit itself.
constexpr std::string_view kToggleBrowserUrl = "http://127.0.0.1/toggleBrowser.shtml";

std::string with_breaks(std::string text) {
    constexpr std::string_view kLineEnd = "\r\n";
    constexpr std::string_view kBreak = "<BR>";
    for (std::size_t at = text.find(kLineEnd); at != std::string::npos;
         at = text.find(kLineEnd, at + kBreak.size())) {
        text.replace(at, kLineEnd.size(), kBreak);
    }
    return text;
}

std::string head(const TextLook& look, std::int32_t delay) {
    const std::string on_load = delay != 0 ? " onload='delaySubmit()'" : "";
    return "<SCRIPT LANGUAGE='JavaScript'>function delaySubmit(){setTimeout('restore()'," +
           std::to_string(delay) +
           "000);}function restore(){history.go(-1);}</SCRIPT></HEAD><BODY BGCOLOR='" +
           look.background + "'" + on_load + ">";
}

std::string message(const TextLook& look, const std::string& text) {
    return "<FONT SIZE=" + look.size + " FACE=" + look.face + " COLOR=" + look.foreground + "><B>" +
           text + "</B></FONT>";
}

constexpr std::string_view kReturnButton =
    "<br><br><div align=\"center\"><form><input type=button value=\"Return\" "
    "onClick=\"history.go(-1)\"></form></div>";

std::string toggle_frame() {
    return "<div><center><IFRAME frameborder=0 align='middle' scrolling='no' name='hiddenframe' "
           "src='" +
           std::string(kToggleBrowserUrl) + "'></IFRAME></center></div>";
}

}  // namespace

void WrapHTML(core::Instance& instance, const std::string& file, const TextLook& look,
              const std::string& text, std::int32_t delay) {
    automation::guarded(instance.log, "WrapHTML ", [&] {
        host::Files& files = instance.platform().files;
        const std::unique_ptr<host::TextStream> page =
            files.create_text_file(core::html_root(instance) + "\\" + file);
        page->WriteLine("<HTML><HEAD>");
        page->WriteLine(head(look, delay));
        if (instance.settings.IncludeHeaderLinks) {
            page->WriteLine(
                files.read(core::html_root(instance) + "\\" + instance.settings.LinksFile));
        }
        page->WriteLine("<BR><BR><BR><p align='center'>");
        page->WriteLine(message(look, with_breaks(text)) + std::string(kReturnButton) + "</p>");
        page->WriteLine("</BODY>");
        if (delay == 0) {
            page->WriteLine(toggle_frame());
        }
        page->WriteLine("</HTML>");
    });
}

}  // namespace media
