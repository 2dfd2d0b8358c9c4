#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "dates/MetadataReader.h"

namespace vellomar {

// What the images of a folder tell about a file without a date of its own. Each image is read once, however many files
// of the folder ask; without that a folder of undated files would cost the square of its size in reads. Only the last
// folder is remembered, as a walk delivers the files of a folder one after another. One thread at a time.
class SiblingYears {
public:
    // The year that most of the dated images beside a file were shot in, in local time; the earlier one when two years
    // are even. `entries` are the absolute paths of all that stands in the file's folder, `path` is the file itself,
    // which has no say. Only JPEG, PNG and TIFF images are asked, and only for their own metadata; one that cannot be
    // read or is dated before 1990 does not count. Nothing when none counts. The thread of `reader`.
    [[nodiscard]] std::optional<int> siblingYear(const std::vector<std::string>& entries, const std::string& path,
                                                 MetadataReader& reader);

private:
    void turnTo(std::string_view folder);
    [[nodiscard]] std::optional<int> yearOf(const std::string& imagePath, MetadataReader& reader);

    std::string folder_;
    std::unordered_map<std::string, std::optional<int>> yearsByPath_;  // of the images asked so far
};

}  // namespace vellomar
