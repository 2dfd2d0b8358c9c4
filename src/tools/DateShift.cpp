#include "tools/DateShift.h"

#include <fmt/format.h>

#include "platform/Path.h"

namespace vellomar {
namespace {

constexpr std::int64_t kHoursOfADay = 24;

std::int64_t magnitude(std::int64_t hours) {
    return hours < 0 ? -hours : hours;
}

// "1 day", "2 days".
std::string counted(std::int64_t count, std::string_view unit) {
    return fmt::format("{} {}{}", count, unit, count == 1 ? "" : "s");
}

// "+1 hour", "-5 hours", "0 hours".
std::string signedHours(std::int64_t hours) {
    return fmt::format("{}{} hour{}", hours > 0 ? "+" : "", hours, magnitude(hours) == 1 ? "" : "s");
}

}  // namespace

std::int64_t DateShift::totalHours() const {
    return days * kHoursOfADay + hours;
}

std::string shiftDescription(const DateShift& shift) {
    const auto total = shift.totalHours();
    if (total == 0) return "No change";
    const auto days = magnitude(total) / kHoursOfADay;
    const auto hours = magnitude(total) % kHoursOfADay;
    std::string text = total > 0 ? "+" : "";
    if (days > 0) text += counted(days, "day");
    if (days > 0 && hours > 0) text += ' ';
    if (hours > 0) text += counted(hours, "hour");
    return text;
}

std::optional<std::vector<std::string>> shiftArguments(const DateShift& shift, const std::string& path) {
    const auto total = shift.totalHours();
    if (total == 0) return std::nullopt;
    return std::vector<std::string>{
        fmt::format("-AllDates{}=0:0:0 {}:0:0", total > 0 ? '+' : '-', magnitude(total)),
        "-overwrite_original",
        path,
    };
}

std::string shiftProgress(std::size_t done, std::size_t files, std::string_view path) {
    return fmt::format("{}/{} → {}", done, files, lastPathComponent(path));
}

std::string shiftOutcome(const DateShift& shift, std::size_t files) {
    return fmt::format("Done — shifted {} file{} by {}", files, files == 1 ? "" : "s", signedHours(shift.totalHours()));
}

std::string stoppedShiftOutcome(const DateShift& shift, std::size_t done, std::size_t files) {
    if (done == 0) return "Stopped — no file was changed";
    return fmt::format("Stopped — shifted {} of {} file{} by {}. No other file was changed.", done, files,
                       files == 1 ? "" : "s", signedHours(shift.totalHours()));
}

}  // namespace vellomar
