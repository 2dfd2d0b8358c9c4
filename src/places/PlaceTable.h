// The table of places, as data/places/README.md tells its format. For the files of this folder and their tests.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellomar {

// Made to be small: there are a hundred thousand spots.
struct PlaceTable {
    static constexpr int kStepsOfDegree = 10'000;

    struct Region {
        std::string name;
        std::uint16_t country = 0;  // in `countries`
    };

    // Where a place lies, in steps of a degree, and what it is called.
    struct Spot {
        std::int32_t latitude = 0;
        std::int32_t longitude = 0;
        std::uint32_t name = 0;    // where its name begins in `names`; grows with each spot
        std::uint16_t region = 0;  // in `regions`
    };

    std::vector<std::string> countries;
    std::vector<Region> regions;
    std::vector<Spot> spots;
    std::string names;  // of all spots, each ended by a line feed
};

// What the stored table `bytes` holds; nothing when it is not such a table from end to end. Any thread.
[[nodiscard]] std::optional<PlaceTable> decodePlaceTable(std::string_view bytes);

}  // namespace vellomar
