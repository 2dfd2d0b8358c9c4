#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string_view>

#include "driver/Arguments.h"
#include "driver/Ops.h"
#include "driver/Results.h"
#include "engine/BufferedCopy.h"
#include "engine/PairDetection.h"
#include "engine/TextFormats.h"
#include "engine/model/DateString.h"
#include "engine/model/FileKind.h"
#include "platform/FileDigest.h"
#include "platform/FreeName.h"
#include "platform/LinuxFileSystem.h"

namespace vellomar::driver {
namespace {

// A number of seconds that the formatters take: what they refuse would end the driver.
double secondsOf(const Json& arguments) {
    constexpr double kFarthest = 9e15;
    const double seconds = numberOf(arguments, "value");
    if (!std::isfinite(seconds) || std::abs(seconds) > kFarthest) throw std::invalid_argument("value is out of range");
    return seconds;
}

Json mediaKindOf(const Json& arguments) {
    return std::string(nameOf(fileKindOf(textOf(arguments, "path"))));
}

Json date(const Json& arguments) {
    return dateString(instantOf(arguments, "epoch"), textOf(arguments, "pattern"));
}

Json bytes(const Json& arguments) {
    const double value = numberOf(arguments, "value");
    const auto& given = arguments.at("value");
    if (given.is_number_unsigned() && given.get<std::uint64_t>() > std::numeric_limits<std::int64_t>::max())
        throw std::invalid_argument("value is out of range");
    if (given.is_number_integer()) return formatBytes(given.get<std::int64_t>());
    return formatBytes(static_cast<std::int64_t>(secondsOf({{"value", value}})));
}

Json duration(const Json& arguments) {
    return formatDuration(secondsOf(arguments));
}

Json eta(const Json& arguments) {
    return formatEta(secondsOf(arguments));
}

Json digest(const Json& arguments) {
    LinuxFileSystem fileSystem;
    return jsonOf(sha256OfFile(fileSystem, textOf(arguments, "path")));
}

Json freeName(const Json& arguments) {
    LinuxFileSystem fileSystem;
    return uniqueDestination(fileSystem, textOf(arguments, "path"));
}

Json copy(const Json& arguments) {
    LinuxFileSystem fileSystem;
    const auto copied = bufferedCopy(fileSystem, textOf(arguments, "source"), textOf(arguments, "partial"));
    return copied ? Json::object() : jsonOf(copied.error());
}

Json pairs(const Json& arguments) {
    const auto paths = textsOf(arguments, "paths");
    const auto found = detectPairs(std::vector<std::string_view>(paths.begin(), paths.end()));
    return {{"rawToJpeg", found.rawToJpeg},
            {"jpegToRaw", found.jpegToRaw},
            {"sidecarsByPath", found.sidecarsByPath},
            {"pairs", found.pairs}};
}

}  // namespace

void addFileOps(Ops& ops) {
    ops["fileKindOf"] = mediaKindOf;
    ops["dateString"] = date;
    ops["formatBytes"] = bytes;
    ops["formatDuration"] = duration;
    ops["formatEta"] = eta;
    ops["sha256OfFile"] = digest;
    ops["uniqueDestination"] = freeName;
    ops["bufferedCopy"] = copy;
    ops["detectPairs"] = pairs;
}

}  // namespace vellomar::driver
