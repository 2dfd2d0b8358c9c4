#include <filesystem>
#include <future>
#include <thread>

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <unistd.h>

#include "engine/Estimate.h"
#include "engine/RunFixture.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Lets nobody list the folder `gate` until it is opened. Remembers who listed last.
class GatedFileSystem final : public testing::ForwardingFileSystem {
public:
    GatedFileSystem(FileSystem& real, std::string gate) : ForwardingFileSystem(real), gate_(std::move(gate)) {}

    [[nodiscard]] Expected<std::unique_ptr<Directory>> openDirectory(const std::string& path, bool follow) override {
        niceness = ::getpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()));
        thread = std::this_thread::get_id();
        if (path == gate_) {
            reached.set_value();
            opened.get_future().wait();
        }
        return real().openDirectory(path, follow);
    }

    std::promise<void> reached;
    std::promise<void> opened;
    int niceness = 0;
    std::thread::id thread;

private:
    std::string gate_;
};

// A folder whose listing has no end.
class EndlessFileSystem final : public testing::ForwardingFileSystem {
public:
    using ForwardingFileSystem::ForwardingFileSystem;

    [[nodiscard]] Expected<std::unique_ptr<Directory>> openDirectory(const std::string& /*path*/,
                                                                     bool /*follow*/) override {
        return std::make_unique<Listing>(*this);
    }

    std::promise<void> reached;

private:
    class Listing final : public Directory {
    public:
        explicit Listing(EndlessFileSystem& owner) : owner_(owner) {}
        [[nodiscard]] Expected<std::optional<Entry>> next() override {
            if (count_++ == 0) owner_.reached.set_value();
            return Entry{"again.jpg", FileType::regular};
        }
        [[nodiscard]] Expected<FileStatus> statusOf(const char* /*name*/) override { return FileStatus{}; }
        [[nodiscard]] Expected<FileIdentity> identity() override { return FileIdentity{}; }

    private:
        EndlessFileSystem& owner_;
        std::uint64_t count_ = 0;
    };
};

class EstimateTasksTest : public RunTest {
protected:
    EstimateTasksTest() {
        folder.write("source/sub/a.jpg", "12345");
        folder.write("other/b.jpg", "1");
        folder.write("other/c.jpg", "2");
    }

    // Asks for an estimate; its count comes into `counts` when it is delivered.
    void ask(testing::EngineHarness& asked, const std::string& folderName) {
        asked.engine->estimateRun({folderName}, Options{},
                                  [&](const RunEstimate& estimate) { counts.push_back(estimate.fileCount); });
    }

    void waitForCounts(testing::EngineHarness& asked, std::size_t count) {
        asked.mainActor.runUntil([&] { return counts.size() >= count; });
    }

    std::string other = folder / "other";
    std::vector<std::int64_t> counts;
};

TEST_F(EstimateTasksTest, DeliversOnTheMainActor) {
    GatedFileSystem gated(disk, "");
    testing::EngineHarness engine({.fileSystem = &gated});
    std::optional<RunEstimate> delivered;
    std::thread::id thread;
    Options options;
    options.dryRun = false;
    engine.engine->estimateRun({source + "//", other}, options, [&](const RunEstimate& estimate) {
        delivered = estimate;
        thread = std::this_thread::get_id();
    });
    EXPECT_FALSE(delivered);
    engine.mainActor.runUntil([&] { return delivered.has_value(); });
    EXPECT_EQ(thread, std::this_thread::get_id());
    EXPECT_EQ(delivered, estimateRun(disk, {source, other}, options));
    EXPECT_EQ(delivered->fileCount, 3);
    EXPECT_EQ(delivered->totalBytes, 7);
}

TEST_F(EstimateTasksTest, WorksOnAThreadOfLowPriority) {
    GatedFileSystem gated(disk, "");
    testing::EngineHarness engine({.fileSystem = &gated});
    ask(engine, source);
    waitForCounts(engine, 1);
    EXPECT_NE(gated.thread, std::this_thread::get_id());
    EXPECT_GE(gated.niceness, 10);
}

