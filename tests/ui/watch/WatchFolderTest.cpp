#include <gmock/gmock.h>

#include "platform/LinuxFileSystem.h"
#include "platform/TimeText.h"
#include "settings/OptionSettings.h"
#include "settings/SettingsFile.h"
#include "settings/SettingsKeys.h"
#include "support/ScriptedWatchers.h"
#include "support/TemporaryFolder.h"
#include "ui/LiveEngine.h"
#include "ui/QtPrinters.h"
#include "ui/watch/WatchFolder.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using testing::spinUntil;

class WatchFolderTest : public ::testing::Test {
protected:
    WatchFolderTest() {
        QObject::connect(&watch_, &WatchFolder::changed, [this] { ++changes_; });
    }

    void setFolders() {
        sources_.add(source_);
        watch_.noteSources();
        settings_->setValue(keys::kDestPath, dest_);
    }

    testing::TemporaryFolder library_{testing::TemporaryFolder::Where::inMemory};
    const std::string source_ = library_.makeFolder("in");
    const std::string dest_ = library_.makeFolder("out");
    LinuxFileSystem fileSystem_;
    SystemClock clock_;
    testing::LiveEngine engine_;
    testing::SettingsFile file_;
    std::unique_ptr<SettingsStore> settings_ = file_.open();
    SourceList sources_{*settings_};
    testing::ScriptedFolderWatcher watcher_;
    int changes_ = 0;
    WatchFolder watch_{
        {engine_.shared(), engine_.events(), *settings_, sources_, engine_.mainActor(), fileSystem_, clock_, watcher_}};
};

TEST_F(WatchFolderTest, NeedsBothFolders) {
    EXPECT_FALSE(watch_.canStart());
    EXPECT_EQ(watch_.source(), "");
    EXPECT_EQ(watch_.destination(), "");
    watch_.start();
    EXPECT_FALSE(watch_.isWatching());
    sources_.add(source_);
    watch_.noteSources();
    EXPECT_FALSE(watch_.canStart());
    settings_->setValue(keys::kDestPath, dest_);
    EXPECT_TRUE(watch_.canStart());
    EXPECT_EQ(watch_.source().toStdString(), source_);
    EXPECT_EQ(watch_.destination().toStdString(), dest_);
    EXPECT_GE(changes_, 2);
}

TEST_F(WatchFolderTest, TheFirstSourceIsWatched) {
    setFolders();
    sources_.add(library_.makeFolder("second"));
    watch_.start();
    EXPECT_EQ(watcher_.folder(), source_);
}

TEST_F(WatchFolderTest, WhileWatchingItShowsWhatIsWatched) {
    setFolders();
    watch_.start();
    EXPECT_TRUE(watch_.isWatching());
    EXPECT_FALSE(watch_.canStart());
    sources_.clear();
    settings_->setValue(keys::kDestPath, "");
    EXPECT_EQ(watch_.source().toStdString(), source_);
    EXPECT_EQ(watch_.destination().toStdString(), dest_);
    watch_.stop();
    EXPECT_EQ(watch_.source(), "");
    EXPECT_EQ(watch_.destination(), "");
}

TEST_F(WatchFolderTest, ArrivalsAreCountedTimedAndLogged) {
    setFolders();
    EXPECT_EQ(watch_.lastActivity(), "");
    watch_.start();
    watcher_.tell({library_.write("in/IMG_20240102_030405.jpg")});
    ASSERT_TRUE(spinUntil([this] { return watch_.filesProcessed() == 1; }));
    engine_.waitForRun();
    EXPECT_NE(watch_.lastActivity(), "");
    ASSERT_TRUE(spinUntil([this] { return watch_.log().size() == 2; }));
    EXPECT_TRUE(watch_.log()[0].endsWith(QStringLiteral("] 1 new file(s) detected — sorting…")));
    EXPECT_TRUE(watch_.log()[1].endsWith(QStringLiteral("] Watching: in")));
}

TEST_F(WatchFolderTest, ARunIsWhatItWasSetToWhenTheWatchingBegan) {
    setFolders();
    EXPECT_TRUE(watch_.isDryRun());
    watch_.setDryRun(false);
    EXPECT_FALSE(watch_.isDryRun());
    EXPECT_FALSE(buildOptions(*settings_).dryRun);
    watch_.start();
    watch_.setDryRun(true);
    EXPECT_FALSE(buildOptions(*settings_).dryRun) << "settled while watching";
    settings_->setValue("opt_dryRun", true);
    EXPECT_FALSE(watch_.isDryRun());
    watch_.stop();
    EXPECT_TRUE(watch_.isDryRun());
}

TEST_F(WatchFolderTest, ARunOfItsOwnInTheWatchedFolderIsNoArrival) {
    sources_.add(source_);
    settings_->setValue(keys::kDestPath, source_);
    const auto photo = library_.write("in/IMG_20240102_030405.jpg");
    watch_.start();
    watcher_.tell({photo});
    ASSERT_TRUE(spinUntil([this] { return watch_.filesProcessed() == 1; }));
    engine_.waitForRun();
    engine_.waitForEnd();
    watcher_.tell({photo});
    ASSERT_TRUE(spinUntil([this] { return watch_.log().size() == 2; }));
    EXPECT_EQ(watch_.filesProcessed(), 1);
}

TEST_F(WatchFolderTest, OpensAndCloses) {
    EXPECT_FALSE(watch_.isOpen());
    watch_.open();
    EXPECT_TRUE(watch_.isOpen());
    watch_.dismiss();
    EXPECT_FALSE(watch_.isOpen());
}

TEST_F(WatchFolderTest, ClosingTheSheetDoesNotEndTheWatch) {
    setFolders();
    watch_.open();
    watch_.start();
    watch_.dismiss();
    EXPECT_TRUE(watch_.isWatching());
    EXPECT_EQ(watcher_.watches(), 1);
}

TEST_F(WatchFolderTest, PathsThatAreNoTextAreShownAllTheSame) {
    sources_.add("/photos/caf\xE9\n");
    watch_.noteSources();
    EXPECT_EQ(watch_.source(), QStringLiteral("/photos/caf\uFFFD\u240A"));
}

}  // namespace
}  // namespace vellomar
