#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include "platform/LinuxFileSystem.h"
#include "support/TemporaryFolder.h"
#include "ui/QmlWindow.h"
#include "ui/QtPrinters.h"
#include "ui/theme/HexColour.h"
#include "ui/undo/ManifestsForTests.h"
#include "ui/undo/UndoSheetModel.h"
#include "undo/ManifestText.h"

namespace vellomar {
namespace {

using testing::manifestOf;
using testing::placeOf;
using testing::QmlWindow;

class UndoSheetViewTest : public ::testing::Test {
protected:
    void open() {
        window.show(
            "Item { id: root; property UndoSheetModel model; "
            "UndoSheetView { objectName: 'theSheet'; model: root.model; visible: true } }",
            {{"model", QVariant::fromValue(&model)}});
    }

    void openWithTwoRuns() {
        model.setManifests({manifestOf("2024-06-14T11:40:58", 2, 3), manifestOf("2024-06-13T09:04:05", 0, 1)});
        open();
    }

    void click(const char* name) {
        auto* const button = window.accessible(QAccessible::Button, name);
        ASSERT_NE(button, nullptr) << name;
        window.click(*qobject_cast<QQuickItem*>(button->object()));
    }

    void expectShown(std::initializer_list<const char*> texts) {
        for (const char* const text : texts)
            EXPECT_TRUE(window.shows(text)) << text;
    }

    template <typename Event>
    bool sendDrag(const QMimeData& data) {
        const QPoint middle(450, 300);
        Event event(middle, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window.window(), &event);
        window.settle();
        return event.isAccepted();
    }

    testing::TemporaryFolder folder;
    LinuxFileSystem fileSystem;
    UndoSheetModel model{fileSystem,
                         [](const std::function<void()>& work, const std::function<void()>& then) {
                             work();
                             then();
                         },
                         QLocale("de_DE")};
    QmlWindow window;
};

TEST_F(UndoSheetViewTest, WithoutRunsItIsAPlaceToDropAFile) {
    open();
    expectShown({"UNDO A RUN", "Select a past run to reverse, or import a JSON undo file.", "IMPORT JSON",
                 "No undo files found in destination folder.",
                 "Drag a _vellomar_undo_*.json file here, or click IMPORT JSON above.",
                 "Select a run above to undo it — or drag a JSON file anywhere.", "CANCEL"});
    EXPECT_FALSE(window.shows("UNDO THIS RUN"));
    EXPECT_EQ(window.itemNamed("dropSymbol").property("name").toString(), "arrow.down.doc");
    EXPECT_GE(placeOf(window.itemNamed("sheet")).width(), 560);
    EXPECT_GE(placeOf(window.itemNamed("sheet")).height(), 400);
    EXPECT_EQ(window.focusedName(), "CANCEL");
}

TEST_F(UndoSheetViewTest, ADragAboveTheEmptySheetIsInvited) {
    open();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/a.json")});
    EXPECT_TRUE(sendDrag<QDragEnterEvent>(data));
    EXPECT_TRUE(window.shows("Drop to import"));
    EXPECT_FALSE(window.shows("DROP TO IMPORT"));
    EXPECT_EQ(window.itemNamed("dropSymbol").property("name").toString(), "arrow.down.circle.fill");
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&window.window(), &leave);
    EXPECT_FALSE(window.shows("Drop to import"));
}

TEST_F(UndoSheetViewTest, ADragWithoutFilesIsRefused) {
    open();
    QMimeData data;
    data.setText("text");
    EXPECT_FALSE(sendDrag<QDragEnterEvent>(data));
    EXPECT_FALSE(window.shows("Drop to import"));
}

TEST_F(UndoSheetViewTest, ADroppedFileIsListedAndSelected) {
    openWithTwoRuns();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(
        QString::fromStdString(folder.write("a.json", manifestText(manifestOf("dropped", 1, 0)))))});
    ASSERT_TRUE(sendDrag<QDragEnterEvent>(data));
    EXPECT_TRUE(window.shows("DROP TO IMPORT"));
    EXPECT_TRUE(sendDrag<QDropEvent>(data));
    EXPECT_FALSE(window.shows("DROP TO IMPORT"));
    expectShown({"dropped", "IMPORTED", "1 operations will be reversed"});
    EXPECT_EQ(model.selectedRow(), 2);
}

TEST_F(UndoSheetViewTest, TheFocusMovesOnToAListThatComesLate) {
    open();
    model.setManifests({manifestOf("one", 2, 3)});
    window.settle();
    EXPECT_EQ(window.focusedName(), "UNDO A RUN");
    window.press(Qt::Key_Down);
    EXPECT_EQ(model.selectedRow(), 0);
}

TEST_F(UndoSheetViewTest, TheFocusStaysWhereTheUserHasMovedIt) {
    open();
    window.press(Qt::Key_Tab);
    EXPECT_EQ(window.focusedName(), "IMPORT JSON");
    model.setManifests({manifestOf("one", 2, 3)});
    window.settle();
    EXPECT_EQ(window.focusedName(), "IMPORT JSON");
}

