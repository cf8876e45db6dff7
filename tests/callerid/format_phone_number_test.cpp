#include "callerid/format_phone_number.h"

#include <gtest/gtest.h>

namespace callerid {
namespace {

TEST(FormatPhoneNumber, TheLengthAloneDecides) {
    for (const auto& [number, shown] : {
             std::pair{"", ""},
             std::pair{"911", "911"},
             std::pair{"5551234", "555-1234"},
             std::pair{"PRIVATE", "PRI-VATE"},
             std::pair{"55512345", "55512345"},
             std::pair{"5035551234", "(503) 555-1234"},
             std::pair{"*035551234", "*035551234"},
             std::pair{"15035551234", "1503 555 1234"},
             std::pair{"(000)000-0000", "(000)000-0000"},
         }) {
        EXPECT_EQ(FormatPhoneNumber(number), shown) << number;
    }
}

}  // namespace
}  // namespace callerid
