#include "naming/BuildDestination.h"

#include <algorithm>
#include <string_view>

#include <fmt/compile.h>
#include <fmt/format.h>

#include "engine/model/DateString.h"
#include "naming/NamingTemplate.h"
#include "platform/LocalTime.h"
#include "platform/Path.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

// Six of these are made for every file, which is why no general formatter does it.
std::string inTwoDigits(int value) {
    return {static_cast<char>('0' + value / 10), static_cast<char>('0' + value % 10)};
}

NamePieces piecesOf(std::string_view source, const CivilTime& date, const std::optional<std::string>& event) {
    return {
        .year = fmt::format("{:04}", date.year),
        .month = inTwoDigits(date.month),
        .day = inTwoDigits(date.day),
        .monthName = std::string(monthName(date.month)),
        .hour = inTwoDigits(date.hour),
        .minute = inTwoDigits(date.minute),
        .second = inTwoDigits(date.second),
        .original = std::string(pathStem(source)),
        .event = event.value_or(std::string()),
        .extension = lowercased(pathExtension(source)),
    };
}

// Without an event two slashes meet, which appendSegments() makes one.
std::string relativePath(NamingStyle style, std::string_view source, const NamePieces& pieces,
                         std::string_view customFormat) {
    const auto& [year, month, day, monthName, hour, minute, second, stem, event, extension] = pieces;
    const std::string_view dot = extension.empty() ? "" : ".";
    switch (style) {
        case NamingStyle::original:
            return fmt::format(FMT_COMPILE("{}/{}/{}/{}"), year, month, event, lastPathComponent(source));
        case NamingStyle::recommended:
            return fmt::format(FMT_COMPILE("{0}/{1} - {2}/{3}/{0}-{1}-{4}_{5}{6}{7}_{8}{9}{10}"), year, month,
                               monthName, event, day, hour, minute, second, stem, dot, extension);
        case NamingStyle::cleanDate:
            return fmt::format(FMT_COMPILE("{0}/{1}/{2}/{0}{3}{4}_{5}{6}{7}{8}{9}"), year, monthName, event, month, day,
                               hour, minute, second, dot, extension);
        case NamingStyle::archival:
            return fmt::format(FMT_COMPILE("{0}/{0}-{1}-{2}/{0}-{1}-{2}_{3}{4}{5}{6}{7}"), year, month, day, hour,
                               minute, second, dot, extension);
        case NamingStyle::custom: break;
    }
    return relativePathOfTemplate(renderTemplate(customFormat, pieces));
}

void appendSegments(std::string& path, std::string_view relative) {
    while (!relative.empty()) {
        const auto end = std::min(relative.find('/'), relative.size());
        if (end > 0) {
            if (!path.ends_with('/')) path += '/';
            path += relative.substr(0, end);
        }
        relative.remove_prefix(std::min(end + 1, relative.size()));
    }
}

}  // namespace

std::string buildDestination(const std::string& source, Instant date, const std::optional<std::string>& event,
                             const std::string& dest, const Options& options) {
    const auto pieces = piecesOf(source, localCivilTime(date), event);
    const auto relative = relativePath(options.namingStyle, source, pieces, options.customFormat);
    auto path = withoutTrailingSlashes(dest);
    appendSegments(path, relative);
    return path;
}

}  // namespace vellomar
