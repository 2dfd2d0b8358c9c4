#include <gmock/gmock.h>

#include "ui/QmlWindow.h"
#include "ui/QtPrinters.h"
#include "ui/statistics/LibraryStatsModel.h"
#include "ui/statistics/StatsForTests.h"
#include "ui/theme/HexColour.h"

namespace vellomar {
namespace {

using testing::colourOf;
using testing::fullStats;
using testing::placeOf;
using testing::QmlWindow;

class LibraryStatsSheetTest : public ::testing::Test {
protected:
    void open(LibraryStats stats) {
        engine.publish(std::move(stats));
        window.show(
            "Item { id: root; property LibraryStatsModel model; "
            "LibraryStatsSheet { model: root.model; visible: root.model.isOpen } }",
            {{"model", QVariant::fromValue(&model)}});
        model.open();
        window.settle();
    }

    [[nodiscard]] QStringList textsOf(const char* name) {
        QStringList texts;
        for (const QQuickItem* const item : window.itemsNamed(name))
            if (item->isVisible()) texts += item->property("text").toString();
        return texts;
    }

    testing::PublishedStats engine;
    LibraryStatsModel model{engine.state, engine.events};
    QmlWindow window{QSize(1440, 900)};
};

TEST_F(LibraryStatsSheetTest, HasItsHeaderTilesAndFooter) {
    open(fullStats());
    for (const char* const text : {"LIBRARY STATISTICS", "✕", "CLOSE", "TOTAL FILES", "1000", "TOTAL SIZE", "12.35 GB",
                                   "DUPLICATES", "0", "CAMERAS", "2"})
        EXPECT_TRUE(window.shows(text)) << text;
    EXPECT_EQ(window.itemNamed("sheetSymbol").property("name"), "chart.bar.fill");
    EXPECT_EQ(placeOf(window.itemNamed("sheet")).size(), QSizeF(680, 560));
    const auto tiles = window.itemsNamed("statTile");
    ASSERT_EQ(tiles.size(), 4);
    for (std::size_t i = 1; i < tiles.size(); ++i) {
        EXPECT_EQ(placeOf(*tiles[i]).top(), placeOf(*tiles[0]).top()) << "in a row";
        EXPECT_GT(placeOf(*tiles[i]).left(), placeOf(*tiles[i - 1]).right());
        EXPECT_NEAR(tiles[i]->width(), tiles[0]->width(), 1);
    }
}

TEST_F(LibraryStatsSheetTest, SectionsHaveTheirHeadings) {
    open(fullStats());
    EXPECT_EQ(textsOf("headingText"), QStringList({"BY YEAR", "BY CAMERA", "DATE SOURCE CONFIDENCE", "FILE TYPES"}));
    QStringList symbols;
    for (const QQuickItem* const symbol : window.itemsNamed("headingSymbol")) {
        symbols += symbol->property("name").toString();
        EXPECT_EQ(symbol->property("colour").value<QColor>(), hexColour("909088"));
    }
    EXPECT_EQ(symbols, QStringList({"calendar", "camera", "calendar.badge.clock", "doc"}));
    EXPECT_EQ(colourOf(window.itemNamed("headingText")), hexColour("909088"));
    EXPECT_NE(window.accessible(QAccessible::Heading, "BY CAMERA"), nullptr);
}

TEST_F(LibraryStatsSheetTest, ARowHasItsSizesAndColours) {
    open(fullStats());
    EXPECT_EQ(textsOf("statLabel"), QStringList({"2019", "2023", "X100V", "D850", "EXIF DateTimeOriginal", "Filename",
                                                 "FS ModificationDate", ".jpg", ".arw"}));
    EXPECT_EQ(textsOf("statCount").mid(0, 4), QStringList({"250", "750", "600", "100"}));
    EXPECT_EQ(textsOf("statPercentage").mid(0, 4), QStringList({"25%", "75%", "60%", "10%"}));
    struct Case {
        const char* cell;
        int width;
        const char* colour;
    };
    for (const auto& [cell, width, colour] :
         {Case{"statLabel", 160, "C0C0B8"}, Case{"statCount", 50, "909088"}, Case{"statPercentage", 30, "555550"}}) {
        EXPECT_EQ(window.itemNamed(cell).width(), width) << cell;
        EXPECT_EQ(colourOf(window.itemNamed(cell)), hexColour(colour)) << cell;
    }
    const auto& track = window.itemNamed("statTrack");
    EXPECT_EQ(track.height(), 14);
    EXPECT_EQ(colourOf(track), hexColour("1A1A1A"));
}

TEST_F(LibraryStatsSheetTest, BarsAreInProportionAndInTheirSectionsColour) {
    open(fullStats());
    const auto bars = window.itemsNamed("statBar");
    ASSERT_EQ(bars.size(), 9);
    const auto shareOf = [](const QQuickItem& bar) { return bar.width() / bar.parentItem()->width(); };
    EXPECT_GT(bars[0]->parentItem()->width(), 300);
    EXPECT_NEAR(shareOf(*bars[0]), 1.0 / 3, 1e-6);
    EXPECT_NEAR(shareOf(*bars[1]), 1, 1e-6);
    EXPECT_NEAR(shareOf(*bars[3]), 1.0 / 6, 1e-6);
    for (const auto& [bar, colour] :
         {std::pair(0, "F5C518"), std::pair(2, "5B9BD5"), std::pair(4, "3D8B5E"), std::pair(8, "909088")})
        EXPECT_EQ(colourOf(*bars[static_cast<std::size_t>(bar)]), hexColour(colour)) << bar;
}

TEST_F(LibraryStatsSheetTest, ASectionOfWhichNothingIsKnownHasADash) {
    auto stats = fullStats();
    stats.byCamera.clear();
    open(stats);
    EXPECT_TRUE(window.shows("BY CAMERA"));
    EXPECT_TRUE(textsOf("statLabel").contains("—"));
    EXPECT_EQ(textsOf("statCount").size(), 7) << "and no number";
}

TEST_F(LibraryStatsSheetTest, HundredsOfRowsScrollByKeysAndOnlyThoseInSightExist) {
    auto stats = fullStats();
    for (int i = 0; i < 300; ++i) {
        stats.byCamera["Camera " + std::to_string(i) + std::string(static_cast<std::size_t>(i), 'x')] = i;
        stats.byYear[std::to_string(1800 + i)] = i;
    }
    open(stats);
    EXPECT_LT(window.itemsNamed("statLabel").size(), 60);
    auto& list = window.itemNamed("statList");
    EXPECT_EQ(window.focusedName(), "CLOSE");
    window.press(Qt::Key_PageDown);
    EXPECT_GT(list.property("contentY").toDouble(), 100);
    window.press(Qt::Key_End);
    window.press(Qt::Key_End);
    EXPECT_TRUE(list.property("atYEnd").toBool());
    EXPECT_TRUE(window.shows(".arw"));
    window.press(Qt::Key_Home);
    window.press(Qt::Key_Home);
    EXPECT_TRUE(list.property("atYBeginning").toBool());
    EXPECT_TRUE(window.shows("1800"));
}

TEST_F(LibraryStatsSheetTest, ReturnEscapeAndTheButtonsClose) {
    open(fullStats());
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
        window.press(key);
        EXPECT_FALSE(model.isOpen());
        model.open();
        window.settle();
    }
    for (const char* const name : {"CLOSE", "✕"}) {
        auto* const button = window.accessible(QAccessible::Button, name);
        ASSERT_NE(button, nullptr) << name;
        window.click(*qobject_cast<QQuickItem*>(button->object()));
        EXPECT_FALSE(model.isOpen()) << name;
        model.open();
        window.settle();
    }
}

TEST_F(LibraryStatsSheetTest, AScreenReaderHearsTheRows) {
    open(fullStats());
    auto* const row = window.accessible(QAccessible::ListItem, "X100V");
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->text(QAccessible::Description), "600, 60%");
}

TEST_F(LibraryStatsSheetTest, ANewRunIsFollowed) {
    open(fullStats());
    engine.publish({});
    window.settle();
    EXPECT_EQ(textsOf("statLabel"), QStringList({"—", "—", "—", "—"}));
    EXPECT_TRUE(window.shows("Zero KB"));
}

}  // namespace
}  // namespace vellomar
