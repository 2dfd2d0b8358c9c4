#include <gtest/gtest.h>

#include "ui/main/PipelineStage.h"

namespace vellomar {
namespace {

TEST(PipelineStage, FollowsTheStatusText) {
    struct Case {
        bool isRunning;
        double progress;
        const char* status;
        int stage;
    };
    constexpr Case kCases[] = {
        {false, 0, "", 0},
        {false, 0, "Scanning…", 0},
        {true, 0, "Scanning… 100 files found", 1},
        {true, 0, "Checking integrity...", 1},
        {true, 0.1, "SCANNING", 1},
        {true, 0, "Reading EXIF metadata…", 2},
        {true, 0.5, "Hashing", 2},
        {true, 0.5, "metadata 5 of 10", 2},
        {true, 0.5, "Processing 5 of 10 — ETA 5s", 3},
        {true, 0.5, "Building folders", 3},
        {true, 0.5, "Copying 5 of 10", 3},
        {true, 0.5, "Copying a.jpg", 4},
        {true, 0.5, "Moving a.jpg", 4},
        {true, 1, "Finishing", 5},
        {false, 1, "Undo complete — reversed: 1  skipped: 0  failed: 0", 5},
        {false, 0.5, "All done", 5},
        {false, 0.5, "Cancelled", 0},
        {true, 0.5, "", 3},
        {true, 0, "", 3},
    };
    for (const auto& [isRunning, progress, status, stage] : kCases)
        EXPECT_EQ(pipelineStage(isRunning, progress, status), stage) << status << " at " << progress;
}

}  // namespace
}  // namespace vellomar
