#include "unit/http_page.h"

#include "automation/html.h"

namespace unit {

std::string to_response(const Page& page, std::string_view version) {
    const std::string html = "<html><head><title>Velora</title></head><body>" +
                             automation::html_encoded(page.text) + "</body></html>\r\n";
    std::string response(version);
    response.append(" ").append(page.status).append("\r\n");
    response.append("Server: Velora\r\n");
    response.append("Content-Type: text/html\r\n");
    response.append("Content-Length: ").append(std::to_string(html.size())).append("\r\n");
    response.append("Connection: close\r\n\r\n");
    return response + html;
}

}  // namespace unit
