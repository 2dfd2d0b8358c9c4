#include <gtest/gtest.h>

#include "driver/DriverProcess.h"

namespace vellomar {
namespace {

using ShiftDriver = testing::EngineDriver;

TEST_F(ShiftDriver, TellsWhatExifToolIsGiven) {
    EXPECT_EQ(driver.result({{"op", "shiftArguments"}, {"days", 0}, {"hours", -5}, {"path", "/in/-a\xff.jpg"}}),
              Json({"-AllDates-=0:0:0 5:0:0", "-overwrite_original", "/in/-a\xff.jpg"}));
    EXPECT_EQ(driver.result({{"op", "shiftArguments"}, {"days", 1}, {"hours", 6}, {"path", "/in/a.jpg"}}),
              Json({"-AllDates+=0:0:0 30:0:0", "-overwrite_original", "/in/a.jpg"}));
    EXPECT_EQ(driver.result({{"op", "shiftArguments"}, {"days", 1}, {"hours", -24}, {"path", "/in/a.jpg"}}), nullptr);
}

TEST_F(ShiftDriver, DescribesAShift) {
    EXPECT_EQ(driver.result({{"op", "shiftDescription"}, {"days", 1}, {"hours", 3}}), "+1 day 3 hours");
    EXPECT_EQ(driver.result({{"op", "shiftDescription"}, {"days", -1}, {"hours", 0}}), "1 day");
    EXPECT_EQ(driver.result({{"op", "shiftDescription"}, {"days", 1}, {"hours", -24}}), "No change");
}

TEST_F(ShiftDriver, SurvivesBadArguments) {
    for (const char* request : {
             R"({"op":"shiftArguments"})",
             R"({"op":"shiftArguments","days":1,"hours":1})",
             R"({"op":"shiftArguments","days":1,"path":"/a"})",
             R"({"op":"shiftArguments","days":"1","hours":1,"path":"/a"})",
             R"({"op":"shiftDescription","days":1.5,"hours":1})",
             R"({"op":"shiftDescription","days":1e300,"hours":1})",
             R"({"op":"shiftDescription","hours":1})",
         }) {
        SCOPED_TRACE(request);
        EXPECT_NE(errorTo(request), "");
    }
}

}  // namespace
}  // namespace vellomar
