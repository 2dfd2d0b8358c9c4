#include <limits>

#include <gtest/gtest.h>

#include "places/LocationText.h"
#include "places/MadeTable.h"

namespace vellomar {
namespace {

const std::string kTable = testing::tableOf({{{38.7251, -9.1498}, {"Lisboa", "Lisbon", "Portugal"}},
                                             {{1.2897, 103.8501}, {"Singapore", "", "Singapore"}},
                                             {{90, 0}, {"North Pole", "", ""}}});

TEST(LocationText, IsThatOfTheNearestPlace) {
    const PlaceFinder places(kTable);
    EXPECT_EQ(locationText(places, 38.7, -9.1), "Lisboa, Lisbon, Portugal");
    EXPECT_EQ(locationText(places, 1.3, 103.8), "Singapore, Singapore");
    EXPECT_EQ(locationText(places, 90, 180), "North Pole");
}

TEST(LocationText, WithoutAPlaceNearbyIsUnknown) {
    const PlaceFinder places(kTable);
    EXPECT_EQ(locationText(places, 0, 0), "Unknown location");
    EXPECT_EQ(locationText(places, -90, -180), "Unknown location");
    EXPECT_EQ(locationText(places, 37.7, -9.1), "Unknown location") << "114 km south of Lisboa";
}

TEST(LocationText, WithoutATableIsUnknown) {
    EXPECT_EQ(locationText(PlaceFinder("no table"), 38.7, -9.1), "Unknown location");
}

TEST(LocationText, WhatAreNoCoordinatesCannotBeResolved) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
    const PlaceFinder places(kTable);
    for (const auto& point : {Coordinates{90.0001, 0}, Coordinates{-90.0001, 0}, Coordinates{0, 180.0001},
                              Coordinates{0, -180.0001}, Coordinates{kNoNumber, 0}, Coordinates{0, kNoNumber},
                              Coordinates{kInfinity, 0}, Coordinates{0, kInfinity}, Coordinates{-kInfinity, 0}}) {
        SCOPED_TRACE(std::to_string(point.latitude) + ", " + std::to_string(point.longitude));
        EXPECT_EQ(locationText(places, point.latitude, point.longitude), "Could not resolve location");
    }
}

}  // namespace
}  // namespace vellomar
