#pragma once

#include "platform/FileSystem.h"

namespace vellomar::testing {

// Hands every call to another file system. A double overrides what it wants to change.
class ForwardingFileSystem : public FileSystem {
public:
    // `real` must outlive this.
    explicit ForwardingFileSystem(FileSystem& real) : real_(real) {}

    [[nodiscard]] Expected<std::unique_ptr<Directory>> openDirectory(const std::string& path,
                                                                     bool followSymlink) override {
        return real_.openDirectory(path, followSymlink);
    }
    [[nodiscard]] Expected<FileStatus> status(const std::string& path) override { return real_.status(path); }
    [[nodiscard]] Expected<FileStatus> statusFollowingLinks(const std::string& path) override {
        return real_.statusFollowingLinks(path);
    }
    [[nodiscard]] Expected<void> checkAccess(const std::string& path, Access access) override {
        return real_.checkAccess(path, access);
    }
    [[nodiscard]] Expected<std::unique_ptr<InputFile>> openForReading(const std::string& path,
                                                                      bool followSymlink) override {
        return real_.openForReading(path, followSymlink);
    }
    [[nodiscard]] Expected<std::unique_ptr<OutputFile>> createFile(const std::string& path,
                                                                   NewFileAccess access) override {
        return real_.createFile(path, access);
    }
    [[nodiscard]] Expected<void> rename(const std::string& from, const std::string& to) override {
        return real_.rename(from, to);
    }
    [[nodiscard]] Expected<void> renameWithoutReplacing(const std::string& from, const std::string& to) override {
        return real_.renameWithoutReplacing(from, to);
    }
    [[nodiscard]] Expected<void> removeFile(const std::string& path) override { return real_.removeFile(path); }
    [[nodiscard]] Expected<void> removeDirectory(const std::string& path) override {
        return real_.removeDirectory(path);
    }
    [[nodiscard]] Expected<void> makeDirectory(const std::string& path) override { return real_.makeDirectory(path); }
    [[nodiscard]] Expected<void> syncDirectory(const std::string& path) override { return real_.syncDirectory(path); }
    [[nodiscard]] Expected<bool> volumeIsLocal(const std::string& path) override { return real_.volumeIsLocal(path); }
    [[nodiscard]] Expected<void> setModificationDate(const std::string& path, Instant date) override {
        return real_.setModificationDate(path, date);
    }
    [[nodiscard]] Expected<bool> volumeIsReadOnly(const std::string& path) override {
        return real_.volumeIsReadOnly(path);
    }
    [[nodiscard]] Expected<std::int64_t> availableBytes(const std::string& path) override {
        return real_.availableBytes(path);
    }

protected:
    [[nodiscard]] FileSystem& real() const { return real_; }

private:
    FileSystem& real_;
};

// A volume that keeps no birth times, so that a file's dates are those that a test gave it.
class WithoutBirthTimes final : public ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;

    [[nodiscard]] Expected<FileStatus> status(const std::string& path) override {
        auto status = real().status(path);
        if (status) status->created.reset();
        return status;
    }
};

}  // namespace vellomar::testing
