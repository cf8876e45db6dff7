#include "home/asp/asp_request.h"

#include <algorithm>
#include <array>

#include "automation/code_page.h"
#include "automation/strings.h"

namespace home {
namespace {

using automation::Member;
using automation::property;
using automation::Value;

constexpr std::string_view kFormType = "application/x-www-form-urlencoded";

std::string query_of(const host::HttpRequest& request) {
    const std::size_t mark = request.target.find('?');
    return mark == std::string::npos ? "" : request.target.substr(mark + 1);
}

// A client that posts a form again behind a redirect may have lost its type.
std::string form_of(const host::HttpRequest& request) {
    const std::string type = automation::to_lower(request.header("Content-Type").value_or(""));
    return type.empty() || type.starts_with(kFormType) ? request.body : "";
}

// "Accept-Language" as "HTTP_ACCEPT_LANGUAGE".
std::string variable_name(const std::string& header) {
    return "HTTP_" + automation::to_upper(automation::replace_all(header, "-", "_"));
}

NamedTexts variables_of(const host::HttpRequest& request, const AspPlace& place) {
    const std::string server = request.header("Host").value_or("");
    const std::size_t colon = server.rfind(':');
    NamedTexts variables{
        {"REMOTE_ADDR", request.remote_address},
        {"REMOTE_HOST", request.remote_address},
        {"REQUEST_METHOD", request.method},
        {"QUERY_STRING", query_of(request)},
        {"PATH_INFO", place.path},
        {"SCRIPT_NAME", place.path},
        {"URL", place.path},
        {"PATH_TRANSLATED", place.path_translated},
        {"APPL_PHYSICAL_PATH", place.root + "\\"},
        {"CONTENT_TYPE", request.header("Content-Type").value_or("")},
        {"CONTENT_LENGTH", std::to_string(request.body.size())},
        {"SERVER_NAME", server.substr(0, colon)},
        {"SERVER_PORT", colon == std::string::npos ? "80" : server.substr(colon + 1)},
        {"SERVER_PROTOCOL", "HTTP/1.1"},
        {"SERVER_SOFTWARE", "zynVelora"},
        {"HTTPS", "off"},
        {"AUTH_USER", ""},
    };
    for (const host::HttpHeader& header : request.headers) {
        variables.emplace_back(variable_name(header.name), header.value);
    }
    return variables;
}

std::shared_ptr<AspCollection> collection(const NamedTexts& pairs, const std::string& whole) {
    return std::make_shared<AspCollection>(pairs, whole);
}

Value item_or_all(const std::shared_ptr<AspCollection>& list, const std::optional<Value>& name) {
    return name ? list->Item(name) : Value(std::shared_ptr<automation::Object>(list));
}

}  // namespace

AspRequest::AspRequest(const host::HttpRequest& request, const AspPlace& place)
    : query_(collection(parse_form(query_of(request)), query_of(request))),
      form_(collection(parse_form(form_of(request)), form_of(request))),
      cookies_(collection(parse_cookies(request.header("Cookie").value_or("")),
                          request.header("Cookie").value_or(""))),
      variables_(collection(variables_of(request, place), "")),
      total_bytes_(static_cast<std::int32_t>(request.body.size())) {}

std::span<const Member> AspRequest::members() const {
    using R = AspRequest;
    static constexpr auto kMembers = std::to_array<Member>({
        property<&R::Item>("Item", "name"),
        property<&R::QueryString>("QueryString", "[name]"),
        property<&R::Form>("Form", "[name]"),
        property<&R::Cookies>("Cookies", "[name]"),
        property<&R::ServerVariables>("ServerVariables", "[name]"),
        property<&R::TotalBytes>("TotalBytes"),
    });
    return kMembers;
}

Value AspRequest::Item(const std::string& name) const {
    for (const auto& list : {query_, form_, cookies_, variables_}) {
        if (const auto value = list->find(name)) {
            return *value;
        }
    }
    return {};
}

Value AspRequest::QueryString(const std::optional<Value>& name) const {
    return item_or_all(query_, name);
}

Value AspRequest::Form(const std::optional<Value>& name) const {
    return item_or_all(form_, name);
}

Value AspRequest::Cookies(const std::optional<Value>& name) const {
    return item_or_all(cookies_, name);
}

Value AspRequest::ServerVariables(const std::optional<Value>& name) const {
    return item_or_all(variables_, name);
}

}  // namespace home
