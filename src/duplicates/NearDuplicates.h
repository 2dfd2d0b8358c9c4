#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "duplicates/PerceptualBuckets.h"

namespace vellomar {

inline constexpr const char* kNearDuplicatesReportName = "_near_duplicates_report.csv";

// Two images that look alike: positions of their records.
struct NearDuplicate {
    std::uint32_t first = 0;
    std::uint32_t second = 0;
    int distance = 0;  // bits in which their hashes differ
};

using NearDuplicateListener = std::function<void(const NearDuplicate&)>;

// Tells `listener` of every two images whose hashes differ in at most `threshold` bits: first those with different
// hashes, in the order of the buckets, then those with one hash, which the threshold, even a negative one, does not
// exclude. Pairs of one source path with itself are left out, and so are those whose paths, sorted and joined by "|",
// make a text that was met before: a source that was walked twice pairs with another but once. On the caller's thread.
void findNearDuplicates(const PerceptualBuckets::Grouped& images, int threshold, const NearDuplicateListener& listener);

// The source paths of each pair on a line below a header line, between double quotes and with no escaping at all.
[[nodiscard]] std::string nearDuplicatesReportText(const PerceptualBuckets::Grouped& images,
                                                   const std::vector<NearDuplicate>& pairs);

}  // namespace vellomar
