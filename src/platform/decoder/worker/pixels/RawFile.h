// A RAW file as the library reads it, and what that makes of it.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <memory>
#include <span>

#include <libraw/libraw.h>

namespace vellomar {

struct FreeRawImage {
    void operator()(libraw_processed_image_t* image) const { LibRaw::dcraw_clear_mem(image); }
};
using ProcessedImage = std::unique_ptr<libraw_processed_image_t, FreeRawImage>;

// The file as the library reads it. The library takes what lies beyond the end of a file that breaks off for zeros, and
// would make a black picture of them without a word.
class RawBytes : public LibRaw_buffer_datastream {
public:
    // The library reads what it is given and never writes to it, though it does not say so.
    explicit RawBytes(std::span<const std::byte> file)
        : LibRaw_buffer_datastream(std::bit_cast<void*>(file.data()), file.size()) {}

    int read(void* buffer, std::size_t size, std::size_t count) override {
        const int got = LibRaw_buffer_datastream::read(buffer, size, count);
        const auto bytes = static_cast<std::size_t>(std::max(got, 0)) * size;
        missing_ += size * count - std::min(bytes, size * count);
        return got;
    }

    int get_char() override {
        const int character = LibRaw_buffer_datastream::get_char();
        if (character < 0) ++missing_;
        return character;
    }

    // Readers of packed bits look ahead a little, also at the end of a good file.
    [[nodiscard]] bool wereCutShort() const {
        constexpr std::size_t kLookAhead = 4096;
        return missing_ > kLookAhead;
    }

private:
    std::size_t missing_ = 0;
};

// Reads the samples of the sensor. False if the picture is too large to be decoded, or not all of it is there.
[[nodiscard]] bool unpackAllPixels(LibRaw& raw, const RawBytes& bytes);

}  // namespace vellomar
