#pragma once

namespace vellomar {

// A point on the earth in degrees; north and east are positive.
struct Coordinates {
    double latitude = 0;
    double longitude = 0;
};

// Whether there is such a point: neither beyond a pole nor beyond the antimeridian, and a number. Both edges count.
[[nodiscard]] constexpr bool isOnEarth(const Coordinates& point) {
    constexpr double kPole = 90;
    constexpr double kAntimeridian = 180;
    return point.latitude >= -kPole && point.latitude <= kPole && point.longitude >= -kAntimeridian &&
           point.longitude <= kAntimeridian;
}

}  // namespace vellomar
