#include <gtest/gtest.h>

#include "settings/SettingsFile.h"
#include "ui/LiveEngine.h"
#include "ui/QmlWindow.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/BackgroundWork.h"
#include "ui/desktop/RecordingDesktop.h"
#include "ui/inspector/FactsForTests.h"
#include "ui/main/RunFlow.h"
#include "ui/plan/PlanForTests.h"
#include "ui/plan/PlanWindow.h"
#include "ui/theme/HexColour.h"

namespace vellomar {
namespace {

using testing::colourOf;
using testing::planRow;
using testing::QmlWindow;

class FilePlanPanelTest : public ::testing::Test {
protected:
    void show(const char* qml) {
        window.show(qml, {{"plan", QVariant::fromValue(&plan)},
                          {"planWindow", QVariant::fromValue(&planWindow)},
                          {"run", QVariant::fromValue(&run)}});
        window.settle();
    }

    void showPanel() {
        show(R"(Item {
            id: root
            property FilePlan plan; property PlanWindow planWindow; property RunFlow run
            FilePlanPanel { anchors.fill: parent; plan: root.plan; planWindow: root.planWindow; run: root.run }
        })");
    }

    void showBars() {
        show(R"(Item {
            id: root
            property FilePlan plan; property PlanWindow planWindow; property RunFlow run
            FilePlanToolbar { width: parent.width; plan: root.planWindow.plan }
            FilePlanFooter { y: 100; width: parent.width; plan: root.planWindow.plan }
        })");
    }

    void cap(int scanned) {
        published.state.previewRowsCapped = true;
        published.state.totalFilesScanned = scanned;
        published.events.fieldChanged(PublishedField::previewRowsCapped);
        window.settle();
    }

    testing::PublishedPlan published;
    testing::GivenFacts facts;
    testing::RecordingReveal reveal;
    testing::RecordingLinks links;
    BackgroundWork background;
    const Inspector::Surroundings surroundings{facts, reveal, links, background};
    FilePlan plan{FilePlan::Shows::allRows, published.state, published.events, surroundings};
    PlanWindow planWindow{published.state, published.events, surroundings};
    testing::SettingsFile file;
    std::unique_ptr<SettingsStore> settings = file.open();
    SourceList sources{*settings};
    testing::LiveEngine engine;
    RunFlow run{*engine, engine.events(), *settings, sources};
    QmlWindow window{QSize(800, 500)};
};

TEST_F(FilePlanPanelTest, CountsItsRows) {
    showPanel();
    EXPECT_TRUE(window.shows("0 files"));
    published.add({planRow("/in/a.mov", "/out/a.mov"), planRow("/in/b.mov", "/out/b.mov")});
    window.settle();
    EXPECT_TRUE(window.shows("2 files"));
    for (const char* const title : {"SOURCE", "DESTINATION", "CAMERA", "ACTION", "DATE RESOLVED"})
        EXPECT_TRUE(window.shows(title)) << title;
}

TEST_F(FilePlanPanelTest, SaysWhatItLeavesOut) {
    published.add({planRow("/in/a.mov", "/out/a.mov")});
    showPanel();
    cap(7'312);
    EXPECT_TRUE(window.shows("Showing 5,000 of 7312 — full plan in CSV")) << "of all files, not of the rows";
    EXPECT_FALSE(window.shows("1 files"));
    EXPECT_EQ(colourOf(window.itemNamed("planCapped")), hexColour("F5C518"));
}

TEST_F(FilePlanPanelTest, PopsOut) {
    published.add({planRow("/in/a.mov", "/out/a.mov")});
    showPanel();
    auto* const button = window.accessible(QAccessible::Button, "POP OUT");
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->text(QAccessible::Description), "Open file plan in separate window");
    button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(planWindow.isOpen());
}

TEST_F(FilePlanPanelTest, TheWindowsBarsTellWhatIsShown) {
    published.add({planRow("/in/a.mov", "/out/a.mov"), planRow("/in/b.mov", "/out/b.mov", "2019-01-01 00:00:00")});
    showBars();
    EXPECT_TRUE(window.shows("· 2 of 2"));
    EXPECT_TRUE(window.shows("2 files · click any row to inspect"));
    EXPECT_EQ(colourOf(window.itemNamed("footerText")), hexColour("707068"));
    EXPECT_FALSE(window.itemNamed("duplicatesChip").isVisible());
    planWindow.plan()->filters()->years()->toggle(0);
    window.settle();
    EXPECT_TRUE(window.shows("· 1 of 2"));
    EXPECT_TRUE(window.shows("Showing 1 of 2 files"));
    EXPECT_EQ(colourOf(window.itemNamed("footerText")), hexColour("F5C518"));
    cap(9'000);
    EXPECT_TRUE(window.shows("Preview limited to 5,000 of 9000 files — full plan saved to CSV"));
}

TEST_F(FilePlanPanelTest, TheFilterButtonLooksAsItIs) {
    published.add({planRow("/in/a.mov", "/out/a.mov")});
    showBars();
    const auto& button = window.itemNamed("filterButton");
    EXPECT_EQ(button.property("text"), "FILTER");
    EXPECT_EQ(button.property("symbol"), "line.3.horizontal.decrease.circle");
    EXPECT_EQ(button.property("edge").value<QColor>(), hexColour("3A3A38"));
    EXPECT_EQ(window.accessible(QAccessible::Button, "Clear all filters"), nullptr);
    planWindow.plan()->filters()->cameras()->toggle(0);
    window.settle();
    EXPECT_EQ(button.property("text"), "FILTER (1)");
    EXPECT_EQ(button.property("symbol"), "line.3.horizontal.decrease.circle.fill");
    EXPECT_EQ(button.property("edge").value<QColor>(), hexColour("F5C518"));
    EXPECT_EQ(button.property("fill").value<QColor>(), hexColour("1C1A00"));
    ASSERT_NE(window.accessible(QAccessible::Button, "Clear all filters"), nullptr);
}

TEST_F(FilePlanPanelTest, DuplicatesAreCounted) {
    published.add({planRow("/in/a.mov", "/out/a.mov")});
    published.state.duplicateDestPaths = {"/out/a.mov", "/out/b.mov"};
    showBars();
    EXPECT_TRUE(window.shows("2 DUP"));
}

}  // namespace
}  // namespace vellomar