TEST_F(EstimateTasksTest, PublishesNothing) {
    const auto before = harness.observer.statusHistory;
    ask(harness, source);
    waitForCounts(harness, 1);
    harness.mainActor.runPending();
    EXPECT_FALSE(harness.state().isRunning);
    EXPECT_FALSE(harness.engine->hasTask());
    EXPECT_EQ(harness.observer.statusHistory, before);
    EXPECT_THAT(harness.observer.progressHistory, IsEmpty());
    EXPECT_THAT(log(), IsEmpty());
}

TEST_F(EstimateTasksTest, ANewOneDoesNotWaitForAnOldOneAndBothAreDelivered) {
    GatedFileSystem gated(disk, source + "/sub");
    testing::EngineHarness engine({.fileSystem = &gated});
    ask(engine, source);
    gated.reached.get_future().wait();
    ask(engine, other);
    waitForCounts(engine, 1);
    EXPECT_THAT(counts, ElementsAre(2));
    gated.opened.set_value();
    waitForCounts(engine, 2);
    EXPECT_THAT(counts, ElementsAre(2, 1));
}

TEST_F(EstimateTasksTest, OneAfterTheOtherEachGetsItsAnswerOnce) {
    for (std::size_t i = 1; i <= 20; ++i) {
        ask(harness, other);
        waitForCounts(harness, i);
    }
    harness.mainActor.runPending();
    EXPECT_EQ(counts, std::vector<std::int64_t>(20, 2));
}

TEST_F(EstimateTasksTest, ARunAndAnEstimateDoNotKnowOfEachOther) {
    GatedFileSystem gated(fileSystem, source + "/sub");
    testing::EngineHarness engine({.fileSystem = &gated, .clock = &clock});
    ask(engine, source);
    gated.reached.get_future().wait();
    engine.run({other}, dest, copyOptions());
    EXPECT_EQ(engine.state().statusText, "Done");
    EXPECT_EQ(engine.state().totalFilesScanned, 2);
    EXPECT_THAT(counts, IsEmpty());
    gated.opened.set_value();
    waitForCounts(engine, 1);
    EXPECT_THAT(counts, ElementsAre(1));
}

TEST_F(EstimateTasksTest, CancellingARunDoesNotReachAnEstimate) {
    GatedFileSystem gated(disk, source + "/sub");
    testing::EngineHarness engine({.fileSystem = &gated});
    ask(engine, source);
    gated.reached.get_future().wait();
    engine.engine->cancelRun();
    gated.opened.set_value();
    waitForCounts(engine, 1);
    EXPECT_THAT(counts, ElementsAre(1));
}

TEST_F(EstimateTasksTest, DestroyingTheEngineGivesUpAWalkWithoutEnd) {
    EndlessFileSystem endless(disk);
    testing::EngineHarness engine({.fileSystem = &endless});
    ask(engine, source);
    endless.reached.get_future().wait();
    engine.engine.reset();
    engine.mainActor.runPending();
    EXPECT_THAT(counts, IsEmpty());
}

TEST_F(EstimateTasksTest, AResultThatIsOnItsWayWhenTheEngineGoesReachesNobody) {
    for (int i = 0; i < 20; ++i) {
        testing::EngineHarness engine;
        for (int j = 0; j < 3; ++j)
            ask(engine, other);
        engine.engine.reset();
        engine.mainActor.runPending();
    }
    EXPECT_THAT(counts, IsEmpty());
}

TEST_F(EstimateTasksTest, TheReceiverMayDestroyTheEngineOrAskAgain) {
    bool isDelivered = false;
    harness.engine->estimateRun({other}, Options{}, [&](const RunEstimate&) {
        ask(harness, source);
        harness.engine.reset();
        isDelivered = true;
    });
    harness.mainActor.runUntil([&] { return isDelivered; });
    harness.mainActor.runPending();
    EXPECT_THAT(counts, IsEmpty());
}

}  // namespace
}  // namespace vellomar
