#include <QSignalSpy>

#include <gmock/gmock.h>

#include "settings/SettingsKeys.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/FileUri.h"
#include "ui/desktop/SpinUntil.h"
#include "ui/wizard/WizardSurroundings.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::spinUntil;

constexpr int kSourcesStep = 1;
constexpr int kDestinationStep = 2;

class WizardModelTest : public ::testing::Test, protected testing::WizardSurroundings {
protected:
    WizardModelTest() { folders.load(); }

    void goTo(int step) {
        while (wizard.step() < step)
            wizard.goForward();
    }

    // Answers the dialog with these, and waits until `count` folders are listed.
    void pick(std::vector<std::string> paths, int count) {
        chooser.answerNext(std::move(paths));
        wizard.pickSources();
        ASSERT_TRUE(spinUntil([&] { return wizard.wizardSources()->count() == count; }));
    }

    [[nodiscard]] QStringList listed(int role) {
        QStringList texts;
        for (int row = 0; row < wizard.wizardSources()->rowCount(); ++row)
            texts << wizard.wizardSources()->index(row).data(role).toString();
        return texts;
    }

    testing::TemporaryFolder disk{testing::TemporaryFolder::Where::inMemory};
    WizardModel wizard{forModel(), {"", "", "https://exiftool.org"}};
};

TEST_F(WizardModelTest, GoesForwardAndBackThroughItsScreens) {
    const QSignalSpy completions(&wizard, &WizardModel::completed);
    wizard.open();
    QStringList road;
    for (int i = 0; i < 5; ++i) {
        road << wizard.positionText() + " " + wizard.stepText() + " " + wizard.forwardText() +
                    (wizard.canGoBack() ? " ←" : "");
        wizard.goForward();
    }
    EXPECT_EQ(road, QStringList({"1 of 5  Next →", "2 of 5 Step 1 of 4 Skip → ←", "3 of 5 Step 2 of 4 Skip → ←",
                                 "4 of 5 Step 3 of 4 Next → ←", "5 of 5 Step 4 of 4 START SORTING ←"}));
    EXPECT_EQ(completions.count(), 1);
    EXPECT_EQ(wizard.step(), 4) << "closing is for who hears of it";
    for (int i = 0; i < 6; ++i)
        wizard.goBack();
    EXPECT_EQ(wizard.step(), 0);
    EXPECT_EQ(wizard.totalSteps(), 5);
}

TEST_F(WizardModelTest, TheBarFillsWithTheSteps) {
    EXPECT_DOUBLE_EQ(wizard.fraction(), 0.2);
    goTo(4);
    EXPECT_DOUBLE_EQ(wizard.fraction(), 1);
}

TEST_F(WizardModelTest, SkippingCompletesAtOnce) {
    const QSignalSpy completions(&wizard, &WizardModel::completed);
    wizard.open();
    wizard.skipSetup();
    EXPECT_EQ(completions.count(), 1);
}

TEST_F(WizardModelTest, BeginsWithTheFirstSource) {
    const auto first = disk.makeFolder("first");
    folders.addSource(first);
    folders.addSource(disk.makeFolder("second"));
    wizard.open();
    EXPECT_EQ(listed(WizardSources::pathRole), QStringList{QString::fromStdString(first)});
    EXPECT_EQ(wizard.wizardSourcePath(), first);
    goTo(kSourcesStep);
    EXPECT_EQ(wizard.forwardText(), "Next →");
    EXPECT_EQ(wizard.boxTitle(), "Sources (1)");
}

TEST_F(WizardModelTest, OpensAfresh) {
    wizard.open();
    pick({disk.makeFolder("a"), disk.makeFolder("b")}, 2);
    goTo(3);
    wizard.close();
    EXPECT_FALSE(wizard.isOpen());
    wizard.open();
    EXPECT_TRUE(wizard.isOpen());
    EXPECT_EQ(wizard.step(), 0);
    EXPECT_EQ(listed(WizardSources::nameRole), QStringList{"a"});
}

TEST_F(WizardModelTest, PickedFoldersAreListedOnceAndBecomeSources) {
    wizard.open();
    goTo(kSourcesStep);
    const auto a = disk.makeFolder("a");
    const auto b = disk.makeFolder("b");
    pick({a}, 1);
    EXPECT_EQ(chooser.last()->kind, FileQuestion::Kind::folders);
    EXPECT_EQ(chooser.last()->prompt, "Select");
    pick({a, b}, 2);
    EXPECT_EQ(listed(WizardSources::nameRole), QStringList({"a", "b"}));
    EXPECT_EQ(listed(WizardSources::pathRole), QStringList({QString::fromStdString(a), QString::fromStdString(b)}));
    EXPECT_THAT(folders.sourceList().paths(), ElementsAre(a, b));
    EXPECT_EQ(wizard.boxTitle(), "Sources (2)");
    EXPECT_EQ(wizard.forwardText(), "Next →");
    EXPECT_TRUE(settings->bytes(keys::kSourceEntries).has_value()) << "kept as they are chosen";
}

