#include "vbscript/objects/files/text_stream.h"

#include "vbscript/objects/files/file_channel.h"
#include "vbscript/objects/object_test.h"
#include "vbscript/objects/temporary_folder.h"

namespace vbscript {
namespace {

class TextStreamTest : public ObjectTest {
  protected:
    void open(FileMode mode, TextFormat format = TextFormat::CodePage) {
        object = nullptr;
        object =
            make<TextStream>(std::make_unique<FileChannel>(home.path() / "file", mode, format));
    }

    void open_with(std::string_view content, TextFormat format = TextFormat::CodePage) {
        home.write("file", content);
        open(FileMode::Read, format);
    }

    [[nodiscard]] std::string place() { return result(u"Line") + ":" + result(u"Column"); }

    TemporaryFolder home;
};

TEST_F(TextStreamTest, LinesEndWithLfOrCrLf) {
    open_with("one\r\ntwo\n\nfo\rur");
    for (const char* line : {"one", "two", "", "fo\rur"}) {
        EXPECT_EQ(result(u"AtEndOfStream"), "False");
        EXPECT_EQ(result(u"ReadLine"), line);
    }
    EXPECT_EQ(result(u"AtEndOfStream"), "True");
    EXPECT_EQ(result(u"AtEndOfLine"), "True");
    for (const auto* member : {u"ReadLine", u"ReadAll", u"SkipLine"}) {
        EXPECT_EQ(result(member), "error 62");
    }
    EXPECT_EQ(result(u"Read", {integer(1)}), "error 62");
    EXPECT_EQ(result(u"Skip", {integer(1)}), "error 62");
}

TEST_F(TextStreamTest, ReadingKeepsCountOfLinesAndColumns) {
    open_with("abcdef\r\nxyz");
    EXPECT_EQ(place(), "1:1");
    EXPECT_EQ(result(u"Read", {integer(4)}), "abcd");
    EXPECT_EQ(place(), "1:5");
    EXPECT_EQ(result(u"AtEndOfLine"), "False");
    EXPECT_EQ(result(u"Skip", {integer(2)}), "Empty");
    EXPECT_EQ(result(u"AtEndOfLine"), "True");
    EXPECT_EQ(result(u"SkipLine"), "Empty");
    EXPECT_EQ(place(), "2:1");
    EXPECT_EQ(result(u"Read", {integer(0)}), "");
    EXPECT_EQ(result(u"Read", {integer(-1)}), "error 5");
    EXPECT_EQ(result(u"ReadAll"), "xyz");
    EXPECT_EQ(place(), "2:4");
}

TEST_F(TextStreamTest, LongLinesCrossTheChunksOfTheFile) {
    const std::string line(200000, 'x');
    open_with(line + "\r\n" + line);
    EXPECT_EQ(result(u"ReadLine"), line);
    EXPECT_EQ(result(u"ReadAll"), line);
    open_with("");
    EXPECT_EQ(result(u"ReadAll"), "error 62");
}

TEST_F(TextStreamTest, WhatIsWrittenIsInTheFileOnceItIsClosed) {
    open(FileMode::Write);
    EXPECT_EQ(result(u"Write", {Value(u"\u20ACuro ")}), "Empty");
    EXPECT_EQ(result(u"WriteLine", {integer(5)}), "Empty");
    EXPECT_EQ(result(u"WriteLine"), "Empty");
    EXPECT_EQ(result(u"WriteBlankLines", {integer(2)}), "Empty");
    EXPECT_EQ(place(), "5:1");
    EXPECT_EQ(result(u"Write", {Value(u"\u0416")}), "error 5");
    EXPECT_EQ(result(u"ReadLine"), "error 54");
    EXPECT_EQ(result(u"AtEndOfStream"), "error 54");
    EXPECT_EQ(result(u"Close"), "Empty");
    EXPECT_EQ(home.read("file"), "\x80uro 5\r\n\r\n\r\n\r\n");
    EXPECT_EQ(result(u"Close"), "Empty");
    EXPECT_EQ(result(u"Write", {Value(u"x")}), "error 91");
    EXPECT_EQ(result(u"Line"), "error 91");

    open(FileMode::Append);
    EXPECT_EQ(result(u"Write", {Value(u"end")}), "Empty");
    object = nullptr;
    EXPECT_EQ(home.read("file"), "\x80uro 5\r\n\r\n\r\n\r\nend");
    open(FileMode::Read);
    EXPECT_EQ(result(u"Write", {Value(u"x")}), "error 54");
    EXPECT_EQ(result(u"ReadLine"), "\u20ACuro 5");
}

TEST_F(TextStreamTest, UnicodeFilesBeginWithAMark) {
    using namespace std::string_literals;
    open(FileMode::Write, TextFormat::Unicode);
    EXPECT_EQ(result(u"Write", {Value(u"\u0416")}), "Empty");
    open(FileMode::Append, TextFormat::Unicode);
    EXPECT_EQ(result(u"Write", {Value(u"a")}), "Empty");
    object = nullptr;
    EXPECT_EQ(home.read("file"),
              "\xFF\xFE\x16\x04"
              "a\0"s);
    open(FileMode::Read, TextFormat::Unicode);
    EXPECT_EQ(result(u"ReadAll"), "\u0416a");
    open_with("a\0b\0"s, TextFormat::Unicode);
    EXPECT_EQ(result(u"ReadAll"), "ab");
}

}  // namespace
}  // namespace vbscript
