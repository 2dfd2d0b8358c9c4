// The options, set as a user sets them, by the names that a screen reader tells.
#include <QDropEvent>
#include <QMimeData>

#include <gmock/gmock.h>

#include "app/RunningApp.h"
#include "settings/OptionSettings.h"
#include "ui/QtPrinters.h"
#include "ui/options/OptionRows.h"
#include "ui/options/OptionSwitch.h"

namespace vellomar {
namespace {

class OptionsTest : public ::testing::Test {
protected:
    // A toggle or a pill.
    void tap(const QString& name) {
        auto* const interface = user.window().accessible(QAccessible::CheckBox, name);
        ASSERT_NE(interface, nullptr) << name.toStdString();
        interface->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        user.window().settle();
    }

    [[nodiscard]] bool isChecked(const QString& name) {
        auto* const interface = user.window().accessible(QAccessible::CheckBox, name);
        return interface != nullptr && interface->state().checked;
    }

    [[nodiscard]] Options kept() { return buildOptions(user.app().settings()); }

    void toggleAll(std::span<const OptionRow> rows) {
        for (const auto& row : rows) {
            SCOPED_TRACE(row.label);
            const bool before = isOptionOn(user.app().settings(), row.key);
            EXPECT_EQ(isChecked(row.label), before);
            tap(row.label);
            EXPECT_EQ(isOptionOn(user.app().settings(), row.key), !before);
            EXPECT_EQ(isChecked(row.label), !before);
        }
    }

    testing::RunningApp user{QSize(1440, 900)};
};

TEST_F(OptionsTest, EveryToggleIsKeptAndSeenBackAfterARestart) {
    user.start();
    toggleAll(basicOptionRows());
    tap("ADVANCED");
    toggleAll(advancedOptionRows());
    toggleAll(fileOptionRows());
    auto expected = kept();
    user.start();
    EXPECT_EQ(kept(), expected);
    EXPECT_TRUE(isChecked("ADVANCED")) << "the tab is kept as well";
    EXPECT_TRUE(isChecked("NAS storage mode"));
    EXPECT_FALSE(isChecked("Verify copy integrity"));
    tap("BASIC");
    EXPECT_FALSE(isChecked("Strip GPS from copies")) << "the other stripping came after it";
    EXPECT_TRUE(isChecked("Strip all metadata"));
}

TEST_F(OptionsTest, KindsOfFilesAreToggledOneByOne) {
    user.start();
    tap("ADVANCED");
    tap("IMG");
    EXPECT_FALSE(kept().includeImages);
    EXPECT_TRUE(user.window().shows("Select at least one type"));
    tap("BASIC");
    EXPECT_TRUE(user.window().shows("Select at least one file type in Advanced"));
    tap("ADVANCED");
    tap("VID");
    tap("OTHER");
    EXPECT_TRUE(kept().includeVideos);
    EXPECT_TRUE(kept().includeOther);
    EXPECT_FALSE(user.window().shows("Select at least one type"));
}

TEST_F(OptionsTest, OverwritingIsAskedForFirst) {
    user.start();
    tap("Overwrite");
    EXPECT_TRUE(user.isOpen("Overwrite Existing Files?"));
    EXPECT_TRUE(
        user.window().shows("OVERWRITE replaces existing files permanently. This cannot be undone. Consider "
                            "using Rename to keep both copies."));
    EXPECT_EQ(user.window().focusedName(), "Cancel");
    user.window().saveScreenshot("alert-overwrite");
    user.press("Cancel");
    EXPECT_FALSE(user.isOpen("Overwrite Existing Files?"));
    EXPECT_TRUE(isChecked("Rename"));

    tap("Overwrite");
    user.press("Use Overwrite");
    EXPECT_EQ(kept().conflictPolicy, ConflictPolicy::overwrite);
    EXPECT_TRUE(isChecked("Overwrite"));
    tap("Skip");
    EXPECT_EQ(kept().conflictPolicy, ConflictPolicy::skip);
}

TEST_F(OptionsTest, HashingWhatNobodyCountedIsAskedForFirst) {
    const auto& library = user.library();
    user.start();
    tap("Check for duplicates");
    user.pickFolders(library.makeFolder("in"), library.makeFolder("out"));
    tap("Check for duplicates");
    EXPECT_TRUE(user.isOpen("SHA-256 Hashing on Large Library?"));
    EXPECT_TRUE(
        user.window().shows("Hashing 50,000+ files can add 1–3 hours. Consider leaving this off for large libraries."));
    EXPECT_FALSE(isChecked("Check for duplicates"));
    user.window().saveScreenshot("alert-hash");
    user.window().press(Qt::Key_Escape);
    EXPECT_FALSE(kept().computeHashForDuplicates);

    tap("Check for duplicates");
    user.press("Enable Anyway");
    EXPECT_TRUE(kept().computeHashForDuplicates);
    EXPECT_TRUE(isChecked("Check for duplicates"));
}

TEST_F(OptionsTest, ACustomFormatIsPutTogetherFromTokens) {
    user.start();
    tap("Custom");
    EXPECT_EQ(kept().namingStyle, NamingStyle::custom);
    auto* const field = user.window().accessible(QAccessible::EditableText, "Custom format");
    ASSERT_NE(field, nullptr);
    auto& item = *qobject_cast<QQuickItem*>(field->object());
    item.forceActiveFocus();
    user.window().press(Qt::Key_A, Qt::ControlModifier);
    user.window().press(Qt::Key_X);
    EXPECT_EQ(kept().customFormat, "x");
    user.press("{YYYY}");
    user.press("{ext}");
    EXPECT_EQ(kept().customFormat, "x{YYYY}{ext}");
    EXPECT_EQ(user.window().itemNamed("formatPreview").property("text").toString(), "x2024jpg");
    EXPECT_EQ(user.window().itemNamed("namingExample").property("text").toString(), "x2024jpg");
    user.window().saveScreenshot("naming-custom");
    user.press("RESET");
    EXPECT_EQ(kept().customFormat, kDefaultCustomFormat);
}

TEST_F(OptionsTest, WhatIsDroppedOnTheFormatGoesToItsEnd) {
    user.start();
    tap("Custom");
    auto& field = user.window().itemNamed("fieldBox");
    QMetaObject::invokeMethod(field.parentItem(), "forceActiveFocus");
    user.window().press(Qt::Key_Home);
    QMimeData data;
    data.setText("{DD}");
    const auto place = testing::placeOf(field).center().toPoint();
    auto& window = *user.app().window();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &enter);
    user.window().settle();
    EXPECT_EQ(field.property("border").value<QObject*>()->property("color").value<QColor>(), QColor("#f5c518"));
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &drop);
    user.window().settle();
    EXPECT_EQ(kept().customFormat, std::string(kDefaultCustomFormat) + "{DD}");
}

TEST_F(OptionsTest, ARunGetsWhatIsSet) {
    const auto& library = user.library();
    library.write("in/IMG_20230814_143021.jpg");
    user.start();
    user.pickFolders(library / "in", library.makeFolder("out"));
    tap("Original");
    user.press("Sort Photos");
    user.press("RUN NOW");
    user.waitForEnd();
    EXPECT_TRUE(testing::exists(library / "out/2023/08/IMG_20230814_143021.jpg"));
}

}  // namespace
}  // namespace vellomar
