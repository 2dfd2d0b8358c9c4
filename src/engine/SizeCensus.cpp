#include "engine/SizeCensus.h"

#include <algorithm>

namespace vellomar {

SizeCensus::SizeCensus(const std::vector<TaggedFile>& files) {
    std::vector<std::int64_t> sizes;
    sizes.reserve(files.size());
    for (const auto& file : files) {
        if (file.size)
            sizes.push_back(*file.size);
        else
            someSizesUnknown_ = true;
    }
    std::ranges::sort(sizes);
    for (auto twin = std::ranges::adjacent_find(sizes); twin != sizes.end();
         twin = std::adjacent_find(twin + 1, sizes.end()))
        repeatedSizes_.insert(*twin);
}

bool SizeCensus::mayHaveDuplicate(const TaggedFile& file) const {
    return someSizesUnknown_ || !file.size || repeatedSizes_.contains(*file.size);
}

}  // namespace vellomar
