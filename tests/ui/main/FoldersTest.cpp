#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "settings/RecentPaths.h"
#include "settings/SettingsFile.h"
#include "settings/SettingsKeys.h"
#include "ui/QtPrinters.h"
#include "ui/ScriptedFileChooser.h"
#include "ui/desktop/FileUri.h"
#include "ui/desktop/SpinUntil.h"
#include "ui/main/Folders.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::ScriptedFileChooser;
using testing::SettingsFile;
using testing::spinUntil;
using testing::TemporaryFolder;

QUrl urlOf(const std::string& path) {
    return QUrl::fromEncoded(QByteArray::fromStdString(fileUriOf(path)));
}

class FoldersTest : public ::testing::Test {
protected:
    FoldersTest() { folders.load(); }

    [[nodiscard]] std::vector<std::string> paths() const { return folders.sourceList().paths(); }

    [[nodiscard]] QString shown(int row, int role) const { return folders.sources()->index(row).data(role).toString(); }

    // Until what was picked or dropped was looked at.
    void waitForSources(std::size_t count) {
        ASSERT_TRUE(spinUntil([&] { return paths().size() == count; }));
    }

    TemporaryFolder disk{TemporaryFolder::Where::inMemory};
    LinuxFileSystem fileSystem;
    SettingsFile file;
    std::unique_ptr<SettingsStore> settings = file.open();
    ScriptedFileChooser chooser;
    BackgroundWork background;
    mutable Folders folders{{*settings, fileSystem, chooser, background}};
};

TEST_F(FoldersTest, PickedFoldersBecomeSources) {
    const auto a = disk.makeFolder("a");
    const auto b = disk.makeFolder("b with blanks");
    chooser.answerNext({a, b});

    folders.pickSources();
    waitForSources(2);

    EXPECT_EQ(chooser.last()->kind, FileQuestion::Kind::folders);
    EXPECT_EQ(chooser.last()->prompt, "Select Source Folders");
    EXPECT_THAT(paths(), ElementsAre(a, b));
    EXPECT_THAT(recentSources(*settings), ElementsAre(b, a));
    EXPECT_EQ(shown(1, SourcesModel::nameRole), "b with blanks");
    EXPECT_EQ(shown(1, SourcesModel::pathRole), QString::fromStdString(b));
}

TEST_F(FoldersTest, ADismissedDialogChangesNothing) {
    folders.pickSources();
    folders.pickDestination();
    EXPECT_THAT(paths(), IsEmpty());
    EXPECT_FALSE(folders.hasDestination());
}

TEST_F(FoldersTest, ASourceIsListedOnce) {
    const auto a = disk.makeFolder("a");
    folders.addSources({a, a});
    waitForSources(1);
    folders.addSources({a, disk.makeFolder("b")});
    waitForSources(2);
}

TEST_F(FoldersTest, ASourceCanBeTakenOut) {
    const auto a = disk.makeFolder("a");
    const auto b = disk.makeFolder("b");
    folders.addSources({a, b});
    waitForSources(2);
    folders.removeSource(0);
    EXPECT_THAT(paths(), ElementsAre(b));
    folders.removeSource(7);
    EXPECT_THAT(paths(), ElementsAre(b));
    folders.clearSources();
    EXPECT_THAT(paths(), IsEmpty());
}

TEST_F(FoldersTest, SourcesAndDestinationAreKept) {
    const auto a = disk.makeFolder("a");
    folders.addSources({a});
    waitForSources(1);
    folders.setDestination({a});
    ASSERT_TRUE(spinUntil([&] { return folders.hasDestination(); }));
    settings.reset();

    settings = file.open();
    Folders again{{*settings, fileSystem, chooser, background}};
    again.load();
    EXPECT_THAT(again.sourceList().paths(), ElementsAre(a));
    EXPECT_EQ(again.dest(), a);
}

TEST_F(FoldersTest, ThePickedFolderBecomesTheDestination) {
    const auto out = disk.makeFolder("x/y/z/out");
    settings->setBytes(keys::kDestBookmark, "of another folder");
    chooser.answerNext({out});

    folders.pickDestination();
    ASSERT_TRUE(spinUntil([&] { return folders.hasDestination(); }));

    EXPECT_EQ(chooser.last()->kind, FileQuestion::Kind::folder);
    EXPECT_EQ(chooser.last()->prompt, "Select Destination");
    EXPECT_EQ(folders.dest(), out);
    EXPECT_EQ(folders.destinationName(), "out");
    EXPECT_EQ(folders.destinationShortPath(), "…/y/z/out");
    EXPECT_THAT(recentDests(*settings), ElementsAre(out));
    EXPECT_EQ(settings->bytes(keys::kDestBookmark), std::nullopt);
}