TEST_F(UndoSheetViewTest, ARowTellsItsRun) {
    openWithTwoRuns();
    expectShown({"14.06.2024, 11:40", "5 ops", "SRC  /cards/DCIM", "DEST /photos/library", "2 moved", "3 copied",
                 "13.06.2024, 09:04", "1 ops", "0 moved", "1 copied"});
    EXPECT_FALSE(window.shows("IMPORTED"));
    EXPECT_EQ(window.itemNamed("accentBar").width(), 3);
}

TEST_F(UndoSheetViewTest, AClickSelectsARowWhichCanThenBeUndone) {
    openWithTwoRuns();
    const QSignalSpy undos(&window.object("theSheet"), SIGNAL(undoRequested(int)));
    const auto bars = window.itemsNamed("accentBar");
    EXPECT_EQ(bars[0]->property("color").value<QColor>().alpha(), 0);
    window.click(*bars[0]->parentItem());
    EXPECT_EQ(model.selectedRow(), 0);
    EXPECT_EQ(bars[0]->property("color").value<QColor>(), hexColour("F5C518"));
    EXPECT_EQ(bars[1]->property("color").value<QColor>().alpha(), 0);
    expectShown({"5 operations will be reversed", "Files modified since sorting will be skipped safely.",
                 "UNDO THIS RUN", "CANCEL"});
    EXPECT_FALSE(window.shows("Select a run above to undo it — or drag a JSON file anywhere."));
    click("UNDO THIS RUN");
    ASSERT_EQ(undos.count(), 1);
    EXPECT_EQ(undos[0][0].toInt(), 0);
}

TEST_F(UndoSheetViewTest, KeysSelectAndConfirm) {
    openWithTwoRuns();
    const QSignalSpy undos(&window.object("theSheet"), SIGNAL(undoRequested(int)));
    const QSignalSpy dismissals(&window.object("theSheet"), SIGNAL(dismissed()));
    window.press(Qt::Key_Return);
    EXPECT_EQ(undos.count(), 0);
    window.press(Qt::Key_Down);
    window.press(Qt::Key_Down);
    EXPECT_EQ(model.selectedRow(), 1);
    window.press(Qt::Key_Up);
    EXPECT_EQ(model.selectedRow(), 0);
    window.press(Qt::Key_Down);
    window.press(Qt::Key_Return);
    ASSERT_EQ(undos.count(), 1);
    EXPECT_EQ(undos[0][0].toInt(), 1);
    window.press(Qt::Key_Escape);
    EXPECT_EQ(dismissals.count(), 1);
}

TEST_F(UndoSheetViewTest, NothingIsUndoneWhileAnUndoIsUnderWay) {
    openWithTwoRuns();
    model.select(0);
    window.object("theSheet").setProperty("isUndoing", true);
    window.settle();
    const QSignalSpy undos(&window.object("theSheet"), SIGNAL(undoRequested(int)));
    window.press(Qt::Key_Return);
    click("UNDO THIS RUN");
    EXPECT_EQ(undos.count(), 0);
}

TEST_F(UndoSheetViewTest, TheOtherButtonsAskForWhatTheySay) {
    openWithTwoRuns();
    const QSignalSpy imports(&window.object("theSheet"), SIGNAL(importRequested()));
    const QSignalSpy dismissals(&window.object("theSheet"), SIGNAL(dismissed()));
    click("IMPORT JSON");
    EXPECT_EQ(imports.count(), 1);
    click("CANCEL");
    click("✕");
    EXPECT_EQ(dismissals.count(), 2);
}

TEST_F(UndoSheetViewTest, AFailureStandsAboveTheListUntilItIsDismissed) {
    openWithTwoRuns();
    model.importFiles({"/nowhere/bad.json"});
    window.settle();
    const QString message = "Could not read bad.json — is it a valid Vellomar undo file?";
    EXPECT_TRUE(window.shows(message));
    EXPECT_EQ(window.itemNamed("importError").property("color").value<QColor>(), hexColour("FF4444"));
    EXPECT_NE(window.accessible(QAccessible::AlertMessage, message), nullptr);
    window.click(window.itemNamed("dismissError"));
    EXPECT_FALSE(window.shows(message));
    EXPECT_EQ(model.importError(), "");
}

TEST_F(UndoSheetViewTest, AScreenReaderSeesAListAndSelectsInIt) {
    openWithTwoRuns();
    EXPECT_NE(window.accessible(QAccessible::List, "UNDO A RUN"), nullptr);
    auto* const row = window.accessible(QAccessible::ListItem, "13.06.2024, 09:04");
    ASSERT_NE(row, nullptr);
    EXPECT_TRUE(row->state().selectable);
    EXPECT_FALSE(row->state().selected);
    EXPECT_EQ(row->text(QAccessible::Description), "1 ops, SRC  /cards/DCIM, DEST /photos/library, 0 moved, 1 copied");
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(model.selectedRow(), 1);
    EXPECT_TRUE(row->state().selected);
}

}  // namespace
}  // namespace vellomar
