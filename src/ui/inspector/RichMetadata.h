#pragma once

#include <QMap>
#include <QString>

#include "platform/decoder/CameraProperties.h"

namespace vellomar {

// What the camera recorded, by name ("Camera Make", "Shutter", "GPS Latitude"), in the words in which it is shown; only
// what is there. The raw coordinates are decimal numbers, negative for south and west. Any thread.
[[nodiscard]] QMap<QString, QString> richMetadata(const CameraProperties& properties);

}  // namespace vellomar
