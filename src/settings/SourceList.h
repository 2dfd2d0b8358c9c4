#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "settings/SettingsStore.h"
#include "settings/SourceEntry.h"

namespace vellomar {

// The source folders, in the order in which they were added. Every change is kept in the settings at once. Interface
// thread only.
class SourceList {
public:
    // `settings` must outlive this. The list is empty until loadSourceEntries().
    explicit SourceList(SettingsStore& settings) : settings_(settings) {}

    // Reads the list. Where there is none that can be read, the one folder of an earlier version's settings becomes the
    // list, and is kept as such; failing that it is empty.
    void loadSourceEntries();

    [[nodiscard]] const std::vector<SourceEntry>& entries() const { return entries_; }

    // The folders' paths, for a run.
    [[nodiscard]] std::vector<std::string> paths() const;

    [[nodiscard]] bool contains(const std::string& path) const;

    // Appends a folder. False, and no change, if one of that very path is there.
    bool add(const std::string& path);

    // Takes out the one at `index`, which must be there.
    void removeAt(std::size_t index);

    void clear();

private:
    void saveSourceEntries();

    SettingsStore& settings_;
    std::vector<SourceEntry> entries_;
};

}  // namespace vellomar
