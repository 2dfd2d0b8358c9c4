// The window in every state and at the sizes that it has to hold at. With VELLOMAR_SCREENSHOTS set to a folder, each is
// kept there as a picture to look at.
#include <QTest>
#include <algorithm>
#include <cstdlib>

#include <gmock/gmock.h>

#include "app/LayoutFixture.h"
#include "ui/QtPrinters.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::LayoutTest;
using testing::placeOf;
using testing::spinUntil;

TEST_P(LayoutTest, AtTheFirstStart) {
    user.start();
    look("empty");
}

TEST_P(LayoutTest, WithFoldersAndAnEstimate) {
    library.write("in/IMG_20230814_143021.jpg", std::string(3'000'000, 'x'));
    keepSources({library / "in"});
    user.start();
    user.press("ESTIMATE");
    ASSERT_TRUE(spinUntil([&] { return user.app().content().run()->estimate().has_value(); }));
    look("ready");
    user.press("Dry Run — Preview");
    look("dry-run-sheet");
    window().press(Qt::Key_Escape);
    user.press("Sort Photos");
    ASSERT_TRUE(spinUntil([&] { return user.app().content().run()->estimate().has_value(); }));
    look("run-sheet");
}

TEST_P(LayoutTest, WithFiftySourcesAndLongPaths) {
    std::vector<std::string> paths;
    for (int i = 0; i < 50; ++i)
        paths.push_back(library.makeFolder(std::string(120, 'p') + "/photographs of the year " + std::to_string(i)));
    keepSources(paths);
    user.start();
    look("sources");
    window().itemNamed("flickable").setProperty("contentY", 400);
    look("sources-scrolled");
}

TEST_P(LayoutTest, DuringARun) {
    for (int i = 0; i < 60; ++i)
        library.write("in/trip " + std::to_string(i) + "/IMG_20230814_143021.jpg");
    user.writeLargeFiles("in/zoo");
    keepSources({library / "in", library / "vanished"});
    user.start();
    user.startDryRun();
    ASSERT_TRUE(spinUntil([&] { return user.canPress("CANCEL"); }));
    look("running");
    EXPECT_EQ(window().itemNamed("bottomBar").property("color").value<QColor>(), QColor("#110a0a"));
    EXPECT_FALSE(user.app().window()->close());
    look("quit-sheet");
    user.press("STAY");
    user.press("CANCEL");
    user.waitForEnd();
    look("cancelled");
}

TEST_P(LayoutTest, AfterARun) {
    for (int i = 0; i < 30; ++i)
        library.write("in/trip " + std::to_string(i) + "/IMG_20230814_143021.jpg");
    library.write("in/broken.jpg", "");
    keepSources({library / "in"});
    user.start();
    user.press("Sort Photos");
    user.press("RUN NOW");
    user.waitForEnd();
    look("done");
    user.app().content().log()->setFilter(static_cast<int>(LogFilter::errors));
    look("errors");
    user.press("UNDO");
    ASSERT_TRUE(spinUntil([&] { return user.isOpen("UNDO A RUN"); }));
    window().press(Qt::Key_Down);
    look("undo-sheet");
}

TEST_P(LayoutTest, WithABannerAndNotices) {
    library.write("in/a.jpg");
    keepSources({library / "in", library.makeFolder("out")});
    user.start();
    user.app().content().folders()->addSources({library / "in/a.jpg"});
    ASSERT_TRUE(spinUntil([&] { return user.app().content().notices()->count() == 1; }));
    user.app().content().toggleFloppyMode();
    look("banner");
}

