#include <QSignalSpy>

#include <gtest/gtest.h>

#include "ui/QmlWindow.h"
#include "ui/QtPrinters.h"
#include "ui/theme/HexColour.h"

namespace vellomar {
namespace {

using testing::placeOf;
using testing::QmlWindow;

// A sheet over a button, with `extra` properties and content.
std::string sheet(const std::string& extra = "") {
    return R"(Item {
        id: root
        property bool isOpen: false
        SecondaryButton { objectName: "behind"; text: "BEHIND" }
        Sheet {
            objectName: "theSheet"
            visible: root.isOpen
            symbol: "eye"
            title: "A TITLE"
            subtitle: "What it is about."
            initialFocus: cancel
            Item { objectName: "content"; implicitHeight: 100; Layout.fillWidth: true }
            headerActions: ToolRowButton { text: "ACTION" }
            footer: [
                FooterNote { first: "A note" },
                SecondaryButton { id: cancel; objectName: "cancel"; text: "CANCEL" },
                PrimaryButton { objectName: "run"; text: "RUN" }
            ]
            )" +
           extra + R"(
        }
    })";
}

class SheetTest : public ::testing::Test {
protected:
    void open(const std::string& extra = "", QSize size = {900, 600}) {
        window_ = std::make_unique<QmlWindow>(size);
        root_ = &window_->show(sheet(extra));
        window_->itemNamed("behind").forceActiveFocus();
        setOpen(true);
        cancelled_ = std::make_unique<QSignalSpy>(&window_->object("theSheet"), SIGNAL(cancelled()));
        confirmed_ = std::make_unique<QSignalSpy>(&window_->object("theSheet"), SIGNAL(confirmed()));
    }

    void setOpen(bool isOpen) {
        root_->setProperty("isOpen", isOpen);
        window_->settle();
    }

    [[nodiscard]] QRectF place() { return placeOf(window_->itemNamed("sheet")); }

    std::unique_ptr<QmlWindow> window_;
    std::unique_ptr<QSignalSpy> cancelled_, confirmed_;
    QQuickItem* root_ = nullptr;
};

TEST_F(SheetTest, StandsInTheMiddleInItsLeastSize) {
    open("minimumWidth: 500; minimumHeight: 400");
    EXPECT_EQ(place(), QRectF(200, 100, 500, 400));
}

TEST_F(SheetTest, IsAsHighAsItsContent) {
    open();
    const auto& body = window_->itemNamed("content");
    EXPECT_EQ(body.height(), 100);
    EXPECT_EQ(placeOf(window_->itemNamed("sheetHeader")).bottom() + 24, placeOf(body).top());
    EXPECT_EQ(placeOf(window_->itemNamed("sheetFooter")).top() - 24, placeOf(body).bottom());
    EXPECT_FALSE(window_->itemNamed("scrollTrack").isVisible());
}

TEST_F(SheetTest, LeavesAMarginInTheWindowAndScrollsThen) {
    open("minimumWidth: 2000; Item { implicitHeight: 2000; implicitWidth: 5000 }");
    EXPECT_EQ(place(), QRectF(32, 32, 836, 536));
    EXPECT_TRUE(window_->itemNamed("scrollTrack").isVisible());
    EXPECT_EQ(window_->itemNamed("flickable").property("contentWidth").toDouble(), 836);
    window_->press(Qt::Key_End);
    EXPECT_GT(window_->itemNamed("flickable").property("contentY").toDouble(), 1000);
}

TEST_F(SheetTest, ABodyThatScrollsByItselfGetsTheHeightThatIsThere) {
    open("scrolls: false; minimumHeight: 400; bodyPadding: 0; Item { objectName: 'list'; Layout.fillHeight: true }");
    const auto list = placeOf(window_->itemNamed("list"));
    EXPECT_EQ(list.bottom(), placeOf(window_->itemNamed("sheetFooter")).top());
    EXPECT_GT(list.height(), 100);
    EXPECT_FALSE(window_->itemNamed("scrollTrack").isVisible());
}

