// Dates inside real files, shifted by the window with mouse and keys.
#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <chrono>
#include <filesystem>

#include <gmock/gmock.h>

#include "app/RunningApp.h"
#include "platform/LinuxFileSystem.h"
#include "support/MediaFiles.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::spinUntil;

class DateCorrectionSheetTest : public ::testing::Test {
protected:
    // One that was taken on 2023-08-14 at 14:30:21.
    std::string makePhoto(const std::string& name) {
        return makeImage(library, name, {"EXIF:DateTimeOriginal=2023:08:14 14:30:21"});
    }

    std::string dateOf(const std::string& path) {
        LinuxFileSystem fileSystem;
        const std::vector<std::string> arguments = {"-DateTimeOriginal", path};
        const auto read = ExifUtils::ExifTool(fileSystem).runExifToolJSON(arguments, std::chrono::minutes(1));
        return read && read->size() == 1 ? read->front().value("DateTimeOriginal", "none") : "unread";
    }

    void open() {
        user.press("DATE CORRECTION");
        ASSERT_TRUE(user.isOpen("DATE CORRECTION"));
    }

    void openWithSource() {
        user.start();
        user.pickFolders(library.makeFolder("in"), library.makeFolder("out"));
        open();
    }

    bool waitForText(const QString& text) {
        return spinUntil([&] { return user.window().shows(text); });
    }

    // So many that a shift does not end while a test looks at it.
    void writeManyFiles() {
        constexpr int kFiles = 500;
        for (int i = 0; i < kFiles; ++i)
            library.write("in/" + std::to_string(i) + ".jpg");
    }

    void waitForFirstFile() {
        ASSERT_TRUE(spinUntil([&] { return user.app().content().dates()->progress() > 0; }));
    }

    QQuickItem& button(const char* name) {
        auto* const interface = user.window().accessible(QAccessible::Button, name);
        EXPECT_NE(interface, nullptr) << name;
        return *qobject_cast<QQuickItem*>(interface->object());
    }

    QString typed(const char* field) {
        auto* const interface = user.window().accessible(QAccessible::EditableText, field);
        return interface == nullptr ? QString("none") : interface->object()->property("text").toString();
    }

    testing::RunningApp user{QSize(1440, 900)};
    const testing::TemporaryFolder& library = user.library();
};

TEST_F(DateCorrectionSheetTest, ShowsWhatItIsAbout) {
    openWithSource();
    for (const char* const text :
         {"Fix timezone errors or clock drift by shifting EXIF dates on all photos in a folder.",
          "WRITES TO ORIGINAL FILES",
          "This tool modifies EXIF dates in-place using ExifTool. Original files are overwritten. Run a dry run sort "
          "first so you have copies before using this on originals.",
          "TARGET FOLDER", "DATE SHIFT", "DAYS", "HOURS", "TOTAL SHIFT", "No change", "QUICK SET", "Browse", "CANCEL",
          "APPLY SHIFT"})
        EXPECT_TRUE(user.window().shows(text)) << text;
    EXPECT_TRUE(user.window().shows(QString::fromStdString(library / "in")));
    EXPECT_EQ(typed("Or enter a different path…"), "");
    EXPECT_TRUE(waitForText("0 images found"));
    EXPECT_FALSE(user.window().shows("Processing…"));
    EXPECT_FALSE(user.window().shows("EXIFTOOL NOT FOUND"));
    EXPECT_EQ(user.window().focusedName(), "CANCEL");
    EXPECT_GE(testing::placeOf(user.window().itemNamed("sheet")).width(), 440);
    EXPECT_NE(user.window().accessible(QAccessible::AlertMessage, "WRITES TO ORIGINAL FILES"), nullptr);
    const auto colour = [&](const QString& text) {
        for (const QQuickItem* const item : user.window().shownTexts())
            if (item->property("text") == text) return testing::colourOf(*item);
        return QColor();
    };
    EXPECT_EQ(colour("WRITES TO ORIGINAL FILES"), QColor("#ff8c00"));
    EXPECT_EQ(colour("This tool modifies EXIF dates in-place using ExifTool. Original files are overwritten. Run a dry "
                     "run sort first so you have copies before using this on originals."),
              QColor("#c8a060"));
}

