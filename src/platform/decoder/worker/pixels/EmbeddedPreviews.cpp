#include "platform/decoder/worker/pixels/EmbeddedPreviews.h"

#include <algorithm>
#include <exception>

#include <exiv2/exiv2.hpp>

#include "platform/decoder/worker/OpenImage.h"

namespace vellomar {
namespace {

bool offer(const Exiv2::PreviewImage& preview, const std::function<bool(std::span<const std::byte>)>& accept) {
    return accept(std::as_bytes(std::span(preview.pData(), preview.size())));
}

}  // namespace

void offerPreviews(std::span<const std::byte> file, const std::function<bool(std::span<const std::byte>)>& accept) {
    try {
        const auto image = openImage(file);
        if (!image) return;
        const Exiv2::PreviewManager manager(*image);
        auto properties = manager.getPreviewProperties();  // the smallest first
        std::ranges::reverse(properties);
        for (const auto& one : properties)
            if (offer(manager.getPreviewImage(one), accept)) return;
    } catch (const std::exception&) {
        return;
    }
}

}  // namespace vellomar
