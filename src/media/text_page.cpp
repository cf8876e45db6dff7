#include "media/text_page.h"

#include <memory>

#include "automation/code_page.h"
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

std::string without_word(std::string_view text, std::string_view word) {
    std::string rest;
    for (std::size_t at = automation::find_ignoring_case(text, word); at != std::string::npos;
         at = automation::find_ignoring_case(text, word)) {
        rest += text.substr(0, at);
        text.remove_prefix(at + word.size());
    }
    return rest.append(text);
}

std::string without_tags(std::string_view text) {
    std::string rest;
    for (std::size_t open = text.find('<'); open != std::string::npos; open = text.find('<')) {
        const std::size_t close = text.find('>', open);
        if (close == std::string::npos) {
            break;
        }
        rest += text.substr(0, open);
        text.remove_prefix(close + 1);
    }
    return rest.append(text);
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

std::string StripHTML(std::string_view text) {
    return without_tags(without_word(without_word(text, "&nbsp;"), "&nbsp"));
}

}  // namespace media
