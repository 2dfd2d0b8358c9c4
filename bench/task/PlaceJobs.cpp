#include "task/PlaceJobs.h"

#include <cstdint>
#include <random>
#include <stdexcept>
#include <vector>

#include "measure/Measurement.h"
#include "places/CompiledPlaces.h"
#include "places/PlaceFinder.h"

namespace vellomar::bench {
namespace {

std::vector<Coordinates> pointsInEurope(std::size_t count) {
    std::mt19937_64 random(20'230'814);
    std::uniform_real_distribution<double> latitude(40, 55);
    std::uniform_real_distribution<double> longitude(-5, 25);
    std::vector<Coordinates> points;
    for (std::size_t i = 0; i < count; ++i)
        points.push_back({latitude(random), longitude(random)});
    return points;
}

}  // namespace

void loadPlaces(const std::string& count) {
    const auto rounds = std::stoul(count);
    printMeasurementOf([&] {
        for (std::size_t i = 0; i < rounds; ++i)
            if (PlaceFinder(compiledPlaces()).placeCount() == 0) throw std::runtime_error("there are no places");
        return Amount{rounds, rounds * compiledPlaces().size()};
    });
}

void findPlaces(const std::string& count) {
    const auto points = pointsInEurope(std::stoul(count));
    const PlaceFinder places(compiledPlaces());
    printMeasurementOf([&] {
        std::uint64_t bytes = 0;
        for (const auto& point : points)
            if (const auto place = places.nearest(point)) bytes += placeText(*place).size();
        return Amount{points.size(), bytes};
    });
}

}  // namespace vellomar::bench
