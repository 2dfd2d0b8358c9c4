#include "platform/watch/FolderRecord.h"

#include <algorithm>
#include <functional>

namespace vellomar {
namespace {

std::uint64_t markOf(std::string_view path, std::int64_t size) {
    // An odd factor: two sizes of one path never share a mark.
    constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;
    return std::hash<std::string_view>()(path) ^ (static_cast<std::uint64_t>(size) * kSpread);
}

}  // namespace

void FolderRecord::add(std::string_view path, std::int64_t size) {
    marks_.push_back(markOf(path, size));
}

void FolderRecord::add(const FolderRecord& other) {
    marks_.insert(marks_.end(), other.marks_.begin(), other.marks_.end());
}

void FolderRecord::settle() {
    const auto middle = marks_.begin() + static_cast<std::ptrdiff_t>(settled_);
    std::sort(middle, marks_.end());
    std::inplace_merge(marks_.begin(), middle, marks_.end());
    marks_.erase(std::unique(marks_.begin(), marks_.end()), marks_.end());
    settled_ = marks_.size();
}

bool FolderRecord::holds(std::string_view path, std::int64_t size) const {
    return std::ranges::binary_search(marks_, markOf(path, size));
}

}  // namespace vellomar
