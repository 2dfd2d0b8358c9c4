#include "places/MadeTable.h"

#include <cmath>
#include <stdexcept>

#include <zlib.h>

namespace vellomar::testing {
namespace {

struct Run {
    std::string name;
    std::size_t length = 0;
};

// One step for each item, which either goes on with the last run or begins one.
void append(std::vector<Run>& runs, const std::string& name, bool goesOn) {
    if (!goesOn) runs.push_back({name, 0});
    ++runs.back().length;
}

std::string lengthsOf(const std::vector<Run>& runs) {
    std::string text;
    for (const auto& run : runs)
        text += tableNumber(run.length);
    return text;
}

std::string namesOf(const std::vector<Run>& runs) {
    std::string text;
    for (const auto& run : runs)
        text += run.name + '\n';
    return text;
}

std::string columnOf(const std::vector<MadePlace>& places, double Coordinates::*coordinate) {
    constexpr double kStepsOfDegree = 10'000;
    std::string text;
    std::int64_t before = 0;
    for (const auto& place : places) {
        const auto value = std::llround(place.at.*coordinate * kStepsOfDegree);
        text += tableChange(value - before);
        before = value;
    }
    return text;
}

}  // namespace

std::string tableNumber(std::uint64_t value) {
    std::string text;
    for (; value > 127; value /= 128)
        text += static_cast<char>(value % 128 + 128);
    return text + static_cast<char>(value);
}

std::string tableChange(std::int64_t change) {
    return tableNumber(static_cast<std::uint64_t>(change < 0 ? -2 * change - 1 : 2 * change));
}

std::string tableFile(std::string_view content) {
    std::string file;
    for (unsigned shift = 0; shift < 32; shift += 8)
        file += static_cast<char>(content.size() >> shift & 0xFF);
    std::string packed(compressBound(content.size()), '\0');
    uLongf length = packed.size();
    if (compress(reinterpret_cast<Bytef*>(packed.data()), &length, reinterpret_cast<const Bytef*>(content.data()),
                 content.size()) != Z_OK)
        throw std::runtime_error("zlib cannot compress a table");
    return file + packed.substr(0, length);
}

std::string tableOf(const std::vector<MadePlace>& places) {
    std::vector<Run> countries;
    std::vector<Run> regions;
    std::string names;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const auto& place = places[i].place;
        const bool sameCountry = i > 0 && place.country == places[i - 1].place.country;
        const bool sameRegion = sameCountry && place.region == places[i - 1].place.region;
        if (!sameRegion) append(countries, place.country, sameCountry);
        append(regions, place.region, sameRegion);
        names += place.city + '\n';
    }
    return tableFile("places1\n" + tableNumber(countries.size()) + tableNumber(regions.size()) +
                     tableNumber(places.size()) + lengthsOf(countries) + lengthsOf(regions) +
                     columnOf(places, &Coordinates::latitude) + columnOf(places, &Coordinates::longitude) +
                     namesOf(countries) + namesOf(regions) + names);
}

}  // namespace vellomar::testing
