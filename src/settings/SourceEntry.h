#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Uuid.h"

namespace vellomar {

// One source folder that the user chose.
struct SourceEntry {
    Uuid id = Uuid::random();
    std::string path;
    // A right to open the folder, where the system asks for one. This one does not, so nothing makes or looks at it;
    // what is kept is kept.
    std::optional<std::string> bookmarkData;

    bool operator==(const SourceEntry&) const = default;
};

// The list as JSON: an array of objects with "id", "path" and, if there is one, "bookmarkData" in base64.
[[nodiscard]] std::string sourceEntriesText(const std::vector<SourceEntry>& entries);

// The reverse. Nothing for anything but such a list, whole; unknown members do not matter.
[[nodiscard]] std::optional<std::vector<SourceEntry>> sourceEntriesFrom(std::string_view text);

}  // namespace vellomar