TEST_F(WizardModelTest, ASourceAlreadyIsListedToo) {
    folders.addSource(disk.makeFolder("first"));
    folders.addSource(disk.makeFolder("second"));
    wizard.open();
    pick({disk / "second"}, 2);
    EXPECT_EQ(folders.sources()->count(), 2);
}

TEST_F(WizardModelTest, ADismissedDialogChangesNothing) {
    wizard.open();
    goTo(kSourcesStep);
    wizard.pickSources();
    goTo(kDestinationStep);
    wizard.pickDestination();
    EXPECT_EQ(wizard.wizardSources()->count(), 0);
    EXPECT_THAT(folders.sourceList().paths(), IsEmpty());
    EXPECT_FALSE(folders.hasDestination());
}

TEST_F(WizardModelTest, WhatIsTakenOutOfTheListStaysASource) {
    wizard.open();
    goTo(kSourcesStep);
    pick({disk.makeFolder("a"), disk.makeFolder("b"), disk.makeFolder("c")}, 3);
    wizard.wizardSources()->removeAt(0);
    EXPECT_EQ(listed(WizardSources::nameRole), QStringList({"b", "c"}));
    EXPECT_EQ(wizard.wizardSourcePath(), disk / "b");
    wizard.wizardSources()->removeAt(2);
    wizard.wizardSources()->removeAt(-1);
    EXPECT_EQ(wizard.wizardSources()->count(), 2);
    wizard.clearSources();
    EXPECT_EQ(wizard.wizardSourcePath(), "");
    EXPECT_EQ(wizard.forwardText(), "Skip →");
    EXPECT_EQ(folders.sources()->count(), 3);
}

TEST_F(WizardModelTest, AFolderThatIsGoneIsMarked) {
    folders.addSource("/nowhere/at/all");
    wizard.open();
    folders.look();
    ASSERT_TRUE(
        spinUntil([&] { return wizard.wizardSources()->index(0).data(WizardSources::isMissingRole).toBool(); }));
}

TEST_F(WizardModelTest, FoldersCanBeDropped) {
    wizard.open();
    const auto name = disk.makeFolder("not \xff utf8");
    wizard.dropOnSources({QUrl::fromEncoded(QByteArray::fromStdString(fileUriOf(name)))});
    ASSERT_TRUE(spinUntil([&] { return wizard.wizardSources()->count() == 1; }));
    EXPECT_THAT(folders.sourceList().paths(), ElementsAre(name));
    EXPECT_EQ(listed(WizardSources::nameRole), QStringList{QString("not %1 utf8").arg(QChar(0xfffd))});
}

TEST_F(WizardModelTest, WhatIsNoFolderIsRefusedUntilOneGoesOn) {
    wizard.open();
    goTo(kSourcesStep);
    chooser.answerNext({disk.write("photo.jpg")});
    wizard.pickSources();
    ASSERT_TRUE(spinUntil([&] { return !folders.refusal().isEmpty(); }));
    EXPECT_EQ(wizard.wizardSources()->count(), 0);
    wizard.goForward();
    EXPECT_EQ(folders.refusal(), "");
}

TEST_F(WizardModelTest, TheDestinationIsKeptAsItIsChosen) {
    wizard.open();
    goTo(kDestinationStep);
    EXPECT_TRUE(wizard.asksForDestination());
    EXPECT_EQ(wizard.boxTitle(), "Destination folder");
    const QSignalSpy changes(&wizard, &WizardModel::choiceChanged);
    chooser.answerNext({disk.makeFolder("out")});
    wizard.pickDestination();
    ASSERT_TRUE(spinUntil([&] { return folders.hasDestination(); }));
    EXPECT_EQ(chooser.last()->kind, FileQuestion::Kind::folder);
    EXPECT_EQ(chooser.last()->prompt, "Select");
    EXPECT_EQ(settings->text(keys::kDestPath), disk / "out");
    EXPECT_EQ(wizard.forwardText(), "Next →");
    EXPECT_GT(changes.count(), 0);
    folders.clearDestination();
    EXPECT_EQ(wizard.forwardText(), "Skip →");
}

TEST_F(WizardModelTest, CopyOrMoveWritesNoSetting) {
    wizard.open();
    goTo(3);
    EXPECT_EQ(wizard.title(), "Copy or move?");
    EXPECT_EQ(wizard.note(), "You can change this setting at any time from the Options panel.");
    EXPECT_FALSE(wizard.asksForSources() || wizard.asksForDestination());
    goTo(4);
    EXPECT_FALSE(settings->value("opt_moveOriginals").has_value());
}

TEST_F(WizardModelTest, TheSiteIsOpenedWhereThereIsOne) {
    wizard.openExifToolSite();
    EXPECT_THAT(links.asked, ElementsAre(std::vector<std::string>{"https://exiftool.org"}));
    WizardModel without(forModel(), {});
    without.openExifToolSite();
    EXPECT_EQ(links.asked.size(), 1U);
}

}  // namespace
}  // namespace vellomar
