#pragma once

#include <array>

#include "fuzz/Target.h"

namespace vellomar::fuzz {

extern const Target kBytesJson;
extern const Target kCameraProperties;
extern const Target kCameraPropertyMessages;
extern const Target kExifDate;
extern const Target kFilenameDates;
extern const Target kFolderDates;
extern const Target kImageProperties;
extern const Target kMetadataMessages;
extern const Target kParsedDecision;
extern const Target kSidecarDate;
extern const Target kVideoMetadata;

inline constexpr std::array kTargets = {
    &kBytesJson,       &kCameraProperties, &kCameraPropertyMessages, &kExifDate,    &kFilenameDates, &kFolderDates,
    &kImageProperties, &kMetadataMessages, &kParsedDecision,         &kSidecarDate, &kVideoMetadata};

}  // namespace vellomar::fuzz
