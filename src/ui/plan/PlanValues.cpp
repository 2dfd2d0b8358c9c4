#include "ui/plan/PlanValues.h"

#include <charconv>
#include <cstddef>
#include <vector>

#include "platform/LocalTime.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

constexpr std::int64_t kEventGap = 4 * 3600;
constexpr std::size_t kYearLength = 4;
constexpr std::size_t kLongestMonthFolder = 14;
constexpr std::string_view kDateForm = "0000-00-00 00:00:00";

bool hasDateForm(std::string_view text) {
    if (text.size() != kDateForm.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (kDateForm[i] == '0' ? !isDigit : text[i] != kDateForm[i]) return false;
    }
    return true;
}

int numberAt(std::string_view text, std::size_t place, std::size_t length) {
    int number = 0;
    std::from_chars(text.data() + place, text.data() + place + length, number);
    return number;
}

std::vector<std::string_view> componentsOf(std::string_view path) {
    std::vector<std::string_view> components;
    while (!path.empty()) {
        const auto end = path.find('/');
        if (end != 0) components.push_back(path.substr(0, end));
        path.remove_prefix(end == std::string_view::npos ? path.size() : end + 1);
    }
    return components;
}

// "08 - August", but not "Trip - Norway 2019".
bool isMonthFolder(std::string_view name) {
    return name.find(" - ") != std::string_view::npos && characterCount(name) <= kLongestMonthFolder;
}

// As many bytes as the first `count` characters have.
std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    for (; count > 0 && end < text.size(); --count) {
        const auto length = utf8CharacterLength(text.substr(end));
        end += length == 0 ? 1 : length;
    }
    return text.substr(0, end);
}

}  // namespace

std::optional<std::int64_t> eventTime(std::string_view resolvedDate) {
    if (!hasDateForm(resolvedDate)) return std::nullopt;
    const auto instant = strictLocalInstant({.year = numberAt(resolvedDate, 0, 4),
                                             .month = numberAt(resolvedDate, 5, 2),
                                             .day = numberAt(resolvedDate, 8, 2),
                                             .hour = numberAt(resolvedDate, 11, 2),
                                             .minute = numberAt(resolvedDate, 14, 2),
                                             .second = numberAt(resolvedDate, 17, 2)});
    return instant ? std::optional(wholeUnixSeconds(*instant)) : std::nullopt;
}

bool beginsEvent(std::optional<std::int64_t> before, std::optional<std::int64_t> time) {
    return before && time && *time - *before > kEventGap;
}

std::string_view yearOf(const PlanRow& row) {
    return firstCharacters(row.resolvedDate, kYearLength);
}

std::string_view folderOf(const PlanRow& row) {
    const auto components = componentsOf(row.destination);
    return components.size() < 2 ? std::string_view() : components[components.size() - 2];
}

std::string_view offeredCamera(const PlanRow& row) {
    return row.cameraModel == "—" ? std::string_view() : row.cameraModel;
}

std::string_view offeredYear(const PlanRow& row) {
    const auto year = yearOf(row);
    return characterCount(year) < kYearLength ? std::string_view() : year;
}

std::string_view offeredFolder(const PlanRow& row) {
    if (componentsOf(row.destination).size() < 3) return {};
    const auto folder = folderOf(row);
    return isMonthFolder(folder) ? std::string_view() : folder;
}

std::string searchableText(const PlanRow& row) {
    std::string text;
    for (const auto* const field : {&row.source, &row.destination, &row.cameraModel, &row.resolvedDate})
        text.append(lowercased(*field)).push_back('\0');
    return text;
}

}  // namespace vellomar
