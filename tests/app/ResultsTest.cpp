// What a run found, looked at as a user looks at it: the duplicates and the statistics.
#include <gmock/gmock.h>

#include "app/RunningApp.h"
#include "settings/OptionSettings.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::spinUntil;

class ResultsTest : public ::testing::Test {
protected:
    // Two groups of duplicates, of which one has three files, and one file without any.
    void startWithFolders() {
        const auto& library = user.library();
        library.write("in/Trip/IMG_20230814_100000.jpg", "the same bytes");
        library.write("in/Trip/IMG_20230815_100000.jpg", "the same bytes");
        library.write("in/Copies/IMG_20230816_100000.jpg", "the same bytes");
        library.write("in/IMG_20190504_100000.png", std::string(2'500, 'x'));
        library.write("in/IMG_20190505_100000.png", std::string(2'500, 'x'));
        library.write("in/IMG_20200101_100000.jpg", "unique");
        {
            auto settings = user.settingsFile().open();
            settings->setValue("opt_computeHash", true);
        }
        user.start();
        user.pickFolders(library / "in", library.makeFolder("out"));
    }

    [[nodiscard]] QStringList factsOf(const QString& card) {
        auto* const interface = user.window().accessible(QAccessible::ListItem, card);
        return interface == nullptr ? QStringList() : interface->text(QAccessible::Description).split(", ");
    }

    [[nodiscard]] DuplicateViewerModel& viewer() { return *user.app().content().duplicates(); }

    testing::RunningApp user{QSize(1440, 900)};
};

TEST_F(ResultsTest, TheToolsStandInTheirOrder) {
    user.start();
    QStringList names;
    const auto& first = *user.window().accessible(QAccessible::Button, "DUPES");
    const auto* const row = qobject_cast<QQuickItem*>(first.object())->parentItem();
    for (const QQuickItem* const tool : row->childItems())
        names += tool->property("text").toString();
    EXPECT_EQ(names.mid(0, 5), QStringList({"DUPES", "STATS", "ESTIMATE", "CSV", "UNDO"}));
    EXPECT_EQ(row->childItems()[0]->property("symbol"), "doc.on.doc");
    EXPECT_EQ(row->childItems()[1]->property("symbol"), "chart.bar");
}

TEST_F(ResultsTest, NothingFoundIsNothingToLookAt) {
    startWithFolders();
    EXPECT_FALSE(user.canPress("DUPES"));
    EXPECT_FALSE(user.canPress("STATS"));
}

TEST_F(ResultsTest, ALibraryWithoutDuplicatesHasStatisticsAlone) {
    user.library().write("in/IMG_20200101_100000.jpg", "unique");
    user.start();
    user.pickFolders(user.library() / "in", user.library().makeFolder("out"));
    user.dryRun();
    EXPECT_FALSE(user.canPress("DUPES"));
    EXPECT_TRUE(user.canPress("STATS"));
}

// Cards as high as their facts from the first frame on, though those wrap.
TEST_F(ResultsTest, CardsAreLaidOutAsTheyAreDrawn) {
    startWithFolders();
    user.library().write("in/" + std::string(200, 'n') + "/IMG_20230817_100000.jpg", "the same bytes");
    user.dryRun();
    viewer().open();
    user.window().drawFrames(5);
    const auto cards = user.window().itemsNamed("fileCard");
    ASSERT_GE(cards.size(), 2U);
    for (QQuickItem* const card : cards) {
        const auto facts = card->findChild<QQuickItem*>("facts");
        ASSERT_NE(facts, nullptr);
        double bottom = 0;
        for (QQuickItem* const value : facts->findChildren<QQuickItem*>("factValue")) {
            EXPECT_EQ(value->height(), value->property("contentHeight").toDouble());
            EXPECT_GE(value->mapToItem(facts, QPointF()).y(), bottom)
                << value->property("text").toString().toStdString();
            bottom = value->mapToItem(facts, QPointF(0, value->height())).y();
        }
        EXPECT_LT(card->height(), 260) << card->property("heading").toString().toStdString();
        EXPECT_LE(facts->mapToItem(card, QPointF(0, bottom)).y(), card->height());
    }
}

TEST_F(ResultsTest, TheViewerShowsTheDuplicatesOfADryRun) {
    startWithFolders();
    user.dryRun();
    EXPECT_TRUE(user.canPress("DUPES (2)"));
    user.press("DUPES (2)");
    ASSERT_TRUE(user.isOpen("DUPLICATE VIEWER"));
    EXPECT_TRUE(user.window().shows("· 2 groups"));
    user.type("Search…", "trip");
    EXPECT_EQ(viewer().groups()->count(), 1) << "the plan keeps the name of the folder";
    ASSERT_TRUE(spinUntil([&] { return factsOf("KEEP: 2023-08-14_000000_IMG_20230814_100000.jpg").size() > 3; }));
    const auto facts = factsOf("KEEP: 2023-08-14_000000_IMG_20230814_100000.jpg");
    EXPECT_EQ(facts[1], QString::fromStdString(user.library() / "in/Trip/IMG_20230814_100000.jpg"));
    EXPECT_EQ(facts[2], "14 bytes") << "of the source: the destination is only planned";
    EXPECT_NE(user.window().accessible(QAccessible::ListItem, "DUPLICATE 1: 2023-08-15_000000_IMG_20230815_100000.jpg"),
              nullptr);
    EXPECT_NE(user.window().accessible(QAccessible::ListItem, "DUPLICATE 2: 2023-08-16_000000_IMG_20230816_100000.jpg"),
              nullptr);

    user.press("REVEAL IN FINDER");
    ASSERT_TRUE(spinUntil([&] { return !user.reveal().paths.empty(); }));
    EXPECT_THAT(user.reveal().paths, ::testing::ElementsAre(user.library() / "in/Trip/IMG_20230814_100000.jpg"));
    user.press("CLOSE");
    EXPECT_FALSE(user.isOpen("DUPLICATE VIEWER"));
    EXPECT_EQ(user.window().focusedName(), "") << "the mouse opened it";
}

TEST_F(ResultsTest, AfterARealRunTheCopiesAreShownAndRevealed) {
    startWithFolders();
    user.press("Sort Photos");
    user.press("RUN NOW");
    user.waitForEnd();
    user.press("DUPES (2)");
    auto* const files = viewer().files();
    ASSERT_TRUE(spinUntil([&] { return !files->index(0).data(DuplicateFilesModel::sizeRole).toString().isEmpty(); }));
    user.press("REVEAL IN FINDER");
    ASSERT_TRUE(spinUntil([&] { return !user.reveal().paths.empty(); }));
    EXPECT_EQ(user.reveal().paths[0], user.app().engine().state().duplicateGroups[0].canonical);
    EXPECT_TRUE(testing::exists(user.reveal().paths[0]));
}

TEST_F(ResultsTest, TheViewerIsUsedByKeysAlone) {
    startWithFolders();
    user.dryRun();
    user.press("DUPES (2)");
    auto& window = user.window();
    const auto first = window.focusedName();
    EXPECT_EQ(viewer().selectedIndex(), 0);
    window.press(Qt::Key_Down);
    EXPECT_EQ(viewer().selectedIndex(), 1);
    EXPECT_NE(window.focusedName(), first);
    window.press(Qt::Key_Up);
    EXPECT_EQ(window.focusedName(), first);
    window.press(Qt::Key_Backtab);
    EXPECT_EQ(window.focusedName(), "✕");
    window.press(Qt::Key_Backtab);
    EXPECT_EQ(window.focusedName(), "Search…");
    window.press(Qt::Key_Escape);
    EXPECT_FALSE(user.isOpen("DUPLICATE VIEWER"));
}

TEST_F(ResultsTest, StatisticsTellTheTrueNumbers) {
    startWithFolders();
    user.dryRun();
    user.press("STATS");
    ASSERT_TRUE(user.isOpen("LIBRARY STATISTICS"));
    auto& window = user.window();
    for (const char* const tile : {"TOTAL FILES: 6", "TOTAL SIZE: 5 KB", "DUPLICATES: 0", "CAMERAS: 0"})
        EXPECT_NE(window.accessible(QAccessible::StaticText, tile), nullptr) << tile;
    struct Row {
        const char* label;
        const char* numbers;
    };
    for (const auto& [label, numbers] : {Row{"2019", "2, 33%"}, Row{"2020", "1, 16%"}, Row{"2023", "3, 50%"},
                                         Row{".jpg", "4, 66%"}, Row{".png", "2, 33%"}, Row{"Filename", "6, 100%"}}) {
        auto* const row = window.accessible(QAccessible::ListItem, label);
        ASSERT_NE(row, nullptr) << label;
        EXPECT_EQ(row->text(QAccessible::Description), numbers) << label;
    }
    window.press(Qt::Key_Escape);
    EXPECT_FALSE(user.isOpen("LIBRARY STATISTICS"));
}

TEST_F(ResultsTest, OpenSheetsFollowTheNextRun) {
    startWithFolders();
    user.dryRun();
    user.press("DUPES (2)");
    user.library().write("in/IMG_20200102_100000.jpg", "unique");
    user.app().content().run()->startDryRun();
    ASSERT_TRUE(spinUntil([&] { return !user.app().engine().hasTask(); }));
    user.window().settle();
    EXPECT_TRUE(user.window().shows("· 3 groups"));
    EXPECT_EQ(viewer().groups()->count(), 3);
    user.press("CLOSE");
    user.press("STATS");
    EXPECT_NE(user.window().accessible(QAccessible::StaticText, "TOTAL FILES: 7"), nullptr);
}

}  // namespace
}  // namespace vellomar
