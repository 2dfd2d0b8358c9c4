#include "platform/decoder/worker/metadata/HeifExif.h"

#include <algorithm>
#include <cstdint>

#include <libheif/heif.h>

#include "platform/decoder/worker/HeifFile.h"

namespace vellomar {
namespace {

constexpr std::size_t kOffsetLength = 4;
constexpr std::size_t kMostBytesOfExif = 16U << 20U;

std::vector<std::byte> firstExifOf(const heif_image_handle* image) {
    heif_item_id id = 0;
    if (heif_image_handle_get_list_of_metadata_block_IDs(image, "Exif", &id, 1) != 1) return {};
    const auto size = heif_image_handle_get_metadata_size(image, id);
    if (size > kMostBytesOfExif) return {};
    std::vector<std::byte> block(size);
    if (!succeeded(heif_image_handle_get_metadata(image, id, block.data()))) return {};
    return block;
}

// The block begins with four bytes, most significant first: how many more to skip.
std::vector<std::byte> fromByteOrderMark(std::vector<std::byte> block) {
    if (block.size() < kOffsetLength) return {};
    std::uint32_t offset = 0;
    for (std::size_t i = 0; i < kOffsetLength; ++i)
        offset = offset << 8U | std::to_integer<std::uint32_t>(block[i]);
    const auto start = kOffsetLength + std::size_t{offset};
    if (start >= block.size()) return {};
    block.erase(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(start));
    return block;
}

}  // namespace

std::vector<std::byte> exifBlockOfHeif(std::span<const std::byte> file) {
    const HeifFile heif(file);
    if (heif.firstImage() == nullptr) return {};
    return fromByteOrderMark(firstExifOf(heif.firstImage()));
}

}  // namespace vellomar
