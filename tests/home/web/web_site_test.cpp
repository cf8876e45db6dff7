#include "home/web/web_site.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include <filesystem>

#include "home/web/http_date.h"
#include "home/web/site_house.h"

namespace home {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class WebSiteTest : public testing::Test {
  protected:
    // What is served at the target: the content of a file or of a made page, or "404".
    std::string served(const std::string& target) {
        const host::HttpResponse response = house_.get(target);
        if (response.status != 200) {
            return std::to_string(response.status);
        }
        return response.file ? content_of(*response.file) : response.body;
    }

    [[nodiscard]] std::string content_of(const host::HttpFile& file) const {
        return house_.folder.read(file.path).substr(file.begin, file.size);
    }

    void touch(const std::string& page, const char* moment) const {
        fs::last_write_time(house_.folder.path() / "HTML" / page,
                            std::chrono::file_clock::from_sys(parse_http_date(moment).value()));
    }

    SiteHouse house_;
};

TEST_F(WebSiteTest, FindsFilesWithoutRegardToCase) {
    house_.write("Sub Folder/Page.htm", "page");
    house_.write("sub Folder.htm", "other");
    house_.write("both.htm", "small");
    house_.write("Both.htm", "large");
    house_.write(
        "K\xC3\xBC"
        "che.htm",
        "kitchen");
    for (const auto& [target, content] : std::vector<std::pair<std::string, std::string>>{
             {"/Sub%20Folder/Page.htm", "page"},
             {"/sub%20folder/PAGE.HTM?x=/..", "page"},
             {"\\sub%20folder\\page.htm", "page"},
             {"//sub%20folder/./x/../page.htm", "page"},
             {"http://house:81/sub%20folder/page.htm", "page"},
             {"/both.htm", "small"},
             {"/Both.htm", "large"},
             {"/BOTH.htm", "large"},
             {"/k%C3%9Cche.htm", "kitchen"},
             {"/k%FCche.htm", "kitchen"},
             {"/none.htm", "404"},
             {"/both.htm/", "404"},
             {"/both.htm/x", "404"},
             {"/b?th.htm", "404"}}) {
        EXPECT_EQ(served(target), content) << target;
    }
}

TEST_F(WebSiteTest, NothingOutsideIsReached) {
    house_.folder.write("secret.htm", "secret");
    house_.write(".hidden.htm", "secret");
    house_.write("inside.htm", "inside");
    const fs::path html = house_.folder.path() / "HTML";
    fs::create_symlink("../secret.htm", html / "link.htm");
    fs::create_directory_symlink("..", html / "up");
    fs::create_symlink("inside.htm", html / "fine.htm");
    fs::create_symlink("/dev/zero", html / "zero.htm");
    for (const char* target :
         {"/../secret.htm", "/%2e%2e/secret.htm", "/..%5Csecret.htm", "/x/../../secret.htm",
          "/link.htm", "/up/secret.htm", "/up/HTML/../secret.htm", "/.hidden.htm", "/a%00.htm",
          "/zero.htm", "/secret.htm"}) {
        EXPECT_EQ(served(target), "404") << target;
    }
    EXPECT_EQ(served("/fine.htm"), "inside");
}

TEST_F(WebSiteTest, AFolderStandsForItsIndexPage) {
    house_.write("a/default.htm", "default");
    house_.write("a/Index.html", "index");
    house_.write("b/index.asp", "<%= Request(\"x\") & Request.ServerVariables(\"PATH_INFO\") %>");
    house_.write("c/other.htm", "other");
    EXPECT_EQ(served("/a/"), "index");
    EXPECT_EQ(served("/b/?x=1"), "1/b/index.asp");
    EXPECT_EQ(served("/c/"), "404");
    EXPECT_EQ(served("/"), "404");
    const host::HttpResponse moved = house_.get("//B?x=1");
    EXPECT_EQ(moved.status, 301);
    EXPECT_EQ(moved.header("Location"), "/B/?x=1");
    EXPECT_THAT(house_.get("/c/<x>").body, HasSubstr("There is no page /c/&lt;x&gt; on this site"));
}

TEST_F(WebSiteTest, TypesGoByTheExtension) {
    house_.write("own.html", "<meta charset=utf-8>");
    house_.write("mark.txt", "\xEF\xBB\xBFtext");
    for (const auto& [name, type] : std::vector<std::pair<std::string, std::string>>{
             {"a.htm", "text/html; charset=windows-1252"},
             {"own.html", "text/html"},
             {"mark.txt", "text/plain; charset=utf-8"},
             {"a.css", "text/css; charset=windows-1252"},
             {"a.JPG", "image/jpeg"},
             {"a.gif", "image/gif"},
             {"a.wav", "audio/wav"},
             {"a.b.js", "text/javascript; charset=windows-1252"},
             {"a", "application/octet-stream"}}) {
        if (!fs::exists(house_.folder.path() / "HTML" / name)) {
            house_.write(name, "x");
        }
        EXPECT_EQ(house_.get("/" + name).header("Content-Type"), type) << name;
    }
}

TEST_F(WebSiteTest, AFileTakesNoForm) {
    house_.write("a.htm", "x");
    const host::HttpResponse response = house_.post("/a.htm", "b=1");
    EXPECT_EQ(response.status, 405);
    EXPECT_EQ(response.header("Allow"), "GET, HEAD");
}

TEST_F(WebSiteTest, AClientThatHasTheFileDoesNotGetItAgain) {
    constexpr const char* kMoment = "Tue, 24 Nov 2026 16:03:03 GMT";
    house_.write("a.jpg", "picture");
    touch("a.jpg", kMoment);
    EXPECT_EQ(house_.get("/a.jpg").header("Last-Modified"), kMoment);
    for (const auto& [since, status] :
         std::vector<std::pair<std::string, int>>{{kMoment, 304},
                                                  {"Wed, 25 Nov 2026 00:00:00 GMT", 304},
                                                  {"Tue, 24 Nov 2026 16:03:02 GMT", 200},
                                                  {"yesterday", 200}}) {
        EXPECT_EQ(house_.get("/a.jpg", {{"If-Modified-Since", since}}).status, status) << since;
    }
    EXPECT_EQ(house_.get("/a.jpg", {{"If-Modified-Since", kMoment}}).file, std::nullopt);
}

TEST_F(WebSiteTest, ARangeGivesAPart) {
    house_.write("a.wav", "0123456789");
    touch("a.wav", "Tue, 24 Nov 2026 16:03:03 GMT");

    struct Range {
        const char* range;
        int status;
        const char* content_range;
        const char* content;
    };

    for (const Range& row : {Range{"bytes=2-4", 206, "bytes 2-4/10", "234"},
                             Range{"bytes=7-", 206, "bytes 7-9/10", "789"},
                             Range{"bytes=-3", 206, "bytes 7-9/10", "789"},
                             Range{"bytes=0-99", 206, "bytes 0-9/10", "0123456789"},
                             Range{"bytes=-99", 206, "bytes 0-9/10", "0123456789"},
                             Range{"bytes=10-", 416, "bytes */10", nullptr},
                             Range{"bytes=-0", 416, "bytes */10", nullptr},
                             Range{"bytes=4-2", 200, nullptr, "0123456789"},
                             Range{"bytes=1-2,4-5", 200, nullptr, "0123456789"},
                             Range{"bytes=x-", 200, nullptr, "0123456789"},
                             Range{"bytes=-", 200, nullptr, "0123456789"},
                             Range{"lines=1-2", 200, nullptr, "0123456789"}}) {
        const host::HttpResponse response = house_.get("/a.wav", {{"Range", row.range}});
        EXPECT_EQ(response.status, row.status) << row.range;
        EXPECT_EQ(response.header("Content-Range").value_or(""),
                  row.content_range == nullptr ? "" : row.content_range)
            << row.range;
        EXPECT_EQ(response.file ? content_of(*response.file) : "",
                  row.content == nullptr ? "" : row.content)
            << row.range;
    }
    const auto continued = [&](const char* copy) {
        return house_.get("/a.wav", {{"Range", "bytes=5-"}, {"If-Range", copy}}).status;
    };
    EXPECT_EQ(continued("Tue, 24 Nov 2026 16:03:03 GMT"), 206);
    EXPECT_EQ(continued("Tue, 24 Nov 2026 16:03:00 GMT"), 200) << "it has another copy";
}

std::string unpacked(const std::string& packed) {
    z_stream stream{};
    inflateInit2(&stream, 15 + 16);
    std::string text(100'000, '\0');
    std::string input = packed;
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());
    stream.next_out = reinterpret_cast<Bytef*>(text.data());
    stream.avail_out = static_cast<uInt>(text.size());
    const int result = inflate(&stream, Z_FINISH);
    text.resize(stream.total_out);
    inflateEnd(&stream);
    return result == Z_STREAM_END ? text : "not packed";
}

TEST_F(WebSiteTest, TextsArePackedForWhoTakesIt) {
    const std::string text(5000, 'x');
    house_.write("a.css", text);
    house_.write("a.asp", "<%= String(5000, \"x\") %>");
    house_.write("a.jpg", text);
    house_.write("small.css", "x");
    const auto encoding = [&](const std::string& page, const char* accepted) {
        return house_.get(page, {{"Accept-Encoding", accepted}})
            .header("Content-Encoding")
            .value_or("none");
    };
    for (const char* page : {"/a.css", "/a.asp"}) {
        const host::HttpResponse response = house_.get(page, {{"Accept-Encoding", "br, GZIP;q=1"}});
        EXPECT_EQ(response.header("Content-Encoding"), "gzip") << page;
        EXPECT_EQ(response.header("Vary"), "Accept-Encoding") << page;
        EXPECT_LT(response.body.size(), 500U) << page;
        EXPECT_EQ(unpacked(response.body), text) << page;
        EXPECT_EQ(encoding(page, "gzip;q=0, br"), "none");
        EXPECT_EQ(encoding(page, ""), "none");
    }
    EXPECT_EQ(encoding("/a.jpg", "gzip"), "none");
    EXPECT_EQ(encoding("/small.css", "gzip"), "none");
    EXPECT_EQ(house_.get("/a.css", {{"Accept-Encoding", "gzip"}, {"Range", "bytes=0-9"}})
                  .header("Content-Encoding"),
              std::nullopt)
        << "a part is a part of the file as it stands";
}

// The page of a unit's slideshow, as the plug-in leaves it for the host.
TEST_F(WebSiteTest, RunsTheStubOfTheSlideshow) {
    house_.write("VeloraSlideshow.asp",
                 "<%\r\nOn Error Resume Next\r\n"
                 "Response.Write hs.GetPlugins(\"zynVelora\").VeloraSlideshowASP(request, "
                 "Response)\r\nIf Err.Number <> 0 Then\r\n    Err.Clear\r\n"
                 "    For Each c In hs.GetPlugins\r\n        If LCase(c) = \"zynvelora\" Then\r\n"
                 "            Response.write c.VeloraSlideshowASP(request, Response)\r\n"
                 "            Exit For\r\n        End If\r\n    Next\r\nEnd If\r\n%>");
    EXPECT_EQ(in_short(house_.get("/VeloraSlideshow.asp")), "200 text/html; charset=windows-1252 ")
        << "no plug-in is there";
}

TEST(HttpDate, GoesThereAndBack) {
    for (const char* text : {"Tue, 24 Nov 2026 16:03:03 GMT", "Sun, 06 Nov 1994 08:49:37 GMT",
                             "Thu, 29 Feb 2024 23:59:59 GMT"}) {
        EXPECT_EQ(http_date(parse_http_date(text).value()), text);
    }
    for (const char* text : {"", "Tue, 24 Nov 2026 16:03:03", "Sunday, 06-Nov-94 08:49:37 GMT",
                             "Thu, 30 Feb 2024 23:59:59 GMT", "Tue, 24 Nov 2026 24:03:03 GMT",
                             "Tue, 24 Nox 2026 16:03:03 GMT", "Tue, xx Nov 2026 16:03:03 GMT"}) {
        EXPECT_EQ(parse_http_date(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace home