TEST_F(DateCorrectionSheetTest, ShiftsTheFilesOfTheSourcesByMouse) {
    library.makeFolder("in/.hidden");
    const auto photo = makePhoto("in/-a photo.JPG");
    const auto hidden = makePhoto("in/.hidden/b.jpg");
    openWithSource();
    EXPECT_TRUE(waitForText("2 images found"));
    user.window().click(button("One day more"));
    user.window().click(button("One day more"));
    user.window().click(button("One day less"));
    for (int i = 0; i < 3; ++i)
        user.window().click(button("One hour less"));
    EXPECT_EQ(typed("DAYS"), "1");
    EXPECT_EQ(typed("HOURS"), "-3");
    EXPECT_TRUE(user.window().shows("+21 hours"));
    user.window().click(button("APPLY SHIFT"));
    ASSERT_TRUE(waitForText("Done — shifted 2 files by +21 hours"));
    EXPECT_EQ(user.window().itemNamed("doneSymbol").property("name"), "checkmark.circle.fill");
    EXPECT_EQ(user.window().itemNamed("doneSymbol").property("colour").value<QColor>(), QColor("#3d8b5e"));
    EXPECT_EQ(dateOf(photo), "2023:08:15 11:30:21");
    EXPECT_EQ(dateOf(hidden), "2023:08:15 11:30:21");
    EXPECT_TRUE(user.canPress("APPLY SHIFT")) << "another shift is possible";
}

TEST_F(DateCorrectionSheetTest, ShiftsTheFilesOfAnotherFolderByKeyboard) {
    const auto untouched = makePhoto("a.jpg");
    library.makeFolder("in");
    std::filesystem::rename(untouched, library / "in/a.jpg");
    library.makeFolder("elsewhere");
    const auto photo = makePhoto("elsewhere/b.jpg");
    openWithSource();
    auto& window = user.window();
    const auto tabTo = [&](const char* name) {
        for (int i = 0; i < 60 && window.focusedName() != name; ++i)
            window.press(Qt::Key_Tab);
        ASSERT_EQ(window.focusedName(), name);
    };
    tabTo("Or enter a different path…");
    user.type("Or enter a different path…", QString::fromStdString(library / "elsewhere"));
    EXPECT_TRUE(waitForText("1 image found"));
    tabTo("DAYS");
    window.press(Qt::Key_Up);
    window.press(Qt::Key_Up);
    window.press(Qt::Key_Down);
    EXPECT_TRUE(window.shows("+1 day"));
    tabTo("HOURS");
    user.type("HOURS", "-5");
    EXPECT_TRUE(window.shows("+19 hours"));
    window.press(Qt::Key_Return);
    EXPECT_FALSE(user.app().content().dates()->isRunning()) << "Return in a field starts nothing";
    tabTo("APPLY SHIFT");
    window.press(Qt::Key_Return);
    ASSERT_TRUE(waitForText("Done — shifted 1 file by +19 hours"));
    EXPECT_EQ(window.focusedName(), "CANCEL");
    EXPECT_EQ(dateOf(photo), "2023:08:15 09:30:21");
    EXPECT_EQ(dateOf(library / "in/a.jpg"), "2023:08:14 14:30:21") << "the sources are left alone";
}

TEST_F(DateCorrectionSheetTest, ReturnClosesItAndStartsNothing) {
    openWithSource();
    user.window().press(Qt::Key_Return);
    EXPECT_FALSE(user.isOpen("DATE CORRECTION"));
    EXPECT_FALSE(user.app().content().dates()->isRunning());
    EXPECT_EQ(user.app().content().dates()->statusText(), "");
    open();
    user.window().press(Qt::Key_Escape);
    EXPECT_FALSE(user.isOpen("DATE CORRECTION"));
}

// Holds each press of the mouse back until no shift is under way.
class PatientMouse final : public QObject {
public:
    PatientMouse(QObject& window, DateCorrection& dates) : dates_(dates) { window.installEventFilter(this); }

    bool eventFilter(QObject* /*window*/, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick) {
            EXPECT_TRUE(spinUntil([this] { return !dates_.isRunning(); }));
        }
        return false;
    }

private:
    DateCorrection& dates_;
};

