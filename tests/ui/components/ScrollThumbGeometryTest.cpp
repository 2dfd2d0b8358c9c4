#include <QSignalSpy>

#include <gtest/gtest.h>

#include "ui/components/ScrollThumbGeometry.h"

namespace vellomar {
namespace {

struct Scrolled : ScrollThumbGeometry {
    Scrolled(double offset, double contentHeight, double containerHeight) {
        setProperty("offset", offset);
        setProperty("contentHeight", contentHeight);
        setProperty("containerHeight", containerHeight);
    }
};

TEST(ScrollThumbGeometry, TellsWhereTheThumbLies) {
    const Scrolled half(150, 400, 100);
    EXPECT_TRUE(half.isVisible());
    EXPECT_EQ(half.height(), 25);
    EXPECT_EQ(half.top(), 37.5);
}

TEST(ScrollThumbGeometry, TheThumbOfAVeryLongContentKeepsItsLeastHeight) {
    EXPECT_EQ(Scrolled(0, 1'000'000, 100).height(), 24);
}

TEST(ScrollThumbGeometry, WhatFitsHasNoThumbAndDoesNotScroll) {
    const Scrolled fits(0, 100, 100);
    EXPECT_FALSE(fits.isVisible());
    EXPECT_EQ(fits.offsetOfThumbAt(10), 0);
    EXPECT_EQ(fits.offsetWithin(10), 0);
    EXPECT_EQ(fits.offsetToShow(50, 10), 0);
}

TEST(ScrollThumbGeometry, TheOffsetOfAThumbIsTheOneThatPutsItThere) {
    const Scrolled start(0, 400, 100);
    for (const double offset : {0.0, 10.0, 150.0, 300.0})
        EXPECT_DOUBLE_EQ(start.offsetOfThumbAt(Scrolled(offset, 400, 100).top()), offset);
    EXPECT_EQ(start.offsetOfThumbAt(-5), 0);
    EXPECT_EQ(start.offsetOfThumbAt(99), 300);
}

TEST(ScrollThumbGeometry, ShowsWhatIsAskedForWithTheLeastScrolling) {
    struct Case {
        const char* what;
        double top, height, offset;
    };
    constexpr Case kCases[] = {
        {"is shown already", 120, 30, 100}, {"lies above", 40, 30, 40},
        {"lies below", 250, 30, 180},       {"the first", -8, 30, 0},
        {"beyond the end", 390, 30, 300},   {"higher than the container", 150, 200, 150},
    };
    for (const auto& [what, top, height, offset] : kCases)
        EXPECT_EQ(Scrolled(100, 400, 100).offsetToShow(top, height), offset) << what;
}

TEST(ScrollThumbGeometry, KeysScrollWithinTheContent) {
    struct Case {
        Qt::Key key;
        double offset;
    };
    constexpr Case kCases[] = {{Qt::Key_Up, 110}, {Qt::Key_Down, 190}, {Qt::Key_PageUp, 60}, {Qt::Key_PageDown, 240},
                               {Qt::Key_Home, 0}, {Qt::Key_End, 300},  {Qt::Key_Left, -1},   {Qt::Key_A, -1}};
    for (const auto& [key, offset] : kCases)
        EXPECT_EQ(Scrolled(150, 400, 100).offsetAfterKey(key), offset) << key;
    EXPECT_EQ(Scrolled(290, 400, 100).offsetAfterKey(Qt::Key_Down), 300);
    EXPECT_EQ(Scrolled(0, 100, 100).offsetAfterKey(Qt::Key_Down), -1) << "it has nowhere to scroll";
}

TEST(ScrollThumbGeometry, TellsOfAChange) {
    Scrolled scrolled(0, 400, 100);
    const QSignalSpy changes(&scrolled, &ScrollThumbGeometry::changed);
    scrolled.setProperty("offset", 10);
    EXPECT_EQ(changes.count(), 1);
}

}  // namespace
}  // namespace vellomar
