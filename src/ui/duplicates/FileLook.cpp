#include "ui/duplicates/FileLook.h"

namespace vellomar {

std::optional<FoundFile> firstFileAt(FileSystem& fileSystem, const std::vector<std::string>& places) {
    for (const auto& place : places) {
        if (place.empty()) continue;
        const auto status = fileSystem.statusFollowingLinks(place);
        if (status && status->type == FileType::regular) return FoundFile{place, status->size, status->modified};
    }
    return std::nullopt;
}

}  // namespace vellomar
