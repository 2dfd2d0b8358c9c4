#include "engine/PairDetection.h"

#include "engine/model/FileKind.h"
#include "platform/Path.h"
#include "platform/Text.h"

namespace vellomar {
namespace {

// The files of one stem that matter, each kind in the order of the list.
struct StemGroup {
    std::vector<std::string_view> raws;
    std::vector<std::string_view> jpegs;
    std::vector<std::string_view> sidecars;
};

void addToGroup(StemGroup& group, std::string_view path, std::string_view lowercasedExtension) {
    if (isRawExtension(lowercasedExtension))
        group.raws.push_back(path);
    else if (isJpegExtension(lowercasedExtension))
        group.jpegs.push_back(path);
    else if (isSidecarExtension(lowercasedExtension))
        group.sidecars.push_back(path);
}

// Only stems with a RAW file matter, and most libraries have few: this spares a key for every other file.
std::unordered_map<std::string, StemGroup> groupsWithRaw(const std::vector<std::string_view>& paths) {
    std::unordered_map<std::string, StemGroup> groups;
    for (const auto path : paths)
        if (isRawExtension(lowercased(pathExtension(path)))) groups.try_emplace(stemKey(path));
    if (groups.empty()) return groups;
    for (const auto path : paths)
        if (const auto group = groups.find(stemKey(path)); group != groups.end())
            addToGroup(group->second, path, lowercased(pathExtension(path)));
    return groups;
}

void link(const std::string& key, const StemGroup& group, PairDetection& result) {
    for (const auto raw : group.raws) {
        if (!group.jpegs.empty()) {
            result.rawToJpeg[key] = group.jpegs.front();
            result.jpegToRaw[key] = raw;
            ++result.pairs;
        }
        if (!group.sidecars.empty())
            result.sidecarsByPath[std::string(raw)].assign(group.sidecars.begin(), group.sidecars.end());
    }
}

}  // namespace

std::string stemKey(std::string_view path) {
    return std::string(parentPath(path)) + "/" + lowercased(pathStem(path));
}

PairDetection detectPairs(const std::vector<std::string_view>& paths) {
    PairDetection result;
    for (const auto& [key, group] : groupsWithRaw(paths))
        link(key, group, result);
    return result;
}

}  // namespace vellomar
