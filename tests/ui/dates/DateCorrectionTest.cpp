#include <filesystem>
#include <memory>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/dates/DateCorrection.h"
#include "ui/dates/DateCorrectionFixture.h"
#include "ui/desktop/FileUri.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::spinUntil;
using DateCorrectionTest = testing::DateCorrectionFixture;

TEST_F(DateCorrectionTest, StartsWithNoChangeAndTheSources) {
    dates.setDays(1);
    dates.setHours(2);
    dates.typePath("/nowhere");
    dates.open();
    EXPECT_TRUE(dates.isOpen());
    EXPECT_EQ(dates.days(), 0);
    EXPECT_EQ(dates.hours(), 0);
    EXPECT_EQ(dates.totalShift(), "No change");
    EXPECT_EQ(dates.customPath(), "");
    EXPECT_EQ(dates.statusText(), "");
    EXPECT_FALSE(dates.isRunning());
    EXPECT_FALSE(dates.isDone());
    EXPECT_TRUE(dates.canApply());
    EXPECT_THAT(dates.targetFolders(), ElementsAre(disk / "in"));
}

TEST_F(DateCorrectionTest, CountsWhatIsFound) {
    dates.open();
    EXPECT_EQ(dates.countText(), "Counting…");
    EXPECT_EQ(counted(), "2 images found");
    std::filesystem::remove(disk / "in/a.jpg");
    dates.close();
    dates.open();
    EXPECT_EQ(counted(), "1 image found");
    dates.typePath("/nowhere");
    EXPECT_EQ(counted(), "0 images found");
}

TEST_F(DateCorrectionTest, CountsNothingWhileTheSheetIsClosed) {
    dates.noteSources();
    EXPECT_THAT(fileSystem.listed(), IsEmpty());
}

TEST_F(DateCorrectionTest, CountsAnewWhenTheSourcesChange) {
    dates.open();
    EXPECT_EQ(counted(), "2 images found");
    disk.write("other/c.jpg");
    sources.add(disk / "other");
    dates.noteSources();
    EXPECT_EQ(dates.countText(), "Counting…");
    EXPECT_EQ(counted(), "3 images found");
}

TEST_F(DateCorrectionTest, AnAnswerThatIsOutOfDateIsDropped) {
    fileSystem.gate = disk / "in";
    disk.write("other/c.jpg");
    disk.write("third/1.jpg");
    disk.write("third/2.jpg");
    disk.write("third/3.jpg");
    dates.open();
    fileSystem.reached.get_future().wait();
    dates.typePath(QString::fromStdString(disk / "other"));
    dates.typePath(QString::fromStdString(disk / "third"));
    fileSystem.opened.set_value();
    EXPECT_EQ(counted(), "3 images found");
    EXPECT_THAT(fileSystem.listed(), ElementsAre(disk / "in", disk / "third"))
        << "what was asked for in between is not even begun";
}

TEST_F(DateCorrectionTest, GoesWhileACountIsUnderWay) {
    fileSystem.gate = disk / "in";
    disk.makeFolder("in/deeper");
    auto gone = std::make_unique<DateCorrection>(DateCorrection::Surroundings{
        sources, *engine, engine.events(), under.shift(), fileSystem, chooser, background});
    gone->open();
    fileSystem.reached.get_future().wait();
    gone.reset();
    fileSystem.opened.set_value();
    // What comes behind it in the queue is done, so the answer had its turn.
    bool isDone = false;
    for (int i = 0; i < 4; ++i)
        background.run([] {}, [&isDone, i] { isDone = isDone || i == 3; });
    EXPECT_TRUE(spinUntil([&] { return isDone; }));
}

TEST_F(DateCorrectionTest, ListsAFewFoldersUntilAllAreAskedFor) {
    sources.clear();
    dates.open();
    EXPECT_THAT(dates.folders(), IsEmpty());
    addSources(3);
    EXPECT_THAT(shownFolders(), ::testing::SizeIs(3));
    EXPECT_EQ(dates.moreText(), "");
    addSources(10);
    EXPECT_THAT(shownFolders(), ::testing::SizeIs(3));
    EXPECT_EQ(shownFolders().front(), QString::fromStdString(disk / "source 0"));
    EXPECT_EQ(dates.moreText(), "+ 7 more…");
    EXPECT_THAT(dates.targetFolders(), ::testing::SizeIs(10));
    dates.showAllFolders();
    EXPECT_THAT(shownFolders(), ::testing::SizeIs(10));
    EXPECT_EQ(dates.moreText(), "");
    dates.close();
    dates.open();
    EXPECT_EQ(dates.moreText(), "+ 7 more…");
}

