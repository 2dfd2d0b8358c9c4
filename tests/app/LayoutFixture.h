#pragma once

#include <QStringList>
#include <algorithm>
#include <array>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/RunningApp.h"
#include "settings/SettingsKeys.h"
#include "settings/SourceEntry.h"
#include "ui/QtPrinters.h"

namespace vellomar::testing {

struct WindowSize {
    int width = 0;
    int height = 0;
};

// Those at which the window has to hold.
inline constexpr std::array kWindowSizes = {WindowSize{900, 600}, WindowSize{1440, 900}, WindowSize{2560, 1440}};

// For the names of tests.
inline std::string widthOf(const ::testing::TestParamInfo<WindowSize>& size) {
    return std::to_string(size.param.width);
}

inline void PrintTo(const WindowSize& size, std::ostream* stream) {
    *stream << size.width << "x" << size.height;
}

// Whether an item is drawn wholly inside each item around it that cuts off what reaches out of it.
inline bool isClipped(const QQuickItem& item) {
    for (const QQuickItem* around = item.parentItem(); around != nullptr; around = around->parentItem())
        if (around->clip() && !placeOf(*around).adjusted(-0.5, -0.5, 0.5, 0.5).contains(placeOf(item))) return true;
    return false;
}

// Labels of what can be pressed, and the fixed texts, are never cut off; names and paths may be, in the middle.
inline bool mayBeShortened(const QQuickItem& text) {
    return text.property("elide").toInt() == Qt::ElideMiddle ||
           QStringList{"words", "actionText", "cameraCell"}.contains(text.objectName());
}

// The application in a window of one size, looked at in one state after the other. With VELLOMAR_SCREENSHOTS set to a
// folder, each is kept there as a picture to look at.
class LayoutTest : public ::testing::TestWithParam<WindowSize> {
protected:
    [[nodiscard]] WindowDriver& window() { return user.window(); }

    void look(const std::string& state) {
        SCOPED_TRACE(state);
        window().settle();
        const QRectF whole(0, 0, GetParam().width, GetParam().height);
        for (const QQuickItem* const text : window().shownTexts()) {
            SCOPED_TRACE(text->property("text").toString().toStdString());
            const auto place = placeOf(*text);
            EXPECT_GE(place.left(), whole.left());
            EXPECT_LE(place.right(), whole.right() + 0.5);
            EXPECT_FALSE(text->property("truncated").toBool() && !mayBeShortened(*text));
        }
        expectButtonsApart();
        window().saveScreenshot("window-" + std::to_string(GetParam().width) + "-" + state);
    }

    // The plan's own window, as it is.
    void lookAtPlanWindow(const std::string& state) {
        auto* const own = user.app().window()->findChild<QQuickWindow*>("planWindow");
        ASSERT_NE(own, nullptr);
        WindowDriver driver(*own);
        driver.settle();
        for (const QQuickItem* const text : driver.shownTexts())
            EXPECT_FALSE(text->property("truncated").toBool() && !mayBeShortened(*text))
                << text->property("text").toString().toStdString();
        driver.saveScreenshot("plan-" + std::to_string(GetParam().width) + "-" + state);
    }

    // Whether it can be clicked: an open sheet, or the tour, keeps from it what lies below.
    [[nodiscard]] bool isInReach(const QQuickItem& item) {
        auto sheets = window().itemsNamed("sheet");
        std::ranges::copy(window().itemsNamed("tour"), std::back_inserter(sheets));
        return std::ranges::none_of(sheets, &QQuickItem::isVisible) ||
               std::ranges::any_of(sheets, [&](const QQuickItem* sheet) { return sheet->isAncestorOf(&item); });
    }

    // No two buttons lie on each other.
    void expectButtonsApart() {
        std::vector<QQuickItem*> buttons;
        for (QQuickItem* const box : window().itemsNamed("box"))
            if (box->isVisible() && !isClipped(*box) && isInReach(*box)) buttons.push_back(box);
        for (std::size_t i = 0; i < buttons.size(); ++i)
            for (std::size_t k = i + 1; k < buttons.size(); ++k) {
                const auto common = placeOf(*buttons[i]).intersected(placeOf(*buttons[k]));
                EXPECT_TRUE(common.width() < 1 || common.height() < 1)
                    << buttons[i]->parentItem()->property("text").toString().toStdString() << " lies on "
                    << buttons[k]->parentItem()->property("text").toString().toStdString();
            }
    }

    void keepSources(const std::vector<std::string>& paths) {
        std::vector<SourceEntry> entries;
        for (const auto& path : paths) {
            entries.emplace_back();
            entries.back().path = path;
        }
        auto settings = user.settingsFile().open();
        settings->setBytes(keys::kSourceEntries, sourceEntriesText(entries));
        settings->setValue(keys::kDestPath, library.makeFolder("out"));
    }

    // To a place between its beginning and its end.
    void scrollTools(double place) {
        auto* const area = window().itemNamed("toolsColumn").findChild<QQuickItem*>("flickable");
        ASSERT_NE(area, nullptr);
        window().settle();
        area->setProperty("contentY", place * (area->property("contentHeight").toReal() - area->height()));
    }

    RunningApp user{QSize(GetParam().width, GetParam().height)};
    const TemporaryFolder& library = user.library();
};

}  // namespace vellomar::testing
