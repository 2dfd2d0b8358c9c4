#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "places/Coordinates.h"
#include "places/Place.h"
#include "places/PlaceTable.h"

namespace vellomar {

// Names points on the earth by the place next to them, out of a table in memory: nobody learns of the coordinates. To
// make one takes some fifty milliseconds and five megabytes, so that a program makes one and keeps it.
class PlaceFinder {
public:
    // `table` is a stored table of places, which compiledPlaces() is; it is not needed afterwards. One that cannot be
    // decoded gives no places.
    explicit PlaceFinder(std::string_view table);

    // How many places it knows.
    [[nodiscard]] std::size_t placeCount() const { return table_.spots.size(); }

    // The place next to `point` on a great circle of a round earth; the first in the table of places that are equally
    // near. Nothing when even that is farther than 100 km away, or when `point` is not on the earth. Microseconds; any
    // thread, also several at once.
    [[nodiscard]] std::optional<Place> nearest(const Coordinates& point) const;

private:
    [[nodiscard]] Place placeAt(const PlaceTable::Spot& spot) const;

    PlaceTable table_;                      // with its spots by row, and in a row from west to east
    std::vector<std::uint32_t> rowStarts_;  // the first spot of each row, and the end
};

}  // namespace vellomar
