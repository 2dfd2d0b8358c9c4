#include "platform/decoder/worker/HeifFile.h"

#include <cstdint>

namespace vellomar {
namespace {

constexpr std::size_t kEnoughToTellTheType = 12;

heif_image_handle* primaryImage(heif_context* context, std::span<const std::byte> file) {
    heif_image_handle* handle = nullptr;
    if (!succeeded(heif_context_read_from_memory_without_copy(context, file.data(), file.size(), nullptr)))
        return nullptr;
    return succeeded(heif_context_get_primary_image_handle(context, &handle)) ? handle : nullptr;
}

}  // namespace

bool isHeif(std::span<const std::byte> file) {
    if (file.size() < kEnoughToTellTheType) return false;
    const auto* start = reinterpret_cast<const std::uint8_t*>(file.data());
    return heif_check_filetype(start, static_cast<int>(kEnoughToTellTheType)) != heif_filetype_no;
}

HeifFile::HeifFile(std::span<const std::byte> file)
    : context_(heif_context_alloc(), heif_context_free),
      image_(primaryImage(context_.get(), file), heif_image_handle_release) {}

}  // namespace vellomar
