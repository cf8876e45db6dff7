#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "appliance/command_queue.h"
#include "appliance/timer_pools.h"
#include "appliance/unit_log.h"
#include "automation/date.h"
#include "core/instance.h"
#include "devices/status_table.h"

namespace devices {
class HostDevices;
class StatusBoard;
}  // namespace devices

namespace host {
class XapMessage;
}

namespace media {
class SoundFiles;
}

namespace appliance {

class UdpLink;

// Takes a device command of the host, as a unit hands its own devices' values back at start-up.
class DeviceCommandTarget {
  public:
    virtual ~DeviceCommandTarget() = default;

    virtual void SetVeloraIO(const std::string& /*house_code*/, const std::string& /*device_code*/,
                             std::int16_t /*command*/, std::int16_t /*brightness*/) {}
};

// What a unit needs of the rest of the plug-in. All of it outlives the units.
struct ApplianceServices {
    core::Instance& instance;
    TimerPools& timer_pools;
    devices::StatusBoard& status_board;
    devices::HostDevices& host_devices;
    media::SoundFiles& sound_files;
    UdpLink& udp_link;
    DeviceCommandTarget& device_commands;
};

// Sleep states with their numbers; any other number reads as "sleep".
enum class SleepState : std::int16_t { Sleep = 0, Awake = 1, AlwaysAwake = 2, PowerCycle = 3 };

// One appliance: the only place that talks to the unit. It holds the last state that was asked of
// the unit, its command queue, its timers and its page-fetch object. `DefineVeloras` creates it,
// the fleet owns it, `ShutdownIO` ends it. Operations form one command text, update the state and
// the host's devices at once, before the unit has acted, and hand the text to the queue; what they
// return is the tag that the queue gave the command, "" when the unit is disabled. None waits but
// `Awake`, `Asleep` and `WaitForCommandComplete`, which pump. Errors are logged under the unit's
// name and never leave, unless a member says so.
class Velora : public TimerOwner, private QueueOwner, public std::enable_shared_from_this<Velora> {
  public:
    // A unit without a name and address, with its two timers if the pools have them.
    [[nodiscard]] static std::shared_ptr<Velora> create(const ApplianceServices& services);
    ~Velora() override;

    // Returns the timers and drops the page fetch and the wait; the object is of no use then.
    void Shutdown();

    // Hands the host's device values down to the unit, unless its power is off.
    void SyncWithHomeseer();

    // --- identity and addresses ---
    [[nodiscard]] const std::string& Name() const override { return name_; }

    void set_Name(const std::string& name);

    [[nodiscard]] const std::string& IP() const override { return ip_; }

    void set_IP(const std::string& ip) { ip_ = ip; }

    [[nodiscard]] const std::string& Computer() const override { return computer_; }

    void set_Computer(const std::string& computer) { computer_ = computer; }

    [[nodiscard]] const std::string& PowerDevice() const override { return power_device_; }

    void set_PowerDevice(const std::string& code) { power_device_ = code; }

    [[nodiscard]] const std::string& MotionDevice() const { return motion_device_; }

    void set_MotionDevice(const std::string& code) { motion_device_ = code; }

    [[nodiscard]] const std::string& X10Server() const { return x10_server_; }

    void set_X10Server(const std::string& target) { x10_server_ = target; }

    // "[11": house code and first of ten device numbers. Makes the host's devices.
    [[nodiscard]] const std::string& DeviceCodeBase() const { return device_code_base_; }

    void set_DeviceCodeBase(const std::string& base);

    [[nodiscard]] const std::string& device_code(devices::SubDevice sub_device) const {
        return device_codes_[static_cast<std::size_t>(sub_device)];
    }

    // --- sleep ---
    std::string SetSleep(const std::string& action, const std::string& tag);

    void set_Sleep(const std::string& action) { SetSleep(action, ""); }

    [[nodiscard]] std::string_view Sleep() const;  // "sleep", "awake", "always awake", ...

    [[nodiscard]] bool SleepStatus() const { return is_awake_; }

    [[nodiscard]] bool Awake() { return AwakeStatus(); }  // asks the unit: up to 5 s, pumps

    [[nodiscard]] bool Asleep() { return !AwakeStatus(); }

    std::string RefreshSleepStatus(const std::string& tag);

    // --- lights ---
    [[nodiscard]] std::string_view Backlight() const;  // "Backlight On", "Backlight Off"
    std::string SetBacklight(const std::string& state, const std::string& tag);

