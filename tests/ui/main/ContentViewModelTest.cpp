#include <QSignalSpy>
#include <cstdint>
#include <filesystem>

#include <gmock/gmock.h>

#include "settings/SettingsFile.h"
#include "settings/SettingsKeys.h"
#include "support/DecoderProgram.h"
#include "support/ScriptedWatchers.h"
#include "ui/LiveEngine.h"
#include "ui/QtPrinters.h"
#include "ui/ScriptedFileChooser.h"
#include "ui/desktop/RecordingDesktop.h"
#include "ui/inspector/DecodedFileFacts.h"
#include "ui/main/ContentViewModel.h"
#include "ui/theme/Theme.h"

namespace vellomar {
namespace {

using testing::LiveEngine;
using testing::ScriptedFileChooser;
using testing::SettingsFile;
using testing::spinUntil;
using testing::TemporaryFolder;

// What the row of a confirmation with this key says; empty if there is none.
QString valueOf(ConfirmationModel& model, const QString& key) {
    const auto* const rows = model.settings();
    const auto names = rows->roleNames();
    for (int row = 0; row < rows->rowCount(); ++row)
        if (rows->index(row, 0).data(names.key("key")).toString() == key)
            return rows->index(row, 0).data(names.key("value")).toString();
    return {};
}

// What the one notice says.
QString noticeOf(ContentViewModel& content) {
    return content.notices()->index(0).data(Notices::textRole).toString();
}

class ContentViewModelTest : public ::testing::Test {
protected:
    // What is in `settings` counts when the content is made.
    void makeContent() {
        content = std::make_unique<ContentViewModel>(ContentViewModel::Surroundings{
            *engine, engine.shared(), engine.events(), engine.mainActor(), *settings, fileSystem, clock, exifTool,
            chooser, fileFacts, reveal, links, background, folderWatcher, mounts, sleepInhibitor});
        content->appear();
    }

    void setFolders() {
        library.write("in/IMG_20230814_143021.jpg", std::string(2'000'000, 'x'));
        settings->setValue(keys::kLegacySourcePath, library / "in");
        settings->setValue(keys::kDestPath, library.makeFolder("out"));
    }

