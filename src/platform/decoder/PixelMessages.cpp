#include "platform/decoder/PixelMessages.h"

#include <algorithm>

namespace vellomar {
namespace {

constexpr std::uint8_t kThumbnail = '#';
constexpr std::size_t kSamplesOfPixel = 3;

// A number in two bytes, the more significant one first.
void append(MessageBytes& bytes, int number) {
    bytes.push_back(static_cast<std::uint8_t>(static_cast<unsigned>(number) >> 8U));
    bytes.push_back(static_cast<std::uint8_t>(static_cast<unsigned>(number) & 0xffU));
}

int numberAt(const MessageBytes& bytes, std::size_t position) {
    return bytes[position] << 8U | bytes[position + 1];
}

std::uint32_t opaque(std::span<const std::byte> samples) {
    std::uint32_t pixel = 0xff;
    for (const auto sample : samples)
        pixel = pixel << 8U | std::to_integer<std::uint32_t>(sample);
    return pixel;
}

}  // namespace

MessageBytes rasterAnswer(const GreyRaster& raster) {
    return {raster.pixels.begin(), raster.pixels.end()};
}

std::optional<GreyRaster> rasterFromAnswer(const MessageBytes& bytes) {
    GreyRaster raster;
    if (bytes.size() != raster.pixels.size()) return std::nullopt;
    std::ranges::copy(bytes, raster.pixels.begin());
    return raster;
}

const MessageBytes& pictureWrittenAnswer() {
    static const MessageBytes answer{'+'};
    return answer;
}

MessageBytes thumbnailAnswer(int width, int height) {
    MessageBytes answer{kThumbnail};
    append(answer, width);
    append(answer, height);
    return answer;
}

std::optional<ThumbnailRaster> thumbnailFromAnswer(const MessageBytes& bytes, std::span<const std::byte> samples,
                                                   int size) {
    constexpr std::size_t kLength = 5;
    if (bytes.size() != kLength || bytes[0] != kThumbnail) return std::nullopt;
    ThumbnailRaster raster{.width = numberAt(bytes, 1), .height = numberAt(bytes, 3), .pixels = {}};
    const bool hasGoodSize = raster.width > 0 && raster.height > 0 && raster.width <= size && raster.height <= size;
    const auto count = static_cast<std::size_t>(raster.width) * static_cast<std::size_t>(raster.height);
    if (!hasGoodSize || samples.size() != count * kSamplesOfPixel) return std::nullopt;
    raster.pixels.resize(count);
    for (std::size_t i = 0; i < count; ++i)
        raster.pixels[i] = opaque(samples.subspan(i * kSamplesOfPixel, kSamplesOfPixel));
    return raster;
}

}  // namespace vellomar
