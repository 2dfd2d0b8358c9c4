#include <gmock/gmock.h>

#include "support/TemporaryFolder.h"
#include "ui/LiveEngine.h"
#include "ui/QtPrinters.h"
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
    QuitFlow flow{*engine, engine.events()};
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

}  // namespace
}  // namespace vellomar
