// The parts of a TIFF file, most significant byte first, for files that no program would write.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/BigEndian.h"

namespace vellomar::testing {

enum class TiffType : std::uint32_t { byte = 1, text = 2, word = 3, number = 4, fraction = 5, signedFraction = 10 };

// What stands in front of the first directory.
inline std::string tiffHeader() {
    return std::string("MM\0*", 4) + bigEndian(8);
}
inline constexpr std::uint32_t kTiffHeaderLength = 8;

// A number of two bytes.
inline std::string bigEndianWord(std::uint32_t number) {
    return bigEndian(number).substr(2);
}

// An entry of a directory, whose last four bytes are `value`: what it holds, or where that stands in the file.
inline std::string tiffEntry(std::uint32_t tag, TiffType type, std::uint32_t count, std::string value) {
    value.resize(4);
    return bigEndianWord(tag) + bigEndianWord(static_cast<std::uint32_t>(type)) + bigEndian(count) + value;
}

inline std::string tiffNumber(std::uint32_t tag, std::uint32_t value) {
    return tiffEntry(tag, TiffType::number, 1, bigEndian(value));
}

inline std::string tiffWord(std::uint32_t tag, std::uint32_t value) {
    return tiffEntry(tag, TiffType::word, 1, bigEndianWord(value));
}

// Of up to three letters.
inline std::string tiffText(std::uint32_t tag, const std::string& value) {
    return tiffEntry(tag, TiffType::text, 4, value);
}

// A directory of entries, which must be in the order of their tags; then the next directory stands at `next`.
inline std::string tiffDirectory(const std::vector<std::string>& entries, std::uint32_t next = 0) {
    std::string bytes = bigEndianWord(static_cast<std::uint32_t>(entries.size()));
    for (const auto& entry : entries)
        bytes += entry;
    return bytes + bigEndian(next);
}

// How long a directory of so many entries is.
inline std::uint32_t tiffDirectoryLength(std::size_t entries) {
    return static_cast<std::uint32_t>(2 + 12 * entries + 4);
}

}  // namespace vellomar::testing
