// The image library's objects, owned.
#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include <vips/vips.h>

namespace vellomar {

struct ReleaseObject {
    void operator()(void* object) const { g_object_unref(object); }
};
using VipsImageOwner = std::unique_ptr<VipsImage, ReleaseObject>;
using VipsSourceOwner = std::unique_ptr<VipsSource, ReleaseObject>;

// The image that an operation of the library makes, called as `operation(VipsImage**)`; null if it fails.
template <typename Operation>
[[nodiscard]] VipsImageOwner imageFrom(Operation operation) {
    VipsImage* image = nullptr;
    if (operation(&image) == 0) return VipsImageOwner(image);
    vips_error_clear();
    return nullptr;
}

// The bytes as something that a loader of the library reads from; they must outlive it and all images from it.
[[nodiscard]] VipsSourceOwner sourceOver(std::span<const std::byte> bytes);

// Whether the image is small enough to be decoded at all.
[[nodiscard]] bool hasDecodableSize(const VipsImage* image);

}  // namespace vellomar
