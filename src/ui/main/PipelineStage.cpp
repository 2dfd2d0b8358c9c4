#include "ui/main/PipelineStage.h"

#include <algorithm>
#include <initializer_list>
#include <string>

#include "platform/Text.h"

namespace vellomar {
namespace {

enum Stage { none, scan, exif, plan, copy, done };

}  // namespace

int pipelineStage(bool isRunning, double progress, std::string_view statusText) {
    if (!isRunning && progress == 0) return none;
    const auto status = lowercased(statusText);
    const auto containsAny = [&](std::initializer_list<std::string_view> words) {
        return std::ranges::any_of(words, [&](auto word) { return status.find(word) != std::string::npos; });
    };
    if (containsAny({"scan", "integrit"})) return scan;
    if (containsAny({"hash", "exif", "metadata"})) return exif;
    if (containsAny({"of ", "plan", "building"})) return plan;
    if (containsAny({"cop", "mov"})) return copy;
    if (progress >= 1) return done;
    if (containsAny({"done"})) return done;
    return isRunning ? plan : none;
}

}  // namespace vellomar
