#include "places/CompiledPlaces.h"

#include <cstdint>

// From PlaceTableBytes.s.in.
extern "C" {
extern const char kVellomarPlaceTable[];
extern const std::uint64_t kVellomarPlaceTableSize;
}

namespace vellomar {

std::string_view compiledPlaces() {
    return {kVellomarPlaceTable, kVellomarPlaceTableSize};
}

std::string_view placesAttribution() {
    return "Place names: GeoNames (www.geonames.org), CC BY 4.0 (creativecommons.org/licenses/by/4.0), abridged";
}

}  // namespace vellomar
