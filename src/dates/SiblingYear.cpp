#include "dates/SiblingYear.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

#include "platform/LocalTime.h"
#include "platform/Path.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

using namespace std::string_view_literals;

constexpr std::array kSiblingExtensions = {"jpg"sv, "jpeg"sv, "png"sv, "tif"sv, "tiff"sv};
constexpr int kEarliestSiblingYear = 1990;

bool canLendItsYear(std::string_view path) {
    return std::ranges::find(kSiblingExtensions, lowercased(pathExtension(path))) != kSiblingExtensions.end();
}

std::optional<int> yearInside(const std::string& imagePath, MetadataReader& reader) {
    const auto found = reader.readImageDate(imagePath);
    if (!found) return std::nullopt;
    const int year = localCivilTime(found->date).year;
    if (year < kEarliestSiblingYear) return std::nullopt;
    return year;
}

// `imagesByYear` is in the order of the years, so the first of equals is the earlier one.
std::optional<int> commonestYear(const std::map<int, int>& imagesByYear) {
    const auto commonest = std::ranges::max_element(imagesByYear, {}, &std::map<int, int>::value_type::second);
    if (commonest == imagesByYear.end()) return std::nullopt;
    return commonest->first;
}

}  // namespace

std::optional<int> SiblingYears::siblingYear(const std::vector<std::string>& entries, const std::string& path,
                                             MetadataReader& reader) {
    turnTo(parentPath(path));
    std::map<int, int> imagesByYear;
    for (const auto& entry : entries) {
        if (entry == path || !canLendItsYear(entry)) continue;
        if (const auto year = yearOf(entry, reader)) ++imagesByYear[*year];
    }
    return commonestYear(imagesByYear);
}

void SiblingYears::turnTo(std::string_view folder) {
    if (folder == folder_) return;
    folder_ = folder;
    yearsByPath_.clear();
}

std::optional<int> SiblingYears::yearOf(const std::string& imagePath, MetadataReader& reader) {
    const auto [known, isNew] = yearsByPath_.try_emplace(imagePath);
    if (isNew) known->second = yearInside(imagePath, reader);
    return known->second;
}

}  // namespace vellomar
