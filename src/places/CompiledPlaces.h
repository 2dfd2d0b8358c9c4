#pragma once

#include <string_view>

namespace vellomar {

// The table of places that is part of the program, as a PlaceFinder takes it. Any thread.
[[nodiscard]] std::string_view compiledPlaces();

// The line that the licence of the table wants to be shown wherever the program tells about itself. Any thread.
[[nodiscard]] std::string_view placesAttribution();

}  // namespace vellomar
