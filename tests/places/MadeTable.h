// Tables of places made for a test.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "places/Coordinates.h"
#include "places/Place.h"

namespace vellomar::testing {

struct MadePlace {
    Coordinates at;  // stored to a ten-thousandth of a degree
    Place place;
};

// A number as tables hold it.
[[nodiscard]] std::string tableNumber(std::uint64_t value);

// A change in a column of coordinates, in steps.
[[nodiscard]] std::string tableChange(std::int64_t change);

// `content` as the file that holds it.
[[nodiscard]] std::string tableFile(std::string_view content);

// The file of a table with these places, in this order.
[[nodiscard]] std::string tableOf(const std::vector<MadePlace>& places);

}  // namespace vellomar::testing
