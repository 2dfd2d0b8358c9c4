#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include "ui/QtPrinters.h"
#include "ui/desktop/BackgroundWork.h"
#include "ui/desktop/RecordingDesktop.h"
#include "ui/inspector/FactsForTests.h"
#include "ui/plan/PlanForTests.h"
#include "ui/plan/PlanWindow.h"

namespace vellomar {
namespace {

class PlanWindowTest : public ::testing::Test {
protected:
    testing::PublishedPlan published;
    testing::GivenFacts facts;
    testing::RecordingReveal reveal;
    testing::RecordingLinks links;
    BackgroundWork background;
    PlanWindow window{published.state, published.events, {facts, reveal, links, background}};
};

TEST_F(PlanWindowTest, OpensOnceAndComesToTheFrontThen) {
    const QSignalSpy raised(&window, &PlanWindow::raiseRequested);
    window.open();
    EXPECT_TRUE(window.isOpen());
    EXPECT_EQ(raised.count(), 0);
    window.open();
    EXPECT_EQ(raised.count(), 1);
    window.close();
    EXPECT_FALSE(window.isOpen());
}

TEST_F(PlanWindowTest, ClosesWhenTheUserComesBackFromAnotherProgram) {
    window.open();
    window.noteApplicationState(Qt::ApplicationInactive);
    QTest::qWait(250);
    EXPECT_TRUE(window.isOpen()) << "it may be looked at from elsewhere";
    window.noteApplicationState(Qt::ApplicationActive);
    EXPECT_TRUE(window.isOpen()) << "a moment later";
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window.isOpen(); }));
}

TEST_F(PlanWindowTest, StaysOpenWhileTheFocusGoesBetweenItsOwnWindows) {
    window.open();
    window.noteApplicationState(Qt::ApplicationInactive);
    window.noteApplicationState(Qt::ApplicationActive);
    QTest::qWait(250);
    EXPECT_TRUE(window.isOpen());
}

TEST_F(PlanWindowTest, ItsInspectorClosesWithIt) {
    published.add({testing::planRow("/in/a.jpg", "/out/a.jpg")});
    window.open();
    window.plan()->inspect(0);
    EXPECT_TRUE(window.plan()->inspector()->isOpen());
    window.close();
    EXPECT_FALSE(window.plan()->inspector()->isOpen());
}

TEST_F(PlanWindowTest, ARowThatIsNoneIsNotInspected) {
    window.plan()->inspect(0);
    window.plan()->inspect(-1);
    EXPECT_FALSE(window.plan()->inspector()->isOpen());
}

}  // namespace
}  // namespace vellomar
