#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vellomar {

// How much the scan measured, files that it dropped afterwards included. The size of a kept file stands in its record;
// of the others only the sum is ever asked for. A path counts once however many sources lead to it, which costs memory
// only where sources overlap.
class FileSizes {
public:
    explicit FileSizes(bool pathsMayRepeat) : pathsMayRepeat_(pathsMayRepeat) {}

    // The size of the file `name` in `folder`, in bytes. A later reading of one path replaces the earlier.
    void record(std::string_view folder, std::string_view name, std::int64_t size);

    [[nodiscard]] std::int64_t total() const { return total_; }

private:
    bool pathsMayRepeat_;
    std::int64_t total_ = 0;
    std::unordered_map<std::string, std::int64_t> byPath_;  // empty unless paths may repeat
};

}  // namespace vellomar
