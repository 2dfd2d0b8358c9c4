#include <QClipboard>
#include <QGuiApplication>

#include <gmock/gmock.h>

#include "engine/Publication.h"
#include "platform/LinuxFileSystem.h"
#include "platform/LocalTime.h"
#include "support/TemporaryFolder.h"
#include "ui/QtPrinters.h"
#include "ui/ScriptedFileChooser.h"
#include "ui/desktop/SpinUntil.h"
#include "ui/main/EngineEvents.h"
#include "ui/main/Exports.h"

namespace vellomar {
namespace {

using testing::contentOf;
using testing::ScriptedFileChooser;
using testing::spinUntil;
using testing::TemporaryFolder;

class ExportsTest : public ::testing::Test {
protected:
    ExportsTest() { published.appendLogLines({"✓ Copied: a", "✗ Failed: \xFF"}); }

    void waitFor(const std::string& path) {
        ASSERT_TRUE(spinUntil([&] { return testing::exists(path); }));
    }

    TemporaryFolder disk{TemporaryFolder::Where::inMemory};
    LinuxFileSystem fileSystem;
    SystemClock clock;
    EngineEvents events;
    Publication published{&events};
    LogModel log{published.state(), events};
    ScriptedFileChooser chooser;
    BackgroundWork background;
    Exports exports{{published.state(), log, clock, fileSystem, chooser, background}};
};

TEST_F(ExportsTest, TheClipboardGetsAllLinesWhateverTheTab) {
    log.setFilter(static_cast<int>(LogFilter::moved));
    exports.copyLog();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "✓ Copied: a\n✗ Failed: \uFFFD");
}

TEST_F(ExportsTest, TheLogGoesIntoAFileThatTheUserNames) {
    chooser.answerNext({disk / "log.txt"});
    exports.exportLog();
    waitFor(disk / "log.txt");
    EXPECT_EQ(contentOf(disk / "log.txt"), "✓ Copied: a\n✗ Failed: \xFF");
    EXPECT_EQ(chooser.last()->kind, FileQuestion::Kind::saveFile);
    EXPECT_TRUE(chooser.last()->suggestedName.startsWith("vellomar_log_"));
    EXPECT_TRUE(chooser.last()->suggestedName.endsWith(".txt"));
}

TEST_F(ExportsTest, ThePlanGoesIntoAFileThatTheUserNames) {
    PlanRow row;
    row.source = "/in/a,b.jpg";
    row.destination = "/out/a.jpg";
    row.action = "COPY->/out/a.jpg";
    row.resolvedDate = "2023-08-14 14:30:21";
    row.decision = "say \"x\"";
    published.appendPreviewRows({row});
    chooser.answerNext({disk / "plan.csv"});
    exports.exportPlan();
    waitFor(disk / "plan.csv");
    EXPECT_EQ(contentOf(disk / "plan.csv"),
              "source,destination,action,resolved_date,decision\n"
              "\"/in/a,b.jpg\",\"/out/a.jpg\",\"COPY->/out/a.jpg\",\"2023-08-14 14:30:21\",\"say \"x\"\"\n");
    EXPECT_EQ(chooser.last()->suggestedName, "filesort_plan.csv");
    EXPECT_EQ(chooser.last()->filter.patterns, QStringList("*.csv"));
}

TEST_F(ExportsTest, ADismissedDialogWritesNothing) {
    exports.exportLog();
    exports.exportPlan();
    EXPECT_TRUE(chooser.last().has_value());
}

TEST_F(ExportsTest, WhatCannotBeWrittenIsPassedOver) {
    chooser.answerNext({disk / "no/such/folder/log.txt"});
    exports.exportLog();
    chooser.answerNext({disk / "log.txt"});
    exports.exportLog();
    waitFor(disk / "log.txt");
    EXPECT_FALSE(testing::exists(disk / "no"));
}

TEST(ExportedLogName, HasDateAndTime) {
    const struct {
        CivilTime time;
        const char* name;
    } cases[] = {
        {{2026, 11, 21, 17, 39, 5}, "vellomar_log_2026-Nov-21_05-39-PM.txt"},
        {{2024, 2, 3, 0, 7, 0}, "vellomar_log_2024-Feb-03_12-07-AM.txt"},
        {{2024, 2, 3, 12, 0, 0}, "vellomar_log_2024-Feb-03_12-00-PM.txt"},
        {{2024, 2, 3, 11, 59, 0}, "vellomar_log_2024-Feb-03_11-59-AM.txt"},
    };
    for (const auto& [time, name] : cases)
        EXPECT_EQ(exportedLogName(*strictLocalInstant(time)), name);
}

}  // namespace
}  // namespace vellomar
