#include <array>
#include <bit>
#include <random>
#include <set>

#include <gmock/gmock.h>

#include "duplicates/NearDuplicates.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Image {
    std::uint64_t hash = 0;
    std::string source;
};

// Views of the paths of `images`.
PerceptualBuckets bucketsOf(const std::vector<Image>& images) {
    PerceptualBuckets buckets;
    for (const auto& image : images)
        buckets.append(image.hash, image.source, "/dest");
    return buckets;
}

std::string text(int distance, std::string_view first, std::string_view second) {
    return std::to_string(distance).append(": ").append(first).append(" ~ ").append(second);
}

// "distance: first ~ second" in the order of discovery.
std::vector<std::string> found(const std::vector<Image>& images, int threshold) {
    std::vector<std::string> texts;
    const auto grouped = bucketsOf(images).grouped();
    findNearDuplicates(grouped, threshold, [&](const NearDuplicate& pair) {
        texts.push_back(text(pair.distance, grouped.records[pair.first].source, grouped.records[pair.second].source));
    });
    return texts;
}

// The same with every pair remembered, whatever its paths.
std::vector<std::string> foundPlainly(const std::vector<Image>& images, int threshold) {
    std::vector<std::string> texts;
    std::set<std::string> seen;
    const auto grouped = bucketsOf(images).grouped();
    const auto& records = grouped.records;
    const auto meet = [&](std::uint32_t x, std::uint32_t y, int distance) {
        if (records[x].source == records[y].source) return;
        const std::string one(records[x].source);
        const std::string other(records[y].source);
        if (!seen.insert(std::min(one, other) + "|" + std::max(one, other)).second) return;
        texts.push_back(text(distance, one, other));
    };
    const auto& buckets = grouped.buckets;
    for (std::size_t i = 0; i < buckets.size(); ++i)
        for (std::size_t j = i + 1; j < buckets.size(); ++j)
            if (const int distance = std::popcount(buckets[i].hash ^ buckets[j].hash); distance <= threshold)
                for (auto x = buckets[i].begin; x < buckets[i].end; ++x)
                    for (auto y = buckets[j].begin; y < buckets[j].end; ++y)
                        meet(x, y, distance);
    for (const auto& bucket : buckets)
        for (auto x = bucket.begin; x < bucket.end; ++x)
            for (auto y = x + 1; y < bucket.end; ++y)
                meet(x, y, 0);
    return texts;
}

TEST(NearDuplicates, OneHashMakesPairsAtDistanceZero) {
    EXPECT_THAT(found({{5, "/a"}, {5, "/b"}, {5, "/c"}}, 4), ElementsAre("0: /a ~ /b", "0: /a ~ /c", "0: /b ~ /c"));
}

TEST(NearDuplicates, OneImageMakesNoPair) {
    EXPECT_THAT(found({}, 64), IsEmpty());
    EXPECT_THAT(found({{5, "/a"}}, 64), IsEmpty());
}

TEST(NearDuplicates, AThresholdIncludesItself) {
    const std::vector<Image> images = {{0, "/a"}, {0b111, "/b"}};
    EXPECT_THAT(found(images, 2), IsEmpty());
    EXPECT_THAT(found(images, 3), ElementsAre("3: /a ~ /b"));
}

TEST(NearDuplicates, AThresholdOfZeroOrLessLeavesTheEqualHashes) {
    const std::vector<Image> images = {{0, "/a"}, {1, "/b"}, {0, "/c"}};
    EXPECT_THAT(found(images, 0), ElementsAre("0: /a ~ /c"));
    EXPECT_THAT(found(images, -1), ElementsAre("0: /a ~ /c"));
}

TEST(NearDuplicates, DifferentHashesComeFirstEachBucketWithEachThenTheEqualOnes) {
    EXPECT_THAT(found({{7, "/a"}, {6, "/b"}, {7, "/c"}, {6, "/d"}, {4, "/e"}}, 1),
                ElementsAre("1: /a ~ /b", "1: /a ~ /d", "1: /c ~ /b", "1: /c ~ /d",  //
                            "1: /b ~ /e", "1: /d ~ /e",                              //
                            "0: /a ~ /c", "0: /b ~ /d"));
}

TEST(NearDuplicates, APathDoesNotPairWithItself) {
    EXPECT_THAT(found({{7, "/a"}, {6, "/a"}, {7, "/a"}}, 4), IsEmpty());
}

TEST(NearDuplicates, APathThatComesTwicePairsOnce) {
    EXPECT_THAT(found({{7, "/b"}, {6, "/a"}, {7, "/b"}, {6, "/a"}}, 4), ElementsAre("1: /b ~ /a"));
    EXPECT_THAT(found({{7, "/a"}, {7, "/b"}, {7, "/a"}}, 4), ElementsAre("0: /a ~ /b"));
}

TEST(NearDuplicates, WhatCameAtADistanceDoesNotComeAgainAtZero) {
    EXPECT_THAT(found({{7, "/a"}, {6, "/b"}, {7, "/b"}}, 4), ElementsAre("1: /a ~ /b"));
}

// "/a|/b" with "/c" makes the same text as "/a" with "/b|/c".
TEST(NearDuplicates, PathsWithABarCanStandForEachOther) {
    EXPECT_THAT(found({{7, "/a|/b"}, {7, "/c"}, {8, "/a"}, {8, "/b|/c"}}, 0), ElementsAre("0: /a|/b ~ /c"));
    EXPECT_THAT(found({{7, "/a|/b"}, {7, "/x"}, {8, "/a"}, {8, "/b|/c"}}, 0),
                ElementsAre("0: /a|/b ~ /x", "0: /a ~ /b|/c"));
}

TEST(NearDuplicates, LeaveOutWhatAMemoryOfAllPairsWouldLeaveOut) {
    constexpr std::array kPaths = {"/a", "/a|/b", "/b", "/b|/c", "/c", "/a|/b|/c", "/d", "/e", "/\xFF|", "/|", "/"};
    std::mt19937 random(1);
    std::size_t pairsEver = 0;
    std::size_t leftOutEver = 0;
    for (int round = 0; round < 300; ++round) {
        std::vector<Image> images;
        for (auto count = 2 + random() % 12; count > 0; --count)
            images.push_back({random() % 5, kPaths[random() % kPaths.size()]});
        SCOPED_TRACE(::testing::PrintToString(round));
        const auto expected = foundPlainly(images, 1);
        EXPECT_EQ(found(images, 1), expected);
        pairsEver += expected.size();
        leftOutEver += images.size() * (images.size() - 1) / 2 - expected.size();
    }
    EXPECT_GT(pairsEver, 1'000);
    EXPECT_GT(leftOutEver, 1'000);
}

TEST(NearDuplicates, TheReportEscapesNothing) {
    const std::vector<Image> images = {{1, "/s/\"a\", b.jpg"}, {1, "/s/c\nd\xFF.jpg"}, {1, "/s/e.jpg"}};
    const auto grouped = bucketsOf(images).grouped();
    EXPECT_EQ(nearDuplicatesReportText(grouped, {{0, 1, 0}, {2, 0, 0}}),
              "file_a,file_b\n"
              "\"/s/\"a\", b.jpg\",\"/s/c\nd\xFF.jpg\"\n"
              "\"/s/e.jpg\",\"/s/\"a\", b.jpg\"\n");
    EXPECT_EQ(nearDuplicatesReportText(grouped, {}), "file_a,file_b\n");
    EXPECT_STREQ(kNearDuplicatesReportName, "_near_duplicates_report.csv");
}

}  // namespace
}  // namespace vellomar
