#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <atomic>
#include <mutex>

#include <gmock/gmock.h>

#include "ui/QmlWindow.h"
#include "ui/QtPrinters.h"
#include "ui/plan/PlanForTests.h"
#include "ui/plan/PlanModel.h"
#include "ui/theme/HexColour.h"
#include "ui/thumbnails/ThumbnailImages.h"

namespace vellomar {
namespace {

using testing::colourOf;
using testing::placeOf;
using testing::planRow;
using testing::QmlWindow;

constexpr const char* kInlineList = R"(Item {
    id: root
    property PlanModel rows
    property int inspected: -1
    PlanColumns { id: columns; width: root.width }
    PlanList {
        objectName: "list"; anchors.fill: parent; model: parent.rows; columns: columns
        onInspected: row => parent.inspected = row
        delegate: FilePlanRow {
            columns: (ListView.view as PlanList).columns
            onInspected: (ListView.view as PlanList).inspected(index)
        }
    }
})";

constexpr const char* kWindowList = R"(Item {
    property PlanModel rows
    PlanList {
        objectName: "list"; anchors.fill: parent; model: parent.rows
        delegate: FilePlanWindowRow { onInspected: (ListView.view as PlanList).inspected(index) }
    }
})";

class PlanListTest : public ::testing::Test {
protected:
    PlanListTest() {
        window.engine().addImageProvider("thumbnails", new ThumbnailImages([](const std::string& path, int size) {
                                             if (path.find("broken") != std::string::npos) return QImage();
                                             QImage image(size, size, QImage::Format_RGB32);
                                             image.fill(Qt::blue);
                                             return image;
                                         }));
    }

    QQuickItem& show(const char* qml) {
        auto& root = window.show(qml, {{"rows", QVariant::fromValue(&rows)}});
        window.settle();
        return root;
    }

    void addRows(int count) {
        std::vector<PlanRow> added;
        for (int i = 0; i < count; ++i)
            added.push_back(planRow("/in/" + std::to_string(i) + ".mov", "/out/" + std::to_string(i) + ".mov"));
        plan.add(std::move(added));
        window.settle();
    }

    [[nodiscard]] QColor rowColour(std::size_t row) { return colourOf(*window.itemsNamed("planRow").at(row)); }

    testing::PublishedPlan plan;
    PlanModel rows{plan.state, plan.events};
    QmlWindow window{QSize(800, 400)};
};

TEST_F(PlanListTest, ARowHasItsHeightAndItsFills) {
    plan.add(
        {planRow("/in/a.mov", "/out/a.mov"), planRow("/in/b.mov", "/out/b.mov"), planRow("/in/c.mov", "/out/c.mov")});
    plan.state.duplicateDestPaths = {"/out/c.mov"};
    show(kInlineList);
    EXPECT_EQ(window.itemsNamed("planRow").front()->height(), 44);
    EXPECT_EQ(rowColour(0), hexColour("0D0D0D"));
    EXPECT_EQ(rowColour(1), hexColour("111111"));
    EXPECT_EQ(rowColour(2), hexColour("1A0E00")) << "a duplicate, whatever its place";
    QTest::mouseMove(&window.window(), placeOf(*window.itemsNamed("planRow")[1]).center().toPoint());
    window.settle();
    EXPECT_EQ(rowColour(1), hexColour("111100"));
}

TEST_F(PlanListTest, ARowInTheWindowIsHigherAndHasOtherFills) {
    plan.add({planRow("/in/a.mov", "/out/a.mov"), planRow("/in/b.mov", "/out/b.mov")});
    show(kWindowList);
    EXPECT_EQ(window.itemsNamed("planRow").front()->height(), 80);
    EXPECT_EQ(rowColour(0), hexColour("0A0A0A"));
    EXPECT_EQ(rowColour(1), hexColour("0E0E0E"));
    EXPECT_TRUE(window.shows("a.mov"));
    EXPECT_TRUE(window.shows("/in"));
}

