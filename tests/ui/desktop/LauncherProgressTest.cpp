#include <QDBusArgument>
#include <memory>
#include <vector>

#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/desktop/LauncherProgress.h"
#include "ui/desktop/PrivateBus.h"
#include "ui/desktop/SignalListener.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using ::testing::ElementsAre;
using testing::noBus;
using ::testing::Pair;
using testing::PrivateBus;
using testing::SignalListener;
using testing::spinUntil;

class LauncherProgressTest : public ::testing::Test {
protected:
    // What the dock was told so far: whether a bar is shown, and how far it is.
    [[nodiscard]] std::vector<std::pair<bool, double>> told() const {
        std::vector<std::pair<bool, double>> bars;
        for (const auto& message : dock.messages()) {
            const auto bar = qdbus_cast<QVariantMap>(message.arguments().at(1));
            bars.emplace_back(bar.value("progress-visible").toBool(), bar.value("progress").toDouble());
        }
        return bars;
    }
    [[nodiscard]] bool waitFor(std::size_t count) const {
        return spinUntil([this, count] { return dock.messages().size() >= count; });
    }

    PrivateBus bus;
    SignalListener dock{bus.connect(), "com.canonical.Unity.LauncherEntry", "Update"};
};

TEST_F(LauncherProgressTest, IsSentForTheProgramsIcon) {
    LauncherProgress progress(bus.connect());
    progress.show(0.25);
    ASSERT_TRUE(waitFor(1));
    const auto& message = dock.messages().front();
    EXPECT_EQ(message.signature(), "sa{sv}");
    EXPECT_EQ(message.arguments().at(0).toString(), "application://vellomar.desktop");
    const auto bar = qdbus_cast<QVariantMap>(message.arguments().at(1));
    EXPECT_EQ(bar, (QVariantMap{{"progress", 0.25}, {"progress-visible", true}}));
}

TEST_F(LauncherProgressTest, OfManyStepsTheFirstAndTheLastAreSent) {
    LauncherProgress progress(bus.connect());
    for (int step = 1; step <= 1000; ++step)
        progress.show(step / 1000.0);
    ASSERT_TRUE(waitFor(2));
    progress.hide();
    ASSERT_TRUE(waitFor(3));
    EXPECT_THAT(told(), ElementsAre(Pair(true, 0.001), Pair(true, 1.0), Pair(false, 0.0)));
}

TEST_F(LauncherProgressTest, TheSameIsNotSentTwice) {
    LauncherProgress progress(bus.connect());
    progress.hide();
    progress.show(0.5);
    progress.show(0.5);
    ASSERT_TRUE(waitFor(1));
    progress.show(0.75);
    progress.show(0.5);
    progress.hide();
    ASSERT_TRUE(waitFor(2));
    EXPECT_THAT(told(), ElementsAre(Pair(true, 0.5), Pair(false, 0.0)));
}

TEST_F(LauncherProgressTest, AFractionIsKeptInItsRange) {
    {
        LauncherProgress progress(bus.connect());
        progress.show(1.5);
        ASSERT_TRUE(waitFor(1));
        progress.show(-0.5);
        ASSERT_TRUE(waitFor(2));
    }
    EXPECT_THAT(told(), ElementsAre(Pair(true, 1.0), Pair(true, 0.0)));
}

TEST_F(LauncherProgressTest, TheBarGoesWithTheProgram) {
    auto progress = std::make_unique<LauncherProgress>(bus.connect());
    progress->show(0.5);
    progress.reset();
    ASSERT_TRUE(waitFor(2));
    EXPECT_THAT(told(), ElementsAre(Pair(true, 0.5), Pair(false, 0.0)));
}

TEST_F(LauncherProgressTest, WithoutABusNothingHappens) {
    LauncherProgress progress(noBus());
    progress.show(0.5);
    progress.hide();
    EXPECT_TRUE(told().empty());
}

}  // namespace
}  // namespace vellomar
