#include "undo/IsoTime.h"

#include <array>
#include <chrono>
#include <cstdlib>

#include <fmt/format.h>

#include "platform/Regex.h"

namespace vellomar {
namespace {

constexpr std::size_t kDateTimeLength = std::string_view("2024-06-14T09:41:07").size();

int numberAt(std::string_view text, std::size_t start, std::size_t length) {
    int number = 0;
    for (const char digit : text.substr(start, length))
        number = number * 10 + (digit - '0');
    return number;
}

// Of "Z" or "+02:00".
std::chrono::minutes offsetFrom(std::string_view zone) {
    if (zone == "Z") return {};
    const std::chrono::minutes distance(numberAt(zone, 1, 2) * 60 + numberAt(zone, 4, 2));
    return zone.front() == '-' ? -distance : distance;
}

}  // namespace

std::string isoTimeText(Instant instant) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(instant);
    const auto day = std::chrono::floor<std::chrono::days>(seconds);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(seconds - day);
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", static_cast<int>(date.year()),
                       static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()), time.hours().count(),
                       time.minutes().count(), time.seconds().count());
}

std::optional<Instant> instantFromIsoTime(std::string_view text) {
    static const Regex form(R"(\A\d{4}-\d\d-\d\dT([01]\d|2[0-3]):[0-5]\d:[0-5]\d(Z|[+-]([01]\d|2[0-3]):[0-5]\d)\z)");
    if (!form.matches(text)) return std::nullopt;
    const std::chrono::year_month_day date(std::chrono::year(numberAt(text, 0, 4)),
                                           std::chrono::month(static_cast<unsigned>(numberAt(text, 5, 2))),
                                           std::chrono::day(static_cast<unsigned>(numberAt(text, 8, 2))));
    if (!date.ok()) return std::nullopt;
    const auto time = std::chrono::hours(numberAt(text, 11, 2)) + std::chrono::minutes(numberAt(text, 14, 2)) +
                      std::chrono::seconds(numberAt(text, 17, 2));
    return Instant(std::chrono::sys_days(date) + time - offsetFrom(text.substr(kDateTimeLength)));
}

}  // namespace vellomar
