// How 64-bit values are cut into bands, so that two of them that are alike are found through an index. For the files of
// this folder and their tests.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vellomar {

// In each value, and so the largest distance of two.
inline constexpr int kValueBits = 64;

// Some neighbouring bits of every value, and in how many of them two values may differ to be compared at all.
struct Band {
    int shift = 0;   // bits below it
    int width = 0;   // from 1 to 16
    int radius = 0;  // bits

    [[nodiscard]] std::uint32_t of(std::uint64_t value) const {
        return static_cast<std::uint32_t>(value >> shift) & ((std::uint32_t{1} << width) - 1);
    }
};

// `count` bands such that two values that differ in at most `threshold` bits are within the radius of at least one of
// them. That is so when the radii, each and one more, add up to more than the threshold: were every radius exceeded,
// the values would differ in as many bits. From 1 to 64 bands, and no more than `threshold` plus one.
[[nodiscard]] std::vector<Band> bandsFor(int threshold, int count);

// All numbers of `width` bits of which at most `radius` are set, beginning with 0.
[[nodiscard]] std::vector<std::uint32_t> numbersWithFewBits(int width, int radius);

// The bands by which the pairs within `threshold`, from 0 to 64, are found in the least time. None if nothing is
// quicker than comparing all values with each other: there are few of them, or too many alike, or the threshold is too
// large. Goes by how the values at hand share the bands. Any thread.
[[nodiscard]] std::vector<Band> cheapestBands(std::span<const std::uint64_t> values, int threshold);

}  // namespace vellomar