// Pictures in colours of their own, with what a camera writes into them.
void writePictures(const testing::TemporaryFolder& library) {
    library.makeFolder("in/Trip to Lisbon");
    const auto make = [&](const std::string& arguments) { ASSERT_EQ(std::system(arguments.c_str()), 0) << arguments; };
    for (int i = 0; i < 6; ++i) {
        const auto file = library / ("in/Trip to Lisbon/DSCF" + std::to_string(1000 + i) + ".jpg");
        make("convert -size 600x400 plasma:fractal -blur 0x2 '" + file + "'");
        make(
            "exiftool -q -overwrite_original -Make=FUJIFILM -Model=X100V -LensModel='FUJINON 23mm F2' -FNumber=2.8 "
            "-ExposureTime=1/250 -ISO=160 -FocalLength=23 -Flash#=0 -WhiteBalance#=0 -MeteringMode#=5 "
            "-DateTimeOriginal='2023:08:1" +
            std::to_string(i) +
            " 10:00:00' -GPSLatitude=38.7223 -GPSLatitudeRef=N "
            "-GPSLongitude=9.1393 -GPSLongitudeRef=W -GPSAltitude=12 '" +
            file + "'");
    }
    library.write("in/WhatsApp/IMG-20190504-WA0001.jpg", "no picture");
    library.write("in/" + std::string(200, 'n') + ".jpg", "no picture either");
    library.write("in/copy of DSCF1000.jpg", testing::contentOf(library / "in/Trip to Lisbon/DSCF1000.jpg"));
}

TEST_P(LayoutTest, WithAPlanAndItsInspector) {
    writePictures(library);
    keepSources({library / "in"});
    user.start();
    look("plan-empty");
    auto* const content = &user.app().content();
    user.dryRun();
    auto& list = window().itemNamed("planList");
    QMetaObject::invokeMethod(&list, "forceActiveFocus");
    window().press(Qt::Key_Down);
    const auto hasPictures = [](testing::WindowDriver& driver) {
        return std::ranges::any_of(driver.itemsNamed("picture"), &QQuickItem::isVisible);
    };
    ASSERT_TRUE(spinUntil([&] { return hasPictures(window()); }));
    look("plan");

    const auto inspect = [&](const QString& name) {
        for (int row = 0; row < content->plan()->rows()->count(); ++row)
            if (content->plan()->rows()->index(row).data(PlanModel::fileNameRole) == name)
                content->plan()->inspect(row);
        ASSERT_TRUE(spinUntil([&] { return !content->plan()->inspector()->isReading(); }));
    };
    inspect("DSCF1001.jpg");
    const auto lookAtTab = [&](const std::string& state) {
        QTest::qWait(250);  // it fades in
        look("inspector-" + state);
        window().press(Qt::Key_Right);
    };
    lookAtTab("why");
    lookAtTab("camera");
    lookAtTab("location");
    window().press(Qt::Key_Escape);
    inspect("IMG-20190504-WA0001.jpg");
    window().press(Qt::Key_Right);
    lookAtTab("no-camera");
    lookAtTab("no-location");
    window().press(Qt::Key_Escape);

    user.press("POP OUT");
    auto* const own = user.app().window()->findChild<QQuickWindow*>("planWindow");
    own->resize(user.app().window()->size());
    testing::WindowDriver driver(*own);
    ASSERT_TRUE(spinUntil([&] { return hasPictures(driver); }));
    lookAtPlanWindow("window");
    driver.click(driver.itemNamed("filterButton"));
    content->planWindow()->plan()->filters()->cameras()->toggle(0);
    QTest::qWait(300);
    lookAtPlanWindow("filters");
    content->planWindow()->plan()->filters()->setSearchText("nothing like it");
    lookAtPlanWindow("none");
    content->planWindow()->plan()->filters()->setSearchText("");
    content->planWindow()->plan()->inspect(0);
    QTest::qWait(250);
    lookAtPlanWindow("inspector");
}

TEST_P(LayoutTest, WithEachNamingStyle) {
    user.start();
    for (const char* const style : {"Original", "Recommended", "Clean date", "Archival", "Custom"}) {
        user.tap(style);
        look(std::string("naming-") + style);
    }
    user.type("Custom format", QString(300, u'x') + "{original}" + QString(300, u'y'));
    look("naming-long");
}

