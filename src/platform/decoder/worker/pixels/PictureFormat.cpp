#include "platform/decoder/worker/pixels/PictureFormat.h"

#include <algorithm>
#include <string_view>

#include "platform/decoder/worker/HeifFile.h"

namespace vellomar {
namespace {

using namespace std::string_view_literals;

std::string_view beginningOf(std::span<const std::byte> file) {
    constexpr std::size_t kEnough = 16;
    return {reinterpret_cast<const char*>(file.data()), std::min(file.size(), kEnough)};
}

bool isTiff(std::string_view bytes) {
    return bytes.starts_with("II*\0"sv) || bytes.starts_with("MM\0*"sv) || bytes.starts_with("II+\0"sv) ||
           bytes.starts_with("MM\0+"sv);
}

bool isWebp(std::string_view bytes) {
    constexpr std::size_t kForm = 8;
    return bytes.starts_with("RIFF"sv) && bytes.size() > kForm && bytes.substr(kForm).starts_with("WEBP"sv);
}

// Canon's RAW files are kept in the same kind of container as HEIC.
bool isCanonRaw(std::string_view bytes) {
    constexpr std::size_t kType = 4;
    return bytes.size() > kType && bytes.substr(kType).starts_with("ftypcrx"sv);
}

}  // namespace

PictureFormat formatOfPicture(std::span<const std::byte> file) {
    const auto bytes = beginningOf(file);
    if (bytes.starts_with("\xff\xd8\xff"sv)) return PictureFormat::jpeg;
    if (bytes.starts_with("\x89PNG\r\n\x1a\n"sv)) return PictureFormat::png;
    if (isTiff(bytes)) return PictureFormat::tiff;
    if (isWebp(bytes)) return PictureFormat::webp;
    if (bytes.starts_with("GIF8"sv)) return PictureFormat::gif;
    if (bytes.starts_with("BM"sv)) return PictureFormat::bmp;
    if (isHeif(file) && !isCanonRaw(bytes)) return PictureFormat::heif;
    return PictureFormat::other;
}

}  // namespace vellomar
