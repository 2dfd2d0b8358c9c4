// Small images and videos made on the spot, by the programs with which everybody makes them.
#pragma once

#include <string>
#include <vector>

#include "support/TemporaryFolder.h"

namespace vellomar::testing {

// An image in the format that its name's extension stands for (jpg, tif, png, webp, heic, avif), without any metadata.
// Returns its absolute path.
std::string makeImage(const TemporaryFolder& folder, const std::string& name);

// As above, with tags as ExifTool takes them, e.g. "EXIF:DateTimeOriginal=2023:08:14 14:30:21".
std::string makeImage(const TemporaryFolder& folder, const std::string& name, const std::vector<std::string>& tags);

// An image as ImageMagick's `convert` makes it with `arguments`, in the format that its name's extension stands for,
// HEIC and AVIF included. Returns its absolute path.
std::string makePicture(const TemporaryFolder& folder, const std::string& name,
                        const std::vector<std::string>& arguments);

// A fifth of a second of one colour, in the container that its name's extension stands for (mp4, mov, 3gp, avi, mkv,
// mts), with metadata as ffmpeg takes them, e.g. "creation_time=2021-03-04T05:06:07Z". Returns its absolute path.
std::string makeVideo(const TemporaryFolder& folder, const std::string& name, const std::vector<std::string>& metadata);

}  // namespace vellomar::testing
