#include "plugin/plugin_house.h"
#include "support/memory_network.h"

namespace plugin {
namespace {

using testing::EndsWith;
using testing::StartsWith;

// The whole road of one request: the sound that a unit is told to load comes from our server.
TEST(UnitRoad, SpokenFileIsServedToTheUnitAndTheNextCommandLeaves) {
    PluginHouse house;
    house.machine.speech.set_wav_size(2000);
    house.start();
    house.call("VeloraSpeak", {"Kitchen", "Hello"});
    house.call("VeloraTopLed", {"kitchen", "on"});
    auto& unit = house.machine.network.connect(8080);
    house.run_for(1ms);
    unit.send("GET /VeloraTemp/VeloraTempFile1.wav HTTP/1.0\r\n\r\n");
    house.run_for(1s);
    EXPECT_THAT(unit.received(), StartsWith("HTTP/1.1 200 OK\r\nServer: zyn\r\n"));
    EXPECT_THAT(unit.received(),
                EndsWith("\r\n\r\n" + house.machine.files.read(
                                          "C:\\HomeSeer\\HTML\\VeloraTemp\\VeloraTempFile1.wav")));
    EXPECT_TRUE(unit.closed());
    EXPECT_EQ(house.requests().back(), "kitchen GET /led.shtml?t1");
}

}  // namespace
}  // namespace plugin
