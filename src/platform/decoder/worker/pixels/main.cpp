// Decodes pictures for the application, one after the other. See platform/decoder/PixelDecoder.h.

#include "platform/decoder/PixelMessages.h"
#include "platform/decoder/worker/DecoderMain.h"
#include "platform/decoder/worker/OpenImage.h"
#include "platform/decoder/worker/pixels/GreyRasterReader.h"
#include "platform/decoder/worker/pixels/HeifToJpeg.h"
#include "platform/decoder/worker/pixels/PixelLibraries.h"

namespace vellomar {
namespace {

constexpr std::size_t kMostMemory = std::size_t{2} << 30U;
constexpr std::chrono::seconds kMostComputing{60};

MessageBytes greyRaster(const RequestedFile& file) {
    const auto raster = readGreyRaster(file.content);
    return raster ? rasterAnswer(*raster) : noValueAnswer();
}

MessageBytes jpeg(const RequestedFile& file) {
    return writeJpegOfHeif(file.content, file.output) ? pictureWrittenAnswer() : noValueAnswer();
}

void prepareLibraries() {
    prepareImageLibrary();
    preparePixelLibraries();
}

}  // namespace
}  // namespace vellomar

int main() {
    using namespace vellomar;
    return decoderMain(
        kMostMemory, prepareLibraries,
        {{DecoderRequest::greyRaster, {kMostComputing, greyRaster}}, {DecoderRequest::jpeg, {kMostComputing, jpeg}}});
}
