// The options, set as a user sets them, by the names that a screen reader tells.
#include <QDropEvent>
#include <QMimeData>
#include <algorithm>

#include <gmock/gmock.h>

#include "app/RunningApp.h"
#include "settings/OptionSettings.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/SpinUntil.h"
#include "ui/options/OptionRows.h"
#include "ui/options/OptionSwitch.h"

namespace vellomar {
namespace {

class OptionsTest : public ::testing::Test {
protected:
    [[nodiscard]] Options kept() { return buildOptions(user.app().settings()); }

    void toggleAll(std::span<const OptionRow> rows) {
        for (const auto& row : rows) {
            SCOPED_TRACE(row.label);
            const bool before = isOptionOn(user.app().settings(), row.key);
            EXPECT_EQ(user.isChecked(row.label), before);
            user.tap(row.label);
            EXPECT_EQ(isOptionOn(user.app().settings(), row.key), !before);
            EXPECT_EQ(user.isChecked(row.label), !before);
        }
    }

    testing::RunningApp user{QSize(1440, 900)};
};

TEST_F(OptionsTest, EveryToggleIsKeptAndSeenBackAfterARestart) {
    user.start();
    toggleAll(basicOptionRows());
    user.tap("ADVANCED");
    toggleAll(advancedOptionRows());
    toggleAll(fileOptionRows());
    auto expected = kept();
    user.start();
    EXPECT_EQ(kept(), expected);
    EXPECT_TRUE(user.isChecked("ADVANCED")) << "the tab is kept as well";
    EXPECT_TRUE(user.isChecked("NAS storage mode"));
    EXPECT_FALSE(user.isChecked("Verify copy integrity"));
    user.tap("BASIC");
    EXPECT_FALSE(user.isChecked("Strip GPS from copies")) << "the other stripping came after it";
    EXPECT_TRUE(user.isChecked("Strip all metadata"));
}

TEST_F(OptionsTest, KindsOfFilesAreToggledOneByOne) {
    user.start();
    user.tap("ADVANCED");
    user.tap("IMG");
    EXPECT_FALSE(kept().includeImages);
    EXPECT_TRUE(user.window().shows("Select at least one type"));
    user.tap("BASIC");
    EXPECT_TRUE(user.window().shows("Select at least one file type in Advanced"));
    user.tap("ADVANCED");
    user.tap("VID");
    user.tap("OTHER");
    EXPECT_TRUE(kept().includeVideos);
    EXPECT_TRUE(kept().includeOther);
    EXPECT_FALSE(user.window().shows("Select at least one type"));
}

TEST_F(OptionsTest, OverwritingIsAskedForFirst) {
    user.start();
    user.tap("Overwrite");
    EXPECT_TRUE(user.isOpen("Overwrite Existing Files?"));
    EXPECT_TRUE(
        user.window().shows("OVERWRITE replaces existing files permanently. This cannot be undone. Consider "
                            "using Rename to keep both copies."));
    EXPECT_EQ(user.window().focusedName(), "Cancel");
    user.window().saveScreenshot("alert-overwrite");
    user.press("Cancel");
    EXPECT_FALSE(user.isOpen("Overwrite Existing Files?"));
    EXPECT_TRUE(user.isChecked("Rename"));

    user.tap("Overwrite");
    user.press("Use Overwrite");
    EXPECT_EQ(kept().conflictPolicy, ConflictPolicy::overwrite);
    EXPECT_TRUE(user.isChecked("Overwrite"));
    user.tap("Skip");
    EXPECT_EQ(kept().conflictPolicy, ConflictPolicy::skip);
}

TEST_F(OptionsTest, HashingWhatNobodyCountedIsAskedForFirst) {
    const auto& library = user.library();
    user.start();
    user.tap("Check for duplicates");
    user.pickFolders(library.makeFolder("in"), library.makeFolder("out"));
    user.tap("Check for duplicates");
    EXPECT_TRUE(user.isOpen("SHA-256 Hashing on Large Library?"));
    EXPECT_TRUE(
        user.window().shows("Hashing 50,000+ files can add 1–3 hours. Consider leaving this off for large libraries."));
    EXPECT_FALSE(user.isChecked("Check for duplicates"));
    user.window().saveScreenshot("alert-hash");
    user.window().press(Qt::Key_Escape);
    EXPECT_FALSE(kept().computeHashForDuplicates);

    user.tap("Check for duplicates");
    user.press("Enable Anyway");
    EXPECT_TRUE(kept().computeHashForDuplicates);
    EXPECT_TRUE(user.isChecked("Check for duplicates"));
}

TEST_F(OptionsTest, ACustomFormatIsPutTogetherFromTokens) {
    user.start();
    user.tap("Custom");
    EXPECT_EQ(kept().namingStyle, NamingStyle::custom);
    user.type("Custom format", "x");
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
    user.tap("Custom");
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

// Everything that the panels can set, set to what it is not at first.
Options othersThanAtFirst() {
    Options options;
    options.moveOriginalsWhenReliable = true;
    options.parseMonthWords = false;
    options.useExifToolForImages = false;
    options.conflictPolicy = ConflictPolicy::skip;
    options.computeHashForDuplicates = false;
    options.namingStyle = NamingStyle::custom;
    options.customFormat = "{YYYY}/{original}.{ext}";
    options.includeImages = false;
    options.includeVideos = true;
    options.includeOther = true;
    options.syncFSDates = true;
    options.resumeFromManifest = true;
    options.usePerceptualHash = true;
    options.verifyAfterCopy = false;
    options.keepRawJpegPairs = false;
    options.moveSidecars = false;
    options.storageIsNetwork = true;
    options.convertHEICToJPEG = true;
    options.stripGPS = true;
    return options;
}

TEST_F(OptionsTest, ARunGetsWhatIsSet) {
    const auto& library = user.library();
    user.start();
    user.pickFolders(library.makeFolder("in"), library.makeFolder("out"));
    for (const char* const choice :
         {"Custom", "Fuzzy month names", "ExifTool for images", "Check for duplicates", "Convert HEIC → JPEG",
          "Copy .xmp sidecars", "Strip GPS from copies", "Skip", "ADVANCED", "Near-duplicate (pHash)",
          "Sync FI dates to EXIF", "Resume interrupted run", "NAS storage mode", "Move originals when reliable",
          "Keep RAW + JPEG pairs", "Verify copy integrity", "IMG", "VID", "OTHER"})
        user.tap(choice);
    user.type("Custom format", "{YYYY}/{original}.{ext}");
    auto expected = othersThanAtFirst();
    EXPECT_EQ(kept(), expected);
    user.press("Sort Photos");
    expected.dryRun = false;
    EXPECT_EQ(user.app().content().run()->pendingRun()->options, expected);
    user.window().press(Qt::Key_Escape);

    user.start();
    expected.dryRun = true;
    expected.includeVideos = false;
    EXPECT_EQ(kept(), expected) << "all but the videos, which are off at each start";
}

TEST_F(OptionsTest, AStartedRunSortsAsItIsSet) {
    const auto& library = user.library();
    library.write("in/IMG_20230814_143021.jpg");
    user.start();
    user.pickFolders(library / "in", library.makeFolder("out"));
    user.tap("Original");
    user.press("Sort Photos");
    user.press("RUN NOW");
    user.waitForEnd();
    EXPECT_TRUE(testing::exists(library / "out/2023/08/IMG_20230814_143021.jpg"));
}

TEST_F(OptionsTest, WhatIsChangedDuringARunChangesNothingAboutIt) {
    const auto& library = user.library();
    library.write("in/Trip/IMG_20230814_143021.jpg");
    user.writeLargeFiles("in/Trip");
    user.start();
    user.pickFolders(library / "in", library.makeFolder("out"));
    user.tap("Original");
    user.press("Sort Photos");
    user.press("RUN NOW");
    ASSERT_TRUE(testing::spinUntil([&] { return user.canPress("CANCEL"); }));
    user.tap("Archival");
    user.tap("ADVANCED");
    user.tap("Move originals when reliable");
    user.tap("IMG");
    user.app().content().rules()->addRule("Trip", "Elsewhere");
    ASSERT_TRUE(user.canPress("CANCEL")) << "the run was too short to be changed";
    user.waitForEnd();
    EXPECT_TRUE(testing::exists(library / "out/2023/08/Trip/IMG_20230814_143021.jpg"));
    EXPECT_TRUE(testing::exists(library / "in/Trip/IMG_20230814_143021.jpg"));
}

TEST_F(OptionsTest, APresetIsSavedLoadedAndDeletedByKeys) {
    user.start();
    user.press("PRESETS");
    EXPECT_TRUE(user.window().shows("No presets saved yet."));
    EXPECT_EQ(user.window().focusedName(), "Preset name (e.g. iPhone backup)");
    user.window().press(Qt::Key_Return);
    EXPECT_EQ(user.app().content().presets()->count(), 0);
    user.type("Preset name (e.g. iPhone backup)", " Phone ");
    user.window().press(Qt::Key_Return);
    EXPECT_TRUE(user.window().shows("Phone"));
    EXPECT_TRUE(user.window().shows("Recommended · Rename"));
    user.window().press(Qt::Key_Escape);
    EXPECT_FALSE(user.isOpen("PRESETS"));
    EXPECT_TRUE(user.window().shows("1 saved"));

    user.tap("Skip");
    user.press("PRESETS");
    while (user.window().focusedName() != "Load Phone")
        user.window().press(Qt::Key_Tab);
    user.window().press(Qt::Key_Space);
    EXPECT_FALSE(user.isOpen("PRESETS"));
    EXPECT_TRUE(user.isChecked("Rename"));

    user.start();
    user.press("PRESETS");
    while (user.window().focusedName() != "Delete Phone")
        user.window().press(Qt::Key_Tab);
    user.window().press(Qt::Key_Return);
    EXPECT_TRUE(user.window().shows("No presets saved yet."));
    EXPECT_EQ(user.window().focusedName(), "Preset name (e.g. iPhone backup)") << "the focus is not lost";
    user.press("CLOSE");
    EXPECT_FALSE(user.isOpen("PRESETS"));
    EXPECT_FALSE(user.window().shows("1 saved"));
}

TEST_F(OptionsTest, APresetIsSavedLoadedAndDeletedByTheMouse) {
    user.start();
    user.press("PRESETS");
    user.type("Preset name (e.g. iPhone backup)", "Phone");
    user.press("SAVE CURRENT");
    EXPECT_TRUE(user.window().shows("Phone"));
    EXPECT_FALSE(user.window().shows("No presets saved yet."));
    user.press("✕");
    user.tap("Archival");
    user.press("PRESETS");
    user.press("Load Phone");
    EXPECT_TRUE(user.isChecked("Recommended"));
    user.press("PRESETS");
    user.press("Delete Phone");
    EXPECT_TRUE(user.window().shows("No presets saved yet."));
}

TEST_F(OptionsTest, RulesAreAddedDisabledAndDeleted) {
    user.start();
    EXPECT_TRUE(user.canPress("RENAME RULES"));
    user.press("RENAME RULES");
    EXPECT_TRUE(user.window().shows("No rules yet. Add one above."));
    EXPECT_FALSE(user.canPress("ADD"));
    user.type("Match text (e.g. Vacation)", "Trip");
    user.window().press(Qt::Key_Return);
    EXPECT_EQ(user.app().content().rules()->count(), 0) << "one text is missing";
    user.type("Replacement (e.g. Vacaciones)", "Journey");
    user.window().press(Qt::Key_Return);
    ASSERT_EQ(user.app().content().rules()->count(), 1);
    EXPECT_EQ(user.window().focusedName(), "Match text (e.g. Vacation)") << "ready for the next one";
    EXPECT_FALSE(user.canPress("ADD")) << "both fields are empty again";
    EXPECT_TRUE(user.isChecked("Enable Trip → Journey"));
    EXPECT_EQ(testing::colourOf(user.window().itemNamed("matchText")), QColor("#e8e8e0"));
    user.tap("Enable Trip → Journey");
    EXPECT_FALSE(user.isChecked("Enable Trip → Journey"));
    for (const char* const part : {"matchText", "replacement"})
        EXPECT_EQ(testing::colourOf(user.window().itemNamed(part)), QColor("#505050"));
    user.tap("Enable Trip → Journey");
    user.press("DONE");
    EXPECT_TRUE(user.canPress("RENAME RULES (1)"));
    EXPECT_TRUE(user.window().shows("1 active"));

    user.press("RENAME RULES (1)");
    while (user.window().focusedName() != "Delete Trip → Journey")
        user.window().press(Qt::Key_Tab);
    user.window().press(Qt::Key_Return);
    EXPECT_TRUE(user.window().shows("No rules yet. Add one above."));
    EXPECT_EQ(user.window().focusedName(), "Match text (e.g. Vacation)");
}

TEST_F(OptionsTest, ARunAppliesTheRulesThatAreEnabled) {
    const auto& library = user.library();
    library.write("in/Trip to Rome/IMG_20230814_143021.jpg");
    library.write("in/Zoo/IMG_20230814_143022.jpg");
    user.start();
    user.pickFolders(library / "in", library.makeFolder("out"));
    user.tap("Original");
    auto* const rules = user.app().content().rules();
    rules->addRule("rome", "Roma");
    rules->addRule("zoo", "Animals");
    rules->setEnabled(1, false);
    user.press("Sort Photos");
    user.press("RUN NOW");
    user.waitForEnd();
    EXPECT_TRUE(testing::exists(library / "out/2023/08/Roma/IMG_20230814_143021.jpg"));
    EXPECT_TRUE(testing::exists(library / "out/2023/08/Zoo/IMG_20230814_143022.jpg"));
}

TEST_F(OptionsTest, RulesEndWithTheProgram) {
    user.start();
    user.app().content().rules()->addRule("a", "b");
    user.start();
    EXPECT_TRUE(user.canPress("RENAME RULES"));
}

TEST_F(OptionsTest, TheToolsStandBelowTheAdvancedOptionsAsWell) {
    user.start();
    const auto countOf = [&](const QString& text) {
        const auto texts = user.window().shownTexts();
        return std::ranges::count_if(texts, [&](const QQuickItem* item) { return item->property("text") == text; });
    };
    EXPECT_EQ(countOf("PRESETS"), 1);
    user.tap("ADVANCED");
    EXPECT_EQ(countOf("PRESETS"), 2);
    EXPECT_EQ(countOf("RENAME RULES"), 2);
}

TEST_F(OptionsTest, FarRowsAreReachedByTheTabKey) {
    user.start();
    auto* const rules = user.app().content().rules();
    for (int i = 0; i < 200; ++i)
        rules->addRule("match " + QString::number(i), "replacement");
    user.press("RENAME RULES (200)");
    for (int presses = 0; presses < 1000 && user.window().focusedName() != "Delete match 199 → replacement"; ++presses)
        user.window().press(Qt::Key_Tab);
    EXPECT_EQ(user.window().focusedName(), "Delete match 199 → replacement");
    EXPECT_TRUE(user.window().shows("match 199"));
}

}  // namespace
}  // namespace vellomar
