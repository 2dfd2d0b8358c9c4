// What tests of a single stage share.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "engine/RunContext.h"
#include "support/EngineHarness.h"
#include "support/TemporaryFolder.h"

namespace vellomar {

// A run that has come as far as the stage under test: what it knows is the test's to fill in. The test is the main
// actor.
class StageTest : public ::testing::Test {
protected:
    ~StageTest() override { port->close(); }

    // Enters a file as the file loop does: its final destination, the hash of its source (none if empty) and its date.
    void processed(const std::string& destination, const std::string& sha256, std::int64_t dateSeconds = 0);

    // Performs `stage` on a thread of its own, and delivers all that it posts.
    void perform(const std::function<void(const RunContext&, RunState&)>& stage);

    [[nodiscard]] const std::vector<std::string>& log() const { return observer.allLogLines; }
    [[nodiscard]] const PublishedState& published() const { return main.published.state(); }

    // The disk that the stage sees; the real one unless the test says otherwise.
    void setFileSystem(FileSystem& other) { fileSystem = &other; }

    testing::TemporaryFolder folder{testing::TemporaryFolder::Where::inMemory};
    std::string dest = folder.makeFolder("dest");
    LinuxFileSystem disk;
    FileSystem* fileSystem = &disk;
    testing::EngineHarness harness;
    testing::RecordingObserver observer;
    MainActorState main{Publication(&observer), {}, nullptr};
    std::shared_ptr<EnginePort> port = std::make_shared<EnginePort>(harness.mainActor, main);
    RunRequest request{.sources = {}, .dest = dest, .options = {}};
    RunState state;
};

}  // namespace vellomar
