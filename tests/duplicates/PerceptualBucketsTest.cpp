#include <gmock/gmock.h>

#include "duplicates/PerceptualBuckets.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// "hash: source>destination ..." of each bucket.
std::vector<std::string> texts(const PerceptualBuckets& buckets) {
    std::vector<std::string> result;
    const auto grouped = buckets.grouped();
    for (const auto& bucket : grouped.buckets) {
        auto text = std::to_string(bucket.hash) + ":";
        for (auto i = bucket.begin; i < bucket.end; ++i)
            text.append(" ").append(grouped.records[i].source).append(">").append(grouped.records[i].destination);
        result.push_back(text);
    }
    return result;
}

TEST(PerceptualBuckets, AreEmptyUntilAnImageIsAdded) {
    PerceptualBuckets buckets;
    EXPECT_TRUE(buckets.empty());
    EXPECT_THAT(texts(buckets), IsEmpty());
    buckets.append(0, "/s/a", "/d/a");
    EXPECT_FALSE(buckets.empty());
}

TEST(PerceptualBuckets, KeepTheOrderOfTheHashesAndOfTheRecords) {
    PerceptualBuckets buckets;
    buckets.append(9, "/s/a", "/d/a");
    buckets.append(3, "/s/b", "/d/b");
    buckets.append(9, "/s/c", "/d/c");
    buckets.append(~std::uint64_t{0}, "/s/d", "/d/d");
    buckets.append(3, "/s/b", "/d/e");
    buckets.append(9, "/s/a", "/d/a");
    EXPECT_THAT(texts(buckets), ElementsAre("9: /s/a>/d/a /s/c>/d/c /s/a>/d/a", "3: /s/b>/d/b /s/b>/d/e",
                                            "18446744073709551615: /s/d>/d/d"));
}

TEST(PerceptualBuckets, ZeroIsAHashLikeAnyOther) {
    PerceptualBuckets buckets;
    buckets.append(1, "/s/a", "/d/a");
    buckets.append(0, "/s/b", "/d/b");
    buckets.append(0, "/s/c", "/d/c");
    EXPECT_THAT(texts(buckets), ElementsAre("1: /s/a>/d/a", "0: /s/b>/d/b /s/c>/d/c"));
}

}  // namespace
}  // namespace vellomar