TEST_F(DateCorrectionSheetTest, TheSecondClickOfTwoIsNoSecondShift) {
    openWithSource();
    EXPECT_TRUE(waitForText("0 images found"));
    user.window().settle();
    auto& dates = *user.app().content().dates();
    int starts = 0;
    // With no files a shift is told of when it begins and when it ends.
    QObject::connect(&dates, &DateCorrection::shiftChanged, [&] { starts += dates.isRunning() ? 1 : 0; });
    const PatientMouse mouse(*user.app().window(), dates);
    ASSERT_TRUE(spinUntil([&] { return button("APPLY SHIFT").isEnabled() && dates.canApply(); }));
    user.window().settle();
    const auto place = testing::placeOf(button("APPLY SHIFT")).center().toPoint();
    QTest::mouseDClick(user.app().window(), Qt::LeftButton, {}, place);
    ASSERT_TRUE(spinUntil([&] { return !dates.isRunning(); }));
    EXPECT_EQ(starts, 1);
    QTest::mouseClick(user.app().window(), Qt::LeftButton, {}, place);
    EXPECT_EQ(starts, 2) << "a click by itself is one";
}

TEST_F(DateCorrectionSheetTest, QuickHoursSetTheHours) {
    openWithSource();
    for (const auto& row : DateCorrection::quickHours()) {
        const auto label = row.toMap().value("label").toString();
        SCOPED_TRACE(label.toStdString());
        EXPECT_FALSE(user.isChecked(label));
        user.tap(label);
        EXPECT_TRUE(user.isChecked(label));
        EXPECT_EQ(typed("HOURS"), QString::number(row.toMap().value("hours").toInt()));
    }
    auto* const chip = user.window().accessible(QAccessible::CheckBox, "+12");
    ASSERT_NE(chip, nullptr);
    EXPECT_EQ(chip->object()->property("colour").value<QColor>(), QColor("#f5c518"));
    EXPECT_EQ(chip->object()->property("fill").value<QColor>(), QColor("#0a0a0a"));
    EXPECT_EQ(user.window().accessible(QAccessible::CheckBox, "+9")->object()->property("colour").value<QColor>(),
              QColor("#909088"));
    user.window().click(button("One hour more"));
    EXPECT_FALSE(user.isChecked("+12"));
    EXPECT_EQ(user.app().content().dates()->days(), 0);
    EXPECT_TRUE(user.window().shows("+13 hours"));
}

TEST_F(DateCorrectionSheetTest, NumbersAreTypedAsTheyCome) {
    openWithSource();
    struct Case {
        const char* keys;
        const char* shown;  // while they are typed
        int hours;
    };
    constexpr Case kCases[] = {{"-", "-", 0}, {"-7", "-7", -7},        {"007", "007", 7},      {"+3", "+3", 3},
                               {"", "", 0},   {"99999", "9999", 9999}, {"1x2.5e", "125", 125}, {"-0", "-0", 0}};
    for (const auto& [keys, shown, hours] : kCases) {
        SCOPED_TRACE(keys);
        user.type("HOURS", "5");
        user.type("HOURS", keys);
        EXPECT_EQ(typed("HOURS"), shown);
        EXPECT_EQ(user.app().content().dates()->hours(), hours);
        user.window().press(Qt::Key_Tab);
        EXPECT_EQ(typed("HOURS"), QString::number(hours)) << "left, the field shows what counts";
    }
    user.type("DAYS", "9999");
    user.window().press(Qt::Key_Up);
    EXPECT_EQ(typed("DAYS"), "9999");
    user.type("DAYS", "-9999");
    user.window().press(Qt::Key_Down);
    EXPECT_EQ(typed("DAYS"), "-9999");
}

TEST_F(DateCorrectionSheetTest, EveryFolderCanBeSeen) {
    user.start();
    for (int i = 0; i < 5; ++i) {
        user.chooser().answerNext({library.makeFolder("source " + std::to_string(i))});
        user.press("Add source folder");
    }
    ASSERT_TRUE(waitForText("SOURCES (5)"));
    open();
    const auto isListed = [&](int i) {
        return user.window().shows(QString::fromStdString(library / ("source " + std::to_string(i))));
    };
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(isListed(i), i < 3) << i;
    user.press("+ 2 more…");
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(isListed(i)) << i;
    EXPECT_FALSE(user.canPress("+ 2 more…"));
    EXPECT_NE(user.window().focusedName(), "");
    user.window().press(Qt::Key_Escape);
    EXPECT_FALSE(user.isOpen("DATE CORRECTION")) << "the focus is not lost";
}

