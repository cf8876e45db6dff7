#include "status/form.h"

#include <array>

#include "automation/convert.h"
#include "automation/run_time_error.h"

namespace status {

namespace {

using automation::RunTimeError;
using automation::Value;

// A page's request of the host's own server: the form is an object of its own there.
Value item_of_form(automation::Object& request, std::string_view key) {
    std::array<Value, 1> arguments{Value(key)};
    const std::shared_ptr<automation::Object> form = automation::to_object(request.call("Form"));
    if (form == nullptr) {
        throw RunTimeError(automation::ErrorNumber::ObjectVariableNotSet);
    }
    return form->call("item", arguments);
}

}  // namespace

bool Form::is_of_host() const noexcept {
    return instance_.HostIsV2 && !instance_.settings.UseOwnServer;
}

Value Form::FormValue(std::string_view key) const {
    if (request_ == nullptr) {
        throw RunTimeError(automation::ErrorNumber::ObjectVariableNotSet);
    }
    if (is_of_host()) {
        try {
            return item_of_form(*request_, key);
        } catch (const RunTimeError&) {
            // An older server of the host: its form is a property with the key as argument.
        }
    }
    std::array<Value, 1> arguments{Value(key)};
    return request_->call("Form", arguments);
}

std::string Form::text(std::string_view key) const {
    return automation::to_text(FormValue(key));
}

}  // namespace status