TEST_F(FoldersTest, TheDestinationCanBeTakenOut) {
    folders.setDestination({disk.makeFolder("out")});
    ASSERT_TRUE(spinUntil([&] { return folders.hasDestination(); }));
    folders.clearDestination();
    EXPECT_FALSE(folders.hasDestination());
    EXPECT_EQ(settings->text(keys::kDestPath), "");
}

TEST_F(FoldersTest, WhatIsNoFolderIsRefusedWithWords) {
    const auto a = disk.makeFolder("a");
    const struct {
        std::vector<std::string> paths;
        std::string words;
        std::size_t added;
    } cases[] = {
        {{disk.write("photo.jpg")}, "“" + disk.path() + "/photo.jpg” is not a folder.", 0},
        {{disk / "gone"}, "“" + disk.path() + "/gone” is not a folder.", 0},
        {{"smb://server/share"}, "“smb://server/share” is not a folder.", 0},
        {{disk / "gone", a, disk / "photo.jpg"}, "2 of these are not folders.", 1},
    };
    for (const auto& [dropped, words, added] : cases) {
        SCOPED_TRACE(dropped.front());
        folders.dismissRefusal();
        folders.addSources(dropped);
        ASSERT_TRUE(spinUntil([&] { return !folders.refusal().isEmpty(); }));
        EXPECT_EQ(folders.refusal().toStdString(), words);
        EXPECT_EQ(paths().size(), added);
    }
    folders.addSources({disk.makeFolder("b")});
    waitForSources(2);
    EXPECT_EQ(folders.refusal(), "") << "a good one takes the words back";
}

TEST_F(FoldersTest, FoldersCanBeDropped) {
    const auto odd = disk.makeFolder("a %20 # ? ü \xFF");
    const auto other = disk.makeFolder("other");
    folders.dropOnSources({urlOf(odd), urlOf(other)});
    waitForSources(2);
    EXPECT_THAT(paths(), ElementsAre(odd, other));

    folders.dropOnDestination({urlOf(odd), urlOf(other)});
    ASSERT_TRUE(spinUntil([&] { return folders.hasDestination(); }));
    EXPECT_EQ(folders.dest(), odd);
}

TEST_F(FoldersTest, AnAddressElsewhereIsRefused) {
    folders.dropOnSources({QUrl("https://example.org/photos")});
    ASSERT_TRUE(spinUntil([&] { return !folders.refusal().isEmpty(); }));
    EXPECT_EQ(folders.refusal(), "“https://example.org/photos” is not a folder.");
}

TEST_F(FoldersTest, FoldersThatVanishedAreMarked) {
    const auto gone = disk.makeFolder("gone");
    const auto here = disk.makeFolder("here");
    folders.addSources({gone, here});
    waitForSources(2);
    folders.setDestination({gone});
    ASSERT_TRUE(spinUntil([&] { return folders.freeBytes().has_value(); }));
    EXPECT_FALSE(folders.isDestinationMissing());

    ASSERT_EQ(rmdir(gone.c_str()), 0);
    folders.look();
    ASSERT_TRUE(spinUntil([&] { return folders.isDestinationMissing(); }));
    EXPECT_TRUE(folders.sources()->index(0).data(SourcesModel::isMissingRole).toBool());
    EXPECT_FALSE(folders.sources()->index(1).data(SourcesModel::isMissingRole).toBool());
    EXPECT_EQ(folders.freeBytes(), std::nullopt);

    ASSERT_EQ(mkdir(gone.c_str(), 0700), 0);
    folders.look();
    ASSERT_TRUE(spinUntil([&] { return !folders.isDestinationMissing(); }));
    EXPECT_FALSE(folders.sources()->index(0).data(SourcesModel::isMissingRole).toBool());
}

TEST_F(FoldersTest, KnowsTheRoomOnTheDestinationsVolume) {
    folders.setDestination({disk.path()});
    ASSERT_TRUE(spinUntil([&] { return folders.freeBytes().has_value(); }));
    EXPECT_GT(*folders.freeBytes(), 0);
}

TEST_F(FoldersTest, ANameThatIsNotUtf8CanBeShown) {
    folders.addSources({disk.makeFolder("d\xE9j\xE0")});
    waitForSources(1);
    EXPECT_EQ(shown(0, SourcesModel::nameRole), "d\uFFFDj\uFFFD");
}

}  // namespace
}  // namespace vellomar