TEST_F(DateCorrectionSheetTest, ABadPathIsToldAndAppliesToNothing) {
    openWithSource();
    user.type("Or enter a different path…", "/nowhere");
    EXPECT_TRUE(waitForText("There is no such folder."));
    EXPECT_TRUE(user.window().shows("0 images found"));
    user.type("Or enter a different path…", "in");
    EXPECT_TRUE(waitForText("Enter the whole path of a folder, which begins with “/”."));
    user.press("APPLY SHIFT");
    EXPECT_TRUE(waitForText("Done — shifted 0 files by 0 hours"));
    user.type("Or enter a different path…", "");
    EXPECT_FALSE(user.window().shows("Enter the whole path of a folder, which begins with “/”."));
    EXPECT_TRUE(user.window().shows(QString::fromStdString(library / "in")));
}

TEST_F(DateCorrectionSheetTest, AFolderIsPickedOrDropped) {
    makePhoto("a.jpg");
    openWithSource();
    user.chooser().answerNext({library.makeFolder("picked")});
    user.press("Browse");
    EXPECT_EQ(typed("Or enter a different path…"), QString::fromStdString(library / "picked"));
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(library.path()))});
    const auto place = testing::placeOf(user.window().itemNamed("sheet")).center();
    QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(user.app().window(), &enter);
    EXPECT_TRUE(user.window().shows("DROP FOLDER"));
    QDropEvent dropped(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(user.app().window(), &dropped);
    EXPECT_EQ(typed("Or enter a different path…"), QString::fromStdString(library.path()));
    EXPECT_TRUE(waitForText("1 image found"));
}

TEST_F(DateCorrectionSheetTest, AShiftGoesOnBehindTheClosedSheet) {
    writeManyFiles();
    openWithSource();
    user.tap("+5");
    user.press("APPLY SHIFT");
    waitForFirstFile();
    EXPECT_TRUE(user.window().shows("Processing…"));
    EXPECT_TRUE(user.window().shows("It goes on when this sheet is closed."));
    EXPECT_FALSE(user.canPress("APPLY SHIFT"));
    EXPECT_FALSE(user.canPress("One hour more"));
    EXPECT_FALSE(user.canPress("Browse"));
    EXPECT_EQ(user.window().focusedName(), "CLOSE") << "CANCEL would be a promise";
    auto* const bar = user.window().accessible(QAccessible::ProgressBar, "Processing…");
    EXPECT_NE(bar, nullptr);
    user.window().press(Qt::Key_Escape);
    EXPECT_FALSE(user.isOpen("DATE CORRECTION"));
    EXPECT_TRUE(user.app().content().dates()->isRunning());
    EXPECT_TRUE(user.window().shows("Dates are being shifted. Runs and undos have to wait until that has ended."));
    EXPECT_FALSE(user.canPress("Sort Photos"));
    EXPECT_FALSE(user.canPress("Dry Run — Preview"));
    EXPECT_FALSE(user.canPress("UNDO"));

    open();
    EXPECT_TRUE(user.window().shows("Processing…"));
    EXPECT_TRUE(waitForText("500 images found"));
    EXPECT_EQ(typed("HOURS"), "5");

    QSignalSpy finished(user.app().content().quit(), &QuitFlow::finished);
    EXPECT_FALSE(user.app().window()->close());
    EXPECT_TRUE(user.isOpen("QUIT VELLOMAR?"));
    user.press("QUIT");
    ASSERT_TRUE(spinUntil([&] { return finished.count() == 1; }));
    EXPECT_THAT(user.app().content().dates()->statusText().toStdString(), ::testing::StartsWith("Stopped — shifted "));
    EXPECT_TRUE(user.app().window()->close());
}

TEST_F(DateCorrectionSheetTest, WaitsForARun) {
    user.writeLargeFiles("in");
    user.start();
    user.pickFolders(library / "in", library.makeFolder("out"));
    user.startDryRun();
    ASSERT_TRUE(spinUntil([&] { return user.canPress("CANCEL"); }));
    open();
    EXPECT_FALSE(user.canPress("APPLY SHIFT"));
    EXPECT_TRUE(user.window().shows("A run or an undo is under way. Dates can be shifted when it has ended."));
    user.app().engine().cancelRun();
    user.waitForEnd();
    EXPECT_TRUE(user.canPress("APPLY SHIFT"));
    EXPECT_FALSE(user.window().shows("A run or an undo is under way. Dates can be shifted when it has ended."));
}

}  // namespace
}  // namespace vellomar
