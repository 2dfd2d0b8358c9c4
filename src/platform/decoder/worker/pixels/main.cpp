// Decodes pictures for the application, one after the other. See platform/decoder/PixelDecoder.h.

#include "platform/decoder/PixelMessages.h"
#include "platform/decoder/worker/DecoderMain.h"
#include "platform/decoder/worker/OpenImage.h"
#include "platform/decoder/worker/pixels/GreyRasterReader.h"
#include "platform/decoder/worker/pixels/HeifToJpeg.h"
#include "platform/decoder/worker/pixels/PictureOutput.h"
#include "platform/decoder/worker/pixels/PixelLibraries.h"
#include "platform/decoder/worker/pixels/ThumbnailReader.h"

namespace vellomar {
namespace {

constexpr std::size_t kMostMemory = std::size_t{2} << 30U;
constexpr std::chrono::seconds kMostComputing{60};
constexpr std::chrono::seconds kMostComputingOfThumbnail{10};

MessageBytes greyRaster(const RequestedFile& file) {
    const auto raster = readGreyRaster(file.content);
    return raster ? rasterAnswer(*raster) : noValueAnswer();
}

MessageBytes jpeg(const RequestedFile& file) {
    return writeJpegOfHeif(file.content, file.output) ? pictureWrittenAnswer() : noValueAnswer();
}

MessageBytes thumbnail(const RequestedFile& file) {
    const auto picture = readThumbnail(file.content, file.size);
    if (!picture || !writeAll(file.output, std::as_bytes(std::span(picture->samples)))) return noValueAnswer();
    return thumbnailAnswer(picture->width, picture->height);
}

void prepareLibraries() {
    prepareImageLibrary();
    preparePixelLibraries();
}

}  // namespace
}  // namespace vellomar

int main() {
    using namespace vellomar;
    return decoderMain(kMostMemory, prepareLibraries,
                       {{DecoderRequest::greyRaster, {kMostComputing, greyRaster}},
                        {DecoderRequest::jpeg, {kMostComputing, jpeg}},
                        {DecoderRequest::thumbnail, {kMostComputingOfThumbnail, thumbnail}}});
}
