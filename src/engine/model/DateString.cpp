#include "engine/model/DateString.h"

#include <array>
#include <cstdlib>

#include <fmt/compile.h>
#include <fmt/format.h>

namespace vellomar {
namespace {

using namespace std::string_view_literals;

constexpr std::array kMonthNames = {"January"sv, "February"sv, "March"sv,     "April"sv,   "May"sv,      "June"sv,
                                    "July"sv,    "August"sv,   "September"sv, "October"sv, "November"sv, "December"sv};
constexpr std::array kWeekdayNames = {"Thursday"sv, "Friday"sv,  "Saturday"sv, "Sunday"sv,
                                      "Monday"sv,   "Tuesday"sv, "Wednesday"sv};  // from 1970-01-01 on

constexpr std::size_t kAbbreviatedLength = 3;

// One field of a pattern: a letter and how often it stands there.
struct Field {
    char letter;
    std::size_t width;
};

std::string number(int value, std::size_t width) {
    return fmt::format("{:0{}}", value, width);
}

std::string nameInWidth(std::string_view name, std::size_t width) {
    return std::string(width >= 4 ? name : name.substr(0, kAbbreviatedLength));
}

std::string_view weekdayName(const CivilTime& civil) {
    const std::chrono::sys_days day = std::chrono::year(civil.year) / civil.month / civil.day;
    const auto sinceThursday = (day.time_since_epoch().count() % 7 + 7) % 7;
    return kWeekdayNames[static_cast<std::size_t>(sinceThursday)];
}

std::string fraction(Instant date, std::size_t width) {
    const auto micros = (date - std::chrono::floor<std::chrono::seconds>(date)).count();
    auto digits = fmt::format("{:06}", micros);
    digits.resize(width, '0');
    return digits;
}

std::string zoneOffset(Instant date) {
    const int minutes = localUtcOffset(date) / 60;
    const int distance = std::abs(minutes);
    return fmt::format("{}{:02}{:02}", minutes < 0 ? '-' : '+', distance / 60, distance % 60);
}

std::string formatted(Field field, Instant date, const CivilTime& civil) {
    switch (field.letter) {
        case 'y': return field.width == 2 ? number(civil.year % 100, 2) : number(civil.year, field.width);
        case 'M':
            return field.width >= 3 ? nameInWidth(monthName(civil.month), field.width)
                                    : number(civil.month, field.width);
        case 'd': return number(civil.day, field.width);
        case 'E': return nameInWidth(weekdayName(civil), field.width);
        case 'a': return civil.hour < 12 ? "AM" : "PM";
        case 'H': return number(civil.hour, field.width);
        case 'h': return number((civil.hour + 11) % 12 + 1, field.width);
        case 'm': return number(civil.minute, field.width);
        case 's': return number(civil.second, field.width);
        case 'S': return fraction(date, field.width);
        case 'Z': return zoneOffset(date);
        default: break;
    }
    std::string unknown;
    unknown.assign(field.width, field.letter);
    return unknown;
}

// Takes a quoted text from the front of `pattern`, which begins with a quote.
std::string takeQuoted(std::string_view& pattern) {
    pattern.remove_prefix(1);
    if (pattern.starts_with('\'')) {
        pattern.remove_prefix(1);
        return "'";
    }
    std::string text;
    while (!pattern.empty()) {
        const char c = pattern.front();
        pattern.remove_prefix(1);
        if (c == '\'') {
            if (!pattern.starts_with('\'')) break;
            pattern.remove_prefix(1);
        }
        text += c;
    }
    return text;
}

Field takeField(std::string_view& pattern) {
    const char letter = pattern.front();
    const auto width = std::min(pattern.find_first_not_of(letter), pattern.size());
    pattern.remove_prefix(width);
    return {letter, width};
}

}  // namespace

std::string dateString(Instant date, std::string_view pattern) {
    const auto civil = localCivilTime(date);
    std::string text;
    while (!pattern.empty()) {
        if (pattern.front() == '\'')
            text += takeQuoted(pattern);
        else
            text += formatted(takeField(pattern), date, civil);
    }
    return text;
}

std::string dateTimeText(const CivilTime& civil) {
    // Compiled, as a run asks for several of these per file.
    return fmt::format(FMT_COMPILE("{:04}-{:02}-{:02} {:02}:{:02}:{:02}"), civil.year, civil.month, civil.day,
                       civil.hour, civil.minute, civil.second);
}

std::string_view monthName(int month) {
    return kMonthNames.at(static_cast<std::size_t>(month - 1));
}

}  // namespace vellomar
