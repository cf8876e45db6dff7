#include "app/remote_plugin.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <vector>

#include "app/command.h"
#include "app/control_client.h"
#include "app/json.h"
#include "automation/code_page.h"
#include "automation/object.h"
#include "automation/run_time_error.h"

namespace app {
namespace {

constexpr std::string_view kClassName = "zynVelora.hspi";

using automation::ErrorNumber;
using automation::RunTimeError;

RunTimeError error_of(std::int32_t number, const std::string& text) {
    return {number, automation::utf8_to_code_page(text), std::string(kClassName)};
}

class RemotePlugin final : public automation::Object {
  public:
    explicit RemotePlugin(const std::filesystem::path& home) : client_(home) {
        client_.send({{"do", "operations"}});
        const Json answer = client_.receive();
        for (const Json& usage : answer.at("operations")) {
            const auto text = usage.get<std::string>();
            names_.push_back(text.substr(0, text.find('(')));
        }
    }

    [[nodiscard]] std::string type_name() const override { return "hspi"; }

    // The number is the place in the list of operations, from 1.
    [[nodiscard]] std::optional<automation::MemberId> find_member(
        std::string_view name) const override {
        const auto found = std::ranges::find_if(names_, [name](const std::string& operation) {
            return automation::equals_ignoring_case(operation, name);
        });
        if (found == names_.end()) {
            return std::nullopt;
        }
        return static_cast<automation::MemberId>(found - names_.begin()) + 1;
    }

    automation::Value invoke(automation::MemberId member, automation::Access access,
                             std::span<automation::Value> arguments) override {
        if (member < 1 || access != automation::Access::Call) {
            throw RunTimeError(ErrorNumber::PropertyOrMethodNotSupported);
        }
        Json given = Json::array();
        for (const automation::Value& argument : arguments) {
            given.push_back(argument.is_missing() ? Json() : json_of(argument));
        }
        return call(names_.at(static_cast<std::size_t>(member) - 1), given);
    }

  private:
    automation::Value call(const std::string& operation, const Json& arguments) {
        try {
            client_.send({{"do", "call"}, {"operation", operation}, {"arguments", arguments}});
            return value_of(client_.receive().at("result"));
        } catch (const DaemonError& error) {
            throw error_of(error.number(), error.text());
        } catch (const CommandFailure& failure) {
            constexpr std::int32_t kAutomationError = 440;
            throw error_of(kAutomationError, failure.what());
        }
    }

    ControlClient client_;
    std::vector<std::string> names_;
};

}  // namespace

std::shared_ptr<automation::Object> remote_object(const std::string& home,
                                                  std::string_view class_name) {
    if (!automation::equals_ignoring_case(class_name, kClassName)) {
        return nullptr;
    }
    try {
        return std::make_shared<RemotePlugin>(chosen_home(home));
    } catch (const CommandFailure& failure) {
        throw error_of(static_cast<std::int32_t>(ErrorNumber::ActiveXCannotCreateObject),
                       failure.what());
    }
}

}  // namespace app
