#include <QAbstractItemModelTester>
#include <QColor>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include "ui/QtPrinters.h"
#include "ui/statistics/LibraryStatsModel.h"
#include "ui/statistics/StatsForTests.h"
#include "ui/theme/HexColour.h"

namespace vellomar {
namespace {

using testing::fullStats;

class LibraryStatsModelTest : public ::testing::Test {
protected:
    [[nodiscard]] QVariant value(int row, LibraryStatsModel::Role role) const { return model.index(row).data(role); }

    testing::PublishedStats engine;
    LibraryStatsModel model{engine.state, engine.events};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(LibraryStatsModelTest, OpensOnlyOverFilesThatWereCounted) {
    EXPECT_FALSE(model.canOpen());
    model.open();
    EXPECT_FALSE(model.isOpen());
    const QSignalSpy changes(&model, &LibraryStatsModel::statsChanged);
    engine.publish(fullStats());
    EXPECT_EQ(changes.count(), 1);
    EXPECT_TRUE(model.canOpen());
    EXPECT_EQ(model.rowCount(), 0) << "closed, it lists nothing";
    model.open();
    EXPECT_TRUE(model.isOpen());
    EXPECT_EQ(model.rowCount(), 9);
    model.dismiss();
    EXPECT_FALSE(model.isOpen());
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(LibraryStatsModelTest, TilesTellTheTotals) {
    EXPECT_EQ(model.tileLabels(), QStringList({"TOTAL FILES", "TOTAL SIZE", "DUPLICATES", "CAMERAS"}));
    EXPECT_EQ(model.tileValues(), QStringList({"0", "Zero KB", "0", "0"}));
    auto stats = fullStats();
    stats.duplicateCount = 7;
    engine.publish(stats);
    EXPECT_EQ(model.tileValues(), QStringList({"1000", "12.35 GB", "7", "2"}));
}

TEST_F(LibraryStatsModelTest, TheTileOfDuplicatesShowsWhatTheStatisticsCounted) {
    engine.state.duplicateGroups = {{"/a", {"/b"}}};
    engine.publish(fullStats());
    EXPECT_EQ(model.tileValues()[2], "0") << "groups are told of elsewhere";
}

TEST_F(LibraryStatsModelTest, RowsOfAllSectionsFollowEachOther) {
    engine.publish(fullStats());
    model.open();
    EXPECT_EQ(value(0, LibraryStatsModel::headingRole), "BY YEAR");
    EXPECT_EQ(value(0, LibraryStatsModel::labelRole), "2019");
    EXPECT_EQ(value(0, LibraryStatsModel::countRole), 250);
    EXPECT_EQ(value(0, LibraryStatsModel::percentageRole), 25);
    EXPECT_DOUBLE_EQ(value(0, LibraryStatsModel::shareRole).toDouble(), 1.0 / 3);
    EXPECT_EQ(value(0, LibraryStatsModel::barColourRole).value<QColor>(), hexColour("F5C518"));
    EXPECT_FALSE(value(0, LibraryStatsModel::isNoneRole).toBool());
    EXPECT_EQ(value(2, LibraryStatsModel::headingRole), "BY CAMERA");
    EXPECT_EQ(value(2, LibraryStatsModel::labelRole), "X100V");
    EXPECT_EQ(value(8, LibraryStatsModel::headingRole), "FILE TYPES");
    EXPECT_EQ(value(8, LibraryStatsModel::labelRole), ".arw");
    EXPECT_EQ(model.roleNames().size(), 7);
}

TEST_F(LibraryStatsModelTest, ASectionOfWhichNothingIsKnownSaysSo) {
    auto stats = fullStats();
    stats.byCamera.clear();
    engine.publish(stats);
    model.open();
    EXPECT_EQ(value(2, LibraryStatsModel::headingRole), "BY CAMERA");
    EXPECT_EQ(value(2, LibraryStatsModel::labelRole), "—");
    EXPECT_TRUE(value(2, LibraryStatsModel::isNoneRole).toBool());
    EXPECT_EQ(value(2, LibraryStatsModel::countRole), 0);
    EXPECT_EQ(value(3, LibraryStatsModel::headingRole), "DATE SOURCE CONFIDENCE");
}

TEST_F(LibraryStatsModelTest, EachHeadingHasItsSymbol) {
    engine.publish(fullStats());
    model.open();
    EXPECT_EQ(model.symbolOf("BY YEAR"), "calendar");
    EXPECT_EQ(model.symbolOf("FILE TYPES"), "doc");
    EXPECT_EQ(model.symbolOf("ANYTHING ELSE"), "");
}

TEST_F(LibraryStatsModelTest, ANewRunIsFollowed) {
    engine.publish(fullStats());
    model.open();
    engine.publish({});
    EXPECT_TRUE(model.isOpen()) << "the user closes it";
    EXPECT_EQ(model.rowCount(), 4) << "of each section that nothing is known";
    EXPECT_EQ(model.tileValues()[0], "0");
    auto stats = fullStats();
    stats.byYear = {{"2001", 1}};
    engine.publish(stats);
    EXPECT_EQ(value(0, LibraryStatsModel::labelRole), "2001");
}

TEST_F(LibraryStatsModelTest, OtherNewsOfARunLeaveItAlone) {
    engine.publish(fullStats());
    model.open();
    const QSignalSpy resets(&model, &LibraryStatsModel::modelReset);
    const QSignalSpy changes(&model, &LibraryStatsModel::statsChanged);
    engine.events.fieldChanged(PublishedField::progress);
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(changes.count(), 0);
}

}  // namespace
}  // namespace vellomar
