#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <thread>

#include <gtest/gtest.h>

#include "places/MadeTable.h"
#include "places/PlaceFinder.h"

namespace vellomar {
namespace {

using testing::MadePlace;
using testing::tableOf;

constexpr double kEarthRadius = 6371.0088;
constexpr double kRadian = 180 / std::numbers::pi;

MadePlace placeAt(double latitude, double longitude, const std::string& name) {
    return {{latitude, longitude}, {name, "", ""}};
}

// By the angle between two arrows from the earth's centre, which knows of no poles and no antimeridian.
double kilometresBetween(const Coordinates& a, const Coordinates& b) {
    struct Arrow {
        double x = 0;
        double y = 0;
        double z = 0;
    };
    const auto arrowTo = [](const Coordinates& point) {
        const double around = std::cos(point.latitude / kRadian);
        return Arrow{around * std::cos(point.longitude / kRadian), around * std::sin(point.longitude / kRadian),
                     std::sin(point.latitude / kRadian)};
    };
    const auto p = arrowTo(a);
    const auto q = arrowTo(b);
    const double sine = std::hypot(p.y * q.z - p.z * q.y, p.z * q.x - p.x * q.z, p.x * q.y - p.y * q.x);
    return std::atan2(sine, p.x * q.x + p.y * q.y + p.z * q.z) * kEarthRadius;
}

std::string nameNextTo(const PlaceFinder& places, const Coordinates& point) {
    const auto place = places.nearest(point);
    return place ? place->city : "nothing";
}

TEST(PlaceFinder, GivesAllNamesOfThePlace) {
    const PlaceFinder places(tableOf({{{38.7251, -9.1498}, {"Lisboa", "Lisbon", "Portugal"}},
                                      {{1.2897, 103.8501}, {"Singapore", "", "Singapore"}}}));
    EXPECT_EQ(places.placeCount(), 2U);
    EXPECT_EQ(places.nearest({38.7, -9.1}), (Place{"Lisboa", "Lisbon", "Portugal"}));
    EXPECT_EQ(places.nearest({1.3, 103.8}), (Place{"Singapore", "", "Singapore"}));
}

TEST(PlaceFinder, WithoutPlacesFindsNothing) {
    const PlaceFinder places(tableOf({}));
    EXPECT_EQ(places.placeCount(), 0U);
    EXPECT_EQ(places.nearest({0, 0}), std::nullopt);
    EXPECT_EQ(places.nearest({90, 0}), std::nullopt);
    EXPECT_EQ(places.nearest({-90, 180}), std::nullopt);
}

TEST(PlaceFinder, WhatIsNotOnTheEarthHasNoPlace) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
    const PlaceFinder places(tableOf({placeAt(90, 0, "pole"), placeAt(0, 180, "antimeridian")}));
    EXPECT_EQ(nameNextTo(places, {90, 0}), "pole");
    EXPECT_EQ(nameNextTo(places, {0, 180}), "antimeridian");
    for (const auto& point :
         {Coordinates{90.0001, 0}, Coordinates{-90.0001, 0}, Coordinates{0, 180.0001}, Coordinates{0, -180.0001},
          Coordinates{kNoNumber, 0}, Coordinates{0, kNoNumber}, Coordinates{kInfinity, 0}, Coordinates{0, -kInfinity}})
        EXPECT_EQ(nameNextTo(places, point), "nothing") << point.latitude << ", " << point.longitude;
}

// A step of the table is 11 metres; the tests stay a metre away from the edge.
TEST(PlaceFinder, ReachesAHundredKilometresInEveryDirection) {
    constexpr double kDegreesOfReach = 100 / kEarthRadius * kRadian;
    constexpr double kDegreesOfMetre = kDegreesOfReach / 100'000;
    constexpr double kInside = kDegreesOfReach - kDegreesOfMetre;
    constexpr double kOutside = kDegreesOfReach + kDegreesOfMetre;
    // On the equator and on the meridian through a pole, degrees are degrees of a great circle.
    for (const Coordinates& at : {Coordinates{0, 0}, Coordinates{0, 12.3456}, Coordinates{0, 180}, Coordinates{0, -180},
                                  Coordinates{0, 179.5}, Coordinates{0, -179.5}}) {
        SCOPED_TRACE(at.longitude);
        const PlaceFinder places(tableOf({placeAt(at.latitude, at.longitude, "here")}));
        const auto turned = [](double longitude) { return std::remainder(longitude, 360); };
        for (const double direction : {-1.0, 1.0}) {
            EXPECT_EQ(nameNextTo(places, {0, turned(at.longitude + direction * kInside)}), "here");
            EXPECT_EQ(nameNextTo(places, {0, turned(at.longitude + direction * kOutside)}), "nothing");
            EXPECT_EQ(nameNextTo(places, {direction * kInside, at.longitude}), "here");
            EXPECT_EQ(nameNextTo(places, {direction * kOutside, at.longitude}), "nothing");
        }
    }
    for (const double pole : {90.0, -90.0}) {
        SCOPED_TRACE(pole);
        const PlaceFinder places(tableOf({placeAt(pole, 0, "here")}));
        for (const double longitude : {-180.0, -90.0, 0.0, 77.7, 180.0}) {
            SCOPED_TRACE(longitude);
            EXPECT_EQ(nameNextTo(places, {std::copysign(90 - kInside, pole), longitude}), "here");
            EXPECT_EQ(nameNextTo(places, {std::copysign(90 - kOutside, pole), longitude}), "nothing");
        }
    }
}

TEST(PlaceFinder, AtAPoleAllLongitudesAreNear) {
    const PlaceFinder north(tableOf({placeAt(89.5, 10, "near"), placeAt(89.4, -170, "a little farther")}));
    for (const double longitude : {-180.0, -100.0, 0.0, 55.5, 180.0})
        EXPECT_EQ(nameNextTo(north, {90, longitude}), "near") << longitude;
    EXPECT_EQ(nameNextTo(north, {89.9, -170}), "a little farther");
    EXPECT_EQ(nameNextTo(north, {89.95, 179.9}), "near") << "0.05 degrees before the pole, on the other side of it";

    const PlaceFinder south(tableOf({placeAt(-89.5, 10, "near"), placeAt(-89.4, -170, "a little farther")}));
    EXPECT_EQ(nameNextTo(south, {-90, -33}), "near");
    EXPECT_EQ(nameNextTo(south, {-89.9, -170}), "a little farther");
}

TEST(PlaceFinder, TheAntimeridianIsNoBorder) {
    const PlaceFinder places(tableOf({placeAt(-17, 179.9, "west of it"), placeAt(-17, -179.5, "east of it")}));
    EXPECT_EQ(nameNextTo(places, {-17, 179.99}), "west of it");
    EXPECT_EQ(nameNextTo(places, {-17, 180}), "west of it");
    EXPECT_EQ(nameNextTo(places, {-17, -180}), "west of it");
    EXPECT_EQ(nameNextTo(places, {-17, -179.9}), "west of it");
    EXPECT_EQ(nameNextTo(places, {-17, -179.7}), "east of it");
    const PlaceFinder one(tableOf({placeAt(-17, -179.5, "east of it")}));
    EXPECT_EQ(nameNextTo(one, {-17, 179.9}), "east of it");
}

TEST(PlaceFinder, OfPlacesEquallyNearTheFirstInTheTableCounts) {
    const auto west = placeAt(10, -0.25, "west");
    const auto east = placeAt(10, 0.25, "east");
    const auto north = placeAt(0.5, 20, "north");
    const auto south = placeAt(-0.5, 20, "south");
    const auto here = placeAt(-30, 20, "here");
    const auto alsoHere = placeAt(-30, 20, "also here");
    const PlaceFinder places(tableOf({west, east, north, south, here, alsoHere}));
    EXPECT_EQ(nameNextTo(places, {10, 0}), "west");
    EXPECT_EQ(nameNextTo(places, {0, 20}), "north");
    EXPECT_EQ(nameNextTo(places, {-30.1, 20.1}), "here");
    const PlaceFinder reversed(tableOf({alsoHere, here, south, north, east, west}));
    EXPECT_EQ(nameNextTo(reversed, {10, 0}), "east");
    EXPECT_EQ(nameNextTo(reversed, {0, 20}), "south");
    EXPECT_EQ(nameNextTo(reversed, {-30.1, 20.1}), "also here");
}

// Where a place stands in the table is its name.
std::vector<MadePlace> randomPlaces(std::mt19937_64& random, std::size_t count, const Coordinates& southWest,
                                    const Coordinates& northEast) {
    std::uniform_real_distribution<double> latitude(southWest.latitude, northEast.latitude);
    std::uniform_real_distribution<double> longitude(southWest.longitude, northEast.longitude);
    constexpr double kSteps = 10'000;
    const auto rounded = [](double degrees) { return std::round(degrees * kSteps) / kSteps; };
    std::vector<MadePlace> places;
    for (std::size_t i = 0; i < count; ++i)
        places.push_back(placeAt(rounded(latitude(random)), rounded(longitude(random)), std::to_string(i)));
    return places;
}

// The kilometres to the nearest of all, one by one.
double leastDistance(const std::vector<MadePlace>& places, const Coordinates& point) {
    double least = std::numeric_limits<double>::infinity();
    for (const auto& place : places)
        least = std::min(least, kilometresBetween(place.at, point));
    return least;
}

struct Sample {
    const char* name;
    Coordinates southWest;
    Coordinates northEast;
    std::size_t places;
};

// Some closer to each other than the reach and some farther apart, so that there are points of every kind.
const std::vector<Sample> kSamples = {
    {"the earth", {-90, -180}, {90, 180}, 8'000},
    {"the earth, sparse", {-90, -180}, {90, 180}, 2'000},
    {"the north pole", {88, -180}, {90, 180}, 60},
    {"the south pole", {-90, -180}, {-88, 180}, 60},
    {"the far north", {70, -180}, {89, 180}, 500},
    {"east of the antimeridian", {-30, -180}, {30, -175}, 400},
    {"west of the antimeridian", {-30, 175}, {30, 180}, 400},
    {"a crowd", {50, 8}, {50.5, 8.5}, 2'000},
};

TEST(PlaceFinder, FindsWhatASearchThroughAllPlacesFinds) {
    constexpr int kPoints = 400;
    constexpr double kMillimetre = 1e-6;
    std::mt19937_64 random(20'230'814);
    for (const auto& sample : kSamples) {
        SCOPED_TRACE(sample.name);
        const auto table = randomPlaces(random, sample.places, sample.southWest, sample.northEast);
        const PlaceFinder places(tableOf(table));
        ASSERT_EQ(places.placeCount(), sample.places);
        auto points = randomPlaces(random, kPoints, sample.southWest, sample.northEast);
        // Close to the borders of the sample from outside as well: across the antimeridian and next to the crowd.
        for (int i = 0; i < kPoints / 4; ++i) {
            auto point = points[static_cast<std::size_t>(i)];
            point.at.longitude = std::remainder(point.at.longitude + 360 - 0.7, 360);
            point.at.latitude = std::clamp(point.at.latitude + 0.3, -90.0, 90.0);
            points.push_back(point);
        }
        for (const auto& [point, unused] : points) {
            SCOPED_TRACE(std::to_string(point.latitude) + ", " + std::to_string(point.longitude));
            const double least = leastDistance(table, point);
            const auto found = places.nearest(point);
            ASSERT_EQ(found.has_value(), least <= 100);
            if (!found) continue;
            const auto& place = table.at(std::stoul(found->city));
            EXPECT_NEAR(kilometresBetween(place.at, point), least, kMillimetre);
        }
    }
}

TEST(PlaceFinder, ManyThreadsMayAskAtOnce) {
    std::mt19937_64 random(1);
    const auto table = randomPlaces(random, 2'000, {-60, -180}, {60, 180});
    const PlaceFinder places(tableOf(table));
    std::vector<std::jthread> threads;
    std::vector<std::size_t> found(4);
    for (auto& count : found)
        threads.emplace_back([&places, &table, &count] {
            for (const auto& [at, place] : table)
                if (places.nearest(at) == place) ++count;
        });
    threads.clear();
    for (const auto count : found)
        EXPECT_EQ(count, table.size());
}

}  // namespace
}  // namespace vellomar