TEST_P(LayoutTest, WithBothTabsOfOptions) {
    user.start();
    look("basic");
    user.tap("ADVANCED");
    user.tap("IMG");
    look("advanced");
    user.press("Choose which file types to include in the sort.");
    look("explanation");
    window().press(Qt::Key_Escape);
    scrollTools(1.0);
    look("advanced-end");
    user.tap("BASIC");
    scrollTools(1.0);
    look("basic-end");
}

TEST_P(LayoutTest, WithAnAlert) {
    keepSources({library.makeFolder("in")});
    user.start();
    user.tap("Overwrite");
    look("alert-overwrite");
    user.press("Use Overwrite");
    look("overwrite");
    user.tap("Check for duplicates");
    user.tap("Check for duplicates");
    look("alert-hash");
}

TEST_P(LayoutTest, WithPresets) {
    user.start();
    user.press("PRESETS");
    look("presets-empty");
    auto* const presets = user.app().content().presets();
    for (const char* const name : {"Phone", "Card\nof two\nlines"})
        presets->savePreset(name);
    presets->savePreset(QString(1000, u'W'));
    presets->savePreset(QString("many words ").repeated(100));
    look("presets");
    for (int i = 0; i < 50; ++i)
        presets->savePreset("Preset " + QString::number(i));
    look("presets-many");
}

TEST_P(LayoutTest, WithRenameRules) {
    user.start();
    user.press("RENAME RULES");
    look("rules-empty");
    auto* const rules = user.app().content().rules();
    rules->addRule("Vacation", "Vacaciones");
    rules->addRule("Card\nof two\nlines", "One line");
    rules->addRule(QString(1000, u'W'), QString(1000, u'M'));
    rules->addRule("Wedding", "Boda");
    rules->setEnabled(3, false);
    look("rules");
    user.press("DONE");
    look("rules-counted");
}

TEST_P(LayoutTest, ItsPartsHaveTheirSizesAndColours) {
    library.write("in/a.jpg");
    keepSources({library / "in", library.makeFolder("out")});
    user.start();
    user.dryRun();
    const auto sizeOf = [&](const char* name) { return placeOf(window().itemNamed(name)).size(); };
    const auto colourOf = [&](const char* name) { return window().itemNamed(name).property("color").value<QColor>(); };
    const double width = GetParam().width;
    EXPECT_EQ(sizeOf("headerBar"), QSizeF(width, 72));
    EXPECT_NEAR(sizeOf("foldersColumn").width(), std::clamp(width * 0.22, 220.0, 320.0), 1);
    EXPECT_NEAR(sizeOf("toolsColumn").width(), std::clamp(width * 0.27, 280.0, 420.0), 1);
    EXPECT_EQ(sizeOf("logBody").height(), 180);
    EXPECT_EQ(sizeOf("lastRunPanel").height(), 180);
    EXPECT_EQ(sizeOf("progressTrack").height(), 8);
    EXPECT_EQ(sizeOf("fade").height(), 28);
    EXPECT_EQ(window().itemNamed("banner").property("radius").toInt(), 3);
    for (const auto& [name, colour] :
         {std::pair("headerBar", "#0d0d0d"), std::pair("foldersColumn", "#111111"), std::pair("bottomBar", "#111111")})
        EXPECT_EQ(colourOf(name), QColor(colour)) << name;
    EXPECT_EQ(user.app().window()->minimumSize(), QSize(900, 600));
}

TEST_P(LayoutTest, TheRunButtonsAreHighEnoughToHit) {
    user.start();
    for (const char* const name : {"Dry Run — Preview", "Sort Photos"}) {
        auto* const button = window().accessible(QAccessible::Button, name);
        ASSERT_NE(button, nullptr);
        EXPECT_EQ(button->rect().height(), 38) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, LayoutTest, ::testing::ValuesIn(testing::kWindowSizes), testing::widthOf);

}  // namespace
}  // namespace vellomar
