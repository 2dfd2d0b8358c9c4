#include "support/MediaFiles.h"

#include "platform/Path.h"
#include "platform/Text.h"
#include "support/RunTool.h"

namespace vellomar::testing {
namespace {

// The programs that make images know no AVIF; ffmpeg does.
void makeAvif(const std::string& png, const std::string& path) {
    runTool({"ffmpeg", "-v", "error", "-i", png, "-frames:v", "1", "-pix_fmt", "yuv420p", "-c:v", "libaom-av1",
             "-still-picture", "1", path});
}

}  // namespace

std::string makeImage(const TemporaryFolder& folder, const std::string& name) {
    return makeImage(folder, name, {});
}

std::string makeImage(const TemporaryFolder& folder, const std::string& name, const std::vector<std::string>& tags) {
    auto path = folder / name;
    makePicture(folder, name, {"-size", "64x64", "xc:red"});
    if (tags.empty()) return path;
    std::vector<std::string> words = {"exiftool", "-q", "-q", "-m", "-overwrite_original"};
    for (const auto& tag : tags)
        words.push_back("-" + tag);
    words.push_back(path);
    runTool(words);
    return path;
}

std::string makePicture(const TemporaryFolder& folder, const std::string& name,
                        const std::vector<std::string>& arguments) {
    auto path = folder / name;
    const auto extension = lowercased(pathExtension(path));
    const bool isIsoMedia = extension == "heic" || extension == "avif";
    const auto made = isIsoMedia ? folder / (name + ".source.png") : path;
    std::vector<std::string> words = {"convert"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    words.push_back(made);
    runTool(words);
    if (extension == "heic") runTool({"heif-enc", made, "-o", path});
    if (extension == "avif") makeAvif(made, path);
    return path;
}

std::string makeVideo(const TemporaryFolder& folder, const std::string& name,
                      const std::vector<std::string>& metadata) {
    auto path = folder / name;
    std::vector<std::string> words = {"ffmpeg", "-v", "error", "-f", "lavfi", "-i", "color=red:s=176x144:d=0.2"};
    for (const auto& item : metadata)
        words.insert(words.end(), {"-metadata", item});
    words.insert(words.end(), {"-c:v", pathExtension(path) == "3gp" ? "h263" : "mpeg4", path});
    runTool(words);
    return path;
}

}  // namespace vellomar::testing
