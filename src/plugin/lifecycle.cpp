#include "plugin/lifecycle.h"

#include <array>
#include <chrono>
#include <string_view>

#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "host/clock.h"
#include "host/desktop.h"
#include "host/files.h"
#include "host/host_interface.h"
#include "host/pump.h"
#include "plugin/subsystems.h"
#include "plugin/timer_events.h"

namespace plugin {

namespace {

using automation::text_of;

// Registers entries in this order; "Browser" only under the separate xAP program.
constexpr std::array<std::string_view, 11> kMenuLabels{
    "Browser",        "GUI Setup",    "Velora Server", "Start Slideshow",
    "Stop Slideshow", "Modem Window", "Reset Queue",   "Disable Plugin",
    "Enable Plugin",  "Test",         "Help",
};

// The page by which the host's own web server, too, finds the plug-in's slideshow.
constexpr std::string_view kSlideshowStub =
    "<%\r\n"
    "On Error Resume Next\r\n"
    "Response.Write hs.GetPlugins(\"zynVelora\").VeloraSlideshowASP(request, Response)\r\n"
    "If Err.Number <> 0 Then\r\n"
    "    Err.Clear\r\n"
    "    For Each c In hs.GetPlugins\r\n"
    "        If LCase(c) = \"zynvelora\" Then\r\n"
    "            Response.write c.VeloraSlideshowASP(request, Response)\r\n"
    "            Exit For\r\n"
    "        End If\r\n"
    "    Next\r\n"
    "End If\r\n"
    "%>\r\n";

bool is_second_generation(std::string_view version) {
    return automation::numeric_prefix(version.substr(0, 1)) > 1;
}

// 25000 for "2.5.0.81": products in 16 bits, so that generations from 4 on are an error.
std::int32_t version_number(const std::string& version) {
    const std::vector<std::string> parts = automation::split(version, '.');
    if (parts.size() < 3) {
        return 0;
    }
    const auto part = [&parts](std::size_t index) {
        return automation::checked_int16(automation::numeric_prefix(parts[index]));
    };
    return std::int32_t{automation::multiply_int16(part(0), 10000)} +
           automation::multiply_int16(part(1), 1000) + part(2);
}

}  // namespace

Lifecycle::~Lifecycle() = default;

void Lifecycle::RegisterCallback(host::CallbackObject& frm) {
    core::Instance& instance = parts_.instance;
    instance.attach(frm, frm.GetHSIface());
    instance.XapHosted = frm.type_name() == "Setup";
    use_menu_database();
    if (frm.GetHSIface() == nullptr) {
        instance.platform().desktop.message_box("Unable to access HS interface");
    } else {
        instance.application_path = instance.hs().GetAppPath();
        instance.log.VeloraWriteLog(core::kLogType,
                                    "Version " + std::string(devices::kProgramVersion) +
                                        " Registered, XAP=" + text_of(instance.XapHosted));
    }
    instance.HostIsV2 = is_second_generation(instance.hs().Version()) && !instance.XapHosted;
    const bool runs_as_xap_node =
        !core::read_setting(instance, core::kSettingsSection, "RunAsXapNode", "").empty();
    instance.InstanceActive = !runs_as_xap_node || instance.XapHosted;
    parts_.server_options.Form_Load();
    if (core::read_setting(instance, core::kSettingsSection, "inMenu", "1") != "0") {
        register_menus();
    }
}

void Lifecycle::use_menu_database() {
    host::HostInterface* const hs = parts_.instance.callback().GetHSIface();
    parts_.host_page.set_menus(hs == nullptr ? nullptr : hs->menu_database());
}

void Lifecycle::register_menus() {
    for (const std::string_view label : kMenuLabels) {
        if (label != "Browser" || parts_.instance.XapHosted) {
            parts_.instance.callback().RegisterMenu("zynVelora", label);
        }
    }
}

std::string Lifecycle::InitX10(std::int32_t /*port*/) {
    x10_init_done_ = true;
    return {};
}

std::string Lifecycle::InitIR(std::int32_t /*port*/) {
    ir_init_done_ = true;
    return {};
}

std::string Lifecycle::InitIO(std::int32_t /*port*/) {
    if (io_init_done_) {
        return {};
    }
    if (!parts_.instance.InstanceActive) {
        parts_.host_devices.InitDevices();
    } else if (!x10_init_done_ && !ir_init_done_) {
        automation::guarded(parts_.instance.log, "InitIO ", [&] { start_up(); });
    }
    io_init_done_ = true;
    return {};
}

void Lifecycle::start_up() {
    core::Instance& instance = parts_.instance;
    begin();
    create_slideshow_stub();
    parts_.timer_pools.attach(nullptr);
    parts_.fleet.reset();
    load_queue_timer();
    load_filters();
    parts_.user_script.load();
    parts_.udp_link.InitUDP();
    parts_.settings.InitVeloraUtilities();
    sync_with_host();
    parts_.xap_node.queue().clear();
    parts_.caller_id.echo().empty_boxes();
    parts_.status_state.load(instance);
    parts_.host_devices.SetValueCallback();
    instance.log.VeloraWriteLog(core::kLogType, "Startup Initialization Complete");
    instance.StartupReady = true;
}

void Lifecycle::begin() {
    core::Instance& instance = parts_.instance;
    instance.ShuttingDown = false;
    instance.StartupReady = false;
    parts_.caller_id.port().release();
    // A generation that does not fit is reported, and the host counts as one without a number.
    instance.HostVersionNumber = automation::guarded(instance.log, "HostVersionNumber ", [&] {
        return version_number(instance.hs().Version());
    });
    instance.platform().random.seed_from_clock();
}

void Lifecycle::create_slideshow_stub() {
    parts_.instance.platform().files.write(
        core::html_root(parts_.instance) + "\\VeloraSlideshow.asp", kSlideshowStub);
}

void Lifecycle::load_queue_timer() {
    parts_.queue_timer = std::make_unique<appliance::QueueTimer>(parts_.instance, timer_events_);
    parts_.timer_pools.attach(parts_.queue_timer.get());
    parts_.queue_timer->Load();
}

void Lifecycle::load_filters() {
    constexpr std::chrono::minutes kBetweenSaves{5};
    xap::Filters& filters = parts_.xap_node.filters();
    filters.InitFilterDictionary();
    filters.InitDeviceDictionary();
    if (parts_.instance.platform().protection.recorded_values_are_saved) {
        save_timer_ = parts_.instance.platform().pump.make_timer(
            [&filters] { filters.SaveDeviceDictionary(); });
        save_timer_->set_interval(kBetweenSaves);
        save_timer_->set_enabled(true);
    }
}

void Lifecycle::sync_with_host() {
    // The values go to the units as pages, never by datagram.
    core::UtilitySettings& settings = parts_.instance.settings;
    const bool uses_clients = settings.UseVeloraServer;
    settings.UseVeloraServer = false;
    for (const auto& unit : parts_.fleet.all()) {
        unit->SyncWithHomeseer();
    }
    settings.UseVeloraServer = uses_clients;
}

void Lifecycle::ShutdownIO() {
    if (!parts_.instance.InstanceActive) {
        return;
    }
    automation::guarded(parts_.instance.log, "ShutdownIO ", [&] {
        parts_.instance.ShuttingDown = true;
        save_timer_.reset();
        parts_.xap_node.filters().SaveDeviceDictionary();
        parts_.udp_link.CloseUDP();
        parts_.fleet.shutdown();
        parts_.timer_pools.attach(nullptr);
        parts_.queue_timer.reset();
        parts_.caller_id.release();
        parts_.xap_node.queue().clear();
        parts_.user_script.unload();
        parts_.page_engine.release();
    });
}

}  // namespace plugin
