#pragma once

#include <optional>
#include <string>

#include "platform/FileSystem.h"
#include "platform/SharedMemory.h"
#include "platform/decoder/DecoderProcess.h"
#include "platform/decoder/GreyRaster.h"

namespace vellomar {

// Decodes pictures, in a process of its own; see DecoderProcess. A picture may take 60 seconds of computing, in all
// threads together, and 120 seconds in all, and have 500 megapixels. Nothing where it takes more, cannot be decoded, or
// makes the decoder die. One thread at a time; nothing throws. Each call blocks until its picture is done.
class PixelDecoder {
public:
    // `program` is the path of "vellomar-pixel-decoder".
    explicit PixelDecoder(std::string program);

    // The first picture in an open file, decoded at its full size, reduced to a raster in which each pixel is the mean
    // of all that lies below it. As the pixels are stored: no orientation is honoured. Transparent parts are black. A
    // RAW file has the picture developed from its own pixels or, where that fails, the preview in it. The same file
    // gives the same raster on every machine.
    [[nodiscard]] std::optional<GreyRaster> readGreyRaster(InputFile& file);

    // The first picture in an open HEIC or AVIF file as a JPEG file of quality 92: upright, with the colour profile,
    // without any other metadata; transparent parts are white.
    [[nodiscard]] std::optional<SharedMemory> convertToJpeg(InputFile& file);

private:
    DecoderProcess process_;
};

}  // namespace vellomar
