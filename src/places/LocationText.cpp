#include "places/LocationText.h"

namespace vellomar {

std::string locationText(const PlaceFinder& places, double latitude, double longitude) {
    const Coordinates point{latitude, longitude};
    if (!isOnEarth(point)) return "Could not resolve location";
    const auto place = places.nearest(point);
    return place ? placeText(*place) : "Unknown location";
}

}  // namespace vellomar
