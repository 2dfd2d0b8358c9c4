#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "naming/FolderRenameRule.h"

namespace vellomar {

// The name that a folder goes by: the replacement of the first enabled rule whose text occurs in `name`, in any case of
// letters; `name` itself when there is none. The whole name gives way, not the part that matched, and a replacement is
// not searched again. It may be empty. `secretFloppyMode` first renames one family of folders, and the rules then see
// its result. Pure; any thread.
[[nodiscard]] std::string applyRenameRules(std::string_view name, const std::vector<FolderRenameRule>& rules,
                                           bool secretFloppyMode);

}  // namespace vellomar
