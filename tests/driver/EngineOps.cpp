#include <chrono>
#include <stdexcept>

#include "driver/Arguments.h"
#include "driver/Ops.h"
#include "driver/Results.h"
#include "support/EngineHarness.h"
#include "undo/ManifestFiles.h"

namespace vellomar::driver {
namespace {

using testing::EngineHarness;

void armCancel(EngineHarness& harness, const Json& arguments) {
    const auto cancel = arguments.find("cancelWhen");
    if (cancel == arguments.end() || cancel->is_null()) return;
    if (const auto text = optionalTextOf(*cancel, "log"))
        harness.cancelWhenLogged(*text);
    else
        harness.cancelWhenStatus(textOf(*cancel, "status"));
}

Json notificationOf(const EngineHarness& harness) {
    const auto notification = harness.notifications.last();
    if (!notification) return nullptr;
    return {{"title", notification->title}, {"body", notification->body}};
}

// The engine's state after a request, with what was published on the way.
Json published(const EngineHarness& harness, double seconds) {
    Json result = jsonOf(harness.state());
    result["allLogLines"] = harness.observer.allLogLines;
    result["statusHistory"] = harness.observer.statusHistory;
    result["progressHistory"] = harness.observer.progressHistory;
    result["notification"] = notificationOf(harness);
    result["seconds"] = seconds;
    return result;
}

Json run(const Surroundings& surroundings, const Json& arguments) {
    EngineHarness harness(
        {.exifTool = &surroundings.exifTool, .secretFloppyMode = flagOf(arguments, "floppyMode", false)});
    harness.engine->setRenameRules(rulesOf(arguments));
    armCancel(harness, arguments);
    const auto start = std::chrono::steady_clock::now();
    harness.run(textsOf(arguments, "sources"), textOf(arguments, "dest"), optionsOf(arguments));
    return published(harness, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
}

Json undo(const Surroundings& surroundings, const Json& arguments) {
    EngineHarness harness({.exifTool = &surroundings.exifTool});
    auto manifest = importManifest(harness.realFileSystem, textOf(arguments, "manifest"));
    if (!manifest) throw std::invalid_argument(manifest.error().description);
    const auto start = std::chrono::steady_clock::now();
    harness.undo(*std::move(manifest));
    return published(harness, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
}

Json manifests(const Json& arguments) {
    LinuxFileSystem fileSystem;
    Json list = Json::array();
    for (const auto& manifest : loadManifests(fileSystem, textOf(arguments, "dest")))
        list.push_back(jsonOf(manifest));
    return list;
}

Json imported(const Json& arguments) {
    LinuxFileSystem fileSystem;
    const auto manifest = importManifest(fileSystem, textOf(arguments, "path"));
    if (!manifest) return {{"message", manifest.error().description}};
    return jsonOf(*manifest);
}

}  // namespace

void addEngineOps(Ops& ops, Surroundings& surroundings) {
    ops["run"] = [&](const Json& arguments) { return run(surroundings, arguments); };
    ops["undo"] = [&](const Json& arguments) { return undo(surroundings, arguments); };
    ops["loadManifests"] = manifests;
    ops["importManifest"] = imported;
}

}  // namespace vellomar::driver
