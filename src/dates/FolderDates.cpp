#include "dates/FolderDates.h"

#include <array>
#include <string>
#include <vector>

#include "dates/Digits.h"
#include "naming/FolderSegments.h"
#include "platform/LocalTime.h"
#include "platform/Regex.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

constexpr int kEarliestYearAlone = 1990;

struct MonthWord {
    std::string_view word;
    int month;
};

constexpr std::array<MonthWord, 41> kMonthWords = {{
    {"january", 1},   {"jan", 1},  {"enero", 1},      {"ene", 1},                           //
    {"february", 2},  {"feb", 2},  {"febrero", 2},                                          //
    {"march", 3},     {"mar", 3},  {"marzo", 3},                                            //
    {"april", 4},     {"apr", 4},  {"abril", 4},      {"abr", 4},                           //
    {"may", 5},       {"mayo", 5},                                                          //
    {"june", 6},      {"jun", 6},  {"junio", 6},                                            //
    {"july", 7},      {"jul", 7},  {"julio", 7},                                            //
    {"august", 8},    {"aug", 8},  {"agosto", 8},     {"ago", 8},                           //
    {"september", 9}, {"sep", 9},  {"sept", 9},       {"septiembre", 9}, {"setiembre", 9},  //
    {"october", 10},  {"oct", 10}, {"octubre", 10},                                         //
    {"november", 11}, {"nov", 11}, {"noviembre", 11},                                       //
    {"december", 12}, {"dec", 12}, {"diciembre", 12}, {"dic", 12},                          //
}};

// One folder name, as it stands and in the form that words are looked for in.
struct Segment {
    std::string_view name;
    std::string lowercasedName;
};

using Segments = std::vector<Segment>;
using Result = std::optional<FolderYearMonth>;

std::optional<int> monthFromWord(std::string_view lowercasedText) {
    for (const auto& [word, month] : kMonthWords)
        if (lowercasedText.find(word) != std::string_view::npos) return month;
    return std::nullopt;
}

std::optional<int> firstFourDigitYear(std::string_view text) {
    static const Regex kPattern(R"((19|20)\d{2})");
    const auto match = kPattern.firstMatch(text);
    if (!match) return std::nullopt;
    return numberOf(*match);
}

// "00" is no year.
std::optional<int> firstTwoDigitYear(std::string_view text) {
    static const Regex kPattern(R"((?<!\d)([0-9]{2})(?!\d))");
    const auto match = kPattern.firstMatch(text);
    if (!match) return std::nullopt;
    const int year = numberOf(*match);
    if (year == 0) return std::nullopt;
    return year;
}

int inItsCentury(int twoDigitYear, int currentYear) {
    return twoDigitYear <= currentYear - 2000 ? 2000 + twoDigitYear : 1900 + twoDigitYear;
}

Result yearAndMonthInOneFolder(const Segments& segments) {
    static const Regex kPattern(R"(^(19|20)\d{2}[-_\. ](0[1-9]|1[0-2])$)");
    for (const auto& segment : segments)
        if (const auto match = kPattern.firstMatch(segment.name))
            return FolderYearMonth{numberOf(match->substr(0, 4)), numberOf(match->substr(5))};
    return std::nullopt;
}

Result monthFolderInYearFolder(const Segments& segments) {
    static const Regex kYear(R"(^(19|20)\d\d$)");
    static const Regex kMonth(R"(^(0?[1-9]|1[0-2])$)");
    for (std::size_t inner = 1; inner < segments.size(); ++inner) {
        const auto year = kYear.firstMatch(segments[inner - 1].name);
        const auto month = kMonth.firstMatch(segments[inner].name);
        if (year && month) return FolderYearMonth{numberOf(*year), numberOf(*month)};
    }
    return std::nullopt;
}

Result monthWordWithYear(const Segments& segments) {
    for (const auto& [name, lowercasedName] : segments) {
        const auto year = firstFourDigitYear(name);
        if (!year) continue;
        if (const auto month = monthFromWord(lowercasedName)) return FolderYearMonth{*year, month};
    }
    return std::nullopt;
}

Result yearAlone(const Segments& segments, int currentYear) {
    for (const auto& segment : segments) {
        const auto year = firstFourDigitYear(segment.name);
        if (year && *year >= kEarliestYearAlone && *year <= currentYear) return FolderYearMonth{*year, std::nullopt};
    }
    return std::nullopt;
}

Result twoDigitYear(const Segments& segments, bool parseMonthWords, int currentYear) {
    for (const auto& segment : segments) {
        const auto year = firstTwoDigitYear(segment.lowercasedName);
        if (!year) continue;
        const auto month = parseMonthWords ? monthFromWord(segment.lowercasedName) : std::nullopt;
        return FolderYearMonth{inItsCentury(*year, currentYear), month};
    }
    return std::nullopt;
}

Segments segmentsOf(std::string_view path) {
    Segments segments;
    for (const auto name : folderSegments(path))
        segments.push_back({name, lowercased(name)});
    return segments;
}

}  // namespace

std::optional<FolderYearMonth> folderYearMonth(std::string_view path, bool parseMonthWords, Instant now) {
    const auto segments = segmentsOf(path);
    const int currentYear = localCivilTime(now).year;
    if (auto found = yearAndMonthInOneFolder(segments)) return found;
    if (auto found = monthFolderInYearFolder(segments)) return found;
    if (parseMonthWords) {
        if (auto found = monthWordWithYear(segments)) return found;
    }
    if (auto found = yearAlone(segments, currentYear)) return found;
    return twoDigitYear(segments, parseMonthWords, currentYear);
}

}  // namespace vellomar
