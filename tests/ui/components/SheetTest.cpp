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
        window = std::make_unique<QmlWindow>(size);
        root = &window->show(sheet(extra));
        window->itemNamed("behind").forceActiveFocus();
        setOpen(true);
        cancelled = std::make_unique<QSignalSpy>(&window->object("theSheet"), SIGNAL(cancelled()));
        confirmed = std::make_unique<QSignalSpy>(&window->object("theSheet"), SIGNAL(confirmed()));
    }

    void setOpen(bool isOpen) {
        root->setProperty("isOpen", isOpen);
        window->settle();
    }

    [[nodiscard]] QRectF place() { return placeOf(window->itemNamed("sheet")); }

    std::unique_ptr<QmlWindow> window;
    std::unique_ptr<QSignalSpy> cancelled, confirmed;
    QQuickItem* root = nullptr;
};

TEST_F(SheetTest, StandsInTheMiddleInItsLeastSize) {
    open("minimumWidth: 500; minimumHeight: 400");
    EXPECT_EQ(place(), QRectF(200, 100, 500, 400));
}

TEST_F(SheetTest, MayHaveANoteBehindItsTitle) {
    open();
    EXPECT_FALSE(window->itemNamed("sheetTitleNote").isVisible());
    window->object("theSheet").setProperty("titleNote", "· 12 things");
    window->settle();
    const auto note = placeOf(window->itemNamed("sheetTitleNote"));
    const auto title = placeOf(window->itemNamed("sheetTitle"));
    EXPECT_TRUE(window->shows("· 12 things"));
    EXPECT_GT(note.left(), title.right());
    EXPECT_NEAR(note.center().y(), title.center().y(), 1);
}

TEST_F(SheetTest, IsAsHighAsItsContent) {
    open();
    const auto& body = window->itemNamed("content");
    EXPECT_EQ(body.height(), 100);
    EXPECT_EQ(placeOf(window->itemNamed("sheetHeader")).bottom() + 24, placeOf(body).top());
    EXPECT_EQ(placeOf(window->itemNamed("sheetFooter")).top() - 24, placeOf(body).bottom());
    EXPECT_FALSE(window->itemNamed("scrollTrack").isVisible());
}

TEST_F(SheetTest, LeavesAMarginInTheWindowAndScrollsThen) {
    open("minimumWidth: 2000; Item { implicitHeight: 2000; implicitWidth: 5000 }");
    EXPECT_EQ(place(), QRectF(32, 32, 836, 536));
    EXPECT_TRUE(window->itemNamed("scrollTrack").isVisible());
    EXPECT_EQ(window->itemNamed("flickable").property("contentWidth").toDouble(), 836);
    window->press(Qt::Key_End);
    EXPECT_GT(window->itemNamed("flickable").property("contentY").toDouble(), 1000);
}

TEST_F(SheetTest, ABodyThatScrollsByItselfGetsTheHeightThatIsThere) {
    open("scrolls: false; minimumHeight: 400; bodyPadding: 0; Item { objectName: 'list'; Layout.fillHeight: true }");
    const auto list = placeOf(window->itemNamed("list"));
    EXPECT_EQ(list.bottom(), placeOf(window->itemNamed("sheetFooter")).top());
    EXPECT_GT(list.height(), 100);
    EXPECT_FALSE(window->itemNamed("scrollTrack").isVisible());
}

TEST_F(SheetTest, HasItsColoursAndTexts) {
    open();
    const auto colour = [&](const char* name) { return window->itemNamed(name).property("color").value<QColor>(); };
    EXPECT_EQ(colour("sheetBackground"), hexColour("0A0A0A"));
    EXPECT_EQ(colour("sheetHeader"), hexColour("111111"));
    EXPECT_EQ(colour("sheetFooter"), hexColour("111111"));
    EXPECT_EQ(colour("sheetTitle"), hexColour("F5C518"));
    EXPECT_EQ(window->itemNamed("sheetTitle").property("font").value<QFont>().pixelSize(), 18);
    for (const QQuickItem* const line : window->itemsNamed("line")) {
        EXPECT_EQ(line->height(), 1);
        EXPECT_EQ(line->property("color").value<QColor>(), hexColour("1E1E1E"));
    }
    for (const char* const text : {"A TITLE", "What it is about.", "A note", "✕", "ACTION"})
        EXPECT_TRUE(window->shows(text)) << text;
}

