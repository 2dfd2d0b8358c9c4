// The sheets of the tools beside a run, in every state.
#include <gmock/gmock.h>

#include "app/LayoutFixture.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::spinUntil;

class ToolsLayoutTest : public testing::LayoutTest {};

TEST_P(ToolsLayoutTest, WithTheWatchedFolder) {
    user.start();
    user.press("WATCH");
    look("watch-without-folders");
    keepSources({library.makeFolder("a rather long name of a folder/" + std::string(200, 'n'))});
    user.start();
    user.press("WATCH");
    look("watch-ready");
    user.press("START WATCHING");
    library.write("a rather long name of a folder/" + std::string(200, 'n') + "/IMG_20240102_030405.jpg");
    ASSERT_TRUE(spinUntil([&] { return user.app().content().watch()->filesProcessed() == 1; }));
    user.waitForEnd();
    look("watch-active");
    user.press("STOP WATCHING");
    look("watch-stopped");
}

TEST_P(ToolsLayoutTest, WithACameraCard) {
    user.start();
    const auto card = library / ("media/" + std::string(255, 'c'));
    library.makeFolder("media/" + std::string(255, 'c') + "/DCIM");
    user.mounts().mount(card);
    ASSERT_TRUE(spinUntil([&] { return user.isOpen("CAMERA CARD DETECTED"); }));
    look("card-long-name");
    library.makeFolder("EOS_DIGITAL/DCIM");
    user.mounts().mount(library / "EOS_DIGITAL");
    ASSERT_TRUE(spinUntil([&] { return user.app().content().cards()->volumeName() == "EOS_DIGITAL"; }));
    look("card");
    user.tap("Use card root");
    look("card-root");
}

TEST_P(ToolsLayoutTest, WithTheDateCorrection) {
    const auto count = [&] {
        ASSERT_TRUE(spinUntil([&] { return user.app().content().dates()->fileCount().has_value(); }));
    };
    user.start();
    user.press("DATE CORRECTION");
    count();
    look("dates-empty");
    window().press(Qt::Key_Escape);
    library.write("source/in/a.jpg");
    for (int i = 0; i < 40; ++i)
        user.app().content().folders()->addSources(
            {library.makeFolder("source/" + std::string(i == 1 ? 200 : 1, 'p') + "hotographs " + std::to_string(i))});
    ASSERT_TRUE(spinUntil([&] { return user.app().content().folders()->sources()->count() == 40; }));
    user.press("DATE CORRECTION");
    user.tap("+9");
    user.type("DAYS", "-9999");
    count();
    look("dates-many");
    user.press("+ 37 more…");
    look("dates-all");
    user.type("Or enter a different path…", QString::fromStdString(library / "source/in"));
    count();
    look("dates-custom");
    user.type("Or enter a different path…", "/nowhere/" + QString(100, u'n'));
    count();
    look("dates-bad");
    for (int i = 0; i < 300; ++i)
        library.write("source/in/" + std::string(200, 'n') + std::to_string(i) + ".jpg");
    user.type("Or enter a different path…", QString::fromStdString(library / "source/in"));
    count();
    user.press("APPLY SHIFT");
    ASSERT_TRUE(spinUntil([&] { return user.app().content().dates()->progress() > 0; }));
    look("dates-running");
    window().press(Qt::Key_Escape);
    look("dates-behind");
    EXPECT_FALSE(user.app().window()->close());
    look("dates-quit");
}

TEST_P(ToolsLayoutTest, WithTheDateCorrectionDone) {
    user.start();
    user.press("DATE CORRECTION");
    user.press("APPLY SHIFT");
    ASSERT_TRUE(spinUntil([&] { return user.app().content().dates()->isDone(); }));
    look("dates-done");
}

INSTANTIATE_TEST_SUITE_P(Sizes, ToolsLayoutTest, ::testing::ValuesIn(testing::kWindowSizes), testing::widthOf);

}  // namespace
}  // namespace vellomar
