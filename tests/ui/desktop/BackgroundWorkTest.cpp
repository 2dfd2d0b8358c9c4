#include <QThread>
#include <algorithm>
#include <atomic>
#include <latch>
#include <memory>
#include <semaphore>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ui/desktop/BackgroundWork.h"
#include "ui/desktop/SpinUntil.h"

namespace vellomar {
namespace {

using testing::spinUntil;

TEST(BackgroundWork, IsDoneElsewhereAndItsResultTakenHere) {
    BackgroundWork background;
    QThread* worker = nullptr;
    QThread* taker = nullptr;
    std::string result;
    background.run(
        [&] {
            worker = QThread::currentThread();
            return std::string("done");
        },
        [&](std::string text) {
            taker = QThread::currentThread();
            result = std::move(text);
        });
    EXPECT_EQ(result, "");
    ASSERT_TRUE(spinUntil([&] { return !result.empty(); }));
    EXPECT_EQ(result, "done");
    EXPECT_EQ(taker, QThread::currentThread());
    EXPECT_NE(worker, QThread::currentThread());
}

TEST(BackgroundWork, ItsResultNeedOnlyMove) {
    BackgroundWork background;
    std::unique_ptr<int> result;
    background.run([input = std::make_unique<int>(7)] { return std::make_unique<int>(*input + 1); },
                   [&](std::unique_ptr<int> number) { result = std::move(number); });
    ASSERT_TRUE(spinUntil([&] { return result != nullptr; }));
    EXPECT_EQ(*result, 8);
}

TEST(BackgroundWork, MayHaveNoResult) {
    BackgroundWork background;
    std::atomic<bool> isDone = false;
    bool isTaken = false;
    background.run([&] { isDone = true; }, [&] { isTaken = true; });
    ASSERT_TRUE(spinUntil([&] { return isTaken; }));
    EXPECT_TRUE(isDone);
}

TEST(BackgroundWork, FourPiecesGoOnAtATime) {
    BackgroundWork background;
    std::latch allBegun(4);
    std::atomic<int> underWay = 0;
    std::atomic<int> most = 0;
    int taken = 0;
    for (int i = 0; i < 40; ++i)
        background.run(
            [&, i] {
                const int now = ++underWay;
                int before = most;
                while (before < now && !most.compare_exchange_weak(before, now)) {
                }
                if (i < 4) allBegun.arrive_and_wait();  // so that four must go on together
                --underWay;
            },
            [&] { ++taken; });
    ASSERT_TRUE(spinUntil([&] { return taken == 40; }));
    EXPECT_EQ(most, 4);
}

// Tells on which thread it went.
struct Mourned {
    std::vector<QThread*>& threads;
    explicit Mourned(std::vector<QThread*>& list) : threads(list) {}
    ~Mourned() { threads.push_back(QThread::currentThread()); }
    Mourned(const Mourned&) = delete;
    Mourned& operator=(const Mourned&) = delete;
};

TEST(BackgroundWork, WhatItHoldsGoesHere) {
    std::vector<QThread*> threads;
    BackgroundWork background;
    for (int i = 0; i < 100; ++i)
        background.run([held = std::make_shared<Mourned>(threads)] {}, [held = std::make_shared<Mourned>(threads)] {});
    ASSERT_TRUE(spinUntil([&] { return threads.size() == 200; }));
    EXPECT_EQ(std::ranges::count(threads, QThread::currentThread()), 200);
}

TEST(BackgroundWork, GoneItHasWaitedAndCallsNothing) {
    std::vector<QThread*> threads;
    std::atomic<int> begun = 0;
    std::atomic<int> ended = 0;
    int taken = 0;
    auto background = std::make_unique<BackgroundWork>();
    std::counting_semaphore<> mayEnd(0);
    for (int i = 0; i < 10; ++i)
        background->run(
            [&] {
                ++begun;
                mayEnd.acquire();
                ++ended;
            },
            [&, held = std::make_shared<Mourned>(threads)] { ++taken; });
    ASSERT_TRUE(spinUntil([&] { return begun == 4; }));
    mayEnd.release(10);
    background.reset();
    const int begunBefore = begun;
    EXPECT_EQ(ended, begunBefore);
    EXPECT_EQ(std::ranges::count(threads, QThread::currentThread()), 10);
    int rounds = 0;
    ASSERT_TRUE(spinUntil([&] { return ++rounds >= 3; }));
    EXPECT_EQ(begun, begunBefore);
    EXPECT_EQ(taken, 0);
}

TEST(BackgroundWork, MayBeDestroyedByItsResult) {
    auto background = std::make_unique<BackgroundWork>();
    background->run([] { return 1; }, [&](int) { background.reset(); });
    EXPECT_TRUE(spinUntil([&] { return background == nullptr; }));
}

}  // namespace
}  // namespace vellomar
