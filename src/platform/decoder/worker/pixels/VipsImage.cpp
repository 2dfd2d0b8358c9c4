#include "platform/decoder/worker/pixels/VipsImage.h"

#include "platform/decoder/worker/pixels/AreaAverage.h"

namespace vellomar {

VipsSourceOwner sourceOver(std::span<const std::byte> bytes) {
    return VipsSourceOwner(vips_source_new_from_memory(bytes.data(), bytes.size()));
}

bool hasDecodableSize(const VipsImage* image) {
    return isDecodableSize(static_cast<std::uint64_t>(vips_image_get_width(image)),
                           static_cast<std::uint64_t>(vips_image_get_height(image)));
}

}  // namespace vellomar
