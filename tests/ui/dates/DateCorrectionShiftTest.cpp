#include <QSignalSpy>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/dates/DateCorrectionFixture.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DateCorrectionShift : public testing::DateCorrectionFixture {};

TEST_F(DateCorrectionShift, ExifToolGetsTheFilesOfTheEnteredPathAlone) {
    const auto photo = disk.write("elsewhere/c.jpg");
    under.letGo();
    dates.open();
    dates.typePath(QString::fromStdString(disk / "elsewhere"));
    dates.setDays(1);
    dates.setHours(6);
    dates.applyShift();
    under.waitForEnd();
    EXPECT_THAT(under.tool().calls(), ElementsAre(ElementsAre("-api", "LargeFileSupport=1", "-AllDates+=0:0:0 30:0:0",
                                                              "-overwrite_original", photo)));
    EXPECT_EQ(dates.statusText(), "Done — shifted 1 file by +30 hours");
}

TEST_F(DateCorrectionShift, NothingFoundIsStillDone) {
    dates.open();
    dates.typePath("/nowhere");
    dates.setHours(-1);
    EXPECT_TRUE(dates.canApply());
    dates.applyShift();
    under.waitForEnd();
    EXPECT_EQ(dates.statusText(), "Done — shifted 0 files by -1 hour");
}

class DateCorrectionUnderWay : public DateCorrectionShift {
protected:
    DateCorrectionUnderWay() {
        dates.open();
        dates.setHours(5);
        dates.applyShift();
        under.waitUntilBusy();
    }
};

TEST_F(DateCorrectionUnderWay, ItTellsWhatItCameTo) {
    EXPECT_TRUE(dates.isRunning());
    EXPECT_FALSE(dates.isDone());
    EXPECT_FALSE(dates.canApply());
    EXPECT_EQ(dates.hindrance(), "");
    endShift();
    EXPECT_TRUE(dates.isDone());
    EXPECT_TRUE(dates.canApply()) << "another one is possible";
    EXPECT_EQ(dates.progress(), 1.0);
    EXPECT_EQ(dates.statusText(), "Done — shifted 2 files by +5 hours");
}

TEST_F(DateCorrectionUnderWay, ItGoesOnBehindTheClosedSheet) {
    QSignalSpy notices(&dates, &DateCorrection::noticeChanged);
    EXPECT_EQ(dates.notice(), "");
    dates.close();
    EXPECT_EQ(notices.count(), 1);
    EXPECT_EQ(dates.notice(), "Dates are being shifted. Runs and undos have to wait until that has ended.");
    dates.open();
    EXPECT_TRUE(dates.isRunning());
    EXPECT_EQ(dates.hours(), 5) << "the sheet is that of the shift";
    EXPECT_EQ(dates.notice(), "");
    endShift();
    EXPECT_EQ(dates.statusText(), "Done — shifted 2 files by +5 hours");
    EXPECT_EQ(dates.notice(), "");
}

TEST_F(DateCorrectionUnderWay, AnOutcomeThatNobodySawIsTold) {
    dates.close();
    QSignalSpy notices(&dates, &DateCorrection::noticeChanged);
    endShift();
    EXPECT_EQ(notices.count(), 1) << "and not for each file";
    EXPECT_EQ(dates.notice(), "Done — shifted 2 files by +5 hours");
    dates.open();
    EXPECT_TRUE(dates.isDone());
    EXPECT_EQ(dates.statusText(), "Done — shifted 2 files by +5 hours");
    EXPECT_EQ(dates.notice(), "");
    dates.close();
    EXPECT_EQ(dates.notice(), "") << "once is enough";
    dates.open();
    EXPECT_FALSE(dates.isDone()) << "and then the sheet is fresh";
    EXPECT_EQ(dates.hours(), 0);
}

TEST_F(DateCorrectionUnderWay, ItsFoldersAreShownWhateverBecomesOfTheSources) {
    dates.close();
    sources.clear();
    dates.noteSources();
    dates.open();
    EXPECT_THAT(dates.targetFolders(), ElementsAre(disk / "in"));
    dates.typePath("/nowhere");
    dates.dropFolders({QUrl("file:///nowhere")});
    EXPECT_THAT(shownFolders(), ElementsAre(QString::fromStdString(disk / "in")));
    endShift();
    EXPECT_THAT(shownFolders(), IsEmpty());
    EXPECT_EQ(counted(), "0 images found");
}

TEST_F(DateCorrectionUnderWay, NoSecondOneStarts) {
    dates.setHours(7);
    dates.applyShift();
    endShift();
    EXPECT_THAT(under.tool().calls(), ::testing::SizeIs(2));
    EXPECT_EQ(dates.statusText(), "Done — shifted 2 files by +5 hours");
}

TEST_F(DateCorrectionShift, WaitsForARunOrAnUndo) {
    dates.open();
    QSignalSpy changes(&dates, &DateCorrection::shiftChanged);
    engine.makeBusy();
    EXPECT_GT(changes.count(), 0);
    EXPECT_FALSE(dates.canApply());
    EXPECT_EQ(dates.hindrance(), "A run or an undo is under way. Dates can be shifted when it has ended.");
    dates.applyShift();
    EXPECT_FALSE(dates.isRunning());
    engine.waitForEnd();
    EXPECT_TRUE(dates.canApply());
    EXPECT_EQ(dates.hindrance(), "");
}

TEST_F(DateCorrectionShift, ARunThatWasJustAskedForCountsAsUnderWay) {
    dates.open();
    engine->startRun({disk / "in"}, disk.makeFolder("out"), {});
    dates.applyShift();
    EXPECT_FALSE(dates.isRunning());
    engine.waitForRun();
}

}  // namespace
}  // namespace vellomar
