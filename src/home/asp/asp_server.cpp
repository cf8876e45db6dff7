#include "home/asp/asp_server.h"

#include <array>

#include "automation/html.h"
#include "automation/run_time_error.h"
#include "automation/strings.h"
#include "home/web/url_text.h"

namespace home {
namespace {

using automation::ErrorNumber;
using automation::Member;
using automation::method;
using automation::property;
using automation::RunTimeError;

constexpr std::string_view kInvalid = "Invalid procedure call or argument: ";

}  // namespace

std::span<const Member> AspServer::members() const {
    using S = AspServer;
    static constexpr auto kMembers = std::to_array<Member>({
        method<&S::MapPath>("MapPath", "path"),
        method<&S::HTMLEncode>("HTMLEncode", "text"),
        method<&S::URLEncode>("URLEncode", "text"),
        method<&S::CreateObject>("CreateObject", "class"),
        property<&S::script_timeout, &S::set_script_timeout>("ScriptTimeout"),
    });
    return kMembers;
}

std::string AspServer::MapPath(const std::string& path) const {
    const auto place = SiteFiles::resolve(folder_, path);
    if (!place) {
        throw RunTimeError(ErrorNumber::InvalidProcedureCall,
                           std::string(kInvalid) + "'" + path + "' lies outside of the site");
    }
    return place->empty() ? root_ : root_ + "\\" + automation::join(*place, "\\");
}

std::string AspServer::HTMLEncode(const std::string& text) const {
    return automation::html_encoded(text);
}

std::string AspServer::URLEncode(const std::string& text) const {
    return form_encoded(text);
}

std::shared_ptr<automation::Object> AspServer::CreateObject(const std::string& class_name) {
    if (!services_.create) {
        throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    }
    return services_.create(class_name);
}

void AspServer::set_script_timeout(std::int32_t seconds) {
    if (seconds < 1 || seconds > kMostSeconds) {
        throw RunTimeError(ErrorNumber::InvalidProcedureCall,
                           std::string(kInvalid) + "a page runs for 1 to 60 seconds");
    }
    seconds_ = seconds;
    if (services_.set_time_limit) {
        services_.set_time_limit(seconds);
    }
}

}  // namespace home
