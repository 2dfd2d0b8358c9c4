#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "places/MadeTable.h"
#include "places/PlaceFinder.h"
#include "places/PlaceTable.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using testing::MadePlace;
using testing::tableChange;
using testing::tableFile;
using testing::tableNumber;
using testing::tableOf;

// Two countries, three regions, four places.
const std::vector<MadePlace> kPlaces = {{{38.7251, -9.1498}, {"Lisboa", "Lisbon", "Portugal"}},
                                        {{38.8, -9.3833}, {"Sintra", "Lisbon", "Portugal"}},
                                        {{37.0194, -7.9322}, {"Faro", "Faro", "Portugal"}},
                                        {{1.2897, 103.8501}, {"Singapore", "", "Singapore"}}};

std::string nameOf(const PlaceTable& table, const PlaceTable::Spot& spot) {
    return table.names.substr(spot.name, table.names.find('\n', spot.name) - spot.name);
}

TEST(PlaceTable, SaysWhatWasStored) {
    const auto table = decodePlaceTable(tableOf(kPlaces));
    ASSERT_TRUE(table.has_value());
    EXPECT_THAT(table->countries, ElementsAre("Portugal", "Singapore"));
    ASSERT_EQ(table->regions.size(), 3U);
    ASSERT_EQ(table->spots.size(), kPlaces.size());
    for (std::size_t i = 0; i < kPlaces.size(); ++i) {
        SCOPED_TRACE(kPlaces[i].place.city);
        const auto& spot = table->spots[i];
        EXPECT_EQ(nameOf(*table, spot), kPlaces[i].place.city);
        EXPECT_EQ(table->regions[spot.region].name, kPlaces[i].place.region);
        EXPECT_EQ(table->countries[table->regions[spot.region].country], kPlaces[i].place.country);
        EXPECT_NEAR(spot.latitude, kPlaces[i].at.latitude * PlaceTable::kStepsOfDegree, 0.01);
        EXPECT_NEAR(spot.longitude, kPlaces[i].at.longitude * PlaceTable::kStepsOfDegree, 0.01);
    }
}

TEST(PlaceTable, MayBeEmpty) {
    const auto table = decodePlaceTable(tableOf({}));
    ASSERT_TRUE(table.has_value());
    EXPECT_TRUE(table->spots.empty());
}

