#include <limits>

#include <gtest/gtest.h>

#include "places/Coordinates.h"

namespace vellomar {
namespace {

TEST(Coordinates, AreOnTheEarthUpToThePolesAndTheAntimeridian) {
    for (const double latitude : {-90.0, 0.0, 90.0})
        for (const double longitude : {-180.0, 0.0, 180.0})
            EXPECT_TRUE(isOnEarth({latitude, longitude})) << latitude << ", " << longitude;
}

TEST(Coordinates, BeyondThemOrNoNumberTheyAreNot) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
    for (const double latitude : {-90.0001, 90.0001, 1e300, kInfinity, -kInfinity, kNoNumber})
        EXPECT_FALSE(isOnEarth({latitude, 0})) << latitude;
    for (const double longitude : {-180.0001, 180.0001, 1e300, kInfinity, -kInfinity, kNoNumber})
        EXPECT_FALSE(isOnEarth({0, longitude})) << longitude;
}

}  // namespace
}  // namespace vellomar
