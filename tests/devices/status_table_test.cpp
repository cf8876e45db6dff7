#include "devices/status_table.h"

#include <gtest/gtest.h>

#include <string>

#include "automation/run_time_error.h"

namespace devices {
namespace {

TEST(StatusTable, RowsFollowOneAnotherWithoutGap) {
    std::int16_t next = 0;
    for (const SubDeviceRow& row : kSubDevices) {
        if (row.name == "Reserved") {
            continue;
        }
        EXPECT_EQ(row.first, next) << row.name;
        for (std::int16_t i = 0; i < row.count; ++i) {
            const auto index = static_cast<std::int16_t>(row.first + i);
            EXPECT_EQ(kSubDevices[static_cast<std::size_t>(SubDeviceOfIndex(index))].name, row.name)
                << index;
        }
        next = static_cast<std::int16_t>(next + row.count);
    }
    EXPECT_EQ(next, 47);
}

TEST(StatusTable, SubDeviceOutsideIsReserved) {
    for (const int index : {-32768, -1, 47, 32767}) {
        EXPECT_EQ(SubDeviceOfIndex(static_cast<std::int16_t>(index)), SubDevice::Reserved) << index;
    }
}

TEST(StatusTable, WordsAndPicturesOfAnIndexBelongTogether) {
    // The first and last row of each sub-device, and the rows that are not like their neighbours.
    const struct {
        std::int16_t index;
        const char* command;
        const char* status;
        const char* image;
    } rows[] = {
        {0, "Send to ACID", "Sent to ACID", "CID.gif"},
        {1, "Show CID", "Showed CID", "CID.gif"},
        {3, "TBD2", "TBD2", "noCID.gif"},
        {4, "Put to Sleep", "Sleeping", "Velora-off.gif"},
        {6, "Awaken Forever", "Always Awake", "Velora-on.gif"},
        {7, "Power Cycle", "Power Cycle", "Velora-on.gif"},
        {8, "Turn Backlight Off", "Backlight Off", "BacklightOff.gif"},
        {9, "Turn Backlight On", "Backlight On", "BacklightOn.gif"},
        {10, "Turn Off Top LED", "Top LED Off", "TopLEDOff.gif"},
        {12, "Blink Top LED", "Top LED Blinking", "TopLEDBlink.gif"},
        {13, "Turn Off Mail LED", "Mail LED Off", "MailLEDOff.gif"},
        {15, "Blink Mail LED", "Mail LED Blinking", "MailLEDBlink.gif"},
        {16, "Show Browser Nav Buttons", "Browser Nav Buttons Showing", "BrowserNav.gif"},
        {17, "Hide Browser Nav Buttons", "Full Screen Browser", "BrowserFull.gif"},
        {18, "Play Cancel Sound", "Played Cancel Sound", "sound.gif"},
        {33, "Play Snap", "Played Snap", "sound.gif"},
        {36, "Play Wake Sound", "Played Wake Sound", "sound.gif"},
        {37, "Set Sounds Volume to 0%", "Sounds Volume at 0%", "level_1.gif"},
        {41, "Set Sounds Volume to 100%", "Sounds Volume at 100%", "level_10.gif"},
        {42, "Set Master Volume to 0%", "Master Volume at 0%", "level_1.gif"},
        {46, "Set Master Volume to 100%%", "Master Volume at 100%%", "level_10.gif"},
    };

    for (const auto& row : rows) {
        EXPECT_EQ(DeviceCommands(row.index), row.command);
        EXPECT_EQ(DeviceStatus(row.index), row.status);
        EXPECT_EQ(DeviceImages(row.index), row.image);
    }
}

TEST(StatusTable, EverySoundIsPlayedUnderItsOwnName) {
    for (std::int16_t index = 18; index <= 36; ++index) {
        const std::string command(DeviceCommands(index));
        EXPECT_EQ("Played" + command.substr(4), DeviceStatus(index));
        EXPECT_EQ(DeviceImages(index), "sound.gif");
    }
}

TEST(StatusTable, IndexOutsideIsAnError) {
    for (const int index : {-1, 47}) {
        for (const auto table : {&DeviceCommands, &DeviceStatus, &DeviceImages}) {
            try {
                static_cast<void>(table(static_cast<std::int16_t>(index)));
                ADD_FAILURE() << index;
            } catch (const automation::RunTimeError& error) {
                EXPECT_TRUE(error.is(automation::ErrorNumber::SubscriptOutOfRange));
            }
        }
    }
}

TEST(VolumeIcon, ChangesAt15And35And65And85Percent) {
    const struct {
        std::int32_t percent;
        std::int16_t icon;
    } rows[] = {{-1, 0}, {14, 0}, {15, 1}, {34, 1}, {35, 2},
                {64, 2}, {65, 3}, {84, 3}, {85, 4}, {32767, 4}};

    for (const auto& row : rows) {
        EXPECT_EQ(DetermineVolumeIcon(row.percent), row.icon) << row.percent;
    }
}

}  // namespace
}  // namespace devices
