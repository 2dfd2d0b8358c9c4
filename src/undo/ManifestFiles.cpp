#include "undo/ManifestFiles.h"

#include <algorithm>
#include <functional>

#include <fmt/format.h>

#include "engine/model/DateString.h"
#include "platform/AtomicWrite.h"
#include "platform/Path.h"
#include "platform/WholeFile.h"
#include "undo/ManifestText.h"

namespace vellomar {
namespace {

constexpr std::string_view kNamePrefix = "_vellomar_undo_";
constexpr std::string_view kNameExtension = "json";

bool isManifestName(std::string_view name) {
    return name.starts_with(kNamePrefix) && pathExtension(name) == kNameExtension;
}

// Names in `folder` that look like manifests, newest first: the name holds the time, most significant part first.
std::vector<std::string> manifestNames(FileSystem& fileSystem, const std::string& folder) {
    std::vector<std::string> names;
    const auto directory = fileSystem.openDirectory(folder, true);
    if (!directory) return names;
    while (true) {
        const auto entry = (*directory)->next();
        if (!entry || !*entry) break;
        if (isManifestName((*entry)->name)) names.emplace_back((*entry)->name);
    }
    std::ranges::sort(names, std::greater<>());
    return names;
}

std::optional<UndoManifest> readManifest(FileSystem& fileSystem, const std::string& path) {
    const auto text = readWholeFile(fileSystem, path);
    return text ? manifestFromText(*text) : std::nullopt;
}

}  // namespace

std::string manifestFileName(Instant now) {
    return fmt::format("{}{}.{}", kNamePrefix, dateString(now, "yyyy-MM-dd_HHmmss"), kNameExtension);
}

std::string saveManifest(FileSystem& fileSystem, const UndoManifest& manifest, const std::string& folder, Instant now) {
    auto name = manifestFileName(now);
    static_cast<void>(writeAtomically(fileSystem, joinPath(folder, name), manifestText(manifest)));
    return name;
}

std::vector<UndoManifest> loadManifests(FileSystem& fileSystem, const std::string& folder) {
    std::vector<UndoManifest> manifests;
    for (const auto& name : manifestNames(fileSystem, folder))
        if (auto manifest = readManifest(fileSystem, joinPath(folder, name))) manifests.push_back(std::move(*manifest));
    return manifests;
}

std::optional<UndoManifest> loadNewestManifest(FileSystem& fileSystem, const std::string& folder) {
    for (const auto& name : manifestNames(fileSystem, folder))
        if (auto manifest = readManifest(fileSystem, joinPath(folder, name))) return manifest;
    return std::nullopt;
}

Expected<UndoManifest> importManifest(FileSystem& fileSystem, const std::string& path) {
    if (auto manifest = readManifest(fileSystem, path)) return std::move(*manifest);
    auto message =
        fmt::format("Could not read {} — is it a valid Vellomar undo file?", std::string(lastPathComponent(path)));
    return tl::unexpected(Error{"Vellomar", 1, std::move(message)});
}

void ImportedManifests::add(UndoManifest manifest) {
    const bool isListed = std::ranges::find(list_, manifest.runID, &UndoManifest::runID) != list_.end();
    if (!isListed) list_.push_back(manifest);
    selected_ = std::move(manifest);
}

}  // namespace vellomar
