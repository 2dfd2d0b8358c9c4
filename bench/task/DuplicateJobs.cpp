#include "task/DuplicateJobs.h"

#include <cstdint>
#include <random>
#include <stdexcept>
#include <unordered_set>
#include <vector>

#include <fmt/format.h>

#include "duplicates/NearDuplicates.h"
#include "measure/Measurement.h"

namespace vellomar::bench {
namespace {

std::vector<std::string> photoPaths(std::size_t count) {
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < count; ++i)
        paths.push_back(fmt::format("/photos/{:03}/IMG_{:06}.jpg", i / 1'000, i));
    return paths;
}

PerceptualBuckets imagesAt(const std::vector<std::string>& paths) {
    std::mt19937_64 random(20'230'814);
    std::unordered_set<std::uint64_t> hashes;
    PerceptualBuckets images;
    while (hashes.size() < paths.size()) {
        const auto& path = paths[hashes.size()];
        if (const auto hash = random(); hashes.insert(hash).second) images.append(hash, path, path);
    }
    return images;
}

}  // namespace

void findNearDuplicatesAmong(const std::string& count, const std::string& threshold) {
    const auto paths = photoPaths(std::stoul(count));
    const auto images = imagesAt(paths);
    const int limit = std::stoi(threshold);
    printMeasurementOf([&] {
        std::uint64_t pairs = 0;
        const auto grouped = images.grouped();
        findNearDuplicates(grouped, limit, [&](const NearDuplicate& pair) {
            if (pair.distance > limit) throw std::runtime_error("a pair is farther apart than the threshold");
            ++pairs;
        });
        return Amount{grouped.buckets.size(), pairs * sizeof(NearDuplicate)};
    });
}

}  // namespace vellomar::bench
