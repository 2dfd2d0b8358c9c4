#include "platform/decoder/worker/pixels/VipsImage.h"

namespace vellomar {

VipsSourceOwner sourceOver(std::span<const std::byte> bytes) {
    return VipsSourceOwner(vips_source_new_from_memory(bytes.data(), bytes.size()));
}

}  // namespace vellomar
