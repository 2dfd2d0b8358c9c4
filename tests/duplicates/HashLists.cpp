#include "duplicates/HashLists.h"

#include <bit>
#include <functional>
#include <random>
#include <unordered_set>

namespace vellomar::testing {
namespace {

std::vector<std::uint64_t> distinct(std::size_t count, const std::function<std::uint64_t()>& make) {
    std::unordered_set<std::uint64_t> seen;
    std::vector<std::uint64_t> values;
    while (values.size() < count)
        if (const auto value = make(); seen.insert(value).second) values.push_back(value);
    return values;
}

}  // namespace

std::vector<std::uint64_t> randomHashes(std::size_t count) {
    std::mt19937_64 random(20'230'814);
    return distinct(count, [&] { return random(); });
}

std::vector<std::uint64_t> clusteredHashes(std::size_t count) {
    std::mt19937_64 random(20'230'815);
    std::vector<std::uint64_t> heads(count / 10 + 1);
    for (auto& head : heads)
        head = random();
    return distinct(count, [&] {
        auto value = heads[random() % heads.size()];
        for (auto flips = random() % 7; flips > 0; --flips)
            value ^= std::uint64_t{1} << (random() % 64);
        return value;
    });
}

std::vector<std::uint64_t> crowdedHashes(std::size_t count) {
    std::mt19937_64 random(20'230'816);
    return distinct(count, [&] { return random() % (4 * count); });
}

std::vector<HammingPair> plainPairs(std::span<const std::uint64_t> values, int threshold) {
    std::vector<HammingPair> pairs;
    for (std::uint32_t i = 0; i < values.size(); ++i)
        for (std::uint32_t j = i + 1; j < values.size(); ++j)
            if (const int distance = std::popcount(values[i] ^ values[j]); distance <= threshold)
                pairs.push_back({i, j, distance});
    return pairs;
}

}  // namespace vellomar::testing
