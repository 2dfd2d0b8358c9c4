#include "platform/WholeFile.h"

#include <array>

namespace vellomar {

Expected<std::string> readWholeFile(FileSystem& fileSystem, const std::string& path) {
    constexpr std::size_t kReadSize = 64 * 1024;
    const auto file = fileSystem.openForReading(path, true);
    if (!file) return tl::unexpected(file.error());
    std::array<char, kReadSize> buffer{};
    std::string content;
    while (true) {
        const auto count = (*file)->read(std::as_writable_bytes(std::span(buffer)));
        if (!count) return tl::unexpected(count.error());
        if (*count == 0) return content;
        content.append(buffer.data(), *count);
    }
}

}  // namespace vellomar
