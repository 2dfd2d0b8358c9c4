#include <QTest>

#include <gtest/gtest.h>

#include "engine/Publication.h"
#include "ui/QmlWindow.h"
#include "ui/QtPrinters.h"
#include "ui/main/LogModel.h"

namespace vellomar {
namespace {

class LogListTest : public ::testing::Test {
protected:
    LogListTest() {
        window.show("LogList { property LogModel model; log: model }", {{"model", QVariant::fromValue(&model)}});
        list = &window.itemNamed("logList");
    }

    // Lines of which every `longEvery`-th needs several lines of the window; with 0 none does.
    void publish(int count, int longEvery = 0) {
        std::vector<std::string> lines;
        for (int i = 0; i < count; ++i) {
            lines.push_back("line " + std::to_string(++appended));
            if (longEvery > 0 && i % longEvery == 0) lines.back() += std::string(600, '-');
        }
        published.appendLogLines(std::move(lines));
    }

    void append(int count) {
        publish(count);
        window.settle();
    }

    [[nodiscard]] bool isAtEnd() const { return list->property("atYEnd").toBool(); }
    [[nodiscard]] bool comesToItsEnd() const {
        return QTest::qWaitFor([this] { return isAtEnd(); });
    }
    [[nodiscard]] double place() const { return list->property("contentY").toDouble(); }

    EngineEvents events;
    Publication published{&events};
    LogModel model{published.state(), events};
    testing::QmlWindow window{QSize(600, 200)};
    QQuickItem* list = nullptr;
    int appended = 0;
};

TEST_F(LogListTest, FollowsItsEnd) {
    EXPECT_TRUE(window.shows("Run Dry Run or Sort to see activity here"));
    append(100);
    EXPECT_FALSE(window.shows("Run Dry Run or Sort to see activity here"));
    EXPECT_TRUE(comesToItsEnd());
    append(1);
    EXPECT_TRUE(comesToItsEnd());
    append(2'000);
    EXPECT_TRUE(comesToItsEnd());
}

TEST_F(LogListTest, IsReadOutByItsNameWhenItGetsTheFocus) {
    append(10);
    window.press(Qt::Key_Tab);
    EXPECT_EQ(window.focusedName(), "ACTIVITY LOG");
}

TEST_F(LogListTest, SlidesToItsEndByAPageAtMost) {
    append(100);
    ASSERT_TRUE(comesToItsEnd());
    const double before = place();
    publish(1);
    EXPECT_EQ(place(), before) << "it has only begun";
    ASSERT_TRUE(comesToItsEnd());
    EXPECT_GT(place(), before);

    publish(1'000);
    const double start = place();
    EXPECT_FALSE(isAtEnd());
    ASSERT_TRUE(comesToItsEnd());
    EXPECT_NEAR(place() - start, list->height(), 1);
}

TEST_F(LogListTest, FollowsItsEndPastLinesOfManyHeights) {
    for (const int longEvery : {7, 1, 0, 3, 40}) {
        SCOPED_TRACE(longEvery);
        publish(60, longEvery);
        EXPECT_TRUE(comesToItsEnd());
        window.settle();
        EXPECT_TRUE(isAtEnd());
        const auto lines = window.itemsNamed("logText");
        const auto last = "line " + QString::number(appended);
        EXPECT_TRUE(std::ranges::any_of(lines, [&](QQuickItem* line) {
            return line->property("text").toString().startsWith(last) &&
                   QRectF(0, 0, 600, 200).contains(testing::placeOf(*line));
        }));
    }
}

TEST_F(LogListTest, StaysWhereTheUserScrolledTo) {
    append(100);
    list->forceActiveFocus();
    window.press(Qt::Key_PageUp);
    EXPECT_FALSE(isAtEnd());
    const double before = place();
    append(50);
    EXPECT_EQ(place(), before);

    window.press(Qt::Key_End);
    EXPECT_TRUE(isAtEnd());
    append(50);
    EXPECT_TRUE(comesToItsEnd()) << "back at the end it follows again";
}

TEST_F(LogListTest, KeysScroll) {
    append(100);
    list->forceActiveFocus();
    window.press(Qt::Key_Home);
    EXPECT_EQ(place(), list->property("originY").toDouble());
    window.press(Qt::Key_Down);
    const double down = place();
    EXPECT_GT(down, list->property("originY").toDouble());
    window.press(Qt::Key_Up);
    EXPECT_LT(place(), down);
    window.press(Qt::Key_PageDown);
    EXPECT_GT(place(), down);
}

TEST_F(LogListTest, FollowsItsEndWhileTheOldestLinesGo) {
    append(static_cast<int>(kMostLogLines));
    append(500);
    EXPECT_TRUE(comesToItsEnd());
    EXPECT_EQ(model.rowCount(), static_cast<int>(kMostLogLines));
}

TEST_F(LogListTest, ATabWithNothingSaysSo) {
    append(3);
    model.setFilter(static_cast<int>(LogFilter::errors));
    window.settle();
    EXPECT_TRUE(window.shows("Run Dry Run or Sort to see activity here"));
}

TEST_F(LogListTest, TextCanBeSelected) {
    append(3);
    QQuickItem& line = *window.itemsNamed("logText").front();
    const auto place = testing::placeOf(line).topLeft().toPoint() + QPoint(8, 8);
    QTest::mouseDClick(&window.window(), Qt::LeftButton, {}, place);
    EXPECT_EQ(line.property("selectedText").toString(), "line");
}

TEST_F(LogListTest, AScreenReaderHearsTheLines) {
    append(3);
    EXPECT_NE(window.accessible(QAccessible::List, "ACTIVITY LOG"), nullptr);
    EXPECT_NE(window.accessible(QAccessible::ListItem, "line 2"), nullptr);
}

}  // namespace
}  // namespace vellomar
