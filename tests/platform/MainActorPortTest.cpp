#include <thread>

#include <gtest/gtest.h>

#include "platform/MainActorPort.h"
#include "support/QueueMainActor.h"

namespace vellomar {
namespace {

class MainActorPortTest : public ::testing::Test {
protected:
    testing::QueueMainActor mainActor;
    int state = 0;
    std::shared_ptr<MainActorPort<int>> port = std::make_shared<MainActorPort<int>>(mainActor, state);
};

TEST_F(MainActorPortTest, WorkIsDoneOnTheMainActorInItsOrder) {
    bool isDone = false;
    std::jthread worker([&] {
        port->post([](int& value) { value = 2; });
        EXPECT_TRUE(port->hop([](int& value) { value *= 10; }));
        EXPECT_EQ(state, 20) << "it waits until it is done";
        port->post([&](int&) { isDone = true; });
    });
    mainActor.runUntil([&] { return isDone; });
}

TEST_F(MainActorPortTest, NothingIsDoneOnceItIsClosed) {
    port->post([](int& value) { ++value; });
    EXPECT_FALSE(port->isClosed());
    port->close();
    EXPECT_TRUE(port->isClosed());
    mainActor.runPending();
    EXPECT_FALSE(port->hop([](int& value) { ++value; })) << "nor waited for";
    mainActor.runPending();
    EXPECT_EQ(state, 0);
}

TEST_F(MainActorPortTest, WhoWaitsIsLetGoWhenItCloses) {
    std::jthread worker([&] { EXPECT_FALSE(port->hop([](int& value) { ++value; })); });
    port->close();
    worker.join();
    mainActor.runPending();
    EXPECT_EQ(state, 0);
}

}  // namespace
}  // namespace vellomar
