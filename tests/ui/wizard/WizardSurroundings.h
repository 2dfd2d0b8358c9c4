#pragma once

#include <memory>

#include "platform/LinuxFileSystem.h"
#include "settings/SettingsFile.h"
#include "ui/ScriptedFileChooser.h"
#include "ui/desktop/RecordingDesktop.h"
#include "ui/main/Folders.h"
#include "ui/wizard/WizardModel.h"

namespace vellomar::testing {

// What a wizard works with, on settings of its own.
struct WizardSurroundings {
    LinuxFileSystem fileSystem;
    SettingsFile file;
    std::unique_ptr<SettingsStore> settings = file.open();
    ScriptedFileChooser chooser;
    RecordingLinks links;
    BackgroundWork background;
    Folders folders{{*settings, fileSystem, chooser, background}};

    [[nodiscard]] WizardModel::Surroundings forModel() { return {folders, chooser, links}; }
};

}  // namespace vellomar::testing
