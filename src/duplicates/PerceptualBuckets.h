#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace vellomar {

// The images of a run by their perceptual hash. As a map its keys have an order of their own, which is that in which
// they were first added, so that the same run always tells of the same pairs in the same order.
class PerceptualBuckets {
public:
    // Views of paths that the run keeps for as long as the buckets live.
    struct Record {
        std::string_view source;
        std::string_view destination;  // the final one
    };

    void append(std::uint64_t hash, std::string_view source, std::string_view destination) {
        entries_.push_back({hash, {source, destination}});
    }

    [[nodiscard]] bool empty() const { return entries_.empty(); }

    // The records of one hash, in the order in which they were added: positions among all records.
    struct Bucket {
        std::uint64_t hash = 0;
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
    };

    // All records, bucket after bucket.
    struct Grouped {
        std::vector<Record> records;
        std::vector<Bucket> buckets;
    };
    [[nodiscard]] Grouped grouped() const;

private:
    struct Entry {
        std::uint64_t hash = 0;
        Record record;
    };

    // As they came. There may be hundreds of thousands, each with a hash of its own: a list of vectors would take three
    // times the memory.
    std::vector<Entry> entries_;
};

}  // namespace vellomar
