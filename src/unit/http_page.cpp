#include "unit/http_page.h"

namespace unit {
namespace {

std::string escaped(std::string_view text) {
    std::string html;
    for (const char character : text) {
        switch (character) {
            case '<':
                html += "&lt;";
                break;
            case '>':
                html += "&gt;";
                break;
            case '&':
                html += "&amp;";
                break;
            default:
                html += character;
        }
    }
    return html;
}

}  // namespace

std::string to_response(const Page& page, std::string_view version) {
    const std::string html = "<html><head><title>Velora</title></head><body>" + escaped(page.text) +
                             "</body></html>\r\n";
    std::string response(version);
    response.append(" ").append(page.status).append("\r\n");
    response.append("Server: Velora\r\n");
    response.append("Content-Type: text/html\r\n");
    response.append("Content-Length: ").append(std::to_string(html.size())).append("\r\n");
    response.append("Connection: close\r\n\r\n");
    return response + html;
}

}  // namespace unit
