// Folders that are watched and cards that are plugged in, through the window.
#include <algorithm>
#include <filesystem>

#include <gmock/gmock.h>

#include "app/RunningApp.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::RunningApp;
using testing::spinUntil;

bool holdsJpegs(const std::string& folder) {
    const auto entries = std::filesystem::recursive_directory_iterator(folder);
    return std::ranges::any_of(entries, [](const auto& entry) { return entry.path().extension() == ".jpg"; });
}

class WatchTest : public ::testing::Test {
protected:
    WatchTest() { user.start(); }

    [[nodiscard]] bool shows(const QString& text) {
        user.window().settle();
        return user.window().shows(text);
    }

    [[nodiscard]] std::vector<std::string> sources() { return user.app().content().folders()->sourceList().paths(); }

    // A volume with a camera's folder.
    [[nodiscard]] std::string makeCard() {
        library.makeFolder("media/EOS_DIGITAL/DCIM/100CANON");
        return library / "media/EOS_DIGITAL";
    }

    void plugIn(const std::string& card) {
        user.mounts().mount(card);
        ASSERT_TRUE(spinUntil([this] { return user.app().content().cards()->isOpen(); }));
        user.window().settle();
    }

    RunningApp user;
    const testing::TemporaryFolder& library = user.library();
};

TEST_F(WatchTest, CannotStartWithoutFolders) {
    user.press("WATCH");
    ASSERT_TRUE(user.isOpen("WATCH FOLDER"));
    EXPECT_TRUE(shows("Not set"));
    EXPECT_TRUE(shows("Set source and destination first, then start watching."));
    EXPECT_FALSE(user.canPress("START WATCHING"));
    const auto* const box = user.window().itemNamed("startWatching").findChild<QQuickItem*>("box");
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(testing::colourOf(*box), QColor("#444400"));
    EXPECT_FALSE(shows("FILES PROCESSED"));
    EXPECT_FALSE(shows("ACTIVITY"));
    user.press("CLOSE");
    EXPECT_FALSE(user.isOpen("WATCH FOLDER"));
}

TEST_F(WatchTest, SortsWhatArrivesUntilItIsStopped) {
    user.pickFolders(library.makeFolder("in"), library.makeFolder("out"));
    user.press("WATCH");
    EXPECT_TRUE(user.isChecked("Dry run"));
    user.tap("Dry run");
    EXPECT_TRUE(shows("New files are sorted for real, as they arrive."));
    user.press("START WATCHING");
    EXPECT_TRUE(shows("● ACTIVE"));
    EXPECT_TRUE(shows("Watching for new files…"));
    EXPECT_TRUE(shows("ACTIVITY"));
    EXPECT_FALSE(user.canPress("START WATCHING"));
    EXPECT_NE(user.window().accessible(QAccessible::StaticText, "LAST ACTIVITY: Waiting"), nullptr);
    user.press("CLOSE");

    library.write("in/new folder/IMG_20240102_030405.jpg");
    ASSERT_TRUE(spinUntil([this] { return user.app().content().watch()->filesProcessed() > 0; }));
    user.waitForEnd();
    EXPECT_TRUE(holdsJpegs(library / "out"));

    user.press("WATCH");
    EXPECT_NE(user.window().accessible(QAccessible::StaticText, "FILES PROCESSED: 1"), nullptr);
    EXPECT_EQ(user.window().accessible(QAccessible::StaticText, "LAST ACTIVITY: Waiting"), nullptr);
    user.press("STOP WATCHING");
    EXPECT_FALSE(shows("● ACTIVE"));
    ASSERT_TRUE(spinUntil([this] { return user.app().content().watch()->log().first().endsWith("Watch stopped."); }));
    EXPECT_TRUE(user.canPress("START WATCHING"));
}

TEST_F(WatchTest, ByKeyboardAlone) {
    user.pickFolders(library.makeFolder("in"), library.makeFolder("out"));
    user.press("WATCH");
    user.window().press(Qt::Key_Return);
    EXPECT_TRUE(user.app().content().watch()->isWatching());
    user.window().press(Qt::Key_Escape);
    EXPECT_FALSE(user.isOpen("WATCH FOLDER"));
    EXPECT_TRUE(user.app().content().watch()->isWatching());
}

TEST_F(WatchTest, ARestartWatchesNothing) {
    user.pickFolders(library.makeFolder("in"), library.makeFolder("out"));
    user.press("WATCH");
    user.press("START WATCHING");
    user.start();
    EXPECT_FALSE(user.app().content().watch()->isWatching());
}

TEST_F(WatchTest, ACardIsOfferedAndAddedOnce) {
    const auto card = makeCard();
    plugIn(card);
    ASSERT_TRUE(user.isOpen("CAMERA CARD DETECTED"));
    EXPECT_TRUE(shows("A camera card was mounted. Add its DCIM folder as a source?"));
    EXPECT_TRUE(shows("EOS_DIGITAL"));
    EXPECT_TRUE(shows(QString::fromStdString(card + "/DCIM")));
    EXPECT_TRUE(user.isChecked("Use DCIM folder"));
    user.press("ADD AS SOURCE");
    EXPECT_FALSE(user.isOpen("CAMERA CARD DETECTED"));
    EXPECT_THAT(sources(), ::testing::ElementsAre(card + "/DCIM"));
    plugIn(card);
    user.press("ADD AS SOURCE");
    EXPECT_THAT(sources(), ::testing::ElementsAre(card + "/DCIM"));
    user.start();
    EXPECT_THAT(sources(), ::testing::ElementsAre(card + "/DCIM"));
}

TEST_F(WatchTest, TheWholeCardIsAddedIfAskedFor) {
    const auto card = makeCard();
    plugIn(card);
    user.tap("Use card root");
    EXPECT_FALSE(user.isChecked("Use DCIM folder"));
    EXPECT_TRUE(shows(QString::fromStdString(card)));
    user.press("ADD AS SOURCE");
    EXPECT_THAT(sources(), ::testing::ElementsAre(card));
}

TEST_F(WatchTest, ACardIsIgnoredByButtonOrKey) {
    const auto card = makeCard();
    plugIn(card);
    user.press("IGNORE");
    EXPECT_FALSE(user.isOpen("CAMERA CARD DETECTED"));
    plugIn(card);
    user.window().press(Qt::Key_Escape);
    EXPECT_FALSE(user.isOpen("CAMERA CARD DETECTED"));
    EXPECT_THAT(sources(), ::testing::IsEmpty());
}

// It opens by itself, perhaps while the user is about to press a key for something else.
TEST_F(WatchTest, ACardWaitsForTheSheetThatIsOpen) {
    user.press("PRESETS");
    user.mounts().mount(makeCard());
    ASSERT_TRUE(spinUntil([this] { return user.app().content().cards()->isOpen(); }));
    EXPECT_FALSE(user.isOpen("CAMERA CARD DETECTED"));
    user.press("CLOSE");
    EXPECT_TRUE(user.isOpen("CAMERA CARD DETECTED"));
    user.window().press(Qt::Key_Return);
    EXPECT_FALSE(user.isOpen("CAMERA CARD DETECTED")) << "the focus is on IGNORE";
    EXPECT_THAT(sources(), ::testing::IsEmpty());
}

TEST_F(WatchTest, AVolumeWithoutACamerasFolderIsNotOffered) {
    user.mounts().mount(library.makeFolder("media/BACKUP"));
    const auto card = makeCard();
    plugIn(card);
    EXPECT_TRUE(shows("EOS_DIGITAL"));
}

}  // namespace
}  // namespace vellomar