TEST_F(SheetTest, EscapeAndTheCrossAskForItsEnd) {
    open();
    window->press(Qt::Key_Escape);
    EXPECT_EQ(cancelled->count(), 1);
    window->click(window->itemNamed("sheetClose"));
    EXPECT_EQ(cancelled->count(), 2);
    EXPECT_TRUE(window->itemNamed("sheet").isVisible());
}

TEST_F(SheetTest, AClickBesideItDoesNothing) {
    open();
    const QSignalSpy clicks(&window->itemNamed("behind"), SIGNAL(clicked()));
    window->click(window->itemNamed("behind"));
    window->clickAt({5, 500});
    EXPECT_EQ(cancelled->count() + confirmed->count() + clicks.count(), 0);
    EXPECT_TRUE(window->itemNamed("sheet").isVisible());
}

TEST_F(SheetTest, ReturnConfirmsAsLongAsTheFocusIsWhereItBegan) {
    open();
    EXPECT_EQ(window->focusedName(), "CANCEL");
    const QSignalSpy clicks(&window->itemNamed("cancel"), SIGNAL(clicked()));
    window->press(Qt::Key_Return);
    window->press(Qt::Key_Enter);
    EXPECT_EQ(confirmed->count(), 2);
    EXPECT_EQ(clicks.count(), 0);
    window->press(Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(SheetTest, ReturnIsTheButtonsOnceTheFocusIsMovedToOne) {
    open();
    window->press(Qt::Key_Tab);
    EXPECT_EQ(window->focusedName(), "RUN");
    const QSignalSpy runs(&window->itemNamed("run"), SIGNAL(clicked()));
    window->press(Qt::Key_Return);
    EXPECT_EQ(runs.count(), 1);
    window->press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(window->focusedName(), "CANCEL");
    const QSignalSpy cancels(&window->itemNamed("cancel"), SIGNAL(clicked()));
    window->press(Qt::Key_Return);
    EXPECT_EQ(cancels.count(), 1);
    EXPECT_EQ(confirmed->count(), 0);
}

TEST_F(SheetTest, ReturnDoesNothingWhereNothingCanBeConfirmed) {
    open("canConfirm: false; Item { objectName: 'other'; activeFocusOnTab: true }");
    window->itemNamed("other").forceActiveFocus();
    window->press(Qt::Key_Return);
    EXPECT_EQ(confirmed->count(), 0);
    window->object("theSheet").setProperty("canConfirm", true);
    window->press(Qt::Key_Return);
    EXPECT_EQ(confirmed->count(), 1);
}

TEST_F(SheetTest, TabGoesRoundInside) {
    open();
    std::vector<std::string> names;
    for (int i = 0; i < 5; ++i) {
        window->press(Qt::Key_Tab);
        names.push_back(window->focusedName().toStdString());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"RUN", "ACTION", "✕", "CANCEL", "RUN"}));
}

TEST_F(SheetTest, TheFocusGoesBackToWhereItCameFrom) {
    open();
    EXPECT_EQ(window->focusedName(), "CANCEL");
    setOpen(false);
    EXPECT_EQ(window->focusedName(), "BEHIND");
    setOpen(true);
    EXPECT_EQ(window->focusedName(), "CANCEL");
}

TEST_F(SheetTest, IsADialogWithItsTitleAsName) {
    open();
    auto* const dialog = window->accessible(QAccessible::Dialog, "A TITLE");
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->text(QAccessible::Description), "What it is about.");
    EXPECT_NE(window->accessible(QAccessible::Button, "CANCEL"), nullptr);
    setOpen(false);
    EXPECT_EQ(window->accessible(QAccessible::Dialog, "A TITLE"), nullptr);
}

}  // namespace
}  // namespace vellomar
