// What may be changed about a fresh copy at the destination. Never the source.
#pragma once

#include <string>

#include "dates/ExifTool.h"
#include "platform/Error.h"
#include "platform/FileSystem.h"
#include "platform/decoder/PixelDecoder.h"

namespace vellomar {

// Whether the file is one that conversion is for, by its extension in any case of letters: heic or heif.
[[nodiscard]] bool isConvertibleToJpeg(const std::string& path);

// Puts a JPEG beside the HEIC file at `path`, under its name with the extension "jpg": upright, of quality 92, without
// metadata, dated as the HEIC file. A file of that name is replaced, in one step. Returns its path; the HEIC file
// stays. Fails if the picture cannot be decoded, or the JPEG not be written.
[[nodiscard]] Expected<std::string> convertHeicToJpeg(FileSystem& fileSystem, PixelDecoder& decoder,
                                                      const std::string& path);

// Remove the location, or all metadata, from the file at `path`. False if ExifTool is missing or fails. Each call waits
// for a process.
[[nodiscard]] bool stripGpsMetadata(const ExifUtils::ExifTool& exifTool, const std::string& path);
[[nodiscard]] bool stripAllMetadataTags(const ExifUtils::ExifTool& exifTool, const std::string& path);

}  // namespace vellomar
