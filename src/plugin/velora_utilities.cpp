#include "plugin/velora_utilities.h"

#include <array>
#include <chrono>
#include <utility>

#include "appliance/queue_timer.h"
#include "appliance/timer_pools.h"
#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "callerid/caller_id.h"
#include "devices/host_devices.h"
#include "fleet/fleet.h"
#include "fleet/supervision.h"
#include "host/clock.h"
#include "host/files.h"
#include "host/host_interface.h"
#include "pages/page_engine.h"
#include "plugin/setting_steps.h"
#include "slideshow/file_list.h"
#include "slideshow/slideshow.h"
#include "webserver/tcp_server_module.h"

// The settings load: the steps in their order, and what single keys need beyond a conversion.
namespace plugin {

namespace {

using namespace std::chrono_literals;

constexpr auto kMinuteTick = 60000ms;
constexpr std::int32_t kHostVersionWithHigherCallerDevice = 16100;
constexpr std::string_view kDefaultVoice = "Microsoft Mary";
constexpr std::int16_t kDefaultUpdateSeconds = 20;
constexpr std::int16_t kMillisecondsPerSecond = 1000;
constexpr std::int32_t kDefaultPowerCycleTime = 5000;  // milliseconds
constexpr std::int16_t kDefaultPowerUpSeconds = 75;

std::string with_backslashes(std::string_view path) {
    return automation::replace_all(path, "/", "\\");
}

}  // namespace

template <typename Step>
void VeloraUtilities::step(Step&& body) {
    automation::guarded(services_.instance.log, "InitVeloraUtilities ", std::forward<Step>(body));
}

void VeloraUtilities::InitVeloraUtilities() {
    step([&] { start_over(); });
    read_keys();
    step([&] { services_.fleet.DefineVeloras(); });
    step([&] { arm_minute_timer(); });
    read_slide_groups();
    step([&] { services_.caller_id.port().open_from_settings(); });
    step([&] { define_caller_device(); });
    services_.instance.XapCIDSent = false;
    services_.caller_id.phonebook().BuildPhonebook();
    step([&] { services_.page_engine.release(); });
    step([&] { log("User Configuration Setup Initialization Complete"); });
}

void VeloraUtilities::start_over() {
    services_.instance.SlideshowMode = 0;
    // Units that go on keep their timers; only those of units that are gone come back.
    services_.timer_pools.release_abandoned();
    core::StartupLog(services_.instance, "InitUtilities", "170");
}

void VeloraUtilities::read_keys() {
    for (const SettingStep& row : setting_steps()) {
        step([&] {
            const std::string text = row.key.empty() ? std::string() : read(row.key, row.fallback);
            if (const auto* const rule = std::get_if<SettingRule>(&row.target)) {
                (this->**rule)(text);
            } else {
                take_setting(std::get<SettingKind>(row.target), text, settings());
            }
        });
    }
}

std::string VeloraUtilities::read(std::string_view key, std::string_view fallback) const {
    return core::read_setting(services_.instance, core::kSettingsSection, key, fallback);
}

void VeloraUtilities::log(std::string_view text) {
    services_.instance.log.VeloraWriteLog(core::kLogType, text);
}

// --- rules of single keys -----------------------------------------------------------------------

void VeloraUtilities::take_last_power_cycle_hour(const std::string& text) {
    if (const auto number = automation::parse_number(text)) {
        settings().LastPowerCycleHour = automation::checked_int16(*number);
        return;
    }
    const automation::DateTime now = services_.instance.platform().clock.now();
    const auto hour =
        std::chrono::floor<std::chrono::hours>(now - std::chrono::floor<std::chrono::days>(now));
    settings().LastPowerCycleHour = static_cast<std::int16_t>(hour.count() - 1);
}

void VeloraUtilities::make_temporary_folder(const std::string&) {
    settings().TempPath = core::html_root(services_.instance) + "\\VeloraTemp";
    host::Files& files = services_.instance.platform().files;
    if (!files.FolderExists(settings().TempPath)) {
        files.CreateFolder(settings().TempPath);
    }
}

void VeloraUtilities::read_host_port(const std::string&) {
    settings().HomeseerPort = core::without_quotes(
        services_.instance.hs().GetIniSetting("Settings", "svrport", "81", "settings.ini"));
}

void VeloraUtilities::choose_server(const std::string&) {
    settings().UseOwnServer =
        settings().TCPServerOption != "1" && automation::is_numeric(settings().ServerPort);
    if (!settings().UseOwnServer) {
        return;
    }
    step([&] { settings().TCPDebug = truth_of(TruthForm::General, read("TCPDebug", "0")); });
    start_web_server();
}

void VeloraUtilities::start_web_server() {
    webserver::TCPServer& server = services_.web_server.server();
    if (!server.loaded()) {
        server.Form_Load();
    }
    if (settings().TCPDebug) {
        server.open_debug_log();
    }
}

void VeloraUtilities::take_friends_location(const std::string& text) {
    settings().FriendsLocation = text;
    if (!text.empty() && text.back() != '\\') {
        settings().FriendsLocation += '\\';
    }
}

void VeloraUtilities::take_update_interval(const std::string& text) {
    const auto number = automation::parse_number(text);
    const bool is_usable = number && *number > 0;
    const std::int16_t seconds =
        is_usable ? automation::checked_int16(*number) : kDefaultUpdateSeconds;
    settings().SlideshowUpdateInterval = is_usable ? text : std::to_string(seconds);
    settings().SlideshowUpdateSeconds = seconds;
    settings().SlideshowStaleMinutes = static_cast<std::int16_t>((3 * seconds + 59) / 60 + 1);
}

void VeloraUtilities::take_power_cycle_time(const std::string& text) {
    const auto seconds = automation::parse_number(text);
    // 16 bits carry up to 32 seconds; more is an error, and the earlier time stays.
    settings().PowerCycleTime =
        seconds ? automation::multiply_int16(automation::checked_int16(*seconds),
                                             kMillisecondsPerSecond)
                : kDefaultPowerCycleTime;
}

void VeloraUtilities::take_power_cycle_interval(const std::string& text) {
    settings().PowerCycleInterval = automation::replace_all(text, " ", "");
}

void VeloraUtilities::take_default_push_page(const std::string& text) {
    constexpr std::string_view kRoot = "\\html";
    std::string page = text;
    const std::size_t root = automation::find_ignoring_case(text, kRoot);
    if (root != std::string::npos) {
        page = text.substr(root + kRoot.size());
    }
    const std::string path = core::html_root(services_.instance) + "\\" + page;
    settings().DefaultPushPage =
        services_.instance.platform().files.FileExists(path) ? page : std::string();
}

void VeloraUtilities::take_power_up_time(const std::string& text) {
    const auto seconds = automation::parse_number(text);
    // A text that is no number has no default: the product of the default leaves 16 bits, and the
    // earlier time stays.
    settings().PowerUpTime =
        seconds ? automation::multiply_int32(automation::checked_int32(*seconds),
                                             kMillisecondsPerSecond)
                : automation::multiply_int16(kDefaultPowerUpSeconds, kMillisecondsPerSecond);
}

void VeloraUtilities::take_windows_share(const std::string& text) {
    settings().WindowsShare = text;
    if (text.empty() || services_.instance.platform().files.FolderExists(text)) {
        return;
    }
    log("File share with Velora in folder " + text + " does not exist");
    settings().WindowsShare.clear();
}

void VeloraUtilities::take_debug_log(const std::string& text) {
    services_.instance.log.set_debug_log(truth_of(TruthForm::EqualsOne, text));
}

void VeloraUtilities::read_voice(const std::string&) {
    settings().T2WVoice = core::read_setting(services_.instance, "T2W", "T2WVoice", kDefaultVoice);
}

void VeloraUtilities::take_sounds(const std::string& text) {
    const std::vector<std::string> tokens = automation::split(text, ',');
    auto& enabled = settings().SoundButtonEnabled;
    for (std::size_t i = 0; i < enabled.size(); ++i) {
        enabled[i] = i < tokens.size() && tokens[i] == "1";
    }
}

// --- slideshow paths ----------------------------------------------------------------------------

std::string VeloraUtilities::default_image_server() {
    return "http://" + settings().HomeseerIP + ":" + settings().unit_port();
}

void VeloraUtilities::take_image_path(const std::string& text) {
    settings().ImagePath = with_backslashes(text);
}

void VeloraUtilities::validate_slideshow_path(const std::string&) {
    core::UtilitySettings& fields = settings();
    slideshow::PictureList& pictures = services_.slideshow.lists().SlideshowFiles;
    pictures = {};
    if (fields.SlideshowPath.empty()) {
        fields.StartSlildeshow = false;
        log("Slideshow path has not been specified");
        return;
    }
    if (fields.ImagePath.empty()) {
        fields.ImagePath = core::html_root(services_.instance);
    }
    if (fields.ImageServer.empty()) {
        fields.ImageServer = default_image_server();
    }
    const std::string folder = fields.ImagePath + "\\" + fields.SlideshowPath;
    if (!services_.instance.platform().files.FolderExists(with_backslashes(folder))) {
        fields.StartSlildeshow = false;
        log("Slideshow path " + folder + " does not exist");
        return;
    }
    slideshow::BuildFileList(services_.instance, folder, fields.ImagePath, pictures);
}

void VeloraUtilities::read_slide_groups() {
    services_.slideshow.lists().groups.fill({});
    for (std::size_t group = 0; group < core::kSlideGroups; ++group) {
        step([&] { read_slide_group(group); });
        for (std::size_t row = 0; row < core::kSlideRows; ++row) {
            step([&] { read_slide_row(group, row); });
        }
    }
}

void VeloraUtilities::read_slide_group(std::size_t group) {
    core::SlideGroupSettings& fields = settings().slide_groups[group];
    const std::string number = std::to_string(group);
    fields.GroupServer = read(number + "ServerPathGroup", "");
    if (fields.GroupServer.empty()) {
        fields.GroupServer = default_image_server();
    }
    fields.GroupFolder = read(number + "FolderPathGroup", "");
    if (fields.GroupFolder.empty()) {
        fields.GroupFolder = core::html_root(services_.instance);
    }
}

void VeloraUtilities::read_slide_row(std::size_t group, std::size_t row) {
    constexpr std::int16_t kDefaultDwell = 30;  // seconds
    const std::string key = std::to_string(group * core::kSlideRows + row) + "SlideASP";
    const std::vector<std::string> parts = automation::split(read(key, "") + ",", ',');
    const auto dwell = automation::parse_number(parts[1]);
    core::SlideRow& slide = settings().slide_groups[group].rows[row];
    slide = {};
    slide.SlideFile = parts[0];
    slide.SlideDwell = dwell ? automation::checked_int16(*dwell) : kDefaultDwell;
    if (automation::trim(slide.SlideFile).empty()) {
        return;
    }
    const std::string separator = slide.SlideFile.starts_with('\\') ? "" : "\\";
    const std::string path =
        settings().slide_groups[group].GroupFolder + separator + slide.SlideFile;
    const std::string group_number = std::to_string(group + 1);
    if (settings().ShowSlides) {
        services_.instance.log.VeloraWriteLog(
            core::kDebugLogType,
            "Group " + group_number + ", Row " + std::to_string(row) + " for Slideshow " + path);
    }
    host::Files& files = services_.instance.platform().files;
    if (!files.FileExists(path) && !files.FolderExists(path)) {
        log("Slideshow Group " + group_number + " file or folder " + path + " does not exist");
    } else if (slide.SlideFile.find('.') == std::string::npos) {
        slideshow::BuildFileList(services_.instance, path,
                                 settings().slide_groups[group].GroupFolder,
                                 services_.slideshow.lists().groups[group]);
    }
}

// --- what the settings make run -----------------------------------------------------------------

void VeloraUtilities::arm_minute_timer() {
    appliance::QueueTimer* const timers = services_.queue_timer();
    if (timers == nullptr) {
        return;
    }
    if (settings().PowerCycleInterval.empty() && settings().SleepMonitorInterval == 0) {
        timers->Timer2().set_enabled(false);
        return;
    }
    services_.supervision.restart_sleep_check();
    timers->Timer2().set_interval(kMinuteTick);
    timers->Timer2().set_enabled(true);
}

void VeloraUtilities::define_caller_device() {
    const core::Instance& instance = services_.instance;
    const bool is_higher = instance.HostVersionNumber >= kHostVersionWithHigherCallerDevice;
    settings().CIDDeviceCode = instance.HouseCode + (is_higher ? "91" : "61");
    services_.host_devices.CIDDevice(settings().CIDDeviceCode);
}

}  // namespace plugin
