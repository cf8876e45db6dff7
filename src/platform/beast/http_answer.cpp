#include "platform/beast/http_answer.h"

#include <array>
#include <boost/beast/http/field.hpp>
#include <boost/beast/http/status.hpp>
#include <ctime>
#include <string>
#include <string_view>
#include <utility>

#include "automation/code_page.h"

namespace platform {
namespace {

namespace http = boost::beast::http;

constexpr std::string_view kServer = "zynVelora";

// The server alone knows them.
constexpr std::array<std::string_view, 6> kOwnHeaders{
    "Server", "Date", "Content-Length", "Connection", "Keep-Alive", "Transfer-Encoding"};

bool is_own(std::string_view name) {
    for (const std::string_view own : kOwnHeaders) {
        if (automation::equals_ignoring_case(own, name)) {
            return true;
        }
    }
    return false;
}

std::string date_now() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    ::gmtime_r(&now, &parts);
    std::array<char, 64> text{};
    const std::size_t size =
        std::strftime(text.data(), text.size(), "%a, %d %b %Y %H:%M:%S GMT", &parts);
    return {text.data(), size};
}

}  // namespace

host::HttpRequest plain_request(http::request<http::string_body>&& request) {
    host::HttpRequest plain;
    plain.method = std::string(request.method_string());
    plain.target = std::string(request.target());
    for (const auto& field : request) {
        plain.headers.push_back({std::string(field.name_string()), std::string(field.value())});
    }
    plain.body = std::move(request.body());
    return plain;
}

AnswerHeader answer_header(const host::HttpResponse& response, unsigned int version,
                           bool keeps_connection) {
    AnswerHeader header;
    header.version(version);
    header.result(static_cast<unsigned int>(response.status));
    if (!response.reason.empty()) {
        header.reason(response.reason);
    }
    header.set(http::field::server, kServer);
    header.set(http::field::date, date_now());
    for (const auto& [name, value] : response.headers) {
        if (!is_own(name)) {
            header.insert(name, value);
        }
    }
    if (has_body(response.status)) {
        header.content_length(response.file ? response.file->size : response.body.size());
    }
    header.keep_alive(keeps_connection);
    return header;
}

bool has_body(std::int32_t status) {
    return status >= 200 && status != 204 && status != 304;
}

host::HttpResponse error_answer(std::int32_t status) {
    const std::string title =
        std::to_string(status) + " " +
        std::string(http::obsolete_reason(http::int_to_status(static_cast<unsigned int>(status))));
    host::HttpResponse response;
    response.status = status;
    response.add("Content-Type", "text/html");
    response.body.append("<html><head><title>").append(title).append("</title></head><body><h1>");
    response.body.append(title).append("</h1></body></html>\r\n");
    return response;
}

}  // namespace platform
