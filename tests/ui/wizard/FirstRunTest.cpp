#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "settings/SettingsKeys.h"
#include "ui/QtPrinters.h"
#include "ui/wizard/FirstRun.h"
#include "ui/wizard/WizardSurroundings.h"

namespace vellomar {
namespace {

using std::chrono::milliseconds;

// Time passes when the test says so.
class ScriptedTimers final : public MainActor {
public:
    void post(std::function<void()> work) override { postAfter(milliseconds(0), std::move(work)); }

    void postAfter(milliseconds delay, std::function<void()> work) override {
        timers_.emplace_back(now_ + delay, std::move(work));
    }

    void pass(milliseconds time) {
        now_ += time;
        for (auto& [due, work] : timers_)
            if (work && due <= now_) std::exchange(work, {})();
    }

    [[nodiscard]] std::size_t count() const { return timers_.size(); }

private:
    milliseconds now_{0};
    std::vector<std::pair<milliseconds, std::function<void()>>> timers_;
};

class FirstRunTest : public ::testing::Test, protected testing::WizardSurroundings {
protected:
    ScriptedTimers timers;
    std::unique_ptr<FirstRun> firstRun = std::make_unique<FirstRun>(*settings, timers, forModel());
};

TEST_F(FirstRunTest, TheWizardIsOfferedUntilItWasCompletedOnce) {
    firstRun->offerWizard();
    EXPECT_TRUE(firstRun->wizard()->isOpen());
    EXPECT_FALSE(settings->boolean(keys::kHasCompletedWizard)) << "offering is not completing";
    firstRun->wizard()->skipSetup();
    firstRun->offerWizard();
    EXPECT_FALSE(firstRun->wizard()->isOpen());
    firstRun->openWizard();
    EXPECT_TRUE(firstRun->wizard()->isOpen());
}

TEST_F(FirstRunTest, EachEndOfTheWizardBeginsTheTourAtItsFirstStop) {
    for (int round = 0; round < 2; ++round) {
        firstRun->openWizard();
        if (round == 0)
            firstRun->wizard()->skipSetup();
        else
            for (int step = 0; step < 5; ++step)
                firstRun->wizard()->goForward();
        EXPECT_FALSE(firstRun->wizard()->isOpen());
        EXPECT_TRUE(firstRun->tour()->isShown());
        EXPECT_EQ(firstRun->tour()->step(), 0);
        EXPECT_TRUE(settings->boolean(keys::kHasCompletedWizard));
        firstRun->tour()->goForward();
    }
}

TEST_F(FirstRunTest, TheReminderComesAndGoesAtItsTimes) {
    firstRun->wizard()->skipSetup();
    EXPECT_TRUE(settings->boolean(keys::kHasSeenWizardReminder));
    timers.pass(milliseconds(1199));
    EXPECT_FALSE(firstRun->isReminderShown());
    timers.pass(milliseconds(1));
    EXPECT_TRUE(firstRun->isReminderShown());
    timers.pass(milliseconds(6999));
    EXPECT_TRUE(firstRun->isReminderShown());
    timers.pass(milliseconds(1));
    EXPECT_FALSE(firstRun->isReminderShown());
}

TEST_F(FirstRunTest, TheReminderComesOnceForGood) {
    firstRun->wizard()->skipSetup();
    timers.pass(milliseconds(10'000));
    const auto before = timers.count();
    firstRun->openWizard();
    firstRun->wizard()->skipSetup();
    EXPECT_EQ(timers.count(), before);

    firstRun = std::make_unique<FirstRun>(*settings, timers, forModel());
    firstRun->wizard()->skipSetup();
    timers.pass(milliseconds(2000));
    EXPECT_FALSE(firstRun->isReminderShown());
}

TEST_F(FirstRunTest, ADismissedReminderStaysAway) {
    firstRun->wizard()->skipSetup();
    timers.pass(milliseconds(2000));
    firstRun->dismissReminder();
    EXPECT_FALSE(firstRun->isReminderShown());
    timers.pass(milliseconds(10'000));
    EXPECT_FALSE(firstRun->isReminderShown());
}

TEST_F(FirstRunTest, TheReminderOfAWindowThatIsGoneIsNobodys) {
    firstRun->wizard()->skipSetup();
    firstRun.reset();
    timers.pass(milliseconds(10'000));
    EXPECT_EQ(timers.count(), 2U);
}

}  // namespace
}  // namespace vellomar
