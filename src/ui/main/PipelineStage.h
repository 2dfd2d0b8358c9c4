#pragma once

#include <string_view>

namespace vellomar {

// Which of the five cells of the progress display is lit, by the status text: 1 SCAN, 2 EXIF, 3 PLAN, 4 COPY, 5 DONE;
// 0 for none. The words are tried in a fixed order, so "Copying 5 of 10" is a plan ("of "). Pure; any thread.
[[nodiscard]] int pipelineStage(bool isRunning, double progress, std::string_view statusText);

}  // namespace vellomar