TEST_F(PlanListTest, CellsHaveTheirColoursAndTheWayTheyAreCut) {
    plan.add({planRow("/a/b/c/d.mov", "/out/x/y/d.mov")});
    show(kInlineList);
    struct Case {
        const char* cell;
        const char* text;
        const char* colour;
        Qt::TextElideMode elide;
    };
    for (const auto& [cell, text, colour, elide] :
         {Case{"sourceCell", "…/b/c/d.mov", "E8E8E0", Qt::ElideMiddle},
          Case{"destinationCell", "…/x/y/d.mov", "E8E8E0", Qt::ElideMiddle},
          Case{"cameraCell", "X100V", "F5C518", Qt::ElideRight},
          Case{"dateCell", "2023-08-14 14:30:21", "909088", Qt::ElideRight}}) {
        const auto& item = window.itemNamed(cell);
        EXPECT_EQ(item.property("text"), text) << cell;
        EXPECT_EQ(colourOf(item), hexColour(colour)) << cell;
        EXPECT_EQ(item.property("elide").toInt(), elide) << cell;
    }
    EXPECT_EQ(window.itemNamed("actionText").property("text"), "COPY->/out/x/y/d.mov");
    EXPECT_EQ(colourOf(window.itemNamed("actionText")), hexColour("3D8B5E"));
}

TEST_F(PlanListTest, ANarrowListPutsTheDestinationBelowTheSource) {
    plan.add({planRow("/a/b/c/d.mov", "/out/x/y/d.mov")});
    QmlWindow narrow(QSize(380, 300));
    narrow.show(kInlineList, {{"rows", QVariant::fromValue(&rows)}});
    narrow.settle();
    const auto source = placeOf(narrow.itemNamed("sourceCell"));
    const auto destination = placeOf(narrow.itemNamed("destinationCell"));
    EXPECT_EQ(source.left(), destination.left());
    EXPECT_LE(source.bottom(), destination.top() + 2);
    EXPECT_FALSE(narrow.itemNamed("dateCell").property("truncated").toBool());
    EXPECT_LE(placeOf(narrow.itemNamed("dateCell")).right(), 380);
}

TEST_F(PlanListTest, DuplicatesHaveAChip) {
    plan.add({planRow("/in/a.mov", "/out/a.mov")});
    show(kInlineList);
    EXPECT_FALSE(window.shows("DUP"));
    plan.state.duplicateDestPaths = {"/out/a.mov"};
    plan.events.fieldChanged(PublishedField::duplicateDestPaths);
    window.settle();
    ASSERT_TRUE(window.shows("DUP"));
    const auto& text = window.itemNamed("dupText");
    EXPECT_EQ(colourOf(text), hexColour("FF8C42"));
    EXPECT_EQ(colourOf(*text.parentItem()), hexColour("2A1500"));
    EXPECT_EQ(text.parentItem()->property("radius").toInt(), 2);
}

TEST_F(PlanListTest, ADividerStandsAboveANewEvent) {
    plan.add({planRow("/in/a.mov", "/out/a.mov", "2023-08-14 08:00:00"),
              planRow("/in/b.mov", "/out/b.mov", "2023-08-14 20:00:00")});
    show(kInlineList);
    const auto dividers = window.itemsNamed("eventDivider");
    ASSERT_EQ(dividers.size(), 1);
    EXPECT_TRUE(window.shows("NEW EVENT"));
    EXPECT_GE(placeOf(*dividers.front()).top(), placeOf(*window.itemsNamed("planRow")[0]).bottom());
    EXPECT_LE(placeOf(*dividers.front()).bottom(), placeOf(*window.itemsNamed("planRow")[1]).top());
}

TEST_F(PlanListTest, AClickInspects) {
    addRows(3);
    auto& root = show(kInlineList);
    window.click(*window.itemsNamed("planRow")[1]);
    EXPECT_EQ(root.property("inspected").toInt(), 1);
}

TEST_F(PlanListTest, KeysMoveAndInspect) {
    addRows(100);
    auto& root = show(kInlineList);
    auto& list = window.itemNamed("list");
    window.press(Qt::Key_Tab);
    ASSERT_TRUE(list.hasActiveFocus());
    struct Case {
        Qt::Key key;
        int current;
    };
    for (const auto& [key, current] :
         {Case{Qt::Key_Home, 0}, Case{Qt::Key_Down, 1}, Case{Qt::Key_Down, 2}, Case{Qt::Key_Up, 1},
          Case{Qt::Key_PageDown, 7}, Case{Qt::Key_PageUp, 1}, Case{Qt::Key_End, 99}, Case{Qt::Key_Down, 99},
          Case{Qt::Key_Home, 0}, Case{Qt::Key_PageUp, 0}}) {
        window.press(key);
        EXPECT_EQ(list.property("currentIndex").toInt(), current);
    }
    window.press(Qt::Key_End);
    window.press(Qt::Key_Return);
    EXPECT_EQ(root.property("inspected").toInt(), 99);
    window.press(Qt::Key_Up);
    window.press(Qt::Key_Enter);
    EXPECT_EQ(root.property("inspected").toInt(), 98);
}

