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
        QObject::connect(&watch, &WatchFolder::changed, [this] { ++changes; });
    }

    void setFolders() {
        sources.add(source);
        watch.noteSources();
        settings->setValue(keys::kDestPath, dest);
    }

    testing::TemporaryFolder library{testing::TemporaryFolder::Where::inMemory};
    const std::string source = library.makeFolder("in");
    const std::string dest = library.makeFolder("out");
    LinuxFileSystem fileSystem;
    SystemClock clock;
    testing::LiveEngine engine;
    testing::SettingsFile file;
    std::unique_ptr<SettingsStore> settings = file.open();
    SourceList sources{*settings};
    testing::ScriptedFolderWatcher watcher;
    int changes = 0;
    WatchFolder watch{
        {engine.shared(), engine.events(), *settings, sources, engine.mainActor(), fileSystem, clock, watcher}};
};

TEST_F(WatchFolderTest, NeedsBothFolders) {
    EXPECT_FALSE(watch.canStart());
    EXPECT_EQ(watch.source(), "");
    EXPECT_EQ(watch.destination(), "");
    watch.start();
    EXPECT_FALSE(watch.isWatching());
    sources.add(source);
    watch.noteSources();
    EXPECT_FALSE(watch.canStart());
    settings->setValue(keys::kDestPath, dest);
    EXPECT_TRUE(watch.canStart());
    EXPECT_EQ(watch.source().toStdString(), source);
    EXPECT_EQ(watch.destination().toStdString(), dest);
    EXPECT_GE(changes, 2);
}

TEST_F(WatchFolderTest, TheFirstSourceIsWatched) {
    setFolders();
    sources.add(library.makeFolder("second"));
    watch.start();
    EXPECT_EQ(watcher.folder(), source);
}

TEST_F(WatchFolderTest, WhileWatchingItShowsWhatIsWatched) {
    setFolders();
    watch.start();
    EXPECT_TRUE(watch.isWatching());
    EXPECT_FALSE(watch.canStart());
    sources.clear();
    settings->setValue(keys::kDestPath, "");
    EXPECT_EQ(watch.source().toStdString(), source);
    EXPECT_EQ(watch.destination().toStdString(), dest);
    watch.stop();
    EXPECT_EQ(watch.source(), "");
    EXPECT_EQ(watch.destination(), "");
}

TEST_F(WatchFolderTest, ArrivalsAreCountedTimedAndLogged) {
    setFolders();
    EXPECT_EQ(watch.lastActivity(), "");
    watch.start();
    watcher.tell({library.write("in/IMG_20240102_030405.jpg")});
    ASSERT_TRUE(spinUntil([this] { return watch.filesProcessed() == 1; }));
    engine.waitForRun();
    EXPECT_NE(watch.lastActivity(), "");
    ASSERT_TRUE(spinUntil([this] { return watch.log().size() == 2; }));
    EXPECT_TRUE(watch.log()[0].endsWith(QStringLiteral("] 1 new file(s) detected — sorting…")));
    EXPECT_TRUE(watch.log()[1].endsWith(QStringLiteral("] Watching: in")));
}

TEST_F(WatchFolderTest, ARunIsWhatItWasSetToWhenTheWatchingBegan) {
    setFolders();
    EXPECT_TRUE(watch.isDryRun());
    watch.setDryRun(false);
    EXPECT_FALSE(watch.isDryRun());
    EXPECT_FALSE(buildOptions(*settings).dryRun);
    watch.start();
    watch.setDryRun(true);
    EXPECT_FALSE(buildOptions(*settings).dryRun) << "settled while watching";
    settings->setValue("opt_dryRun", true);
    EXPECT_FALSE(watch.isDryRun());
    watch.stop();
    EXPECT_TRUE(watch.isDryRun());
}

TEST_F(WatchFolderTest, ARunOfItsOwnInTheWatchedFolderIsNoArrival) {
    sources.add(source);
    settings->setValue(keys::kDestPath, source);
    const auto photo = library.write("in/IMG_20240102_030405.jpg");
    watch.start();
    watcher.tell({photo});
    ASSERT_TRUE(spinUntil([this] { return watch.filesProcessed() == 1; }));
    engine.waitForRun();
    engine.waitForEnd();
    watcher.tell({photo});
    ASSERT_TRUE(spinUntil([this] { return watch.log().size() == 2; }));
    EXPECT_EQ(watch.filesProcessed(), 1);
}

TEST_F(WatchFolderTest, OpensAndCloses) {
    EXPECT_FALSE(watch.isOpen());
    watch.open();
    EXPECT_TRUE(watch.isOpen());
    watch.dismiss();
    EXPECT_FALSE(watch.isOpen());
}

TEST_F(WatchFolderTest, ClosingTheSheetDoesNotEndTheWatch) {
    setFolders();
    watch.open();
    watch.start();
    watch.dismiss();
    EXPECT_TRUE(watch.isWatching());
    EXPECT_EQ(watcher.watches(), 1);
}

TEST_F(WatchFolderTest, PathsThatAreNoTextAreShownAllTheSame) {
    sources.add("/photos/caf\xE9\n");
    watch.noteSources();
    EXPECT_EQ(watch.source(), QStringLiteral("/photos/caf\uFFFD\u240A"));
}

}  // namespace
}  // namespace vellomar
