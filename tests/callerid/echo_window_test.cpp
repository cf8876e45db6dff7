#include "callerid/echo_window.h"

#include <gtest/gtest.h>

namespace callerid {
namespace {

TEST(EchoWindow, KeepsTheNewestCharactersAndCountsAll) {
    EchoWindow echo;
    echo.add_data(std::string(4000, 'a'));
    echo.add_data(std::string(3000, 'b'));
    EXPECT_EQ(echo.CommData(), std::string(2000, 'a') + std::string(3000, 'b'));
    EXPECT_EQ(echo.data_written(), 7000U);
    EXPECT_EQ(echo.CommStatus(), "");
    echo.empty_boxes();
    EXPECT_EQ(echo.CommData(), "");
    EXPECT_EQ(echo.data_written(), 7000U);
}

}  // namespace
}  // namespace callerid
