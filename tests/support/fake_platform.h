#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/run_time_error.h"
#include "host/clock.h"
#include "host/desktop.h"
#include "host/platform.h"
#include "host/serial_port.h"
#include "host/settings.h"
#include "host/speech.h"
#include "support/fake_image_resizer.h"
#include "support/memory_files.h"
#include "support/memory_network.h"
#include "support/scripted_units.h"
#include "support/virtual_pump.h"
#include "vbscript/control/script_control.h"

namespace support {

// Random numbers that are the same in each run: 0.1001, 0.1002, ..., 0.1009, 0.1011, ..., all with
// four digits behind the point, so that no tag made of them is a part of another.
class FixedRandom final : public host::Random {
  public:
    // This number comes before the sequence goes on.
    void push(float number) { ordered_.push_back(number); }

    [[nodiscard]] int seedings() const noexcept { return seedings_; }

    float next() override;

    void seed_from_clock() override { ++seedings_; }

  private:
    std::deque<float> ordered_;
    int count_ = 0;
    int seedings_ = 0;
};

// A speech platform that writes a file of a given size and remembers what it was to say.
class FakeSpeech final : public host::Speech {
  public:
    explicit FakeSpeech(host::Files& files) : files_(files) {}

    void install_voices(std::vector<std::string> voices) { voices_ = std::move(voices); }

    void set_wav_size(std::size_t bytes) { wav_size_ = bytes; }

    // Every call fails with this error; none again for nullopt.
    void fail_with(std::optional<automation::ErrorNumber> error) { error_ = error; }

    // "text | voice | path", "default" standing for the platform's own voice.
    [[nodiscard]] const std::vector<std::string>& spoken() const noexcept { return spoken_; }

    [[nodiscard]] std::vector<std::string> GetVoices() override;
    void Speak(std::string_view text, std::optional<std::size_t> voice, std::string_view path,
               int format) override;

  private:
    void throw_if_broken() const;

    host::Files& files_;
    std::vector<std::string> voices_{"Microsoft Sam", "Microsoft Mary"};
    std::size_t wav_size_ = 44;
    std::optional<automation::ErrorNumber> error_;
    std::vector<std::string> spoken_;
};

class MemoryUserStore final : public host::UserStore {
  public:
    [[nodiscard]] std::string GetSetting(std::string_view title, std::string_view section,
                                         std::string_view key, std::string_view fallback) override;
    void SaveSetting(std::string_view title, std::string_view section, std::string_view key,
                     std::string_view value) override;

  private:
    std::map<std::string, std::string> values_;
};

class RecordingDesktop final : public host::Desktop {
  public:
    [[nodiscard]] const std::vector<std::string>& messages() const noexcept { return messages_; }

    [[nodiscard]] const std::vector<std::string>& pages() const noexcept { return pages_; }

    void message_box(std::string_view text) override { messages_.emplace_back(text); }

    void start_browser(std::string_view address) override { pages_.emplace_back(address); }

    // Somebody sits there and says yes, or no, to every question.
    void will_answer(host::Answer answer) { answer_ = answer; }

    [[nodiscard]] const std::vector<std::string>& questions() const noexcept { return questions_; }

    // "script component"
    [[nodiscard]] const std::vector<std::string>& downloads() const noexcept { return downloads_; }

    [[nodiscard]] host::Answer question(std::string_view text) override {
        questions_.emplace_back(text);
        return answer_;
    }

    void download_component(std::string_view script, std::string_view component) override {
        downloads_.push_back(std::string(script) + " " + std::string(component));
    }

  private:
    std::vector<std::string> messages_;
    std::vector<std::string> pages_;
    std::vector<std::string> questions_;
    std::vector<std::string> downloads_;
    host::Answer answer_ = host::Answer::No;
};

// One serial line that can be plugged in and out. What is written to it is kept.
class FakeSerialPorts final : public host::SerialPorts {
  public:
    [[nodiscard]] std::unique_ptr<host::SerialPort> make_serial_port(
        host::SerialPortEvents events) override;

    // No device is there any more; an open port hears of it.
    void unplug();

    void plug_in() { is_there_ = true; }

    // The other side sends.
    void receive(std::string_view bytes);

    // "open 1 9600,n,8,1", "write AT", "close", oldest first.
    [[nodiscard]] const std::vector<std::string>& calls() const noexcept { return calls_; }

  private:
    class Port;

    bool is_there_ = true;
    Port* open_ = nullptr;
    std::vector<std::string> calls_;
};

[[nodiscard]] vbscript::ClassRegistry standard_classes();

// The machine of tests: all parts of a platform in memory, on the virtual clock. Owned by the
// fixture, as its first member; its parts are public, since a test plays with each.
struct FakeMachine {
    VirtualPump pump;
    HouseTrace trace{pump};
    FixedRandom random;
    MemoryFiles files{pump};
    MemoryNetwork network{pump};
    ScriptedUnits units{pump, trace};
    FakeSpeech speech{files};
    FakeImageResizer image_resizer{files};
    MemoryUserStore user_store;
    RecordingDesktop desktop;
    vbscript::ScriptServices script_services{
        .clock = pump, .desktop = desktop, .classes = standard_classes()};
    vbscript::ScriptControls script_controls{script_services};
    FakeSerialPorts serial_ports;
    host::Protection protection;

    [[nodiscard]] host::Platform platform() {
        return {pump,      pump,          random,     files,   network,         units,
                speech,    image_resizer, user_store, desktop, script_controls, serial_ports,
                protection};
    }
};

}  // namespace support
