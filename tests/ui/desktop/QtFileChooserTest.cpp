#include <QQuickWindow>
#include <QUrl>
#include <QVariant>
#include <optional>

#include <gtest/gtest.h>

#include "platform/LinuxFileSystem.h"
#include "support/TemporaryFolder.h"
#include "ui/QmlModule.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/QtFileChooser.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::spinUntil;
using testing::TemporaryFolder;
using Paths = std::vector<std::string>;

QUrl urlOf(const std::string& path) {
    return QUrl::fromLocalFile(QString::fromStdString(path));
}

class QtFileChooserTest : public ::testing::Test {
protected:
    QtFileChooserTest() {
        installQmlModule(engine);
        window.show();
    }

    // The dialog for files that Qt has drawn into the window.
    [[nodiscard]] QObject* drawnDialog() const {
        for (auto* const child : window.findChildren<QObject*>())
            if (QString(child->metaObject()->className()).startsWith("FileDialog_")) return child;
        return nullptr;
    }

    TemporaryFolder folder;
    LinuxFileSystem disk;
    QQmlEngine engine;
    QQuickWindow window;
    std::optional<Paths> chosen;
    FileChooser::Done keep = [this](const Paths& paths) { chosen = paths; };
};

TEST_F(QtFileChooserTest, GivesTheFolder) {
    const auto photos = folder.makeFolder("with blanks/100%");
    QtFileChooser chooser(engine, disk);
    chooser.chooseFolders("Select Source Folders", &window, keep);
    auto* const dialog = chooser.findChild<QObject*>("folderDialog");
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->property("title").toString(), "Select Source Folders");
    EXPECT_EQ(dialog->property("acceptLabel").toString(), "Select Source Folders");
    EXPECT_EQ(dialog->property("parentWindow").value<QWindow*>(), &window);
    ASSERT_TRUE(dialog->property("visible").toBool());
    EXPECT_FALSE(chosen);
    dialog->setProperty("selectedFolder", urlOf(photos));
    QMetaObject::invokeMethod(dialog, "accept");
    EXPECT_EQ(chosen, Paths{photos});
}

TEST_F(QtFileChooserTest, GivesFiles) {
    const auto preset = folder.write("a.json");
    QtFileChooser chooser(engine, disk);
    chooser.chooseFiles("Import Presets", &window, {"JSON", {"*.json", "*.JSON"}}, keep);
    auto* const dialog = chooser.findChild<QObject*>("fileDialog");
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->property("title").toString(), "Import Presets");
    EXPECT_EQ(dialog->property("nameFilters").toStringList(), QStringList{"JSON (*.json *.JSON)"});
    ASSERT_TRUE(dialog->property("visible").toBool());
    ASSERT_NE(drawnDialog(), nullptr);
    drawnDialog()->setProperty("selectedFile", urlOf(preset));
    QMetaObject::invokeMethod(drawnDialog(), "accept");
    EXPECT_EQ(chosen, Paths{preset});
}

TEST_F(QtFileChooserTest, SavesUnderAFreeName) {
    for (const char* const expected : {"My preset.json", "My preset (1).json", "My preset (2).json"}) {
        SCOPED_TRACE(expected);
        chosen.reset();
        QtFileChooser chooser(engine, disk);
        chooser.chooseSaveFile("Export Preset", &window, "My preset.json", {"JSON", {"*.json"}}, keep);
        auto* const dialog = chooser.findChild<QObject*>("folderDialog");
        ASSERT_NE(dialog, nullptr);
        dialog->setProperty("selectedFolder", urlOf(folder.path()));
        QMetaObject::invokeMethod(dialog, "accept");
        ASSERT_TRUE(spinUntil([this] { return chosen.has_value(); }));
        EXPECT_EQ(chosen, Paths{folder / expected});
        (void)folder.write(expected);
    }
}

TEST_F(QtFileChooserTest, WhatIsDismissedGivesNothing) {
    QtFileChooser chooser(engine, disk);
    for (int round = 0; round < 2; ++round) {
        chosen.reset();
        chooser.chooseFolder("Select", &window, keep);
        QMetaObject::invokeMethod(chooser.findChild<QObject*>("folderDialog"), "reject");
        EXPECT_EQ(chosen, Paths());
        EXPECT_TRUE(spinUntil([&] { return chooser.findChild<QObject*>("folderDialog") == nullptr; }));
    }
}

TEST_F(QtFileChooserTest, ThereIsOneDialogAtATime) {
    QtFileChooser chooser(engine, disk);
    int answers = 0;
    chooser.chooseFolder("Select", &window, [&](const Paths&) { ++answers; });
    chooser.chooseFolder("Again", &window, keep);
    EXPECT_EQ(chosen, Paths());
    EXPECT_EQ(answers, 0);
    EXPECT_EQ(chooser.findChildren<QObject*>("folderDialog").size(), 1);
}

TEST(QtFileChooserAlone, WithoutAWindowThereIsNoDialog) {
    LinuxFileSystem disk;
    QQmlEngine engine;
    installQmlModule(engine);
    QtFileChooser chooser(engine, disk);
    std::optional<Paths> chosen;
    chooser.chooseFolder("Select", nullptr, [&](const Paths& paths) { chosen = paths; });
    EXPECT_EQ(chosen, Paths());
}

}  // namespace
}  // namespace vellomar
