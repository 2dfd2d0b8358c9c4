#include <algorithm>
#include <string>

#include "dates/FolderDates.h"
#include "fuzz/Require.h"
#include "fuzz/Targets.h"

namespace vellomar::fuzz {
namespace {

constexpr Instant kNow = instantFromUnixSeconds(std::int64_t{1'780'000'000});  // May 2026

std::string withSlashesOnly(std::string_view path) {
    std::string text(path);
    std::ranges::replace(text, '\\', '/');
    return text;
}

void requireRange(const FolderYearMonth& found) {
    require(found.year >= 1900 && found.year < 2100, "a folder's year is of this century or the last");
    require(!found.month || (*found.month >= 1 && *found.month <= 12), "a month is one of twelve");
}

void run(Input input) {
    const auto path = textOf(input);
    const auto found = folderYearMonth(path, true, kNow);
    const auto withoutWords = folderYearMonth(path, false, kNow);
    if (found) requireRange(*found);
    if (withoutWords) requireRange(*withoutWords);
    require(found.has_value() || !withoutWords.has_value(), "month words take no year away");
    require(found == folderYearMonth(withSlashesOnly(path), true, kNow), "both slashes part folders");
}

}  // namespace

const Target kFolderDates = {"FolderDatesFuzz", InputKind::text, nullptr, run};

}  // namespace vellomar::fuzz
