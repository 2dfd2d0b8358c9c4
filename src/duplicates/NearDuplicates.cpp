#include "duplicates/NearDuplicates.h"

#include <cstddef>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "duplicates/HammingPairs.h"

namespace vellomar {
namespace {

using Record = PerceptualBuckets::Record;
using Bucket = PerceptualBuckets::Bucket;

// Which pairs were met before, by their two source paths sorted and joined by "|".
//
// A text can only come twice from a path that comes twice, or from paths that hold a "|" themselves. Neither is usual,
// and where a path is not of that kind its pairs need not be remembered.
class SeenPairs {
public:
    explicit SeenPairs(const std::vector<Record>& records) {
        std::unordered_map<std::string_view, std::uint32_t> firstByPath;
        firstByPath.reserve(records.size());
        isDoubtful_.resize(records.size());
        for (std::uint32_t i = 0; i < records.size(); ++i) {
            const auto path = records[i].source;
            const auto [first, isNew] = firstByPath.try_emplace(path, i);
            if (!isNew) isDoubtful_[first->second] = true;
            isDoubtful_[i] = !isNew || path.find('|') != std::string_view::npos || isDoubtful_[i];
        }
    }

    // False if the pair was met before.
    bool insert(std::uint32_t x, std::string_view sourceOfX, std::uint32_t y, std::string_view sourceOfY) {
        if (!isDoubtful_[x] && !isDoubtful_[y]) return true;
        const auto& [lesser, greater] = std::minmax(sourceOfX, sourceOfY);
        return keys_.insert(std::string(lesser).append("|").append(greater)).second;
    }

private:
    std::vector<bool> isDoubtful_;  // by position of the record
    std::unordered_set<std::string> keys_;
};

class Search {
public:
    Search(const PerceptualBuckets::Grouped& images, const NearDuplicateListener& listener)
        : images_(images), listener_(listener), seen_(images.records) {}

    void compareBuckets(int threshold) {
        std::vector<std::uint64_t> hashes;
        hashes.reserve(images_.buckets.size());
        for (const auto& bucket : images_.buckets)
            hashes.push_back(bucket.hash);
        forEachHammingPair(hashes, threshold, [this](const HammingPair& pair) {
            const auto& one = images_.buckets[pair.first];
            const auto& other = images_.buckets[pair.second];
            for (auto x = one.begin; x < one.end; ++x)
                for (auto y = other.begin; y < other.end; ++y)
                    meet({x, y, pair.distance});
        });
    }

    void compareWithinBuckets() {
        for (const auto& bucket : images_.buckets)
            for (auto x = bucket.begin; x < bucket.end; ++x)
                for (auto y = x + 1; y < bucket.end; ++y)
                    meet({x, y, 0});
    }

private:
    void meet(const NearDuplicate& pair) {
        const auto one = images_.records[pair.first].source;
        const auto other = images_.records[pair.second].source;
        if (one != other && seen_.insert(pair.first, one, pair.second, other)) listener_(pair);
    }

    const PerceptualBuckets::Grouped& images_;
    const NearDuplicateListener& listener_;
    SeenPairs seen_;
};

}  // namespace

void findNearDuplicates(const PerceptualBuckets::Grouped& images, int threshold,
                        const NearDuplicateListener& listener) {
    Search search(images, listener);
    search.compareBuckets(threshold);
    search.compareWithinBuckets();
}

std::string nearDuplicatesReportText(const PerceptualBuckets::Grouped& images,
                                     const std::vector<NearDuplicate>& pairs) {
    std::string text = "file_a,file_b\n";
    for (const auto& pair : pairs) {
        text.append("\"").append(images.records[pair.first].source).append("\",\"");
        text.append(images.records[pair.second].source).append("\"\n");
    }
    return text;
}

}  // namespace vellomar
