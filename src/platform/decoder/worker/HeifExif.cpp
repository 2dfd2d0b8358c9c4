#include "platform/decoder/worker/HeifExif.h"

#include <algorithm>
#include <cstdint>
#include <memory>

#include <libheif/heif.h>

namespace vellomar {
namespace {

constexpr std::size_t kEnoughToTellTheType = 12;
constexpr std::size_t kOffsetLength = 4;
constexpr std::size_t kMostBytesOfExif = 16U << 20U;

using Context = std::unique_ptr<heif_context, decltype(&heif_context_free)>;
using ImageHandle = std::unique_ptr<heif_image_handle, decltype(&heif_image_handle_release)>;

bool succeeded(const heif_error& error) {
    return error.code == heif_error_Ok;
}

ImageHandle primaryImage(heif_context* context) {
    heif_image_handle* handle = nullptr;
    if (!succeeded(heif_context_get_primary_image_handle(context, &handle))) handle = nullptr;
    return {handle, heif_image_handle_release};
}

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

bool isHeif(std::span<const std::byte> file) {
    if (file.size() < kEnoughToTellTheType) return false;
    const auto* start = reinterpret_cast<const std::uint8_t*>(file.data());
    return heif_check_filetype(start, static_cast<int>(kEnoughToTellTheType)) != heif_filetype_no;
}

std::vector<std::byte> exifBlockOfHeif(std::span<const std::byte> file) {
    const Context context(heif_context_alloc(), heif_context_free);
    const auto read = heif_context_read_from_memory_without_copy(context.get(), file.data(), file.size(), nullptr);
    if (!succeeded(read)) return {};
    const auto image = primaryImage(context.get());
    if (!image) return {};
    return fromByteOrderMark(firstExifOf(image.get()));
}

}  // namespace vellomar
