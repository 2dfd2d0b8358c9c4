#pragma once

#include <string>
#include <unordered_map>

#include "dates/DateCandidate.h"

namespace vellomar {

// The dates that ExifTool told, by absolute path.
using ExifDates = std::unordered_map<std::string, DateCandidate>;

// What ExifTool told of each file's camera, by absolute path.
using ExifCameras = std::unordered_map<std::string, std::string>;

}  // namespace vellomar
