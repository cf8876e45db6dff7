#include "devices/status_board.h"

#include "automation/code_page.h"
#include "automation/guarded.h"
#include "automation/run_time_error.h"
#include "devices/status_table.h"
#include "host/clock.h"
#include "host/host_interface.h"

namespace devices {

namespace {

constexpr std::string_view kAltBegin = "<table><td><img alt='";
constexpr std::string_view kImageBegin = "' src='/images/Velora/";
constexpr std::string_view kImageEnd = "' ";

// The stray quote at its start has always been part of the mark-up.
constexpr std::string_view kFontBegin =
    "'><img alt=' ' src='/images/Velora/blank3.gif'></td><td valign='middle' align='left'>"
    "<font color='";
constexpr std::string_view kTextBegin = "'>";
constexpr std::string_view kTextEnd = "</font></td></table>";

}  // namespace

void StatusBoard::show_silently(std::string_view code, std::string_view text) {
    if (code.empty()) {
        return;
    }
    instance_.hs().SetDeviceString(code, text);
    instance_.hs().SetDeviceLastChange(code, instance_.platform().clock.now());
}

void StatusBoard::announce(std::string_view code) {
    if (!code.empty() && listener_ != nullptr) {
        listener_->SendXapBSC(code);
    }
}

void StatusBoard::show_text(std::string_view code, std::string_view text) {
    show_silently(code, text);
    announce(code);
}

void StatusBoard::show_value(std::string_view code, std::int16_t index, std::string_view text) {
    if (!code.empty()) {
        show_text(code, FormatValue(index, text));
    }
}

void StatusBoard::show_status(std::string_view code, std::int16_t index) {
    if (!code.empty()) {
        show_text(code, FormatStatus(index));
    }
}

void StatusBoard::SetLEDStatus(std::string_view code, std::string_view mode, std::int16_t first) {
    automation::guarded(instance_.log, "SetLEDStatus ", [&] {
        const std::string word = automation::to_lower(mode);
        const int step = word == "blink" ? 2 : word == "on" ? 1 : 0;
        show_status(code, static_cast<std::int16_t>(first + step));
    });
}

std::string StatusBoard::FormatValue(std::int16_t index, std::string_view text) {
    std::string mark_up;
    automation::guarded(instance_.log, "FormatValue: ", [&] {
        mark_up += kAltBegin;
        mark_up += kSubDevices[static_cast<std::size_t>(SubDeviceOfIndex(index))].name;
        mark_up += kImageBegin;
        mark_up += DeviceImages(index);
        add_text(mark_up, text);
    });
    return mark_up;
}

std::string StatusBoard::FormatStatus(std::int16_t index) {
    return FormatValue(index, DeviceStatus(index));
}

std::string StatusBoard::FormatString(std::string_view name) {
    std::string mark_up;
    mark_up += kAltBegin;
    mark_up += name;
    mark_up += kImageBegin;
    mark_up += name;
    mark_up += ".gif";
    add_text(mark_up, name);
    return mark_up;
}

// What stands behind the picture's name.
void StatusBoard::add_text(std::string& mark_up, std::string_view text) const {
    mark_up += kImageEnd;
    mark_up += kFontBegin;
    mark_up += instance_.settings.FontColor;
    mark_up += kTextBegin;
    mark_up += text;
    mark_up += kTextEnd;
}

}  // namespace devices
