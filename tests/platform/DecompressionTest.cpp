#include <gtest/gtest.h>

#include "platform/Decompression.h"

namespace vellomar {
namespace {

using namespace std::string_literals;

// "a place, a place" as zlib packs it at its best.
const std::string kPacked = "\x78\xda\x4b\x54\x28\xc8\x49\x4c\x4e\xd5\x51\x48\x84\x30\x00\x2c\x7c\x05\x59"s;
const std::string kContent = "a place, a place";

TEST(Decompression, GivesTheContent) {
    EXPECT_EQ(decompressed(kPacked, kContent.size()), kContent);
}

TEST(Decompression, AnEmptyContentIsOne) {
    EXPECT_EQ(decompressed("\x78\xda\x03\x00\x00\x00\x00\x01"s, 0), "");
}

TEST(Decompression, AnotherLengthIsRefused) {
    for (const std::size_t size :
         {std::size_t{0}, std::size_t{1}, kContent.size() - 1, kContent.size() + 1, kContent.size() + 1'000}) {
        SCOPED_TRACE(size);
        EXPECT_EQ(decompressed(kPacked, size), std::nullopt);
    }
}

TEST(Decompression, AStreamThatIsCutOffIsRefused) {
    for (std::size_t length = 0; length < kPacked.size(); ++length) {
        SCOPED_TRACE(length);
        EXPECT_EQ(decompressed(std::string_view(kPacked).substr(0, length), kContent.size()), std::nullopt);
    }
}

TEST(Decompression, WhatFollowsTheStreamIsRefused) {
    EXPECT_EQ(decompressed(kPacked + "x", kContent.size()), std::nullopt);
    EXPECT_EQ(decompressed(kPacked + '\0', kContent.size()), std::nullopt);
}

TEST(Decompression, AChangedByteIsRefused) {
    for (std::size_t i = 0; i < kPacked.size(); ++i) {
        SCOPED_TRACE(i);
        auto changed = kPacked;
        changed[i] = static_cast<char>(changed[i] ^ 0x14);
        EXPECT_EQ(decompressed(changed, kContent.size()), std::nullopt);
    }
}

}  // namespace
}  // namespace vellomar
