#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dates/MetadataReader.h"

namespace vellomar {

// The year that most of the dated images beside a file were shot in, in local time; the earlier one when two years are
// even. `entries` are the absolute paths of all that stands in the file's folder, `path` is the file itself, which has
// no say. Only JPEG, PNG and TIFF images are asked, and only for their own metadata; one that cannot be read or is
// dated before 1990 does not count. Nothing when none counts.
//
// Opens every image among `entries`, each time anew. The thread of `reader`.
[[nodiscard]] std::optional<int> siblingYear(const std::vector<std::string>& entries, const std::string& path,
                                             MetadataReader& reader);

}  // namespace vellomar
