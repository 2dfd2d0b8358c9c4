#pragma once

#include <cerrno>
#include <string>
#include <utility>

#include "platform/Path.h"
#include "support/ForwardingFileSystem.h"

namespace vellomar::testing {

// A disk on which one folder is a volume of its own: nothing can be renamed into it or out of it.
class SeparateVolume final : public ForwardingFileSystem {
public:
    SeparateVolume(FileSystem& real, std::string folder) : ForwardingFileSystem(real), folder_(std::move(folder)) {}

    [[nodiscard]] Expected<void> rename(const std::string& from, const std::string& to) override {
        if (isWithin(from, folder_) != isWithin(to, folder_)) return systemFailure(EXDEV);
        return real().rename(from, to);
    }
    [[nodiscard]] Expected<void> renameWithoutReplacing(const std::string& from, const std::string& to) override {
        if (isWithin(from, folder_) != isWithin(to, folder_)) return systemFailure(EXDEV);
        return real().renameWithoutReplacing(from, to);
    }

private:
    std::string folder_;
};

}  // namespace vellomar::testing