    [[nodiscard]] const std::string& TopLED() const { return top_led_; }

    [[nodiscard]] const std::string& MailLED() const { return mail_led_; }

    std::string SetTopLED(const std::string& state, const std::string& tag);
    std::string SetMailLED(const std::string& state, const std::string& tag);

    // --- sound ---
    std::string SendSpeak(const std::string& text, const std::string& tag);
    std::string Wav(const std::string& file, const std::string& tag);
    [[nodiscard]] std::int32_t WavTime(const std::string& file);    // seconds
    [[nodiscard]] std::int32_t SpeakTime(const std::string& text);  // seconds; speaks to a file
    std::string SetSounds(std::int16_t number, const std::string& tag);  // 0 to 18

    [[nodiscard]] std::int16_t Sounds() const { return sounds_; }

    std::string SetSoundsVolume(std::int16_t percent, const std::string& tag);

    [[nodiscard]] std::int16_t SoundsVolume() const { return sounds_volume_; }

    std::string SetVolume(std::int16_t percent, const std::string& tag);

    [[nodiscard]] std::int16_t Volume() const { return volume_; }  // percent, -1 until set

    [[nodiscard]] bool isSpeaking() const { return queue_.state().isSpeaking; }

    // --- browser ---
    std::string PushPage(const std::string& page, const std::string& tag);    // of the own server
    std::string PushIISPage(const std::string& url, const std::string& tag);  // without scheme

    // Shows a text as a page of its own, its lines separated by CR LF. The page goes away after
    // `delay` seconds; 0 lets it stay.
    std::string PushTextMessage(const std::string& text, const std::string& tag,
                                std::int32_t delay = 0);

    void set_PushText(const std::string& text) { PushTextMessage(text, ""); }

    [[nodiscard]] const std::string& PushText() const { return push_text_; }  // the last one

    std::string SendPushFullscreen(const std::string& page, const std::string& tag);

    [[nodiscard]] const std::string& Display() const { return display_; }

    [[nodiscard]] bool BrowserFullScreen() const { return browser_full_screen_; }

    std::string SetBrowserScreen(bool full, const std::string& tag);  // "0" when it is so already
    std::string ToggleBrowserFullScreen(const std::string& tag);
    std::string ShowSlideshow(const std::string& tag);

    [[nodiscard]] bool Slideshow() const { return enable_slideshow_ != 0 && shows_slides_; }

    void set_Slideshow(bool shows);

    [[nodiscard]] std::int16_t EnableSlideshow() const { return enable_slideshow_; }

    void set_EnableSlideshow(std::int16_t group);

    [[nodiscard]] std::int16_t SlideGroup() const { return slide_group_; }

    void set_SlideGroup(std::int16_t group) { slide_group_ = group; }

    // Place in the group's rows, and pictures still to show of the present one.
    [[nodiscard]] std::int16_t SlideGroupIndex() const { return slide_group_index_; }

    void set_SlideGroupIndex(std::int16_t index) { slide_group_index_ = index; }

    [[nodiscard]] std::int16_t SlideCount() const { return slide_count_; }

    void set_SlideCount(std::int16_t count) { slide_count_ = count; }

    // When the unit last asked for a slide.
    [[nodiscard]] automation::DateTime SlideshowTime() const { return slideshow_time_; }

    void set_SlideshowTime(automation::DateTime when) { slideshow_time_ = when; }

    // --- waits, power, free commands ---
    std::string SetWaitsecs(std::int16_t seconds, const std::string& tag);
    std::string CyclePower(const std::string& tag);
    std::string Execute(const std::string& command, const std::string& tag);
    std::string SendUDPCommand(const std::string& command, const std::string& parameter,
                               const std::string& tag);
    std::string SendUDPCID(const std::string& line1, const std::string& line2,
                           const std::string& tag);

    // The only way to switch power.
    void hsExecX10(std::string_view code, std::string_view command) override;

    // --- messages of the xAP network; see velora_xap.cpp ---
    void ReceiveXapMessageOSD(const host::XapMessage& message);
    void ReceiveXapMessageTTS(const host::XapMessage& message);

    // --- supervision ---
    [[nodiscard]] std::int32_t MotionOffMinutes() const { return motion_off_minutes_; }

    void set_MotionOffMinutes(std::int32_t minutes);  // capped at 99999

