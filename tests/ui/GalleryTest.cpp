// Every sheet and component in the smallest window and in a large one. With VELLOMAR_SCREENSHOTS set to a folder, each
// is kept there as a picture to look at.

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <functional>

#include <gtest/gtest.h>

#include "platform/LinuxFileSystem.h"
#include "support/TemporaryFolder.h"
#include "ui/QmlWindow.h"
#include "ui/confirmation/ConfirmationModel.h"
#include "ui/undo/ManifestsForTests.h"
#include "ui/undo/UndoSheetModel.h"
#include "undo/ManifestText.h"

namespace vellomar {
namespace {

using testing::manifestOf;
using testing::placeOf;
using testing::QmlWindow;

constexpr QSize kSizes[] = {{900, 600}, {1440, 900}};

void runAtOnce(const std::function<void()>& work, const std::function<void()>& then) {
    work();
    then();
}

// No text of the sheet reaches out of it, and none is too long for its line.
void expectTextsFit(QmlWindow& window) {
    for (const QQuickItem* const sheet : window.itemsNamed("sheet")) {
        const auto room = placeOf(*sheet).adjusted(-0.5, -0.5, 0.5, 0.5);
        EXPECT_TRUE(placeOf(*window.window().contentItem()).adjusted(31, 31, -31, -31).contains(room));
        for (const QQuickItem* const text : window.shownTexts()) {
            const auto place = placeOf(*text);
            if (!room.intersects(place)) continue;
            SCOPED_TRACE(text->property("text").toString().toStdString());
            EXPECT_GE(place.left(), room.left());
            EXPECT_LE(place.right(), room.right());
            EXPECT_FALSE(text->property("truncated").toBool() && text->objectName() != "sourceRoot");
        }
    }
}

void look(QmlWindow& window, const std::string& name) {
    SCOPED_TRACE(name + " " + std::to_string(window.window().width()));
    window.settle();
    expectTextsFit(window);
    window.saveScreenshot(name + "-" + std::to_string(window.window().width()));
}

RunSettings fullSettings() {
    RunSettings settings{{"/photos/Card", "/photos/Other"}, "/library/Sorted", {}, {}, 3};
    settings.options.computeHashForDuplicates = settings.options.verifyAfterCopy = true;
    settings.options.keepRawJpegPairs = settings.options.syncFSDates = true;
    settings.options.includeVideos = settings.options.includeOther = true;
    settings.options.moveOriginalsWhenReliable = true;
    return settings;
}

UndoManifest longPaths() {
    auto manifest = manifestOf("2022-01-02T03:04:05", 2, 3);
    manifest.sourceRoot =
        "/media/photographer/CARD-0001/DCIM/100CANON|/media/photographer/CARD-0002/DCIM/101CANON|"
        "/home/photographer/Pictures/Unsorted/2021";
    return manifest;
}

// A file's drag that comes in, and stays.
void dragOver(QmlWindow& window, QPointF place) {
    static QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/tmp/some.json")});
    QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window.window(), &enter);
    EXPECT_TRUE(enter.isAccepted());
}

void dragAway(QmlWindow& window) {
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&window.window(), &leave);
}

void showConfirmation(QmlWindow& window, const char* type, ConfirmationModel& model) {
    window.show("Item { id: root; property ConfirmationModel model; " + std::string(type) +
                    " { model: root.model; visible: true } }",
                {{"model", QVariant::fromValue(&model)}});
}

