#pragma once

#include <string>

namespace vellomar {

// The names of a place, in UTF-8: its own, mostly as English has it, and those of what it lies in. What is not known is
// empty.
struct Place {
    std::string city;
    std::string region;
    std::string country;

    bool operator==(const Place&) const = default;
};

// "City, Region, Country" without what is empty. Any thread.
[[nodiscard]] std::string placeText(const Place& place);

}  // namespace vellomar
