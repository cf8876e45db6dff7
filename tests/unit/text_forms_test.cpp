#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

#include "unit/unit_command.h"
#include "unit/wav_duration.h"
#include "unit/web_address.h"

namespace unit {
namespace {

using namespace std::chrono_literals;

TEST(Fault, HasOneTextForm) {
    struct Row {
        std::string_view text;
        Fault fault;
    };

    constexpr std::array kRows{
        Row{"normal", {FaultKind::None, 0ms}}, Row{"silent", {FaultKind::Silent, 0ms}},
        Row{"slow 1", {FaultKind::Slow, 1ms}}, Row{"slow 600000", {FaultKind::Slow, 600s}},
        Row{"drop", {FaultKind::Drop, 0ms}},   Row{"not-found", {FaultKind::NotFound, 0ms}},
        Row{"hang", {FaultKind::Hang, 0ms}},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(parse_fault(row.text), row.fault) << row.text;
        EXPECT_EQ(to_text(row.fault), row.text);
    }
}

TEST(Fault, OfAnotherFormIsNone) {
    for (const std::string_view text : {"", "Silent", "slow", "slow ", "slow 0", "slow -5",
                                        "slow 600001", "slow 5s", "silent 5", "not found"}) {
        EXPECT_FALSE(parse_fault(text)) << text;
    }
}

TEST(UnitCommand, IsReadFromALine) {
    EXPECT_EQ(std::get<PowerSwitch>(parse_unit_command(" power off\r")), PowerSwitch::Off);
    EXPECT_EQ(std::get<PowerSwitch>(parse_unit_command("power on")), PowerSwitch::On);
    EXPECT_EQ(std::get<SetBootTime>(parse_unit_command("boot 0")).boot_time, 0s);
    EXPECT_EQ(std::get<SetBootTime>(parse_unit_command("boot 3600")).boot_time, 3600s);
    EXPECT_TRUE(std::holds_alternative<AskState>(parse_unit_command("state")));
    EXPECT_EQ(std::get<Fault>(parse_unit_command("slow 20")).delay, 20ms);
}

TEST(UnitCommand, ThatIsUnknownIsAnsweredWithTheList) {
    for (const std::string_view line :
         {"", " ", "power", "boot", "boot -1", "boot 3601", "explode"}) {
        try {
            static_cast<void>(parse_unit_command(line));
            ADD_FAILURE() << line;
        } catch (const std::invalid_argument& error) {
            EXPECT_NE(std::string(error.what()).find("not-found, hang, power off"),
                      std::string::npos);
        }
    }
}

TEST(WebAddress, IsCutIntoItsParts) {
    struct Row {
        std::string_view url, host;
        std::uint16_t port;
        std::string_view target;
    };

    constexpr std::array kRows{
        Row{"http://10.0.0.1", "10.0.0.1", 80, "/"},
        Row{"http://house:8080/a/b.wav?x=1#top", "house", 8080, "/a/b.wav?x=1"},
        Row{"http://house?x", "house", 80, "/?x"},
        Row{"http://house/a b\r\nX: y", "house", 80, "/a%20bX:%20y"},
    };
    for (const Row& row : kRows) {
        const auto address = parse_web_address(row.url);
        ASSERT_TRUE(address) << row.url;
        EXPECT_EQ(address->host, row.host);
        EXPECT_EQ(address->port, row.port);
        EXPECT_EQ(address->target, row.target);
    }
}

TEST(WebAddress, OfAnotherFormIsNone) {
    for (const std::string_view url : {"", "http://", "http:///x", "https://house/", "http://h:/",
                                       "http://h:0/", "http://h:65536/", "http://h:8x/"}) {
        EXPECT_FALSE(parse_web_address(url)) << url;
    }
}

TEST(WebAddress, NamesAFileThatStaysInItsFolder) {
    EXPECT_EQ(file_name_of("http://h/VeloraTemp/hello.wav?x=/y"), "hello.wav");
    EXPECT_EQ(file_name_of("http://h/a/"), "sound");
    EXPECT_EQ(file_name_of("http://h/a\\b c;$.wav"), "b_c__.wav");
    EXPECT_EQ(file_name_of("http://h/" + std::string(300, 'x')).size(), 80U);
}

TEST(WavSeconds, ComeFromByteRateAndData) {
    using std::string_literals::operator""s;
    const std::string head = "RIFF\x24\0\0\0WAVE"s;
    const std::string format =
        "fmt \x10\0\0\0\x01\0\x01\0\x40\x1f\0\0\x40\x1f\0\0\x01\0\x08\0"s;  // 8000 bytes a second
    const std::string odd_chunk = "LIST\x03\0\0\0abc\0"s;
    const std::string data = "data\xa0\x0f\0\0"s + std::string(4000, 'x');
    EXPECT_EQ(wav_seconds(head + format + data), 0.5);
    EXPECT_EQ(wav_seconds(head + odd_chunk + format + data), 0.5);
    EXPECT_EQ(wav_seconds(head + format + data.substr(0, 2008)), 0.25);
    EXPECT_EQ(wav_seconds(head + data), std::nullopt);
    EXPECT_EQ(wav_seconds(head + format), std::nullopt);
    EXPECT_EQ(wav_seconds(head), std::nullopt);
    EXPECT_EQ(wav_seconds("RIFX" + head.substr(4) + format + data), std::nullopt);
    EXPECT_EQ(wav_seconds("<html>"), std::nullopt);
}

}  // namespace
}  // namespace unit
