// The window in every state and at the sizes that it has to hold at. With VELLOMAR_SCREENSHOTS set to a folder, each is
// kept there as a picture to look at.
#include <algorithm>

#include <gmock/gmock.h>

#include "app/RunningApp.h"
#include "settings/SettingsKeys.h"
#include "settings/SourceEntry.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::placeOf;
using testing::RunningApp;
using testing::spinUntil;

struct Size {
    int width = 0;
    int height = 0;
};

void PrintTo(const Size& size, std::ostream* stream) {
    *stream << size.width << "x" << size.height;
}

// Whether an item is drawn wholly inside each item around it that cuts off what reaches out of it.
bool isClipped(const QQuickItem& item) {
    for (const QQuickItem* around = item.parentItem(); around != nullptr; around = around->parentItem())
        if (around->clip() && !placeOf(*around).adjusted(-0.5, -0.5, 0.5, 0.5).contains(placeOf(item))) return true;
    return false;
}

// Labels of what can be pressed, and the fixed texts, are never cut off; names and paths may be, in the middle.
bool mayBeShortened(const QQuickItem& text) {
    return text.property("elide").toInt() == Qt::ElideMiddle || text.objectName() == QLatin1String("words");
}

class LayoutTest : public ::testing::TestWithParam<Size> {
protected:
    [[nodiscard]] testing::WindowDriver& window() { return user.window(); }

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

    // Whether it can be clicked: an open sheet keeps from it what lies under the sheet.
    [[nodiscard]] bool isInReach(const QQuickItem& item) {
        const auto sheets = window().itemsNamed("sheet");
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

    RunningApp user{QSize(GetParam().width, GetParam().height)};
    const testing::TemporaryFolder& library = user.library();
};

TEST_P(LayoutTest, AtTheFirstStart) {
    user.start();
    look("empty");
}

TEST_P(LayoutTest, WithFoldersAndAnEstimate) {
    library.write("in/IMG_20230814_143021.jpg", std::string(3'000'000, 'x'));
    keepSources({library / "in"});
    user.start();
    user.press("ESTIMATE");
    ASSERT_TRUE(spinUntil([&] { return user.app().content().run()->estimate().has_value(); }));
    look("ready");
    user.press("Dry Run — Preview");
    look("dry-run-sheet");
    window().press(Qt::Key_Escape);
    user.press("Sort Photos");
    ASSERT_TRUE(spinUntil([&] { return user.app().content().run()->estimate().has_value(); }));
    look("run-sheet");
}

TEST_P(LayoutTest, WithFiftySourcesAndLongPaths) {
    std::vector<std::string> paths;
    for (int i = 0; i < 50; ++i)
        paths.push_back(library.makeFolder(std::string(120, 'p') + "/photographs of the year " + std::to_string(i)));
    keepSources(paths);
    user.start();
    look("sources");
    window().itemNamed("flickable").setProperty("contentY", 400);
    look("sources-scrolled");
}

TEST_P(LayoutTest, DuringARun) {
    for (int i = 0; i < 60; ++i)
        library.write("in/trip " + std::to_string(i) + "/IMG_20230814_143021.jpg");
    user.writeLargeFiles("in/zoo");
    keepSources({library / "in", library / "vanished"});
    user.start();
    user.press("Dry Run — Preview");
    user.press("RUN DRY RUN");
    ASSERT_TRUE(spinUntil([&] { return user.canPress("CANCEL"); }));
    look("running");
    EXPECT_EQ(window().itemNamed("bottomBar").property("color").value<QColor>(), QColor("#110a0a"));
    EXPECT_FALSE(user.app().window()->close());
    look("quit-sheet");
    user.press("STAY");
    user.press("CANCEL");
    user.waitForEnd();
    look("cancelled");
}

TEST_P(LayoutTest, AfterARun) {
    for (int i = 0; i < 30; ++i)
        library.write("in/trip " + std::to_string(i) + "/IMG_20230814_143021.jpg");
    library.write("in/broken.jpg", "");
    keepSources({library / "in"});
    user.start();
    user.press("Sort Photos");
    user.press("RUN NOW");
    user.waitForEnd();
    look("done");
    user.app().content().log()->setFilter(static_cast<int>(LogFilter::errors));
    look("errors");
    user.press("UNDO");
    ASSERT_TRUE(spinUntil([&] { return user.isOpen("UNDO A RUN"); }));
    window().press(Qt::Key_Down);
    look("undo-sheet");
}

TEST_P(LayoutTest, WithABannerAndNotices) {
    library.write("in/a.jpg");
    keepSources({library / "in", library.makeFolder("out")});
    user.start();
    user.app().content().folders()->addSources({library / "in/a.jpg"});
    ASSERT_TRUE(spinUntil([&] { return user.app().content().notices()->count() == 1; }));
    user.app().content().toggleFloppyMode();
    look("banner");
}

TEST_P(LayoutTest, ItsPartsHaveTheirSizesAndColours) {
    library.write("in/a.jpg");
    keepSources({library / "in", library.makeFolder("out")});
    user.start();
    user.press("Dry Run — Preview");
    user.press("RUN DRY RUN");
    user.waitForEnd();
    const auto sizeOf = [&](const char* name) { return placeOf(window().itemNamed(name)).size(); };
    const auto colourOf = [&](const char* name) { return window().itemNamed(name).property("color").value<QColor>(); };
    const double width = GetParam().width;
    EXPECT_EQ(sizeOf("headerBar"), QSizeF(width, 72));
    EXPECT_NEAR(sizeOf("foldersColumn").width(), std::clamp(width * 0.22, 220.0, 320.0), 1);
    EXPECT_NEAR(sizeOf("toolsColumn").width(), std::clamp(width * 0.27, 280.0, 420.0), 1);
    EXPECT_EQ(sizeOf("logBody").height(), 180);
    EXPECT_EQ(sizeOf("lastRunPanel").height(), 180);
    EXPECT_EQ(sizeOf("progressTrack").height(), 8);
    EXPECT_EQ(sizeOf("fade").height(), 28);
    EXPECT_EQ(window().itemNamed("banner").property("radius").toInt(), 3);
    for (const auto& [name, colour] :
         {std::pair("headerBar", "#0d0d0d"), std::pair("foldersColumn", "#111111"), std::pair("bottomBar", "#111111")})
        EXPECT_EQ(colourOf(name), QColor(colour)) << name;
    EXPECT_EQ(user.app().window()->minimumSize(), QSize(900, 600));
}

TEST_P(LayoutTest, TheRunButtonsAreHighEnoughToHit) {
    user.start();
    for (const char* const name : {"Dry Run — Preview", "Sort Photos"}) {
        auto* const button = window().accessible(QAccessible::Button, name);
        ASSERT_NE(button, nullptr);
        EXPECT_EQ(button->rect().height(), 38) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, LayoutTest, ::testing::Values(Size{900, 600}, Size{1440, 900}, Size{2560, 1440}),
                         [](const auto& size) { return std::to_string(size.param.width); });

}  // namespace
}  // namespace vellomar
