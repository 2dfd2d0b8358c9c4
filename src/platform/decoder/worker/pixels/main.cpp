// Decodes pictures for the application, one after the other. See platform/decoder/PixelDecoder.h.

#include <unistd.h>

#include "platform/decoder/DecoderSocket.h"
#include "platform/decoder/PixelMessages.h"
#include "platform/decoder/worker/Confinement.h"
#include "platform/decoder/worker/OpenImage.h"
#include "platform/decoder/worker/RequestLoop.h"
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

}  // namespace
}  // namespace vellomar

int main() {
    using namespace vellomar;
    constexpr int kNoLimits = 1;
    if (!limitResources(kMostMemory)) return kNoLimits;
    prepareImageLibrary();
    preparePixelLibraries();
    // A kernel without filters is no reason to show no photos: the process still stands apart, without privileges.
    static_cast<void>(confine());
    serveRequests(kDecoderSocket, {{DecoderRequest::greyRaster, {kMostComputing, greyRaster}},
                                   {DecoderRequest::jpeg, {kMostComputing, jpeg}}});
    // Nothing here needs an orderly end, and destructors of libraries may want what is not allowed any more.
    _exit(0);
}
