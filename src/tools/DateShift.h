// What a shift of dates is called and what it asks of ExifTool. Pure; any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellomar {

// By how much the clock of a camera is put right: ahead when positive. The two parts may have different signs.
struct DateShift {
    int days = 0;
    int hours = 0;

    [[nodiscard]] std::int64_t totalHours() const;
};

// "No change", "+1 day 6 hours", "2 days". A shift back reads without its sign: that is to be seen where the two parts
// are set, and in shiftOutcome().
[[nodiscard]] std::string shiftDescription(const DateShift& shift);

// What ExifTool is given for one file, whose absolute path `path` is; nothing where it has nothing to do. ExifTool
// leaves no copy of the file as it was.
[[nodiscard]] std::optional<std::vector<std::string>> shiftArguments(const DateShift& shift, const std::string& path);

// "3/17 → IMG_0001.jpg", in the bytes of the name of the file that was worked on last.
[[nodiscard]] std::string shiftProgress(std::size_t done, std::size_t files, std::string_view path);

// "Done — shifted 17 files by +5 hours". The number is that of the files that were worked on, whatever ExifTool made of
// each.
[[nodiscard]] std::string shiftOutcome(const DateShift& shift, std::size_t files);

// Of a shift that ended early: how many files were worked on, and that no other was.
[[nodiscard]] std::string stoppedShiftOutcome(const DateShift& shift, std::size_t done, std::size_t files);

}  // namespace vellomar
