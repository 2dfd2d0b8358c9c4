#include <QSignalSpy>

#include <gtest/gtest.h>

#include "ui/QmlWindow.h"
#include "ui/QtPrinters.h"
#include "ui/confirmation/ConfirmationModel.h"
#include "ui/theme/HexColour.h"

namespace vellomar {
namespace {

using testing::QmlWindow;

class ConfirmationSheets : public ::testing::Test {
protected:
    void open(ConfirmationModel::Run run, bool moves = false) {
        model = std::make_unique<ConfirmationModel>(run);
        RunSettings settings{{"/photos/Card", "/photos/Other"}, "/library/Sorted", {}, {}, 2};
        settings.options.moveOriginalsWhenReliable = moves;
        model->setSettings(settings);
        window = std::make_unique<QmlWindow>();
        const std::string type = run == ConfirmationModel::Run::dry ? "DryRunConfirmSheet" : "RunSummaryView";
        window->show("Item { id: root; property ConfirmationModel model; " + type +
                         " { objectName: 'theSheet'; model: root.model; visible: true } }",
                     {{"model", QVariant::fromValue(model.get())}});
    }

    void click(const char* name) {
        auto* const button = window->accessible(QAccessible::Button, name);
        ASSERT_NE(button, nullptr) << name;
        window->click(*qobject_cast<QQuickItem*>(button->object()));
    }

    [[nodiscard]] QColor colourOf(const char* shownText) {
        for (const QQuickItem* const text : window->shownTexts())
            if (text->property("text").toString() == QString(shownText)) return text->property("color").value<QColor>();
        return {};
    }

    std::unique_ptr<ConfirmationModel> model;
    std::unique_ptr<QmlWindow> window;
};

TEST_F(ConfirmationSheets, ADryRunTellsWhatItDoes) {
    open(ConfirmationModel::Run::dry);
    for (const char* const text :
         {"DRY RUN", "Simulates the entire sort without touching any files.", "WHAT IT DOES", "YOUR CURRENT SETTINGS",
          "Source", "2 folders", "Destination", "Sorted", "Rename rules", "2 active rule(s)",
          "No undo needed — nothing was done", "Ready to preview your library sort.",
          "Check the File Plan Preview after it finishes.", "CANCEL", "RUN DRY RUN", "✕"})
        EXPECT_TRUE(window->shows(text)) << text;
    EXPECT_EQ(window->itemsNamed("promise").size(), 5U);
    EXPECT_FALSE(window->shows("Calculating…"));
    EXPECT_EQ(colourOf("Source"), hexColour("909088"));
    EXPECT_EQ(colourOf("2 folders"), hexColour("E8E8E0"));
    EXPECT_EQ(window->itemNamed("settingKey").width(), 140);
}

TEST_F(ConfirmationSheets, ADryRunIsStartedOrDismissed) {
    open(ConfirmationModel::Run::dry);
    const QSignalSpy runs(&window->object("theSheet"), SIGNAL(runRequested()));
    const QSignalSpy dismissals(&window->object("theSheet"), SIGNAL(dismissed()));
    EXPECT_EQ(window->focusedName(), "CANCEL");
    window->press(Qt::Key_Return);
    EXPECT_EQ(runs.count(), 1);
    click("RUN DRY RUN");
    EXPECT_EQ(runs.count(), 2);
    click("CANCEL");
    click("✕");
    window->press(Qt::Key_Escape);
    EXPECT_EQ(dismissals.count(), 3);
    EXPECT_EQ(runs.count(), 2);
}

TEST_F(ConfirmationSheets, ARealRunTellsWhatWillHappen) {
    open(ConfirmationModel::Run::real, true);
    for (const char* const text :
         {"NORMAL RUN", "Files will be sorted and moved to your destination folder.", "WHAT WILL HAPPEN",
          "MOVE MODE IS ACTIVE",
          "Source files will be deleted after copying. Run a Dry Run first to review the file plan before proceeding.",
          "YOUR CURRENT SETTINGS", "Calculating…", "Not sure? Switch to Dry Run first.",
          "Dry Run previews every action without touching files.", "CANCEL", "SWITCH TO DRY RUN", "RUN NOW"})
        EXPECT_TRUE(window->shows(text)) << text;
    EXPECT_EQ(colourOf("MOVE MODE IS ACTIVE"), hexColour("FF8C00"));
    EXPECT_EQ(colourOf("Source files will be deleted after copying. Run a Dry Run first to review the file plan before "
                       "proceeding."),
              hexColour("C8A060"));
    EXPECT_NE(window->accessible(QAccessible::AlertMessage, "MOVE MODE IS ACTIVE"), nullptr);
}

TEST_F(ConfirmationSheets, OnlyAMoveIsWarnedOf) {
    open(ConfirmationModel::Run::real, false);
    EXPECT_FALSE(window->itemNamed("moveWarning").isVisible());
    EXPECT_TRUE(window->shows("Files will be sorted and copied to your destination folder."));
}

TEST_F(ConfirmationSheets, ARealRunIsConfirmedCancelledOrSwitched) {
    open(ConfirmationModel::Run::real);
    auto& sheet = window->object("theSheet");
    const QSignalSpy confirmations(&sheet, SIGNAL(confirmed()));
    const QSignalSpy cancellations(&sheet, SIGNAL(cancelled()));
    const QSignalSpy switches(&sheet, SIGNAL(switchedToDryRun()));
    EXPECT_EQ(window->focusedName(), "CANCEL");
    window->press(Qt::Key_Return);
    EXPECT_EQ(confirmations.count(), 1);
    window->press(Qt::Key_Tab);
    window->press(Qt::Key_Return);
    EXPECT_EQ(switches.count(), 1);
    click("RUN NOW");
    EXPECT_EQ(confirmations.count(), 2);
    click("SWITCH TO DRY RUN");
    EXPECT_EQ(switches.count(), 2);
    click("CANCEL");
    click("✕");
    window->press(Qt::Key_Escape);
    EXPECT_EQ(cancellations.count(), 3);
}

TEST_F(ConfirmationSheets, AnEstimateFillsInAndMovesNothingElse) {
    open(ConfirmationModel::Run::real, true);
    auto& flickable = window->itemNamed("flickable");
    flickable.setProperty("contentY", 120);
    const auto* const focused = window->window().activeFocusItem();
    model->setEstimate({10, 5'000'000, 65});
    window->settle();
    EXPECT_TRUE(window->shows("10 files · 5 MB"));
    EXPECT_TRUE(window->shows("Estimated time"));
    EXPECT_FALSE(window->shows("Calculating…"));
    EXPECT_EQ(flickable.property("contentY").toDouble(), 120);
    EXPECT_EQ(window->window().activeFocusItem(), focused);
}

}  // namespace
}  // namespace vellomar
