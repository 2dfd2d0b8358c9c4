#include "dates/SidecarDate.h"

#include <algorithm>

#include "dates/Digits.h"
#include "platform/LocalTime.h"
#include "platform/Path.h"
#include "platform/Regex.h"
#include "platform/Text.h"
#include "platform/WholeFile.h"

namespace vellomar::ExifUtils {
namespace {

constexpr int kSidecarScore = 97;
constexpr std::int64_t kLargestSidecar = 16 * 1024 * 1024;
constexpr auto kDateLength = std::string_view("yyyy-MM-ddTHH:mm:ss").size();

// Of the pieces between quotes and angle brackets, the first that could be a date by its length and a "T". The name
// `exif:DateTimeOriginal` passes for one too and hides the date behind it. Existing libraries were sorted that way, so
// it stays that way.
std::string_view supposedDate(std::string_view match) {
    while (!match.empty()) {
        const auto piece = match.substr(0, match.find_first_of("\"<>"));
        if (piece.size() >= kDateLength && piece.find('T') != std::string_view::npos) return piece;
        match.remove_prefix(std::min(match.size(), piece.size() + 1));
    }
    return {};
}

// Nothing for a piece that is no date and for a date that never happens. No zone is looked for, since a match ends at
// the seconds.
std::optional<Instant> localDate(std::string_view piece) {
    static const Regex kDate(R"(\A\d{4}-\d{2}-\d{2}T\d{2}:\d{2}:\d{2}\z)");
    if (!kDate.matches(piece)) return std::nullopt;
    const CivilTime civil{.year = numberOf(piece.substr(0, 4)),
                          .month = numberOf(piece.substr(5, 2)),
                          .day = numberOf(piece.substr(8, 2)),
                          .hour = numberOf(piece.substr(11, 2)),
                          .minute = numberOf(piece.substr(14, 2)),
                          .second = numberOf(piece.substr(17, 2))};
    if (civil.year < 1) return std::nullopt;
    return strictLocalInstant(civil);
}

std::string sidecarPath(std::string_view path) {
    const auto extension = pathExtension(path);
    if (!extension.empty()) path.remove_suffix(extension.size() + 1);
    return std::string(path) + ".xmp";
}

bool isReadable(FileSystem& fileSystem, const std::string& path) {
    const auto status = fileSystem.statusFollowingLinks(path);
    return status && status->type == FileType::regular && status->size <= kLargestSidecar;
}

}  // namespace

std::optional<Instant> sidecarDate(std::string_view xmpText) {
    static const Regex kPlaces[] = {
        Regex(R"(xmp:CreateDate="(\d{4}-\d{2}-\d{2}T\d{2}:\d{2}:\d{2}))"),
        Regex(R"(exif:DateTimeOriginal="(\d{4}-\d{2}-\d{2}T\d{2}:\d{2}:\d{2}))"),
        Regex(R"(<xmp:CreateDate>(\d{4}-\d{2}-\d{2}T\d{2}:\d{2}:\d{2})</xmp:CreateDate>)"),
        Regex(R"(<exif:DateTimeOriginal>(\d{4}-\d{2}-\d{2}T\d{2}:\d{2}:\d{2})</exif:DateTimeOriginal>)"),
    };
    for (const auto& place : kPlaces) {
        const auto match = place.firstMatch(xmpText);
        if (!match) continue;
        if (const auto date = localDate(supposedDate(*match))) return date;
    }
    return std::nullopt;
}

std::optional<DateCandidate> sidecarCandidate(FileSystem& fileSystem, const std::string& path) {
    const auto sidecar = sidecarPath(path);
    if (!isReadable(fileSystem, sidecar)) return std::nullopt;
    const auto text = readWholeFile(fileSystem, sidecar);
    if (!text || !isUtf8(*text)) return std::nullopt;
    const auto date = sidecarDate(*text);
    if (!date) return std::nullopt;
    return DateCandidate{*date, "XMP Sidecar", kSidecarScore};
}

}  // namespace vellomar::ExifUtils
