#pragma once

#include <string>

#include "places/PlaceFinder.h"

namespace vellomar {

// Where a photo with these coordinates was taken, for the eye: "City, Region, Country" of the nearest place, "Unknown
// location" when none is within 100 km, and "Could not resolve location" for what are no coordinates in degrees. UTF-8;
// never empty but for a place without names. Any thread.
[[nodiscard]] std::string locationText(const PlaceFinder& places, double latitude, double longitude);

}  // namespace vellomar
