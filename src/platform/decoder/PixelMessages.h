// The decoder's answers to requests for pixels, as the bytes of messages.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "platform/decoder/GreyRaster.h"
#include "platform/decoder/SocketMessages.h"
#include "platform/decoder/ThumbnailRaster.h"

namespace vellomar {

[[nodiscard]] MessageBytes rasterAnswer(const GreyRaster& raster);

// Nothing for bytes that are no such answer.
[[nodiscard]] std::optional<GreyRaster> rasterFromAnswer(const MessageBytes& bytes);

// Says that the picture stands in what came with the request to be written to.
[[nodiscard]] const MessageBytes& pictureWrittenAnswer();

// Says likewise that a thumbnail of that many pixels stands there, as bytes of red, green and blue.
[[nodiscard]] MessageBytes thumbnailAnswer(int width, int height);

// The thumbnail that was answered with, and that `samples` hold. Nothing for bytes that are no such answer, for an
// empty thumbnail and one that is wider or higher than `size`, and for too few or too many samples.
[[nodiscard]] std::optional<ThumbnailRaster> thumbnailFromAnswer(const MessageBytes& bytes,
                                                                 std::span<const std::byte> samples, int size);

}  // namespace vellomar
