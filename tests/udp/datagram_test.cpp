#include "udp/datagram.h"

#include <gtest/gtest.h>

namespace udp {
namespace {

std::string zeros(std::size_t count) {
    return std::string(count, '\0');
}

TEST(Datagram, FieldsStandAtFixedPlacesUnlessOneIsTooLong) {
    const std::string name(70, 'n');

    struct Case {
        Message message;
        std::string first;
        std::string second;
        std::string bytes;
    };

    for (const Case& c : {
             Case{Message::Caller, "Anna", "555-1234",
                  "\3" + zeros(7) + "Anna" + zeros(60) + "555-1234" + zeros(56)},
             Case{Message::Command, "Beep", "", "\6" + zeros(7) + "Beep" + zeros(60) + zeros(64)},
             Case{Message::Caller, name, "1", "\3" + zeros(7) + name + "1" + zeros(63)},
             Case{Message::Caller, std::string(64, 'x'), std::string(65, 'y'),
                  "\3" + zeros(7) + std::string(64, 'x') + std::string(65, 'y')},
         }) {
        EXPECT_EQ(make_datagram(c.message, c.first, c.second), c.bytes) << c.first;
    }
}

}  // namespace
}  // namespace udp
