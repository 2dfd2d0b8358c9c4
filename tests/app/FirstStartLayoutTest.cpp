// The road of a first start: each of its states, and whether the tour points at what it speaks of.
#include <QLineF>
#include <algorithm>
#include <filesystem>

#include <gtest/gtest.h>

#include "app/LayoutFixture.h"
#include "ui/desktop/SpinUntil.h"
#include "ui/wizard/TourItems.h"

namespace vellomar {
namespace {

using testing::placeOf;
using testing::spinUntil;

// The place on an edge of the box that is nearest to a point.
QPointF onEdge(QPointF point, const QRectF& box, CalloutEdge edge) {
    const QPointF inside(std::clamp(point.x(), box.left(), box.right()),
                         std::clamp(point.y(), box.top(), box.bottom()));
    if (edge == CalloutEdge::leading) return {box.left(), inside.y()};
    if (edge == CalloutEdge::trailing) return {box.right(), inside.y()};
    return {inside.x(), box.top()};
}

// Where an arrow that stands on that edge hits the spot's near edge, or would if the spot reached so far.
QPointF aimed(QPointF foot, const QRectF& spot, CalloutEdge edge) {
    if (edge == CalloutEdge::leading) return {spot.right(), foot.y()};
    if (edge == CalloutEdge::trailing) return {spot.left(), foot.y()};
    return {foot.x(), spot.bottom()};
}

class FirstStartLayoutTest : public testing::LayoutTest {
protected:
    // Behind the entrance of a screen.
    void lookAtScreen(const std::string& state) {
        window().settle();
        ASSERT_TRUE(spinUntil([&] { return window().itemNamed("wizardScreen").opacity() == 1; }));
        look(state);
    }

    // The callout stands beside the spot, its arrow on the named edge and level with the spot.
    void expectToPoint(CalloutEdge edge) {
        const auto box = placeOf(window().itemNamed("tourBox"));
        const auto spot = placeOf(window().itemNamed("tourSpot"));
        EXPECT_TRUE(QRectF(0, 0, GetParam().width, GetParam().height).contains(box));
        EXPECT_FALSE(box.intersects(spot)) << "what is spoken of can be seen";
        const auto foot = window().itemNamed("tourArrow").mapRectToScene({0, 0, 14, 14}).center();
        EXPECT_EQ(onEdge(foot, box, edge), foot);
        const auto aim = aimed(foot, spot, edge);
        EXPECT_TRUE(spot.contains(aim)) << "it points past the spot";
        EXPECT_LE(QLineF(foot, aim).length(), 36) << "it touches what it points at, or nearly";
    }

    void goThroughTour(const std::string& name) {
        const auto items = tourItems();
        for (qsizetype stop = 0; stop < items.size(); ++stop) {
            window().drawFrames(2);
            SCOPED_TRACE(items[stop].title.toStdString());
            look(name + std::to_string(stop + 1));
            expectToPoint(items[stop].arrowEdge);
            window().press(Qt::Key_Right);
        }
    }
};

TEST_P(FirstStartLayoutTest, OfTheWholeRoad) {
    library.makeFolder("Pictures/Unsorted");
    library.makeFolder("Pictures/Sorted");
    user.startAsFound();
    lookAtScreen("wizard-1");
    window().press(Qt::Key_End);
    look("wizard-1-end");
    user.press("Next →");
    lookAtScreen("wizard-2-empty");
    user.chooser().answerNext({library / "Pictures/Unsorted", library.makeFolder("Pictures/Phone")});
    user.press("ADD");
    ASSERT_TRUE(spinUntil([&] { return window().shows("Sources (2)"); }));
    look("wizard-2");
    user.press("Next →");
    lookAtScreen("wizard-3-empty");
    user.chooser().answerNext({library / "Pictures/Sorted"});
    user.press("ADD");
    ASSERT_TRUE(spinUntil([&] { return user.canPress("CHANGE"); }));
    look("wizard-3");
    user.press("Next →");
    lookAtScreen("wizard-4");
    user.press("Next →");
    lookAtScreen("wizard-5");
    window().press(Qt::Key_End);
    look("wizard-5-end");
    user.press("START SORTING");
    goThroughTour("tour-");
    look("tour-over");
    ASSERT_TRUE(spinUntil([&] { return window().itemNamed("wizardReminder").property("presence") == 1.0; }));
    look("reminder");
}

TEST_P(FirstStartLayoutTest, OfLongNamesAndFoldersThatAreGone) {
    keepSources({library / "gone"});
    user.startAsFound();
    std::filesystem::remove(library / "out");
    user.press("Next →");
    user.chooser().answerNext({library.makeFolder(std::string(255, 'n')), library.makeFolder("not \xff utf8")});
    user.press("ADD");
    ASSERT_TRUE(spinUntil([&] { return window().shows("Sources (3)"); }));
    ASSERT_TRUE(spinUntil([&] { return window().itemNamed("wizardMark").isVisible(); }));
    lookAtScreen("wizard-2-odd");
    user.press("Next →");
    lookAtScreen("wizard-3-gone");
}

TEST_P(FirstStartLayoutTest, OfATourWithNoFoldersAndWithMany) {
    user.startAsFound();
    user.press("Skip Setup");
    goThroughTour("tour-empty-");

    std::vector<std::string> folders;
    for (int i = 0; i < 12; ++i)
        folders.push_back(library.makeFolder("folder " + std::to_string(i)));
    user.app().content().folders()->addSources(folders);
    ASSERT_TRUE(spinUntil([&] { return window().shows("SOURCES (12)"); }));
    user.app().content().firstRun()->tour()->open();
    goThroughTour("tour-many-");
}

TEST_P(FirstStartLayoutTest, OfTheTourInAWindowThatChanges) {
    user.startAsFound();
    user.press("Skip Setup");
    auto& tour = *user.app().content().firstRun()->tour();
    for (const auto& item : tourItems()) {
        SCOPED_TRACE(item.title.toStdString());
        window().drawFrames(2);
        const auto spot = placeOf(window().itemNamed("tourSpot"));
        for (const QSize size :
             {QSize(GetParam().width + 540, GetParam().height + 300), QSize(GetParam().width, GetParam().height)}) {
            user.app().window()->resize(size);
            window().drawFrames(4);
        }
        expectToPoint(item.arrowEdge);
        EXPECT_EQ(placeOf(window().itemNamed("tourSpot")), spot);
        tour.goForward();
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, FirstStartLayoutTest, ::testing::ValuesIn(testing::kWindowSizes), testing::widthOf);

}  // namespace
}  // namespace vellomar
