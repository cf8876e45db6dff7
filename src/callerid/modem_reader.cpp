#include "callerid/modem_reader.h"

#include <chrono>

#include "automation/code_page.h"
#include "automation/convert.h"
#include "automation/guarded.h"
#include "automation/strings.h"
#include "callerid/format_phone_number.h"
#include "core/instance.h"
#include "host/clock.h"
#include "host/pump.h"

namespace callerid {

namespace {

using automation::find_ignoring_case;
using automation::guarded;

constexpr std::chrono::milliseconds kWaitForOtherLine{500};
constexpr auto kAbsent = std::string::npos;
constexpr std::string_view kCrLf = "\r\n";

// NetCallerID
constexpr std::string_view kRecordEnd = "+++\r";
constexpr std::string_view kRecordMark = "###DATE";
constexpr std::string_view kNameField = "...NAME";
constexpr std::string_view kNumberField = "...NMBR";
constexpr std::string_view kNoNumber = "(000)000-0000";

std::string without_line_ends(std::string_view text) {
    return automation::replace_all(automation::replace_all(text, "\n", ""), "\r", "");
}

// In an empty line nothing is found, not even an empty prefix.
std::size_t place_of(std::string_view part, std::string_view line) {
    return line.empty() ? kAbsent : find_ignoring_case(line, part);
}

std::string behind(std::string_view line, std::size_t at) {
    return at < line.size() ? automation::trim(line.substr(at)) : std::string();
}

}  // namespace

// --- pieces to lines ----------------------------------------------------------------------------

void ModemReader::ProcessCommData(std::string_view text, std::int16_t code) {
    core::Instance& instance = services_.instance;
    guarded(instance.log, "ProcessCommData ", [&] {
        services_.echo.add_status(std::string(kCrLf) + std::to_string(code));
        const std::string stamp =
            "\r\n" + automation::time_of_day(instance.platform().clock.now()) + " |  ";
        services_.echo.add_data(automation::replace_all(text, kCrLf, stamp));
        // The label says status, and the text is the data.
        instance.log.debug([&] {
            return std::string("Comm Status = ")
                .append(text)
                .append(", Comm Buffer = >")
                .append(std::to_string(CommBuffer_.size()));
        });
        if (code != static_cast<std::int16_t>(CommEvent::Received)) {
            if (code != static_cast<std::int16_t>(CommEvent::Carrier) && instance.log.DebugLog()) {
                instance.log.VeloraWriteLog(core::kLogType,
                                            "zynVelora Comm Event Code=" + std::to_string(code));
            }
            return;
        }
        if (CommBuffer_.size() >= kMostBuffered) {
            return;
        }
        CommBuffer_ += text;
        take_lines();
        take_records();
        take_unfinished_line();
    });
}

// Each line goes with its CR; the LF stays at the head of what follows.
void ModemReader::take_lines() {
    for (std::size_t end = 0; (end = CommBuffer_.find(kCrLf)) != kAbsent;) {
        const std::string line = without_line_ends(std::string_view(CommBuffer_).substr(0, end));
        CommBuffer_.erase(0, end + 1);
        DoModem(line);
    }
}

void ModemReader::take_records() {
    const std::size_t first_end = CommBuffer_.find(kRecordEnd);
    if (first_end == kAbsent || first_end == 0 || CommBuffer_.find(kRecordMark) == kAbsent) {
        return;
    }
    for (std::size_t end = 0; (end = CommBuffer_.find(kRecordEnd)) != kAbsent;) {
        const std::string line = without_line_ends(std::string_view(CommBuffer_).substr(0, end));
        CommBuffer_.erase(0, end + kRecordEnd.size() - 1);  // the CR stays
        DoModemNetCallerID(line);
    }
}

// Some modems never end their last line. One that is still on its way is taken as it stands.
void ModemReader::take_unfinished_line() {
    const core::UtilitySettings& settings = services_.instance.settings;
    const auto holds = [this](std::string_view prefix) {
        return place_of(prefix, CommBuffer_) != kAbsent;
    };
    if (!settings.InsertModemCrLf ||
        !(holds(settings.CIDNamePrefix) || holds(settings.CIDNumberPrefix))) {
        return;
    }
    const std::string line = without_line_ends(CommBuffer_);
    DoModem(line);
    CommBuffer_.clear();
}

// --- lines to calls -----------------------------------------------------------------------------

void ModemReader::DoModem(std::string_view line) {
    core::Instance& instance = services_.instance;
    guarded(instance.log, "DoModem ", [&] {
        instance.log.debug([&] { return std::string("DoModem Received Text=").append(line); });
        const core::UtilitySettings& settings = instance.settings;
        const std::size_t name = place_of(settings.CIDNamePrefix, line);
        const std::size_t number = place_of(settings.CIDNumberPrefix, line);
        if (name != kAbsent) {
            detect_name(behind(line, name + settings.CIDNamePrefix.size()));
        } else if (number != kAbsent) {
            // The length of the name's prefix is what is cut off here, too (kept).
            detect_number(behind(line, number + settings.CIDNamePrefix.size()));
        } else if (place_of("RING", line) != kAbsent) {
            services_.call.NameDetected = false;
            services_.call.NumberDetected = false;
            stop_waiting();
        }
    });
}

void ModemReader::detect_name(std::string_view name) {
    CallState& call = services_.call;
    call.CIDName = name;
    call.NameDetected = true;
    services_.echo.add_data(" ... Name=" + call.CIDName + " ... ");
    if (call.NumberDetected) {
        services_.listener.ProcessModemInput();
    } else {
        wait_for_other_line();
    }
}

void ModemReader::detect_number(std::string_view number) {
    CallState& call = services_.call;
    call.CIDNumber = FormatPhoneNumber(number);
    call.NumberDetected = true;
    services_.echo.add_data(" ... Number=" + call.CIDNumber + " ... ");
    if (call.NameDetected) {
        services_.listener.ProcessModemInput();
    } else {
        wait_for_other_line();
    }
}

// The two fields are looked for in this order, wherever they stand in the record.
void ModemReader::DoModemNetCallerID(std::string_view line) {
    core::Instance& instance = services_.instance;
    CallState& call = services_.call;
    guarded(instance.log, "DoModemNetCallerID ", [&] {
        instance.log.debug([&] { return std::string("DoModemNetCallerID = ").append(line); });
        const std::size_t name = place_of(kNameField, line);
        if (name != kAbsent) {
            call.CIDName = behind(line, name + kNameField.size());
            call.NameDetected = true;
            if (call.NumberDetected) {
                services_.listener.ProcessModemInput();
            } else {
                wait_for_other_line();
            }
        }
        const std::size_t number = place_of(kNumberField, line);
        if (number != kAbsent) {
            read_number_field(line, number + kNumberField.size());
        }
        instance.log.debug([&] {
            return "DoModemNetCallerID [Name]= " + call.CIDName + " [Number]=" + call.CIDNumber;
        });
    });
}

// The number ends at the next point; without one it is no number.
void ModemReader::read_number_field(std::string_view line, std::size_t begin) {
    CallState& call = services_.call;
    call.CIDNumber = kNoNumber;
    const std::size_t end = line.find('.', begin);
    if (end == kAbsent) {
        return;
    }
    call.CIDNumber = FormatPhoneNumber(automation::trim(line.substr(begin, end - begin)));
    call.NumberDetected = true;
    if (call.NameDetected) {
        services_.listener.ProcessModemInput();
    } else {
        wait_for_other_line();
    }
}

// --- the wait for the second line ---------------------------------------------------------------

void ModemReader::wait_for_other_line() {
    if (host::Timer* const timer = services_.timer5()) {
        timer->set_interval(kWaitForOtherLine);
        timer->set_enabled(true);
    }
}

void ModemReader::stop_waiting() {
    if (host::Timer* const timer = services_.timer5()) {
        timer->set_enabled(false);
    }
}

void ModemReader::Timer5_Timer() {
    services_.call.NameDetected = true;
    services_.call.NumberDetected = true;
    stop_waiting();
    services_.listener.ProcessModemInput();
}

}  // namespace callerid
