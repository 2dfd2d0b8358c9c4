#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vellomar {

// Which files there were, and of what size, at eight bytes a file: of each only a mark is kept, a hash of both. Among
// 300,000 files two share one with a chance of one in hundreds of millions; the second would be taken for known.
class FolderRecord {
public:
    void add(std::string_view path, std::int64_t size);

    // All that another one holds.
    void add(const FolderRecord& other);

    // To be called when all of a batch is added, before the next question.
    void settle();

    // Whether that file was added, with that size.
    [[nodiscard]] bool holds(std::string_view path, std::int64_t size) const;

private:
    std::vector<std::uint64_t> marks_;  // as far as they are settled, sorted and each once
    std::size_t settled_ = 0;
};

}  // namespace vellomar
