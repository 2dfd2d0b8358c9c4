#include "places/PlaceFinder.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <tuple>
#include <utility>

namespace vellomar {
namespace {

using Spot = PlaceTable::Spot;

constexpr double kKilometresToFarthest = 100;
constexpr double kEarthRadius = 6371.0088;  // km, the mean one
constexpr double kRadian = 180 / std::numbers::pi;
constexpr double kPole = 90;
constexpr double kTurn = 360;

// The earth is cut into rows along the parallels, a tenth of a degree (11 km) high, the first at the south pole.
constexpr int kRowsOfDegree = 10;
constexpr int kStepsOfRow = PlaceTable::kStepsOfDegree / kRowsOfDegree;
constexpr int kRows = 180 * kRowsOfDegree + 1;  // the north pole has one of its own

// Beyond what rounding can do to a distance, in degrees: a tenth of a millimetre.
constexpr double kMargin = 1e-9;

int rowOf(const Spot& spot) {
    return (spot.latitude + 90 * PlaceTable::kStepsOfDegree) / kStepsOfRow;
}

int rowOf(const Coordinates& point) {
    return static_cast<int>((point.latitude + kPole) * kRowsOfDegree);
}

double degrees(std::int32_t steps) {
    return static_cast<double>(steps) / PlaceTable::kStepsOfDegree;
}

double squaredSineOfHalf(double angleInDegrees) {
    const double sine = std::sin(angleInDegrees / 2 / kRadian);
    return sine * sine;
}

void sortIntoRows(std::vector<Spot>& spots) {
    const auto order = [](const Spot& spot) { return std::tuple(rowOf(spot), spot.longitude, spot.name); };
    std::ranges::sort(spots, {}, order);
}

std::vector<std::uint32_t> startsOfRows(const std::vector<Spot>& spots) {
    std::vector<std::uint32_t> starts;
    starts.reserve(kRows + 1);
    std::uint32_t next = 0;
    for (int row = 0; row < kRows; ++row) {
        starts.push_back(next);
        while (next < spots.size() && rowOf(spots[next]) == row)
            ++next;
    }
    starts.push_back(next);
    return starts;
}

// Looks through the rows around a point, as far as a place could still be nearer than the nearest one so far. Distances
// are compared as the squared sine of half their angle at the earth's centre, which grows with them.
class NearestSearch {
public:
    NearestSearch(std::span<const Spot> spots, std::span<const std::uint32_t> rowStarts, const Coordinates& from)
        : spots_(spots), rowStarts_(rowStarts), from_(from), cosine_(std::cos(from.latitude / kRadian)) {}

    const Spot* nearest() {
        const int home = rowOf(from_);
        lookIntoRow(home);
        // What lies in a row so many rows away has all the rows between in its way.
        for (int away = 1; (away - 1.0) / kRowsOfDegree <= reach_ + kMargin; ++away) {
            lookIntoRow(home - away);
            lookIntoRow(home + away);
        }
        return nearest_;
    }

private:
    // A turn to the west and to the east, the same meridians have other longitudes.
    void lookIntoRow(int row) {
        if (row < 0 || row >= kRows) return;
        const auto first = rowStarts_[static_cast<std::size_t>(row)];
        const auto end = rowStarts_[static_cast<std::size_t>(row) + 1];
        const auto spots = spots_.subspan(first, end - first);
        if (spots.empty()) return;
        for (const double turn : {0.0, -kTurn, kTurn})
            lookAround(from_.longitude + turn, spots);
    }

    void lookAround(double longitude, std::span<const Spot> spots) {
        const double width = reachAlongParallels();
        const auto longitudeOf = [](const Spot& spot) { return degrees(spot.longitude); };
        const auto west = std::ranges::lower_bound(spots, longitude - width, {}, longitudeOf);
        for (const auto& spot : std::span(west, spots.end())) {
            if (longitudeOf(spot) > longitude + width) return;
            consider(spot);
        }
    }

    // How many degrees of longitude a circle of the reach spans to either side. Around a pole it has all of them.
    [[nodiscard]] double reachAlongParallels() const {
        const double sine = std::sin(reach_ / kRadian);
        return sine < cosine_ ? std::asin(sine / cosine_) * kRadian + kMargin : kTurn / 2;
    }

    void consider(const Spot& spot) {
        const double distance = distanceTo(spot);
        if (distance > least_) return;
        const bool isNearer = distance < least_ || nearest_ == nullptr || spot.name < nearest_->name;
        if (!isNearer) return;
        nearest_ = &spot;
        least_ = distance;
        reach_ = 2 * std::asin(std::sqrt(least_)) * kRadian;
    }

    [[nodiscard]] double distanceTo(const Spot& spot) const {
        const double latitude = degrees(spot.latitude);
        return squaredSineOfHalf(latitude - from_.latitude) +
               cosine_ * std::cos(latitude / kRadian) * squaredSineOfHalf(degrees(spot.longitude) - from_.longitude);
    }

    std::span<const Spot> spots_;
    std::span<const std::uint32_t> rowStarts_;
    Coordinates from_;
    double cosine_;
    double reach_ = kKilometresToFarthest / kEarthRadius * kRadian;  // degrees on a great circle
    double least_ = squaredSineOfHalf(reach_);
    const Spot* nearest_ = nullptr;
};

}  // namespace

PlaceFinder::PlaceFinder(std::string_view table) : table_(decodePlaceTable(table).value_or(PlaceTable{})) {
    sortIntoRows(table_.spots);
    rowStarts_ = startsOfRows(table_.spots);
}

std::optional<Place> PlaceFinder::nearest(const Coordinates& point) const {
    if (!isOnEarth(point)) return std::nullopt;
    const auto* spot = NearestSearch(table_.spots, rowStarts_, point).nearest();
    if (spot == nullptr) return std::nullopt;
    return placeAt(*spot);
}

Place PlaceFinder::placeAt(const PlaceTable::Spot& spot) const {
    const auto& region = table_.regions[spot.region];
    const auto end = table_.names.find('\n', spot.name);
    return {table_.names.substr(spot.name, end - spot.name), region.name, table_.countries[region.country]};
}

}  // namespace vellomar
