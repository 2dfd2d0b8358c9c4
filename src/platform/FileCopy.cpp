#include "platform/FileCopy.h"

#include <cerrno>
#include <vector>

namespace vellomar {
namespace {

constexpr std::size_t kCopyBufferSize = 1024 * 1024;
constexpr std::size_t kLargestStep = 64 * 1024 * 1024;

// Copies inside the kernel until the end of `source`. False if the volumes cannot, before anything was copied.
Expected<bool> copyInsideKernel(InputFile& source, OutputFile& target) {
    bool copiedSomething = false;
    while (true) {
        const auto count = target.copyFrom(source, kLargestStep);
        if (!count) {
            if (copiedSomething) return tl::unexpected(count.error());
            return false;
        }
        // Some virtual file systems answer 0 for files that do have content: let a real read decide.
        if (*count == 0) return copiedSomething;
        copiedSomething = true;
    }
}

Expected<void> copyContent(InputFile& source, OutputFile& target) {
    if (target.cloneFrom(source)) return {};
    const auto copied = copyInsideKernel(source, target);
    if (!copied) return tl::unexpected(copied.error());
    if (*copied) return {};
    return copyThroughMemory(source, target, kCopyBufferSize);
}

}  // namespace

Expected<void> writeAll(OutputFile& target, std::span<const std::byte> data) {
    while (!data.empty()) {
        const auto count = target.write(data);
        if (!count) return tl::unexpected(count.error());
        if (*count == 0) return systemFailure(EIO);
        data = data.subspan(*count);
    }
    return {};
}

Expected<void> copyThroughMemory(InputFile& source, OutputFile& target, std::size_t bufferSize) {
    std::vector<std::byte> buffer(bufferSize);
    while (true) {
        const auto count = source.read(buffer);
        if (!count) return tl::unexpected(count.error());
        if (*count == 0) return {};
        if (auto written = writeAll(target, std::span(buffer).first(*count)); !written) return written;
    }
}

Expected<void> settle(OutputFile& target) {
    if (auto synced = target.sync(); !synced) return synced;
    // Where the kernel keeps the pages, verification is weaker and the copy is as good.
    static_cast<void>(target.dropCache());
    return {};
}

Expected<void> copyFile(FileSystem& fileSystem, const std::string& source, const std::string& target) {
    const auto input = fileSystem.openForReading(source, false);
    if (!input) return tl::unexpected(input.error());
    const auto output = fileSystem.createFile(target, NewFileAccess::owner);
    if (!output) return tl::unexpected(output.error());
    if (auto copied = copyContent(**input, **output); !copied) return copied;
    if (auto taken = (*output)->takeAttributesOf(**input); !taken) return taken;
    return settle(**output);
}

}  // namespace vellomar
