#include "home/asp/asp_pages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "home/web/site_house.h"

namespace home {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct Row {
    const char* name;
    const char* page;
    const char* body;
};

class AspPage : public testing::TestWithParam<Row> {
  protected:
    SiteHouse house_;
};

constexpr Row kPages[]{
    {"PlainText", "a < b\r\n\xFC", "a < b\r\n\xFC"},
    {"Expression", "1 + 2 = <%= 1 + 2 %>!", "1 + 2 = 3!"},
    {"LoopOverText", "<% For i = 1 To 3 %>[<%= i %>]<% Next %>", "[1][2][3]"},
    {"ChoiceAround", "<% If 1 > 2 Then %>yes<% Else %>no<% End If %>", "no"},
    {"SelectOnLines", "<% Select Case 2 %>\r\n<% Case 1 %>one<% Case 2 %>two<% End Select %>",
     "two"},
    {"ProcedureOfText", "<% Sub Cell(text) %><td><%= text %></td><% End Sub %><% Cell 7 %>",
     "<td>7</td>"},
    {"QuotesAndPercents", "say \"100%\" <%= \"<\" & \"a>\" %>", "say \"100%\" <a>"},
    {"DirectiveAndOptions", "<%@ Language=VBScript %>\r\n<% Option Explicit %>\r\n<% Dim a %>x",
     "\r\nx"},
    {"Comments", "<% ' nothing\r\nRem more %>x<!-- kept -->", "x<!-- kept -->"},
    {"NullIsNothing", "<% Response.Write Null : Response.Write Empty : Response.Write True %>",
     "True"},
    {"EndStops", "a<% Response.End %>b", "a"},
    {"EndStopsInSpiteOfResume", "<% On Error Resume Next : Response.End %>b", ""},
    {"ClearForgets", "a<% Response.Clear : Response.Flush : Response.Buffer = True %>b", "b"},
    {"ErrorsMayBePassedOver", "<% On Error Resume Next : x = 1 / 0 %><%= Err.Number %>", "11"},
    {"Encoding", "<%= Server.HTMLEncode(\"<a&\"\"b>\") & Server.URLEncode(\"a b/\xE4\") %>",
     "&lt;a&amp;&quot;b&gt;a+b%2F%E4"},
    {"Objects",
     "<% Set d = Server.CreateObject(\"Scripting.Dictionary\") : d(\"k\") = 5 %>"
     "<%= d.Count & TypeName(d) %>",
     "1Dictionary"},
    {"MembersOfTheHost", "<%= hs.DeviceCount & TypeName(hs) %>", "0Host"},
    {"Identity", "<%= TypeName(Request) & TypeName(response) & TypeName(SERVER) %>",
     "RequestResponseServer"},
};

INSTANTIATE_TEST_SUITE_P(Pages, AspPage, testing::ValuesIn(kPages),
                         [](const auto& row) { return row.param.name; });

TEST_P(AspPage, WritesWhatItsScriptSays) {
    EXPECT_EQ(house_.run(GetParam().page), GetParam().body);
    EXPECT_THAT(house_.log(), IsEmpty());
}

class AspRequestTest : public testing::Test {
  protected:
    SiteHouse house_;
};

TEST_F(AspRequestTest, ReadsQueryFormCookiesAndVariables) {
    house_.write("q.asp",
                 "<%= Request(\"A\") & \"|\" & Request.QueryString(\"b\") & \"|\" & "
                 "Request.QueryString(\"B\") & \"|\" & Request.Form(\"c\") & \"|\" & "
                 "Request.Cookies(\"d\") & \"|\" & Request(\"e\") & \"|\" & "
                 "IsEmpty(Request(\"none\")) & \"|\" & Request.TotalBytes %>");
    EXPECT_EQ(house_
                  .post("/q.asp?a=1%262&b=x+y&b=z", "c=%3Cc%3E&e=f",
                        {{"Cookie", "d=4%205; other=1"},
                         {"Content-Type", "application/x-www-form-urlencoded; charset=x"}})
                  .body,
              "1&2|x y, z|x y, z|<c>|4 5|f|True|13");
    EXPECT_EQ(house_.post("/q.asp", "c=1", {{"Content-Type", "text/xml"}}).body, "||||||True|3")
        << "a body that is no form";
    EXPECT_EQ(house_.post("/q.asp", "c=1").body, "|||1|||True|3") << "a form without a type";
    EXPECT_EQ(house_.post("/q.asp", "").body, "||||||True|0");
}

TEST_F(AspRequestTest, ListsWalkAndCount) {
    house_.write("w.asp",
                 "<% For Each key In Request.QueryString %><%= key & \"=\" & "
                 "Request.QueryString(key) & \";\" %><% Next %><%= Request.QueryString.Count & "
                 "Request.QueryString.Key(2) & Request.QueryString(1) & \"?\" & "
                 "Request.QueryString %>");
    EXPECT_EQ(house_.get("/w.asp?a=1&b=2&A=3").body, "a=1, 3;b=2;2b1, 3?a=1&b=2&A=3");
    EXPECT_EQ(house_.get("/w.asp").status, 500) << "no second key";
}

TEST_F(AspRequestTest, ServerVariablesTellOfClientServerAndPage) {
    house_.write("sub/v.asp",
                 "<% For Each n In Split(Request.QueryString(\"names\"), \",\") %><%= "
                 "Request.ServerVariables(n) & \"|\" %><% Next %>");
    const std::string root = house_.hs.GetAppPath() + "\\HTML";
    EXPECT_EQ(house_
                  .get("/SUB/v.asp?names=remote_addr,REQUEST_METHOD,PATH_INFO,PATH_TRANSLATED,"
                       "SERVER_NAME,SERVER_PORT,HTTP_USER_AGENT,HTTP_X_Y,AUTH_USER",
                       {{"Host", "house:81"}, {"User-Agent", "Velora"}, {"X-Y", "z"}})
                  .body,
              "127.0.0.1|GET|/SUB/v.asp|" + root + "\\SUB\\v.asp|house|81|Velora|z||");
}

class AspResponseTest : public testing::Test {
  protected:
    SiteHouse house_;
};

TEST_F(AspResponseTest, SetsStatusAndHeaders) {
    house_.write("h.asp",
                 "<% Response.Status = \"404 Gone Fishing\" : Response.ContentType = "
                 "\"text/plain\" : Response.CharSet = \"x\" : Response.AddHeader \"X-One\", 1 : "
                 "Response.Cookies(\"a\") = \"b c\" : Response.Cookies(\"a\").Expires = "
                 "#1/1/2030# : Response.Expires = -1 : Response.CacheControl = \"no-cache\" %>");
    const host::HttpResponse response = house_.get("/h.asp");
    EXPECT_EQ(response.status, 404);
    EXPECT_EQ(response.reason, "Gone Fishing");
    EXPECT_EQ(response.header("Content-Type"), "text/plain; charset=x");
    EXPECT_EQ(response.header("X-One"), "1");
    EXPECT_EQ(response.header("Cache-Control"), "no-cache");
    EXPECT_TRUE(response.header("Expires").has_value());
    EXPECT_THAT(response.header("Set-Cookie").value_or(""),
                AllOf(HasSubstr("a=b+c; expires="), HasSubstr(" GMT; path=/")));
}

TEST_F(AspResponseTest, ARedirectEndsThePage) {
    house_.write("r.asp", "<% On Error Resume Next %>a<% Response.Redirect \"/b.asp?x=1\" %>c");
    const host::HttpResponse response = house_.get("/r.asp");
    EXPECT_EQ(response.status, 302);
    EXPECT_EQ(response.header("Location"), "/b.asp?x=1");
    EXPECT_EQ(response.body, "");
}

TEST_F(AspResponseTest, NothingEndsAHeaderEarly) {
    for (const char* statement :
         {"Response.AddHeader \"X\", \"1\" & vbCrLf & \"Y: 2\"", "Response.AddHeader \"X: \", 1",
          "Response.Redirect \"/\" & vbLf", "Response.Status = \"200\" & vbCr",
          "Response.ContentType = vbCrLf", "Response.Status = \"99 x\""}) {
        house_.write("e.asp", std::string("<% ") + statement + " %>");
        EXPECT_EQ(house_.get("/e.asp").status, 500) << statement;
    }
}

// What goes wrong, where it is told to be.
class AspErrors : public testing::Test {
  protected:
    std::string error_of(const std::string& page) {
        house_.write("p.asp", page);
        const host::HttpResponse response = house_.get("/p.asp");
        EXPECT_EQ(response.status, 500) << page;
        const std::vector<std::string> lines = house_.log();
        EXPECT_THAT(response.body, Not(HasSubstr("before")));
        return lines.empty() ? "" : lines.back();
    }

