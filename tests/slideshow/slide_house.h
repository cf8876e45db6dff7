#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "automation/members.h"
#include "pages/convert_asp.h"
#include "pages/headers/host_page.h"
#include "pages/html_includes.h"
#include "pages/page_engine.h"
#include "slideshow/slideshow.h"
#include "slideshow/slideshow_asp.h"
#include "support/house.h"

namespace slideshow {

// A request for the slideshow page, by whatever server.
class SlideRequest final : public automation::TableObject {
  public:
    std::map<std::string, std::string> variables;
    std::map<std::string, std::string> form;
    std::map<std::string, std::string> query;

    [[nodiscard]] std::string ServerVariables(const std::string& name) { return variables[name]; }

    [[nodiscard]] std::string Form(const std::string& name) { return form[name]; }

    [[nodiscard]] std::string QueryString(const std::string& name) { return query[name]; }

    [[nodiscard]] std::string type_name() const override { return "Request"; }

    [[nodiscard]] std::span<const automation::Member> members() const override {
        using automation::method;
        static constexpr auto kMembers = std::to_array<automation::Member>({
            method<&SlideRequest::ServerVariables>("ServerVariables", "name"),
            method<&SlideRequest::Form>("Form", "name"),
            method<&SlideRequest::QueryString>("QueryString", "name"),
        });
        return kMembers;
    }
};

// What pages need of the include files, and nothing else.
inline constexpr std::string_view kSmallestInclude =
    "Class FastString\r\n"
    "  Private text\r\n"
    "  Public Sub Add(piece)\r\n    text = text & piece\r\n  End Sub\r\n"
    "  Public Property Get Value()\r\n    Value = text\r\n  End Property\r\n"
    "End Class\r\n"
    "Sub startmiscfunctionsasp()\r\nEnd Sub\r\n"
    "Sub SecurityCheck()\r\nEnd Sub\r\n"
    "Function startheaderasp()\r\n  startheaderasp = False\r\nEnd Function\r\n";

// A house with the slideshow, without the plug-in's entry class: the units hall, of group 1, and
// den, that shows no slides, at 192.168.0.20 and 21.
class SlideHouse : public testing::Test {
  protected:
    static constexpr const char* kHall = "192.168.0.20";
    static constexpr const char* kStranger = "192.168.0.99";

    SlideHouse() {
        house.add_unit("Hall", {.slideshow = 1});
        house.add_unit("Den");
        house.open();
        core::UtilitySettings& settings = house.settings();
        settings.jpg = settings.gif = settings.bmp = true;
        settings.ImagePath = "C:\\Pictures";
        settings.ImageServer = "http://10.0.0.3";
        settings.SlideshowUpdateInterval = "20";
        settings.SlideshowUpdateSeconds = 20;
        settings.MaxPixels = 100000;
        settings.Links = settings.LinksFile = "links.htm";
        settings.TempPath = root() + "\\VeloraTemp";
        for (core::SlideGroupSettings& group : settings.slide_groups) {
            group.GroupFolder = root();
            group.GroupServer = "http://10.0.0.2:8080";
        }
        put("links.htm", "the links");
    }

    [[nodiscard]] std::string root() { return core::html_root(house.instance()); }

    void put(std::string_view file, std::string_view content) {
        house.machine().files.put(root() + "\\" + std::string(file), content);
    }

    core::SlideRow& row(std::size_t group, std::size_t number) {
        return house.settings().slide_groups[group - 1].rows[number];
    }

    // The page as a browser at this address gets it.
    std::string fetch(const std::string& address) {
        request->variables["REMOTE_ADDR"] = address;
        return asp.VeloraSlideshow_ASP(request, nullptr);
    }

    // The address of the picture on a page, or what the page says.
    [[nodiscard]] static std::string picture_of(const std::string& page) {
        constexpr std::string_view kMark = " src='";
        const std::size_t at = page.find(kMark);
        if (at == std::string::npos) {
            return page;
        }
        const std::size_t begin = at + kMark.size();
        return page.substr(begin, page.find('\'', begin) - begin);
    }

    support::House house;
    std::shared_ptr<SlideRequest> request = std::make_shared<SlideRequest>();
    pages::HostPage host_page{house.instance(), nullptr};
    pages::PageEngine engine{house.instance()};
    pages::HTMLIncludes includes{house.instance(), engine, host_page};
    pages::ConvertASP converter{house.instance(), engine, includes};
    Slideshow slideshow{house.instance(), house.fleet(),
                        [this] { return &house.queue_timer().Timer3(); }};
    SlideshowAsp asp{
        {house.instance(), house.fleet(), house.status_board(), converter, slideshow.lists()}};
};

}  // namespace slideshow
