#include "engine/model/FileKind.h"

#include <algorithm>
#include <array>

#include "platform/Path.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

using namespace std::string_view_literals;

// Each table in the order of the alphabet, to be searched by halves.
constexpr std::array kImageExtensions = {"3fr"sv, "arw"sv, "avif"sv, "bmp"sv,  "cr2"sv, "cr3"sv,  "dcr"sv, "dng"sv,
                                         "erf"sv, "fff"sv, "heic"sv, "heif"sv, "iiq"sv, "jpeg"sv, "jpg"sv, "kdc"sv,
                                         "mef"sv, "mos"sv, "mrw"sv,  "nef"sv,  "nrw"sv, "orf"sv,  "pef"sv, "png"sv,
                                         "ptx"sv, "raf"sv, "raw"sv,  "rw2"sv,  "rwl"sv, "rwz"sv,  "sr2"sv, "srf"sv,
                                         "srw"sv, "tif"sv, "tiff"sv, "webp"sv, "x3f"sv};
constexpr std::array kVideoExtensions = {"3gp"sv, "avi"sv,  "flv"sv, "m2ts"sv, "m4v"sv,  "mkv"sv, "mov"sv,
                                         "mp4"sv, "mpeg"sv, "mpg"sv, "mts"sv,  "webm"sv, "wmv"sv};
constexpr std::array kRawExtensions = {"arw"sv, "cr2"sv, "cr3"sv, "dng"sv, "nef"sv, "orf"sv,
                                       "raf"sv, "raw"sv, "rw2"sv, "rwl"sv, "srw"sv, "x3f"sv};
constexpr std::array kJpegExtensions = {"jpeg"sv, "jpg"sv};
constexpr std::array kSidecarExtensions = {"cos"sv, "dop"sv, "on1"sv, "pp3"sv, "xmp"sv};

static_assert(kImageExtensions.size() == 37 && std::ranges::is_sorted(kImageExtensions));
static_assert(kVideoExtensions.size() == 13 && std::ranges::is_sorted(kVideoExtensions));
static_assert(kRawExtensions.size() == 12 && std::ranges::is_sorted(kRawExtensions));
static_assert(std::ranges::is_sorted(kJpegExtensions));
static_assert(std::ranges::is_sorted(kSidecarExtensions));

}  // namespace

std::string_view nameOf(FileKind kind) {
    switch (kind) {
        case FileKind::image: return "image";
        case FileKind::video: return "video";
        case FileKind::other: break;
    }
    return "other";
}

FileKind fileKindOf(std::string_view path) {
    return fileKindOfExtension(lowercased(pathExtension(path)));
}

FileKind fileKindOfExtension(std::string_view lowercasedExtension) {
    if (std::ranges::binary_search(kImageExtensions, lowercasedExtension)) return FileKind::image;
    if (std::ranges::binary_search(kVideoExtensions, lowercasedExtension)) return FileKind::video;
    return FileKind::other;
}

bool isRawExtension(std::string_view lowercasedExtension) {
    return std::ranges::binary_search(kRawExtensions, lowercasedExtension);
}

bool isJpegExtension(std::string_view lowercasedExtension) {
    return std::ranges::binary_search(kJpegExtensions, lowercasedExtension);
}

bool isSidecarExtension(std::string_view lowercasedExtension) {
    return std::ranges::binary_search(kSidecarExtensions, lowercasedExtension);
}

}  // namespace vellomar
