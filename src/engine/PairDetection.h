#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vellomar {

// RAW files, and what belongs to them by having the same name in the same folder.
struct PairDetection {
    std::unordered_map<std::string, std::string> rawToJpeg;  // by stem key: path of the pair's JPEG
    std::unordered_map<std::string, std::string> jpegToRaw;  // by stem key: path of the pair's RAW file
    std::unordered_map<std::string, std::vector<std::string>> sidecarsByPath;  // by path of a RAW file
    int pairs = 0;  // RAW files that have a JPEG; two RAW files of one stem are two pairs
};

// What files of one picture share: the folder's path, "/", and the name in lower case without its extension.
[[nodiscard]] std::string stemKey(std::string_view path);

// Links the RAW files among `paths` with their JPEGs and sidecars. A JPEG with a sidecar but no RAW file is no link.
// Any thread.
[[nodiscard]] PairDetection detectPairs(const std::vector<std::string_view>& paths);

}  // namespace vellomar
