#include <chrono>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/RunLog.h"

namespace vellomar {
namespace {

using std::chrono::milliseconds;

// Keeps what is posted until the test says so; delays are noted and end when the test says so.
class SteppedMainActor final : public MainActor {
public:
    void post(std::function<void()> work) override {
        const std::lock_guard guard(lock_);
        posted_.push_back(std::move(work));
    }
    void postAfter(milliseconds delay, std::function<void()> work) override {
        const std::lock_guard guard(lock_);
        delays.push_back(delay);
        delayed_.push_back(std::move(work));
    }
    void runPosted() { run(posted_); }
    void runDelayed() { run(delayed_); }

    std::vector<milliseconds> delays;

private:
    void run(std::vector<std::function<void()>>& works) {
        std::vector<std::function<void()>> taken;
        {
            const std::lock_guard guard(lock_);
            taken.swap(works);
        }
        for (const auto& work : taken)
            work();
    }

    std::mutex lock_;
    std::vector<std::function<void()>> posted_;
    std::vector<std::function<void()>> delayed_;
};

class RunLogTest : public ::testing::Test {
protected:
    ~RunLogTest() override { port->close(); }

    [[nodiscard]] const std::deque<std::string>& published() const { return main.published.state().logLines; }

    SteppedMainActor actor;
    MainActorState main{Publication(nullptr), {}, nullptr};
    std::shared_ptr<EnginePort> port = std::make_shared<EnginePort>(actor, main);
    std::shared_ptr<RunLog> log = std::make_shared<RunLog>(actor, port, nullptr);
};

TEST_F(RunLogTest, PublishesAFullBatchAtOnce) {
    for (int i = 0; i < 199; ++i)
        log->appendLog("line");
    actor.runPosted();
    EXPECT_TRUE(published().empty());
    log->appendLog("last");
    actor.runPosted();
    EXPECT_EQ(published().size(), 200);
    EXPECT_EQ(published().back(), "last");
}

TEST_F(RunLogTest, PublishesAFewLinesAfterHalfASecond) {
    log->appendLog("first");
    log->appendLog("second");
    EXPECT_THAT(actor.delays, ::testing::ElementsAre(milliseconds(500)));
    actor.runDelayed();
    actor.runPosted();
    EXPECT_EQ(published().size(), 2);
    log->appendLog("third");
    EXPECT_EQ(actor.delays.size(), 2);
}

TEST_F(RunLogTest, FlushesLessThanABatchOnlyWhenForced) {
    log->appendLog("line");
    log->flushLog(false);
    actor.runPosted();
    EXPECT_TRUE(published().empty());
    log->flushLog(true);
    actor.runPosted();
    EXPECT_EQ(published().size(), 1);
    log->flushLog(true);
    actor.runPosted();
    EXPECT_EQ(published().size(), 1);
}

TEST_F(RunLogTest, KeepsTheOrderOfLinesFromOneThreadAmongMany) {
    constexpr int kLines = 1'000;
    std::vector<std::jthread> threads;
    for (char thread = 'a'; thread < 'e'; ++thread)
        threads.emplace_back([this, thread] {
            for (int i = 0; i < kLines; ++i)
                log->appendLog(thread + std::to_string(i));
        });
    threads.clear();
    log->flushLog(true);
    actor.runPosted();
    ASSERT_EQ(published().size(), 4 * kLines);
    std::map<char, int> next;
    for (const auto& line : published())
        EXPECT_EQ(std::stoi(line.substr(1)), next[line.front()]++);
}

TEST_F(RunLogTest, LetsGoOfLinesWhoseEngineIsGone) {
    log->appendLog("line");
    log->flushLog(true);
    port->close();
    actor.runPosted();
    EXPECT_TRUE(published().empty());
}

TEST_F(RunLogTest, ALateFlushOfALogThatIsGoneDoesNothing) {
    log->appendLog("line");
    log.reset();
    actor.runDelayed();
    actor.runPosted();
    EXPECT_TRUE(published().empty());
}

}  // namespace
}  // namespace vellomar
