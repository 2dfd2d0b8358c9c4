#pragma once

#include <optional>
#include <string_view>

#include "platform/Instant.h"

namespace vellomar {

// When a folder says its files were made. Not a shoot date: the day is anyone's guess.
struct FolderYearMonth {
    int year = 0;
    std::optional<int> month;  // 1 to 12

    bool operator==(const FolderYearMonth&) const = default;
};

// A year, and a month where there is one, from the folders of the relative path `path`, split at "/" and "\". The forms
// are tried one after the other, each on all folders from the outermost inwards, so that a clear form anywhere beats a
// doubtful one nearer the source:
//
//   1. "2012-08", also with "_", "." or a blank
//   2. "2012/08", "2012/8": two folders, one in the other
//   3. "Aug 2019", "Enero 2014": a month word and four digits in one folder
//   4. "Fotos Vacaciones 2012": from 1990 to the current year
//   5. "Aug 19", "Hawaii 85": two digits standing free, in this century up to the current year, else in the last
//
// Month words are English and Spanish, and found inside other words too ("marina" is March). They count only where
// `parseMonthWords` is set; without it form 5 still gives its year. In a folder with words of two months the earlier
// month wins. `now` tells the current year. Nothing for a path without a year. Pure; any thread.
[[nodiscard]] std::optional<FolderYearMonth> folderYearMonth(std::string_view path, bool parseMonthWords, Instant now);

}  // namespace vellomar
