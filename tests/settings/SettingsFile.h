#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/LinuxFileSystem.h"
#include "settings/SettingsStore.h"
#include "support/TemporaryFolder.h"

namespace vellomar::testing {

// A settings file in a folder of its own, and stores that read it as starts of the program do.
class SettingsFile {
public:
    // Without `content` there is no file yet, nor a folder for it.
    SettingsFile() = default;
    explicit SettingsFile(std::string_view content) { folder_.write("vellomar/settings.json", content); }

    [[nodiscard]] std::string path() const { return folder_ / "vellomar/settings.json"; }
    [[nodiscard]] const TemporaryFolder& folder() const { return folder_; }

    [[nodiscard]] std::unique_ptr<SettingsStore> open() { return std::make_unique<SettingsStore>(fileSystem_, path()); }

    // As the program's end leaves it.
    [[nodiscard]] Json content() const { return parseJson(contentOf(path())).value(); }

private:
    TemporaryFolder folder_{TemporaryFolder::Where::inMemory};
    LinuxFileSystem fileSystem_;
};

}  // namespace vellomar::testing
