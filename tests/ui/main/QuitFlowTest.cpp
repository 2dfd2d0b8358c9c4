#include <gmock/gmock.h>

#include "support/TemporaryFolder.h"
#include "ui/LiveEngine.h"
#include "ui/QtPrinters.h"
#include "ui/dates/ShiftUnderWay.h"
#include "ui/main/QuitFlow.h"

namespace vellomar {
namespace {

using testing::LiveEngine;
using testing::spinUntil;
using testing::TemporaryFolder;

class QuitFlowTest : public ::testing::Test {
protected:
    QuitFlowTest() {
        QObject::connect(&flow, &QuitFlow::finished, [this] { ++ends; });
    }

    // A run that lasts, and has begun.
    void startRun() {
        for (int i = 0; i < 400; ++i)
            library.write("in/" + std::to_string(i) + "/IMG_20230814_143021.jpg", std::to_string(i));
        Options options;
        options.dryRun = false;
        engine->startRun({library / "in"}, library.makeFolder("out"), options);
        ASSERT_TRUE(spinUntil([&] { return engine.state().isRunning; }));
    }

    TemporaryFolder library{TemporaryFolder::Where::inMemory};
    LiveEngine engine;
    testing::ShiftUnderWay under;
    QuitFlow flow{*engine, engine.events(), under.shift()};
    int ends = 0;
};

TEST_F(QuitFlowTest, AWindowAtRestMayClose) {
    EXPECT_TRUE(flow.mayClose());
    EXPECT_FALSE(flow.isAsked());
    EXPECT_EQ(ends, 0);
}

TEST_F(QuitFlowTest, DuringARunItAsksFirst) {
    startRun();
    EXPECT_FALSE(flow.mayClose());
    EXPECT_TRUE(flow.isAsked());
    EXPECT_TRUE(flow.question().contains("run is under way"));
    flow.stay();
    EXPECT_FALSE(flow.isAsked());
    engine.waitForEnd();
    EXPECT_EQ(ends, 0);
}

TEST_F(QuitFlowTest, QuittingCancelsTheRunAndWaitsForIt) {
    startRun();
    EXPECT_FALSE(flow.mayClose());
    flow.quit();
    EXPECT_TRUE(flow.isQuitting());
    EXPECT_FALSE(flow.isAsked());
    EXPECT_EQ(ends, 0) << "the file under way comes first";
    EXPECT_FALSE(flow.mayClose());
    EXPECT_FALSE(flow.isAsked()) << "once is enough";
    ASSERT_TRUE(spinUntil([&] { return ends > 0; }));
    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(engine.state().isRunning);
    EXPECT_TRUE(flow.mayClose());
}

TEST_F(QuitFlowTest, TheQuestionGoesWhenTheRunEnds) {
    startRun();
    EXPECT_FALSE(flow.mayClose());
    engine.waitForEnd();
    EXPECT_FALSE(flow.isAsked());
    EXPECT_EQ(ends, 0);
}

TEST_F(QuitFlowTest, AnUndoIsWaitedFor) {
    engine.makeBusy();
    EXPECT_FALSE(flow.mayClose());
    EXPECT_TRUE(flow.question().contains("undo is under way"));
    flow.quit();
    EXPECT_EQ(ends, 0);
    ASSERT_TRUE(spinUntil([&] { return ends == 1; }));
}

class QuitFlowDuringAShift : public QuitFlowTest {
protected:
    QuitFlowDuringAShift() {
        for (int i = 0; i < 3; ++i)
            library.write("photos/" + std::to_string(i) + ".jpg");
        under.shift().applyShift({library / "photos"}, {0, 5});
        under.waitUntilBusy();
    }
};

TEST_F(QuitFlowDuringAShift, ItAsksFirst) {
    EXPECT_FALSE(flow.mayClose());
    EXPECT_TRUE(flow.isAsked());
    EXPECT_THAT(flow.question().toStdString(), ::testing::StartsWith("Dates are being shifted: 0 of "));
    flow.stay();
    EXPECT_FALSE(flow.isAsked());
    under.letGo();
    under.waitForEnd();
    EXPECT_EQ(under.shift().state().done, 3) << "it went on to its end";
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(flow.mayClose());
}

TEST_F(QuitFlowDuringAShift, QuittingStopsBehindTheFileUnderWay) {
    EXPECT_FALSE(flow.mayClose());
    flow.quit();
    EXPECT_TRUE(flow.isQuitting());
    EXPECT_FALSE(flow.mayClose());
    EXPECT_EQ(ends, 0) << "the file under way comes first";
    under.letGo();
    ASSERT_TRUE(spinUntil([&] { return ends > 0; }));
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(under.shift().state().done, 1);
    EXPECT_EQ(under.shift().state().statusText,
              "Stopped — shifted 1 of 3 files by +5 hours. No other file was changed.");
    EXPECT_EQ(engine.state().statusText, "") << "there is no run to be cancelled";
    EXPECT_TRUE(flow.mayClose());
}

TEST_F(QuitFlowDuringAShift, TheQuestionFollowsTheShiftAndGoesWithIt) {
    EXPECT_FALSE(flow.mayClose());
    QStringList questions;
    QObject::connect(&flow, &QuitFlow::changed, [&] {
        if (flow.isAsked()) questions << flow.question();
    });
    under.letGo();
    under.waitForEnd();
    EXPECT_TRUE(questions.contains(
        "Dates are being shifted: 2 of 3 files so far. Quitting stops behind the file that is being worked on; what is "
        "shifted stays so, and the other files are not changed."));
    EXPECT_FALSE(flow.isAsked());
    EXPECT_EQ(ends, 0);
}

}  // namespace
}  // namespace vellomar