    SiteHouse house_;
};

TEST_F(AspErrors, NameFileLineNumberAndText) {
    EXPECT_EQ(error_of("before\r\n<%\r\nx = 1\r\ny = x / 0\r\n%>"),
              "Web server: /p.asp, line 4: error 11, Division by zero (y = x / 0)");
    EXPECT_THAT(error_of("a\nb <%= 1 + %>"), HasSubstr("/p.asp, line 2: error 1002, "));
    EXPECT_THAT(error_of("<% Sub a %>x\n"), HasSubstr("/p.asp, line "));
    EXPECT_EQ(error_of("<% Err.Raise 1234, \"me\", \"<b>\" %>"),
              "Web server: /p.asp, line 1: error 1234, <b> (Err.Raise 1234, \"me\", \"<b>\")");
    EXPECT_THAT(house_.get("/p.asp").body, HasSubstr("error 1234, &lt;b&gt; ("));
    EXPECT_THAT(error_of("<% Server.CreateObject \"No.Such\" %>"), HasSubstr("error 429, "));
    EXPECT_THAT(error_of("<%= Server.MapPath(\"/../x\") %>"),
                HasSubstr("error 5, Invalid procedure call or argument: '/../x' lies outside"));
    EXPECT_THAT(error_of("\n<%@ LANGUAGE=\"JScript\" %>"),
                EndsWith("/p.asp, line 2: the language is VBScript, not jscript"));
    EXPECT_THAT(error_of("\n<% x = 1"),
                EndsWith("/p.asp, line 2: the script is not closed with %>"));
}

TEST_F(AspErrors, AreToldOfTheFileThatIsIncluded) {
    house_.write("inc/a.inc", "\n<!-- #include file=\"b.inc\" -->");
    house_.write("inc/b.inc", "\r\n\r\n<% x = \"a\" * 2 %>");
    EXPECT_THAT(error_of("<!--#include virtual=\"/inc/a.inc\"-->"),
                HasSubstr("/inc/b.inc, line 3: error 13, Type mismatch"));
    house_.write("inc/b.inc", "\n\n<!-- #include file=\"a.inc\" -->");
    EXPECT_THAT(error_of("<!--#include virtual=\"/inc/a.inc\"-->"),
                EndsWith("/inc/b.inc, line 3: the include a.inc is within itself"));
    EXPECT_THAT(error_of("<!-- #include file=\"P.ASP\" -->"),
                EndsWith("/p.asp, line 1: the include P.ASP is within itself"));
    EXPECT_THAT(error_of("\n<!-- #include file=\"../Config/settings.ini\" -->"),
                EndsWith("line 2: the include ../Config/settings.ini lies outside of the site"));
    EXPECT_THAT(error_of("<!-- #include file=\"none.inc\" -->"),
                EndsWith("line 1: the include none.inc is not there"));
    EXPECT_THAT(error_of("<!-- #include file=none.inc -->"),
                EndsWith("line 1: the include has no name in quotes, or is not closed"));
}

TEST_F(AspErrors, IncludesHaveAGreatestDepthAndSize) {
    for (int i = 0; i < 20; ++i) {
        house_.write("d" + std::to_string(i) + ".inc",
                     "<!-- #include file=\"d" + std::to_string(i + 1) + ".inc\" -->");
    }
    EXPECT_THAT(error_of("<!-- #include file=\"d0.inc\" -->"), HasSubstr("16 files deep"));
    house_.write("large.inc", std::string(1'000'000, 'x'));
    std::string page;
    for (int i = 0; i < 5; ++i) {
        page += "<!-- #include file=\"large.inc\" -->";
    }
    EXPECT_THAT(error_of(page), HasSubstr("larger than 4 MB"));
}

TEST_F(AspErrors, APageThatNeverEndsIsEnded) {
    EXPECT_THAT(error_of("<% Server.ScriptTimeout = 1 : Do : Loop %>"),
                HasSubstr("/p.asp, line 1"));
    EXPECT_THAT(error_of("<% Server.ScriptTimeout = 3600 %>"), HasSubstr("1 to 60 seconds"));
}

TEST(AspIncludes, AreReadFromTheFileOrTheSite) {
    SiteHouse house;
    house.write("lib/top.inc", "<% Function Twice(x) : Twice = x * 2 : End Function %>top ");
    house.write("lib/both.inc", "<!-- #include file=\"Top.inc\" -->both ");
    house.write("sub/p.asp",
                "<!-- #include virtual=\"lib/both.inc\" --><!-- #INCLUDE FILE='../LIB/top.inc' -->"
                "<%= Twice(4) & Server.MapPath(\"../lib\") %>");
    EXPECT_EQ(house.get("/sub/p.asp").body,
              "top both top 8" + house.hs.GetAppPath() + "\\HTML\\lib");
}

}  // namespace
}  // namespace home
