#include "unit/page_content.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace unit {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(PageContent, RefreshOfAPage) {
    const struct {
        const char* html;
        int seconds;  // -1 for none
        const char* address;
    } rows[] = {
        {"<meta http-equiv=\"Refresh\" content=\"20; URL=/Show.asp\">", 20, "/Show.asp"},
        {"<META HTTP-EQUIV='refresh' CONTENT='5;url=http://a/b'>", 5, "http://a/b"},
        {"<meta http-equiv=\"Refresh\" content=\"7\"; URL=\"/Show.asp\">", 7, ""},
        {"<meta http-equiv=Refresh content=0>", 1, ""},
        {"<meta name=x><meta http-equiv='Refresh' content='3'>", 3, ""},
        {"<meta http-equiv='Refresh' content='99999999'>", 86400, ""},
        {"<meta http-equiv='Content-Type' content='9'>", -1, ""},
        {"<meta http-equiv='Refresh' content='soon'>", -1, ""},
        {"<meta http-equiv='Refresh'", -1, ""},
        {"<p>Hi", -1, ""},
    };

    for (const auto& row : rows) {
        const auto refresh = page_refresh(row.html);
        EXPECT_EQ(refresh ? refresh->after.count() : -1, row.seconds) << row.html;
        EXPECT_EQ(refresh ? refresh->address : "", row.address) << row.html;
    }
}

TEST(PageContent, PicturesOfAPage) {
    EXPECT_THAT(
        picture_addresses("<p><img border='0' src='/a.gif'><IMG SRC=b.jpg width=1><img>", 9),
        ElementsAre("/a.gif", "b.jpg"));
    EXPECT_THAT(picture_addresses("<img src=''><image src='x'>", 9), IsEmpty());
    EXPECT_THAT(picture_addresses("<img src='1'><img src='2'>", 1), ElementsAre("1"));
}

TEST(PageContent, AddressesBelowTheRootAndBesideThePage) {
    const struct {
        const char *page, *address, *whole;
    } rows[] = {
        {"http://a:8/b/c.htm", "/d.gif", "http://a:8/d.gif"},
        {"http://a:8/b/c.htm?x=/y", "d.gif", "http://a:8/b/d.gif"},
        {"http://a", "d.gif", "http://a/d.gif"},
        {"http://a", "/d.gif", "http://a/d.gif"},
        {"http://a/b", "HTTP://c/d.gif", "HTTP://c/d.gif"},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(whole_address(row.page, row.address), row.whole);
    }
}

}  // namespace
}  // namespace unit
