#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "places/CompiledPlaces.h"
#include "places/LocationText.h"
#include "places/PlaceTable.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

using ::testing::HasSubstr;

// The whole table, decoded once.
class CompiledPlacesTest : public ::testing::Test {
protected:
    static const PlaceFinder& places() {
        static const PlaceFinder finder(compiledPlaces());
        return finder;
    }
};

TEST_F(CompiledPlacesTest, CanBeDecoded) {
    const auto table = decodePlaceTable(compiledPlaces());
    ASSERT_TRUE(table.has_value());
    EXPECT_EQ(table->spots.size(), 171'075U);
    EXPECT_EQ(table->countries.size(), 246U);
    EXPECT_GT(table->regions.size(), 3'500U);
    EXPECT_EQ(places().placeCount(), table->spots.size());
}

TEST_F(CompiledPlacesTest, IsSmall) {
    EXPECT_LT(compiledPlaces().size(), 2'500'000U);
}

TEST_F(CompiledPlacesTest, EveryPlaceAndCountryHasANameInUtf8) {
    const auto table = decodePlaceTable(compiledPlaces());
    ASSERT_TRUE(table.has_value());
    EXPECT_TRUE(isUtf8(table->names));
    EXPECT_EQ(table->names.find("\n\n"), std::string::npos);
    EXPECT_FALSE(table->names.starts_with('\n'));
    for (const auto& country : table->countries)
        EXPECT_TRUE(!country.empty() && isUtf8(country)) << country;
    for (const auto& region : table->regions)
        EXPECT_TRUE(isUtf8(region.name)) << region.name;
    const auto nameless = std::ranges::count(table->regions, "", &PlaceTable::Region::name);
    EXPECT_LT(nameless, 100);
}

TEST_F(CompiledPlacesTest, KnowsTheWorld) {
    struct Case {
        double latitude = 0;
        double longitude = 0;
        std::string text;
    };
    const std::vector<Case> cases = {
        {38.7251, -9.1498, "Lisbon, Lisbon, Portugal"},
        {40.7143, -74.0060, "New York City, New York, United States"},
        {35.6895, 139.6917, "Tokyo, Tokyo, Japan"},
        {64.1355, -21.8954, "Reykjavík, Capital Region, Iceland"},
        {-54.8108, -68.3159, "Ushuaia, Tierra del Fuego, Argentina"},
        {51.5074, -0.1278, "London, England, United Kingdom"},
        {-33.8688, 151.2093, "Sydney, New South Wales, Australia"},
        {78.2232, 15.6469, "Longyearbyen, Svalbard, Svalbard and Jan Mayen"},
        {1.2897, 103.8501, "Singapore, Singapore"},
        {22.2855, 114.1577, "Central, Central and Western, Hong Kong"},
        {42.6629, 21.1655, "Pristina, Pristina, Kosovo"},
        {-18.1368, 178.4253, "Suva, Central, Fiji"},
        // Taveuni, an island across the antimeridian, has no town of its own in the table.
        {-16.8, 179.99, "Savusavu, Northern, Fiji"},
        {-16.8, 180, "Savusavu, Northern, Fiji"},
        {-16.8, -180, "Savusavu, Northern, Fiji"},
        {-16.8, -179.95, "Savusavu, Northern, Fiji"},
    };
    for (const auto& [latitude, longitude, text] : cases)
        EXPECT_EQ(locationText(places(), latitude, longitude), text) << latitude << ", " << longitude;
}

TEST_F(CompiledPlacesTest, NobodyLivesInTheMiddleOfAnOceanOrAtThePoles) {
    for (const auto& [latitude, longitude] : {std::pair{0.0, -30.0},
                                              {-48.9, -123.4},
                                              {30.0, -45.0},
                                              {-30.0, 80.0},
                                              {90.0, 0.0},
                                              {-90.0, 0.0},
                                              {89.9, 179.9},
                                              {0.0, 0.0}})
        EXPECT_EQ(locationText(places(), latitude, longitude), "Unknown location") << latitude << ", " << longitude;
}

TEST_F(CompiledPlacesTest, ItsSourceAndLicenceAreNamedInOneLine) {
    const std::string line(placesAttribution());
    EXPECT_THAT(line, HasSubstr("GeoNames"));
    EXPECT_THAT(line, HasSubstr("geonames.org"));
    EXPECT_THAT(line, HasSubstr("CC BY 4.0"));
    EXPECT_THAT(line, HasSubstr("creativecommons.org/licenses/by/4.0"));
    EXPECT_EQ(line.find('\n'), std::string::npos);
}

}  // namespace
}  // namespace vellomar
