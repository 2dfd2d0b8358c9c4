#include "places/Place.h"

namespace vellomar {

std::string placeText(const Place& place) {
    std::string text;
    for (const auto* name : {&place.city, &place.region, &place.country}) {
        if (name->empty()) continue;
        if (!text.empty()) text += ", ";
        text += *name;
    }
    return text;
}

}  // namespace vellomar
