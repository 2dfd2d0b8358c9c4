#pragma once

#include <optional>
#include <string>

#include "platform/FileSystem.h"
#include "platform/SharedMemory.h"
#include "platform/decoder/DecoderProcess.h"
#include "platform/decoder/GreyRaster.h"
#include "platform/decoder/ThumbnailRaster.h"

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

    // The first picture in an open file, upright, made so small, never larger, that its shorter side has `size` pixels;
    // of the longer side then only the `size` pixels in the middle stay. In sRGB, where the file tells what its colours
    // are; transparent parts are 1A1A1A. A RAW file shows the preview in it, the smallest that is large enough, and is
    // developed only when it has none; a HEIC file likewise its thumbnail, where that is large enough. Nothing if
    // `size` is not 1 to ThumbnailRaster::kMostSize, or the picture breaks off. It may take 10 seconds of computing and
    // 20 in all.
    [[nodiscard]] std::optional<ThumbnailRaster> makeThumbnail(InputFile& file, int size);

private:
    DecoderProcess process_;
};

}  // namespace vellomar
