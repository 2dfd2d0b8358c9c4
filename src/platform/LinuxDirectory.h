#pragma once

#include <array>

#include "platform/FileDescriptor.h"
#include "platform/FileSystem.h"

namespace vellomar {

// A folder's listing straight from getdents64(): a buffer of entries at a time, whatever the folder's size.
class LinuxDirectory final : public Directory {
public:
    explicit LinuxDirectory(FileDescriptor folder) : folder_(std::move(folder)) {}

    [[nodiscard]] Expected<std::optional<Entry>> next() override;
    [[nodiscard]] Expected<FileStatus> statusOf(const char* name) override;
    [[nodiscard]] Expected<FileIdentity> identity() override;

private:
    // False at the end of the listing.
    [[nodiscard]] Expected<bool> refill();

    static constexpr std::size_t kBufferSize = 32 * 1024;

    FileDescriptor folder_;
    alignas(8) std::array<char, kBufferSize> buffer_{};
    std::size_t filled_ = 0;
    std::size_t position_ = 0;
};

}  // namespace vellomar
