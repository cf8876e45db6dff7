#include "unit/response_reader.h"

#include <gtest/gtest.h>

#include <array>

namespace unit {
namespace {

// A response that ends with the connection, and what is made of it.
struct Row {
    std::string_view name;
    std::string_view bytes;
    ResponseProgress result;
    std::string_view body;
};

constexpr std::array kRows{
    Row{"length", "HTTP/1.0 200 OK\r\nContent-Length: 3\r\n\r\nabc", ResponseProgress::Complete,
        "abc"},
    Row{"padded", "HTTP/1.1 200 OK\r\ncontent-length:3\r\n\r\nabc     ", ResponseProgress::Complete,
        "abc"},
    Row{"no length", "HTTP/1.0 200 OK\r\nServer: x\r\n\r\nabc\r\n\r\n", ResponseProgress::Complete,
        "abc\r\n\r\n"},
    Row{"odd fields",
        "HTTP/1.1 200 OK\r\nDate:24-Nov-26\r\nLast-Modified 11/24/2026 1:02:03 PM\r\n"
        "no field\r\nContent-Length: 2\r\n\r\nab",
        ResponseProgress::Complete, "ab"},
    Row{"length that is none", "HTTP/1.0 200 OK\r\nContent-Length: x\r\n\r\nab",
        ResponseProgress::Complete, "ab"},
    Row{"bare line feeds", "HTTP/1.0 200 OK\nContent-Length: 1\n\nabc", ResponseProgress::Complete,
        "a"},
    Row{"head without end", "HTTP/1.0 307 NoSupport\r\nLocation: http://x/",
        ResponseProgress::Complete, ""},
    Row{"status without reason", "HTTP/1.0 204\r\n\r\n", ResponseProgress::Complete, ""},
    Row{"empty body", "HTTP/1.0 200 OK\r\nContent-Length: 0\r\n\r\n", ResponseProgress::Complete,
        ""},
    Row{"too short", "HTTP/1.0 200 OK\r\nContent-Length: 9\r\n\r\nabc", ResponseProgress::Failed,
        "abc"},
    Row{"nothing", "", ResponseProgress::Failed, ""},
    Row{"another protocol", "SSH-2.0-x\r\n", ResponseProgress::Failed, ""},
    Row{"over the limit", "HTTP/1.0 200 OK\r\n\r\n12345678901", ResponseProgress::Failed, ""},
    Row{"length over the limit", "HTTP/1.0 200 OK\r\nContent-Length: 99999999999\r\n\r\n1",
        ResponseProgress::Failed, ""},
};

constexpr std::size_t kBodyLimit = 10;

TEST(ResponseReader, TakesWhatServersSend) {
    for (const Row& row : kRows) {
        ResponseReader reader(kBodyLimit);
        reader.feed(row.bytes);
        EXPECT_EQ(reader.end_of_stream(), row.result) << row.name;
        EXPECT_EQ(reader.body(), row.body) << row.name;
        EXPECT_EQ(reader.problem().empty(), row.result == ResponseProgress::Complete) << row.name;
    }
}

TEST(ResponseReader, GivesTheSameByteByByte) {
    for (const Row& row : kRows) {
        ResponseReader whole(1000);
        whole.feed(row.bytes);
        ResponseReader parts(1000);
        for (const char byte : row.bytes) {
            parts.feed({&byte, 1});
        }
        EXPECT_EQ(parts.end_of_stream(), whole.end_of_stream()) << row.name;
        EXPECT_EQ(parts.body(), whole.body()) << row.name;
        EXPECT_EQ(parts.status_line(), whole.status_line()) << row.name;
    }
}

TEST(ResponseReader, IsCompleteWithTheLastByteOfTheLength) {
    ResponseReader reader(kBodyLimit);
    EXPECT_EQ(reader.feed("HTTP/1.1 200 Object Not Found\r\nContent-Length: 2\r\n\r\na"),
              ResponseProgress::NeedsMore);
    EXPECT_EQ(reader.feed("bc"), ResponseProgress::Complete);
    EXPECT_EQ(reader.status_line(), "HTTP/1.1 200 Object Not Found");
    EXPECT_EQ(reader.status(), 200);
}

TEST(ResponseReader, BoundsTheHead) {
    ResponseReader reader(kBodyLimit);
    auto progress = reader.feed("HTTP/1.0 200 OK\r\n");
    for (int i = 0; i < 70 && progress == ResponseProgress::NeedsMore; ++i) {
        progress = reader.feed(std::string(1000, 'x') + "\n");
    }
    EXPECT_EQ(progress, ResponseProgress::Failed);
}

}  // namespace
}  // namespace unit
