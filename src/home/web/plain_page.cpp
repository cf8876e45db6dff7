#include "home/web/plain_page.h"

#include <string>

#include "automation/html.h"

namespace home {

host::HttpResponse plain_page(std::int32_t status, std::string_view title, std::string_view text) {
    const std::string shown = automation::html_encoded(title);
    host::HttpResponse response;
    response.status = status;
    response.add("Content-Type", std::string(kPageType));
    response.body.append("<!DOCTYPE html>\r\n<html><head><title>").append(shown);
    response.body.append(
        "</title></head>\r\n<body style=\"font-family: Verdana, Arial, sans-serif; margin: 2em\">"
        "\r\n<h1>");
    response.body.append(shown).append("</h1>\r\n<pre style=\"white-space: pre-wrap\">");
    response.body.append(automation::html_encoded(text));
    response.body.append(
        "</pre>\r\n<p><a href=\"/\">To the start page</a></p>\r\n</body></html>\r\n");
    return response;
}

}  // namespace home
