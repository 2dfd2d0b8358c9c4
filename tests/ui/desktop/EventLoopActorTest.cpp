#include <QCoreApplication>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

#include "ui/desktop/EventLoopActor.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;
using ::testing::ElementsAre;
using testing::spinUntil;

TEST(EventLoopActor, RunsLaterInTheOrderOfPosting) {
    EventLoopActor actor;
    std::vector<int> ran;
    for (int i = 0; i < 3; ++i)
        actor.post([&ran, i] { ran.push_back(i); });
    EXPECT_TRUE(ran.empty());
    ASSERT_TRUE(spinUntil([&] { return ran.size() == 3; }));
    EXPECT_THAT(ran, ElementsAre(0, 1, 2));
}

TEST(EventLoopActor, RunsOnItsThreadWhoeverPosts) {
    EventLoopActor actor;
    constexpr int kPosts = 2000;
    std::vector<std::vector<int>> ran(4);
    std::atomic<int> strangers = 0;
    int done = 0;
    std::vector<std::thread> posters;
    for (auto& ofOne : ran)
        posters.emplace_back([&] {
            for (int i = 0; i < kPosts; ++i)
                actor.post([&, i] {
                    if (QThread::currentThread() != actor.thread()) ++strangers;
                    ofOne.push_back(i);
                    ++done;
                });
        });
    EXPECT_TRUE(spinUntil([&] { return done == 4 * kPosts; }));
    for (auto& poster : posters)
        poster.join();
    EXPECT_EQ(strangers, 0);
    for (const auto& ofOne : ran) {
        EXPECT_EQ(ofOne.size(), std::size_t{kPosts});
        EXPECT_TRUE(std::ranges::is_sorted(ofOne));
    }
}

TEST(EventLoopActor, WhatIsPostedFromWorkComesAfterWhatIsThere) {
    EventLoopActor actor;
    std::vector<int> ran;
    actor.post([&] {
        ran.push_back(1);
        actor.post([&] { ran.push_back(3); });
    });
    actor.post([&] { ran.push_back(2); });
    ASSERT_TRUE(spinUntil([&] { return ran.size() == 3; }));
    EXPECT_THAT(ran, ElementsAre(1, 2, 3));
}

TEST(EventLoopActor, TheLoopComesToItsOwnBetween) {
    EventLoopActor actor(0ms);  // so that a turn has one piece of work
    constexpr int kPosts = 100;
    int done = 0;
    std::vector<int> doneAtInput;
    QObject window;
    const std::function<void()> giveInput = [&] {
        doneAtInput.push_back(done);
        if (done < kPosts) QMetaObject::invokeMethod(&window, giveInput, Qt::QueuedConnection);
    };
    for (int i = 0; i < kPosts; ++i)
        actor.post([&] { ++done; });
    QMetaObject::invokeMethod(&window, giveInput, Qt::QueuedConnection);
    ASSERT_TRUE(spinUntil([&] { return done == kPosts; }));
    EXPECT_GE(doneAtInput.size(), std::size_t{kPosts} / 2);
}

TEST(EventLoopActor, ATurnEndsWhenItsTimeIsUp) {
    EventLoopActor actor;
    constexpr int kPosts = 100;
    int done = 0;
    int doneAtInput = -1;
    QObject window;
    for (int i = 0; i < kPosts; ++i)
        actor.post([&] {
            const auto end = steady_clock::now() + 1ms;
            while (steady_clock::now() < end) {
            }
            ++done;
        });
    QMetaObject::invokeMethod(
        &window, [&] { doneAtInput = done; }, Qt::QueuedConnection);
    ASSERT_TRUE(spinUntil([&] { return done == kPosts; }));
    EXPECT_GE(doneAtInput, 1);
    EXPECT_LE(doneAtInput, 8);
}

TEST(EventLoopActor, WorkDoesNotRunWithinOtherWork) {
    EventLoopActor actor;
    std::vector<int> ran;
    QObject window;
    actor.post([&] {
        bool hasSpun = false;
        QMetaObject::invokeMethod(
            &window, [&] { hasSpun = true; }, Qt::QueuedConnection);
        actor.post([&] { ran.push_back(3); });
        EXPECT_TRUE(spinUntil([&] { return hasSpun; }));
        ran.push_back(1);
    });
    actor.post([&] { ran.push_back(2); });
    ASSERT_TRUE(spinUntil([&] { return ran.size() == 3; }));
    EXPECT_THAT(ran, ElementsAre(1, 2, 3));
}

TEST(EventLoopActor, RunsDelayedWorkNoEarlier) {
    EventLoopActor actor;
    const auto start = steady_clock::now();
    std::vector<int> ran;
    std::vector<steady_clock::duration> after;
    const auto postAfter = [&](std::chrono::milliseconds delay, int number) {
        actor.postAfter(delay, [&, number] {
            ran.push_back(number);
            after.push_back(steady_clock::now() - start);
        });
    };
    std::thread([&] { postAfter(60ms, 2); }).join();
    postAfter(20ms, 1);
    postAfter(0ms, 0);
    ASSERT_TRUE(spinUntil([&] { return ran.size() == 3; }));
    EXPECT_THAT(ran, ElementsAre(0, 1, 2));
    EXPECT_GE(after[1], 20ms);
    EXPECT_GE(after[2], 60ms);
}

TEST(EventLoopActor, NothingRunsOnceItIsGone) {
    int ran = 0;
    const auto held = std::make_shared<int>();
    auto actor = std::make_unique<EventLoopActor>();
    actor->post([&, held] { ++ran; });
    actor->postAfter(0ms, [&, held] { ++ran; });
    actor->postAfter(1ms, [&, held] { ++ran; });
    QCoreApplication::sendPostedEvents(actor.get());  // starts the timers, after the first piece
    EXPECT_EQ(ran, 1);
    actor->post([&, held] { ++ran; });
    actor.reset();
    EXPECT_EQ(held.use_count(), 1);
    bool isOver = false;
    QTimer::singleShot(20, [&] { isOver = true; });
    ASSERT_TRUE(spinUntil([&] { return isOver; }));
    EXPECT_EQ(ran, 1);
}

// Posts when it goes.
class Parting {
public:
    Parting(MainActor& actor, bool& ran) : actor_(actor), ran_(ran) {}
    ~Parting() {
        actor_.post([&ran = ran_] { ran = true; });
    }
    Parting(const Parting&) = delete;
    Parting& operator=(const Parting&) = delete;

private:
    MainActor& actor_;
    bool& ran_;
};

TEST(EventLoopActor, WhatIsDroppedMayPostOnceMore) {
    bool ran = false;
    auto actor = std::make_unique<EventLoopActor>();
    actor->post([parting = std::make_shared<Parting>(*actor, ran)] {});
    actor.reset();
    bool isOver = false;
    QTimer::singleShot(0, [&] { isOver = true; });
    ASSERT_TRUE(spinUntil([&] { return isOver; }));
    EXPECT_FALSE(ran);
}

}  // namespace
}  // namespace vellomar
