// What follows the wizard of a first start: the tour, and the reminder.
#include <algorithm>

#include <gmock/gmock.h>

#include "app/FirstStart.h"
#include "settings/SettingsKeys.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::colourOf;
using testing::spinUntil;

class TourTest : public testing::FirstStart {};

TEST_F(TourTest, TheTourFollowsItsKeys) {
    user.startAsFound();
    user.press("Skip Setup");
    EXPECT_FALSE(user.canPress("← Back"));
    window().press(Qt::Key_Left);
    EXPECT_TRUE(user.isOpen("Sources"));
    for (const char* const title : {"Destination", "Config", "DRY RUN & RUN", "Dashboard", "Log & Options"}) {
        window().press(Qt::Key_Right);
        EXPECT_TRUE(user.isOpen(title)) << title;
    }
    EXPECT_TRUE(user.canPress("Got it!"));
    window().press(Qt::Key_Left);
    EXPECT_TRUE(user.isOpen("Dashboard"));
    user.press("← Back");
    EXPECT_TRUE(user.isOpen("DRY RUN & RUN"));
    window().press(Qt::Key_Escape);
    EXPECT_FALSE(tour().isOpen());
    EXPECT_TRUE(user.canPress("Add source folder"));
}

TEST_F(TourTest, TheTourIsLeftByItsButtonsAndAClickBesideIt) {
    user.startAsFound();
    user.press("Skip Setup");
    user.press("Skip Tour");
    EXPECT_FALSE(tour().isOpen());

    tour().open();
    tour().setStep(5);
    user.press("Got it!");
    EXPECT_FALSE(tour().isOpen());

    tour().open();
    window().settle();
    window().click(window().itemNamed("tourTitle"));
    EXPECT_TRUE(tour().isOpen()) << "the callout is not the scrim";
    window().clickAt({850, 100});
    EXPECT_FALSE(tour().isOpen());
}

TEST_F(TourTest, BackGoesWithTheFirstScreenAndLeavesTheFocusInside) {
    user.startAsFound();
    EXPECT_FALSE(user.canPress("← Back"));
    window().press(Qt::Key_Return);
    tabTo("← Back");
    window().press(Qt::Key_Return);
    EXPECT_TRUE(wizard().isWelcome());
    EXPECT_EQ(window().focusedName(), "Next →");
    window().press(Qt::Key_Escape);
    window().press(Qt::Key_Right);
    tabTo("← Back");
    window().press(Qt::Key_Return);
    EXPECT_EQ(tour().step(), 0);
    EXPECT_EQ(window().focusedName(), "Next →");
}

TEST_F(TourTest, TheTourHasItsColours) {
    user.startAsFound();
    user.press("Skip Setup");
    const auto& box = window().itemNamed("tourBox");
    EXPECT_EQ(window().itemNamed("tourCallout").width(), 300);
    EXPECT_EQ(colourOf(box), QColor("#111111"));
    EXPECT_EQ(box.property("border").value<QObject*>()->property("color").value<QColor>(), QColor("#f5c518"));
    EXPECT_EQ(colourOf(window().itemNamed("tourTitle")), QColor("#e8e8e0"));
    EXPECT_EQ(window().itemNamed("tourIcon").property("colour").value<QColor>(), QColor("#e8e8e0"));
    EXPECT_EQ(colourOf(window().itemNamed("tourDescription")), QColor("#b0b0a8"));
    EXPECT_EQ(colourOf(window().itemNamed("tourPosition")), QColor("#555550"));
    EXPECT_EQ(labelColour("Skip Tour"), QColor("#555550"));
    EXPECT_EQ(labelColour("← Back"), QColor()) << "there is nothing to go back to";
    const auto& forward = window().itemNamed("tourForward");
    EXPECT_EQ(forward.property("colour").value<QColor>(), QColor("#0a0a0a"));
    EXPECT_EQ(forward.property("fill").value<QColor>(), QColor("#f5c518"));
}

