#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/Instant.h"
#include "undo/UndoManifest.h"

namespace vellomar {

// Name of a manifest that is written at `now`: "_vellomar_undo_2024-06-14_114312.json", local time. Two runs that end
// within one second have the same name, and the later one replaces the earlier.
[[nodiscard]] std::string manifestFileName(Instant now);

// Writes the manifest into `folder` under the name of `now`. Tells nothing of a failure: a run goes on without a
// record rather than stop. Returns the file's name in either case.
std::string saveManifest(FileSystem& fileSystem, const UndoManifest& manifest, const std::string& folder, Instant now);

// All readable manifests that lie directly in `folder`, newest name first. What cannot be read or is none is left out;
// a folder that cannot be listed has none. Reads whole files: a list over many large runs takes its time.
[[nodiscard]] std::vector<UndoManifest> loadManifests(FileSystem& fileSystem, const std::string& folder);

// The first of loadManifests() without reading the others.
[[nodiscard]] std::optional<UndoManifest> loadNewestManifest(FileSystem& fileSystem, const std::string& folder);

// A manifest that the user picked, under whatever name. The failure's description is what the user is shown. That the
// text reads as a manifest is the only check: its paths may lead anywhere or nowhere.
[[nodiscard]] Expected<UndoManifest> importManifest(FileSystem& fileSystem, const std::string& path);

// The manifests that the user picked so far, and the one that counts.
class ImportedManifests {
public:
    // A run that is in the list already is not listed twice. Either way `manifest` is the selected one afterwards.
    void add(UndoManifest manifest);

    [[nodiscard]] const std::vector<UndoManifest>& list() const { return list_; }

    // Null before the first import.
    [[nodiscard]] const UndoManifest* selected() const { return selected_ ? &*selected_ : nullptr; }

private:
    std::vector<UndoManifest> list_;
    std::optional<UndoManifest> selected_;
};

}  // namespace vellomar
