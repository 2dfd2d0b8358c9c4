#include "duplicates/BandPlan.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <utility>

namespace vellomar {
namespace {

constexpr int kWidestBand = 16;  // its index still fits the second-level cache
constexpr int kLargestRadius = 2;
constexpr std::size_t kFewValues = 2'000;

// How much quicker a search must promise to be, so that what the promise leaves out does not make it slower.
constexpr double kWorthwhileGain = 2;

// What the steps of a search cost, in comparisons of two values in a long row.
constexpr double kCostOfIndexing = 20;  // a value
constexpr double kCostOfMeeting = 8;    // two places of the index
constexpr double kCostOfRow = 16;       // a value that is compared with a row of others

double costOfComparingAll(double values) {
    return values * (values - 1) / 2;
}

// What the search would cost if the values were spread evenly.
double expectedCost(const std::vector<Band>& bands, double values) {
    double cost = 0;
    for (const auto& band : bands) {
        const auto places = static_cast<double>(std::uint32_t{1} << band.width);
        const auto meetings = static_cast<double>(numbersWithFewBits(band.width, band.radius).size()) * places / 2;
        const double occupancy = values / places;
        cost += values * kCostOfIndexing + meetings * (kCostOfMeeting + occupancy * occupancy) +
                meetings * std::min(occupancy, occupancy * occupancy) * kCostOfRow;
    }
    return cost;
}

std::vector<std::uint32_t> occupancyOf(const Band& band, std::span<const std::uint64_t> values) {
    std::vector<std::uint32_t> counts(std::size_t{1} << band.width);
    for (const auto value : values)
        ++counts[band.of(value)];
    return counts;
}

double costOfBand(const Band& band, std::span<const std::uint64_t> values) {
    const auto counts = occupancyOf(band, values);
    double cost = static_cast<double>(values.size()) * kCostOfIndexing;
    for (const auto difference : numbersWithFewBits(band.width, band.radius)) {
        for (std::uint32_t place = 0; place < counts.size(); ++place) {
            const double here = counts[place];
            const double there = counts[place ^ difference];
            cost += (kCostOfMeeting + here * there + std::min(here, there) * kCostOfRow) / 2;
        }
    }
    return cost;
}

double costOf(const std::vector<Band>& bands, std::span<const std::uint64_t> values) {
    double cost = 0;
    for (const auto& band : bands)
        cost += costOfBand(band, values);
    return cost;
}

struct Plan {
    double expectedCost = 0;
    std::vector<Band> bands;
};

// The most promising first.
std::vector<Plan> plansFor(int threshold, std::size_t valueCount) {
    std::vector<Plan> plans;
    for (int count = 1; count <= std::min(threshold + 1, kValueBits); ++count) {
        auto bands = bandsFor(threshold, count);
        if (bands.front().radius > kLargestRadius) continue;
        const double cost = expectedCost(bands, static_cast<double>(valueCount));
        plans.push_back({cost, std::move(bands)});
    }
    std::ranges::stable_sort(plans, {}, &Plan::expectedCost);
    return plans;
}

}  // namespace

std::vector<Band> bandsFor(int threshold, int count) {
    const int radii = threshold + 1;  // each and one more
    std::vector<Band> bands;
    int shift = 0;
    for (int i = 0; i < count; ++i) {
        // What is left over goes to the first bands, so that a larger radius has more bits to choose from.
        const int bits = kValueBits / count + (i < kValueBits % count ? 1 : 0);
        const int radius = radii / count + (i < radii % count ? 1 : 0) - 1;
        bands.push_back({.shift = shift, .width = std::min(bits, kWidestBand), .radius = radius});
        shift += bits;
    }
    return bands;
}

std::vector<std::uint32_t> numbersWithFewBits(int width, int radius) {
    std::vector<std::uint32_t> numbers;
    for (std::uint32_t number = 0; number < std::uint32_t{1} << width; ++number)
        if (std::popcount(number) <= radius) numbers.push_back(number);
    return numbers;
}

// The expectation is as good as never too high, so that the plans need not be looked at behind the first that is
// expected to cost more than what the best one is known to cost.
std::vector<Band> cheapestBands(std::span<const std::uint64_t> values, int threshold) {
    if (values.size() < kFewValues) return {};
    double leastCost = costOfComparingAll(static_cast<double>(values.size())) / kWorthwhileGain;
    std::vector<Band> cheapest;
    for (auto& plan : plansFor(threshold, values.size())) {
        if (plan.expectedCost >= leastCost) break;
        const double cost = costOf(plan.bands, values);
        if (cost >= leastCost) continue;
        leastCost = cost;
        cheapest = std::move(plan.bands);
    }
    return cheapest;
}

}  // namespace vellomar