TEST_F(TourTest, AScrimCoversTheWholeWindow) {
    user.startAsFound();
    user.press("Skip Setup");
    window().drawFrames(2);
    auto shades = window().itemsNamed("tourShade");
    EXPECT_EQ(shades.size(), 4U);
    shades.push_back(&window().itemNamed("tourSpot"));
    double area = 0;
    for (const QQuickItem* const shade : shades) {
        EXPECT_EQ(colourOf(*shade).rgb(), QColor("black").rgb());
        EXPECT_GT(colourOf(*shade).alphaF(), 0);
        area += shade->width() * shade->height();
    }
    EXPECT_DOUBLE_EQ(area, 900.0 * 600.0);
}

TEST_F(TourTest, SkippingStandsAtTheBottomInTheMiddle) {
    user.startAsFound();
    user.press("Skip Setup");
    auto* const interface = window().accessible(QAccessible::Button, "Skip Tour");
    ASSERT_NE(interface, nullptr);
    const auto place = testing::placeOf(*qobject_cast<QQuickItem*>(interface->object()));
    EXPECT_NEAR(place.center().x(), 450, 1);
    EXPECT_GT(place.top(), 550);
}

TEST_F(TourTest, TheTourLeavesTheWindowAsItWas) {
    user.startAsFound();
    user.press("Skip Setup");
    window().press(Qt::Key_Right);
    window().press(Qt::Key_Right);
    window().press(Qt::Key_Right);
    const auto isScrolled = [&] {
        return std::ranges::any_of(window().itemsNamed("flickable"),
                                   [](const QQuickItem* area) { return area->property("contentY").toReal() > 0; });
    };
    EXPECT_TRUE(isScrolled()) << "or there is nothing to put back";
    window().press(Qt::Key_Escape);
    EXPECT_FALSE(isScrolled());
}

TEST_F(TourTest, NothingBelowTheTourIsInReach) {
    user.startAsFound();
    user.app().content().folders()->addSource(library.makeFolder("in"));
    user.app().content().folders()->setDestination({library.makeFolder("out")});
    ASSERT_TRUE(spinUntil([&] { return user.app().content().run()->canRun(); }));
    user.press("Skip Setup");
    window().press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_FALSE(user.isOpen("NORMAL RUN"));
    window().press(Qt::Key_F1);
    EXPECT_FALSE(user.isOpen("VELLOMAR HELP"));
    for (int i = 0; i < 8; ++i) {
        window().press(Qt::Key_Tab);
        EXPECT_THAT(window().focusedName(), ::testing::AnyOf(QString("Next →"), QString("Skip Tour")));
    }
}

TEST_F(TourTest, ACardWaitsForTheWizardAndTheTour) {
    library.makeFolder("EOS_DIGITAL/DCIM");
    user.startAsFound();
    user.mounts().mount(library / "EOS_DIGITAL");
    ASSERT_TRUE(spinUntil([&] { return user.app().content().cards()->isOpen(); }));
    EXPECT_FALSE(user.isOpen("CAMERA CARD DETECTED"));
    user.press("Skip Setup");
    EXPECT_TRUE(user.isOpen("Sources"));
    EXPECT_FALSE(user.isOpen("CAMERA CARD DETECTED"));
    window().press(Qt::Key_Escape);
    EXPECT_TRUE(user.isOpen("CAMERA CARD DETECTED"));
}

TEST_F(TourTest, TheReminderTellsWhereTheWizardIsUntilItIsClicked) {
    user.startAsFound();
    user.press("Skip Setup");
    window().press(Qt::Key_Escape);
    EXPECT_FALSE(window().shows("SETUP WIZARD AVAILABLE"));
    ASSERT_TRUE(spinUntil([&] { return window().shows("SETUP WIZARD AVAILABLE"); }));
    EXPECT_TRUE(
        window().shows("You can re-run the wizard anytime using the SETUP WIZARD button in the toolbar above."));
    EXPECT_TRUE(user.app().settings().boolean(keys::kHasSeenWizardReminder));
    expectToEase("reminderEase", QEasingCurve::OutQuad);
    user.press("SETUP WIZARD AVAILABLE");
    ASSERT_TRUE(spinUntil([&] { return !window().shows("SETUP WIZARD AVAILABLE"); }));
}

}  // namespace
}  // namespace vellomar