TEST(Gallery, DryRunConfirmSheet) {
    for (const QSize size : kSizes) {
        ConfirmationModel model(ConfirmationModel::Run::dry);
        model.setSettings({{"/photos/Card"}, "/library/Sorted", {}, RunEstimate{12345, 98'765'432'100, 754}, 0});
        QmlWindow window(size);
        showConfirmation(window, "DryRunConfirmSheet", model);
        look(window, "dry-run");
    }
}

TEST(Gallery, RunSummaryView) {
    for (const QSize size : kSizes) {
        ConfirmationModel model(ConfirmationModel::Run::real);
        model.setSettings({{"/photos/Card"}, "/library/Sorted", {}, {}, 0});
        QmlWindow window(size);
        showConfirmation(window, "RunSummaryView", model);
        look(window, "run-copying");

        model.setSettings(fullSettings());
        model.setEstimate({300'000, 4'321'000'000'000, 18'000});
        look(window, "run-moving");
        window.press(Qt::Key_Tab);
        window.press(Qt::Key_End);
        look(window, "run-moving-end");
    }
}

TEST(Gallery, UndoSheetView) {
    LinuxFileSystem fileSystem;
    const testing::TemporaryFolder folder;
    for (const QSize size : kSizes) {
        UndoSheetModel model(fileSystem, runAtOnce, QLocale("en_US"));
        QmlWindow window(size);
        window.show(
            "Item { id: root; property UndoSheetModel model; UndoSheetView { model: root.model; visible: true } }",
            {{"model", QVariant::fromValue(&model)}});
        look(window, "undo-none");
        dragOver(window, window.window().contentItem()->boundingRect().center());
        look(window, "undo-none-hovered");
        dragAway(window);

        model.setManifests({manifestOf("2024-06-14T11:40:58", 12, 345), manifestOf("2024-06-13T09:04:05", 0, 1),
                            manifestOf("no date", 7, 0), manifestOf("2023-12-31T23:59:59", 1000, 0)});
        look(window, "undo-list");
        model.importFiles({folder.write("imported.json", manifestText(longPaths()))});
        model.importFiles({folder.write("broken.json", "{")});
        look(window, "undo-imported-selected-error");
        dragOver(window, window.window().contentItem()->boundingRect().center());
        look(window, "undo-list-hovered");
    }
}

TEST(Gallery, Components) {
    for (const QSize size : kSizes) {
        QmlWindow window(size);
        window.show(R"(
            Rectangle {
                color: Theme.windowBackground
                ColumnLayout {
                    anchors.fill: parent
                    anchors.margins: 24
                    spacing: 16
                    RowLayout {
                        spacing: 24
                        Wordmark {}
                        Wordmark { size: 32 }
                        Wordmark { size: 16 }
                    }
                    RowLayout {
                        spacing: 24
                        StatusPillView {}
                        StatusPillView { isRunning: true }
                        StatusPillView { statusText: "Done: 12,345 files sorted, 3 errors, 1 skipped" }
                        PulsingDot {}
                    }
                    RowLayout {
                        spacing: 12
                        StatCard { label: "Total files"; value: "12345 / 300000"; Layout.fillWidth: true; Layout.preferredWidth: 1 }
                        StatCard { label: "Total size"; value: "98.8 GB"; accent: true; Layout.fillWidth: true; Layout.preferredWidth: 1 }
                        StatCard { label: "Duplicates"; value: "—"; accent: true; Layout.fillWidth: true; Layout.preferredWidth: 1 }
                    }
                    RowLayout {
                        spacing: 8
                        ToolRowButton { symbol: "arrow.uturn.backward"; text: "UNDO" }
                        ToolRowButton { symbol: "doc.on.doc"; text: "DUPLICATES"; accentColour: Theme.yellow }
                        ToolRowButton { symbol: "gauge.high"; text: "ESTIMATE"; enabled: false }
                        PrimaryButton { symbol: "play.fill"; text: "SORT PHOTOS" }
                        PrimaryButton { symbol: "play.fill"; text: "SORT PHOTOS"; enabled: false }
                        SecondaryButton { text: "CANCEL" }
                        SecondaryButton { symbol: "eye.fill"; text: "DRY RUN"; accent: true; focus: true }
                        CloseButton {}
                    }
                    Panel {
                        label: "Options"
                        Layout.fillWidth: true
                        OptionToggle { label: "Images"; checked: true; Layout.fillWidth: true }
                        OptionToggle {
                            label: "Verify after copy"
                            subLabel: "Compares SHA-256 of source and destination"
                            tooltip: "Reads every copy again and compares it with the original. Slower, and safer."
                            Layout.fillWidth: true
                        }
                    }
                    Panel {
                        label: "Bright"
                        bright: true
                        Layout.fillWidth: true
                        BodyText { text: "A wrapping text. ".repeat(20); Layout.fillWidth: true }
                    }
                    Item {
                        Layout.fillWidth: true
                        Layout.fillHeight: true
                        ScrollArea {
                            anchors.fill: parent
                            BodyText { width: parent.width; text: "One line of many.
".repeat(60) }
                        }
                    }
                }
            }
        )");
        window.click(*window.itemsNamed("help").back());
        look(window, "components");
    }
}

}  // namespace
}  // namespace vellomar
