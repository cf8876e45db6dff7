#include "status/status_house.h"

namespace status {

std::span<const automation::Member> StatusRequest::members() const {
    using automation::method;
    static constexpr auto kMembers = std::to_array<automation::Member>({
        method<&StatusRequest::ServerVariables>("ServerVariables", "name"),
        method<&StatusRequest::Form>("Form", "name"),
    });
    return kMembers;
}

StatusHouse::StatusHouse() {
    house.add_unit("Hall", {.power = "A1", .motion = "B1", .slideshow = 1, .caller_id = "1"});
    house.add_unit("Den");
    house.instance().settings.CIDDeviceCode = "[91";
    house.host().put_device("A1");
    house.open();
    house.host_devices().CIDDevice("[91");
    static_cast<void>(deeds());
}

std::string StatusHouse::post(const Fields& fields) {
    const auto request = std::make_shared<StatusRequest>();
    request->form = fields;
    request->form.insert({{"clientinput", "yes"}, {"clientvalue", "yes"}, {"page", "status"}});
    return page.StatusPage(request, nullptr);
}

std::vector<std::string> StatusHouse::deeds() {
    std::vector<std::string> deeds = house.log();
    for (const std::string& change : house.host().value_changes()) {
        deeds.push_back("value " + change);
    }
    for (const std::string& command : commands.commands) {
        deeds.push_back("command " + command);
    }
    for (const std::string& command : house.host().x10_commands()) {
        deeds.push_back("x10 " + command);
    }
    for (const support::MemoryHost::XapMessage& message : house.host().xap_messages()) {
        deeds.push_back("xap " + message.message_class + " " + message.body);
    }
    commands.commands.clear();
    house.host().forget();
    return deeds;
}

}  // namespace status
