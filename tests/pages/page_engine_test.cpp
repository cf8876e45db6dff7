#include "pages/page_engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "automation/convert.h"
#include "host/script_control.h"
#include "pages/pages_house.h"

namespace pages {
namespace {

using testing::IsEmpty;

class PageEngineTest : public testing::Test {
  protected:
    PagesHouse house;
    PageEngine pages{house.instance};
};

TEST_F(PageEngineTest, PagesReachTheHostByNameAndWithoutOne) {
    house.host.set_version("2.5.0");
    EXPECT_EQ(pages.engine(), nullptr);
    pages.HTMLInit();
    ASSERT_NE(pages.engine(), nullptr);
    EXPECT_EQ(automation::to_text(pages.engine()->Eval("hs.Version & \" \" & Version")),
              "2.5.0 2.5.0");
    EXPECT_THAT(house.host.log(), IsEmpty());
}

TEST_F(PageEngineTest, TheStubHandsRequestAndResponseToThePages) {
    pages.HTMLInit();
    const std::shared_ptr<automation::Object> object = house.host.object();
    const std::array<automation::Value, 2> arguments{automation::Value(object),
                                                     automation::Value(object)};
    pages.engine()->Run("setObjects", arguments);
    EXPECT_EQ(automation::to_text(pages.engine()->Eval("TypeName(Request) & TypeName(Response)")),
              "HostHost");
}

}  // namespace
}  // namespace pages
