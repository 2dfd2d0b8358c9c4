#include "engine/RunFixture.h"

#include <algorithm>
#include <filesystem>

namespace vellomar {
namespace {

constexpr std::int64_t kModified = 1'693'569'600;  // 2023-09-01 12:00 UTC

bool startsAny(std::string_view line, std::initializer_list<std::string_view> beginnings) {
    return std::ranges::any_of(beginnings, [&](auto beginning) { return line.starts_with(beginning); });
}

}  // namespace

Options RunTest::copyOptions() {
    Options options;
    options.dryRun = false;
    options.useExifToolForImages = options.useExifToolForVideo = false;
    return options;
}

Options RunTest::moveOptions() {
    auto options = copyOptions();
    options.moveOriginalsWhenReliable = true;
    return options;
}

Options RunTest::dryOptions() {
    auto options = copyOptions();
    options.dryRun = true;
    return options;
}

std::string RunTest::photo(const std::string& relative, std::string_view content) const {
    auto path = folder.write("source/" + relative, content);
    LinuxFileSystem fileSystemOfTheDisk;
    EXPECT_TRUE(fileSystemOfTheDisk.setModificationDate(path, instantFromUnixSeconds(kModified)));
    return path;
}

std::vector<std::string> RunTest::fileLines() const {
    const auto& all = log();
    const auto first = std::ranges::find_if(all, [](const auto& line) { return line.starts_with("Total files: "); });
    std::vector<std::string> lines;
    for (auto line = first == all.end() ? first : first + 1; line != all.end(); ++line) {
        if (startsAny(*line, {"Undo manifest saved: ", "No duplicates detected.", "Found ", "═"}) || line->empty())
            break;
        if (!line->starts_with("chosen=")) lines.push_back(*line);
    }
    return lines;
}

bool RunTest::hasLine(const std::string& line) const {
    return std::ranges::find(log(), line) != log().end();
}

std::vector<std::string> filesBelow(const std::string& folder) {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (!entry.is_directory()) files.push_back(entry.path().string().substr(folder.size() + 1));
    std::ranges::sort(files);
    return files;
}

}  // namespace vellomar
