#include "duplicates/PerceptualBuckets.h"

#include <cstddef>
#include <unordered_map>

namespace vellomar {

PerceptualBuckets::Grouped PerceptualBuckets::grouped() const {
    Grouped result;
    std::unordered_map<std::uint64_t, std::size_t> bucketByHash;
    bucketByHash.reserve(entries_.size());
    std::vector<std::uint32_t> sizes;
    for (const auto& entry : entries_) {
        const auto [found, isNew] = bucketByHash.try_emplace(entry.hash, result.buckets.size());
        if (isNew) {
            result.buckets.push_back({.hash = entry.hash});
            sizes.push_back(0);
        }
        ++sizes[found->second];
    }
    std::uint32_t start = 0;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        result.buckets[i].begin = result.buckets[i].end = start;
        start += sizes[i];
    }
    result.records.resize(entries_.size());
    for (const auto& entry : entries_)
        result.records[result.buckets[bucketByHash.at(entry.hash)].end++] = entry.record;
    return result;
}

}  // namespace vellomar
