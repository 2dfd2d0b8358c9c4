#include "engine/PostCopy.h"

#include <array>
#include <string_view>

#include "platform/AtomicWrite.h"
#include "platform/Path.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

using namespace std::string_literals;

constexpr std::string_view kJpegExtension = "jpg";

// What went wrong is of no interest beyond which of the two it was.
tl::unexpected<Error> failure(int code, std::string description) {
    return tl::unexpected(Error{"HeicConversion", code, std::move(description)});
}

tl::unexpected<Error> readFailure() {
    return failure(1, "The picture cannot be read");
}

tl::unexpected<Error> writeFailure() {
    return failure(2, "The JPEG file cannot be written");
}

std::string withJpegExtension(const std::string& path) {
    return path.substr(0, path.size() - pathExtension(path).size()).append(kJpegExtension);
}

std::optional<SharedMemory> jpegOf(FileSystem& fileSystem, PixelDecoder& decoder, const std::string& path) {
    const auto file = fileSystem.openForReading(path, true);
    if (!file) return std::nullopt;
    return decoder.convertToJpeg(**file);
}

std::string_view textOf(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

bool isConvertibleToJpeg(const std::string& path) {
    const auto extension = lowercased(pathExtension(path));
    return extension == "heic" || extension == "heif";
}

Expected<std::string> convertHeicToJpeg(FileSystem& fileSystem, PixelDecoder& decoder, const std::string& path) {
    const auto status = fileSystem.statusFollowingLinks(path);
    auto jpeg = jpegOf(fileSystem, decoder, path);
    if (!status || !jpeg) return readFailure();
    const auto content = jpeg->content();
    if (!content || content->empty()) return readFailure();
    auto target = withJpegExtension(path);
    if (!writeAtomically(fileSystem, target, textOf(*content))) return writeFailure();
    // A date is a convenience: without metadata the file itself says nothing of its time.
    static_cast<void>(fileSystem.setModificationDate(target, status->modified));
    return target;
}

bool stripGpsMetadata(const ExifUtils::ExifTool& exifTool, const std::string& path) {
    return exifTool.runExifTool(std::array{"-GPS:all="s, "-overwrite_original"s, path});
}

bool stripAllMetadataTags(const ExifUtils::ExifTool& exifTool, const std::string& path) {
    return exifTool.runExifTool(std::array{"-all="s, "-overwrite_original"s, path});
}

}  // namespace vellomar