TEST_F(PlanListTest, RowsThatComeDisturbNeitherThePlaceNorTheSelection) {
    addRows(200);
    show(kInlineList);
    auto& list = window.itemNamed("list");
    list.setProperty("currentIndex", 50);
    list.setProperty("contentY", 2'000);
    window.settle();
    addRows(100);
    EXPECT_EQ(list.property("contentY").toDouble(), 2'000);
    EXPECT_EQ(list.property("currentIndex").toInt(), 50);
    EXPECT_EQ(list.property("count").toInt(), 300);
}

TEST_F(PlanListTest, OnlyRowsInSightExist) {
    addRows(5'000);
    show(kInlineList);
    EXPECT_LT(window.itemsNamed("planRow").size(), 30);
}

TEST_F(PlanListTest, PicturesTakeThePlaceOfTheirPlaceholder) {
    plan.add({planRow("/in/a.jpg", "/out/a.jpg"), planRow("/in/broken.jpg", "/out/b.jpg"),
              planRow("/in/c.mov", "/out/c.mov")});
    show(kInlineList);
    const auto shown = [&](const char* name, std::size_t row) { return window.itemsNamed(name).at(row)->isVisible(); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown("picture", 0); }));
    EXPECT_FALSE(shown("placeholder", 0));
    QTest::qWait(50);
    for (const std::size_t row : {1U, 2U}) {
        EXPECT_TRUE(shown("placeholder", row)) << row;
        EXPECT_FALSE(shown("picture", row)) << row;
    }
    const auto& placeholder = *window.itemsNamed("placeholder")[1];
    EXPECT_EQ(placeholder.width(), 36);
    EXPECT_EQ(placeholder.property("radius").toInt(), 3);
    EXPECT_EQ(colourOf(placeholder), hexColour("1A1A1A"));
}

TEST(PlanListPictures, WhatScrolledAwayIsNotDecoded) {
    std::mutex lock;
    std::vector<std::string> begun;
    std::atomic<bool> mayGoOn = false;
    testing::PublishedPlan plan;
    const PlanModel rows(plan.state, plan.events);
    std::vector<PlanRow> added;
    for (int i = 0; i < 200; ++i)
        added.push_back(planRow("/in/" + std::to_string(i) + ".jpg", "/out/" + std::to_string(i) + ".jpg"));
    plan.add(std::move(added));
    QmlWindow window(QSize(800, 400));
    window.engine().addImageProvider("thumbnails", new ThumbnailImages([&](const std::string& path, int size) {
                                         {
                                             const std::scoped_lock hold(lock);
                                             begun.push_back(path);
                                         }
                                         mayGoOn.wait(false);
                                         QImage image(size, size, QImage::Format_RGB32);
                                         image.fill(Qt::blue);
                                         return image;
                                     }));
    const auto count = [&] {
        const std::scoped_lock hold(lock);
        return begun.size();
    };
    window.show(kInlineList, {{"rows", QVariant::fromValue(&rows)}});
    EXPECT_TRUE(QTest::qWaitFor([&] { return count() == 3; }));
    window.itemNamed("list").setProperty("contentY", 180 * 44);
    window.settle();
    QTest::qWait(200);  // another thread hears of it
    mayGoOn = true;
    mayGoOn.notify_all();
    const auto allShown = [&] {
        const auto pictures = window.itemsNamed("picture");
        return std::ranges::count_if(pictures, &QQuickItem::isVisible) >= 9;
    };
    EXPECT_TRUE(QTest::qWaitFor(allShown));
    const std::scoped_lock hold(lock);
    EXPECT_LE(begun.size(), 3U + 12U) << "three of the first page, and the last page";
}

TEST_F(PlanListTest, AScreenReaderHearsTheRows) {
    plan.add({planRow("/in/a.mov", "/out/2023/a.mov")});
    plan.state.duplicateDestPaths = {"/out/2023/a.mov"};
    auto& root = show(kInlineList);
    auto* const row = window.accessible(QAccessible::ListItem, "a.mov");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->text(QAccessible::Description), "/out/2023/a.mov, X100V, 2023-08-14 14:30:21, DUP");
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(root.property("inspected").toInt(), 0);
}

}  // namespace
}  // namespace vellomar
