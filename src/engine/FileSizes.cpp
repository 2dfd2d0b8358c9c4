#include "engine/FileSizes.h"

#include "platform/Path.h"

namespace vellomar {

void FileSizes::record(std::string_view folder, std::string_view name, std::int64_t size) {
    total_ += size;
    if (!pathsMayRepeat_) return;
    const auto [known, isNew] = byPath_.try_emplace(joinPath(folder, name), size);
    if (isNew) return;
    total_ -= known->second;
    known->second = size;
}

}  // namespace vellomar