    [[nodiscard]] automation::DateTime MotionStartTime() const { return motion_start_time_; }

    void set_MotionStartTime(automation::DateTime when) { motion_start_time_ = when; }

    [[nodiscard]] bool DoCID() const { return does_caller_id_; }

    void set_DoCID(bool shows) { does_caller_id_ = shows; }

    // --- queue; see CommandQueue ---
    [[nodiscard]] bool CommandBusy(const std::string& tag) { return queue_.CommandBusy(tag); }

    bool WaitForCommandComplete(const std::string& tag, std::int16_t seconds) {
        return queue_.WaitForCommandComplete(tag, seconds);
    }

    void ResetQueue() { queue_.ResetQueue(); }

    void ShowQueue() { queue_.ShowQueue(); }

    [[nodiscard]] bool PowerCycleInProgress() const { return queue_.state().PowerCycleInProgress; }

    [[nodiscard]] std::int16_t PowerCycleCount() const { return queue_.state().PowerCycleCount; }

    void set_PowerCycleCount(std::int16_t count) { queue_.set_power_cycle_count(count); }

    [[nodiscard]] bool DisablePlugin() const { return queue_.state().DisablePlugin; }

    void set_DisablePlugin(bool disabled) { queue_.set_disabled(disabled); }

    [[nodiscard]] const CommandQueue& queue() const noexcept { return queue_; }

    void TimerTimeout() override { queue_.TimerTimeout(); }

    void ReceiveData() override;

  private:
    explicit Velora(const ApplianceServices& services);
    void Class_Initialize();
    void SetPowerUpState();
    void report_power_up_state();
    void MakeDevice();

    [[nodiscard]] const std::string& BrowserFlagFile() const override { return browser_flag_file_; }

    [[nodiscard]] const std::string& queue_device() const override {
        return device_code(devices::SubDevice::Reserved);
    }

    void power_came_back() override;
    void boot_finished() override;

    std::string AsyncCommand(const std::string& command, std::int32_t timeout_ms,
                             const std::string& tag);
    [[nodiscard]] bool HasClient();
    void show_status(devices::SubDevice sub_device, int index);

    std::string LED(char which, const std::string& state, const std::string& tag);
    std::string ToggleBrowserControl(const std::string& tag);
    std::string SleepControl(const std::string& action, const std::string& tag);
    std::string SendSleepStatus(const std::string& tag);
    [[nodiscard]] bool AwakeStatus();
    void read_sleep_answer(const std::string& body);
    void prepare_page(const std::string& page, const std::string& tag);
    std::string load_page(const std::string& url, const std::string& tag);
    [[nodiscard]] std::string own_server_url(const std::string& path) const;
    std::string TextToWav(const std::string& text);
    [[nodiscard]] std::string next_temporary_number();
    [[nodiscard]] std::string next_temporary_name(std::string_view extension);
    std::string SendWav(const std::string& wav, const std::string& tag);

    ApplianceServices services_;
    std::string name_ = "Velora";
    UnitLog log_;
    CommandQueue queue_;
    LentTimer command_timer_;
    LentTimer browser_timer_;

    std::string ip_;
    std::string computer_;
    std::string power_device_;
    std::string motion_device_;
    std::string x10_server_;
    std::string browser_flag_file_;
    std::string device_code_base_;
    std::array<std::string, devices::kSubDeviceCount> device_codes_;

    bool backlight_is_on_ = true;
    bool is_awake_ = true;
    std::int16_t sleep_state_ = 1;
    std::int16_t pending_sleep_state_ = 1;
    std::string top_led_ = "off";
    std::string mail_led_ = "off";
    std::int16_t sounds_ = 0;
    std::int16_t sounds_volume_ = 50;
    std::int16_t volume_ = -1;
    bool browser_full_screen_ = true;
    std::string display_;
    std::string push_text_;

    std::int16_t enable_slideshow_ = 0;
    bool shows_slides_ = false;
    std::int16_t slide_group_ = 0;
    std::int16_t slide_group_index_ = 0;
    std::int16_t slide_count_ = 0;
    automation::DateTime slideshow_time_{};
    std::int32_t motion_off_minutes_ = 0;
    automation::DateTime motion_start_time_{};
    bool does_caller_id_ = false;
    std::int32_t temporary_file_counter_ = 0;
};

}  // namespace appliance
