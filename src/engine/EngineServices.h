#pragma once

#include <string>

#include "dates/ExifTool.h"
#include "dates/MetadataReader.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/MainActor.h"
#include "platform/NotificationService.h"
#include "platform/SleepInhibitor.h"
#include "platform/UserDefaults.h"

namespace vellomar {

// What the engine asks of its surroundings. All of it must outlive the engine.
struct EngineServices {
    MainActor& mainActor;
    FileSystem& fileSystem;
    const Clock& clock;
    NotificationService& notifications;
    SleepInhibitor& sleepInhibitor;
    const UserDefaults& userDefaults;
    const ExifUtils::ExifTool& exifTool;
    MetadataReaders& metadataReaders;
    std::string pixelDecoderProgram;  // path of the executable that decodes pictures
};

}  // namespace vellomar
