#include "naming/EventFolders.h"

#include "engine/model/IgnoreDirNames.h"
#include "naming/FolderSegments.h"
#include "naming/RenameRules.h"
#include "platform/Regex.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

bool isBareYear(std::string_view name) {
    static const Regex kYear(R"(^(19|20)\d\d$)");
    return kYear.matches(name);
}

bool saysNothing(std::string_view folderName) {
    const auto lower = lowercased(folderName);
    return isIgnoredDirName(lower) || isBareYear(lower);
}

}  // namespace

MeaningfulFolders meaningfulFolders(std::string_view relativeFolder, const std::vector<FolderRenameRule>& rules,
                                    bool secretFloppyMode) {
    MeaningfulFolders folders;
    for (const auto segment : folderSegments(relativeFolder))
        if (!saysNothing(segment)) folders.tail.push_back(applyRenameRules(segment, rules, secretFloppyMode));
    if (!folders.tail.empty()) folders.first = folders.tail.front();
    return folders;
}

}  // namespace vellomar
