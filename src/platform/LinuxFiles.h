// Open files of LinuxFileSystem.
#pragma once

#include "platform/FileDescriptor.h"
#include "platform/FileSystem.h"

namespace vellomar {

class LinuxInputFile final : public InputFile {
public:
    explicit LinuxInputFile(FileDescriptor file) : file_(std::move(file)) {}

    [[nodiscard]] Expected<std::size_t> read(std::span<std::byte> buffer) override;
    [[nodiscard]] Expected<FileStatus> status() override;
    [[nodiscard]] int descriptor() const override { return file_.get(); }

private:
    FileDescriptor file_;
};

class LinuxOutputFile final : public OutputFile {
public:
    explicit LinuxOutputFile(FileDescriptor file) : file_(std::move(file)) {}

    [[nodiscard]] Expected<std::size_t> write(std::span<const std::byte> data) override;
    [[nodiscard]] Expected<void> cloneFrom(InputFile& source) override;
    [[nodiscard]] Expected<std::size_t> copyFrom(InputFile& source, std::size_t maxBytes) override;
    [[nodiscard]] Expected<void> takeAttributesOf(InputFile& source) override;
    [[nodiscard]] Expected<void> sync() override;
    [[nodiscard]] Expected<void> dropCache() override;
    [[nodiscard]] int descriptor() const override { return file_.get(); }

private:
    FileDescriptor file_;
};

}  // namespace vellomar