    TemporaryFolder library{TemporaryFolder::Where::inMemory};
    LinuxFileSystem fileSystem;
    SystemClock clock;
    ExifUtils::ExifTool exifTool{fileSystem, {{}, {"/nowhere/exiftool"}}};
    SettingsFile file;
    std::unique_ptr<SettingsStore> settings = file.open();
    ScriptedFileChooser chooser;
    LiveEngine engine;
    DecodedFileFacts fileFacts{fileSystem, testing::decoderProgram()};
    testing::RecordingReveal reveal;
    testing::RecordingLinks links;
    BackgroundWork background;
    testing::ScriptedFolderWatcher folderWatcher;
    testing::ScriptedMountWatcher mounts;
    testing::CountingSleepInhibitor sleepInhibitor;
    std::unique_ptr<ContentViewModel> content;
};

TEST_F(ContentViewModelTest, VideosAreOffAtEachStart) {
    settings->setValue("opt_includeVideos", true);
    makeContent();
    EXPECT_FALSE(settings->boolean("opt_includeVideos", true));
    settings->setValue("opt_includeVideos", true);
    content.reset();
    settings.reset();

    settings = file.open();
    EXPECT_TRUE(settings->boolean("opt_includeVideos"));
    makeContent();
    EXPECT_FALSE(settings->boolean("opt_includeVideos", true));
}

TEST_F(ContentViewModelTest, TheSourceOfAnEarlierVersionIsTakenOver) {
    setFolders();
    makeContent();
    EXPECT_EQ(content->folders()->sources()->count(), 1);
    EXPECT_TRUE(settings->bytes(keys::kSourceEntries).has_value());
    EXPECT_TRUE(content->run()->canRun());
}

TEST_F(ContentViewModelTest, TheWizardIsOpenAtAFirstStartAlone) {
    setFolders();
    makeContent();
    auto& wizard = *content->firstRun()->wizard();
    EXPECT_TRUE(wizard.isOpen());
    EXPECT_EQ(wizard.wizardSourcePath(), library / "in") << "the lists are read before it";
    wizard.skipSetup();
    makeContent();
    EXPECT_FALSE(content->firstRun()->wizard()->isOpen());
}

TEST_F(ContentViewModelTest, AMissingExifToolIsNoticed) {
    makeContent();
    EXPECT_FALSE(content->lacksExifTool()) << "nobody has looked yet";
    EXPECT_TRUE(spinUntil([&] { return content->lacksExifTool(); }));
}

TEST_F(ContentViewModelTest, TheSettingsAtAGlanceFollowOptionsAndRules) {
    makeContent();
    const auto valueIn = [&](int section, int row) {
        const auto rows = content->config()[section].toMap()["rows"].toList();
        return rows[row].toMap()["value"].toString();
    };
    const QSignalSpy changes(content.get(), &ContentViewModel::configChanged);
    content->naming()->choose(0);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(valueIn(1, 0), "Original");
    content->run()->setRenameRules({{Uuid::random(), "a", "b", true}});
    EXPECT_EQ(changes.count(), 2);
    EXPECT_EQ(valueIn(5, 1), "1 active");
}

TEST_F(ContentViewModelTest, TheSameFolderTwiceIsABanner) {
    setFolders();
    settings->setValue(keys::kDestPath, library / "in/");
    makeContent();
    EXPECT_TRUE(content->hasBanner());
    EXPECT_EQ(content->bannerSymbol(), "exclamationmark.triangle.fill");
    EXPECT_EQ(content->bannerColour(), Theme::shared().alertRed);
    EXPECT_EQ(content->bannerText(), "Source and destination are the same folder.");
    content->folders()->clearSources();
    EXPECT_FALSE(content->hasBanner());
    EXPECT_EQ(content->bannerSymbol(), "");
}

TEST_F(ContentViewModelTest, ARunsFindingsAreABanner) {
    setFolders();
    library.write("in/empty.jpg", "");
    makeContent();
    content->run()->askDryRun();
    content->run()->startDryRun();
    engine.waitForRun();
    EXPECT_EQ(content->bannerText(), "1 suspected corrupt file(s) (zero bytes). Check log.");
    EXPECT_TRUE(content->status()->hasResults());
}

TEST_F(ContentViewModelTest, TheEstimateReachesCardsAndSheet) {
    setFolders();
    makeContent();
    content->run()->askRun();
    EXPECT_EQ(content->status()->cardValues()[0], "—");
    EXPECT_EQ(valueOf(*content->realRun(), "Files to process"), "Calculating…");
    ASSERT_TRUE(spinUntil([&] { return content->run()->estimate().has_value(); }));
    EXPECT_EQ(content->status()->cardValues()[0], "1");
    EXPECT_EQ(valueOf(*content->realRun(), "Files to process"), "1 files · 2 MB");
    EXPECT_EQ(content->lowSpace(), "");
}

TEST_F(ContentViewModelTest, TooLittleRoomIsABannerAndALine) {
    setFolders();
    constexpr std::uintmax_t kMoreThanAnyDisk = 2'000'000'000'000'000;
    std::filesystem::resize_file(library / "in/IMG_20230814_143021.jpg", kMoreThanAnyDisk);
    makeContent();
    ASSERT_TRUE(spinUntil([&] { return content->folders()->freeBytes().has_value(); }));
    EXPECT_EQ(content->lowSpace(), "") << "nothing is known of the need";
    content->run()->makeEstimate();
    ASSERT_TRUE(spinUntil([&] { return !content->lowSpace().isEmpty(); }));
    EXPECT_TRUE(content->lowSpace().startsWith("Only ")) << content->lowSpace().toStdString();
    EXPECT_TRUE(content->lowSpace().endsWith(" free — need 2000000.0 GB")) << content->lowSpace().toStdString();
    EXPECT_EQ(content->bannerText(), content->lowSpace());
    EXPECT_EQ(content->bannerColour(), Theme::shared().yellow);
}

TEST_F(ContentViewModelTest, ASheetShowsWhatItsRunBeginsWith) {
    setFolders();
    settings->setValue("opt_moveOriginals", true);
    makeContent();
    content->run()->setRenameRules({{Uuid::random(), "a", "b", true}});

    content->run()->askDryRun();
    EXPECT_EQ(valueOf(*content->dryRun(), "Source"), "in");
    EXPECT_EQ(valueOf(*content->dryRun(), "Destination"), "out");
    EXPECT_EQ(valueOf(*content->dryRun(), "Mode"), "MOVE originals (destructive)");
    EXPECT_EQ(valueOf(*content->dryRun(), "Rename rules"), "1 active rule(s)");
    EXPECT_EQ(valueOf(*content->dryRun(), "Files to process"), "");
    content->run()->dismissDryRun();

    content->run()->askRun();
    EXPECT_TRUE(content->realRun()->warnsOfMove());
    settings->setValue("opt_moveOriginals", false);
    EXPECT_TRUE(content->realRun()->warnsOfMove()) << "the asked run stays as it was asked for";
    content->run()->dismissRun();
    content->run()->askRun();
    EXPECT_FALSE(content->realRun()->warnsOfMove());
}

TEST_F(ContentViewModelTest, FloppyModeIsKept) {
    makeContent();
    int changes = 0;
    QObject::connect(content.get(), &ContentViewModel::floppyModeChanged, [&] { ++changes; });
    EXPECT_FALSE(content->floppyMode());
    content->toggleFloppyMode();
    EXPECT_TRUE(content->floppyMode());
    EXPECT_TRUE(settings->boolean(keys::kSecretFloppyMode));
    content->toggleFloppyMode();
    EXPECT_FALSE(content->floppyMode());
    EXPECT_EQ(changes, 2);
}

TEST_F(ContentViewModelTest, AShiftOfDatesHoldsRunsAndUndosUp) {
    setFolders();
    makeContent();
    auto& dates = *content->dates();
    dates.open();
    EXPECT_TRUE(content->run()->canStart());
    EXPECT_TRUE(content->undo()->canOpen());
    dates.applyShift();
    EXPECT_FALSE(content->run()->canStart());
    EXPECT_FALSE(content->undo()->canOpen());
    EXPECT_FALSE(content->quit()->mayClose());
    dates.close();
    ASSERT_EQ(content->notices()->count(), 1);
    EXPECT_TRUE(noticeOf(*content).contains("Dates are being shifted."));
    EXPECT_TRUE(content->notices()->index(0).data(Notices::isNewsRole).toBool()) << "nothing is wrong";
    ASSERT_TRUE(spinUntil([&] { return !dates.isRunning(); }));
    EXPECT_TRUE(content->run()->canStart());
    EXPECT_TRUE(content->undo()->canOpen());
    EXPECT_EQ(noticeOf(*content), "Done — shifted 1 file by 0 hours");
    dates.open();
    EXPECT_EQ(content->notices()->count(), 0);
}

TEST_F(ContentViewModelTest, TheFoldersToShiftFollowTheSources) {
    setFolders();
    makeContent();
    content->dates()->open();
    EXPECT_EQ(content->dates()->folders().size(), 1);
    content->folders()->clearSources();
    EXPECT_EQ(content->dates()->folders().size(), 0);
    ASSERT_TRUE(spinUntil([&] { return content->dates()->countText() == "0 images found"; }));
}

TEST_F(ContentViewModelTest, ARefusedFolderIsANotice) {
    makeContent();
    content->folders()->addSources({library.write("photo.jpg")});
    ASSERT_TRUE(spinUntil([&] { return content->notices()->count() == 1; }));
    content->folders()->addSources({library.makeFolder("good")});
    EXPECT_TRUE(spinUntil([&] { return content->notices()->count() == 0; }));
}

TEST_F(ContentViewModelTest, ADamagedSettingsFileIsTold) {
    settings.reset();
    library.makeFolder("x");
    SettingsFile damaged("{ this is no JSON");
    settings = damaged.open();
    makeContent();
    ASSERT_EQ(content->notices()->count(), 1);
    const auto text = content->notices()->index(0).data(Notices::textRole).toString();
    EXPECT_TRUE(text.contains("could not be read")) << text.toStdString();
    EXPECT_TRUE(text.contains(".damaged")) << text.toStdString();
    content.reset();
    settings.reset();
}

TEST_F(ContentViewModelTest, SettingsThatCannotBeSavedAreTold) {
    settings.reset();
    const auto blocked = library.write("file");
    settings = std::make_unique<SettingsStore>(fileSystem, blocked + "/vellomar/settings.json");
    makeContent();
    ASSERT_TRUE(spinUntil([&] { return content->notices()->count() == 1; }));
    const auto text = content->notices()->index(0).data(Notices::textRole).toString();
    EXPECT_TRUE(text.contains("cannot be saved")) << text.toStdString();
}

}  // namespace
}  // namespace vellomar
