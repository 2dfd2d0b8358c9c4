#pragma once

#include <cstdint>
#include <unordered_set>
#include <vector>

#include "engine/model/TaggedFile.h"

namespace vellomar {

// Which files of a run can have a duplicate in it at all, going by the sizes that the scan read: bytes that are equal
// are equally many. It spares the reading of nearly every file of a library when duplicates are looked for.
class SizeCensus {
public:
    explicit SizeCensus(const std::vector<TaggedFile>& files);

    // False only if no other file of the run can hold the same bytes.
    [[nodiscard]] bool mayHaveDuplicate(const TaggedFile& file) const;

private:
    bool someSizesUnknown_ = false;  // one of those may equal any other
    std::unordered_set<std::int64_t> repeatedSizes_;
};

}  // namespace vellomar
