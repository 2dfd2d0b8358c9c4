#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/LinuxFileSystem.h"
#include "platform/watch/ArrivalWindow.h"
#include "support/TemporaryFolder.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TemporaryFolder;

class ArrivalWindowTest : public ::testing::Test {
protected:
    static ArrivalWindow::Time at(std::chrono::seconds time) { return ArrivalWindow::Time(time); }

    [[nodiscard]] FolderChanges closeAt(std::chrono::seconds time) {
        return window.close(fileSystem, record, at(time));
    }

    LinuxFileSystem fileSystem;
    FolderRecord record;
    TemporaryFolder folder;
    ArrivalWindow window{2s};
};

TEST_F(ArrivalWindowTest, EndsALatencyBehindItsFirstEvent) {
    EXPECT_FALSE(window.end());
    window.addArrived(folder.write("a"), at(10s));
    window.addArrived(folder.write("b"), at(11s));
    EXPECT_EQ(window.end(), at(12s));
    EXPECT_EQ(closeAt(12s).since, at(10s));
    EXPECT_FALSE(window.end());
}

TEST_F(ArrivalWindowTest, TellsAPathOnceHoweverOftenItChanged) {
    const auto path = folder.write("a");
    for (int i = 0; i < 3; ++i)
        window.addArrived(path, at(10s));
    EXPECT_THAT(closeAt(12s).paths, ElementsAre(path));
}

TEST_F(ArrivalWindowTest, LeavesOutWhatIsGoneByItsEnd) {
    const auto path = folder.write("a");
    window.addArrived(path, at(10s));
    window.addFound(folder / "never", 3, at(10s), at(10s));
    std::filesystem::remove(path);
    EXPECT_THAT(closeAt(12s).paths, IsEmpty());
    EXPECT_FALSE(window.end());
}

TEST_F(ArrivalWindowTest, AFoundFileWaitsUntilItGrowsNoMore) {
    const auto path = folder.write("a", "12345");
    window.addFound(path, 3, at(5s), at(10s));
    EXPECT_THAT(closeAt(12s).paths, IsEmpty());
    EXPECT_EQ(window.end(), at(14s));
    const auto changes = closeAt(14s);
    EXPECT_THAT(changes.paths, ElementsAre(path));
    EXPECT_EQ(changes.since, at(5s));
    EXPECT_FALSE(window.end());
}

TEST_F(ArrivalWindowTest, AFoundFileThatIsClosedNeedsNotWait) {
    const auto path = folder.write("a", "12345");
    window.addFound(path, 3, at(10s), at(10s));
    window.addArrived(path, at(11s));
    window.addFound(path, 4, at(11s), at(11s));
    EXPECT_THAT(closeAt(12s).paths, ElementsAre(path));
}

TEST_F(ArrivalWindowTest, WhatWasToldIsOnRecord) {
    const auto path = folder.write("a", "12345");
    window.addArrived(path, at(10s));
    EXPECT_THAT(closeAt(12s).paths, ElementsAre(path));
    EXPECT_TRUE(record.holds(path, 5));
}

}  // namespace
}  // namespace vellomar
