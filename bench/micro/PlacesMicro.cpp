#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#include "places/CompiledPlaces.h"
#include "places/PlaceFinder.h"

namespace vellomar {
namespace {

const PlaceFinder& allPlaces() {
    static const PlaceFinder places(compiledPlaces());
    return places;
}

// As the first inspector that shows a photo's place does it.
void loadPlaces(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(PlaceFinder(compiledPlaces()));
}
BENCHMARK(loadPlaces)->Unit(benchmark::kMillisecond);

void findPlace(benchmark::State& state, const Coordinates& point) {
    const auto& places = allPlaces();
    for (auto _ : state)
        benchmark::DoNotOptimize(places.nearest(point));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_CAPTURE(findPlace, town, Coordinates{38.7251, -9.1498});
BENCHMARK_CAPTURE(findPlace, crowdedLand, Coordinates{50.95, 6.97});
BENCHMARK_CAPTURE(findPlace, desert, Coordinates{23.4, 11.2});
BENCHMARK_CAPTURE(findPlace, ocean, Coordinates{0, -30});
BENCHMARK_CAPTURE(findPlace, pole, Coordinates{90, 0});

// All over a box, so that no memory is warm for long.
void findPlaces(benchmark::State& state, const Coordinates& southWest, const Coordinates& northEast) {
    constexpr std::size_t kPoints = 10'000;
    std::mt19937_64 random(20'230'814);
    std::uniform_real_distribution<double> latitude(southWest.latitude, northEast.latitude);
    std::uniform_real_distribution<double> longitude(southWest.longitude, northEast.longitude);
    std::vector<Coordinates> points;
    while (points.size() < kPoints)
        points.push_back({latitude(random), longitude(random)});
    const auto& places = allPlaces();
    std::size_t next = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(places.nearest(points[next++ % kPoints]));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_CAPTURE(findPlaces, europe, Coordinates{40, -5}, Coordinates{55, 25});
BENCHMARK_CAPTURE(findPlaces, earth, Coordinates{-90, -180}, Coordinates{90, 180});

}  // namespace
}  // namespace vellomar