TEST_F(SheetTest, HasItsColoursAndTexts) {
    open();
    const auto colour = [&](const char* name) { return window_->itemNamed(name).property("color").value<QColor>(); };
    EXPECT_EQ(colour("sheetBackground"), hexColour("0A0A0A"));
    EXPECT_EQ(colour("sheetHeader"), hexColour("111111"));
    EXPECT_EQ(colour("sheetFooter"), hexColour("111111"));
    EXPECT_EQ(colour("sheetTitle"), hexColour("F5C518"));
    EXPECT_EQ(window_->itemNamed("sheetTitle").property("font").value<QFont>().pixelSize(), 18);
    for (const QQuickItem* const line : window_->itemsNamed("line")) {
        EXPECT_EQ(line->height(), 1);
        EXPECT_EQ(line->property("color").value<QColor>(), hexColour("1E1E1E"));
    }
    for (const char* const text : {"A TITLE", "What it is about.", "A note", "✕", "ACTION"})
        EXPECT_TRUE(window_->shows(text)) << text;
}

TEST_F(SheetTest, EscapeAndTheCrossAskForItsEnd) {
    open();
    window_->press(Qt::Key_Escape);
    EXPECT_EQ(cancelled_->count(), 1);
    window_->click(window_->itemNamed("sheetClose"));
    EXPECT_EQ(cancelled_->count(), 2);
    EXPECT_TRUE(window_->itemNamed("sheet").isVisible());
}

TEST_F(SheetTest, AClickBesideItDoesNothing) {
    open();
    const QSignalSpy clicks(&window_->itemNamed("behind"), SIGNAL(clicked()));
    window_->click(window_->itemNamed("behind"));
    window_->clickAt({5, 500});
    EXPECT_EQ(cancelled_->count() + confirmed_->count() + clicks.count(), 0);
    EXPECT_TRUE(window_->itemNamed("sheet").isVisible());
}

TEST_F(SheetTest, ReturnConfirmsAsLongAsTheFocusIsWhereItBegan) {
    open();
    EXPECT_EQ(window_->focusedName(), "CANCEL");
    const QSignalSpy clicks(&window_->itemNamed("cancel"), SIGNAL(clicked()));
    window_->press(Qt::Key_Return);
    window_->press(Qt::Key_Enter);
    EXPECT_EQ(confirmed_->count(), 2);
    EXPECT_EQ(clicks.count(), 0);
    window_->press(Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(SheetTest, ReturnIsTheButtonsOnceTheFocusIsMovedToOne) {
    open();
    window_->press(Qt::Key_Tab);
    EXPECT_EQ(window_->focusedName(), "RUN");
    const QSignalSpy runs(&window_->itemNamed("run"), SIGNAL(clicked()));
    window_->press(Qt::Key_Return);
    EXPECT_EQ(runs.count(), 1);
    window_->press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(window_->focusedName(), "CANCEL");
    const QSignalSpy cancels(&window_->itemNamed("cancel"), SIGNAL(clicked()));
    window_->press(Qt::Key_Return);
    EXPECT_EQ(cancels.count(), 1);
    EXPECT_EQ(confirmed_->count(), 0);
}

TEST_F(SheetTest, ReturnDoesNothingWhereNothingCanBeConfirmed) {
    open("canConfirm: false; Item { objectName: 'other'; activeFocusOnTab: true }");
    window_->itemNamed("other").forceActiveFocus();
    window_->press(Qt::Key_Return);
    EXPECT_EQ(confirmed_->count(), 0);
    window_->object("theSheet").setProperty("canConfirm", true);
    window_->press(Qt::Key_Return);
    EXPECT_EQ(confirmed_->count(), 1);
}

TEST_F(SheetTest, TabGoesRoundInside) {
    open();
    std::vector<std::string> names;
    for (int i = 0; i < 5; ++i) {
        window_->press(Qt::Key_Tab);
        names.push_back(window_->focusedName().toStdString());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"RUN", "ACTION", "✕", "CANCEL", "RUN"}));
}

TEST_F(SheetTest, TheFocusGoesBackToWhereItCameFrom) {
    open();
    EXPECT_EQ(window_->focusedName(), "CANCEL");
    setOpen(false);
    EXPECT_EQ(window_->focusedName(), "BEHIND");
    setOpen(true);
    EXPECT_EQ(window_->focusedName(), "CANCEL");
}

TEST_F(SheetTest, IsADialogWithItsTitleAsName) {
    open();
    auto* const dialog = window_->accessible(QAccessible::Dialog, "A TITLE");
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->text(QAccessible::Description), "What it is about.");
    EXPECT_NE(window_->accessible(QAccessible::Button, "CANCEL"), nullptr);
    setOpen(false);
    EXPECT_EQ(window_->accessible(QAccessible::Dialog, "A TITLE"), nullptr);
}

}  // namespace
}  // namespace vellomar
