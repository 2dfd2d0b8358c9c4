#include <gtest/gtest.h>

#include "engine/SizeCensus.h"

namespace vellomar {
namespace {

TaggedFile file(std::optional<std::int64_t> size) {
    return {"/s/file", nullptr, size};
}

TEST(SizeCensus, OnlyASizeThatRepeatsMayHaveADuplicate) {
    const SizeCensus census({file(3), file(7), file(3), file(0), file(9), file(9), file(9), file(0)});
    for (const std::int64_t size : {0, 3, 9})
        EXPECT_TRUE(census.mayHaveDuplicate(file(size))) << size;
    for (const std::int64_t size : {7, 8, 1})
        EXPECT_FALSE(census.mayHaveDuplicate(file(size))) << size;
}

TEST(SizeCensus, AnUnknownSizeMayEqualEveryOther) {
    const SizeCensus census({file(3), file(std::nullopt)});
    EXPECT_TRUE(census.mayHaveDuplicate(file(3)));
    EXPECT_TRUE(census.mayHaveDuplicate(file(std::nullopt)));
}

TEST(SizeCensus, AFileOfUnknownSizeIsNeverRuledOut) {
    EXPECT_TRUE(SizeCensus({file(3)}).mayHaveDuplicate(file(std::nullopt)));
}

TEST(SizeCensus, ALonelyFileHasNoDuplicate) {
    EXPECT_FALSE(SizeCensus({file(3)}).mayHaveDuplicate(file(3)));
    EXPECT_FALSE(SizeCensus({}).mayHaveDuplicate(file(3)));
}

}  // namespace
}  // namespace vellomar
