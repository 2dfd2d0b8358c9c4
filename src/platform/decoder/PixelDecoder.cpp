#include "platform/decoder/PixelDecoder.h"

#include <array>
#include <utility>

#include "platform/decoder/PixelMessages.h"

namespace vellomar {
namespace {

constexpr std::chrono::seconds kMostTimeOfPicture{120};
constexpr std::chrono::seconds kMostTimeOfThumbnail{20};

}  // namespace

PixelDecoder::PixelDecoder(std::string program) : process_(std::move(program), kMostTimeOfPicture) {}

std::optional<GreyRaster> PixelDecoder::readGreyRaster(InputFile& file) {
    return process_.ask<GreyRaster>(DecoderRequest::greyRaster, std::array{file.descriptor()}, rasterFromAnswer);
}

std::optional<SharedMemory> PixelDecoder::convertToJpeg(InputFile& file) {
    auto memory = SharedMemory::create();
    if (!memory) return std::nullopt;
    const auto pictureFrom = [&](const MessageBytes& answer) -> std::optional<SharedMemory> {
        if (answer != pictureWrittenAnswer()) return std::nullopt;
        return *std::move(memory);
    };
    return process_.ask<SharedMemory>(DecoderRequest::jpeg, std::array{file.descriptor(), memory->descriptor()},
                                      pictureFrom);
}

std::optional<ThumbnailRaster> PixelDecoder::makeThumbnail(InputFile& file, int size) {
    if (size < 1 || size > ThumbnailRaster::kMostSize) return std::nullopt;
    auto memory = SharedMemory::create();
    if (!memory) return std::nullopt;
    const auto thumbnailFrom = [&](const MessageBytes& answer) -> std::optional<ThumbnailRaster> {
        const auto samples = memory->content();
        if (!samples) return std::nullopt;
        return thumbnailFromAnswer(answer, *samples, size);
    };
    return process_.ask<ThumbnailRaster>(thumbnailRequestMessage(size),
                                         std::array{file.descriptor(), memory->descriptor()}, kMostTimeOfThumbnail,
                                         thumbnailFrom);
}

}  // namespace vellomar
