#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <string>

#include "platform/FileSystem.h"

namespace vellomar::testing {

// Passes every call on, but one: the n-th call of all, on whatever open file or folder, fails as the kernel does, or
// never returns because the process is gone. A write or a copy that is hit takes a few bytes first, as on a disk that
// fills up.
class FaultyFileSystem final : public FileSystem {
public:
    enum class Fault { fail, killProcess };

    // `call` counts from 1. `real` must outlive this.
    FaultyFileSystem(FileSystem& real, std::size_t call, Fault fault, int errnoValue);

    // Calls made so far.
    [[nodiscard]] std::size_t calls() const { return plan_->calls; }

    // Whether the call that was to fail was made.
    [[nodiscard]] bool hasFailed() const { return plan_->calls >= plan_->call; }

    [[nodiscard]] Expected<std::unique_ptr<Directory>> openDirectory(const std::string& path,
                                                                     bool followSymlink) override;
    [[nodiscard]] Expected<FileStatus> status(const std::string& path) override;
    [[nodiscard]] Expected<FileStatus> statusFollowingLinks(const std::string& path) override;
    [[nodiscard]] Expected<void> checkAccess(const std::string& path, Access access) override;
    [[nodiscard]] Expected<std::unique_ptr<InputFile>> openForReading(const std::string& path,
                                                                      bool followSymlink) override;
    [[nodiscard]] Expected<std::unique_ptr<OutputFile>> createFile(const std::string& path,
                                                                   NewFileAccess access) override;
    [[nodiscard]] Expected<void> rename(const std::string& from, const std::string& to) override;
    [[nodiscard]] Expected<void> renameWithoutReplacing(const std::string& from, const std::string& to) override;
    [[nodiscard]] Expected<void> removeFile(const std::string& path) override;
    [[nodiscard]] Expected<void> removeDirectory(const std::string& path) override;
    [[nodiscard]] Expected<void> makeDirectory(const std::string& path) override;
    [[nodiscard]] Expected<void> syncDirectory(const std::string& path) override;
    [[nodiscard]] Expected<bool> volumeIsLocal(const std::string& path) override;
    [[nodiscard]] Expected<void> setModificationDate(const std::string& path, Instant date) override;
    [[nodiscard]] Expected<bool> volumeIsReadOnly(const std::string& path) override;
    [[nodiscard]] Expected<std::int64_t> availableBytes(const std::string& path) override;

    // Shared with the files and folders that were opened.
    struct Plan {
        std::size_t call;
        Fault fault;
        int errnoValue;
        std::atomic<std::size_t> calls = 0;

        // Counts one call. True if this is the one to fail; if it is to end the process, there is no return.
        [[nodiscard]] bool strikes();
        // As above, for calls that first do a part of their work.
        [[nodiscard]] bool isDue();
        void killIfPlanned() const;
    };

private:
    FileSystem& real_;
    std::shared_ptr<Plan> plan_;
};

}  // namespace vellomar::testing
