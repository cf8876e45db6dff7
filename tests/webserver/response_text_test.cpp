#include "webserver/response_text.h"

#include <gtest/gtest.h>

namespace webserver {
namespace {

using namespace std::chrono_literals;

// Tuesday 24 November 2026, 4:03:03 PM, and a file from the day before.
constexpr automation::DateTime kNow{std::chrono::local_days{2026y / 11 / 24} + 16h + 3min + 3s};
constexpr automation::DateTime kFileTime{std::chrono::local_days{2026y / 11 / 23} + 9h + 5min};

TEST(ResponseText, HasEachHeaderLineAsClientsKnowIt) {
    EXPECT_EQ(page_response(kNow, "<p>x</p>"),
              "HTTP/1.0 200 OK\r\n"
              "Server: zyn\r\n"
              "Date: 24-Nov-26\r\n"
              "Accept-Ranges: bytes\r\n"
              "Content-Type: text/html\r\n"
              "Content-Length: 8\r\n"
              "\r\n"
              "<p>x</p>");
    EXPECT_EQ(text_file_response(kNow, kFileTime, "body{}"),
              "HTTP/1.0 200 OK\r\n"
              "Server: zyn\r\n"
              "Date: 24-Nov-26\r\n"
              "Accept-Ranges: bytes\r\n"
              "Content-Type: text/html\r\n"
              "Last-Modified 11/23/2026 9:05:00 AM\r\n"
              "Content-Length: 6\r\n"
              "\r\n"
              "body{}");
    EXPECT_EQ(not_found_response(kNow),
              "HTTP/1.1 200 Object Not Found\r\n"
              "Server: zyn\r\n"
              "Date: 24-Nov-26\r\n"
              "Connection: Close\r\n"
              "Content-Type: text/html\r\n"
              "Content-Length: 40\r\n"
              "\r\n"
              "<html><h1>404 File Not Found</h1></html>");
    EXPECT_EQ(binary_file_header(kNow, kFileTime, 2500, "image/jpg"),
              "HTTP/1.1 200 OK\r\n"
              "Server: zyn\r\n"
              "Date:24-Nov-26\r\n"
              "Last-Modified: 11/23/2026 9:05:00 AM\r\n"
              "Accept-Ranges: bytes\r\n"
              "Content-Length: 2500\r\n"
              "Connection: Close\r\n"
              "Content-Type: image/jpg\r\n"
              "\r\n");
}

TEST(ResponseText, HandoverWithoutPayloadEndsBehindTheLocation) {
    const std::string header =
        "Server: zyn\r\n"
        "Date: 24-Nov-26\r\n"
        "Connection: close\r\n"
        "Content-Type: text/html\r\n"
        "Location: http://10.0.0.2:80/x?a=1\r\n";
    const std::string_view where = "10.0.0.2:80/x";
    EXPECT_EQ(handover_response(Handover::Redirect, kNow, where, "?a=1", "  "),
              "HTTP/1.0 307 NoSupport\r\n" + header);
    EXPECT_EQ(handover_response(Handover::Redirect, kNow, where, "?a=1", " b=2 "),
              "HTTP/1.0 307 NoSupport\r\n" + header + "Content-Length: 5\r\n\r\n b=2 ");
    EXPECT_EQ(handover_response(Handover::Resubmit, kNow, where, "?a=1", "page"),
              "HTTP/1.0 200 OK\r\n" + header + "Content-Length: 4\r\n\r\npage");
}

TEST(ResponseText, ContentTypeComesFromTheFirstExtensionOfTheList) {
    constexpr struct {
        const char* file;
        const char* type;
    } kRows[] = {
        {"\\a.txt", "text/plain"},       {"\\a.html", "text/html"},
        {"\\a.jpg", "image/jpg"},        {"\\a.gif", "image/gif"},
        {"\\a.bmp", "image/bmp"},        {"\\a.wav", "audio/wav"},
        {"\\a.php", "text/html"},        {"\\a.jpg.txt", "text/plain"},
        {"\\a.txtra.wav", "text/plain"}, {"\\a.JPG", "unknown/binary"},
        {"\\a", "unknown/binary"},
    };

    for (const auto& row : kRows) {
        EXPECT_EQ(GetMimeType(row.file), row.type) << row.file;
    }
}

}  // namespace
}  // namespace webserver
