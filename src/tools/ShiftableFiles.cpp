#include "tools/ShiftableFiles.h"

#include <cerrno>
#include <functional>

#include "engine/model/FileKind.h"
#include "platform/FolderWalk.h"

namespace vellomar {
namespace {

using Visit = std::function<void(const FolderWalk::Entry&)>;
using Refuse = std::function<void(const std::string& folder, const Error&)>;

bool canBeShifted(const FolderWalk::Entry& entry) {
    return entry.type == FileType::regular && fileKindOf(entry.name) != FileKind::other;
}

bool isAbsolute(const std::string& path) {
    return path.starts_with('/') && path.find('\0') == std::string::npos;
}

Expected<FolderWalk> openWalk(FileSystem& fileSystem, const std::string& folder, EnteredFolders& entered,
                              const std::stop_token& stop) {
    if (!isAbsolute(folder)) return systemFailure(EINVAL);
    return FolderWalk::open(fileSystem, folder, stop, {.withHiddenNames = true, .entered = &entered});
}

void visitShiftableFiles(FileSystem& fileSystem, const std::vector<std::string>& folders, const std::stop_token& stop,
                         const Visit& visit, const Refuse& refuse) {
    EnteredFolders entered;
    for (const auto& folder : folders) {
        if (stop.stop_requested()) return;
        auto walk = openWalk(fileSystem, folder, entered, stop);
        if (!walk) {
            refuse(folder, walk.error());
            continue;
        }
        while (const auto entry = walk->next())
            if (canBeShifted(*entry)) visit(*entry);
    }
}

}  // namespace

ShiftableCount countShiftableFiles(FileSystem& fileSystem, const std::vector<std::string>& folders,
                                   const std::stop_token& stop) {
    ShiftableCount count;
    visitShiftableFiles(
        fileSystem, folders, stop, [&](const FolderWalk::Entry&) { ++count.files; },
        [&](const std::string& folder, const Error& why) { count.refused.emplace(folder, why); });
    return count;
}

std::vector<std::string> collectShiftableFiles(FileSystem& fileSystem, const std::vector<std::string>& folders,
                                               const std::stop_token& stop) {
    std::vector<std::string> paths;
    visitShiftableFiles(
        fileSystem, folders, stop, [&](const FolderWalk::Entry& entry) { paths.push_back(entry.path()); },
        [](const std::string&, const Error&) {});
    return paths;
}

}  // namespace vellomar
