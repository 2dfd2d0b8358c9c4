#include "platform/AtomicWrite.h"

#include <span>

#include "platform/FileCopy.h"
#include "platform/Path.h"
#include "platform/Uuid.h"

namespace vellomar {
namespace {

// Hidden, so that no scan takes a leftover for a photographer's file, and random, so that none is in the way.
std::string temporaryPathBeside(const std::string& path) {
    return joinPath(parentPath(path), "." + Uuid::random().text() + ".tmp");
}

Expected<void> writeNewFile(FileSystem& fileSystem, const std::string& path, std::string_view content) {
    const auto file = fileSystem.createFile(path, NewFileAccess::usual);
    if (!file) return tl::unexpected(file.error());
    if (auto written = writeAll(**file, std::as_bytes(std::span(content))); !written) return written;
    return (*file)->sync();
}

Expected<void> writeAndPublish(FileSystem& fileSystem, const std::string& temporary, const std::string& path,
                               std::string_view content) {
    if (auto written = writeNewFile(fileSystem, temporary, content); !written) return written;
    return fileSystem.rename(temporary, path);
}

}  // namespace

Expected<void> writeAtomically(FileSystem& fileSystem, const std::string& path, std::string_view content) {
    const auto temporary = temporaryPathBeside(path);
    if (auto published = writeAndPublish(fileSystem, temporary, path, content); !published) {
        static_cast<void>(fileSystem.removeFile(temporary));
        return published;
    }
    return fileSystem.syncDirectory(std::string(parentPath(path)));
}

}  // namespace vellomar
