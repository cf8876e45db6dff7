#include "unit/request_reader.h"

#include <gtest/gtest.h>

#include <array>

namespace unit {
namespace {

struct Row {
    std::string_view bytes;
    RequestProgress progress;
    std::string_view target;
};

constexpr std::array kRows{
    Row{"GET /led.shtml?t1 HTTP/1.1\r\nHost: x\r\n\r\n", RequestProgress::Complete,
        "/led.shtml?t1"},
    Row{"GET /beep.shtml?0 5 HTTP/1.0\r\n\r\n", RequestProgress::Complete, "/beep.shtml?0 5"},
    Row{"GET /x HTTP/1.0\n\n", RequestProgress::Complete, "/x"},
    Row{"POST /x HTTP/1.1\r\nContent-Length: 3\r\n\r\nabc", RequestProgress::Complete, "/x"},
    Row{"GET /x HTTP/1.0\r\nHost: x\r\n", RequestProgress::NeedsMore, ""},
    Row{"GET /x HTTP/1.0", RequestProgress::NeedsMore, ""},
    Row{"GET /x\r\n\r\n", RequestProgress::Malformed, ""},
    Row{"GET HTTP/1.0\r\n\r\n", RequestProgress::Malformed, ""},
    Row{"GET /x HTTP/2.0\r\n\r\n", RequestProgress::Malformed, ""},
    Row{"\r\nGET /x HTTP/1.0\r\n\r\n", RequestProgress::Malformed, ""},
    Row{" GET /x HTTP/1.0\r\n\r\n", RequestProgress::Malformed, ""},
    Row{std::string_view("GET /\0 HTTP/1.0\r\n\r\n", 20), RequestProgress::Malformed, ""},
    Row{"\x16\x03\x01\x02 \n", RequestProgress::Malformed, ""},
};

void expect_row(const Row& row, RequestProgress progress, const RequestReader& reader) {
    EXPECT_EQ(progress, row.progress) << row.bytes;
    if (row.progress == RequestProgress::Complete) {
        EXPECT_EQ(reader.request().target, row.target) << row.bytes;
    }
}

TEST(RequestReader, ReadsTheHeadInOnePiece) {
    for (const Row& row : kRows) {
        RequestReader reader;
        const RequestProgress progress = reader.feed(row.bytes);
        expect_row(row, progress, reader);
    }
}

TEST(RequestReader, ReadsTheHeadByteByByte) {
    for (const Row& row : kRows) {
        RequestReader reader;
        auto progress = RequestProgress::NeedsMore;
        for (const char byte : row.bytes) {
            progress = reader.feed({&byte, 1});
        }
        expect_row(row, progress, reader);
    }
}

TEST(RequestReader, BoundsTheHead) {
    RequestReader no_line;
    EXPECT_EQ(no_line.feed(std::string(kLargestRequest, 'x')), RequestProgress::NeedsMore);
    EXPECT_EQ(no_line.feed("x"), RequestProgress::TooLarge);
    EXPECT_EQ(no_line.feed("\r\n\r\n"), RequestProgress::TooLarge);

    RequestReader many_fields;
    auto progress = many_fields.feed("GET / HTTP/1.0\r\n");
    for (std::size_t sent = 0; sent <= kLargestRequest; sent += 6) {
        progress = many_fields.feed("a: b\r\n");
    }
    EXPECT_EQ(progress, RequestProgress::TooLarge);
}

}  // namespace
}  // namespace unit
