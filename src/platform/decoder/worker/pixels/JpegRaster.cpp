#include "platform/decoder/worker/pixels/JpegRaster.h"

#include <memory>
#include <vector>

#include <turbojpeg.h>

#include "platform/decoder/worker/pixels/AreaAverage.h"

namespace vellomar {
namespace {

struct DestroyDecompressor {
    void operator()(void* handle) const { tjDestroy(handle); }
};
using Decompressor = std::unique_ptr<void, DestroyDecompressor>;

// A file of a few bytes can name thousands of scans over a huge picture; no camera writes more than a dozen.
constexpr int kFlags = TJFLAG_ACCURATEDCT | TJFLAG_LIMITSCANS;

// What is damaged is a warning: viewers show such pictures as well.
bool succeeded(void* decompressor, int result) {
    return result == 0 || tjGetErrorCode(decompressor) == TJERR_WARNING;
}

}  // namespace

std::optional<GreyRaster> rasterOfJpeg(std::span<const std::byte> file) {
    const Decompressor decompressor(tjInitDecompress());
    const auto* bytes = reinterpret_cast<const unsigned char*>(file.data());
    int width = 0;
    int height = 0;
    int subsampling = 0;
    int colours = 0;
    if (!succeeded(decompressor.get(), tjDecompressHeader3(decompressor.get(), bytes, file.size(), &width, &height,
                                                           &subsampling, &colours)))
        return std::nullopt;
    auto average = AreaAverage::ofSize(static_cast<std::uint64_t>(width), static_cast<std::uint64_t>(height));
    if (!average) return std::nullopt;
    const auto rowLength = static_cast<std::size_t>(width);
    std::vector<std::uint8_t> grey(rowLength * static_cast<std::size_t>(height));
    if (!succeeded(decompressor.get(), tjDecompress2(decompressor.get(), bytes, file.size(), grey.data(), width, width,
                                                     height, TJPF_GRAY, kFlags)))
        return std::nullopt;
    for (std::size_t row = 0; row < static_cast<std::size_t>(height); ++row)
        average->addRow(std::span(grey).subspan(row * rowLength, rowLength));
    return average->raster();
}

}  // namespace vellomar
