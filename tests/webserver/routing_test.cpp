#include "webserver/routing.h"

#include <gtest/gtest.h>

namespace webserver {
namespace {

struct RouteRow {
    const char* requested;
    Destination destination;
    const char* type;
    const char* file;
};

TEST(Routing, ChoosesByPageThenByTypeAndCutsTheFileBehindItsExtension) {
    constexpr RouteRow kRows[] = {
        {"/VeloraSlideshow.asp", Destination::SlideshowPage, ".asp", ""},
        {"/STATUS", Destination::StatusPage, "", ""},
        {"/status.htm", Destination::TextFile, ".htm", "\\status.htm"},
        {"/pic.JPG", Destination::BinaryFile, ".jpg", "\\pic.jpg"},
        {"/a.jpgx", Destination::BinaryFile, ".jpg", "\\a.jpg"},
        {"/sub/b.gif", Destination::BinaryFile, ".gif", "\\sub\\b.gif"},
        {"/c.wav", Destination::BinaryFile, ".wav", "\\c.wav"},
        {"/a.html5", Destination::TextFile, ".htm", "\\a.html"},
        {"/a.css", Destination::TextFile, ".css", "\\a.css"},
        {"/a.b/c", Destination::Host, ".b\\c", ""},
        {"/a.htm.txt", Destination::Host, ".txt", ""},
        {"/x.php", Destination::Host, ".php", ""},
        {"/x.bmp", Destination::Host, ".bmp", ""},
        {"/x.js", Destination::Host, ".js", ""},
        {"/", Destination::Host, "", ""},
        {"", Destination::Host, "", ""},
    };
    for (const RouteRow& row : kRows) {
        EXPECT_EQ(route_of(routing_page(row.requested)),
                  (Route{row.destination, row.type, row.file}))
            << row.requested;
    }
}

TEST(Routing, SeesWhichFilesLeaveTheRoot) {
    for (const char* file : {"\\..\\config.htm", "\\a\\..\\..\\b.jpg", "..\\x.gif", "\\a/../b.css",
                             "\\..", "\\c:\\secret.htm", "\\c:secret.htm"}) {
        EXPECT_TRUE(leaves_root(file)) << file;
    }
    for (const char* file : {"\\a.htm", "\\a..b.htm", "\\...\\a.jpg", "\\.hidden\\a.gif", ""}) {
        EXPECT_FALSE(leaves_root(file)) << file;
    }
}

}  // namespace
}  // namespace webserver
