#pragma once

#include <cstddef>
#include <functional>
#include <span>

namespace vellomar {

// Offers the previews that a camera put into a file to `accept`, the largest first, until it takes one. A preview is a
// small file of its own, JPEG or TIFF; its bytes are valid during the call.
void offerPreviews(std::span<const std::byte> file, const std::function<bool(std::span<const std::byte>)>& accept);

}  // namespace vellomar
