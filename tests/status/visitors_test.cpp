#include "status/visitors.h"

#include "status/status_house.h"

namespace status {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class VisitorsTest : public StatusHouse {
  protected:
    Visitors visitors{house.instance(), house.fleet()};
};

TEST_F(VisitorsTest, ThePageIsForTheHouseAlone) {
    setting("StatusNetworks",
            "\"10.1.0.0/16, 192.168.7.9 ,10.9.9.9/33,nonsense,1.2.3/8,/,10.8.0.0/\"", "STATUS");
    const std::vector<std::pair<std::string, bool>> rows{
        {"127.0.0.1", true},     {"127.250.3.4", true},
        {"192.168.0.20", true},   // the hall
        {"192.168.0.22", false},  // the next free one
        {"10.1.0.0", true},      {"10.1.255.255", true},
        {"10.2.0.0", false},     {"10.0.255.255", false},
        {"192.168.7.9", true},   {"192.168.7.90", false},
        {"10.9.9.9", false},     {"10.8.0.0", false},
        {"1.2.3.4", false},      {"", false},
        {"::1", false},          {"127.0.0.1.5", false},
    };
    for (const auto& [address, is_admitted] : rows) {
        EXPECT_TRUE(visitors.admits(Visitor{address, "GET", "house", "", ""}));
    }
    EXPECT_THAT(deeds(), IsEmpty());
    protect();
    for (const auto& [address, is_admitted] : rows) {
        EXPECT_EQ(visitors.admits(Visitor{address, "GET", "house", "", ""}), is_admitted)
            << address;
        EXPECT_EQ(deeds().size(), is_admitted ? 0U : 1U) << address;
    }
    setting("StatusNetworks", "0.0.0.0/0", "STATUS");
    EXPECT_TRUE(visitors.admits(Visitor{"8.8.8.8", "GET", "house", "", ""}));
}

struct FormRow {
    const char* method;
    const char* origin;
    const char* referer;
    bool is_admitted;
};

TEST_F(VisitorsTest, FormsComeFromThePageItself) {
    const FormRow kRows[] = {
        {"POST", "", "", true},
        {"POST", "http://house:8080", "", true},
        {"POSTx", "HTTP://HOUSE:8080", "", true},
        {"POST", "", "http://house:8080/status?a=http://evil/", true},
        {"POST", "http://house:8080", "http://evil/", true},
        {"POST", "http://evil", "", false},
        {"POST", "http://evil", "http://house:8080/status", false},
        {"POSTx", "", "http://evil/house:8080", false},
        {"POSTx", "", "http://evil?house:8080", false},
        {"POST", "http://house:8081", "", false},
        {"POST", "http://house", "", false},
        {"POST", "http://house:8080.evil", "", false},
        {"POST", "null", "", false},
        {"GET", "http://evil", "http://evil/", true},
    };
    for (const FormRow& row : kRows) {
        const Visitor visitor{"127.0.0.1", row.method, "house:8080", row.origin, row.referer};
        house.instance().platform().protection = {};
        EXPECT_TRUE(visitors.admits(visitor));
        protect();
        EXPECT_EQ(visitors.admits(visitor), row.is_admitted) << row.origin << row.referer;
    }
    static_cast<void>(deeds());
    EXPECT_FALSE(visitors.admits({"127.0.0.1", "POST", "house", "http://evil", ""}));
    EXPECT_THAT(deeds(), ElementsAre("zynVelora: Form of another site refused from 127.0.0.1: "
                                     "http://evil"));
}

}  // namespace
}  // namespace status
