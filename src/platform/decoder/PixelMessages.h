// The decoder's answers to requests for pixels, as the bytes of messages.
#pragma once

#include <optional>

#include "platform/decoder/GreyRaster.h"
#include "platform/decoder/SocketMessages.h"

namespace vellomar {

[[nodiscard]] MessageBytes rasterAnswer(const GreyRaster& raster);

// Nothing for bytes that are no such answer.
[[nodiscard]] std::optional<GreyRaster> rasterFromAnswer(const MessageBytes& bytes);

// Says that the picture stands in what came with the request to be written to.
[[nodiscard]] const MessageBytes& pictureWrittenAnswer();

}  // namespace vellomar
