// Test libraries. All of them look the same on every machine and in every run: names and content come from counters.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vellomar::bench {

// A library of `fileCount` empty files, 100 to a folder, in folders of years and events. Most names bear a date, as
// cameras, phones and messengers write it; one in ten has none, and its folder must tell.
void makeLibrary(const std::string& folder, std::size_t fileCount);

// `fileCount` dated photos of `fileSize` bytes each that nothing could compress. Returns their paths.
std::vector<std::string> makePhotos(const std::string& folder, std::size_t fileCount, std::uint64_t fileSize,
                                    std::size_t filesInAFolder = 100);

// `fileCount` dated photos of 1 to 3 MB. One in twenty is a copy of another; all others differ in size.
void makePhotosWithDuplicates(const std::string& folder, std::size_t fileCount);

// `fileCount` photos with the metadata that a camera writes, and little picture behind it, 100 to a folder. Returns
// their paths. Needs ImageMagick and ExifTool.
std::vector<std::string> makeTaggedPhotos(const std::string& folder, std::size_t fileCount);

// `fileCount` JPEG pictures of 24 megapixels, as a camera writes them. Returns their paths. Needs ImageMagick.
std::vector<std::string> makePictures(const std::string& folder, std::size_t fileCount);

// One file that nothing could compress.
void makeFile(const std::string& path, std::uint64_t size);

}  // namespace vellomar::bench