TEST(PlaceTable, ItsEdgesAreOnTheEarth) {
    const auto table = decodePlaceTable(tableOf({{{90, -180}, {"north", "", ""}}, {{-90, 180}, {"south", "", ""}}}));
    ASSERT_TRUE(table.has_value());
    EXPECT_EQ(table->spots[0].latitude, 900'000);
    EXPECT_EQ(table->spots[0].longitude, -1'800'000);
    EXPECT_EQ(table->spots[1].latitude, -900'000);
    EXPECT_EQ(table->spots[1].longitude, 1'800'000);
}

// A broken file gives no places, and nothing worse.
void expectBroken(const std::string& file) {
    EXPECT_FALSE(decodePlaceTable(file).has_value());
    const PlaceFinder places(file);
    EXPECT_EQ(places.placeCount(), 0U);
    EXPECT_EQ(places.nearest({38.7251, -9.1498}), std::nullopt);
}

TEST(PlaceTable, AFileThatIsCutOffIsBroken) {
    const auto file = tableOf(kPlaces);
    for (std::size_t length = 0; length < file.size(); ++length) {
        SCOPED_TRACE(length);
        expectBroken(file.substr(0, length));
    }
}

TEST(PlaceTable, AFileWithAChangedByteIsBroken) {
    const auto file = tableOf(kPlaces);
    for (std::size_t i = 0; i < file.size(); ++i) {
        SCOPED_TRACE(i);
        auto changed = file;
        changed[i] = static_cast<char>(changed[i] ^ 0x14);
        expectBroken(changed);
    }
}

TEST(PlaceTable, AFileOfSomethingElseIsBroken) {
    expectBroken("");
    expectBroken("places1\n");
    expectBroken(std::string(1'000, '\0'));
    expectBroken(std::string(1'000, '\xFF'));
    expectBroken(tableFile(""));
    expectBroken(tableFile("a text\n"));
}

// The parts of a good table of one place, to be spoilt one by one.
struct Parts {
    std::string version = "places1\n";
    std::string counts = tableNumber(1) + tableNumber(1) + tableNumber(1);
    std::string regionsOfCountries = tableNumber(1);
    std::string placesOfRegions = tableNumber(1);
    std::string latitudes = tableChange(387'251);
    std::string longitudes = tableChange(-91'498);
    std::string names = "Portugal\nLisbon\nLisboa\n";

    [[nodiscard]] std::string content() const {
        return version + counts + regionsOfCountries + placesOfRegions + latitudes + longitudes + names;
    }
};

TEST(PlaceTable, ATableThatEndsTooEarlyIsBroken) {
    const auto content = Parts{}.content();
    ASSERT_TRUE(decodePlaceTable(tableFile(content)).has_value());
    for (std::size_t length = 0; length < content.size(); ++length) {
        SCOPED_TRACE(length);
        expectBroken(tableFile(content.substr(0, length)));
    }
}

TEST(PlaceTable, ATableThatContradictsItselfIsBroken) {
    const auto huge = tableNumber(std::uint64_t{1} << 34);
    const std::vector<std::pair<const char*, Parts>> cases = {
        {"another version", {.version = "places2\n"}},
        {"more countries than regions", {.counts = tableNumber(2) + tableNumber(1) + tableNumber(1)}},
        {"a region without a country", {.counts = tableNumber(0) + tableNumber(1) + tableNumber(1)}},
        {"more places than told", {.counts = tableNumber(1) + tableNumber(1) + tableNumber(0)}},
        {"fewer places than told", {.counts = tableNumber(1) + tableNumber(1) + tableNumber(2)}},
        {"more countries than bytes", {.counts = huge + tableNumber(1) + tableNumber(1)}},
        {"more regions than bytes", {.counts = tableNumber(1) + huge + tableNumber(1)}},
        {"more places than bytes", {.counts = tableNumber(1) + tableNumber(1) + huge}},
        {"a number without an end", {.counts = std::string(20, '\xFF')}},
        {"too few regions in the countries", {.regionsOfCountries = tableNumber(0)}},
        {"too many regions in the countries", {.regionsOfCountries = tableNumber(2)}},
        {"too few places in the regions", {.placesOfRegions = tableNumber(0)}},
        {"too many places in the regions", {.placesOfRegions = tableNumber(2)}},
        {"beyond the north pole", {.latitudes = tableChange(900'001)}},
        {"beyond the south pole", {.latitudes = tableChange(-900'001)}},
        {"beyond the antimeridian in the east", {.longitudes = tableChange(1'800'001)}},
        {"beyond the antimeridian in the west", {.longitudes = tableChange(-1'800'001)}},
        {"a name too few", {.names = "Portugal\nLisbon\n"}},
        {"a name without its end", {.names = "Portugal\nLisbon\nLisboa"}},
        {"a name too many", {.names = "Portugal\nLisbon\nLisboa\nSintra\n"}},
        {"something after the names", {.names = "Portugal\nLisbon\nLisboa\nS"}},
    };
    for (const auto& [fault, parts] : cases) {
        SCOPED_TRACE(fault);
        expectBroken(tableFile(parts.content()));
    }
}

TEST(PlaceTable, ATableLargerThanAnyIsNotUnpacked) {
    const Parts good;
    const auto padded = [&](std::size_t size) {
        Parts parts;
        parts.names.insert(0, size - good.content().size(), 'P');
        return tableFile(parts.content());
    };
    constexpr std::size_t kMost = std::size_t{16} << 20;
    EXPECT_TRUE(decodePlaceTable(padded(kMost)).has_value());
    expectBroken(padded(kMost + 1));
}

}  // namespace
}  // namespace vellomar
