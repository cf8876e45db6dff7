#include "plugin/menu.h"

#include <array>

#include "appliance/checkout.h"
#include "host/desktop.h"
#include "plugin/subsystems.h"

namespace plugin {

namespace {

void browse_status_page(Subsystems& parts) {
    if (!parts.instance.XapHosted) {
        return;
    }
    // With this backslash: browsers take it as they take a slash.
    parts.instance.platform().desktop.start_browser(
        "http://127.0.0.1:" + parts.instance.settings.ServerPort + "\\status");
}

void start_slideshow(Subsystems& parts) {
    parts.slideshow.start();
}

void stop_slideshow(Subsystems& parts) {
    parts.slideshow.stop();
}

// With the debug log on, a call of our own shows the whole way of one.
void open_modem_window(Subsystems& parts) {
    parts.caller_id.echo().empty_boxes();
    if (parts.instance.log.DebugLog()) {
        parts.caller_id.reader().ProcessCommData(
            "NMBR = 1234567890\r\nNAME = Jonah Brandt\r\n",
            static_cast<std::int16_t>(callerid::CommEvent::Received));
    }
}

void reset_queues(Subsystems& parts) {
    for (const auto& unit : parts.fleet.all()) {
        unit->ResetQueue();
    }
}

template <bool disabled>
void set_disabled(Subsystems& parts) {
    for (const auto& unit : parts.fleet.all()) {
        unit->set_DisablePlugin(disabled);
    }
}

void open_setup(Subsystems& parts) {
    parts.setup.Load();
}

void open_server_options(Subsystems& parts) {
    parts.server_options.open();
}

void show_help(Subsystems& parts) {
    parts.instance.platform().desktop.start_browser(core::html_root(parts.instance) +
                                                    "\\Help\\zynVelora\\zynVelora_Readme.htm");
}

void test_units(Subsystems& parts) {
    for (const auto& unit : parts.fleet.all()) {
        appliance::Checkout(parts.instance, *unit);
    }
}

struct MenuAction {
    std::string_view entry;
    void (*action)(Subsystems& parts);
};

constexpr std::array<MenuAction, 11> kMenuActions{{
    {"Browser", &browse_status_page},
    {"GUI Setup", &open_setup},
    {"Velora Server", &open_server_options},
    {"Start Slideshow", &start_slideshow},
    {"Stop Slideshow", &stop_slideshow},
    {"Modem Window", &open_modem_window},
    {"Reset Queue", &reset_queues},
    {"Disable Plugin", &set_disabled<true>},
    {"Enable Plugin", &set_disabled<false>},
    {"Test", &test_units},
    {"Help", &show_help},
}};

}  // namespace

void select_menu(Subsystems& parts, std::string_view entry) {
    if (!parts.instance.InstanceActive) {
        return;
    }
    for (const MenuAction& row : kMenuActions) {
        if (row.entry == entry) {
            row.action(parts);
        }
    }
}

}  // namespace plugin
