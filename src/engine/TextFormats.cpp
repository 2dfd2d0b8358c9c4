#include "engine/TextFormats.h"

#include <cmath>
#include <cstdlib>
#include <limits>

#include <fmt/format.h>

namespace vellomar {
namespace {

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 3'600;

std::int64_t wholeSeconds(double seconds) {
    if (!std::isfinite(seconds)) std::abort();
    constexpr auto kMost = static_cast<double>(std::numeric_limits<std::int64_t>::max());
    if (std::abs(seconds) >= kMost) std::abort();
    return static_cast<std::int64_t>(seconds);
}

}  // namespace

std::string formatBytes(std::int64_t bytes) {
    constexpr double kUnit = 1'024;
    if (bytes < static_cast<std::int64_t>(kUnit)) return fmt::format("{} B", bytes);
    const double kilobytes = static_cast<double>(bytes) / kUnit;
    if (kilobytes < kUnit) return fmt::format("{:.1f} KB", kilobytes);
    const double megabytes = kilobytes / kUnit;
    if (megabytes < kUnit) return fmt::format("{:.1f} MB", megabytes);
    return fmt::format("{:.2f} GB", megabytes / kUnit);
}

std::string formatDuration(double seconds) {
    const auto whole = wholeSeconds(seconds);
    if (whole < kMinute) return fmt::format("{}s", whole);
    if (whole < kHour) return fmt::format("{}m {:02}s", whole / kMinute, whole % kMinute);
    return fmt::format("{}h {:02}m {:02}s", whole / kHour, whole % kHour / kMinute, whole % kMinute);
}

std::string formatEta(double seconds) {
    const auto whole = wholeSeconds(seconds);
    if (whole < kMinute) return fmt::format("{}s", whole);
    if (whole < kHour) return fmt::format("{}m {:02}s", whole / kMinute, whole % kMinute);
    return fmt::format("{}h {:02}m", whole / kHour, whole % kHour / kMinute);
}

}  // namespace vellomar
