#include "platform/gumbo/html_text.h"

#include <gtest/gtest.h>

#include <string>

namespace platform {
namespace {

struct Page {
    std::string html;
    std::string text;
    PageCharset charset = PageCharset::Detect;
};

TEST(HtmlText, BodyBecomesTheTextThatABrowserShows) {
    const Page pages[] = {
        {"1", "1"},
        {"", ""},
        {"<html><head><title>Unit</title></head><body> \r\n 0 \n</body></html>", "0"},
        {"<body>Action cancelled<br>by <b>the</b>\n  user", "Action cancelled\r\nby the user"},
        {"<script>a<b</script><style>p{}</style><!-- x -->on", "on"},
        {"<p>one</p>\n<p>two</p><div><div>three</div></div>", "one\r\ntwo\r\nthree"},
        {"a<br><br>b<br>", "a\r\n\r\nb"},
        {"<table><tr><td>a</td><td>b</td></tr><tr><td>c</table>", "a b\r\nc"},
        {"<pre>a  b\n c</pre>", "a  b\r\n c"},
        {"&lt;on&gt; &amp; &euro;&#233;", "<on> & \x80\xE9"},
        {"caf\xC3\xA9", "caf\xE9"},
        {"caf\xE9", "caf\xE9"},
        {"caf\xE9 on", "caf? on", PageCharset::Utf8},
        {"<frameset><frame></frameset>", ""},
    };
    for (const Page& page : pages) {
        EXPECT_EQ(body_inner_text(page.html, page.charset), page.text) << page.html;
    }
}

TEST(HtmlText, PageMadeToGrowIsCutOff) {
    std::string nested = "1";
    for (int level = 0; level < 200'000; ++level) {
        nested += "<b>";
    }
    EXPECT_EQ(body_inner_text(nested, PageCharset::Detect), "1");
}

}  // namespace
}  // namespace platform
