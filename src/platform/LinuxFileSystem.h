#pragma once

#include "platform/FileSystem.h"

namespace vellomar {

// The disk itself: each operation is the kernel call of its name. Holds no state.
class LinuxFileSystem final : public FileSystem {
public:
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

    // On file systems that cannot refuse to replace, a hard link stands in, and where there are none either, a look
    // right before the rename.
    [[nodiscard]] Expected<void> renameWithoutReplacing(const std::string& from, const std::string& to) override;

    [[nodiscard]] Expected<void> removeFile(const std::string& path) override;
    [[nodiscard]] Expected<void> removeDirectory(const std::string& path) override;
    [[nodiscard]] Expected<void> makeDirectory(const std::string& path) override;
    [[nodiscard]] Expected<void> syncDirectory(const std::string& path) override;
    [[nodiscard]] Expected<bool> volumeIsLocal(const std::string& path) override;
    [[nodiscard]] Expected<void> setModificationDate(const std::string& path, Instant date) override;
    [[nodiscard]] Expected<bool> volumeIsReadOnly(const std::string& path) override;
    [[nodiscard]] Expected<std::int64_t> availableBytes(const std::string& path) override;
};

}  // namespace vellomar
