#include "automation/date.h"

#include <gtest/gtest.h>

#include <limits>

#include "automation/convert.h"
#include "automation/thrown_error.h"

namespace automation {
namespace {

using namespace std::chrono_literals;
namespace chrono = std::chrono;

constexpr DateTime kAfternoon =
    chrono::local_days{2026y / chrono::November / 24} + 16h + 3min + 3s + 900ms;

TEST(Date, GeneralForm) {
    struct Case {
        double days;
        std::string_view text;
    };

    constexpr Case kCases[] = {
        {0, "12:00:00 AM"},    {0.5, "12:00:00 PM"},
        {1, "12/31/1899"},     {-1.25, "12/29/1899 6:00:00 AM"},
        {46350, "11/24/2026"}, {46350.0 + 1.0 / 86400, "11/24/2026 12:00:01 AM"},
        {-657434, "1/1/100"},  {2958465, "12/31/9999"},
    };
    for (const Case& row : kCases) {
        EXPECT_EQ(text_of(Date{row.days}), row.text);
    }
    EXPECT_EQ(general_date(kAfternoon), "11/24/2026 4:03:03 PM");
}

TEST(Date, MediumForm) {
    EXPECT_EQ(medium_date(kAfternoon), "24-Nov-26");
    EXPECT_EQ(medium_date(chrono::local_days{2005y / chrono::March / 7}), "07-Mar-05");
}

TEST(Date, MillisecondsSurviveARoundTrip) {
    for (const DateTime moment : {kAfternoon, kAfternoon - chrono::days(100000),
                                  DateTime(chrono::local_days{100y / chrono::January / 1})}) {
        EXPECT_EQ(date_time_of(date_of(moment)), moment);
    }
}

TEST(Date, RefusesDaysOutsideTheCalendar) {
    for (const double days : {-657435.0, 2958466.0, 2958465.99999999999, 1e300,
                              std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(thrown_error([days] { return date_time_of({days}).time_since_epoch().count(); }),
                  5)
            << days;
    }
}

TEST(ParseDate, FormsThatPeopleWrite) {
    struct Case {
        std::string_view text;
        std::string_view general;
    };

    constexpr Case kCases[] = {
        {"11/24/2026", "11/24/2026"},
        {"24/11/2026", "11/24/2026"},
        {"11-24-26", "11/24/2026"},
        {"1/2/30", "1/2/1930"},
        {"1/2/29", "1/2/2029"},
        {"2026-11-24", "11/24/2026"},
        {"2026-11-24T16:03:03", "11/24/2026 4:03:03 PM"},
        {"24 Nov 2026", "11/24/2026"},
        {"24-nov-26", "11/24/2026"},
        {"November 24, 2026", "11/24/2026"},
        {"2026 Nov 24", "11/24/2026"},
        {"11/24/2026 4:03:03 PM", "11/24/2026 4:03:03 PM"},
        {"4:03 pm 11/24/2026", "11/24/2026 4:03:00 PM"},
        {" 4:03PM ", "4:03:00 PM"},
        {"16:03", "4:03:00 PM"},
        {"12 AM", "12:00:00 AM"},
        {"12:30 PM", "12:30:00 PM"},
        {"2/29/2024", "2/29/2024"},
    };
    for (const Case& row : kCases) {
        const auto date = parse_date(row.text);
        ASSERT_TRUE(date) << row.text;
        EXPECT_EQ(text_of(*date), row.general) << row.text;
    }
}

TEST(ParseDate, RefusesAnythingElse) {
    for (const std::string_view text : {"",
                                        " ",
                                        "tomorrow",
                                        "11/24",
                                        "13/13/2026",
                                        "2/29/2026",
                                        "0/1/2026",
                                        "258/1/2026",
                                        "Nov 257 2026",
                                        "11//24/2026",
                                        "/11/24/2026",
                                        "11/24/2026/",
                                        "24 No 2026",
                                        "24 Nov",
                                        "Nov Nov 2026",
                                        "24:00",
                                        "12:60",
                                        "13 PM",
                                        "4:",
                                        "4:03:",
                                        "4:03:03:03",
                                        "123456",
                                        "1/2/12345",
                                        "1.2",
                                        "11/24/2026 T",
                                        "1/1/0099x",
                                        "4:03 5:03"}) {
        EXPECT_FALSE(parse_date(text)) << text;
    }
}

}  // namespace
}  // namespace automation
