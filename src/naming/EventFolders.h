#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "naming/FolderRenameRule.h"

namespace vellomar {

// The folders on a file's way that say something about it, under the names that the user wants for them.
struct MeaningfulFolders {
    std::optional<std::string> first;  // the event: the outermost of them; empty if a rule makes it so
    std::vector<std::string> tail;     // all of them, outermost first

    bool operator==(const MeaningfulFolders&) const = default;
};

// `relativeFolder` is the path of the file's folder below its source, split at "/" and "\"; empty for a file straight
// in the source, which has no event. Camera folders, catch-alls (isIgnoredDirName) and bare years of 19xx and 20xx are
// passed over, going by the folder's own name: no rule brings one back, and what a rule gives is never passed over.
// Any other folder counts, "08 - August" of a tree that was sorted before included. Pure; any thread.
[[nodiscard]] MeaningfulFolders meaningfulFolders(std::string_view relativeFolder,
                                                  const std::vector<FolderRenameRule>& rules, bool secretFloppyMode);

}  // namespace vellomar
