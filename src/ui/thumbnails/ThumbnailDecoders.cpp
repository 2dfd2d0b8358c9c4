#include "ui/thumbnails/ThumbnailDecoders.h"

#include <cstddef>
#include <cstring>
#include <utility>

namespace vellomar {
namespace {

QImage imageOf(const ThumbnailRaster& raster) {
    QImage image(raster.width, raster.height, QImage::Format_RGB32);
    const auto width = static_cast<std::size_t>(raster.width);
    for (int row = 0; row < raster.height; ++row)
        std::memcpy(image.scanLine(row), &raster.pixels[static_cast<std::size_t>(row) * width],
                    width * sizeof(std::uint32_t));
    return image;
}

}  // namespace

ThumbnailDecoders::ThumbnailDecoders(FileSystem& fileSystem, std::string program)
    : fileSystem_(fileSystem), program_(std::move(program)) {}

QImage ThumbnailDecoders::decode(const std::string& path, int size) {
    const auto file = fileSystem_.openForReading(path, true);
    if (!file) return {};
    auto decoder = takeIdle();
    const auto raster = decoder->makeThumbnail(**file, size);
    putBack(std::move(decoder));
    return raster ? imageOf(*raster) : QImage();
}

std::unique_ptr<PixelDecoder> ThumbnailDecoders::takeIdle() {
    const std::scoped_lock hold(lock_);
    if (idle_.empty()) return std::make_unique<PixelDecoder>(program_);
    auto decoder = std::move(idle_.back());
    idle_.pop_back();
    return decoder;
}

void ThumbnailDecoders::putBack(std::unique_ptr<PixelDecoder> decoder) {
    const std::scoped_lock hold(lock_);
    idle_.push_back(std::move(decoder));
}

}  // namespace vellomar
