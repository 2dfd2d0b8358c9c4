// Requests of the engine driver read as the core's values. Each function throws std::invalid_argument with a text for
// the answer where an argument is missing or of the wrong kind.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "dates/CameraModel.h"
#include "dates/CandidateGathering.h"
#include "engine/model/Options.h"
#include "naming/FolderRenameRule.h"
#include "platform/BytesJson.h"
#include "platform/Instant.h"

namespace vellomar::driver {

[[nodiscard]] std::string textOf(const Json& arguments, const char* name);
[[nodiscard]] std::optional<std::string> optionalTextOf(const Json& arguments, const char* name);
[[nodiscard]] double numberOf(const Json& arguments, const char* name);
[[nodiscard]] bool flagOf(const Json& arguments, const char* name, bool valueIfAbsent);
[[nodiscard]] std::vector<std::string> textsOf(const Json& arguments, const char* name);
[[nodiscard]] Instant instantOf(const Json& arguments, const char* name);

// "options", with the settings' default for every field that is left out.
[[nodiscard]] Options optionsOf(const Json& arguments);

// "rules"; none when left out.
[[nodiscard]] std::vector<FolderRenameRule> rulesOf(const Json& arguments);

// "exifDates" and "exifCameras"; empty when left out.
[[nodiscard]] ExifDates exifDatesOf(const Json& arguments);
[[nodiscard]] ExifCameras exifCamerasOf(const Json& arguments);

}  // namespace vellomar::driver
