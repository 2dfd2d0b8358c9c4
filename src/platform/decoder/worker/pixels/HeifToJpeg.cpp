#include "platform/decoder/worker/pixels/HeifToJpeg.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/decoder/worker/HeifFile.h"
#include "platform/decoder/worker/pixels/PictureOutput.h"
#include "platform/decoder/worker/pixels/VipsImage.h"

namespace vellomar {
namespace {

using Bytes = std::span<const std::byte>;

constexpr int kQuality = 92;
constexpr std::size_t kStartOfImageLength = 2;

// Turned upright, as the file tells.
VipsImageOwner load(VipsSource* source) {
    return imageFrom([&](VipsImage** image) {
        return vips_heifload_source(source, image, "access", VIPS_ACCESS_SEQUENTIAL, nullptr);
    });
}

// Of more than 8 bits the upper ones stay.
VipsImageOwner withEightBits(VipsImageOwner image) {
    if (!image || vips_image_get_format(image.get()) == VIPS_FORMAT_UCHAR) return image;
    const bool isGrey = vips_image_get_bands(image.get()) < 3;
    return imageFrom([&](VipsImage** converted) {
        return vips_colourspace(image.get(), converted, isGrey ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB,
                                nullptr);
    });
}

struct UnrefArea {
    void operator()(VipsArrayDouble* array) const { vips_area_unref(&array->area); }
};

// A JPEG file has no transparency; like paper, it is white where nothing is.
VipsImageOwner overWhite(VipsImageOwner image) {
    if (!image || vips_image_hasalpha(image.get()) == 0) return image;
    const std::unique_ptr<VipsArrayDouble, UnrefArea> white(vips_array_double_newv(1, 255.0));
    return imageFrom(
        [&](VipsImage** flat) { return vips_flatten(image.get(), flat, "background", white.get(), nullptr); });
}

struct FreeMemory {
    void operator()(void* memory) const { g_free(memory); }
};

struct JpegFile {
    std::unique_ptr<void, FreeMemory> memory;
    std::size_t size = 0;

    [[nodiscard]] Bytes bytes() const { return {static_cast<const std::byte*>(memory.get()), size}; }
};

// The library leaves out the whole metadata, and with them the colour profile and the mark of a JFIF file.
JpegFile encode(VipsImage* image) {
    void* memory = nullptr;
    std::size_t size = 0;
    constexpr gboolean kYes = TRUE;
    if (vips_jpegsave_buffer(image, &memory, &size, "Q", kQuality, "strip", kYes, nullptr) != 0) return {};
    return {std::unique_ptr<void, FreeMemory>(memory), size};
}

Bytes profileOf(const VipsImage* image) {
    const void* profile = nullptr;
    std::size_t size = 0;
    if (vips_image_get_typeof(image, VIPS_META_ICC_NAME) == 0 ||
        vips_image_get_blob(image, VIPS_META_ICC_NAME, &profile, &size) != 0)
        return {};
    return {static_cast<const std::byte*>(profile), size};
}

void append(std::vector<std::byte>& bytes, std::size_t number) {
    bytes.push_back(static_cast<std::byte>(number));
}

// The colour profile in the segments that a JPEG file has for it, each with its number and how many there are. None for
// a profile that is too long for that.
std::vector<std::byte> segmentsOf(Bytes profile) {
    constexpr std::string_view kIdentifier("ICC_PROFILE\0", 12);
    constexpr std::size_t kMostInSegment = 65'535 - 2 - kIdentifier.size() - 2;
    constexpr std::size_t kMostSegments = 255;
    const auto count = (profile.size() + kMostInSegment - 1) / kMostInSegment;
    std::vector<std::byte> segments;
    if (count > kMostSegments) return segments;
    for (std::size_t number = 1; number <= count; ++number) {
        const auto part = profile.first(std::min(profile.size(), kMostInSegment));
        profile = profile.subspan(part.size());
        const auto length = 2 + kIdentifier.size() + 2 + part.size();
        append(segments, 0xff);
        append(segments, 0xe2);
        append(segments, length >> 8U);
        append(segments, length & 0xffU);
        for (const char letter : kIdentifier)
            append(segments, static_cast<std::uint8_t>(letter));
        append(segments, number);
        append(segments, count);
        segments.insert(segments.end(), part.begin(), part.end());
    }
    return segments;
}

// What begins a file of the usual kind: start of image, then that it is JFIF, version 1.02, without a density.
constexpr std::array<std::uint8_t, 20> kBeginning = {0xff, 0xd8, 0xff, 0xe0, 0, 16, 'J', 'F', 'I', 'F',
                                                     0,    1,    2,    0,    0, 1,  0,   1,   0,   0};

}  // namespace

bool writeJpegOfHeif(std::span<const std::byte> file, int output) {
    if (!isHeif(file)) return false;
    const auto source = sourceOver(file);
    auto image = load(source.get());
    if (!image || !hasDecodableSize(image.get())) return false;
    image = overWhite(withEightBits(std::move(image)));
    if (!image) return false;
    const auto jpeg = encode(image.get());
    vips_error_clear();
    if (jpeg.size < kStartOfImageLength) return false;
    return writeAll(output, std::as_bytes(std::span(kBeginning))) &&
           writeAll(output, segmentsOf(profileOf(image.get()))) &&
           writeAll(output, jpeg.bytes().subspan(kStartOfImageLength));
}

}  // namespace vellomar
