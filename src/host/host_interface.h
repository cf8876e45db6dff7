#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "automation/object.h"
#include "automation/run_time_error.h"
#include "host/devices.h"
#include "host/events.h"
#include "host/log.h"
#include "host/settings.h"
#include "host/x10.h"

namespace host {

class MenuDatabase;
class PhoneAddOn;

// `hs`: everything that the host offers to a plug-in. Owned by the host, outlives the plug-in.
class HostInterface : public Settings, public Log, public Devices, public X10, public Events {
  public:
    // "2.5.0.81": generation, minor, revision. Generations above 1 take devices by reference.
    [[nodiscard]] virtual std::string Version() const = 0;

    // Folder in which HTML, Scripts, Data and Config lie, without a trailing backslash.
    [[nodiscard]] virtual std::string GetAppPath() const = 0;

    // The host as scripts see it.
    [[nodiscard]] virtual std::shared_ptr<automation::Object> object() = 0;

    // Users and menus of the host's own pages; none on a host without them.
    [[nodiscard]] virtual MenuDatabase* menu_database() { return nullptr; }

    // "hsPhone.Application"; none on a host without the add-on.
    [[nodiscard]] virtual PhoneAddOn* phone_add_on() { return nullptr; }
};

// What the host, or the separate xAP program, hands to `RegisterCallback`. Owned by the host,
// outlives the plug-in.
class CallbackObject {
  public:
    virtual ~CallbackObject() = default;

    // Class name at run time; "Setup" marks the separate xAP program.
    [[nodiscard]] virtual std::string type_name() const = 0;

    // None when the host cannot be reached.
    [[nodiscard]] virtual HostInterface* GetHSIface() = 0;

    virtual void RegisterMenu(std::string_view plugin, std::string_view label) = 0;

    // Character code of a house code that nobody uses, outside "A" to "Z".
    [[nodiscard]] virtual std::int32_t GetNextFreeIOCode() = 0;

    // A device of the plug-in has a new value by itself.
    virtual void ValueChangeEvent(std::string_view code, std::int32_t value) = 0;

    // Hands a message to the xAP network. The target may be "" for all. The body holds the pairs
    // of the first block: key, chr 1, value, separated by chr 0; further blocks may follow as text.
    // `sub_address` goes behind the program's own address, `uid` is the endpoint in two hex digits.
    // Only the separate xAP program carries messages. Throws: RunTimeError 438 in others.
    virtual void SendXapMessage(std::string_view /*target*/, std::string_view /*message_class*/,
                                std::string_view /*section*/, std::string_view /*body*/,
                                std::string_view /*sub_address*/, std::string_view /*uid*/) {
        throw automation::RunTimeError(automation::ErrorNumber::PropertyOrMethodNotSupported);
    }
};

}  // namespace host
