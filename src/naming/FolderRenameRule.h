#pragma once

#include <string>

#include "platform/Uuid.h"

namespace vellomar {

// The user's wish to call certain folders by a better name.
struct FolderRenameRule {
    Uuid id = Uuid::random();
    std::string matchText;    // searched for in the folder's name, ignoring case
    std::string replacement;  // takes the place of the whole name; a "/" in it nests folders
    bool isEnabled = true;

    bool operator==(const FolderRenameRule&) const = default;
};

}  // namespace vellomar
