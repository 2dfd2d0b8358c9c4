#pragma once

#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "platform/LinuxFileSystem.h"
#include "support/EngineHarness.h"
#include "support/FakeExifTool.h"
#include "ui/dates/DateShiftRun.h"
#include "ui/desktop/EventLoopActor.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar::testing {

// Shifts of dates that last as long as a test wants: each file waits until it is let go.
class ShiftUnderWay {
public:
    [[nodiscard]] DateShiftRun& shift() { return shift_; }
    [[nodiscard]] const FakeExifTool& tool() const { return tool_; }

    void waitUntilBusy() {
        ASSERT_TRUE(spinUntil([this] { return exists(tool_ / "busy"); }));
    }

    // From now on no file waits.
    void letGo() { const std::ofstream go(tool_ / "go"); }

    void waitForEnd() {
        ASSERT_TRUE(spinUntil([this] { return !shift_.isRunning(); }));
    }

    // Nothing is to wait for when it goes.
    ~ShiftUnderWay() { letGo(); }
    ShiftUnderWay() = default;
    ShiftUnderWay(const ShiftUnderWay&) = delete;
    ShiftUnderWay& operator=(const ShiftUnderWay&) = delete;

private:
    FakeExifTool tool_{"touch \"$here/busy\"; until [ -e \"$here/go\" ]; do sleep 0.01; done"};
    LinuxFileSystem fileSystem_;
    EventLoopActor mainActor_;
    CountingSleepInhibitor sleepInhibitor_;
    DateShiftRun shift_{{mainActor_, fileSystem_, tool_.tool(), sleepInhibitor_}};
};

}  // namespace vellomar::testing