TEST_F(DateCorrectionTest, AnEnteredPathReplacesTheSources) {
    dates.open();
    disk.write("elsewhere/c.jpg");
    dates.typePath(QString::fromStdString(disk / "elsewhere"));
    EXPECT_THAT(dates.targetFolders(), ElementsAre(disk / "elsewhere"));
    EXPECT_THAT(shownFolders(), ElementsAre(QString::fromStdString(disk / "elsewhere")));
    EXPECT_EQ(counted(), "1 image found");
    EXPECT_EQ(dates.pathProblem(), "");
    dates.typePath("");
    EXPECT_THAT(dates.targetFolders(), ElementsAre(disk / "in"));
    EXPECT_EQ(counted(), "2 images found");
}

TEST_F(DateCorrectionTest, TellsWhatIsWrongWithAnEnteredPath) {
    struct Case {
        std::string path;
        const char* problem;
    };
    fileSystem.locked = disk.makeFolder("locked");
    const Case cases[] = {
        {disk / "missing", "There is no such folder."},
        {disk / "in/a.jpg", "This is not a folder."},
        {"in", "Enter the whole path of a folder, which begins with “/”."},
        {"-rf.jpg", "Enter the whole path of a folder, which begins with “/”."},
        {" ", "Enter the whole path of a folder, which begins with “/”."},
        {fileSystem.locked, "This folder cannot be read."},
        {disk / "in", ""},
    };
    dates.open();
    for (const auto& [path, problem] : cases) {
        SCOPED_TRACE(path);
        dates.typePath(QString::fromStdString(path));
        EXPECT_EQ(counted(), *problem == '\0' ? "2 images found" : "0 images found");
        EXPECT_EQ(dates.pathProblem(), problem);
        EXPECT_EQ(dates.folders().at(0).toMap().value("problem").toString(), "") << "it is told once";
    }
}

TEST_F(DateCorrectionTest, TellsWhatIsWrongWithASource) {
    sources.add(disk / "vanished");
    dates.open();
    EXPECT_EQ(counted(), "2 images found");
    EXPECT_EQ(dates.folders().at(0).toMap().value("problem").toString(), "");
    EXPECT_EQ(dates.folders().at(1).toMap().value("problem").toString(), "There is no such folder.");
    EXPECT_EQ(dates.pathProblem(), "");
}

TEST_F(DateCorrectionTest, APickedFolderKeepsItsBytes) {
    const auto odd = disk.makeFolder("caf\xE9\n");
    dates.open();
    chooser.answerNext({odd});
    dates.pickFolder();
    EXPECT_EQ(chooser.last()->kind, FileQuestion::Kind::folder);
    EXPECT_EQ(chooser.last()->prompt, "Select Folder");
    EXPECT_THAT(dates.targetFolders(), ElementsAre(odd));
    EXPECT_TRUE(dates.customPath().endsWith("caf\uFFFD␊"));
    EXPECT_EQ(counted(), "0 images found");
    EXPECT_EQ(dates.pathProblem(), "");
    dates.pickFolder();
    EXPECT_THAT(dates.targetFolders(), ElementsAre(odd)) << "the dialog was dismissed";
}

TEST_F(DateCorrectionTest, ADroppedFolderIsTaken) {
    dates.open();
    const auto urlOf = [](const std::string& path) {
        return QUrl::fromEncoded(QByteArray::fromStdString(fileUriOf(path)));
    };
    dates.dropFolders({QUrl("https://example.org/"), urlOf(disk / "in"), urlOf("/elsewhere")});
    EXPECT_THAT(dates.targetFolders(), ElementsAre(disk / "in"));
    dates.dropFolders({QUrl("https://example.org/")});
    EXPECT_THAT(dates.targetFolders(), ElementsAre(disk / "in"));
}

TEST_F(DateCorrectionTest, DaysAndHoursComeToATotalAndStayWithinBounds) {
    dates.setDays(1);
    dates.setHours(3);
    EXPECT_EQ(dates.totalShift(), "+1 day 3 hours");
    dates.setHours(-24);
    EXPECT_EQ(dates.totalShift(), "No change");
    dates.setDays(10'000);
    dates.setHours(-2'000'000'000);
    EXPECT_EQ(dates.days(), 9'999);
    EXPECT_EQ(dates.hours(), -9'999);
}

TEST_F(DateCorrectionTest, QuickHoursAreThoseOfTimeZones) {
    QStringList labels;
    QList<int> hours;
    for (const auto& row : DateCorrection::quickHours()) {
        labels << row.toMap().value("label").toString();
        hours << row.toMap().value("hours").toInt();
    }
    EXPECT_THAT(labels, ElementsAre("-12", "-8", "-6", "-5", "-3", "-1", "+1", "+3", "+5", "+6", "+8", "+9", "+12"));
    EXPECT_THAT(hours, ElementsAre(-12, -8, -6, -5, -3, -1, 1, 3, 5, 6, 8, 9, 12));
}

}  // namespace
}  // namespace vellomar
