#include "dates/FilenameDates.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <string>

#include "dates/Digits.h"
#include "platform/LocalTime.h"
#include "platform/Regex.h"

namespace vellomar {
namespace {

constexpr Instant kFirstTimestamp = instantFromUnixSeconds(std::int64_t{978'307'200});  // 2001-01-01T00:00:00Z
constexpr std::size_t kTimestampDigits = 10;

bool isAllDigits(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

// There is no year 0, though the arithmetic of the calendar has one.
std::optional<Instant> existingInstant(const CivilTime& civil) {
    if (civil.year < 1) return std::nullopt;
    return strictLocalInstant(civil);
}

// "yyyyMMddHHmmss", or "yyyyMMdd" for midnight. Nothing for a text of another form: neither a date with hour and
// minute alone nor one with letters or a zone around it is guessed at.
std::optional<Instant> instantOfDigits(std::string_view text) {
    constexpr std::size_t kDateLength = 8;
    constexpr std::size_t kDateTimeLength = 14;
    if (text.size() != kDateLength && text.size() != kDateTimeLength) return std::nullopt;
    if (!isAllDigits(text)) return std::nullopt;
    const auto field = [&](std::size_t at, std::size_t width) { return numberOf(text.substr(at, width)); };
    CivilTime civil{.year = field(0, 4), .month = field(4, 2), .day = field(6, 2)};
    if (text.size() == kDateTimeLength) {
        civil.hour = field(8, 2);
        civil.minute = field(10, 2);
        civil.second = field(12, 2);
    }
    return existingInstant(civil);
}

std::string withoutCharacters(std::string_view text, std::string_view unwanted) {
    std::string kept;
    kept.reserve(text.size());
    std::ranges::copy_if(text, std::back_inserter(kept),
                         [&](char c) { return unwanted.find(c) == std::string_view::npos; });
    return kept;
}

std::optional<DateCandidate> unixTimestamp(std::string_view stem, Instant now) {
    static const Regex kPattern(R"((?<!\d)(1[0-9]{9})(?:\d{3})?(?!\d))");
    const auto match = kPattern.firstMatch(stem);
    if (!match) return std::nullopt;
    const auto date = instantFromUnixSeconds(numberOf<std::int64_t>(match->substr(0, kTimestampDigits)));
    if (date <= kFirstTimestamp || date >= now) return std::nullopt;
    return DateCandidate{date, "Filename-UnixTS", 72};
}

// The hour of a clock with two halves of the day; nothing when it shows none of 1 to 12.
std::optional<int> hourOfDay(int hour, bool isAfternoon) {
    if (hour < 1 || hour > 12) return std::nullopt;
    return hour % 12 + (isAfternoon ? 12 : 0);
}

std::optional<DateCandidate> screenshot(std::string_view stem) {
    static const Regex kPattern(R"((\d{4})-(\d{2})-(\d{2}) at (\d{1,2})\.(\d{2})\.(\d{2}) (AM|PM))");
    const auto match = kPattern.firstMatch(stem);
    if (!match) return std::nullopt;
    // The hour alone varies in width, so what stands before it counts from the front and the rest from the back.
    const auto text = *match;
    const auto hourAt = std::string_view("yyyy-MM-dd at ").size();
    const auto minuteAt = text.size() - std::string_view("mm.ss AM").size();
    const auto hour = hourOfDay(numberOf(text.substr(hourAt, minuteAt - 1 - hourAt)), text.ends_with("PM"));
    if (!hour) return std::nullopt;
    const auto date = existingInstant({.year = numberOf(text.substr(0, 4)),
                                       .month = numberOf(text.substr(5, 2)),
                                       .day = numberOf(text.substr(8, 2)),
                                       .hour = *hour,
                                       .minute = numberOf(text.substr(minuteAt, 2)),
                                       .second = numberOf(text.substr(minuteAt + 3, 2))});
    if (!date) return std::nullopt;
    return DateCandidate{*date, "Filename-Screenshot", 75};
}

std::optional<DateCandidate> whatsApp(std::string_view stem) {
    static const Regex kPattern(R"((?:IMG|VID)-(\d{8})-WA\d+)");
    const auto match = kPattern.firstMatch(stem);
    if (!match) return std::nullopt;
    const auto date = instantOfDigits(match->substr(std::string_view("IMG-").size(), 8));
    if (!date) return std::nullopt;
    return DateCandidate{*date, "Filename-WhatsApp", 73};
}

std::optional<DateCandidate> signalExport(std::string_view stem) {
    static const Regex kPattern(
        R"((?:signal|photo|video)[-_](\d{4})[-_](\d{2})[-_](\d{2})[-_](\d{2})[-_](\d{2})[-_](\d{2}))");
    const auto match = kPattern.firstMatch(stem);
    if (!match) return std::nullopt;
    const auto behindWord = match->substr(match->find_first_of("-_"));
    const auto date = instantOfDigits(withoutCharacters(behindWord, "-_"));
    if (!date) return std::nullopt;
    return DateCandidate{*date, "Filename-Signal", 73};
}

struct DatedShape {
    Regex pattern;
    int score;
};

// The whole match counts, a prefix or a zone in it too: what is then left beside digits fails the row, and the row of
// the date alone gets the name.
std::optional<DateCandidate> datedName(std::string_view stem) {
    static const std::array<DatedShape, 3> kShapes = {{
        {Regex(R"((?:(?:IMG|VID|PXL|PHOTO)[-_\.])?((?:19|20)\d{2})(0[1-9]|1[0-2])(0[1-9]|[12]\d|3[01]))"
               R"([_-]?(?:([01]\d|2[0-3])([0-5]\d)([0-5]\d))?([Zz]|[+-][01]\d{1}[0-5]\d)?)"),
         70},
        {Regex(R"((19|20)\d{2}[-_\.](0[1-9]|1[0-2])[-_\.](0[1-9]|[12]\d|3[01]))"
               R"([ _-]?([01]\d|2[0-3])[:\-\._]?([0-5]\d)[:\-\._]?([0-5]\d)?([Zz]|[+-][01]\d{1}[0-5]\d)?)"),
         70},
        {Regex(R"((19|20)\d{2}[\._-]?(0[1-9]|1[0-2])[\._-]?(0[1-9]|[12]\d|3[01]))"), 60},
    }};
    for (const auto& [pattern, score] : kShapes) {
        const auto match = pattern.firstMatch(stem);
        if (!match) continue;
        if (const auto date = instantOfDigits(withoutCharacters(*match, " -._:")))
            return DateCandidate{*date, "Filename", score};
    }
    return std::nullopt;
}

}  // namespace

std::optional<DateCandidate> filenameCandidate(std::string_view stem, Instant now) {
    if (auto found = unixTimestamp(stem, now)) return found;
    if (auto found = screenshot(stem)) return found;
    if (auto found = whatsApp(stem)) return found;
    if (auto found = signalExport(stem)) return found;
    return datedName(stem);
}

}  // namespace vellomar
