#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/instance.h"

namespace devices {

// Wants to hear of every state that a device of the plug-in takes.
class EndpointListener {
  public:
    virtual ~EndpointListener() = default;

    // The device with this code has a new state.
    virtual void SendXapBSC(std::string_view code) = 0;
};

// Shows states on the host's devices: mark-up as the device's string, the time of the change, and
// a word to whoever listens, in this order. Owned by the plug-in's entry class. A device code of
// "" stands for no device, and nothing is shown.
class StatusBoard {
  public:
    explicit StatusBoard(core::Instance& instance) : instance_(instance) {}

    void set_listener(EndpointListener* listener) noexcept { listener_ = listener; }

    // The status word of an index, 0 to 46, with its picture.
    // Throws: RunTimeError 9 for an index outside the table.
    void show_status(std::string_view code, std::int16_t index);

    // A text of one's own with the picture of an index.
    void show_value(std::string_view code, std::int16_t index, std::string_view text);

    // A plain text without mark-up.
    void show_text(std::string_view code, std::string_view text);

    // "blink", "on" or anything else, in any case: the index `first` plus 2, 1 or 0.
    void SetLEDStatus(std::string_view code, std::string_view mode, std::int16_t first);

    // String and time only, and the word to the listener only.
    void show_silently(std::string_view code, std::string_view text);
    void announce(std::string_view code);

    // <table> with the picture of the index and the text, as the host's status page shows it.
    // Gives what it had built when an index is outside the table, and logs.
    [[nodiscard]] std::string FormatValue(std::int16_t index, std::string_view text);
    [[nodiscard]] std::string FormatStatus(std::int16_t index);

    // The same for a name that is also the stem of its picture.
    [[nodiscard]] std::string FormatString(std::string_view name);

  private:
    void add_text(std::string& mark_up, std::string_view text) const;

    core::Instance& instance_;
    EndpointListener* listener_ = nullptr;
};

}  // namespace devices
