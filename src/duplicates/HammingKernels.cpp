#include "duplicates/HammingKernels.h"

#include <bit>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace vellomar {
namespace {

// From `first` on, with `count` found before. Inlined into functions for different processors, each of which makes its
// own machine code of it. Nothing has to be predicted: every position is written, and only a find keeps it.
[[gnu::always_inline]] inline std::size_t compareFrom(std::size_t first, std::size_t count, std::uint64_t value,
                                                      std::span<const std::uint64_t> values, int threshold,
                                                      std::uint32_t* positions) {
    for (std::size_t i = first; i < values.size(); ++i) {
        positions[count] = static_cast<std::uint32_t>(i);
        count += std::popcount(value ^ values[i]) <= threshold ? 1U : 0U;
    }
    return count;
}

std::size_t compareAnywhere(std::uint64_t value, std::span<const std::uint64_t> values, int threshold,
                            std::uint32_t* positions) {
    return compareFrom(0, 0, value, values, threshold, positions);
}

#if defined(__x86_64__)

[[gnu::target("popcnt")]] std::size_t compareByPopcnt(std::uint64_t value, std::span<const std::uint64_t> values,
                                                      int threshold, std::uint32_t* positions) {
    return compareFrom(0, 0, value, values, threshold, positions);
}

constexpr std::size_t kLanes = 4;

// The bits of each of four words, counted by looking up every half byte in a table of sixteen.
[[gnu::target("avx2")]] inline __m256i bitsOfEach(__m256i words) {
    const auto table = _mm256_setr_epi8(0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4,  //
                                        0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4);
    const auto halfByte = _mm256_set1_epi8(0x0F);
    const auto low = _mm256_shuffle_epi8(table, _mm256_and_si256(words, halfByte));
    const auto high = _mm256_shuffle_epi8(table, _mm256_and_si256(_mm256_srli_epi16(words, 4), halfByte));
    return _mm256_sad_epu8(_mm256_add_epi8(low, high), _mm256_setzero_si256());
}

// Four values at a time. There are few finds, so that the branch on them costs nothing.
[[gnu::target("avx2,popcnt")]] std::size_t compareByAvx2(std::uint64_t value, std::span<const std::uint64_t> values,
                                                         int threshold, std::uint32_t* positions) {
    const auto same = _mm256_set1_epi64x(std::bit_cast<std::int64_t>(value));
    const auto limit = _mm256_set1_epi64x(threshold);
    std::size_t count = 0;
    std::size_t i = 0;
    for (; i + kLanes <= values.size(); i += kLanes) {
        const auto four = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(values.data() + i));
        const auto tooFar = _mm256_cmpgt_epi64(bitsOfEach(_mm256_xor_si256(four, same)), limit);
        auto near = ~static_cast<unsigned>(_mm256_movemask_pd(_mm256_castsi256_pd(tooFar))) & 0xFU;
        for (; near != 0; near &= near - 1)
            positions[count++] = static_cast<std::uint32_t>(i) + static_cast<std::uint32_t>(std::countr_zero(near));
    }
    return compareFrom(i, count, value, values, threshold, positions);
}

#endif

}  // namespace

std::vector<NamedHammingKernel> hammingKernels() {
    std::vector<NamedHammingKernel> kernels = {{"anywhere", &compareAnywhere}};
#if defined(__x86_64__)
    if (__builtin_cpu_supports("popcnt")) kernels.push_back({"popcnt", &compareByPopcnt});
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("popcnt")) kernels.push_back({"avx2", &compareByAvx2});
#endif
    return kernels;
}

HammingKernel fastestHammingKernel() {
    static const HammingKernel fastest = hammingKernels().back().kernel;
    return fastest;
}

}  // namespace vellomar
